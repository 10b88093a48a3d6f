"""Journeys about keys that must not carry out what nobody asked for."""
from desktop import wait_for
from support import JourneyTestCase


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
