"""The installed files that tell a desktop of the program: each is valid, and they agree."""

import os
import re
import subprocess
import unittest
from xml.etree import ElementTree

from desktop_entry import ENTRY, PREFIX, read_entry

SHARE = PREFIX / "share"
METAINFO = SHARE / "metainfo/org.quenara.Quenara.metainfo.xml"
MIME_PACKAGE = SHARE / "mime/packages/quenara.xml"
MIME_NAMESPACE = "{http://www.freedesktop.org/standards/shared-mime-info}"
ICONS = SHARE / "icons/hicolor/scalable"


def mime_type():
    return ElementTree.parse(MIME_PACKAGE).find(f"{MIME_NAMESPACE}mime-type")


class DesktopFiles(unittest.TestCase):
    def judge(self, *command):
        """What a validator says of a file that it accepts."""
        status, verdict = self.said_by(*command)
        self.assertEqual(status, 0, verdict)
        return verdict

    @staticmethod
    def said_by(*command):
        result = subprocess.run(command, capture_output=True, text=True, check=False,
                                env=os.environ | {"LC_ALL": "C.UTF-8"})
        return result.returncode, result.stdout + result.stderr

    def test_the_desktop_entry_is_valid_without_a_hint(self):
        self.assertEqual(self.judge("desktop-file-validate", str(ENTRY)), "")

    def test_the_metainfo_is_valid_without_a_warning(self):
        _, verdict = self.said_by("appstreamcli", "validate", "--no-net", str(METAINFO))
        # Newer validators warn of a program without a page on the web, which there is not.
        faults = [line for line in re.findall(r"(?m)^[EW]:.*", verdict)
                  if "url-homepage-missing" not in line]
        self.assertEqual(faults, [], verdict)
        self.assertRegex(verdict, "Validation (was successful|failed: warnings: 1,)")

    def test_the_desktop_entry_starts_the_installed_program_on_a_file(self):
        program, argument = read_entry()["Exec"].split()
        self.assertTrue(os.access(PREFIX / "bin" / program, os.X_OK), program)
        self.assertEqual(argument, "%f")

    def test_the_icons_of_the_program_and_of_its_files_are_installed(self):
        icon = mime_type().find(f"{MIME_NAMESPACE}icon").get("name")
        self.assertTrue((ICONS / "apps" / f"{read_entry()['Icon']}.svg").is_file())
        self.assertTrue((ICONS / "mimetypes" / f"{icon}.svg").is_file())

    def test_the_program_opens_the_type_that_is_declared(self):
        declared = mime_type().get("type")
        self.assertEqual(read_entry()["MimeType"], f"{declared};")
        self.assertEqual(self.metainfo_texts("provides/mediatype"), [declared])

    def test_project_files_are_declared_to_be_generic_data(self):
        relations = (SHARE / "mime/subclasses").read_text().splitlines()
        self.assertEqual(relations, [f"{mime_type().get('type')} application/octet-stream"])

    def test_the_metainfo_describes_the_program_of_the_desktop_entry(self):
        self.assertEqual(self.metainfo_texts("launchable"), [ENTRY.name])
        self.assertEqual(self.metainfo_texts("name"), [read_entry()["Name"]])
        self.assertEqual(self.metainfo_texts("provides/binary"),
                         [read_entry()["Exec"].split()[0]])
        self.assertEqual("".join(f"{category};" for category in
                                 self.metainfo_texts("categories/category")),
                         read_entry()["Categories"])

    def test_the_newest_release_is_the_version_that_is_built(self):
        release = ElementTree.parse(METAINFO).find("releases/release")
        self.assertEqual(release.get("version"), os.environ["QUENARA_VERSION"])

    def metainfo_texts(self, path):
        return [element.text for element in ElementTree.parse(METAINFO).findall(path)]


if __name__ == "__main__":
    unittest.main(verbosity=2)
