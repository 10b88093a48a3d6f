# SPDX-License-Identifier: MIT
"""Runs an image in fceux on a display of its own (Xvfb), sends keys and looks at the picture.

Nothing here waits for a time: every wait is for a condition, with a deadline after which the test fails
with what was seen last.
"""
import os
import random
import re
import shutil
import signal
import subprocess
import time
from pathlib import Path

DEADLINE = 90.0  # seconds; far above what is needed, so that a busy machine does not fail
LINES, COLUMNS = 448, 512  # fceux shows 256 x 224 pixels in double size, below its menu


class Picture:
    """A screenshot of the game's picture."""

    def __init__(self, ppm):
        """`ppm`: a binary PPM of 8 bits of the emulator's whole window."""
        fields, position = [], 0
        while len(fields) < 4:
            end = position
            while not ppm[end:end + 1].isspace():
                end += 1
            if end > position:
                fields.append(ppm[position:end])
            position = end + 1
        width, height = int(fields[1]), int(fields[2])
        if fields[0] != b"P6" or fields[3] != b"255" or width < COLUMNS or height < LINES:
            raise ValueError(f"unexpected screenshot: {fields}")
        # The menu stands above the picture, so lines count from the bottom.
        start = position + (height - LINES) * width * 3
        self.rows = [ppm[start + y * width * 3:start + y * width * 3 + COLUMNS * 3] for y in range(LINES)]

    def region(self, left, top, right, bottom):
        """The pixels of a rectangle, in pixels of the console (0-255, 0-223), as one bytes object."""
        return b"".join(row[left * 6:right * 6] for row in self.rows[top * 2:bottom * 2:2])

    def shares(self, *rectangle):
        """How much of the rectangle each colour covers, 0-1, the most frequent first."""
        data = self.region(*(rectangle or (0, 0, 256, 224)))
        counts = {}
        for i in range(0, len(data), 6):
            pixel = data[i:i + 3]
            counts[pixel] = counts.get(pixel, 0) + 1
        total = len(data) // 6
        return sorted((count / total for count in counts.values()), reverse=True)


class Emulator:
    """fceux with the image, on a display and with a home folder of its own. start() and stop() go together."""

    def __init__(self, image, home):
        self.image = image
        self.home = Path(home)
        self.processes = []
        self.programs = {}
        self.window = None
        self.environment = {}
        self.log = self.home / "emulator.log"

    def start(self):
        programs = {name: shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/games:/usr/bin")
                    for name in ("Xvfb", "fceux", "xdotool", "import")}
        missing = [name for name, path in programs.items() if not path]
        if missing:
            raise RuntimeError(f"not installed: {', '.join(missing)} (apt-get install xvfb fceux xdotool imagemagick)")
        self.programs = programs
        runtime = self.home / "runtime"
        runtime.mkdir(mode=0o700, parents=True)
        number = self.start_display()
        self.environment = {
            "DISPLAY": f":{number}", "HOME": str(self.home), "XDG_RUNTIME_DIR": str(runtime),
            "XDG_CONFIG_HOME": str(self.home), "SDL_VIDEODRIVER": "x11", "SDL_AUDIODRIVER": "dummy",
            "QT_QPA_PLATFORM": "xcb", "LIBGL_ALWAYS_SOFTWARE": "1", "LC_ALL": "C.UTF-8",
        }
        with self.log.open("ab") as log:
            self.launch([programs["fceux"], "--sound", "0", str(self.image)], log, self.environment)
        self.wait("the emulator's window", self.find_window)

    def start_display(self):
        """Starts Xvfb on a free display; its number. It is drawn from a wide range, since the server of
        another test that ends just then takes the socket of the same number away. Without -noreset the
        server would start afresh, and be away for a moment, whenever its last client leaves."""
        for _ in range(20):
            wanted = random.randrange(1000, 50000)
            reading, writing = os.pipe()
            with self.log.open("wb") as log:
                self.launch([self.programs["Xvfb"], f":{wanted}", "-displayfd", str(writing), "-screen", "0",
                             "1024x768x24", "-nolisten", "tcp", "-noreset"], log, {}, pass_fds=(writing,))
            os.close(writing)
            # Xvfb writes its number when it is ready; the pipe ends when it gives up.
            with os.fdopen(reading) as pipe:
                if pipe.readline().strip() == str(wanted):
                    return wanted
            self.stop()
        raise RuntimeError("Xvfb did not start: " + self.log.read_text(errors="replace"))

    def launch(self, command, log, environment, **more):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True,
                                   cwd=self.home, env={**os.environ, **environment}, **more)
        self.processes.append(process)

    def stop(self):
        # Each leads a process group of its own. The emulator would think for long; Xvfb has files to remove.
        for process in reversed(self.processes):
            first = signal.SIGTERM if process.args[0] == self.programs["Xvfb"] else signal.SIGKILL
            for number in (first, signal.SIGKILL):
                if process.poll() is None:
                    os.killpg(process.pid, number)
                try:
                    process.wait(timeout=20)
                    break
                except subprocess.TimeoutExpired:
                    continue
        self.processes = []

    def tool(self, name, *arguments):
        return subprocess.run([self.programs[name], *arguments], env={**os.environ, **self.environment},
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=DEADLINE, check=False)

    def find_window(self):
        """Whether the window is there, large enough for the picture."""
        for number in self.tool("xdotool", "search", "--onlyvisible", "--name", "FCEUX").stdout.decode().split():
            size = re.findall(r"(?:WIDTH|HEIGHT)=(\d+)",
                              self.tool("xdotool", "getwindowgeometry", "--shell", number).stdout.decode())
            if len(size) == 2 and int(size[0]) >= COLUMNS and int(size[1]) >= LINES:
                self.window = number
                return True
        return False

    def picture(self):
        result = self.tool("import", "-window", self.window, "-depth", "8", "ppm:-")
        if result.returncode != 0:
            raise RuntimeError("no screenshot: " + result.stderr.decode(errors="replace"))
        return Picture(result.stdout)

    def wait(self, what, condition):
        """Asks again and again until the condition holds; asking takes its time, so it does not spin."""
        end = time.monotonic() + DEADLINE
        while not condition():
            for process in self.processes:
                if process.poll() is not None:
                    raise AssertionError(f"ended while waiting for {what}: {process.args}\n"
                                         + self.log.read_text(errors="replace"))
            if time.monotonic() > end:
                raise AssertionError(f"waited {DEADLINE:.0f} s in vain for {what}")

    def wait_for_picture(self, what, condition):
        """The first picture for which the condition holds."""
        seen = []

        def check():
            picture = self.picture()
            if condition(picture):
                seen.append(picture)
            return bool(seen)

        self.wait(what, check)
        return seen[0]

    def hold(self, key, what, condition):
        """Holds the key down until the picture is as wanted; the picture."""
        self.tool("xdotool", "windowfocus", self.window, "keydown", key)
        try:
            return self.wait_for_picture(what, condition)
        finally:
            self.tool("xdotool", "keyup", key)
