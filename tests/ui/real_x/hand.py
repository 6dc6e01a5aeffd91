"""Works the editor as a person at a desktop does: keys and pointer go in as events of the X server, and what is on the
screen is read as a screen reader reads it. Nothing here waits for a time: each step waits until the screen shows what
it must."""

import ctypes
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

MAP = ("table", "Map")
PATIENCE_S = 60  # for a busy machine; reached only when something is broken


def until(condition, what):
    """The first true answer of `condition`. Windows come and go while it looks, so a lost object counts as no."""
    end = time.monotonic() + PATIENCE_S
    answer = None
    while time.monotonic() < end:
        try:
            answer = condition()
        except GLib.Error:
            answer = None
        if answer:
            return answer
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}; last seen: {answer!r}")


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def has(thing, state):
    return thing.get_state_set().contains(state)


def texts(thing):
    """What names a thing on the screen."""
    return (thing.get_name() or "", thing.get_description() or "")


def walk(thing):
    """The thing and all that is shown below it, the many cells of a map left out."""
    if thing is None or not has(thing, Atspi.StateType.SHOWING):
        return
    yield thing
    if (thing.get_role_name(), thing.get_name()) == MAP:
        return
    for place in range(thing.get_child_count()):
        yield from walk(thing.get_child_at_index(place))


class Screen:
    """Reads single pixels of the X display."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, name).restype = ctypes.c_void_p
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def pixel(self, x, y):
        image = ctypes.c_void_p(
            self.x11.XGetImage(self.display, self.root, x, y, 1, 1, ctypes.c_ulong(0xFFFFFF), 2)
        )
        colour = self.x11.XGetPixel(image, 0, 0) & 0xFFFFFF
        self.x11.XDestroyImage(image)
        return colour


class Editor:
    """A running editor, its main window being all that there is on the display."""

    def __init__(self, program, *files):
        self.process = subprocess.Popen([program, *files])
        self.screen = Screen()
        self.frame = until(self._main_window, "the main window")

    def _main_window(self):
        assert self.process.poll() is None, "the editor ended at its start"
        return self.window("frame", "Quorvel Vastrelum")

    def window(self, role, title):
        """The top-level window whose title starts so, or nothing."""
        desktop = Atspi.get_desktop(0)
        for place in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(place)
            for number in range(program.get_child_count()):
                window = program.get_child_at_index(number)
                if window and window.get_role_name() == role and window.get_name().startswith(title):
                    return window
        return None

    def dialog(self, title):
        """The dialog with this title, once it has the keyboard."""

        def ready():
            found = self.window("dialog", title) or self.window("alert", title)
            return found if found and has(found, Atspi.StateType.ACTIVE) else None

        return until(ready, f"the dialog {title!r}")

    def find(self, role, name, inside=None):
        """The first thing of this role with this name or description, once it is shown."""

        def look():  # through everything: what was seen once must still be right when it is seen elsewhere
            found = [thing for thing in walk(inside or self.frame)
                     if thing.get_role_name() == role and name in texts(thing)]
            return found[0] if found else None

        return until(look, f"a {role} {name!r}")

    def await_title(self, title):
        until(lambda: self.frame.get_name() == title, f"the title {title!r}")

    def await_position(self, text):
        """Waits until the second pane of the status bar says so."""

        def panes():
            bar = self.find("status bar", "")
            return [pane.get_name() for pane in walk(bar) if pane.get_role_name() == "label"]

        until(lambda: panes()[1:] == [text], f"the position {text!r}")

    def await_keyboard_in_map(self):
        def has_it():
            return any(thing.get_name() == "Map view" and has(thing, Atspi.StateType.FOCUSED)
                       for thing in walk(self.frame))

        until(has_it, "the keyboard in the map")

    def keys(self, *keys):
        xdotool("key", "--clearmodifiers", *keys)

    def type(self, text):
        xdotool("type", text)

    def click(self, thing):
        place = thing.get_extents(Atspi.CoordType.SCREEN)
        xdotool("mousemove", place.x + place.width // 2, place.y + place.height // 2, "click", 1)

    def choose(self, *path):
        """Opens a menu by its key and picks an item by the pointer."""
        menu, item = path
        self.keys(f"alt+{menu}")
        self.click(self.find("menu item", item))

    def end(self):
        self.process.kill()
        self.process.wait()


class Map:
    """Where the cells of the map in front are on the screen. Not scrolled; every step of zoom is 10 pixels."""

    def __init__(self, editor, cell_size):
        self.editor = editor
        self.size = cell_size
        self.place = editor.find(*MAP).get_extents(Atspi.CoordType.SCREEN)

    def _corner(self, column, row):
        step = int(self.size * 0.866025447845459)
        below = self.size // 2 if column % 2 else 0
        return self.place.x + column * step, self.place.y + row * self.size + below

    def middle(self, column, row):
        x, y = self._corner(column, row)
        width = int(self.size * 0.866025447845459) + 2 * int(self.size * 0.1443376)
        return x + width // 2, y + self.size // 2

    def colour(self, column, row):
        """The fill of a cell, near its left corner where no label is."""
        x, y = self._corner(column, row)
        return self.editor.screen.pixel(x + self.size // 6, y + self.size // 2)

    def point(self, column, row):
        xdotool("mousemove", *self.middle(column, row))

    def drag(self, *cells):
        """Through the middles of these cells with the button held; the status bar confirms each."""
        for cell, text in cells:
            self.point(*cell)
            self.editor.await_position(text)
            if (cell, text) == cells[0]:
                xdotool("mousedown", 1)
        xdotool("mouseup", 1)
