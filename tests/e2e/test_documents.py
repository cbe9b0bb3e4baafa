"""Documents by the windows alone: opened, changed, saved, and never lost by a slip."""

import resource

from documents import Documents, name_in
from processes import wait_until
from program import ALERT, DISPLAY, OPERATOR, SAVE_PANEL, SETTINGS, START_PANEL
from show_case import ShowCase, TwoScreenCase, run
from xserver import FIRST_SCREEN

OPEN_PANEL = "Open Quenara Project"
# From the button that is the default to its neighbours; without a warning about the audience.
DO_NOT_SAVE = ["Tab", "space"]


class OneDocument(Documents, ShowCase):
    def test_what_was_typed_last_is_saved_when_quitting(self):
        self.rename("Late change")
        self.program.press("ctrl+q")
        self.program.answer_question("Return")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(name_in(self.file), "Late change")

    def test_a_document_is_dropped_only_when_told_so(self):
        before = self.file.read_bytes()
        self.rename("Dropped")
        self.program.press("ctrl+q")
        self.program.answer_question("Escape")
        self.program.wait_for_no_window(ALERT)
        self.assertIsNotNone(self.program.window("Dropped — Quenara"))
        self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.program.answer_question(*DO_NOT_SAVE)
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(self.file.read_bytes(), before)

    def test_a_save_that_the_system_cuts_short_fails_and_loses_nothing(self):
        before = self.file.read_bytes()
        self.rename("Longer")
        limits = resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, (len(before) // 2, limits[1]))
        self.program.press("Return", "ctrl+s")
        self.program.answer_question("Return")
        self.program.wait_for_no_window(ALERT)
        self.assertEqual(self.file.read_bytes(), before)
        self.assertEqual(list(self.folder.iterdir()), [self.file])
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, limits)
        self.program.focus("Longer — Quenara")
        self.program.press("ctrl+s")
        wait_until(lambda: name_in(self.file) == "Longer", "the file to be saved after all")

    def test_a_file_that_another_program_changed_is_overwritten_only_when_told_so(self):
        self.rename("Mine")
        self.program.press("Return")
        other = self.file.read_bytes().replace(b"Evening Show", b"Morning Show")
        self.file.write_bytes(other)
        self.program.press("ctrl+s")
        self.program.answer_question("Escape")
        self.program.wait_for_no_window(ALERT)
        self.assertEqual(self.file.read_bytes(), other)
        self.program.focus(OPERATOR)
        self.program.press("ctrl+s")
        self.program.answer_question(*DO_NOT_SAVE)
        wait_until(lambda: name_in(self.file) == "Mine", "the file to be overwritten")

    def test_open_recent_asks_first_and_then_opens(self):
        other = self.folder / "Other.quenara"
        self.rename("Other")
        self.program.press("Return")
        self.program.save_as(other)
        self.program.wait_for_no_window(SAVE_PANEL)
        self.rename("Changed")
        self.program.press("Return", "alt+f", *["Down"] * 4, "Right", "Down", "Return")
        self.program.answer_question("Return")
        self.program.wait_for_window("Evening Show — Quenara")
        self.assertEqual(name_in(other), "Changed")

    def test_the_keyboard_is_the_operators_after_a_question_over_the_start_panel(self):
        for number in range(5):
            self.rename(f"Changed {number}")
            self.program.press("Return", "ctrl+n")
            self.program.focus(START_PANEL)
            panel = self.program.focused_window()
            self.program.press("Tab", "space")
            wait_until(lambda: self.program.focused_window() not in ("", panel), "the question")
            self.program.press(*DO_NOT_SAVE)
            self.program.wait_for_window("Sunday Service — Quenara")
            wait_until(lambda: self.program.focused_title() == "Sunday Service — Quenara",
                       "the operator window to have the keyboard")

    def test_a_saved_name_gets_its_suffix_and_is_asked_about_before_it_is_replaced(self):
        path = self.folder / "Copy"
        self.program.focus(OPERATOR)
        self.program.save_as(path)
        written = self.folder / "Copy.quenara"
        wait_until(written.exists, "the file to be saved")
        before = written.read_bytes()
        self.rename("Second")
        self.program.press("Return")
        self.program.save_as(path)
        self.program.answer_question("Escape")
        self.program.focus(SAVE_PANEL)
        self.program.press("Escape")
        self.program.wait_for_no_window(SAVE_PANEL)
        self.assertEqual(written.read_bytes(), before)
        self.program.focus(OPERATOR)
        self.program.save_as(path)
        self.program.answer_question("shift+Tab", "space")
        wait_until(lambda: name_in(written) == "Second", "the file to be replaced")
        self.assertFalse(path.exists())

    def test_a_file_that_is_no_project_is_said_so_and_the_document_stays(self):
        wrong = self.folder / "wrong.json"
        wrong.write_text("[]")
        self.program.focus(OPERATOR)
        self.program.press("ctrl+o")
        self.program.focus(OPEN_PANEL)
        self.program.type(str(wrong))
        self.program.press("Return")
        self.program.answer_question("Return")
        self.program.wait_for_no_window(ALERT)
        self.assertIsNotNone(self.program.window("Evening Show — Quenara"))


class DocumentsDuringTheService(Documents, TwoScreenCase):
    def test_no_dialog_ever_comes_over_the_audience(self):
        program = self.program
        program.open_display()
        program.focus(OPERATOR)
        program.press("Right")
        self.see_slide(1)
        self.rename("Changed")
        program.press("Return")
        for key, title in (("ctrl+shift+s", SAVE_PANEL), ("ctrl+o", ALERT), ("ctrl+q", ALERT),
                           ("ctrl+comma", SETTINGS)):
            program.focus(DISPLAY)
            program.press(key)
            program.focus(title)
            width, height, x, y = program.area(title)
            self.assertLessEqual(x + width, FIRST_SCREEN[0], f"{key} shows {title} at {x}")
            self.see_slide(1)
            program.press("Escape")
            program.wait_for_no_window(title)
        self.assertIsNone(program.status())

    def test_quitting_asks_once_about_the_service_and_the_changes(self):
        program = self.program
        self.rename("Changed")
        program.press("Return")
        program.open_display()
        program.focus(OPERATOR)
        program.press("ctrl+q")
        program.answer_question("Return")
        self.assertEqual(program.wait_for_end(), 0, program.output())
        self.assertEqual(name_in(self.file), "Changed")


if __name__ == "__main__":
    run()
