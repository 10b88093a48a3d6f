# SPDX-License-Identifier: MIT
"""Journeys of somebody who works with assistive technology: what it is told of the navigation tree."""
import re
import signal

from gi.repository import Atspi, GLib

from desktop import wait_for, wait_for_files
from support import JourneyTestCase

SHOWING = "object:state-changed:showing"


class AssistiveTest(JourneyTestCase):
    def tree(self):
        return self.kestrel.main_window().find("tree", "Projects")

    def description(self):
        return self.tree().accessible.get_description()

    def test_the_tree_tells_of_its_rows_and_of_nothing_else(self):
        kestrel = self.kestrel
        kestrel.start()
        self.assertIn("No projects yet", self.description())
        self.assertEqual(self.tree().children(), [])
        kestrel.new_project("Demo")
        kestrel.new_file("Graphics Data", "tiles.chr")
        kestrel.new_file("Palette Data", "colours.pal")
        kestrel.new_file("NES Text Assembly", "main.asm")
        self.desktop.press("ctrl+shift+g")
        kestrel.wait_for_row("Group")
        self.assertEqual(self.description(), "")
        told = [(row.name, row.accessible.get_description()) for row in self.tree().children()]
        self.assertEqual(told, [("Demo", "Project"), ("Group", "Group"), ("main.asm", "Assembly file"),
                                ("colours.pal", "Palette file"), ("tiles.chr", "Tile file")])
        gone = self.project_folder("Demo") / "tiles.chr"
        gone.unlink()
        kestrel.leave_and_come_back()
        wait_for("the missing file to be told", lambda: kestrel.row("tiles.chr").accessible.get_description()
                 == f"Tile file, file is missing: {gone}")

    def test_expanding_and_collapsing_is_announced(self):
        kestrel = self.kestrel
        kestrel.start(self.lay_out_project("Demo", ["main.asm"]))
        kestrel.select("Demo")
        heard = []

        def hear(event, *_):
            heard.append((event.source.get_name(), event.source.get_role_name(), event.detail1))

        listener = Atspi.EventListener.new(hear)
        self.assertTrue(listener.register("object:state-changed:expanded"))
        row = (kestrel.row("Demo").role,)

        def have_heard(*states):
            kestrel.row("Demo")  # asks the program, so that this does not spin
            while GLib.MainContext.default().iteration(False):
                pass
            return heard == [("Demo", *row, state) for state in states]

        self.desktop.press("Right")
        wait_for("the row to be announced as expanded", lambda: have_heard(1))
        self.assertTrue(kestrel.row("Demo").is_("expanded"))
        self.desktop.press("Left")
        wait_for("the row to be announced as collapsed", lambda: have_heard(1, 0))
        self.assertFalse(kestrel.row("Demo").is_("expanded"))
        listener.deregister("object:state-changed:expanded")

    def test_a_list_of_projects_that_cannot_be_read_is_not_an_empty_one(self):
        kestrel = self.kestrel
        registry = self.home / ".Kestrel" / "AllProjects.cfg"
        registry.parent.mkdir()
        registry.write_text('{"version": "1", "0": {"ProjectName"', encoding="utf-8")
        kestrel.start()
        self.assertNotIn("No projects yet", self.description())
        self.assertIn(f"The list of projects could not be read: {registry} (it is no whole JSON file)",
                      self.description())
        self.assertEqual(kestrel.quit(), 0)
        self.assertIn(f"could not be read: {registry}", self.desktop.log.read_text(encoding="utf-8"))
        registry.unlink()
        kestrel.start()
        self.assertIn("No projects yet", self.description())


class AnnouncementsTest(JourneyTestCase):
    """What a screen reader speaks while it happens: a notification that is shown, or shown again."""

    def setUp(self):
        super().setUp()
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.assertTrue(self.listener.register(SHOWING))
        self.addCleanup(self.listener.deregister, SHOWING)
        project = self.lay_out_project("Demo", ["main.asm"])
        self.kestrel.start(project)
        self.kestrel.expand("Demo")

    def hear(self, event, *_):
        if event.source.get_role_name() == "notification" and event.detail1 == 1:
            self.heard.append(event.source.get_name())

    def wait_to_hear(self, pattern):
        """Until this was heard since the last such wait, and once only."""
        def have_heard():
            self.kestrel.row("Demo")  # asks the program, so that this does not spin
            while GLib.MainContext.default().iteration(False):
                pass
            return any(re.fullmatch(pattern, text) for text in self.heard)

        wait_for(f"“{pattern}” to be announced", have_heard)
        self.kestrel.wait_for_rest()
        have_heard()
        self.assertEqual(len(self.heard), 1, self.heard)
        self.heard.clear()

    def test_unsaved_work_that_was_kept_is_announced(self):
        self.kestrel.select("main.asm")
        self.kestrel.type_code("; lost?")
        drafts = self.home / ".local/state/kestrel/drafts"
        wait_for_files("the draft", lambda: any(b"; lost?" in draft.read_bytes() for draft in drafts.glob("*.draft")))
        self.kestrel.process.send_signal(signal.SIGKILL)
        self.kestrel.process.wait(timeout=90)
        self.kestrel.start()
        self.kestrel.expand("Demo")
        self.kestrel.select("main.asm")
        self.wait_to_hear(r"Unsaved changes of \d\d:\d\d are kept")

    def test_every_save_that_fails_is_announced(self):
        self.kestrel.select("main.asm")
        self.kestrel.type_code("; not saved")
        path = self.project_folder("Demo") / "main.asm"
        path.unlink()
        path.mkdir()  # nothing can be written there, not even by an administrator
        for _ in range(2):
            self.desktop.press("ctrl+s")
            self.wait_to_hear(r"Saving: main\.asm (was not|could not be) saved.*")
        path.rmdir()
        self.desktop.press("ctrl+s")
        self.wait_for_file(path, b"; not saved")

    def test_what_a_search_came_to_is_announced(self):
        self.kestrel.select("main.asm")
        self.kestrel.type_code("nop")
        self.desktop.press("F12")
        self.wait_to_hear("Notice: No definition of “nop” was found")
