"""Every control by its name, role and state, as a screen reader tells of them."""

from documents import Documents
from processes import wait_until
from program import ABOUT, ALERT, DISPLAY, OPERATOR, SETTINGS, STAGE, START_PANEL
from show_case import ReadCase, run, slide_hash

BUTTON, SWITCH, CHOICE, TEXT, PICKER, SLIDER, ROW, SPIN_BOX = (
    "push button", "check box", "radio button", "text", "combo box", "slider", "list item",
    "spin button")

PROJECT_BAR = {(TEXT, "Project Name"), (BUTTON, "New"), (BUTTON, "Open"), (BUTTON, "Save")}
RUNDOWN = {(BUTTON, name) for name in (
    "Add section", "Paste song lyrics", "Slide", "Duplicate selected slide",
    "Delete selected slide", "Move slide up", "Move slide down", "Delete selected section",
    "Move section up", "Move section down")}
CANVAS_HEADER = {(BUTTON, "Text"), (BUTTON, "Lyric"), (BUTTON, "Image")}
TRANSPORT = {(BUTTON, name) for name in (
    "Previous", "Go Live", "Next", "Queue Prev", "Queue Next")} | {
    (SWITCH, name) for name in ("Blackout", "Logo", "Display", "Monitor")}
SLIDE_AND_LAYERS = {(TEXT, "Title"), (PICKER, "Template")} | {(BUTTON, name) for name in (
    "Add Text", "Add Shape", "Duplicate layer", "Delete layer", "Bring forward", "Send backward",
    "Hide", "Lock layer")}
BACKGROUND = {(PICKER, "Type"), (BUTTON, "Solid"), (BUTTON, "Gradient Start"),
              (BUTTON, "Gradient End"), (PICKER, "Direction"), (BUTTON, "Choose Image..."),
              (SLIDER, "Dim")}
ANY_LAYER = {(TEXT, name) for name in ("Name", "X", "Y", "Width", "Height")} | {
    (SWITCH, "Visible"), (SWITCH, "Locked"), (SLIDER, "Opacity")}
TEXT_LAYER = {(PICKER, "Font"), (PICKER, "Weight"), (BUTTON, "Decrease Size"),
              (BUTTON, "Increase Size"), (BUTTON, "Text Color"), (CHOICE, "Align Left"),
              (CHOICE, "Align Center"), (CHOICE, "Align Right"), (SLIDER, "Line"),
              (SLIDER, "Tracking"), (SWITCH, "Uppercase"), (SWITCH, "Shadow")}
SHAPE_LAYER = {(PICKER, "Shape"), (BUTTON, "Fill"), (BUTTON, "Decrease Radius"),
               (BUTTON, "Increase Radius")}
EVERYWHERE = (PROJECT_BAR | RUNDOWN | CANVAS_HEADER | TRANSPORT | SLIDE_AND_LAYERS | BACKGROUND
              | ANY_LAYER)

MENUS = {
    "File": ["New Project...", "New Blank Project", "New Sunday Service", "Open...",
             "Open Recent", "Save", "Save As...", "Export...", "Quit"],
    "Edit": ["Undo", "Redo", "Cut Slide", "Copy Slide", "Paste", "Duplicate Slide",
             "Delete Slide", "Move Slide Up", "Move Slide Down", "Move Section Up",
             "Move Section Down", "Settings..."],
    "Transport": ["Go Live", "Go Live", "Next Live Slide", "Previous Live Slide", "Queue Next",
                  "Queue Previous", "Go to Slide...", "Toggle Blackout", "Toggle Logo"],
    "Output": ["Open Display Window", "Open Monitor Window", "Fill Screen with Monitor"],
    "Help": ["About Quenara"],
}


