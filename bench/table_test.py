#!/usr/bin/env python3
"""What the table of scripts/bench says of a figure."""
import unittest

import table

ROW = "wall\t{}\tx line\t1.0017\t1.0000\t{}\n"


def verdicts(*lines):
    return table.judged(lines)[1]


class Judgement(unittest.TestCase):
    def test_a_figure_at_its_bound_is_met(self):
        self.assertEqual(verdicts("load\t0.01\n", ROW.format(1.004, "<= 1.004"), "load\t0.01\n"), ["yes"])

    def test_a_figure_beyond_its_bound_is_not_met(self):
        self.assertEqual(verdicts("load\t0\n", ROW.format(1.005, "<= 1.004"), "load\t0\n"), ["NO"])

    def test_some_figures_have_to_be_large(self):
        self.assertEqual(verdicts("load\t0\n", ROW.format(89, ">= 90"), ROW.format(90, ">= 90"), "load\t0\n"),
                         ["NO", "yes"])

    def test_what_has_nothing_to_reach_is_not_judged(self):
        self.assertEqual(verdicts("load\t0\n", ROW.format(1, ""), "load\t0\n"), [""])

    def test_a_busy_machine_is_not_judged_whether_good_or_bad(self):
        for before, after in ((0.5, 0), (0, 0.5), (0.06, 0.06)):
            self.assertEqual(verdicts(f"load\t{before}\n", ROW.format(1, "<= 2"), ROW.format(3, "<= 2"),
                                      f"load\t{after}\n"), ["busy", "busy"])

    def test_a_busy_moment_counts_for_the_rows_beside_it_alone(self):
        row = ROW.format(1, "<= 2")
        self.assertEqual(verdicts("load\t0\n", row, "load\t0\n", row, "load\t1\n", row, "load\t0\n", row,
                                  "load\t0\n"), ["yes", "busy", "busy", "yes"])

    def test_rows_without_a_known_load_are_refused(self):
        self.assertEqual(verdicts(ROW.format(1, "<= 2"), "load\t0\n"), ["busy"])
        with self.assertRaises(ValueError):
            verdicts("load\t0\n", ROW.format(1, "<= 2"))

    def test_what_is_no_row_is_refused(self):
        for line in ("a bench said something\n", ROW.format("fast", "<= 2"), ROW.format(1, "< 2")):
            with self.assertRaises(ValueError):
                verdicts("load\t0\n", line, "load\t0\n")


if __name__ == "__main__":
    unittest.main()
