#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks docs/adding.md, which tells the files that have to be touched to add something, by an example of each.

    check_adding.py ROOT
    check_adding.py --self-test

A section with a paragraph that begins with "Look for `word`" lists in its table exactly the files below src/ that have
one of these words: one that has a word and is not listed was forgotten, one that is listed and has none is no longer
needed. A path without an ending stands for header and source. Files of tests and documents in the table exist and have
one of the words.
"""
import re
import sys
import tempfile
from pathlib import Path

QUOTED = re.compile(r"`([^`\n]+)`")
TOP = ("src/", "tests/", "docs/")


def sections(text):
    """Title, words to look for and the paths in the left cells of the table of each section."""
    for part in re.split(r"^## ", text, flags=re.MULTILINE)[1:]:
        look = re.search(r"^Look for (.+?)\n\n", part, re.MULTILINE | re.DOTALL)
        rows = re.findall(r"^\| (.*?) \|", part, re.MULTILINE)
        paths = [path for row in rows for path in QUOTED.findall(row) if path.startswith(TOP)]
        yield part.split("\n")[0], QUOTED.findall(look[1]) if look else [], paths


def has_word(path, words):
    text = path.read_text(encoding="utf-8", errors="replace")
    return any(re.search(rf"(?<![\w-]){re.escape(word)}(?![\w-])", text) for word in words)


def files_of(root, path):
    return [root / (path + ending) for ending in ("", ".h", ".cpp") if (root / (path + ending)).is_file()]


def check(root):
    problems, count = [], 0
    sources = sorted(path for path in (root / "src").rglob("*") if path.suffix in (".h", ".cpp", ".txt"))
    for title, words, paths in sections((root / "docs/adding.md").read_text(encoding="utf-8")):
        if not words:
            continue
        count += 1
        listed = set()
        for path in paths:
            if re.search(r"/[A-Z]+([./]|$)", path):
                continue  # a name for any file
            files = files_of(root, path)
            listed.update(files)
            if not any(has_word(file, words) for file in files):
                problems.append(f"{title}: {path} has none of {', '.join(words)}")
        for file in sources:
            if file not in listed and has_word(file, words):
                problems.append(f"{title}: {file.relative_to(root)} has one of {', '.join(words)} and is not listed")
    return problems if count else ["docs/adding.md has no section that says what to look for"]


def self_test():
    page = "# Adding\n\n## A bird\n\nLook for `Bird::owl` and `hoot`.\n\n| File | What |\n|---|---|\n"
    base = {"docs/adding.md": page + "| `src/Birds.h` | its name |\n| `src/Owl` | its voice |\n"
                                     "| `tests/birds/NAME.txt` | a feather |\n",
            "src/Birds.h": "case Bird::owl:", "src/Owl.h": "void hoot();", "src/Owl.cpp": "void hoot() {}",
            "src/Crow.h": "Bird::owlet hooting"}
    cases = {
        "": {},
        "a file that is not listed": {"src/Crow.cpp": "hoot()"},
        "a file that is not needed": {"src/Birds.h": "nothing"},
        "a file that is not there": {"docs/adding.md": base["docs/adding.md"] + "| `src/None.h` | nothing |\n"},
        "a document without the example": {"docs/adding.md": base["docs/adding.md"] + "| `docs/a.md` | it |\n",
                                           "docs/a.md": "crows"},
        "no words": {"docs/adding.md": page.replace("Look for", "Think of")},
    }
    failed = 0
    for name, changes in cases.items():
        with tempfile.TemporaryDirectory() as folder:
            for file, text in {**base, **changes}.items():
                path = Path(folder) / file
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            if bool(check(Path(folder))) != bool(name):
                print(f"wrong verdict: {name or 'a clean tree'}: {check(Path(folder))}")
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
