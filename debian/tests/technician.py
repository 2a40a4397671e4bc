"""A technician at the installed program: downloads a block, by what an assistive tool sees.

technician.py PROGRAM: starts it in this folder, chooses the folder that it offers for the reports,
downloads block 1 from the unit on com1, and closes the window.
"""

import pathlib
import subprocess
import sys

# The tests of the sources look at the program in the same way.
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests" / "assistive"))
from reader import PATIENCE, State, below, has, wait_for, windows  # noqa: E402


def can_be_pressed(control, phrase):
    """Whether it can be seen and used, and the phrase is what it says of itself."""
    return (
        phrase in (control.get_name(), control.get_description())
        and has(control, State.SHOWING)
        and has(control, State.ENABLED)
        and control.get_action_iface() is not None
    )


def press(title, phrase):
    """Presses the control that says the phrase, in the window of that title, once it can be pressed."""

    def find():
        inside = (control for window in windows() if window.get_name() == title for control in below(window))
        return next((control for control in inside if can_be_pressed(control, phrase)), None)

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
