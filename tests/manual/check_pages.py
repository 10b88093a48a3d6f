#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that each program has a manual page, that the page and --help name the same options and the same usage, and
that the page can be shown without a warning and without an unclosed bracket.

    check_pages.py PROGRAM... [--self-test]
"""
import re
import shutil
import subprocess
import sys
from pathlib import Path

PAGES = Path(__file__).resolve().parents[2] / "docs" / "man"
FORMATTER = ["groff", "-mandoc", "-Tutf8", "-P-c", "-P-b", "-P-o", "-P-u", "-rLL=200n", "-ww"]


def help_of(program):
    return subprocess.run([program, "--help"], env={"QT_QPA_PLATFORM": "offscreen"}, capture_output=True, text=True,
                          check=True).stdout


def option(text):
    """An option and whether a value follows it: "--labels FORMAT" and "--labels mlb | nl" are the same."""
    flag, _, value = text.strip().partition(" ")
    name = re.sub(r"[A-Z]{2,}", lambda word: word[0].lower(), flag)
    return name, bool(value.strip())


def options_in_help(text):
    columns = re.findall(r"^  (-\S*(?: \S+)*?)(?:  .*)?$", text, re.MULTILINE)
    return {option(part) for column in columns for part in column.split(", ")}


def usage_in_help(text):
    """The words of the usage, without the program's name."""
    lines = re.match(r"(?i)usage: (.*\n(?: {7}.*\n)*)", text[text.lower().find("usage: "):])[1]
    words = re.sub(r"[][]", " ", lines).split()
    return {word.lower() for word in words if word[0] == "-" or "." in word.strip(".") or word == "FILE"}


def plain(macro_line):
    """What a line of the page's source prints; enough of mdoc for options and their values."""
    text, glue = "", False
    for word in macro_line.split():
        if word in ("Ar", "Cm", "Op", "Pa", "Ql", "Ev", "Oo", "Oc"):
            continue
        if word == "Ns":
            glue = True
        elif word == "Fl":
            text += "-" if text.endswith("-") or glue or not text else " -"
            glue = True
        elif word == ",":
            text, glue = text + " , ", True
        else:
            text += word if glue or not text else " " + word
            glue = False
    return text


def section(page, name):
    found = re.search(rf"^\.Sh {name}\n(.*?)(?=^\.Sh |\Z)", page, re.MULTILINE | re.DOTALL)
    return found[1] if found else ""


def options_in_page(page):
    items = re.findall(r"^\.It (Fl .*)$", page, re.MULTILINE)
    return {option(part) for item in items for part in plain(item).split(" , ")}


def synopsis(page):
    text = "\n".join(plain(line[1:]) for line in section(page, "SYNOPSIS").splitlines())
    return text, set(re.findall(r"(?<![\w-])--?[\w-]*", text))


def rendered(page):
    """The page as a terminal shows it, and the formatter's warnings."""
    run = subprocess.run(FORMATTER, input=page, capture_output=True, text=True, check=False)
    return run.stdout, run.stderr.strip()


def wrong_brackets(page):
    problems = []
    for paragraph in re.split(r"\n\s*\n", rendered(page)[0]):
        for left, right in ("()", "[]"):
            if paragraph.count(left) != paragraph.count(right):
                problems.append(f"a {left} or {right} has no partner in: {' '.join(paragraph.split())[:120]}")
    for head in re.findall(r"^ {5}(-.*)$", rendered(page)[0], re.MULTILINE):
        problems += [f"a [ of {part} ends elsewhere" for part in head.split(", ") if part.count("[") != part.count("]")]
    return problems


