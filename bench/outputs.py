"""Measures a running program on a real X server with two screens: how long it takes to start and
what memory it holds, how long a key press takes to be seen by the audience, each beside what it
takes a program that does nothing but fill its window, and what an idle program costs. Prints one
table; ends with status 1 when a row is over its limit.

outputs.py PROGRAM WRITE_SHOW FILL_ON_KEY [STARTS]: given how many times to start the program,
measures its starts alone.
"""

import contextlib
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1] / "tests" / "e2e"))

from program import DISPLAY, OPERATOR, Program
from screen_watch import ScreenWatch
from xserver import SCREEN_WIDTH, XServer

EXECUTABLE, WRITE_SHOW, FILL_ON_KEY = (Path(argument).absolute() for argument in sys.argv[1:4])
FILL = "Fill"
PRESSES = 200
REST = 0.08  # seconds between a frame and the next press
LONG_REST = 0.3  # the same, while which the program makes the next images ready
LONGEST = 0.5  # seconds to wait for a frame
IDLE_SECONDS = 20
STARTS = 30
LONGEST_START = 0.3  # seconds to the first frame
MEGABYTE = 1024 * 1024
SLIDES = 500


def write_show(kind, folder):
    path = Path(folder, f"{kind}.quenara")
    subprocess.run([WRITE_SHOW, kind, path], check=True, stderr=subprocess.DEVNULL)
    return path


# Within the operator window, wherever the window manager places it, and within what fills the
# second screen.
OPERATOR_STRIP = (400, 40, 760, 500)
FILL_STRIP = (400, 40, SCREEN_WIDTH + 760, 500)


