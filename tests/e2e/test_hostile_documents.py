"""Documents that nobody would write, opened with both outputs and stepped through by keys."""

import os
import signal
import sys
import tempfile
from pathlib import Path

from processes import wait_until
from program import ALERT, DISPLAY, OPERATOR, STAGE, Program
from show_case import EXECUTABLE, TwoScreenCase, run

sys.path.append(str(Path(__file__).parent.parent / "fuzz"))
from mutated_documents import mutated_document

# The same documents for the same numbers: as many from the first on as are wanted.
COUNT = int(os.environ.get("QUENARA_DOCUMENTS", 6))
FIRST = int(os.environ.get("QUENARA_FIRST_DOCUMENT", 0))
MOST_STEPS = 150
MOST_MEMORY = 1024 # MB, with what the sanitizers add


class HostileDocuments(TwoScreenCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-fuzz-")))
        self.opened = self.refused = self.steps = 0

    def test_each_is_refused_or_shown_from_its_first_slide_to_its_last(self):
        """No wait may pass its deadline, nor the memory its limit: each counts as a finding."""
        findings = []
        for number in range(FIRST, FIRST + COUNT):
            try:
                self.step_through(mutated_document(number))
            except AssertionError as what:
                findings.append(f"document {number}: {what}")
        print(f"documents: {COUNT} from {FIRST} on, {self.opened} opened, {self.refused} refused, "
              f"{self.steps} steps, {len(findings)} findings", flush=True)
        self.assertEqual("\n".join(findings), "")

    def step_through(self, document):
        file = self.folder / "Hostile.quenara"
        file.write_bytes(document)
        limits = f"detect_leaks=0:hard_rss_limit_mb={MOST_MEMORY}:quarantine_size_mb=16"
        with Program(self.server, EXECUTABLE, file,
                     environment={"ASAN_OPTIONS": limits}) as program:
            try:
                program.wait_for_window(OPERATOR)
                program.wait_until_at_rest()
                self.answer_refusal(program)
                self.open_outputs(program)
                program.focus(OPERATOR)
                # More than there are slides: sections have an order, too.
                steps = min(MOST_STEPS, document.count(b'"orderIndex"') + 1)
                program.press(*["Right"] * steps)
                program.wait_until_at_rest()
                self.steps += steps
                self.assertEqual(program.kill(signal.SIGTERM), 0)
            except (AssertionError, OSError) as what: # nothing is known of what has ended
                raise AssertionError(f"{what}: {program.output()}") from what

    def answer_refusal(self, program):
        if program.window(ALERT):
            self.refused += 1
            program.answer_question("Return")
            program.wait_for_no_window(ALERT)
        else:
            self.opened += 1

    @staticmethod
    def open_outputs(program):
        """Under a load, a menu may miss a key that comes too soon."""
        for title, toggle in ((DISPLAY, program.toggle_display), (STAGE, program.toggle_stage)):
            def is_open(title=title, toggle=toggle):
                if program.window(title):
                    return True
                toggle()
                program.wait_until_at_rest()
                return program.window(title)

            wait_until(is_open, title)


if __name__ == "__main__":
    run()
