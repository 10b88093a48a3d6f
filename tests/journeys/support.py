# SPDX-License-Identifier: MIT
"""What the journeys share: a desktop and a home folder of their own, and small things that they work with.

KESTREL_SOURCE    the checkout
KESTREL_PROGRAMS  the folder of the built programs
"""
import json
import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_for_files
from kestrel import Kestrel

SOURCE = Path(os.environ["KESTREL_SOURCE"])
PROGRAMS = Path(os.environ["KESTREL_PROGRAMS"])

# The lists of the build settings, one for each kind of file.
LISTS = ("code_assembly_files", "graphic_files", "palette_files")

# What a file is that is laid out without Kestrel, by the ending of its name.
KINDS = {".chr": "graphics", ".pal": "palette"}

# A whole program of the console that does nothing but stand still; it takes in tiles and colours.
PROGRAM = """\
 .inesprg 1
 .ineschr 1
 .bank 0
 .org $C000
Start:
 jmp Start
Colours:
 .incbin "colours.pal"
 .bank 1
 .org $FFFA
 .dw Start, Start, Start
 .bank 2
 .org 0
 .incbin "tiles.chr"
"""


def contents(folder):
    """The bytes of every file below the folder, by relative path."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*")) if path.is_file()}


class JourneyTestCase(unittest.TestCase):
    """A journey: the home folder is empty at its start."""

    def setUp(self):
        self.home = Path(os.environ["HOME"])
        self.assertEqual(os.listdir(self.home), [], "the home folder is not empty")
        self.desktop = Desktop(Path(os.environ["XDG_RUNTIME_DIR"]))
        self.addCleanup(self.desktop.stop)
        self.addCleanup(self.tell_of_failure)
        self.desktop.start()
        self.kestrel = Kestrel(self.desktop, PROGRAMS / "Kestrel")

    def tell_of_failure(self):
        """Keeps a picture of the screen when the journey failed, and shows what the programs wrote."""
        result = self._outcome.result
        failed = any(test is self for test, _ in result.failures + result.errors)
        if failed and self.desktop.processes:
            picture = Path(os.environ.get("TMPDIR", "/tmp")) / f"{self.id()}.png"
            self.desktop.output("import", "-window", "root", str(picture))
            print(f"The screen at the end is in {picture}\n{self.desktop.log.read_text(errors='replace')[-4000:]}",
                  file=sys.stderr)

    def lay_out_project(self, name, files):
        """Makes a project in the home folder without Kestrel; its project file. `files` are the names of empty
        sources, or names with contents, which are of the kind that the name's ending tells; they may have a folder."""
        folder = self.project_folder(name)
        (folder / ".project").mkdir(parents=True)

        def node(name, kind, children):
            place = folder if kind == "project" else (folder / name).parent
            return {"name": Path(name).name, "path": str(place), "path_type": "absolute_path", "type": kind,
                    "project_type": "nes", "sub_items": children}

        def write(path, value):
            (folder / path).write_text(json.dumps(value), encoding="utf-8")
            return path

        contents = files if isinstance(files, dict) else dict.fromkeys(files, b"")
        for file, content in contents.items():
            (folder / file).parent.mkdir(exist_ok=True)
            (folder / file).write_bytes(content)
        nodes = {kind: [node(file, kind, []) for file in contents if KINDS.get(Path(file).suffix, "text") == kind]
                 for kind in ("text", "graphics", "palette")}
        structure = write(f".project/{name}-ProjectStructure.cfg", node(name, "project", sum(nodes.values(), [])))
        settings = write(f".project/{name}-BuildSettings.cfg", {
            "Version": "1", "output_folder": str(folder / "output"), "emulator": "",
            "code_assembly_files": nodes["text"], "graphic_files": nodes["graphics"],
            "palette_files": nodes["palette"]})
        write(f"{name}.kst", {"BuildSettings": settings, "ProjectStructure": structure})
        return folder / f"{name}.kst"

    def project_folder(self, name):
        return self.home / "Kestrel" / name

    def json_of(self, path):
        return json.loads(path.read_text(encoding="utf-8"))

    def settings(self, name):
        """The build settings of a project as they are saved."""
        return self.json_of(self.project_folder(name) / ".project" / f"{name}-BuildSettings.cfg")

    def listed(self, name, key):
        """The names in one list of the saved build settings."""
        return [entry["name"] for entry in self.settings(name)[key]]

    def structure(self, name):
        """The saved tree of a project as nested lists: [name, kind, [children]]."""
        def shape(node):
            return [node["name"], node["type"], [shape(child) for child in node["sub_items"]]]
        stored = self.json_of(self.project_folder(name) / ".project" / f"{name}-ProjectStructure.cfg")
        return shape(stored)

    def assert_built_alike(self, name):
        """The image that the window made is the one that kestrel-build makes."""
        folder = self.project_folder(name)
        image = folder / "output" / f"{name}.nes"
        from_window = image.read_bytes()
        image.unlink()
        result = subprocess.run([PROGRAMS / "kestrel-build", folder / f"{name}.kst"], stdin=subprocess.DEVNULL,
                                capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual(image.read_bytes(), from_window)

    @staticmethod
    def write_stand_in(script, played):
        """An emulator that keeps a copy of the image that it is given."""
        script.write_text(f'#!/bin/sh\ncp "$1" "{played}.new" && mv "{played}.new" "{played}"\n', encoding="utf-8")
        script.chmod(0o755)

    def wait_for_file(self, path, holds=None):
        """Until the file is there, and holds these bytes if any are given."""
        wait_for_files(f"{path.name} on disk", lambda: path.is_file() and (holds is None or path.read_bytes() == holds))
