# SPDX-License-Identifier: MIT
"""Journeys to an image and to an emulator that shows it."""
import re
import subprocess
import sys
from pathlib import Path

from desktop import wait_for
from support import PROGRAM, PROGRAMS, SOURCE, JourneyTestCase

sys.path.insert(0, str(SOURCE / "tests" / "examples"))
from emulator import Picture  # noqa: E402  shared with the tests of the examples


class BuildingTest(JourneyTestCase):
    def test_a_syntax_error_is_pointed_at_mended_and_built(self):
        kestrel = self.kestrel
        kestrel.start()
        kestrel.new_project("Demo")
        kestrel.new_file("NES Text Assembly", "main.asm")
        kestrel.new_file("Graphics Data", "tiles.chr")
        kestrel.new_file("Palette Data", "colours.pal")
        folder = self.project_folder("Demo")
        kestrel.select("main.asm")
        kestrel.save_code(folder / "main.asm", PROGRAM.replace(" jmp Start", " jmp #"))
        text = kestrel.build()
        lines = text.split("\n")
        shown = lines.index(" jmp #")
        place = re.fullmatch(r"main\.asm:6:(\d+): error: .+", lines[shown - 1])
        self.assertIsNotNone(place, lines[shown - 1])
        self.assertEqual(int(place[1]), len(" jmp #") + 1)  # where a value is missing
        self.assertEqual(lines[shown + 1], " " * (int(place[1]) - 1) + "^")
        self.assertFalse((folder / "output" / "Demo.nes").exists())
        kestrel.close_console()
        kestrel.save_code(folder / "main.asm", PROGRAM)
        text = kestrel.build()
        self.assertNotIn("error:", text)
        self.assertEqual((folder / "output" / "Demo.nes").stat().st_size, 16 + 16384 + 8192)
        self.assert_built_alike("Demo")

    def test_an_example_from_the_command_line_runs_in_an_emulator(self):
        skylark, lanternfall = (self.instantiate(name) for name in ("Skylark", "Lanternfall"))
        kestrel = self.kestrel
        kestrel.start(skylark)
        # Thin letters in two colours on the sky.
        self.build_and_play("Skylark", lambda picture: len(picture.shares(80, 54, 176, 66)) == 3
                            and picture.shares(80, 54, 176, 66)[0] > 0.7)
        # A second start hands its project to the running program and ends.
        second = self.desktop.launch([str(PROGRAMS / "Kestrel"), lanternfall])
        self.assertEqual(second.wait(timeout=90), 0)
        # Large letters that cover a good part of their place.
        self.build_and_play("Lanternfall", lambda picture: picture.shares(40, 56, 216, 72)[0] < 0.8)
        self.assertEqual(kestrel.quit(), 0)

    def instantiate(self, name):
        """Makes a project of an example; its file."""
        result = subprocess.run([SOURCE / "scripts" / "instantiate-example", SOURCE / "examples" / name],
                                env={"HOME": str(self.home), "PATH": "/usr/bin:/bin",
                                     "KESTREL_BUILD": str(PROGRAMS / "kestrel-build")},
                                capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout.strip()

    def build_and_play(self, name, is_title):
        """Builds and runs a project in a real emulator until its title is on the screen, and ends the emulator."""
        kestrel = self.kestrel
        kestrel.focus_window()
        kestrel.select(name)
        kestrel.choose_emulator("/usr/games/fceux")
        self.assertEqual(self.settings(name)["emulator"], "/usr/games/fceux")
        self.assertNotIn("error:", kestrel.build())
        self.assert_built_alike(name)
        kestrel.focus_window()
        self.desktop.press("ctrl+r")
        number = wait_for(f"the title of {name} on the screen", lambda: self.shown_game(is_title))
        program = Path("/proc") / self.desktop.xdotool("getwindowpid", number).strip() / "cmdline"
        self.assertIn(str(self.project_folder(name) / "output" / f"{name}.nes"), program.read_text().split("\0"))
        self.desktop.xdotool("windowactivate", "--sync", number)
        self.desktop.press("alt+F4")
        wait_for("the emulator to close", lambda: not self.desktop.search("FCEUX"))

    def shown_game(self, is_title):
        """The number of the emulator's window once it shows a title, and all in all several colours, each on more than
        a thin line."""
        for number in self.desktop.search("FCEUX"):
            data = self.desktop.output("import", "-window", number, "-depth", "8", "ppm:-")
            try:
                picture = Picture(data)
            except (ValueError, IndexError):  # the window is not there whole yet
                continue
            if len([share for share in picture.shares() if share > 0.005]) >= 4 and is_title(picture):
                return number
        return None
