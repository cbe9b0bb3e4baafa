"""What the operator sees of the show while it is run and edited: by what a screen reader is told,
by where that lies, and by its colours."""

import json
import tempfile
from collections import Counter
from pathlib import Path

from processes import wait_until
from program import OPERATOR, SONG_IMPORT
from show_case import SHOW, ReadCase, run

SECTIONS = "ABCDEFGH"
SLIDES = 6  # in each section
CUT = "A2"
# From the right end of a section's row to the button that moves it down.
MOVE_DOWN_FROM_RIGHT = 22


def long_show():
    """A document of many sections, with one slide whose text does not fit."""
    document = json.loads(SHOW.read_text())
    template = document["serviceItems"][0]
    design = template["slides"][0]["design"]
    document["serviceItems"] = [
        template | {"id": letter, "title": f"Section {letter}", "orderIndex": place, "slides": [
            {"id": f"{letter}{n}", "title": f"{letter}{n}", "body": "", "orderIndex": n - 1,
             "design": design} for n in range(1, SLIDES + 1)]}
        for place, letter in enumerate(SECTIONS)]
    cut = json.loads(json.dumps(design))
    words = next(layer for layer in cut["elements"] if layer["name"] == "Words")
    words["text"]["text"] = "More than there is room for. " * 200
    document["serviceItems"][0]["slides"][1]["design"] = cut
    return document


