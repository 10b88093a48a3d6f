# SPDX-License-Identifier: MIT
"""Journeys that end while a program that Kestrel started runs."""
import os
import select
import shutil
import time

from desktop import DEADLINE, wait_for_files
from support import PROGRAM, PROGRAMS, JourneyTestCase

# In the assembler's place: it starts a program of its own, tells the numbers of both and never comes to an end, since
# nobody writes to the pipe that its program reads.
STAND_IN = """\
#!/bin/sh
cat "{pipe}" &
echo "$$ $!" > "{started}.new" && mv "{started}.new" "{started}"
wait
"""

# In the place of kestrel-facts: it tells its number and then does nothing for longer than anybody waits.
FACTS_STAND_IN = """\
#!/bin/sh
echo "$$" > "{started}.new" && mv "{started}.new" "{started}"
exec sleep 600
"""

# One that needs no other file, so that there is an image to look at.
SMALL_PROGRAM = """\
 .inesprg 1
 .bank 0
 .org $C000
Start:
 jmp Start
 .bank 1
 .org $FFFA
 .dw Start, Start, Start
"""

# How long Kestrel may take to end, in seconds; it takes a part of one when nobody else uses the machine.
PROMPTLY = 10


class QuittingTest(JourneyTestCase):
    def test_quitting_during_a_build_ends_the_assembler_and_leaves_all_files_whole(self):
        kestrel = self.kestrel
        self.put_stand_in()
        folder = self.start_with_program(PROGRAM)
        self.quit_during_build(kestrel.quit, 0)
        for way, status in ((self.close_window, 0), (self.terminate, 1)):
            kestrel.start()
            kestrel.select("Demo")
            self.quit_during_build(way, status)
        self.assertEqual((folder / "main.asm").read_text(encoding="utf-8"), PROGRAM)
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["main.asm"])
        self.assertEqual(self.structure("Demo"), ["Demo", "project", [["main.asm", "text", []]]])

    def test_quitting_while_the_built_program_is_looked_at_ends_promptly_and_leaves_no_process(self):
        self.put_facts_stand_in()
        self.start_with_program(SMALL_PROGRAM)
        self.quit_during_inquiry(self.kestrel.quit, 0)
        for way, status in ((self.close_window, 0), (self.terminate, 1)):
            self.kestrel.start()
            self.kestrel.select("Demo")
            self.quit_during_inquiry(way, status)
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["main.asm"])

    def start_with_program(self, program):
        """Starts Kestrel and makes a project with this program; its folder."""
        self.kestrel.start()
        self.kestrel.new_project("Demo")
        self.kestrel.new_file("NES Text Assembly", "main.asm")
        folder = self.project_folder("Demo")
        self.kestrel.select("main.asm")
        self.kestrel.save_code(folder / "main.asm", program)
        return folder

    def make_programs(self, name, script):
        """Lets Kestrel run from a folder of its own, with a stand-in for another program beside it."""
        programs = self.home / "programs"
        programs.mkdir()
        shutil.copy2(PROGRAMS / "Kestrel", programs)
        self.started = self.home / "started"
        (programs / name).write_text(script, encoding="utf-8")
        (programs / name).chmod(0o755)
        self.kestrel.program = programs / "Kestrel"
        return programs

    def put_stand_in(self):
        os.mkfifo(self.home / "pipe")
        self.make_programs("NESasm", STAND_IN.format(pipe=self.home / "pipe", started=self.home / "started"))

    def put_facts_stand_in(self):
        programs = self.make_programs("kestrel-facts", FACTS_STAND_IN.format(started=self.home / "started"))
        shutil.copy2(PROGRAMS / "NESasm", programs)

    def quit_during_inquiry(self, way, status):
        self.started.unlink(missing_ok=True)
        self.kestrel.focus_window()
        self.desktop.press("ctrl+b")
        wait_for_files("the program to be looked at", self.started.is_file)
        process = os.pidfd_open(int(self.started.read_text()))
        self.addCleanup(os.close, process)
        self.assertEqual(select.select([process], [], [], 0)[0], [])  # it runs
        start = time.monotonic()
        self.assertEqual(way(), status)
        self.assertLess(time.monotonic() - start, PROMPTLY)
        self.assertEqual(select.select([process], [], [], DEADLINE)[0], [process], "it outlives Kestrel")

    def close_window(self):
        self.kestrel.focus_window()
        self.desktop.press("alt+F4")
        return self.kestrel.process.wait(timeout=DEADLINE)

    def terminate(self):
        self.kestrel.process.terminate()
        return self.kestrel.process.wait(timeout=DEADLINE)

    def quit_during_build(self, way, status):
        self.started.unlink(missing_ok=True)
        self.kestrel.focus_window()
        self.desktop.press("ctrl+b")
        wait_for_files("the assembler to run", self.started.is_file)
        assembler, its_program = (os.pidfd_open(int(number)) for number in self.started.read_text().split())
        for process in (assembler, its_program):
            self.addCleanup(os.close, process)
        self.assertEqual(select.select([assembler, its_program], [], [], 0)[0], [])  # both run
        self.assertEqual(way(), status)
        for process in (assembler, its_program):
            self.assertEqual(select.select([process], [], [], DEADLINE)[0], [process], "it outlives Kestrel")
        self.assert_all_is_whole()

    def assert_all_is_whole(self):
        settings = self.project_folder("Demo") / ".project"
        self.assertEqual(sorted(os.listdir(settings)), ["Demo-BuildSettings.cfg", "Demo-ProjectStructure.cfg"])
        self.assertEqual(os.listdir(self.home / ".Kestrel"), ["AllProjects.cfg"])
        for path in (*settings.iterdir(), self.home / ".Kestrel" / "AllProjects.cfg",
                     self.project_folder("Demo") / "Demo.kst"):
            self.assertIsInstance(self.json_of(path), dict, path)
