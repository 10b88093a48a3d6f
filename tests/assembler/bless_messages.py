#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes down the messages that the assembler prints for golden cases, after somebody has read them.

    bless_messages.py NESASM TOPIC/NAME...     shows the output and writes NAME.out
    bless_messages.py --show NESASM TOPIC/NAME...     only shows it

Images are never written: they come from the language, by hand. Only a case whose output is more than the closing line
gets a file; see README.md beside this script.
"""
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

CASES = Path(__file__).resolve().parent / "cases"
SHARED = CASES / "shared"


def settings(source):
    found = {"input": [source.name], "output": [f"@/out/{source.stem}.nes"], "folder": ["elsewhere"],
             "include": ["@/project"], "argument": [], "call": [], "source": [], "file": []}
    file = source.with_suffix(".run")
    for line in file.read_text().splitlines() if file.is_file() else []:
        key, _, value = line.partition(": ")
        found[key] = found[key] + [value] if key in ("argument", "call", "file") else [value]
    return found


def place_in(folder, name):
    """Where a file that a case needs lies in its fresh folder."""
    first = name.split("/")[0]
    return (folder if first in ("elsewhere", "out") or first.startswith("folder") else folder / "project") / name


def output_of(program, source):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for each in ("elsewhere", "out", "project"):
            (folder / each).mkdir()
        run = settings(source)
        companions = source.with_suffix("")
        for entry in companions.iterdir() if companions.is_dir() else []:
            if entry.is_dir():
                shutil.copytree(entry, place_in(folder, entry.name), dirs_exist_ok=True)
            else:
                shutil.copy(entry, place_in(folder, entry.name))
        shutil.copy(SHARED / run["source"][0] if run["source"] else source, folder / "project" / source.name)
        for place, shared in (line.split(" = ") for line in run["file"]):
            place_in(folder, place).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SHARED / shared, place_in(folder, place))
        values = {key: [text.replace("@", name) for text in texts] for key, texts in run.items()}
        command = [program, "--input", values["input"][0], "--output", values["output"][0], *values["argument"]]
        if values["call"]:
            command = [program, *values["call"]]
        result = subprocess.run(command, cwd=folder / run["folder"][0], stdout=subprocess.PIPE,
                                env={"NES_INCLUDE": values["include"][0]}, check=False)
        beside = {each.name: re.sub(rb"mtime=0x[0-9A-F]+", b"mtime=0x0", each.read_bytes())
                  for each in (folder / "out").iterdir() if each.is_file() and each.suffix != ".nes"}
        return result.stdout.replace(name.encode(), b"@"), result.returncode, beside


def main(arguments):
    show = arguments[:1] == ["--show"]
    program, names = str(Path(arguments[show]).resolve()), arguments[show + 1:]
    for name in names:
        source = CASES / (name + ".asm")
        output, status, beside = output_of(program, source)
        print(f"=== {name} (status {status})")
        sys.stdout.flush()
        sys.stdout.buffer.write(output)
        for file, text in sorted(beside.items()):
            sys.stdout.buffer.write(b"--- " + file.encode() + b"\n" + text)
            if not show:
                source.with_suffix(".files").mkdir(exist_ok=True)
                (source.with_suffix(".files") / file).write_bytes(text)
        if not show and not (status == 0 and output.count(b"\n") == 1) and output:
            source.with_suffix(".out").write_bytes(output)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(sys.argv[1:])
