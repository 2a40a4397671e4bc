"""Walks the survey program's window as assistive tools see it, and hears its verdicts.

survey.py SURVEY REPORTS: the program, and the folder of known reports. Needs a display with a window
manager and a session bus.
"""

import glob
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

import reader
from reader import Role, State, has, press, wait_for

SURVEY, REPORTS = sys.argv[1:3]
TITLE = "Tar Vex Survey"
SPEAKING = (Role.PUSH_BUTTON, Role.TEXT, Role.COMBO_BOX, Role.TREE, Role.TREE_TABLE, Role.TABLE, Role.PAGE_TAB)


def report(client, ending="dat"):
    return glob.glob(os.path.join(REPORTS, f"{client}*-{ending}.dat"))[0]


class SurveyWindow(unittest.TestCase):
    def start(self, *arguments):
        process = subprocess.Popen([SURVEY, *arguments])
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return reader.window(TITLE)

    def reports(self, *clients):
        """A folder with the reports of these clients only."""
        folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, folder)
        for client in clients:
            for ending in ("dat", "num"):
                shutil.copy(report(client, ending), folder)
        return folder

    def expect_all_named(self, window):
        for found in reader.below(window):
            if found.get_role() in SPEAKING and has(found, State.SHOWING):
                self.assertTrue(found.get_name(), f"a nameless {found.get_role()}")

    def verdict(self, window):
        return wait_for("verdict", lambda: next(
            (found for found in reader.below(window)
             if found.get_role() == Role.NOTIFICATION and found.get_name().startswith("Verdict:")
             and has(found, State.SHOWING)), None))

    def focus(self, control):
        """Gives it the keyboard, as a screen reader does."""
        control.get_component_iface().grab_focus()
        wait_for("focus", lambda: has(control, State.FOCUSED))

    def type_key(self, window, *keys):
        wait_for("keyboard", lambda: has(window, State.ACTIVE))
        subprocess.run(["xdotool", "key", *keys], check=True)

    def test_empty_window_says_what_to_do(self):
        window = self.start()
        reader.control(window, Role.LABEL, "No surveys are open.")
        for caption in ("Open reports...", "Open folder..."):
            button = reader.control(window, Role.PUSH_BUTTON, caption)
            self.assertTrue(has(button, State.FOCUSABLE))
        self.expect_all_named(window)

    def test_survey(self):
        window = self.start(report("SPIKE"))
        self.assertEqual(window.get_role(), Role.FRAME)
        self.assertEqual(self.verdict(window).get_name(), "Verdict: read again at 12.5 m (A)")
        tree = reader.control(window, Role.TREE, "Surveys by client, site, tube and readout")
        names = [item.get_name() for item in reader.children(tree)]
        self.assertIn("SPIKE", names)
        table = reader.control(window, Role.TABLE, "Readings, sums and half differences by depth")
        cells = table.get_table_iface()
        self.assertEqual((cells.get_n_rows(), cells.get_n_columns()), (40, 10))
        self.assertEqual(cells.get_column_header(9).get_name(), "Fault")
        self.assertEqual(cells.get_accessible_at(24, 0).get_name(), "12.5")
        self.assertIn("spike: the half difference", cells.get_accessible_at(24, 9).get_name())
        self.assertEqual(cells.get_row_header(24).get_name(), "sums, spike")
        for tab in ("Readings", "Half differences", "Sums", "Change"):
            reader.control(window, Role.PAGE_TAB, tab)
        bases = reader.control(window, Role.COMBO_BOX, "01  14/04/26")
        self.assertEqual(reader.captions(bases), ["Base:"])
        reader.control(window, Role.CHART, "Plots of channels A and B against the depth")
        self.expect_all_named(window)

    def test_verdict_of_the_next_survey_is_heard(self):
        window = self.start(self.reports("GOOD2", "GOOD4", "SPIKE"))
        self.assertEqual(self.verdict(window).get_name(), "Verdict: read again at 12.5 m (A)")
        self.focus(reader.control(window, Role.TREE, "Surveys by client, site, tube and readout"))
        announced = reader.Announcements()
        self.type_key(window, *["Up"] * 4)
        announced.heard("Verdict: good")
        self.type_key(window, *["Up"] * 4)
        announced.shown("Verdict: good")

    def test_verdict_of_a_report_that_is_downloaded_again_is_heard(self):
        folder = self.reports("GOOD2")
        window = self.start(folder)
        self.assertEqual(self.verdict(window).get_name(), "Verdict: good")
        announced = reader.Announcements()
        for ending in ("dat", "num"):
            shutil.copy(report("SPIKE", ending), os.path.join(folder, os.path.basename(report("GOOD2", ending))))
        announced.heard("Verdict: read again at 12.5 m (A)")

    def test_pointed_depth_is_in_words(self):
        window = self.start(report("SPIKE"))
        plots = next(found for found in reader.below(window)
                     if found.get_name() == "Plots of channels A and B against the depth")
        self.focus(plots)
        announced = reader.Announcements()
        self.type_key(window, *["Down"] * 25)
        self.assertIn("spike", announced.heard("Depth 12.5   A1 108"))

    def test_reasons(self):
        window = self.start(report("SPIKE"))
        self.verdict(window)
        self.type_key(window, "ctrl+r")
        reasons = reader.window("Reasons for the verdict")
        self.assertEqual(reasons.get_role(), Role.DIALOG)
        text = wait_for("reasons", lambda: next(
            (found for found in reader.below(reasons) if found.get_role() == Role.TEXT), None))
        self.assertEqual(text.get_name(), "Reasons for the verdict")
        words = text.get_text_iface()
        self.assertIn("spike: 12.5 m: the half difference", words.get_text(0, words.get_character_count()))
        self.type_key(reasons, "Escape")
        reader.gone("Reasons for the verdict")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
