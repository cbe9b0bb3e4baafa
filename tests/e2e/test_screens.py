"""Screens that come, go and change under the audience display during a show."""

import contextlib
import random
import time

from processes import wait_until
from program import DISPLAY, OPERATOR, STAGE, Program
from screen_watch import ScreenWatch
from show_case import TwoScreenCase, run
from xserver import FIRST_SCREEN, SCREEN_HEIGHT, SCREEN_WIDTH, SECOND_SCREEN, THIRD_SCREEN

SLIDES = 4
CORNER_OF_FIRST_SCREEN = (64, 64, 0, 0)  # beside the operator window
CYCLES = 100


class Screens(TwoScreenCase):
    def setUp(self):
        super().setUp()
        self.addCleanup(self.server.plug_second_screen)

    def start_showing(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        program.focus(OPERATOR)
        return program

    def see_the_operator_window(self, program):
        """Passes once the window has the keyboard and no display lies over it."""
        self.assertIsNone(program.window(DISPLAY))
        wait_until(lambda: "Evening Show" in program.focused_title(), "the operator window")

    def test_a_display_whose_screen_is_unplugged_closes_and_comes_back_with_it(self):
        program = self.start_showing()
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.see_the_operator_window(program)
        program.press("Right", "Right")
        self.server.plug_second_screen()
        self.see_slide(2)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def test_a_display_that_comes_back_leaves_the_keyboard_where_it_is(self):
        program = self.start_showing()
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        program.click_project_name()
        program.press("ctrl+a")
        program.type("Morning ")
        self.server.plug_second_screen()
        program.wait_for_window(DISPLAY)
        self.see_slide(0)
        program.type("show")
        program.press("Return")
        program.wait_for_window("Morning show — Quenara")
        self.see_slide(0)

    def test_a_display_closed_by_command_does_not_come_back_with_a_screen(self):
        program = self.start_showing()
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        program.open_display()
        self.assertEqual(program.area(DISPLAY), FIRST_SCREEN)
        program.toggle_display()
        program.wait_for_no_window(DISPLAY)
        self.server.plug_second_screen()
        program.wait_until_at_rest()
        self.see_the_operator_window(program)

    def test_a_display_opened_on_the_only_screen_stays_there_when_another_comes(self):
        self.server.unplug_second_screen()
        program = self.start_show()
        program.open_display()
        self.see_slide(0, FIRST_SCREEN)
        self.server.plug_second_screen()
        program.wait_until_at_rest()
        self.assertEqual(program.area(DISPLAY), FIRST_SCREEN)

    def test_a_display_whose_screen_is_unplugged_goes_to_a_third_one(self):
        self.server.plug_third_screen()
        self.addCleanup(self.server.unplug_third_screen)
        program = self.start_showing()
        self.server.unplug_second_screen()
        self.see_slide(0, THIRD_SCREEN)
        self.assertEqual(program.area(DISPLAY), THIRD_SCREEN)

    def test_a_display_that_has_gone_to_another_screen_keeps_the_keys_of_the_show(self):
        self.server.plug_third_screen()
        self.addCleanup(self.server.unplug_third_screen)
        program = self.start_showing()
        self.server.unplug_second_screen()
        self.see_slide(0, THIRD_SCREEN)
        program.focus(DISPLAY)
        program.press("Right")
        self.see_slide(1, THIRD_SCREEN)

    def test_a_display_stays_on_its_screen_when_the_operators_goes_and_comes_back(self):
        program = self.start_showing()
        self.addCleanup(self.server.plug_first_screen)
        self.server.unplug_first_screen()
        self.see_slide(0, FIRST_SCREEN)
        self.assertEqual(program.area(DISPLAY), FIRST_SCREEN)
        self.server.plug_first_screen()
        self.server.plug_second_screen()
        self.see_slide(0)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def test_a_display_covers_its_screen_at_every_resolution(self):
        program = self.start_showing()
        for size in ((1280, 720), (1024, 768), (SCREEN_WIDTH, SCREEN_HEIGHT)):
            self.server.plug_second_screen(size)
            area = (*size, SCREEN_WIDTH, 0)
            self.see_slide(0, area)
            wait_until(lambda area=area: program.area(DISPLAY) == area, f"the display on {area}")

    def test_a_display_follows_its_screen_to_another_place(self):
        program = self.start_showing()
        below = (SCREEN_WIDTH, SCREEN_HEIGHT, 0, SCREEN_HEIGHT)
        self.server.plug_second_screen(x=below[2], y=below[3])
        self.see_slide(0, below)
        self.assertEqual(program.area(DISPLAY), below)

    def test_a_display_whose_screen_becomes_a_mirror_closes_and_comes_back_after_it(self):
        program = self.start_showing()
        self.server.mirror_first_screen()
        program.wait_for_no_window(DISPLAY)
        self.see_the_operator_window(program)
        self.server.plug_second_screen()
        self.see_slide(0)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def test_a_display_opened_on_a_mirror_is_let_go_by_the_window_manager_after_it(self):
        self.server.mirror_first_screen()
        program = self.start_show()
        program.open_display()
        self.see_slide(0, FIRST_SCREEN)
        self.assertTrue(program.is_managed(DISPLAY))
        self.server.plug_second_screen()
        self.see_slide(0)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        wait_until(lambda: not program.is_managed(DISPLAY), "the window manager to let it go")
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.see_the_operator_window(program)

    def test_a_display_never_goes_to_the_screen_with_the_operator_window_by_itself(self):
        self.see_the_display_keep_off_the_third_screen(contextlib.nullcontext)

    def test_a_display_does_not_stay_where_the_operator_window_has_come_to_meanwhile(self):
        self.see_the_display_keep_off_the_third_screen(Program.stopped)

    def see_the_display_keep_off_the_third_screen(self, meanwhile):
        """Moves the operator window to the third screen and takes the second away."""
        self.server.plug_third_screen()
        self.addCleanup(self.server.unplug_third_screen)
        program = self.start_showing()
        with meanwhile(program):
            program.move(OPERATOR, THIRD_SCREEN[2] + 40, 40)
            self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.server.plug_second_screen()
        self.see_slide(0)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def test_a_display_does_not_come_back_on_a_mirror_of_the_operators_screen(self):
        program = self.start_showing()
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.server.mirror_first_screen()
        program.wait_until_at_rest()
        self.see_the_operator_window(program)
        self.server.plug_second_screen()
        self.see_slide(0)
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def put_stage_on_third_screen(self, program):
        self.server.plug_third_screen()
        self.addCleanup(self.server.unplug_third_screen)
        program.open_stage()
        program.move(STAGE, THIRD_SCREEN[2] + 120, 90)
        program.focus(OPERATOR)
        program.wait_until_at_rest()
        return program.area(STAGE)

    def test_a_stage_monitor_whose_screen_is_unplugged_closes_and_comes_back_where_it_was(self):
        program = self.start_showing()
        place = self.put_stage_on_third_screen(program)
        self.server.unplug_third_screen()
        program.wait_for_no_window(STAGE)
        wait_until(lambda: "Evening Show" in program.focused_title(), "the operator window")
        self.server.plug_third_screen()
        program.wait_for_window(STAGE)
        wait_until(lambda: program.area(STAGE) == place, f"{place} to be the stage monitor's")
        self.assertIn("Evening Show", program.focused_title())
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)

    def test_a_stage_monitor_that_filled_its_screen_fills_it_again_and_keeps_its_window(self):
        program = self.start_showing()
        place = self.put_stage_on_third_screen(program)

        def see_stage_at(area):
            wait_until(lambda: program.area(STAGE) == area, f"{area} to be the stage monitor's")

        program.press("F11")
        see_stage_at(THIRD_SCREEN)
        wait_until(lambda: "Evening Show" in program.focused_title(), "the operator window")
        program.wait_until_at_rest()
        self.server.unplug_third_screen()
        program.wait_for_no_window(STAGE)
        self.server.plug_third_screen()
        program.wait_for_window(STAGE)
        see_stage_at(THIRD_SCREEN)
        wait_until(lambda: "Evening Show" in program.focused_title(), "the operator window")
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        program.press("F11")
        see_stage_at(place)

    def test_a_stage_monitor_waits_for_its_own_screen(self):
        program = self.start_showing()
        self.put_stage_on_third_screen(program)
        self.server.unplug_third_screen()
        program.wait_for_no_window(STAGE)
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        self.server.plug_second_screen()
        self.see_slide(0)
        program.wait_until_at_rest()
        self.assertIsNone(program.window(STAGE))

    def test_a_stage_monitor_beside_the_operator_window_stays_when_another_screen_goes(self):
        program = self.start_showing()
        program.open_stage()
        place = program.area(STAGE)
        self.server.unplug_second_screen()
        program.wait_for_no_window(DISPLAY)
        program.wait_until_at_rest()
        self.assertEqual(program.area(STAGE), place)

    def test_a_screen_unplugged_and_plugged_a_hundred_times_changes_nothing_of_the_show(self):
        program = self.start_showing()
        self.see_slide(0)
        chance = random.Random(1)
        live = 0
        operator_area = program.area(OPERATOR)
        with ScreenWatch(self.server, CORNER_OF_FIRST_SCREEN) as corner:
            uncovered = corner.frames()[0].hash
            for cycle in range(CYCLES):
                self.server.unplug_second_screen()
                # A screen may come or go at any moment.
                time.sleep(chance.uniform(0, 0.3))
                if chance.random() < 0.5:
                    program.press("Right")
                    live = (live + 1) % SLIDES
                if cycle % 10 == 9:
                    program.wait_for_no_window(DISPLAY)
                self.server.plug_second_screen()
                if chance.random() < 0.5:
                    self.see_slide(live)
                time.sleep(chance.uniform(0, 0.5))
                self.assertIsNone(program.status(), program.output())
            self.see_slide(live)
            self.assertEqual({frame.hash for frame in corner.frames()}, {uncovered})
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        self.assertEqual(program.area(OPERATOR), operator_area)
        self.assertEqual(sorted(program.windows().values()),
                         ["Evening Show — Quenara", "Quenara Display"])


if __name__ == "__main__":
    run()
