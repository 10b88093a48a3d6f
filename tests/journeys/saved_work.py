# SPDX-License-Identifier: MIT
"""What is saved of the project "Demo" at one time, and whether a later time still has it."""
from demo import COLOUR, FILES
from support import LISTS, PROGRAM


class SavedWork:
    """Files, lists of the build settings and the emulator, as they are on disk now."""

    def __init__(self, demo):
        self.demo = demo
        folder = demo.folder
        # Settings are told by what they say, and an image is made anew by each build.
        self.files = {path: path.read_bytes() for path in folder.rglob("*")
                      if path.is_file() and path.relative_to(folder).parts[0] not in (".project", "output")}
        stored = folder / ".project" / "Demo-BuildSettings.cfg"
        settings = demo.journey.json_of(stored) if stored.is_file() else {}
        self.lists = {key: [entry["name"] for entry in settings.get(key, [])] for key in LISTS}
        self.emulator = settings.get("emulator") or ""

    def assert_kept_in(self, now):
        """Fails unless `now` holds all of this and differs at most by what the next save made."""
        test = self.demo.journey
        for path, content in self.files.items():
            test.assertIn(path, now.files)
            if now.files[path] != content:
                test.assertTrue(self.is_next(path, content, now.files[path]), path)
        for key, names in self.lists.items():
            test.assertEqual(now.lists[key][:len(names)], names, key)
        self.assert_one_more_at_most(now)
        if now.emulator != self.emulator:
            test.assertEqual((self.emulator, now.emulator), ("", str(self.demo.emulator)))

    def assert_one_more_at_most(self, now):
        names, later = (sorted(sum(work.lists.values(), [])) for work in (self, now))
        following = sorted(name for _, name in FILES[:len(names) + 1])
        self.demo.journey.assertIn(later, (names, following))

    @staticmethod
    def is_next(path, content, later):
        """Whether a file holds what its next save makes of it."""
        if path.name == "main.asm":
            return later == PROGRAM.encode()
        if path.name == "colours.pal":
            return later == bytes((COLOUR,)) + content[1:]
        # One pixel, in both of its bit planes.
        return (path.name, len(later)) == ("tiles.chr", len(content)) and sum(byte.bit_count() for byte in later) == 2
