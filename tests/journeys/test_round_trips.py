# SPDX-License-Identifier: MIT
"""Journeys of source files through the code editor: what was not edited comes out byte for byte."""
import os

from desktop import wait_for, wait_for_files
from round_trips import EDITS, cases
from support import JourneyTestCase

SHORT = 4  # every which case is tried unless journeys run whole


class RoundTripsTest(JourneyTestCase):
    maxDiff = None

    def edit(self, case, path):
        """Shows the file, which is that of the selected row, edits it by keys and saves it."""
        self.desktop.press("F6")
        wait_for("the text to have the focus", lambda: self.kestrel.source().is_("focused"))
        for keys in EDITS[case.edit]:
            if isinstance(keys, tuple):
                self.desktop.type(keys[0])
            else:
                self.desktop.press(keys)
        before = path.stat().st_ino  # saving puts another file in its place
        self.desktop.press("ctrl+s")
        wait_for_files(f"{case.name} to be saved", lambda: path.stat().st_ino != before, path.parent)
        self.desktop.press("F6")

    def test_only_what_is_edited_changes(self):
        kestrel = self.kestrel
        chosen = cases()
        if "KESTREL_JOURNEYS_WHOLE" not in os.environ:
            chosen = chosen[::SHORT]
        project = self.lay_out_project("Demo", [case.name for case in chosen])
        for case in chosen:
            (project.parent / case.name).write_bytes(case.before)
        kestrel.start(project)
        kestrel.expand("Demo")
        kestrel.wait_for_row(chosen[0].name)
        differing = []
        for case in chosen:
            self.desktop.press("Down")
            wait_for(f"{case.name} to be shown", lambda name=case.name: kestrel.main_window().find("label", name))
            path = project.parent / case.name
            self.edit(case, path)
            after = path.read_bytes()
            if after != case.after:
                differing.append(f"{case.name}: {case.before!r} became {after!r} instead of {case.after!r}")
            backup = path.with_name(f"{case.name}.bak")
            kept = backup.read_bytes() if backup.exists() else None
            if kept != (case.before if case.converts else None):
                differing.append(f"{case.name}: the backup holds {kept!r}")
        print(f"{len(chosen) - len(differing)} of {len(chosen)} files came out as expected")
        self.assertEqual(differing, [])
        self.assertEqual(kestrel.quit(), 0)
