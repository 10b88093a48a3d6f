# SPDX-License-Identifier: MIT
"""Journeys through the navigation tree of a large project."""
from desktop import wait_for, wait_for_files
from support import JourneyTestCase

WHEEL_DOWN = 5


class TreeTest(JourneyTestCase):
    def test_a_long_name_at_the_lower_edge_lets_the_program_rest(self):
        kestrel = self.kestrel
        files = ["enemy_behaviour_tables.asm" if i == 41 else f"f{i:02}.asm" for i in range(60)]
        kestrel.start(self.lay_out_project("Demo", files))
        kestrel.expand("Demo")
        kestrel.wait_for_rest()
        self.assertEqual(kestrel.rows(), ["Demo", *files])
        self.desktop.point_at(kestrel.row("Demo"))
        for _ in range(6):
            self.desktop.xdotool("click", WHEEL_DOWN)
            kestrel.wait_for_rest()
        self.assertEqual(kestrel.quit(), 0)

    def test_a_new_file_is_seen_in_a_closed_project_and_groups_stay_closed(self):
        kestrel = self.kestrel
        kestrel.start(self.lay_out_project("Demo", ["old.asm"]))
        kestrel.select("Demo")
        self.desktop.press("ctrl+shift+g")
        kestrel.wait_for_row("Group")
        self.assertEqual(kestrel.rows(), ["Demo", "Group", "old.asm"])
        kestrel.collapse("Demo")
        kestrel.new_file("NES Text Assembly", "main.asm")
        self.assertEqual(kestrel.rows(), ["Demo", "main.asm", "Group", "old.asm"])
        self.assertTrue(kestrel.row("Demo").is_("selected"))
        kestrel.select("Group")
        self.desktop.press("ctrl+n")
        kestrel.choose_kind("NES Text Assembly")
        kestrel.finish_wizard("inner.asm")
        self.wait_for_file(self.project_folder("Demo") / "inner.asm")
        wait_for_files("the file in the group", lambda: self.structure("Demo")[2][1] == [
            "Group", "group", [["inner.asm", "text", []]]])
        self.assertEqual(kestrel.rows(), ["Demo", "main.asm", "Group", "old.asm"])

    def test_a_held_key_repeats_what_is_typed_but_no_command(self):
        kestrel = self.kestrel
        kestrel.start()
        kestrel.new_project("Demo")
        kestrel.new_file("NES Text Assembly", "main.asm")
        kestrel.select("Demo")
        self.desktop.hold("ctrl+shift+g")
        self.desktop.press("End")  # after which all that was pressed before has been dealt with
        wait_for("the last row to be selected", lambda: kestrel.row("main.asm").is_("selected"))
        self.assertEqual(kestrel.rows(), ["Demo", "Group", "main.asm"])
        kestrel.select("main.asm")
        kestrel.type_code("held: ")
        self.desktop.hold("x")
        # So keys do repeat here.
        wait_for("letters to be repeated", lambda: kestrel.code().startswith("held: xxxxxxxx"))
        for _ in range(5):
            kestrel.select("Demo")
            before = len(kestrel.rows())
            self.desktop.press("ctrl+shift+g")
            wait_for("a group", lambda before=before: len(kestrel.rows()) == before + 1)
        kestrel.select("Group")
        self.desktop.hold("Delete")
        self.desktop.press("Home")
        wait_for("the first row to be selected", lambda: kestrel.row("Demo").is_("selected"))
        self.assertEqual(kestrel.rows(), ["Demo", *["Group"] * 5, "main.asm"])
        self.assertEqual(len(self.structure("Demo")[2]), 6)

    def test_a_held_key_takes_one_file_off_a_list_of_the_settings(self):
        kestrel = self.kestrel
        files = [f"f{i:02}.asm" for i in range(20)]
        kestrel.start(self.lay_out_project("Demo", files))
        listed = wait_for("the list", lambda: kestrel.main_window().find("list", "Assembly files"))
        wait_for("the files in the list", lambda: len(listed.children()) == len(files))
        self.desktop.click(listed.children()[3])
        wait_for("the file to be selected", lambda: listed.children()[3].is_("selected"))
        self.desktop.hold("Delete")
        self.desktop.press("Home")
        wait_for("the first file to be selected", lambda: listed.children()[0].is_("selected"))
        self.assertEqual(self.listed("Demo", "code_assembly_files"), files[:3] + files[4:])

    def test_files_taken_off_a_list_of_the_settings_come_back_by_undo(self):
        kestrel = self.kestrel
        files = ["a.asm", "b.asm", "c.asm"]
        kestrel.start(self.lay_out_project("Demo", files))
        listed = wait_for("the list", lambda: kestrel.main_window().find("list", "Assembly files"))
        wait_for("the files in the list", lambda: len(listed.children()) == len(files))

        def wait_for_list(*names):
            wait_for_files(f"{names} to be saved", lambda: self.listed("Demo", "code_assembly_files") == list(names))
            wait_for(f"{names} to be shown", lambda: [row.name for row in listed.children()] == list(names))

        self.desktop.click(listed.children()[1])
        wait_for("the file to be selected", lambda: listed.children()[1].is_("selected"))
        self.desktop.press("Delete")
        wait_for_list("a.asm", "c.asm")
        self.desktop.press("Delete")
        wait_for_list("a.asm")
        self.desktop.press("ctrl+z")
        wait_for_list("a.asm", "c.asm")
        kestrel.choose_command("Edit", "Undo")
        wait_for_list(*files)
        wait_for("the file that came back to be selected", lambda: listed.children()[1].is_("selected"))
        kestrel.choose_command("Edit", "Redo")
        wait_for_list("a.asm", "c.asm")
        self.assertEqual(kestrel.quit(), 0)
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["a.asm", "c.asm"])

    def test_the_delete_key_shows_a_row_that_is_out_of_sight_before_it_deletes_it(self):
        kestrel = self.kestrel
        files = [f"f{i:02}.asm" for i in range(60)]
        kestrel.start(self.lay_out_project("Demo", files))
        kestrel.expand("Demo")
        kestrel.select("f05.asm")
        self.desktop.xdotool("click", "--repeat", 15, WHEEL_DOWN)
        wait_for("the selected row to be out of sight", lambda: not self.is_in_sight("f05.asm"))
        self.desktop.press("Delete")
        wait_for("the selected row to be in sight", lambda: self.is_in_sight("f05.asm"))
        self.assertEqual(kestrel.rows(), ["Demo", *files])
        self.desktop.press("Delete")
        wait_for("the row to go", lambda: kestrel.row("f05.asm") is None)
        self.assertEqual(kestrel.rows(), ["Demo", *[name for name in files if name != "f05.asm"]])

    def is_in_sight(self, name):
        """Whether a row is within the tree's borders."""
        tree = self.kestrel.main_window().find("tree", "Projects")
        _, top, _, height = tree.place()
        row = self.kestrel.row(name)
        return row.is_("showing") and top <= row.centre()[1] < top + height
