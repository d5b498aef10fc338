#!/usr/bin/env python3
"""The response route in a real window, from the seed wave to the file of the adjusted wave."""

import pathlib
import resource
import signal
import struct
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import Desktop, wait_until  # noqa: E402
from driver import ROLE, STATE, Atspi, states  # noqa: E402
from hands import Keys  # noqa: E402
import route  # noqa: E402
from route import NEW, OPEN, ROOT, SAVE_AS, UNSAVED, limits_memory, tools  # noqa: E402

RECORD = ROOT / "samples/waves/hses_2016_n80w_0005_8192.csv"
OTHER_RECORD = ROOT / "samples/waves/elcentro_1940_ns.csv"
SEED, TARGET, RESULT = "原種波形設定", "調整用スペクトル設定", "可視化"
READ_WAVE, READ_TARGET = "波形データ読込", "加速度応答スペクトル読込"
EXPORT_SEED, EXPORT_ADJUSTED = "原種波形の出力", "調整後波形の出力"
RUNNING = "計算中"
IMPORT, MEMBERS, MEMBER_GRID = "記録の読込", "書庫のファイルの選択", "書庫のファイル"
NO_SEED = "原種波形が設定されていません。"
NO_TARGET = "調整用スペクトルのデータがありません。"
BAD_NAME = "地震波形名の入力エラーです。"
BAD_STEP = "時間間隔の入力エラーです。"
NO_FIT = "地震波形調整の計算に失敗しました。"
COMMANDS = (NEW, OPEN, SAVE_AS, "アプリケーションの終了(X)", "波形調整設定", "バージョン情報(A)...", SEED, TARGET, RESULT)
REPORT, REPORT_TITLE = "報告書の出力(PDF)...", "報告書の出力(PDF)"
SETTINGS, AUTOMATIC = "描画設定", "各グラフの自動調整を有効にする"
SMALL_SCREEN = "1024x768x24"


