"""X servers to run the program on: a real one with two screens, or a virtual one."""

import os
import shutil
import subprocess
from pathlib import Path

from processes import Process, Surroundings, wait_until
from x_windows import XWindows

SCREEN_WATCH = os.environ.get("QUENARA_SCREEN_WATCH", "")
NOT_SHOWN = 3  # the status of screen_watch
SCREEN_WIDTH = 1920
SCREEN_HEIGHT = 1080
FIRST_SCREEN = (SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0)
SECOND_SCREEN = (SCREEN_WIDTH, SCREEN_HEIGHT, SCREEN_WIDTH, 0)
THIRD_SCREEN = (SCREEN_WIDTH, SCREEN_HEIGHT, 2 * SCREEN_WIDTH, 0)

DUMMY_CONFIGURATION = """
Section "Device"
 Identifier "device"
 Driver "dummy"
 VideoRam 256000
EndSection
Section "Monitor"
 Identifier "monitor"
 HorizSync 5-1000
 VertRefresh 5-200
 Modeline "1920x1080" 148.50 1920 2008 2052 2200 1080 1084 1089 1125
EndSection
Section "Screen"
 Identifier "screen"
 Device "device"
 Monitor "monitor"
 DefaultDepth 24
 SubSection "Display"
  Depth 24
  Modes "1920x1080"
  Virtual 5760 2160
 EndSubSection
EndSection
"""


class Unavailable(Exception):
    """Says why this machine cannot run the X server that was asked for."""


def can_have_two_screens():
    """Whether a server whose screens come and go can be started."""
    return os.geteuid() == 0 and shutil.which("Xorg") is not None


class XServer(Surroundings):
    """A running X server with a window manager; a context manager that ends both.

    With root's rights it has two screens of 1920 by 1080 side by side; without, one screen as wide
    as both.
    """

    def __init__(self, two_screens_required=False):
        self.has_two_screens = can_have_two_screens()
        if two_screens_required and not self.has_two_screens:
            raise Unavailable("two screens need Xorg, and root's rights to start it")
        self.windows = None
        super().__init__("x")

    def begin(self):
        self._start_server()
        self.windows = XWindows(self.display)
        if self.has_two_screens:
            self._modes = set()
            self.plug_second_screen()
        self._start_window_manager()

    def close(self):
        try:
            if self.windows:
                self.windows.close()
        finally:
            self.windows = None
            super().close()

    @property
    def environment(self):
        """What a program needs to come up on this server, and on no other."""
        variables = {key: value for key, value in os.environ.items()
                     if not key.startswith("XDG_") and key != "WAYLAND_DISPLAY"}
        return variables | {"DISPLAY": self.display, "QT_QPA_PLATFORM": "xcb",
                            "LC_ALL": "C.UTF-8"}

    def plug_second_screen(self, size=(SCREEN_WIDTH, SCREEN_HEIGHT), x=SCREEN_WIDTH, y=0):
        """Turns the second screen on, beside the first; or moves it, or changes its resolution."""
        self._plug("DUMMY1", size, "--pos", f"{x}x{y}")

    def unplug_second_screen(self):
        self._xrandr("--output", "DUMMY1", "--off")

    def plug_first_screen(self, size=(SCREEN_WIDTH, SCREEN_HEIGHT)):
        """Turns the first screen on, or changes its resolution."""
        self._plug("DUMMY0", size, "--pos", "0x0")

    def unplug_first_screen(self):
        """Leaves the second screen alone, at the first one's place."""
        self._xrandr("--output", "DUMMY0", "--off")

    def mirror_first_screen(self):
        """Has the second screen show what the first shows."""
        self._plug("DUMMY1", (SCREEN_WIDTH, SCREEN_HEIGHT), "--same-as", "DUMMY0")

    def plug_third_screen(self):
        self._plug("DUMMY2", (SCREEN_WIDTH, SCREEN_HEIGHT), "--pos", f"{THIRD_SCREEN[2]}x0")

    def unplug_third_screen(self):
        self._xrandr("--output", "DUMMY2", "--off")

    def ask(self, *command):
        """What a client of this server prints and how it ends."""
        return subprocess.run(command, env=self.environment, check=False, capture_output=True)

    def run(self, *command):
        """The bytes that a client of this server prints, which must succeed."""
        answer = self.ask(*command)
        answer.check_returncode()
        return answer.stdout

    def screenshot(self, area):
        """The colours shown in a (width, height, x, y) of the root window, as RGB bytes."""
        width, height, x, y = area
        return self.run(SCREEN_WATCH, "--once", *map(str, (x, y, width, height)))

    def comes_to_show(self, image, area, seconds):
        """Whether a (width, height, x, y) of the root window shows exactly these RGB bytes before
        the seconds are over."""
        width, height, x, y = area
        answer = subprocess.run(
            [SCREEN_WATCH, "--until", str(seconds), *map(str, (x, y, width, height))],
            env=self.environment, input=image, check=False)
        if answer.returncode not in (0, NOT_SHOWN):
            answer.check_returncode()
        return answer.returncode == 0

    def save_screenshot(self, area, path):
        self.run("import", "-window", "root", "-crop", "%dx%d+%d+%d" % area, "+repage", str(path))

    def _start_server(self):
        readable, writable = os.pipe()
        arguments = ["-displayfd", str(writable), "-noreset", "-nolisten", "tcp"]
        if self.has_two_screens:
            configuration = Path(self._folder.name, "dummy.conf")
            configuration.write_text(DUMMY_CONFIGURATION)
            log = Path(self._folder.name, "server.log")
            command = ["Xorg", "-novtswitch", "-sharevts", "-config", str(configuration),
                       "-logfile", str(log)]
        else:
            command = ["Xvfb", "-screen", "0", f"{2 * SCREEN_WIDTH}x{SCREEN_HEIGHT}x24"]
        self._processes.append(Process(command + arguments, pass_fds=(writable,)))
        os.close(writable)
        with os.fdopen(readable) as answer:
            number = answer.readline().strip()
        if not number:
            raise Unavailable(f"{command[0]} did not start: {self._processes[0].output()}")
        self.display = f":{number}"

    def _start_window_manager(self):
        environment = self.environment | {"HOME": self._folder.name}
        ready = Path(self._folder.name, "ready")
        # It has a name before it manages windows, and one that is shown in between stays unseen.
        self._processes.append(Process(["openbox", "--startup", f"touch {ready}"],
                                       env=environment))
        wait_until(ready.exists, "openbox to come up")
        # Windows are placed on the screen with the pointer.
        self.run("xdotool", "mousemove", "100", "1000")

    def _plug(self, output, size, *place):
        width, height = size
        is_standard = size == (SCREEN_WIDTH, SCREEN_HEIGHT)
        mode = f"{width}x{height}" if is_standard else f"test-{width}x{height}"
        if (output, mode) not in self._modes:
            if not is_standard and mode not in {known for _, known in self._modes}:
                # A clock in MHz, then where each row and column begins and ends its pauses.
                timings = [100, *(width + n for n in (0, 20, 40, 80)),
                           *(height + n for n in (0, 4, 8, 40))]
                self._xrandr("--newmode", mode, *map(str, timings))
            self._xrandr("--addmode", output, mode)
            self._modes.add((output, mode))
        self._xrandr("--output", output, "--mode", mode, *place)

    def _xrandr(self, *arguments):
        self.run("xrandr", *arguments)
