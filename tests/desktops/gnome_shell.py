"""GNOME Shell on Wayland."""

import json

from desktop import HEIGHT, WIDTH, Desktop, wait_until
from gi.repository import Gio, GLib

KEYSYMS = {"Right": 0xff53, "Left": 0xff51, "Up": 0xff52, "Down": 0xff54, "Return": 0xff0d,
           "Escape": 0xff1b, "space": 0x20, "F2": 0xffbf, "alt": 0xffe9}
MUTTER = "org.gnome.Mutter"
WINDOWS = """JSON.stringify(global.get_window_actors().map(actor => actor.meta_window)
    .filter(window => window.get_title() && !window.is_override_redirect())
    .map(window => [window.get_title(), window.get_monitor(), window.is_fullscreen(),
                    window.has_focus()]))"""
# Of the windows whose title has %s, the first comes to the front.
TO_FRONT = """global.get_window_actors().map(actor => actor.meta_window)
    .find(window => window.get_title().includes(%s)).activate(global.get_current_time())"""


class GnomeShell(Desktop):
    needs = ("gnome-shell", "pipewire", "wireplumber")
    abilities = frozenset({"unplug", "scale", "primary"})

    def come_up(self):
        # It asks the system of sessions and seats, of which there are none.
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self._start_bus("system-bus")
        self.spawn("pipewire")
        self.spawn("wireplumber")
        self.environment |= {"WAYLAND_DISPLAY": "wayland-quenara", "XDG_CURRENT_DESKTOP": "GNOME"}
        screen = f"{WIDTH}x{HEIGHT}"
        shell = self.spawn(
            "gnome-shell", "--wayland", "--headless", "--unsafe-mode", "--no-x11",
            "--virtual-monitor", screen, "--virtual-monitor", screen,
            "--wayland-display", self.environment["WAYLAND_DISPLAY"])
        self._bus = Gio.DBusConnection.new_for_address_sync(
            self.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)

        def is_up():
            if shell.status() is not None:
                raise AssertionError(f"the shell ended: {shell.output()}")
            try:
                return self._evaluate("Main.layoutManager._startingUp") == "false"
            except GLib.Error:
                return False

        wait_until(is_up, "the shell to come up")
        self._evaluate("Main.overview.hide()")
        self._keyboard = self._call(f"{MUTTER}.RemoteDesktop", "RemoteDesktop", "CreateSession")[0]
        self._call_keyboard("Start")

    def windows(self):
        return [tuple(window) for window in json.loads(json.loads(self._evaluate(WINDOWS)))]

    def give_keyboard(self, title):
        self._evaluate(TO_FRONT % json.dumps(title))

    def press(self, *keys):
        for key in keys:
            symbols = [KEYSYMS.get(name) or ord(name) for name in key.split("+")]
            for symbol in symbols:
                self._call_keyboard("NotifyKeyboardKeysym", GLib.Variant("(ub)", (symbol, True)))
            for symbol in reversed(symbols):
                self._call_keyboard("NotifyKeyboardKeysym", GLib.Variant("(ub)", (symbol, False)))

    def save_screenshot(self, screen, path):
        self._bus.call_sync("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                            "org.gnome.Shell.Screenshot", "Screenshot",
                            GLib.Variant("(bbs)", (False, False, str(path))), None,
                            Gio.DBusCallFlags.NONE, -1, None)
        return screen * WIDTH

    def arrange(self, *screens):
        serial, monitors, _, _ = self._call(f"{MUTTER}.DisplayConfig", "DisplayConfig",
                                            "GetCurrentState")
        modes = {monitor[0][0]: monitor[1][0][0] for monitor in monitors}
        layout = [(x, 0, scale, 0, is_primary,
                   [(f"Meta-{number}", modes[f"Meta-{number}"], {})])
                  for number, x, scale, is_primary in screens]
        temporarily = 1
        self._call(f"{MUTTER}.DisplayConfig", "DisplayConfig", "ApplyMonitorsConfig",
                   GLib.Variant("(uua(iiduba(ssa{sv}))a{sv})", (serial, temporarily, layout, {})))

    def _evaluate(self, script):
        succeeded, answer = self._bus.call_sync(
            "org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell", "Eval",
            GLib.Variant("(s)", (script,)), None, Gio.DBusCallFlags.NONE, -1, None).unpack()
        if not succeeded:
            raise AssertionError(f"{script}: {answer}")
        return answer

    def _call_keyboard(self, method, arguments=None):
        self._bus.call_sync(f"{MUTTER}.RemoteDesktop", self._keyboard,
                            f"{MUTTER}.RemoteDesktop.Session", method, arguments, None,
                            Gio.DBusCallFlags.NONE, -1, None)

    def _call(self, service, name, method, arguments=None):
        return self._bus.call_sync(service, f"/org/gnome/Mutter/{name}", service, method,
                                   arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()