class ResponseRoute(route.Route):
    def make_desktop(self):
        return Desktop(SMALL_SCREEN) if "graph_settings" in self._testMethodName else Desktop()

    def setUp(self):
        super().setUp()
        self.target = tools.bin / "LowSpec/h20_h.csv"

    # --- steps of a person's work

    def start(self, *arguments, **kwargs):
        program = self.launch(*arguments, **kwargs)
        if not arguments:
            program.find("加速度応答スペクトルへの調整")
            program.screenshot("top")
            self.begin(program, "加速度応答スペクトルへの調整")
        program.find(READ_WAVE)
        return program

    def read_wave(self, program, path):
        program.press(READ_WAVE)
        program.choose_file(READ_WAVE, path)

    def read_record(self, program, path=RECORD):
        before = program.text("波形名")
        self.read_wave(program, path)
        program.until(lambda: program.text("波形名") != before, "wave read")

    def read_target(self, program):
        program.press(TARGET)
        program.press(READ_TARGET)
        program.choose_file(READ_TARGET, self.target)
        program.until(lambda: program.text("スペクトル名").startswith("H20"), "spectrum read")

    def wait_for_result(self, program):
        program.find(EXPORT_ADJUSTED)
        program.until(lambda: not program.look(RUNNING), "the run's dialog closed")

    def export(self, program, what, name):
        path = self.desktop.folder / name
        program.press(what)
        program.choose_file(what, path)
        self.assertTrue(path.exists())
        return self.exported(path)

    def exported(self, path):
        """The bytes of the wave, its spectrum and its Fourier spectrum."""
        return [path.with_name(path.stem + part + ".csv").read_bytes() for part in ("", "_AccSpec", "_FFT")]

    def adjust_by_command(self, record):
        """Exit status and files of the command line on the same data."""
        out = self.desktop.folder / "command.csv"
        done = subprocess.run([tools.bin / "tremlo-cli", "adjust", "--seed", record, "--target", self.target, "--out", out],
                              env=self.desktop.env, capture_output=True)
        return done.returncode, self.exported(out) if out.exists() else None

    def spectrum_by_command(self, record):
        out = self.desktop.folder / "command_response.csv"
        subprocess.run([tools.bin / "tremlo-cli", "response", record, "--out", out], env=self.desktop.env, check=True,
                       capture_output=True)
        return out.read_bytes()

    # --- the cases

    def test_fits_a_record_and_keeps_it_in_a_project(self):
        program = self.start()
        self.assertEqual(program.title().rstrip(), "無題 - Tremlo Version1.00")
        self.read_record(program)
        self.assertEqual(program.text("データ数"), "8192")
        self.assertEqual(program.text("時間間隔"), "0.005")
        self.assertEqual(program.cell("波形データ", 1, 0), "0.005")
        program.press("周期－加速度応答スペクトル")
        program.find("グラフ (周期－加速度応答スペクトル)")
        program.screenshot("seed_spectrum")
        program.press("時間－加速度")
        program.find("グラフ (時間－加速度)")
        program.screenshot("seed")
        self.read_target(program)
        program.screenshot("target")
        program.press(RESULT)
        self.wait_for_result(program)
        program.screenshot("result_time")
        program.press("周期－加速度応答スペクトル")
        program.find("グラフ (周期－加速度応答スペクトル)")
        program.screenshot("result_spectrum")
        adjusted = self.export(program, EXPORT_ADJUSTED, "adjusted.csv")
        seed = self.export(program, EXPORT_SEED, "seed.csv")
        status, expected = self.adjust_by_command(RECORD)
        self.assertEqual(status, 0)
        self.assertEqual(adjusted, expected)
        self.assertEqual(seed[1], self.spectrum_by_command(RECORD))
        project = self.desktop.folder / "dam.trml"
        self.save_as(program, project)
        self.close(program)

        saved = project.read_bytes()
        program = self.start(project)
        program.until(lambda: program.title().startswith("dam.trml - Tremlo"), "title")
        self.assertEqual(program.text("データ数"), "8192")
        program.press(TARGET)
        program.until(lambda: program.text("スペクトル名").startswith("H20"), "spectrum of the file")
        program.press(RESULT)
        program.find(EXPORT_ADJUSTED)  # a run would have put its dialog before the screen
        self.assertIsNone(program.look(RUNNING))
        self.assertEqual(self.export(program, EXPORT_ADJUSTED, "again.csv"), expected)
        program.keys("ctrl+s")
        program.close_window()
        self.assertEqual(program.wait_for_end(), 0)
        self.assertEqual(project.read_bytes(), saved)

    def pages_of(self, report):
        """The texts of a PDF's pages without blanks, as another program reads them."""
        done = subprocess.run(["pdftotext", "-layout", report, "-"], env=self.desktop.env, check=True, capture_output=True)
        self.assertEqual(done.stderr, b"")
        pages = done.stdout.decode().split("\f")[:-1]
        return ["".join(page.split()) for page in pages]

    def file_menu(self, program):
        program.keys("alt+f")
        return program.until(lambda: program.look(REPORT, ROLE.MENU_ITEM), "the file menu")

    def test_the_report_tells_of_the_adjusted_wave(self):
        program = self.start()
        self.assertFalse(states(self.file_menu(program)).contains(STATE.ENABLED))
        program.keys("Escape", "Escape")
        self.read_record(program)
        self.read_target(program)
        program.press(RESULT)
        self.wait_for_result(program)
        project, report = self.desktop.folder / "dam.trml", self.desktop.folder / "dam.pdf"
        self.save_as(program, project)
        self.assertTrue(states(self.file_menu(program)).contains(STATE.ENABLED))
        program.screenshot("file_menu")
        program.keys(*["Down"] * 4, "Return")
        program.until(lambda: program.file_dialog(REPORT_TITLE), "the dialog of the report's file")
        program.until(lambda: program.text("ファイル名(N):") == "dam.pdf", "the name of the project proposed")
        program.choose_file(REPORT_TITLE, report)
        program.until(lambda: report.exists() and not program.dialogs(), "the report")
        pages = self.pages_of(report)
        self.assertIn("1目標スペクトル", "".join(pages))
        self.assertTrue(all(f"{number}/{len(pages)}" in page for number, page in enumerate(pages[1:], 2)))
        by_command = self.desktop.folder / "command.pdf"
        subprocess.run([tools.bin / "tremlo-report", project, by_command], env=self.desktop.env, check=True,
                       capture_output=True)
        self.assertEqual(self.pages_of(by_command), pages)
        self.assertEqual(report.read_bytes(), by_command.read_bytes())
        self.close(program)

    def test_a_record_that_does_not_fit_is_refused(self):
        program = self.start()
        self.read_record(program, OTHER_RECORD)
        self.read_target(program)
        program.press(RESULT)
        program.answer(NO_FIT)
        self.assertIsNotNone(program.look(READ_TARGET), "the screen before stays")
        self.assertEqual(self.adjust_by_command(OTHER_RECORD), (3, None))
        # Nothing of the run has been kept: the next press runs again and is refused again.
        program.press(RESULT)
        program.answer(NO_FIT)
        self.close(program, "いいえ(N)")

    def test_every_refusal_says_why_and_changes_nothing(self):
        program = self.start()
        self.refuse_entry(program, "波形名", "", BAD_NAME, "地震波形")
        self.refuse_entry(program, "時間間隔", "", BAD_STEP, "0.01")
        self.enter(program, "時間間隔", "0")
        program.press(RESULT)
        program.answer(NO_SEED)
        self.assertIsNotNone(program.look(READ_WAVE), "the screen before stays")
        self.read_record(program)
        program.press(TARGET)
        program.until(lambda: program.text("スペクトル名") == "基準スペクトル", "target screen")
        self.refuse_entry(program, "スペクトル名", "", BAD_NAME, "基準スペクトル")
        # The one row of a fresh target goes: a spectrum without values.
        program.focus("加速度応答スペクトル")
        program.keys("Delete")
        program.until(lambda: program.cell("加速度応答スペクトル", 0, 0) is None, "row deleted")
        program.press(RESULT)
        program.answer(NO_TARGET)
        self.assertIsNotNone(program.look(READ_TARGET), "the screen before stays")
        self.read_target(program)
        program.press(RESULT)
        self.wait_for_result(program)
        self.close(program, "いいえ(N)")

    def enter(self, program, edit, text):
        program.click(edit, [ROLE.TEXT])
        program.keys("ctrl+a", "BackSpace")
        if text:
            program.type(text)
        program.keys("Return")

    def refuse_entry(self, program, edit, text, message, before):
        self.enter(program, edit, text)
        program.answer(message)
        program.until(lambda: program.text(edit) == before, f"{edit} as before")

    def test_the_keyboard_alone_suffices(self):
        program = self.start()
        program.focus(READ_WAVE)
        program.keys("space")
        program.choose_file(READ_WAVE, RECORD)
        program.until(lambda: program.text("データ数") == "8192", "wave read")
        program.focus("時間－加速度")
        program.keys("Right")
        program.find("グラフ (周期－加速度応答スペクトル)")
        program.focus(TARGET)
        program.keys("space")
        program.focus(READ_TARGET)
        program.keys("space")
        program.choose_file(READ_TARGET, self.target)
        program.until(lambda: program.text("スペクトル名").startswith("H20"), "spectrum read")
        program.focus(RESULT)
        program.keys("space")
        self.wait_for_result(program)
        program.focus(EXPORT_ADJUSTED)
        program.keys("space")
        path = self.desktop.folder / "keys.csv"
        program.choose_file(EXPORT_ADJUSTED, path)
        self.assertEqual((0, self.exported(path)), self.adjust_by_command(RECORD))
        program.keys("alt+f")
        program.find("上書き保存(S)")
        program.keys("s")
        project = self.desktop.folder / "keys.trml"
        program.choose_file("名前を付けて保存", project)
        program.until(lambda: program.title().startswith(project.name), "title")
        program.keys("alt+f")
        program.find("アプリケーションの終了(X)")
        program.keys("x")
        self.assertEqual(program.wait_for_end(), 0)
        self.assertGreater(project.stat().st_size, 8192 * 8)

    def test_the_pointer_edits_the_grid_and_reads_the_graph(self):
        program = self.start()
        self.read_record(program)
        program.click_cell("波形データ", 2, 1, count=2)
        program.type("12.5")
        program.keys("Return")
        program.until(lambda: program.cell("波形データ", 2, 1) == "12.5", "value entered")
        program.open_cell_menu("波形データ", 2, 1)
        program.screenshot("menu")
        program.keys("Down", "Down", "Return")  # 末尾に挿入
        program.until(lambda: program.text("データ数") == "8193", "row added")
        program.point_at("グラフ")
        program.until(lambda: "gal" in program.status(), "values in the status bar")
        program.screenshot("pointed")
        self.close(program, "いいえ(N)")

    def open_graph_menu(self, program, *how):
        before = program.windows()
        program.xdotool(*how)
        program.until(lambda: program.windows() - before, "menu of the graph")

    def test_the_graph_goes_to_files_by_pointer_and_keys(self):
        program = self.start()
        self.read_record(program)
        curves, picture, page = (self.desktop.folder / f"graph.{ending}" for ending in ("csv", "png", "pdf"))
        graph = program.find("グラフ")
        self.open_graph_menu(program, "mousemove", *program.point(graph), "click", 3)
        program.screenshot("graph_menu")
        program.keys("Down", "Return")
        program.choose_file("画像をファイルに保存", picture)
        wait_until(picture.exists, "the picture")
        seen = Atspi.Component.get_extents(graph, Atspi.CoordType.SCREEN)
        self.assertEqual(struct.unpack(">II", picture.read_bytes()[16:24]), (2 * (seen.width - 4), 2 * (seen.height - 8)))
        program.focus("グラフ")
        self.open_graph_menu(program, "key", "Menu")
        program.keys("Down", "Down", "Return")
        program.choose_file("データをCSVで保存", curves)
        wait_until(curves.exists, "the curves")
        told, kept = (path.read_text("cp932").splitlines()[1:] for path in (curves, RECORD))
        self.assertEqual([float(line.split(",")[1]) for line in told], [float(line.split(",")[1]) for line in kept])
        self.open_graph_menu(program, "key", "shift+F10")
        program.keys("Down", "Return")
        program.choose_file("画像をファイルに保存", page)
        wait_until(page.exists, "the page")
        self.assertTrue(page.read_bytes().startswith(b"%PDF"))
        self.close(program, "いいえ(N)")

    def graph_settings_keep_their_size(self, scale):
        # All by keys and the actions of the bus: at other scales than 1 it does not tell where a control is seen.
        self.desktop.env["QT_SCALE_FACTOR"] = scale
        program = self.launch()
        program.act_on("加速度応答スペクトルへの調整", ROLE.RADIO_BUTTON)
        program.act_on("OK")
        program.act_on(SETTINGS)
        x, y, width, height = program.settled_geometry(SETTINGS)
        program.screenshot(f"settings_at_scale_{scale}")
        self.assertTrue(x >= 0 and y >= 0 and x + width <= 1024 and y + height <= 768, (x, y, width, height))
        # What the bus offers on the box acts: the fixed range takes the place of the automatic one.
        self.assertIn("時間 (sec)：0 ～ 20", program.description("グラフ"))
        program.act_on(AUTOMATIC, ROLE.CHECK_BOX)
        program.until(lambda: "時間 (sec)：0 ～ 30" in program.description("グラフ"), "the fixed range")
        self.assertEqual(program.settled_geometry(SETTINGS), (x, y, width, height))
        program.act_on("OK")
        program.until(lambda: not program.look(SETTINGS, ROLE.DIALOG), "dialog closed")
        program.close_window()
        program.until(program.has_box, "question about unsaved work")
        program.act_on("いいえ(N)")
        self.assertEqual(program.wait_for_end(), 0)

    def test_the_graph_settings_keep_their_size(self):
        self.graph_settings_keep_their_size("1")

    def test_the_graph_settings_keep_their_size_at_scale_1_5(self):
        self.graph_settings_keep_their_size("1.5")

    def test_the_graph_settings_keep_their_size_at_scale_2(self):
        self.graph_settings_keep_their_size("2")

    def test_numbers_typed_ahead_go_each_into_its_cell(self):
        program = self.start()
        self.read_record(program, self.long_record())
        # From here on every number that is taken makes the program compute for longer than a key takes.
        program.press("周期－加速度応答スペクトル")
        program.find("グラフ (周期－加速度応答スペクトル)")
        program.click_cell("波形データ", 0, 1)
        program.keys("1", "3", "Return", "1", "4", "Return", "1", "5", "Return", "1", "6", "Tab", "1", "7", "Return")
        program.until(lambda: program.cell("波形データ", 4, 1) == "17", "last number")
        self.assertEqual([program.cell("波形データ", row, 1) for row in range(5)], ["13", "14", "15", "16", "17"])
        program.screenshot("typed_ahead")
        self.close(program, "いいえ(N)")

    def test_records_come_in_by_the_keys_alone(self):
        records = ROOT / "tests/data/records"
        program = self.start()
        hands = Keys(program)

        # One component whose file says all.
        hands.press(READ_WAVE)
        program.choose_file(READ_WAVE, records / "knet/SMP0010001010000.EW")
        program.until(lambda: program.text("波形名") == "SMP001 EW", "record read")
        program.until(lambda: any("K-NET ASCII" in name for name in self.lines(program)), "line of the record")
        program.screenshot("record_line")

        # Of an archive one member: nothing is taken before the choice, and Escape leaves all as it was.
        for member, name in ((None, "SMP001 EW"), ("smph01 ew2", "SMPH01 EW2")):
            hands.press(READ_WAVE)
            program.choose_file(READ_WAVE, records / "knet/20000101000000.tar")
            program.until(lambda: program.dialogs() == [MEMBERS], "list of members")
            program.until(lambda: (program.focused() or ("", ""))[1] == "検索", "focus on the search")
            program.screenshot("record_members")
            if member is None:
                program.keys("Escape")
            else:
                program.type(member)
                program.until(lambda: len(program.rows(MEMBER_GRID)) == 1, "the search")
                program.keys("Return", "space")
                program.until(lambda: self.is_checked(program, MEMBER_GRID, 0), "member chosen")
                hands.press("OK")
            program.until(lambda: not program.dialogs() and program.text("波形名") == name, f"wave {name}")

        # Three components: the dialog, of whose list one is chosen and whose step is typed anew.
        hands.press(READ_WAVE)
        program.choose_file(READ_WAVE, records / "jma/SAMPLE_99901.csv")
        program.until(lambda: program.dialogs() == [IMPORT], "import dialog")
        program.until(lambda: self.is_checked(program, "成分", 0), "components")
        program.screenshot("record_import")
        self.assertEqual(program.nameless(), [])
        hands.touch("成分", 1, 0)
        program.until(lambda: self.is_checked(program, "成分", 1) and not self.is_checked(program, "成分", 0), "EW chosen")
        program.focus("時間間隔", [ROLE.TEXT])
        program.type("0.02")
        program.keys("Return")
        program.until(lambda: "0.02" in program.text("確認と警告"), "warning about the step")
        self.assertEqual(program.dialogs(), [IMPORT])
        program.keys("Return")
        program.until(lambda: not program.dialogs() and program.text("波形名").endswith("EW"), "component read")
        self.assertEqual(program.text("時間間隔"), "0.02")
        self.close(program, "いいえ(N)")

    def lines(self, program):
        return [node.get_name() for node in program.nodes() if node.get_role() == ROLE.LABEL]

    def is_checked(self, program, table, row):
        return states(Atspi.Table.get_accessible_at(program.find(table, ROLE.TABLE), row, 0)).contains(STATE.CHECKED)

    def test_every_control_has_a_name(self):
        program = self.start()
        for step in (SEED, TARGET, RESULT):
            if step == RESULT:
                self.read_target(program)
                program.press(SEED)
                self.read_record(program)
            program.press(step)
            if step == RESULT:
                self.wait_for_result(program)
            self.assertEqual(program.nameless(), [], step)
        self.close(program, "いいえ(N)")

    def test_a_kill_in_a_run_loses_nothing_that_was_saved(self):
        project = self.project_before_the_run("run.trml", self.long_record())
        saved = project.read_bytes()
        program = self.start(project)
        program.press(RESULT)
        program.find(RUNNING)
        program.screenshot("run")
        program.process.kill()
        program.wait_for_end()
        self.assertEqual(project.read_bytes(), saved)
        program = self.start(project)
        self.assertEqual(program.text("データ数"), "65536")
        self.close(program)

    def long_record(self):
        """The record that no run fits, over and over: a run long enough to be met at work."""
        head, *rows = OTHER_RECORD.read_text("cp932").splitlines()
        values = [row.split(",")[1] for row in rows]
        many = (values * (65536 // len(values) + 1))[:65536]
        path = self.desktop.folder / "long.csv"
        path.write_text("\n".join([head, *(f"{i * 0.02:.2f},{v}" for i, v in enumerate(many))]) + "\n", "cp932")
        return path

    def project_before_the_run(self, name, record=RECORD):
        program = self.start()
        self.read_record(program, record)
        self.read_target(program)
        project = self.desktop.folder / name
        self.save_as(program, project)
        self.close(program)
        return project

    def test_a_kill_in_a_save_keeps_the_former_file(self):
        project = self.project_before_the_run("save.trml")
        saved = project.read_bytes()
        program = self.start(project)
        self.enter(program, "波形名", "another name")
        # From here on the system ends the process where its file has grown to half a project.
        resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (len(saved) // 2, len(saved) // 2))
        program.keys("ctrl+s")
        self.assertEqual(program.wait_for_end(), -signal.SIGXFSZ)
        self.assertEqual(project.read_bytes(), saved)
        program = self.start(project)
        self.assertTrue(program.text("波形名").startswith("HSES"))
        self.close(program)

    def test_a_full_disk_keeps_the_former_file_and_the_work(self):
        project = self.project_before_the_run("full.trml")
        saved = project.read_bytes()
        program = self.start(project, preexec=lambda: signal.signal(signal.SIGXFSZ, signal.SIG_IGN))
        self.enter(program, "波形名", "another name")
        half = len(saved) // 2
        _, most = resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (half, most))
        program.keys("ctrl+s")
        program.until(program.has_box, "box about the disk")
        program.screenshot("full_disk")
        program.press("OK")
        self.assertEqual(project.read_bytes(), saved)
        resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (most, most))
        program.keys("ctrl+s")
        wait_until(lambda: project.read_bytes() != saved, "saved when there is room")
        self.close(program)
        program = self.start(project)
        self.assertEqual(program.text("波形名"), "another name")
        self.close(program)

    # --- commands at a bad time

    def all_commands(self, program):
        """The actions of every kind of command, also the first of the recent files."""
        recent = program.until(
            lambda: next((node.get_name() for node in program.everything() if ".trml" in node.get_name() and
                          node.get_role() == ROLE.MENU_ITEM), None), "recent file")
        return [program.action_of(name) for name in (*COMMANDS, recent)]

    def test_no_command_gets_in_front_of_a_run(self):
        other = self.project_before_the_run("other.trml", OTHER_RECORD)
        project = self.project_before_the_run("run.trml")
        saved = other.read_bytes()
        program = self.start(other)
        self.close(program)  # the newest of the recent files
        program = self.start(project)
        commands = self.all_commands(program)
        program.press(RESULT)
        program.until(lambda: program.has_window(RUNNING), "run")
        program.act(*commands, *commands)
        self.assertIn(program.dialogs(), ([RUNNING], []))  # the run may be over by now
        self.wait_for_result(program)
        program.screenshot("behind_run")
        self.assertEqual(program.dialogs(), [])
        self.assertTrue(program.title().startswith(project.name))
        self.assertEqual((0, self.export(program, EXPORT_ADJUSTED, "adjusted.csv")), self.adjust_by_command(RECORD))
        program.keys("ctrl+s")
        self.close(program)
        self.assertEqual(other.read_bytes(), saved)

    def test_a_run_is_made_once_however_often_it_is_asked_for(self):
        project = self.project_before_the_run("run.trml")
        program = self.start(project)
        step, new = program.action_of(RESULT), program.action_of(NEW)
        # A button acts a moment after its press: by then the top screen is up.
        program.act(step, step, new, step)
        program.find("加速度応答スペクトルへの調整")
        program.act(step)
        program.until(lambda: program.dialogs() == ["Tremlo"], "top screen alone")
        self.begin(program, "加速度応答スペクトルへの調整")
        program.until(lambda: program.title().startswith("無題"), "new project")
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(program.text("データ数"), "1")
        self.close(program)

    def test_no_command_gets_in_front_of_a_question_or_a_dialog(self):
        project = self.project_before_the_run("p.trml")
        program = self.start(project)
        commands = self.all_commands(program)
        program.act(program.action_of(OPEN))
        program.until(lambda: program.file_dialog("開く"), "file dialog")
        down = program.buttons_down()
        program.act(*commands)
        program.until(lambda: program.buttons_down() == down, "the presses behind the dialog")
        self.assertEqual(program.dialogs(), ["開く"])
        program.keys("Escape")
        program.until(lambda: not program.dialogs(), "file dialog closed")
        self.enter(program, "波形名", "changed")
        program.act(program.action_of(NEW))
        program.box(UNSAVED.format(project.name))
        down = program.buttons_down()
        program.act(*commands)
        program.until(lambda: program.buttons_down() == down, "the presses behind the question")
        self.assertEqual(program.dialogs(), ["Tremlo"])
        # The answer and more commands at once.
        program.act(program.action_of("キャンセル"), *(program.action_of(name) for name in (NEW, OPEN)))
        program.until(lambda: not program.dialogs(), "question closed")
        self.assertTrue(program.title().startswith(project.name))
        self.assertEqual(program.text("波形名"), "changed")
        self.assertEqual(program.text("データ数"), "8192")
        self.close(program, "いいえ(N)")

    def test_a_second_start_is_refused_and_the_first_goes_on(self):
        first = self.start()
        second = self.launch()
        second.box("既に起動されています。")
        second.press("OK")
        self.assertEqual(second.wait_for_end(), 0)
        self.assertEqual(first.text("波形名"), "地震波形")
        self.close(first)

    def test_a_start_asks_both_services(self):
        program = self.start()
        self.close(program)
        asked = self.desktop.service_log.read_text()
        self.assertIn("/map/api/fltsearch", asked)
        self.assertIn("/xyz/std/", asked)

    def test_nothing_but_the_recent_list_survives(self):
        program = self.start()
        self.read_record(program)
        self.save_as(program, self.desktop.folder / "p.trml")
        self.close(program)
        kept = [path.relative_to(self.desktop.folder) for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME")
                for path in (self.desktop.folder / name).rglob("*") if path.is_file()]
        self.assertEqual([str(path) for path in kept if "dconf" not in str(path)], ["XDG_CONFIG_HOME/Tremlo/Tremlo.ini"])

    @limits_memory
    def test_a_wave_that_no_memory_holds_is_told_and_changes_nothing(self):
        endless = self.desktop.folder / "endless.csv"
        endless.write_bytes(b"name, 0.01, 1\n" + b"\n" * (60 << 20))
        room = 1536 << 20
        program = self.start(preexec=lambda: resource.setrlimit(resource.RLIMIT_AS, (room, room)))
        self.read_record(program)
        self.read_wave(program, endless)
        program.answer("メモリが不足しているため、処理を中止しました。")
        self.assertTrue(program.text("波形名").startswith("HSES"))
        self.assertEqual(program.text("データ数"), "8192")
        self.assertEqual(program.cell("波形データ", 8191, 0), "40.955")
        self.close(program, "いいえ(N)")


if __name__ == "__main__":
    route.main(ResponseRoute)
