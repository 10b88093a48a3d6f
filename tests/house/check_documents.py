#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the documents name only what exists.

- Every path in back quotes that looks like one of ours exists.
- Every `--preset NAME` exists in CMakePresets.json.
- Every relative link leads to a file.
- docs/architecture.md has an entry for each source file below src/ (a stem covers header and source);
  check_includes.py holds its table of rooms.
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
PRESET = re.compile(r"--preset[ =](\w+)")


def documents(root):
    yield root / "README.md"
    yield from sorted((root / "docs").glob("*.md"))


def named_paths(text):
    for quoted in QUOTED.findall(text):
        word = quoted.split()[0]
        if word.startswith(TOP) and not re.search(r"[<>*$]|(^|/)[A-Z]+(/|$)", word):
            yield word.rstrip(".,:;")


def exists(root, path):
    return any((root / (path + ending)).exists() for ending in ("", ".h", ".cpp"))


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
    base = {"CMakePresets.json": '{"configurePresets": [{"name": "dev"}]}', "README.md": "",
            "docs/architecture.md": "`src/model/A`", "src/model/A.h": "",
            "docs/man/one.1": ".Xr one 1\n"}
    cases = {
        "": {},
        "a path that is not there": {"README.md": "see `src/none/A.h`"},
        "a preset that is not there": {"README.md": "`cmake --preset swift`"},
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