def problems_with(name, page, help_text):
    problems = []
    if f".Nm {name}\n" not in section(page, "NAME"):
        problems.append("another program's name stands below NAME")
    here, there = options_in_page(page), options_in_help(help_text)
    if not there:
        problems.append("--help lists no option")
    problems += [f"--help does not name {flag}, or with another value" for flag, _ in sorted(here - there)]
    problems += [f"the page does not name {flag}, or with another value" for flag, _ in sorted(there - here)]
    text, flags = synopsis(page)
    documented = {flag for flag, _ in here}
    problems += [f"the synopsis has {flag}, which is not described" for flag in sorted(flags - documented)]
    for flag in sorted(documented - flags):
        if not any(flag.startswith(short) for short in flags if re.fullmatch(r"-\w", short)):
            alias = next((item for item in re.findall(r"^\.It (Fl .*)$", page, re.MULTILINE)
                          if flag in plain(item).split() and flags & set(plain(item).split())), None)
            if alias is None:
                problems.append(f"the synopsis lacks {flag}")
    problems += [f"the synopsis lacks {word} of the usage" for word in sorted(usage_in_help(help_text)) if word not in text]
    if shutil.which("groff"):
        warnings = rendered(page)[1]
        problems += [f"the formatter says: {warnings}"] if warnings else []
        problems += wrong_brackets(page)
    return [f"{name}.1: {problem}" for problem in problems]


def page_of(name):
    file = PAGES / f"{name}.1"
    return file.read_text(encoding="utf-8") if file.is_file() else ""


def all_problems(programs):
    pages = {path.stem for path in PAGES.glob("*.1")}
    problems = [f"{name}.1 is a page for no program" for name in sorted(pages - {Path(p).name for p in programs})]
    for program in programs:
        name = Path(program).name
        problems += problems_with(name, page_of(name), help_of(program)) if page_of(name) else [f"there is no {name}.1"]
    return problems


def self_test(programs):
    program = next(path for path in programs if Path(path).name == "kestrel-build")
    page, text = page_of("kestrel-build"), help_of(program)
    losses = {
        "an option that the page lacks": (page.replace(".It Fl Fl expand-macros\n", ".It\n"), text),
        "an option that --help lacks": (page, text.replace("  --relocate ", "  (relocate)")),
        "an option without its value": (page.replace(".It Fl Fl labels Ar format", ".It Fl Fl labels"), text),
        "an option that the synopsis lacks": (page.replace(".Op Fl v\n", ""), text),
        "an option only in the synopsis": (page.replace(".Op Fl v\n", ".Op Fl v\n.Op Fl q\n"), text),
        "a form of the usage": (page.replace(".Ar project.kst\n", ".Ar file\n"), text),
        "another name": (page.replace(".Nm kestrel-build", ".Nm kestrel"), text),
    }
    if shutil.which("groff"):
        losses["an unclosed bracket"] = (page.replace("NAME Ns Pa .nes", "NAME Ns Pa (.nes", 1), text)
        losses["an optional part that ends too late"] = (
            page.replace(".It Fl D Ar name Ns Op = Ns Ar value\n",
                         ".It Fl D Ar name Ns Op = Ns Ar value , Fl v\n"), text)
        losses["a macro that does not exist"] = (page.replace(".Sh FILES", ".Qz\n.Sh FILES"), text)
        losses["a list that does not end"] = (page.replace(".El\n.Sh EXIT", ".Sh EXIT"), text)
    failed = [f"kestrel-build.1 as it is: {problem}" for problem in problems_with("kestrel-build", page, text)]
    for what, (changed, said) in losses.items():
        if (changed, said) == (page, text):
            failed.append(f"the trial has nothing to change: {what}")
        elif not problems_with("kestrel-build", changed, said):
            failed.append(f"not noticed: {what}")
    return failed


def main():
    programs = [argument for argument in sys.argv[1:] if argument != "--self-test"]
    problems = self_test(programs) if "--self-test" in sys.argv else all_problems(programs)
    print("\n".join(problems) or f"the manual pages of {len(programs)} programs agree with --help")
    return 1 if problems or not programs else 0


if __name__ == "__main__":
    sys.exit(main())
