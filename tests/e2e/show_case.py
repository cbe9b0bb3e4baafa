"""What the test files share: the show they open, what its slides look like, and their verdicts."""

import functools
import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from processes import wait_until
from program import OPERATOR, SANITIZER_OPTIONS, Program
from xserver import FIRST_SCREEN, SECOND_SCREEN, Unavailable, XServer

SHOW = Path(__file__).with_name("data") / "show.quenara"
SHOW_TITLE = "Evening Show — Quenara"
EXECUTABLE = os.environ.get("QUENARA_PROGRAM", "")
RENDER_SLIDE = os.environ.get("QUENARA_RENDER_SLIDE", "")
NOTHING_RAN = 77
SCREEN_NAMES = {FIRST_SCREEN: "first screen", SECOND_SCREEN: "second screen"}
BLACK = bytes(3 * SECOND_SCREEN[0] * SECOND_SCREEN[1])


@functools.cache
def slide_picture(index, width=SECOND_SCREEN[0], height=SECOND_SCREEN[1]):
    """The RGB bytes of a whole screen that shows a slide of the show, by its 0-based place."""
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder, "slide.ppm")
        subprocess.run([RENDER_SLIDE, str(SHOW), str(index), str(width), str(height), str(path)],
                       env=os.environ | {"QT_QPA_PLATFORM": "offscreen",
                                         "ASAN_OPTIONS": SANITIZER_OPTIONS},
                       check=True, stderr=subprocess.DEVNULL)
        header, size, depth, pixels = path.read_bytes().split(b"\n", 3)
    assert (header, size, depth) == (b"P6", b"%d %d" % (width, height), b"255")
    return pixels


class ShowCase(unittest.TestCase):
    """A test on an X server of its own class."""

    two_screens_required = False

    @classmethod
    def setUpClass(cls):
        try:
            cls.server = XServer(two_screens_required=cls.two_screens_required)
        except Unavailable as reason:
            raise unittest.SkipTest(str(reason)) from reason
        cls.addClassCleanup(cls.server.close)

    def start(self, *arguments, **options):
        """The program, running until the end of the test."""
        self.program = self.enterContext(Program(self.server, EXECUTABLE, *arguments, **options))
        self.program.wait_for_window(OPERATOR)
        return self.program

    def start_show(self):
        program = self.start(SHOW)
        program.wait_for_window(SHOW_TITLE)
        return program

    def see(self, expected, description, screen=SECOND_SCREEN):
        """Passes once the screen shows exactly that picture."""
        try:
            wait_until(lambda: self.server.picture(screen) == expected, description, deadline=20)
        except AssertionError:
            picture = Path(f"{self.id().removeprefix('__main__.')}.png").absolute()
            self.server.save_picture(screen, picture)
            self.fail(f"the {SCREEN_NAMES.get(screen, screen)} does not show {description}: see {picture}; "
                      f"the program said: {self.program.output()}")

    def see_slide(self, index, screen=SECOND_SCREEN):
        self.see(slide_picture(index, *screen[:2]), f"slide {index}", screen)

    def see_black(self):
        self.see(BLACK, "black")

    def see_not(self, *pictures):
        """Passes once the second screen shows something else than any of these."""
        wait_until(lambda: self.server.picture(SECOND_SCREEN) not in pictures, "another picture")

    def settled_picture(self):
        """What the second screen shows twice in a row."""
        def twice_the_same():
            picture = self.server.picture(SECOND_SCREEN)
            return picture if picture == self.server.picture(SECOND_SCREEN) else None

        return wait_until(twice_the_same, "the picture to settle")

    def pictures_during(self, seconds):
        """All that the second screen shows meanwhile."""
        seen = set()
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            seen.add(self.server.picture(SECOND_SCREEN))
        return seen


class TwoScreenCase(ShowCase):
    two_screens_required = True


def run():
    """Runs the tests of the main module and ends the process with what ctest understands."""
    result = unittest.main(exit=False, verbosity=2).result
    if not result.wasSuccessful():
        sys.exit(1)
    if result.testsRun == len(result.skipped) or not result.testsRun:
        print("Skipped:", "; ".join(reason for _, reason in result.skipped))
        sys.exit(NOTHING_RAN if result.skipped else 1)
    sys.exit(0)
