"""sway on Wayland."""

import json

from desktop import HEIGHT, WIDTH, Desktop, Unavailable, wait_until

NAMES = ("HEADLESS-1", "HEADLESS-2")
CONFIGURATION = f"""
default_border none
focus_follows_mouse no
output {NAMES[0]} resolution {WIDTH}x{HEIGHT} position 0 0
output {NAMES[1]} resolution {WIDTH}x{HEIGHT} position {WIDTH} 0
"""


class Sway(Desktop):
    needs = ("sway", "swaymsg", "wtype", "grim")
    # Its release of Debian 12 can neither turn off nor scale a screen without a monitor.
    abilities = frozenset()

    def come_up(self):
        configuration = self.folder / "sway.conf"
        configuration.write_text(CONFIGURATION)
        socket = self.folder / "sway.sock"
        self.environment |= {"SWAYSOCK": str(socket), "XDG_CURRENT_DESKTOP": "sway"}
        sway = self.spawn("sway", "-c", configuration, WLR_BACKENDS="headless",
                          WLR_HEADLESS_OUTPUTS="2", WLR_RENDERER="pixman",
                          WLR_LIBINPUT_NO_DEVICES="1")

        def display():
            if sway.status() is not None:
                raise Unavailable(f"sway ended: {sway.output()}")
            sockets = [path.name for path in self.folder.glob("wayland-*")
                       if not path.name.endswith(".lock")]
            return socket.exists() and sockets and sockets[0]

        self.environment["WAYLAND_DISPLAY"] = wait_until(display, "sway to come up")
        # One that goes takes the seat's keyboard with it.
        self.spawn("wtype", "-s", "10000000")

    def attend(self):
        self.ask("swaymsg", "focus", "output", NAMES[0])

    def windows(self):
        return [(node["name"], NAMES.index(output), node["fullscreen_mode"] != 0, node["focused"])
                for node, output in self._nodes(json.loads(self.ask(
                    "swaymsg", "-t", "get_tree", "-r")))
                if node.get("pid") and node["name"]]

    def _nodes(self, node, output=None):
        output = node["name"] if node["type"] == "output" else output
        yield node, output
        for child in node["nodes"] + node["floating_nodes"]:
            yield from self._nodes(child, output)

    def give_keyboard(self, title):
        self.ask("swaymsg", f'[title="{title}"] focus')

    def press(self, *keys):
        for key in keys:
            *held, last = key.split("+")
            self.ask("wtype", *(word for name in held for word in ("-M", name)), "-k", last)

    def save_screenshot(self, screen, path):
        self.ask("grim", "-o", NAMES[screen], path)
        return 0
