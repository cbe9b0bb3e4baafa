"""The program under test, used as a person uses it: windows, keys, the mouse and what is seen."""

import contextlib
import os
import re
import signal
import tempfile
import time
from pathlib import Path

from processes import Process, wait_until

OPERATOR = r".* — Quenara"
START_PANEL = ALERT = "Quenara"
DISPLAY = "Quenara Display"
STAGE = "Quenara Stage"
SETTINGS = "Quenara Settings"
SONG_IMPORT = "Paste Song Lyrics"
SAVE_PANEL = "Save Quenara Project"
ABOUT = "About Quenara"
TEXT_COLOR = "Text Color"

# A place inside the project name's field, in the operator window's content.
PROJECT_NAME = (100, 52)
# Likewise, at the size it opens with: what offers to paste a song, the title of the demo service's
# first slide.
PASTE_SONG = (150, 104)
SLIDE_TITLE = (712, 384)

# A program that has not woken up for so many seconds has no work left: longer than any timer of its
# that is started by what happens to it.
AT_REST = 0.5
# Seconds after which a window manager is asked once more.
ASK_AGAIN = 1
# The least and most seconds between two blinks of a caret, which Qt has every half second.
BLINK = (0.4, 0.65)

# What Qt and the system's libraries keep until the end of the process is not ours to free.
SANITIZER_OPTIONS = "detect_leaks=0"


