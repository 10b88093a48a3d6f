# SPDX-License-Identifier: MIT
"""scripts/draw-tiles turns text into tiles, and says where a drawing is wrong."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from support import SOURCE

ROWS = "\n".join(["1.......", "2.......", "3.......", ".......1", ".......2", ".......3", "........", "12312312"])


class DrawTilesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kestrel-tiles-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def draw(self, text, *options):
        (self.folder / "drawing.txt").write_text(text)
        return subprocess.run([sys.executable, str(SOURCE / "scripts" / "draw-tiles"), *options,
                               str(self.folder / "drawing.txt"), str(self.folder / "out.chr")],
                              capture_output=True, text=True, check=False)

    def test_pixels_become_two_planes(self):
        self.assertEqual(self.draw("at 1\n" + ROWS).returncode, 0)
        data = (self.folder / "out.chr").read_bytes()
        self.assertEqual(len(data), 8192)
        self.assertEqual(data[16:24], bytes([0x80, 0, 0x80, 1, 0, 1, 0, 0b10110110]))
        self.assertEqual(data[24:32], bytes([0, 0x80, 0x80, 0, 1, 1, 0, 0b01101101]))
        self.assertEqual(data[:16] + data[32:], bytes(8192 - 16))

    def test_tiles_go_right_by_one_and_down_by_sixteen(self):
        rows = [("1" * 8 + "2" * 8)] * 8 + [("3" * 8 + "." * 8)] * 8
        self.draw("; two by two\nat $100\n" + "\n".join(rows))
        data = (self.folder / "out.chr").read_bytes()
        full, none = b"\xff" * 8, bytes(8)
        for tile, planes in ((0x100, full + none), (0x101, none + full), (0x110, full + full), (0x111, none + none)):
            self.assertEqual(data[tile * 16:tile * 16 + 16], planes)

    def test_a_wrong_drawing_is_refused_with_its_place_and_writes_nothing(self):
        cases = {
            "pixels before": "1.......\n",
            "differ in length": "at 0\n" + "........\n" * 7 + ".......\n",
            "no whole tiles": "at 0\n" + "........\n" * 7,
            "drawn already": "at 0\n" + ROWS + "\nat 0\n" + ROWS,
            "there is no tile": "at 512\n" + ROWS,
            "expected": "at 0\n4.......\n",
        }
        for message, text in cases.items():
            with self.subTest(message):
                result = self.draw(text)
                self.assertEqual(result.returncode, 1)
                self.assertRegex(result.stderr, r"drawing\.txt:\d+: .*" + message)
                self.assertFalse((self.folder / "out.chr").exists())

    def test_check_notices_a_changed_pixel(self):
        self.draw("at 1\n" + ROWS)
        self.assertEqual(self.draw("at 1\n" + ROWS, "--check").returncode, 0)
        result = self.draw("at 1\n" + ROWS.replace("12312312", "12312311"), "--check")
        self.assertEqual(result.returncode, 1)
        self.assertIn("out.chr is not what", result.stdout)


if __name__ == "__main__":
    unittest.main()
