"""A desktop of a test's own: X server, window manager, session bus with its accessibility bus, and the local
services. Everything ends with it."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from xserver import XServer

HERE = pathlib.Path(__file__).resolve().parent
PATIENCE = 60.0


class NotReached(AssertionError):
    """A state did not come about."""


def wait_until(state, what, patience=PATIENCE):
    """Returns the first true value of state(). The bus tells no end of what has changed, so it is asked again and
    again; a test passes as soon as the state is there."""
    end = time.monotonic() + patience
    while True:
        value = state()
        if value:
            return value
        if time.monotonic() > end:
            raise NotReached(f"not reached: {what}")
        time.sleep(0.05)


class Desktop:
    """Use it in a with statement. `env` is the environment of its programs, `folder` all that they may write."""

    def __init__(self, screen="1280x1024x24", monitors=()):
        """`monitors`: each (left, top, width, height), where the screen is more than one; the first is the primary."""
        self.screen = screen
        self.monitors = monitors
        self.processes = []

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tremlo-window-"))
        self.env = {k: v for k, v in os.environ.items()
                    if not k.lower().endswith("_proxy") and not k.startswith(("XDG_", "QT_", "DBUS_", "AT_SPI"))}
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            path = self.folder / name
            path.mkdir(mode=0o700)
            self.env[name] = str(path)
        self.env.update(LC_ALL="C.UTF-8", TZ="UTC", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0")
        try:
            self._start_display()
            self._start_bus()
            self._start_window_manager()
            self._start_service()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            if process.stdin:
                process.stdin.close()
            process.terminate()
        for process in self.processes:
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *words, **kwargs):
        process = subprocess.Popen([str(w) for w in words], env=self.env, cwd=self.folder, **kwargs)
        self.processes.append(process)
        return process

    def wish(self, *wishes):
        """How the services answer from now on, in the words of the local service; none for an honest answer."""
        fresh = self.service_wishes.with_suffix(".new")
        fresh.write_text(" ".join(wishes))
        fresh.replace(self.service_wishes)

    def asked(self, part=""):
        """The paths of the requests so far that contain that part."""
        lines = self.service_log.read_text().splitlines() if self.service_log.exists() else []
        return [path for path in (json.loads(line)["path"] for line in lines) if part in path]

    def pixel(self, x, y):
        """Colour of a pixel of the screen, red, green and blue."""
        done = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"], env=self.env,
                              check=True, capture_output=True)
        return tuple(done.stdout)

    def run(self, *words):
        """Output of a helper program of the desktop."""
        return subprocess.run([str(w) for w in words], env=self.env, cwd=self.folder, check=True,
                              capture_output=True, text=True).stdout

    def _start_display(self):
        read, write = os.pipe()
        self.start("Xvfb", "-displayfd", write, "-screen", "0", self.screen, "-nolisten", "tcp", "-noreset",
                   pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        if not number:
            raise NotReached("the X server did not start")
        self.env["DISPLAY"] = f":{number}"
        if self.monitors:
            with XServer(self.env["DISPLAY"]) as server:
                server.set_monitors(self.monitors)

    def _start_bus(self):
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address=1", stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL, text=True)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def _start_window_manager(self):
        self.start("openbox", "--sm-disable", stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

        def ready():
            return subprocess.run(["xdotool", "get_num_desktops"], env=self.env, capture_output=True).returncode == 0

        wait_until(ready, "window manager")

    def _start_service(self):
        work = self.folder / "service"
        work.mkdir()
        self.service_log = work / "log"
        self.service_wishes = work / "wishes"
        service = self.start(sys.executable, HERE.parent / "service" / "local_service.py", "--work", work, "--log",
                             self.service_log, "--wishes", self.service_wishes, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.service = {}
        for line in service.stdout:
            name, _, value = line.strip().partition("=")
            if name == "ready":
                return
            self.service[name] = value
        raise NotReached("the local service did not start")
