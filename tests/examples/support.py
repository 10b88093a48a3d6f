# SPDX-License-Identifier: MIT
"""What the tests of the example projects share. The environment says where things are:

KESTREL_SOURCE  the checkout
KESTREL_BUILD   the built kestrel-build, with NESasm beside it
"""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ["KESTREL_SOURCE"])
KESTREL_BUILD = Path(os.environ["KESTREL_BUILD"])
INSTANTIATE = SOURCE / "scripts" / "instantiate-example"
NAMES = ("Skylark", "Lanternfall")
PLACEHOLDER = "/home/author"


def example(name):
    return SOURCE / "examples" / name


def contents(folder):
    """The bytes of every file below the folder, by relative path."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*")) if path.is_file()}


class HomeTestCase(unittest.TestCase):
    """A test with a home folder of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kestrel-examples-")
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)

    def run_in_home(self, command, home=None, **more):
        environment = dict(os.environ, HOME=str(home or self.home), KESTREL_BUILD=str(KESTREL_BUILD),
                           XDG_DATA_HOME=str(self.home / "data"), XDG_DATA_DIRS=str(self.home / "system"))
        environment.update(more)
        return subprocess.run([str(word) for word in command], env=environment, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=120, check=False)

    def install_emulator(self, name):
        """Makes an emulator that is installed for the programs that run_in_home() runs; its desktop entry."""
        entry = self.home / "system" / "applications" / f"{name}.desktop"
        entry.parent.mkdir(parents=True, exist_ok=True)
        entry.write_text(f"[Desktop Entry]\nType=Application\nName={name}\nExec=sh %f\n"
                         "MimeType=application/x-nes-rom;\n", encoding="utf-8")
        return entry

    def instantiate(self, name, home=None):
        """The path of the project file that scripts/instantiate-example prints."""
        result = self.run_in_home([INSTANTIATE, example(name)], home)
        self.assertEqual(result.returncode, 0, result.stderr)
        project = Path(result.stdout.rstrip("\n"))
        self.assertEqual(project, (home or self.home) / "Kestrel" / name / f"{name}.kst")
        return project

    def build(self, name, home=None):
        """Instantiates and builds the example; the path of the image."""
        project = self.instantiate(name, home)
        result = self.run_in_home([KESTREL_BUILD, project], home)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        image = project.parent / "output" / f"{name}.nes"
        self.assertTrue(image.is_file(), result.stdout + result.stderr)
        return image
