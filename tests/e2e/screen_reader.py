"""The running program as a screen reader meets it: things with names, roles and states."""

import contextlib
import os
import signal
import tempfile
from pathlib import Path

from processes import DEADLINE, Process, wait_until
from xserver import Unavailable

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError) as reason:
    Atspi = None
    WITHOUT_READER = f"reading the accessibility tree needs its bindings: {reason}"


# What newer releases of the services call otherwise.
EARLIER_NAMES = {"button": "push button"}


class ScreenReader:
    """Desktop services of its own for an X server; a context manager that ends them.

    A process can have one only, as the library connects once. A program that has not answered for
    `patience` seconds counts as gone.
    """

    def __init__(self, server, patience=DEADLINE):
        if Atspi is None:
            raise Unavailable(WITHOUT_READER)
        self._resources = contextlib.ExitStack()
        runtime = self._resources.enter_context(tempfile.TemporaryDirectory(prefix="quenara-bus-"))
        Path(runtime).chmod(0o700)
        readable, writable = os.pipe()
        bus = Process(["dbus-daemon", "--session", "--nofork", f"--print-address={writable}"],
                      pass_fds=(writable,),
                      env=server.environment | {"XDG_RUNTIME_DIR": runtime, "HOME": runtime})
        self._resources.callback(bus.end)
        os.close(writable)
        with os.fdopen(readable) as answer:
            address = answer.readline().strip()
        if not address:
            self.close()
            raise Unavailable(f"dbus-daemon did not start: {bus.output()}")
        # What a program needs to be read by the screen reader.
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": address,
                            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        os.environ |= {"DBUS_SESSION_BUS_ADDRESS": address, "DISPLAY": server.display}
        Atspi.init()
        Atspi.set_timeout(patience * 1000, patience * 1000)
        # Only a main loop would keep a cache up to date.
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)

    def close(self):
        self._resources.close()

    def changes_of_values(self):
        """Meanwhile, gives the name of each control that has told that its value changed."""
        return self._names_heard("object:property-change:accessible-value")

    def moves_of_the_keyboard(self):
        """Meanwhile, gives the name of each thing that the keyboard has come to or left."""
        return self._names_heard("object:state-changed:focused")

    def changes_of_descriptions(self):
        """Meanwhile, gives the name of each thing that is described in other words."""
        return self._names_heard("object:property-change:accessible-description")

    def notifications(self):
        """Meanwhile, gives the words of each notification that has come to be shown, which is when
        screen readers speak them."""
        return self._names_heard("object:state-changed:showing", role="notification")

    @contextlib.contextmanager
    def _names_heard(self, kind, role=None):
        told = []

        def hear(event):
            # What has gone since has neither role nor name.
            with contextlib.suppress(GLib.Error):
                if role in (None, Thing(event.source).role):
                    told.append(event.source.get_name())

        def names():
            while GLib.MainContext.default().iteration(False):
                pass
            return told

        listener = Atspi.EventListener.new(hear)
        listener.register(kind)
        try:
            yield names
        finally:
            listener.deregister(kind)

    @contextlib.contextmanager
    def silent(self):
        """Meanwhile, nobody answers the program, which asks about each key."""
        registry = Thing(Atspi.get_desktop(0)).pid
        os.kill(registry, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(registry, signal.SIGCONT)

    def application(self, pid):
        """The root of what a process shows, once it shows something."""
        def found():
            return next((child for child in Thing(Atspi.get_desktop(0)).children
                         if child.pid == pid and child.children), None)

        return wait_until(found, "the program to be readable")


class Keyboard:
    """Where a program tells that the keyboard is; a context manager."""

    def __init__(self):
        self._moves = 0
        self._holder = None
        self._listener = Atspi.EventListener.new(self._hear)

    def __enter__(self):
        self._listener.register("object:state-changed:focused")
        return self

    def __exit__(self, *_):
        self._listener.deregister("object:state-changed:focused")

    def _hear(self, event):
        if event.detail1:
            self._moves += 1
            self._holder = Thing(event.source)

    @property
    def holder(self):
        """What has the keyboard as far as has been told; None before anything has."""
        while GLib.MainContext.default().iteration(False):
            pass
        return self._holder

    def is_at(self, title, role=None, description=None):
        # What has gone has no name any more.
        with contextlib.suppress(GLib.Error):
            holder = self.holder
            return (holder is not None and holder.title == title and role in (None, holder.role)
                    and description in (None, holder.description))
        return False

    def move(self, act):
        """Does what moves the keyboard, and waits until that is told of."""
        def has_moved():
            return self.holder and self._moves > before

        before = self.holder and self._moves
        act()
        wait_until(has_moved, "the keyboard to move")


class Thing:
    """Something that a screen reader can speak of."""

    def __init__(self, accessible):
        self._accessible = accessible

    @property
    def pid(self):
        return self._accessible.get_process_id()

    @property
    def name(self):
        return self._accessible.get_name()

    @property
    def title(self):
        """What it is called by: its label or, without one, its name."""
        for relation in self._accessible.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
        return self.name

    @property
    def description(self):
        return self._accessible.get_description()

    @property
    def role(self):
        name = self._accessible.get_role_name()
        return EARLIER_NAMES.get(name, name)

    @property
    def value(self):
        """The number that it shows."""
        return Atspi.Value.get_current_value(self._accessible)

    def set_value(self, value):
        Atspi.Value.set_current_value(self._accessible, value)

    @property
    def text(self):
        """The text that it holds."""
        return Atspi.Text.get_text(self._accessible, 0, -1)

    def write(self, text):
        """Replaces the text that it holds."""
        Atspi.EditableText.set_text_contents(self._accessible, text)

    def move_caret(self, position):
        Atspi.Text.set_caret_offset(self._accessible, position)

    @property
    def area(self):
        """(x, y, width, height) on the desktop."""
        area = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return area.x, area.y, area.width, area.height

    @property
    def children(self):
        # What disappears meanwhile has no children any more.
        with contextlib.suppress(GLib.Error):
            found = (self._accessible.get_child_at_index(index)
                     for index in range(self._accessible.get_child_count()))
            return [Thing(child) for child in found if child]
        return []

    def has(self, state):
        """Whether it is in a state, by the name of the accessibility services."""
        return self._accessible.get_state_set().contains(getattr(Atspi.StateType, state))

    def is_control(self, title, role):
        """Whether it is shown and can be used, and is called so; False once it has gone."""
        with contextlib.suppress(GLib.Error):
            return (self.has("FOCUSABLE") and self.has("SHOWING")
                    and role in (None, self.role) and self.title == title)
        return False

    def take_keyboard(self):
        Atspi.Component.grab_focus(self._accessible)
        wait_until(lambda: self.has("FOCUSED"), f"{self.title} to have the keyboard")

    @property
    def action_count(self):
        return Atspi.Action.get_n_actions(self._accessible)

    def press(self, action=0):
        """Does what a press of it does, or what another of its actions does."""
        Atspi.Action.do_action(self._accessible, action)

    def focus(self):
        """Gives it the keyboard by the second of its actions, as far as it can have it."""
        self.press(1)

    @property
    def child_count(self):
        return self._accessible.get_child_count()

    def child(self, index):
        """None once it is gone."""
        child = self._accessible.get_child_at_index(index)
        return Thing(child) if child else None

    def select_row(self, row):
        """Selects a row by its place, as one of a table."""
        Atspi.Table.add_row_selection(self._accessible, row)

    def shown(self):
        """All that is seen below it, from the outside in."""
        for child in self.children:
            if child.has("SHOWING"):
                yield child
                yield from child.shown()
