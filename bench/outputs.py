"""Measures the outputs of a running program on a real X server with two screens: how long a key
press takes to be seen by the audience, and what an idle program costs. Prints one table."""

import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1] / "tests" / "e2e"))

from processes import wait_until
from program import DISPLAY, OPERATOR, Program
from screen_watch import ScreenWatch
from xserver import SCREEN_WIDTH, XServer

EXECUTABLE, WRITE_SHOW = (Path(argument).absolute() for argument in sys.argv[1:])
PRESSES = 200
REST = 0.08  # seconds between a picture and the next press
LONGEST = 0.5  # seconds to wait for a picture
IDLE_SECONDS = 20
SLIDES_WITH_PHOTOGRAPHS = 50
SLIDES = 500


def write_show(kind, folder):
    path = Path(folder, f"{kind}.quenara")
    subprocess.run([WRITE_SHOW, kind, path], check=True, stderr=subprocess.DEVNULL)
    return path


def strip_of(screen):
    """A part of the screen that every slide shows something else in, small enough to be looked at
    several times a millisecond."""
    width, height = screen
    return (48, height // 2, SCREEN_WIDTH + width // 2 - 24, height // 4)


def latencies(watch, key, count):
    """Seconds from each press to the last picture that it brings; None for a press without one."""
    found = []
    for _ in range(count):
        frames = len(watch.frames())
        pressed = watch.press(key)
        end = time.monotonic() + LONGEST
        while len(watch.frames()) == frames and time.monotonic() < end:
            time.sleep(0.005)
        time.sleep(REST)
        new = watch.frames()[frames:]
        found.append(new[-1].time - pressed if new else None)
    return found


def milliseconds(values, share):
    return 1000 * sorted(values)[min(len(values) - 1, int(share * len(values)))]


def row(name, value, unit, limit):
    verdict = "" if limit is None else f"{limit:8.0f} {unit:3}" + ("" if value <= limit else "  OVER")
    print(f"{name:64}{value:9.1f} {unit:3}{verdict}", flush=True)


def report(name, presses, limit):
    """Nothing is left out unsaid: slides that look alike in the strip bring no picture either."""
    values = [value for value in presses if value is not None]
    unanswered = len(presses) - len(values)
    row(f"{name}, 99 of 100", milliseconds(values, 0.99), "ms", limit)
    row(f"{name}, the middle one", 1000 * statistics.median(values), "ms", None)
    row(f"{name}, the longest", 1000 * max(values), "ms", None)
    print(f"{name}: {len(presses)} presses, {unanswered} without another picture", flush=True)


def processor_seconds(program):
    fields = Path(f"/proc/{program.pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def measure_keys(server, show, screen, name, limit):
    server.plug_second_screen(screen)
    with Program(server, EXECUTABLE, show) as program:
        program.wait_for_window(OPERATOR)
        program.open_display()
        program.focus(DISPLAY)
        with ScreenWatch(server, strip_of(screen)) as watch:
            watch.settle(1)
            report(name, latencies(watch, "Right", PRESSES), limit)
        program.toggle_stage()
        program.focus(DISPLAY)
        with ScreenWatch(server, strip_of(screen)) as watch:
            watch.settle(1)
            report(f"{name}, the stage open", latencies(watch, "Right", PRESSES), limit)
        if screen == (SCREEN_WIDTH, 1080):
            time.sleep(2)
            before = processor_seconds(program)
            time.sleep(IDLE_SECONDS)
            used = processor_seconds(program) - before
            row("idle with both outputs open, of one core", 100 * used / IDLE_SECONDS, "%", 1)


def measure_photographs(server, show):
    screen = (SCREEN_WIDTH, 1080)
    server.plug_second_screen(screen)
    with Program(server, EXECUTABLE, show) as program:
        wait_until(lambda: program.window(".* — Quenara"), "the operator window")
        program.open_display()
        program.focus(DISPLAY)
        with ScreenWatch(server, strip_of(screen)) as watch:
            watch.settle(2)
            cold = latencies(watch, "Right", SLIDES - 1)
            back_and_forth = []
            for _ in range(10):
                back_and_forth += latencies(watch, "Left", 20) + latencies(watch, "Right", 20)
        report("500 slides, 50 photographs, first time", cold, None)
        report("500 slides, 50 photographs, shown before", back_and_forth, 50)


def main():
    with tempfile.TemporaryDirectory() as folder, XServer(two_screens_required=True) as server:
        demo = write_show("demo", folder)
        measure_keys(server, demo, (SCREEN_WIDTH, 1080), "key to picture, 1080p", 16)
        measure_keys(server, demo, (3840, 2160), "key to picture, 4K", 33)
        measure_photographs(server, write_show("photographs", folder))


if __name__ == "__main__":
    main()
