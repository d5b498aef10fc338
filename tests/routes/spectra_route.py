#!/usr/bin/env python3
"""The lower limit, the waves near the site and the base spectrum in a real window, and how they and the faults look."""

import json
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from driver import ROLE  # noqa: E402
from xserver import XServer  # noqa: E402
import project_file  # noqa: E402
import route  # noqa: E402
from route import CHANGE_ASKED, NEW, long_case  # noqa: E402
from source_steps import (  # noqa: E402
    ACQUIRE, ADJUST, BASE, CANDIDATES, DAM_PERIOD, FAULTS, FIELD, LIMIT, METHOD, NEIGHBOURS, NO, NO_WAVES,
    OK, PARAMETERS, PLANE_GRID, REFER, RUNNING, SECOND, SHOW_ALL, SHOW_NONE, USE_ALL, USE_NONE, WAVES,
    WAVE_GRID, YES, area, base_labels, base_question, parameters_question, SourceSteps)


class SpectraRoute(SourceSteps):
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
        lines = [f"{wave['name']},{wave['timeStep']!r},1",
                 *(f"{i * wave['timeStep']},{acc!r}" for i, acc in enumerate(wave["acc"]))]
        path.write_text("\n".join(lines) + "\n", encoding="cp932")
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
        self.assertEqual([(wave["siteShow"], wave["siteUse"]) for wave in stored],
                         [(True, True), (False, False), (False, True)])
        for name, column, flag, value in ((SHOW_NONE, 3, "siteShow", False), (SHOW_ALL, 3, "siteShow", True),
                                          (USE_ALL, 4, "siteUse", True), (USE_NONE, 4, "siteUse", False)):
            program.press(name)
            self.until_checks(program, WAVE_GRID, column, [value] * 3)
            self.assertEqual([wave[flag] for wave in self.saved_project(program)["seedWaves"]], [value] * 3)
        self.assertTrue(self.is_idle(program))
        self.finish(program)

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
        self.assertEqual((stored["seedWaves"][0]["timeStep"], stored["baseSpectrumName"], stored["seedAdopted"]),
                         (0.02, "wave 2", False))
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
        self.assertEqual((stored["baseSpectrumName"], stored["seedAdopted"], stored["seedWaves"][0]["adopted"]),
                         ("wave 2", True, True))
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
        self.expect_declined(program, lambda: program.press("作業手順の変更"), CHANGE_ASKED)
        program.press("作業手順の変更")
        program.answer(CHANGE_ASKED, YES)
        program.find("マウスクリックで確認")
        stored = self.saved_project(program)
        self.expect_no_base(stored)
        self.assertEqual((stored["faults"], stored["flowFixed"], stored["intensityIndex"], stored["adjustMaxIterations"]),
                         ([], False, 2, 100))
        self.assertEqual([(wave["name"], wave["siteUse"]) for wave in stored["seedWaves"]],
                         [("wave 1", False), ("wave 2", False)])
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
            rows += [self.figures(wave["name"], wave["periods"], wave["accSpec"]) for wave in project["seedWaves"]
                     if wave["siteUse"]]
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
        self.assertEqual((stored["seedAdopted"], stored["seedAdoptedName"], stored["seedWaves"][0]["adjustedAcc"]),
                         (False, "", []))
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
        self.assertEqual((stored["faults"][0]["shortBaseSelected"], stored["faults"][1]["shortBaseSelected"]),
                         ([True], [False]))
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
        self.assertEqual((stored[0]["shortBaseShow"], stored[0]["equivBaseShow"], stored[1]["shortBaseShow"]),
                         ([False], [False], [True]))
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
            program.until(lambda: program.text(DAM_PERIOD) == "0.250" and (program.focused() or ("", ""))[1] == DAM_PERIOD,
                          "the old period")
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

    @long_case
    def test_all_of_it_looks_as_it_should(self):
        self.look_at_all("plain")

    @long_case
    def test_all_of_it_looks_as_it_should_at_scale_1_5(self):
        self.look_at_all("scale_1_5", 1.5)

    @long_case
    def test_all_of_it_looks_as_it_should_at_scale_2(self):
        self.look_at_all("scale_2", 2)

    @long_case
    def test_all_of_it_looks_as_it_should_in_the_dark(self):
        self.desktop.env["TREMLO_TEST_DARK"] = "1"
        self.look_at_all("dark")


if __name__ == "__main__":
    route.main(SpectraRoute)
