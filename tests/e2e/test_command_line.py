"""The one thing that the command line takes: the document to open."""

import tempfile
from pathlib import Path

from processes import wait_until
from program import ALERT, OPERATOR, START_PANEL
from show_case import SHOW, SHOW_TITLE, ShowCase, run

EMPTY_TITLE = "Untitled Quenara — Quenara"


class CommandLine(ShowCase):
    def see_refusal_of(self, path):
        program = self.start(path)
        program.wait_for_window(ALERT)
        self.assertEqual(program.window(OPERATOR), program.window(EMPTY_TITLE))
        wait_until(lambda: self.is_amid(program.area(ALERT), program.area(OPERATOR)),
                   "the alert in the middle of the window")
        program.focus(ALERT)
        program.press("Return")
        program.wait_for_no_window(ALERT)
        program.wait_for_window(EMPTY_TITLE)
        self.assertIsNone(program.status())

    def is_amid(self, inner, outer):
        """Whether an area lies in the middle of another, save for their frames."""
        return all(abs((2 * inner[at] + inner[size]) - (2 * outer[at] + outer[size])) < 40
                   for size, at in ((0, 2), (1, 3)))

    def test_a_document_opens_under_its_own_name(self):
        program = self.start(SHOW)
        program.wait_for_window(SHOW_TITLE)
        self.assertEqual(list(program.windows().values()), [SHOW_TITLE])

    def test_a_relative_path_counts_from_the_working_folder(self):
        program = self.start(SHOW.name, folder=SHOW.parent)
        program.wait_for_window(SHOW_TITLE)

    def test_without_a_document_the_start_panel_stands_over_the_empty_project(self):
        program = self.start()
        program.wait_for_window(EMPTY_TITLE)
        program.focus(START_PANEL)
        program.press("Escape")
        program.wait_for_no_window(START_PANEL)
        self.assertEqual(list(program.windows().values()), [EMPTY_TITLE])

    def test_a_missing_file_is_refused_and_the_program_stays_usable(self):
        self.see_refusal_of("/nowhere/missing.quenara")

    def test_a_broken_file_is_refused_and_the_program_stays_usable(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        broken = Path(folder, "broken.quenara")
        broken.write_bytes(SHOW.read_bytes()[:-20])
        self.see_refusal_of(broken)

    def test_a_folder_is_refused_and_the_program_stays_usable(self):
        self.see_refusal_of(SHOW.parent)


if __name__ == "__main__":
    run()
