# SPDX-License-Identifier: MIT
"""Journey of files that lie elsewhere into a project, its build, and out again."""
from desktop import wait_for, wait_for_files
from support import PROGRAM, JourneyTestCase


class ImportTest(JourneyTestCase):
    def test_imported_files_get_their_kind_are_built_and_stay_on_disk_when_deleted(self):
        kestrel = self.kestrel
        elsewhere = self.home / "elsewhere"
        elsewhere.mkdir()
        files = {"main.asm": PROGRAM.encode(), "tiles.chr": bytes(range(256)) * 32, "colours.pal": bytes(range(32))}
        for name, content in files.items():
            (elsewhere / name).write_bytes(content)
        kestrel.start()
        kestrel.new_project("Demo")
        for name in files:
            kestrel.select("Demo")
            kestrel.import_file(elsewhere / name)
        kestrel.select("main.asm")
        kestrel.wait_for_message(
            "File type unspecified.\n Please set file to appropriate type in project settings")
        kestrel.select("Demo")
        for button, name, key in (("Add assembly file", "main.asm", "code_assembly_files"),
                                  ("Add graphics file", "tiles.chr", "graphic_files"),
                                  ("Add palette file", "colours.pal", "palette_files")):
            kestrel.pick_file(button, name)
            wait_for_files(f"{name} in the saved settings", lambda name=name, key=key: self.listed("Demo", key) == [name])
        self.assertEqual(sorted(child[:2] for child in self.structure("Demo")[2]),
                         [["colours.pal", "palette"], ["main.asm", "text"], ["tiles.chr", "graphics"]])
        kestrel.build()
        image = self.project_folder("Demo") / "output" / "Demo.nes"
        self.assertEqual(image.read_bytes()[-8192:], files["tiles.chr"])
        self.assertIn(files["colours.pal"], image.read_bytes())
        self.assert_built_alike("Demo")
        kestrel.focus_window()
        kestrel.select("main.asm")
        wait_for("the program in the code editor", lambda: kestrel.code() == PROGRAM)
        kestrel.select("tiles.chr")
        kestrel.wait_for_pane("Tile graphics")
        kestrel.select("colours.pal")
        kestrel.wait_for_pane("Palettes")
        for name, content in files.items():
            kestrel.select(name)
            self.desktop.press("Delete")
            wait_for(f"{name} to leave the tree", lambda name=name: name not in kestrel.rows())
            self.assertEqual((elsewhere / name).read_bytes(), content)
        self.assertEqual(self.structure("Demo")[2], [])
        for key in ("code_assembly_files", "graphic_files", "palette_files"):
            self.assertEqual(self.listed("Demo", key), [])
        self.assertEqual(kestrel.quit(), 0)
        kestrel.start()
        kestrel.select("Demo")
        self.assertEqual(kestrel.rows(), ["Demo"])
        wait_for("the empty lists", lambda: kestrel.main_window().find("list", "Palette files"))
        for name in ("Assembly files", "Graphics files", "Palette files"):
            self.assertEqual(kestrel.main_window().find("list", name).children(), [])
