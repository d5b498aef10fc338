#!/usr/bin/env python3
"""The faults, the lower limit, the waves near the site and the base spectrum in a real window, against the local
service."""

import csv
import json
import math
import pathlib
import re
import subprocess
import sys
import urllib.parse

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import Desktop, NotReached, wait_until  # noqa: E402
from driver import ROLE, STATE, Atspi, Program, states  # noqa: E402
from xserver import XServer  # noqa: E402
import project_file  # noqa: E402
import route  # noqa: E402
from route import NEW, OPEN, ROOT, SAVE_AS, tools  # noqa: E402

FAULTS, LIMIT, NEIGHBOURS, BASE, WAVES = "距離減衰式（断層）", "下限スペクトル", "現場近隣地震波形", "基準スペクトル設定", "波形登録"
ADJUST, FIELD = "原種波形の振幅調整", "現場設定"
RANKING, RANGE = "現場位置に影響の大きい断層を取得", "探索範囲内の断層を取得"
RANGE_EDIT, METHOD, ACQUIRE, SECOND = "探索範囲", "断層データの取得方法", "断層データを取得", "距離減衰の計算"
FAULT_GRID, RELATION_GRID, PLANE_GRID = "取得した断層", "距離減衰式", "断層面"
CANDIDATES, WAVE_GRID, DAM_PERIOD = "基準スペクトルの候補", "登録した地震波形", "ダムの固有周期 (sec)"
BACK, REFER = "断層データの再設定", "距離減衰式について"
SHOW_ALL, SHOW_NONE, USE_ALL, USE_NONE = "全表示", "全非表示", "全て利用する", "全て利用しない"
PARAMETERS, ONLINE = "断層APIパラメータ設定", "オンライン"
RUNNING = "計算中"
OFFLINE_TEXT = "オフラインではデータを取得できません。"
YES, NO, OK, CANCEL = "はい(Y)", "いいえ(N)", "OK", "キャンセル"
SITE = (36.56144, 136.61409)  # where the files of the local service are for
ZONE = 7
DATA = ROOT / "tests" / "data" / "jshis"
RELATIONS = ["(水平)H20ダム距離減衰", "(鉛直)H20ダム距離減衰"]
NOTHING_OF = "指定された現場位置とAPIパラメータの断層データはありません。({})"
GRAMMAR = "Jsonファイルの文法エラーです。({})"
SEARCH = "メッシュ別被害地震"
NO_MAIN_FAULT = "指定された現場位置の主要断層データはありません。"
NO_WAVES = "「波形登録」で波形を登録してください。"
MODEL = "地震活動モデル情報, {}"
UNKNOWN = NOTHING_OF.format(MODEL.format("F099999"))  # the one of the ranking that has no model
WITHOUT_PLANES = "　断層面を取得できなかった断層："
WHITE = (255, 255, 255)


def base_question(name):
    return f"既に基準スペクトルとして「{name}」を選択済みですがよろしいですか？\n\n変更した場合、原種波形の選択、振幅調整が再度必要になります。"


def parameters_question(weight="0.600000"):
    return ("既に断層データを取得済みですがよろしいですか？\n\n取得済みの断層データはクリアされます。"
            "\n\n現在以下のパラメータが設定されています。\n超過確率しきい値：震度6弱"
            f"\n評価パラメータ(カタストロフ重視度)：{weight}\n想定地震コード：条件付超過確率"
            "\n地図バージョン(被害地検索)：2019年版\n地図バージョン(地震活動モデル)：2021年版"
            "\n確率ケース：平均ケース\n発生確率評価期間：30年")


def plane_names(faults):
    """Of all planes, as they are listed."""
    return [(f"({plane + 1})" if fault["geomNum"] > 1 else "") + fault["ltename"]
            for fault in faults for plane in range(fault["geomNum"])]


def base_labels(faults):
    return [f"({distance})" + name for name in plane_names(faults) for distance in ("最短距離", "等価震源距離")]


def area(periods, values):
    return sum((values[i] + values[i + 1]) * abs(periods[i + 1] - periods[i]) * 0.5 for i in range(len(periods) - 1))


