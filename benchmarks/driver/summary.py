"""Medians and ranges of the measured values, one line for each result."""
import statistics
from dataclasses import dataclass


@dataclass
class Result:
    """The values of one benchmark, and those of the bare program if there is one."""
    number: str
    label: str
    unit: str
    values: list
    bare: list = None
    reach: str = ""

    def ratios(self):
        return [value / bare for value, bare in zip(self.values, self.bare)] if self.bare else []


def spread(values, digits=2):
    return f"{statistics.median(values):.{digits}f} ({min(values):.{digits}f} to {max(values):.{digits}f})"


def line(result):
    cells = [result.number, result.label, f"{spread(result.values)} {result.unit}", "", "", result.reach]
    if result.bare:
        cells[3] = f"{spread(result.bare)} {result.unit}"
        cells[4] = spread(result.ratios()) if min(result.bare) > 0 else ""
    return "| " + " | ".join(cells) + f" | {len(result.values)} |"


HEAD = ("| # | What | Program | Bare | Ratio | Limit | Runs |\n"
        "|---|---|---|---|---|---|---|")
