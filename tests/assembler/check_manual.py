#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the assembler's manual against the assembler.

    check_manual.py NESASM [--self-test]

The manual names every directive, instruction, function, operator, option and warning, and a golden case uses every
directive, instruction and function; every text of a message in the sources stands in its part about messages, and each
row there is a message that a golden case shows; its examples make the bytes, or the messages, that stand below them.
The manual page names every option and warning. The self-test takes lines out of the manual and expects each loss to be
noticed.
"""
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
OPERATORS = ["-", "+", "~", "!", "*", "/", "%", "<<", ">>", "<", "<=", ">", ">=", "=", "==", "!=", "<>", "&", "^",
             r"\|", "&&", r"\|\|"]
# Sources whose texts go into files, or stand in the manual's table of warnings, or are advice after a semicolon.
NO_MESSAGES = {"DbgFile.cpp", "DebugLabels.cpp", "LabelFiles.cpp", "LabelFiles.h", "Listing.cpp", "Warnings.h", "ForeignWords.cpp"}
# What a value is for, names of options, of files and of variables, a part of the summary, parts of advice.
NO_TEXT = re.compile(r"the \w+ of \.\w+|the fill byte|--[a-z- ]+|\S+|\(off by default\)|, without the dot|needs an address|"
                     r"\*\+5 and below it JMP|take one byte of it with #LOW\(\) or #HIGH\(\)")
# A golden case cannot run out of memory or bring a film; the unit tests see to these.
NO_CASE = {"there is not enough memory for this program", "it is larger than 256 MiB"}


def source(name):
    return (ROOT / "src/assembler" / name).read_text()


def table(name, start):
    """The text of a constant table in a source."""
    text = source(name)
    return text[text.index(start):text.index("}};", text.index(start))]


def options(program):
    text = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    return sorted(set(re.findall(r"(?<![\w-])(--[a-z-]+|-[A-Za-z]\b)", text.split("Warnings:")[0])))


def warnings():
    return re.findall(r'\{"([a-z-]+)", (?:true|false)', table("messages/Warnings.h", "WarningTable{{"))


def missing_names(manual, program):
    directives = re.findall(r'\{\{"([a-z]+)", (?:NeedsDot|DotOrNot)\b', table("statements/Directives.cpp", "Rows{{"))
    functions = re.findall(r'\{"([a-z]+)", Function::', table("language/Functions.cpp", "FunctionNames{{{"))
    instructions = re.findall(r'makeInstruction\("([A-Z]{3})"', source("language/InstructionTable.h"))
    if min(len(directives), len(functions) * 5, len(instructions), len(warnings()) * 2) < 20:
        return ["the tables of the assembler's sources were not understood"]
    wanted = [f"`{name.upper()}(" for name in functions]
    wanted += [f"`{name}`" for name in instructions + OPERATORS + warnings()] + [f"`{name}" for name in options(program)]
    missing = [name for name in wanted if name not in manual]
    missing += [f"`.{name}" for name in directives if not re.search(rf"`\.{name}[` ]", manual)]
    examples = "".join(re.findall(r"```asm\n(.*?)```", manual, re.DOTALL))
    bare = [name for name in directives if not re.search(rf"\.{name}\b", examples)]
    bare += [name for name in functions if f"{name.upper()}(" not in examples]
    cases = "".join(file.read_text(errors="replace") for file in (ROOT / "tests/assembler/cases").rglob("*.asm"))
    untried = [name for name in directives if not re.search(rf"\.{name}\b", cases)]
    untried += [name for name in functions + instructions if not re.search(rf"\b{name}\b", cases, re.IGNORECASE)]
    return ([f"the manual does not name {name}`" for name in missing] +
            [f"no example of the manual has {name}" for name in bare] +
            [f"no golden case has {name}" for name in untried])


def literals(text):
    """The string literals of C++ source; those that the compiler joins are one."""
    found, end = [], None
    for token in re.finditer(r"""//[^\n]*|R"\(.*?\)"|"((?:[^"\\\n]|\\.)*)"|'(?:[^'\\]|\\.)+'|\#include[^\n]*""", text,
                             re.DOTALL):
        if token[1] is None:
            continue
        if end is not None and not text[end:token.start()].strip():
            found[-1] += token[1]
        else:
            found.append(token[1])
        end = token.end()
    return found


def said_in_sources():
    """The texts that messages are made of, with the file of each; names, advice and what is said elsewhere left out."""
    for file in sorted((ROOT / "src/assembler").glob("*/*.[ch]*")):
        if file.name in NO_MESSAGES:
            continue
        for literal in literals(file.read_text()):
            text = re.sub(r'\\(["\\])', r"\1", literal.replace(r"\n", " ").replace(r"\x1b", ""))
            # Advice follows a semicolon or asks something.
            cut = re.split(r";(?: |$)|^: |: is there|: does this|\?", text)[0]
            if pieces_of(cut):
                yield file.name, text, cut


def pieces_of(text):
    """The parts of a text between what differs, without those that say nothing alone."""
    pieces = [piece.strip().strip("'").strip() for piece in text.removeprefix("error: ").split("...")]
    return [piece for piece in pieces if len(re.findall("[A-Za-z]{2,}", piece)) >= 2 and not NO_TEXT.fullmatch(piece)]


def rows_of(manual):
    """The left cells of the tables in the part about messages."""
    rows = re.findall(r"^\| `(.*?)` \| .+ \|$", manual[manual.index("## Messages"):], re.MULTILINE)
    return [row.replace(r"\|", "|") for row in rows]


