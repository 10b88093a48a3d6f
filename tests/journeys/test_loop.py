# SPDX-License-Identifier: MIT
"""Journeys around the loop of building and running: what the strip above the console says, and stopping."""
import re
import shutil
import time
from pathlib import Path

from gi.repository import Atspi, GLib

from desktop import wait_for
from kestrel import Kestrel
from support import PROGRAM, PROGRAMS, JourneyTestCase

BROKEN = PROGRAM.replace(" jmp Start", " jmp #")
MADE = r"Demo\.nes built in (\d+\.\d\d|under 0\.01) s: 24,592 bytes, no warnings"

# Stands in for the assembler where the project's file "mode" asks for it, and else starts it.
STAND_IN = """#!/bin/sh
case "$(/bin/cat "$NES_INCLUDE/../mode" 2>/dev/null)" in
crash) kill -SEGV $$ ;;
slow) /bin/sleep 1; exec "@REAL@" "$@" ;;
hang)
    trap '' TERM
    echo $$ >>"$NES_INCLUDE/../all"
    echo $$ >"$NES_INCLUDE/../process.new" && /bin/mv "$NES_INCLUDE/../process.new" "$NES_INCLUDE/../process"
    while :; do /bin/sleep 1; done ;;
*) exec "@REAL@" "$@" ;;
esac
"""


