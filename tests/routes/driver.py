"""The program as a person meets it: found through the accessibility bus by the names a screen reader reads out,
worked with the pointer and the keys of the X server."""

import os
import pathlib
import shutil
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from desktop import PATIENCE, NotReached, wait_until
from xserver import XServer

ROLE = Atspi.Role
STATE = Atspi.StateType
WINDOWS = (ROLE.FRAME, ROLE.DIALOG, ROLE.ALERT, ROLE.WINDOW)
MANY_ROWS = 60
DOUBLE_CLICK = 0.5  # seconds; within 0.4 Qt takes two clicks for one double click
FILE_NAME = "ファイル名(N):"
BUTTONS = (ROLE.PUSH_BUTTON, ROLE.CHECK_BOX, ROLE.RADIO_BUTTON, ROLE.TOGGLE_BUTTON)


def states(node):
    return node.get_state_set()


def is_shown(node):
    held = states(node)
    return held.contains(STATE.SHOWING) and held.contains(STATE.VISIBLE)


def in_active_window(node):
    """A dock is a window within a window, so each of them is asked."""
    while node:
        if node.get_role() in WINDOWS and states(node).contains(STATE.ACTIVE):
            return True
        node = node.get_parent()
    return False


def shown_children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child and is_shown(child):
            yield child


