"""What the mouse pointer of an X server looks like."""

import ctypes


class CursorImage(ctypes.Structure):
    """XFixesCursorImage."""

    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short),
                ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort),
                ("serial", ctypes.c_ulong), ("pixels", ctypes.POINTER(ctypes.c_ulong)),
                ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


def pointer_is_visible(display_name):
    """Whether any pixel of the pointer has a colour."""
    x11 = ctypes.CDLL("libX11.so.6")
    fixes = ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    x11.XFree.argtypes = [ctypes.c_void_p]
    fixes.XFixesGetCursorImage.argtypes = [ctypes.c_void_p]
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(CursorImage)

    display = x11.XOpenDisplay(display_name.encode())
    image = fixes.XFixesGetCursorImage(display)
    size = image.contents.width * image.contents.height
    visible = any(image.contents.pixels[:size])
    x11.XFree(image)
    x11.XCloseDisplay(display)
    return visible
