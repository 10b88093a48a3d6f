#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the include rules of the source tree against the first table of docs/architecture.md.

A room is a folder that holds sources. The table has a row for each: what it is called, what it is, and what it may use:
other rooms and, of libraries, JSON, uchardet and Qt's modules (Qt Widgets brings Gui and Core, the others Core).

- Every room has a row, and every row has a room.
- A row names only rooms that stand above it in the table (the table lists lower rooms first).
- A source file includes only files of its own room, of the rooms that its row names, and of the libraries there.
- No include cycle between source files; a header and a source of one stem count as one file.

Run with the folder of the checkout and the folder that holds Qt's include folders (QtCore and so on).
"""
import re
import sys
import tempfile
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
ROW = re.compile(r"^\| `(src/[^`]+)` \| [^|]* \| ([^|]*) \|$", re.MULTILINE)
QUOTED_ROOM = re.compile(r"`(src/[^`]+)`")
BRINGS = {"Qt Widgets": {"QtWidgets", "QtGui", "QtCore"}, "Qt Gui": {"QtGui", "QtCore"},
          "Qt Network": {"QtNetwork", "QtCore"}, "Qt DBus": {"QtDBus", "QtCore"},
          "Qt Core": {"QtCore"}, "JSON": {"JSON"}, "uchardet": {"uchardet"}}


class Room:
    def __init__(self, name, uses, order):
        self.name, self.order = name, order
        self.rooms = set(QUOTED_ROOM.findall(uses))
        words = {word.strip() for word in QUOTED_ROOM.sub("", uses).split(",")} - {""}
        self.unknown = words - set(BRINGS) - {"the standard library"}
        self.libraries = set().union(*(BRINGS[word] for word in words & set(BRINGS)))


def read_rooms(root):
    page = root / "docs" / "architecture.md"
    text = page.read_text(encoding="utf-8") if page.is_file() else ""
    table = text.split("\n## ", 1)[0]
    return {name: Room(name, uses, order) for order, (name, uses) in enumerate(ROW.findall(table))}


def read_includes(root):
    src = root / "src"
    for path in sorted(src.rglob("*")):
        if path.suffix in (".h", ".cpp"):
            text = path.read_text(encoding="utf-8")
            yield path.relative_to(src), [(m.group(1) == '"', m.group(2)) for m in INCLUDE.finditer(text)]


def library_of(name, qt):
    """The library that a header in angle brackets belongs to, or None for the system's own."""
    if name.startswith("nlohmann"):
        return "JSON"
    if name.startswith("uchardet"):
        return "uchardet"
    module = re.match(r"(Qt\w+)/", name)
    if module:
        return module.group(1)
    if name.lower().startswith("q"):
        for module in sorted(qt.glob("Qt*")):
            if (module / name).exists():
                return module.name
    return None


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


def check_table(rooms, present):
    problems = [f"docs/architecture.md has no row for the room {room}" for room in sorted(present - set(rooms))]
    problems += [f"docs/architecture.md has a row for {room}, which holds no source" for room in rooms
                 if room not in present]
    for room in rooms.values():
        for other in sorted(room.rooms):
            if other not in rooms:
                problems.append(f"the row of {room.name} names {other}, which has no row")
            elif rooms[other].order >= room.order:
                problems.append(f"the row of {room.name} names {other}, which stands below it in the table: "
                                "lower rooms come first")
        for word in sorted(room.unknown):
            problems.append(f"the row of {room.name} names the library {word}, which this check does not know")
    return problems


def check_include(root, file, own, name, room, qt):
    """Why `file` may not include `name`, or None."""
    if not own:
        library = library_of(name, qt)
        allowed = library is None or library in room.libraries
        return None if allowed else f"src/{file} includes <{name}>: the row of {room.name} does not name {library}"
    if not (root / "src" / name).is_file():
        return f"src/{file} includes \"{name}\", which is not below src/"
    target = "src/" + str(Path(name).parent)
    if target == room.name or target in room.rooms:
        return None
    return f"src/{file} includes \"{name}\": the row of {room.name} does not name {target}"