def form_of(row):
    return re.compile(".*?".join(map(re.escape, row.split("..."))))


def missing_messages(manual):
    part = re.sub(r"^```.*?^```$", "", manual[manual.index("## Messages"):], flags=re.MULTILINE | re.DOTALL)
    spans = rows_of(manual) + [re.sub(r"\s+", " ", span) for span in re.findall(r"`([^`]+)`", part)]
    parts = [piece for span in spans for piece in span.split("...")]
    texts = list(said_in_sources())

    def is_in_manual(text):
        return all(any(piece in part for part in parts) for piece in pieces_of(text))

    problems = [f"{file}: the manual does not have this text of a message: {text}" for file, text, cut in texts
                if not is_in_manual(text) and not is_in_manual(cut)]
    # What is left over in the manual: no message has it any more.
    for row in rows_of(manual):
        for piece in (piece.strip().strip("'").strip() for piece in row.split("...")):
            if len(piece.split()) > 2 and not any(cut.strip() in piece or piece in text for _, text, cut in texts):
                problems.append(f"no message of the sources has this text of the manual: {piece}")
    return problems if len(texts) > 100 else ["the messages of the sources were not understood"]


def rows_without_a_case(manual):
    """Every row shows up in a golden case, and every message of a golden case in a row."""
    forms = {row: form_of(row) for row in rows_of(manual)}
    unseen, problems, count = set(forms) - set(NO_CASE), [], 0
    for file in sorted((ROOT / "tests/assembler/cases").glob("*/*.out")):
        lines = file.read_text(errors="replace").split("\n")
        for line, quoted in zip(lines, lines[1:] + [""]):
            found = re.match(r"(?:\S.*?: )?(?:error|warning): (.*)$", line)
            # Texts that the source itself gives are the user's.
            if not found or re.search(r'\.(error|fail|assert|warning)\b.*"', quoted):
                continue
            count += 1
            matching = [row for row, form in forms.items() if form.match(found[1])]
            if not matching:
                problems.append(f"{file.name}: the manual does not have this message: {found[1]}")
            reason = found[1].split(": ", 1)[-1]
            unseen -= {*matching, *(row for row, form in forms.items() if form.match(reason))}
    problems += [f"no golden case shows this message: {row}" for row in sorted(unseen)]
    return problems if count > 100 else ["no messages were found"]


def dot_picture():
    """A PCX picture of 8 x 8 pixels, the top left one of colour 3."""
    header = bytearray(128)
    header[0:4] = 10, 5, 1, 8
    header[8], header[10], header[65], header[66] = 7, 7, 1, 8
    return bytes(header) + bytes([3, 0xC0 + 7, 0, 0xC0 + 56, 0])


def assembled(text, program, options):
    """What the assembler says of an example, and the bytes after its header."""
    with tempfile.TemporaryDirectory() as folder:
        Path(folder, "game.asm").write_text(text)
        Path(folder, "more.asm").write_text("answer: .db 42\n")
        Path(folder, "data.bin").write_bytes(bytes([1, 2, 3, 4, 5]))
        Path(folder, "dot.pcx").write_bytes(dot_picture())
        run = subprocess.run([program, "--input", "game.asm", "--output", "game.nes", *options], cwd=folder, env={},
                             capture_output=True, text=True, check=False)
        return run.stdout, Path(folder, "game.nes").read_bytes()[16:] if run.returncode == 0 else b""


def wrong_examples(manual, program):
    examples = re.findall(r"```asm\n((?:(?!```).*\n)*)```\n\n(.*)\n(?:\n```text\n((?:(?!```).*\n)*)```\n)?", manual)
    problems = [] if len(examples) >= 10 else ["there are hardly any examples"]
    for text, result, messages in examples:
        with_options = re.fullmatch(r"says(?: with `(.*)`)?", result)
        options = with_options[1].split() if with_options and with_options[1] else []
        said, image = assembled(text, program, options)
        if with_options and messages:
            if said != messages:
                problems.append(f"the example says\n{said}instead of\n{messages}")
            continue
        found = re.fullmatch(r"gives `([0-9A-F ]+)`", result)
        if not found:
            problems.append(f"no bytes stand below the example that begins {text.splitlines()[0]!r}")
            continue
        wanted = bytes.fromhex(found[1])
        used = image.rstrip(b"\xFF") if "bank 1" not in text else image[:len(wanted)]
        if used != wanted.rstrip(b"\xFF"):
            problems.append(f"the example makes {used[:64].hex(' ').upper()} instead of {found[1]}\n{text}{said}")
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
    return (missing_names(manual, program) + missing_messages(manual) + rows_without_a_case(manual) +
            wrong_examples(manual, program) +
            missing_in_page(page, program))


def self_test(manual, page, program):
    losses = [(manual.replace("`.align`", ""), page), (manual.replace("\t.incchr \"dot.pcx\"\n", ""), page),
              (manual.replace("`odd-number`", ""), page),
              (manual.replace("| `division by zero` |", "| `x` |"), page), (manual.replace("gives `EA`", "gives `EB`"), page),
              (manual.replace("| `division by zero` |", "| `division by zero` |\n| `no such message here` |"), page),
              (manual.replace("`it is a folder`", "`x`"), page), (manual.replace("not known here", "unknown"), page),
              (manual.replace("--labels takes mlb", "--labels wants mlb"), page), (manual.replace("called at game.asm:6", ""), page),
              (manual.replace("`--max-errors", "`"), page), (manual.replace('"way":[', '"path":['), page),
              (manual, page.replace("Sy overwrite", "")),
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
