#!/usr/bin/env python3
"""Checks the include rules of the source tree.

- No include cycle between source files; a header and a source of one stem count as one file.
- src/model and src/assembler include no Qt header; src/assembler no JSON header either and no other folder.
- src/build includes no widget header.
- In src/chrcanvas only the files in views include Qt headers, and no other file there includes one of them.
- No folder includes one that stands above it.
"""
import re
import sys
import tempfile
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
QT = re.compile(r"^(Qt\w+/)?Q[A-Z]\w*$|^Qt\w*/|^Qt$|^q\w+\.h$")
WIDGETS = re.compile(
    r"^QtWidgets|^QtGui|^Q(Widget|MainWindow|Dialog|Application|TreeView|ListView|PushButton|Label|Menu|Splitter"
    r"|PlainTextEdit|FileDialog|Painter|Image|Icon|Pixmap|GuiApplication|DesktopServices)$")
# Each folder may include itself and the folders named here.
MAY_INCLUDE = {
    "model": set(),
    "assembler": set(),
    "build": {"model"},
    "tools": {"model", "build"},
    "icons": set(),
    "chrcanvas": {"widgets"},
    "navigation": {"model", "build", "icons", "chrcanvas", "newitem", "editors", "widgets"},
    "newitem": {"model", "icons", "navigation", "chrcanvas", "widgets"},
    "widgets": {"model"},
    "graphics": {"model", "icons", "chrcanvas", "widgets"},
    "editors": {"model", "build", "icons", "navigation", "newitem", "chrcanvas", "widgets", "graphics"},
    "app": {"model", "build", "icons", "chrcanvas", "navigation", "newitem", "widgets", "editors", "graphics"},
}


def read_includes(root):
    src = root / "src"
    for path in sorted(src.rglob("*")):
        if path.suffix in (".h", ".cpp"):
            text = path.read_text(encoding="utf-8")
            yield path.relative_to(src), [(m.group(1) == '"', m.group(2)) for m in INCLUDE.finditer(text)]


def view_stems(root):
    """The files of src/chrcanvas that are views."""
    views = root / "src" / "chrcanvas" / "views"
    return {str(path.relative_to(root / "src").with_suffix("")) for path in views.glob("*.*")}


def find_cycle(graph):
    done, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return None
        path.append(node)
        for target in sorted(graph.get(node, ())):
            cycle = visit(target)
            if cycle:
                return cycle
        path.pop()
        done.add(node)
        return None

    for start in sorted(graph):
        cycle = visit(start)
        if cycle:
            return cycle
    return None


def check(root):
    problems, graph, count = [], {}, 0
    views = view_stems(root)
    for file, includes in read_includes(root):
        count += 1
        folder = file.parts[0]
        stem = str(file.with_suffix(""))
        graph.setdefault(stem, set())
        for own, name in includes:
            is_qt = bool(QT.match(name)) and not own
            if folder in ("model", "assembler") and is_qt:
                problems.append(f"src/{file} includes the Qt header {name}")
            if folder == "assembler" and name.startswith("nlohmann"):
                problems.append(f"src/{file} includes the JSON header {name}")
            if folder == "build" and WIDGETS.match(name):
                problems.append(f"src/{file} includes the widget header {name}")
            if folder == "chrcanvas" and stem not in views:
                if is_qt:
                    problems.append(f"src/{file} includes the Qt header {name} but is none of the views")
                if own and str(Path(name).with_suffix("")) in views:
                    problems.append(f"src/{file} includes the view {name} but is none itself")
            if not own:
                continue
            if not (root / "src" / name).is_file():
                problems.append(f"src/{file} includes \"{name}\", which is not below src/")
                continue
            target = str(Path(name).with_suffix(""))
            if target != stem:
                graph[stem].add(target)
            target_folder = Path(name).parts[0]
            if target_folder != folder and target_folder not in MAY_INCLUDE.get(folder, set()):
                problems.append(f"src/{file} includes \"{name}\": src/{folder} stands below src/{target_folder}")
    cycle = find_cycle(graph)
    if cycle:
        problems.append("include cycle: " + " -> ".join(cycle))
    if count == 0:
        problems.append("no source files found")
    return problems, count


def self_test():
    cases = {
        "a Qt header in model": {"model/A.h": "#include <QString>\n"},
        "a Qt module path in assembler": {"assembler/A.cpp": "#include <QtCore/QFile>\n"},
        "JSON in assembler": {"assembler/A.cpp": "#include <nlohmann/json.hpp>\n"},
        "a widget in build": {"build/A.cpp": "#include <QWidget>\n"},
        "a cycle through sources": {
            "model/A.h": "", "model/A.cpp": '#include "model/A.h"\n#include "model/B.h"\n',
            "model/B.h": "", "model/B.cpp": '#include "model/B.h"\n#include "model/A.h"\n'},
        "Qt in the tile data": {
            "chrcanvas/data/A.h": "#include <QRect>\n", "chrcanvas/views/B.h": "#include <QWidget>\n"},
        "a view in the tile data": {
            "chrcanvas/data/A.h": '#include "chrcanvas/views/B.h"\n', "chrcanvas/views/B.h": ""},
        "model above build": {"model/A.h": '#include "build/B.h"\n', "build/B.h": ""},
        "an empty tree": {},
    }
    failed = 0
    for name, files in cases.items():
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "src").mkdir()
            for file, text in files.items():
                path = Path(folder) / "src" / file
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            if not check(Path(folder))[0]:
                print(f"not noticed: {name}")
                failed += 1
    with tempfile.TemporaryDirectory() as folder:
        for file, text in {
                "model/A.h": "#include <string>\n", "model/A.cpp": '#include "model/A.h"\n',
                "chrcanvas/data/A.h": "", "chrcanvas/views/B.h": '#include "chrcanvas/data/A.h"\n#include <QWidget>\n',
                "chrcanvas/views/B.cpp": '#include "chrcanvas/views/B.h"\n'}.items():
            path = Path(folder) / "src" / file
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        for problem in check(Path(folder))[0]:
            print(f"false alarm: {problem}")
            failed += 1
    return failed


def main():
    if sys.argv[1:] == ["--self-test"]:
        return 1 if self_test() else 0
    problems, count = check(Path(sys.argv[1]))
    for problem in problems:
        print(problem)
    print(f"{count} source files checked, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.setrecursionlimit(10000)
    sys.exit(main())
