#!/usr/bin/env python3
"""Checks the assembler's manual against the assembler.

    check_manual.py NESASM [--self-test]

The manual names every directive, instruction, function, operator, option and warning; every message that a golden case
expects is in its table; its examples make the bytes that stand below them. The manual page names every option and
warning. The self-test takes lines out of the manual and expects each loss to be noticed.
"""
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
OPERATORS = ["-", "+", "~", "!", "*", "/", "%", "<<", ">>", "<", "<=", ">", ">=", "=", "==", "!=", "<>", "&", "^",
             r"\|", "&&", r"\|\|"]


def source(name):
    return (ROOT / "src/assembler" / name).read_text()


def table(name, start):
    """The text of a constant table in a header."""
    text = source(name)
    return text[text.index(start):text.index("}};", text.index(start))]


def options(program):
    text = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    return sorted(set(re.findall(r"(?<![\w-])(--[a-z-]+|-[A-Za-z]\b)", text.split("Warnings:")[0])))


def warnings():
    return re.findall(r'\{"([a-z-]+)", (?:true|false)', table("Warnings.h", "warningTable{{"))


def missing_names(manual, program):
    directives = re.findall(r'\{"([a-z]+)", Directive::', table("Keywords.h", "directiveTable{{"))
    functions = re.findall(r'\{"([a-z]+)", Function::', table("Keywords.h", "functionTable{{{"))
    instructions = re.findall(r'makeInstruction\("([A-Z]{3})"', source("InstructionTable.h"))
    if min(len(directives), len(functions) * 5, len(instructions), len(warnings()) * 2) < 20:
        return ["the tables of the assembler's sources were not understood"]
    wanted = [f"`{name.upper()}(" for name in functions]
    wanted += [f"`{name}`" for name in instructions + OPERATORS + warnings()] + [f"`{name}" for name in options(program)]
    missing = [name for name in wanted if name not in manual]
    missing += [f"`.{name}" for name in directives if not re.search(rf"`\.{name}[` ]", manual)]
    return [f"the manual does not name {name}`" for name in missing]


def missing_messages(manual):
    rows = re.findall(r"^\| `(.*?)` \| .+ \|$", manual[manual.index("## Messages"):], re.MULTILINE)
    forms = [re.compile(".*?".join(map(re.escape, row.replace(r"\|", "|").split("...")))) for row in rows]
    problems, count = [], 0
    for file in sorted((ROOT / "tests/assembler").glob("*/*.out")):
        lines = file.read_text(errors="replace").split("\n")
        for line, quoted in zip(lines, lines[1:] + [""]):
            found = re.match(r"(?:\S.*?: )?(?:error|warning): (.*)$", line)
            # Texts that the source itself gives are the user's.
            if not found or re.search(r'\.(error|fail|assert|warning)\b.*"', quoted):
                continue
            count += 1
            if not any(form.match(found[1]) for form in forms):
                problems.append(f"{file.name}: the manual does not have this message: {found[1]}")
    return problems if count > 100 else ["no messages were found"]


def wrong_examples(manual, program):
    examples = re.findall(r"```asm\n((?:(?!```).*\n)*)```\n\n(.*)\n", manual)
    problems = [] if len(examples) >= 10 else ["there are hardly any examples"]
    for text, result in examples:
        found = re.fullmatch(r"gives `([0-9A-F ]+)`", result)
        if not found:
            problems.append(f"no bytes stand below the example that begins {text.splitlines()[0]!r}")
            continue
        wanted = bytes.fromhex(found[1])
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "game.asm").write_text(text)
            run = subprocess.run([program, "--input", "game.asm", "--output", "game.nes"], cwd=folder, env={},
                                 capture_output=True, text=True, check=False)
            image = Path(folder, "game.nes").read_bytes()[16:] if run.returncode == 0 else b""
        used = image.rstrip(b"\xFF") if "bank 1" not in text else image[:len(wanted)]
        if used != wanted.rstrip(b"\xFF"):
            problems.append(f"the example makes {used[:64].hex(' ').upper()} instead of {found[1]}\n{text}{run.stdout}")
    return problems


def missing_in_page(page, program):
    plain = page.replace(r"\-", "-")
    wanted = [f"Sy {name}\n" for name in warnings()]
    wanted = [name for name in wanted if name not in plain and name.rstrip("\n") + " " not in plain]
    for option in options(program):
        form = "Fl Fl " + option[2:] if option.startswith("--") else "Fl " + option[1:]
        if form not in plain:
            wanted.append(option)
    return [f"the manual page does not name {name.strip()}" for name in wanted]


def problems_with(manual, page, program):
    return (missing_names(manual, program) + missing_messages(manual) + wrong_examples(manual, program) +
            missing_in_page(page, program))


def self_test(manual, page, program):
    losses = [(manual.replace("`.align`", ""), page), (manual.replace("`odd-number`", ""), page),
              (manual.replace("| `division by zero` |", "| `x` |"), page), (manual.replace("gives `EA`", "gives `EB`"), page),
              (manual.replace("`--max-errors", "`"), page), (manual, page.replace("Sy overwrite", "")),
              (manual, page.replace("Fl Fl listing", ""))]
    return [f"loss {number} was not noticed" for number, loss in enumerate(losses) if not problems_with(*loss, program)]


def main():
    program = str(Path(sys.argv[1]).resolve())
    manual, page = (ROOT / "docs/assembler.md").read_text(), (ROOT / "docs/man/NESasm.1").read_text()
    check = self_test if "--self-test" in sys.argv else problems_with
    problems = check(manual, page, program)
    print("\n".join(problems) or "the manual and the manual page are complete")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
