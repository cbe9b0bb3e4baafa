"""Keys that go into a text field run no command."""

from program import OPERATOR
from show_case import TwoScreenCase, run

LIVE = 1
QUEUED = 2


class TextInput(TwoScreenCase):
    def setUp(self):
        program = self.start_show()
        program.open_display()
        program.focus(OPERATOR)
        program.press("Right", "Down")
        self.see_slide(LIVE)
        program.click_project_name()
        program.press("ctrl+a")

    def see_nothing_moved(self):
        """The slide that was live still is, and the one that was queued is the next to go live."""
        self.see_slide(LIVE)
        self.program.press("space")
        self.see_slide(QUEUED)

    def test_letters_and_spaces_are_text(self):
        self.program.press(*"bl", "space", *"lb", "Return")
        self.program.wait_for_window("bl lb — Quenara")
        self.see_nothing_moved()

    def test_arrows_and_page_keys_are_for_the_field(self):
        self.program.press("b", "Right", "Left", "Left", "l", "Up", "Down", "Page_Down",
                           "Page_Up", "Return")
        self.program.wait_for_window("lb — Quenara")
        self.see_nothing_moved()

    def test_return_and_enter_end_the_edit_and_send_nothing_live(self):
        for key, letter in (("Return", "b"), ("KP_Enter", "l")):
            self.program.click_project_name()
            self.program.press("ctrl+a", letter, key)
            self.program.wait_for_window(f"{letter} — Quenara")
            self.see_slide(LIVE)
        self.see_nothing_moved()

    def test_a_field_that_nobody_types_into_does_nothing_but_blink(self):
        self.program.press("b")
        self.program.wait_until_at_rest()
        self.program.press("Escape")
        self.see_nothing_moved()

    def test_escape_takes_the_edit_back(self):
        self.program.press("b", "l", "Escape")
        self.see_nothing_moved()
        self.assertIsNotNone(self.program.window("Evening Show — Quenara"))


if __name__ == "__main__":
    run()
