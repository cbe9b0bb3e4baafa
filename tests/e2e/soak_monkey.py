"""soak_monkey.py SEED SECONDS: a monkey at the program, which presses whatever it comes upon.

It begins with work that an unexpected end has left, and ends by quitting. Between, the program has
to stay, to answer, and to need no more memory and descriptors than after its first minutes. Of a
sanitized program that is what it holds (live_heap.c).
"""

import collections
import contextlib
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from processes import wait_until
from program import ALERT, DISPLAY, OPERATOR, STAGE, Program
from screen_reader import GLib, ScreenReader
from show_case import EXECUTABLE, SHOW, SHOW_TITLE
from xserver import XServer

WARM_UP = 300 # seconds, or a third of a shorter run
SAMPLE_EVERY = 60
MAY_GROW_BY = 1.05
HANGS_AFTER = 30 # seconds without an answer
PATIENCE = 1 # seconds: what opens a dialog answers once that is closed
STEPS_REMEMBERED = 40

FOLDER = Path(__file__).parent
LEAVE = "Don't Save|Quit" # the buttons of what is asked before a document goes
CLIENT = ~0x1fffff # the bits of a window's id that tell whose it is
IS_SANITIZED = b"__asan_init" in Path(EXECUTABLE).read_bytes()
UNMOVED = {"label", "panel", "filler"} # what nothing comes of

LETTERS = "abcdefghijklmnopqrstuvwxyz0123456789"
KEYS = ["Escape", "Return", "KP_Enter", "space", "Tab", "BackSpace", "Delete", "Insert", "Menu",
        "Left", "Right", "Up", "Down", "Home", "End", "Prior", "Next", "F2", "F4", "F10", "plus",
        "minus", "period", "slash", *LETTERS]
MODIFIERS = ["", "", "", "", "shift+", "ctrl+", "ctrl+shift+"]
MNEMONICS = [f"alt+{letter}" for letter in LETTERS] + ["alt+Down", "alt+Up"]
# The monkey quits last.
NEVER_PRESSED = {"ctrl+q", "ctrl+shift+q"}
TEXTS = ["Amazing Grace", "-1e308", "0", "99999999999", "#ff00ff00", "../../etc", "~/show.quenara",
         "picture.png", "drawing.svg", "damaged.png", "\u05e9\u05dc\u05d5\u05dd", "\U0001f600", " ",
         "*", "%n%s"]
DRAWING = '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 9 9"><circle r="4"/></svg>'


class Finding(Exception):
    """What must not happen."""


