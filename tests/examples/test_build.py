# SPDX-License-Identifier: MIT
"""Both examples build from a fresh copy in a home folder, into images that a console would start."""
import unittest

from support import NAMES, HomeTestCase, contents, example

HEADER = 16
PRG = 16 * 1024
CHR = 8 * 1024
# What the routines that the vectors name begin with: NMI with PHA, reset with SEI, IRQ with RTI.
FIRST_INSTRUCTIONS = (0x48, 0x78, 0x40)


class BuildTest(HomeTestCase):
    def test_header_size_and_mirroring(self):
        for name in NAMES:
            with self.subTest(name):
                data = self.build(name).read_bytes()
                # One PRG and one CHR unit, vertical mirroring, mapper 0 (nesdev wiki, "INES").
                self.assertEqual(data[:HEADER], b"NES\x1a" + bytes([1, 1, 1, 0]) + bytes(8))
                self.assertEqual(len(data), HEADER + PRG + CHR)

    def test_vectors_lead_to_code(self):
        for name in NAMES:
            with self.subTest(name):
                program = self.build(name).read_bytes()[HEADER:HEADER + PRG]
                for place, instruction in zip((0x3FFA, 0x3FFC, 0x3FFE), FIRST_INSTRUCTIONS):
                    address = int.from_bytes(program[place:place + 2], "little")
                    self.assertTrue(0xC000 <= address < 0xFFFA, hex(address))
                    self.assertEqual(program[address & 0x3FFF], instruction, hex(address))

    def test_waiting_for_the_picture_unit_begins_with_a_fresh_status(self):
        # After power-on the flag is often set, and the first wait would be none (nesdev wiki, "PPU power up state").
        read_status, back_to_it = b"\x2c\x02\x20", b"\x10\xfb"
        for name in NAMES:
            with self.subTest(name):
                program = self.build(name).read_bytes()[HEADER:HEADER + PRG]
                reset = int.from_bytes(program[0x3FFC:0x3FFE], "little") & 0x3FFF
                start = program[reset:reset + 32]
                self.assertIn(read_status, start)
                behind = start.index(read_status) + len(read_status)
                self.assertNotEqual(start[behind:behind + 2], back_to_it)

    def test_tiles_and_palettes_are_in_the_image(self):
        for name in NAMES:
            with self.subTest(name):
                data = self.build(name).read_bytes()
                files = contents(example(name))
                tiles = [file for path, file in files.items() if path.endswith(".chr")]
                palettes = [file for path, file in files.items() if path.endswith(".pal")]
                self.assertEqual(data[HEADER + PRG:], tiles[0])
                self.assertIn(palettes[0], data[HEADER:HEADER + PRG])

    def test_the_same_bytes_in_any_home(self):
        for name in NAMES:
            with self.subTest(name):
                first = self.build(name).read_bytes()
                other = self.home / "another home"
                other.mkdir(exist_ok=True)
                self.assertEqual(self.build(name, other).read_bytes(), first)

    def test_a_change_in_the_copy_reaches_the_image(self):
        image = self.build("Skylark")
        before = image.read_bytes()
        source = image.parent.parent / "skylark.asm"
        source.write_text(source.read_text().replace('"SKYLARK"', '"MY GAME"'))
        after = self.build("Skylark").read_bytes()
        self.assertIn(b"SKYLARK", before)
        self.assertIn(b"MY GAME", after)
        self.assertEqual(len(after), len(before))


if __name__ == "__main__":
    unittest.main()
