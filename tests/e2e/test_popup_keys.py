"""Keys pressed while a list, a menu or a dialog of the operator window has the keyboard."""

from processes import wait_until
from program import DISPLAY, OPERATOR, SONG_IMPORT, START_PANEL
from show_case import ReadCase, run

PICKER, ROW, BUTTON = "combo box", "list item", "push button"
OPEN_PANEL = "Open Quenara Project"
IMAGE_PANEL = "Choose Image"
LIVE = 1
QUEUED = 0
BARE_KEYS = ("b", "l", "space", "Right", "Left", "Down", "Up", "Page_Down", "Page_Up")
CLOSING_KEYS = ("Return", "KP_Enter")
LAYERS = ("Words", "Band")


class PopupKeys(ReadCase):
    def setUp(self):
        program = self.start_show()
        program.open_display()
        program.focus(OPERATOR)
        # Large enough for the inspector not to scroll.
        program.resize(OPERATOR, 1900, 1030)
        program.press("Right")
        self.see_slide(LIVE)
        # This queues the slide, too, which has a layer of each kind.
        self.click("All stated", ROW)
        wait_until(lambda: self.show() == [LIVE, QUEUED], "the slide to be queued")

    def show(self):
        """The places of the live and the queued row among the slides."""
        told = [description for _, description in self.rows() if description.startswith("Slide ")]
        return [next((place for place, words in enumerate(told) if f", {word}" in words), None)
                for word in ("live", "queued")]

    def see_nothing_moved(self):
        self.assertEqual(self.show(), [LIVE, QUEUED])

    def pickers(self, layer):
        """All pickers that are shown while a layer is selected."""
        self.click(layer, ROW)
        pickers = [thing for thing in self.shown() if thing.role == PICKER]
        self.assertTrue(pickers)
        return pickers

    def open(self, picker):
        x, y, width, height = picker.area
        self.server.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2),
                        "click", "1")
        wait_until(lambda: self.is_open(picker), f"the list of {picker.title} to open")

    @staticmethod
    def is_open(picker):
        return any(child.has("SHOWING") and child.children for child in picker.children)

    def wait_until_closed(self, picker):
        wait_until(lambda: not self.is_open(picker), f"the list of {picker.title} to close")

    def test_a_list_has_every_key_while_it_is_open(self):
        for layer in LAYERS:
            for picker in self.pickers(layer):
                with self.subTest(layer=layer, picker=picker.title):
                    self.open(picker)
                    self.program.press(*BARE_KEYS, "Escape")
                    self.wait_until_closed(picker)
                    self.see_nothing_moved()
        self.see_slide(LIVE)

    def test_return_and_enter_choose_in_a_list_and_send_nothing_live(self):
        for layer in LAYERS:
            for picker in self.pickers(layer):
                for key in CLOSING_KEYS:
                    with self.subTest(layer=layer, picker=picker.title, key=key):
                        self.open(picker)
                        self.program.press(key)
                        self.wait_until_closed(picker)
                        self.see_nothing_moved()
                        # A template has taken the place of the layers.
                        self.program.press("ctrl+z")
                        self.click(layer, ROW)
        self.see_slide(LIVE)

    def test_a_menu_has_every_key_while_it_is_open(self):
        arrows = ("Right", "Left", "Down", "Up")
        for menu in "fetoh":
            with self.subTest(menu=menu):
                self.program.press(f"alt+{menu}", *arrows, "b", "l", "Page_Down", "Escape")
                self.see_nothing_moved()
        # What the last menu leaves behind comes within some milliseconds, and would end an Alt.
        self.program.wait_until_at_rest()
        self.program.press("alt", *arrows, "Escape", "Escape")
        self.see_nothing_moved()
        self.see_slide(LIVE)

    def each_dialog(self):
        """The dialogs that buttons open, each opened anew whenever it is asked for: its title and
        what opens it."""
        for button, window in (("Open", OPEN_PANEL), ("Choose Image...", IMAGE_PANEL),
                               ("New", START_PANEL), ("Paste song lyrics", SONG_IMPORT)):
            yield window, self.thing(button, BUTTON).press

    def close(self, window):
        if self.program.window(window):
            self.program.focus(window)
            self.program.press("Escape")
        self.program.wait_for_no_window(window)

    def test_a_sheet_and_a_file_dialog_have_every_key(self):
        for window, open_dialog in self.each_dialog():
            # On the start panel these choose a project.
            chosen = {"space", *CLOSING_KEYS} if window == START_PANEL else set()
            for key in (*BARE_KEYS, *CLOSING_KEYS):
                if key in chosen:
                    continue
                with self.subTest(window=window, key=key):
                    open_dialog()
                    self.program.focus(window)
                    self.program.press(key)
                    self.close(window)
                    self.see_nothing_moved()
        self.see_slide(LIVE)

    def test_the_display_keeps_its_keys_while_a_sheet_or_a_file_dialog_is_open(self):
        for window, open_dialog in self.each_dialog():
            with self.subTest(window=window):
                open_dialog()
                self.program.focus(window)
                self.program.focus(DISPLAY)
                self.program.press("b")
                self.see_black()
                self.program.press("b")
                self.see_slide(LIVE)
                self.close(window)
                self.program.focus(OPERATOR)

    def test_a_colour_dialog_has_every_key_and_the_display_keeps_its_own(self):
        self.click("Band", ROW)
        for key in (*BARE_KEYS, *CLOSING_KEYS):
            with self.subTest(key=key):
                self.click("Fill", BUTTON)
                self.program.focus("Fill")
                self.program.press(key)
                if self.program.window("Fill"):
                    self.program.focus("Fill")
                    self.program.press("Escape")
                self.program.wait_for_no_window("Fill")
                self.see_nothing_moved()
        self.see_slide(LIVE)
        self.click("Fill", BUTTON)
        self.program.focus("Fill")
        self.program.focus(DISPLAY)
        self.program.press("Return")
        self.see_slide(QUEUED)

    def test_a_menu_stays_open_however_late_a_screen_reader_hears_of_its_keys(self):
        # The program asks only a reader that listens to something.
        with self.reader.moves_of_the_keyboard():
            self.program.wait_until_at_rest()
            with self.reader.silent():
                self.program.press("alt+o")
                self.program.wait_until_at_rest()
        self.program.press("Return")
        self.program.wait_for_no_window(DISPLAY)


if __name__ == "__main__":
    run()
