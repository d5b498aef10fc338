#!/usr/bin/env python3
"""The guideline route in a real window: one project from the site to the files of the adjusted wave."""

import json
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import Desktop  # noqa: E402
from driver import ROLE, STATE, Atspi, states  # noqa: E402
from hands import Bus, Keys, Pointer  # noqa: E402
from road import *  # noqa: E402,F403
import route  # noqa: E402
from shown_project import ShownProject  # noqa: E402
from route import long_case, tools  # noqa: E402

API, SETTINGS = "断層APIパラメータ設定", "波形調整設定"
HAS_FAULTS = "既に断層データを取得済みですがよろしいですか？"
BASE_CHOSEN = ("既に基準スペクトルとして「{}」を選択済みですがよろしいですか？\n\n"
               "変更した場合、原種波形の選択、振幅調整が再度必要になります。")
GRAMMAR = "Jsonファイルの文法エラーです。(メッシュ別被害地震)"
NO_FAULTS = "指定された現場位置とAPIパラメータの断層データはありません。(メッシュ別被害地震)"
ADJUSTED = "振幅調整をしていますがよろしいですか？\n\n振幅調整の設定を変更した場合、振幅調整が再度必要になります。"


class GuidelineRoute(Road):
    def make_desktop(self):
        return Desktop("2560x1700x24") if "scale" in self._testMethodName else Desktop()

    # --- the road

    def drag_site(self, program):
        """Drags the map and waits for the site to follow."""
        before = program.rows(POSITION)
        x, y = self.still(program, MAP, ROLE.FILLER)
        program.until(program.has_active_window, "an active window")
        program.xdotool("mousemove", x, y, "mousedown", 1, "mousemove", x - 20, y + 10, "mousemove", x - 40, y + 20)
        program.until(lambda: program.rows(POSITION) != before, "the site dragged")
        program.xdotool("mouseup", 1)

    def still(self, program, name, role):
        """The middle of a control that the window manager no longer moves."""
        seen = []

        def settled():
            seen.append(program.point(program.find(name, role)))
            return seen[-1] if seen[-3:] == [seen[-1]] * 3 else None
        return program.until(settled, f"{name} in its place")

    def pick_zone(self, program):
        """Zone IX on the map of Japan."""
        program.press(ZONE_BUTTON)
        program.until(lambda: program.dialogs() == [ZONE_BUTTON], "the dialog of the zones")
        program.settled_geometry(ZONE_BUTTON)
        map_of_japan = program.point(program.find("平面直角座標系の区域図", ROLE.FILLER))
        program.click_at(map_of_japan[0] + 26, map_of_japan[1] - 52)
        program.until(lambda: any(node.get_name().startswith("適用区域 東京都") for node in program.nodes()), "zone IX")
        program.press("OK")
        program.until(lambda: program.cell(ZONE, 0, 0) == "IX (9)" and not program.dialogs(), "the zone")

    def expect_failed_run(self, hands, wave):
        """A run that does not converge tells what it came to, and nothing of it is kept but the line of its fit."""
        program = hands.program
        self.set_check(hands, SEEDS, wave, 6)
        hands.touch(SEEDS, wave, 7)
        program.box(NO_FIT)
        details = [node.get_name() for node in program.nodes() if node.get_name().startswith("繰り返し ")]
        told = self.command("adjust", "--seed", RECORDS[wave], "--target", tools.bin / "LowSpec/h17.csv", "--json")
        self.assertEqual(told.returncode, 3)
        run = json.loads(told.stdout)
        self.assertEqual(details, [f"繰り返し {run['passes']} 回で収束しませんでした（最後の偏差 {run['error'] * 100:.2f} %）。\n"
                                   "繰り返し回数と収束判定は「波形調整設定」で設定します。"])
        program.screenshot("guideline_failed_run")
        program.press("OK")
        self.until_check(hands, SEEDS, wave, 7, False)
        program.until(lambda: self.fit_line(program).startswith(f"適合度 「{NAMES[wave]}」　収束しなかった計算：偏差（RMS） "
                                                                f"{run['error'] * 100:.2f} %"), "the fit of the failed run")

    def fit_line(self, program):
        return next((node.get_name() for node in program.nodes() if "偏差（RMS） " in node.get_name()), "")

    def test_the_whole_road_by_the_pointer(self):
        hands = self.begin_road(Pointer)
        program = hands.program
        self.assertEqual(self.enabled_steps(program), [FIELD, CHECK])
        program.click_cell(POSITION, 0, 0)
        program.until(lambda: (program.focused() or ("", ""))[1] == POSITION, "focus on the position")
        self.type_site(program)
        self.drag_site(program)
        self.pick_zone(program)
        program.screenshot("guideline_field")
        self.fix_procedure(hands)
        self.assertEqual(self.enabled_steps(program), [*STEPS, PRINT])
        self.register(hands)
        program.screenshot("guideline_waves")
        self.mark_neighbours(hands)
        program.screenshot("guideline_neighbours")
        self.acquire(hands)
        program.screenshot("guideline_faults")
        self.attenuate(hands)
        program.screenshot("guideline_attenuation")
        self.set_limit(hands)
        program.screenshot("guideline_limit")
        self.choose_base(hands)
        program.screenshot("guideline_base")
        self.go(hands, ADJUST)
        self.expect_failed_run(hands, FITS_NOT)
        self.set_check(hands, SEEDS, FITS, 6)
        self.adjust(hands)
        program.until(lambda: self.fit_line(program).startswith(f"適合度 「{NAMES[FITS]}」　偏差（RMS） "), "the fit")
        program.screenshot("guideline_adjusted")
        self.go(hands, VISUAL)
        for kind in KINDS:
            program.press(kind)
            program.find(f"グラフ ({kind})")
            program.screenshot(f"guideline_visual_{KINDS.index(kind)}")
        target = tools.bin / "LowSpec/h17.csv"
        self.expect_same(self.export(hands, EXPORT_ADJUSTED, "adjusted.csv"), self.adjusted_by_command(RECORDS[FITS], target),
                         "adjusted wave")
        seed = self.export(hands, EXPORT_SEED, "seed.csv")
        for command, exported in (("response", seed[1]), ("fourier", seed[2])):
            out = self.desktop.folder / f"{command}.csv"
            self.assertEqual(self.command(command, RECORDS[FITS], "--out", out).returncode, 0)
            self.expect_same(exported, out.read_bytes(), command)
        self.close(program, NO)

    @long_case
    def test_the_whole_road_by_the_keyboard_alone(self):
        hands = self.begin_road(Keys)
        program = hands.program
        hands.go_to(POSITION, 0, 0)
        self.type_site(program)
        program.focus(ZONE_BUTTON)
        program.keys("space")
        program.until(lambda: program.dialogs() == [ZONE_BUTTON], "the dialog of the zones")
        program.settled_geometry(ZONE_BUTTON)
        program.keys(*["Down"] * 6, "space")
        program.focus("OK")
        program.keys("space")
        program.until(lambda: program.cell(ZONE, 0, 0) == "VII (7)" and not program.dialogs(), "the zone")
        self.whole_road(hands)
        program.until(lambda: self.fit_line(program).startswith(f"適合度 「{NAMES[FITS]}」　偏差（RMS） "), "the fit")
        self.go(hands, VISUAL)
        self.expect_same(self.export(hands, EXPORT_ADJUSTED, "keys.csv"),
                         self.adjusted_by_command(RECORDS[FITS], tools.bin / "LowSpec/h17.csv"), "adjusted wave")
        project = self.desktop.folder / "keys.trml"
        program.keys("alt+f")
        program.find("上書き保存(S)")
        program.keys("s")
        program.choose_file("名前を付けて保存", project)
        program.until(lambda: program.title().startswith(project.name), "title")
        program.keys("alt+f")
        program.find("アプリケーションの終了(X)")
        program.keys("x")
        self.assertEqual(program.wait_for_end(), 0)
        shown = self.shown_project(project)
        self.assertEqual((shown["seedAdoptedName"], shown["baseSpectrumName"]), (NAMES[FITS], H17_NAME))

    def test_the_whole_road_over_the_accessibility_bus(self):
        hands = self.begin_road(Bus)
        program, pointer = hands.program, self.desktop.run("xdotool", "getmouselocation")
        self.whole_road(hands)
        self.assertEqual(self.desktop.run("xdotool", "getmouselocation"), pointer)
        for step in STEPS:
            self.go(hands, step)
            self.assertEqual(program.nameless(), [], step)
            if step == FAULTS:
                self.open_attenuation(hands)
                self.assertEqual(program.nameless(), [], ATTENUATION)
        self.expect_same(self.export(hands, EXPORT_ADJUSTED, "adjusted.csv"),
                         self.adjusted_by_command(RECORDS[FITS], tools.bin / "LowSpec/h17.csv"), "adjusted wave")
        self.close(program, NO)

    def test_a_plane_as_the_base_spectrum(self):
        hands = self.begin_road(Bus)
        program = hands.program
        self.fix_procedure(hands)
        self.register(hands, (FITS,))
        self.acquire(hands)
        self.attenuate(hands, plane=6)
        label = "(等価震源距離)(1)糸魚川-静岡構造線断層帯（北部）"
        self.choose_base(hands, label)
        self.adopt(hands)
        self.assertEqual(program.rows(TARGET)[0][:2], [FAULTS, label])
        self.adjust(hands)
        self.save(program)
        self.go(hands, VISUAL)
        adjusted = self.export(hands, EXPORT_ADJUSTED, "adjusted.csv")
        shown = self.shown_project(self.desktop.folder / "road.trml")
        self.assertEqual(shown["baseSpectrumName"], label)
        fault = shown["faults"][6]
        target = self.desktop.folder / "target.csv"
        target.write_text("plane,0.01,1\n" + "".join(f"{period!r},{value!r}\n" for period, value in zip(
            fault["equivalentPeriods"][0], fault["equivalentSpectrum"][0])))
        self.expect_same(adjusted, self.adjusted_by_command(RECORDS[FITS], target), "adjusted wave")
        self.close(program, NO)


    # --- saving, opening, ending badly

    def work(self):
        """The road in the pieces between which a project is saved."""
        return [self.fix_procedure, self.register, self.mark_neighbours, self.acquire, self.attenuate, self.set_limit,
                self.choose_base, self.adopt, self.adjust_adopted]

    def adjust_adopted(self, hands):
        self.go(hands, ADJUST)
        self.adjust(hands)

    def steps_open(self, piece):
        """Behind so many pieces of the road those steps that let one in."""
        gates = {NEAR: 1, ADJUST: 6, VISUAL: 7}
        return [step for step in STEPS if piece >= gates.get(step, 0)]

    def leave(self, program):
        """Closes the window; what reading the screens has computed is not saved."""
        program.close_window()
        if program.process.poll() is None:
            program.act_on(NO)
        self.assertEqual(program.wait_for_end(), 0)

    def road_in_sittings(self, hands, first, last):
        """From piece to piece: saves, reads every screen that opens, leaves, and finds it all again in a fresh process, which
        goes on with the next piece."""
        for piece, work in list(enumerate(self.work()))[first:last]:
            with self.subTest(piece=work.__name__):
                work(hands)
                saved = self.save(hands.program)
                enabled, open_steps = self.enabled_steps(hands.program), self.steps_open(piece)
                shown = self.all_contents(hands, open_steps)
                self.leave(hands.program)
                hands = self.open_road(self.desktop.folder / "road.trml", Bus)
                self.assertEqual(self.enabled_steps(hands.program), enabled)
                self.expect_same(self.save(hands.program), saved, "saved again")
                again = self.all_contents(hands, open_steps)
                self.assertEqual(list(again), list(shown))
                for step in shown:
                    self.assertEqual(again[step], shown[step], step)
        self.leave(hands.program)

    @long_case
    def test_every_sitting_with_the_waves_goes_on_where_the_last_was_left(self):
        self.road_in_sittings(self.begin_road(Bus), 0, 3)

    def road_up_to(self, piece):
        hands = self.begin_road(Bus)
        for work in self.work()[:piece]:
            work(hands)
        return hands

    @long_case
    def test_every_sitting_with_the_faults_goes_on_where_the_last_was_left(self):
        self.road_in_sittings(self.road_up_to(3), 3, 5)

    @long_case
    def test_every_sitting_with_the_base_goes_on_where_the_last_was_left(self):
        self.road_in_sittings(self.road_up_to(5), 5, 7)

    @long_case
    def test_every_sitting_at_the_adjustment_goes_on_where_the_last_was_left(self):
        self.road_in_sittings(self.road_up_to(7), 7, 9)

    @long_case
    def test_a_kill_at_any_step_loses_nothing_that_was_saved(self):
        hands = self.begin_road(Bus)
        project, pieces = self.desktop.folder / "road.trml", self.work()
        for number, work in enumerate(pieces):
            work(hands)
            saved = self.save(hands.program)
            enabled = self.enabled_steps(hands.program)
            if number + 1 < len(pieces):
                pieces[number + 1](hands)  # not saved
            hands.program.process.kill()
            hands.program.wait_for_end()
            self.expect_same(project.read_bytes(), saved, "the file")
            hands = self.open_road(project, Bus)
            self.assertEqual(self.enabled_steps(hands.program), enabled)
            self.expect_same(self.save(hands.program), saved, "saved again")
        self.leave(hands.program)

    # --- what the command line shows of the project

    def test_the_command_line_shows_what_the_screens_show(self):
        hands = self.begin_road(Bus)
        program = hands.program
        for table, texts in (("業務情報", ("Check", "Part 1", "2026-11-22", "Company", "0120", "99")),
                             ("現場情報", ("Dam", "Ishikawa")), ("コメント", ("first", "second"))):
            hands.go_to(table, 0, 0)
            for row, text in enumerate(texts):
                program.type(text)
                program.keys("Return")
                program.until(lambda: program.cell(table, row, 0) == text, text)
        hands.go_to(POSITION, 0, 0)
        self.type_site(program)
        self.whole_road(hands)
        self.save(program)
        told = self.all_contents(hands)
        self.save(program)
        shown = self.shown_project(self.desktop.folder / "road.trml")
        ShownProject(self, shown).expect(told)
        self.leave(program)

    # --- commands on the way

    def command_of_menu(self, program, name):
        program.act(program.action_of(name))

    def declined(self, hands, name, *answers):
        """Gives a command, answers its questions, the last with No, and finds the project as it was saved."""
        program, saved = hands.program, (self.desktop.folder / "road.trml").read_bytes()
        self.command_of_menu(program, name)
        for question, button in answers:
            program.until(lambda: any(node.get_name().startswith(question) for node in program.nodes()), question)
            hands.press(button)
            program.until(lambda: not any(node.get_name().startswith(question) for node in program.nodes()), "answered")
        program.until(lambda: not program.dialogs(), "nothing more asked")
        self.expect_same(self.save(program), saved, name)

    def test_the_conditions_of_the_service_on_the_way(self):
        hands = self.road_up_to(5)
        program = hands.program
        plane = "(最短距離)森本・富樫断層帯"
        self.choose_base(hands, plane)
        self.adopt(hands)
        self.save(program)
        self.declined(hands, API, (HAS_FAULTS, NO))
        self.declined(hands, API, (HAS_FAULTS, YES), (BASE_CHOSEN.format(plane), NO))
        self.go(hands, FAULTS)
        self.declined(hands, API, (HAS_FAULTS, NO))
        self.command_of_menu(program, API)
        program.until(lambda: any(node.get_name().startswith(HAS_FAULTS) for node in program.nodes()), "question")
        hands.press(YES)
        program.box(BASE_CHOSEN.format(plane))
        hands.press(YES)
        program.until(lambda: program.dialogs() == [API], "the dialog")
        self.assertEqual(program.nameless(), [])
        program.screenshot("guideline_conditions")
        hands.press("キャンセル")
        program.until(lambda: not program.dialogs() and program.rows(FOUND) == [], "no faults")
        self.save(program)
        shown = self.shown_project(self.desktop.folder / "road.trml")
        self.assertEqual((shown["faults"], shown["baseSpectrumName"], shown["seedAdopted"]), ([], "", False))
        # Without faults the dialog comes at once.
        self.command_of_menu(program, API)
        program.until(lambda: program.dialogs() == [API], "the dialog")
        hands.press("OK")
        program.until(lambda: not program.dialogs(), "dialog closed")
        self.leave(program)

    @long_case
    def test_the_settings_of_the_adjustment_on_the_way(self):
        hands = self.road_up_to(9)
        program = hands.program
        self.save(program)
        self.declined(hands, SETTINGS, (ADJUSTED, NO))
        self.command_of_menu(program, SETTINGS)
        program.box(ADJUSTED)
        hands.press(YES)
        program.until(lambda: program.dialogs() == ["振幅調整の設定"], "the dialog")
        self.assertEqual(program.nameless(), [])
        program.screenshot("guideline_settings")
        self.assertEqual((program.text("繰り返し回数"), program.text("収束判定")), ("100", "5.00"))
        hands.press("OK")
        program.until(lambda: not program.dialogs() and not self.is_on(program, SEEDS, FITS, 7), "the result is gone")
        self.assertTrue(self.is_on(program, SEEDS, FITS, 6), "the adoption stays")
        self.save(program)
        wave = self.shown_project(self.desktop.folder / "road.trml")["seedWaves"][FITS]
        self.assertEqual((wave["adjusted"], wave["adjustedAcc"], wave["adopted"]), (False, [], True))
        self.adjust(hands)  # again
        self.leave(program)

    @long_case
    def test_new_and_open_on_the_way(self):
        hands = self.road_up_to(9)
        program, project = hands.program, self.desktop.folder / "road.trml"
        saved = self.save(program)
        self.set_check(hands, SEEDS, THIRD, 5, False)
        for command in (route.NEW, route.OPEN):
            self.command_of_menu(program, command)
            if command == route.OPEN:
                program.choose_file("開く", project)
            program.box(route.UNSAVED.format(project.name))
            hands.press("キャンセル")
            program.until(lambda: not program.dialogs(), "question closed")
            self.assertFalse(self.is_on(program, SEEDS, THIRD, 5))
        self.command_of_menu(program, route.NEW)
        program.box(route.UNSAVED.format(project.name))
        hands.press(NO)
        program.act_on(TOP, ROLE.RADIO_BUTTON)
        hands.press("OK")
        program.until(lambda: program.title().startswith("無題"), "a new project")
        self.at(program, FIELD)
        self.assertEqual(self.enabled_steps(program), [FIELD, CHECK])
        self.expect_same(project.read_bytes(), saved, "the file")
        self.command_of_menu(program, route.OPEN)
        program.choose_file("開く", project)
        program.until(lambda: program.title().startswith(project.name), "the project again")
        self.at(program, FIELD)
        self.assertEqual(self.enabled_steps(program), [*STEPS, PRINT])
        self.expect_same(self.save(program), saved, "saved again")
        # Yes saves what was changed.
        self.go(hands, ADJUST)
        self.set_check(hands, SEEDS, THIRD, 5, False)
        self.command_of_menu(program, route.NEW)
        program.box(route.UNSAVED.format(project.name))
        hands.press(YES)
        program.until(lambda: program.look(TOP, ROLE.RADIO_BUTTON), "top screen")
        self.assertFalse(self.shown_project(project)["seedWaves"][THIRD]["adjustShow"])
        program.act_on(TOP, ROLE.RADIO_BUTTON)
        hands.press("OK")
        self.at(program, FIELD)
        self.leave(program)

    def test_the_way_without_the_services(self):
        hands = self.road_up_to(4)
        program = hands.program
        saved = self.save(program)
        self.go(hands, FAULTS)
        self.command_of_menu(program, "オンライン")
        program.until(lambda: program.title().endswith("(オフライン)"), "offline")
        program.until(lambda: not states(program.find(ACQUIRE)).contains(STATE.ENABLED), "nothing to acquire")
        program.find("オフラインではデータを取得できません。")
        self.expect_same(self.save(program), saved, "saved again")
        for work in self.work()[4:]:
            work(hands)
        self.command_of_menu(program, "オンライン")
        program.until(lambda: not program.title().endswith("(オフライン)"), "online")
        self.go(hands, FAULTS)
        program.until(lambda: states(program.find(ACQUIRE)).contains(STATE.ENABLED), "the service again")
        self.leave(program)

    # --- at a bad time

    def every_command(self, program):
        """The actions of the menu and of the steps."""
        return [program.action_of(name) for name in
                (route.NEW, route.OPEN, route.SAVE_AS, "アプリケーションの終了(X)", API, SETTINGS, "オンライン", *STEPS)]

    @long_case
    def test_no_command_gets_in_front_of_an_acquisition_or_a_run(self):
        hands = self.road_up_to(3)
        program = hands.program
        self.go(hands, FAULTS)
        commands = self.every_command(program)
        acquire = program.action_of(ACQUIRE)
        self.desktop.wish("ranking=trickle:1")
        program.act(acquire, acquire)
        program.until(lambda: program.dialogs() == [RUNNING], "acquisition")
        self.desktop.wish()
        program.act(*commands, acquire)
        program.screenshot("guideline_acquisition")
        program.answer(UNKNOWN_FAULT)
        program.until(lambda: not program.dialogs() and len(program.rows(FOUND)) == PLANE_ROWS, "faults")
        self.at(program, FAULTS)
        self.assertEqual(len(self.desktop.asked("/fltinfo.geojson")), 10)  # once for each fault
        for work in self.work()[5:8]:
            work(hands)
        commands = self.every_command(program)
        cell = hands.cell(SEEDS, FITS, 7)
        program.act((cell.app.bus_name, cell.path))
        program.until(lambda: program.has_window(RUNNING), "run")
        program.act(*commands)
        self.assertIn(program.dialogs(), ([RUNNING], []))
        self.until_check(hands, SEEDS, FITS, 7)
        self.at(program, ADJUST)
        self.assertTrue(program.title().startswith("無題"))
        self.leave(program)

    @long_case
    def test_a_kill_in_an_acquisition_or_a_run_loses_nothing_that_was_saved(self):
        hands = self.road_up_to(3)
        project, program = self.desktop.folder / "road.trml", hands.program
        saved = self.save(program)
        self.go(hands, FAULTS)
        self.desktop.wish("model=stall")
        hands.press(ACQUIRE)
        program.until(lambda: program.dialogs() == [RUNNING] and self.desktop.asked("/fltinfo.geojson"), "acquisition")
        program.process.kill()
        program.wait_for_end()
        self.desktop.wish()
        self.expect_same(project.read_bytes(), saved, "the file")
        hands = self.open_road(project, Bus)
        for work in self.work()[3:8]:
            work(hands)
        saved = self.save(hands.program)
        hands.touch(SEEDS, FITS, 7)
        hands.program.until(lambda: hands.program.has_window(RUNNING), "run")
        hands.program.process.kill()
        hands.program.wait_for_end()
        self.expect_same(project.read_bytes(), saved, "the file")
        hands = self.open_road(project, Bus)
        self.expect_same(self.save(hands.program), saved, "saved again")
        self.adjust_adopted(hands)
        self.leave(hands.program)

    @long_case
    def test_a_failing_service_is_told_and_leaves_the_way_free(self):
        hands = self.road_up_to(3)
        program = hands.program
        self.go(hands, FAULTS)
        for wish, told in (("ranking=status:503", GRAMMAR), ("ranking=garbage", GRAMMAR), ("ranking=cut", None), ("all=drop", None),
                           ("ranking=file:fltsearch_error.json", NO_FAULTS)):
            asked = len(self.desktop.asked("/fltsearch"))
            self.desktop.wish(wish)
            hands.press(ACQUIRE)
            if told:
                program.box(told)
                hands.press("OK")
            program.until(lambda: len(self.desktop.asked("/fltsearch")) > asked, f"{wish} asked for")
            self.at(program, FAULTS)
            self.assertEqual(program.rows(FOUND), [], wish)
            # A connection that fails is told on the screen alone.
            if told != NO_FAULTS:
                program.until(lambda: any("断層の順位を取得できませんでした。" in text for text in program.shown()), wish)
        self.desktop.wish()
        self.acquire(hands)
        for work in self.work()[4:]:
            work(hands)
        self.leave(program)

    # --- keys

    def stops(self, program, step):
        """Names of the controls of a screen that take the focus, in no order. The edit of a combo box counts as the box."""
        return {node.get_name() for node in program.walk(self.screen(program, step))
                if states(node).contains(STATE.FOCUSABLE) and states(node).contains(STATE.ENABLED)
                and node.get_parent().get_role() != ROLE.COMBO_BOX}

    def expect_round(self, program, step):
        """The tab key goes round through every control of the screen and the pane; none keeps it."""
        wanted, seen = self.stops(program, step) | set(STEPS), []
        self.assertNotIn("", wanted)
        for _ in range(2 * len(wanted) + 10):
            program.leave(program.focused())
            seen.append(program.until(program.focused, "a focus"))
            if seen.count(seen[0]) > 1:
                break
        reached = {stop[1] for stop in seen}
        self.assertEqual(wanted - reached, self.grouped(program, reached), step)

    def grouped(self, program, reached):
        """Of a group of switches the tab key stops at one; the arrows reach the others."""
        groups = ({*KINDS}, {"現場位置に影響の大きい断層を取得", "探索範囲内の断層を取得"})
        return {name for group in groups if group & reached for name in group - reached}

    @long_case
    def test_the_tab_key_goes_round_through_every_screen(self):
        hands = self.road_up_to(9)
        program = hands.program
        for step in STEPS[2:]:
            self.go(hands, step)
            self.expect_round(program, step)
            if step == FAULTS:
                self.open_attenuation(hands)
                self.expect_round(program, step)
        self.leave(program)

    @long_case
    def test_no_key_changes_a_grid_of_switches(self):
        hands = self.road_up_to(9)
        program = hands.program
        saved = self.save(program)
        for step, table in ((NEAR, NEIGHBOURS), (FAULTS, FOUND), (FAULTS, PLANES), (LOWER, LIMITS), (BASE, CANDIDATES),
                            (ADJUST, SEEDS)):
            self.go(hands, step)
            if table == PLANES:
                self.open_attenuation(hands)
            rows = program.rows(table)
            hands.go_to(table, 0, 1)
            program.keys("ctrl+a", "ctrl+c", "Delete", "ctrl+x", "ctrl+v", "Insert", "ctrl+Insert", "x", "1", "F2", "Escape",
                         "Return", "space", "End", "ctrl+v", "Home", "Page_Down", "shift+Up", "Delete")
            hands.go_to(table, 0, 0)
            self.assertEqual(program.rows(table), rows, table)
            self.assertEqual(program.dialogs(), [], table)
        self.expect_same(self.save(program), saved, "saved again")
        self.leave(program)

    # --- looks

    def screens_look(self, name):
        """Pictures of all screens of a project; at other scales than 1 the bus does not tell where a control is seen."""
        hands = self.begin_road(Bus)
        program = hands.program
        self.whole_road(hands)
        for step in STEPS:
            self.go(hands, step)
            program.screenshot(f"{name}_{STEPS.index(step)}")
            if step == FAULTS:
                self.open_attenuation(hands)
                program.screenshot(f"{name}_attenuation")
        hands.press(SPECTRUM)
        program.find(f"グラフ ({SPECTRUM})")
        program.screenshot(f"{name}_spectrum")
        self.leave(program)

    @long_case
    def test_the_screens_at_scale_1_5(self):
        self.desktop.env["QT_SCALE_FACTOR"] = "1.5"
        self.screens_look("scale_1_5")

    @long_case
    def test_the_screens_at_scale_2(self):
        self.desktop.env["QT_SCALE_FACTOR"] = "2"
        self.screens_look("scale_2")

    @long_case
    def test_the_screens_on_a_dark_desktop(self):
        self.desktop.env["TREMLO_TEST_DARK"] = "1"
        self.screens_look("dark")


if __name__ == "__main__":
    route.main(GuidelineRoute)
