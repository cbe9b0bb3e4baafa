"""What the test files share: the show they open, what its slides look like, and their verdicts."""

import functools
import os
import re
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from processes import wait_until
from program import OPERATOR, SANITIZER_OPTIONS, Program
from screen_reader import ScreenReader
from screen_watch import ScreenWatch, hash_of
from xserver import FIRST_SCREEN, SECOND_SCREEN, Unavailable, XServer

SHOW = Path(__file__).with_name("data") / "show.quenara"
SHOW_TITLE = "Evening Show — Quenara"
EXECUTABLE = os.environ.get("QUENARA_PROGRAM", "")
RENDER_SLIDE = os.environ.get("QUENARA_RENDER_SLIDE", "")
NOTHING_RAN = 77
# Seconds that make some forty presses of a held key.
HOLD = 1.5
SCREEN_NAMES = {FIRST_SCREEN: "first screen", SECOND_SCREEN: "second screen"}
BLACK = bytes(3 * SECOND_SCREEN[0] * SECOND_SCREEN[1])
BLACK_HASH = hash_of(BLACK)


def image_of(show, index, width=SECOND_SCREEN[0], height=SECOND_SCREEN[1]):
    """The RGB bytes of a whole screen that shows a slide of a show, by its 0-based place."""
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder, "slide.ppm")
        subprocess.run([RENDER_SLIDE, str(show), str(index), str(width), str(height), str(path)],
                       env=os.environ | {"QT_QPA_PLATFORM": "offscreen",
                                         "ASAN_OPTIONS": SANITIZER_OPTIONS},
                       check=True, stderr=subprocess.DEVNULL)
        header, size, depth, pixels = path.read_bytes().split(b"\n", 3)
    assert (header, size, depth) == (b"P6", b"%d %d" % (width, height), b"255")
    return pixels


@functools.cache
def slide_image(index, width=SECOND_SCREEN[0], height=SECOND_SCREEN[1]):
    """The image_of() a slide of the show that no test changes."""
    return image_of(SHOW, index, width, height)


@functools.cache
def slide_hash(index):
    """The hash of the slide_image()."""
    return hash_of(slide_image(index))


class ShowCase(unittest.TestCase):
    """A test on an X server that the tests of its class share."""

    two_screens_required = False

    @classmethod
    def setUpClass(cls):
        try:
            cls.server = XServer(two_screens_required=cls.two_screens_required)
        except Unavailable as reason:
            raise unittest.SkipTest(str(reason)) from reason
        cls.addClassCleanup(cls.server.close)

    def start(self, *arguments, executable=EXECUTABLE, **options):
        """The program, running until the end of the test."""
        self.program = self.enterContext(Program(self.server, executable, *arguments, **options))
        self.program.wait_for_window(OPERATOR)
        # Or what stands before it.
        self.program.wait_for_focus(".+")
        return self.program

    def start_show(self):
        program = self.start(SHOW)
        program.wait_for_window(SHOW_TITLE)
        return program

    def see(self, expected, description, screen=SECOND_SCREEN):
        """Passes once the screen shows exactly that image."""
        if not self.server.comes_to_show(expected, screen, 20):
            screenshot = Path(f"{self.id().removeprefix('__main__.')}.png").absolute()
            self.server.save_screenshot(screen, screenshot)
            self.fail(f"the {SCREEN_NAMES.get(screen, screen)} does not show {description}: "
                      f"see {screenshot}; the program said: {self.program.output()}")

    def see_slide(self, index, screen=SECOND_SCREEN):
        self.see(slide_image(index, *screen[:2]), f"slide {index}", screen)

    def see_black(self):
        self.see(BLACK, "black")

    def see_not(self, *images):
        """Passes once the second screen shows something else than any of these."""
        wait_until(lambda: self.server.screenshot(SECOND_SCREEN) not in images, "another image")

    def settled_screenshot(self):
        """What the second screen shows twice in a row."""
        def twice_the_same():
            image = self.server.screenshot(SECOND_SCREEN)
            return image if image == self.server.screenshot(SECOND_SCREEN) else None

        return wait_until(twice_the_same, "the screen to settle")

    def see_while_held(self, key, *hashes):
        """Passes if the second screen shows these frames, one after the other, and no other while a
        key is held, which the server repeats."""
        with ScreenWatch(self.server, SECOND_SCREEN) as watch:
            with self.program.held(key):
                time.sleep(HOLD)
            watch.wait_for(lambda frames: frames[-1].hash == hashes[-1], f"what {key} leads to")
            watch.settle()
        self.assertEqual([frame.hash for frame in watch.frames()], list(hashes))


class TwoScreenCase(ShowCase):
    two_screens_required = True


class ReadCase(TwoScreenCase):
    """A test that finds things by their names, as a screen reader does. A file can have
    only one such class, since a process can have only one reader."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        try:
            cls.reader = ScreenReader(cls.server)
        except Unavailable as reason:
            raise unittest.SkipTest(str(reason)) from reason
        cls.addClassCleanup(cls.reader.close)

    def start(self, *arguments, environment=None, **options):
        program = super().start(*arguments, **options,
                                environment=self.reader.environment | (environment or {}))
        self.application = self.reader.application(program.pid)
        self._found = {}
        return program

    def shown(self, window=OPERATOR):
        """All that is seen in a window, from the outside in."""
        for shown in self.application.children:
            if re.fullmatch(window, shown.name):
                yield from shown.shown()

    def thing(self, name, role=None, window=OPERATOR):
        """The control of that title and role, once it is there."""
        def found():
            # Looking through all that is shown takes hundreds of questions.
            known = self._found.get((name, role, window))
            if not (known and known.is_control(name, role)):
                known = next((thing for thing in self.shown(window)
                              if thing.is_control(name, role)), None)
                self._found[name, role, window] = known
            return known

        return wait_until(found, f"{role or 'something'} named {name}")

    def click(self, name, role=None, window=OPERATOR, from_right=None):
        """Clicks into the middle, or at a distance from the right end."""
        x, y, width, height = self.thing(name, role, window).area
        x += width // 2 if from_right is None else width - from_right
        self.server.run("xdotool", "mousemove", str(x), str(y + height // 2), "click", "1")

    def menus(self):
        """The items of each menu of the operator window, by its name."""
        bar = next(thing for thing in self.shown() if thing.role == "menu bar")
        return {menu.name: [item for item in menu.children[0].children
                            if item.role == "menu item"] for menu in bar.children}

    def rows(self):
        """The names of the rundown's rows and what is said of each, from the top down."""
        rundown = self.thing("Rundown", "list")
        return [(row.name, row.description) for row in rundown.children]

    def wait_for_rows(self, *names):
        def are_there():
            return [name for name, _ in self.rows()] == list(names)

        try:
            wait_until(are_there, "the rows", deadline=10)
        except AssertionError:
            self.assertEqual([name for name, _ in self.rows()], list(names))

    def wait_for_row(self, name, description):
        wait_until(lambda: (name, description) in self.rows(), f"{name} to be {description}")


def run():
    """Runs the tests of the main module and ends the process with what ctest understands."""
    result = unittest.main(exit=False, verbosity=2).result
    for test, reason in result.skipped:
        print(f"SKIP   : {test}: {reason}")
    if not result.wasSuccessful():
        sys.exit(1)
    if result.testsRun == len(result.skipped) or not result.testsRun:
        sys.exit(NOTHING_RAN if result.skipped else 1)
    sys.exit(0)
