"""The road of one project, step by step, and what each of its screens shows."""

import hashlib
import json
import pathlib
import subprocess

from driver import ROLE, STATE, Atspi, states
from hands import Bus, Keys
import route
from route import ROOT, tools

TOP = "指針に沿って解析波形を作成"
STEPS = FIELD, CHECK, WAVES, NEAR, FAULTS, LOWER, BASE, ADJUST, VISUAL = (
    "現場設定", "作業手順の確認", "波形登録", "現場近隣地震波形", "距離減衰式（断層）", "下限スペクトル",
    "基準スペクトル設定", "原種波形の振幅調整", "可視化")
PRINT = "印刷"
YES, NO = "はい(Y)", "いいえ(N)"
ANSWERS = (("位相特性　Q1", "YES"), ("位相特性　Q2", "YES"), ("位相特性　Q3", "NO"), ("位相特性　Q4", "YES"),
           ("振幅特性　Q1", "YES"), ("振幅特性　Q2", "YES"), ("振幅特性　Q3", "YES"), ("フローチャートの確認", "OK"))
POSITION, ZONE, ZONE_BUTTON, MAP = "現場位置( °)", "平面直角座標系番号", "平面直角座標系番号の選択", "地図"
READ = "波形データ読込"
ACQUIRE, ATTENUATION, BACK = "断層データを取得", "距離減衰の計算", "断層データの再設定"
FOUND, PLANES, RELATIONS = "取得した断層", "断層面", "距離減衰式"
NEIGHBOURS, LIMITS, CANDIDATES = "登録した地震波形", "下限スペクトル", "基準スペクトルの候補"
TARGET, SEEDS = "基準スペクトル", "原種波形"
EXPORT_SEED, EXPORT_ADJUSTED = "原種波形のCSV出力", "調整後波形のCSV出力"
KINDS = SECONDS, SPECTRUM, FOURIER = "時間－加速度", "周期－加速度応答スペクトル", "フーリエスペクトル"
RUNNING = "計算中"
GRAPH, SAMPLES = "グラフ", "波形データ"
UNKNOWN_FAULT = "指定された現場位置とAPIパラメータの断層データはありません。(地震活動モデル情報, F099999)"
NO_FIT = "地震波形調整の計算に失敗しました。"

RECORDS = [ROOT / "samples/waves" / f"{name}.csv"
           for name in ("hses_2016_n80w_0005_8192", "elcentro_1940_ns", "thz_2016_ns_002")]
NAMES = ["HSES 2016 N80W 0.005s 8192", "El Centro 1940 NS", "カイコウラ地震2016 THZ NS"]
FITS, FITS_NOT, THIRD = range(3)
PLANE_ROWS = 13  # of the ranking of the local service
H17, H17_NAME = 2, "H17大規模地震に対するダム耐震性能照査指針（案）・同解説"
# About the last acquisition, the files that were read, the last run, and the row of the list on which one stands.
PASSING = "出典：防災科学技術研究所", "読み込んだ記録", "別の形式として読む", "適合度", "ダムの固有周期での応答"


