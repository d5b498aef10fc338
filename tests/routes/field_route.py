#!/usr/bin/env python3
"""The field screen with its map and the choice of the zone in a real window."""

import pathlib
import re
import subprocess
import sys
import time

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import Desktop, wait_until  # noqa: E402
from driver import ROLE, STATE, Atspi, states  # noqa: E402
import route  # noqa: E402
from route import NEW, ROOT, UNSAVED, long_case, tools  # noqa: E402
import site_file  # noqa: E402
from site_file import SiteFile  # noqa: E402

JOB, SITE, COMMENTS, MAP = "業務情報", "現場情報", "コメント", "地図"
POSITION, ZONE = "現場位置( °)", "平面直角座標系番号"
ZONE_BUTTON, BACK, ZONE_HELP = "平面直角座標系番号の選択", "現場位置に戻る", "平面直角座標系について"
ZONE_DIALOG, ZONE_MAP, HELP_DIALOG = ZONE_BUTTON, "平面直角座標系の区域図", ZONE_HELP
ONLINE, CLEAR_CACHE = "オンライン", "地図画像キャッシュのクリア"
YES, NO = "はい(Y)", "いいえ(N)"
QUESTION = ("現在の現場位置で断層データを取得していますがよろしいですか？\n\n現場位置を変更する場合、断層データをクリアするため，\n"
            "・断層データの取得\n・基準スペクトル設定\n・原種波形の選択\n・振幅調整\nが再度必要となります。")
CLEAR_QUESTION = ("地図画像キャッシュをクリアします。\n以下の影響がありますがよろしいですか。\n\n・地図画像を国土地理院から再度"
                  "取得します。")
NEW_SITE = ["38", "15", "20.6600", "137", "46", "37.0000"]
GAP, CROSSHAIR = (0xDA, 0xDA, 0xDA), (0, 0, 0)
OFFLINE_MARK = "　(オフライン)"
SMALL_SCREEN = "1024x768x24"


def seconds(degrees, minutes, seconds_of_arc):
    return (float(degrees) * 60.0 + float(minutes)) * 60.0 + float(seconds_of_arc)


