# SPDX-License-Identifier: MIT
"""What happens to files, as a thing to wait for without asking again and again."""
import ctypes
import os
import select

MODIFY, ATTRIBUTES, CLOSED, MOVED_FROM, MOVED_TO, CREATED, DELETED = 0x2, 0x4, 0x8, 0x40, 0x80, 0x100, 0x200
EVERYTHING = MODIFY | ATTRIBUTES | CLOSED | MOVED_FROM | MOVED_TO | CREATED | DELETED
LIBRARY = ctypes.CDLL(None, use_errno=True)


class Changes:
    """The changes of the files below a folder from the time of making on. Close it with `with`."""

    def __init__(self, folder):
        self.folder = folder
        self.descriptor = LIBRARY.inotify_init1(os.O_CLOEXEC)
        if self.descriptor < 0:
            raise OSError(ctypes.get_errno(), "changes of files cannot be watched")
        self.watch()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.descriptor)

    def watch(self):
        """Watches each folder that there is. A folder that comes later is a change of the one that it is in."""
        for path, _, _ in os.walk(self.folder):
            if LIBRARY.inotify_add_watch(self.descriptor, os.fsencode(path), EVERYTHING) < 0 and os.path.isdir(path):
                raise OSError(ctypes.get_errno(), f"cannot be watched: {path}")

    def wait(self, process, seconds):
        """Sleeps until something changes, the process (none is given as None) ends or the time is over."""
        others = [] if process is None else [os.pidfd_open(process.pid)]
        try:
            ready, _, _ = select.select([self.descriptor, *others], [], [], seconds)
        finally:
            for descriptor in others:
                os.close(descriptor)
        if self.descriptor in ready:
            os.read(self.descriptor, 1 << 16)
            self.watch()
