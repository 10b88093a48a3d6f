"""Journeys to an image and to an emulator that shows it."""
import subprocess
import sys

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
        self.assertIn("main.asm:6:", text)
        lines = text.split("\n")
        shown = lines.index(" jmp #")
        self.assertEqual(lines[shown + 1].strip(), "^")
        self.assertFalse((folder / "output" / "Demo.nes").exists())
        kestrel.close_console()
        kestrel.save_code(folder / "main.asm", PROGRAM)
        text = kestrel.build()
        self.assertNotIn("error:", text)
        self.assertEqual((folder / "output" / "Demo.nes").stat().st_size, 16 + 16384 + 8192)
        self.assert_built_alike("Demo")

    def test_an_example_from_the_command_line_runs_in_an_emulator(self):
        projects = []
        for name in ("Skylark", "Lanternfall"):
            result = subprocess.run([SOURCE / "scripts" / "instantiate-example", SOURCE / "examples" / name],
                                    env={"HOME": str(self.home), "PATH": "/usr/bin:/bin",
                                         "KESTREL_BUILD": str(PROGRAMS / "kestrel-build")},
                                    capture_output=True, text=True, timeout=120, check=False)
            self.assertEqual(result.returncode, 0, result.stderr)
            projects.append(result.stdout.strip())
        kestrel = self.kestrel
        kestrel.start(projects[0])
        kestrel.wait_for_row("Skylark")
        # A second start hands its project to the running program and ends.
        second = self.desktop.launch([str(PROGRAMS / "Kestrel"), projects[1]])
        self.assertEqual(second.wait(timeout=90), 0)
        kestrel.wait_for_row("Lanternfall")
        kestrel.select("Skylark")
        kestrel.choose_emulator("/usr/games/fceux")
        self.assertEqual(self.settings("Skylark")["emulator"], "/usr/games/fceux")
        kestrel.build()
        self.assert_built_alike("Skylark")
        kestrel.focus_window()
        self.desktop.press("ctrl+r")
        wait_for("the game on the screen", self.game_is_shown)

    def game_is_shown(self):
        """Whether the emulator's window shows several colours, each on more than a thin line."""
        for number in self.desktop.search("FCEUX"):
            data = self.desktop.output("import", "-window", number, "-depth", "8", "ppm:-")
            try:
                picture = Picture(data)
            except (ValueError, IndexError):  # the window is not there whole yet
                continue
            if len([share for share in picture.shares() if share > 0.005]) >= 4:
                return True
        return False
