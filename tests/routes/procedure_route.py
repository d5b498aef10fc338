#!/usr/bin/env python3
"""Fixing the work procedure in a real window: by questions, by clicks on the chart, and changing it again."""

import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import Desktop, wait_until  # noqa: E402
from driver import ROLE, STATE, Atspi, states  # noqa: E402
from xserver import XServer  # noqa: E402
import route  # noqa: E402
from route import CHANGE_ASKED, NEW, OPEN, SAVE_AS, UNSAVED, long_case, tools  # noqa: E402

TOP = "指針に沿って解析波形を作成"
FIELD, CHECK = "現場設定", "作業手順の確認"
SITE = "現場位置に戻る"  # stands on the first screen
STEPS = ("波形登録", "現場近隣地震波形", "距離減衰式（断層）", "下限スペクトル", "基準スペクトル設定", "原種波形の振幅調整",
         "可視化", "印刷")
SIX = [step for step in STEPS if step not in ("現場近隣地震波形", "距離減衰式（断層）")]
QUESTIONS, CLICKS = "Q&Aで確認", "マウスクリックで確認"
FIX, CHANGE = "作業手順の確定", "作業手順の変更"
Q1, Q2, Q3, Q4 = (f"位相特性　Q{number}" for number in range(1, 5))
A1, A2, A3 = (f"振幅特性　Q{number}" for number in range(1, 4))
END = "フローチャートの確認"
LEAVE = "作業手順の確認中ですがよろしいですか？"
SECOND_GOES = "2つ目のYESのパスが消去されますがよろしいですか？"
YES, NO = "はい(Y)", "いいえ(N)"
ABOUT, ONLINE = "バージョン情報(A)...", "オンライン"
CURRENT, TAKEN, NOT_TAKEN = "現在の質問", "採用中", "未採用"
# The boxes of the chart as a screen reader names them, and their outlines in the chart's pixels.
BOXES = {
    "位相特性　Q1　対象ダムに地震計が設置されている": (296, 108, 250, 68),
    "位相特性　Q2　地震計が加速度波形を記録している": (296, 222, 250, 68),
    "位相特性　Q3　震度4以上または最大25gal以上の加速度波形が得られている": (296, 336, 250, 68),
    "位相特性　Q4　ダム周辺の断層・過去の地震動の資料を収集する": (24, 452, 226, 68),
    "振幅特性　Q1・Q2　ダム周辺に震源となりうる断層・プレート境界とそのデータがある": (642, 108, 260, 84),
    "振幅特性　Q3　ダム近隣・周辺の震度4以上の加速度波形が得られている": (642, 256, 260, 84),
    "原種波形": (354, 592, 134, 30),
    "基準スペクトル": (705, 450, 134, 30),
    "振幅調整": (705, 592, 134, 30),
}
CLICKED = list(BOXES)[1:6]
CHART = "作業フローチャート"
TWO_MONITORS = ((0, 0, 1280, 1024), (1280, 0, 1920, 1080))


