"""The controls of the main window as the documents list them."""

import re

from reader import Role

ROLES = {
    "button": Role.PUSH_BUTTON,
    "option": Role.RADIO_BUTTON,
    "text box": Role.TEXT,
    "label": Role.LABEL,
    "hint": Role.LABEL,
    "heading": Role.LABEL,
    "frame": Role.PANEL,
    "tab strip": Role.PAGE_TAB_LIST,
    "tab": Role.PAGE_TAB,
    "shape": Role.PROGRESS_BAR,
    "picture": Role.PANEL,
}


class Row:
    """A line of the first table of docs/controls.md."""

    def __init__(self, line):
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        self.control, self.kind, self.frame = cells[0].strip("`"), cells[1], cells[2].strip("`")
        quoted = re.fullmatch(r'`"(.*)"`', cells[3])
        self.caption = quoted.group(1) if quoted else ""
        self.name, self.description, self.at_start = cells[4], cells[5], cells[8]
        self.role = ROLES[self.kind]


def rows(page):
    """All rows but that of the window itself."""
    with open(page, encoding="utf-8") as lines:
        table = [line for line in lines if line.startswith("| `") and line.count("|") == 12]
    return [Row(line) for line in table if "| `Scaricodati` | frame | |" not in line]
