#!/usr/bin/env python3
"""The short route in the real window: start, adjust, export, save, reopen, a second start, a dark desktop.

    window_route.py FOLDER PICTURES

FOLDER holds the programs as they are packed: tremlo.exe and tremlo-cli.exe, run under Wine (WINEPREFIX names its folder),
or for comparison those of Linux. Works on an X server of its own by keys and clicks alone, for Wine tells nothing of the
controls, and takes what is written as the proof: the exported files must be byte for byte those of the command line. Puts
a picture of every step into PICTURES. The services cannot be reached meanwhile.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PATIENCE = 120
SCREEN = "1280x1024x24"
CURSOR = 24  # lines of pixels
MAIN_SIZE = 1200, 800
# In the window of that size.
READ_WAVE, READ_TARGET, TARGET, RESULT = (971, 38), (1113, 38), (93, 110), (93, 154)
EXPORT_ADJUSTED, SHOW_SPECTRUM = (1138, 68), (370, 95)
SEED, GOAL = "samples/waves/hses_2016_n80w_0005_8192.csv", "samples/spectra/target_sample_005_5s.csv"
PAPER = bytes.fromhex("eef5fb")  # the ground of the short route's picture
PERSONALIZE = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"


def wait_until(state, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = state()
        if found:
            return found
        time.sleep(0.1)
    raise TimeoutError(what() if callable(what) else what)


class Desktop:
    def __init__(self, pictures):
        self.pictures = pictures
        pictures.mkdir(parents=True, exist_ok=True)
        read, write = os.pipe()
        self.processes = [subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", SCREEN, "-nolisten", "tcp"],
                                           pass_fds=[write], stderr=subprocess.DEVNULL)]
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = f":{number.readline().strip()}"
        self.processes.append(subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL,
                                               stderr=subprocess.DEVNULL))
        wait_until(lambda: self.ask("get_num_desktops"), "window manager")

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()

    @staticmethod
    def ask(*words):
        return subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True).stdout.strip()

    def windows(self):
        """Of the visible ones: number, name, width and height."""
        found = []
        for number in self.ask("search", "--onlyvisible", "--name", ".").split():
            sizes = dict(line.split("=") for line in self.ask("getwindowgeometry", "--shell", number).splitlines())
            if sizes:
                found.append((number, self.ask("getwindowname", number), int(sizes["WIDTH"]), int(sizes["HEIGHT"])))
        return found

    def keys(self, *names):
        wait_until(lambda: self.ask("getactivewindow"), "an active window")
        self.ask("key", "--delay", 50, *names)

    def type(self, text):
        self.ask("type", "--delay", 15, text)

    def pixels(self):
        return subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], capture_output=True).stdout

    def settle(self):
        """Until the screen has not changed for half a second, but for a blinking cursor."""
        row = 3 * int(SCREEN.split("x")[0])
        last, since = self.pixels(), time.monotonic()

        def quiet():
            nonlocal last, since
            now = self.pixels()
            if sum(now[at:at + row] != last[at:at + row] for at in range(0, len(last), row)) > CURSOR:
                last, since = now, time.monotonic()
            return time.monotonic() - since > 0.5
        wait_until(quiet, "a screen at rest")

    def shot(self, name):
        self.settle()
        subprocess.run(["import", "-window", "root", self.pictures / f"{name}.png"], check=True)

    def brightness(self, window, x, y):
        """Of a pixel of a window, 0 to 255."""
        pixel = subprocess.run(["import", "-window", window, "-crop", f"1x1+{x}+{y}", "-depth", "8", "gray:-"],
                               capture_output=True, check=True).stdout
        return pixel[0]


class Program:
    def __init__(self, desktop, folder, *arguments):
        self.desktop = desktop
        self.begun = time.monotonic()
        self.process = subprocess.Popen([*command(folder, "tremlo"), *arguments], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        wait_until(desktop.windows, "a first window")
        self.first_window = time.monotonic() - self.begun

    def top(self):
        """Answers that there is no network, until the first question stands there."""
        def asked():
            windows = self.desktop.windows()
            if self.top_screen():
                return True
            if any(width < 400 and self.is_dialog(name) for _, name, width, _ in windows):
                self.desktop.settle()
                self.desktop.keys("Return")
            return False
        wait_until(asked, "the top screen")
        self.desktop.settle()

    def answer_top(self):
        """Chooses the short route."""
        def answered():
            # While it appears it may still move away from a click.
            top = self.top_screen()
            if not top:
                return True
            number, _, width, height = top
            for place in ((0.72, 0.23), (0.925, 0.945)):
                self.desktop.ask("mousemove", "--window", number, round(place[0] * width), round(place[1] * height), "click", 1)
                self.desktop.shot("top")
            return False
        wait_until(answered, "the top screen gone")

    def top_screen(self):
        """Wider than the picture of the start and the boxes, which bear the same name; None when it is not there."""
        return next((window for window in self.desktop.windows() if 600 < window[2] < 1000 and self.is_dialog(window[1])), None)

    @staticmethod
    def is_dialog(name):
        return name == "Tremlo"

    def main(self, title):
        """The main window with that beginning of its title, alone on the screen."""
        def alone():
            windows = self.desktop.windows()
            if len(windows) == 1 and windows[0][1].startswith(title) and windows[0][2:] == MAIN_SIZE:
                return windows[0][0]
            # What tells that there is no network.
            if any(width < 400 and self.is_dialog(name) for _, name, width, _ in windows):
                self.desktop.settle()
                self.desktop.keys("Return")
            return None
        number = wait_until(alone, lambda: f"{title}; there are {self.desktop.windows()}")
        self.desktop.settle()
        return number

    def click(self, title, place):
        window = self.main(title)
        self.desktop.ask("mousemove", "--window", window, *place, "click", 1)

    def choose_file(self, title, path):
        """Types a path into the file dialog that has come up."""
        wait_until(lambda: len(self.desktop.windows()) == 2, lambda: f"a file dialog; there are {self.desktop.windows()}")
        self.desktop.settle()
        self.desktop.type(own_path(self, path))
        self.desktop.shot(f"dialog_{path.name}")
        self.desktop.keys("Return")
        wait_until(lambda: len(self.desktop.windows()) == 1, lambda: f"the file dialog gone; there are {self.desktop.windows()}")
        return self.main(title)

    def close(self):
        self.desktop.settle()

        def ended():
            # The window manager overlooks a key now and then as windows come and go.
            self.desktop.keys("alt+F4")
            try:
                return self.process.wait(3) is not None
            except subprocess.TimeoutExpired:
                return False
        wait_until(ended, "the end of the program")
        status = self.process.returncode
        if status != 0:
            raise AssertionError(f"exit code {status}")


def is_windows(folder):
    return (folder / "tremlo.exe").exists()


def command(folder, name):
    return ["wine", f"Z:{folder / name}.exe"] if is_windows(folder) else [folder / name]


def own_path(program, path):
    windows = program.process.args[0] == "wine"
    return f"Z:{path}".replace("/", "\\") if windows else str(path)


def exported(path):
    """The wave, its spectrum and its Fourier spectrum, written whole."""
    files = [path.with_name(path.stem + part + ".csv") for part in ("", "_AccSpec", "_FFT")]
    wait_until(lambda: all(file.exists() for file in files), f"{path.name} and its company")
    return [file.read_bytes() for file in files]


def same(ours, theirs, what):
    if ours != theirs:
        raise AssertionError(f"{what}: different bytes")
    print(f"{what}: the same bytes")


def set_light(value):
    subprocess.run(["wine", "reg", "add", PERSONALIZE, "/v", "AppsUseLightTheme", "/t", "REG_DWORD", "/d", value, "/f"],
                   check=True, capture_output=True)


def route(desktop, folder, work):
    untitled, named = "無題 - Tremlo", "short.trml - Tremlo"
    program = Program(desktop, folder)
    desktop.shot("first")
    program.top()
    wait_until(lambda: desktop.pixels().count(PAPER) > 5000, "the picture of the short route")
    program.answer_top()
    program.main(untitled)
    desktop.shot("empty")
    program.click(untitled, READ_WAVE)
    program.choose_file(untitled, SOURCE / SEED)
    desktop.shot("seed")
    program.click(untitled, TARGET)
    program.click(untitled, READ_TARGET)
    program.choose_file(untitled, SOURCE / GOAL)
    desktop.shot("target")
    program.click(untitled, RESULT)
    program.main(untitled)
    desktop.shot("result")
    program.click(untitled, SHOW_SPECTRUM)
    desktop.shot("spectrum")
    program.click(untitled, EXPORT_ADJUSTED)
    program.choose_file(untitled, work / "adjusted.csv")
    adjusted = exported(work / "adjusted.csv")
    expected = work / "expected.csv"
    subprocess.run([*command(folder, "tremlo-cli"), "adjust", "--seed", SOURCE / SEED, "--target", SOURCE / GOAL, "--out",
                    own_path(program, expected)], check=True, capture_output=True)
    same(adjusted, exported(expected), "the window's export and the command line's")
    desktop.keys("ctrl+s")
    program.choose_file(named, work / "short.trml")
    desktop.shot("saved")
    program.close()

    again = work / "表 と 図.trml"
    shutil.copy(work / "short.trml", again)
    program = Program(desktop, folder, own_path(program, again))
    reopened = f"{again.name} - Tremlo"
    program.main(reopened)
    desktop.shot("reopened")
    second = subprocess.Popen(command(folder, "tremlo"), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_until(lambda: len(desktop.windows()) == 2, "what a second start says")
    desktop.shot("second_start")
    desktop.keys("Return")
    print(f"a second start ends with {second.wait(PATIENCE)}")
    program.click(reopened, RESULT)
    program.click(reopened, EXPORT_ADJUSTED)
    program.choose_file(reopened, work / "again.csv")
    same(exported(work / "again.csv"), adjusted, "the export of the reopened project and the first")
    program.close()
    same(again.read_bytes(), (work / "short.trml").read_bytes(), "the project that was only read")
    for name in ("show", "copy"):
        out = [] if name == "show" else [own_path(program, work / "copy.trml")]
        subprocess.run([*command(folder, "tremlo-cli"), "project", name, own_path(program, again), *out], check=True,
                       capture_output=True)
    same((work / "copy.trml").read_bytes(), again.read_bytes(), "the command line's copy of the project")
    return program


def dark(desktop, folder, work):
    set_light("0")
    try:
        program = Program(desktop, folder, own_path_of(folder, work / "short.trml"))
        window = program.main("short.trml - Tremlo")
    finally:
        set_light("1")
    desktop.shot("dark")
    brightness = desktop.brightness(window, 600, 795)
    print(f"dark desktop: brightness {brightness} of 255 behind the status bar")
    if brightness > 100:
        raise AssertionError("no dark window on a dark desktop")
    program.close()


def own_path_of(folder, path):
    return f"Z:{path}".replace("/", "\\") if is_windows(folder) else str(path)


def first_windows(desktop, folder):
    """Seconds from start to first window, of several starts."""
    seconds = []
    for _ in range(3):
        program = Program(desktop, folder)
        seconds.append(program.first_window)
        program.top()
        program.close()
    return seconds


def main():
    folder, pictures = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    # Port 9 of this machine answers nobody.
    for name in ("http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"):
        os.environ[name] = "http://127.0.0.1:9"
    desktop = Desktop(pictures)
    try:
        with tempfile.TemporaryDirectory() as work:
            os.environ["XDG_CONFIG_HOME"] = os.path.join(work, "config")
            work = pathlib.Path(work)
            route(desktop, folder, work)
            print("seconds to the first window:", *(f"{time:.1f}" for time in first_windows(desktop, folder)))
            if is_windows(folder):
                dark(desktop, folder, work)
    except (TimeoutError, AssertionError):
        desktop.shot("failed")
        raise
    finally:
        if is_windows(folder):
            subprocess.run(["wineserver", "-k"])
        desktop.end()


main()
