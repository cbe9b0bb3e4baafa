"""A whole service by keyboard alone: made from nothing, run to its end, opened again.

The screen reader only tells what is there and where the keyboard is: it presses nothing, and the
pointer stays where it is.
"""

import tempfile
from pathlib import Path

from documents import document_in
from processes import wait_until
from program import ALERT, DISPLAY, OPERATOR, SAVE_PANEL, SONG_IMPORT, STAGE, START_PANEL
from screen_reader import Keyboard
from show_case import ReadCase, image_of, run

BUTTON, FIELD, PICKER, ROW, CANVAS = ("push button", "text", "combo box", "list item", "canvas")
IMAGE_PANEL = "Choose Image"
EMPTY_TITLE = "Untitled Quenara — Quenara"
TITLE = "Easter — Quenara"
LYRICS = ("[Verse 1]", "Morning light", "[Chorus]", "Sing again")
BLUE = "#3366cc"
# More than the program has places for the keyboard.
FARTHEST = 90


class KeyboardService(ReadCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-keys-")))
        self.file = self.folder / "Easter.quenara"
        self.picture = self.folder / "picture.png"
        self.server.run("convert", "-size", "64x36", "gradient:red-blue", str(self.picture))
        self.keyboard = self.enterContext(Keyboard())

    def test_a_service_is_made_run_and_opened_again_by_keyboard_alone(self):
        self.begin()
        self.make_a_section()
        self.design_a_slide()
        self.import_a_song()
        self.arrange_the_rundown()
        self.save()
        self.run_the_service()
        self.close()
        self.open_again()

    def begin(self):
        self.start(environment={"XDG_CONFIG_HOME": str(self.folder / "config")})
        self.program.wait_for_focus(START_PANEL)
        self.wait_for_keyboard("New Blank Project")
        self.press("space")
        self.program.wait_for_focus(EMPTY_TITLE)
        self.reach("Project Name", FIELD)
        self.enter("Easter")
        self.program.wait_for_focus(TITLE)

    def make_a_section(self):
        self.press_button("Add section")
        self.wait_for_rows("New Section", "New Slide")
        self.reach("New Slide", ROW)
        self.keyboard.move(lambda: self.press("ctrl+Up"))
        self.keyboard.move(lambda: self.press("F2"))
        self.wait_for_keyboard("Section Title")
        self.program.type("Opening")
        self.press("Return")
        self.wait_for_rows("Opening", "New Slide")
        self.wait_for_keyboard("Opening", ROW)
        self.press("Menu", "Down", "Down", "Right", "Home", "Return")
        self.wait_for_row("Opening", "Welcome section, selected")
        self.wait_for_keyboard("Opening", ROW)
        self.keyboard.move(lambda: self.press("ctrl+Down"))
        self.wait_for_keyboard("New Slide", ROW)

    def design_a_slide(self):
        self.reach("Title", FIELD)
        self.enter("Good morning")
        self.wait_for_rows("Opening", "Good morning")
        self.choose("Template", "Minimal Dark")
        self.press_button("Text", "Add a text layer", key="shift+Tab")
        self.write_on_the_canvas()
        self.press_button("Image", "Add an image layer", key="shift+Tab")
        self.program.wait_for_focus(IMAGE_PANEL)
        self.program.type(str(self.picture))
        self.press("Return")
        self.program.wait_for_focus(TITLE)
        self.wait_for_keyboard("Image", BUTTON)
        self.wait_for_layers("Image", "Text", "Body", "Title")
        self.move_the_picture()
        self.change_the_background()
        self.change_the_text()

    def write_on_the_canvas(self):
        """Leaves the lyrics in the clipboard."""
        self.reach("Design canvas", CANVAS)
        self.keyboard.move(lambda: self.press("Tab"))
        self.keyboard.move(lambda: self.press("F2"))
        self.wait_for_keyboard("Layer text")
        self.press("ctrl+a")
        for line in LYRICS:
            self.program.type(line)
            self.press("Return")
        self.press("ctrl+a", "ctrl+c")
        self.program.type("Welcome all")
        self.keyboard.move(lambda: self.press("Escape"))
        self.wait_for_keyboard("Design canvas")
        self.press("ctrl+Right", "ctrl+Right", "ctrl+shift+Down")

    def move_the_picture(self):
        self.press_button("Send backward")
        self.wait_for_layers("Text", "Image", "Body", "Title")
        self.press_button("Add Shape", key="shift+Tab")
        self.wait_for_layers("Shape", "Text", "Image", "Body", "Title")
        self.press_button("Delete layer")
        self.wait_for_layers("Text", "Image", "Body", "Title")
        self.press("ctrl+z")
        self.wait_for_layers("Shape", "Text", "Image", "Body", "Title")
        self.press("ctrl+z")
        self.wait_for_layers("Text", "Image", "Body", "Title")

    def change_the_background(self):
        self.choose("Type", "solid")
        self.press_button("Solid")
        self.program.wait_for_focus("Solid")
        self.reach("HTML:", FIELD)
        self.program.type(BLUE)
        self.press("Return")
        self.program.wait_for_focus(TITLE)
        self.wait_for_keyboard("Solid")
        wait_until(lambda: self.thing("Solid", BUTTON).description == BLUE, "the colour")

    def change_the_text(self):
        self.reach("Text", ROW, key="shift+Tab")
        self.press("ctrl+space")
        self.choose("Font", "Georgia")
        self.reach("Width", FIELD, key="shift+Tab")
        self.program.type("900")
        self.press("Return")
        # From where it was typed, not from the first control of the panel.
        self.keyboard.move(lambda: self.press("Tab"))
        self.wait_for_keyboard("Height", FIELD)

    def import_a_song(self):
        self.press_button("Paste song lyrics")
        self.program.wait_for_focus(SONG_IMPORT)
        self.wait_for_keyboard("Song title")
        self.program.type("Morning Hymn")
        self.press("Return")
        self.wait_for_keyboard("Lyrics")
        self.press("ctrl+v")
        self.reach("Import Song", BUTTON)
        self.press("space")
        self.program.wait_for_focus(TITLE)
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus")
        self.wait_for_keyboard("Paste song lyrics")

    def arrange_the_rundown(self):
        self.press_button("Slide")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus",
                           "New Slide")
        self.press_button("Delete selected slide")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus")
        self.press("ctrl+z")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus",
                           "New Slide")
        self.press("ctrl+z")
        self.press_button("Move section up", "Morning Hymn")
        self.wait_for_rows("Morning Hymn", "Verse 1", "Chorus", "Opening", "Good morning")
        self.press_button("Move section down", "Morning Hymn")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus")
        self.reach("Chorus", ROW, key="shift+Tab")
        self.press_button("Move slide up")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1")
        self.reach("Chorus", ROW, key="shift+Tab")
        self.keyboard.move(lambda: self.press("ctrl+End"))
        self.keyboard.move(lambda: self.press("ctrl+Home"))
        self.keyboard.move(lambda: self.press("ctrl+Down"))
        self.wait_for_row("Good morning", "Slide 1 of Opening, queued, selected")

    def save(self):
        self.press("ctrl+shift+s")
        self.program.wait_for_focus(SAVE_PANEL)
        self.press("ctrl+a")
        self.program.type(str(self.file))
        self.press("Return")
        self.program.wait_for_focus(TITLE)
        wait_until(self.file.exists, "the service to be saved")
        opening, song = document_in(self.file)["serviceItems"]
        self.assertEqual((opening["title"], opening["type"]), ("Opening", "welcome"))
        design = opening["slides"][0]["design"]
        layers = {layer["name"]: layer for layer in design["elements"]}
        self.assertEqual(design["themeId"], "minimalDark")
        self.assertEqual(design["background"]["kind"], "solid")
        self.assertEqual(layers["Text"]["text"]["text"], "Welcome all")
        self.assertEqual(layers["Text"]["text"]["fontFamily"], "Georgia")
        self.assertEqual(layers["Text"]["frame"],
                         {"x": 362, "y": 380, "width": 900, "height": 240})
        self.assertEqual(layers.keys(), {"Text", "Image", "Body", "Title"})
        self.assertEqual([slide["body"] for slide in song["slides"]],
                         ["Sing again", "Morning light"])

    def run_the_service(self):
        welcome, chorus, verse = (image_of(self.file, place) for place in range(3))
        self.press("Return", "alt+o", "Return")
        self.program.wait_for_focus(DISPLAY)
        self.see(welcome, "the welcome")
        self.press("Right")
        self.see(chorus, "the chorus")
        self.press("b")
        self.see_black()
        self.press("b", "alt+Tab")
        self.program.wait_for_focus(TITLE)
        self.press("Down", "Return")
        self.see(verse, "the verse")
        self.press("l")
        self.see_not(verse)
        self.press("l", "Left")
        self.see(chorus, "the chorus again")
        self.press("alt+o", "Down", "Return")
        self.program.wait_for_focus(STAGE)
        self.press("Page_Down")
        self.see(verse, "the verse again")
        self.press("alt+Tab")
        self.program.wait_for_focus(TITLE)
        self.press("alt+o", "Down", "Return")
        self.program.wait_for_no_window(STAGE)
        self.press("alt+o", "Return")
        self.program.wait_for_no_window(DISPLAY)
        self.program.wait_for_focus(TITLE)

    def close(self):
        self.press_button("Add section")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1",
                           "New Section", "New Slide")
        self.press("ctrl+q")
        self.program.wait_for_focus(ALERT)
        self.press("Escape")
        self.program.wait_for_focus(TITLE)
        self.press("ctrl+q")
        self.program.wait_for_focus(ALERT)
        self.wait_for_keyboard("Save")
        self.press("Return")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(len(document_in(self.file)["serviceItems"]), 3)

    def open_again(self):
        self.start(environment={"XDG_CONFIG_HOME": str(self.folder / "config")})
        self.program.wait_for_focus(START_PANEL)
        self.reach("Easter", BUTTON)
        self.press("space")
        self.program.wait_for_focus(TITLE)
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1",
                           "New Section", "New Slide")
        self.press("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())

    def press(self, *keys):
        self.program.press(*keys)

    def wait_for_keyboard(self, name, role=None):
        def is_there():
            # A window that comes to the front again may tell of that before another has gone.
            return self.keyboard.is_at(name, role) or any(
                thing.has("FOCUSED") and thing.title == name and role in (None, thing.role)
                for thing in self.shown(".*"))

        wait_until(is_there, f"the keyboard to be at {name}")

    def reach(self, name, role=None, description=None, key="Tab"):
        """Presses a key until the keyboard is there."""
        for _ in range(FARTHEST):
            if self.keyboard.is_at(name, role, description):
                return
            self.keyboard.move(lambda: self.press(key))
        self.fail(f"{key} does not reach {name}")

    def press_button(self, name, description=None, key="Tab"):
        self.reach(name, BUTTON, description, key)
        self.press("ctrl+space")

    def enter(self, text):
        """Types into the field that Tab has reached, in place of what it holds, and goes on."""
        self.program.type(text)
        self.keyboard.move(lambda: self.press("Tab"))

    def choose(self, picker, choice):
        self.reach(picker, PICKER)
        self.keyboard.move(lambda: self.press("alt+Down"))
        self.program.type(choice)
        self.press("Return")
        wait_until(lambda: self.thing(picker, PICKER).name == choice, f"{choice} to be chosen")
        self.wait_for_keyboard(picker, PICKER)

    def layers(self):
        """The names of the layers, the topmost first."""
        return [thing.description for thing in self.shown() if thing.title in ("Hide", "Show")]

    def wait_for_layers(self, *names):
        wait_until(lambda: self.layers() == list(names), f"the layers {names}")


if __name__ == "__main__":
    run()
