"""The operator's workplace: a service prepared and run by clicks and keys."""

from documents import Documents, document_in, name_in
from processes import wait_until
from program import ALERT, OPERATOR, START_PANEL
from show_case import ReadCase, image_of, run

SONG_IMPORT = "Paste Song Lyrics"
LYRICS = ["[Verse 1]", "Morning breaks", "over the hills", "", "Chorus:", "Sing with the light"]
MOVE_UP_FROM_RIGHT = 50
ROWS = ["Welcome", "All stated", "Slide", "Song", "Verse", "Plain"]


def titles_in(file):
    """The rundown that a file holds, as its rows read."""
    titles = []
    for item in document_in(file)["serviceItems"]:
        titles += [item["title"], *(slide.get("title", "Slide") for slide in item["slides"])]
    return titles


class Workplace(Documents, ReadCase):
    def save(self):
        self.program.focus(OPERATOR)
        self.program.press("ctrl+s")

    def wait_for_saved(self, *titles):
        wait_until(lambda: titles_in(self.file) == list(titles), f"{titles} to be saved")

    def test_a_demo_service_goes_live_by_clicks(self):
        program = self.program
        program.focus(OPERATOR)
        self.click("New", "push button")
        program.focus(START_PANEL)
        self.click("Open Demo Service", window=START_PANEL)
        program.wait_for_window("Quenara Demo Service — Quenara")
        section, first, second = self.rows()[:3]
        self.assertTrue(first[1].endswith(", live, queued, selected"), first)
        self.click(second[0], "list item")
        self.wait_for_row(second[0], f"Slide 2 of {section[0]}, queued, selected")
        self.click("Go Live", "push button")
        self.wait_for_row(second[0], f"Slide 2 of {section[0]}, live, queued, selected")
        self.wait_for_row(first[0], f"Slide 1 of {section[0]}")
        self.click("Display", "check box")
        saved = self.folder / "Demo.quenara"
        program.focus(OPERATOR)
        self.program.save_as(saved)
        wait_until(saved.exists, "the demo to be saved")
        self.see(image_of(saved, 1), "the second slide of the demo")

    def test_a_pasted_song_becomes_a_section_with_its_slides(self):
        program = self.program
        self.click("Paste song lyrics")
        program.focus(SONG_IMPORT)
        self.click("Song title", window=SONG_IMPORT)
        program.press("ctrl+a")
        program.type("Morning Hymn")
        self.click("Lyrics", window=SONG_IMPORT)
        program.press("ctrl+a")
        for line in LYRICS:
            program.type(line)
            program.press("Return")
        self.click("Import Song", window=SONG_IMPORT)
        program.wait_for_no_window(SONG_IMPORT)
        self.wait_for_rows(*ROWS, "Morning Hymn", "Verse 1", "Chorus")
        self.save()
        self.wait_for_saved(*ROWS, "Morning Hymn", "Verse 1", "Chorus")
        song = document_in(self.file)["serviceItems"][-1]
        self.assertEqual(song["type"], "song")
        texts = [layer["text"]["text"] for slide in song["slides"]
                 for layer in slide["design"]["elements"] if "text" in layer]
        self.assertIn("Morning breaks\nover the hills", texts)
        self.assertIn("Sing with the light", texts)
        program.press("ctrl+z")
        self.wait_for_rows(*ROWS)

    def test_slides_are_duplicated_moved_deleted_and_brought_back(self):
        program = self.program
        program.focus(OPERATOR)
        self.click("Verse", "list item")
        self.click("Duplicate selected slide")
        self.wait_for_rows(*ROWS[:5], "Verse Copy", "Plain")
        self.click("Move slide down")
        self.wait_for_rows(*ROWS, "Verse Copy")
        self.save()
        self.wait_for_saved(*ROWS, "Verse Copy")
        self.click("Move slide up")
        self.wait_for_rows(*ROWS[:5], "Verse Copy", "Plain")
        self.click("Delete selected slide")
        self.wait_for_rows(*ROWS)
        program.press("ctrl+z", "ctrl+z", "ctrl+z")
        self.wait_for_rows(*ROWS[:5], "Verse Copy", "Plain")
        program.press("ctrl+z")
        self.wait_for_rows(*ROWS)
        self.save()
        self.wait_for_saved(*ROWS)

    def test_sections_are_moved_added_and_deleted(self):
        self.program.focus(OPERATOR)
        # The button that moves the section up is the left one of the two beside its title.
        self.click("Song", "list item", from_right=MOVE_UP_FROM_RIGHT)
        moved = ["Song", "Verse", "Plain", "Welcome", "All stated", "Slide"]
        self.wait_for_rows(*moved)
        self.click("Add section")
        self.wait_for_rows(*moved, "New Section", "New Slide")
        self.save()
        self.wait_for_saved(*moved, "New Section", "New Slide")
        self.click("Delete selected section")
        self.wait_for_rows(*moved)
        self.program.press("ctrl+z", "ctrl+z", "ctrl+z")
        self.wait_for_rows(*ROWS)

    def test_cancel_leaves_the_program_and_its_changes_as_they_are(self):
        before = self.file.read_bytes()
        self.quit_changed("Cancel")
        self.program.wait_for_no_window(ALERT)
        self.program.wait_for_window("Changed — Quenara")
        self.assertIsNone(self.program.status())
        self.assertEqual(self.file.read_bytes(), before)

    def test_save_ends_the_program_with_the_changes_in_the_file(self):
        self.quit_changed("Save")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(name_in(self.file), "Changed")

    def test_not_saving_ends_the_program_with_the_file_as_it_was(self):
        before = self.file.read_bytes()
        self.quit_changed("Don't Save")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(self.file.read_bytes(), before)

    def quit_changed(self, answer):
        self.rename("Changed")
        self.program.press("ctrl+q")
        self.program.focus(ALERT)
        self.click(answer, window=ALERT)


if __name__ == "__main__":
    run()
