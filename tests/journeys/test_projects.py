# SPDX-License-Identifier: MIT
"""Journeys through projects, files and the navigation tree."""
from desktop import wait_for, wait_for_files
from support import JourneyTestCase, contents


class ProjectsTest(JourneyTestCase):
    def test_deleting_one_of_two_like_projects_leaves_the_other_untouched(self):
        kestrel = self.kestrel
        kestrel.start()
        finished = {}
        for name in ("First", "Second"):
            kestrel.new_project(name)
            kestrel.new_file("NES Text Assembly", "main.asm")
            kestrel.select("main.asm")
            kestrel.save_code(self.project_folder(name) / "main.asm", f"; of {name}\n")
            kestrel.select(name)
            kestrel.new_file("Palette Data", "colours.pal")
            kestrel.select(name)
            self.desktop.press("ctrl+shift+g")
            kestrel.select("Group")
            self.desktop.press("ctrl+shift+g")
            kestrel.expand("Group")
            wait_for("a group in a group", lambda: kestrel.rows().count("Group") == 2)
            wait_for_files("the groups in the saved tree", lambda name=name: ["Group", "group", [
                ["Group", "group", []]]] in self.structure(name)[2])
            finished[name] = contents(self.project_folder(name))
            self.assertEqual(finished[name]["main.asm"], f"; of {name}\n".encode())
            # The next project's rows are told apart by there being no others.
            if name == "First":
                kestrel.collapse(name)
        self.assertEqual(kestrel.rows()[0], "Second")
        self.assertEqual(self.structure("Second"), [
            "Second", "project", [
                ["Group", "group", [["Group", "group", []]]],
                ["colours.pal", "palette", []], ["main.asm", "text", []]]])
        self.assertEqual(self.registered(), ["First", "Second"])
        kestrel.select("Second")
        self.desktop.press("Delete")
        wait_for("the project to go", lambda: "Second" not in kestrel.rows())
        self.assertEqual(kestrel.rows()[0], "First")
        self.assertEqual(self.registered(), ["First"])
        self.assertEqual(contents(self.project_folder("First")), finished["First"])
        self.assertEqual(contents(self.project_folder("Second")), finished["Second"])  # its files stay on disk, too
        self.assertEqual(kestrel.quit(), 0)
        kestrel.start()
        kestrel.wait_for_row("First")
        self.assertNotIn("Second", kestrel.rows())
        self.assertEqual(contents(self.project_folder("First")), finished["First"])

    def registered(self):
        """The names of the projects that the next start shows, in the order in which they were made."""
        stored = self.json_of(self.home / ".Kestrel" / "AllProjects.cfg")
        return [entry["ProjectName"] for key, entry in stored.items() if key != "version"]

    def test_files_that_vanish_turn_red_and_come_back(self):
        kestrel = self.kestrel
        kestrel.start()
        kestrel.new_project("Demo")
        kestrel.new_file("NES Text Assembly", "open.asm")
        kestrel.new_file("NES Text Assembly", "gone.asm")
        folder = self.project_folder("Demo")
        kestrel.select("open.asm")
        kestrel.type_code("; as it was typed\n")
        self.desktop.press("ctrl+s")
        self.wait_for_file(folder / "open.asm", b"; as it was typed\n")

        (folder / "open.asm").write_bytes(b"; as another program has it\n")
        (folder / "gone.asm").rename(folder / "elsewhere.asm")
        self.assertIs(kestrel.is_red("gone.asm"), False)  # nothing is noticed before the window is come back to
        kestrel.leave_and_come_back()
        wait_for("the row to turn red", lambda: kestrel.is_red("gone.asm"))
        self.assertIs(kestrel.is_red("open.asm"), False)
        self.assertEqual(kestrel.code(), "; as it was typed\n")  # what is open is not read again
        kestrel.select("gone.asm")
        kestrel.wait_for_message("File does not exist at path")

        (folder / "elsewhere.asm").rename(folder / "gone.asm")
        kestrel.leave_and_come_back()
        wait_for("the row to turn back", lambda: kestrel.is_red("gone.asm") is False)
        kestrel.wait_for_message("File does not exist at path")  # until a row is selected
        kestrel.select("open.asm")
        wait_for("the file to be read", lambda: kestrel.code() == "; as another program has it\n")

        (folder / "Demo.kst").rename(folder / "Demo.away")
        kestrel.leave_and_come_back()
        kestrel.wait_for_message("File does not exist at path")
        wait_for("the project's row to turn red", lambda: kestrel.is_red("Demo"))
        self.assertEqual((folder / "open.asm").read_bytes(), b"; as another program has it\n")
