"""A document of a test's own, in the program by windows and keys alone."""

import json
import shutil
import tempfile
from pathlib import Path

from program import OPERATOR
from show_case import SHOW


def document_in(file):
    return json.loads(file.read_text())


def name_in(file):
    return document_in(file)["name"]


class Documents:
    """To be mixed into a case: the program on a copy of the show."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quenara-documents-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.file = self.folder / "Evening.quenara"
        shutil.copy(SHOW, self.file)
        self.start(self.file)
        self.program.wait_for_window("Evening Show — Quenara")

    def rename(self, name):
        self.program.focus(OPERATOR)
        self.program.click_project_name()
        self.program.press("ctrl+a")
        self.program.type(name)


class UnsavedWork(Documents):
    """To be mixed into a case that starts the program more than once in one place."""

    def setUp(self):
        self.state = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-state-"))
        super().setUp()

    def start(self, *arguments, environment=None, **options):
        return super().start(*arguments, **options,
                             environment={"XDG_STATE_HOME": self.state} | (environment or {}))

    def journals(self):
        """The files of the work that is not saved."""
        folder = Path(self.state, "Quenara/recovery")
        return sorted(folder.iterdir()) if folder.exists() else []

    def change_name(self, name):
        self.rename(name)
        self.program.press("Return")
        self.program.wait_for_window(f"{name} — Quenara")
