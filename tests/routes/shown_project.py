"""What the screens must show of a project, field by field, from what the command line shows of it."""


from road import *  # noqa: F403
from driver import MANY_ROWS


def tick(title, on):
    return f"{title} {'オン' if on else 'オフ'}"


def colour(bgr):
    return f"色 赤{bgr & 255} 緑{bgr >> 8 & 255} 青{bgr >> 16 & 255}"


def area(periods, values):
    pairs = list(zip(periods, values))
    return sum(abs(b[0] - a[0]) * (a[1] + b[1]) * 0.5 for a, b in zip(pairs, pairs[1:]))


def figures(periods, values):
    return [f"{area(periods, values):.2f}", f"{max(values):.2f}"]


class ShownProject:
    def __init__(self, case, project):
        self.case, self.project = case, project

    def expect(self, told):
        """`told`: the contents of every screen."""
        self.told = told
        self.field(), self.procedure(), self.waves(), self.neighbours(), self.faults(), self.attenuation()
        self.limits(), self.candidates(), self.adjustment(), self.visualization()

    def table(self, step, name):
        return next(entry[1] for entry in self.told[step] if entry[0] == name and isinstance(entry[1], list))

    def texts(self, step):
        """Of the edits, by name."""
        return {entry[1]: entry[-1] for entry in self.told[step] if entry[0] == "text"}

    def descriptions(self, step):
        return {entry[1]: entry[2] for entry in self.told[step] if len(entry) > 2}

    def checked(self, step, name):
        return next("unchecked" not in entry for entry in self.told[step] if entry[:2] == ["check box", name])

    def equal(self, shown, expected, what):
        self.case.assertEqual(shown, expected, what)

    def field(self):
        p = self.project
        for name, members in (("業務情報", ("title", "subtitle", "workDate", "company", "phone", "fax")),
                              ("現場情報", ("siteName", "address")), (ZONE, ("planeZone",))):
            self.equal(self.table(FIELD, name), [[p[member]] for member in members], name)
        self.equal(self.table(FIELD, "コメント"), [[comment] for comment in p["comments"]], "comments")
        self.equal(self.table(FIELD, POSITION), [[f"{p[a + 'Deg']:.0f}", f"{p[a + 'Min']:.0f}", f"{p[a + 'Sec']:.4f}"]
                                                 for a in ("lat", "lon")], POSITION)
        self.equal(self.descriptions(FIELD)[MAP], f"ズーム {p['mapZoom']}", MAP)

    def procedure(self):
        taken = [entry[2] == "採用中" for entry in self.told[CHECK] if entry[1].startswith(("位相特性", "振幅特性"))]
        p = self.project
        self.equal(taken, [p["flowFixed"], p["flowQ1Yes"], p["flowQ2Yes"], p["flowCollect"], p["flowFaultSource"],
                           p["flowNeighbourWave"]], CHECK)

    def waves(self):
        wave = next(wave for wave in self.project["seedWaves"] if wave["current"])
        acc, step = wave["acc"], wave["timeStep"]
        texts = self.texts(WAVES)
        self.equal((texts["波形名"], int(texts["データ数"]), float(texts["時間間隔"])), (wave["name"], len(acc), step), WAVES)
        places = range(len(acc)) if len(acc) <= MANY_ROWS else [0, 1, 2, len(acc) // 2, len(acc) - 1]
        shown = [[float(text) for text in row] for row in self.table(WAVES, SAMPLES)]
        self.equal([row[1] for row in shown], [acc[place] for place in places], "samples")
        for row, place in zip(shown, places):
            self.case.assertAlmostEqual(row[0], place * step, places=9)
        for row, value in zip(self.table(WAVES, "最大値と最小値"), (max(acc), min(acc))):
            self.equal(float(row[1]), value, "extremes")
            self.case.assertAlmostEqual(float(row[0]), acc.index(value) * step, places=9)

    def neighbours(self):
        self.equal(self.table(NEAR, NEIGHBOURS),
                   [[str(number), wave["name"], colour(wave["siteColor"]), tick("表示", wave["siteShow"]),
                     tick("利用", wave["siteUse"])] for number, wave in enumerate(self.project["seedWaves"], 1)], NEAR)
        self.curves(NEAR, [wave["name"] for wave in self.project["seedWaves"] if wave["siteShow"]])

    def curves(self, step, names):
        """The graph tells the names of its curves."""
        told = self.descriptions(step)[GRAPH]
        for name in names:
            self.case.assertIn(name, told, step)

    def planes(self):
        for fault in self.project["faults"]:
            for plane in range(len(fault["groundClass"])):
                yield fault, plane, f"({plane + 1})" * (len(fault["groundClass"]) > 1) + fault["ltename"]

    def distances(self, fault, plane):
        return [f"{fault[kind][plane]:.4f}" for kind in ("shortestDistance", "equivalentDistance")]

    def faults(self):
        self.equal(self.project["faultAcquireMode"], 0, "mode")
        self.equal(float(self.texts(FAULTS)["探索範囲"]), self.project["searchRangeKm"], "range")
        self.equal(self.table(FAULTS, FOUND),
                   [[fault["rank"], fault["ltename"], fault["magnitude"], *self.distances(fault, plane),
                     *(fault[member] for member in ("i45_ps", "i50_ps", "i55_ps", "i60_ps"))]
                    for fault, plane, _ in self.planes()], FAULTS)

    def attenuation(self):
        rows = [[fault["rank"], name, fault["groundClass"][plane], fault["magnitude"], fault["ijma"],
                 *self.distances(fault, plane), colour(fault["attenColor"][plane]), tick("表示", fault["attenShow"][plane]),
                 tick("利用", fault["attenUse"][plane])] for fault, plane, name in self.planes()]
        self.equal(self.table(ATTENUATION, PLANES), rows, PLANES)
        self.equal(self.table(ATTENUATION, RELATIONS),
                   [[name, tick("選択", name == self.project["attenuationMethod"])]
                    for name in ("(水平)H20ダム距離減衰", "(鉛直)H20ダム距離減衰")], RELATIONS)

    def limits(self):
        self.equal(self.table(LOWER, LIMITS), [[str(number), limit["name"], tick("選択", limit["lowerSelected"])]
                                               for number, limit in enumerate(self.project["lowerSpectra"], 1)], LOWER)

    def record_row(self, record):
        self.case.assertAlmostEqual(record["spectrumArea"], area(record["periods"], record["accSpec"]), places=6)
        return [record["name"], *figures(record["periods"], record["accSpec"]), colour(record["baseColor"]),
                tick("表示", record["baseShow"]), tick("基準", record["baseSelected"])]

    def candidates(self):
        rows = [self.record_row(wave) for wave in self.project["seedWaves"] if wave["siteUse"]]
        for fault, plane, name in self.planes():
            if fault["attenUse"][plane]:
                for title, kind, short in (("最短距離", "shortest", "short"), ("等価震源距離", "equivalent", "equiv")):
                    spectrum = fault[kind + "Periods"][plane], fault[kind + "Spectrum"][plane]
                    self.case.assertAlmostEqual(fault[short + "Area"][plane], area(*spectrum), places=6)
                    rows.append([f"({title}){name}", *figures(*spectrum), colour(fault[short + "BaseColor"][plane]),
                                 tick("表示", fault[short + "BaseShow"][plane]),
                                 tick("基準", fault[short + "BaseSelected"][plane])])
        rows.append(next(self.record_row(limit) for limit in self.project["lowerSpectra"] if limit["lowerSelected"]))
        self.equal(self.table(BASE, CANDIDATES), [[str(number), *row] for number, row in enumerate(rows, 1)], BASE)
        self.equal([row[0] for row in rows if row[-1] == tick("基準", True)], [self.project["baseSpectrumName"]], "base")

    def adjustment(self):
        limit = next(limit for limit in self.project["lowerSpectra"] if limit["baseSelected"])
        self.equal(self.table(ADJUST, TARGET), [[LOWER, self.project["baseSpectrumName"],
                                                 *figures(limit["periods"], limit["accSpec"]),
                                                 tick("表示", limit["baseAdjustShow"])]], TARGET)
        rows = []
        for number, wave in enumerate(self.project["seedWaves"], 1):
            kind = ("adjustedPeriods", "adjustedSpec") if wave["adjustChecked"] else ("periods", "accSpec")
            rows.append([str(number), wave["name"], *figures(*(wave[member] for member in kind)), colour(wave["adjustColor"]),
                         tick("表示", wave["adjustShow"]), tick("採用", wave["adopted"]), tick("調整", wave["adjustChecked"])])
        self.equal(self.table(ADJUST, SEEDS), rows, SEEDS)
        self.curves(ADJUST, [wave["name"] for wave in self.project["seedWaves"]] + [self.project["baseSpectrumName"]])

    def visualization(self):
        p, texts = self.project, self.texts(VISUAL)
        wave = next(wave for wave in p["seedWaves"] if wave["adopted"])
        self.equal((p["seedAdopted"], p["seedAdoptedName"]), (True, wave["name"]), "adopted")
        self.equal((texts["採用した原種波形"], int(texts["データ数"]), float(texts["時間間隔"])),
                   (wave["name"], len(wave["acc"]), wave["timeStep"]), VISUAL)
        for name, member in (("原種波形", "visualShowOrig"), ("調整後波形", "visualShowAdjusted")):
            self.equal(self.checked(VISUAL, name), p[member] == 1, name)
