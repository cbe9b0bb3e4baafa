"""Homes, names and locales as few people have them: the work goes on, and comes back."""

import os
import resource
import signal
import subprocess
import tempfile
from pathlib import Path

from documents import Documents, document_in, name_in
from processes import wait_until
from program import ALERT, OPERATOR, START_PANEL
from show_case import EXECUTABLE, SHOW, ShowCase, run

# Where nobody can make a folder, not even root.
NO_HOME = "/proc/home"
EMPTY_TITLE = "Untitled Quenara — Quenara"


class Homes(Documents, ShowCase):
    def setUp(self):
        self.state = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-state-"))
        self.journals = Path(self.state, "Quenara/recovery")
        super().setUp()
        self.assertEqual(self.program.kill(signal.SIGTERM), 0)

    def start(self, *arguments, environment=None, **options):
        return super().start(*arguments, **options,
                             environment={"XDG_STATE_HOME": self.state} | (environment or {}))

    def change_name(self, name):
        self.rename(name)
        self.program.press("Return")
        self.program.wait_for_window(f"{name} — Quenara")

    def save(self, file, name):
        self.program.press("ctrl+s")
        wait_until(lambda: name_in(file) == name, "the file to be saved")

    def continue_work(self, **options):
        again = self.start(**options)
        again.focus(START_PANEL)
        again.press("Return")
        again.wait_for_window("Changed — Quenara")
        again.focus(OPERATOR)

    def test_where_nothing_can_be_kept_the_show_goes_on(self):
        places = ("XDG_STATE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "HOME")
        program = self.start(self.file, environment=dict.fromkeys(places, NO_HOME))
        program.wait_for_window("Evening Show — Quenara")
        self.change_name("Changed")
        self.save(self.file, "Changed")
        self.change_name("Changed again")
        program.press("Right")
        self.assertEqual(program.kill(signal.SIGTERM), 0, program.output())
        self.assertEqual(program.output().count("could not write its recovery journal"), 1)

    def test_where_the_disk_is_full_the_work_is_kept_once_there_is_room(self):
        before = self.file.read_bytes()
        program = super().start("--fsize=0:", EXECUTABLE, self.file, executable="prlimit",
                                environment={"XDG_STATE_HOME": self.state})
        program.wait_for_window("Evening Show — Quenara")
        self.change_name("Changed")
        program.press("ctrl+s")
        program.answer_question("Return")
        program.wait_for_no_window(ALERT)
        self.assertEqual(self.file.read_bytes(), before)
        resource.prlimit(program.pid, resource.RLIMIT_FSIZE, (resource.RLIM_INFINITY,) * 2)
        program.focus(OPERATOR)
        self.save(self.file, "Changed")
        self.change_name("Lost")
        self.change_name("Changed")
        program.wait_until_at_rest()
        program.kill()
        self.continue_work()

    def test_what_is_no_journal_of_this_version_keeps_nobody_from_starting(self):
        self.journals.mkdir(parents=True, exist_ok=True)
        kept = {"newer.journal": b"Quenara recovery journal 2\nnewer", "text.journal": b"words",
                "large.journal": bytes(1 << 20)}
        for name, content in kept.items():
            (self.journals / name).write_bytes(content)
        (self.journals / "empty.journal").touch()
        (self.journals / "folder.journal").mkdir()
        (self.journals / "nowhere.journal").symlink_to("/nowhere")
        (self.journals / "circle.journal").symlink_to("circle.journal")
        os.mkfifo(self.journals / "pipe.journal")
        program = self.start()
        program.wait_for_window(EMPTY_TITLE)
        program.focus(START_PANEL)
        program.press("Escape")
        program.wait_for_no_window(START_PANEL)
        self.assertEqual({name: (self.journals / name).read_bytes() for name in kept}, kept)

    def test_a_file_of_any_name_is_opened_saved_and_comes_back(self):
        names = ["two\nlines.quenara", "\"quoted\" & <b>bold 100%n.quenara", " .quenara",
                 "\u05e9\u05dc\u05d5\u05dd\u202e.quenara", "-style=fusion.quenara", "e\u0301.quenara"]
        for name in names:
            with self.subTest(name=name):
                file = self.folder / name
                file.write_bytes(SHOW.read_bytes())
                program = self.start(file)
                program.wait_for_window("Evening Show — Quenara")
                self.change_name("Saved")
                self.save(file, "Saved")
                self.change_name("Changed")
                program.wait_until_at_rest()
                program.kill()
                self.continue_work()
                self.save(file, "Changed")
                self.assertEqual(self.program.kill(signal.SIGTERM), 0)
                file.unlink()

    def test_a_name_that_is_no_text_is_refused(self):
        file = self.folder / os.fsdecode(b"no \xff text.quenara")
        file.write_bytes(SHOW.read_bytes())
        program = self.start(file)
        program.answer_question("Return")
        program.wait_for_no_window(ALERT)
        program.wait_for_window(EMPTY_TITLE)

    def test_numbers_are_written_alike_where_they_have_a_comma(self):
        locales = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-locales-"))
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", f"{locales}/de_DE.UTF-8"],
                       check=True, capture_output=True)
        german = {"LC_ALL": "de_DE.UTF-8", "LOCPATH": locales}
        program = self.start(self.file)
        program.wait_for_window("Evening Show — Quenara")
        self.change_name("Whole") # saved, with all that the file lacked
        self.save(self.file, "Whole")
        self.assertEqual(program.kill(signal.SIGTERM), 0)
        expected = document_in(self.file) | {"name": "Changed"}
        self.assertIn(".", str(expected["serviceItems"]))
        program = self.start(self.file, environment=german)
        program.wait_for_window("Whole — Quenara")
        self.change_name("Changed")
        program.wait_until_at_rest()
        program.kill()
        self.continue_work(environment=german)
        self.save(self.file, "Changed")
        saved = document_in(self.file)
        self.assertEqual(saved | {"updatedAt": expected["updatedAt"]}, expected)


if __name__ == "__main__":
    run()
