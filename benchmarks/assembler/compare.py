#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares NESasm with other assemblers on equal programs.

    compare.py NESASM [--rounds N] [--case NAME] [--keep FOLDER]

Generates the same programs in the languages of dasm, 64tass, acme and cc65 (those that are installed), has all of them
assemble each program in turn, round after round, and prints the medians of the time from start to end, of the
processor's time and of the memory at its peak, with their ratios to NESasm's. The images are compared byte for byte.
The two examples exist in NESasm's language only. What the programs say goes into memory: neither the disk nor a reader
takes part. TMPDIR=/dev/shm keeps the disk out of the rest, too. A short program is run twenty times as often; who takes
longer than LONGEST seconds is stopped and left out.
"""
import argparse
import os
import random
import resource
import select
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import languages
import programs

TIME = shutil.which("time")
SLOW = 5
LONGEST = 120
SHORT = 0.005
EXAMPLES = Path(__file__).resolve().parents[2] / "examples"


class Run:
    """What one run took: seconds from start to end and of processor time; what the programs said."""

    def __init__(self, commands, folder):
        self.wall = self.processor = 0.0
        self.status = 0
        self.output = b""
        os.chdir(folder)
        environment = {"PATH": os.environ.get("PATH", "")}
        for command in commands:
            said = os.memfd_create("said")
            start = time.perf_counter()
            process = os.posix_spawn(command[0], command, environment, file_actions=[
                (os.POSIX_SPAWN_DUP2, said, 1), (os.POSIX_SPAWN_DUP2, said, 2)])
            stop_if_slow(process)
            _, status, usage = os.wait4(process, 0)
            self.wall += time.perf_counter() - start
            self.output += os.pread(said, 1 << 20, 0)
            os.close(said)
            self.processor += usage.ru_utime + usage.ru_stime
            self.status = self.status or status


def stop_if_slow(process):
    """Waits for the end of a process, and brings it about when that takes too long."""
    end = os.pidfd_open(process)
    if not select.select([end], [], [], LONGEST)[0]:
        os.kill(process, signal.SIGKILL)
    os.close(end)


def peak_memory(commands, folder):
    """KiB; measured below a small program, since a child's figure begins with that of who starts it."""
    os.chdir(folder)
    peak = 0
    for command in commands if TIME else []:
        subprocess.run([TIME, "-f", "%M", "-o", "memory.log", *command], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)
        peak = max(peak, int(Path("memory.log").read_text().split()[-1]))
    return peak


def write(sources, folder):
    for name, lines in sources.items():
        (folder / name).write_text("\n".join(lines) + "\n")


def difference(expected, got):
    """Where two images differ, as a sentence; "" when they do not."""
    if expected == got:
        return ""
    place = next((i for i, (a, b) in enumerate(zip(expected, got)) if a != b), min(len(expected), len(got)))
    return f"{len(got)} instead of {len(expected)} bytes, the first difference at {place}"


def measure(case, assemblers, rounds, base):
    """Prints the table of one case. True when all images are the same."""
    jobs, expected, fine = [], None, True
    for language in assemblers:
        folder = base / case / language.name
        folder.mkdir(parents=True)
        sources, banks = programs.CASES[case](language)
        write(language.sources(sources), folder)
        commands = language.commands(folder, "main.asm", banks)
        run = Run(commands, folder)
        if run.status != 0:
            print(f"  {language.name} does not assemble this: {run.output.decode(errors='replace')[-300:]}")
            fine = fine and language.name != "NESasm"
            continue
        image = language.image(folder)
        expected = image if expected is None else expected
        if problem := difference(expected, image):
            print(f"  {language.name} makes another image: {problem}")
            fine = False
        # Who takes seconds need not be measured as often.
        jobs.append((language.name, commands, folder, [run] if run.wall > SLOW else []))
    lines = sum(map(len, programs.CASES[case](assemblers[0])[0].values()))
    show(f"{case}: {lines} lines, {banks} banks", jobs, rounds)
    return fine


def show(title, jobs, rounds):
    if jobs and Run(*jobs[0][1:3]).wall < SHORT:
        rounds *= 20
    order = random.Random(1)
    for _ in range(rounds):
        # Nobody always comes behind the same neighbour, who may leave work to the file system.
        for _, commands, folder, runs in order.sample(jobs, len(jobs)):
            if sum(run.wall for run in runs) < SLOW:
                runs.append(Run(commands, folder))
    print(f"{title}, {rounds} rounds")
    print(f"  {'':10}{'start to end':>16}{'processor':>16}{'memory':>16}   as multiples of NESasm's")
    first = None
    for name, commands, folder, runs in jobs:
        figures = [statistics.median(getattr(run, kind) for run in runs) for kind in ("wall", "processor")]
        figures.append(peak_memory(commands, folder))
        first = first or figures
        ratios = "  ".join(f"{value / own:5.2f}" for value, own in zip(figures, first) if own)
        print(f"  {name:10}{figures[0] * 1000:13.2f} ms{figures[1] * 1000:13.2f} ms{figures[2]:12.0f} KiB   {ratios}")


def examples(nesasm, rounds, base):
    """The two examples, which only NESasm can assemble."""
    jobs = []
    for project in sorted(EXAMPLES.iterdir()) if EXAMPLES.is_dir() else []:
        sources = [path for path in project.rglob("*.asm")]
        main = next((path for path in sources if "$FFFA" in path.read_text(errors="replace")), None)
        if main is None:
            continue
        folder = base / "examples" / project.name
        folder.mkdir(parents=True)
        for path in project.rglob("*"):
            if path.is_file():
                shutil.copy(path, folder / path.name)
        command = [nesasm, "--input", str(folder / main.name), "--output", "game.nes"]
        if Run([command], folder).status == 0:
            jobs.append((project.name, [command], folder, []))
        else:
            print(f"  {project.name} does not assemble")
    if jobs:
        show("examples", jobs, rounds)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("nesasm")
    parser.add_argument("--rounds", type=int, default=11)
    parser.add_argument("--case", choices=[*programs.CASES, "examples"])
    parser.add_argument("--keep", type=Path, help="an empty folder for the generated programs")
    arguments = parser.parse_args()
    sys.stdout.reconfigure(line_buffering=True)
    nesasm = str(Path(arguments.nesasm).resolve())
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    assemblers = [languages.NesAsm(nesasm), *languages.peers(shutil.which)]
    fine = True
    with tempfile.TemporaryDirectory() as name:
        base = (arguments.keep or Path(name)).resolve()
        for case in [arguments.case] if arguments.case else [*programs.CASES, "examples"]:
            if case == "examples":
                examples(nesasm, arguments.rounds, base)
            else:
                fine = measure(case, assemblers, arguments.rounds, base) and fine
        os.chdir("/")
    return 0 if fine else 1


if __name__ == "__main__":
    sys.exit(main())
