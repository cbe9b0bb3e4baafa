"""Screens that would go dark by themselves, and stay on while the audience watches one. No service
of a session is there to be asked: the server alone decides."""

from Xlib.display import Display
from Xlib.ext.screensaver import StateOn

from processes import wait_until
from program import DISPLAY
from show_case import TwoScreenCase, run

UNTOUCHED = 1  # second after which the server blanks its screens
FAR_LONGER = 4


class AwakeScreens(TwoScreenCase):
    def setUp(self):
        self.server_display = Display(self.server.display)
        self.addCleanup(self.server_display.close)
        self.blank_after(UNTOUCHED)
        self.addCleanup(self.blank_after, 0)
        self.program = self.start_show()

    def blank_after(self, seconds):
        self.server_display.set_screen_saver(seconds, 0, True, False)
        self.server_display.sync()

    def told(self):
        return self.server_display.screen().root.screensaver_query_info()

    def wait_until_dark(self):
        wait_until(lambda: self.told().state == StateOn, "the screens to go dark")

    def stay_on(self):
        wait_until(lambda: self.told().idle > 1000 * FAR_LONGER, "nobody to have touched anything")
        self.assertNotEqual(self.told().state, StateOn)

    def test_the_screens_stay_on_while_the_display_is_open_and_no_longer(self):
        self.wait_until_dark()
        self.program.open_display()
        self.stay_on()
        self.see_slide(0)
        self.program.toggle_display()
        self.program.wait_for_no_window(DISPLAY)
        self.wait_until_dark()

    def test_the_screens_may_go_dark_once_the_program_has_crashed(self):
        self.program.open_display()
        self.stay_on()
        self.program.kill()
        self.wait_until_dark()


if __name__ == "__main__":
    run()
