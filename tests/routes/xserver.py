"""What the X server is asked for beyond the pointer and the keys: its monitors, and where a window stands with its frame."""

import ctypes
from ctypes import POINTER, byref, c_char_p, c_int, c_long, c_uint, c_ulong, c_void_p


class Monitor(ctypes.Structure):
    """XRRMonitorInfo."""
    _fields_ = [("name", c_ulong), ("primary", c_int), ("automatic", c_int), ("noutput", c_int), ("x", c_int), ("y", c_int),
                ("width", c_int), ("height", c_int), ("mwidth", c_int), ("mheight", c_int), ("outputs", POINTER(c_ulong))]


class ClientMessage(ctypes.Structure):
    """XClientMessageEvent, in the room of an XEvent."""
    _fields_ = [("type", c_int), ("serial", c_ulong), ("send_event", c_int), ("display", c_void_p), ("window", c_ulong),
                ("message_type", c_ulong), ("format", c_int), ("data", c_long * 5), ("rest", c_long * 24)]


CLIENT_MESSAGE, SUBSTRUCTURE = 33, 0x180000  # the event's number, and who hears it: the window manager


class XServer:
    """A connection of its own, to be used in a with statement."""

    def __init__(self, display):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = c_void_p
        self.x.XOpenDisplay.argtypes = [c_char_p]
        self.x.XDefaultRootWindow.restype = c_ulong
        for name in ("XDefaultRootWindow", "XCloseDisplay"):
            getattr(self.x, name).argtypes = [c_void_p]
        self.x.XSync.argtypes = [c_void_p, c_int]
        self.x.XInternAtom.restype = c_ulong
        self.x.XInternAtom.argtypes = [c_void_p, c_char_p, c_int]
        self.x.XSendEvent.argtypes = [c_void_p, c_ulong, c_int, c_long, c_void_p]
        self.x.XQueryTree.argtypes = [c_void_p, c_ulong, POINTER(c_ulong), POINTER(c_ulong), POINTER(c_void_p), POINTER(c_uint)]
        self.x.XFree.argtypes = [c_void_p]
        self.x.XGetGeometry.argtypes = [c_void_p, c_ulong, POINTER(c_ulong), POINTER(c_int), POINTER(c_int), POINTER(c_uint),
                                        POINTER(c_uint), POINTER(c_uint), POINTER(c_uint)]
        self.display = self.x.XOpenDisplay(display.encode())
        if not self.display:
            raise OSError(f"no X server at {display}")
        self.root = self.x.XDefaultRootWindow(self.display)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.x.XCloseDisplay(self.display)

    def set_monitors(self, places):
        """Divides the screen into monitors, each (left, top, width, height); the first is the primary one."""
        randr = ctypes.CDLL("libXrandr.so.2")
        randr.XRRGetMonitors.restype = POINTER(Monitor)
        randr.XRRGetMonitors.argtypes = [c_void_p, c_ulong, c_int, POINTER(c_int)]
        randr.XRRSetMonitor.argtypes = [c_void_p, c_ulong, POINTER(Monitor)]
        count = c_int()
        # The server has one output, which goes to the first monitor.
        output = randr.XRRGetMonitors(self.display, self.root, 1, byref(count))[0].outputs
        for number, (left, top, width, height) in enumerate(places):
            name = self.x.XInternAtom(self.display, f"monitor{number}".encode(), 0)
            first = number == 0
            monitor = Monitor(name, int(first), 0, int(first), left, top, width, height, width // 4, height // 4,
                              output if first else None)
            randr.XRRSetMonitor(self.display, self.root, byref(monitor))
        self.x.XSync(self.display, 0)

    def ask_to_close(self, window):
        """Asks the window manager to close a window, as a task bar does."""
        message = ClientMessage(CLIENT_MESSAGE, 0, 1, self.display, window,
                                self.x.XInternAtom(self.display, b"_NET_CLOSE_WINDOW", 0), 32, (c_long * 5)(0, 2))
        self.x.XSendEvent(self.display, self.root, 0, SUBSTRUCTURE, byref(message))
        self.x.XSync(self.display, 0)

    def frame(self, window):
        """Left, top, width and height of a window with what the window manager has put around it."""
        outermost = window
        while True:
            root, parent, children, count = c_ulong(), c_ulong(), c_void_p(), c_uint()
            if not self.x.XQueryTree(self.display, outermost, byref(root), byref(parent), byref(children), byref(count)):
                return None
            if children:
                self.x.XFree(children)
            if parent.value == root.value:
                break
            outermost = parent.value
        left, top, width, height, unused = c_int(), c_int(), c_uint(), c_uint(), c_uint()
        self.x.XGetGeometry(self.display, outermost, byref(root), byref(left), byref(top), byref(width), byref(height),
                            byref(unused), byref(unused))
        return left.value, top.value, width.value, height.value
