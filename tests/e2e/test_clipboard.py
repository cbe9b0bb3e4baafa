"""Pasting from a clipboard and a selection that nobody owns, as after a login."""

from processes import wait_until
from program import OPERATOR, PASTE_SONG, SAVE_PANEL, SLIDE_TITLE, SONG_IMPORT
from show_case import SHOW_TITLE, ReadCase, run

KEYS = ("ctrl+v", "shift+Insert", "ctrl+shift+Insert")
COLOR = "Text Color"
LYRICS = (200, 250)
SONG_TITLE = (200, 70)
# A place on the first slide's text, in the operator window's content.
LAYER = (SLIDE_TITLE[0], SLIDE_TITLE[1] - 30)


class EmptyClipboard(ReadCase):
    def setUp(self):
        self.program = self.start_show()
        self.program.focus(OPERATOR)

    def click_button(self, button, window, place):
        self.program.point_at(window, *place)
        self.server.run("xdotool", "click", str(button))

    def paste_everywhere(self, window, place):
        self.click_button(1, window, place)
        self.program.press(*KEYS)
        self.click_button(2, window, place)
        # Paste in the menu, which cannot be chosen, so that the menu is still there to be closed.
        self.click_button(3, window, place)
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

    def test_the_operator_window_itself(self):
        self.program.focus(OPERATOR)
        self.program.press("ctrl+v")
        self.program.wait_for_window(SHOW_TITLE)
        self.assertIsNone(self.program.status(), self.program.output())

    def test_the_text_on_the_canvas_and_a_field(self):
        self.program.click(*LAYER, times=2)
        self.program.press(*KEYS)
        self.click_button(2, OPERATOR, LAYER)
        self.program.press("Escape")
        self.program.click_project_name()
        self.program.press("End", *KEYS, "x", "Return")
        self.program.wait_for_window("Evening Showx — Quenara")

    def test_each_field_of_the_inspector(self):
        self.click_row("Words")
        self.paste_into_each_field(OPERATOR)

    def test_each_field_that_a_row_is_renamed_or_edited_in(self):
        def rows():
            return [thing for thing in self.shown() if thing.role == "list item"]

        def opened_field():
            return next((thing for thing in self.shown()
                         if thing.role == "text" and thing.has("FOCUSED")), None)

        opened = set()
        for place in range(len(rows())):
            self.program.focus(OPERATOR)
            rows()[place].focus()
            self.program.press("F2")
            try:
                field = wait_until(opened_field, "a field", deadline=1)
            except AssertionError:
                continue  # a row of the list of layers, which has nothing that is typed
            opened.add(field.title)
            self.paste_into(field, OPERATOR)
            self.program.press("Escape")
            wait_until(lambda: not opened_field(), "the field to be left")
        self.assertEqual(opened, {"Section Title", "Slide Title", "Layer text"})

    def test_each_field_of_a_colour_dialog(self):
        self.click_row("Words")
        self.thing(COLOR, "push button").press()
        self.program.focus(COLOR)
        self.paste_into_each_field(COLOR)

    def test_the_name_in_a_file_panel(self):
        self.program.press("ctrl+shift+s")
        self.program.focus(SAVE_PANEL)
        self.paste_into_each_field(SAVE_PANEL)

    def click_row(self, name):
        self.thing(name, "list item").press()

    def paste_into_each_field(self, window):
        fields = [thing for thing in self.shown(window)
                  if thing.role in ("text", "spin button") and thing.has("FOCUSABLE")]
        self.assertNotEqual(fields, [])
        for field in fields:
            self.paste_into(field, window)

    def paste_into(self, field, window):
        left, top = self.program.area(window)[2:]
        with self.subTest(field=field.title):
            x, y, width, height = field.area
            place = (x - left + width // 4, y - top + height // 2)
            self.click_button(1, window, place)
            self.program.press(*KEYS)
            self.click_button(2, window, place)
            self.program.focus(window)
            self.assertIsNone(self.program.status(), self.program.output())


if __name__ == "__main__":
    run()
