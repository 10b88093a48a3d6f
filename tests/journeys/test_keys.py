# SPDX-License-Identifier: MIT
"""Journeys about keys that must not carry out what nobody asked for."""
from desktop import wait_for
from support import PROGRAM, JourneyTestCase, contents


class KeysTest(JourneyTestCase):
    def make_project(self):
        """A project whose file main.asm is shown."""
        kestrel = self.kestrel
        kestrel.start()
        kestrel.new_project("Demo")
        kestrel.new_file("NES Text Assembly", "other.asm")
        kestrel.new_file("NES Text Assembly", "main.asm")
        kestrel.select("main.asm")
        wait_for("the code editor", kestrel.source)
        return self.project_folder("Demo")

    def focused(self, role, name):
        """Whether a widget of the dialog, or without one of the window, has the focus."""
        widget = (self.kestrel.dialog() or self.kestrel.main_window()).find(role, name)
        return widget is not None and widget.is_("focused")

    def wait_for_focus(self, role, name):
        wait_for(f"“{name}” to have the focus", lambda: self.focused(role, name))

    def test_shift_tab_in_the_code_editor_does_nothing(self):
        kestrel = self.kestrel
        folder = self.make_project()
        rows = kestrel.rows()
        text = " lda #0\n"
        kestrel.type_code(text)
        for key in ("shift+Tab", "ctrl+Tab", "ctrl+shift+Tab"):
            # In the tree the letter would open another file, and Delete would take it from the project.
            self.desktop.press(key, "o", "Delete")
            text += "o"
            wait_for(f"the letter after {key} in the text", lambda text=text: kestrel.code() == text)
        self.assertTrue(kestrel.source().is_("focused"))
        self.assertTrue(kestrel.row("main.asm").is_("selected"))
        self.desktop.press("ctrl+s")
        self.wait_for_file(folder / "main.asm", text.encode())
        self.desktop.press("F6")
        self.wait_for_focus("tree", "Projects")
        self.assertEqual(kestrel.rows(), rows)
        self.assertEqual(kestrel.quit(), 0)
        self.assertEqual((folder / "other.asm").read_bytes(), b"")

    def test_a_file_keeps_its_line_ends_when_all_of_it_is_cut_and_pasted(self):
        kestrel = self.kestrel
        folder = self.make_project()
        (folder / "main.asm").write_bytes(b" nop\r\n rts\r\n")
        kestrel.select("other.asm")
        wait_for("the other file", lambda: kestrel.code() == "")
        kestrel.select("main.asm")
        wait_for("the file", lambda: kestrel.code() == " nop\n rts\n")
        self.desktop.click(kestrel.source())
        wait_for("the code editor to have the focus", lambda: kestrel.source().is_("focused"))
        self.desktop.press("ctrl+a", "ctrl+x")
        wait_for("the text to be cut", lambda: kestrel.code() == "")
        self.desktop.press("ctrl+s")
        self.wait_for_file(folder / "main.asm", b"")
        self.desktop.press("ctrl+v", "Return", "x")
        wait_for("the text to be pasted", lambda: kestrel.code() == " nop\n rts\n\nx")
        self.desktop.press("ctrl+s")
        self.wait_for_file(folder / "main.asm", b" nop\r\n rts\r\n\r\nx")
        self.assertEqual(kestrel.quit(), 0)

    def test_a_line_of_a_megabyte_is_edited_and_saved_like_any_other(self):
        kestrel = self.kestrel
        folder = self.make_project()
        data = b"abcdefghijklmno," * 65536
        path = folder / "main.asm"
        path.write_bytes(data + b"\r\n nop")
        kestrel.select("other.asm")
        wait_for("the other file", lambda: kestrel.code() == "")
        kestrel.select("main.asm")
        wait_for("the file", kestrel.code)
        self.desktop.click(kestrel.source())
        wait_for("the code editor to have the focus", lambda: kestrel.source().is_("focused"))
        self.desktop.press("ctrl+Home", "x", "End", "y", "ctrl+s")
        start = "x" + data.decode()
        wait_for("the file to be saved", lambda: len(path.read_bytes()) == len(data) + 8)
        row = path.read_bytes().index(b"y")
        self.assertEqual(path.read_bytes(), (start[:row] + "y" + start[row:]).encode() + b"\r\n nop")
        self.assertEqual(kestrel.quit(), 0)

    def tab_to(self, role, name):
        """Presses Tab until a widget of the dialog has the focus."""
        for _ in range(10):
            if self.focused(role, name):
                return
            before = self.focus()
            self.desktop.press("Tab")
            wait_for("the focus to move", lambda before=before: self.focus() not in ([], before))
        self.fail(f"Tab does not reach “{name}”")

    def focus(self):
        """What tells the focused widget of the dialog from the others."""
        return [(widget.role, widget.name) for widget in self.kestrel.dialog().find_all() if widget.is_("focused")]

    def name_existing_file(self):
        """Opens the wizard and types the name of a file that is there, by keys alone."""
        self.desktop.press("ctrl+n")
        self.kestrel.wait_for_dialog()
        self.desktop.press("Return")
        self.wait_for_focus("text", "Name")
        self.desktop.type("main.asm")
        wait_for("the name", lambda: self.kestrel.dialog().find("text", "Name").text() == "main.asm")

    def test_return_on_a_focused_button_presses_that_button(self):
        kestrel = self.kestrel
        folder = self.make_project()
        kestrel.save_code(folder / "main.asm", PROGRAM)
        rows, files = kestrel.rows(), contents(folder)
        self.desktop.keys_only = True
        for key in ("Return", "KP_Enter"):
            self.name_existing_file()
            self.tab_to("push button", "Cancel")
            self.desktop.press(key)
            kestrel.wait_for_no_dialog()
            self.assertEqual(kestrel.rows(), rows)
            self.assertEqual(contents(folder), files)

            self.name_existing_file()
            self.tab_to("push button", "Back")
            self.desktop.press(key)
            wait_for("the kinds", lambda: self.kestrel.dialog().find(None, "Palette Data"))
            self.tab_to("push button", "Cancel")
            self.desktop.press(key)
            kestrel.wait_for_no_dialog()
        self.desktop.keys_only = False
        self.assertEqual(kestrel.rows(), rows)

        kestrel.select("Demo")
        for key in ("Return", "KP_Enter"):
            kestrel.press_button("Add graphics file")
            kestrel.wait_for_dialog()
            self.wait_for_focus("text", "Filter")
            self.desktop.type("other")
            kestrel.button("Add", kestrel.dialog())  # the file is selected
            self.tab_to("push button", "Cancel")
            self.desktop.press(key)
            kestrel.wait_for_no_dialog()
        self.assertEqual(kestrel.quit(), 0)
        self.assertEqual(contents(folder), files)

    def test_clicking_save_leaves_the_caret_in_the_text(self):
        kestrel = self.kestrel
        folder = self.make_project()
        kestrel.type_code("one")
        kestrel.press_button("Save")
        self.wait_for_file(folder / "main.asm", b"one")
        self.desktop.type(" two")
        wait_for("the text typed on", lambda: kestrel.code() == "one two")
        # By keys: out to the tree, on to the button, and the text again.
        self.desktop.press("F6")
        self.wait_for_focus("tree", "Projects")
        self.desktop.press("Tab")
        self.wait_for_focus("push button", "Save")
        self.desktop.press("Return")
        self.wait_for_file(folder / "main.asm", b"one two")
        self.assertTrue(self.focused("push button", "Save"))
        self.desktop.press("Tab")
        self.wait_for_focus("text", "Source text")
        self.assertEqual(kestrel.quit(), 0)
