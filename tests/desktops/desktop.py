"""A desktop without a monitor, with two screens of 1920 by 1080 side by side: what the tests ask of
it, whatever it is."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1] / "e2e"))

# pylint: disable=wrong-import-position
from processes import Process, Surroundings, wait_until # noqa: E402
from xserver import Unavailable # noqa: E402

WIDTH, HEIGHT = 1920, 1080
# That of a session, but that the tests may speak there, too.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>%s</listen><standard_session_servicedirs/>
  <policy context="default">
    <allow user="*"/><allow own="*"/>
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
  </policy>
</busconfig>"""
NOBODY = 65534 # an ordinary user: compositors refuse root


class Desktop(Surroundings):
    """Runs as an ordinary user.

    What cannot be done without a monitor is not in `abilities`, of "unplug", "scale" and "primary".
    """

    needs = () # executables
    abilities = frozenset()

    def __init__(self):
        missing = [name for name in self.needs if not shutil.which(name)]
        if missing:
            raise Unavailable(f"there is no {', '.join(missing)}: scripts/setup desktops")
        if os.geteuid() != 0:
            raise Unavailable("an ordinary user of its own needs root's rights")
        super().__init__("desktop")

    def begin(self):
        self.folder = Path(self._folder.name)
        self.environment = {
            "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.folder),
            "XDG_RUNTIME_DIR": str(self.folder), "LIBGL_ALWAYS_SOFTWARE": "1"}
        os.chown(self.folder, NOBODY, NOBODY)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus("bus")
        self.come_up()

    def spawn(self, *command, **environment):
        """A process of the desktop's user, which ends with the desktop at the latest."""
        process = Process(self._as_user(command), cwd=self.folder,
                          env=self.environment | environment)
        self._processes.append(process)
        return process

    def ask(self, *command):
        """What a command of the desktop's user prints, which must succeed."""
        answer = subprocess.run(self._as_user(command), env=self.environment, check=False,
                                capture_output=True)
        if answer.returncode != 0:
            raise OSError(f"{command}: {answer.stderr.decode()}")
        return answer.stdout

    def hand_over(self, path, mode=0o644):
        """A copy of a file that the desktop's user may read, and run if the mode says so."""
        copy = self.folder / Path(path).name
        shutil.copy(path, copy)
        copy.chmod(mode)
        os.chown(copy, NOBODY, NOBODY)
        return copy

    def pixels(self, screen, x, y, width, height):
        """The RGB bytes of a part of a screen (0 or 1), in its own pixels."""
        image = self.folder / "screen.png"
        image.unlink(missing_ok=True)
        left = self.save_screenshot(screen, image)
        return subprocess.run(
            ["convert", str(image), "-crop", f"{width}x{height}+{left + x}+{y}", "+repage",
             "-depth", "8", "rgb:-"], check=True, capture_output=True).stdout

    def _start_bus(self, name):
        address = f"unix:path={self.folder / name}"
        configuration = self.folder / f"{name}.conf"
        configuration.write_text(BUS_CONFIGURATION % address)
        self.spawn("dbus-daemon", "--nofork", f"--config-file={configuration}")
        wait_until((self.folder / name).exists, "the bus")
        return address

    @staticmethod
    def _as_user(command):
        return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "--",
                *map(str, command)]

    # What each desktop does in its own way:

    def come_up(self):
        """Starts it, and puts into the environment what a program needs to come up on it."""
        raise NotImplementedError

    def attend(self):
        """Has new windows come up on the first screen, where the desktop would choose another."""

    def windows(self):
        """The shown windows as (title, screen, whether it fills that, whether it has the keys)."""
        raise NotImplementedError

    def give_keyboard(self, title):
        """Has the window with that part of a title in front, with the keyboard."""
        raise NotImplementedError

    def press(self, *keys):
        """Presses keys one after the other, named as X11 does; "alt+o" is two at a time."""
        raise NotImplementedError

    def save_screenshot(self, screen, path):
        """Of that screen, or of all; returns the column at which the screen begins."""
        raise NotImplementedError

    def arrange(self, *screens):
        """Has these screens, as (number, x, scale, whether it is the primary one), and no others."""
        raise NotImplementedError
