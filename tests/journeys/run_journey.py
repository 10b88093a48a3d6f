# SPDX-License-Identifier: MIT
"""Runs one journey with a session of its own: `run_journey.py test_MODULE.CLASS.TEST`.

The home folder is empty and everything else that a session has (runtime folder, message bus, accessibility bus) is
made for this run, so that journeys neither meet each other nor the session of whoever runs them.
"""
import os
import subprocess
import sys
import tempfile
from pathlib import Path


def main():
    with tempfile.TemporaryDirectory(prefix="kestrel-journey-") as folder:
        base = Path(folder).resolve()
        for name in ("home", "runtime"):
            (base / name).mkdir(mode=0o700)
        passed_on = ("PATH", "TMPDIR", "KESTREL_SOURCE", "KESTREL_PROGRAMS", "KESTREL_JOURNEYS_WHOLE",
                     "KESTREL_JOURNEY_SEED", "KESTREL_KILL_LIBRARY", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")
        environment = {name: os.environ[name] for name in passed_on if name in os.environ}
        environment.update(HOME=str(base / "home"), XDG_RUNTIME_DIR=str(base / "runtime"), LC_ALL="C.UTF-8",
                           GSETTINGS_BACKEND="memory", NO_AT_BRIDGE="0")
        command = ["dbus-run-session", "--", sys.executable, "-B", "-m", "unittest", *sys.argv[1:]]
        return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
