# SPDX-License-Identifier: MIT
"""Journey from the problems of a build to their places in the sources."""
from desktop import wait_for
from support import JourneyTestCase

MAIN = """\
\t.inesprg 1
\t.bank 0
\t.org $C000
Start:
\tjmp Nowhere
\t.include "code/inc"
\t.include "same.asm"
\t.include "{outside}"
\t.bank 1
\t.org $FFFA
\t.dw 0, Start, 0
"""
INC = "; für alle\n\t.db \"é\", Wrong\n"


class ProblemsTest(JourneyTestCase):
    def setUp(self):
        super().setUp()
        outside = self.home / "outside.asm"
        outside.write_text("\tfoo\n", encoding="utf-8")
        self.project = self.lay_out_project("Game", {
            "main.asm": MAIN.format(outside=outside).encode(), "code/inc.asm": INC.encode(),
            "a/same.asm": b"; the first\n", "b/same.asm": b"; the second\n\n\tldx Missing\n"})
        self.outside = outside

    def test_every_way_to_a_problem_leads_to_its_place(self):
        kestrel = self.kestrel
        kestrel.start(self.project)
        kestrel.expand("Game")
        kestrel.select("main.asm")
        wait_for("the source", lambda: kestrel.code() == MAIN.format(outside=self.outside))
        lines = kestrel.build().split("\n")
        for place in ("main.asm:5:6", "code/inc:2:11", "same.asm:3:6", f"{self.outside}:1:2"):
            self.assertTrue(any(line.startswith(place + ": error: ") for line in lines), f"{place} in {lines}")
        # By mouse into another file, an include that is named in another way than its file.
        console = kestrel.window("Console").find("text", "Console text")
        self.desktop.double_click(console.place_of("code/inc:2"))
        self.assert_at("inc.asm", INC, (2, 11))
        # By the key from there; of two files of one name the later one was built.
        self.desktop.press("F4")
        self.assert_at("same.asm", "; the second\n\n\tldx Missing\n", (3, 6), number=1)
        # A file in no tree is named, and nothing else happens.
        self.desktop.press("F4")
        wait_for("the file to be named", lambda: self.status_tells(f"“{self.outside}” is in no project of the tree"))
        self.assertTrue(kestrel.row("same.asm", 1).is_("selected"))
        # Round the end, back to the first one.
        self.desktop.press("F4")
        self.assert_at("main.asm", MAIN.format(outside=self.outside), (5, 6))
        self.desktop.press("shift+F4", "shift+F4")
        self.assert_at("same.asm", "; the second\n\n\tldx Missing\n", (3, 6), number=1)

    def test_a_jump_within_the_shown_file_keeps_its_unsaved_text(self):
        kestrel = self.kestrel
        kestrel.start(self.project)
        kestrel.expand("Game")
        kestrel.select("main.asm")
        wait_for("the source", lambda: kestrel.code() is not None)
        kestrel.build()
        # F4 acts in the console's window, too, and goes to the first error.
        self.desktop.press("F4")
        text = MAIN.format(outside=self.outside)
        self.assert_at("main.asm", text, (5, 6))
        description = kestrel.source().accessible.get_description()
        self.assertTrue(description.startswith("Error: the symbol 'Nowhere'"), description)
        self.desktop.press("ctrl+Home")
        self.desktop.type("; not saved\n")
        wait_for("the text to be typed", lambda: kestrel.code() == "; not saved\n" + text)
        # In the console the caret moves by keys, and Return goes where its line leads; the place has moved.
        self.desktop.press("ctrl+shift+c")
        wait_for("the console in front", lambda: kestrel.window("Console").is_("active"))
        console = kestrel.window("Console").find("text", "Console text")
        before = console.text()
        self.desktop.press("ctrl+Home")
        wait_for("the caret at the start", lambda: console.caret() == (1, 1))
        headline = before[:before.index("main.asm:5:6")].count("\n")
        self.desktop.press(*["Down"] * headline, "Return")
        self.assert_at("main.asm", "; not saved\n" + text, (6, 6))
        self.assertEqual(console.text(), before)
        # The way to a message can be followed as well.
        self.desktop.press("ctrl+shift+c")
        wait_for("the console in front", lambda: kestrel.window("Console").is_("active"))
        self.desktop.double_click(console.place_of("included at main.asm:6"))
        self.assert_at("main.asm", "; not saved\n" + text, (6, 1))
        self.assertEqual((self.project_folder("Game") / "main.asm").read_text(encoding="utf-8"), text)
        # Into another file and back: it is read anew, and what was typed is offered.
        self.desktop.press("F4")
        self.assert_at("inc.asm", INC, (2, 11))

    def status_tells(self, text):
        found = self.kestrel.main_window().find_all()
        return any(text in label.name for label in found)

    def assert_at(self, row, text, place, number=0):
        """The row is selected, its file shown, the caret there, and the keys go to the text."""
        kestrel = self.kestrel
        wait_for(f"“{row}” to be selected", lambda: kestrel.row(row, number).is_("selected"))
        wait_for(f"“{row}” to be shown", lambda: kestrel.code() == text)
        wait_for(f"the caret at {place}", lambda: kestrel.source().caret() == place)
        wait_for("the keys to go to the text", lambda: kestrel.main_window().is_("active")
                 and kestrel.source().is_("focused"))
        wait_for("the place in the status bar", lambda: self.status_tells(f"Line {place[0]}, Column {place[1]}"))