class SourcesRoute(route.Route):
    def make_desktop(self):
        return Desktop("2560x2048x24") if "scale" in self._testMethodName else Desktop()

    def setUp(self):
        super().setUp()
        self.project = self.desktop.folder / "sources.trml"

    # --- planted projects

    def command(self, *words, code=0):
        done = subprocess.run([tools.bin / "tremlo-cli", *map(str, words)], env=self.desktop.env, capture_output=True, text=True)
        self.assertEqual(done.returncode, code, done.stderr)
        return done.stdout

    def asked_faults(self, *words, code=0):
        """What the command line gets from the same service."""
        told = self.command("faults", "--zone", ZONE, "--site", "{},{}".format(*SITE), "--service",
                            f"http://127.0.0.1:{self.desktop.service['http']}", "--json", *words, code=code)
        return json.loads(told)["faults"]

    def make_wave(self, project, name, period, step=0.01, count=400):
        wave = {"name": name, **project["graphBase"], "timeStep": step, "current": not project["seedWaves"],
                "acc": [100.0 * math.sin(2.0 * math.pi * step * i / period) for i in range(count)],
                "siteColor": 0x404040, "siteShow": True, "baseShow": True, "adjustShow": True, "baseAdjustShow": True}
        project["seedWaves"].append(wave)
        return wave

    def plant(self, change=None, faults=False, waves=0):
        """A project whose procedure is fixed with both sources; faults as the service gives them."""
        fresh = self.desktop.folder / "new.trml"
        self.command("project", "new", fresh)
        project = project_file.load(fresh)
        project["guidelineRoute"] = True
        for flag in ("flowQ2Yes", "flowFaultSource", "flowNeighbourWave", "flowFixed"):
            project[flag] = True
        minutes = [60.0 * (degrees - int(degrees)) for degrees in SITE]
        for axis, degrees, left in zip(("lat", "lon"), SITE, minutes):
            project[axis + "Deg"], project[axis + "Min"], project[axis + "Sec"] = float(int(degrees)), left, 0.0
        project["planeZone"] = f"VII ({ZONE})"
        if faults:
            wanted = {name for name, _ in project_file.FAULT}
            for number, fault in enumerate(self.asked_faults()):
                kept = {name: value for name, value in fault.items() if name in wanted}
                kept["attenColor"] = kept["shortBaseColor"] = kept["equivBaseColor"] = [0x800000 + 97 * number] * fault["geomNum"]
                project["faults"].append(kept)
        for number in range(waves):
            self.make_wave(project, f"wave {number + 1}", 0.2 * (number + 1))
        if change:
            change(project)
        project_file.save(self.project, project)

    # --- steps

    def start(self, step=None, **kwargs):
        program = self.launch(self.project, **kwargs)
        program.find("地図")
        program.until(program.has_active_window, "an active window")
        if step:
            program.press(step)
        return program

    def open_fault_screen(self, **kwargs):
        program = self.start(FAULTS, **kwargs)
        program.find(ACQUIRE)
        return program

    def open_planes(self, **kwargs):
        program = self.open_fault_screen(**kwargs)
        program.press(SECOND)
        program.find(PLANE_GRID, ROLE.TABLE)
        return program

    def open_grid(self, step, grid):
        program = self.start(step)
        program.find(grid, ROLE.TABLE)
        return program

    def saved(self, program):
        """The bytes of the project as it stands. A file is there only once it is whole."""
        self.project.unlink()
        program.keys("ctrl+s")
        program.until(self.project.exists, "project saved")
        return self.project.read_bytes()

    def saved_project(self, program):
        self.saved(program)
        return project_file.load(self.project)

    def close_unchanged(self, program):
        """Closing asks nothing: the project does not count as changed."""
        program.close_window()
        self.assertEqual(program.wait_for_end(), 0)

    def finish(self, program):
        """Saved, opened and saved again it gives the same bytes."""
        saved = self.saved(program)
        self.close_unchanged(program)
        program = self.start()
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def grid(self, program, name):
        """The texts of a grid, row by row."""
        table = program.find(name, ROLE.TABLE)
        return [[Atspi.Table.get_accessible_at(table, row, column).get_name()
                 for column in range(Atspi.Table.get_n_columns(table))] for row in range(Atspi.Table.get_n_rows(table))]

    def until_grid(self, program, name, expected):
        program.until(lambda: self.grid(program, name) == expected, f"{name} {expected}")

    def cell(self, program, table, row, column):
        return Atspi.Table.get_accessible_at(program.find(table, ROLE.TABLE), row, column)

    def is_checked(self, program, table, row, column):
        return states(self.cell(program, table, row, column)).contains(STATE.CHECKED)

    def checks(self, program, table, column):
        node = program.find(table, ROLE.TABLE)
        cells = [Atspi.Table.get_accessible_at(node, row, column) for row in range(Atspi.Table.get_n_rows(node))]
        return [states(cell).contains(STATE.CHECKED) for cell in cells]

    def until_checks(self, program, table, column, expected):
        program.until(lambda: self.checks(program, table, column) == list(expected), f"column {column} of {table} {expected}")

    def click_cell(self, program, table, row, column):
        """A click of its own, as soon as the cell stays where it is."""
        seen = []

        def settled():
            seen.append(program.point(self.cell(program, table, row, column)))
            return seen[-2:] == [seen[-1]] * 2
        program.until(settled, f"cell {row}, {column} of {table}")
        program.click_at(*seen[-1])

    def pick(self, program, table, row, column):
        """Makes a cell the active one without a click on it, and lets the grid take the keys."""
        cell = self.cell(program, table, row, column)
        names = [Atspi.Action.get_action_name(cell, i) for i in range(Atspi.Action.get_n_actions(cell))]
        Atspi.Action.do_action(cell, names.index("SetFocus"))
        program.until(lambda: states(self.cell(program, table, row, column)).contains(STATE.FOCUSED), "cell with the focus")

    def act_on_cell(self, program, table, row, column, action="Press"):
        """What the bus offers on a cell."""
        cell = self.cell(program, table, row, column)
        names = [Atspi.Action.get_action_name(cell, i) for i in range(Atspi.Action.get_n_actions(cell))]
        Atspi.Action.do_action(cell, names.index(action))

    def expect_declined(self, program, act, question, *questions):
        """Each way of saying no leaves the saved project byte for byte and unchanged. With more than one question all
        before the last are answered with yes."""
        before = self.saved(program)
        for decline in (lambda: program.press(NO), lambda: program.keys("Escape"), lambda: program.keys("alt+F4")):
            act()
            asked = [question, *questions]
            for text in asked[:-1]:
                program.answer(text, YES)
            program.box(asked[-1])
            decline()
            program.until(lambda: not program.has_box(), "question closed")
            self.assertEqual(self.saved(program), before)

    def is_idle(self, program):
        """No dialog is up, by one look at all that is shown."""
        roles = [node.get_role() for node in program.nodes()]
        return ROLE.FRAME in roles and ROLE.DIALOG not in roles and ROLE.ALERT not in roles

    def acquire(self, program, *boxes):
        """Presses the button, answers the boxes in their order, and waits for the end."""
        asked = len(self.desktop.asked("/map/api/"))
        program.press(ACQUIRE)
        for text in boxes:
            program.answer(text)
        # With a request or a box the dialog is up, or has been.
        program.until(lambda: (boxes or len(self.desktop.asked("/map/api/")) > asked) and self.is_idle(program),
                      "end of the acquisition")
        self.activate(program)

    def activate(self, program):
        """The window manager now and then leaves no window active when a box and the dialog behind it go at once."""
        try:
            wait_until(program.has_active_window, "an active window", 2)
        except NotReached:
            program.xdotool("windowactivate", program.window_of(".*Tremlo Version.*"))
            program.until(program.has_active_window, "an active window")

    def fault_rows(self, faults, ranking=True):
        rows = []
        for number, fault in enumerate(faults, 1):
            probabilities = [fault["avract"], fault["newact"], *(text if text == "-" else f"{float(text):.5f}"
                                                                 for text in (fault["t30p"], fault["t50p"]))]
            for plane in range(len(fault["shortestDistance"])):
                rows.append([fault["rank"] if ranking else str(number), fault["ltename"], fault["magnitude"],
                             f"{fault['shortestDistance'][plane]:.4f}", f"{fault['equivalentDistance'][plane]:.4f}",
                             *([fault[name] for name in ("i45_ps", "i50_ps", "i55_ps", "i60_ps")] if ranking else probabilities)])
        return rows

    def texts(self, program):
        return [node.get_name() for node in program.nodes() if node.get_role() == ROLE.LABEL]

    def until_text(self, program, part):
        return program.until(lambda: next((text for text in self.texts(program) if part in text), None), f"text {part}")

    # --- the acquisition

    def test_a_ranking_shows_what_the_command_line_reckons(self):
        self.plant()
        program = self.open_fault_screen()
        self.assertEqual(self.grid(program, FAULT_GRID), [])
        program.screenshot("sources_no_faults")
        self.acquire(program, UNKNOWN)
        faults = self.asked_faults()
        self.assertEqual([fault["rank"] for fault in faults], [str(number) for number in range(1, 9)])
        # Of eleven entries one has no model, one has points, one is never asked for; the ranks have closed up.
        for code in ("F099999", "ANNKI", "ASG05"):
            self.assertNotIn(code, [fault["ltecode"] for fault in faults])
        self.assertEqual(self.desktop.asked("/ASG05/"), [])
        self.until_grid(program, FAULT_GRID, self.fault_rows(faults))
        # The same figures, reckoned apart.
        with open(DATA / "expected_distances.csv", encoding="utf-8") as file:
            apart = list(csv.DictReader(line for line in file if not line.startswith("#")))
        shown = self.grid(program, FAULT_GRID)
        self.assertEqual(len(apart), len(shown))
        for row, expected in zip(shown, apart):
            self.assertEqual(row[2:5], [expected[name] for name in ("magnitude stored", "X km", "Xeq km")])
        line = self.until_text(program, WITHOUT_PLANES)
        self.assertIn("地図バージョン：被害地検索 2019年版、地震活動モデル 2021年版", line)
        self.assertTrue(line.endswith(WITHOUT_PLANES + "試験用の未登録断層"), line)
        program.screenshot("sources_ranking")
        stored = self.saved_project(program)["faults"]
        for fault, expected in zip(stored, faults, strict=True):
            for name in ("rank", "ltecode", "magnitude", "geomNum", "planeDepth", "shortestDistance", "equivalentDistance",
                         "corner1Lon", "corner4Lat", "lon", "groundClass", "attenShow", "attenUse", "shortBaseSelected"):
                self.assertEqual(fault[name], expected[name], (fault["ltecode"], name))
        colors = [color for fault in stored for color in fault["attenColor"]]
        self.assertGreater(len(set(colors)), 5)
        self.assertEqual([color for fault in stored for color in fault["shortBaseColor"]], colors)
        self.finish(program)

    def test_a_range_shows_what_the_command_line_reckons(self):
        def other_range(project):
            project["faultAcquireMode"], project["searchRangeKm"] = 1, 50.0
        self.plant(other_range)
        program = self.open_fault_screen()
        missing = [NOTHING_OF.format(MODEL.format(code)) for code in ("F005602", "F005001", "F004901")]
        self.acquire(program, *missing)
        faults = self.asked_faults("--mode", "range", "--range", 50)
        self.assertEqual([fault["rank"] for fault in faults], [str(number) for number in range(1, 8)])
        rows = self.fault_rows(faults, ranking=False)
        self.until_grid(program, FAULT_GRID, rows)
        self.assertEqual([row[0] for row in rows], ["1", "2", "4", "6"])  # those without planes keep their places
        line = self.until_text(program, WITHOUT_PLANES)
        self.assertTrue(line.endswith(WITHOUT_PLANES + "砺波平野断層帯（東部）、庄川断層帯、牛首断層帯"), line)
        self.assertNotIn("被害地検索", line)
        program.screenshot("sources_range")
        # The same faults under the titles of the other way.
        program.press(RANKING)
        program.until(lambda: self.grid(program, FAULT_GRID)[0][5:] == ["-"] * 4, "the other grid")
        program.press(RANGE)
        self.until_grid(program, FAULT_GRID, rows)
        stored = self.saved_project(program)
        self.assertEqual([fault["ltecode"] for fault in stored["faults"]], [fault["ltecode"] for fault in faults])
        self.assertEqual((stored["faultAcquireMode"], stored["searchRangeKm"]), (1, 50.0))
        # A range of nothing: the list goes.
        program.focus(RANGE_EDIT)
        program.keys("ctrl+a")
        program.type("0")
        self.acquire(program, NO_MAIN_FAULT)
        self.until_grid(program, FAULT_GRID, [])
        self.assertEqual((self.saved_project(program)["faults"], project_file.load(self.project)["searchRangeKm"]), ([], 0.0))
        self.finish(program)

    def test_every_failure_is_told_in_its_words_and_leaves_a_list_that_holds(self):
        self.plant(faults=True)
        program = self.open_fault_screen()
        full = self.grid(program, FAULT_GRID)
        failed = "　断層の順位を取得できませんでした。"
        for wish, box, line in (
                ("ranking=file:fltsearch_error.json", NOTHING_OF.format(SEARCH), None),
                ("ranking=file:fltsearch_none.json", None, None),
                ("ranking=file:fltsearch_broken.json", GRAMMAR.format(SEARCH), failed),
                ("ranking=garbage", GRAMMAR.format(SEARCH), failed),
                ("ranking=empty", GRAMMAR.format(SEARCH), failed),
                ("ranking=status:503", GRAMMAR.format(SEARCH), failed),
                ("ranking=status:404", GRAMMAR.format(SEARCH), failed),
                ("ranking=drop", None, failed), ("ranking=cut", None, failed), ("ranking=nohttp", None, failed),
                ("ranking=redirect", None, failed),
                ("ranking=huge-length", None, failed), ("ranking=interim", None, failed)):
            with self.subTest(wish):
                self.desktop.wish(wish)
                self.acquire(program, *([box] if box else []))
                self.until_grid(program, FAULT_GRID, [])
                if line:
                    self.until_text(program, line)
                else:
                    program.until(lambda: not any(failed in text for text in self.texts(program)), "no word of a failure")
        # The status code is not read, and a connection that is closed behind each answer is no failure.
        for wish in ("ranking=stamp:500", "all=close", "all=close:5", "all=reset:1", "all=close-every:2"):
            with self.subTest(wish):
                self.desktop.wish(wish)
                self.acquire(program, UNKNOWN)
                self.until_grid(program, FAULT_GRID, full)
        self.desktop.wish()
        self.finish(program)

    def test_models_that_fail_leave_the_list_and_the_ranks_close_up(self):
        self.plant()
        program = self.open_fault_screen()
        for what, boxes in (("drop", []), ("cut", []), ("garbage", [GRAMMAR.format(MODEL.format("F005501"))]),
                            ("status:500", [GRAMMAR.format(MODEL.format("F005501"))])):
            with self.subTest(what):
                self.desktop.wish(f"F005501={what}")
                self.acquire(program, *boxes, UNKNOWN)
                line = self.until_text(program, WITHOUT_PLANES)
                self.assertTrue(line.endswith(WITHOUT_PLANES + "邑知潟断層帯、試験用の未登録断層"), line)
                rows = self.grid(program, FAULT_GRID)
                self.assertEqual([row[0] for row in rows], ["1", "2", "3", "4", "5", *["6"] * 6, "7"])
                self.assertEqual([row[1] for row in rows][:3], ["森本・富樫断層帯", "砺波平野断層帯（西部）", "呉羽山断層帯"])
        # Points in place of a plane take an entry off without a word, a text where a number belongs ends it all.
        self.desktop.wish("F005701=file:fltinfo_F0MIXED.geojson")
        self.acquire(program, UNKNOWN)
        program.until(lambda: self.grid(program, FAULT_GRID)[0][:2] == ["1", "邑知潟断層帯"], "first entry gone")
        self.desktop.wish("model=drop")
        self.acquire(program)
        self.until_grid(program, FAULT_GRID, [])
        self.until_text(program, "、他 ")
        self.desktop.wish()
        self.assertEqual(self.saved_project(program)["faults"], [])
        self.finish(program)

    def test_odd_texts_of_the_service_are_shown_as_they_come(self):
        self.plant()
        program = self.open_fault_screen()
        for name in ("fltsearch_empty_texts", "fltsearch_missing_keys"):
            with self.subTest(name):
                self.desktop.wish(f"ranking=file:{name}.json", "model=file:fltinfo_F005701.geojson")
                self.acquire(program)
                faults = json.loads((DATA / f"{name}.json").read_text())["Fault"]
                rows = self.grid(program, FAULT_GRID)
                self.assertEqual(len(rows), len(faults))
                for row, fault in zip(rows, faults):
                    probabilities = [fault.get(key) for key in ("i45_ps", "i50_ps", "i55_ps", "i60_ps")]
                    self.assertEqual([row[1], *row[5:]], [fault.get("ltename") or "No Name", *(
                        f"{100.0 * float(text):.1f}" if text else "-" for text in probabilities)])
                    if not fault.get("magnitude"):
                        self.assertEqual(row[2], "-")
        self.desktop.wish()
        program.screenshot("sources_odd_texts")
        self.finish(program)

    def foreign(self, port="https-foreign"):
        """Leads a request to the same path of a server whose certificate does not hold."""
        path = "/ranking=honest/map/api/fltsearch?mode=C"
        return "ranking=redirect-to:" + urllib.parse.quote(f"https://127.0.0.1:{self.desktop.service[port]}{path}", safe="")

    def test_a_wrong_certificate_gives_no_faults(self):
        self.plant(faults=True)
        program = self.open_fault_screen()
        for port in ("https-foreign", "https-host", "https-expired", "refused"):
            with self.subTest(port):
                self.desktop.wish(self.foreign(port))
                self.acquire(program)
                self.until_grid(program, FAULT_GRID, [])
                self.until_text(program, "　断層の順位を取得できませんでした。")
        # By a certificate that holds they come.
        self.desktop.wish(self.foreign("https"))
        program.press(ACQUIRE)
        program.answer(UNKNOWN)
        program.until(lambda: len(self.grid(program, FAULT_GRID)) == 13, "faults")
        self.desktop.wish()
        self.finish(program)

    def test_a_start_with_a_wrong_certificate_is_offline(self):
        self.plant(faults=True)
        asked = len(self.desktop.asked())
        program = self.launch(self.project, service="https-foreign")
        program.answer("国土地理院 OffLine")
        program.answer("J-SHIS OffLine")
        program.find("地図")
        program.press(FAULTS)
        self.until_text(program, OFFLINE_TEXT)
        self.assertFalse(states(program.find(ACQUIRE)).contains(STATE.ENABLED))
        program.screenshot("sources_offline")
        self.assertEqual(len(self.grid(program, FAULT_GRID)), 13)  # those of the project stay of use
        program.press(SECOND)
        program.find(PLANE_GRID, ROLE.TABLE)
        self.assertEqual(len(self.desktop.asked()), asked)
        self.finish(program)


    # --- at a bad time

    def hold(self, program, press=Program.press):
        """An acquisition whose answer does not come for as long as the service waits."""
        asked = len(self.desktop.asked("/map/api/"))
        press(program, ACQUIRE)
        program.until(lambda: len(self.desktop.asked("/map/api/")) > asked and program.has_window(RUNNING), "acquisition under way")

    def test_nothing_gets_in_front_of_an_acquisition(self):
        self.plant(faults=True)
        program = self.open_fault_screen()
        before = self.saved(program)
        names = (NEW, OPEN, SAVE_AS, "アプリケーションの終了(X)", PARAMETERS, ONLINE, "地図画像キャッシュのクリア",
                 "バージョン情報(A)...", FIELD, LIMIT, BASE, METHOD, ACQUIRE, SECOND, RANGE, "この画面の説明")
        commands = [program.action_of(name) for name in names]
        self.desktop.wish("ranking=stall")
        self.hold(program)
        self.until_text(program, "断層の一覧")
        program.screenshot("sources_acquisition")
        size = program.geometry(RUNNING)
        program.act(*commands, *commands)
        program.keys("Escape", "Return", "space", "alt+F4")
        with XServer(self.desktop.env["DISPLAY"]) as server:
            server.ask_to_close(int(program.window_of("sources.trml - Tremlo.*")))
        # The answer stays out for as long as the service may take; only then the dialog goes.
        self.assertEqual(program.dialogs(), [RUNNING])
        self.assertEqual(program.geometry(RUNNING), size)
        self.assertEqual(self.project.read_bytes(), before)
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        self.until_grid(program, FAULT_GRID, [])
        self.assertEqual(program.dialogs(), [])
        self.assertTrue(states(program.find(ACQUIRE)).contains(STATE.ENABLED))
        # Behind it the window works as before.
        self.activate(program)
        self.desktop.wish()
        self.acquire(program, UNKNOWN)
        program.until(lambda: len(self.grid(program, FAULT_GRID)) == 13, "faults")
        self.finish(program)

    def test_the_dialog_tells_which_fault_is_under_way(self):
        self.plant()
        program = self.open_fault_screen()
        self.desktop.wish("F005603=stall")
        program.press(ACQUIRE)
        self.until_text(program, "4 / 11　呉羽山断層帯")
        program.screenshot("sources_progress")
        program.answer(UNKNOWN)
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        line = self.until_text(program, WITHOUT_PLANES)
        self.assertTrue(line.endswith(WITHOUT_PLANES + "呉羽山断層帯、試験用の未登録断層"), line)
        self.desktop.wish()
        self.activate(program)
        self.finish(program)

    def test_a_box_of_an_acquisition_waits_and_nothing_gets_past_it(self):
        self.plant()
        program = self.open_fault_screen()
        commands = [program.action_of(name) for name in (NEW, PARAMETERS, ONLINE, ACQUIRE, LIMIT, SECOND)]
        program.press(ACQUIRE)
        program.box(UNKNOWN)
        program.screenshot("sources_box")
        program.act(*commands)
        with XServer(self.desktop.env["DISPLAY"]) as server:
            server.ask_to_close(int(program.window_of("sources.trml - Tremlo.*")))
        program.box(UNKNOWN)
        self.assertEqual(sorted(program.dialogs()), sorted([RUNNING, "Tremlo"]))
        program.keys("Return")
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        program.until(lambda: len(self.grid(program, FAULT_GRID)) == 13, "faults")
        self.activate(program)
        self.finish(program)

    # --- offline

    def is_online(self, program):
        return next(states(node).contains(STATE.CHECKED) for node in program.everything()
                    if node.get_name() == ONLINE and node.get_role() in (ROLE.CHECK_MENU_ITEM, ROLE.MENU_ITEM))

    def test_offline_the_button_is_off_and_back_again(self):
        self.plant(faults=True)
        program = self.open_fault_screen()
        before = self.saved(program)
        online, acquire = program.action_of(ONLINE), program.action_of(ACQUIRE)
        asked = self.desktop.asked()
        program.act(online)
        self.until_text(program, OFFLINE_TEXT)
        self.assertFalse(states(program.find(ACQUIRE)).contains(STATE.ENABLED))
        program.act(acquire)
        self.assertIn("オフライン", program.title())
        self.assertEqual(self.desktop.asked("/map/api/"), [path for path in asked if "/map/api/" in path])
        self.assertEqual(len(self.grid(program, FAULT_GRID)), 13)
        # The service does not answer: it stays off.
        self.desktop.wish("ranking=drop")
        program.act(online)
        program.answer("J-SHIS OffLine")
        self.until_text(program, OFFLINE_TEXT)
        self.desktop.wish()
        program.act(online)
        program.until(lambda: states(program.find(ACQUIRE)).contains(STATE.ENABLED), "online")
        self.assertFalse(any(OFFLINE_TEXT in text for text in self.texts(program)))
        self.activate(program)
        self.assertEqual(self.saved(program), before)
        self.finish(program)

    # --- the range

    def range_text(self, program):
        return program.text(RANGE_EDIT)

    def test_odd_entries_of_the_range(self):
        self.plant()
        program = self.open_fault_screen()
        before = self.saved(program)
        program.focus(RANGE_EDIT)
        # No letter and no point gets in; Esc and an emptied field leave the stored number.
        program.xdotool("type", "--delay", 5, "a1b.2-")
        program.until(lambda: self.range_text(program) == "12", "digits alone")
        program.keys("Escape", "Tab")  # given up as the field is left
        program.until(lambda: self.range_text(program) == "50", "the stored number")
        program.focus(RANGE_EDIT)
        program.keys("ctrl+a", "BackSpace", "Tab")
        program.until(lambda: self.range_text(program) == "50", "the stored number")
        self.assertFalse(program.has_box())
        self.assertEqual(self.saved(program), before)
        for typed, shown, stored in (("0", "0", 0.0), ("-7", "-7", -7.0), ("007", "7", 7.0), ("2147483648", "2147483648", 2147483648.0),
                                     ("99999999999", "99999999999", 99999999999.0), ("120", "120", 120.0)):
            with self.subTest(typed):
                program.focus(RANGE_EDIT)
                program.keys("ctrl+a")
                program.xdotool("type", "--delay", 5, "--", typed)
                program.keys("Tab")
                program.until(lambda: self.range_text(program) == shown, f"{shown} in the field")
                self.assertEqual(self.saved_project(program)["searchRangeKm"], stored)
        # The one number that is refused, typed and pasted: the words of the time step, the old text, the focus.
        before = self.saved(program)
        for typed in ("-2147483648", "-99999999999"):
            with self.subTest(typed):
                program.focus(RANGE_EDIT)
                program.keys("ctrl+a")
                program.xdotool("type", "--delay", 5, "--", typed)
                program.keys("Tab")
                program.box("時間間隔の入力エラーです。")
                program.screenshot("sources_range_refused")
                program.press(OK)
                program.until(lambda: self.range_text(program) == "120" and (program.focused() or ("", ""))[1] == RANGE_EDIT,
                              "the old text and the focus")
                self.assertEqual(self.saved(program), before)
        # A button that is pressed from the field comes behind its entry.
        program.keys("ctrl+a")
        program.xdotool("type", "--delay", 5, "20")
        program.press(RANGE)
        program.until(lambda: self.range_text(program) == "20", "entry taken")
        self.acquire(program)
        program.until(lambda: [row[1] for row in self.grid(program, FAULT_GRID)] == ["森本・富樫断層帯"], "the one fault")
        program.focus(RANGE_EDIT)
        program.keys("ctrl+a")
        program.xdotool("type", "--delay", 5, "30")
        self.acquire(program)  # from the field, whose entry comes first
        program.until(lambda: len(self.grid(program, FAULT_GRID)) == 2, "two faults")
        self.assertEqual(self.saved_project(program)["searchRangeKm"], 30.0)
        self.finish(program)

    # --- the parameters

    DEFAULTS = {"intensityIndex": 2, "catastropheWeight": 0.6, "modeIndex": 0, "versionIndex": 13,
                "activityVersionIndex": 15, "caseIndex": 0, "periodIndex": 0}
    VERSIONS = ["2019年版", "2018年版", "2017年版", "2016年版", "2014年版", "2013年版(モデル1)", "2013年版(モデル2)",
                "2013年版(モデル3)", "2012年版(モデル1)", "2012年版(モデル2)", "2011年版", "2010年版", "2009年版", "2008年版"]
    WEIGHT, SEARCH_VERSION, ACTIVITY_VERSION = "評価パラメータ(カタストロフ重視度)", "地図バージョン (被害地検索)", "地図バージョン (地震活動モデル)"

    def parameters(self, program):
        stored = self.saved_project(program)
        return {name: stored[name] for name in self.DEFAULTS}

    def until_dialog(self, program, up=True):
        program.until(lambda: (program.dialogs() == [PARAMETERS]) == up and (up or self.is_idle(program)), f"dialog up: {up}")

    def combo(self, program, label):
        """The list of that label. Its own name is what is chosen in it."""
        def labelled():
            for node in program.nodes():
                if node.get_role() == ROLE.COMBO_BOX:
                    for relation in node.get_relation_set():
                        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                            if relation.get_target(0).get_name() == label:
                                return node
            return None
        return program.until(labelled, f"list {label}")

    def entries(self, program, combo):
        """The entries of a closed list, as a screen reader goes through them."""
        node = self.combo(program, combo)
        entries = node.get_child_at_index(0)
        return [entries.get_child_at_index(i).get_name() for i in range(entries.get_child_count())]

    def click_entry(self, program, combo, entry):
        """Clicks an entry of an open list."""
        seen = []

        def settled():
            entries = self.combo(program, combo).get_child_at_index(0)
            item = next(entries.get_child_at_index(i) for i in range(entries.get_child_count())
                        if entries.get_child_at_index(i).get_name() == entry)
            seen.append(program.point(item))
            return seen[-2:] == [seen[-1]] * 2
        program.until(settled, f"entry {entry}")
        program.click_at(*seen[-1])

    def test_the_parameters_by_the_pointer(self):
        self.plant()
        program = self.open_fault_screen()
        program.press(METHOD)
        self.until_dialog(program)
        program.screenshot("sources_parameters")
        place = program.settled_geometry(PARAMETERS)
        self.assertEqual(self.entries(program, self.SEARCH_VERSION), self.VERSIONS)
        self.assertEqual(self.entries(program, self.ACTIVITY_VERSION), ["2021年版", "2020年版", *self.VERSIONS])
        for radio in ("震度5弱", "震源断層を特定した地震動予測地図", "最大ケース", "50年"):
            program.press(radio)
        for combo, entry in ((self.SEARCH_VERSION, "2014年版"), (self.ACTIVITY_VERSION, "2020年版")):
            before = program.windows()
            program.click_at(*program.point(self.combo(program, combo)))
            program.until(lambda: program.windows() - before, f"list of {combo}")
            program.screenshot("sources_versions")
            self.click_entry(program, combo, entry)
            program.until(lambda: program.windows() == before, "list closed")
        program.focus(self.WEIGHT)
        program.keys("ctrl+a")
        program.xdotool("type", "--delay", 5, "--", "-0.1234567")
        self.assertEqual(program.geometry(PARAMETERS), place)
        program.press(OK)
        self.until_dialog(program, up=False)
        changed = {"intensityIndex": 0, "catastropheWeight": -0.1234567, "modeIndex": 1, "versionIndex": 0,
                   "activityVersionIndex": 14, "caseIndex": 1, "periodIndex": 1}
        self.assertEqual(self.parameters(program), changed)
        # They are what the service is asked for; without probabilities these stay dashes.
        program.press(ACQUIRE)
        program.until(lambda: self.grid(program, FAULT_GRID), "faults")
        search = self.desktop.asked("/fltsearch?")[-1]
        for part in ("mode=S", "version=Y2014", "case=MAX", "period=P_T50", "param=-0.1234567", "ijma=45"):
            self.assertIn(part, search)
        self.assertIn("/map/api/pshm/Y2020/MAX/F005701/", self.desktop.asked("/pshm/")[-5])
        self.assertEqual({text for row in self.grid(program, FAULT_GRID) for text in row[5:]}, {"-"})
        self.until_text(program, "被害地検索 2014年版、地震活動モデル 2020年版")
        self.activate(program)
        self.finish(program)

    def test_the_parameters_by_the_keys(self):
        self.plant()
        program = self.open_fault_screen()
        before = self.saved(program)
        program.focus(METHOD)
        program.keys("space")
        self.until_dialog(program)
        # All of it is reached, in the order of reading.
        stops = []
        for _ in range(11):
            stops.append(program.until(program.focused, "focus")[1])
            program.leave(program.focused())
        self.assertEqual(stops, ["震度6弱", self.WEIGHT, "条件付超過確率", "2019年版", "2021年版", "平均ケース",
                                 "30年", "初期値に戻す", OK, CANCEL, "震度6弱"])
        # Esc keeps all as it was, whatever has been chosen.
        program.focus("条件付超過確率")
        program.keys("Right")
        program.keys("Escape")
        self.until_dialog(program, up=False)
        self.assertEqual(self.saved(program), before)
        self.assertEqual(program.until(program.focused, "focus")[1], METHOD)
        program.keys("space")
        self.until_dialog(program)
        program.focus("震度6弱")
        program.keys("Right")
        program.focus("2019年版")
        program.keys("Down", "Down", "Down", "Down")  # 2014
        program.focus("2021年版")
        program.keys("End")  # 2008
        program.focus("30年")
        program.keys("Right")
        # A weight out of its range keeps the dialog.
        program.focus(self.WEIGHT)
        for typed, text in (("1.5", "数値が範囲外です。\n\n（-1.0000000 ～ 1.0000000 までの範囲で入力してください。）"),
                            ("0.12345678", "少数桁がオーバーしています。\n\n（少数 7桁 以内で入力してください。）")):
            program.keys("ctrl+a")
            program.xdotool("type", "--delay", 5, typed)
            program.keys("Return")
            program.box(text)
            program.screenshot("sources_weight_refused")
            program.keys("Return")
            program.until(lambda: program.dialogs() == [PARAMETERS] and (program.focused() or ("", ""))[1] == self.WEIGHT, "the edit again")
        program.keys("ctrl+a")
        program.xdotool("type", "--delay", 5, "1")
        program.keys("Return")
        self.until_dialog(program, up=False)
        self.assertEqual(self.parameters(program), {**self.DEFAULTS, "intensityIndex": 3, "catastropheWeight": 1.0,
                                                    "versionIndex": 0, "activityVersionIndex": 9, "periodIndex": 1})
        # The initial values are stored at once, a cancel keeps them.
        program.act(program.action_of(PARAMETERS))
        self.until_dialog(program)
        program.focus("初期値に戻す")
        program.keys("space", "Escape")
        self.until_dialog(program, up=False)
        self.assertEqual(self.parameters(program), self.DEFAULTS)
        self.finish(program)

    def choose_base(self, project, fault=2, plane=0, kind="short"):
        """A plane is the base spectrum, and a wave adopted and adjusted to it."""
        project["faults"][fault][kind + "BaseSelected"][plane] = True
        distance = {"short": 0, "equiv": 1}[kind]
        row = sum(one["geomNum"] for one in project["faults"][:fault]) + plane
        project["baseSpectrumName"] = base_labels(project["faults"])[2 * row + distance]
        self.adopt(project)

    def adopt(self, project):
        wave = project["seedWaves"][0]
        wave["adopted"] = wave["adjusted"] = wave["adjustChecked"] = True
        wave["adjustedAcc"], wave["adjustedPeriods"], wave["adjustedSpec"] = wave["acc"][:], [0.1, 1.0], [10.0, 20.0]
        project["seedAdopted"], project["seedAdoptedName"] = True, wave["name"]

    def expect_no_base(self, project):
        """Nor an adjustment to it."""
        self.assertEqual((project["baseSpectrumName"], project["seedAdopted"], project["seedAdoptedName"]), ("", False, ""))
        records = project["seedWaves"] + project["lowerSpectra"]
        marks = [flag for fault in project["faults"] for flag in fault["shortBaseSelected"] + fault["equivBaseSelected"]]
        self.assertFalse(any(marks) or any(record["baseSelected"] for record in records))
        for wave in project["seedWaves"]:
            self.assertFalse(wave["adopted"] or wave["adjusted"] or wave["adjustChecked"])
            self.assertEqual((wave["adjustedAcc"], wave["adjustedPeriods"], wave["adjustedSpec"]), ([], [], []))

    def test_the_parameter_command_asks_both_questions_both_ways(self):
        self.plant(self.choose_base, faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        self.assertEqual(name, "(最短距離)砺波平野断層帯（西部）")
        program = self.open_fault_screen()
        menu, button = program.action_of(PARAMETERS), program.action_of(METHOD)
        for act in (lambda: program.act(menu), lambda: program.press(METHOD)):
            self.expect_declined(program, act, parameters_question())
            self.expect_declined(program, act, parameters_question(), base_question(name))
            self.assertEqual(len(self.grid(program, FAULT_GRID)), 13)
        program.act(button)
        program.answer(parameters_question(), YES)
        program.box(base_question(name))
        program.screenshot("sources_base_question")
        program.press(YES)
        self.until_dialog(program)
        self.assertEqual(self.grid(program, FAULT_GRID), [])
        program.press(CANCEL)  # brings nothing back
        self.until_dialog(program, up=False)
        stored = self.saved_project(program)
        self.assertEqual(stored["faults"], [])
        self.expect_no_base(stored)
        self.assertEqual({key: stored[key] for key in self.DEFAULTS}, self.DEFAULTS)
        # Without faults it opens at once.
        program.act(menu)
        self.until_dialog(program)
        program.keys("Escape")
        self.until_dialog(program, up=False)
        self.finish(program)

    def test_the_parameter_command_keeps_a_base_that_is_no_plane(self):
        def limit_is_base(project):
            project["lowerSpectra"][0]["baseSelected"] = True
            project["baseSpectrumName"] = project["lowerSpectra"][0]["name"]
            project["catastropheWeight"] = -0.25
            self.adopt(project)
        self.plant(limit_is_base, faults=True, waves=1)
        planted = project_file.load(self.project)
        program = self.open_planes()
        program.act(program.action_of(PARAMETERS))
        program.answer(parameters_question("-0.250000"), YES)
        self.until_dialog(program)
        self.assertEqual(self.grid(program, PLANE_GRID), [])
        program.press(OK)
        self.until_dialog(program, up=False)
        stored = self.saved_project(program)
        self.assertEqual(stored["faults"], [])
        self.assertEqual(stored["lowerSpectra"], planted["lowerSpectra"])
        self.assertEqual([stored[name] for name in ("baseSpectrumName", "seedAdoptedName", "seedWaves")],
                         [planted[name] for name in ("baseSpectrumName", "seedAdoptedName", "seedWaves")])
        self.finish(program)

    def test_an_acquisition_asks_for_a_base_that_is_a_plane(self):
        self.plant(lambda project: self.choose_base(project, 6, 3, "equiv"), faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        self.assertEqual(name, "(等価震源距離)(4)糸魚川-静岡構造線断層帯（北部）")
        program = self.open_fault_screen()
        asked = len(self.desktop.asked("/map/api/"))
        self.expect_declined(program, lambda: program.press(ACQUIRE), base_question(name))
        self.assertEqual(len(self.desktop.asked("/map/api/")), asked)  # nobody was asked
        self.acquire_after_question(program, base_question(name))
        self.expect_no_base(self.saved_project(program))
        self.acquire(program, UNKNOWN)  # asks no more
        self.finish(program)

    def acquire_after_question(self, program, question):
        program.press(ACQUIRE)
        program.answer(question, YES)
        program.answer(UNKNOWN)
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        self.activate(program)

    def test_an_unknown_zone_is_told_and_costs_nothing(self):
        def no_zone(project):
            self.choose_base(project)
            project["planeZone"] = ""
        self.plant(no_zone, faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        program = self.open_fault_screen()
        before = self.saved(program)
        asked = len(self.desktop.asked("/map/api/"))
        program.press(ACQUIRE)
        program.answer(base_question(name), YES)
        program.answer("平面直角座標系番号の指定が間違っています。「現場設定」で指定して下さい。")
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        self.activate(program)
        self.assertEqual(len(self.desktop.asked("/map/api/")), asked)
        self.assertEqual(self.saved(program), before)
        self.assertEqual(len(self.grid(program, FAULT_GRID)), 13)
        self.finish(program)

    # --- the planes and their spectra

    def attenuate(self, fault, plane, method, ground_class):
        told = self.command("attenuate", "--method", method, "--magnitude", fault["magnitude"], "--depth",
                            repr(fault["planeDepth"][plane]), "--shortest", repr(fault["shortestDistance"][plane]),
                            "--equivalent", repr(fault["equivalentDistance"][plane]), "--class", ground_class, "--json")
        return json.loads(told)

    def expect_spectra(self, project, *planes):
        """Of these planes, or of the first of each fault, those of the command line."""
        for fault, plane in planes or [(number, 0) for number in range(len(project["faults"]))]:
            record = project["faults"][fault]
            told = self.attenuate(record, plane, project["attenuationMethod"], record["groundClass"][plane])
            for name in ("shortestPeriods", "shortestSpectrum", "equivalentPeriods", "equivalentSpectrum"):
                self.assertEqual(record[name][plane], told[name], (fault, plane, name))

    def plane_rows(self, faults):
        """The first seven columns of the list of planes."""
        rows = []
        names = iter(plane_names(faults))
        for fault in faults:
            rows += [[fault["rank"], next(names), fault["groundClass"][plane], fault["magnitude"], fault["ijma"],
                      f"{fault['shortestDistance'][plane]:.4f}", f"{fault['equivalentDistance'][plane]:.4f}"]
                     for plane in range(fault["geomNum"])]
        return rows

    def test_the_planes_and_their_spectra_are_those_of_the_command_line(self):
        self.plant(faults=True)
        faults = project_file.load(self.project)["faults"]
        program = self.open_planes()
        self.assertEqual([row[:7] for row in self.grid(program, PLANE_GRID)], self.plane_rows(faults))
        self.assertEqual([row[0] for row in self.grid(program, RELATION_GRID)], RELATIONS)
        self.assertEqual(self.checks(program, RELATION_GRID, 1), [True, False])
        self.assertEqual((self.checks(program, PLANE_GRID, 8), self.checks(program, PLANE_GRID, 9)), ([True] * 13, [True] * 13))
        for text in ("J-SHIS2014年版（APIより取得）", "実線 ： 最短距離", "点線 ： 等価震源距離"):
            self.until_text(program, text)
        program.screenshot("sources_planes")
        stored = self.saved_project(program)
        self.expect_spectra(stored, *[(number, plane) for number, fault in enumerate(faults) for plane in range(fault["geomNum"])])
        # The other relation: all spectra anew. The chosen one does not come off.
        self.click_cell(program, RELATION_GRID, 1, 1)
        self.until_checks(program, RELATION_GRID, 1, [False, True])
        stored = self.saved_project(program)
        self.assertEqual(stored["attenuationMethod"], RELATIONS[1])
        self.expect_spectra(stored)
        self.click_cell(program, RELATION_GRID, 1, 1)
        self.pick(program, RELATION_GRID, 0, 1)
        program.keys("space")
        self.until_checks(program, RELATION_GRID, 1, [True, False])
        self.act_on_cell(program, RELATION_GRID, 0, 1)
        self.act_on_cell(program, RELATION_GRID, 1, 1, "Toggle")
        self.until_checks(program, RELATION_GRID, 1, [False, True])
        program.press(REFER)
        program.until(lambda: program.dialogs() == [REFER], "the relation explained")
        program.screenshot("sources_refer")
        program.keys("Return")
        program.until(lambda: self.is_idle(program), "dialog closed")
        program.press(BACK)
        program.find(ACQUIRE)
        self.finish(program)

    def class_column(self, program):
        return [row[2] for row in self.grid(program, PLANE_GRID)]

    def test_a_ground_class_by_the_pointer_and_by_the_keys(self):
        self.plant(faults=True)
        program = self.open_planes()
        before = program.windows()
        self.click_cell(program, PLANE_GRID, 1, 2)
        program.until(lambda: program.windows() - before, "list of the classes")
        program.screenshot("sources_classes")
        program.keys("Escape")  # gives it up
        program.until(lambda: program.windows() == before, "list closed")
        self.assertEqual(self.class_column(program), ["A"] * 13)
        self.click_cell(program, PLANE_GRID, 1, 2)
        program.until(lambda: program.windows() - before, "list of the classes")
        self.click_list(program, before, 2, 4)
        program.until(lambda: self.class_column(program)[:3] == ["A", "C", "A"], "class C")
        # By the keys alone.
        self.pick(program, PLANE_GRID, 8, 2)
        program.keys("space")
        program.until(lambda: program.windows() - before, "list of the classes")
        program.keys("Down", "Down", "Down", "Return")
        program.until(lambda: self.class_column(program)[8] == "D", "class D")
        program.until(lambda: program.windows() == before, "list closed")
        self.assertFalse(program.has_box())
        stored = self.saved_project(program)
        self.assertEqual(stored["faults"][1]["groundClass"], ["C"])
        self.assertEqual(stored["faults"][6]["groundClass"], ["A", "A", "D", "A", "A", "A"])
        self.expect_spectra(stored, (0, 0), (1, 0), (6, 1), (6, 2))
        self.finish(program)

    def click_list(self, program, before, row, rows):
        """Clicks an entry of the list that has come up over a cell."""
        seen = []

        def settled():
            with XServer(self.desktop.env["DISPLAY"]) as server:
                seen.append(server.frame(int(*(program.windows() - before))))
            return seen[-2:] == [seen[-1]] * 2
        program.until(settled, "a list that stays in place")
        left, top, width, height = seen[-1]
        program.click_at(left + width // 2, top + height * (2 * row + 1) // (2 * rows))

    def test_flags_of_the_planes_and_their_four_buttons(self):
        self.plant(faults=True)
        program = self.open_planes()
        self.saved(program)
        self.click_cell(program, PLANE_GRID, 2, 8)
        self.click_cell(program, PLANE_GRID, 0, 9)
        self.pick(program, PLANE_GRID, 4, 9)
        program.keys("space")
        self.act_on_cell(program, PLANE_GRID, 7, 8, "Toggle")
        shown, used = [n not in (2, 7) for n in range(13)], [n not in (0, 4) for n in range(13)]
        self.until_checks(program, PLANE_GRID, 8, shown)
        self.until_checks(program, PLANE_GRID, 9, used)
        stored = self.saved_project(program)["faults"]
        self.assertEqual([flag for fault in stored for flag in fault["attenShow"]], shown)
        self.assertEqual([flag for fault in stored for flag in fault["attenUse"]], used)
        for name, column, value in ((SHOW_NONE, 8, False), (SHOW_ALL, 8, True), (USE_NONE, 9, False), (USE_ALL, 9, True)):
            program.press(name)
            self.until_checks(program, PLANE_GRID, column, [value] * 13)
            flag = "attenShow" if column == 8 else "attenUse"
            self.assertEqual({one for fault in self.saved_project(program)["faults"] for one in fault[flag]}, {value})
            if name == SHOW_NONE:
                program.screenshot("sources_no_curves")
        # A colour of one plane; a chooser that is given up changes nothing.
        before = self.saved(program)
        self.click_cell(program, PLANE_GRID, 3, 7)
        program.until(lambda: not self.is_idle(program), "colours to choose from")
        program.screenshot("sources_color")
        program.keys("Escape")
        program.until(lambda: self.is_idle(program), "chooser closed")
        self.assertEqual(self.saved(program), before)
        self.finish(program)

    def test_every_change_of_a_plane_that_is_the_base_asks_both_ways(self):
        self.plant(lambda project: self.choose_base(project, 2, 0), faults=True, waves=1)
        planted = self.project.read_bytes()
        name = project_file.load(self.project)["baseSpectrumName"]
        question = base_question(name)

        def choose_class(program):
            before = program.windows()
            self.pick(program, PLANE_GRID, 2, 2)
            program.keys("space")
            program.until(lambda: program.windows() - before, "list of the classes")
            program.keys("Down", "Return")

        changes = (
            ("class", choose_class, lambda project: project["faults"][2]["groundClass"] == ["B"]),
            ("relation", lambda program: self.click_cell(program, RELATION_GRID, 1, 1),
             lambda project: project["attenuationMethod"] == RELATIONS[1]),
            ("use", lambda program: self.click_cell(program, PLANE_GRID, 2, 9), lambda project: project["faults"][2]["attenUse"] == [False]),
            ("all", lambda program: program.press(USE_NONE),
             lambda project: not any(flag for fault in project["faults"] for flag in fault["attenUse"])))
        for what, act, applied in changes:
            with self.subTest(what):
                self.project.write_bytes(planted)
                program = self.open_planes()
                self.saved(program)  # the spectra of the entry
                rows = self.grid(program, PLANE_GRID)
                self.expect_declined(program, lambda: act(program), question)
                self.until_grid(program, PLANE_GRID, rows)
                self.until_checks(program, RELATION_GRID, 1, [True, False])
                act(program)
                program.answer(question, YES)
                program.until(lambda: self.is_idle(program), "question closed")
                stored = self.saved_project(program)
                self.assertTrue(applied(stored))
                self.expect_no_base(stored)
                act(program)  # asks no more
                self.assertFalse(program.has_box())
                self.finish(program)

    def test_other_planes_than_the_base_ask_nothing(self):
        self.plant(lambda project: self.choose_base(project, 2, 0), faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        program = self.open_planes()
        self.click_cell(program, PLANE_GRID, 3, 9)
        self.click_cell(program, PLANE_GRID, 2, 8)
        program.press(SHOW_NONE)
        program.press(USE_ALL)
        self.until_checks(program, PLANE_GRID, 9, [True] * 13)
        self.until_checks(program, PLANE_GRID, 8, [False] * 13)
        self.assertTrue(self.is_idle(program))
        stored = self.saved_project(program)
        self.assertEqual((stored["baseSpectrumName"], stored["seedAdopted"]), (name, True))
        self.finish(program)

    def test_without_faults_the_second_screen_is_empty_and_opens(self):
        self.plant()
        before = self.project.read_bytes()
        program = self.open_planes()
        self.assertEqual(self.grid(program, PLANE_GRID), [])
        for name in (SHOW_ALL, SHOW_NONE, USE_ALL, USE_NONE):
            self.assertFalse(states(program.find(name)).contains(STATE.ENABLED))
        program.screenshot("sources_no_planes")
        self.assertEqual(self.saved(program), before)
        self.close_unchanged(program)

    # --- the lower limit

    def limits(self, program):
        return self.checks(program, LIMIT, 2)

    def test_the_lower_limit_is_selected_by_click_key_and_bus(self):
        self.plant()
        program = self.open_grid(LIMIT, LIMIT)
        names = [row[1] for row in self.grid(program, LIMIT)]
        self.assertEqual(names, [limit["name"] for limit in project_file.load(self.project)["lowerSpectra"]])
        self.assertEqual(self.limits(program), [True, False, False])
        self.assertTrue(names[0].endswith("（水平版）"))
        program.screenshot("sources_limit")
        self.click_cell(program, LIMIT, 2, 2)
        self.until_checks(program, LIMIT, 2, [False, False, True])
        self.pick(program, LIMIT, 1, 2)
        program.keys("space")
        self.until_checks(program, LIMIT, 2, [False, True, False])
        self.act_on_cell(program, LIMIT, 0, 2, "Toggle")
        self.until_checks(program, LIMIT, 2, [True, False, False])
        self.click_cell(program, LIMIT, 1, 2)
        self.until_checks(program, LIMIT, 2, [False, True, False])
        stored = self.saved_project(program)
        self.assertEqual([limit["lowerSelected"] for limit in stored["lowerSpectra"]], [False, True, False])
        self.click_cell(program, LIMIT, 1, 2)  # the selected one: exactly one stays
        self.until_checks(program, LIMIT, 2, [False, True, False])
        self.finish(program)

    def test_another_lower_limit_asks_where_the_base_is_one(self):
        def limit_is_base(project):
            project["lowerSpectra"][0]["baseSelected"] = True
            project["baseSpectrumName"] = project["lowerSpectra"][0]["name"]
            self.adopt(project)
        self.plant(limit_is_base, waves=1)
        question = base_question(project_file.load(self.project)["baseSpectrumName"])
        program = self.open_grid(LIMIT, LIMIT)
        self.expect_declined(program, lambda: self.click_cell(program, LIMIT, 1, 2), question)
        self.until_checks(program, LIMIT, 2, [True, False, False])
        before = self.saved(program)
        self.click_cell(program, LIMIT, 0, 2)  # the base itself
        self.until_checks(program, LIMIT, 2, [True, False, False])
        self.assertTrue(self.is_idle(program))
        self.assertEqual(self.saved(program), before)
        self.click_cell(program, LIMIT, 1, 2)
        program.answer(question, YES)
        self.until_checks(program, LIMIT, 2, [False, True, False])
        stored = self.saved_project(program)
        self.expect_no_base(stored)
        self.assertEqual([limit["lowerSelected"] for limit in stored["lowerSpectra"]], [False, True, False])
        self.finish(program)

    def test_another_lower_limit_asks_nothing_while_a_plane_is_the_base(self):
        self.plant(self.choose_base, faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        program = self.open_grid(LIMIT, LIMIT)
        self.click_cell(program, LIMIT, 2, 2)
        self.until_checks(program, LIMIT, 2, [False, False, True])
        self.assertTrue(self.is_idle(program))
        stored = self.saved_project(program)
        self.assertEqual((stored["baseSpectrumName"], stored["seedAdopted"]), (name, True))
        self.assertTrue(stored["faults"][2]["shortBaseSelected"][0])
        self.finish(program)

    # --- the waves near the site

    def wave_rows(self, program):
        return [row[1] for row in self.grid(program, WAVE_GRID)]

    def export_wave(self, wave):
        path = self.desktop.folder / "wave.csv"
        path.write_text("\n".join([f"{wave['name']},{wave['timeStep']!r},1", *(f"{i * wave['timeStep']},{acc!r}" for i, acc in enumerate(wave["acc"]))]) + "\n",
                        encoding="cp932")
        return path

    def test_without_waves_the_step_is_refused(self):
        self.plant()
        before = self.project.read_bytes()
        program = self.start(NEIGHBOURS)
        program.box(NO_WAVES)
        program.screenshot("sources_no_waves")
        program.press(OK)
        program.until(lambda: self.is_idle(program), "box closed")
        program.find("地図")  # the screen before
        self.assertEqual([node.get_name() for node in program.nodes() if node.get_description() == "現在の手順"], [FIELD])
        program.act(program.action_of(NEIGHBOURS))
        program.answer(NO_WAVES)
        self.assertEqual(self.saved(program), before)
        self.close_unchanged(program)

    def test_missing_spectra_are_those_of_the_command_line(self):
        self.plant(waves=3)
        program = self.open_grid(NEIGHBOURS, WAVE_GRID)
        self.assertEqual(self.wave_rows(program), ["wave 1", "wave 2", "wave 3"])
        self.assertEqual((self.checks(program, WAVE_GRID, 3), self.checks(program, WAVE_GRID, 4)), ([True] * 3, [False] * 3))
        program.screenshot("sources_waves")
        stored = self.saved_project(program)["seedWaves"]
        for wave in stored:
            told = json.loads(self.command("response", self.export_wave(wave), "--json"))
            self.assertTrue(wave["spectrumValid"])
            self.assertEqual((wave["periods"], wave["accSpec"]), (told["periods"], told["accSpec"]))
        # With all of them there the file stays as it is.
        before = self.saved(program)
        program.press(LIMIT)
        program.find(LIMIT, ROLE.TABLE)
        program.press(NEIGHBOURS)
        program.find(WAVE_GRID, ROLE.TABLE)
        self.assertEqual(self.saved(program), before)
        self.finish(program)

    def test_long_waves_are_reckoned_behind_their_dialog(self):
        self.plant(lambda project: [self.make_wave(project, f"long {n}", 0.3 + n, 0.01, 30000) for n in range(8)])
        program = self.start()
        commands = [program.action_of(name) for name in (NEW, FIELD, BASE, PARAMETERS, LIMIT)]
        program.act(program.action_of(NEIGHBOURS))
        program.until(lambda: program.has_window(RUNNING), "run")
        program.act(*commands)
        self.until_text(program, "加速度応答スペクトルの計算中です。")
        program.screenshot("sources_spectra_run")
        with XServer(self.desktop.env["DISPLAY"]) as server:
            server.ask_to_close(int(program.window_of("sources.trml - Tremlo.*")))
        program.find(WAVE_GRID, ROLE.TABLE)
        program.until(lambda: self.is_idle(program), "end of the run")
        self.assertEqual(len(self.wave_rows(program)), 8)
        self.activate(program)
        self.assertTrue(all(wave["spectrumValid"] for wave in self.saved_project(program)["seedWaves"]))
        self.finish(program)

    def test_flags_of_the_waves_and_their_four_buttons(self):
        self.plant(waves=3)
        program = self.open_grid(NEIGHBOURS, WAVE_GRID)
        self.click_cell(program, WAVE_GRID, 0, 4)
        self.click_cell(program, WAVE_GRID, 1, 3)
        self.pick(program, WAVE_GRID, 2, 4)
        program.keys("space")
        self.act_on_cell(program, WAVE_GRID, 2, 3, "Toggle")
        self.until_checks(program, WAVE_GRID, 3, [True, False, False])
        self.until_checks(program, WAVE_GRID, 4, [True, False, True])
        stored = self.saved_project(program)["seedWaves"]
        self.assertEqual([(wave["siteShow"], wave["siteUse"]) for wave in stored], [(True, True), (False, False), (False, True)])
        for name, column, flag, value in ((SHOW_NONE, 3, "siteShow", False), (SHOW_ALL, 3, "siteShow", True),
                                          (USE_ALL, 4, "siteUse", True), (USE_NONE, 4, "siteUse", False)):
            program.press(name)
            self.until_checks(program, WAVE_GRID, column, [value] * 3)
            self.assertEqual([wave[flag] for wave in self.saved_project(program)["seedWaves"]], [value] * 3)
        self.assertTrue(self.is_idle(program))
        self.finish(program)

    def wave_is_base(self, project):
        for wave in project["seedWaves"][:2]:
            wave["siteUse"] = True
        project["seedWaves"][1]["baseSelected"] = True
        project["baseSpectrumName"] = "wave 2"
        self.adopt(project)

    def test_a_wave_that_is_the_base_goes_out_of_use_with_a_question(self):
        self.plant(self.wave_is_base, waves=3)
        planted = self.project.read_bytes()
        question = base_question("wave 2")
        for act, used in ((lambda program: self.click_cell(program, WAVE_GRID, 1, 4), [True, False, False]),
                          (lambda program: program.press(USE_NONE), [False] * 3)):
            with self.subTest(used):
                self.project.write_bytes(planted)
                program = self.open_grid(NEIGHBOURS, WAVE_GRID)
                program.press(USE_ALL)  # asks nothing
                self.until_checks(program, WAVE_GRID, 4, [True] * 3)
                self.click_cell(program, WAVE_GRID, 2, 4)  # nor does another wave
                self.until_checks(program, WAVE_GRID, 4, [True, True, False])
                self.expect_declined(program, lambda: act(program), question)
                self.until_checks(program, WAVE_GRID, 4, [True, True, False])
                act(program)
                program.answer(question, YES)
                self.until_checks(program, WAVE_GRID, 4, used)
                stored = self.saved_project(program)
                self.assertEqual([wave["siteUse"] for wave in stored["seedWaves"]], used)
                self.expect_no_base(stored)
                self.finish(program)

    def test_a_wave_that_is_the_base_is_deleted_behind_two_questions(self):
        self.plant(self.wave_is_base, waves=3)
        program = self.start(WAVES)
        program.find("波形データ読込")
        combo = self.combo(program, "波形名")
        program.until(lambda: self.combo(program, "波形名").get_name() == "wave 1", "first wave")
        program.click_at(*program.point(combo))
        program.keys("Down", "Return")
        program.until(lambda: self.combo(program, "波形名").get_name() == "wave 2", "second wave")
        delete = "「wave 2」を削除しますがよろしいですか？"
        self.expect_declined(program, lambda: program.press("削除"), base_question("wave 2"))
        program.press("削除")
        program.answer(base_question("wave 2"), YES)
        program.answer(delete, NO)
        program.until(lambda: self.is_idle(program), "question closed")
        stored = self.saved_project(program)  # the base is gone all the same
        self.expect_no_base(stored)
        self.assertEqual([wave["name"] for wave in stored["seedWaves"]], ["wave 1", "wave 2", "wave 3"])
        self.expect_declined(program, lambda: program.press("削除"), delete)
        program.press("削除")
        program.answer(delete, YES)
        program.until(lambda: self.is_idle(program), "question closed")
        self.assertEqual([wave["name"] for wave in self.saved_project(program)["seedWaves"]], ["wave 1", "wave 3"])
        self.finish(program)

    # --- the other questions that guard the base and the adjustment to it

    STEP = "時間間隔"
    ADJUSTED = "振幅調整がされていますがよろしいですか？"
    ADJUSTED_DATA = ADJUSTED + "\n\n時間間隔を変更した場合、原種波形の選択、振幅調整が再度必要となります。"
    SETTINGS_ASKED = "振幅調整をしていますがよろしいですか？\n\n振幅調整の設定を変更した場合、振幅調整が再度必要になります。"

    def open_wave(self, name):
        program = self.start(WAVES)
        program.find("波形データ読込")
        program.until(lambda: self.combo(program, "波形名").get_name() == "wave 1", "first wave")
        if name != "wave 1":
            program.click_at(*program.point(self.combo(program, "波形名")))
            program.keys("Down", "Return")
            program.until(lambda: self.combo(program, "波形名").get_name() == name, name)
        return program

    def enter_step(self, program):
        program.until(program.has_active_window, "an active window")
        program.focus(self.STEP)
        program.keys("ctrl+a")
        program.type("0.02")
        program.keys("Return")

    def test_another_time_step_of_the_base_asks_two_questions(self):
        self.plant(self.wave_is_base, waves=2)
        program = self.open_wave("wave 2")
        question = base_question("wave 2")
        shown = program.text(self.STEP)
        self.expect_declined(program, lambda: self.enter_step(program), question)
        self.expect_declined(program, lambda: self.enter_step(program), question, self.ADJUSTED)
        self.assertEqual(program.text(self.STEP), shown)
        self.enter_step(program)
        program.answer(question, YES)
        program.answer(self.ADJUSTED, YES)
        stored = self.saved_project(program)
        self.expect_no_base(stored)
        self.assertEqual(stored["seedWaves"][1]["timeStep"], 0.02)
        self.finish(program)

    def test_another_time_step_of_an_adjusted_wave_asks_the_long_question(self):
        self.plant(self.wave_is_base, waves=2)
        program = self.open_wave("wave 1")
        self.expect_declined(program, lambda: self.enter_step(program), self.ADJUSTED_DATA)
        self.enter_step(program)
        program.answer(self.ADJUSTED_DATA, YES)
        program.until(lambda: self.is_idle(program), "question closed")
        stored = self.saved_project(program)
        self.assertEqual((stored["seedWaves"][0]["timeStep"], stored["baseSpectrumName"], stored["seedAdopted"]), (0.02, "wave 2", False))
        self.assertEqual([wave["adjusted"] for wave in stored["seedWaves"]], [False, False])
        self.finish(program)

    def test_the_settings_of_the_adjustment_ask_while_a_wave_is_adjusted(self):
        self.plant(self.wave_is_base, waves=2)
        program = self.open_grid(NEIGHBOURS, WAVE_GRID)
        settings = program.action_of("波形調整設定")
        self.expect_declined(program, lambda: program.act(settings), self.SETTINGS_ASKED)
        program.act(settings)
        program.answer(self.SETTINGS_ASKED, YES)
        program.until(lambda: program.dialogs() == ["振幅調整の設定"], "settings")
        program.keys("Escape")
        program.until(lambda: self.is_idle(program), "settings closed")
        stored = self.saved_project(program)
        self.assertEqual((stored["baseSpectrumName"], stored["seedAdopted"], stored["seedWaves"][0]["adopted"]), ("wave 2", True, True))
        self.assertEqual([(wave["adjusted"], wave["adjustedAcc"]) for wave in stored["seedWaves"]], [(False, []), (False, [])])
        program.act(settings)  # asks no more
        program.until(lambda: program.dialogs() == ["振幅調整の設定"], "settings")
        program.keys("Escape")
        program.until(lambda: self.is_idle(program), "settings closed")
        self.finish(program)

    def test_another_procedure_clears_what_it_says(self):
        def all_of_it(project):
            self.wave_is_base(project)
            project["lowerSpectra"][0]["lowerSelected"], project["lowerSpectra"][2]["lowerSelected"] = False, True
            project["intensityIndex"], project["adjustMaxIterations"] = 0, 7
        self.plant(all_of_it, faults=True, waves=2)
        program = self.start("作業手順の確認")
        program.find("作業手順の変更")
        question = """作業手順を変更しますか？
以下のデータがクリアされます。
・「現場近隣地震波形」
・「距離減衰式(断層)」
・「下限スペクトル」
・「基準スペクトル設定」
・「原種波形の振幅調整」
・「可視化」
・「断層APIパラメータ設定」
・「振幅調整設定」"""
        self.expect_declined(program, lambda: program.press("作業手順の変更"), question)
        program.press("作業手順の変更")
        program.answer(question, YES)
        program.find("マウスクリックで確認")
        stored = self.saved_project(program)
        self.expect_no_base(stored)
        self.assertEqual((stored["faults"], stored["flowFixed"], stored["intensityIndex"], stored["adjustMaxIterations"]), ([], False, 2, 100))
        self.assertEqual([(wave["name"], wave["siteUse"]) for wave in stored["seedWaves"]], [("wave 1", False), ("wave 2", False)])
        # Of the lower limits the one that a new project has is marked; the other mark stays.
        self.assertEqual([limit["lowerSelected"] for limit in stored["lowerSpectra"]], [True, False, True])
        self.finish(program)

    def test_steps_that_lack_something_say_what(self):
        self.plant()
        program = self.start()
        before = self.saved(program)
        for step, text in ((NEIGHBOURS, NO_WAVES), (ADJUST, "原種波形が設定されていません。「波形登録」で波形を設定してください。"),
                           ("可視化", "「原種波形の振幅調整」にて採用する原種波形が選択されていません。")):
            program.press(step)
            program.answer(text)
            program.until(lambda: self.is_idle(program), "box closed")
        self.assertEqual(self.saved(program), before)
        self.close_unchanged(program)
        self.plant(waves=1)
        program = self.start()
        before = self.saved(program)
        program.press(ADJUST)
        program.answer("基準スペクトルが選択されていません。「基準スペクトル設定」で基準スペクトルを選択してください。")
        program.until(lambda: self.is_idle(program), "box closed")
        self.assertEqual(self.saved(program), before)
        self.close_unchanged(program)

    # --- the base spectrum

    def candidates(self, program):
        return [row[1:4] for row in self.grid(program, CANDIDATES)]

    def figures(self, label, periods, values):
        return [label, f"{area(periods, values):.2f}", f"{max(values):.2f}"]

    def expected_candidates(self, project):
        rows = []
        if project["flowNeighbourWave"]:
            rows += [self.figures(wave["name"], wave["periods"], wave["accSpec"]) for wave in project["seedWaves"] if wave["siteUse"]]
        labels = iter(base_labels(project["faults"]))
        for fault in project["faults"] if project["flowFaultSource"] else []:
            for plane in range(fault["geomNum"]):
                pair = [self.figures(next(labels), fault[kind + "Periods"][plane], fault[kind + "Spectrum"][plane])
                        for kind in ("shortest", "equivalent")]
                rows += pair if fault["attenUse"][plane] else []
        return rows + [self.figures(limit["name"], limit["periods"], limit["accSpec"]) for limit in project["lowerSpectra"]
                       if limit["lowerSelected"]]

    def test_all_candidates_stand_in_one_list(self):
        def some_in_use(project):
            project["seedWaves"][1]["siteUse"] = True
            project["faults"][4]["attenUse"] = [False]
        self.plant(some_in_use, faults=True, waves=2)
        program = self.open_grid(BASE, CANDIDATES)
        stored = self.saved_project(program)
        expected = self.expected_candidates(stored)
        self.assertEqual(len(expected), 1 + 2 * 12 + 1)
        self.assertEqual(self.candidates(program), expected)
        self.assertTrue(all(wave["spectrumValid"] for wave in stored["seedWaves"]))
        self.expect_spectra(stored)
        areas = [f"{one:.2f}" for fault in stored["faults"][:2] for one in (fault["shortArea"][0], fault["equivArea"][0])]
        self.assertEqual(areas, [row[1] for row in expected[1:5]])
        self.assertEqual(self.checks(program, CANDIDATES, 6), [False] * 26)
        self.until_text(program, "一覧から、現場への影響が一番大きいスペクトルを基準スペクトルとして選択してください。")
        self.assertFalse(program.look("自動選択"))
        program.screenshot("sources_candidates")
        self.finish(program)

    def test_without_sources_there_is_the_lower_limit_alone(self):
        def no_source(project):
            project["flowFaultSource"] = project["flowNeighbourWave"] = False
            project["seedWaves"][0]["siteUse"] = True
        self.plant(no_source, faults=True, waves=1)
        planted = project_file.load(self.project)
        program = self.open_grid(BASE, CANDIDATES)
        self.assertEqual(self.candidates(program), [self.figures(limit["name"], limit["periods"], limit["accSpec"])
                                                    for limit in planted["lowerSpectra"][:1]])
        program.screenshot("sources_limit_alone")
        self.click_cell(program, CANDIDATES, 0, 6)
        self.until_checks(program, CANDIDATES, 6, [True])
        stored = self.saved_project(program)
        self.assertEqual(stored["baseSpectrumName"], planted["lowerSpectra"][0]["name"])
        self.assertTrue(stored["lowerSpectra"][0]["baseSelected"])
        self.finish(program)

    def marks(self, project):
        """Which candidates bear a mark."""
        labels = iter(base_labels(project["faults"]))
        marked = [label for fault in project["faults"] for pair in zip(fault["shortBaseSelected"], fault["equivBaseSelected"])
                  for flag, label in ((pair[0], next(labels)), (pair[1], next(labels))) if flag]
        return [record["name"] for record in project["seedWaves"] + project["lowerSpectra"] if record["baseSelected"]] + marked

    def test_the_base_is_chosen_by_click_key_and_bus(self):
        self.plant(lambda project: project["seedWaves"][0].update(siteUse=True), faults=True, waves=1)
        program = self.open_grid(BASE, CANDIDATES)
        labels = [row[0] for row in self.candidates(program)]
        self.assertEqual(labels[1:3], ["(最短距離)森本・富樫断層帯", "(等価震源距離)森本・富樫断層帯"])
        for row, act in ((2, lambda: self.click_cell(program, CANDIDATES, 2, 6)),
                         (1, lambda: (self.pick(program, CANDIDATES, 1, 6), program.keys("space"))),
                         (0, lambda: self.act_on_cell(program, CANDIDATES, 0, 6, "Toggle")),
                         (3, lambda: self.click_cell(program, CANDIDATES, 3, 6))):
            act()
            self.until_checks(program, CANDIDATES, 6, [number == row for number in range(len(labels))])
            stored = self.saved_project(program)
            self.assertEqual((stored["baseSpectrumName"], self.marks(stored)), (labels[row], [labels[row]]))
        # The last row: the lower limit.
        program.keys("ctrl+End")
        self.act_on_cell(program, CANDIDATES, len(labels) - 1, 6)
        program.until(lambda: self.is_checked(program, CANDIDATES, len(labels) - 1, 6), "lower limit chosen")
        stored = self.saved_project(program)
        self.assertEqual(self.marks(stored), [labels[-1]])
        self.finish(program)

    def test_another_base_asks_while_a_wave_is_adopted(self):
        self.plant(self.choose_base, faults=True, waves=1)
        name = project_file.load(self.project)["baseSpectrumName"]
        program = self.open_grid(BASE, CANDIDATES)
        labels = [row[0] for row in self.candidates(program)]
        base = labels.index(name)
        chosen = [number == base for number in range(len(labels))]
        self.assertEqual(self.checks(program, CANDIDATES, 6), chosen)
        self.expect_declined(program, lambda: self.click_cell(program, CANDIDATES, 1, 6), base_question(name))
        self.until_checks(program, CANDIDATES, 6, chosen)
        before = self.saved(program)
        self.click_cell(program, CANDIDATES, base, 6)  # the base itself
        self.assertTrue(self.is_idle(program))
        self.until_checks(program, CANDIDATES, 6, chosen)
        self.assertEqual(self.saved(program), before)
        self.click_cell(program, CANDIDATES, 1, 6)
        program.answer(base_question(name), YES)
        self.until_checks(program, CANDIDATES, 6, [number == 1 for number in range(len(labels))])
        stored = self.saved_project(program)
        self.assertEqual((stored["baseSpectrumName"], self.marks(stored)), (labels[1], [labels[1]]))
        self.assertEqual((stored["seedAdopted"], stored["seedAdoptedName"], stored["seedWaves"][0]["adjustedAcc"]), (False, "", []))
        self.click_cell(program, CANDIDATES, 3, 6)  # asks no more
        self.until_checks(program, CANDIDATES, 6, [number == 3 for number in range(len(labels))])
        self.finish(program)

    def test_faults_of_one_name_give_the_first_the_mark(self):
        def same_name(project):
            project["faults"][1]["ltename"] = project["faults"][0]["ltename"]
        self.plant(same_name, faults=True)
        program = self.open_grid(BASE, CANDIDATES)
        labels = [row[0] for row in self.candidates(program)]
        self.assertEqual(labels[0], labels[2])
        self.click_cell(program, CANDIDATES, 2, 6)
        program.until(lambda: any(self.checks(program, CANDIDATES, 6)), "a base")
        stored = self.saved_project(program)
        self.assertEqual((stored["faults"][0]["shortBaseSelected"], stored["faults"][1]["shortBaseSelected"]), ([True], [False]))
        self.finish(program)

    def test_what_is_shown_of_the_candidates(self):
        self.plant(faults=True)
        program = self.open_grid(BASE, CANDIDATES)
        rows = len(self.candidates(program))
        self.assertEqual(self.checks(program, CANDIDATES, 5)[:26], [True] * 26)
        self.click_cell(program, CANDIDATES, 0, 5)
        self.pick(program, CANDIDATES, 1, 5)
        program.keys("space")
        program.until(lambda: self.checks(program, CANDIDATES, 5)[:3] == [False, False, True], "two hidden")
        stored = self.saved_project(program)["faults"]
        self.assertEqual((stored[0]["shortBaseShow"], stored[0]["equivBaseShow"], stored[1]["shortBaseShow"]), ([False], [False], [True]))
        program.press(SHOW_NONE)
        self.until_checks(program, CANDIDATES, 5, [False] * rows)
        program.press(SHOW_ALL)
        self.until_checks(program, CANDIDATES, 5, [True] * rows)
        before = self.saved(program)
        self.click_cell(program, CANDIDATES, 2, 4)
        program.until(lambda: not self.is_idle(program), "colours to choose from")
        program.keys("Escape")
        program.until(lambda: self.is_idle(program), "chooser closed")
        self.assertEqual(self.saved(program), before)
        self.finish(program)

    def between(self, periods, values, at):
        for i in range(len(periods) - 1):
            low, high = sorted((periods[i], periods[i + 1]))
            if low <= at <= high:
                return values[i] + (values[i + 1] - values[i]) * (at - periods[i]) / (periods[i + 1] - periods[i])
        return None

    def test_the_line_of_the_active_row_reads_the_dams_period(self):
        self.plant(faults=True)
        program = self.open_grid(BASE, CANDIDATES)
        stored = self.saved_project(program)
        before = self.project.read_bytes()
        line = self.until_text(program, "ダムの固有周期での応答：")
        self.assertTrue(line.startswith("(最短距離)森本・富樫断層帯　ダムの固有周期での応答：-\n下限スペクトルを下回る周期："), line)
        program.focus(DAM_PERIOD)
        program.type("0.25")
        program.keys("Return")
        for row, kind in ((0, "shortest"), (1, "equivalent")):
            self.pick(program, CANDIDATES, row, 1)
            value = self.between(stored["faults"][0][kind + "Periods"][0], stored["faults"][0][kind + "Spectrum"][0], 0.25)
            self.until_text(program, f"ダムの固有周期での応答：{value:.2f} gal\n")
        program.screenshot("sources_dam_period")
        program.keys("Down")
        self.until_text(program, "(最短距離)邑知潟断層帯　ダムの固有周期での応答：")
        self.click_cell(program, CANDIDATES, 0, 1)
        self.until_text(program, "(最短距離)森本・富樫断層帯　ダムの固有周期での応答：")
        program.focus(DAM_PERIOD)
        for typed, text in (("6", "数値が範囲外です。\n\n（0.020 ～ 5.000 までの範囲で入力してください。）"),
                            ("0.0001", "数値が範囲外です。\n\n（0.020 ～ 5.000 までの範囲で入力してください。）"),
                            ("0.1234", "少数桁がオーバーしています。\n\n（少数 3桁 以内で入力してください。）")):
            program.keys("ctrl+a")
            program.type(typed)
            program.keys("Return")
            program.answer(text)
            program.until(lambda: program.text(DAM_PERIOD) == "0.250" and (program.focused() or ("", ""))[1] == DAM_PERIOD, "the old period")
        program.keys("ctrl+a", "BackSpace", "Return")
        self.until_text(program, "ダムの固有周期での応答：-\n")
        self.assertEqual(self.saved(program), before)  # it is stored nowhere
        self.close_unchanged(program)

    # --- how it looks

    def expect_dialog(self, program, title, picture):
        """It keeps its size, and stands on the screen with its frame."""
        geometry = program.settled_geometry(title)
        left, top, width, height = program.frame(title)
        room = [int(word) for word in self.desktop.screen.split("x")[:2]]
        self.assertTrue(left >= 0 and top >= 0 and left + width <= room[0] and top + height <= room[1], (title, geometry))
        program.screenshot(picture)

    def push(self, program, name):
        program.act(program.action_of(name))

    def look_at_all(self, look, scale=1):
        """Every screen with many rows, few and none, and every dialog. All by keys and the actions of the bus: at other
        scales than 1 it does not tell where a control is seen."""
        self.desktop.env["QT_SCALE_FACTOR"] = str(scale)

        def used(project):
            for wave in project["seedWaves"]:
                wave["siteUse"] = True
            # More planes than any screen has room for.
            project["faults"] += [{**fault, "rank": str(9 + n), "ltename": f"{fault['ltename']}の長い名前の続き その{n}"}
                                  for n, fault in enumerate(project["faults"] * 5)]
        self.plant(used, faults=True, waves=40)
        for rows, keep in (("many", None), ("few", 2), ("none", 0)):
            if keep is not None:
                project = project_file.load(self.project)
                project["faults"], project["seedWaves"] = project["faults"][:keep], project["seedWaves"][:keep]
                project_file.save(self.project, project)
            program = self.start()
            self.push(program, FAULTS)
            program.find(ACQUIRE)
            program.screenshot(f"{look}_{rows}_1_faults")
            self.assertEqual(program.nameless(), [])
            if rows == "few":
                self.push(program, METHOD)
                program.box(parameters_question())
                program.screenshot(f"{look}_question")
                program.keys("Escape")
                program.until(lambda: self.is_idle(program), "question closed")
                self.push(program, "影響の大きい断層の説明")
                program.until(program.has_box, "information")
                program.screenshot(f"{look}_information")
                program.keys("Return")
                program.until(lambda: self.is_idle(program), "information closed")
            if rows == "none":
                self.desktop.wish("ranking=stall")
                self.hold(program, self.push)
                self.expect_dialog(program, RUNNING, f"{look}_acquisition")
                program.until(lambda: self.is_idle(program), "end of the acquisition")
                self.desktop.wish()
                self.activate(program)
                self.push(program, METHOD)
                self.until_dialog(program)
                self.expect_dialog(program, PARAMETERS, f"{look}_parameters")
                program.keys("Escape")
                self.until_dialog(program, up=False)
            self.push(program, SECOND)
            program.find(PLANE_GRID, ROLE.TABLE)
            program.screenshot(f"{look}_{rows}_2_planes")
            self.assertEqual(program.nameless(), [])
            if rows == "few":
                self.push(program, REFER)
                program.until(lambda: program.dialogs() == [REFER], "the relation explained")
                self.expect_dialog(program, REFER, f"{look}_refer")
                program.keys("Escape")
                program.until(lambda: self.is_idle(program), "dialog closed")
            for step, grid in ((LIMIT, LIMIT), *([(NEIGHBOURS, WAVE_GRID)] if rows != "none" else []), (BASE, CANDIDATES)):
                self.push(program, step)
                program.find(grid, ROLE.TABLE)
                program.until(lambda: self.is_idle(program), "screen")
                self.activate(program)
                program.screenshot(f"{look}_{rows}_3_{'limit' if step == LIMIT else 'base' if step == BASE else 'waves'}")
                self.assertEqual(program.nameless(), [])
            self.saved(program)
            self.close_unchanged(program)

    def test_all_of_it_looks_as_it_should(self):
        self.look_at_all("plain")

    def test_all_of_it_looks_as_it_should_at_scale_1_5(self):
        self.look_at_all("scale_1_5", 1.5)

    def test_all_of_it_looks_as_it_should_at_scale_2(self):
        self.look_at_all("scale_2", 2)

    def test_all_of_it_looks_as_it_should_in_the_dark(self):
        self.desktop.env["TREMLO_TEST_DARK"] = "1"
        self.look_at_all("dark")


if __name__ == "__main__":
    route.main(SourcesRoute)
