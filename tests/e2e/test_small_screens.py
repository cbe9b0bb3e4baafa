"""Where the operator's window opens: whole on a small screen, and where it was the last time."""

import re
import tempfile
from pathlib import Path

from processes import wait_until
from program import (OPERATOR, PASTE_SONG, PROJECT_NAME, SAVE_PANEL, SONG_IMPORT, STAGE, START_PANEL,
                     TEXT_COLOR)
from show_case import SHOW, TwoScreenCase, run
from xserver import SCREEN_HEIGHT, SCREEN_WIDTH

# How many controls lie between the colour of the selected text and the project's name.
COLOUR_BEFORE_NAME = 15
# From the lower right corner of the window to the button for the stage monitor.
MONITOR_BUTTON = (46, 46)
RESTARTS = 10


class SmallScreens(TwoScreenCase):
    def setUp(self):
        super().setUp()
        self.state = self.enterContext(tempfile.TemporaryDirectory())
        self.addCleanup(self.server.plug_second_screen)
        self.addCleanup(self.server.plug_first_screen)

    def start_again(self, **environment):
        """A start of the program that knows of those before it in the same test."""
        return self.start(SHOW, environment={"XDG_STATE_HOME": self.state} | environment)

    def quit(self):
        self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())

    def outer_area(self, title=OPERATOR):
        """(left, top, right, bottom) of a window with its frame."""
        window = self.program.wait_for_window(title)
        width, height, x, y = self.server.windows.area(window)
        answer = self.server.run("xprop", "-id", window, "_NET_FRAME_EXTENTS").decode()
        left, right, top, bottom = map(int, re.findall(r"\d+", answer))
        return (x - left, y - top, x + width + right, y + height + bottom)

    def assert_within(self, width, height, title=OPERATOR):
        def is_within():
            left, top, right, bottom = self.outer_area(title)
            return left >= 0 and top >= 0 and right <= width and bottom <= height

        try:
            wait_until(is_within, "it", deadline=5)
        except AssertionError:
            self.fail(f"{title} covers {self.outer_area(title)}, not within {width} by {height}")

    def settled_area(self):
        """Where the window lies, once the window manager leaves it there."""
        seen = [None]

        def stays():
            area = self.program.area(OPERATOR)
            seen.append(area)
            return area if seen[-3:] == [area] * 3 else None

        return wait_until(stays, "the window to stay in its place")

    def test_the_first_window_lies_on_a_small_screen_with_all_of_the_transport_bar(self):
        self.server.unplug_second_screen()
        for size, environment in (
                ((1366, 768), {}), ((1280, 720), {}),
                ((1366, 768), {"QT_FONT_DPI": "144"}), ((1280, 720), {"QT_SCALE_FACTOR": "1.5"}),
                ((1920, 1080), {"QT_SCALE_FACTOR": "1.5"}),
                ((1366, 768), {"QT_SCALE_FACTOR": "2"}), ((1280, 720), {"QT_SCALE_FACTOR": "2"}),
                ((1920, 1080), {"QT_FONT_DPI": "120"}), ((1920, 1080), {"QT_FONT_DPI": "144"})):
            with self.subTest(size=size, **environment):
                self.server.plug_first_screen(size)
                scale = (float(environment.get("QT_SCALE_FACTOR", 1))
                         * int(environment.get("QT_FONT_DPI", 96)) / 96)
                program = self.start(SHOW, environment=environment)
                self.assert_within(*size)
                width, height, *_ = self.settled_area()
                right, bottom = MONITOR_BUTTON
                program.click(int(width - right * scale), int(height - bottom * scale))
                program.wait_for_window(STAGE)
                self.quit()

    def test_the_window_comes_back_where_it_was_on_its_screen(self):
        for x in (120, SCREEN_WIDTH + 80):
            with self.subTest(x=x):
                program = self.start_again()
                program.resize(OPERATOR, 1300, 840)
                program.move(OPERATOR, x, 90)
                before = self.settled_area()
                self.quit()
                self.start_again()
                self.assertEqual(self.settled_area(), before)
                self.quit()

    def test_a_maximized_window_comes_back_maximized(self):
        program = self.start_again()
        program.resize(OPERATOR, 1300, 840)
        program.move(OPERATOR, SCREEN_WIDTH + 80, 90)
        self.change_maximized("add")
        wait_until(lambda: program.area(OPERATOR)[0] > 1800, "the window to be maximized")
        before = self.settled_area()
        self.quit()
        program = self.start_again()
        self.assertEqual(self.settled_area(), before)
        self.change_maximized("remove")
        wait_until(lambda: program.area(OPERATOR)[:2] == (1300, 840), "its own size to come back")
        self.quit()

    def test_a_maximized_window_that_is_opened_again_and_again_keeps_its_own_place(self):
        program = self.start_again()
        program.resize(OPERATOR, 1300, 840)
        program.move(OPERATOR, 200, 90)
        own = self.settled_area()
        self.change_maximized("add")
        self.quit()
        for _ in range(3):
            self.start_again()
            self.settled_area()
            self.quit()
        self.start_again()
        self.settled_area()
        self.change_maximized("remove")
        # The window manager counts its frame's edge otherwise for a window that opens maximized.
        for pixel, was in zip(self.settled_area(), own):
            self.assertLessEqual(abs(pixel - was), 1)
        self.quit()

    def test_a_window_that_is_not_touched_never_creeps(self):
        for scale in ("1.25", "1.5", "1.75"):
            with self.subTest(scale=scale):
                program = self.start_again(QT_SCALE_FACTOR=scale)
                program.resize(OPERATOR, 1800, 990)
                program.move(OPERATOR, 101, 41)
                moved = self.settled_area()
                self.quit()
                places = []
                for _ in range(RESTARTS):
                    self.start_again(QT_SCALE_FACTOR=scale)
                    places.append(self.settled_area())
                    self.quit()
                self.assertEqual(set(places), {places[0]})
                # There is not a point for every pixel.
                for pixel, was in zip(places[0], moved):
                    self.assertLessEqual(abs(pixel - was), float(scale))

    def test_an_open_window_comes_within_a_screen_that_becomes_smaller(self):
        self.server.unplug_second_screen()
        self.start(SHOW)
        for size in ((1366, 768), (1280, 720)):
            with self.subTest(size=size):
                self.server.plug_first_screen()
                self.program.resize(OPERATOR, 1600, 950)
                self.program.move(OPERATOR, 250, 80)
                self.settled_area()
                self.server.plug_first_screen(size)
                self.assert_whole(*size)

    def test_an_open_window_comes_within_the_screen_that_is_left(self):
        for size in ((1920, 1080), (1366, 768)):
            with self.subTest(size=size):
                self.server.plug_first_screen(size)
                self.server.plug_second_screen(x=size[0])
                program = self.start(SHOW)
                program.resize(OPERATOR, 1600, 950)
                program.move(OPERATOR, size[0] + 250, 80)
                self.settled_area()
                self.server.unplug_second_screen()
                self.assert_whole(*size)
                self.quit()

    def test_an_open_window_that_is_maximized_stays_so_on_a_screen_that_becomes_smaller(self):
        self.server.unplug_second_screen()
        self.start(SHOW)
        self.change_maximized("add")
        self.server.plug_first_screen((1366, 768))
        self.assert_whole(1366, 768)
        self.assertIn("_NET_WM_STATE_MAXIMIZED_HORZ", self.server.run(
            "xprop", "-id", self.program.wait_for_window(OPERATOR), "_NET_WM_STATE").decode())
        self.quit()

    def test_an_alert_that_is_open_comes_within_a_screen_that_becomes_smaller(self):
        self.server.unplug_second_screen()
        program = self.start(SHOW)
        program.resize(OPERATOR, 1480, 900)
        program.move(OPERATOR, 420, 120)
        program.focus(OPERATOR)
        program.press("ctrl+n")
        program.wait_for_window(START_PANEL)
        self.server.plug_first_screen((1366, 768))
        self.assert_within(1366, 768, START_PANEL)
        self.assert_within(1366, 768)

    def test_what_is_asked_lies_whole_on_the_smallest_screen(self):
        self.server.unplug_second_screen()
        for size in ((1366, 768), (1280, 720)):
            self.server.plug_first_screen(size)
            program = self.start(SHOW, environment={"QT_SCALE_FACTOR": "2"})
            for title, ask in (
                    (START_PANEL, lambda: program.press("ctrl+n")),
                    (SAVE_PANEL, lambda: program.press("ctrl+shift+s")),
                    (SONG_IMPORT, lambda: program.click(*(2 * place for place in PASTE_SONG)))):
                with self.subTest(size=size, title=title):
                    program.focus(OPERATOR)
                    ask()
                    program.focus(title)
                    self.assert_within(*size, title)
                    program.press("Escape")
                    program.wait_for_no_window(title)
            self.quit()

    def test_a_colour_is_chosen_on_the_smallest_screen(self):
        self.server.unplug_second_screen()
        for size in ((1366, 768), (1280, 720)):
            with self.subTest(size=size):
                self.server.plug_first_screen(size)
                program = self.start(SHOW, environment={"QT_SCALE_FACTOR": "2"})
                program.click(*(2 * place for place in PROJECT_NAME))
                program.press(*["shift+Tab"] * COLOUR_BEFORE_NAME, "ctrl+space")
                program.wait_for_focus(TEXT_COLOR)
                self.assert_within(*size, TEXT_COLOR)
                program.press("Escape")
                program.wait_for_no_window(TEXT_COLOR)
                self.quit()

    def change_maximized(self, change):
        # It remembers the place that it has been told of by then.
        self.program.wait_until_at_rest()
        self.server.run("wmctrl", "-i", "-r", self.program.wait_for_window(OPERATOR), "-b",
                        f"{change},maximized_vert,maximized_horz")
        self.settled_area()

    def assert_whole(self, width, height):
        """Passes once the window lies on the screen with all of its bars: the button in its lower
        right corner is there and works."""
        self.assert_within(width, height)
        width, height, *_ = self.settled_area()
        right, bottom = MONITOR_BUTTON
        self.program.click(width - right, height - bottom)
        self.program.wait_for_window(STAGE)
        self.program.close_window(STAGE)
        self.program.wait_for_no_window(STAGE)

    def test_a_window_whose_screen_is_gone_comes_back_within_the_one_that_is_left(self):
        program = self.start_again()
        program.move(OPERATOR, SCREEN_WIDTH + 80, 90)
        self.settled_area()
        self.quit()
        self.server.unplug_second_screen()
        self.server.plug_first_screen((1366, 768))
        self.start_again()
        self.assert_within(1366, 768)
        self.quit()

    def test_what_is_remembered_is_state_and_no_preference(self):
        program = self.start_again()
        program.wait_for_window(OPERATOR)
        self.quit()
        self.assertEqual([file.name for file in Path(self.state, "Quenara").iterdir()
                          if file.is_file()],
                         ["operator-window.json"])

    def test_a_damaged_memory_does_not_keep_the_program_from_its_screen(self):
        file = Path(self.state, "Quenara", "operator-window.json")
        file.parent.mkdir()
        for content in (b"", b"[" * 5000, b'{"x": 1e999}', bytes(range(256))):
            with self.subTest(content=content[:8]):
                file.write_bytes(content)
                self.start_again()
                self.assert_within(2 * SCREEN_WIDTH, SCREEN_HEIGHT)
                self.quit()


if __name__ == "__main__":
    run()
