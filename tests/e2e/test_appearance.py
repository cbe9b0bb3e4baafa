"""The desktop changes between light and dark while the program runs."""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

from processes import wait_until
from show_case import SHOW, ShowCase, run
from xserver import FIRST_SCREEN

STARTS = 4
BRIGHT = 200 # of 255
# How much of the screen is bright at least while the panels are, and at most while they are not.
WITH_LIGHT_PANELS, WITH_DARK_PANELS = 0.2, 0.1


class Appearance(ShowCase):
    def setUp(self):
        super().setUp()
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="quenara-bus-"))
        self.address = f"unix:path={folder}/bus"
        daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork",
                                   f"--address={self.address}", "--print-address"],
                                  stdout=subprocess.PIPE, env=self.server.environment)
        self.addCleanup(daemon.communicate)
        self.addCleanup(daemon.terminate)
        daemon.stdout.readline()

    def start_portal(self):
        portal = subprocess.Popen(
            [sys.executable, "-B", Path(__file__).with_name("settings_portal.py")], text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            env=os.environ | {"DBUS_SESSION_BUS_ADDRESS": self.address})
        self.addCleanup(portal.communicate)
        self.assertEqual(portal.stdout.readline(), "ready\n")
        return portal

    def prefer(self, portal, scheme):
        portal.stdin.write(f"{scheme}\n")
        portal.stdin.flush()

    def start_program(self):
        return self.start(SHOW, environment={"DBUS_SESSION_BUS_ADDRESS": self.address})

    def wait_until_panels_are(self, scheme):
        def are():
            pixels = self.server.screenshot(FIRST_SCREEN)
            share = len(pixels.translate(None, bytes(range(BRIGHT)))) / len(pixels)
            return share < WITH_DARK_PANELS if scheme == "dark" else share > WITH_LIGHT_PANELS

        wait_until(are, f"the {scheme} appearance")

    def test_every_start_follows_the_desktop(self):
        portal = self.start_portal()
        for _ in range(STARTS):
            with self.start_program():
                for scheme in ("light", "dark", "light"):
                    self.prefer(portal, scheme)
                    self.wait_until_panels_are(scheme)

    def test_a_desktop_whose_settings_come_late_is_followed(self):
        self.start_program()
        self.wait_until_panels_are("light")
        for scheme in ("dark", "light"):
            portal = self.start_portal()
            self.prefer(portal, scheme)
            self.wait_until_panels_are(scheme)
            portal.communicate()


if __name__ == "__main__":
    run()
