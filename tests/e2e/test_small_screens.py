"""Where the operator's window opens: whole on a small screen, and where it was the last time."""

import re
import tempfile
from pathlib import Path

from processes import wait_until
from program import OPERATOR, STAGE
from show_case import SHOW, TwoScreenCase, run
from xserver import SCREEN_HEIGHT, SCREEN_WIDTH

# From the lower right corner of the window to the middle of the button for the stage monitor.
MONITOR_BUTTON = (46, 66)


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

    def outer_area(self):
        """(left, top, right, bottom) of the window with its frame."""
        window = self.program.wait_for_window(OPERATOR)
        # xdotool counts the frame twice where a window manager has put the window into one.
        answer = self.server.run("xwininfo", "-id", window).decode()
        x, y, width, height = (
            int(re.search(rf"{name}:\s*(-?\d+)", answer).group(1))
            for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        answer = self.server.run("xprop", "-id", window, "_NET_FRAME_EXTENTS").decode()
        left, right, top, bottom = map(int, re.findall(r"\d+", answer))
        return (x - left, y - top, x + width + right, y + height + bottom)

    def assert_within(self, width, height):
        def is_within():
            left, top, right, bottom = self.outer_area()
            return left >= 0 and top >= 0 and right <= width and bottom <= height

        wait_until(is_within, f"the window to lie within {width} by {height}", deadline=5)

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
                ((1920, 1080), {"QT_SCALE_FACTOR": "1.5"}),
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
        self.server.run("wmctrl", "-i", "-r", program.wait_for_window(OPERATOR), "-b",
                        "add,maximized_vert,maximized_horz")
        wait_until(lambda: program.area(OPERATOR)[0] > 1800, "the window to be maximized")
        before = self.settled_area()
        self.quit()
        program = self.start_again()
        self.assertEqual(self.settled_area(), before)
        self.server.run("wmctrl", "-i", "-r", program.wait_for_window(OPERATOR), "-b",
                        "remove,maximized_vert,maximized_horz")
        wait_until(lambda: program.area(OPERATOR)[:2] == (1300, 840), "its own size to come back")
        self.quit()

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
        self.assertEqual([file.name for file in Path(self.state, "Quenara").iterdir()],
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
