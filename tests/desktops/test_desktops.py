"""The show on a real desktop: QUENARA_DESKTOP says on which, "sway" or "gnome"."""

import contextlib
import json
import os
import tempfile
import time
import unittest

from desktop import HEIGHT, WIDTH, Unavailable, wait_until
from gnome_shell import GnomeShell
from sway import Sway

# pylint: disable=wrong-import-order
from program import DISPLAY # noqa: E402
from show_case import EXECUTABLE, SHOW, SHOW_TITLE, run # noqa: E402

DESKTOP = {"gnome": GnomeShell, "sway": Sway}[os.environ["QUENARA_DESKTOP"]]
OPERATOR = "— Quenara" # a part of its title
SIDE_BY_SIDE = ((0, 0, 1, True), (1, WIDTH, 1, False))
FIRST_ALONE = ((0, 0, 1, True),)
LIT, EDGE, BLACK = b"\xff\x00\x00", b"\x00\xff\x00", b"\x00\x00\x00"
EDGE_WIDTH = 2 # canvas units, which are the pixels of a screen of the canvas's size
FOLLOWS_WITHIN = 1 # seconds
MENU_OPENS_WITHIN = 0.5 # seconds; it is tried again where it takes longer


def edged_show():
    """The show with a first slide of one colour, at the edges of another."""
    def color(red, green):
        return {"red": red, "green": green, "blue": 0, "alpha": 1}

    def edge(name, x, y, width, height):
        return {"id": name, "name": name, "kind": "shape", "rotation": 0, "opacity": 1,
                "locked": False, "visible": True, "zIndex": 1,
                "frame": {"x": x, "y": y, "width": width, "height": height},
                "shape": {"kind": "rectangle", "fill": color(0, 1), "strokeWidth": 0,
                          "cornerRadius": 0}}

    show = json.loads(SHOW.read_text(encoding="utf-8"))
    design = show["serviceItems"][0]["slides"][0]["design"]
    design["background"] |= {"kind": "solid", "solidColor": color(1, 0), "dimAmount": 0}
    design["elements"] = [
        edge("top", 0, 0, WIDTH, EDGE_WIDTH), edge("left", 0, 0, EDGE_WIDTH, HEIGHT),
        edge("bottom", 0, HEIGHT - EDGE_WIDTH, WIDTH, EDGE_WIDTH),
        edge("right", WIDTH - EDGE_WIDTH, 0, EDGE_WIDTH, HEIGHT)]
    return json.dumps(show)


def needs(ability):
    """Marks a test that only a desktop with that ability can be put to."""
    def mark(test):
        test.needs = ability
        return test

    return mark


