"""settings_portal.py: a desktop's settings on the session bus. It prefers dark or light as each line
of its input says, and tells of that; it prints a line once it can be asked."""

import sys
import threading

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
SETTING = ("org.freedesktop.appearance", "color-scheme")
SCHEMES = {"dark": 1, "light": 2}
INTERFACE = f"""<node><interface name="{SETTINGS}">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


def main():
    scheme = [SCHEMES["light"]]
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def value():
        return GLib.Variant("u", scheme[0])

    def answer(_bus, _sender, _path, _interface, _method, _arguments, call):
        call.return_value(GLib.Variant("(v)", (GLib.Variant("v", value()),)))

    def change(to):
        scheme[0] = SCHEMES[to]
        bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                        GLib.Variant("(ssv)", (*SETTING, value())))

    def read():
        for line in sys.stdin:
            GLib.idle_add(change, line.strip())
        GLib.idle_add(loop.quit)

    loop = GLib.MainLoop()
    interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
    bus.register_object(PATH, interface, answer)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE,
                                   lambda *_: print("ready", flush=True), None)
    threading.Thread(target=read, daemon=True).start()
    loop.run()


if __name__ == "__main__":
    main()