class Program:
    """One run of the tests' program on a desktop."""

    last_click = (None, 0.0)  # where and when

    def __init__(self, desktop, program, tables, *arguments, preexec=None, service="http"):
        """`service`: the one of the local services that is asked."""
        self.desktop = desktop
        self.folder = desktop.folder / "program"
        if not self.folder.exists():
            for name in ("DamCoef", "LowSpec", "SystemData"):
                shutil.copytree(pathlib.Path(tables) / name, self.folder / name)
        environment = dict(desktop.env)
        environment.update(
            TREMLO_TEST_SERVICE=f"{service.partition('-')[0]}://127.0.0.1:{desktop.service[service]}",
            TREMLO_TEST_CERTIFICATE=desktop.service["ca"],
            TREMLO_TEST_PROGRAM_FOLDER=str(self.folder))
        self.process = subprocess.Popen([program, *map(str, arguments)], env=environment, cwd=desktop.folder,
                                        preexec_fn=preexec)
        desktop.processes.append(self.process)

    # --- finding

    def application(self):
        root = Atspi.get_desktop(0)
        root.clear_cache()
        for i in range(root.get_child_count()):
            node = root.get_child_at_index(i)
            if node and node.get_process_id() == self.process.pid:
                return node
        return None

    def walk(self, node):
        """Every shown control below a node; a table's cells are left out, they may be many."""
        yield node
        if node.get_role() not in (ROLE.TABLE, ROLE.TREE, ROLE.LIST):
            for child in shown_children(node):
                yield from self.walk(child)

    def top_windows(self):
        """The windows that are shown, dialogs and boxes among them; a dock is part of its window."""
        try:
            application = self.application()
            if application is not None:
                application.clear_cache()
                yield from shown_children(application)
        except gi.repository.GLib.Error:
            return  # what was being looked at went away; the next look finds what is there

    def nodes(self, windows=None):
        """The shown controls of all windows, or of those given, one by one: the bus answers slowly, and whoever has found
        what he looks for need not ask for the rest."""
        try:
            for window in self.top_windows() if windows is None else windows:
                yield from self.walk(window)
        except gi.repository.GLib.Error:
            return

    def active_nodes(self):
        """The shown controls of the active window; of all windows while only a dock is, which has a window's state of its
        own."""
        try:
            windows = list(self.top_windows())
            return self.nodes([window for window in windows if states(window).contains(STATE.ACTIVE)] or windows)
        except gi.repository.GLib.Error:
            return iter(())

    def look(self, name, role=None):
        """The shown control of that accessible name, or None."""
        try:
            for node in self.top_windows() if role in (ROLE.DIALOG, ROLE.ALERT) else self.nodes():
                if node.get_name() == name and role in (None, node.get_role()):
                    return node
        except gi.repository.GLib.Error:
            pass
        return None

    def find(self, name, role=None):
        return self.until(lambda: self.look(name, role), f"control {name}")

    def until(self, state, what, patience=PATIENCE):
        def tried():
            if self.process.poll() is not None:
                raise NotReached(f"the program ended with {self.process.returncode} before: {what}")
            try:
                return state()
            except gi.repository.GLib.Error:
                return None
        try:
            return wait_until(tried, what, patience)
        except NotReached as error:
            self.screenshot(f"failed_{self.process.pid}")
            raise NotReached(f"{error}\nshown: {self.shown()}") from None

    def shown(self):
        return [f"{node.get_role_name()} {node.get_name()!r}" for node in self.nodes() if node.get_name()]

    # --- acting

    def xdotool(self, *words):
        return self.desktop.run("xdotool", *words)

    def point(self, node):
        box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def click(self, name, roles):
        """Clicks the shown control of that name, as soon as it can be clicked: enabled, in the active window, and no
        longer moved by the window manager."""
        seen = []

        def ready():
            for node in self.active_nodes():
                if node.get_name() == name and node.get_role() in roles and states(node).contains(STATE.ENABLED):
                    if in_active_window(node):
                        seen.append(self.point(node))
                        return len(seen) > 1 and seen[-1] == seen[-2]
            return False
        self.until(ready, f"control {name}")
        self.click_at(*seen[-1])

    def click_at(self, x, y, button=1, count=1):
        """Clicks of their own: two at one place must lie farther apart than those of a double click."""
        place, moment = self.last_click
        if place == (x, y):
            wait_until(lambda: time.monotonic() > moment + DOUBLE_CLICK, "end of a double click")
        self.xdotool("mousemove", x, y, "click", "--repeat", count, "--delay", 60, button)
        self.last_click = ((x, y), time.monotonic())

    def click_cell(self, table, row, column, button=1, count=1):
        def cell():
            node = Atspi.Table.get_accessible_at(self.find(table, ROLE.TABLE), row, column)
            return node and self.point(node)
        self.click_at(*self.until(cell, f"cell {row}, {column} of {table}"), button, count)

    def windows(self):
        """Numbers of the X windows that are seen, menus included: the bus does not list those."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)],
                               env=self.desktop.env, capture_output=True, text=True)
        return set(found.stdout.split())

    def open_cell_menu(self, table, row, column):
        before = self.windows()
        self.click_cell(table, row, column, button=3)
        self.until(lambda: self.windows() - before, "menu of the grid")

    def point_at(self, name):
        """Moves the pointer to the middle of a control."""
        self.xdotool("mousemove", *self.point(self.find(name)))

    def status(self):
        """What stands in the status bar for the moment."""
        return next((node.get_name() for node in self.nodes() if node.get_role() == ROLE.STATUS_BAR), "")

    def press(self, name):
        """Clicks the shown button or box to tick of that name."""
        self.click(name, BUTTONS)

    def act_on(self, name, role=ROLE.PUSH_BUTTON):
        """Does what the accessibility bus offers on the control of that name."""
        self.until(lambda: Atspi.Action.do_action(self.find(name, role), 0), f"action of {name}")

    def focus(self, name, roles=None):
        """Walks with the tab key until the control of that name, or of that name and one of the roles, has the focus; a
        control that the keys do not reach is a fault."""
        kinds = roles and [Atspi.role_get_name(role) for role in roles]
        for _ in range(60):
            before = self.focused()
            if before and before[1] == name and (not kinds or before[0] in kinds):
                return
            self.leave(before)
        raise NotReached(f"the tab key does not reach {name}")

    def leave(self, before):
        """Presses the tab key until another control has the focus: a text with links has a stop for each of them."""
        for _ in range(4):
            self.keys("Tab")
            try:
                wait_until(lambda: self.focused() not in (None, before), "focus moved", 2)
                return
            except NotReached:
                continue
        raise NotReached(f"the focus does not leave {before}")

    def focused(self):
        """Role and name of the control that has the focus, and where it is; None also while that changes. The box around
        the buttons of a dialog tells the focus of its default button as its own."""
        try:
            for node in self.active_nodes():
                if states(node).contains(STATE.FOCUSED) and (node.get_role() != ROLE.PANEL or node.get_name()):
                    return node.get_role_name(), node.get_name(), self.point(node)
        except gi.repository.GLib.Error:
            pass
        return None

    def has_active_window(self):
        """The keys go to one of its windows, by the X server's account: the window manager calls a window active before
        it has given it the keyboard, and a key pressed in between is lost."""
        told = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid"], env=self.desktop.env,
                              capture_output=True, text=True)
        return told.stdout.strip() == str(self.process.pid)

    def keys(self, *names):
        self.until(self.has_active_window, "an active window")
        self.xdotool("key", "--delay", 30, *names)

    def type(self, text):
        self.xdotool("type", "--delay", 5, text)

    # --- acting through the accessibility bus, which knows of no dialog in front

    def everything(self, node=None):
        """Every control below a node, the entries of closed menus too; a table's cells are left out."""
        node = node or self.application()
        yield node
        if node.get_role() in (ROLE.TABLE, ROLE.TREE, ROLE.LIST):
            return
        for i in range(node.get_child_count()):
            child = node.get_child_at_index(i)
            if child:
                yield from self.everything(child)

    def action_of(self, name):
        """Where on the bus the action of the control of that name is: the shown one, else the entry of a menu."""
        def found():
            named = [node for node in self.everything() if node.get_name() == name and node.get_n_actions() > 0]
            named.sort(key=lambda node: not is_shown(node))
            return named and (named[0].app.bus_name, named[0].path)
        return self.until(found, f"action {name}")

    def act(self, *actions):
        """Carries out the first action of each, all of them in one batch, and returns when the program has been told of
        the last. What an action leads to may take longer."""
        bus = self.accessibility_bus()
        for name, path in actions:
            bus.call(name, path, "org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)), None,
                     Gio.DBusCallFlags.NONE, -1, None, None)
        # Messages of one sender arrive in their order, and an action that waits lets the next one in.
        bus.call_sync(actions[-1][0], "/org/a11y/atspi/accessible/root", "org.freedesktop.DBus.Properties", "Get",
                      GLib.Variant("(ss)", ("org.a11y.atspi.Accessible", "Name")), None, Gio.DBusCallFlags.NONE, -1, None)

    def buttons_down(self):
        """The names of the buttons that are down, be it for the moment between a press over the bus and its effect."""
        return [node.get_name() for node in self.everything() if node.get_state_set().contains(Atspi.StateType.PRESSED)]

    def accessibility_bus(self):
        if not hasattr(self, "bus"):
            session = Gio.DBusConnection.new_for_address_sync(
                self.desktop.env["DBUS_SESSION_BUS_ADDRESS"],
                Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
            address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                        Gio.DBusCallFlags.NONE, -1, None).unpack()[0]
            self.bus = Gio.DBusConnection.new_for_address_sync(
                address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
                None, None)
        return self.bus

    def dialogs(self):
        """Names of the dialogs and boxes that are up."""
        return [node.get_name() for node in self.top_windows() if node.get_role() in (ROLE.DIALOG, ROLE.ALERT)]

    def has_window(self, title):
        """By the X server's account, which is asked faster than the bus."""
        return self.window_of(title) is not None

    # --- what a person reads and answers

    def text(self, name):
        """What stands in an edit."""
        node = self.find(name, ROLE.TEXT)
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def description(self, name):
        return self.find(name).get_description()

    def geometry(self, title):
        """Left, top, width and height of the window of that title, in pixels of the screen, without its frame."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$", "getwindowgeometry", "--shell"],
                               env=self.desktop.env, capture_output=True, text=True)
        told = dict(line.split("=") for line in found.stdout.split())
        return tuple(int(told[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")) if "X" in told else None

    def window_of(self, title):
        """Number of the X window of that title, or None."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], env=self.desktop.env,
                               capture_output=True, text=True)
        return found.stdout.strip() or None

    def frame(self, title):
        """Left, top, width and height of the window of that title with its frame, or None."""
        window = self.window_of(title)
        if not window:
            return None
        with XServer(self.desktop.env["DISPLAY"]) as server:
            return server.frame(int(window))

    def settled_geometry(self, title):
        """The geometry of a window that has stopped to change."""
        seen = []

        def settled():
            seen.append(self.geometry(title))
            return seen[-1] if seen[-1] and len(seen) > 25 and len(set(seen[-25:])) == 1 else None
        return self.until(settled, f"a window {title} that keeps its size", 30)

    def cell(self, table, row, column):
        """Text of a cell, the rows and columns counted without their headings."""
        node = Atspi.Table.get_accessible_at(self.find(table, ROLE.TABLE), row, column)
        return node.get_name() if node else None

    def rows(self, table):
        """Of a grid the texts of all cells as they are read out; of a long one those of its ends."""
        node = self.find(table, ROLE.TABLE)
        count = Atspi.Table.get_n_rows(node)
        shown = range(count) if count <= MANY_ROWS else [0, 1, 2, count // 2, count - 1]
        columns = range(Atspi.Table.get_n_columns(node))
        return [[Atspi.Table.get_accessible_at(node, row, column).get_name() for column in columns] for row in shown]

    def has_box(self, text=None):
        """A message box is up: that of a text, or any."""
        boxes = [window for window in self.top_windows() if window.get_role() == ROLE.ALERT]
        return bool(boxes) and (text is None or any(
            node.get_role() == ROLE.LABEL and node.get_name() == text for node in self.nodes(boxes)))

    def box(self, text):
        """Waits for the message box of that text."""
        self.until(lambda: self.has_box(text), f"box: {text}")

    def answer(self, text, button="OK"):
        """Waits for the message box of that text and answers it by the pointer."""
        self.box(text)
        self.press(button)
        self.until(lambda: not self.has_box(text), "box closed")

    def nameless(self):
        """Controls that take the focus and would be read out without a name."""
        return [f"{node.get_role_name()} {self.point(node)}" for node in self.nodes()
                if states(node).contains(STATE.FOCUSABLE) and not node.get_name()]

    def file_dialog(self, title):
        return self.look(title, ROLE.DIALOG)

    def choose_file(self, title, path):
        """Types a path into the file dialog of that title."""
        self.until(lambda: self.file_dialog(title), f"file dialog {title}")
        self.until(lambda: (self.focused() or ("", ""))[1] == FILE_NAME, "focus on the file's name")
        for _ in range(3):
            # Qt's completion may put in a name of its own while it reads the folder that is being typed.
            self.keys("ctrl+a")
            self.type(str(path))
            self.until(lambda: self.text(FILE_NAME).endswith(path.name[-4:]), "path typed")
            if self.text(FILE_NAME) == str(path):
                break
        else:
            raise NotReached(f"not typed: {path}, but {self.text(FILE_NAME)}")
        self.keys("Return")
        self.until(lambda: not self.file_dialog(title), f"file dialog {title} closed")

    def title(self):
        for node in self.nodes():
            if node.get_role() == ROLE.FRAME and "Tremlo" in node.get_name():
                return node.get_name()
        return ""

    def close_window(self):
        """Asks the window manager to close the active window, until the program has ended or asks something. A key is
        pressed again where nothing came of it: the manager overlooks one now and then as windows come and go."""
        for _ in range(10):
            self.keys("alt+F4")
            try:
                wait_until(self.has_ended_or_asks, "close", 2)
                return
            except NotReached:
                continue

    def has_ended_or_asks(self):
        try:
            return self.process.poll() is not None or self.has_box()
        except gi.repository.GLib.Error:
            return False  # it is about to end

    def wait_for_end(self):
        """Exit status of the process."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.screenshot(f"failed_{self.process.pid}")
            raise NotReached(f"the program did not end\nshown: {self.shown()}") from None

    def brightness(self, x, y):
        """Of a pixel of the screen, 0 to 255."""
        pixel = self.desktop.run("import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-colorspace", "Gray", "-depth", 8,
                                 "-format", "%[fx:round(255*u)]", "info:-")
        return int(pixel)

    def screenshot(self, name):
        """Kept beside the build when the folder for it is named."""
        folder = os.environ.get("TREMLO_SCREENSHOTS")
        if folder:
            pathlib.Path(folder).mkdir(parents=True, exist_ok=True)
            self.desktop.run("import", "-window", "root", f"{folder}/{name}.png")
