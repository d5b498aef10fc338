"""What ./test counts in the words of ctest and of a test program."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "lib"))
from count_cases import count  # noqa: E402

PROGRAM = """[==========] Running 3 tests from 1 test suite.
[ RUN      ] Wave.IsRead
[       OK ] Wave.IsRead (1 ms)
[ RUN      ] Wave.IsWritten
left without an end of line[       OK ] Wave.IsWritten (12 ms)
[ RUN      ] Wave.IsKept/3
{} Wave.IsKept/3{} (0 ms)
[==========] 3 tests from 1 test suite ran. (20 ms total)
"""
SOUND = PROGRAM.format("[       OK ]", "")
WITH_A_FAULT = PROGRAM.format("[  FAILED  ]", ", where GetParam() = 4")
WITH_A_GAP = PROGRAM.format("[  SKIPPED ]", "")
BROKEN_OFF = "\n".join(SOUND.splitlines()[:5])


def run(*entries):
    """What count makes of entries (name, text, outcome where it did not pass)."""
    log, bad = [], []
    for number, (name, text, outcome) in enumerate(entries, 1):
        log += [f"{number}/{len(entries)} Testing: {name}", f"{number}/{len(entries)} Test: {name}", *text.splitlines()]
        if outcome:
            bad.append(f"\t  {number} - {name} ({outcome})")
    output = [f"50% tests passed, {len(bad)} tests failed out of {len(entries)}", *bad]
    return count(output, log)


class CountCases(unittest.TestCase):
    def test_a_program_counts_as_its_cases(self):
        self.assertEqual(run(("waves", SOUND, None)), (3, [], []))
        self.assertEqual(run(("waves", WITH_A_FAULT, "Failed")), (2, ["Wave.IsKept/3, where GetParam() = 4"], []))
        self.assertEqual(run(("waves", WITH_A_GAP, None)), (2, [], ["Wave.IsKept/3"]))

    def test_what_is_no_program_counts_as_one(self):
        self.assertEqual(run(("Route.a", "OK", None), ("Route.b", "", "Failed"), ("Route.c", "", "Timeout"),
                             ("Route.d", "", "Not Run"), ("Route.e", "", "Skipped")),
                         (1, ["Route.b", "Route.c", "Route.d"], ["Route.e"]))

    def test_a_program_that_breaks_off_is_a_failure(self):
        self.assertEqual(run(("waves", BROKEN_OFF, "SEGFAULT")), (2, ["waves: the program, SEGFAULT"], []))
        self.assertEqual(run(("waves", BROKEN_OFF, None)), (2, ["waves: the program, Passed"], []))

    def test_a_program_that_ends_badly_behind_good_cases_is_a_failure(self):
        self.assertEqual(run(("waves", SOUND, "Failed")), (3, ["waves: the program, Failed"], []))

    def test_a_program_without_a_case_is_a_failure(self):
        text = "[==========] Running 0 tests from 0 test suites.\n[==========] 0 tests from 0 test suites ran. (0 ms total)"
        self.assertEqual(run(("waves", text, None)), (0, ["waves: the program, Passed"], []))

    def test_a_run_that_is_not_all_in_the_log_is_a_failure(self):
        passed, failed, _ = count(["100% tests passed, 0 tests failed out of 2"], ["1/2 Testing: waves", *SOUND.splitlines()])
        self.assertEqual((passed, len(failed)), (3, 1))
        self.assertEqual(count(["No tests were found!!!"], [])[0], 0)
        self.assertEqual(len(count(["No tests were found!!!"], [])[1]), 1)


if __name__ == "__main__":
    unittest.main()
