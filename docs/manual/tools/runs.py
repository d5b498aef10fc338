"""What the program prints into the manual. Chapters ask for these by name and for nothing else: {{run NAME}} puts the
command and what it printed, {{value NAME}} one number or text of it."""

import json
import math
import pathlib
import re
import subprocess
import tempfile

from source import ROOT

EXAMPLE = "samples/example/"
DAM, NEAR, COARSE = (EXAMPLE + f"record_{name}.csv" for name in ("dam_ns", "near_ew", "coarse"))
LIMIT = "data/LowSpec/h20_h.csv"
OWN_TARGET = "samples/spectra/target_sample_005_5s.csv"

# name: the words of tremlo-cli
RUNS = {
    "version": ["--version"],
    "inspect": ["inspect", EXAMPLE + "record_near_no_unit.txt"],
    "tables": ["tables", "--data", "data"],
    "adjust_dam": ["adjust", "--seed", DAM, "--target", LIMIT, "--out", "{out}/y.csv"],
    "adjust_coarse": ["adjust", "--seed", COARSE, "--target", LIMIT],
    "adjust_coarse_band": ["adjust", "--seed", COARSE, "--target", "{out}/band_01_5s.csv"],
    "adjust_coarse_iterations": ["adjust", "--seed", COARSE, "--target", LIMIT, "--iterations", "300"],
    "adjust_coarse_tolerance": ["adjust", "--seed", COARSE, "--target", LIMIT, "--tolerance", "0.2"],
    "adjust_own_target": ["adjust", "--seed", COARSE, "--target", OWN_TARGET],
    "adjust_strict": ["adjust", "--seed", DAM, "--target", LIMIT, "--tolerance", "0.02"],
    "adjust_strict_more": ["adjust", "--seed", DAM, "--target", LIMIT, "--tolerance", "0.02", "--iterations", "1000"],
    "adjust_near": ["adjust", "--seed", NEAR, "--target", LIMIT],
    "adjust_near_own": ["adjust", "--seed", NEAR, "--target", OWN_TARGET],
    "verify": ["project", "verify", EXAMPLE + "design.trml", "--data", "data"],
    "batch": ["batch", "samples/jobs.csv", "--out", "{out}/batch"],
}
# These end with 3: what they show is a calculation that does not reach its goal.
MAY_END_WITH_3 = {name for name in RUNS if name.startswith("adjust")}


class Runner:
    def __init__(self, program):
        self.program = str(program)
        self.kept = {}
        self.folder = tempfile.TemporaryDirectory()
        self._write_band()

    def _write_band(self):
        """The lower limit from 0.1 s on: a target that a step of 0.02 s can follow."""
        lines = (ROOT / LIMIT).read_text(encoding="cp932").splitlines()
        rows = [line for line in lines[1:] if line.strip() and float(line.split(",")[0]) >= 0.0999]
        path = pathlib.Path(self.folder.name, "band_01_5s.csv")
        path.write_bytes("\r\n".join([lines[0], *rows, ""]).encode("cp932"))

    def _call(self, words):
        words = [word.replace("{out}", self.folder.name) for word in words]
        return subprocess.run([self.program, *words], cwd=ROOT, capture_output=True, text=True, encoding="utf-8", timeout=600)

    def text(self, name):
        if name not in self.kept:
            done = self._call(RUNS[name])
            if done.returncode not in ((0, 3) if name in MAY_END_WITH_3 else (0,)):
                raise SystemExit(f"tremlo-cli {' '.join(RUNS[name])} ended with {done.returncode}: {done.stderr}")
            self.kept[name] = done.stdout.replace(self.folder.name, "out").rstrip()
        return self.kept[name]

    def shown(self, name):
        words = " ".join(word.replace("{out}", "out") for word in RUNS[name])
        return f"$ tremlo-cli {words}\n{self.text(name)}"

    def value(self, name):
        """NAME_passes, NAME_error, NAME_converged of a run of adjust; see VALUES for others."""
        if name in VALUES:
            return VALUES[name](self)
        run, _, key = name.rpartition("_")
        words = [word for word in RUNS[run] if word != "--out" and "{out}/y" not in word]
        if run + "!" not in self.kept:
            done = self._call([*words, "--json"])
            if done.returncode not in (0, 3):
                raise SystemExit(f"{run}: {done.stderr}")
            self.kept[run + "!"] = json.loads(done.stdout)
        told = self.kept[run + "!"]
        if key == "error":
            return f"{told['error'] * 100:.2f} %"
        if key == "passes":
            return str(told["passes"])
        if key == "converged":
            return "収束しました" if told["converged"] else "収束しませんでした"
        return f"{told['adjustedFigures'][key]:.4g}"


def _limit_names(runner):
    return str(len(json.loads(runner._call(["tables", "--data", "data", "--json"]).stdout)["lowerSpectra"]))


def _version(runner):
    return re.search(r"\d+\.\d+\S*", runner.text("version")).group(0)


# figures of adjust that a value may end in
ADJUST_KEYS = ("passes", "error", "converged", "pga", "pgv", "pgd", "endVelocity", "endDisplacement", "ariasIntensity", "duration")


def is_value(name):
    run, _, key = name.rpartition("_")
    return name in VALUES or (run.startswith("adjust") and run in RUNS and key in ADJUST_KEYS)


def _sign():
    """What docs/numerics.md has measured."""
    lines = (ROOT / "docs/numerics.md").read_text(encoding="utf-8").splitlines()
    rows = [line for line in lines if line.startswith("|")]
    first = next(i for i, row in enumerate(rows) if row.startswith("| record |"))
    table = []
    for row in rows[first:]:
        if row.count("|") != rows[first].count("|"):
            break
        table.append(row)
    if len(table) < 3:
        raise SystemExit("docs/numerics.md has no table of the sign")
    return "\n".join([table[0].replace("record", "記録").replace("above", "以上"), *table[1:]])


def _bench():
    """What README.md has measured, with the count of steps for its length."""
    lines = (ROOT / "README.md").read_text(encoding="utf-8").splitlines()
    first = next(i for i, line in enumerate(lines) if line.startswith("| samples | plain loop |"))
    rows = ["| 点数 | 振動子の計算（N²/2） | 通常の計算 | SSE2 | AVX2 | AVX-512 |", "|---|---|---|---|---|---|"]
    for line in lines[first + 2:]:
        if not line.startswith("|"):
            break
        cells = [cell.strip().replace(" times", " 倍").replace(" ms", " ミリ秒").replace(" s", " 秒") for cell in line.strip("|").split("|")]
        count = int(cells[0].replace(",", ""))
        rows.append(f"| {cells[0]} | {count * count // 2:,} | " + " | ".join(cells[1:]) + " |")
    if len(rows) < 4:
        raise SystemExit("README.md has no table of the sweep")
    return "\n".join(rows)


TABLES = {"sign": _sign, "bench": _bench}
def _sign_in_the_middle(_):
    """The largest of the columns from 20 to 100 time steps, rounded up."""
    rows = [[cell.strip() for cell in row.strip("|").split("|")] for row in _sign().split("\n")]
    columns = [rows[0].index("20-50 dt"), rows[0].index("50-100 dt")]
    return f"{math.ceil(100 * max(float(row[k]) for row in rows[2:] for k in columns)) / 100:.2f} %"


def _undershoot(runner):
    return re.search(r"目標を下回る最大：([\d.]+ %)", runner.text("adjust_dam")).group(1)


VALUES = {"undershoot_dam": _undershoot, "sign_in_the_middle": _sign_in_the_middle,
          "lower_limits": _limit_names, "program_version": _version}
