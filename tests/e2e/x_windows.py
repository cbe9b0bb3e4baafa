"""The windows and the pointer of an X server, asked over one connection: a process for each
question takes longer than its answer, and tests ask thousands of times."""

from Xlib import X, error
from Xlib.display import Display

GONE = (error.BadWindow, error.BadDrawable, error.BadMatch)


class XWindows:
    """Windows go by their ids, in words. What is asked of one that has gone is None."""

    def __init__(self, display_name):
        self._display = Display(display_name)
        self._root = self._display.screen().root

    def close(self):
        self._display.close()

    def titles(self):
        """The titles of the shown windows that have one, by their ids: of those that the window
        manager knows, then of those that it does not."""
        titles = {}
        for window in map(self._window, self.managed()):
            self._add_title(window, titles)
        for window in self._root.query_tree().children:
            self._add_title(window, titles)
        return titles

    def focused(self):
        """What has the keyboard, and its title; both are empty while no program has it."""
        window = self._display.get_input_focus().focus
        if window in (X.NONE, X.PointerRoot) or not self._property(window, "WM_CLASS"):
            return "", ""
        return str(window.id), self._title(window)

    def managed(self):
        """The windows that the window manager knows, the oldest first."""
        known = self._property(self._root, "_NET_CLIENT_LIST")
        return [str(window) for window in known or ()]

    def area(self, window):
        """(width, height, x, y) on the whole desktop, without a frame."""
        window = self._window(window)
        try:
            size = window.get_geometry()
            place = window.translate_coords(self._root, 0, 0)
        except GONE:
            return None
        # What comes back counts from the window to the place.
        return (size.width, size.height, -place.x, -place.y)

    def pointer_is_visible(self):
        """Whether any pixel of the pointer has a colour."""
        self._display.xfixes_query_version()
        return any(self._display.xfixes_get_cursor_image(self._root).cursor_image)

    def _window(self, window):
        return self._display.create_resource_object("window", int(window))

    def _add_title(self, window, titles):
        # A window manager's own windows have a title, too, but no class.
        title = self._property(window, "WM_CLASS") and self._title(window)
        if title and self._is_shown(window):
            titles[str(window.id)] = title

    def _is_shown(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except GONE:
            return False

    def _title(self, window):
        title = self._property(window, "_NET_WM_NAME") or self._property(window, "WM_NAME") or b""
        return title.decode(errors="replace") if isinstance(title, bytes) else title

    def _property(self, window, name):
        try:
            found = window.get_full_property(self._display.get_atom(name), X.AnyPropertyType)
        except GONE:
            return None
        return found.value if found else None