def strip_of(screen):
    """A part of the screen in which every slide differs from its neighbours, small enough to be
    looked at several times a millisecond."""
    width, height = screen
    return (48, height // 2, SCREEN_WIDTH + width // 3, height // 4)


def latencies(watch, key, count, rest=REST):
    """Seconds from each press to the last frame that it brings; None for a press without one."""
    found = []
    for _ in range(count):
        frames = len(watch.frames())
        pressed = watch.press(key)
        end = time.monotonic() + LONGEST
        while len(watch.frames()) == frames and time.monotonic() < end:
            time.sleep(0.005)
        time.sleep(rest)
        new = watch.frames()[frames:]
        found.append(new[-1].time - pressed if new else None)
    return found


def milliseconds(values, share):
    return 1000 * sorted(values)[min(len(values) - 1, int(share * len(values)))]


over_limit = []  # the names of rows


def row(name, value, unit, limit, yardstick=None):
    beside = "" if yardstick is None else f"{yardstick:9.1f} {unit:3}{value / yardstick:7.2f}"
    verdict = "" if limit is None else f"{limit:8.0f} {unit:3}"
    if limit is not None and not value <= limit:
        over_limit.append(name)
        verdict += "  OVER"
    print(f"{name:64}{value:9.1f} {unit:3}{beside:20}{verdict}", flush=True)


def report_times(name, values, limit, yardstick):
    for which, share, most in ((", 99 of 100", 0.99, limit), (", the middle one", 0.5, None),
                               (", the longest", 1, None)):
        row(name + which, milliseconds(values, share), "ms", most,
            milliseconds(yardstick, share))


def report(name, presses, limit, fills):
    """Also prints how many presses brought no frame, as happens where slides look alike in the
    strip."""
    values, yardstick = ([value for value in taken if value is not None]
                         for taken in (presses, fills))
    report_times(name, values, limit, yardstick)
    unanswered = len(presses) - len(values)
    print(f"{name}: {len(presses)} presses, {unanswered} without another frame", flush=True)


def steps(server, screen, press_keys):
    """Presses keys while the screen is watched, and returns what that measures."""
    with ScreenWatch(server, strip_of(screen)) as watch:
        watch.settle(1)
        return press_keys(watch)


def presses_right(count):
    return lambda watch: latencies(watch, "Right", count)


def start_once(server, strip, *command):
    """Seconds from the start of a program to its first frame in the strip, and the seconds of the
    processor that it used meanwhile: the difference is what it waited. The program has been
    started before, so that its files are cached."""
    with ScreenWatch(server, strip) as watch:
        watch.settle(0.3)
        count = len(watch.frames())
        start = time.monotonic()
        with Program(server, *command) as program:
            watch.wait_for(lambda frames: len(frames) > count, "a first frame")
            computed = program.computed()
        return watch.frames()[count].time - start, computed


def resident_bytes(program):
    status = Path(f"/proc/{program.pid}/status").read_text()
    return 1024 * int(status.split("VmRSS:")[1].split()[0])


def resident_bytes_of(server, title, *command):
    """The memory that a program holds once its window is shown and it is at rest."""
    with Program(server, *command) as program:
        program.wait_for_window(title)
        program.wait_until_at_rest()
        return resident_bytes(program)


def measure_starts(server, show, count):
    programs = {"start": (OPERATOR_STRIP, EXECUTABLE, show), "fill": (FILL_STRIP, FILL_ON_KEY)}
    starts = {name: [start_once(server, *program) for _ in range(count + 1)][1:]
              for name, program in programs.items()}
    taken, fills = ([seconds for seconds, _ in starts[name]] for name in programs)
    report_times("start to first picture", taken, 1000 * LONGEST_START, fills)
    slow = [(seconds, computed) for seconds, computed in starts["start"]
            if seconds > LONGEST_START]
    row(f"starts of {count} that took longer than that", len(slow), "", 0)
    for seconds, computed in slow:
        print(f"  {1000 * seconds:.0f} ms, of which it computed {1000 * computed:.0f} ms")


def measure_memory(server, show):
    row("resident memory, the demo open",
        resident_bytes_of(server, OPERATOR, EXECUTABLE, show) / MEGABYTE, "MB", 120,
        resident_bytes_of(server, FILL, FILL_ON_KEY) / MEGABYTE)


def measure_fill(server, screen):
    with Program(server, FILL_ON_KEY) as fill:
        fill.focus(FILL)
        return steps(server, screen, presses_right(PRESSES))


@contextlib.contextmanager
def showing(server, show):
    """Runs the program meanwhile, its display open and with the keyboard."""
    with Program(server, EXECUTABLE, show) as program:
        program.wait_for_window(OPERATOR)
        program.open_display()
        program.focus(DISPLAY)
        yield program


def measure_keys(server, show, screen, name, limit):
    server.plug_second_screen(screen)
    fills = measure_fill(server, screen)
    with showing(server, show) as program:
        report(name, steps(server, screen, presses_right(PRESSES)), limit, fills)
        program.open_stage()
        program.focus(DISPLAY)
        report(f"{name}, the stage open", steps(server, screen, presses_right(PRESSES)), limit,
               fills)
        if screen == (SCREEN_WIDTH, 1080):
            program.wait_until_at_rest()
            before = program.computed()
            time.sleep(IDLE_SECONDS)
            used = program.computed() - before
            row("idle with both outputs open, of one core", 100 * used / IDLE_SECONDS, "%", 1)


def measure_photographs(server, show):
    screen = (SCREEN_WIDTH, 1080)
    server.plug_second_screen(screen)
    fills = measure_fill(server, screen)
    with showing(server, show):
        report("500 slides, 50 photographs, first time, at rest before", steps(
            server, screen, lambda watch: latencies(watch, "Right", PRESSES, LONG_REST)), 16,
            fills)
    with showing(server, show):
        cold = steps(server, screen, presses_right(SLIDES - 1))
        back_and_forth = steps(server, screen, lambda watch: [
            value for _ in range(10) for key in ("Left", "Right")
            for value in latencies(watch, key, 20)])
        report("500 slides, 50 photographs, first time", cold, None, fills)
        report("500 slides, 50 photographs, shown before", back_and_forth, 50, fills)


def main():
    print(f"{'figure':64}{'measured':>12} {'a bare fill':>12}{'ratio':>7}{'limit':>10}")
    with tempfile.TemporaryDirectory() as folder, XServer(two_screens_required=True) as server:
        demo = write_show("demo", folder)
        if len(sys.argv) > 4:
            measure_starts(server, demo, int(sys.argv[4]))
            return
        measure_starts(server, demo, STARTS)
        measure_memory(server, demo)
        measure_keys(server, demo, (SCREEN_WIDTH, 1080), "key to picture, 1080p", 16)
        measure_keys(server, demo, (3840, 2160), "key to picture, 4K", 33)
        measure_photographs(server, write_show("photographs", folder))


if __name__ == "__main__":
    main()
    if over_limit:
        sys.exit(f"over their limits: {'; '.join(over_limit)}")
