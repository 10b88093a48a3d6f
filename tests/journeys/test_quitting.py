# SPDX-License-Identifier: MIT
"""Journey that ends while the assembler runs."""
import os
import select
import shutil

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


class QuittingTest(JourneyTestCase):
    def test_quitting_during_a_build_ends_the_assembler_and_leaves_all_files_whole(self):
        kestrel = self.kestrel
        self.put_stand_in()
        kestrel.start()
        kestrel.new_project("Demo")
        kestrel.new_file("NES Text Assembly", "main.asm")
        folder = self.project_folder("Demo")
        kestrel.select("main.asm")
        kestrel.save_code(folder / "main.asm", PROGRAM)
        self.quit_during_build(kestrel.quit, 0)
        for way, status in ((self.close_window, 0), (self.terminate, 1)):
            kestrel.start()
            kestrel.select("Demo")
            self.quit_during_build(way, status)
        self.assertEqual((folder / "main.asm").read_text(encoding="utf-8"), PROGRAM)
        self.assertEqual(self.listed("Demo", "code_assembly_files"), ["main.asm"])
        self.assertEqual(self.structure("Demo"), ["Demo", "project", [["main.asm", "text", []]]])

    def put_stand_in(self):
        """Lets Kestrel run from a folder of its own, with the stand-in for the assembler beside it."""
        programs = self.home / "programs"
        programs.mkdir()
        shutil.copy2(PROGRAMS / "Kestrel", programs)
        os.mkfifo(self.home / "pipe")
        self.started = self.home / "started"
        script = programs / "NESasm"
        script.write_text(STAND_IN.format(pipe=self.home / "pipe", started=self.started), encoding="utf-8")
        script.chmod(0o755)
        self.kestrel.program = programs / "Kestrel"

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
