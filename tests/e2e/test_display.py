"""The audience display: which screen it covers, and with what."""

import time

from processes import wait_until
from program import DISPLAY, OPERATOR
from show_case import TwoScreenCase, run
from xserver import FIRST_SCREEN, SECOND_SCREEN


class Display(TwoScreenCase):
    def test_it_covers_the_second_screen_with_the_live_slide_and_nothing_else(self):
        program = self.start_show()
        program.open_display()
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        self.see_slide(0)

    def test_it_covers_the_second_screen_with_the_operator_window_on_it(self):
        program = self.start_show()
        program.move(OPERATOR, SECOND_SCREEN[2] + 40, 40)
        program.open_display()
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        self.see_slide(0)

    def test_every_slide_of_the_show_is_painted_as_the_renderer_paints_it(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        for index in (1, 2, 3):
            program.press("Right")
            self.see_slide(index)

    def test_the_menu_item_that_opened_it_closes_it(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        program.toggle_display()
        program.wait_for_no_window(DISPLAY)
        self.see_black()
        self.assertIsNone(program.status())

    def test_it_opens_with_what_became_live_while_it_was_closed(self):
        program = self.start_show()
        program.focus(OPERATOR)
        program.press("Right", "Right")
        program.open_display()
        self.see_slide(2)

    def test_it_covers_the_only_screen_there_is(self):
        self.server.unplug_second_screen()
        self.addCleanup(self.server.plug_second_screen)
        program = self.start_show()
        program.open_display()
        self.assertEqual(program.area(DISPLAY), FIRST_SCREEN)
        self.see_slide(0, FIRST_SCREEN)

    def test_closed_by_the_desktop_on_the_only_screen_it_leaves_the_program_running(self):
        self.server.unplug_second_screen()
        self.addCleanup(self.server.plug_second_screen)
        program = self.start_show()
        program.open_display()
        program.close_window(DISPLAY)
        program.wait_for_no_window(DISPLAY)
        program.open_display()
        self.assertIsNone(program.status())

    def test_on_the_only_screen_escape_pressed_twice_leaves_it(self):
        self.server.unplug_second_screen()
        self.addCleanup(self.server.plug_second_screen)
        program = self.start_show()
        program.open_display()
        program.press("Escape")
        time.sleep(1.2)  # so that it no longer counts
        self.see_slide(0, FIRST_SCREEN)
        program.press("Escape", "Escape")
        program.wait_for_no_window(DISPLAY)
        self.assertIsNone(program.status())

    def test_escape_counts_as_pressed_twice_by_when_the_key_went_down(self):
        self.server.unplug_second_screen()
        self.addCleanup(self.server.plug_second_screen)
        program = self.start_show()
        program.open_display()
        with program.stopped():
            program.press("Escape")
            time.sleep(1.2)
            program.press("Escape")
        program.wait_until_at_rest()
        self.see_slide(0, FIRST_SCREEN)
        program.press("x", "Escape")  # of which the first starts afresh
        with program.stopped():
            program.press("Escape")
            time.sleep(1.2)
        program.wait_for_no_window(DISPLAY)

    def test_beside_the_operator_escape_does_not_close_it(self):
        program = self.start_show()
        program.open_display()
        program.focus(DISPLAY)
        program.press("Escape", "Escape", "Escape")
        self.see_slide(0)

    def test_opened_again_it_covers_the_screen_plugged_in_meanwhile(self):
        self.server.unplug_second_screen()
        self.addCleanup(self.server.plug_second_screen)
        program = self.start_show()
        program.open_display()
        self.see_slide(0, FIRST_SCREEN)
        program.toggle_display()
        program.wait_for_no_window(DISPLAY)
        self.server.plug_second_screen()
        program.open_display()
        self.assertEqual(program.area(DISPLAY), SECOND_SCREEN)
        self.see_slide(0)

    def test_the_pointer_is_hidden_over_it_and_over_no_other_window(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        program.point_at(OPERATOR)
        wait_until(lambda: self.server.windows.pointer_is_visible(), "a pointer to be seen")
        program.point_at(DISPLAY)
        wait_until(lambda: not self.server.windows.pointer_is_visible(), "no pointer to be seen")


if __name__ == "__main__":
    run()
