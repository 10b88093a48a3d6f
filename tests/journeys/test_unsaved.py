# SPDX-License-Identifier: MIT
"""Journey of work that is not saved: the program is killed at random moments of typing, painting, choosing colours,
saving, switching and quitting, two hundred times, and what it kept is brought back."""
import os
import random
import signal
import threading
import time

from gi.repository import GLib

from desktop import ProgramDied, wait_for, wait_for_files
from edited import EditedPalettes, EditedText, EditedTiles
from support import JourneyTestCase

FILES = {"one.asm": b"; the first\r\nloop:\tjmp loop\r\n;\n", "two.asm": b"\xef\xbb\xbf; the second\n\trts",
         "tiles.chr": bytes(512 * 16), "colours.pal": bytes(32)}
MOST_PIXELS = 48  # of the 64 of a tile; then the file begins anew


class UnsavedTest(JourneyTestCase):
    def test_two_hundred_kills_lose_at_most_seconds_of_unsaved_work_and_nothing_saved(self):
        whole = "KESTREL_JOURNEYS_WHOLE" in os.environ
        seed = int(os.environ.get("KESTREL_JOURNEY_SEED", random.randrange(1 << 32)))
        print(f"KESTREL_JOURNEY_SEED={seed}", flush=True)
        self.random = random.Random(seed)
        project = self.lay_out_project("Demo", FILES)
        folder = self.project_folder("Demo")
        kinds = {".asm": EditedText, ".chr": EditedTiles, ".pal": EditedPalettes}
        self.files = {name: kinds[(folder / name).suffix](folder / name) for name in FILES}
        self.kestrel.start(project)
        self.kestrel.wait_for_row("Demo")
        self.kestrel.quit()
        kills = 200 if whole else 5
        while kills > 0:
            kills -= self.run_until_killed()
            self.begin_anew_what_is_full()

    def run_until_killed(self):
        """Works until the program is killed or quits; whether it was killed."""
        self.kestrel.start()
        self.kestrel.expand("Demo")
        self.shown = None
        self.swallowed = False
        self.killed = None
        process = self.kestrel.process
        timer = threading.Timer(self.random.uniform(0.2, 12), self.kill, [process])
        timer.start()
        try:
            for _ in range(self.random.randrange(4, 60)):
                self.work()
            self.kestrel.quit()
        except (ProgramDied, GLib.Error, AttributeError, RuntimeError, StopIteration):
            if self.killed is None:
                raise
        finally:
            timer.cancel()
            timer.join()
        status = process.wait(timeout=90)
        was_killed = status == -signal.SIGKILL
        if not was_killed:
            self.assertEqual(status, 0)
        for file in self.files.values():
            file.check(self, self.home, self.killed if was_killed else float("inf"))
        return was_killed

    def kill(self, process):
        self.killed = time.monotonic()
        process.send_signal(signal.SIGKILL)

    def work(self):
        """One step, or a look at another file, or a save."""
        choice = self.random.random()
        if self.shown is None or choice < 0.15:
            self.show(self.random.choice([name for name in FILES if name != self.shown]))
        elif choice < 0.2:
            self.save()
        elif choice < 0.25:
            time.sleep(self.random.uniform(0, 2.5))
        else:
            self.edit(self.shown)

    def show(self, name):
        file = self.files[name]
        content = file.after(len(file.steps))
        self.shown = name
        self.kestrel.select(name)
        self.enter(name)
        if content == file.saved:
            return
        wait_for(f"the unsaved work on {name} to be offered", self.offer)
        self.bring_back(name)
        wait_for("the offer to go", lambda: self.offer() is None)
        if name.endswith(".asm"):
            wait_for("the text to be back", lambda: self.kestrel.code() == shown_text(content))
            self.desktop.press("ctrl+Home")
        file.begin(content)

    def offer(self):
        return self.kestrel.main_window().find("push button", "Bring Back")

    def enter(self, name):
        """Waits for the pane and gives its content the focus."""
        if name.endswith(".asm"):
            wait_for(f"{name} to be shown", lambda: self.kestrel.main_window().find("label", name))
            self.desktop.click(wait_for("the code editor", self.kestrel.source))
            self.desktop.press("ctrl+Home")
        elif name.endswith(".chr"):
            pane = self.kestrel.wait_for_pane("Tile graphics")
            x, y = wait_for("the canvas", lambda: pane.find("canvas", "Pixel editor")).centre()
            # The right button takes the colour there and changes nothing.
            self.desktop.xdotool("mousemove", "--sync", x - 8, y - 8, "click", 3)
            self.desktop.press("3")
        else:
            pane = self.kestrel.wait_for_pane("Palettes")
            self.colours = wait_for("all colours", lambda: [
                item for item in pane.find("list", "All colours of the console").find_all("list item")])
            self.chosen = pane.find("list", "Colours of the palette").find_all("list item")[0]

    def bring_back(self, name):
        way = self.random.choice(("button", "menu", "undo"))
        if way == "undo" and not name.endswith(".pal"):
            self.desktop.press("ctrl+z")
        elif way == "menu":
            self.kestrel.choose_command("Edit", "Bring Back Unsaved Changes")
        else:
            self.kestrel.press_button("Bring Back")

    def edit(self, name):
        file = self.files[name]
        if name.endswith(".asm"):
            file.steps.append("".join(self.random.choices("abcdefgh 0123456789", k=self.random.randrange(1, 12))))
            self.desktop.type(file.steps[-1])
        elif name.endswith(".chr"):
            number = file.painted() + len(file.steps)
            if number >= 64:
                return
            file.steps.append(number)
            self.desktop.press(*["Left"] * 8, *["Up"] * 8, *["Right"] * (number % 8), *["Down"] * (number // 8),
                               "space")
        else:
            left = [colour for colour in range(1, 64) if colour not in (*file.steps, file.base[0], file.saved[0])]
            if len(left) < 5:
                return
            # The line that offered work may just have gone, and all below it moves up.
            wait_for("the colours to stay where they are", lambda: self.stays(self.colours[0]))
            if not self.swallowed:  # the first choice after the program's start changes nothing
                self.desktop.click(self.colours[left[0]])
                self.swallowed = True
            file.steps.append(left[-1])
            self.desktop.click(self.colours[left[-1]])
            wait_for("the colour to be chosen", lambda: f"${left[-1]:02X}" in self.chosen.name)
        file.step_was_done()

    @staticmethod
    def stays(widget):
        place = widget.place()
        time.sleep(0.1)
        return widget.place() == place

    def save(self):
        file = self.files[self.shown]
        file.save_begins()
        self.desktop.press("ctrl+s")
        content = file.after(len(file.steps))
        wait_for_files(f"{self.shown} to be saved", lambda: file.path.read_bytes() == content)
        file.was_saved()
        if self.shown.endswith(".asm"):
            self.desktop.press("ctrl+Home")  # steps type before everything

    def begin_anew_what_is_full(self):
        """Takes files that have no room for more steps back to what they were at first, while the program is away."""
        for name, file in self.files.items():
            if name.endswith(".chr") and file.painted() > MOST_PIXELS:
                for draft in (self.home / ".local/state/kestrel/drafts").glob("*.draft"):
                    if f"/{name}\"" in draft.read_bytes().partition(b"\n")[0].decode():
                        draft.unlink()
                file.path.write_bytes(FILES[name])
                self.files[name] = EditedTiles(file.path)


def shown_text(content):
    """How the code editor shows the text of a file."""
    return content.decode("utf-8-sig").replace("\r\n", "\n").replace("\r", "\n")
