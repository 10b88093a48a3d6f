# SPDX-License-Identifier: MIT
"""A desktop of its own for one journey: display, window manager, mouse, keys, and what assistive technology sees.

Nothing here waits for a time: every wait is for a condition, with a deadline after which the test fails and says what
it waited for.
"""
import os
import shutil
import signal
import subprocess
import time
from collections import Counter
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  the version must be asked for first

from changes import Changes  # noqa: E402

DEADLINE = 90.0  # seconds; far above what is needed, so that a busy machine does not fail
WIDTH, HEIGHT = 1280, 900


class ProgramDied(Exception):
    """The program under test ended while something was waited for."""


class Waiting:
    """What every wait looks at."""

    #: The program under test, if there is one. After its end waiting is in vain.
    process = None


def wait_for(what, condition, rest=None):
    """Asks until the condition gives something; that. Between two questions it calls `rest` with the program that may
    end meanwhile and the seconds that are left. Without one the condition must ask another program and wait for its
    answer, so that this does not spin: for files there is wait_for_files()."""
    end = time.monotonic() + DEADLINE
    while True:
        status = Waiting.process.poll() if Waiting.process else None
        try:
            found = condition()
        except (GLib.Error, AttributeError):  # what was asked about has just gone
            found = None
        if found:
            return found
        if status is not None:
            raise ProgramDied(f"exit status {status} while waiting for {what}")
        left = end - time.monotonic()
        if left <= 0:
            raise AssertionError(f"waited {DEADLINE:.0f} s in vain for {what}")
        if rest:
            rest(Waiting.process, left)


def wait_for_files(what, condition, folder=None):
    """The same for a condition that looks only at files below a folder, the home folder when none is given: asks again
    whenever one of them has changed."""
    with Changes(folder or os.environ["HOME"]) as changes:
        return wait_for(what, condition, changes.wait)


class Widget:
    """What assistive technology sees of one widget or row."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def role(self):
        return self.accessible.get_role_name()

    def is_(self, state):
        """Whether it has a state, such as "showing", "enabled", "focused", "selected"."""
        return self.accessible.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    def children(self):
        found = (self.accessible.get_child_at_index(i) for i in range(self.accessible.get_child_count()))
        return [Widget(child) for child in found if child is not None]

    def find_all(self, role=None, name=None, showing=True):
        """The widgets below this one with this role and name, in order."""
        result = []
        for child in self.children():
            if showing and child.role not in ("table cell", "tree item", "list item") and not child.is_("showing"):
                continue
            if (role is None or child.role == role) and (name is None or child.name == name):
                result.append(child)
            result += child.find_all(role, name, showing)
        return result

    def find(self, role=None, name=None, showing=True):
        """The first of them, or nothing."""
        return next(iter(self.find_all(role, name, showing)), None)

    def place(self):
        """Left, top, width and height on the screen."""
        extents = self.accessible.get_extents(Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    def centre(self):
        left, top, width, height = self.place()
        return left + width // 2, top + height // 2

    def text(self):
        """The text of a text widget."""
        length = Atspi.Text.get_character_count(self.accessible)
        return Atspi.Text.get_text(self.accessible, 0, length)

    def caret(self):
        """The line and the column of a text widget's caret, from 1."""
        before = self.text()[:Atspi.Text.get_caret_offset(self.accessible)]
        return before.count("\n") + 1, len(before) - (before.rfind("\n") + 1) + 1

    def place_of(self, text):
        """The middle of the first character of a text that a text widget shows, with nothing wrapped or scrolled out
        above it. Qt tells the rows of a plain text as if each paragraph were the first one."""
        offset = self.text().index(text)
        first = Atspi.Text.get_character_extents(self.accessible, 0, Atspi.CoordType.SCREEN)
        there = Atspi.Text.get_character_extents(self.accessible, offset, Atspi.CoordType.SCREEN)
        row = self.text()[:offset].count("\n")
        return there.x + there.width // 2, first.y + row * there.height + there.height // 2


