#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Start to first paint: Kestrel's window beside a bare window with a tree and a text view.

    benchmarks/start.py BUILD_TREE [RUNS]

Runs both in turn, with an empty home folder and with one of 1,000 projects of 100 nodes each, and
prints medians of CPU time and peak memory with their ratios. Needs the targets of
-DKESTREL_BENCHMARKS=ON and a display, or QT_QPA_PLATFORM=offscreen.
"""
import json
import os
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

PROJECTS, NODES = 1000, 100


def node(name, path, kind, children=()):
    return {"name": name, "path": str(path), "path_type": "absolute_path", "type": kind, "project_type": "nes",
            "sub_items": list(children)}


def fill(home):
    """Lays out the projects and a registry that lists them, in the form that Kestrel writes."""
    entries = {"version": "1"}
    for number in range(PROJECTS):
        name = f"project{number}"
        folder = home / "Kestrel" / name
        (folder / ".project").mkdir(parents=True)
        structure = node(name, folder, "project",
                         [node(f"file{i}.asm", folder, "text") for i in range(NODES)])
        (folder / ".project" / f"{name}-ProjectStructure.cfg").write_text(json.dumps(structure))
        (folder / ".project" / f"{name}-BuildSettings.cfg").write_text("{}")
        (folder / f"{name}.kst").write_text(json.dumps({
            "BuildSettings": f".project/{name}-BuildSettings.cfg",
            "ProjectStructure": f".project/{name}-ProjectStructure.cfg"}))
        entries[str(number)] = {"ProjectName": name, "Path": str(folder)}
    (home / ".Kestrel").mkdir()
    (home / ".Kestrel" / "AllProjects.cfg").write_text(json.dumps(entries))


def measure(program, mode, home):
    environment = dict(os.environ, HOME=str(home))
    done = subprocess.run([program, mode], env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=True)
    cpu, memory = done.stdout.split()
    return float(cpu), int(memory)


def compare(title, program, home, runs):
    figures = {"kestrel": [], "bare": []}
    for _ in range(runs):
        for mode, list_ in figures.items():
            list_.append(measure(program, mode, home))
    medians = {mode: [statistics.median(column) for column in zip(*list_)] for mode, list_ in figures.items()}
    (cpu, memory), (bare_cpu, bare_memory) = medians["kestrel"], medians["bare"]
    print(f"{title}: CPU {cpu * 1000:.0f} ms, bare {bare_cpu * 1000:.0f} ms, ratio {cpu / bare_cpu:.2f}; "
          f"memory {memory / 1024:.1f} MiB, bare {bare_memory / 1024:.1f} MiB, ratio {memory / bare_memory:.2f}")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program = str(Path(sys.argv[1]) / "bin" / "start_benchmark")
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 11
    with tempfile.TemporaryDirectory() as folder:
        home = Path(folder)
        compare("empty home", program, home, runs)
        fill(home)
        compare(f"{PROJECTS} projects of {NODES} nodes", program, home, runs)


main()
