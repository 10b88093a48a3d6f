# SPDX-License-Identifier: MIT
"""What ./run installs for somebody who is new here: an emulator to play the examples with, and nothing by force."""
import unittest

from support import SOURCE, HomeTestCase

SCRIPT = 'set -euo pipefail; . "$1/scripts/setup.sh"; install_emulator; echo "went on"'


class FirstRunTest(HomeTestCase):
    def setUp(self):
        super().setUp()
        self.checkout, self.programs = self.home / "checkout", self.home / "programs"
        self.checkout.mkdir()
        self.programs.mkdir()
        self.asked = self.home / "asked"
        self.program("apt-get", f'echo "$@" >>"{self.asked}"')
        self.program("dpkg-query", "exit 1")
        self.program("id", "echo 0")
        self.program("sudo", "exit 1")

    def program(self, name, line):
        path = self.programs / name
        path.write_text(f"#!/bin/sh\n{line}\n", encoding="utf-8")
        path.chmod(0o755)

    def install(self):
        """What apt-get was asked for, and what was said."""
        result = self.run_in_home(["bash", "-c", f'cd "{self.checkout}"; {SCRIPT}', "bash", SOURCE],
                                  PATH=f"{self.programs}:/usr/bin:/bin", XDG_DATA_HOME=str(self.home / "user"),
                                  XDG_DATA_DIRS=f"{self.home / 'local'}:{self.home / 'system'}")
        self.assertEqual((result.returncode, result.stdout), (0, "went on\n"), result.stderr)
        return self.asked.read_text(encoding="utf-8") if self.asked.exists() else "", result.stderr

    def test_a_first_run_installs_an_emulator(self):
        asked, said = self.install()
        self.assertRegex(asked, r"(?m)^install .*\bfceux$")
        self.assertIn("Installing fceux", said)

    def test_a_failure_to_install_it_is_said_and_nothing_more(self):
        self.program("apt-get", "echo no network; exit 100")
        self.assertIn("Going on without the emulator fceux", self.install()[1])

    def test_a_later_run_installs_none(self):
        kestrel = self.checkout / "out" / "release" / "bin" / "Kestrel"
        kestrel.parent.mkdir(parents=True)
        kestrel.touch()
        self.assertEqual(self.install(), ("", ""))

    def test_whoever_has_an_emulator_keeps_to_it(self):
        for folder in ("user", "local", "system"):
            with self.subTest(folder):
                entry = self.home / folder / "applications" / "games" / "emu.desktop"
                entry.parent.mkdir(parents=True)
                entry.write_text("[Desktop Entry]\nMimeType=application/x-nes-rom;\n", encoding="utf-8")
                self.assertEqual(self.install(), ("", ""))
                entry.unlink()

    def test_nobody_is_asked_for_a_password(self):
        self.program("id", "echo 1000")
        self.assertEqual(self.install(), ("", ""))
        self.program("sudo", 'test "$1" != -n && exec "$@"; test "$2" = true')
        self.assertRegex(self.install()[0], r"(?m)^install .*\bfceux$")


if __name__ == "__main__":
    unittest.main()