class ProcedureRoute(route.Route):
    def make_desktop(self):
        if "second_monitor" in self._testMethodName:
            return Desktop("3200x1080x24", TWO_MONITORS)
        return Desktop("5120x1440x24") if "wide_monitor" in self._testMethodName else Desktop()

    # --- steps of a person's work

    def start(self, *arguments):
        program = self.launch(*arguments)
        if not arguments:
            self.begin(program, TOP)
        program.find(SITE)
        return program

    def start_questions(self, *arguments):
        program = self.start(*arguments)
        program.press(CHECK)
        program.press(QUESTIONS)
        self.question(program, Q1)
        return program

    def start_clicks(self, *arguments):
        program = self.start(*arguments)
        program.press(CHECK)
        program.press(CLICKS)
        program.find(FIX)
        return program

    def question(self, program, title):
        """Waits for the dialog of a question, the only one."""
        program.until(lambda: program.dialogs() == [title], f"question {title}")

    def reply(self, program, title, button):
        self.question(program, title)
        program.press(button)

    def replies(self, program, *pairs):
        for title, button in pairs:
            self.reply(program, title, button)

    def box_states(self, program):
        """The state of each box, in their order."""
        told = {node.get_name(): node.get_description() for node in program.nodes() if node.get_name() in BOXES}
        return [told.get(name) for name in BOXES]

    def expect_states(self, program, *looks):
        """Of the six boxes with a question; the other three have none."""
        program.until(lambda: self.box_states(program) == [*looks, "", "", ""], f"chart {looks}")

    def enabled_steps(self, program):
        told = {node.get_name(): states(node).contains(STATE.ENABLED) for node in program.nodes()
                if node.get_role() == ROLE.PUSH_BUTTON}
        return [step for step in STEPS if told[step]]

    def expect_steps(self, program, steps):
        program.until(lambda: self.enabled_steps(program) == list(steps), f"steps {steps}")

    def pressable_steps(self, program):
        """Of the eight steps behind the procedure those on which the bus offers an action."""
        return [node.get_name() for node in program.nodes() if node.get_name() in STEPS and node.get_n_actions() > 0]

    def highlight(self, program):
        return [node.get_name() for node in program.nodes() if node.get_description() == "現在の手順"]

    def expect_highlight(self, program, step):
        program.until(lambda: self.highlight(program) == [step], f"highlight on {step}")

    def chart_point(self, program, x, y):
        """A point of the chart on the screen."""
        box = Atspi.Component.get_extents(program.find(CHART), Atspi.CoordType.SCREEN)
        return box.x + x, box.y + y

    def click_chart(self, program, x, y):
        program.click_at(*self.chart_point(program, x, y))

    def click_box(self, program, number):
        left, top, width, height = BOXES[CLICKED[number - 1]]
        self.click_chart(program, left + width // 2, top + height // 2)

    def checked(self, program):
        """Which of the five boxes are taken, by their state for a screen reader."""
        told = {node.get_name(): states(node).contains(STATE.CHECKED) for node in program.nodes()}
        return [number for number, name in enumerate(CLICKED, 1) if told.get(name)]

    def expect_checked(self, program, *numbers):
        program.until(lambda: self.checked(program) == list(numbers), f"boxes {numbers} taken")

    def click_boxes(self, program, *numbers):
        """Clicks on boxes and waits for the effect of each."""
        for number in numbers:
            before = self.checked(program)
            self.click_box(program, number)
            program.until(lambda: self.checked(program) != before, f"click on box {number}")

    def fixed_project(self, name, *numbers):
        """A saved project whose procedure is fixed by clicks on these boxes."""
        program = self.start_clicks()
        self.click_boxes(program, *numbers)
        program.press(FIX)
        program.find(CHANGE)
        path = self.desktop.folder / name
        self.save_as(program, path)
        self.close(program)
        return path

    def expect_reopened(self, project, steps, looks):
        """What a fresh start shows of a saved project; saving it again changes no byte."""
        saved = project.read_bytes()
        program = self.start(project)
        self.expect_steps(program, steps)
        self.expect_highlight(program, FIELD)
        program.press(CHECK)
        program.find(CHANGE)
        self.expect_states(program, *looks)
        program.keys("ctrl+s")
        self.close(program)
        self.assertEqual(project.read_bytes(), saved)

    def save_and_reopen(self, program, steps, looks):
        project = self.desktop.folder / "procedure.trml"
        self.save_as(program, project)
        self.close(program)
        self.expect_reopened(project, steps, looks)

    # --- the questions

    def test_all_eight_questions_by_the_pointer(self):
        program = self.start()
        self.expect_steps(program, [])
        program.press(CHECK)
        program.find(QUESTIONS)
        program.screenshot("flow_check")
        program.press(QUESTIONS)
        looks = {
            Q1: (CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN),
            Q2: (TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN),
            Q3: (TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN),
            Q4: (TAKEN, TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN),
            A1: (TAKEN, TAKEN, TAKEN, TAKEN, CURRENT, NOT_TAKEN),
            A2: (TAKEN, TAKEN, TAKEN, TAKEN, CURRENT, NOT_TAKEN),
            A3: (TAKEN, TAKEN, TAKEN, TAKEN, TAKEN, CURRENT),
            END: (TAKEN, TAKEN, TAKEN, TAKEN, TAKEN, TAKEN),
        }
        for title, look in looks.items():
            self.question(program, title)
            self.expect_states(program, *look)
            program.screenshot(f"question_{list(looks).index(title) + 1}")
            program.press({Q3: "NO", END: "OK"}.get(title, "YES"))
        program.find(CHANGE)
        program.screenshot("fixed")
        self.assertEqual(program.dialogs(), [])
        self.expect_steps(program, STEPS)
        self.expect_states(program, *[TAKEN] * 6)
        self.save_and_reopen(program, STEPS, [TAKEN] * 6)

    def test_all_eight_questions_by_the_keyboard_alone(self):
        program = self.start()
        program.focus(CHECK)
        program.keys("space")
        program.focus(QUESTIONS)
        program.keys("space")
        for title in (Q1, Q2):
            self.question(program, title)
            program.until(lambda: (program.focused() or ("", ""))[1] == "YES", "focus on YES")
            program.keys("Return")
        self.question(program, Q3)
        program.focus("NO")
        program.keys("space")
        for title, button in ((Q4, "YES"), (A1, "YES"), (A2, "NO"), (A3, "YES"), (END, "OK")):
            self.question(program, title)
            program.focus(button)
            program.keys("Return")
        program.find(CHANGE)
        steps = [step for step in STEPS if step != "距離減衰式（断層）"]
        self.expect_steps(program, steps)
        looks = (TAKEN, TAKEN, TAKEN, TAKEN, NOT_TAKEN, TAKEN)
        self.expect_states(program, *looks)
        self.save_and_reopen(program, steps, looks)

    def test_collecting_material_alone_opens_six_steps(self):
        program = self.start_questions()
        self.replies(program, (Q1, "NO"), (Q4, "YES"), (A1, "NO"), (A3, "NO"), (END, "OK"))
        program.find(CHANGE)
        self.expect_steps(program, SIX)
        looks = (TAKEN, NOT_TAKEN, NOT_TAKEN, TAKEN, NOT_TAKEN, NOT_TAKEN)
        self.expect_states(program, *looks)
        self.save_and_reopen(program, SIX, looks)

    @long_case
    def test_back_leads_to_the_question_before_and_start_again_to_the_first(self):
        program = self.start_questions()
        self.replies(program, (Q1, "YES"), (Q2, "YES"), (Q3, "YES"), (A1, "戻る"))
        self.question(program, Q3)
        self.expect_states(program, TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN)
        self.replies(program, (Q3, "戻る"), (Q2, "戻る"), (Q1, "NO"), (Q4, "戻る"), (Q1, "YES"), (Q2, "NO"), (Q4, "戻る"),
                     (Q2, "YES"), (Q3, "NO"), (Q4, "戻る"), (Q3, "NO"), (Q4, "YES"), (A1, "戻る"), (Q4, "YES"), (A1, "NO"),
                     (A3, "戻る"), (A1, "YES"), (A2, "戻る"), (A1, "YES"), (A2, "YES"), (A3, "戻る"), (A2, "YES"),
                     (A3, "YES"), (END, "戻る"), (A3, "YES"), (END, "やり直す"))
        self.question(program, Q1)
        self.expect_states(program, CURRENT, *[NOT_TAKEN] * 5)
        self.replies(program, (Q1, "YES"), (Q2, "YES"), (Q3, "YES"), (A1, "NO"), (A3, "NO"), (END, "OK"))
        program.find(CHANGE)
        looks = (TAKEN, TAKEN, TAKEN, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN)
        # Of the first round nothing is left: no flag of the sources, none of the collecting.
        self.expect_steps(program, SIX)
        self.save_and_reopen(program, SIX, looks)

    def test_a_question_is_cancelled_with_yes_only(self):
        program = self.start_questions()
        self.reply(program, Q1, "YES")
        self.question(program, Q2)
        for how in ("Escape", "alt+F4"):
            program.keys(how)
            program.box(LEAVE)
            program.screenshot("cancel")
            program.press(NO)
            self.question(program, Q2)
            self.expect_states(program, TAKEN, CURRENT, *[NOT_TAKEN] * 4)
        program.keys("Escape")
        program.box(LEAVE)
        program.keys("Escape")  # counts as No
        self.question(program, Q2)
        program.keys("Escape")
        program.box(LEAVE)
        program.press(YES)
        program.find(QUESTIONS)
        self.assertEqual(program.dialogs(), [])
        self.expect_steps(program, [])
        # The window takes keys again, and the chart starts afresh.
        program.focus(QUESTIONS)
        program.keys("space")
        self.question(program, Q1)
        self.expect_states(program, CURRENT, *[NOT_TAKEN] * 5)
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    def test_a_double_click_answers_one_question(self):
        program = self.start_questions()
        # The second click falls on the next question, but within the time of a double click.
        program.xdotool("mousemove", *program.point(program.find("YES")), "click", "--repeat", 2, "--delay", 250, 1)
        self.reply(program, Q2, "NO")
        self.question(program, Q4)
        self.expect_states(program, TAKEN, TAKEN, NOT_TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN)
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    # --- where the dialogs stand

    def drag_window(self, program, title, right, down):
        """Drags a window by its caption."""
        program.settled_geometry(title)
        left, top, width, _ = program.frame(title)
        x, y = left + width // 2, top + 8
        program.xdotool("mousemove", x, y, "mousedown", 1)
        self.move_until(program, (x + right, y + down),
                        lambda: program.frame(title)[:2] == (left + right, top + down), "window dragged")
        program.xdotool("mouseup", 1)

    def expect_frame(self, program, title, place):
        program.until(lambda: program.has_window(title) and program.frame(title)[:2] == place, f"{title} at {place}", 10)

    @long_case
    def test_a_question_stands_where_the_last_was_left_through_ten_of_them(self):
        program = self.start_questions()
        # 1280 / 3, and (1024 / 3 * 3 - 1280 / 3) / 2
        self.expect_frame(program, Q1, (426, 298))
        self.reply(program, Q1, "YES")
        self.question(program, Q2)
        self.expect_frame(program, Q2, (426, 298))
        self.drag_window(program, Q2, -215, 101)
        size = program.frame(Q2)[2:]
        for title, button in ((Q2, "YES"), (Q3, "NO"), (Q4, "戻る"), (Q3, "YES"), (A1, "YES"), (A2, "NO"), (A3, "YES"),
                              (END, "戻る"), (A3, "NO"), (END, "やり直す"), (Q1, "YES")):
            self.question(program, title)
            self.expect_frame(program, title, (211, 399))
            self.assertEqual(program.settled_geometry(title)[2:], program.geometry(title)[2:])
            self.assertEqual(program.frame(title), (211, 399, *size))
            program.press(button)
        self.question(program, Q2)
        # A chart that is entered again forgets it.
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.press(QUESTIONS)
        self.question(program, Q1)
        self.expect_frame(program, Q1, (426, 298))
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    def test_the_first_question_stands_on_the_second_monitor(self):
        program = self.start()
        title = "無題 - Tremlo.*"
        program.xdotool("windowmove", program.window_of(title), 1600, 120)
        program.until(lambda: program.frame(title)[0] > 1280, "window on the second monitor")
        program.press(CHECK)
        program.press(QUESTIONS)
        self.question(program, Q1)
        # 1280 + 1920 / 3, and (1080 - 1920 / 3) / 2
        self.expect_frame(program, Q1, (1920, 220))
        self.reply(program, Q1, "YES")
        self.question(program, Q2)
        self.expect_frame(program, Q2, (1920, 220))
        program.screenshot("second_monitor")
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    def test_the_first_question_stands_on_a_wide_monitor(self):
        program = self.start_questions()
        # 5120 / 3; (1440 - 5120 / 3) / 2 would be above the monitor
        self.expect_frame(program, Q1, (1706, 0))
        program.screenshot("wide_monitor")
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    # --- commands at a bad time

    def test_no_command_gets_in_front_of_a_question(self):
        program = self.start_questions()
        self.replies(program, (Q1, "YES"), (Q2, "YES"))
        self.question(program, Q3)
        place = program.frame(Q3)
        looks = (TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN)
        self.expect_states(program, *looks)
        commands = [program.action_of(name) for name in
                    (NEW, OPEN, SAVE_AS, "アプリケーションの終了(X)", "波形調整設定", "断層APIパラメータ設定",
                     "地図画像キャッシュのクリア", ONLINE, ABOUT, FIELD, CHECK)]
        online = self.is_online(program)
        down = program.buttons_down()
        program.act(*commands, *commands)
        program.until(lambda: program.buttons_down() == down, "the presses behind the question")
        self.assertEqual(program.dialogs(), [Q3])
        self.assertEqual(self.is_online(program), online)
        self.assertEqual(len(program.windows()), 2)
        # The window manager asks the window behind the question to close.
        self.ask_to_close(program, "無題 - Tremlo.*")
        self.expect_states(program, *looks)
        self.expect_highlight(program, CHECK)
        self.assertEqual(program.dialogs(), [Q3])
        self.assertEqual(program.frame(Q3), place)
        self.assertEqual(self.pressable_steps(program), [])
        self.replies(program, (Q3, "YES"), (A1, "NO"), (A3, "NO"), (END, "OK"))
        program.find(CHANGE)
        self.expect_steps(program, SIX)
        self.close(program, NO)

    def is_online(self, program):
        return next(states(node).contains(STATE.CHECKED) for node in program.everything()
                    if node.get_name() == ONLINE and node.get_role() in (ROLE.CHECK_MENU_ITEM, ROLE.MENU_ITEM))

    def ask_to_close(self, program, title):
        """As the task bar of a desktop does, whatever stands in front of the window."""
        with XServer(self.desktop.env["DISPLAY"]) as server:
            server.ask_to_close(int(program.window_of(title)))

    def act_between_questions(self, program, command, effect):
        """Answers Q1 and gives a command in the pause before Q2. While a dialog is up, the command is refused; so it is given
        again until a window has the title of its effect. Where Q2 was faster, all is tried again."""
        step = program.action_of(command)

        def came():
            program.act(step)
            return program.has_window(effect) or program.has_window(Q2)

        for _ in range(30):
            program.press("YES")
            program.until(came, f"{command} or {Q2}")
            if program.has_window(effect):
                return
            self.reply(program, Q2, "戻る")
            self.question(program, Q1)
        self.fail(f"{command} did not come through in any of the pauses")

    def test_the_next_question_waits_for_a_command(self):
        program = self.start_questions()
        self.act_between_questions(program, ABOUT, "バージョン情報")
        # For longer than the pause lasts, no question joins it.
        program.settled_geometry("バージョン情報")
        self.assertEqual(program.dialogs(), ["バージョン情報"])
        self.assertEqual(len(program.windows()), 2)
        program.press("OK")
        self.question(program, Q2)
        self.expect_states(program, TAKEN, CURRENT, *[NOT_TAKEN] * 4)
        self.expect_frame(program, Q2, (426, 298))
        self.assertEqual(len(program.windows()), 2)
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    def test_going_offline_between_two_questions_keeps_the_answers(self):
        program = self.start_questions()
        self.assertTrue(self.is_online(program))
        self.act_between_questions(program, ONLINE, ".*オフライン.*")
        self.question(program, Q2)
        self.expect_states(program, TAKEN, CURRENT, *[NOT_TAKEN] * 4)
        self.expect_frame(program, Q2, (426, 298))
        self.assertEqual(len(program.windows()), 2)
        self.assertFalse(self.is_online(program))
        self.replies(program, (Q2, "YES"), (Q3, "YES"), (A1, "YES"), (A2, "YES"), (A3, "NO"), (END, "OK"))
        program.find(CHANGE)
        self.expect_states(program, TAKEN, TAKEN, TAKEN, NOT_TAKEN, TAKEN, NOT_TAKEN)
        self.close(program, NO)

    def test_a_minimised_window_comes_back_with_its_question(self):
        program = self.start_questions()
        self.replies(program, (Q1, "YES"), (Q2, "YES"))
        self.question(program, Q3)
        self.drag_window(program, Q3, 60, -90)
        place = program.frame(Q3)
        looks = (TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN, NOT_TAKEN)
        question = program.window_of(Q3)
        program.xdotool("windowminimize", program.window_of("無題 - Tremlo.*"))
        program.until(lambda: not program.windows(), "window and question minimised")
        program.xdotool("windowactivate", question)
        self.question(program, Q3)
        program.until(lambda: len(program.windows()) == 2, "window and question back")
        self.expect_states(program, *looks)
        self.expect_frame(program, Q3, place[:2])
        self.reply(program, Q3, "NO")
        self.question(program, Q4)
        self.expect_frame(program, Q4, place[:2])
        self.expect_states(program, TAKEN, TAKEN, TAKEN, CURRENT, NOT_TAKEN, NOT_TAKEN)
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    # --- the chart that is clicked

    def test_the_chart_takes_clicks_inside_its_boxes_alone(self):
        program = self.start_clicks()
        program.screenshot("click_chart")
        self.expect_states(program, TAKEN, *[NOT_TAKEN] * 5)
        # Beside the box, in the corners beside its tips, on the boxes that take no clicks, and on paths and texts.
        for number in (1, 3, 4, 5):
            left, top, width, height = BOXES[CLICKED[number - 1]]
            for x, y in ((left + width // 2, top - 3), (left + width // 2, top + height + 3), (left - 4, top + height // 2),
                         (left + width + 4, top + height // 2)):
                self.click_chart(program, x, y)
            if number != 3:  # the one without tips
                for x, y in ((left + 3, top + 3), (left + width - 4, top + height - 4)):
                    self.click_chart(program, x, y)
        for name in (list(BOXES)[0], *list(BOXES)[6:]):
            left, top, width, height = BOXES[name]
            self.click_chart(program, left + width // 2, top + height // 2)
        for x, y in ((137, 300), (772, 540), (600, 607), (421, 30), (300, 650)):
            self.click_chart(program, x, y)
        # Inside, near the tips and edges.
        taken = []
        for number in (1, 3, 4, 5):
            left, top, width, height = BOXES[CLICKED[number - 1]]
            for x, y in ((left + 4, top + height // 2), (left + width - 5, top + height // 2),
                         (left + width // 2, top + 3), (left + width // 2, top + height - 4), (left + 22, top + 4)):
                self.assertEqual(self.checked(program), taken)
                self.click_chart(program, x, y)
                taken = [n for n in range(1, 6) if (n in taken) != (n == number)]
                self.expect_checked(program, *taken)
        self.expect_checked(program, 1, 3, 4, 5)
        self.assertEqual(program.dialogs(), [])
        self.expect_states(program, TAKEN, TAKEN, NOT_TAKEN, TAKEN, TAKEN, TAKEN)
        program.press(FIX)
        program.find(CHANGE)
        self.expect_steps(program, STEPS)
        looks = (TAKEN, TAKEN, NOT_TAKEN, TAKEN, TAKEN, TAKEN)
        # The chart that shows takes no clicks.
        for number in range(1, 6):
            self.click_box(program, number)
        self.save_and_reopen(program, STEPS, looks)

    def test_the_clicks_are_refused_and_asked_about_as_stated(self):
        program = self.start_clicks()
        self.click_box(program, 2)
        program.answer("前の質問に答えてからクリックして下さい。")
        self.expect_checked(program)
        program.press(FIX)
        program.answer("位相特性のフローチャートが不正です。")
        self.click_boxes(program, 1)
        program.press(FIX)
        program.answer("位相特性のフローチャートが不正です。")
        self.expect_checked(program, 1)
        self.click_boxes(program, 1, 1, 2)
        self.click_box(program, 1)
        program.answer(SECOND_GOES, NO)
        self.expect_checked(program, 1, 2)
        self.click_box(program, 1)
        program.box(SECOND_GOES)
        program.keys("Escape")
        program.until(lambda: not program.has_box(), "box closed")
        self.expect_checked(program, 1, 2)
        self.click_box(program, 1)
        program.answer(SECOND_GOES, YES)
        self.expect_checked(program)
        self.click_boxes(program, 1, 2, 5)
        program.press(FIX)
        program.find(CHANGE)
        steps = [step for step in STEPS if step != "距離減衰式（断層）"]
        self.expect_steps(program, steps)
        self.save_and_reopen(program, steps, (TAKEN, TAKEN, TAKEN, NOT_TAKEN, NOT_TAKEN, TAKEN))

    def test_the_keyboard_alone_clicks_the_chart(self):
        program = self.start()
        program.focus(CHECK)
        program.keys("Return")
        program.focus(CLICKS)
        program.keys("space")
        program.find(FIX)
        for name, key in ((CLICKED[0], "space"), (CLICKED[1], "Return"), (CLICKED[3], "space")):
            program.focus(name)
            program.keys(key)
            program.until(lambda: states(program.find(name)).contains(STATE.CHECKED), f"{name} taken")
        program.screenshot("click_chart_keys")
        program.focus(FIX)
        program.keys("space")
        program.find(CHANGE)
        steps = [step for step in STEPS if step != "現場近隣地震波形"]
        self.expect_steps(program, steps)
        # And changes it again.
        program.focus(CHANGE)
        program.keys("space")
        program.box(CHANGE_ASKED)
        program.keys("y")
        program.find(CLICKS)
        self.expect_steps(program, [])
        self.close(program, NO)

    def test_a_screen_reader_clicks_the_chart(self):
        program = self.start_clicks()
        for number, taken in ((1, (1,)), (2, (1, 2)), (3, (1, 2, 3)), (2, (1, 3)), (5, (1, 3, 5))):
            program.act_on(CLICKED[number - 1], ROLE.CHECK_BOX)
            self.expect_checked(program, *taken)
        program.act_on(FIX)
        program.find(CHANGE)
        self.expect_states(program, TAKEN, TAKEN, NOT_TAKEN, TAKEN, NOT_TAKEN, TAKEN)
        self.assertEqual(program.nameless(), [])
        self.close(program, NO)

    def test_a_step_asks_first_and_a_no_leaves_the_highlight_moved(self):
        program = self.start_clicks()
        self.click_boxes(program, 1, 3)
        self.expect_highlight(program, CHECK)
        program.press(FIELD)
        program.answer(LEAVE, NO)
        self.expect_highlight(program, FIELD)
        self.expect_checked(program, 1, 3)
        program.press(CHECK)
        program.answer(LEAVE, NO)
        self.expect_highlight(program, CHECK)
        self.expect_checked(program, 1, 3)
        # A step that is not open yet cannot be pressed by a screen reader either.
        self.assertEqual(self.pressable_steps(program), [])
        program.press(FIELD)
        program.answer(LEAVE, YES)
        program.find(SITE)
        self.expect_highlight(program, FIELD)
        # On a screen that is not on display nothing can be pressed.
        hidden = [node.get_name() for node in program.everything() if node.get_n_actions() > 0 and
                  node.get_name() in (QUESTIONS, CLICKS, FIX, CHANGE, *CLICKED)]
        self.assertEqual(hidden, [])
        # The chart's answers are dropped.
        program.press(CHECK)
        program.press(CLICKS)
        program.find(FIX)
        self.expect_checked(program)
        program.press(CHECK)
        program.answer(LEAVE, YES)
        program.find(QUESTIONS)
        self.close(program, NO)

    def test_commands_and_a_minimised_window_keep_the_click_chart(self):
        program = self.start_clicks()
        self.click_boxes(program, 1, 2, 5)
        looks = (TAKEN, TAKEN, TAKEN, NOT_TAKEN, NOT_TAKEN, TAKEN)
        for mark in ("　(オフライン)", ""):
            online = program.title()
            program.act(program.action_of(ONLINE))
            program.until(lambda: program.title() != online, "title of the other mode")
            self.assertTrue(program.title().rstrip(" ").endswith("Version1.00" + mark))
            self.assertEqual(self.is_online(program), not mark)
            self.expect_states(program, *looks)
            self.expect_checked(program, 1, 2, 5)
        window = program.window_of("無題 - Tremlo.*")
        program.xdotool("windowminimize", window)
        program.until(lambda: not program.windows(), "window minimised")
        program.xdotool("windowactivate", window)
        program.until(program.windows, "window back")
        self.expect_checked(program, 1, 2, 5)
        # What is being decided is not in the project yet.
        project = self.desktop.folder / "undecided.trml"
        self.save_as(program, project)
        self.expect_states(program, *looks)
        self.expect_highlight(program, CHECK)
        self.expect_steps(program, [])
        self.close(program)
        program = self.start(project)
        self.expect_steps(program, [])
        program.press(CHECK)
        program.find(CLICKS)
        self.close(program)

    # --- another project while the chart is clicked

    def open_projects(self):
        """One with a fixed procedure, on disk, and a program with the chart that is clicked on display."""
        project = self.fixed_project("other.trml", 1, 2, 5)
        program = self.start_clicks()
        self.click_boxes(program, 1, 3)
        return project, program

    def expect_opened(self, program, project):
        program.until(lambda: program.title().startswith(project.name), "other project")
        self.expect_steps(program, [step for step in STEPS if step != "距離減衰式（断層）"])
        self.expect_highlight(program, FIELD)
        self.assertEqual(program.dialogs(), [])
        program.press(CHECK)
        program.find(CHANGE)
        self.expect_states(program, TAKEN, TAKEN, TAKEN, NOT_TAKEN, NOT_TAKEN, TAKEN)
        self.close(program)

    def test_a_new_project_on_the_click_chart_asks_first(self):
        program = self.start_clicks()
        self.click_boxes(program, 1, 3)
        program.keys("ctrl+n")
        program.answer(LEAVE, NO)
        self.expect_checked(program, 1, 3)
        program.keys("ctrl+n")
        program.answer(LEAVE, YES)
        program.answer(UNSAVED.format("無題"), "キャンセル")
        self.expect_checked(program, 1, 3)
        program.keys("ctrl+n")
        program.answer(LEAVE, YES)
        program.answer(UNSAVED.format("無題"), NO)
        self.begin(program, TOP)
        program.find(SITE)
        self.expect_steps(program, [])
        self.expect_highlight(program, FIELD)
        self.assertEqual(program.dialogs(), [])
        # The leave to go was for this command alone.
        program.press(CHECK)
        program.press(CLICKS)
        program.find(FIX)
        self.expect_checked(program)
        program.press(FIELD)
        program.answer(LEAVE, YES)
        program.find(SITE)
        self.close(program, NO)

    def test_an_open_on_the_click_chart_asks_first(self):
        project, program = self.open_projects()
        program.keys("ctrl+o")
        program.answer(LEAVE, NO)
        self.expect_checked(program, 1, 3)
        self.assertEqual(program.dialogs(), [])
        program.keys("ctrl+o")
        program.answer(LEAVE, YES)
        program.choose_file("開く", project)
        program.answer(UNSAVED.format("無題"), NO)
        self.expect_opened(program, project)

    def test_a_cancelled_file_dialog_leaves_the_way_free(self):
        program = self.start_clicks()
        self.click_boxes(program, 1, 3)
        program.keys("ctrl+o")
        program.answer(LEAVE, YES)
        program.until(lambda: program.file_dialog("開く"), "file dialog")
        program.keys("Escape")
        program.until(lambda: not program.dialogs(), "file dialog closed")
        self.expect_checked(program, 1, 3)
        # The user has been asked already: once, the next step does not ask.
        program.press(FIELD)
        program.find(SITE)
        self.assertEqual(program.dialogs(), [])
        program.press(CHECK)
        program.press(CLICKS)
        program.find(FIX)
        program.press(FIELD)
        program.answer(LEAVE, NO)
        self.close(program, NO)

    def test_a_recent_file_on_the_click_chart_asks_first(self):
        project, program = self.open_projects()
        recent = program.until(
            lambda: next((node.get_name() for node in program.everything() if project.name in node.get_name() and
                          node.get_role() == ROLE.MENU_ITEM), None), "recent file")
        program.act(program.action_of(recent))
        program.answer(LEAVE, NO)
        self.expect_checked(program, 1, 3)
        program.act(program.action_of(recent))
        program.answer(LEAVE, YES)
        program.answer(UNSAVED.format("無題"), NO)
        self.expect_opened(program, project)

    def drop_file(self, program, path, point, end="dropped"):
        """Drags a file out of another program's window and drops it on a point of the screen; `end` says what comes of it."""
        source = self.desktop.start(tools.program.parent / "tremlo_drag_source", path)
        program.until(lambda: program.has_window("drag source"), "drag source")
        left, top, width, height = program.settled_geometry("drag source")
        x, y = left + width // 2, top + height // 2
        program.xdotool("mousemove", x, y, "mousedown", 1)
        self.move_until(program, (x + 20, y), lambda: program.has_window("dragging"), "drag under way")
        if end == "dropped":
            self.move_until(program, point, lambda: program.has_window("accepted"), "a place that takes the file")
        else:
            program.xdotool("mousemove", "--sync", point[0] + 9, point[1], "mousemove", "--sync", *point)
        program.xdotool("mouseup", 1)
        program.until(lambda: program.has_window(end), f"file {end}")
        source.terminate()
        source.wait()

    def move_until(self, program, point, state, what):
        """Moves the pointer about a point until a state is there: a machine at work may let a single move pass."""
        x, y = point
        program.until(lambda: program.xdotool("mousemove", x + 1, y, "mousemove", x, y) or state(), what)

    def test_a_file_dropped_on_the_click_chart_asks_first(self):
        project, program = self.open_projects()
        self.drop_file(program, project, self.chart_point(program, 700, 400))
        program.answer(LEAVE, NO)
        self.expect_checked(program, 1, 3)
        self.drop_file(program, project, self.chart_point(program, 700, 400))
        program.answer(LEAVE, YES)
        program.answer(UNSAVED.format("無題"), NO)
        self.expect_opened(program, project)

    def test_a_file_dropped_behind_a_question_is_refused(self):
        project = self.fixed_project("other.trml", 1, 2, 5)
        program = self.start_questions()
        self.drop_file(program, project, self.chart_point(program, 60, 600), "refused")
        program.xdotool("windowactivate", program.window_of(Q1))  # the drag was in another program's
        self.reply(program, Q1, "YES")
        self.question(program, Q2)
        self.expect_states(program, TAKEN, CURRENT, *[NOT_TAKEN] * 4)
        self.assertTrue(program.title().startswith("無題"))
        program.keys("Escape")
        program.answer(LEAVE, YES)
        program.find(CLICKS)
        self.close(program, NO)

    # --- changing the procedure

    def test_a_declined_change_leaves_the_project_byte_for_byte(self):
        project = self.fixed_project("fixed.trml", 1, 2, 3, 4, 5)
        saved = project.read_bytes()
        program = self.start(project)
        program.press(CHECK)
        program.press(CHANGE)
        program.box(CHANGE_ASKED)
        program.screenshot("change")
        program.press(NO)
        program.until(lambda: not program.has_box(), "box closed")
        program.press(CHANGE)
        program.box(CHANGE_ASKED)
        program.keys("Escape")
        program.until(lambda: not program.has_box(), "box closed")
        self.expect_steps(program, STEPS)
        self.expect_states(program, *[TAKEN] * 6)
        written = project.stat().st_mtime_ns
        program.keys("ctrl+s")
        wait_until(lambda: project.stat().st_mtime_ns != written, "saved")
        self.close(program)
        self.assertEqual(project.read_bytes(), saved)

    def test_a_changed_procedure_is_decided_anew(self):
        project = self.fixed_project("fixed.trml", 1, 2, 3, 4, 5)
        program = self.start(project)
        program.press(CHECK)
        program.press(CHANGE)
        program.answer(CHANGE_ASKED, YES)
        program.find(QUESTIONS)
        self.expect_steps(program, [])
        self.expect_highlight(program, CHECK)
        program.press(QUESTIONS)
        self.question(program, Q1)
        self.expect_states(program, CURRENT, *[NOT_TAKEN] * 5)
        self.replies(program, (Q1, "NO"), (Q4, "YES"), (A1, "YES"), (A2, "YES"), (A3, "NO"), (END, "OK"))
        program.find(CHANGE)
        steps = [step for step in STEPS if step != "現場近隣地震波形"]
        self.expect_steps(program, steps)
        program.keys("ctrl+s")
        self.close(program)
        self.expect_reopened(project, steps, (TAKEN, NOT_TAKEN, NOT_TAKEN, TAKEN, TAKEN, NOT_TAKEN))

    # --- looks

    def looks_at_scale(self, scale):
        # All by the actions of the bus: at other scales than 1 it does not tell where a control is seen.
        self.desktop.env["QT_SCALE_FACTOR"] = scale
        program = self.launch()
        program.act_on(TOP, ROLE.RADIO_BUTTON)
        program.act_on("OK")
        program.find(SITE)
        program.act_on(CHECK)
        program.find(QUESTIONS)
        program.screenshot(f"flow_check_{scale}")
        program.act_on(QUESTIONS)
        width, height = (int(side) for side in self.desktop.screen.split("x")[:2])
        for number, (title, button) in enumerate(((Q1, "YES"), (Q2, "YES"), (Q3, "NO"), (Q4, "YES"), (A1, "YES"),
                                                  (A2, "YES"), (A3, "YES"), (END, "OK")), 1):
            self.question(program, title)
            program.settled_geometry(title)
            program.screenshot(f"question_{number}_{scale}")
            left, top, wide, high = program.frame(title)
            self.assertTrue(left >= 0 and top >= 0 and left + wide <= width and top + high <= height, (title, left, top))
            program.act_on(button)
        program.find(CHANGE)
        program.screenshot(f"fixed_{scale}")
        program.act_on(CHANGE)
        program.box(CHANGE_ASKED)
        program.screenshot(f"change_{scale}")
        program.act_on(YES)
        program.act_on(CLICKS)
        program.find(FIX)
        program.screenshot(f"click_chart_{scale}")
        program.act_on(CLICKED[0], ROLE.CHECK_BOX)
        self.expect_checked(program, 1)
        program.close_window()
        program.until(program.has_box, "question about unsaved work")
        program.act_on(NO)
        self.assertEqual(program.wait_for_end(), 0)

    def test_the_charts_at_scale_1(self):
        self.looks_at_scale("1")

    @long_case
    def test_the_charts_at_scale_1_5(self):
        self.looks_at_scale("1.5")

    @long_case
    def test_the_charts_at_scale_2(self):
        self.looks_at_scale("2")

    @long_case
    def test_the_charts_on_a_dark_desktop(self):
        self.desktop.env["TREMLO_TEST_DARK"] = "1"
        program = self.start()
        program.press(CHECK)
        program.find(CLICKS)
        program.screenshot("flow_check_dark")
        program.press(CLICKS)
        program.find(FIX)
        self.click_boxes(program, 1, 3)
        program.screenshot("click_chart_dark")
        program.press(CHECK)
        program.answer(LEAVE, YES)
        program.press(QUESTIONS)
        for number, (title, button) in enumerate(((Q1, "NO"), (Q4, "YES"), (A1, "NO"), (A3, "YES"), (END, "OK")), 1):
            self.question(program, title)
            left, top, width, height = program.settled_geometry(title)
            program.screenshot(f"question_{number}_dark")
            # The dialog follows the desktop, the chart keeps its paper.
            self.assertLess(program.brightness(left + 3, top + 3), 80)
            self.assertEqual(program.brightness(*self.chart_point(program, 3, 3)), 255)
            program.press(button)
        program.find(CHANGE)
        program.screenshot("fixed_dark")
        self.assertEqual(program.brightness(*self.chart_point(program, 3, 3)), 255)
        self.close(program, NO)

    def test_a_screen_reader_walks_while_the_screens_change(self):
        # At this scale the window needs bars to scroll with, on one screen more of them than on the other.
        self.desktop.env["QT_SCALE_FACTOR"] = "2"
        program = self.launch()
        program.act_on(TOP, ROLE.RADIO_BUTTON)
        program.act_on("OK")
        for _ in range(10):
            program.find(SITE)
            program.act_on(CHECK)
            program.find(QUESTIONS)
            program.act_on(FIELD)
        program.find(SITE)
        program.close_window()
        self.assertEqual(program.wait_for_end(), 0)

    def test_the_chart_fits_the_frame_without_scrolling(self):
        program = self.start_clicks()
        self.assertEqual(program.geometry("無題 - Tremlo.*")[2:], (1200, 800))
        # All of the chart and its button is in sight: every box shows, and no bar to scroll with.
        self.assertEqual([node.get_name() for node in program.nodes() if node.get_role() == ROLE.SCROLL_BAR], [])
        chart = Atspi.Component.get_extents(program.find(CHART), Atspi.CoordType.SCREEN)
        self.assertEqual((chart.width, chart.height), (950, 664))
        bar = next(node for node in program.nodes() if node.get_role() == ROLE.STATUS_BAR)
        button = Atspi.Component.get_extents(program.find(FIX), Atspi.CoordType.SCREEN)
        self.assertLess(button.y + button.height, Atspi.Component.get_extents(bar, Atspi.CoordType.SCREEN).y)
        self.assertEqual(program.nameless(), [])
        self.close(program, NO)


if __name__ == "__main__":
    route.main(ProcedureRoute)
