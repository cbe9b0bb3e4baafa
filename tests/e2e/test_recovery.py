"""What an unexpected end leaves, and the next start brings back."""

import os
import signal

from documents import UnsavedWork, name_in
from processes import wait_until
from program import DISPLAY, OPERATOR, SANITIZER_OPTIONS, STAGE, Program
from show_case import EXECUTABLE, ReadCase, run
from xserver import XServer

EMPTY_TITLE = "Untitled Quenara — Quenara"
SHEET = "Quenara"


class Recovery(UnsavedWork, ReadCase):
    sanitizer = SANITIZER_OPTIONS

    def start(self, *arguments, **options):
        return super().start(*arguments, **options,
                             environment={"ASAN_OPTIONS": self.sanitizer})

    def answer(self, button):
        self.click(button, "push button", window=SHEET)

    def see_start_panel(self):
        self.thing("New Blank Project", window=SHEET)

    def test_the_work_and_the_show_go_on_after_a_kill(self):
        program = self.program
        program.open_display()
        program.open_stage()
        self.change_name("Changed")
        program.press("Right", "Down")
        self.see_slide(1)
        before = self.server.screenshot((1920, 1080, 1920, 0))
        rows = self.rows()
        program.kill()

        again = self.start()
        self.thing("Continue", window=SHEET)
        self.assertEqual(again.window(OPERATOR), again.window(EMPTY_TITLE))
        self.assertIsNone(again.window(DISPLAY))
        again.focus(SHEET)
        again.press("Return")
        again.wait_for_window("Changed — Quenara")
        again.wait_for_window(DISPLAY)
        again.wait_for_window(STAGE)
        self.see(before, "what the audience saw")
        self.wait_for_rows(*(name for name, _ in rows))
        self.assertEqual(self.rows(), rows)
        again.focus(OPERATOR)
        again.press("Right")
        self.see_slide(2)

        again.press("ctrl+s")
        wait_until(lambda: name_in(self.file) == "Changed", "the file to be saved")
        again.press("ctrl+q")
        again.answer_question("Tab", "space")
        self.assertEqual(again.wait_for_end(), 0, again.output())
        self.assertEqual(self.journals(), [])

    def test_the_work_goes_on_after_a_crash(self):
        # A sanitizer would handle what ends others.
        self.sanitizer = f"{SANITIZER_OPTIONS}:handle_segv=0:handle_sigbus=0"
        self.assertEqual(self.program.kill(signal.SIGTERM), 0)
        self.start(self.file)
        self.program.wait_for_window("Evening Show — Quenara")
        for number in (signal.SIGSEGV, signal.SIGABRT, signal.SIGBUS):
            with self.subTest(number=number):
                self.change_name(f"Changed {number}")
                self.assertEqual(self.program.kill(number), -number, self.program.output())
                again = self.start()
                self.answer("Continue")
                again.wait_for_window(f"Changed {number} — Quenara")

    def test_the_work_goes_on_after_the_screens_are_gone(self):
        """The X server ends before its programs, as it does when it crashes."""
        self.assertEqual(self.program.kill(signal.SIGTERM), 0)
        with XServer(two_screens_required=True) as server:
            with Program(server, EXECUTABLE, self.file,
                         environment={"XDG_STATE_HOME": self.state}) as program:
                program.wait_for_window("Evening Show — Quenara")
                program.focus(OPERATOR)
                program.click_project_name()
                program.press("ctrl+a")
                program.type("Changed")
                program.press("Return")
                program.wait_for_window("Changed — Quenara")
                server.close()
                self.assertNotEqual(program.wait_for_end(), 0)
        self.assertEqual(len(self.journals()), 1)
        again = self.start()
        self.answer("Continue")
        again.wait_for_window("Changed — Quenara")

    def test_a_saved_show_goes_on_too(self):
        self.program.open_display()
        self.program.focus(OPERATOR)
        self.program.press("Right", "b")
        self.see_black()
        self.program.kill()
        again = self.start()
        self.answer("Continue")
        again.wait_for_window("Evening Show — Quenara")
        again.wait_for_window(DISPLAY)
        self.see_black()
        again.focus(OPERATOR)
        again.press("b")
        self.see_slide(1)

    def test_a_file_named_at_the_start_waits_until_the_work_is_discarded(self):
        self.change_name("Changed")
        self.program.kill()
        again = self.start(self.file)
        self.answer("Discard")
        again.answer_question("Escape")
        self.answer("Discard")
        again.wait_for_window(EMPTY_TITLE)
        again.answer_question("Tab", "space")
        again.wait_for_window("Evening Show — Quenara")
        self.assertEqual(again.windows().keys(), {again.window(OPERATOR)})
        self.assertEqual(len(self.journals()), 1)

    def test_what_goes_on_is_kept_from_the_file_named_at_the_start(self):
        self.change_name("Changed")
        self.program.kill()
        again = self.start(self.file)
        self.answer("Continue")
        again.wait_for_window("Changed — Quenara")
        again.wait_for_no_window(SHEET)
        again.wait_until_at_rest()
        self.assertIsNotNone(again.window("Changed — Quenara"))

    def test_left_alone_it_is_offered_again(self):
        self.change_name("Changed")
        self.program.kill()
        for _ in range(2):
            again = self.start()
            self.thing("Continue", window=SHEET)
            again.focus(SHEET)
            again.press("Escape")
            self.see_start_panel()
            self.assertEqual(again.kill(signal.SIGTERM), 0)
        self.assertEqual(len(self.journals()), 1)

    def test_a_signal_ends_the_program_in_order_and_keeps_the_work(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(number=number):
                self.change_name(f"Changed {number}")
                self.assertEqual(self.program.kill(number), 0, self.program.output())
                self.assertEqual(len(self.journals()), 1)
                again = self.start()
                self.answer("Continue")
                again.wait_for_window(f"Changed {number} — Quenara")

    def test_a_signal_leaves_nothing_where_nothing_is_unsaved(self):
        self.assertEqual(self.program.kill(signal.SIGTERM), 0, self.program.output())
        self.assertEqual(self.journals(), [])
        self.start()
        self.see_start_panel()

    def test_a_document_that_is_open_in_a_running_program_is_opened_only_when_told_so(self):
        first = self.program
        link = self.folder / "Link.quenara"
        link.symlink_to(self.file)
        first.open_display()
        again = self.start(link)
        titles = lambda: sorted(again.windows().values())
        wait_until(lambda: EMPTY_TITLE in titles() and SHEET in titles(), "the question")
        again.press("Escape")
        self.see_start_panel()
        self.assertIn(EMPTY_TITLE, titles())
        self.assertEqual(again.kill(signal.SIGTERM), 0)

        again = self.start(link)
        self.click("Open Anyway", "push button", window=SHEET)
        wait_until(lambda: titles().count("Evening Show — Quenara") == 2, "both to have it")
        self.assertEqual(first.kill(signal.SIGTERM), 0)
        self.assertEqual(again.kill(signal.SIGTERM), 0)
        # Nobody has it any more.
        alone = self.start(link)
        alone.wait_for_window("Evening Show — Quenara")
        alone.wait_until_at_rest()
        self.assertIsNone(alone.window(SHEET))

    def test_what_a_running_program_has_is_not_offered(self):
        self.change_name("Changed")
        self.start()
        self.see_start_panel()
        self.assertEqual(len(self.journals()), 1)


if __name__ == "__main__":
    run()
