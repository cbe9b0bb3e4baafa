"""The bare keys that run a service, pressed in each window of the program."""

from program import DISPLAY, OPERATOR, SETTINGS, STAGE
from show_case import BLACK, BLACK_HASH, TwoScreenCase, run, slide_hash, slide_image

AMBER = bytes((0xF0, 0xB8, 0x4A))
BAR_WIDTH = 360
BAR_HEIGHT = 6
SCREEN_WIDTH = 1920


def rows_with_the_bar(image):
    """How many rows show the holding screen's amber bar in their middle."""
    margin = (SCREEN_WIDTH - BAR_WIDTH) // 2
    row = bytes(3 * margin) + AMBER * BAR_WIDTH + bytes(3 * margin)
    length = len(row)
    return sum(image[start:start + length] == row for start in range(0, len(image), length))


class Keys:
    """The tests for one focused window."""

    focused = None

    def setUp(self):
        program = self.start_show()
        program.open_stage()
        program.open_display()
        self.see_slide(0)
        program.focus(self.focused)

    def press_and_see(self, *steps):
        """Each step is the keys to press and the place of the slide that is live then."""
        for keys, index in steps:
            with self.subTest(keys=keys):
                self.program.press(*keys.split())
                self.see_slide(index)

    def test_arrows_and_page_keys_step_through_the_show(self):
        self.press_and_see(("Right", 1), ("Page_Down", 2), ("Right", 3), ("Left", 2),
                           ("Page_Up", 1), ("Left", 0))

    def test_after_the_last_slide_comes_the_first_and_before_the_first_there_is_none(self):
        self.press_and_see(("Right Right Right", 3), ("Right", 0), ("Left", 0), ("Right", 1))

    def test_up_and_down_queue_and_space_return_and_enter_go_live(self):
        self.press_and_see(("Down", 0), ("space", 1), ("Down", 1), ("Return", 2), ("Down", 2),
                           ("KP_Enter", 3), ("Up", 3), ("Return", 2), ("Up Up", 2), ("space", 0))

    def test_b_blacks_the_screen_out_and_brings_the_same_slide_back(self):
        self.press_and_see(("Right", 1))
        self.program.press("b")
        self.see_black()
        self.press_and_see(("b", 1))

    def test_l_shows_the_same_holding_screen_whatever_slide_is_live(self):
        seen = []
        for index in (0, 1):
            self.program.press("l")
            seen.append(self.wait_for_holding_screen())
            self.press_and_see(("l", index), ("Right", index + 1))
        self.assertEqual(seen[0], seen[1])

    def test_b_and_l_replace_each_other_and_going_live_ends_both(self):
        self.program.press("l")
        holding = self.wait_for_holding_screen()
        self.program.press("b")
        self.see_black()
        self.program.press("l")
        self.see(holding, "the holding screen")
        self.press_and_see(("space", 0))

    def wait_for_holding_screen(self):
        self.see_not(slide_image(0), slide_image(1), BLACK)
        screen = self.settled_screenshot()
        self.assertEqual(rows_with_the_bar(screen), BAR_HEIGHT)
        return screen


class KeysInTheOperatorWindow(Keys, TwoScreenCase):
    focused = OPERATOR


class KeysInTheDisplayWindow(Keys, TwoScreenCase):
    focused = DISPLAY


class KeysInTheStageWindow(Keys, TwoScreenCase):
    focused = STAGE


class KeysInTheSettings(TwoScreenCase):
    def test_no_key_without_a_modifier_changes_what_is_shown_or_queued(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        program.focus(OPERATOR)
        program.press("Down", "Down", "ctrl+comma")
        program.focus(SETTINGS)
        for from_choice in (False, True):
            for key in ("space", "Return", "KP_Enter", "Right", "Left", "Down", "Up",
                        "Page_Down", "Page_Up", "b", "l"):
                with self.subTest(key=key, from_choice=from_choice):
                    program.press(key)
                    self.see_slide(0)
            program.press("Tab")
        # The other windows keep their keys, and have what was queued before.
        program.focus(DISPLAY)
        program.press("Return")
        self.see_slide(2)
        self.assertIsNotNone(program.window(SETTINGS))


class HeldKeys(TwoScreenCase):
    """The server repeats a key that is held down; the program takes one press as one step."""

    def setUp(self):
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        program.focus(OPERATOR)

    def test_the_server_repeats_a_held_letter(self):
        self.program.click_project_name()
        self.program.press("ctrl+a")
        self.see_while_held("x", slide_hash(0))
        self.program.press("Return")
        self.program.wait_for_window("xx+ — Quenara")

    def test_a_held_arrow_is_one_step(self):
        self.see_while_held("Right", slide_hash(0), slide_hash(1))

    def test_a_held_down_arrow_queues_one_slide_on(self):
        self.see_while_held("Down", slide_hash(0))
        self.program.press("space")
        self.see_slide(1)

    def test_a_held_b_blacks_out_for_good(self):
        self.see_while_held("b", slide_hash(0), BLACK_HASH)
        self.program.press("b")
        self.see_slide(0)


if __name__ == "__main__":
    run()
