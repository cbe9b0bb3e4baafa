"""Keys pressed while a list, a menu or a dialog of the operator window has the keyboard."""

from processes import wait_until
from program import DISPLAY, OPERATOR
from show_case import ReadCase, run

PICKER, SWITCH, BUTTON = "combo box", "check box", "push button"
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
        # So large that the inspector need not scroll.
        program.resize(OPERATOR, 1900, 1030)
        program.press("Right")
        self.see_slide(LIVE)
        # This queues the slide, too, which has a layer of each kind.
        self.click("All stated", "list item")
        wait_until(lambda: self.show() == [LIVE, QUEUED], "the slide to be queued")

    def show(self):
        """The places of the live and the queued row among the slides."""
        told = [description for _, description in self.rows() if description.startswith("Slide ")]
        return [next((place for place, words in enumerate(told) if f", {word}" in words), None)
                for word in ("live", "queued")]

    def see_nothing_moved(self):
        self.assertEqual(self.show(), [LIVE, QUEUED])
        self.see_slide(LIVE)

    def pickers(self):
        return [thing.title for thing in self.shown() if thing.role == PICKER]

    def open(self, picker):
        self.click(picker, PICKER)
        wait_until(lambda: self.is_open(picker), f"the list of {picker} to open")

    def is_open(self, picker):
        return any(child.has("SHOWING") and child.children
                   for child in self.thing(picker, PICKER).children)

    def wait_until_closed(self, picker):
        wait_until(lambda: not self.is_open(picker), f"the list of {picker} to close")

    def test_a_list_has_every_key_while_it_is_open(self):
        for layer in LAYERS:
            self.click(layer, SWITCH)
            pickers = self.pickers()
            self.assertTrue(pickers)
            for picker in pickers:
                with self.subTest(layer=layer, picker=picker):
                    self.open(picker)
                    self.program.press(*BARE_KEYS, "Escape")
                    self.wait_until_closed(picker)
                    self.see_nothing_moved()

    def test_return_and_enter_choose_in_a_list_and_send_nothing_live(self):
        for layer in LAYERS:
            self.click(layer, SWITCH)
            for picker in self.pickers():
                for key in CLOSING_KEYS:
                    with self.subTest(layer=layer, picker=picker, key=key):
                        self.open(picker)
                        self.program.press(key)
                        self.wait_until_closed(picker)
                        self.see_nothing_moved()
                        # A template has taken the place of the layers.
                        self.program.press("ctrl+z")
                        self.click(layer, SWITCH)

    def test_a_menu_has_every_key_while_it_is_open(self):
        arrows = ("Right", "Left", "Down", "Up")
        for menu in "fetoh":
            with self.subTest(menu=menu):
                self.program.press(f"alt+{menu}", *arrows, "b", "l", "Page_Down", "Escape")
                self.see_nothing_moved()
        self.program.press("alt", *arrows, "Escape", "Escape")
        self.see_nothing_moved()

    def test_a_colour_dialog_has_every_key_and_the_display_keeps_its_own(self):
        self.click("Band", SWITCH)
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
        self.click("Fill", BUTTON)
        self.program.focus("Fill")
        self.program.focus(DISPLAY)
        self.program.press("Return")
        self.see_slide(QUEUED)


if __name__ == "__main__":
    run()