class OperatorSight(ReadCase):
    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-sight-"))
        file = Path(folder, "Long.quenara")
        file.write_text(json.dumps(long_show()))
        self.addCleanup(self.server.plug_second_screen)
        self.start(file)
        self.program.wait_for_window("Evening Show — Quenara")
        self.program.resize(OPERATOR, 1366, 800)
        self.program.focus(OPERATOR)
        self.list = self.thing("Rundown", "list")

    def row(self, name):
        return next(row for row in self.list.children if row.name == name)

    def is_in_view(self, name):
        _, top, _, height = self.list.area
        _, y, _, row_height = self.row(name).area
        return top <= y and y + row_height <= top + height

    def wait_for_view(self, *names):
        for name in names:
            wait_until(lambda name=name: self.is_in_view(name), f"{name} to be in view", deadline=5)

    def wait_for_description(self, name, words):
        wait_until(lambda: words in self.row(name).description, f"{name} to be {words}")

    def wait_for_live(self, name):
        self.wait_for_description(name, "live")

    def shown_thing(self, name):
        """What is seen under that name; nothing if it is not."""
        return next((thing for thing in self.shown() if thing.name == name), None)

    def colours(self, area):
        """How often each colour is seen in an (x, y, width, height) of the desktop."""
        x, y, width, height = area
        pixels = self.server.screenshot((width, height, x, y))
        return Counter(pixels[i:i + 3] for i in range(0, len(pixels), 3))

    def main_colour(self, area):
        return self.colours(area).most_common(1)[0][0]

    def row_colour(self, name):
        """What a row is filled with, beside all that is drawn on it."""
        x, y, width, height = self.row(name).area
        return self.main_colour((x + width // 2, y + 4, width // 4, height - 8))

    def test_what_comes_next_is_in_view_as_the_live_slide_moves_down_and_up(self):
        rows = [row.name for row in self.list.children]
        for live in range(rows.index("A2"), rows.index("C5")):
            if not rows[live].startswith("Section"):
                self.program.press("Right")
                self.wait_for_live(rows[live])
                self.wait_for_view(*rows[live:live + 3])
        for name in ("C3", "C2", "C1"):
            self.program.press("Left")
            self.wait_for_live(name)
        self.wait_for_view("Section C", "C1")

    def test_the_live_preview_tells_what_the_audience_sees(self):
        preview = self.shown_thing("Live slide")
        x, y, width, height = preview.area
        middle = (x + width // 2 - 35, y + height // 2 - 6, 70, 12)

        def tells(words):
            wait_until(lambda: preview.description == f"A1{words}", f"the preview to tell {words}")

        tells(", No display")
        self.program.press("alt+o", "Return")
        tells("")
        plain = self.colours(preview.area)
        for key, mode in (("b", "BLACKOUT"), ("l", "LOGO")):
            self.program.press(key)
            tells(f", {mode}")
            badge = self.shown_thing(mode).area
            colour = self.main_colour(badge)
            wait_until(lambda: self.main_colour(middle) == colour, f"{mode} over the preview")
            wait_until(lambda: self.colours(self.row("A1").area)[colour] > 200,
                       f"the row's mark to have the colour of {mode}")
        self.program.press("l")
        tells("")
        wait_until(lambda: self.colours(preview.area) == plain, "the slide as it was")
        self.server.unplug_second_screen()
        tells(", Waiting for the second screen")
        self.assertNotEqual(self.colours(preview.area), plain)
        self.server.plug_second_screen()
        tells("")

    def test_the_live_slide_that_is_edited_is_marked_without_moving_anything(self):
        mark = "You are editing the live slide"
        wait_until(lambda: self.shown_thing(mark), mark)
        words = self.thing("Words", "list item").area
        slide = self.shown_thing("Live slide").area
        self.click("A3", "list item")
        wait_until(lambda: not self.shown_thing(mark), "the mark to go")
        self.assertEqual(self.thing("Words", "list item").area, words)
        self.assertEqual(self.shown_thing("Live slide").area, slide)
        self.program.press("Return")
        wait_until(lambda: self.shown_thing(mark), mark)

    def test_the_selected_section_is_as_plainly_selected_as_a_slide(self):
        self.click("Section B", "list item")
        self.wait_for_description("Section B", "selected")
        self.program.point_at(OPERATOR, 700, 500)
        selected = self.row_colour("A1")
        wait_until(lambda: self.row_colour("Section B") == selected, "the section to be filled")
        self.assertNotEqual(self.row_colour("Section A"), selected)
        self.assertNotIn("selected", self.row("Section A").description)
        self.click("Delete selected section")
        wait_until(lambda: "Section B" not in [row.name for row in self.list.children],
                   "the section to be deleted")

    def test_a_picker_that_the_pointer_left_while_its_list_was_open_looks_as_before(self):
        picker = self.thing("Template", "combo box")
        plain = self.colours(picker.area)
        self.click("Template", "combo box")
        wait_until(lambda: self.colours(picker.area) != plain, "the list to open")
        self.program.point_at(OPERATOR, 700, 500)
        self.program.press("Escape")
        wait_until(lambda: self.colours(picker.area) == plain, "the picker as it was")

    def test_an_imported_song_is_scrolled_into_view(self):
        self.click("Paste song lyrics")
        self.program.focus(SONG_IMPORT)
        self.program.type("Morning Hymn")
        self.click("Import Song", window=SONG_IMPORT)
        self.program.wait_for_no_window(SONG_IMPORT)
        wait_until(lambda: self.list.children[-1].name == "Chorus", "the song")
        self.wait_for_view("Morning Hymn", "Verse 1", "Chorus")

    def test_a_text_that_is_cut_is_warned_of_in_its_row_and_in_the_inspector(self):
        warning, = self.warnings_of(CUT)
        self.assertEqual(warning.name, "The text of “Words” does not fit and is cut.")
        (_, _), (colour, _) = self.colours(warning.area).most_common(2)
        self.assertEqual(self.warnings_of("A3"), [])
        wait_until(lambda: self.colours(self.row(CUT).area)[colour] > 20, "the row's warning")
        self.assertEqual(self.colours(self.row("A3").area)[colour], 0)

    def warnings_of(self, name):
        """What the inspector warns of, once it shows that slide."""
        self.click(name, "list item")
        wait_until(lambda: self.thing("Title", "text").text == name, f"{name} to be inspected")
        return [thing for thing in self.shown() if "not fit" in thing.name]

    def test_clicking_a_sections_button_thrice_moves_it_three_places_under_the_pointer(self):
        self.click("Section B", "list item", from_right=MOVE_DOWN_FROM_RIGHT)
        self.server.run("xdotool", "click", "--repeat", "2", "--delay", "300", "1")
        wait_until(lambda: [row.name for row in self.list.children if row.name in {
            f"Section {letter}" for letter in SECTIONS}][:5] == [
                f"Section {letter}" for letter in "ACDEB"], "the section three places below")


if __name__ == "__main__":
    run()
