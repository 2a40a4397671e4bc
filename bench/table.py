#!/usr/bin/env python3
"""bench/table.py: the table of scripts/bench, and its judgement.

Reads the rows that the benches print, their fields with tabs between: what, measured, unit, peer, limit,
to reach. Before and after the rows of a bench comes a line "load", a tab, and the share of the
machine's processors, 0 to 1, that others took just then. A row that is not between two quiet moments is
printed and not judged.
"""
import sys

QUIET = 0.05
HEAD = ("what", "measured", "peer", "limit", "to reach", "met", "load")


def met(measured, to_reach):
    """Whether a figure reaches "<= 1.2" or ">= 5"; None where nothing is to be reached."""
    if not to_reach:
        return None
    relation, bound = to_reach.split()
    if relation == "<=":
        return measured <= float(bound)
    if relation == ">=":
        return measured >= float(bound)
    raise ValueError(f"neither <= nor >=: {to_reach}")


def judged(lines):
    """The rows of the table, each with its judgement and the load around it; and all judgements."""
    table, verdicts, waiting = [], [], []
    before = 1.0
    for line in lines:
        fields = line.rstrip("\n").split("\t")
        if fields[0] == "load":
            load = max(before, float(fields[1]))
            for what, measured, unit, peer, limit, to_reach in waiting:
                reached = met(float(measured), to_reach)
                verdict = "" if reached is None else "busy" if load > QUIET else "yes" if reached else "NO"
                verdicts.append(verdict)
                table.append((what, f"{measured} {unit}".strip(), peer, limit, to_reach, verdict,
                              f"{load:.0%}"))
            waiting, before = [], float(fields[1])
        elif len(fields) == 6:
            waiting.append(fields)
        elif line.strip():
            raise ValueError(f"no row of a bench: {line!r}")
    if waiting:
        raise ValueError("the load after the last rows is missing")
    return table, verdicts


def main():
    table, verdicts = judged(sys.stdin)
    widths = [max(len(row[at]) for row in [HEAD, *table]) for at in range(len(HEAD))]
    for row in [HEAD, tuple("-" * width for width in widths), *table]:
        print("| " + " | ".join(text.ljust(width) for text, width in zip(row, widths)) + " |")
    if "busy" in verdicts:
        print("The machine was busy with other things: what says so is not judged. Try again when it is quiet.")
        return 2
    return 1 if "NO" in verdicts or not verdicts else 0


if __name__ == "__main__":
    sys.exit(main())
