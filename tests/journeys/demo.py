# SPDX-License-Identifier: MIT
"""The way from an empty home folder to a running game: the project "Demo", made, filled and saved step by step."""
from desktop import wait_for, wait_for_files
from support import LISTS, PROGRAM

COLOUR = 0x21  # the colour that is chosen in the first palette, the index of a light blue
FILES = (("NES Text Assembly", "main.asm"), ("Graphics Data", "tiles.chr"), ("Palette Data", "colours.pal"))


class DemoByMouse:
    """Makes the project by mouse, and by keys where something is typed."""

    def __init__(self, journey):
        self.journey = journey
        self.kestrel = journey.kestrel
        self.desktop = journey.desktop
        self.folder = journey.project_folder("Demo")
        self.emulator, self.played = journey.home / "stand-in", journey.home / "played.nes"
        self.painted = None  # the colours of the pixel editor once the tile is painted

    def steps(self):
        """The steps in order. After each what it made is on disk."""
        return [self.make_project, *[lambda file=file: self.make_file(*file) for file in FILES], self.write_program,
                self.paint_tile, self.choose_colour, self.choose_emulator, self.build, self.run]

    def make_project(self):
        self.kestrel.choose_command("File", "New Project...")
        self.kestrel.finish_wizard("Demo")
        self.wait_for_project()

    def wait_for_project(self):
        self.kestrel.wait_for_row("Demo")
        wait_for_files("the project's file", (self.folder / "Demo.kst").is_file)

    def make_file(self, kind, name):
        self.kestrel.choose_command("File", "New File...")
        self.kestrel.choose_kind(kind)
        self.kestrel.finish_wizard(name)
        self.wait_for_made_file(name)

    def wait_for_made_file(self, name):
        wait_for_files(f"{name} on disk", (self.folder / name).is_file)
        if not self.kestrel.row(name):
            self.expand("Demo")
        self.kestrel.wait_for_row(name)
        wait_for_files(f"{name} in the saved tree",
                       lambda: name in [child[0] for child in self.journey.structure("Demo")[2]])
        wait_for_files(f"{name} in the saved settings",
                       lambda: name in sum((self.journey.listed("Demo", key) for key in LISTS), []))

    def open(self, name):
        """Selects a row, which shows its pane."""
        self.kestrel.select(name)

    def expand(self, name):
        """Opens a row and all below it."""
        self.open(name)
        self.desktop.press("asterisk")

    def write_program(self):
        self.open("main.asm")
        self.type_program()
        wait_for("the program to be typed", lambda: self.kestrel.code() == PROGRAM)
        self.save()
        self.journey.wait_for_file(self.folder / "main.asm", PROGRAM.encode())

    def type_program(self):
        self.kestrel.type_code(PROGRAM)

    def paint_tile(self):
        """Gives one pixel of the first tile the last colour."""
        self.open("tiles.chr")
        empty = wait_for("the empty tile on the screen", self.tile_colours)
        self.paint_pixel()
        self.save()
        wait_for_files("the painted tile on disk", lambda: any((self.folder / "tiles.chr").read_bytes()))
        self.leave_canvas()
        self.painted = wait_for("the pixel on the screen", lambda: self.with_one_pixel(empty, self.tile_colours()))

    @staticmethod
    def with_one_pixel(empty, colours):
        """The colours, if they differ from those of the empty tile by a square that went from one to a new one."""
        return colours if any(count > 20 and count == empty[old] - colours.get(old, 0) for new, count in colours.items()
                              if new not in empty for old in empty) else None

    def paint_pixel(self):
        pane = self.kestrel.wait_for_pane("Tile graphics")
        colours = wait_for("the colours", lambda: [item for item in pane.find_all("list item")
                                                   if item.name.startswith("Colour 3 ")])
        self.desktop.click(colours[0])
        left, top, width, height = pane.find("canvas", "Pixel editor").place()
        # The picture of the tile stands in the middle.
        self.desktop.xdotool("mousemove", "--sync", left + width // 2 - 8, top + height // 2 - 8, "click", 1)

    def leave_canvas(self):
        """Takes away what marks the pixel that is pointed at."""
        self.desktop.point_at(self.kestrel.row("Demo"))
        self.desktop.press("F6")

    def tile_colours(self):
        """How many pixels of each colour the pixel editor shows; nothing before two looks have seen the same."""
        canvas = self.kestrel.wait_for_pane("Tile graphics").find("canvas", "Pixel editor")
        colours = self.desktop.colours(canvas)
        return colours if len(colours) > 2 and colours == self.desktop.colours(canvas) else {}

    def choose_colour(self):
        self.open("colours.pal")
        self.click_colour()
        self.save()
        wait_for_files("the chosen colour on disk", lambda: COLOUR in (self.folder / "colours.pal").read_bytes())

    def click_colour(self):
        pane = self.kestrel.wait_for_pane("Palettes")
        boxes = wait_for("all colours", lambda: [item for item in pane.find_all("list item")
                                                 if item.name.startswith(f"Index ${COLOUR:02X},")])
        # The first choice after the program's start changes nothing.
        self.desktop.click(boxes[-1])
        self.desktop.click(boxes[-1])

    def save(self):
        self.kestrel.choose_command("File", "Save")

    def choose_emulator(self):
        self.journey.write_stand_in(self.emulator, self.played)
        self.open("Demo")
        self.give_emulator()
        wait_for_files("the emulator to be saved",
                       lambda: self.journey.settings("Demo")["emulator"] == str(self.emulator))

    def give_emulator(self):
        self.kestrel.choose_emulator(self.emulator)

    def build(self):
        self.press_build()
        self.journey.assertNotIn("error:", self.kestrel.wait_for_build())

    def press_build(self):
        self.kestrel.focus_window()
        self.kestrel.choose_command("Build", "Build")

    def run(self):
        self.press_run()
        wait_for_files("the emulator to get the image", self.played.is_file)
        wait_for("the word that it runs", lambda: "Running Project" in self.kestrel.console_text())

    def press_run(self):
        self.kestrel.focus_window()
        self.kestrel.choose_command("Build", "Run")

    def quit(self):
        """Quits; the exit status."""
        return self.kestrel.quit()


class DemoByKeys(DemoByMouse):
    """Makes the same by the keyboard alone."""

    def make_project(self):
        self.desktop.press("ctrl+shift+n")
        self.kestrel.wait_for_dialog()
        self.finish_wizard("Demo")
        self.wait_for_project()

    def make_file(self, kind, name):
        self.open("Demo")
        self.desktop.press("ctrl+n")
        dialog = self.kestrel.wait_for_dialog()
        self.go_on_until(f"“{kind}” to be chosen", "Right", lambda: self.is_chosen(dialog, kind),
                         lambda: [item.name for item in dialog.find_all("list item") if item.is_("selected")])
        self.finish_wizard(name)
        self.wait_for_made_file(name)

    @staticmethod
    def is_chosen(dialog, kind):
        return any(item.is_("selected") for item in dialog.find_all(None, kind))

    def finish_wizard(self, name):
        self.desktop.press("Return")
        wait_for("the name field to have the focus",
                 lambda: self.kestrel.dialog().find("text", "Name").is_("focused"))
        self.desktop.type(name)
        self.desktop.press("Return")
        self.kestrel.wait_for_no_dialog()

    def open(self, name):
        """Selects a row of the tree by arrow keys."""
        if not self.has_focus("tree", "Projects"):
            self.desktop.press("F6")
            wait_for("the tree to have the focus", lambda: self.has_focus("tree", "Projects"))
        self.desktop.press("Home")
        wait_for("the first row to be selected", lambda: self.selected_rows() == [0])
        self.go_on_until(f"“{name}” to be selected", "Down", lambda: self.kestrel.row(name).is_("selected"),
                         self.selected_rows)

    def selected_rows(self):
        return [number for number, row in enumerate(self.kestrel.row_widgets()) if row.is_("selected")]

    def go_on_until(self, what, key, condition, state):
        """Presses the key again and again until the condition holds; each press changes the state."""
        for _ in range(60):
            if condition():
                return
            before = state()
            self.desktop.press(key)
            wait_for(f"{key} to act on the way to {what}", lambda before=before: state() != before)
        raise AssertionError(f"pressed {key} in vain for {what}")

    def go_into_pane(self, role, name):
        """Moves the focus from the tree into the pane, and there to this widget."""
        wait_for(f"“{name}” on the screen", lambda: self.kestrel.main_window().find(role, name))
        self.desktop.press("F6")
        wait_for("the tree to lose the focus", lambda: not self.has_focus("tree", "Projects"))
        self.go_on_until(f"“{name}” to have the focus", "Tab", lambda: self.has_focus(role, name), self.focus)

    def focus(self):
        """What tells the focused widget from the others."""
        return [(widget.role, widget.name, widget.place()) for widget in self.kestrel.main_window().find_all()
                if widget.role != "table cell" and widget.role != "tree item" and widget.is_("focused")]

    def has_focus(self, role, name):
        widget = self.kestrel.main_window().find(role, name)
        return widget is not None and (widget.is_("focused")
                                       or any(item.is_("focused") for item in widget.find_all("list item")))

    def type_program(self):
        self.go_into_pane("text", "Source text")
        self.desktop.type(PROGRAM)

    def paint_pixel(self):
        self.go_into_pane("canvas", "Pixel editor")
        self.desktop.press("3", "space")

    def leave_canvas(self):
        self.open("tiles.chr")

    def click_colour(self):
        self.go_into_pane("list", "All colours of the console")
        self.desktop.press("Down", "Down", "Right", "space", "space")

    def save(self):
        self.desktop.press("ctrl+s")

    def give_emulator(self):
        self.go_into_pane("push button", "Choose emulator")
        self.desktop.press("space")
        self.kestrel.wait_for_dialog()
        self.desktop.type(str(self.emulator))
        self.desktop.press("Return")
        self.kestrel.wait_for_no_dialog()

    def press_build(self):
        self.desktop.press("ctrl+b")

    def press_run(self):
        self.desktop.press("ctrl+r")

    def quit(self):
        return self.kestrel.quit_by_key()
