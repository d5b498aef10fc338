"""Steps on the screens of the faults, the lower limit, the waves near the site and the base spectrum, on projects that
are planted."""

import json
import math
import subprocess

from desktop import Desktop, NotReached, wait_until
from driver import ROLE, STATE, Atspi, Program, states
import project_file
import route
from route import ROOT, tools

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


class SourceSteps(route.Route):
    def make_desktop(self):
        return Desktop("2560x2048x24") if "scale" in self._testMethodName else Desktop()

    def setUp(self):
        super().setUp()
        self.project = self.desktop.folder / "sources.trml"

    # --- planted projects

    def command(self, *words, code=0):
        done = subprocess.run([tools.bin / "tremlo-cli", *map(str, words)], env=self.desktop.env, capture_output=True,
                              text=True)
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
                for color in ("attenColor", "shortBaseColor", "equivBaseColor"):
                    kept[color] = [0x800000 + 97 * number] * fault["geomNum"]
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
            figures = [fault["avract"], fault["newact"], *(text if text == "-" else f"{float(text):.5f}"
                                                           for text in (fault["t30p"], fault["t50p"]))]
            if ranking:
                figures = [fault[name] for name in ("i45_ps", "i50_ps", "i55_ps", "i60_ps")]
            for plane in range(len(fault["shortestDistance"])):
                rows.append([fault["rank"] if ranking else str(number), fault["ltename"], fault["magnitude"],
                             f"{fault['shortestDistance'][plane]:.4f}", f"{fault['equivalentDistance'][plane]:.4f}",
                             *figures])
        return rows

    def texts(self, program):
        return [node.get_name() for node in program.nodes() if node.get_role() == ROLE.LABEL]

    def until_text(self, program, part):
        return program.until(lambda: next((text for text in self.texts(program) if part in text), None), f"text {part}")

    def hold(self, program, press=Program.press):
        """An acquisition whose answer does not come for as long as the service waits."""
        asked = len(self.desktop.asked("/map/api/"))
        press(program, ACQUIRE)
        program.until(lambda: len(self.desktop.asked("/map/api/")) > asked and program.has_window(RUNNING),
                      "acquisition under way")

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

    def wave_is_base(self, project):
        for wave in project["seedWaves"][:2]:
            wave["siteUse"] = True
        project["seedWaves"][1]["baseSelected"] = True
        project["baseSpectrumName"] = "wave 2"
        self.adopt(project)
