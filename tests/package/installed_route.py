#!/usr/bin/env python3
"""The installed program in a real window, as a user of a machine without a network meets it: the short route, and a
project opened by its type."""

import os
import pathlib
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "routes"))

from desktop import Desktop, wait_until  # noqa: E402
from driver import Program  # noqa: E402
from response_route import EXPORT_ADJUSTED, RECORD, RESULT, ResponseRoute  # noqa: E402
from route import tools  # noqa: E402

OFFLINE = ("国土地理院 OffLine", "J-SHIS OffLine")
PROGRAM = "/usr/bin/tremlo"
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
            return None if os.readlink(f"/proc/{self.pid}/exe") == PROGRAM else 0
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

    def launch(self, *arguments):
        return InstalledProgram(self.desktop, self.desktop.start("tremlo", *arguments))

    def ask_desktop(self, *words):
        # Without a desktop that it knows, the command looks into files in place of asking for their type.
        done = subprocess.run(["xdg-mime", "query", *map(str, words)], env=self.desktop.env | {"XDG_CURRENT_DESKTOP": "GNOME"},
                              check=True, capture_output=True, text=True)
        return done.stdout.strip()

    def test_short_route(self):
        program = self.start()
        self.assertTrue(program.title().startswith("無題 - Tremlo Version1.00"))
        self.read_record(program)
        self.read_target(program)
        program.press(RESULT)
        self.wait_for_result(program)
        self.assertEqual((0, self.export(program, EXPORT_ADJUSTED, "adjusted.csv")), self.adjust_by_command(RECORD))
        project = self.desktop.folder / "設計.trml"
        self.save_as(program, project)
        self.close(program)
        data = self.desktop.folder / "XDG_DATA_HOME/tremlo"
        self.assertTrue(data.is_dir(), "the folder of the user")

        self.assertEqual(self.ask_desktop("filetype", project), TYPE)
        self.assertEqual(self.ask_desktop("default", TYPE), "tremlo.desktop")
        self.assertEqual(running(), [])
        self.desktop.run("gio", "open", project)
        pid, = wait_until(running, "the program started by its type")
        program = InstalledProgram(self.desktop, Started(pid))
        program.until(lambda: program.title().startswith("設計.trml - "), "the project in the title")
        program.find(EXPORT_ADJUSTED)
        again = self.export(program, EXPORT_ADJUSTED, "again.csv")
        self.assertEqual((0, again), self.adjust_by_command(RECORD))
        self.close(program)

        report = self.desktop.folder / "報告書.pdf"
        self.desktop.run("tremlo-report", project, report)
        self.assertTrue(report.read_bytes().startswith(b"%PDF"))


if __name__ == "__main__":
    tools.bin = pathlib.Path("/usr/bin")
    suite = unittest.TestSuite([InstalledRoute("test_short_route")])
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
