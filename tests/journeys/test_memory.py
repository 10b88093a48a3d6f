# SPDX-License-Identifier: MIT
"""Journeys around the memory window: what it says against the images, and its keys."""
import os
import re
import subprocess

from gi.repository import Atspi

from desktop import wait_for
from support import PROGRAMS, SOURCE, JourneyTestCase

HEADER_SIZE = 16
BANK_SIZE = 0x2000
FILL = 0xFF  # of bytes that the source did not write
ROW = re.compile(r"(.*): ([\d,]+) of ([\d,]+) bytes used, ([\d,]+) free, largest gap ([\d,]+)(; .*)?")


def longest_gap(size, used):
    """The longest row of free places among so many."""
    longest = gap = 0
    for place in range(size):
        gap = 0 if place in used else gap + 1
        longest = max(longest, gap)
    return longest


class MemoryTest(JourneyTestCase):
    def instantiate(self, name):
        result = subprocess.run([SOURCE / "scripts" / "instantiate-example", SOURCE / "examples" / name],
                                env=dict(os.environ, KESTREL_BUILD=str(PROGRAMS / "kestrel-build")),
                                capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        return self.project_folder(name) / f"{name}.kst"

    def open_memory(self):
        self.kestrel.focus_window()
        self.desktop.press("ctrl+shift+m")
        return wait_for("the memory window in front", lambda: next(
            (window for window in [self.kestrel.window("Memory")] if window and window.is_("active")), None))

    def list(self):
        window = self.kestrel.window("Memory")
        return window.find("list", "Banks and memory") if window else None

    def told(self):
        """What assistive technology is told of the rows."""
        view = self.list()
        return [row.name for row in view.children()] if view else []

    def numbers(self):
        """Used bytes, size, free bytes and largest gap of each row, by its name."""
        found = {}
        for sentence in self.told():
            match = ROW.fullmatch(sentence)
            self.assertIsNotNone(match, sentence)
            found[match[1]] = tuple(int(number.replace(",", "")) for number in match.groups()[1:5])
        return found

    def build_in_window(self, name):
        """Builds and waits until the memory window, which is open, knows the program."""
        before = self.told()
        self.kestrel.select(name)
        self.kestrel.build()
        self.kestrel.close_console()
        wait_for("the program to be known", lambda: self.told() not in ([], before))

    def listed_bytes(self, name):
        """How many bytes the listing has in each bank."""
        folder = self.project_folder(name)
        listing = folder / "listing.lst"
        subprocess.run([PROGRAMS / "kestrel-build", "--listing", listing, "--expand-macros", folder / f"{name}.kst"],
                       stdin=subprocess.DEVNULL, capture_output=True, timeout=120, check=True)
        counts, bank, shown = {}, 0, 0
        row = re.compile(r"\s*(?:([\d+]+)\s+)?(\d+):[0-9A-F]{4}  ([0-9A-F]{2}(?: [0-9A-F]{2}){0,3})(?:\s|$)")
        for line in listing.read_text(encoding="utf-8").splitlines():
            if match := row.match(line):
                bank, count = int(match[2]), len(match[3].split())
                shown = count if match[1] else shown + count  # of one statement
            elif match := re.match(r"\s+\.\.\. (\d+) bytes", line):
                count = int(match[1]) - shown  # of many bytes only the first are shown
            else:
                continue
            counts[bank] = counts.get(bank, 0) + count
        return counts

    def reserved(self, name):
        """The addresses that the sources reserve with .rs."""
        places, at, names = set(), 0, {}
        text = "\n".join(path.read_text(encoding="utf-8") for path in sorted(
            self.project_folder(name).rglob("*.asm"), key=lambda path: (path.name != "constants.asm", path.name)))
        for line in text.splitlines():
            line = line.partition(";")[0]
            if match := re.match(r"(\w+)\s*=\s*(\d+)\s*$", line):
                names[match[1]] = int(match[2])
            elif match := re.match(r"\s*\.rsset\s+\$(\w+)", line):
                at = int(match[1], 16)
            elif match := re.search(r"\.rs\s+(\w+)", line):
                count = int(match[1]) if match[1].isdigit() else names[match[1]]
                places |= set(range(at, at + count))
                at += count
        return places

    def test_the_numbers_are_those_of_the_images_of_both_examples(self):
        kestrel = self.kestrel
        projects = [self.instantiate(name) for name in ("Skylark", "Lanternfall")]
        kestrel.start(*projects)
        self.assertIn("Build a project to see", self.open_memory().find("list").accessible.get_description())
        for project in projects:
            name = project.stem
            self.build_in_window(name)
            told = self.numbers()
            image = (self.project_folder(name) / "output" / f"{name}.nes").read_bytes()
            program_banks, tile_banks = 2 * image[4], image[5]
            listed = self.listed_bytes(name)
            expected = {}
            for bank in range(program_banks + tile_banks):
                begin = HEADER_SIZE + bank * BANK_SIZE
                used = listed[bank]
                written = image[begin:begin + BANK_SIZE]
                gap = 0 if used == BANK_SIZE else max(map(len, re.findall(bytes([FILL]) + b"+", written)))
                kind = "PRG" if bank < program_banks else "CHR"
                expected[f"{kind} bank {bank}"] = (used, BANK_SIZE, BANK_SIZE - used, gap)
            reserved = self.reserved(name)
            for area, begin, end in (("Zero page", 0, 0x100), ("RAM", 0x200, 0x800)):
                used = {place - begin for place in reserved if begin <= place < end}
                size = end - begin
                expected[area] = (len(used), size, size - len(used), longest_gap(size, used))
            self.assertEqual(told, expected)
            self.assertEqual(len(image), HEADER_SIZE + (program_banks + tile_banks) * BANK_SIZE)

    def test_a_change_is_told_and_a_failed_build_changes_nothing(self):
        kestrel = self.kestrel
        project = self.instantiate("Skylark")
        source = self.project_folder("Skylark") / "skylark.asm"
        text = source.read_text(encoding="utf-8")
        label = re.search(r"^(\w+):", text, re.MULTILINE)
        kestrel.start(project)
        self.open_memory()
        self.build_in_window("Skylark")
        before = self.told()
        self.assertTrue(all("build before" not in sentence for sentence in before), before)

        def bank_0():
            return next((sentence for sentence in self.told() if sentence.startswith("PRG bank 0:")), "")

        source.write_text(text.replace(label[0], f"  .db 1, 2, 3, 4, 5, 6, 7, 8\n{label[0]}", 1), encoding="utf-8")
        self.build_in_window("Skylark")
        self.assertTrue(bank_0().endswith("; 8 bytes more than in the build before"), bank_0())
        source.write_text(text + "\n  no such statement\n", encoding="utf-8")
        kept = self.told()
        kestrel.build()
        self.assertIn("error", kestrel.console_text())
        kestrel.close_console()
        kestrel.wait_for_rest()
        self.assertEqual(self.told(), kept)
        source.write_text(text, encoding="utf-8")
        self.build_in_window("Skylark")
        self.assertTrue(bank_0().endswith("; 8 bytes less than in the build before"), bank_0())

    def test_keys_walk_the_rows_and_close_the_window(self):
        kestrel = self.kestrel
        kestrel.start(self.instantiate("Skylark"))
        self.open_memory()
        self.build_in_window("Skylark")
        self.open_memory()

        def is_at(number):
            return self.list().children()[number].is_("focused")

        wait_for("the first row to have the keys", lambda: is_at(0))
        self.desktop.press("Down")
        wait_for("the second row to have the keys", lambda: is_at(1))
        self.desktop.press("End")
        wait_for("the last row to have the keys", lambda: is_at(-1))
        self.desktop.press("Up")
        wait_for("the row before it to have the keys", lambda: is_at(-2))
        row = self.list().children()[0]
        self.assertIn("Used: $C000-$", row.accessible.get_description())
        for key in ("Escape", "ctrl+w"):
            wait_for("the memory window in front", lambda: self.kestrel.window("Memory").is_("active"))
            self.desktop.press(key)
            wait_for("the memory window to close", lambda: self.kestrel.window("Memory") is None)
            self.open_memory()
        self.assertEqual(self.list().accessible.get_role(), Atspi.Role.LIST)
        self.assertEqual(kestrel.quit_by_key(), 0)
