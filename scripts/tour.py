"""tour.py PROGRAM FOLDER [FILE]: takes the program through a short service on a virtual display.

Leaves a screenshot of every window in the folder and prints their paths. Opens the demo service, or
the file if one is given.
"""

import contextlib
import shutil
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))
sys.dont_write_bytecode = True

from processes import wait_until  # noqa: E402
from program import (  # noqa: E402
    ALERT, DISPLAY, OPERATOR, PASTE_SONG, SETTINGS, SLIDE_TITLE, SONG_IMPORT, STAGE, START_PANEL,
    Program)
from xserver import XServer  # noqa: E402

# From the start panel's first button to its third, and that pressed.
OPEN_DEMO = ["Tab", "Tab", "space"]
EMPTY_TITLE = "Untitled Quenara — Quenara"

OPENING_SIZE = (1480, 900)
# The smallest with its menu bar, that which it opens with, and the largest of the virtual screen.
SIZES = ((1180, 790), OPENING_SIZE, (1910, 1040))


class Tour:
    """One run of the program, and the screenshots it leaves."""

    def __init__(self, server, program, folder):
        self._server = server
        self._program = program
        self._folder = folder

    def shoot(self, title, name):
        """Saves what a window shows, once it has stopped changing."""
        window = self._program.wait_for_window(title)
        self._settle(window)
        path = self._folder / f"{name}.png"
        self._server.run("import", "-window", window, str(path))
        print(path, flush=True)

    def _settle(self, window):
        seen = [None]

        def same_as_before():
            screenshot = self._server.run("import", "-window", window, "rgb:-")
            same = screenshot == seen[0]
            seen[0] = screenshot
            return same

        wait_until(same_as_before, "a window to stop changing")

    def wait_for_document(self, files):
        """Fails when the program refuses the file it was started with."""
        program = self._program
        program.wait_for_window(OPERATOR)
        if not files:
            return
        wait_until(lambda: program.window(ALERT) or not program.window(EMPTY_TITLE),
                   f"{files[0]} to open")
        if program.window(ALERT):
            raise AssertionError(f"the program could not open {files[0]}")

    def meet_start_panel(self, name, files):
        """Shoots the start panel, which the program shows when it has no file, and leaves it."""
        program = self._program
        if files:
            program.focus(OPERATOR)
            program.press("ctrl+n")
        program.focus(START_PANEL)
        self.shoot(START_PANEL, name)
        program.press(*(["Escape"] if files else OPEN_DEMO))
        program.wait_for_no_window(START_PANEL)
        wait_until(lambda: not program.window(EMPTY_TITLE), "the service to open")

    def see_settings(self, name):
        program = self._program
        program.focus(OPERATOR)
        program.press("ctrl+comma")
        program.focus(SETTINGS)
        self.shoot(SETTINGS, name)
        program.press("Escape")
        program.wait_for_no_window(SETTINGS)

    def see_operator(self, name):
        """The operator window at three sizes, with a layer selected, with its text being edited."""
        program = self._program
        for size in SIZES:
            program.resize(OPERATOR, *size)
            self.shoot(OPERATOR, f"{name}-{size[0]}")
        program.resize(OPERATOR, *OPENING_SIZE)
        program.click(*SLIDE_TITLE)
        self.shoot(OPERATOR, f"{name}-layer")
        program.click(*SLIDE_TITLE, times=2)
        self.shoot(OPERATOR, f"{name}-editing")
        program.press("Escape")

    def see_song_import(self, name):
        program = self._program
        program.click(*PASTE_SONG)
        self.shoot(SONG_IMPORT, name)
        program.press("Escape")
        program.wait_for_no_window(SONG_IMPORT)

    def see_stage(self, name):
        self._program.open_stage()
        self.shoot(STAGE, name)

    def hold_the_service(self):
        program = self._program
        program.focus(OPERATOR)
        program.press("Down", "Return", "Right")
        self.shoot(OPERATOR, "operator-live")
        self.see_stage("stage")
        program.open_display()
        self.shoot(DISPLAY, "display-live")
        program.press("b")
        self.shoot(DISPLAY, "display-blackout")
        program.press("l")
        self.shoot(DISPLAY, "display-logo")
        program.toggle_display()
        program.wait_for_no_window(DISPLAY)
        program.focus(OPERATOR)
        program.close_window(OPERATOR)
        if program.wait_for_end() != 0:
            raise AssertionError(f"the program ended with status {program.status()}")


@contextlib.contextmanager
def preparation(server, executable, folder, files, appearance, suffix):
    """The tour of a program with an appearance, once it was seen how a service is prepared."""
    preferences = f"appAppearance={appearance}\n"
    with Program(server, executable, *files, preferences=preferences) as program:
        tour = Tour(server, program, folder)
        tour.wait_for_document(files)
        tour.meet_start_panel(f"start-panel{suffix}", files)
        tour.see_settings(f"settings{suffix}")
        tour.see_operator(f"operator{suffix}")
        tour.see_song_import(f"song-import{suffix}")
        yield tour


def show_around(server, executable, folder, files):
    with preparation(server, executable, folder, files, "light", "") as tour:
        tour.hold_the_service()
    with preparation(server, executable, folder, files, "dark", "-dark") as tour:
        tour.see_stage("stage-dark")


def main():
    executable, folder, *files = (Path(argument).resolve() for argument in sys.argv[1:])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    with XServer() as server:
        show_around(server, executable, folder, files)


if __name__ == "__main__":
    main()
