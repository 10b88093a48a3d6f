#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the documents name only what exists.

- Every path in back quotes that looks like one of ours exists.
- Every `--preset NAME` exists in CMakePresets.json.
- Every target (`--target NAME`) and every program in a build tree is named by a CMakeLists.txt.
- Every relative link leads to a file.
- docs/architecture.md has an entry for each source file below src/ (a stem covers header and source);
  check_includes.py holds its table of rooms.
- CHANGELOG.md has a section for the version in CMakeLists.txt, above those of older versions.
- .editorconfig and .clang-format agree on indentation and width of C++.
- Every manual page that a manual page refers to is one of ours.
"""
import json
import re
import sys
import tempfile
from pathlib import Path

TOP = ("src/", "tests/", "docs/", "examples/", "scripts/", "benchmarks/", "resources/", "cmake/", ".ci/", "./")
QUOTED = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(([^)#:]+)(?:#[^)]*)?\)")
MANUAL = re.compile(r"^\.Xr (\S+) (\d)", re.MULTILINE)
BUILT = re.compile(r"--target (\w[\w-]*)|\bout/\w+/(\w[\w/-]*)")
PRESET = re.compile(r"--preset[ =](\w+)")


def documents(root):
    yield from (root / name for name in ("README.md", "CONTRIBUTING.md", "CHANGELOG.md"))
    yield from sorted((root / "docs").glob("*.md"))


def named_paths(text):
    for quoted in QUOTED.findall(text):
        word = quoted.split()[0]
        if word.startswith(TOP) and not re.search(r"[<>*$]|(^|/)[A-Z]+(/|$)", word):
            yield word.rstrip(".,:;")


def exists(root, path):
    return any((root / (path + ending)).exists() for ending in ("", ".h", ".cpp"))


def wrong_version(root):
    version = re.search(r"^project\(.*? VERSION ([\d.]+)", (root / "CMakeLists.txt").read_text(), re.MULTILINE)
    newest = re.search(r"^## (\d[\d.]*) - \d{4}-\d\d-\d\d$", (root / "CHANGELOG.md").read_text(), re.MULTILINE)
    if not version or not newest or version[1] != newest[1]:
        yield (f"CMakeLists.txt has the version {version and version[1]}, "
               f"the newest of CHANGELOG.md is {newest and newest[1]}")


def wrong_layout(root):
    layout = (root / ".clang-format").read_text()
    settings = (root / ".editorconfig").read_text().partition("[*.{h,cpp}]\n")[2].partition("[")[0]
    for option, name in (("indent_size", "IndentWidth"), ("max_line_length", "ColumnLimit")):
        wanted = re.search(rf"^{name}: *(\d+)$", layout, re.MULTILINE)
        if not wanted or f"{option} = {wanted[1]}\n" not in settings:
            yield f"the {option} of C++ in .editorconfig is not the {name} of .clang-format"


def programs_not_built(root, text):
    """Targets and programs of build trees that a text names and no CMakeLists.txt does."""
    lists = "".join(file.read_text() for folder in ("src", "tests", "benchmarks")
                    for file in sorted((root / folder).rglob("CMakeLists.txt")))
    for target, program in sorted(set(BUILT.findall(text))):
        name = target or program.removeprefix("bin/")
        if "/" in name or not re.search(rf"(?<![\w-]){re.escape(name)}(?![\w-])", lists):
            yield target or program


def check(root):
    problems = []
    presets = {p["name"] for p in json.loads((root / "CMakePresets.json").read_text())["configurePresets"]}
    for document in documents(root):
        if not document.is_file():
            problems.append(f"{document.name} is missing")
            continue
        text = document.read_text(encoding="utf-8")
        for path in named_paths(text):
            if not exists(root, path):
                problems.append(f"{document.name} names {path}, which does not exist")
        for link in LINK.findall(text):
            if not (document.parent / link).exists():
                problems.append(f"{document.name} links to {link}, which does not exist")
        for preset in PRESET.findall(text):
            if preset not in presets:
                problems.append(f"{document.name} names the preset {preset}, which does not exist")
        for name in programs_not_built(root, text):
            problems.append(f"{document.name} names {name}, which no CMakeLists.txt builds")
    problems.extend(wrong_version(root))
    problems.extend(wrong_layout(root))
    for page in sorted((root / "docs" / "man").glob("*.[1-9]")):
        for name, section in MANUAL.findall(page.read_text(encoding="utf-8")):
            if not (page.parent / f"{name}.{section}").is_file():
                problems.append(f"{page.name} refers to {name}({section}), which does not exist")
    architecture = root / "docs" / "architecture.md"
    if architecture.is_file():
        text = architecture.read_text(encoding="utf-8")
        described = set(QUOTED.findall(text))
        for path in sorted((root / "src").rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            name = str(path.relative_to(root))
            stem = str(path.relative_to(root).with_suffix(""))
            if name not in described and stem not in described:
                problems.append(f"docs/architecture.md has no entry for {name}")
    else:
        problems.append("docs/architecture.md is missing")
    return problems


def self_test():
    failed = 0
    base = {"CMakePresets.json": '{"configurePresets": [{"name": "dev"}]}', "README.md": "", "CONTRIBUTING.md": "",
            "CMakeLists.txt": "project(Bird VERSION 1.2.0 LANGUAGES CXX)\n",
            "CHANGELOG.md": "## Unreleased\n## 1.2.0 - 2026-11-22\n## 1.1.0 - 2026-11-01\n",
            ".clang-format": "IndentWidth: 4\nColumnLimit: 100\n",
            ".editorconfig": "[*]\nindent_size = 2\n[*.{h,cpp}]\nindent_size = 4\nmax_line_length = 100\n",
            "tests/CMakeLists.txt": "add_executable(fly fly.cpp)\n",
            "docs/architecture.md": "`src/model/A`", "src/model/A.h": "",
            "docs/man/one.1": ".Xr one 1\n"}
    cases = {
        "": {},
        "a path that is not there": {"README.md": "see `src/none/A.h`"},
        "a preset that is not there": {"README.md": "`cmake --preset swift`"},
        "a target that is not there": {"CONTRIBUTING.md": "cmake --build --preset dev --target flyer"},
        "a program that is not there": {"CONTRIBUTING.md": "    gdb out/dev/bin/walk"},
        "a suite that is not there": {"CONTRIBUTING.md": "    out/dev/tests/wings/fly --help"},
        "a version without a section": {"CMakeLists.txt": "project(Bird VERSION 1.3.0)\n"},
        "a version below an older one": {"CHANGELOG.md": "## 1.1.0 - 2026-11-01\n## 1.2.0 - 2026-11-22\n"},
        "an editor that indents otherwise": {".editorconfig": "[*.{h,cpp}]\nindent_size = 2\nmax_line_length = 100\n"},
        "a formatter with wider lines": {".clang-format": "IndentWidth: 4\nColumnLimit: 120\n"},
        "a link to nothing": {"README.md": "[x](docs/none.md)"},
        "a source without an entry": {"src/model/B.cpp": ""},
        "a manual page that is not there": {"docs/man/one.1": "see\n.Xr two 1\n"},
    }
    for name, changes in cases.items():
        with tempfile.TemporaryDirectory() as folder:
            for file, text in {**base, **changes}.items():
                path = Path(folder) / file
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            noticed = bool(check(Path(folder)))
            if noticed != bool(name):
                print(f"wrong verdict: {name or 'a clean tree'}")
                failed += 1
    return failed


def main():
    if sys.argv[1:] == ["--self-test"]:
        return 1 if self_test() else 0
    problems = check(Path(sys.argv[1]))
    for problem in problems:
        print(problem)
    print(f"{len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
