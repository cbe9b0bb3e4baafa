"""The installed program, as a desktop starts it and knows its windows."""

from desktop_entry import read_entry
from program import OPERATOR
from show_case import SHOW, SHOW_TITLE, ShowCase, run


class InstalledProgram(ShowCase):
    def property_of(self, program, name):
        """What a property of the operator window's is, in xprop's words."""
        return self.server.run("xprop", "-id", program.wait_for_window(OPERATOR), name).decode()

    def test_it_opens_the_file_that_it_is_started_on(self):
        self.start(SHOW).wait_for_window(SHOW_TITLE)

    def test_its_windows_belong_to_the_desktop_entry(self):
        instance = read_entry()["StartupWMClass"]
        self.assertRegex(self.property_of(self.start(), "WM_CLASS"), f'= "{instance}", "')

    def test_its_windows_carry_the_icon(self):
        icons = self.property_of(self.start(), "_NET_WM_ICON")
        for size in 16, 32, 64, 128:
            self.assertIn(f"Icon ({size} x {size})", icons)


if __name__ == "__main__":
    run()
