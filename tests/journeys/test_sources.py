# SPDX-License-Identifier: MIT
"""Journeys of sources in old encodings, and of sources that other programs write to."""
from desktop import wait_for
from support import JourneyTestCase


class SourcesTest(JourneyTestCase):
    def show_source(self, content):
        """Shows a source of these bytes; its path."""
        project = self.lay_out_project("Demo", ["main.asm"])
        path = project.parent / "main.asm"
        path.write_bytes(content)
        self.kestrel.start(project)
        self.kestrel.expand("Demo")
        self.kestrel.select("main.asm")
        wait_for("the code editor", self.kestrel.source)
        return path

    def wait_for_status(self, field, text):
        self.kestrel.wait_for_message(f"{field}: {text}")

    def type_at_start(self, text):
        kestrel = self.kestrel
        self.desktop.click(kestrel.source())
        wait_for("the code editor to have the focus", lambda: kestrel.source().is_("focused"))
        self.desktop.press("ctrl+Home")
        self.desktop.type(text)
        wait_for("the text to be typed", lambda: kestrel.code().startswith(text))

    def test_one_bad_byte_in_utf8_stays_and_changes_nothing_else(self):
        content = "; Zähler für Größe, caf".encode() + b"\xe9\r\n" + "\tlda #0 ; 初期化\r\n".encode()
        path = self.show_source(content)
        self.wait_for_status("Encoding and line ends", "UTF-8 with 1 byte kept as it is, CRLF")
        self.assertTrue(self.kestrel.code().startswith("; Zähler für Größe, caf"))
        self.type_at_start("; new")
        self.desktop.press("ctrl+s")
        self.wait_for_file(path, b"; new" + content)
        self.assertEqual(self.kestrel.quit(), 0)
        self.assertFalse((path.parent / "main.asm.bak").exists())

    def test_a_source_in_shift_jis_shows_its_encoding_and_leaves_a_backup(self):
        text = "; 値\r\n\tlda #0 ; ｽﾌﾟﾗｲﾄ\r\n"
        path = self.show_source(text.encode("shift_jis"))
        self.wait_for_status("Encoding and line ends", "Shift-JIS, saved as UTF-8, CRLF")
        self.type_at_start("; new")
        self.desktop.press("ctrl+s")
        self.wait_for_file(path, ("; new" + text).encode())
        self.wait_for_status("Saving", "Saved as UTF-8; the file on the disk was kept as main.asm.bak")
        self.wait_for_status("Encoding and line ends", "UTF-8, CRLF")
        self.assertEqual((path.parent / "main.asm.bak").read_bytes(), text.encode("shift_jis"))
        self.assertEqual(self.kestrel.quit(), 0)

    def test_what_another_program_wrote_meanwhile_is_kept(self):
        path = self.show_source(b"\trts\n")
        self.wait_for_status("Encoding and line ends", "UTF-8, LF")
        self.type_at_start("; new")
        path.write_bytes(b"\tnop\n\trts\n")
        self.desktop.press("ctrl+s")
        self.wait_for_file(path, b"; new\trts\n")
        self.wait_for_status("Saving", "What another program had written was kept as main.asm.bak")
        self.assertEqual((path.parent / "main.asm.bak").read_bytes(), b"\tnop\n\trts\n")
        self.kestrel.select("Demo")
        wait_for("the line to go", lambda: not [label for label in self.kestrel.main_window().find_all()
                                                if label.name.startswith(("Saving", "Encoding"))])
        self.assertEqual(self.kestrel.quit(), 0)