class LoopTest(JourneyTestCase):
    def setUp(self):
        super().setUp()
        programs = self.home / "programs"
        programs.mkdir()
        shutil.copy(PROGRAMS / "Kestrel", programs)
        (programs / "NESasm").write_text(STAND_IN.replace("@REAL@", str(PROGRAMS / "NESasm")), encoding="utf-8")
        (programs / "NESasm").chmod(0o755)
        self.kestrel = Kestrel(self.desktop, programs / "Kestrel")
        project = self.lay_out_project("Demo", {"main.asm": PROGRAM.encode(), "tiles.chr": bytes(8192),
                                                "colours.pal": bytes(32)})
        self.folder = self.project_folder("Demo")
        self.source = self.folder / "main.asm"
        self.kestrel.start(project)
        self.kestrel.expand("Demo")

    def strip(self):
        window = self.kestrel.window("Console")
        return window.find("notification") if window else None

    def label(self, number):
        """The text of one of the strip's lines."""
        strip = self.strip()
        labels = strip.find_all("label") if strip else []
        return labels[number].name if number < len(labels) else ""

    def press(self, key):
        """Presses a key in whichever window is in front."""
        wait_for("a window to have the keys", lambda: any(
            window.is_("active") for window in self.kestrel.application.children()))
        self.desktop.press(key)

    def wait_for_strip(self, sentence, hint=""):
        """Until the strip says this sentence, and below it a hint that begins so."""
        def is_said():
            return re.fullmatch(sentence, self.label(0)) and self.label(1).startswith(hint) if self.strip() else False
        wait_for(f"the strip to say “{sentence}”, “{hint}”", is_said)
        wait_for("the status bar to say the same", lambda: self.kestrel.main_window().find(
            name=f"Result of the build: {self.label(0)}"))

    def set_mode(self, mode):
        (self.folder / "mode").write_text(mode, encoding="utf-8")

    def wait_for_assembler(self):
        """Until the assembler that takes no notice of signals runs; its process ID."""
        self.wait_for_file(self.folder / "process")
        number = int((self.folder / "process").read_text(encoding="utf-8"))
        (self.folder / "process").unlink()
        return number

    def test_the_strip_tells_how_builds_end(self):
        self.press("ctrl+b")
        self.wait_for_strip(MADE)
        self.source.write_text(BROKEN, encoding="utf-8")
        self.press("ctrl+b")
        self.wait_for_strip("1 error: no image")
        self.set_mode("crash")
        self.press("ctrl+b")
        self.wait_for_strip(r"The assembler crashed \(.+\): no image")
        self.source.write_text("; nothing here", encoding="utf-8")
        self.press("ctrl+b")
        self.wait_for_strip(re.escape("Could not find main entry point for assembly file(s)"),
                            'The main file is the first listed one that holds ".org $FFFA".')
        self.assertEqual(self.kestrel.console_text(), "\nCould not find main entry point for assembly file(s)")
        self.assertEqual(self.kestrel.quit(), 0)

    def test_the_strip_tells_what_became_of_a_run(self):
        kestrel = self.kestrel
        self.press("ctrl+r")
        self.wait_for_strip(f"{MADE}; no emulator is set", "Select the project in the tree")
        kestrel.close_console()
        played = self.home / "played"
        emulator = self.home / "player"
        self.write_stand_in(emulator, played)
        kestrel.focus_window()
        kestrel.choose_emulator(emulator)
        self.press("ctrl+r")
        self.wait_for_strip(f"{MADE}; started in player")
        self.wait_for_file(played, (self.folder / "output" / "Demo.nes").read_bytes())
        self.source.write_text(BROKEN, encoding="utf-8")
        (self.folder / "output" / "Demo.nes").write_bytes(b"old")
        self.set_mode("crash")  # which leaves the old image where it is
        self.press("ctrl+r")
        self.wait_for_strip(r"The assembler crashed \(.+\): no image",
                            "player was started with the image of an earlier build; this build made none.")
        self.wait_for_file(played, b"old")  # it is handed over all the same
        self.set_mode("")
        self.source.write_text(PROGRAM, encoding="utf-8")
        emulator.unlink()
        self.press("ctrl+r")
        self.wait_for_strip(f"{MADE}; player could not be started",
                            "No such file or directory.")
        self.assertEqual(kestrel.quit(), 0)

    def test_unsaved_changes_are_named_and_saved_by_one_click_or_key(self):
        kestrel = self.kestrel
        kestrel.select("main.asm")
        kestrel.type_code(BROKEN)
        self.press("ctrl+b")
        self.wait_for_strip(MADE, "Built as it was on the disk, with unsaved changes in main.asm on the screen.")
        button = self.strip().find(name="Save and Build Again")
        self.desktop.click(button)
        self.wait_for_strip("1 error: no image")
        self.assertEqual(self.source.read_text(encoding="utf-8"), BROKEN)
        self.assertIsNone(self.strip().find(name="Save and Build Again"))
        kestrel.close_console()
        kestrel.focus_window()
        kestrel.type_code(PROGRAM)
        self.desktop.press("ctrl+shift+b")
        self.wait_for_strip(MADE)
        self.assertEqual(self.source.read_text(encoding="utf-8"), PROGRAM)
        self.assertEqual(kestrel.quit(), 0)

    def test_stop_ends_an_assembler_that_ignores_signals(self):
        self.set_mode("hang")
        for start, stop in (("ctrl+b", "ctrl+period"), ("ctrl+r", "shift+F5")):
            self.press(start)
            assembler = self.wait_for_assembler()
            status = wait_for("the status bar to say that it runs", lambda: next(
                (widget for widget in self.kestrel.main_window().find_all()
                 if widget.name.startswith("Result of the build: Building Demo... ")), None))
            first = status.name
            wait_for("the time to go on", lambda status=status, first=first: status.name != first)
            before = time.monotonic()
            self.press(stop)
            wait_for("the assembler to be gone", lambda number=assembler: not Path(f"/proc/{number}").exists())
            self.assertLess(time.monotonic() - before, 2)  # pressing keys here takes its time, too
            self.wait_for_strip(r"The build was stopped after \d+\.\d\d s")
            self.assertEqual(self.kestrel.console_text(), "\n\nThe build was stopped")
            self.assertFalse((self.folder / "process").exists(), "nothing is built after that")
            self.kestrel.close_console()
        self.press("ctrl+period")  # nothing runs, nothing happens
        # What is stopped leaves the way free, and quitting does not wait for what runs.
        self.set_mode("")
        self.press("ctrl+b")
        self.wait_for_strip(MADE)
        self.set_mode("hang")
        self.press("ctrl+b")
        assembler = self.wait_for_assembler()
        self.assertEqual(self.kestrel.quit(), 0)
        wait_for("the assembler to be gone", lambda: not Path(f"/proc/{assembler}").exists())

    def test_held_keys_build_and_stop_once(self):
        self.press("ctrl+b")
        self.wait_for_strip(MADE)
        self.kestrel.close_console()
        self.set_mode("hang")
        self.kestrel.focus_window()
        self.desktop.hold("ctrl+b")
        assembler = self.wait_for_assembler()
        self.assertEqual((self.folder / "all").read_text(encoding="utf-8"), f"{assembler}\n")
        self.assertTrue(Path(f"/proc/{assembler}").exists())
        self.desktop.hold("ctrl+period")
        wait_for("the assembler to be gone", lambda: not Path(f"/proc/{assembler}").exists())
        self.wait_for_strip(r"The build was stopped after \d+\.\d\d s")
        self.assertEqual(self.kestrel.quit(), 0)

    def listen(self):
        """From now on, what the strip announces; call the second result to have it brought up to date."""
        heard = []

        def hear(event, *_):
            # The status bar's announcement is one, too; it begins with its name.
            name = event.source.get_name()
            if (event.source.get_role_name() == "notification" and event.detail1 == 1
                    and not name.startswith("Result of the build: ")):
                heard.append(name)

        listener = Atspi.EventListener.new(hear)
        self.assertTrue(listener.register("object:state-changed:showing"))
        self.addCleanup(listener.deregister, "object:state-changed:showing")

        def update():
            self.kestrel.row("Demo")  # asks the program, so that this does not spin
            while GLib.MainContext.default().iteration(False):
                pass

        return heard, update

    def test_each_result_is_announced_once(self):
        heard, update = self.listen()
        no_main = r"Could not find main entry point for assembly file\(s\)\. .*"
        slow = [r"Building Demo\.\.\.", MADE]
        for is_open, mode, source, expected in (
                (False, "", PROGRAM, [MADE]), (True, "", PROGRAM, [MADE]), (False, "", PROGRAM, [MADE]),
                (False, "slow", PROGRAM, [MADE]), (True, "slow", PROGRAM, slow),
                (False, "", "; nothing here", [no_main]), (True, "", "; nothing here", [no_main]),
                (False, "crash", PROGRAM, [r"The assembler crashed \(.+\): no image"])):
            if not is_open and self.kestrel.window("Console"):
                self.kestrel.close_console()
                self.kestrel.focus_window()
            self.set_mode(mode)
            self.source.write_text(source, encoding="utf-8")
            update()
            heard.clear()
            self.press("ctrl+b")

            def has_come(expected=expected):
                update()
                return any(re.fullmatch(expected[-1], text, re.DOTALL) for text in heard)

            wait_for(f"{expected} to be announced, not {heard}", has_come)
            time.sleep(0.7)  # for whatever else might come
            update()
            self.assertEqual(len(heard), len(expected), (is_open, mode, expected, heard))
            for text, pattern in zip(heard, expected):
                self.assertRegex(text, re.compile(pattern, re.DOTALL))
        self.assertEqual(self.kestrel.quit(), 0)

    def test_the_strip_is_announced(self):
        heard, update = self.listen()

        def have_heard(pattern):
            update()
            return any(re.fullmatch(pattern, text, re.DOTALL) for text in heard)

        self.press("ctrl+b")
        wait_for("the result to be announced", lambda: have_heard(MADE))
        self.source.write_text("; nothing here", encoding="utf-8")
        self.press("ctrl+b")
        wait_for("the reason to be announced with its hint", lambda: have_heard(
            r"Could not find main entry point for assembly file\(s\)\. .*The main file is the first.*"))
        mark, *_ = self.strip().children()
        self.assertEqual(mark.name, "Failed")
