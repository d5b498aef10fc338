#!/usr/bin/env python3
"""The guideline route in a real window: one project from the site to the files of the adjusted wave."""

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
    def test_by_the_bus(self):
        hands = self.begin_road(Bus)
        self.whole_road(hands)
        self.go(hands, VISUAL)
        self.assertEqual(self.export(hands, EXPORT_ADJUSTED, "adjusted.csv"),
                         self.adjusted_by_command(RECORDS[FITS], tools.bin / "LowSpec/h17.csv"))
        self.close(hands.program, NO)


if __name__ == "__main__":
    route.main(GuidelineRoute)
