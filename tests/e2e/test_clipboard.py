"""Pasting from a clipboard and a selection that nobody owns, as after a login."""

from program import OPERATOR, PASTE_SONG, SLIDE_TITLE, SONG_IMPORT
from show_case import ShowCase, run

KEYS = ("ctrl+v", "shift+Insert", "ctrl+shift+Insert")
LYRICS = (200, 250)
SONG_TITLE = (200, 70)
# A place on the first slide's text, in the operator window's content.
LAYER = (SLIDE_TITLE[0], SLIDE_TITLE[1] - 30)


class EmptyClipboard(ShowCase):
    def setUp(self):
        self.program = self.start_show()
        self.program.focus(OPERATOR)

    def click(self, button, window, place):
        self.program.point_at(window, *place)
        self.server.run("xdotool", "click", str(button))

    def paste_everywhere(self, window, place):
        self.click(1, window, place)
        self.program.press(*KEYS)
        self.click(2, window, place)
        # Paste in the menu, which cannot be chosen, so that the menu is still there to be closed.
        self.click(3, window, place)
        self.program.press("p", "Escape")

    def test_the_lyrics_and_the_title_of_a_song(self):
        for place in (LYRICS, SONG_TITLE):
            with self.subTest(place=place):
                self.program.click(*PASTE_SONG)
                self.program.focus(SONG_IMPORT)
                self.paste_everywhere(SONG_IMPORT, place)
                self.program.focus(SONG_IMPORT)
                self.program.press("Escape")
                self.program.wait_for_no_window(SONG_IMPORT)
                self.assertIsNone(self.program.status(), self.program.output())

    def test_the_text_on_the_canvas_and_a_field(self):
        self.program.click(*LAYER, times=2)
        self.program.press(*KEYS)
        self.click(2, OPERATOR, LAYER)
        self.program.press("Escape")
        self.program.click_project_name()
        self.program.press("End", *KEYS, "x", "Return")
        self.program.wait_for_window("Evening Showx — Quenara")


if __name__ == "__main__":
    run()
