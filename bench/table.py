"""Prints the results of the benchmark programs as Markdown tables, with the ratios to their baselines.

A benchmark whose name has a sibling `<group>/plain/...`, and every counter that ends in "ratio", shows as a ratio.
"""

import json
import os
import sys


def rows_of(path):
    with open(path, encoding="utf-8") as stream:
        data = json.load(stream)
    return [row for row in data["benchmarks"] if row.get("run_type", "iteration") == "iteration"]


STANDARD = {
    "name", "family_index", "per_family_instance_index", "run_name", "run_type", "repetitions",
    "repetition_index", "threads", "iterations", "real_time", "cpu_time", "time_unit", "label",
    "error_occurred", "error_message",
}


def time_of(row):
    """A benchmark that takes the time itself has it as its real time."""
    return row["real_time" if row["run_name"].endswith("/manual_time") else "cpu_time"]


def text_of(value):
    if isinstance(value, float) and abs(value) >= 1e6:
        return f"{value / 1e6:.0f} M"
    return f"{value:.2f}" if isinstance(value, float) else str(value)


def baseline_of(name, times):
    parts = name.split("/")
    if len(parts) == 3 and parts[1] != "plain":
        return times.get("/".join((parts[0], "plain", parts[2])))
    if name.startswith("WholeAdjustment/"):
        return times.get("PlainAdjustment")
    return None


def main(paths):
    for path in paths:
        rows = rows_of(path)
        times = {row["name"]: time_of(row) for row in rows if not row.get("error_occurred")}
        print(f"\n### {os.path.basename(path).removesuffix('.json')}\n")
        print("| benchmark | time | against its baseline | further |")
        print("|---|---|---|---|")
        for row in rows:
            if row.get("error_occurred"):
                print(f"| {row['name']} | {row['error_message']} | | |")
                continue
            base = baseline_of(row["name"], times)
            ratio = f"{base / time_of(row):.1f} times" if base else ""
            further = ", ".join(f"{key} {text_of(value)}" for key, value in row.items() if key not in STANDARD)
            print(f"| {row['name']} | {time_of(row):.3g} {row['time_unit']} | {ratio} | {further} |")


main(sys.argv[1:])
