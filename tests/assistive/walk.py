"""Walks the running manager as assistive tools see it, and hears what it announces.

walk.py MANAGER UNIT CONTROLS: the two programs, and the page that lists the controls. Needs a display
with a window manager, a session bus, and an empty folder to work in.
"""

import os
import pathlib
import re
import signal
import subprocess
import sys
import unittest

import reader
from page import rows
from reader import Role, State, has, press, wait_for

MANAGER, UNIT, CONTROLS = sys.argv[1:4]
MAIN = "Tar Vex Manager"

# What an operator can do something with, or is told.
SPEAKING = (Role.PUSH_BUTTON, Role.RADIO_BUTTON, Role.TEXT, Role.COMBO_BOX, Role.TREE, Role.TABLE)


def type_key(window, *keys):
    """Keys as those of a keyboard, once that window has it."""
    wait_for(f'keyboard in "{window.get_name()}"', lambda: has(window, State.ACTIVE))
    subprocess.run(["xdotool", "key", *keys], check=True)


def focused_in(window):
    """The control that has the focus; the toolkit says so of the selected tab at all times."""
    for control in reader.below(window):
        if has(control, State.FOCUSED) and control.get_role() != Role.PAGE_TAB:
            return control
    return None


def main_form():
    """The one of that name with tabs: the splash is called as the program, too."""
    for window in reader.windows():
        if any(found.get_role() == Role.PAGE_TAB_LIST for found in reader.below(window)):
            return window
    return None


def turn_to(tab):
    press(reader.control(main_form(), Role.PAGE_TAB, tab))


def open_service(entry):
    """Chooses that entry of the service list, which is in no window: the item that gets the focus leads to it."""
    focus = reader.Focus()
    type_key(main_form(), "ctrl+F12")
    first = wait_for("service list", lambda: focus.last(Role.MENU_ITEM))
    entries = [item.get_name() for item in reader.children(first.get_parent()) if item.get_name()]
    subprocess.run(["xdotool", "key", *["Down"] * entries.index(entry), "Return"], check=True)


def spoken_name(row):
    """The toolkit calls a tab strip as its selected tab."""
    return "Header Data" if row.kind == "tab strip" else row.name


