"""What the routes share: the words of the command line, and a desktop of its own for every case.

    ..._route.py --program PROGRAM --bin FOLDER CASE...

FOLDER is the built program folder: the command line and the tables. A case is the name of a test.
TREMLO_SCREENSHOTS names a folder for pictures of the screens."""

import argparse
import os
import pathlib
import sys
import unittest

from desktop import Desktop
from driver import ROLE, STATE, Program, states

ROOT = pathlib.Path(__file__).resolve().parents[2]
UNSAVED = "「{}」は変更されています。保存しますか？"
CHANGE_ASKED = """作業手順を変更しますか？
以下のデータがクリアされます。
・「現場近隣地震波形」
・「距離減衰式(断層)」
・「下限スペクトル」
・「基準スペクトル設定」
・「原種波形の振幅調整」
・「可視化」
・「断層APIパラメータ設定」
・「振幅調整設定」"""
NEW, OPEN, SAVE_AS = "新規作成(N)", "開く(O)...", "名前を付けて保存(A)..."
tools = argparse.Namespace()  # the words of the command line


def long_case(case):
    """Marks a case that ./test leaves to scripts/all-routes."""
    return case


def limits_memory(case):
    """Marks a case that leaves a program too little memory for that of the sanitizers."""
    return case


class Route(unittest.TestCase):
    def make_desktop(self):
        return Desktop()

    def setUp(self):
        self.desktop = self.enterContext(self.make_desktop())
        os.environ.update(self.desktop.env)

    def launch(self, *arguments, **kwargs):
        return Program(self.desktop, tools.program, tools.bin, *arguments, **kwargs)

    def begin(self, program, way):
        """Answers the top screen. While it appears it may still move away from a click."""
        def chosen():
            return states(program.find(way, ROLE.RADIO_BUTTON)).contains(STATE.CHECKED)

        program.until(lambda: program.press(way) or chosen(), f"{way} chosen")
        program.press("OK")

    def save_as(self, program, path):
        program.keys("ctrl+s")
        program.choose_file("名前を付けて保存", path)
        program.until(lambda: program.title().startswith(path.name), "the file's name in the title")

    def close(self, program, answer=None):
        program.close_window()
        if answer:
            program.until(program.has_box, "question about unsaved work")
            program.press(answer)
        self.assertEqual(program.wait_for_end(), 0)


def main(route):
    words = argparse.ArgumentParser()
    words.add_argument("--program", required=True, type=lambda path: pathlib.Path(path).resolve())
    words.add_argument("--bin", required=True, type=lambda path: pathlib.Path(path).resolve())
    words.add_argument("cases", nargs="+")
    words.parse_args(namespace=tools)
    suite = unittest.TestSuite(route(case) for case in tools.cases)
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
