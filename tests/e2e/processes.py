"""Processes that are surely ended, and waiting for what they do."""

import subprocess
import tempfile
import time

DEADLINE = 30
POLL_INTERVAL = 0.05


def wait_until(condition, description, deadline=DEADLINE):
    """The first true value of the condition; fails when there is none before the deadline."""
    end = time.monotonic() + deadline
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(POLL_INTERVAL)
    raise AssertionError(f"waited {deadline} s in vain for {description}")


class Surroundings:
    """Processes that a program runs among, with a folder of their own; a context manager that ends
    all of them, the last first."""

    def __init__(self, name):
        self._folder = tempfile.TemporaryDirectory(prefix=f"quenara-{name}-")
        self._processes = []
        try:
            self.begin()
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        for process in reversed(self._processes):
            process.end()
        self._folder.cleanup()

    def begin(self):
        """Starts the processes."""
        raise NotImplementedError


class Process:
    """A child process whose output is kept."""

    def __init__(self, command, **options):
        self._output = tempfile.TemporaryFile()
        self._child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=self._output,
                                       stderr=subprocess.STDOUT, **options)

    @property
    def pid(self):
        return self._child.pid

    def status(self):
        """The exit status, None while the process runs."""
        return self._child.poll()

    def output(self):
        self._output.seek(0)
        return self._output.read().decode(errors="replace")

    def end(self):
        """Asks the process to end, makes it end when it does not, and closes what belongs to it."""
        if self._child.poll() is None:
            self._child.terminate()
            try:
                self._child.wait(DEADLINE)
            except subprocess.TimeoutExpired:
                self._child.kill()
                self._child.wait()
        self._output.close()
