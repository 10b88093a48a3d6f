# SPDX-License-Identifier: MIT
"""Journeys with what the window knows about a program: addresses and cycles, definitions and uses."""
import re
import subprocess

from desktop import wait_for
from support import PROGRAMS, SOURCE, JourneyTestCase

# A row of a listing: line, bank, address, bytes, cycles, source. The bytes have 13 columns.
ROW = re.compile(r" *(\d+)  *(\d+):([0-9A-F]{4})  (?=.{13}\d)((?:[0-9A-F]{2} )+) *(\d+\+?) +(.*)")


class FactsTest(JourneyTestCase):
    def setUp(self):
        super().setUp()
        result = subprocess.run([SOURCE / "scripts" / "instantiate-example", SOURCE / "examples" / "Lanternfall"],
                                env={"HOME": str(self.home), "PATH": "/usr/bin:/bin",
                                     "KESTREL_BUILD": str(PROGRAMS / "kestrel-build")},
                                capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.folder = self.project_folder("Lanternfall")
        self.kestrel.start(result.stdout.strip())
        self.kestrel.select("Lanternfall")
        self.desktop.press("asterisk")  # opens all rows below

    def status(self, name):
        """What a field of the status bar tells; "" for one that is not there."""
        start = f"{name}: "
        for role in ("label", "notification"):
            for field in self.kestrel.main_window().find_all(role):
                if field.name.startswith(start):
                    return field.name[len(start):]
        return ""

    def wait_for_status(self, name, text):
        wait_for(f"the status bar to tell {text}", lambda: self.status(name) == text)

    def go_to(self, line, column=1):
        self.desktop.press("ctrl+l")
        self.desktop.type(str(line))
        self.desktop.press("Return", "Escape", "Home", *["Right"] * (column - 1))
        self.wait_for_status("Place in the text", f"Line {line}, Column {column}")

    def place_of(self, file, text):
        """Line and column of a text's first place in a source."""
        lines = (self.folder / "code" / file).read_text(encoding="utf-8").split("\n")
        line = next(number for number, line in enumerate(lines) if text in line)
        return line + 1, lines[line].index(text) + 1

    def listed(self, file):
        """The rows of one file in a listing of the program."""
        subprocess.run([PROGRAMS / "NESasm", "--input", self.folder / "code" / "lanternfall.asm", "--output",
                        self.home / "other.nes", "--listing", self.home / "other.lst"],
                       env={"NES_INCLUDE": str(self.folder / "tmp")}, check=True, capture_output=True, timeout=60)
        parts = (self.home / "other.lst").read_text(encoding="utf-8").split("--- ")
        part = next(part for part in parts if part.startswith(f"{file},"))
        return [row for row in map(ROW.match, part.split("\n")) if row]

    def test_the_status_bar_tells_what_lines_came_to(self):
        kestrel = self.kestrel
        kestrel.select("player.asm")
        self.assertEqual(self.status("Address, bytes and cycles"), "")
        kestrel.build()
        kestrel.close_console()
        rows = self.listed("player.asm")
        row = next(row for row in rows if len(row[4].split()) == 3 and not row[5].endswith("+"))
        told = f"${row[3]}, 3 bytes, {row[5]} cycles"
        self.desktop.click(kestrel.source())
        self.go_to(int(row[1]))
        self.wait_for_status("Address, bytes and cycles", told)
        branch = next(row for row in rows if row[6].split()[0] in ("BNE", "BEQ", "BCC", "BCS"))
        self.go_to(int(branch[1]))
        self.wait_for_status("Address, bytes and cycles", f"${branch[3]}, 2 bytes, 2 to 4 cycles")
        # Two lines, one below the other.
        first, second = next((a, b) for a, b in zip(rows, rows[1:]) if int(b[1]) == int(a[1]) + 1
                             and not a[5].endswith("+") and not b[5].endswith("+"))
        self.go_to(int(first[1]))
        self.desktop.press("shift+Down", "shift+Down")
        count = len(first[4].split()) + len(second[4].split())
        self.wait_for_status("Address, bytes and cycles",
                             f"2 lines: {count} bytes, {int(first[5]) + int(second[5])} cycles")
        # After an edit it is marked, until the file is again as it was at the build.
        self.go_to(int(row[1]))
        self.desktop.press("space")
        self.wait_for_status("Address, bytes and cycles", f"Before changes: {told}")
        self.desktop.press("ctrl+z")
        self.wait_for_status("Address, bytes and cycles", told)
        self.desktop.press("space")
        self.wait_for_status("Address, bytes and cycles", f"Before changes: {told}")
        self.desktop.press("BackSpace", "ctrl+s")
        self.wait_for_status("Address, bytes and cycles", told)
        kestrel.select("ram.asm")
        self.desktop.click(kestrel.source())
        self.go_to(self.place_of("ram.asm", "foxSpeed")[0])
        wait_for("the variable's place", lambda: re.fullmatch(
            r"\$00[0-9A-F]{2}, 2 bytes of memory", self.status("Address, bytes and cycles")))
        kestrel.select("lanternfall.chr")
        self.wait_for_status("Address, bytes and cycles", "")
        self.assertEqual(kestrel.quit(), 0)

    def go_to_definition(self):
        """From a use in one file to the definition in another one."""
        self.kestrel.select("player.asm")
        self.desktop.click(self.kestrel.source())
        self.go_to(*self.place_of("player.asm", "foxX"))
        self.desktop.press("F12")
        line, column = self.place_of("ram.asm", "foxX")
        self.wait_for_status("Place in the text", f"Line {line}, Column {column}")
        wait_for("the file's row", lambda: self.kestrel.row("ram.asm").is_("selected"))

    def find_uses(self, count):
        """From there to all uses, and to the first of them."""
        self.desktop.press("shift+F12")
        window = self.kestrel.wait_for_window(f"Uses of foxX ({count})")
        wait_for("the list to have the keys", lambda: window.is_("active"))
        rows = [row.name for row in window.find_all("list item", showing=False)]
        self.assertEqual(len(rows), count)
        found = re.fullmatch(r"([a-z]+\.asm):(\d+): (.*foxX.*)", rows[0])
        self.assertIsNotNone(found, rows[0])
        self.desktop.press("Return")
        text = (self.folder / "code" / found[1]).read_text(encoding="utf-8").split("\n")[int(found[2]) - 1]
        self.assertEqual(text.strip(), found[3])
        self.wait_for_status("Place in the text", f"Line {found[2]}, Column {text.index('foxX') + 1}")
        wait_for("the use's row", lambda: self.kestrel.row(found[1]).is_("selected"))

    def uses_in_sources(self):
        """How often the word stands in the sources' statements, its definition aside."""
        count = -1
        for file in (self.folder / "code").glob("*.asm"):
            for line in file.read_text(encoding="utf-8").split("\n"):
                count += len(re.findall(r"(?<![\w.])foxX(?![\w.])", line.split(";")[0]))
        return count

    def place_below(self, file, label, text):
        """Line and column of a text's first place below a label."""
        lines = (self.folder / "code" / file).read_text(encoding="utf-8").split("\n")
        start = next(number for number, line in enumerate(lines) if line.startswith(label))
        line = next(number for number in range(start, len(lines)) if text in lines[number].split(";")[0])
        return line + 1, lines[line].index(text) + 1

    def test_a_local_label_and_the_walk_through_its_uses(self):
        source = self.folder / "code" / "player.asm"
        source.write_text(source.read_text(encoding="utf-8") + """
firstOfTwo:
.again:
 dex
 bne .again
 beq .again
 rts
secondOfTwo:
.again:
 dey
 bne .again
 rts
""", encoding="utf-8")
        first = self.place_below("player.asm", "firstOfTwo", "bne .again")
        second = self.place_below("player.asm", "secondOfTwo", "bne .again")
        self.kestrel.select("player.asm")
        for is_built in (False, True):
            if is_built:
                self.kestrel.focus_window()
                self.kestrel.build()
                self.kestrel.close_console()
            for line, column in (second, first):
                self.desktop.click(self.kestrel.source())
                self.go_to(line, column + 5)
                self.desktop.press("F12")
                self.wait_for_status("Place in the text", f"Line {line - 2}, Column 1")
            self.desktop.press("shift+F12")
            self.kestrel.wait_for_window("Uses of .again (2)")
            self.kestrel.focus_window()
            line, column = first
            for key, place in (("F4", f"Line {line}, Column {column + 4}"), ("F4", f"Line {line + 1}, Column {column + 4}"),
                               ("F4", f"Line {line}, Column {column + 4}"),
                               ("shift+F4", f"Line {line + 1}, Column {column + 4}")):
                self.desktop.press(key)
                self.wait_for_status("Place in the text", place)

    def test_definition_and_uses_before_and_after_a_build(self):
        count = self.uses_in_sources()
        self.assertGreater(count, 5)
        self.go_to_definition()
        self.find_uses(count)
        self.kestrel.focus_window()
        self.kestrel.build()
        self.kestrel.close_console()
        self.go_to_definition()
        self.wait_for_status("Address, bytes and cycles", "$0020, 1 byte of memory")
        self.find_uses(count)
        self.kestrel.focus_window()
        # A name that is nowhere, and no name.
        self.desktop.press("ctrl+End")
        self.desktop.type(" nowhere")
        self.desktop.press("F12")
        self.wait_for_status("Notice", "No definition of “nowhere” was found")
        self.desktop.type(" ")
        self.wait_for_status("Notice", "")
        self.desktop.press("shift+F12")
        self.wait_for_status("Notice", "There is no name at the caret")