class FieldRoute(route.Route):
    def make_desktop(self):
        return Desktop(SMALL_SCREEN) if "keep_their_size" in self._testMethodName else Desktop()

    def setUp(self):
        super().setUp()
        self.project = self.desktop.folder / "site.trml"

    # --- steps

    def make_project(self, change=None):
        """A project of the guideline route, changed as told; its bytes."""
        fresh = self.desktop.folder / "new.trml"
        subprocess.run([tools.bin / "tremlo-cli", "project", "new", fresh], env=self.desktop.env, check=True,
                       capture_output=True)
        site = site_file.from_new(self.project, fresh)
        if change:
            change(site)
            site.write(self.project)
        return self.project.read_bytes()

    def start(self):
        program = self.launch(self.project)
        self.settle(program)
        return program

    def settle(self, program):
        """Until the window stands where the window manager leaves it, and takes the keys."""
        program.find(MAP)
        program.until(program.has_active_window, "an active window")
        self.middle(program)

    def start_new(self):
        program = self.launch()
        program.press("指針に沿って解析波形を作成")
        program.press("OK")
        self.settle(program)
        return program

    def saved(self, program, name="saved.trml"):
        """The bytes of the project as it stands."""
        path = self.desktop.folder / name
        program.act(program.action_of(route.SAVE_AS))
        program.choose_file("名前を付けて保存", path)
        program.until(lambda: program.title().startswith(name), "the file's name in the title")
        return path.read_bytes()

    def saved_site(self, program, name="saved.trml"):
        self.saved(program, name)
        return SiteFile.read(self.desktop.folder / name)

    def pick(self, program, table, row, column):
        """Clicks a cell and waits for the click to arrive: the window manager passes it on and, when it is late, lets the
        first keys behind it overtake it."""
        program.click_cell(table, row, column)

        def picked():
            cell = Atspi.Table.get_accessible_at(program.find(table, ROLE.TABLE), row, column)
            return states(cell).contains(STATE.SELECTED) and (program.focused() or ("", ""))[1] == table
        program.until(picked, f"cell {row}, {column} of {table} with the focus")

    def enter(self, program, text):
        """Types ahead: a line's end is Return, a tab is the tab key."""
        words = []
        for sign, part, key in re.findall("(-?)([^\t\n]*)([\t\n]?)", text):
            words += ["key", "minus"] if sign else []  # would begin an option
            words += ["type", "--args", 1, "--delay", 5, part] if part else []
            words += ["key", "Return" if key == "\n" else "Tab"] if key else []
        program.xdotool(*words)

    def cells(self, program):
        return [program.cell(POSITION, row, column) for row in (0, 1) for column in (0, 1, 2)]

    def until_cells(self, program, expected):
        program.until(lambda: self.cells(program) == expected, f"the position {expected}")

    def map_box(self, program):
        return Atspi.Component.get_extents(program.find(MAP), Atspi.CoordType.SCREEN)

    def middle(self, program):
        """Of the map, once the window manager has put the window where it stays."""
        seen = []

        def settled():
            box = self.map_box(program)
            seen.append((box.x + box.width // 2, box.y + box.height // 2))
            return seen[-1] if seen[-3:] == [seen[-1]] * 3 else None
        return program.until(settled, "a map that stays in place")

    def hold(self, program, at):
        program.until(program.has_active_window, "an active window")
        program.xdotool("mousemove", *at, "mousedown", 1)

    def move(self, program, *places):
        program.xdotool(*(word for place in places for word in ("mousemove", *place)))

    def let_go(self, program):
        program.xdotool("mouseup", 1)

    def zoom(self, program):
        return program.description(MAP)

    def plane(self, program):
        return next(node.get_name() for node in program.nodes() if node.get_name().startswith("平面直角座標 "))

    def close_unchanged(self, program):
        """Closing asks nothing: the project does not count as changed."""
        program.close_window()
        self.assertEqual(program.wait_for_end(), 0)

    # --- texts

    def test_texts_and_comments_are_kept(self):
        program = self.start_new()
        self.pick(program, JOB, 0, 0)
        self.enter(program, "Check of a dam\nPart 1 & 2\n2026-11-22\n")
        program.keys("F2")
        self.enter(program, "Company\n0120\n")
        program.keys("9", "9", "Return")
        program.until(lambda: program.cell(JOB, 5, 0) == "99", "last text of the job")
        self.pick(program, SITE, 0, 0)
        self.enter(program, "Dam\tIshikawa\n")
        program.until(lambda: program.cell(SITE, 1, 0) == "Ishikawa", "last text of the site")
        self.pick(program, COMMENTS, 0, 0)
        self.enter(program, "".join(f"comment {i}\n" for i in range(10)))
        program.until(lambda: program.cell(COMMENTS, 9, 0) == "comment 9", "last comment")
        program.screenshot("field_texts")
        first = self.saved(program)
        site = SiteFile.read(self.desktop.folder / "saved.trml")
        self.assertEqual(site.texts, {
            "title": "Check of a dam", "subtitle": "Part 1 & 2", "work_date": "2026-11-22", "company": "Company",
            "phone": "0120", "fax": "99", "site_name": "Dam", "address": "Ishikawa"})
        self.assertEqual(site.comments, [f"comment {i}" for i in range(10)])
        self.close_unchanged(program)
        self.project = self.desktop.folder / "saved.trml"
        program = self.start()
        self.assertEqual(program.cell(JOB, 1, 0), "Part 1 & 2")
        self.assertEqual(program.cell(SITE, 1, 0), "Ishikawa")
        self.assertEqual(program.cell(COMMENTS, 9, 0), "comment 9")
        self.assertEqual(self.cells(program), NEW_SITE)
        self.assertEqual(self.saved(program, "again.trml"), first)
        self.close_unchanged(program)

    # --- the position, typed

    def test_a_position_typed_ahead_goes_cell_by_cell_and_to_the_map(self):
        self.make_project()
        program = self.start()
        before = self.plane(program)
        self.pick(program, POSITION, 0, 0)
        self.enter(program, "36\t33\t41.184\t136\t36\t50.724\n")
        self.until_cells(program, ["36", "33", "41.1840", "136", "36", "50.7240"])
        program.until(lambda: self.plane(program) != before, "other plane coordinates")
        program.point_at(MAP)
        program.until(lambda: program.status() == "北緯 36°33′41.184″　東経 136°36′50.724″", "the site under the crosshair")
        self.assertEqual(self.saved_site(program).position, [36.0, 33.0, 41.184, 136.0, 36.0, 50.724])
        self.close_unchanged(program)

    def test_entries_that_are_no_position_change_nothing(self):
        saved = self.make_project()
        program = self.start()
        self.pick(program, POSITION, 0, 1)
        program.click_cell(POSITION, 0, 1, count=2)
        # Nothing has the focus for a moment, too, while it goes from one control to another.
        program.until(lambda: [program.focused() for _ in range(3)] == [None] * 3,
                      "the focus in the cell's editor, within the table")
        program.keys("ctrl+a", "BackSpace", "Return")  # an emptied cell
        self.until_cells(program, NEW_SITE)
        self.pick(program, POSITION, 0, 2)
        self.enter(program, "abc\n")  # no letter gets in
        self.until_cells(program, NEW_SITE)
        self.pick(program, POSITION, 0, 2)
        program.type("-")
        program.keys("Escape")
        self.until_cells(program, NEW_SITE)
        self.pick(program, POSITION, 0, 2)
        self.enter(program, "20.66\n")  # the number that is there
        self.until_cells(program, NEW_SITE)
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def test_a_position_out_of_every_range_is_taken_as_it_is(self):
        self.make_project()
        program = self.start()
        self.pick(program, POSITION, 0, 0)
        self.enter(program, "91\t75\t-3\t1e300\n")
        program.until(lambda: self.cells(program)[:3] == ["91", "75", "-3.0000"], "the latitude")
        program.until(lambda: self.plane(program).endswith("X = -　Y = -"), "no plane coordinates")
        # The program lives: the map zooms, the next number brings the site back.
        program.click(MAP, [ROLE.FILLER])
        program.keys("plus", "minus")
        self.pick(program, POSITION, 1, 0)
        self.enter(program, "137\n")
        self.until_cells(program, ["91", "75", "-3.0000", "137", "46", "37.0000"])
        self.assertEqual(self.saved_site(program).position, [91.0, 75.0, -3.0, 137.0, 46.0, 37.0])
        self.close_unchanged(program)

    def test_a_position_is_copied_and_pasted_with_the_guard(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        self.pick(program, POSITION, 0, 0)
        program.keys("shift+Right", "ctrl+c")  # degrees and minutes of the latitude
        self.pick(program, POSITION, 1, 0)
        program.keys("ctrl+v")
        program.answer(QUESTION, NO)
        self.until_cells(program, NEW_SITE)
        self.assertEqual(self.saved(program), saved)
        self.pick(program, POSITION, 1, 0)
        program.keys("ctrl+v")
        program.answer(QUESTION, YES)
        self.until_cells(program, ["38", "15", "20.6600", "38", "15", "37.0000"])
        site = self.saved_site(program, "yes.trml")
        self.assertEqual((site.position[3:5], site.faults), ([38.0, 15.0], 0))
        self.close_unchanged(program)

    def test_a_typed_position_is_guarded_once_faults_are_there(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        self.pick(program, POSITION, 0, 0)
        self.enter(program, "36\n")
        program.answer(QUESTION, NO)
        self.until_cells(program, NEW_SITE)
        # A press on the map takes the entry; with its question it is used up and begins no drag.
        middle = self.middle(program)
        self.pick(program, POSITION, 0, 0)
        program.type("36")
        self.hold(program, middle)
        program.box(QUESTION)
        self.let_go(program)
        program.press(NO)
        program.until(lambda: not program.has_box(), "question closed")
        self.move(program, (middle[0] + 50, middle[1] + 50))
        self.until_cells(program, NEW_SITE)
        self.assertEqual(self.saved(program), saved)
        self.pick(program, POSITION, 1, 2)
        self.enter(program, "40\n")
        program.answer(QUESTION, YES)
        self.until_cells(program, [*NEW_SITE[:5], "40.0000"])
        self.pick(program, POSITION, 1, 2)
        self.enter(program, "41\n")  # asks nothing more
        self.until_cells(program, [*NEW_SITE[:5], "41.0000"])
        site = self.saved_site(program, "yes.trml")
        self.assertEqual((site.position[5], site.faults), (41.0, 0))
        self.close_unchanged(program)

    # --- the drag

    def until_dragged(self, program, dx, site):
        """Until the longitude has gone against the drag by so many pixels, the seconds cut to thousandths; the cells."""
        side = int(256 * site.scale + 0.5)
        expected = seconds(*site.position[3:]) - dx * 360.0 / (side * 2 ** site.zoom) * 3600.0

        def dragged():
            cells = self.cells(program)
            return cells if abs(seconds(*cells[3:]) - expected) < 0.0011 else None
        return program.until(dragged, f"a longitude of {expected} seconds")

    def test_a_drag_moves_the_site_under_the_crosshair(self):
        self.make_project()
        program = self.start()
        x, y = self.middle(program)
        before = SiteFile.read(self.project)
        self.hold(program, (x, y))
        self.move(program, (x + 10, y - 10), (x + 25, y - 20))
        self.until_dragged(program, 25, before)
        self.move(program, (x + 40, y - 30))
        cells = self.until_dragged(program, 40, before)
        self.let_go(program)
        self.assertLess(seconds(*cells[:3]), seconds(*NEW_SITE[:3]))
        program.screenshot("field_dragged")
        site = self.saved_site(program)
        self.assertEqual([f"{value:.0f}" for value in site.position[:2]], cells[:2])
        self.assertEqual(f"{site.position[5]:.4f}", cells[5])
        self.assertEqual(site.position[5], round(site.position[5], 3))
        # Behind the release the pointer moves nothing.
        self.move(program, (x - 60, y), (x - 90, y + 40))
        program.point_at(MAP)
        program.until(lambda: program.status() != "", "the place under the pointer")
        self.assertEqual(self.cells(program), cells)
        self.close_unchanged(program)

    def test_a_press_without_a_move_stores_the_same_numbers_and_asks_nothing(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        x, y = self.middle(program)
        program.until(program.has_active_window, "an active window")
        program.xdotool("mousemove", x - 70, y + 30, "click", 1)
        program.until(lambda: (program.focused() or ("", ""))[1] == MAP, "focus on the map")
        program.close_window()
        program.answer(UNSAVED.format(self.project.name), "キャンセル")  # stored
        self.assertEqual(self.cells(program), NEW_SITE)
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def drag_to_the_question(self, program):
        x, y = self.middle(program)
        self.hold(program, (x, y))
        self.move(program, (x + 40, y - 30))
        program.box(QUESTION)
        return x, y

    def test_a_no_in_a_drag_changes_nothing_wherever_the_button_comes_up(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        # The button comes up over the box.
        self.drag_to_the_question(program)
        program.point_at(YES)
        self.let_go(program)
        self.assertTrue(program.has_box())  # that was no click
        program.press(NO)
        program.until(lambda: not program.has_box(), "question closed")
        self.until_cells(program, NEW_SITE)
        # Outside of it, on the map.
        x, y = self.drag_to_the_question(program)
        self.move(program, (x + 80, y + 200))
        self.let_go(program)
        program.press(NO)
        program.until(lambda: not program.has_box(), "question closed")
        self.move(program, (x - 80, y + 100))
        self.until_cells(program, NEW_SITE)
        # Only behind the answer by a key.
        x, y = self.drag_to_the_question(program)
        program.keys("Escape")
        program.until(lambda: not program.has_box(), "question closed")
        self.move(program, (x + 80, y + 20), (x + 90, y + 90))
        self.let_go(program)
        self.move(program, (x + 70, y + 60))
        program.until(lambda: program.status().startswith("北緯"), "the place under the pointer")
        self.until_cells(program, NEW_SITE)
        program.until(lambda: not program.has_box(), "no further question")
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def yes_in_a_drag(self, release):
        """Ends with the move that asked, since the button is up behind the answer."""
        self.make_project(lambda site: site.add_fault())
        before = SiteFile.read(self.project)
        program = self.start()
        x, y = self.drag_to_the_question(program)
        release(program, x, y)
        self.let_go(program)
        program.press(YES)
        program.until(lambda: not program.has_box(), "question closed")
        cells = self.until_dragged(program, 40, before)
        self.move(program, (x - 80, y + 100), (x - 100, y + 110))
        site = self.saved_site(program)
        self.assertEqual(self.cells(program), cells)
        self.assertEqual(site.faults, 0)
        self.assertEqual(f"{site.position[5]:.4f}", cells[5])
        self.close_unchanged(program)

    def test_a_yes_with_the_button_up_over_the_box_ends_the_drag(self):
        self.yes_in_a_drag(lambda program, x, y: program.point_at(NO))

    def test_a_yes_with_the_button_up_beside_the_box_ends_the_drag(self):
        self.yes_in_a_drag(lambda program, x, y: self.move(program, (x + 80, y + 200)))

    def test_a_drag_goes_on_when_the_question_is_answered_by_a_key(self):
        self.make_project(lambda site: site.add_fault())
        before = SiteFile.read(self.project)
        program = self.start()
        x, y = self.drag_to_the_question(program)
        program.keys("y")
        program.until(lambda: not program.has_box(), "question closed")
        self.until_dragged(program, 40, before)
        self.move(program, (x + 60, y - 40), (x + 90, y - 60))
        cells = self.until_dragged(program, 90, before)
        self.let_go(program)
        site = self.saved_site(program)
        self.assertEqual(f"{site.position[5]:.4f}", cells[5])
        self.assertEqual(site.faults, 0)
        self.close_unchanged(program)

    def test_a_command_in_a_drag_takes_what_is_shown(self):
        self.make_project()
        program = self.start()
        step = program.action_of("作業手順の確認")
        x, y = self.middle(program)
        self.hold(program, (x, y))
        self.move(program, (x + 40, y - 30))
        cells = self.until_dragged(program, 40, SiteFile.read(self.project))
        program.act(step)
        program.until(lambda: not program.look(MAP), "another screen")
        self.move(program, (x - 80, y + 30))
        self.let_go(program)
        program.act(program.action_of("現場設定"))
        program.find(MAP)
        self.assertEqual(self.cells(program), cells)
        self.assertEqual(f"{self.saved_site(program).position[5]:.4f}", cells[5])
        self.close_unchanged(program)

    # --- zoom

    def test_the_wheel_stops_at_the_highest_and_lowest_zoom(self):
        def at_the_top(site):
            site.zoom, site.scale = 16, 1.4
        saved = self.make_project(at_the_top)
        program = self.start()
        program.until(lambda: self.zoom(program) == "ズーム 16", "the zoom of the file")
        program.point_at(MAP)
        program.xdotool("click", "--repeat", 5, "--delay", 20, 4)  # up
        program.keys("plus", "KP_Add")
        self.assertEqual(self.saved(program), saved)  # dropped, each of them
        program.point_at(JOB)
        program.xdotool("click", "--repeat", 5, "--delay", 20, 5)  # not over the map
        self.assertEqual(self.saved(program, "beside.trml"), saved)
        program.point_at(MAP)
        program.xdotool("click", "--repeat", 100, "--delay", 15, 5)  # down to the end
        program.until(lambda: self.zoom(program) == "ズーム 4", "the lowest zoom")
        site = self.saved_site(program, "down.trml")
        self.assertEqual(site.zoom, 4)
        self.assertTrue(0.75 <= site.scale < 0.75 / 0.9, site.scale)
        self.assertEqual(site.position, SiteFile.read(self.project).position)
        program.keys("minus", "KP_Subtract")
        self.assertEqual(SiteFile.read(self.desktop.folder / "down.trml"), self.saved_site(program, "lower.trml"))
        program.keys("plus")
        self.assertAlmostEqual(self.saved_site(program, "up.trml").scale, site.scale * 1.1, places=12)
        program.keys("Left", "Down")  # the crosshair marks the site
        self.assertEqual(self.cells(program), NEW_SITE)
        self.close_unchanged(program)

    # --- the zone

    def in_dialog(self, program, title, name, role):
        """The control of that name below the dialog of that title."""
        def found():
            inside = False
            for node in program.nodes():
                inside = (inside or node.get_role() == ROLE.DIALOG) and not (
                    node.get_role() == ROLE.DIALOG and node.get_name() != title)
                if inside and node.get_name() == name and node.get_role() == role:
                    return node
            return None
        return program.until(found, f"{name} in {title}")

    def marked_zones(self, program):
        """Rows of the dialog's grid that are ticked."""
        table = self.in_dialog(program, ZONE_DIALOG, ZONE, ROLE.TABLE)
        return [row for row in range(19)
                if states(Atspi.Table.get_accessible_at(table, row, 0)).contains(STATE.CHECKED)]

    def area_text(self, program):
        return next(node.get_name() for node in program.nodes() if node.get_name().startswith("適用区域 "))

    def click_zone_map(self, program, x, y):
        program.settled_geometry(ZONE_DIALOG)
        box = Atspi.Component.get_extents(self.in_dialog(program, ZONE_DIALOG, ZONE_MAP, ROLE.FILLER), Atspi.CoordType.SCREEN)
        self.assertEqual((box.width, box.height), (500, 500))
        program.xdotool("mousemove", box.x + x, box.y + y, "click", 1)

    def choose_in_list(self, program, key, times):
        before = program.windows()
        program.click_cell(ZONE, 0, 0)
        program.until(lambda: program.windows() - before, "the list of the zones")
        program.xdotool("key", "--delay", 30, "Home", *[key] * times, "Return")

    def test_the_zone_is_chosen_from_the_list(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        self.choose_in_list(program, "Down", 7)
        program.answer(QUESTION, NO)
        self.assertEqual(program.cell(ZONE, 0, 0), "I (1)")
        self.assertEqual(self.saved(program), saved)
        self.choose_in_list(program, "Down", 7)
        program.answer(QUESTION, YES)
        program.until(lambda: program.cell(ZONE, 0, 0) == "VIII (8)", "the zone")
        program.until(lambda: "VIII (8)" in self.plane(program), "its plane coordinates")
        self.choose_in_list(program, "Down", 18)  # asks nothing more
        program.until(lambda: program.cell(ZONE, 0, 0) == "XIX (19)", "the zone")
        site = self.saved_site(program, "yes.trml")
        self.assertEqual((site.zone, site.faults), ("XIX (19)", 0))
        self.close_unchanged(program)

    def test_the_zone_is_chosen_on_the_map_of_japan(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        program.press(ZONE_BUTTON)
        program.answer(QUESTION, NO)
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(self.saved(program), saved)
        # A Yes clears even if the dialog is then left.
        program.press(ZONE_BUTTON)
        program.answer(QUESTION, YES)
        program.until(lambda: program.dialogs() == [ZONE_DIALOG], "the dialog")
        program.keys("Escape")
        program.until(lambda: not program.dialogs(), "the dialog closed")
        site = self.saved_site(program, "yes.trml")
        self.assertEqual((site.zone, site.faults), ("I (1)", 0))
        program.press(ZONE_BUTTON)  # asks nothing more
        program.until(lambda: self.marked_zones(program) == [0], "the zone ticked")
        self.assertTrue(self.area_text(program).startswith("適用区域 長崎県"))
        self.click_zone_map(program, 20, 20)  # the sea
        self.assertEqual(self.marked_zones(program), [0])
        self.click_zone_map(program, 276, 198)
        program.until(lambda: self.marked_zones(program) == [8], "zone IX")
        self.assertTrue(self.area_text(program).startswith("適用区域 東京都"))
        program.screenshot("zone_dialog")
        program.press(ZONE_HELP)
        program.until(lambda: HELP_DIALOG in program.dialogs(), "the help")
        program.settled_geometry(HELP_DIALOG)
        program.screenshot("zone_help")
        program.press("閉じる")
        program.until(lambda: program.dialogs() == [ZONE_DIALOG], "the help closed")
        program.press("OK")
        program.until(lambda: not program.dialogs(), "the dialog closed")
        self.assertEqual(program.cell(ZONE, 0, 0), "IX (9)")
        self.assertEqual(self.saved_site(program, "zone.trml").zone, "IX (9)")
        self.close_unchanged(program)

    def test_the_zone_is_chosen_by_keys_alone(self):
        self.make_project()
        program = self.start()
        program.focus(ZONE_BUTTON)
        program.keys("space")
        program.until(lambda: self.marked_zones(program) == [0], "the zone ticked")
        program.settled_geometry(ZONE_DIALOG)
        program.keys("Down", "Down", "space")
        program.until(lambda: self.marked_zones(program) == [2], "zone III")
        program.keys("space")  # on the row that is chosen
        program.focus("OK")
        self.assertEqual(self.marked_zones(program), [2])
        program.keys("space")
        program.until(lambda: not program.dialogs(), "the dialog closed")
        self.assertEqual(program.cell(ZONE, 0, 0), "III (3)")
        self.assertEqual(self.saved_site(program).zone, "III (3)")
        self.close_unchanged(program)

    def test_an_unknown_zone_is_shown_and_ok_gives_the_first(self):
        def unknown(site):
            site.zone = "XX (20)"
        self.make_project(unknown)
        program = self.start()
        self.assertEqual(program.cell(ZONE, 0, 0), "XX (20)")
        program.find("平面直角座標: 座標系番号を選択してください。")
        program.press(ZONE_BUTTON)
        program.until(lambda: program.dialogs() == [ZONE_DIALOG], "the dialog")
        self.assertEqual(self.marked_zones(program), [])
        program.press("OK")
        program.until(lambda: program.cell(ZONE, 0, 0) == "I (1)", "the first zone")
        self.close(program, NO)

    def test_a_faulty_file_of_the_areas_is_told_in_place_of_the_dialog(self):
        saved = self.make_project()
        program = self.start()
        areas = program.folder / "SystemData/keiarea.csv"
        areas.write_bytes(areas.read_bytes() + b"\r\n12.5\r\n")
        program.press(ZONE_BUTTON)
        program.until(program.has_box, "box about the file")
        self.assertTrue(any("keiarea.csv" in name for name in program.shown()))
        program.press("OK")
        program.until(lambda: not program.has_box(), "box closed")
        self.assertEqual(program.dialogs(), [])
        self.assertEqual(self.saved(program), saved)
        areas.unlink()  # without areas the grid alone chooses
        program.press(ZONE_BUTTON)
        program.until(lambda: self.marked_zones(program) == [0], "the zone ticked")
        self.click_zone_map(program, 276, 198)
        self.assertEqual(self.marked_zones(program), [0])
        program.press("キャンセル")
        program.until(lambda: not program.dialogs(), "the dialog closed")
        self.close_unchanged(program)

    def dialogs_keep_their_size(self, scale):
        # All by the actions of the bus: at other scales than 1 it does not tell where a control is seen.
        self.desktop.env["QT_SCALE_FACTOR"] = scale
        self.make_project()
        program = self.start()
        for button, title in ((ZONE_BUTTON, ZONE_DIALOG), (ZONE_HELP, HELP_DIALOG)):
            program.act_on(button)
            x, y, width, height = program.settled_geometry(title)
            opened = time.monotonic()
            program.screenshot(f"{'zone' if button == ZONE_BUTTON else 'help'}_at_scale_{scale}")
            self.assertTrue(x >= 0 and y >= 0 and x + width <= 1024 and y + height <= 768, (x, y, width, height))
            wait_until(lambda: time.monotonic() > opened + 2, "two seconds")
            self.assertEqual(program.settled_geometry(title), (x, y, width, height))
        program.act_on("閉じる")
        program.until(lambda: program.dialogs() == [ZONE_DIALOG], "the help closed")
        program.act_on("キャンセル")
        program.until(lambda: not program.dialogs(), "the dialog closed")
        self.close_unchanged(program)

    def test_the_zone_dialogs_keep_their_size(self):
        self.dialogs_keep_their_size("1")

    @long_case
    def test_the_zone_dialogs_keep_their_size_at_scale_1_5(self):
        self.dialogs_keep_their_size("1.5")

    @long_case
    def test_the_zone_dialogs_keep_their_size_at_scale_2(self):
        self.dialogs_keep_their_size("2")

    # --- the map

    def until_map_shows(self, program, colour, what):
        """Beside the crosshair, which a painting gets last."""
        x, y = self.middle(program)
        program.until(lambda: self.desktop.pixel(x, y - 60) == CROSSHAIR and self.desktop.pixel(x - 60, y - 60) == colour, what)

    def tile_colour(self):
        """Of the middle of the tile that the local service sends."""
        tile = ROOT / "tests/data/tiles/tile.png"
        done = subprocess.run(["convert", tile, "-crop", "1x1+128+128", "-depth", "8", "rgb:-"], env=self.desktop.env,
                              check=True, capture_output=True)
        return tuple(done.stdout)

    def map_requests(self):
        """Of tiles, without those of the probes."""
        return [path for path in self.desktop.asked("/xyz/std/") if "/15/28817/12802" not in path]

    def test_tiles_are_asked_for_once_and_kept(self):
        self.make_project()
        program = self.start()
        self.until_map_shows(program, self.tile_colour(), "tiles")
        asked = self.map_requests()
        self.assertEqual(len(asked), len(set(asked)))
        for path in asked:
            zoom, x, y = path.removesuffix(".png").split("/")[-3:]
            self.assertTrue((program.folder / "_cache" / zoom / x / f"{y}.png").exists(), path)
        x, y = self.middle(program)
        self.hold(program, (x, y))
        self.move(program, (x + 5, y))
        self.let_go(program)
        self.close(program, NO)
        program = self.start()
        self.until_map_shows(program, self.tile_colour(), "tiles")
        self.assertEqual(self.map_requests(), asked)
        self.assertTrue((program.folder / "_cache").exists())
        self.close_unchanged(program)

    def test_slow_tiles_arrive_while_the_window_lives(self):
        self.make_project()
        self.wish_behind_the_probes("tile=trickle:2")
        program = self.start()
        program.until(self.map_requests, "the first request")
        self.pick(program, JOB, 0, 0)
        self.enter(program, "while tiles come\n")
        program.until(lambda: program.cell(JOB, 0, 0) == "while tiles come", "text typed")
        self.until_map_shows(program, self.tile_colour(), "tiles")
        self.close(program, NO)

    def wish_behind_the_probes(self, wish):
        """How the map's tiles are answered, while the probes at the start find the services alive."""
        self.desktop.wish(wish, "tile15=honest")

    def test_garbage_and_failures_are_gaps(self):
        self.make_project()
        self.wish_behind_the_probes("tile=garbage")
        program = self.start()
        self.until_map_shows(program, GAP, "gaps")
        asked = self.map_requests()
        program.press(BACK)
        self.pick(program, JOB, 0, 0)
        self.enter(program, "text\n")
        program.until(lambda: program.cell(JOB, 0, 0) == "text", "text typed")
        self.assertEqual(self.map_requests(), asked)  # gaps for the life of the map
        self.close(program, NO)

        program = self.start()
        self.wish_behind_the_probes("tile=drop")
        program.act(program.action_of(CLEAR_CACHE))
        program.answer(CLEAR_QUESTION, YES)
        self.assertFalse((program.folder / "_cache").exists())
        before = len(self.map_requests())
        program.point_at(MAP)
        program.xdotool("click", "--repeat", 8, "--delay", 20, 4)  # to another level
        program.until(lambda: len(self.map_requests()) > before, "requests that fail")
        self.until_map_shows(program, GAP, "gaps")
        self.close(program, NO)

    def test_a_stalled_service_holds_nothing(self):
        self.make_project()
        self.wish_behind_the_probes("tile=stall")
        program = self.start()
        program.until(self.map_requests, "the first request")
        x, y = self.middle(program)
        self.hold(program, (x, y))
        self.move(program, (x + 40, y - 30))
        self.let_go(program)
        program.until(lambda: self.cells(program) != NEW_SITE, "the site moved")
        self.pick(program, JOB, 0, 0)
        self.enter(program, "text\n")
        program.until(lambda: program.cell(JOB, 0, 0) == "text", "text typed")
        self.move(program, (x + 20, y + 20))
        program.until(lambda: program.status().startswith("北緯"), "the place under the pointer")
        asked = len(self.map_requests())
        began = time.monotonic()
        program.press("作業手順の確認")  # breaks the request off
        program.until(lambda: not program.look(MAP), "another screen")
        program.press("現場設定")
        program.find(MAP)
        self.assertLess(time.monotonic() - began, 20)  # the tile would be waited for longer
        program.until(lambda: len(self.map_requests()) > asked, "asked for again")
        self.desktop.wish()
        self.saved(program)
        self.until_map_shows(program, self.tile_colour(), "tiles, once the service answers")
        self.close_unchanged(program)

    def test_the_program_ends_at_once_while_a_tile_is_waited_for(self):
        self.make_project()
        self.wish_behind_the_probes("tile=stall")
        program = self.start()
        program.until(self.map_requests, "the first request")
        program.until(program.has_active_window, "an active window")
        program.keys("alt+f")
        program.find("アプリケーションの終了(X)")
        began = time.monotonic()
        program.keys("x")
        self.assertEqual(program.process.wait(20), 0)
        self.assertLess(time.monotonic() - began, 5)  # a dead service is waited for six times as long

    def test_the_map_follows_the_menu_offline_and_online(self):
        self.make_project()
        program = self.start()
        self.until_map_shows(program, self.tile_colour(), "tiles")
        self.assertFalse(program.title().endswith(OFFLINE_MARK))
        asked = len(self.desktop.asked())
        program.act(program.action_of(ONLINE))
        program.until(lambda: program.title().endswith(OFFLINE_MARK), "the mark in the title")
        program.until(lambda: "オフライン" in self.zoom(program), "the map is off")
        program.screenshot("field_offline")
        x, y = self.middle(program)
        self.hold(program, (x, y))
        self.move(program, (x + 40, y - 30))
        self.let_go(program)
        program.until(lambda: self.cells(program) != NEW_SITE, "the site moved")
        self.assertEqual(len(self.desktop.asked()), asked)  # nobody is asked
        self.desktop.wish("ranking=drop")
        program.act(program.action_of(ONLINE))
        program.answer("J-SHIS OffLine")
        self.assertTrue(program.title().endswith(OFFLINE_MARK))
        self.assertIn("オフライン", self.zoom(program))
        self.desktop.wish()
        program.act(program.action_of(ONLINE))
        program.until(lambda: not program.title().endswith(OFFLINE_MARK), "no mark in the title")
        program.until(lambda: self.zoom(program).startswith("ズーム"), "the map is on")
        self.until_map_shows(program, self.tile_colour(), "tiles")
        self.close(program, NO)

    # --- the rest

    def test_the_pointer_is_read_out_and_leaves_nothing_behind(self):
        self.make_project()
        program = self.start()
        x, y = self.middle(program)
        self.move(program, (x, y))
        program.until(lambda: program.status() == "北緯 38°15′20.660″　東経 137°46′37.000″", "the site under the crosshair")
        self.move(program, (x + 30, y))
        program.until(lambda: program.status().startswith("北緯 38°15′20.660″　東経 139°"), "a place to the east")
        program.point_at(JOB)
        program.until(lambda: not program.status().startswith("北緯"), "nothing beside the map")
        self.close_unchanged(program)

    def test_the_grids_have_their_menus_and_the_map_has_none(self):
        saved = self.make_project()
        program = self.start()
        self.pick(program, JOB, 0, 0)
        self.enter(program, "Text\n")
        program.until(lambda: program.cell(JOB, 0, 0) == "Text", "text typed")
        program.open_cell_menu(JOB, 0, 0)
        program.screenshot("field_menu")
        program.keys("Down", "Return")  # 切り取り
        program.until(lambda: program.cell(JOB, 0, 0) == "", "text cut")
        program.open_cell_menu(COMMENTS, 9, 0)
        program.keys("Up", "Return")  # 貼り付け
        program.until(lambda: program.cell(COMMENTS, 9, 0) == "Text", "text pasted")
        program.open_cell_menu(POSITION, 0, 0)
        program.keys("Down", "Return")  # コピー
        program.open_cell_menu(POSITION, 1, 0)
        program.keys("Down", "Down", "Return")  # 貼り付け
        self.until_cells(program, [*NEW_SITE[:3], "38", *NEW_SITE[4:]])
        program.open_cell_menu(ZONE, 0, 0)
        program.keys("Down", "Down", "Return")  # コピー, its only entry
        program.open_cell_menu(SITE, 1, 0)
        program.keys("Up", "Return")
        program.until(lambda: program.cell(SITE, 1, 0) == "I (1)", "the zone's text pasted")
        before = program.windows()
        program.xdotool("mousemove", *self.middle(program), "click", 3)
        program.keys(*["plus"] * 8)  # which a menu would take
        program.until(lambda: self.zoom(program) == "ズーム 6", "keys that reach the map")
        self.assertEqual(program.windows(), before)
        self.assertNotEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def test_the_picture_buttons_tell_what_they_do(self):
        self.make_project()
        program = self.start()
        for button in (ZONE_BUTTON, BACK):
            before = program.windows()
            program.point_at(button)
            program.until(lambda: program.windows() - before, f"tool tip of {button}")
            program.point_at(JOB)
            program.until(lambda: program.windows() == before, f"no tool tip of {button}")
        self.close_unchanged(program)

    def test_clearing_the_tiles_asks_first(self):
        saved = self.make_project()
        program = self.start()
        self.until_map_shows(program, self.tile_colour(), "tiles")
        asked = self.map_requests()
        program.act(program.action_of(CLEAR_CACHE))
        program.answer(CLEAR_QUESTION, NO)
        self.assertTrue((program.folder / "_cache").exists())
        program.act(program.action_of(CLEAR_CACHE))
        program.answer(CLEAR_QUESTION, YES)
        self.assertFalse((program.folder / "_cache").exists())
        self.until_map_shows(program, self.tile_colour(), "tiles, which are in memory still")
        self.assertEqual(self.map_requests(), asked)
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def test_the_back_button_leaves_the_project_alone(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        program.press(BACK)
        program.focus(BACK)
        program.keys("space")
        self.assertEqual(self.cells(program), NEW_SITE)
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)

    def test_the_keys_reach_every_control_and_each_has_a_name(self):
        self.make_project()
        program = self.start()
        program.until(lambda: (program.focused() or ("", ""))[1] == MAP, "focus on the map at first")
        self.assertEqual(program.nameless(), [])
        for name in (JOB, SITE, POSITION, ZONE, ZONE_BUTTON, BACK, COMMENTS, MAP, "地図の出典と利用規約"):
            program.focus(name)
        seen = []
        while len(seen) < 40 and (not seen or seen[-1] != MAP):
            program.keys("shift+Tab")
            program.until(lambda: (program.focused() or ("", ""))[1] not in ("", *seen[-1:]), "focus to move back")
            seen.append(program.focused()[1])
        self.assertEqual(seen[-1], MAP)
        self.close_unchanged(program)

    def test_commands_behind_the_question_of_a_drag_do_nothing(self):
        saved = self.make_project(lambda site: site.add_fault())
        program = self.start()
        actions = [program.action_of(name) for name in (NEW, ONLINE, ZONE_BUTTON, BACK, "作業手順の確認")]
        self.drag_to_the_question(program)
        down = program.buttons_down()
        program.act(*actions, *actions)
        program.until(lambda: program.buttons_down() == down, "the presses behind the question")
        self.assertEqual(len(program.dialogs()), 1)
        self.let_go(program)
        program.press(NO)
        program.until(lambda: not program.has_box(), "question closed")
        self.assertEqual(program.dialogs(), [])
        self.until_cells(program, NEW_SITE)
        self.assertFalse(program.title().endswith(OFFLINE_MARK))
        self.assertEqual(self.saved(program), saved)
        self.close_unchanged(program)


if __name__ == "__main__":
    route.main(FieldRoute)