class Accessibility(Documents, ReadCase):
    def controls(self, window=OPERATOR):
        """The (role, title) of all that is to be used in a window, lists and areas apart."""
        roles = {BUTTON, SWITCH, CHOICE, TEXT, PICKER, SLIDER}
        return [(thing.role, thing.title) for thing in self.shown(window)
                if thing.role in roles and thing.has("FOCUSABLE")]

    def wait_for_controls(self, expected):
        """Passes once these are there and no others."""
        try:
            wait_until(lambda: set(self.controls()) == expected, "the controls", deadline=10)
        except AssertionError:
            self.assertEqual(set(self.controls()), expected)

    def test_every_control_is_found_by_its_name_and_role(self):
        for layer, of_its_kind in (("Words", TEXT_LAYER), ("Band", SHAPE_LAYER)):
            with self.subTest(layer=layer):
                self.click(layer, ROW)
                self.wait_for_controls(EVERYWHERE | of_its_kind)

    def test_what_can_have_the_keyboard_has_a_name_of_its_own(self):
        known = set()
        for thing in self.shown():
            if thing.has("FOCUSABLE"):
                told = (thing.role, thing.title, thing.description)
                self.assertTrue(thing.title, f"a {thing.role} without a name")
                self.assertNotIn(told, known)
                known.add(told)

    def test_the_menus_tell_their_items_and_which_of_them_can_be_chosen(self):
        told = {menu: [item.name for item in items] for menu, items in self.menus().items()}
        self.assertEqual(told, MENUS)
        first = [item for item in MENUS["Edit"][2:] if not item.endswith(" Up")]
        self.assertEqual(self.enabled_in_edit_menu(), first)
        self.click("Duplicate selected slide")
        after = ["Undo", *(item for item in MENUS["Edit"][2:] if item != "Move Section Up")]
        wait_until(lambda: self.enabled_in_edit_menu() == after, "Undo, and a slide to move up")
        self.click("Band", ROW)
        wait_until(lambda: "Delete Layer" in self.enabled_in_edit_menu(), "the layer's items")

    def enabled_in_edit_menu(self):
        return [item.name for item in self.menus()["Edit"] if item.has("ENABLED")]

    def test_the_live_and_the_queued_row_say_so(self):
        self.assertEqual(self.rows()[:3], [
            ("Welcome", "Welcome section, selected"),
            ("All stated", "Slide 1 of Welcome, live, queued, selected"),
            ("Slide", "Slide 2 of Welcome")])
        self.thing("Queue Next", BUTTON).press()
        self.wait_for_row("Slide", "Slide 2 of Welcome, queued, selected")
        self.wait_for_row("All stated", "Slide 1 of Welcome, live")
        self.thing("Go Live", BUTTON).press()
        self.wait_for_row("Slide", "Slide 2 of Welcome, live, queued, selected")

    def test_the_layers_are_a_list_whose_rows_are_selected_by_their_action(self):
        layers = next(thing for thing in self.shown() if thing.name == "Layers"
                      and thing.role == "list")
        told = [(row.role, row.name) for row in layers.children]
        self.assertEqual(told, [(ROW, "Words"), (ROW, "Band")])
        for row in layers.children:
            row.press()
            wait_until(lambda row=row: row.has("SELECTED"), f"{row.name} to be selected")
            self.assertEqual(self.thing("Name", TEXT).text, row.name)
            self.assertEqual([other.name for other in layers.children if other.has("SELECTED")],
                             [row.name])

    def test_the_layers_on_the_canvas_are_selected_by_their_action_and_followed_by_the_keyboard(self):
        canvas = self.thing("Design canvas", "canvas")
        layers = [thing for thing in canvas.children if thing.role == ROW]
        self.assertEqual([layer.name for layer in layers], ["Words", "Band"])
        x, y, width, height = canvas.area
        for layer in layers:
            layer.press()
            wait_until(lambda layer=layer: layer.has("SELECTED"), f"{layer.name} to be selected")
            self.assertEqual(self.thing("Name", TEXT).text, layer.name)
            left, top, across, down = layer.area
            self.assertTrue(x <= left and y <= top and left + across <= x + width
                            and top + down <= y + height, layer.area)
        self.program.focus(OPERATOR)
        canvas.take_keyboard()
        with self.reader.moves_of_the_keyboard() as moves:
            self.program.press("Tab")
            wait_until(lambda: layers[0].name in moves(), "the first layer to have the keyboard")
            self.assertTrue(layers[0].has("FOCUSED"))
        with self.reader.changes_of_descriptions() as changes:
            self.program.press("ctrl+Right")
            wait_until(lambda: layers[0].name in changes(), "the move to be told of")

    def test_a_row_of_the_rundown_is_selected_by_its_action_and_as_a_row_of_a_table(self):
        rundown = self.thing("Rundown", "list")
        rundown.children[2].press()
        self.wait_for_row("Slide", "Slide 2 of Welcome, queued, selected")
        self.assertTrue(rundown.children[2].has("SELECTED"))
        self.assertFalse(rundown.children[1].has("SELECTED"))
        wait_until(lambda: rundown.children[2].has("FOCUSED"), "the row to have the keyboard")
        rundown.select_row(1)
        self.wait_for_row("All stated", "Slide 1 of Welcome, live, queued, selected")
        wait_until(lambda: rundown.children[1].has("FOCUSED"), "the row to have the keyboard")
        self.assertFalse(rundown.children[2].has("SELECTED"))

    def test_what_is_switched_by_its_action_is_switched(self):
        for name, row in (("Blackout", "BLACKOUT"), ("Logo", "LOGO")):
            self.thing(name, SWITCH).press()
            wait_until(lambda row=row: any(thing.name == row for thing in self.shown()), row)
            self.assertTrue(self.thing(name, SWITCH).has("CHECKED"))
            self.thing(name, SWITCH).press()
            wait_until(lambda: any(thing.name == "LIVE" for thing in self.shown()), "LIVE")
        for name, window in (("Display", DISPLAY), ("Monitor", STAGE)):
            self.thing(name, SWITCH).press()
            self.program.wait_for_window(window)
            self.thing(name, SWITCH).press()
            self.program.wait_for_no_window(window)
        for name, shown in (("Visible", "Show"), ("Locked", "Unlock layer")):
            self.thing(name, SWITCH).press()
            self.thing(shown, BUTTON).press()
            wait_until(lambda shown=shown: shown not in {title for _, title in self.controls()},
                       f"{name} to be switched back")
        self.thing("Align Right", CHOICE).press()
        wait_until(lambda: self.thing("Align Right", CHOICE).has("CHECKED"), "the alignment")
        self.assertFalse(self.thing("Align Center", CHOICE).has("CHECKED"))

    def test_each_change_of_what_the_audience_sees_is_announced_once(self):
        self.program.focus(OPERATOR)
        steps = [
            (lambda: self.program.press("Right"), "Live: Slide, 2 of 4"),
            (lambda: self.program.press("b"), "Blackout"),
            (lambda: self.thing("Blackout", SWITCH).press(), "Live: Slide, 2 of 4"),
            (lambda: self.click("Logo", SWITCH), "Logo"),
            (lambda: self.program.press("l"), "Live: Slide, 2 of 4"),
            (lambda: self.thing("Display", SWITCH).press(), "Display opened"),
            (lambda: self.thing("Display", SWITCH).press(), "Display closed"),
        ]
        with self.reader.notifications() as heard:
            for told, (act, words) in enumerate(steps, start=1):
                act()
                wait_until(lambda told=told: len(heard()) >= told, words)
                self.assertEqual(heard()[told - 1:], [words])
            # Editing and queueing change nothing for the audience.
            self.program.focus(OPERATOR)
            self.program.press("Up")
            self.wait_for_row("All stated", "Slide 1 of Welcome, queued, selected")
            self.assertEqual(len(heard()), len(steps))

    def test_switches_tell_whether_they_are_on(self):
        for name, key in (("Blackout", "b"), ("Logo", "l")):
            switch = self.thing(name, SWITCH)
            self.assertFalse(switch.has("CHECKED"))
            self.program.focus(OPERATOR)
            self.program.press(key)
            wait_until(lambda: switch.has("CHECKED"), f"{name} to be on")
            self.program.press(key)
            wait_until(lambda: not switch.has("CHECKED"), f"{name} to be off")
        locked = self.thing("Locked", SWITCH)
        self.assertFalse(locked.has("CHECKED"))
        self.thing("Lock layer").press()
        wait_until(lambda: locked.has("CHECKED"), "the layer to be locked")
        self.assertEqual(self.thing("Unlock layer").description, "Words")

    def test_controls_tell_what_they_show(self):
        self.assertEqual(self.thing("Title", TEXT).text, "All stated")
        self.assertEqual(self.thing("X", TEXT).text, "160")
        self.assertEqual(self.thing("Opacity", SLIDER).value, 1)
        self.assertEqual(self.thing("Type", PICKER).name, "gradient")
        self.assertEqual(self.thing("Text Color", BUTTON).description, "#ffffff")
        self.assertTrue(self.thing("Align Center", CHOICE).has("CHECKED"))
        self.assertFalse(self.thing("Align Left", CHOICE).has("CHECKED"))

    def test_a_slider_is_set_through_the_reader_in_one_step(self):
        opacity = self.thing("Opacity", SLIDER)
        opacity.set_value(0.5)
        wait_until(lambda: opacity.value == 0.5, "half the opacity")
        self.program.focus(OPERATOR)
        self.program.press("ctrl+z")
        wait_until(lambda: opacity.value == 1, "the opacity that was")

    def test_what_is_written_through_the_reader_is_taken_as_if_it_were_typed(self):
        for name, text in (("Project Name", "Morning Show"), ("Title", "Hello"), ("X", "200")):
            before = self.thing(name, TEXT).text
            self.thing(name, TEXT).write(text)
            wait_until(lambda name=name, text=text: self.thing(name, TEXT).text == text, name)
            self.program.focus(OPERATOR)
            self.program.press("ctrl+z")
            wait_until(lambda name=name, before=before: self.thing(name, TEXT).text == before,
                       f"the {name} that was")
        self.thing("Text Color").press()
        self.program.focus("Text Color")
        self.thing("HTML:", TEXT, "Text Color").write("#336699")
        wait_until(lambda: self.thing("Text Color").description == "#336699", "the colour")
        self.thing("Blue:", SPIN_BOX, "Text Color").set_value(0)
        wait_until(lambda: self.thing("Text Color").description == "#336600", "the colour's blue")
        self.program.press("Escape")
        self.program.wait_for_no_window("Text Color")

    def test_nothing_is_written_or_set_behind_a_dialog_nor_an_open_list(self):
        name = self.thing("Project Name", TEXT)
        opacity = self.thing("Opacity", SLIDER)
        layer = self.thing("Name", TEXT)
        before = name.text, opacity.value, layer.text

        def change():
            name.write("Elsewhere")
            layer.write("Elsewhere")
            opacity.set_value(0.5)
            self.program.wait_until_at_rest()
            self.assertEqual((name.text, opacity.value, layer.text), before)

        self.program.focus(OPERATOR)
        self.program.press("ctrl+n")
        self.program.focus(START_PANEL)
        change()
        self.program.press("Escape")
        self.program.wait_for_no_window(START_PANEL)
        picker = self.thing("Type", PICKER)
        picker.press()
        wait_until(lambda: picker.has("EXPANDED"), "the list to open")
        name.write("Elsewhere")
        wait_until(lambda: not picker.has("EXPANDED"), "the list to close")
        self.assertEqual(name.text, before[0])
        name.write("Here")
        self.program.wait_for_window("Here — Quenara")

    def test_a_slider_tells_of_each_value_that_keys_or_an_undo_give_it(self):
        self.program.focus(OPERATOR)
        opacity = self.thing("Opacity", SLIDER)
        opacity.take_keyboard()
        with self.reader.changes_of_values() as changes:
            for told, (key, value) in enumerate((("ctrl+Left", 0.98), ("ctrl+z", 1)), start=1):
                self.program.press(key)
                wait_until(lambda told=told: changes() == ["Opacity"] * told, "a change to be told")
                self.assertEqual(opacity.value, value)

    def test_a_key_that_is_held_while_a_reader_listens_acts_once(self):
        self.program.open_display()
        self.program.focus(OPERATOR)
        self.see_slide(0)
        with self.reader.moves_of_the_keyboard():
            self.program.wait_until_at_rest()
            self.see_while_held("Right", slide_hash(0), slide_hash(1))
            self.thing("Next", BUTTON).focus()
            self.see_while_held("ctrl+space", slide_hash(1), slide_hash(2))

    def test_a_menu_opened_behind_a_dialog_leaves_that_the_keyboard(self):
        self.program.open_display()
        self.program.focus(OPERATOR)
        self.menus()["Help"][0].press()
        self.program.wait_for_window(ABOUT)
        self.program.focus(DISPLAY)
        bar = next(thing for thing in self.shown() if thing.role == "menu bar")
        bar.children[0].press()
        wait_until(lambda: bar.children[0].children[0].has("SHOWING"), "the menu to open")
        self.program.press("Escape")
        self.program.wait_until_at_rest()
        self.program.press("Escape")
        self.program.wait_for_no_window(ABOUT)

    def test_without_a_slide_what_needs_one_is_disabled(self):
        self.program.focus(OPERATOR)
        self.program.choose("f", 1)
        self.program.wait_for_window("Untitled Quenara — Quenara")
        for name in ("Text", "Lyric", "Image"):
            self.assertFalse(self.thing(name, BUTTON).has("ENABLED"), name)
        self.assertTrue(self.thing("Slide", BUTTON).has("ENABLED"))

    def test_the_other_windows_tell_their_controls(self):
        for keys, window, expected in (
                ("ctrl+n", START_PANEL, {
                    (BUTTON, "New Blank Project"), (BUTTON, "New Sunday Service"),
                    (BUTTON, "Open Demo Service"), (BUTTON, "Open File..."),
                    (BUTTON, "Evening Show")}),
                ("ctrl+comma", SETTINGS, {
                    (CHOICE, "System"), (CHOICE, "Light"), (CHOICE, "Dark")})):
            with self.subTest(window=window):
                self.program.focus(OPERATOR)
                self.program.press(keys)
                self.program.focus(window)
                self.assertEqual(set(self.controls(window)), expected)
                self.program.press("Escape")
                self.program.wait_for_no_window(window)

    def test_the_song_import_and_the_question_tell_their_controls(self):
        window = "Paste Song Lyrics"
        self.thing("Paste song lyrics").press()
        self.program.focus(window)
        self.assertEqual(set(self.controls(window)), {
            (TEXT, "Song title"), (TEXT, "Lyrics"), (BUTTON, "Cancel"), (BUTTON, "Import Song")})
        self.thing("Cancel", window=window).press()
        self.program.wait_for_no_window(window)
        self.rename("Changed")
        self.program.press("ctrl+q")
        self.program.focus(ALERT)
        self.assertEqual(set(self.controls(ALERT)), {
            (BUTTON, "Save"), (BUTTON, "Don't Save"), (BUTTON, "Cancel")})


if __name__ == "__main__":
    run()
