# SPDX-License-Identifier: MIT
"""scripts/instantiate-example puts a copy of an example into the home folder and never touches the user's own."""
import json
import shutil
import unittest

from support import INSTANTIATE, NAMES, PLACEHOLDER, HomeTestCase, contents, example


class InstantiateTest(HomeTestCase):
    def setUp(self):
        super().setUp()
        self.kestrel = self.home / "Kestrel"

    def assert_whole(self, name):
        """The copy has every file of the example, and its project files name the new folder only."""
        copy, original = contents(self.kestrel / name), contents(example(name))
        original = {path: data for path, data in original.items() if not path.startswith(("tmp/", "output/"))}
        self.assertEqual(set(copy), set(original))
        for path, data in copy.items():
            if path.startswith(".project/"):
                self.assertNotIn(PLACEHOLDER.encode(), data, path)
                self.assertIn(str(self.kestrel / name).encode(), data, path)
            else:
                self.assertEqual(data, original[path], path)

    def test_the_copy_is_whole_and_knows_its_place(self):
        for name in NAMES:
            self.instantiate(name)
            self.assert_whole(name)
        self.assertEqual({path.name for path in self.kestrel.iterdir()}, set(NAMES))

    def test_a_second_time_leaves_the_copy_and_its_changes_alone(self):
        project = self.instantiate("Skylark")
        source = project.parent / "skylark.asm"
        source.write_text("; mine now\n")
        (project.parent / "notes.txt").write_text("and this\n")
        before = contents(self.kestrel)
        self.instantiate("Skylark")
        self.assertEqual(contents(self.kestrel), before)

    def emulator_of(self, project):
        settings = project.parent / ".project" / f"{project.stem}-BuildSettings.cfg"
        return json.loads(settings.read_text(encoding="utf-8"))["emulator"]

    def test_a_copy_without_an_emulator_gets_the_installed_one(self):
        project = self.instantiate("Skylark")
        self.assertEqual(self.emulator_of(project), "")
        entry = self.install_emulator("emu")
        self.assertEqual(self.emulator_of(self.instantiate("Skylark")), str(entry))
        self.assertEqual(self.emulator_of(self.instantiate("Lanternfall")), str(entry))

    def test_the_emulator_that_the_user_chose_stays(self):
        project = self.instantiate("Skylark")
        settings = project.parent / ".project" / "Skylark-BuildSettings.cfg"
        settings.write_text(settings.read_text(encoding="utf-8").replace('"emulator": ""', '"emulator": "/my/own"'),
                            encoding="utf-8")
        self.install_emulator("emu")
        before = contents(self.kestrel)
        self.assertEqual(self.emulator_of(self.instantiate("Skylark")), "/my/own")
        self.assertEqual(contents(self.kestrel), before)

    def test_whatever_has_the_name_already_is_not_overwritten(self):
        for kind in ("folder", "file", "dangling link"):
            with self.subTest(kind):
                shutil.rmtree(self.kestrel, ignore_errors=True)
                self.kestrel.mkdir()
                target = self.kestrel / "Skylark"
                if kind == "folder":
                    target.mkdir()
                    (target / "mine.txt").write_text("mine")
                elif kind == "file":
                    target.write_text("mine")
                else:
                    target.symlink_to(self.home / "nowhere")
                before = contents(self.kestrel)
                self.run_in_home([INSTANTIATE, example("Skylark")])
                self.assertEqual(contents(self.kestrel), before)
                self.assertEqual(target.is_symlink(), kind == "dangling link")
                self.assertFalse((self.home / "nowhere").exists())

    def test_works_after_a_copy_that_was_cut_short(self):
        # A copy that is cut short lies under a hidden name of its own.
        rest = self.kestrel / ".Skylark.a1b2c3"
        rest.mkdir(parents=True)
        (rest / "skylark.asm").write_text("; half\n")
        self.instantiate("Skylark")
        self.assert_whole("Skylark")

    def test_a_failed_copy_leaves_nothing_that_looks_like_a_project(self):
        # The folder Kestrel cannot be made, since a file has that name.
        self.kestrel.write_text("a file of the user's")
        result = self.run_in_home([INSTANTIATE, example("Skylark")])
        self.assertNotEqual(result.returncode, 0)
        self.assertEqual(self.kestrel.read_text(), "a file of the user's")
        self.assertEqual([path.name for path in self.home.iterdir()], ["Kestrel"])

    def test_without_kestrel_build_it_says_so_and_copies_nothing(self):
        result = self.run_in_home([INSTANTIATE, example("Skylark")], KESTREL_BUILD=str(self.home / "missing"))
        self.assertEqual(result.returncode, 1)
        self.assertIn("missing", result.stderr)
        self.assertFalse(self.kestrel.exists())


if __name__ == "__main__":
    unittest.main()
