# SPDX-License-Identifier: MIT
"""The program Kestrel, worked as a person does: by mouse and keys, and by what is on the screen."""
import os
import select
import signal
import subprocess
import time
from collections import Counter
from pathlib import Path

from gi.repository import Atspi

from desktop import Waiting, Widget, wait_for, wait_for_files

ROW_ROLES = ("tree item", "list item", "table cell")


class Kestrel:
    """One run of the program on a desktop."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = program
        self.process = None
        self.application = None

    def start(self, *files, environment=None):
        """Starts it and waits for the main window."""
        self.process = self.desktop.launch([str(self.program), *map(str, files)], {
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb", "QT_STYLE_OVERRIDE": "fusion",
            **(environment or {})})
        Waiting.process = self.process
        self.application = wait_for("Kestrel on the accessibility bus", self.find_application)
        wait_for("the main window", lambda: self.main_window() and self.main_window().is_("active"))

    def find_application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_process_id() == self.process.pid:
                return Widget(application)
        return None

    def quit(self):
        """Quits by the key, with the main window in front; the exit status."""
        self.focus_window()
        return self.quit_by_key()

    def quit_by_key(self):
        """Quits from whichever window is in front; the exit status."""
        self.desktop.press("ctrl+q")
        return self.process.wait(timeout=90)

    def died(self):
        """Whether it was killed: when it is about to end, its end is waited for."""
        try:
            return self.process.wait(timeout=20) == -signal.SIGKILL
        except subprocess.TimeoutExpired:
            return False

    def end_what_it_left(self):
        """Ends the programs that it had started and that outlived it."""
        for number in [int(path.name) for path in Path("/proc").iterdir() if path.name.isdigit()]:
            try:
                if os.getsid(number) != self.process.pid:
                    continue
                process = os.pidfd_open(number)
            except ProcessLookupError:
                continue
            try:
                signal.pidfd_send_signal(process, signal.SIGKILL)
            except ProcessLookupError:
                pass  # it has ended meanwhile
            select.select([process], [], [])
            os.close(process)

    def busy_share(self):
        """The part of a second for which it keeps a processor busy."""
        def used():
            # The name in parentheses may hold spaces; user and system time are the 14th and 15th field.
            fields = Path(f"/proc/{self.process.pid}/stat").read_text(encoding="utf-8").rpartition(")")[2].split()
            return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
        before, start = used(), time.monotonic()
        time.sleep(1)
        return (used() - before) / (time.monotonic() - start)

    def wait_for_rest(self):
        """Until it has nothing to do any more."""
        wait_for("Kestrel to rest", lambda: self.busy_share() < 0.1)

    # Windows

    def main_window(self):
        return next((window for window in self.application.children()
                     if window.role == "frame" and window.find("tree", "Projects")), None)

    def focus_window(self):
        """Brings the main window to the front, as a click on its title bar does."""
        window = self.main_window()
        if not window.is_("active"):
            left, top, width, _ = window.place()
            self.desktop.xdotool("mousemove", "--sync", left + width // 2, top - 8, "click", 1)
            wait_for("the main window in front", lambda: self.main_window().is_("active"))

    def window(self, name):
        return next((window for window in self.application.children() if window.name == name
                     and window.is_("showing")), None)

    def wait_for_window(self, name):
        return wait_for(f"a window “{name}”", lambda: self.window(name))

    def dialog(self):
        """The open sheet or dialog, or nothing."""
        return self.application.find("dialog") or self.application.find("file chooser")

    def wait_for_dialog(self):
        """The dialog, once keys go to it."""
        return wait_for("a dialog", lambda: next((dialog for dialog in [self.dialog()] if dialog.is_("active")), None))

    def wait_for_no_dialog(self):
        """Until the dialog is closed and keys go to the main window again."""
        wait_for("the dialog to close", lambda: self.dialog() is None)
        wait_for("the main window to have the keys", lambda: self.main_window().is_("active"))

    # The navigation tree

    def rows(self):
        """The names of the tree's rows, from the top."""
        return [row.name for row in self.row_widgets()]

    def row_widgets(self):
        tree = self.main_window().find("tree", "Projects")
        return [row for row in tree.children() if row.role in ROW_ROLES]

    def row(self, name, number=0):
        found = [row for row in self.row_widgets() if row.name == name]
        return found[number] if number < len(found) else None

    def wait_for_row(self, name, number=0):
        return wait_for(f"a row “{name}”", lambda: self.row(name, number))

    def select(self, name, number=0):
        self.desktop.click(self.wait_for_row(name, number))
        wait_for(f"“{name}” to be selected", lambda: self.row(name, number).is_("selected"))

    def expand(self, name, number=0):
        """Opens a row and all below it."""
        self.select(name, number)
        self.desktop.press("asterisk")

    def collapse(self, name):
        self.select(name)
        self.desktop.press("Left")
        wait_for(f"“{name}” to close", lambda: not self.row(name).is_("expanded"))

    def is_red(self, name):
        """Whether the name of a row is painted in a red; nothing while no name is on the screen."""
        left, top, width, height = self.wait_for_row(name).place()
        # The icon stands at the left.
        rows = self.desktop.picture(left + 24, top, max(1, min(width, 230) - 24), height)
        counts = Counter(pixel for row in rows for pixel in row)
        if counts.total() - counts.most_common(1)[0][1] < 10:  # all of it is background
            return None
        return sum(count for (red, green, blue), count in counts.items() if red > 100 + max(green, blue)) > 10

    def window_number(self):
        """The X server's number of the main window."""
        numbers = self.desktop.xdotool("search", "--all", "--onlyvisible", "--pid", self.process.pid, "--name",
                                       "Kestrel$").split()
        return numbers[0]

    def leave_and_come_back(self):
        """Puts the main window away and fetches it again, as from the task bar."""
        number = self.window_number()
        self.desktop.xdotool("windowminimize", "--sync", number)
        wait_for("the window to lose the focus", lambda: not self.main_window().is_("active"))
        self.desktop.xdotool("windowactivate", "--sync", number)
        wait_for("the window to be back", lambda: self.main_window().is_("active"))

    # Panes

    def source(self):
        """The text view of the code editor, when it is shown."""
        return self.main_window().find("text", "Source text")

    def code(self):
        view = self.source()
        return view.text() if view else None

    def type_code(self, text):
        """Replaces the text in the code editor by typing."""
        self.desktop.click(wait_for("the code editor", self.source))
        wait_for("the code editor to have the focus", lambda: self.source().is_("focused"))
        self.desktop.press("ctrl+a", "Delete")
        self.desktop.type(text)
        wait_for("the text to be typed", lambda: self.code() == text)

    def save_code(self, path, text):
        """Types the whole text of a file that is shown and saves it."""
        self.type_code(text)
        self.desktop.press("ctrl+s")
        wait_for_files(f"{path.name} to be saved", lambda: path.read_text(encoding="utf-8") == text)

    def wait_for_message(self, text):
        """Until the message pane shows this."""
        wait_for(f"the message “{text}”", lambda: self.main_window().find(name=text))

    def wait_for_pane(self, name):
        return wait_for(f"the pane “{name}”", lambda: self.main_window().find("filler", name))

    def button(self, name, within=None):
        """A button that can be pressed."""
        def enabled():
            found = (within or self.main_window()).find("push button", name)
            return found if found and found.is_("enabled") else None
        return wait_for(f"the button “{name}”", enabled)

    def press_button(self, name, within=None):
        self.desktop.click(self.button(name, within))

    def choose_emulator(self, path):
        """Chooses the emulator of the project that is shown."""
        self.press_button("Choose emulator")
        self.wait_for_dialog()
        self.desktop.type(path)
        self.desktop.press("Return")
        self.wait_for_no_dialog()
        wait_for("the emulator to be shown", lambda: self.main_window().find("text", "Emulator").text() == str(path))

    # Commands

    def close_console(self):
        """Hides the console by its key."""
        wait_for("the console in front", lambda: self.window("Console").is_("active"))
        self.desktop.press("Escape")
        wait_for("the console to close", lambda: self.window("Console") is None)

    def console_text(self):
        window = self.window("Console")
        text = window.find("text", "Console text") if window else None
        return text.text() if text else ""

    def choose_command(self, menu, entry):
        """Chooses an entry of the menu bar by mouse."""
        bar = self.main_window().find("menu bar")
        title = next(item for item in bar.children() if item.name == menu)
        self.desktop.click(title)
        self.desktop.click(wait_for(f"{menu} > {entry}", lambda: next(
            (item for item in title.find_all("menu item", entry, showing=False) if item.is_("showing")), None)))

    def build(self):
        """Builds the selected project; what the console says in the end."""
        self.focus_window()
        self.desktop.press("ctrl+b")
        return self.wait_for_build()

    def wait_for_build(self):
        """Until the last line is there and the console, which comes to the front with each line, is in front."""
        wait_for("the build to end", lambda: "Internal Error when building" in self.console_text())
        wait_for("the console in front", lambda: self.window("Console").is_("active"))
        return self.console_text()

    def new_project(self, name):
        self.desktop.press("ctrl+shift+n")
        self.finish_wizard(name)
        self.wait_for_row(name)

    def new_file(self, kind, name):
        """Makes a file of this kind beside the selected row and waits for its row."""
        self.desktop.press("ctrl+n")
        self.choose_kind(kind)
        self.finish_wizard(name)
        self.wait_for_row(name)

    def import_file(self, path):
        """Imports a file by typing its path in the file panel."""
        self.desktop.press("ctrl+i")
        self.wait_for_dialog()
        self.desktop.type(str(path))
        self.desktop.press("Return")
        self.wait_for_no_dialog()
        self.wait_for_row(path.name)

    def pick_file(self, button, name):
        """Presses a plus button of the settings pane and picks a file of the project."""
        self.press_button(button)
        dialog = self.wait_for_dialog()
        tree = wait_for("the picker", lambda: dialog.find("tree", "Files of the project"))
        self.desktop.click(wait_for(f"“{name}” in the picker", lambda: next(
            (row for row in tree.children() if row.name == name), None)))
        self.press_button("Add", dialog)
        self.wait_for_no_dialog()

    def choose_kind(self, kind):
        """Chooses the kind of a new file in the wizard."""
        dialog = self.wait_for_dialog()
        self.desktop.click(wait_for(f"the kind “{kind}”", lambda: dialog.find(None, kind)))

    def finish_wizard(self, name):
        dialog = self.wait_for_dialog()
        self.press_button("Next", dialog)
        wait_for("the name field to have the focus", lambda: self.dialog().find("text", "Name").is_("focused"))
        self.desktop.type(name)
        self.desktop.press("Return")
        self.wait_for_no_dialog()
