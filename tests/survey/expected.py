#!/usr/bin/env python3
"""expected.py [--check]: the figures that the survey program must give for the reports in known_reports/.

Reckoned apart from the program, in exact fractions. Writes expected.json; with --check only says
whether the file still is what the reports give.
"""
import json
import sys
from fractions import Fraction
from math import sqrt
from pathlib import Path

HERE = Path(__file__).resolve().parent
COLUMNS = ["A1", "B1", "A3", "B3", "A2", "B2", "A4", "B4"]
PAIRS = [("A1", "A3"), ("B1", "B3"), ("A2", "A4"), ("B2", "B4")]
SHARPNESS = Fraction(35, 10) * Fraction(14826, 10000)
FLOOR = 10


def rows_of(path):
    """Depth in tenths to readings by column, where the unit has stored any."""
    rows = {}
    data = path.read_bytes()
    for at in range(0, len(data), 113):
        record = data[at:at + 113]
        if not record[40:43].isdigit():
            continue
        cells = [record[47 + 8 * i:53 + 8 * i] for i in range(8)]
        cells = [cell.decode() for cell in cells if cell.strip(b"\0 ")]
        if all(cell == "-00000" for cell in cells):
            continue
        depth = int(record[40:43]) * 10 + int(record[44:45])
        rows[depth] = dict(zip(COLUMNS, map(int, cells)))
    return dict(sorted(rows.items()))


def median(values):
    ordered = sorted(values)
    middle = len(ordered) // 2
    if len(ordered) % 2:
        return Fraction(ordered[middle])
    return Fraction(ordered[middle - 1] + ordered[middle], 2)


def sums_of(rows, first, second):
    sums = {depth: row[first] + row[second] for depth, row in rows.items()}
    values = list(sums.values())
    mean = Fraction(sum(values), len(values))
    variance = sum((value - mean) ** 2 for value in values) / (len(values) - 1)
    middle = median(values)
    mad = median([abs(value - middle) for value in values])
    reach = max(SHARPNESS * mad, FLOOR)
    far = max(sums, key=lambda depth: abs(sums[depth] - middle))
    third = len(values) // 3
    return {
        "pair": f"{first}+{second}",
        "count": len(values),
        "mean": float(mean),
        "deviation": sqrt(variance),
        "median": float(middle),
        "mad": float(mad),
        "departure": float(abs(sums[far] - middle)),
        "drift": float(median(values[:third]) - median(values[-third:])),
        "outliers": [depth for depth, value in sums.items() if abs(value - middle) > reach],
    }


def pairs_in(rows):
    return [pair for pair in PAIRS if pair[0] in next(iter(rows.values()))]


def halves_of(rows, first, second):
    return {depth: Fraction(row[first] - row[second], 2) for depth, row in rows.items()}


def survey_figures(path):
    rows = rows_of(path)
    pairs = pairs_in(rows)
    return {
        "sums": [sums_of(rows, *pair) for pair in pairs],
        "halves": {f"({first}-{second})/2": [float(value) for value in
                                             halves_of(rows, first, second).values()]
                   for first, second in pairs},
    }


def compare_figures(base_path, path, deeper):
    base, rows = rows_of(base_path), rows_of(path)
    figures = {}
    for first, second in pairs_in(rows):
        before, after = halves_of(base, first, second), halves_of(rows, first, second)
        steps = {depth: value - before[depth - deeper] for depth, value in after.items()
                 if depth - deeper in before}
        upward, downward, total = {}, {}, Fraction(0)
        for depth in sorted(steps, reverse=True):
            total += steps[depth]
            upward[depth] = float(total)
        total = Fraction(0)
        for depth in sorted(steps):
            total += steps[depth]
            downward[depth] = float(total)
        change = (median([row[first] + row[second] for row in rows.values()])
                  - median([row[first] + row[second] for row in base.values()]))
        figures[f"({first}-{second})/2"] = {
            "depths": sorted(steps),
            "differences": [float(steps[depth]) for depth in sorted(steps)],
            "fromBottom": [upward[depth] for depth in sorted(steps)],
            "fromTop": [downward[depth] for depth in sorted(steps)],
            "sumsChange": float(change),
        }
    return figures


def all_figures():
    reports = sorted((HERE / "known_reports").glob("*-num.dat"))
    moves = {path.name[23:25]: path for path in reports if path.name.startswith("MOVES")}
    return {
        "surveys": {path.name: survey_figures(path) for path in reports},
        "compared": {number: compare_figures(moves["00"], moves[number], deeper)
                     for number, deeper in (("05", 0), ("10", 0), ("11", 5))},
    }


def main():
    text = json.dumps(all_figures(), indent=1) + "\n"
    target = HERE / "expected.json"
    if sys.argv[1:] == ["--check"]:
        if target.read_text() != text:
            sys.exit("expected.json is not what the reports give: run expected.py")
    else:
        target.write_text(text)


if __name__ == "__main__":
    main()