class Program:
    """A running program with a home of its own; a context manager that ends it."""

    def __init__(self, server, executable, *arguments, folder=None, preferences="",
                 environment=None):
        self.server = server
        self._home = tempfile.TemporaryDirectory(prefix="quenara-home-")
        home = Path(self._home.name)
        configuration = home / "config/Quenara/Quenara.conf"
        configuration.parent.mkdir(parents=True)
        configuration.write_text(f"[General]\n{preferences}")
        runtime = home / "runtime"
        runtime.mkdir(mode=0o700)
        self._environment = server.environment | {
            "HOME": str(home),
            "XDG_CONFIG_HOME": str(home / "config"),
            "XDG_DATA_HOME": str(home / "data"),
            "XDG_CACHE_HOME": str(home / "cache"),
            "XDG_STATE_HOME": str(home / "state"),
            "XDG_RUNTIME_DIR": str(runtime),
            "DBUS_SESSION_BUS_ADDRESS": "disabled:",
            "ASAN_OPTIONS": SANITIZER_OPTIONS,
        } | (environment or {})
        self._process = Process([str(executable), *map(str, arguments)], cwd=folder or home,
                                env=self._environment)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.end()
        self._home.cleanup()

    @property
    def pid(self):
        return self._process.pid

    @property
    def home(self):
        """The folder that its panels begin in."""
        return Path(self._home.name)

    def status(self):
        return self._process.status()

    def output(self):
        return self._process.output()

    def wait_for_end(self):
        """The exit status, once the program has ended by itself."""
        wait_until(lambda: self.status() is not None, "the program to end")
        return self.status()

    def kill(self, number=signal.SIGKILL):
        """Sends a signal and waits for the end. The exit status, negative after a kill."""
        os.kill(self.pid, number)
        return self.wait_for_end()

    def computed(self):
        """The seconds of the processor that it has used."""
        fields = Path(f"/proc/{self.pid}/stat").read_text().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def times_woken(self):
        status = Path(f"/proc/{self.pid}/status").read_text()
        return int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)", status).group(1))

    def wait_until_at_rest(self):
        """Waits until the program has handled all events and sleeps. A caret may go on blinking: it
        wakes the program for a moment, and only once in each of its periods."""
        woken_at = [time.monotonic()]
        last = [self.times_woken()]

        def rests():
            now = time.monotonic()
            times_woken = self.times_woken()
            if times_woken != last[0]:
                last[0] = times_woken
                woken_at.append(now)
            pauses = [later - earlier for earlier, later in zip(woken_at[-4:], woken_at[-3:])]
            only_blinks = len(pauses) == 3 and all(BLINK[0] < pause < BLINK[1] for pause in pauses)
            return now - woken_at[-1] > AT_REST or only_blinks

        wait_until(rests, "the program to rest")

    def windows(self):
        """The shown windows that have a title, by X window id, managed or not."""
        return self.server.windows.titles()

    def window(self, title):
        """The id of the shown window whose whole title matches, None when there is none."""
        return next((window for window, shown in self.windows().items()
                     if re.fullmatch(title, shown)), None)

    def is_managed(self, title):
        """Whether the window manager knows the shown window."""
        return self.wait_for_window(title) in self.server.windows.managed()

    def wait_for_window(self, title):
        def found():
            if self.status() is not None:
                raise AssertionError(f"the program ended: {self.output()}")
            return self.window(title)

        return wait_until(found, f"a window titled {title}")

    def wait_for_no_window(self, title):
        wait_until(lambda: not self.window(title), f"the window titled {title} to go")

    def focused_window(self):
        """Empty while the keyboard passes from one window to the next."""
        return self.server.windows.focused()[0]

    def focused_title(self):
        """Empty while the keyboard passes from one window to the next."""
        return self.server.windows.focused()[1]

    def focus(self, title):
        """Puts a window in front and gives it the keyboard, even if another window that is closing
        passes that on elsewhere."""
        def ask():
            window = self.wait_for_window(title)
            # Only a click reaches a window that the window manager does not know.
            self.server.ask("xdotool", *(
                ["mousemove", "--window", window, "200", "200", "click", "1",
                 "mousemove", "restore"] if title == DISPLAY else ["windowactivate", window]))
            return time.monotonic()

        asked = 0

        def has_focus():
            nonlocal asked
            if re.fullmatch(title, self.focused_title()):
                return True
            # An answer that comes late would take the focus from what has it by then.
            if time.monotonic() - asked > ASK_AGAIN:
                asked = ask()
            return False

        wait_until(has_focus, f"{title} to have the focus")

    def wait_for_focus(self, title):
        """Waits until a window has the focus that gets it by itself."""
        wait_until(lambda: re.fullmatch(title, self.focused_title()), f"{title} to have the focus")

    def area(self, title):
        """(width, height, x, y) of a window without frame on the whole desktop."""
        return wait_until(lambda: self.server.windows.area(self.wait_for_window(title)),
                          f"{title} to have a place")

    def press(self, *keys):
        """Presses and releases keys one after the other in the window that has the focus."""
        for key in keys:
            self.server.run("xdotool", "key", key)

    @contextlib.contextmanager
    def stopped(self):
        """Meanwhile, the program does nothing, as on a machine that has too much to do."""
        os.kill(self.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(self.pid, signal.SIGCONT)

    @contextlib.contextmanager
    def held(self, key):
        """Holds a key down meanwhile."""
        self.server.run("xdotool", "keydown", key)
        try:
            yield
        finally:
            self.server.run("xdotool", "keyup", key)

    def point_at(self, title, x=200, y=200):
        """Moves the pointer to a place of a window's content."""
        self.server.run("xdotool", "mousemove", "--window", self.wait_for_window(title), str(x),
                        str(y))

    def click(self, x, y, times=1):
        """Clicks a place of the operator window's content."""
        self.point_at(OPERATOR, x, y)
        self.server.run("xdotool", "click", "--repeat", str(times), "--delay", "50", "1")

    def click_project_name(self):
        self.click(*PROJECT_NAME)

    def save_as(self, path):
        self.press("ctrl+shift+s")
        self.focus(SAVE_PANEL)
        self.press("ctrl+a")
        self.type(str(path))
        self.press("Return")

    def resize(self, title, width, height):
        """Moves a window to the first screen's corner and makes its content so large."""
        window = self.wait_for_window(title)
        self.server.run("xdotool", "windowmove", window, "0", "0",
                        "windowsize", window, str(width), str(height))
        wait_until(lambda: self.area(title)[:2] == (width, height), f"{title} to be resized")

    def move(self, title, x, y):
        """Moves a window's content to a place of the desktop."""
        self.server.run("xdotool", "windowmove", self.wait_for_window(title), str(x), str(y))
        wait_until(lambda: self.area(title)[2] >= x, f"{title} to move")

    def choose(self, menu_key, downs):
        """Chooses an item of a menu of the operator window by its place below the first."""
        self.focus(OPERATOR)
        self.press(f"alt+{menu_key}", *["Down"] * downs, "Return")

    def toggle_display(self):
        self.choose("o", 0)

    def toggle_stage(self):
        self.choose("o", 1)

    def open_display(self):
        self.toggle_display()
        self.wait_for_focus(DISPLAY)
        # Until somebody presses a key, it takes the keyboard back from whoever has it given away.
        self.press("shift")
        return self.window(DISPLAY)

    def open_stage(self):
        self.toggle_stage()
        self.wait_for_focus(STAGE)
        return self.window(STAGE)

    def answer_question(self, *keys):
        """Presses keys in the alert that stands or is about to."""
        self.focus(ALERT)
        self.press(*keys)

    def type(self, text):
        """Types text into the field that has the focus."""
        self.server.run("xdotool", "type", text)

    def close_window(self, title):
        """Presses the close button of a window's frame."""
        self.server.run("wmctrl", "-i", "-c", self.wait_for_window(title))
