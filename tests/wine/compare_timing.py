#!/usr/bin/env python3
"""Is the sweep's gain by its vectors under Wine that of Linux?

    compare_timing.py LINUX_PROGRAM WINDOWS_PROGRAM

Runs sweep_timing of both systems in turn and takes the best of each. Ends with 1 when the gain of a variant over the plain
loop, at the same number of samples, is less than 0.9 of that on Linux.
"""
import subprocess
import sys

LEAST = 0.9
ROUNDS = 5


def times(*command):
    output = subprocess.run(command, check=True, capture_output=True, text=True, stdin=subprocess.DEVNULL).stdout
    return {name: float(time) for name, time in map(str.split, output.splitlines())}


linux, windows = [], []
for _ in range(ROUNDS):
    linux.append(times(sys.argv[1]))
    windows.append(times("wine", sys.argv[2]))
linux, windows = [{name: min(run[name] for run in runs) for name in runs[0]} for runs in (linux, windows)]
if linux.keys() != windows.keys():
    sys.exit(f"Linux has the variants {list(linux)}, Windows {list(windows)}")
slow = []
for name in linux:
    plain = "plain/" + name.split("/")[1]
    gains = [of[plain] / of[name] for of in (linux, windows)]
    print(f"{name}: {linux[name]:.3f} ns a step on Linux, {windows[name]:.3f} under Wine; gain {gains[0]:.2f} and "
          f"{gains[1]:.2f}, ratio {gains[1] / gains[0]:.2f}")
    if gains[1] < LEAST * gains[0]:
        slow.append(name)
sys.exit(f"Slower than {LEAST} of Linux: {slow}" if slow else 0)