class OnADesktop(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        try:
            cls.desktop = DESKTOP()
        except Unavailable as reason:
            raise unittest.SkipTest(str(reason)) from reason
        cls.addClassCleanup(cls.desktop.close)
        cls.executable = cls.desktop.hand_over(EXECUTABLE, 0o755)

    def setUp(self):
        if "unplug" in self.desktop.abilities:
            self.desktop.arrange(*SIDE_BY_SIDE)
        self.desktop.attend()
        show = self.desktop.folder / "show.quenara"
        show.write_text(edged_show(), encoding="utf-8")
        show.chmod(0o644)
        # Without what an earlier test has left unsaved.
        state = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-state-"))
        os.chmod(state, 0o777)
        self.program = self.desktop.spawn(self.executable, show, XDG_STATE_HOME=state)
        self.addCleanup(self.end)
        self.wait_for(lambda: self.window(OPERATOR), SHOW_TITLE)
        self.give_keyboard(OPERATOR)

    def end(self):
        self.program.end()
        wait_until(lambda: not self.window(OPERATOR), "the program's windows to go")

    def wait_for(self, condition, description, **options):
        def holds():
            if self.program.status() is not None:
                raise AssertionError(f"the program ended: {self.program.output()}")
            return condition()

        try:
            return wait_until(holds, description, **options)
        except AssertionError as what:
            raise AssertionError(f"{what}; windows: {self.desktop.windows()}; the program said: "
                                 f"{self.program.output()}") from what

    def window(self, title):
        return next((window for window in self.desktop.windows() if title in window[0]), None)

    def has_keyboard(self, title):
        window = self.window(title)
        return window and window[3]

    def give_keyboard(self, title):
        def has_it():
            self.desktop.give_keyboard(title)
            return self.has_keyboard(title)

        self.wait_for(has_it, f"{title} to have the keyboard")

    def switch_display(self):
        """By the first item of the menu, which is no window that the desktop tells of."""
        was_open = self.window(DISPLAY)

        def is_switched():
            self.desktop.press("alt+o")
            time.sleep(MENU_OPENS_WITHIN)
            self.desktop.press("Return")
            with contextlib.suppress(AssertionError):
                return wait_until(lambda: bool(self.window(DISPLAY)) != bool(was_open),
                                  "the display to open or close", deadline=5)
            self.desktop.press("Escape")
            return False

        self.wait_for(is_switched, "the display to open or close")

    def open_display(self):
        self.switch_display()
        self.wait_for_display()

    def is_in_place(self):
        """Whether the display covers the second screen, and nothing of it the first."""
        shown = [window for window in self.desktop.windows() if window[0] == DISPLAY]
        return [window[1:3] for window in shown] == [(1, True)]

    def wait_for_display(self):
        self.wait_for(self.is_in_place, "the display on the second screen")

    def shows(self, inside):
        """Whether the second screen shows the first slide, its edges sharp, or else one colour."""
        edge = EDGE if inside == LIT else inside
        corner = 2 * EDGE_WIDTH
        ends = [edge] * EDGE_WIDTH + [inside] * EDGE_WIDTH
        for x, y in ((0, 0), (WIDTH - corner, 0), (0, HEIGHT - corner),
                     (WIDTH - corner, HEIGHT - corner)):
            across = ends if x == 0 else ends[::-1]
            down = ends if y == 0 else ends[::-1]
            expected = b"".join(inside if row == column == inside else edge
                                for row in down for column in across)
            if self.desktop.pixels(1, x, y, corner, corner) != expected:
                return False
        return True

    def wait_for_slide(self):
        self.wait_for(lambda: self.shows(LIT), "the sharp slide on the second screen")

    def wait_for_black(self):
        self.wait_for(lambda: self.shows(BLACK), "a black second screen")

    def test_the_display_covers_the_second_screen_pixel_by_pixel(self):
        self.open_display()
        self.wait_for_slide()
        self.assertEqual(self.window(OPERATOR)[1], 0)

    def test_keys_work_from_each_window(self):
        self.open_display()
        self.wait_for_slide()
        for window in (DISPLAY, OPERATOR, DISPLAY):
            self.give_keyboard(window)
            self.desktop.press("b")
            self.wait_for_black()
            self.desktop.press("b")
            self.wait_for_slide()

    def test_the_display_closes(self):
        self.open_display()
        self.give_keyboard(OPERATOR)
        self.switch_display()
        self.assertIsNone(self.window(DISPLAY))

    @needs("unplug")
    def test_a_display_that_comes_back_leaves_the_keyboard_where_it_is(self):
        self.open_display()
        self.desktop.arrange(*FIRST_ALONE)
        self.wait_for(lambda: not self.window(DISPLAY), "the display to close")
        self.wait_for(lambda: self.has_keyboard(OPERATOR), "the operator to have the keyboard")
        self.desktop.arrange(*SIDE_BY_SIDE)
        self.wait_for_display()
        self.wait_for_slide()
        self.wait_for(lambda: self.has_keyboard(OPERATOR), "the operator to have the keyboard")

    def follows(self, *screens):
        """The display is in its place a second after a change, and sharp."""
        self.desktop.arrange(*screens)
        time.sleep(FOLLOWS_WITHIN) # what is told of the change comes by then, or too late
        self.wait_for(self.is_in_place, f"the display to follow {screens}", deadline=0.5)
        self.wait_for_slide()

    @needs("scale")
    def test_a_change_of_scale_leaves_the_display_in_its_place_and_sharp(self):
        self.open_display()
        for first, second in ((1, 2), (1, 1), (2, 1), (2, 2), (1, 2), (1, 1)):
            with self.subTest(first=first, second=second):
                self.follows((0, 0, first, True), (1, WIDTH, second, False))

    @needs("scale")
    def test_a_display_that_opens_on_a_scaled_screen_is_sharp(self):
        for first, second in ((1, 2), (2, 1)):
            with self.subTest(first=first, second=second):
                self.desktop.arrange((0, 0, first, True), (1, WIDTH, second, False))
                self.give_keyboard(OPERATOR)
                self.open_display()
                self.wait_for_slide()
                self.give_keyboard(OPERATOR)
                self.switch_display()

    @needs("primary")
    def test_a_change_of_the_primary_screen_leaves_the_display_in_its_place(self):
        self.open_display()
        self.follows((0, 0, 1, False), (1, WIDTH, 1, True))
        self.follows(*SIDE_BY_SIDE)


def load_tests(loader, _tests, _pattern):
    """Those that the desktop can be put to. The others are named, with the reason."""
    chosen = unittest.TestSuite()
    for test in loader.loadTestsFromTestCase(OnADesktop):
        name = test.id().rpartition(".")[2]
        ability = getattr(getattr(test, name), "needs", None)
        if ability is None or ability in DESKTOP.abilities:
            chosen.addTest(test)
        else:
            print(f"left out: {name}: {DESKTOP.__name__} has no {ability} without a monitor")
    return chosen


if __name__ == "__main__":
    run()
