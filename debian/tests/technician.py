"""A technician at the installed program: downloads a block, by what an assistive tool sees.

technician.py PROGRAM: starts it in this folder, chooses the folder that it offers for the reports,
downloads block 1 from the unit on com1, and closes the window.
"""

import pathlib
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 120  # seconds, for a loaded machine


def wait_for(what, find):
    """What `find` returns, once that is something."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = find()
        except GLib.Error:  # a window went while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.2)
    sys.exit(f"technician: no {what} within {PATIENCE} s")


def children(accessible):
    every = (accessible.get_child_at_index(i) for i in range(accessible.get_child_count()))
    return [child for child in every if child is not None]


def below(accessible):
    for child in children(accessible):
        yield child
        yield from below(child)


def can_be_pressed(control, phrase):
    """Whether it can be seen and used, and the phrase is what it says of itself."""
    states = control.get_state_set()
    return (
        phrase in (control.get_name(), control.get_description())
        and states.contains(Atspi.StateType.SHOWING)
        and states.contains(Atspi.StateType.ENABLED)
        and control.get_action_iface() is not None
    )


def press(title, phrase):
    """Presses the control that says the phrase, in the window of that title, once it can be pressed."""

    def find():
        for application in children(Atspi.get_desktop(0)):
            for window in children(application):
                if window.get_name() == title:
                    for control in below(window):
                        if can_be_pressed(control, phrase):
                            return control
        return None

    control = wait_for(f'"{phrase}" in the window "{title}"', find)
    print(f"{title}: {phrase}", flush=True)
    control.get_action_iface().do_action(0)
    return control


def report():
    """The last file of a download, once it is there."""
    return next(pathlib.Path("dati").glob("*-num.dat"), None)


program = subprocess.Popen([sys.argv[1]])
press("Tar Vex Manager", "Download Data")
press("Tar Vex Manager", "Folder for the report files")
press("Folder", "Ok")
download = press("Tar Vex Manager", "Download the block")
print(wait_for("data report", report))
# A download keeps its button grey until it has ended.
wait_for("end of the download", lambda: can_be_pressed(download, "Download the block"))
subprocess.run(["wmctrl", "-F", "-c", "Tar Vex Manager"], check=True)
sys.exit(program.wait(PATIENCE))
