"""Watching every frame of a screen, and pressing keys meanwhile."""

import hashlib
import subprocess
import threading
import time
from dataclasses import dataclass

from xserver import SCREEN_WATCH

SYMBOLS = {"Left": 0xff51, "Up": 0xff52, "Right": 0xff53, "Down": 0xff54, "space": 0x20}


def hash_of(image):
    """The hash of a frame that shows these RGB bytes."""
    return hashlib.sha1(image).hexdigest()


@dataclass(frozen=True)
class Frame:
    """What was shown from a moment on, until the next frame."""

    time: float  # seconds
    hash: str


class ScreenWatch:
    """All that a (width, height, x, y) of the root window shows; a context manager."""

    def __init__(self, server, area):
        width, height, x, y = area
        self._child = subprocess.Popen([SCREEN_WATCH, *map(str, (x, y, width, height))],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                       env=server.environment)
        self._frames = []
        self._presses = []
        self._changed = threading.Condition()
        self._reader = threading.Thread(target=self._read)
        self._reader.start()
        self.wait_for(lambda frames: frames, "a first frame")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._child.stdin.close()
        self._reader.join()
        self._child.wait()
        self._child.stdout.close()

    def press(self, key):
        """Presses a key and returns the time of that, in seconds."""
        count = len(self._presses)
        print("press", hex(SYMBOLS[key] if key in SYMBOLS else ord(key)), file=self._child.stdin,
              flush=True)
        with self._changed:
            if not self._changed.wait_for(lambda: len(self._presses) > count, 10):
                raise AssertionError(f"{key} was not pressed")
            return self._presses[count]

    def frames(self):
        with self._changed:
            return list(self._frames)

    def wait_for(self, condition, description, deadline=20):
        """Waits until a condition on the list of frames is true."""
        with self._changed:
            if not self._changed.wait_for(lambda: condition(self._frames), deadline):
                raise AssertionError(f"waited {deadline} s in vain for {description}")

    def settle(self, seconds=0.05):
        """Waits until nothing has changed for a while."""
        count = -1
        while count != len(self.frames()):
            count = len(self.frames())
            time.sleep(seconds)

    def _read(self):
        for line in self._child.stdout:
            kind, moment, *hashes = line.split()
            with self._changed:
                if kind == "frame":
                    self._frames.append(Frame(int(moment) / 1e9, *hashes))
                else:
                    self._presses.append(int(moment) / 1e9)
                self._changed.notify_all()