class Monkey:
    """Works in a folder, beneath which alone its program can write (confined.py)."""

    def __init__(self, server, reader, folder, seed):
        self.server = server
        self.reader = reader
        self.folder = Path(folder)
        self.home = self.folder / "home"
        self.random = random.Random(seed)
        self.counts = collections.Counter()
        self.steps = collections.deque(maxlen=STEPS_REMEMBERED)
        self.longest_pause = 0
        self.live_heap = self.folder / "live_heap"
        self.fill_home()
        self.preload = self.folder / "live_heap.so"
        if IS_SANITIZED:
            subprocess.run(["cc", "-shared", "-fPIC", "-o", self.preload, FOLDER / "live_heap.c"],
                           check=True)

    def fill_home(self):
        """Gives file panels something to open."""
        self.home.mkdir()
        shutil.copy(SHOW, self.home / "show.quenara")
        picture = self.home / "picture.png"
        self.server.run("convert", "-size", "64x48", "plasma:", str(picture))
        whole = picture.read_bytes()
        (self.home / "damaged.png").write_bytes(whole[:len(whole) // 2])
        (self.home / "drawing.svg").write_text(DRAWING)

    def start(self, *arguments):
        places = {f"XDG_{name}_HOME": str(self.folder / name.lower())
                  for name in ("CONFIG", "CACHE", "DATA", "STATE")}
        self.program = Program(
            self.server, sys.executable, "-B", FOLDER / "confined.py", self.folder, "--",
            EXECUTABLE, *arguments, folder=self.home,
            environment=self.reader.environment | places | {
                "HOME": str(self.home), "TMPDIR": str(self.folder),
                "LD_PRELOAD": str(self.preload) if IS_SANITIZED else "",
                "QUENARA_LIVE_HEAP": str(self.live_heap),
                # What the sanitizer itself remembers grows with what was allocated and freed.
                "ASAN_OPTIONS": "detect_leaks=1:quarantine_size_mb=4:malloc_context_size=8"})
        self.program.wait_for_window(OPERATOR)
        self.application = self.reader.application(self.program.pid)
        return self.program

    def leave_work(self):
        """Ends the program unexpectedly while it has work that no file holds."""
        with self.start(self.home / "show.quenara") as program:
            program.wait_for_window(SHOW_TITLE)
            program.open_display()
            program.focus(OPERATOR)
            program.click_project_name()
            program.press("End", "x", "Return")
            program.wait_for_window("Evening Showx — Quenara")
            program.kill()

    def run(self, seconds):
        """Raises a Finding; else returns (seconds, kB of memory, descriptors) now and then."""
        self.leave_work()
        with self.start() as program:
            try:
                samples = self.play(seconds)
                self.demand_flat(samples, min(WARM_UP, seconds / 3))
                self.quit()
                return samples
            except (AssertionError, OSError, GLib.Error, Finding) as what:
                raise Finding("\n  ".join([
                    str(what), f"it shows {sorted(program.windows().values())} after these steps",
                    *self.steps]) + f"\nit said: {program.output()}") from what

    def play(self, seconds):
        begin = time.monotonic()
        samples = []
        while time.monotonic() - begin < seconds:
            pause = min(begin + seconds, time.monotonic() + min(SAMPLE_EVERY, seconds / 10))
            while time.monotonic() < pause:
                self.step()
            self.come_to_rest()
            samples.append((time.monotonic() - begin, self.memory(), self.descriptors()))
        return samples

    def step(self):
        act = self.random.choices([self.press_thing, self.press_key, self.click, self.type],
                                  [50, 25, 20, 5])[0]
        self.counts[act.__name__] += 1
        # What was found may be gone before it is pressed.
        with contextlib.suppress(GLib.Error):
            act()
        self.demand_answer()

    def demand_answer(self):
        """The program must be there and handle events."""
        asked = time.monotonic()

        def answers():
            if self.program.status() is not None:
                raise Finding(f"it ended with {self.program.status()}")
            with contextlib.suppress(GLib.Error):
                return self.application.name is not None
            return False

        wait_until(answers, "an answer", HANGS_AFTER)
        self.longest_pause = max(self.longest_pause, time.monotonic() - asked)

    def press_thing(self):
        """Goes down the tree by chance, and does one of the actions of what it comes to."""
        thing = self.application
        children = thing.child_count
        while children > 0 and (thing.action_count < 1 or self.random.random() < 0.8):
            thing = thing.child(self.random.randrange(children))
            children = thing.child_count if thing else 0
        actions = thing.action_count if thing else 0
        if actions < 1 or thing.role in UNMOVED or thing.name == "Quit":
            return
        action = self.random.randrange(actions)
        self.steps.append(f"action {action} of {thing.role} {thing.name!r}")
        thing.press(action)

    def press_key(self):
        # Without many Escapes, most of the time would pass within dialogs.
        key = self.random.choices([
            self.random.choice(MODIFIERS) + self.random.choice(KEYS),
            self.random.choice(MNEMONICS), "Escape"], [7, 1, 2])[0]
        if key in NEVER_PRESSED or (self.shows_quit() and key != "Escape"):
            return
        self.steps.append(f"key {key}")
        self.program.press(key)

    def type(self):
        if self.shows_quit():
            return
        text = self.random.choice(TEXTS)
        self.steps.append(f"text {text!r}")
        self.server.ask("xdotool", "type", text)

    def click(self):
        """Clicks or drags within what the program itself shows."""
        windows = self.program.windows()
        if not windows or self.shows_quit():
            return
        window = self.random.choice(sorted(windows))
        if not self.point_into(window, windows):
            return
        button = self.random.choices("12345", [70, 5, 12, 6, 7])[0]
        times = self.random.choice("11123")
        self.steps.append(f"{times} clicks with button {button} in {windows[window]!r}")
        if button == "1" and self.random.random() < 0.2:
            self.server.ask("xdotool", "mousedown", "1")
            self.point_into(window, windows)
            self.server.ask("xdotool", "mouseup", "1")
        else:
            self.server.ask("xdotool", "click", "--repeat", times, "--delay", "30", button)

    def point_into(self, window, windows):
        """Points to a random place of a window. Whether the program shows something there: the
        frame of another window might close it."""
        areas = {shown: self.server.windows.area(shown) for shown in windows}
        if not all(areas.values()): # one has closed meanwhile
            return False
        width, height, x, y = areas[window]
        x, y = x + self.random.randrange(width), y + self.random.randrange(height)
        self.server.ask("xdotool", "mousemove", str(x), str(y))
        told = self.server.ask("xdotool", "getmouselocation", "--shell").stdout.decode()
        under = dict(line.split("=") for line in told.split()).get("WINDOW")
        if not under: # the window there has just closed
            return False
        if under not in areas: # a popup, or what the window manager shows
            return int(under) & CLIENT == int(window) & CLIENT
        across, down, left, top = areas[under]
        return left <= x < left + across and top <= y < top + down

    def menu_bar(self):
        return next((thing for window in self.application.children
                     for thing in window.children if thing.role == "menu bar"), None)

    def shows_quit(self):
        """Whether the menu is open that has the item."""
        bar = self.menu_bar()
        file = bar.child(0) if bar else None
        menu = file.child(0) if file else None
        return bool(menu and menu.has("SHOWING"))

    def come_to_rest(self):
        """Answers what is asked, and opens both outputs on a document that is always alike."""
        self.choose("New Sunday Service")
        for switch, title in (("Display", DISPLAY), ("Monitor", STAGE)):
            if not self.program.window(title):
                self.press_named(switch, "check box")
                self.program.wait_for_window(title)
        self.program.focus(OPERATOR)
        self.program.wait_until_at_rest()

    def leave_dialogs(self):
        """Cancels whatever is asked."""
        def are_left():
            self.demand_answer()
            others = [window for window, title in self.program.windows().items()
                      if not re.fullmatch(f"{OPERATOR}|{DISPLAY}|{STAGE}", title)]
            if others:
                # One behind another passes the keyboard on.
                self.server.ask("xdotool", "windowactivate", self.random.choice(others))
                time.sleep(0.1)
                self.server.ask("xdotool", "key", "Escape")
            return not others

        wait_until(are_left, "all dialogs to close", 2 * HANGS_AFTER)
        self.program.focus(OPERATOR)
        self.program.press("Escape", "Escape")

    def choose(self, item):
        """Chooses from the File menu, and leaves what is unsaved."""
        self.leave_dialogs()
        self.press_named(item, "menu item")
        time.sleep(1) # for a question to come up
        if self.program.status() is None and self.program.window(ALERT):
            self.press_named(LEAVE, "push button", ALERT)

    def press_named(self, name, role, window=OPERATOR):
        """Does the action of the thing of that title and role, be it shown or not."""
        def found():
            with contextlib.suppress(GLib.Error):
                return next((thing for top in self.application.children
                             if re.fullmatch(window, top.name) for thing in below(top)
                             if thing.role == role and re.fullmatch(name, thing.title)), None)
            return None

        thing = wait_until(found, f"{role} {name}", HANGS_AFTER)
        # What opens a dialog answers once that is closed.
        with contextlib.suppress(GLib.Error):
            thing.press()

    def memory(self):
        """In kB."""
        if IS_SANITIZED:
            self.live_heap.unlink(missing_ok=True)
            os.kill(self.program.pid, signal.SIGUSR2)
            told = wait_until(
                lambda: self.live_heap.exists() and self.live_heap.read_text().endswith("\n")
                and self.live_heap.read_text(), "the size of the heap")
            return int(told) // 1024
        status = Path(f"/proc/{self.program.pid}/status").read_text()
        return int(re.search(r"\nVmRSS:\s*(\d+) kB", status).group(1))

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.program.pid}/fd"))

    @staticmethod
    def demand_flat(samples, warm_up):
        for what, at in {"memory": 1, "descriptors": 2}.items():
            before = max(sample[at] for sample in samples if sample[0] <= warm_up + SAMPLE_EVERY)
            after = samples[-1][at]
            if after > before * MAY_GROW_BY:
                raise Finding(f"{what} grew from {before} to {after}: {samples}")

    def quit(self):
        self.choose("Quit")
        if self.program.wait_for_end() != 0:
            raise Finding(f"quitting ended with {self.program.status()}")


def below(thing):
    for child in thing.children:
        yield child
        yield from below(child)


def main():
    seed, seconds = int(sys.argv[1]), float(sys.argv[2])
    with (XServer() as server, contextlib.closing(ScreenReader(server, PATIENCE)) as reader,
          tempfile.TemporaryDirectory(prefix="quenara-monkey-") as folder):
        monkey = Monkey(server, reader, folder, seed)
        try:
            samples = monkey.run(seconds)
        except Finding as finding:
            print(f"monkey {seed}: after {monkey.counts.total()} steps {finding}")
            sys.exit(1)
    middle = samples[len(samples) // 2]
    print(f"monkey {seed}: {seconds:.0f} s, {monkey.counts.total()} steps {dict(monkey.counts)}, "
          f"no pause over {monkey.longest_pause:.1f} s, {middle[1]} kB after {middle[0]:.0f} s and "
          f"{samples[-1][1]} kB at the end, {samples[-1][2]} descriptors, 0 findings")


if __name__ == "__main__":
    main()
