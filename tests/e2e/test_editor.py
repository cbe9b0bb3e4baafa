"""The design editor: a slide built from nothing by mouse and keys, as the audience then sees it."""

import tempfile
from pathlib import Path

from documents import document_in
from processes import wait_until
from program import DISPLAY, OPERATOR, START_PANEL
from show_case import ReadCase, image_of, run

BUTTON, LAYER, FIELD, PICKER, CHOICE = (
    "push button", "list item", "text", "combo box", "list item")
IMAGE_PANEL = "Choose Image"
BLUE = "#3366cc"
CANVAS_WIDTH = 1920
CANVAS_HEIGHT = 1080
CANVAS_MARGIN = 24


class Editor(ReadCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quenara-editor-")
        self.addCleanup(folder.cleanup)
        self.file = Path(folder.name, "Built.quenara")
        self.image = Path(folder.name, "image.png")
        self.server.run("convert", "-size", "64x36", "gradient:red-blue", str(self.image))

    def test_a_slide_built_from_nothing_looks_alike_after_redo_and_after_reopening(self):
        self.begin_slide()
        self.build_shape()
        self.build_texts()
        self.build_image()
        self.assertEqual(self.layers(), ["Text", "Image", "Lyric", "Shape"])
        self.program.save_as(self.file)
        wait_until(self.file.exists, "the slide to be saved")
        built = document_in(self.file)
        self.check_layers(built)
        expected = image_of(self.file, 0)
        self.click("Display", "check box")
        self.click("Go Live", BUTTON)
        self.see(expected, "what was built")

        self.press_while_possible("Undo", "ctrl+z")
        self.assertEqual(self.rows(), [])
        self.press_while_possible("Redo", "ctrl+shift+z")
        self.click("New Slide", CHOICE)
        self.assertEqual(self.layers(), ["Text", "Image", "Lyric", "Shape"])
        self.file.unlink()
        self.program.press("ctrl+s")
        wait_until(self.file.exists, "the slide to be saved again")
        self.assertEqual(document_in(self.file)["serviceItems"], built["serviceItems"])
        self.click("Go Live", BUTTON)
        self.see(expected, "what was built, after all was undone and redone")

        self.click("Display", "check box")
        self.program.wait_for_no_window(DISPLAY)
        self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.start(self.file).open_display()
        self.see(expected, "what was built, opened again")

    def begin_slide(self):
        program = self.start()
        program.focus(START_PANEL)
        self.click("New Blank Project", window=START_PANEL)
        program.wait_for_no_window(START_PANEL)
        program.focus(OPERATOR)
        # Large enough for the inspector not to scroll.
        program.resize(OPERATOR, 1900, 1030)
        self.click("Slide", BUTTON)
        self.wait_for_rows("New Section", "New Slide")
        self.click("Template", PICKER)
        # What is clicked as soon as a list opens counts as the click that has opened it.
        program.wait_until_at_rest()
        self.click("Minimal Dark", CHOICE)
        self.wait_for_layers("Body", "Title")
        for remaining in ["Title"], []:
            self.click_layer(self.layers()[0])
            self.click("Delete layer")
            self.wait_for_layers(*remaining)

    def build_shape(self):
        self.click("Add Shape")
        self.wait_for_layers("Shape")
        self.click("Fill", BUTTON)
        self.program.focus("Fill")
        self.enter("HTML:", BLUE, window="Fill")
        self.program.wait_for_no_window("Fill")
        wait_until(lambda: self.thing("Fill", BUTTON).description == BLUE, "the shape to be blue")
        self.drag((960, 515), (700, 300))
        wait_until(lambda: self.number("X") < 200, "the shape to be moved")
        x, y = self.number("X"), self.number("Y")
        self.drag((x + 540, y + 95), (965, 532))
        self.wait_for_numbers(X=420, Y=445)
        self.drag((1500, 635), (1930, 1090))
        self.wait_for_numbers(X=420, Y=445, Width=1500, Height=635)

    def build_texts(self):
        self.click("Lyric", BUTTON)
        self.wait_for_layers("Lyric", "Shape")
        self.enter("Y", "90")
        self.click("Text", BUTTON)
        self.wait_for_layers("Text", "Lyric", "Shape")
        x, y = self.place((960, 490))
        self.server.run("xdotool", "mousemove", x, y, "click", "--repeat", "2", "1")
        text = self.thing("Layer text")
        self.program.press("ctrl+a")
        self.program.type("bell")
        self.program.press("Return")
        self.program.type("light")
        wait_until(lambda: text.text == "bell\nlight", "what was typed to be read")
        text.move_caret(len("bell\n"))
        self.program.type("and ")
        self.program.press("Escape")

    def build_image(self):
        self.click("Image", BUTTON)
        self.program.focus(IMAGE_PANEL)
        self.program.type(str(self.image))
        self.program.press("Return")
        self.wait_for_layers("Image", "Text", "Lyric", "Shape")
        self.press_of("Lock layer", "Image")
        self.click("Send backward")
        self.wait_for_layers("Text", "Image", "Lyric", "Shape")
        self.press_of("Hide", "Lyric")
        wait_until(lambda: self.button_of("Show", "Lyric"), "the lyric to be hidden")

    def check_layers(self, document):
        design = document["serviceItems"][0]["slides"][0]["design"]
        layers = {layer["name"]: layer for layer in design["elements"]}
        self.assertEqual(design["themeId"], "minimalDark")
        self.assertEqual(layers["Shape"]["frame"],
                         {"x": 420, "y": 445, "width": 1500, "height": 635})
        self.assertEqual(layers["Text"]["text"]["text"], "bell\nand light")
        self.assertEqual(layers["Lyric"]["frame"]["y"], 90)
        self.assertEqual({name for name, layer in layers.items() if layer["locked"]}, {"Image"})
        self.assertEqual({name for name, layer in layers.items() if not layer["visible"]},
                         {"Lyric"})

    def layers(self):
        """The names of the layers, the topmost first."""
        return [thing.description for thing in self.shown() if thing.title in ("Hide", "Show")]

    def wait_for_layers(self, *names):
        wait_until(lambda: self.layers() == list(names), f"the layers {names}")

    def click_layer(self, name):
        """Clicks on its row in the list of layers, which comes after the layers on the canvas."""
        row = [thing for thing in self.shown() if (thing.role, thing.title) == (LAYER, name)][-1]
        x, y, width, height = row.area
        self.server.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2),
                        "click", "1")

    def button_of(self, title, layer):
        return next((thing for thing in self.shown()
                     if thing.title == title and thing.description == layer), None)

    def press_of(self, title, layer):
        x, y, width, height = self.button_of(title, layer).area
        self.server.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2),
                        "click", "1")

    def number(self, field):
        return float(self.thing(field, FIELD).text)

    def wait_for_numbers(self, **expected):
        for field, number in expected.items():
            wait_until(lambda: self.number(field) == number, f"{field} to be {number}")

    def enter(self, field, text, window=OPERATOR):
        self.click(field, FIELD, window)
        self.program.press("ctrl+a")
        self.program.type(text)
        self.program.press("Return")

    def place(self, point):
        """Where a point of the slide is on the desktop, as words for xdotool."""
        x, y, width, height = self.thing("Design canvas").area
        scale = min((width - 2 * CANVAS_MARGIN) / CANVAS_WIDTH,
                    (height - 2 * CANVAS_MARGIN) / CANVAS_HEIGHT)
        return (str(round(x + width / 2 + (point[0] - CANVAS_WIDTH / 2) * scale)),
                str(round(y + height / 2 + (point[1] - CANVAS_HEIGHT / 2) * scale)))

    def drag(self, start, end):
        """Drags with the mouse between points of the slide."""
        middle = [(a + b) / 2 for a, b in zip(start, end)]
        self.server.run("xdotool", "mousemove", *self.place(start), "mousedown", "1",
                        "mousemove", *self.place(middle), "mousemove", *self.place(end),
                        "mouseup", "1")

    def press_while_possible(self, item, key):
        def is_possible():
            return next(entry for entry in self.menus()["Edit"]
                        if entry.name == item).has("ENABLED")

        self.program.focus(OPERATOR)
        while is_possible():
            self.program.press(key)


if __name__ == "__main__":
    run()
