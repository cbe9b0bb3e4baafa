"""The Debian package: what apt is told, and that it holds what is installed without it."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from desktop_entry import PREFIX


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        output(os.environ["QUENARA_CPACK"], "--config",
               os.environ["QUENARA_BUILD"] + "/CPackConfig.cmake", "-B", cls.folder.name)
        (cls.package,) = Path(cls.folder.name).glob("*.deb")

    def names(self, field):
        """The packages that a field names, without their versions."""
        value = output("dpkg-deb", "--field", str(self.package), field)
        return set(re.findall(r"[a-z][a-z0-9+.-]+(?=[ ,\n])", re.sub(r"\([^)]*\)", " ", value)))

    def test_it_recommends_the_fonts_that_slides_in_other_scripts_are_drawn_with(self):
        self.assertLessEqual({"fonts-noto-core", "fonts-noto-cjk", "fonts-noto-color-emoji"},
                             self.names("Recommends"))

    def test_it_recommends_what_reads_photographs_and_what_shows_windows_on_wayland(self):
        self.assertLessEqual({"qt6-image-formats-plugins", "qt6-wayland"},
                             self.names("Recommends"))

    def test_it_depends_on_the_libraries_that_the_program_is_linked_with(self):
        needed = output("objdump", "-p", str(PREFIX / "bin/quenara"))
        libraries = re.findall(r"NEEDED +(\S+)\.so", needed)
        self.assertIn("libQt6Widgets", libraries)
        packaged = " ".join(self.names("Depends"))
        for library in libraries:
            if not library.startswith("ld-linux"):
                with self.subTest(library):
                    stem = library.lower().removesuffix("_s").replace("libz", "zlib1g")
                    self.assertIn({"libm": "libc", "libgcc": "libgcc-s"}.get(stem, stem),
                                  packaged)

    def test_apt_can_install_it_here(self):
        installed = Path("/var/lib/dpkg/status").read_text(encoding="utf-8").split("\n\n")
        without_it = Path(self.folder.name, "status")
        without_it.write_text("\n\n".join(
            package for package in installed if not package.startswith("Package: quenara\n")),
            encoding="utf-8")
        self.assertIn("Inst quenara", output(
            "apt-get", "install", "--simulate", "--no-install-recommends",
            "-o", f"Dir::State::status={without_it}", str(self.package)))

    def test_the_licences_of_what_is_compiled_in_come_with_it(self):
        text = (PREFIX / "share/doc/quenara/copyright").read_text(encoding="utf-8")
        for words in ("SIL OPEN FONT LICENSE", "Reserved Font Name", "The Inter Project Authors",
                      "The Bootstrap Authors", "Permission is hereby granted, free of charge"):
            with self.subTest(words):
                self.assertIn(words.lower(), " ".join(text.lower().split()))

    def test_it_holds_what_is_installed_without_it(self):
        listed = output("dpkg-deb", "--contents", str(self.package)).splitlines()
        packaged = {line.split(" ./usr/")[1] for line in listed if not line.startswith("d")}
        installed = {str(path.relative_to(PREFIX)) for path in PREFIX.rglob("*")
                     if path.is_file() and not self.is_made_by_the_desktop(path)}
        self.assertEqual(packaged, installed)
        self.assertIn("bin/quenara", packaged)

    @staticmethod
    def is_made_by_the_desktop(path):
        """What update-mime-database leaves beside the packages that it reads."""
        folder = PREFIX / "share/mime"
        return folder in path.parents and folder / "packages" not in path.parents


if __name__ == "__main__":
    unittest.main()
