"""A whole service by the mouse alone: made from nothing, run to its end.

Keys are only typed into fields. The screen reader only tells what is there and where.
"""

import time

from documents import document_in
from processes import POLL_INTERVAL, wait_until
from program import DISPLAY, OPERATOR, SAVE_PANEL, SONG_IMPORT, STAGE, START_PANEL
from screen_reader import Keyboard
from show_case import ReadCase, image_of, run

BUTTON, SWITCH, FIELD, PICKER, ROW, CANVAS, SLIDER = (
    "push button", "check box", "text", "combo box", "list item", "canvas", "slider")
IMAGE_PANEL = "Choose Image"
# Qt takes what is clicked so soon after a list has opened for the click that has opened it.
DOUBLE_CLICK = 0.5
# More than any menu is high or wide, in steps of the pointer.
MOST_STEPS = 60
LYRICS = ("[Verse 1]", "Morning light", "[Chorus]", "Sing again")


class MouseService(ReadCase):
    def setUp(self):
        self.keyboard = self.enterContext(Keyboard())
        self.start()
        self.file = self.program.home / "Easter.quenara"
        self.server.run("convert", "-size", "64x36", "gradient:red-blue",
                        str(self.program.home / "picture.png"))

    def test_a_service_is_made_and_run_by_the_mouse_alone(self):
        self.begin()
        self.make_a_section()
        self.design_a_slide()
        self.import_a_song()
        self.arrange_the_rundown()
        self.save()
        self.run_the_service()
        self.quit()

    def begin(self):
        self.program.wait_for_window(START_PANEL)
        self.click("New Blank Project", BUTTON, START_PANEL)
        self.program.wait_for_no_window(START_PANEL)
        self.enter("Project Name", "Easter")
        self.program.wait_for_window("Easter — Quenara")

    def make_a_section(self):
        self.click("Add section")
        self.wait_for_rows("New Section", "New Slide")
        self.click_middle(self.row("New Section"), times=2)
        self.thing("Section Title", FIELD)
        self.program.type("Opening")
        self.click_beside()
        self.wait_for_rows("Opening", "New Slide")
        self.click_middle(self.row("Opening"), button=3)
        self.choose_beside_the_pointer("Type", "Welcome")
        self.wait_for_row("Opening", "Welcome section, selected")

    def design_a_slide(self):
        self.enter("Title", "Good morning")
        self.wait_for_rows("Opening", "Good morning")
        self.choose("Template", "Minimal Dark")
        self.click("Text", BUTTON)
        self.click_middle(self.layer("Text"), times=2)
        wait_until(lambda: any(thing.title == "Layer text" and thing.has("FOCUSED")
                               for thing in self.shown()), "the text to be edited")
        self.program.type("Welcome all ")
        self.click_beside()
        self.drag(self.middle_of(self.layer("Text")), (0, 60))
        self.click("Image", BUTTON)
        self.program.wait_for_window(IMAGE_PANEL)
        self.click_middle(wait_until(lambda: next(
            (thing for thing in self.shown(IMAGE_PANEL) if thing.name == "picture.png"), None),
            "the picture to be listed"), times=2)
        self.program.wait_for_no_window(IMAGE_PANEL)
        self.click("Send backward")
        self.server.run("xdotool", "click", "--repeat", "9", "5")  # scrolls what is below
        self.click("Opacity", SLIDER)
        wait_until(lambda: 0.4 < self.thing("Opacity", SLIDER).value < 0.6, "half the opacity")

    def import_a_song(self):
        self.click("Paste song lyrics")
        self.program.wait_for_window(SONG_IMPORT)
        self.enter("Song title", "Morning Hymn", SONG_IMPORT, times=1)
        self.click("Lyrics", FIELD, SONG_IMPORT)
        for line in LYRICS:
            self.program.type(line)
            self.program.press("Return")
        self.click("Import Song", BUTTON, SONG_IMPORT)
        self.program.wait_for_no_window(SONG_IMPORT)
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Verse 1", "Chorus")

    def arrange_the_rundown(self):
        self.click_middle(self.row("Chorus"))
        self.wait_for_row("Chorus", "Slide 2 of Morning Hymn, queued, selected")
        self.click("Move slide up")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1")
        self.drag_row("Good morning", "Verse 1")
        self.wait_for_rows("Opening", "Morning Hymn", "Chorus", "Verse 1", "Good morning")
        self.drag_row("Good morning", "Opening")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1")
        self.click_middle(self.row("Verse 1"), button=3)
        self.choose_beside_the_pointer("Duplicate")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1",
                           "Verse 1 Copy")
        self.click("Delete selected slide")
        self.wait_for_rows("Opening", "Good morning", "Morning Hymn", "Chorus", "Verse 1")

    def save(self):
        self.click("Save", BUTTON)
        self.program.wait_for_window(SAVE_PANEL)
        self.click("Save", BUTTON, SAVE_PANEL)
        self.program.wait_for_no_window(SAVE_PANEL)
        wait_until(self.file.exists, "the service to be saved")
        opening, song = document_in(self.file)["serviceItems"]
        self.assertEqual((opening["title"], opening["type"]), ("Opening", "welcome"))
        layers = {layer["name"]: layer for layer in opening["slides"][0]["design"]["elements"]}
        self.assertIn("Welcome all", layers["Text"]["text"]["text"])
        self.assertEqual([slide["body"] for slide in song["slides"]],
                         ["Sing again", "Morning light"])

    def run_the_service(self):
        welcome, chorus, verse = (image_of(self.file, place) for place in range(3))
        self.click_middle(self.row("Good morning"))
        self.click("Go Live", BUTTON)
        self.click("Display", SWITCH)
        self.program.wait_for_window(DISPLAY)
        self.see(welcome, "the welcome")
        self.click("Next", BUTTON)
        self.see(chorus, "the chorus")
        self.click("Blackout", SWITCH)
        self.see_black()
        self.click("Blackout", SWITCH)
        self.click("Queue Next", BUTTON)
        self.click("Go Live", BUTTON)
        self.see(verse, "the verse")
        self.click("Previous", BUTTON)
        self.see(chorus, "the chorus again")
        self.click("Monitor", SWITCH)
        self.program.wait_for_window(STAGE)
        self.click("Monitor", SWITCH)
        self.program.wait_for_no_window(STAGE)
        self.click("Display", SWITCH)
        self.program.wait_for_no_window(DISPLAY)

    def quit(self):
        bar = next(thing for thing in self.shown() if thing.role == "menu bar")
        self.click_middle(next(menu for menu in bar.children if menu.name == "File"))
        self.choose_beside_the_pointer("Quit")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())

    @staticmethod
    def middle_of(thing):
        x, y, width, height = thing.area
        return x + width // 2, y + height // 2

    def click_middle(self, thing, button=1, times=1):
        x, y = self.middle_of(thing)
        self.server.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times),
                        "--delay", "50", str(button))

    def click_beside(self):
        """Clicks where there is nothing: below the rundown's last row."""
        x, y, width, height = self.thing("Rundown", "list").area
        self.server.run("xdotool", "mousemove", str(x + width // 2), str(y + height - 10),
                        "click", "1")

    def drag(self, start, way):
        """Presses the button there, moves the pointer in two steps, and releases it."""
        move = ["mousemove_relative", "--sync", "--", *(str(length // 2) for length in way)]
        self.server.run("xdotool", "mousemove", *map(str, start), "mousedown", "1", *move, *move,
                        "mouseup", "1")

    def drag_row(self, name, other):
        """Drags a row of the rundown to below the middle of another one."""
        start, end = (self.middle_of(self.row(row)) for row in (name, other))
        self.drag(start, (0, int(end[1] - start[1]) + 10))

    def enter(self, field, text, window=OPERATOR, times=3):
        """Types into a field. Three clicks select the whole of it."""
        self.click_middle(self.thing(field, FIELD, window), times=times)
        wait_until(lambda: self.thing(field, FIELD, window).has("FOCUSED"), f"the {field}")
        self.program.type(text)
        if window == OPERATOR:
            self.click_beside()

    def row(self, name):
        return next(row for row in self.thing("Rundown", "list").children if row.name == name)

    def layer(self, name):
        canvas = self.thing("Design canvas", CANVAS)
        return wait_until(lambda: next((layer for layer in canvas.children if layer.name == name),
                                       None), f"the layer {name}")

    def choose(self, picker, choice):
        self.click(picker, PICKER)
        wait_until(lambda: self.thing(picker, PICKER).has("EXPANDED"), f"the list of {picker}")
        time.sleep(DOUBLE_CLICK)
        self.click_middle(next(item for item in self.thing(picker, PICKER).children[0].children
                               if item.name == choice))
        wait_until(lambda: self.thing(picker, PICKER).name == choice
                   and not self.thing(picker, PICKER).has("EXPANDED"), f"{choice} to be chosen")

    def choose_beside_the_pointer(self, *names):
        """Chooses from a menu that has opened there, and from what its item opens."""
        for direction, name in zip(((4, 6), (8, 0)), names):
            for _ in range(MOST_STEPS):
                if self.keyboard.is_at(name):
                    break
                self.server.run("xdotool", "mousemove_relative", "--sync", "--",
                                *map(str, direction))
                time.sleep(POLL_INTERVAL)
            else:
                self.fail(f"the pointer does not come to {name}")
            self.server.run("xdotool", "click", "1")


if __name__ == "__main__":
    run()