def check(root, qt):
    rooms = read_rooms(root)
    problems, graph, present, count = [], {}, set(), 0
    for file, includes in read_includes(root):
        count += 1
        name = "src/" + str(file.parent)
        present.add(name)
        stem = str(file.with_suffix(""))
        graph.setdefault(stem, set())
        for own, included in includes:
            problem = name in rooms and check_include(root, file, own, included, rooms[name], qt)
            if problem:
                problems.append(problem)
            target = str(Path(included).with_suffix(""))
            if own and target != stem:
                graph[stem].add(target)
    problems += check_table(rooms, present)
    cycle = find_cycle(graph)
    if cycle:
        problems.append("include cycle: " + " -> ".join(cycle))
    if count == 0:
        problems.append("no source files found")
    return problems, count


TABLE = """# Rooms

| Room | What it is | May use |
|---|---|---|
| `src/model` | the model | the standard library, JSON |
| `src/canvas/data` | tiles | the standard library |
| `src/build` | the builder | `src/model`, Qt Core |
| `src/canvas/views` | views | `src/canvas/data`, Qt Widgets |

## More

| `src/none` | not of the table | `src/nowhere` |
"""
GOOD = {"docs/architecture.md": TABLE,
        "src/model/A.h": "#include <nlohmann/json.hpp>\n#include <string>\n",
        "src/model/A.cpp": '#include "model/A.h"\n',
        "src/canvas/data/D.h": "",
        "src/build/B.h": '#include "model/A.h"\n#include <QString>\n#include <QtCore/QFile>\n',
        "src/canvas/views/V.h": '#include "canvas/data/D.h"\n#include <QWidget>\n#include <qimage.h>\n#include <QFile>\n'}
BAD = {
    "an upward include": {"src/model/A.h": '#include "build/B.h"\n', "src/build/B.h": ""},
    "an include beside it": {"src/build/B.h": '#include "canvas/data/D.h"\n'},
    "an upward include within a folder": {"src/canvas/data/D.h": '#include "canvas/views/V.h"\n',
                                          "src/canvas/views/V.h": ""},
    "a room that is not named, one of whose folder is": {"src/build/B.h": '#include "model/more/M.h"\n',
                                                         "src/model/more/M.h": ""},
    "Qt in model": {"src/model/A.h": "#include <QString>\n"},
    "a Qt module path in model": {"src/model/A.cpp": "#include <QtCore/QFile>\n"},
    "a widget in build": {"src/build/B.h": "#include <QWidget>\n"},
    "JSON in the tile data": {"src/canvas/data/D.h": "#include <nlohmann/json.hpp>\n"},
    "a header that is not there": {"src/build/B.h": '#include "model/None.h"\n'},
    "a cycle through sources": {
        "src/model/A.cpp": '#include "model/A.h"\n#include "model/B.h"\n', "src/model/B.h": "",
        "src/model/B.cpp": '#include "model/B.h"\n#include "model/A.h"\n'},
    "a room without a row": {"src/more/M.h": ""},
    "a row without a room": {"docs/architecture.md": TABLE.replace("## More", "| `src/gone` | x | JSON |\n\n## More")},
    "a row that names a room below it": {"docs/architecture.md": TABLE.replace("JSON |", "JSON, `src/build` |")},
    "a row that names what is no room": {"docs/architecture.md": TABLE.replace("Qt Core |", "Qt Core, `src/x` |")},
    "a library that nobody knows": {"docs/architecture.md": TABLE.replace("Qt Core |", "Qt Core, boost |")},
    "no table": {"docs/architecture.md": "# Rooms\n"},
    "no page": {"docs/architecture.md": None},
    "an empty tree": {file: None for file in GOOD},
}


def self_test(qt):
    failed = 0
    for name, changes in {"": {}, **BAD}.items():
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "src").mkdir()
            for file, text in {**GOOD, **changes}.items():
                if text is not None:
                    path = Path(folder) / file
                    path.parent.mkdir(parents=True, exist_ok=True)
                    path.write_text(text)
            problems, _ = check(Path(folder), qt)
            if bool(problems) != bool(name):
                print(f"not noticed: {name}" if name else f"false alarm: {problems}")
                failed += 1
    return failed


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: check_includes.py CHECKOUT|--self-test QT_INCLUDE_FOLDER")
    qt = Path(sys.argv[2])
    if not (qt / "QtCore").is_dir():
        sys.exit(f"{qt} does not hold Qt's include folders")
    if sys.argv[1] == "--self-test":
        return 1 if self_test(qt) else 0
    problems, count = check(Path(sys.argv[1]), qt)
    for problem in problems:
        print(problem)
    print(f"{count} source files checked, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.setrecursionlimit(10000)
    sys.exit(main())
