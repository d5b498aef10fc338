"""Counts the cases of a ctest run:

    count_cases.py OUTPUT LOG

OUTPUT is what ctest printed, LOG its LastTest.log. Prints how many cases passed, failed and were left out, then the names
of those that failed or were left out, a line each. A test program counts as its cases, by its own account; what gives no
such account counts as one. A program that ended badly with no case to blame, or before its account was closed, is a
failure of its own."""

import re
import sys

TOTAL = re.compile(r"^\d+% tests passed, \d+ tests? failed out of (\d+)$")
NOT_PASSED = re.compile(r"^\s+\d+ - (.*) \(([^()]*)\)$")
ENTRY = re.compile(r"^\d+/\d+ Testing: (.*)$")
OPENING = re.compile(r"^\[==========\] Running \d+ tests? from \d+ test suites?\.$")
# Behind what a case has printed without an end of line.
CASE = re.compile(r"\[(       OK |  FAILED  |  SKIPPED )\] (.*) \(\d+ ms\)$")
CLOSING = re.compile(r"\[==========\] (\d+) tests? from \d+ test suites? ran\. \(\d+ ms total\)$")


class Entry:
    """What ctest ran once: a program of many cases, or a case of another kind."""

    def __init__(self, name):
        self.name = name
        self.is_program = False
        self.cases = {"OK": [], "FAILED": [], "SKIPPED": []}
        self.closing = 0

    def read(self, line):
        if OPENING.match(line):
            self.is_program = True
        elif case := CASE.search(line):
            self.cases[case[1].strip()].append(case[2])
        elif closing := CLOSING.search(line):
            self.closing = int(closing[1])

    def count(self, outcome):
        """Number of passed cases, names of the failed ones and of those left out."""
        if outcome == "Skipped":
            return 0, [], [self.name]
        if not self.is_program:
            return (0, [self.name], []) if outcome else (1, [], [])
        passed, failed, left_out = (list(self.cases[word]) for word in ("OK", "FAILED", "SKIPPED"))
        told = len(passed) + len(failed) + len(left_out)
        if told == 0 or told != self.closing or (outcome and not failed):
            failed.append(f"{self.name}: the program, {outcome or 'Passed'}")
        return len(passed), failed, left_out


def read_output(lines):
    """How many entries ctest ran by its closing words, and the outcome of each that did not pass."""
    total, outcomes = 0, {}
    for line in lines:
        if match := TOTAL.match(line):
            total, outcomes = int(match[1]), {}
        elif match := NOT_PASSED.match(line):
            outcomes[match[1]] = match[2]
    return total, outcomes


def read_log(lines):
    entries = []
    for line in lines:
        if start := ENTRY.match(line):
            entries.append(Entry(start[1]))
        elif entries:
            entries[-1].read(line)
    return entries


def count(output, log):
    """Number of passed cases, names of the failed ones and of those left out."""
    total, outcomes = read_output(output)
    entries = read_log(log)
    passed, failed, left_out = 0, [], []
    for entry in entries:
        good, bad, out = entry.count(outcomes.get(entry.name))
        passed += good
        failed += bad
        left_out += out
    unlogged = sorted(set(outcomes) - {entry.name for entry in entries})
    failed += unlogged
    if total == 0 or total != len(entries) + len(unlogged):
        failed.append(f"the run itself: {total} entries by its closing words, {len(entries)} in its log")
    return passed, failed, left_out


def read_lines(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read().split("\n")


def main():
    passed, failed, left_out = count(read_lines(sys.argv[1]), read_lines(sys.argv[2]))
    print(passed, len(failed), len(left_out))
    for name in failed:
        print(f"failed: {name}")
    for name in left_out:
        print(f"skipped: {name}")


if __name__ == "__main__":
    main()
