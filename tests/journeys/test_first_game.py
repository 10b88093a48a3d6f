# SPDX-License-Identifier: MIT
"""Journeys from an empty home folder to a running game, and through crashes on the way."""
import os
import random

from gi.repository import GLib

from demo import COLOUR, DemoByKeys, DemoByMouse
from desktop import ProgramDied, wait_for
from saved_work import SavedWork
from support import PROGRAM, JourneyTestCase


class FirstGameTest(JourneyTestCase):
    def make_build_and_run(self, demo):
        self.kestrel.start()
        for step in demo.steps():
            step()
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["main.asm"])
        self.assertEqual(self.listed("Demo", "graphic_files"), ["tiles.chr"])
        self.assertEqual(self.listed("Demo", "palette_files"), ["colours.pal"])
        image = demo.folder / "output" / "Demo.nes"
        self.assertEqual(demo.played.read_bytes(), image.read_bytes())
        tiles, colours = (demo.folder / "tiles.chr").read_bytes(), (demo.folder / "colours.pal").read_bytes()
        code = bytes((0x4C, 0x00, 0xC0)) + colours
        self.assertEqual(image.read_bytes(), b"NES\x1a\x01\x01" + bytes(10) + code
                         + b"\xff" * (16384 - len(code) - 6) + bytes((0x00, 0xC0)) * 3 + tiles)
        self.assertEqual(len(tiles), 8192)
        self.assertEqual(sum(byte.bit_count() for byte in tiles), 2)  # one pixel, in both of its bit planes
        self.assertEqual(colours.count(COLOUR), 1)
        self.assert_built_alike("Demo")
        self.assertEqual(demo.quit(), 0)
        self.assert_all_is_there(demo)

    def assert_all_is_there(self, demo):
        """A second start shows what the first one saved."""
        kestrel = self.kestrel
        kestrel.start()
        demo.expand("Demo")
        self.assertEqual(kestrel.rows(), ["Demo", "colours.pal", "tiles.chr", "main.asm"])
        demo.open("main.asm")
        wait_for("the program", lambda: kestrel.code() == PROGRAM)
        demo.open("tiles.chr")
        wait_for("the painted tile", lambda: demo.tile_colours() == demo.painted)
        demo.open("colours.pal")
        pane = kestrel.wait_for_pane("Palettes")
        wait_for("the chosen colour", lambda: [item for item in pane.find_all("list item")
                                               if f"index ${COLOUR:02X}" in item.name])
        demo.open("Demo")
        wait_for("the emulator", lambda: kestrel.main_window().find("text", "Emulator").text() == str(demo.emulator))

    def test_from_an_empty_home_to_a_running_game_by_mouse(self):
        self.make_build_and_run(DemoByMouse(self))

    def test_from_an_empty_home_to_a_running_game_by_keyboard_alone(self):
        self.desktop.keys_only = True
        self.make_build_and_run(DemoByKeys(self))

    def test_killed_on_the_way_it_loses_no_saved_work(self):
        """The program is killed after a file operation drawn by a printed seed, again and again: each time what was
        saved is there, every file that describes a project is whole, and the next start shows the project."""
        whole = "KESTREL_JOURNEYS_WHOLE" in os.environ
        first_seed = int(os.environ.get("KESTREL_JOURNEY_SEED", random.SystemRandom().randrange(1_000_000)))
        count = self.home.parent / "operations"
        self.assertIsNone(self.work_until_killed(count, None))
        operations = count.stat().st_size
        self.assertGreater(operations, 50)
        for seed in range(first_seed, first_seed + (20 if whole else 2)):
            number = random.Random(seed).randrange(1, operations + 1)
            with self.subTest(seed=seed, killed_after=number, of=operations):
                print(f"KESTREL_JOURNEY_SEED={seed}: killed after operation {number} of {operations}", flush=True)
                self.empty_home()
                saved = self.work_until_killed(count, number)
                self.assertIsNotNone(saved, "it was not killed")
                self.assert_nothing_is_lost(saved)

    def empty_home(self):
        for path in sorted(self.home.rglob("*"), reverse=True):
            if path.is_dir() and not path.is_symlink():
                path.rmdir()
            else:
                path.unlink()

    def work_until_killed(self, count, number):
        """Makes the project until the program is killed; what was saved for sure by then. Nothing when it lived to the
        end."""
        count.unlink(missing_ok=True)
        fault = {"LD_PRELOAD": os.environ["KESTREL_KILL_LIBRARY"],
                 "OPERATIONS_FOLDERS": f"{self.home / 'Kestrel'}:{self.home / '.Kestrel'}",
                 "OPERATIONS_COUNT": str(count)}
        if number is not None:
            fault["KILL_AFTER"] = str(number)
        demo = DemoByMouse(self)
        saved = SavedWork(demo)
        try:
            self.kestrel.start(environment=fault)
            for step in demo.steps():
                step()
                saved = SavedWork(demo)
            demo.quit()
        except (ProgramDied, GLib.Error, AttributeError, StopIteration):
            # Asking a program that has just been killed fails in one of these ways; a living one must not do so.
            if not self.kestrel.died():
                raise
        if self.kestrel.died():
            self.kestrel.end_what_it_left()
            return saved
        self.assertEqual(self.kestrel.process.returncode, 0)
        return None

    def assert_nothing_is_lost(self, saved):
        saved.assert_kept_in(SavedWork(saved.demo))
        for folder in ("Kestrel", ".Kestrel"):
            for path in (self.home / folder).rglob("*"):
                if path.suffix in (".kst", ".cfg"):
                    self.assertIsInstance(self.json_of(path), dict, path)
        self.kestrel.start()
        if saved.files:
            self.kestrel.wait_for_row("Demo")
            self.kestrel.expand("Demo")
            for path in saved.files:
                if path.suffix != ".kst":
                    self.kestrel.wait_for_row(path.name)
        self.assertEqual(self.kestrel.quit(), 0)
        saved.assert_kept_in(SavedWork(saved.demo))
