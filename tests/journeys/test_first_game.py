"""Journeys from an empty home folder to a running game, and through crashes on the way."""
import os
import random

from demo import COLOUR, DemoByKeys, DemoByMouse
from desktop import ProgramDied, wait_for
from support import PROGRAM, JourneyTestCase


class FirstGameTest(JourneyTestCase):
    def make_build_and_run(self, demo):
        self.kestrel.start()
        for step in demo.steps():
            step()
        script, played = self.write_stand_in()
        demo.choose_emulator(script)
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["main.asm"])
        self.assertEqual(self.listed("Demo", "graphic_files"), ["tiles.chr"])
        self.assertEqual(self.listed("Demo", "palette_files"), ["colours.pal"])
        text = demo.build()
        self.assertNotIn("error:", text)
        demo.run()
        image = demo.folder / "output" / "Demo.nes"
        wait_for("the emulator to get the image", lambda: played.is_file())
        self.assertEqual(played.read_bytes(), image.read_bytes())
        tiles, colours = (demo.folder / "tiles.chr").read_bytes(), (demo.folder / "colours.pal").read_bytes()
        code = bytes((0x4C, 0x00, 0xC0)) + colours
        self.assertEqual(image.read_bytes(), b"NES\x1a\x01\x01" + bytes(10) + code
                         + b"\xff" * (16384 - len(code) - 6) + bytes((0x00, 0xC0)) * 3 + tiles)
        self.assertEqual(len(tiles), 8192)
        self.assertEqual(sum(byte.bit_count() for byte in tiles), 2)  # one pixel, in both of its bit planes
        self.assertEqual(colours.count(COLOUR), 1)
        self.assert_built_alike("Demo")
        self.assertEqual(self.kestrel.quit(), 0)
        self.assert_all_is_there(script)

    def assert_all_is_there(self, emulator):
        """A second start shows what the first one saved."""
        kestrel = self.kestrel
        kestrel.start()
        kestrel.expand("Demo")
        self.assertEqual(kestrel.rows(), ["Demo", "colours.pal", "tiles.chr", "main.asm"])
        kestrel.select("main.asm")
        wait_for("the program", lambda: kestrel.code() == PROGRAM)
        kestrel.select("tiles.chr")
        pane = kestrel.wait_for_pane("Tile graphics")
        self.assertFalse(pane.find("push button", "Save the tiles").is_("enabled") and "not saved" in pane.name)
        kestrel.select("colours.pal")
        pane = kestrel.wait_for_pane("Palettes")
        wait_for("the chosen colour", lambda: [item for item in pane.find_all("list item")
                                               if f"index ${COLOUR:02X}" in item.name])
        kestrel.select("Demo")
        wait_for("the emulator", lambda: kestrel.main_window().find("text", "Emulator").text() == str(emulator))

    def test_from_an_empty_home_to_a_running_game_by_mouse(self):
        self.make_build_and_run(DemoByMouse(self))

    def test_from_an_empty_home_to_a_running_game_by_keyboard_alone(self):
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
                self.assert_nothing_saved_is_lost(saved)

    def empty_home(self):
        for path in sorted(self.home.rglob("*"), reverse=True):
            if path.is_dir() and not path.is_symlink():
                path.rmdir()
            else:
                path.unlink()

    def work_until_killed(self, count, number):
        """Makes the project until the program dies; what was saved for sure by then, by path. Nothing when it lived to
        the end."""
        count.unlink(missing_ok=True)
        fault = {"LD_PRELOAD": os.environ["KESTREL_KILL_LIBRARY"], 
                 "OPERATIONS_FOLDERS": f"{self.home / 'Kestrel'}:{self.home / '.Kestrel'}",
                 "OPERATIONS_COUNT": str(count)}
        if number is not None:
            fault["KILL_AFTER"] = str(number)
        demo, saved = DemoByMouse(self), {}
        try:
            self.kestrel.start(environment=fault)
            for step in demo.steps():
                step()
                saved = {path: path.read_bytes() for path in demo.folder.rglob("*")
                         if path.is_file() and ".project" not in path.parts}
            self.kestrel.quit()
        except ProgramDied:
            return saved
        return None

    def assert_nothing_saved_is_lost(self, saved):
        for path, content in saved.items():
            # What was being saved when it ended may be there already.
            self.assertTrue(path.is_file(), path)
            if path.read_bytes() != content:
                self.assertIn(path.read_bytes(), self.next_contents(path, content), path)
        for path in self.home.glob("*estrel/**/*"):
            if path.suffix in (".kst", ".cfg"):
                self.assertIsInstance(self.json_of(path), dict, path)
        self.kestrel.start()
        if saved:
            self.kestrel.wait_for_row("Demo")
            self.kestrel.expand("Demo")
            for path in saved:
                if path.suffix != ".kst":
                    self.kestrel.wait_for_row(path.name)
        self.assertEqual(self.kestrel.quit(), 0)

    def next_contents(self, path, content):
        """What the file holds after its next save."""
        if path.name == "main.asm":
            return [PROGRAM.encode()]
        if path.name == "colours.pal":
            return [bytes((COLOUR,)) + content[1:]]
        changed = path.read_bytes()
        return [changed] if sum(byte.bit_count() for byte in changed) == 2 else []
