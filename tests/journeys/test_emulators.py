# SPDX-License-Identifier: MIT
"""The journey to an installed emulator: the menu that lists them, worked by keys, and the game in the chosen one."""
from demo import DemoByKeys
from desktop import wait_for, wait_for_files
from support import JourneyTestCase

SOURCE = """\
 .inesprg 1
 .bank 0
 .org $C000
Start:
 jmp Start
 .bank 1
 .org $FFFA
 .dw Start, Start, Start
"""
OTHER = "Choose Another Program..."


class EmulatorsTest(JourneyTestCase):
    def setUp(self):
        super().setUp()
        self.desktop.keys_only = True
        self.demo = DemoByKeys(self)
        self.data = self.home / "data"

    def start(self):
        project = self.lay_out_project("Demo", ["main.asm"])
        (project.parent / "main.asm").write_text(SOURCE, encoding="utf-8")
        self.kestrel.start(project, environment={"XDG_DATA_HOME": str(self.data), "XDG_DATA_DIRS": str(self.home / "no")})
        self.kestrel.wait_for_row("Demo")
        self.demo.open("Demo")

    def install(self, name):
        """Makes an installed emulator; its desktop entry and the image that it gets to play."""
        program, played = self.home / name.lower(), self.home / f"{name}.played"
        self.write_stand_in(program, played)
        entry = self.data / "applications" / f"{name.lower()}.desktop"
        entry.parent.mkdir(parents=True, exist_ok=True)
        entry.write_text(f"[Desktop Entry]\nType=Application\nName={name}\nExec={program} %f\n"
                         "MimeType=application/x-nes-rom;\n", encoding="utf-8")
        return entry, played

    def items(self):
        return self.kestrel.application.find_all("menu item", showing=True)

    def open_menu(self):
        """Opens the menu; the names of its entries and whether each can be chosen."""
        if not self.demo.has_focus(None, "Installed emulators"):
            self.demo.go_into_pane(None, "Installed emulators")
        self.desktop.press("space")
        wait_for("the menu", lambda: self.item(OTHER))
        entries = self.items()
        titles = {item.name for item in self.kestrel.main_window().find("menu bar").children()}
        return [(item.name, item.is_("enabled")) for item in entries if item.name and item.name not in titles]

    def item(self, name):
        return next((item for item in self.items() if item.name == name), None)

    def choose(self, name):
        self.demo.go_on_until(f"“{name}” in the menu", "Down", lambda: self.item(name).is_("focused"),
                              lambda: [item.name for item in self.items() if item.is_("focused")])
        self.desktop.press("Return")

    def run_in(self, entry, played):
        """Until the chosen emulator is saved and has the image of the project."""
        wait_for_files("the emulator to be saved", lambda: self.settings("Demo")["emulator"] == str(entry))
        wait_for("the emulator to be shown",
                 lambda: self.kestrel.main_window().find("text", "Emulator").text() == str(entry))
        self.desktop.press("ctrl+r")
        wait_for_files("the emulator to get the image", played.is_file)
        self.assertEqual(played.read_bytes(), (self.project_folder("Demo") / "output" / "Demo.nes").read_bytes())
        wait_for("the word that it runs", lambda: "Running Project" in self.kestrel.console_text())
        self.kestrel.close_console()
        wait_for("the main window in front", lambda: self.kestrel.main_window().is_("active"))

    def test_an_installed_emulator_is_chosen_by_keys_and_gets_the_game(self):
        self.start()
        self.assertEqual(self.open_menu(), [("No emulator for the NES is installed", False), (OTHER, True)])
        self.choose(OTHER)
        self.assertEqual(self.kestrel.wait_for_dialog().name, "Emulator Path")
        self.desktop.press("Escape")
        self.kestrel.wait_for_no_dialog()
        self.assertEqual(self.settings("Demo")["emulator"], "")

        first, second = self.install("First"), self.install("Second")
        self.assertEqual(self.open_menu(), [("First", True), ("Second", True), (OTHER, True)])
        self.choose("Second")
        self.run_in(*second)
        self.assertFalse(first[1].exists())

        second[0].unlink()
        self.assertEqual(self.open_menu(), [("First", True), (OTHER, True)])
        self.choose("First")
        self.run_in(*first)
        self.assertEqual(self.kestrel.quit_by_key(), 0)
