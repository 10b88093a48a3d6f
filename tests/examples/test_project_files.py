# SPDX-License-Identifier: MIT
"""The example projects are whole: what their files name exists, and what the console cannot take is not there."""
import json
import re
import subprocess
import sys
import unittest

from support import NAMES, PLACEHOLDER, SOURCE, contents, example

# How the builder finds the main file.
VECTORS = re.compile(r"\.org[\s\t]+\$F{3}A", re.IGNORECASE)


def read(name, part):
    return json.loads((example(name) / ".project" / f"{name}-{part}.cfg").read_text(encoding="utf-8"))


def files_of(node):
    if node["type"] not in ("project", "group"):
        yield node
    for child in node["sub_items"]:
        yield from files_of(child)


class ProjectFilesTest(unittest.TestCase):
    def for_each(self):
        for name in NAMES:
            with self.subTest(example=name):
                yield name

    def test_project_file_leads_to_structure_and_settings(self):
        for name in self.for_each():
            project = json.loads((example(name) / f"{name}.kst").read_text(encoding="utf-8"))
            self.assertEqual(project, {"BuildSettings": f".project/{name}-BuildSettings.cfg",
                                       "ProjectStructure": f".project/{name}-ProjectStructure.cfg"})

    def test_every_file_of_the_structure_exists_and_every_file_is_in_it(self):
        for name in self.for_each():
            root = f"{PLACEHOLDER}/Kestrel/{name}"
            structure = read(name, "ProjectStructure")
            self.assertEqual((structure["name"], structure["path"], structure["type"]), (name, root, "project"))
            listed = set()
            for node in files_of(structure):
                self.assertEqual(node["path_type"], "absolute_path")
                self.assertEqual((node["path"] + "/").find(root + "/"), 0, node["path"])
                listed.add((node["path"] + "/" + node["name"])[len(root) + 1:])
            present = {path for path in contents(example(name)) if not path.startswith((".project/", "tmp/", "output/"))}
            self.assertEqual(listed, present - {f"{name}.kst"})

    def test_settings_build_every_file_of_the_structure(self):
        keys = {"text": "code_assembly_files", "graphics": "graphic_files", "palette": "palette_files"}
        for name in self.for_each():
            settings = read(name, "BuildSettings")
            self.assertEqual((settings["Version"], settings["emulator"]), ("1", ""))
            self.assertEqual(settings["output_folder"], f"{PLACEHOLDER}/Kestrel/{name}/output")
            nodes = list(files_of(read(name, "ProjectStructure")))
            for kind, key in keys.items():
                self.assertEqual(settings[key], [node for node in nodes if node["type"] == kind])
                self.assertTrue(settings[key])

    def test_files_keep_their_own_names_in_one_flat_folder(self):
        for name in self.for_each():
            names = [node["name"].lower() for node in files_of(read(name, "ProjectStructure"))]
            self.assertEqual(len(names), len(set(names)))

    def test_main_file_is_the_first_and_only_one_with_the_vectors(self):
        for name in self.for_each():
            listed = read(name, "BuildSettings")["code_assembly_files"]
            with_vectors = []
            for node in listed:
                folder = example(name) / node["path"][len(f"{PLACEHOLDER}/Kestrel/{name}/"):]
                if VECTORS.search((folder / node["name"]).read_text(encoding="utf-8")):
                    with_vectors.append(node["name"])
            self.assertEqual(with_vectors, [f"{name.lower()}.asm"])
            self.assertEqual(listed[0]["name"], with_vectors[0])

    def test_sources_have_line_feeds_and_no_tabs_and_fit_a_page(self):
        for name in self.for_each():
            for path, data in contents(example(name)).items():
                if path.endswith(".asm"):
                    self.assertNotIn(b"\r", data, path)
                    self.assertNotIn(b"\t", data, path)
                    self.assertTrue(data.isascii() and data.endswith(b"\n"), path)
                    self.assertLessEqual(max(map(len, data.split(b"\n"))), 110, path)

    def test_palettes_are_of_32_colours_that_a_television_takes(self):
        for name in self.for_each():
            palettes = {path: data for path, data in contents(example(name)).items() if path.endswith(".pal")}
            self.assertTrue(palettes)
            for path, data in palettes.items():
                self.assertEqual(len(data), 32, path)
                self.assertLess(max(data), 0x40, path)
                self.assertNotIn(0x0D, data, path)
                self.assertEqual({data[i] for i in range(0, 32, 4)}, {data[0]}, "the backdrop differs: " + path)

    def test_tiles_are_what_their_drawing_gives(self):
        for name in self.for_each():
            tiles = [path for path in contents(example(name)) if path.endswith(".chr")]
            self.assertEqual(len(tiles), 1)
            self.assertEqual((example(name) / tiles[0]).stat().st_size, 8192)
            drawing = SOURCE / "scripts" / "example-art" / f"{name.lower()}.txt"
            result = subprocess.run([sys.executable, str(SOURCE / "scripts" / "draw-tiles"), "--check", str(drawing),
                                     str(example(name) / tiles[0])], capture_output=True, text=True, check=False)
            self.assertEqual(result.returncode, 0, result.stdout + result.stderr)


if __name__ == "__main__":
    unittest.main()
