"""The program's windows: opening, closing, and what ends with them."""

from program import ABOUT, DISPLAY, OPERATOR, SETTINGS, STAGE, START_PANEL
from show_case import ShowCase, run


class Windows(ShowCase):
    def test_the_stage_window_closed_by_its_button_opens_again(self):
        program = self.start_show()
        for _ in range(2):
            program.open_stage()
            program.close_window(STAGE)
            program.wait_for_no_window(STAGE)
        self.assertIsNone(program.status())

    def test_the_menu_item_that_opened_the_stage_window_closes_it(self):
        program = self.start_show()
        program.open_stage()
        program.toggle_stage()
        program.wait_for_no_window(STAGE)

    def test_closing_the_operator_window_ends_the_program_and_its_windows(self):
        program = self.start_show()
        program.open_stage()
        program.open_display()
        program.close_window(OPERATOR)
        program.answer_question("shift+Tab", "space")
        self.assertEqual(program.wait_for_end(), 0, program.output())
        self.assertEqual(program.windows(), {})

    def test_the_quit_command_ends_the_program_and_its_windows(self):
        program = self.start_show()
        program.open_stage()
        program.focus(STAGE)
        program.press("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0, program.output())
        self.assertEqual(program.windows(), {})

    def test_the_start_panel_opens_over_the_operator_window_and_escape_closes_it(self):
        program = self.start_show()
        program.focus(OPERATOR)
        program.press("ctrl+n")
        program.wait_for_window(START_PANEL)
        program.focus(START_PANEL)
        program.press("Escape")
        program.wait_for_no_window(START_PANEL)
        self.assertIsNotNone(program.window("Evening Show — Quenara"))

    def test_the_start_panel_at_launch_opens_the_demo_by_keys_alone(self):
        program = self.start()
        program.focus(START_PANEL)
        program.press("Tab", "Tab", "space")
        program.wait_for_window("Quenara Demo Service — Quenara")
        program.wait_for_no_window(START_PANEL)

    def test_the_settings_are_one_window_that_ends_with_the_program(self):
        program = self.start_show()
        for _ in range(2):
            program.focus(OPERATOR)
            program.press("ctrl+comma")
            program.focus(SETTINGS)
        self.assertEqual(list(program.windows().values()).count(SETTINGS), 1)
        program.close_window(OPERATOR)
        self.assertEqual(program.wait_for_end(), 0, program.output())
        self.assertEqual(program.windows(), {})

    def test_the_settings_window_keeps_the_menus_shortcuts(self):
        program = self.start_show()
        program.focus(OPERATOR)
        program.press("ctrl+comma")
        program.focus(SETTINGS)
        program.press("ctrl+n")
        program.focus(START_PANEL)
        program.press("Escape")
        program.wait_for_no_window(START_PANEL)
        program.focus(SETTINGS)
        program.press("ctrl+q")
        self.assertEqual(program.wait_for_end(), 0, program.output())

    def test_the_keyboard_stays_with_a_dialog_whatever_is_clicked_behind_it(self):
        program = self.start_show()
        program.focus(OPERATOR)
        program.press("ctrl+comma")
        program.focus(SETTINGS)
        for title in (SETTINGS, OPERATOR):
            with self.subTest(title=title):
                program.choose("h", 0)
                program.wait_for_window(ABOUT)
                program.point_at(title, 20, 20)
                self.server.run("xdotool", "click", "1")
                program.wait_until_at_rest()
                program.press("Escape")
                program.wait_for_no_window(ABOUT)


if __name__ == "__main__":
    run()