class Manager(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.unit = cls.start([UNIT, "--demo", "--link", "com1"], stdout=subprocess.DEVNULL)
        wait_for("com1", lambda: pathlib.Path("com1").exists())
        cls.start([MANAGER])
        cls.splash = wait_for("splash", lambda: next(iter(reader.windows()), None)).get_role()
        cls.main = wait_for("main form", main_form)

    @classmethod
    def start(cls, command, **streams):
        process = subprocess.Popen(command, **streams)
        cls.addClassCleanup(process.wait)
        cls.addClassCleanup(process.kill)
        return process

    def expect_control(self, window, role, name, description=None, among=None):
        """The control of that kind, name and description; `among` spares a walk of the window."""
        everything = reader.snapshot(window) if among is None else among
        named = everything.get((role, name), [])
        names = [known for kind, known in everything if kind == role]
        self.assertTrue(named, f'no {role} "{name}" in "{window.get_name()}" among {names}')
        if description is None:
            return named[0]
        described = {one.get_description(): one for one in named}
        self.assertIn(description, described, name)
        return described[description]

    def expect_all_named(self, window):
        for found in reader.below(window):
            if found.get_role() in SPEAKING and has(found, State.SHOWING):
                self.assertTrue(found.get_name(), f"a nameless {found.get_role()}")

    def expect_focus_in(self, window):
        """The window manager has given it the keyboard, and one of its controls has that."""
        wait_for(f'activation of "{window.get_name()}"', lambda: has(window, State.ACTIVE))
        return wait_for(f'focus in "{window.get_name()}"', lambda: focused_in(window))

    def test_main_form(self):
        self.assertEqual(self.splash, Role.FRAME)
        self.assertEqual(self.main.get_name(), MAIN)
        self.assertEqual(self.main.get_role(), Role.FRAME)
        self.expect_focus_in(self.main)
        table = rows(CONTROLS)
        self.assertGreater(len(table), 90)
        everything = reader.snapshot(self.main)
        for row in table:
            with self.subTest(row.control):
                description = None if row.kind == "option" else " ".join(row.description.split())
                found = self.expect_control(self.main, row.role, spoken_name(row), description, everything)
                self.assertTrue(row.name.startswith(row.caption.strip(" :")) or not row.caption)
                self.expect_states(row, found)
        self.expect_all_named(self.main)

    def expect_states(self, row, found):
        if "hidden" in row.at_start:
            self.assertFalse(has(found, State.SHOWING))
        stepping = row.control in ("sscommand9", "sscommand10")  # a header table has been loaded
        if row.kind in ("button", "option", "text box"):
            self.assertEqual(has(found, State.ENABLED), stepping or "disabled" not in row.at_start)
        if row.kind == "text box":
            self.assertEqual(has(found, State.READ_ONLY), "locked" in row.at_start)

    def test_ports_say_what_they_mean(self):
        turn_to("Setup Tar Vex")
        for number, state in ((1, State.CHECKED), (2, None)):
            port = reader.control(self.main, Role.RADIO_BUTTON, f"Com {number}")
            wait_for("description", port.get_description)
            self.assertEqual(has(port, State.CHECKED), state is not None)
        turn_to("Header Data")

    def test_ports_say_what_has_changed_while_they_are_on_view(self):
        turn_to("Setup Tar Vex")
        first, second = (reader.control(self.main, Role.RADIO_BUTTON, f"Com {number}") for number in (1, 2))
        self.press_without_waiting(self.expect_control(self.main, Role.PUSH_BUTTON, "Read Block"))
        wait_for("opening of Com 1", lambda: re.search(r"\nopened \d\d:\d\d$", first.get_description()))
        os.symlink(os.readlink("com1"), "com2")
        self.addCleanup(os.remove, "com2")
        self.assertNotIn("com2 -> ", second.get_description())
        press(reader.control(self.main, Role.PUSH_BUTTON, "About"))
        type_key(reader.window("About"), "Escape")
        wait_for("device of Com 2", lambda: "com2 -> " in second.get_description())
        turn_to("Header Data")

    def test_about(self):
        press(reader.control(self.main, Role.PUSH_BUTTON, "About"))
        about = reader.window("About")
        self.assertEqual(about.get_role(), Role.DIALOG)
        self.expect_focus_in(about)
        self.expect_control(about, Role.LABEL, "1.1", "Version :")
        self.expect_control(about, Role.LABEL, "Tar Vex Manager ", "Application :")
        for caption in ("Description", "Software", "Address", "Telephone", "Fax", "Hot-line"):
            values = [
                found.get_name()
                for found in reader.below(about)
                if found.get_description() == f"{caption} :"
            ]
            self.assertEqual(len(values), 1, caption)
            self.assertTrue(values[0])
        self.expect_control(about, Role.PUSH_BUTTON, "Close")
        type_key(about, "Escape")
        reader.gone("About")

    def test_folder(self):
        turn_to("Download Data")
        press(reader.control(self.main, Role.PUSH_BUTTON, "Folder"))
        chooser = reader.window("Folder")
        self.assertEqual(chooser.get_role(), Role.DIALOG)
        self.expect_focus_in(chooser)
        drive = reader.control(chooser, Role.COMBO_BOX, "Start folder")
        self.assertEqual(reader.captions(drive), ["Drive :"])
        self.expect_control(chooser, Role.LABEL, os.path.join(os.getcwd(), "dati"))
        self.expect_control(chooser, Role.TREE, "Folder for the reports")
        self.expect_control(chooser, Role.PUSH_BUTTON, "New folder")
        self.expect_control(chooser, Role.PUSH_BUTTON, "Ok")
        self.expect_all_named(chooser)
        type_key(chooser, "Escape")
        reader.gone("Folder")
        turn_to("Header Data")

    def expect_service_window(self, entry, title, controls):
        """A window of the service list: opened by keys, gone by Escape."""
        type_key(self.bring_up(entry, title, controls), "Escape")
        reader.gone(title)

    def bring_up(self, entry, title, controls):
        open_service(entry)
        return self.expect_window(title, controls)

    def expect_window(self, title, controls):
        window = reader.window(title)
        self.assertEqual(window.get_role(), Role.DIALOG)
        self.expect_focus_in(window)
        for role, name, description in controls:
            self.expect_control(window, role, name, description)
        self.expect_all_named(window)
        return window

    def test_ports_window(self):
        ports = [(Role.RADIO_BUTTON, f"Com {number}", None) for number in (1, 2, 3, 4)]
        controls = [*ports, (Role.PUSH_BUTTON, "Close", None), (Role.PANEL, "Serial port", None)]
        self.expect_service_window("Serial port RS232", "Serial port RS232", controls)

    def test_clock_window(self):
        boxes = [(row.role, row.name, row.description) for row in rows(CONTROLS)
                 if row.frame == "Frame1a" and row.kind in ("text box", "button")]
        self.assertEqual(len(boxes), 9)
        self.expect_service_window("Set Clock", "Set Clock", boxes)

    def test_delay_window(self):
        controls = [(Role.TEXT, "Delay for Automatic Cycle", "From 3 to 9"),
                    (Role.PUSH_BUTTON, "Set", "Write the delay to the unit")]
        self.expect_service_window(
            "Delay for Automatic Cycle", "Delay for Automatic Cycle", controls
        )

    def test_database(self):
        buttons = [(Role.PUSH_BUTTON, name, None)
                   for name in ("Read Headers", "Write Headers", "Display Batabase")]
        panel = self.bring_up("Database Tar Vex", "Control panel DB Tar Vex", buttons)
        self.assertEqual(self.expect_focus_in(panel).get_name(), "Display Batabase")
        type_key(panel, "Return")
        grid = self.expect_window(
            "DATABASE Tar Vex ",
            [(Role.TABLE, "Survey rows", None), (Role.PUSH_BUTTON, "Close the database", None)],
        )
        type_key(grid, "Escape")
        reader.gone("DATABASE Tar Vex ")
        type_key(panel, "Escape")
        reader.gone("Control panel DB Tar Vex")

    def test_keys_turn_the_tabs(self):
        type_key(self.main, "ctrl+Next")
        reader.control(self.main, Role.PUSH_BUTTON, "Folder")
        type_key(self.main, "ctrl+Prior")
        reader.control(self.main, Role.PUSH_BUTTON, "Copy Data")

    def test_wait_is_announced_from_its_start_to_its_end(self):
        announced = reader.Announcements()
        command = self.expect_control(self.main, Role.PUSH_BUTTON, "Read All Blocks")
        self.press_without_waiting(command)
        announced.heard("Waiting for the unit")
        bar = self.expect_control(self.main, Role.PROGRESS_BAR, "Progress of the exchange")
        value = bar.get_value_iface()
        wait_for("progress", lambda: value.get_current_value() > 0)
        self.assertEqual(value.get_maximum_value(), 300)
        self.unit.send_signal(signal.SIGSTOP)
        stalled = announced.heard("Nothing comes from the unit: ")
        self.assertRegex(stalled, r": \d+ of 300 exchanges done$")
        self.unit.send_signal(signal.SIGCONT)
        announced.heard("The unit answers again")
        ended = announced.heard("The wait has ended")
        self.assertEqual(ended, "The wait has ended: 300 of 300 exchanges done")

    def test_wait_that_nobody_answers_ends_in_words(self):
        self.unit.send_signal(signal.SIGSTOP)
        announced = reader.Announcements()
        self.press_without_waiting(self.expect_control(self.main, Role.PUSH_BUTTON, "Read Block"))
        announced.heard("Waiting for the unit")
        box = wait_for("box", lambda: next(
            (found for found in reader.windows() if found.get_role() == Role.ALERT), None))
        self.expect_control(box, Role.LABEL, "Attention: TAR--VEX not connected")
        self.unit.send_signal(signal.SIGCONT)
        press(reader.control(box, Role.PUSH_BUTTON, "OK"))
        self.assertRegex(announced.heard("The wait has ended"), ": 0 of 10 exchanges done$")

    def press_without_waiting(self, button):
        """By a real key: an action would be answered at the end of its command only."""
        wait_for("keyboard", lambda: has(self.main, State.ACTIVE))
        button.get_component_iface().grab_focus()
        wait_for("focus", lambda: has(button, State.FOCUSED))
        type_key(self.main, "Return")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
