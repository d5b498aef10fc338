#!/usr/bin/env python3
"""The guideline route in a real window: one project from the site to the files of the adjusted wave."""

import json
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from desktop import wait_until  # noqa: E402
from driver import ROLE, STATE, Atspi, states  # noqa: E402
from hands import Bus, Keys, Pointer  # noqa: E402
from road import *  # noqa: E402,F403
import route  # noqa: E402
from route import tools  # noqa: E402


class GuidelineRoute(Road):
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
        self.assertEqual(self.export(hands, EXPORT_ADJUSTED, "adjusted.csv"), self.adjusted_by_command(RECORDS[FITS], target))
        seed = self.export(hands, EXPORT_SEED, "seed.csv")
        for command, exported in (("response", seed[1]), ("fourier", seed[2])):
            out = self.desktop.folder / f"{command}.csv"
            self.assertEqual(self.command(command, RECORDS[FITS], "--out", out).returncode, 0)
            self.assertEqual(exported, out.read_bytes())
        self.close(program, NO)

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
        self.assertEqual(self.export(hands, EXPORT_ADJUSTED, "keys.csv"),
                         self.adjusted_by_command(RECORDS[FITS], tools.bin / "LowSpec/h17.csv"))
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
        self.assertEqual(self.export(hands, EXPORT_ADJUSTED, "adjusted.csv"),
                         self.adjusted_by_command(RECORDS[FITS], tools.bin / "LowSpec/h17.csv"))
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
        self.assertEqual(adjusted, self.adjusted_by_command(RECORDS[FITS], target))
        self.close(program, NO)


if __name__ == "__main__":
    route.main(GuidelineRoute)
