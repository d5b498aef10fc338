#!/usr/bin/env python3
"""The installed program in a real window, as a user of a machine without a network meets it: the short route, and a
project opened by its type.

    installed_route.py PREFIX CASE"""

import os
import pathlib
import shutil
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "routes"))

from desktop import PATIENCE, Desktop, wait_until  # noqa: E402
from driver import Program  # noqa: E402
from response_route import EXPORT_ADJUSTED, RESULT, ResponseRoute  # noqa: E402
from route import tools  # noqa: E402

OFFLINE = ("国土地理院 OffLine", "J-SHIS OffLine")
TYPE = "application/x-tremlo"


class BareDesktop(Desktop):
    def _start_service(self):
        pass  # nobody answers


class Started:
    """A process that somebody else has started."""

    def __init__(self, pid):
        self.pid = pid

    def poll(self):
        try:
            return None if os.readlink(f"/proc/{self.pid}/exe") == str(tools.program) else 0
        except OSError:
            return 0

    def wait(self, patience):
        wait_until(lambda: self.poll() is not None, "end of the program", patience)
        return 0


class InstalledProgram(Program):
    def __init__(self, desktop, process):
        self.desktop = desktop
        self.process = process
        for text in OFFLINE:
            self.answer(text)


def running():
    found = []
    for name in filter(str.isdigit, os.listdir("/proc")):
        if Started(int(name)).poll() is None:
            found.append(int(name))
    return found


class InstalledRoute(ResponseRoute):
    def make_desktop(self):
        return BareDesktop()

    def setUp(self):
        super().setUp()
        self.target = pathlib.Path("/usr/share/tremlo/LowSpec/h20_h.csv")
        self.examples = tools.prefix / "share/doc/tremlo/examples"

    def launch(self, *arguments):
        return InstalledProgram(self.desktop, self.desktop.start(tools.bin / "tremlo", *arguments))

    def ask_desktop(self, *words):
        # Without a desktop that it knows, the command looks into files in place of asking for their type.
        done = subprocess.run(["xdg-mime", "query", *map(str, words)], env=self.desktop.env | {"XDG_CURRENT_DESKTOP": "GNOME"},
                              check=True, capture_output=True, text=True)
        return done.stdout.strip()

    def open_by_double_click(self, project):
        self.assertEqual(self.ask_desktop("filetype", project), TYPE)
        self.assertEqual(self.ask_desktop("default", TYPE), "tremlo.desktop")
        self.assertEqual(running(), [])
        # Its output is not read: the program that it starts inherits it and holds it open.
        self.assertEqual(self.desktop.start("gio", "open", project, stdout=subprocess.DEVNULL).wait(PATIENCE), 0)
        pid, = wait_until(running, "the program started by its type")
        program = InstalledProgram(self.desktop, Started(pid))
        program.until(lambda: program.title().startswith(f"{project.name} - "), "the project in the title")
        return program

    def test_short_route(self):
        record = self.examples / "waves/hses_2016_n80w_0005_8192.csv"
        program = self.start()
        self.assertTrue(program.title().startswith("無題 - Tremlo Version1.00"))
        self.read_record(program, record)
        self.read_target(program)
        program.press(RESULT)
        self.wait_for_result(program)
        self.assertEqual((0, self.export(program, EXPORT_ADJUSTED, "adjusted.csv")), self.adjust_by_command(record))
        saved = self.desktop.folder / "design.trml"
        self.save_as(program, saved)
        self.close(program)
        data = self.desktop.folder / "XDG_DATA_HOME/tremlo"
        self.assertTrue(data.is_dir(), "the folder of the user")

        project = saved.with_name("設計 1.trml")  # the X server loses keys that it has to be taught first
        saved.rename(project)
        program = self.open_by_double_click(project)
        program.press(RESULT)
        program.find(EXPORT_ADJUSTED)
        again = self.export(program, EXPORT_ADJUSTED, "again.csv")
        self.assertEqual((0, again), self.adjust_by_command(record))
        self.close(program)

        report = self.desktop.folder / "報告書.pdf"
        self.desktop.run(tools.bin / "tremlo-report", project, report)
        self.assertTrue(report.read_bytes().startswith(b"%PDF"))

    def test_double_click_opens_the_example(self):
        register = tools.prefix / "register"
        if register.exists():
            self.desktop.run(register)
        project = self.desktop.folder / "例題.trml"
        shutil.copy(self.examples / "example/design.trml", project)
        program = self.open_by_double_click(project)
        program.find("現場設定")
        self.close(program)


if __name__ == "__main__":
    tools.prefix = pathlib.Path(sys.argv[1]).resolve()
    tools.bin = tools.prefix / "bin"
    tools.program = (tools.bin / "tremlo").resolve()
    suite = unittest.TestSuite([InstalledRoute(sys.argv[2])])
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
