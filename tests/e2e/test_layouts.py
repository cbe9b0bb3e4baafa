"""The letters of commands on keyboards that write no Latin ones."""

from program import DISPLAY, OPERATOR
from show_case import BLACK, BLACK_HASH, SHOW_TITLE, TwoScreenCase, run, slide_hash, slide_image

# What X11 calls the places of the keys that write B, L and Z in English.
B, L, Z = "56", "46", "52"


class Layouts(TwoScreenCase):
    def setUp(self):
        self.addCleanup(self.server.run, "setxkbmap", "us")

    def start_with(self, layout):
        self.server.run("setxkbmap", "us")
        program = self.start_show()
        program.open_display()
        self.see_slide(0)
        self.server.run("setxkbmap", layout)
        return program

    def test_the_keys_of_the_show_are_where_they_are_in_english(self):
        for layout in ("ru", "gr", "il", "ru,us"):
            with self.subTest(layout=layout):
                program = self.start_with(layout)
                for window in (DISPLAY, OPERATOR):
                    program.focus(window)
                    program.press(B)
                    self.see_black()
                    program.press(B)
                    self.see_slide(0)
                    program.press(L)
                    self.see_not(slide_image(0), BLACK)
                    program.press(L)
                    self.see_slide(0)
                program.kill()

    def test_a_key_that_is_held_blacks_the_screen_out_once(self):
        program = self.start_with("ru")
        self.see_while_held(B, slide_hash(0), BLACK_HASH)

    def test_in_a_text_they_are_letters_and_with_control_they_are_commands(self):
        program = self.start_with("ru")
        program.focus(OPERATOR)
        program.click_project_name()
        program.press("End", B, "Return")
        program.wait_for_window(SHOW_TITLE.replace(" — ", "и — "))
        program.click_project_name()
        program.press(f"ctrl+{Z}")
        program.wait_for_window(SHOW_TITLE)
        self.see_slide(0)


if __name__ == "__main__":
    run()
