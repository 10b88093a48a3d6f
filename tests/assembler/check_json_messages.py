#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the messages that the assembler prints as JSON, on golden sources and on damaged copies of them.

    check_json_messages.py NESASM [--runs NUMBER] [--self-test]

Every line is valid UTF-8 and one JSON object with the members that the manual tells, and what the same call prints as
text is made of them again, character by character. The self-test spoils the output and expects each loss to be noticed.
"""
import json
import random
import subprocess
import sys
import tempfile
from pathlib import Path

CASES = Path(__file__).resolve().parent / "cases"
ODD_BYTES = b"\0\1\t\n\r\"':;\\\x7F\x80\xC3\xE0\xF0\xFF"
OPTIONS = ["-v", "-W", "overwrite", "-W", "unused-symbol", "-W", "missing-hash", "-Werror=value-truncated"]
PLACE = {"file": str, "line": int, "column": int, "endColumn": int, "source": str, "sourceColumn": int, "way": list}
# For each type the members that are always there, and those that may be.
MEMBERS = {
    "message": ({"severity": str}, {"warning": str, "hint": str, **PLACE}),
    "count": ({"errors": int, "warnings": int}, {}),
    "image": ({"file": str, "bytes": int, "mapper": int, "prgBanks": int, "prgBytesUsed": int, "chrBanks": int}, {}),
    "bank": ({"bank": int, "bytesUsed": int}, {}),
}
STEPS = {
    "include": {"file": str, "line": int}, "macro": {"macro": str, "file": str, "line": int},
    "repetition": {"file": str, "line": int}, "omitted": {"count": int},
}


def check_members(each):
    needed, possible = MEMBERS[each["type"]]
    needed = {"type": str, "text": str, **needed}
    for name, kind in needed.items():
        assert isinstance(each[name], kind), name
    for name in each.keys() - needed.keys():
        assert isinstance(each[name], possible[name]), name
    if each["type"] == "message":
        assert each["severity"] in ("error", "warning", "note")
        assert each.get("endColumn", sys.maxsize) > each.get("column", 0)
        assert "hint" not in each or each["text"].endswith("; " + each["hint"])
    for step in each.get("way", []):
        assert {name: type(value) for name, value in step.items()} == {"kind": str, **STEPS[step["kind"]]}


def step_text(step):
    texts = {"include": "  included at {file}:{line}", "macro": "  in macro {macro} called at {file}:{line}",
             "repetition": "  in the repetition begun at {file}:{line}", "omitted": "  ... {count} more ..."}
    return texts[step["kind"]].format(**step)


def text_of(each):
    """The lines that stand for an object in the other form."""
    if each["type"] != "message" or each["severity"] == "note":
        return [each["text"]]
    place = "".join(f"{each[name]}:" for name in ("file", "line", "column") if name in each)
    name = f" [{each['warning']}]" if "warning" in each else ""
    lines = [(place and place + " ") + f"{each['severity']}: {each['text']}{name}"]
    source = each.get("source")
    if source is not None:
        before = source[:each["sourceColumn"] - 1]
        lines += [source, "".join("\t" if c == "\t" else " " for c in before) + "^"]
    return lines + [step_text(step) for step in each.get("way", [])]


def problem_with(said, text):
    """What is wrong with the JSON `said` by a call that also says `text`, or nothing."""
    try:
        objects = [json.loads(line) for line in said.decode().split("\n")[:-1]]
        for each in objects:
            check_members(each)
        again = [line for each in objects for line in text_of(each)]
        lines = text.decode().split("\n")[:-1]
        assert len(lines) == len(again), f"{len(again)} lines instead of {len(lines)}"
        for ours, theirs in zip(again, lines):
            assert ours == theirs, f"{ours!r} instead of {theirs!r}"
        assert said.endswith(b"\n") or not said
    except (AssertionError, KeyError, ValueError) as problem:
        return f"{type(problem).__name__}: {problem}"
    return None


def damaged(source, chance):
    """A copy of the source with some bytes changed, lost, put in or doubled."""
    content = bytearray(source)
    for _ in range(chance.randrange(1, 6)):
        place = chance.randrange(len(content) + 1)
        odd = bytes(chance.choice([*ODD_BYTES, chance.randrange(256)]) for _ in range(chance.randrange(1, 4)))
        kind = chance.randrange(4)
        if kind == 0:
            content[place:place + len(odd)] = odd
        elif kind == 1:
            content[place:place] = odd
        elif kind == 2:
            del content[place:place + chance.randrange(1, 8)]
        else:
            content[place:place] = content[max(0, place - 40):place] * chance.randrange(1, 12)
    return bytes(content)


def calls(program, runs):
    """What each call says in both forms, with its source: the golden sources, then damaged ones."""
    chance = random.Random(2026)
    sources = [file.read_bytes() for file in sorted(CASES.glob("*/*.asm")) if file.stat().st_size < 4096]
    damages = [damaged(chance.choice(sources), chance) for _ in range(runs)]
    with tempfile.TemporaryDirectory() as folder:
        for source in sources + damages:
            Path(folder, "game.asm").write_bytes(source)
            said = {}
            for form in ("json", "text"):
                said[form] = subprocess.run(
                    [program, "--input", "game.asm", "--output", "game.nes", "--messages", form, *OPTIONS],
                    cwd=folder, env={}, stdout=subprocess.PIPE, check=False)
            yield source, said["json"], said["text"]


def problems_with(program, runs):
    problems, messages = [], 0
    for source, said, text in calls(program, runs):
        problem = problem_with(said.stdout, text.stdout)
        if said.returncode != text.returncode:
            problem = f"exit status {said.returncode} instead of {text.returncode}"
        if problem:
            problems.append(f"{problem}\nsource: {source!r}\nsaid: {said.stdout!r}")
        messages += said.stdout.count(b'"message"')
    if messages < runs:
        problems.append(f"only {messages} messages were seen")
    return problems


def self_test(program):
    _, said, text = next((source, said.stdout, text.stdout) for source, said, text in calls(program, 0)
                         if b'"way"' in said.stdout and b'"hint"' in said.stdout)
    losses = [said.replace(b'"severity":"error",', b"", 1), said.replace(b'"line":', b'"line":1'), said + b"{}\n",
              said.replace(b'"text":"', b'"text":"\xff', 1), said.replace(b'"column":', b'"column":9'), said[:-1],
              said.replace(b'"way":[', b'"way":[{"kind":"omitted"},', 1), said.replace(b'"count"', b'"sum"'),
              said.replace(b'"hint":"', b'"hint":"x'), said.replace(b'"source":"', b'"source":"x')]
    problems = [f"loss {number} was not noticed" for number, loss in enumerate(losses) if not problem_with(loss, text)]
    return problems + ([f"the output itself: {problem_with(said, text)}"] if problem_with(said, text) else [])


def main():
    program = str(Path(sys.argv[1]).resolve())
    runs = int(sys.argv[sys.argv.index("--runs") + 1]) if "--runs" in sys.argv else 400
    problems = self_test(program) if "--self-test" in sys.argv else problems_with(program, runs)
    print("\n".join(problems[:5]) or "the messages in JSON say what those in text say")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
