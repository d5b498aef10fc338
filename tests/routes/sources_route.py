#!/usr/bin/env python3
"""The faults and their spectra in a real window, against the local service."""

import csv
import json
import pathlib
import sys
import urllib.parse

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from driver import ROLE, STATE, states  # noqa: E402
from xserver import XServer  # noqa: E402
import project_file  # noqa: E402
import route  # noqa: E402
from route import NEW, OPEN, SAVE_AS, long_case  # noqa: E402
from source_steps import (  # noqa: E402
    ACQUIRE, BACK, BASE, CANCEL, DATA, FAULTS, FAULT_GRID, FIELD, GRAMMAR, LIMIT, METHOD, MODEL, NOTHING_OF,
    NO_MAIN_FAULT, OFFLINE_TEXT, OK, ONLINE, PARAMETERS, PLANE_GRID, RANGE, RANGE_EDIT, RANKING, REFER,
    RELATIONS, RELATION_GRID, RUNNING, SEARCH, SECOND, SHOW_ALL, SHOW_NONE, UNKNOWN, USE_ALL, USE_NONE,
    WITHOUT_PLANES, YES, base_question, parameters_question, plane_names, SourceSteps)


class SourcesRoute(SourceSteps):
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

    @long_case
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

    @long_case
    def test_nothing_gets_in_front_of_an_acquisition(self):
        self.plant(faults=True)
        program = self.open_fault_screen()
        before = self.saved(program)
        names = (NEW, OPEN, SAVE_AS, "アプリケーションの終了(X)", PARAMETERS, ONLINE, "地図画像キャッシュのクリア",
                 "バージョン情報(A)...", FIELD, LIMIT, BASE, METHOD, ACQUIRE, SECOND, RANGE, "この画面の説明")
        commands = [program.action_of(name) for name in names]
        self.desktop.wish("ranking=trickle:4")  # longer than all that follows
        self.hold(program)
        self.until_text(program, "断層の一覧")
        program.screenshot("sources_acquisition")
        size = program.geometry(RUNNING)
        program.act(*commands, *commands)
        program.keys("Escape", "Return", "space", "alt+F4")
        with XServer(self.desktop.env["DISPLAY"]) as server:
            server.ask_to_close(int(program.window_of("sources.trml - Tremlo.*")))
        self.assertEqual(program.dialogs(), [RUNNING])
        self.assertEqual(program.geometry(RUNNING), size)
        self.assertEqual(self.project.read_bytes(), before)
        program.answer(UNKNOWN)
        program.until(lambda: self.is_idle(program), "end of the acquisition")
        program.until(lambda: len(self.grid(program, FAULT_GRID)) == 13, "faults")
        self.activate(program)
        # Behind it the window works as before, and an answer that never comes ends it too.
        self.desktop.wish("ranking=stall")
        self.acquire(program)
        self.until_grid(program, FAULT_GRID, [])
        self.desktop.wish()
        self.acquire(program, UNKNOWN)
        self.assertTrue(self.is_online(program))
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

    @long_case
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
        for typed, shown, stored in (("0", "0", 0.0), ("-7", "-7", -7.0), ("007", "7", 7.0),
                                     ("2147483648", "2147483648", 2147483648.0),
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
            program.until(lambda: program.dialogs() == [PARAMETERS] and (program.focused() or ("", ""))[1] == self.WEIGHT,
                          "the edit again")
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
        planes = [(number, plane) for number, fault in enumerate(faults) for plane in range(fault["geomNum"])]
        self.expect_spectra(stored, *planes)
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

    @long_case
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
            ("use", lambda program: self.click_cell(program, PLANE_GRID, 2, 9),
             lambda project: project["faults"][2]["attenUse"] == [False]),
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


if __name__ == "__main__":
    route.main(SourcesRoute)
