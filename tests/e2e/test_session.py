"""Logging out: what the session manager is answered, and what comes back after it."""

import shutil
from pathlib import Path

from documents import UnsavedWork, name_in
from program import ALERT, OPERATOR
from session_manager import (ANYTHING_IS_ASKED, ERRORS_ARE_ASKED, NOBODY_IS_ASKED, SAVE_BOTH,
                             SAVE_GLOBAL, SessionManager)
from show_case import ReadCase, run
from xserver import Unavailable

NOTHING_CANCELLED, CANCELLED = ("interact_done", 0), ("interact_done", 1)
NOT_SAVED, SAVED = ("save_yourself_done", 0), ("save_yourself_done", 1)


class Session(UnsavedWork, ReadCase):
    def setUp(self):
        try:
            self.session = self.enterContext(SessionManager())
        except Unavailable as reason:
            self.skipTest(str(reason))
        super().setUp()
        self.session.wait_for_client()

    def start(self, *arguments, **options):
        return super().start(*arguments, environment=self.session.environment, **options)

    def end_session(self):
        """The exit status of the program, which nothing asks any more."""
        self.session.end_session()
        return self.program.wait_for_end()

    def come_back(self, name):
        """What the next session starts finds the work."""
        again = self.start()
        self.click("Continue", "push button", window=ALERT)
        again.wait_for_window(f"{name} — Quenara")

    def let_nothing_be_kept(self):
        """Takes the journal away, and the place for another."""
        folder = Path(self.state, "Quenara/recovery")
        shutil.rmtree(folder)
        folder.touch()

    def be_asked(self, asking=ANYTHING_IS_ASKED):
        self.session.save(asking=asking)
        self.session.wait_for("interact_request")
        self.session.let_interact()

    def test_where_nothing_is_unsaved_nothing_is_asked(self):
        self.session.save()
        self.session.wait_for(SAVED)
        self.assertEqual(self.end_session(), 0, self.program.output())
        self.assertEqual(self.journals(), [])

    def test_unsaved_work_comes_back_where_nobody_may_be_asked(self):
        for kind in (SAVE_BOTH, SAVE_GLOBAL):
            with self.subTest(kind=kind):
                self.change_name(f"Changed {kind}")
                self.session.save(kind, NOBODY_IS_ASKED)
                self.session.wait_for(SAVED)
                self.assertIsNone(self.program.window(ALERT))
                self.assertEqual(self.end_session(), 0, self.program.output())
                self.assertEqual(len(self.journals()), 1)
                self.come_back(f"Changed {kind}")
                self.session.wait_for_client()

    def test_work_that_cannot_be_left_is_an_error_to_ask_about(self):
        self.change_name("Changed")
        self.let_nothing_be_kept()
        self.be_asked(ERRORS_ARE_ASKED)
        self.program.answer_question("Return")
        self.session.wait_for(NOTHING_CANCELLED, SAVED)
        self.assertEqual(name_in(self.file), "Changed")
        self.assertEqual(self.end_session(), 0, self.program.output())

    def test_work_that_cannot_be_left_is_not_told_to_be_saved(self):
        self.change_name("Changed")
        self.let_nothing_be_kept()
        self.session.save(SAVE_BOTH, NOBODY_IS_ASKED)
        self.session.wait_for(NOT_SAVED)
        self.assertIsNone(self.program.window(ALERT))
        # Ended all the same, the program asks before it lets the work go.
        self.session.end_session()
        self.program.answer_question("Return")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(name_in(self.file), "Changed")

    def test_what_the_next_session_starts_again_offers_projects(self):
        self.assertEqual(self.end_session(), 0, self.program.output())
        self.start("-session", "10a_b")
        self.thing("New Blank Project", window=ALERT)

    def test_cancel_keeps_the_session(self):
        self.change_name("Changed")
        self.be_asked()
        self.program.answer_question("Escape")
        self.session.wait_for(CANCELLED, NOT_SAVED)
        self.session.cancel_the_end()
        self.program.wait_for_no_window(ALERT)
        self.assertIsNotNone(self.program.window("Changed — Quenara"))
        # As if nothing had been asked.
        self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.program.answer_question("Return")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(name_in(self.file), "Changed")

    def test_save_saves_before_the_session_ends(self):
        self.change_name("Changed")
        self.be_asked()
        self.program.answer_question("Return")
        self.session.wait_for(NOTHING_CANCELLED, SAVED)
        self.assertEqual(name_in(self.file), "Changed")
        self.assertEqual(self.end_session(), 0, self.program.output())
        self.assertEqual(self.journals(), [])

    def test_what_is_not_to_be_saved_is_not_asked_about_again_at_the_end(self):
        self.change_name("Changed")
        self.be_asked()
        self.program.answer_question("Tab", "space")
        self.session.wait_for(NOTHING_CANCELLED, SAVED)
        self.assertEqual(self.end_session(), 0, self.program.output())
        self.assertEqual(name_in(self.file), "Evening Show")
        self.assertEqual(self.journals(), [])

    def test_a_session_that_goes_on_drops_nothing_unasked(self):
        """Another program has cancelled the end after this one had agreed to it."""
        for asking in (True, False):
            with self.subTest(asking=asking):
                self.change_name(f"Changed {asking}")
                if asking:
                    self.be_asked()
                    self.program.answer_question("Tab", "space")
                    self.session.wait_for(NOTHING_CANCELLED, SAVED)
                else:
                    self.session.save(SAVE_BOTH, NOBODY_IS_ASKED)
                    self.session.wait_for(SAVED)
                self.session.cancel_the_end()
                self.program.focus(OPERATOR)
                self.program.press("ctrl+q")
                self.program.answer_question("Escape")
                self.program.wait_for_no_window(ALERT)
                self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.program.answer_question("Tab", "space")
        self.assertEqual(self.program.wait_for_end(), 0, self.program.output())
        self.assertEqual(self.journals(), [])

    def test_a_checkpoint_changes_nothing(self):
        self.change_name("Changed")
        self.session.save(SAVE_BOTH, NOBODY_IS_ASKED, ends=False)
        self.session.wait_for(SAVED)
        self.program.focus(OPERATOR)
        self.program.press("ctrl+q")
        self.program.answer_question("Escape")
        self.program.wait_for_no_window(ALERT)
        self.assertEqual(len(self.journals()), 1)


if __name__ == "__main__":
    run()
