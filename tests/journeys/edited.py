# SPDX-License-Identifier: MIT
"""Files that are edited step by step, as far as a journey knows them: what each step makes, and what a draft must have
kept of them when the program was killed."""
import json
import time

SECONDS_AT_RISK = 5  # what of the work before a kill may be missing


def drafts_of(home, path):
    """The contents of the drafts of a file in the state folder, the newest first."""
    found = []
    for draft in (home / ".local/state/kestrel/drafts").glob("*.draft"):
        line, _, content = draft.read_bytes().partition(b"\n")
        description = json.loads(line)
        if description["file"] == str(path):
            found.append((description["time"], content))
    return [content for _, content in sorted(found, reverse=True)]


class Edited:
    """A file with steps of editing. What is on the disk is `saved`; the steps since it was shown begin at `base`, which
    is the same, or what was brought back."""

    def __init__(self, path):
        self.path = path
        self.saved = path.read_bytes()
        self.begin(self.saved)
        self.saving = False
        self.former = None  # what the last save took the place of, and when
        self.superseded = []  # drafts that a kill left beside the newer one that goes on from them

    def begin(self, base):
        self.base = base
        self.steps = []
        self.done = []  # when each step was done

    def after(self, steps):
        """The content after so many steps."""
        raise NotImplementedError

    def steps_in(self, content):
        """After how many steps it has this content; nothing when it never had."""
        return next((steps for steps in range(len(self.steps) + 1) if self.after(steps) == content), None)

    def is_unsaved(self):
        return self.after(len(self.steps)) != self.saved

    def step_was_done(self):
        self.done.append(time.monotonic())

    def save_begins(self):
        self.saving = True

    def was_saved(self):
        self.saving = False
        former = type(self)(self.path)
        former.base, former.steps = self.base, self.steps
        self.former = (former, time.monotonic())
        self.saved = self.after(len(self.steps))
        self.begin(self.saved)

    def check(self, test, home, end):
        """Fails unless the file is as it was saved and drafts have what was done until shortly before `end`. Goes on
        from what there is."""
        on_disk = self.path.read_bytes()
        if self.saving and on_disk == self.after(len(self.steps)):
            self.was_saved()
        test.assertEqual(on_disk, self.saved, f"{self.path.name} is not what was saved")
        self.saving = False
        safe = sum(when <= end - SECONDS_AT_RISK for when in self.done)
        drafts = [draft for draft in drafts_of(home, self.path) if draft not in self.superseded]
        self.superseded += drafts[1:]
        newest = next(iter(drafts), None)
        if newest is None or (self.is_left_over(newest, end) and not safe):
            test.assertEqual(self.after(safe), self.saved, f"no draft of {self.path.name}")
        else:
            steps = self.steps_in(newest)
            test.assertIsNotNone(steps, f"{self.path.name} never was as its draft is: {newest}, {self.base}, {self.steps}")
            test.assertGreaterEqual(steps, safe, f"steps of {self.path.name} are missing in its draft")
        self.begin(self.saved if newest is None else newest)

    def is_left_over(self, draft, end):
        """Whether it is from before a save that had no time to remove it."""
        if self.former is None:
            return False
        former, when = self.former
        return end - when < SECONDS_AT_RISK and former.steps_in(draft) is not None


class EditedText(Edited):
    """Each step types a text before everything but a byte-order mark."""

    def with_typed(self, typed):
        mark = b"\xef\xbb\xbf" if self.base.startswith(b"\xef\xbb\xbf") else b""
        return mark + typed + self.base[len(mark):]

    def after(self, steps):
        return self.with_typed("".join(self.steps[:steps]).encode())

    def steps_in(self, content):
        typed = "".join(self.steps).encode()
        end = len(content) - len(self.base)
        if end < 0 or content != self.with_typed(typed[:end]):
            return None
        # A step that is typed in part is not done.
        return sum(len("".join(self.steps[:step + 1])) <= end for step in range(len(self.steps)))


class EditedTiles(Edited):
    """Each step paints the next pixel of the first tile with the last colour."""

    def painted(self):
        """How many pixels are painted before the first step."""
        return sum(byte.bit_count() for byte in self.base[:8])

    def after(self, steps):
        rows = ((1 << 64) - 1) ^ ((1 << (64 - self.painted() - steps)) - 1)
        plane = rows.to_bytes(8, "big")
        return plane + plane + self.base[16:]


class EditedPalettes(Edited):
    """Each step gives the first colour of the first palette another value, none twice."""

    def after(self, steps):
        return bytes(self.steps[steps - 1:steps]) + self.base[1:] if steps else self.base