class Desktop:
    """Xvfb with openbox. start() and stop() go together."""

    def __init__(self, folder):
        self.log = folder / "desktop.log"
        self.processes = []
        self.clicked = None  # where the last click was
        self.keys_only = False  # whether a use of the mouse is an error

    def start(self):
        missing = [name for name in ("Xvfb", "openbox", "xdotool", "import") if not shutil.which(name)]
        if missing:
            raise RuntimeError(f"not installed: {', '.join(missing)} (apt-get install xvfb openbox xdotool imagemagick)")
        reading, writing = os.pipe()
        # Without -noreset the server would start afresh whenever its last client leaves. Held keys repeat as on any
        # desktop, after 660 ms and then every 40 ms.
        self.launch(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten", "tcp",
                     "-noreset"], pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start: " + self.log.read_text(errors="replace"))
        os.environ["DISPLAY"] = ":" + number
        # A window that is mapped before the manager is ready gets neither title bar nor focus.
        ready = self.log.with_name("window-manager-ready")
        self.launch(["openbox", "--sm-disable", "--startup", f"touch {ready}", "--config-file", self.configuration()])
        wait_for_files("the window manager", ready.exists, ready.parent)
        Atspi.init()
        # A busy program may take longer to answer than the 0.8 s after which a question counts as answered by nothing.
        Atspi.set_timeout(int(DEADLINE * 1000), int(DEADLINE * 1000))

    def configuration(self):
        """The window manager's usual configuration, but without the window that comes back flying: for part of a
        second it has the keys but is not where it will be, and a click goes past it."""
        usual = Path("/etc/xdg/openbox/rc.xml").read_text(encoding="utf-8")
        flying = "<animateIconify>yes</animateIconify>"
        if flying not in usual:
            raise RuntimeError("openbox is configured in another way than expected")
        path = self.log.with_name("openbox.xml")
        path.write_text(usual.replace(flying, flying.replace("yes", "no")), encoding="utf-8")
        return str(path)

    def launch(self, command, environment=None, **more):
        with self.log.open("ab") as log:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                       start_new_session=True, env={**os.environ, **(environment or {})}, **more)
        self.processes.append(process)
        return process

    def stop(self):
        for process in reversed(self.processes):
            for number in (signal.SIGTERM, signal.SIGKILL):
                if process.poll() is None:
                    os.killpg(process.pid, number)
                try:
                    process.wait(timeout=20)
                    break
                except subprocess.TimeoutExpired:
                    continue
        self.processes = []

    @staticmethod
    def output(*command):
        return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=DEADLINE,
                              check=False).stdout

    def xdotool(self, *arguments):
        if self.keys_only and not {"mousemove", "click", "mousedown"}.isdisjoint(arguments):
            raise AssertionError(f"the mouse is used on a way by keyboard alone: {arguments}")
        result = subprocess.run(["xdotool", *map(str, arguments)], stdin=subprocess.DEVNULL, capture_output=True,
                                timeout=DEADLINE, check=False)
        if result.returncode != 0:
            raise RuntimeError(f"xdotool {arguments}: {result.stderr.decode(errors='replace')}")
        return result.stdout.decode()

    def press(self, *keys):
        """Presses keys one after another, such as "ctrl+b" or "Return", none long enough to repeat."""
        self.xdotool("key", "--clearmodifiers", "--delay", "1", *keys)

    def type(self, text):
        self.xdotool("type", "--clearmodifiers", "--delay", "1", "--", text)

    def hold(self, keys):
        """Holds a key, or one with others such as "ctrl+b", until it has repeated dozens of times."""
        self.xdotool("keydown", keys)
        try:
            time.sleep(2.5)
        finally:
            self.xdotool("keyup", keys)

    def click(self, widget):
        """Clicks on the middle of a widget; never twice in a row on the very same place, which would be a double click
        when it came quickly."""
        x, y = widget.centre()
        if self.clicked == (x, y):
            x += min(8, widget.place()[2] // 4)
        self.xdotool("mousemove", "--sync", x, y, "click", 1)
        self.clicked = (x, y)

    def double_click(self, place):
        """Clicks twice on a place of the screen."""
        self.xdotool("mousemove", "--sync", *place, "click", "--repeat", "2", "--delay", "20", "1")
        self.clicked = None

    def point_at(self, widget):
        self.xdotool("mousemove", "--sync", *widget.centre())

    def search(self, name):
        """The numbers of the visible windows whose titles hold this."""
        return self.output("xdotool", "search", "--onlyvisible", "--name", name).decode().split()

    def picture(self, left=0, top=0, width=WIDTH, height=HEIGHT):
        """The pixels of a part of the screen as (red, green, blue), row by row."""
        area = f"{width}x{height}+{left}+{top}"
        data = self.output("import", "-window", "root", "-crop", area, "+repage", "-depth", "8", "rgb:-")
        if len(data) != 3 * width * height:
            raise RuntimeError(f"no picture of {area}")
        pixels = list(zip(data[0::3], data[1::3], data[2::3]))
        return [pixels[y * width:(y + 1) * width] for y in range(height)]

    def colours(self, widget):
        """How many pixels of each colour a widget has on the screen."""
        return Counter(pixel for row in self.picture(*widget.place()) for pixel in row)