class Road(route.Route):
    # --- getting about

    def begin_road(self, hands_of):
        """A new project of the guideline route; the hands that work it."""
        program = self.launch()
        hands = hands_of(program)
        if isinstance(hands, Keys):
            program.until(lambda: program.look(TOP, ROLE.RADIO_BUTTON), "top screen")
            program.focus(TOP, [ROLE.RADIO_BUTTON])
            program.keys("space", "Return")
        elif isinstance(hands, Bus):
            program.act_on(TOP, ROLE.RADIO_BUTTON)
            hands.press("OK")
        else:
            self.begin(program, TOP)
        self.at(program, FIELD)
        return hands

    def open_road(self, project, hands_of):
        """A fresh process with a project, on its first screen."""
        program = self.launch(project)
        self.at(program, FIELD)
        program.until(program.has_active_window, "an active window")
        return hands_of(program)

    def screen(self, program, step):
        return program.look(step, ROLE.FILLER)

    def at(self, program, step):
        """The screen of a step stands, nothing before it."""
        def there():
            current = [node.get_name() for node in program.nodes() if node.get_description() == "現在の手順"]
            return current == [step] and self.screen(program, step) and not program.dialogs()
        program.until(there, f"screen {step}")

    def go(self, hands, step):
        hands.press(step)
        self.at(hands.program, step)

    def enabled_steps(self, program):
        told = {node.get_name(): states(node).contains(STATE.ENABLED) for node in program.nodes()
                if node.get_role() == ROLE.PUSH_BUTTON}
        return [step for step in (*STEPS, PRINT) if told[step]]

    def is_on(self, program, table, row, column):
        return states(Atspi.Table.get_accessible_at(program.find(table, ROLE.TABLE), row, column)).contains(STATE.CHECKED)

    def set_check(self, hands, table, row, column, on=True):
        hands.touch(table, row, column)
        self.until_check(hands, table, row, column, on)

    def until_check(self, hands, table, row, column, on=True):
        hands.program.until(lambda: self.is_on(hands.program, table, row, column) == on and not hands.program.dialogs(),
                            f"cell {row}, {column} of {table} {'on' if on else 'off'}")

    # --- the steps of the work

    def fix_procedure(self, hands):
        """All eight questions, answered so that every step opens."""
        self.go(hands, CHECK)
        hands.press("Q&Aで確認")
        for title, button in ANSWERS:
            hands.program.until(lambda: hands.program.dialogs() == [title], f"question {title}")
            hands.press(button)
        hands.program.find("作業手順の変更")

    def type_site(self, program):
        """Into the grid whose first cell is the current one."""
        for number in ("36", "33", "41.184", "136", "36", "50.724"):
            program.type(number)
            program.keys("Return" if number == "50.724" else "Tab")
        program.until(lambda: program.rows(POSITION) == [["36", "33", "41.1840"], ["136", "36", "50.7240"]], "the site")

    def register(self, hands, records=tuple(range(3))):
        self.go(hands, WAVES)
        for record in records:
            hands.press(READ)
            hands.program.choose_file(READ, RECORDS[record])
            hands.program.until(lambda: hands.program.text("波形名") == NAMES[record], f"{NAMES[record]} read")

    def mark_neighbours(self, hands, records=(FITS_NOT, THIRD)):
        self.go(hands, NEAR)
        for record in records:
            self.set_check(hands, NEIGHBOURS, record, 4)

    def acquire(self, hands):
        self.go(hands, FAULTS)
        hands.press(ACQUIRE)
        hands.program.box(UNKNOWN_FAULT)
        hands.press("OK")
        hands.program.until(lambda: not hands.program.dialogs() and len(hands.program.rows(FOUND)) == PLANE_ROWS, "faults")

    def open_attenuation(self, hands):
        hands.press(ATTENUATION)
        hands.program.find(PLANES, ROLE.TABLE)

    def attenuate(self, hands, plane=1, ground_class="C"):
        """A class for one plane, the vertical relation, and one plane that is not used."""
        self.go(hands, FAULTS)
        self.open_attenuation(hands)
        program = hands.program
        hands.choose(PLANES, plane, 2, "ABCD".index(ground_class))
        program.until(lambda: program.cell(PLANES, plane, 2) == ground_class, "the class")
        self.set_check(hands, RELATIONS, 1, 1)
        self.set_check(hands, PLANES, 4, 9, False)

    def set_limit(self, hands, row=H17):
        self.go(hands, LOWER)
        self.set_check(hands, LIMITS, row, 2)

    def candidate(self, program, label):
        return [row[1] for row in program.rows(CANDIDATES)].index(label)

    def choose_base(self, hands, label=H17_NAME):
        self.go(hands, BASE)
        self.set_check(hands, CANDIDATES, self.candidate(hands.program, label), 6)

    def adopt(self, hands, wave=FITS):
        self.go(hands, ADJUST)
        self.set_check(hands, SEEDS, wave, 6)

    def adjust(self, hands, wave=FITS):
        self.set_check(hands, SEEDS, wave, 7)

    def whole_road(self, hands):
        """From a new project to an adjusted wave."""
        self.fix_procedure(hands)
        self.register(hands)
        self.mark_neighbours(hands)
        self.acquire(hands)
        self.attenuate(hands)
        self.set_limit(hands)
        self.choose_base(hands)
        self.adopt(hands)
        self.adjust(hands)

    # --- what stands on the screens

    def line(self, node):
        """What a screen reader tells of a control."""
        role, held = node.get_role(), states(node)
        words = [node.get_role_name(), node.get_name(), node.get_description()]
        words += [mark for mark, state in (("off", STATE.ENABLED), ("unchecked", STATE.CHECKED)) if not held.contains(state)]
        if role == ROLE.TEXT:
            words.append(Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node)))
        return words

    def contents(self, program, step):
        """Texts, states and grids of the screen that stands, but for the lines that are of the process alone."""
        def read():
            nodes = list(program.walk(self.screen(program, step)))
            # Maps and graphs tell what they show once they are painted; without a wave there is none.
            empty = step == WAVES and not program.rows(SAMPLES)
            if not all(node.get_description() or empty for node in nodes if node.get_name() in (MAP, GRAPH)):
                return None
            told = [self.line(node) for node in nodes if not any(part in node.get_name() for part in PASSING)]
            return [*told, *([node.get_name(), program.rows(node.get_name())] for node in nodes if node.get_role() == ROLE.TABLE)]

        def settled():
            told = read()
            return told if told and told == read() else None
        return program.until(settled, f"contents of {step}")

    def all_contents(self, hands, steps=STEPS):
        """Of each step's screens in the order of the work."""
        program, told = hands.program, {}
        for step in steps:
            self.go(hands, step)
            told[step] = self.contents(program, step)
            if step == FAULTS:
                self.open_attenuation(hands)
                told[ATTENUATION] = self.contents(program, step)
            if step == VISUAL:
                for kind in (SPECTRUM, FOURIER):
                    hands.press(kind)
                    program.find(f"グラフ ({kind})")
                    told[kind] = self.contents(program, step)
        return told

    # --- files

    def save(self, program):
        """Under its name; the bytes."""
        project = self.desktop.folder / "road.trml"
        if project.exists():
            before = project.stat().st_mtime_ns
            program.keys("ctrl+s")
            program.until(lambda: project.stat().st_mtime_ns != before and not program.dialogs(), "saved")
        else:
            self.save_as(program, project)
        return project.read_bytes()

    def command(self, *words):
        return subprocess.run([tools.bin / "tremlo-cli", *words], env=self.desktop.env, capture_output=True)

    def shown_project(self, path):
        done = self.command("project", "show", "--json", path)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return json.loads(done.stdout)

    def export(self, hands, what, name):
        path = self.desktop.folder / name
        hands.press(what)
        hands.program.choose_file(what, path)
        hands.program.until(lambda: path.with_name(path.stem + "_FFT.csv").exists(), f"{name} written")
        return self.exported(path)

    def exported(self, path):
        """The bytes of the wave, its spectrum and its Fourier spectrum."""
        return [path.with_name(path.stem + part + ".csv").read_bytes() for part in ("", "_AccSpec", "_FFT")]

    def expect_same(self, files, expected, what):
        """Bytes, whose differences would take the test library minutes to print."""
        digests = [[hashlib.sha256(data).hexdigest() for data in (group if isinstance(group, list) else [group])]
                   for group in (files, expected)]
        self.assertEqual(*digests, what)

    def adjusted_by_command(self, record, target):
        out = self.desktop.folder / "command.csv"
        done = self.command("adjust", "--seed", record, "--target", target, "--out", out)
        self.assertEqual(done.returncode, 0, done.stderr)
        return self.exported(out)
