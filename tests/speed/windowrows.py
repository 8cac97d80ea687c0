"""Rows of the real window, from the measurements that window.sh prints."""

import collections
import pathlib
import statistics

from rows import Row, beside, duration

MOST_OVER_EMPTY = 2_000.0  # microseconds, of the median
MOST_IN_ALL = 4_000.0
MOST_OF_NEARLY_ALL = 8_000.0  # the 99th percentile
MOST_TO_OPEN = 50_000.0
TYPICAL, LARGE = "35 × 40", "1,000 × 200"
MEGABYTE = 1_000_000

Measurements = dict[str, dict[str, list[float]]]


def read_measurements(file: pathlib.Path) -> Measurements:
    measured: Measurements = collections.defaultdict(lambda: collections.defaultdict(list))
    for line in file.read_text().splitlines():
        work, whose, figure = line.split("\t")
        measured[work][whose].append(float(figure))
    return measured


def percentile(figures: list[float], percent: int) -> float:
    return statistics.quantiles(figures, n=100, method="inclusive")[percent - 1]


def answer_rows(work: str, sides: dict[str, list[float]]) -> list[Row]:
    """How soon a key is answered, usually and nearly always."""
    ours, empty = (statistics.median(sides[whose]) for whose in ("ours", "peer"))
    limit = min(empty + MOST_OVER_EMPTY, MOST_IN_ALL)
    slowest = percentile(sides["ours"], 99)
    return [Row(work, duration(ours), f"an empty window {duration(empty)}, limit {duration(limit)}",
                ours / limit, 1),
            Row(f"{work}, 99th percentile", duration(slowest),
                f"limit {duration(MOST_OF_NEARLY_ALL)}", slowest / MOST_OF_NEARLY_ALL, 1)]


def beside_empty(measured: Measurements, work: str, told: str, peer: str) -> Row:
    ours, theirs = (statistics.median(measured[work][whose]) for whose in ("ours", "peer"))
    return beside(told, ours, peer, theirs, 1.2)


def window_rows(file: pathlib.Path, large_sheet_bytes: int) -> list[Row]:
    measured = read_measurements(file)
    rows = []
    for size in (TYPICAL, LARGE):
        for work in ("key to painted", "a scroll step"):
            rows += answer_rows(f"{work}, {size}", measured[f"{work}, {size}"])
    opened = statistics.median(measured[f"a sheet opened, {LARGE}"]["ours"])
    rows.append(Row(f"a sheet opened, {LARGE}", duration(opened), f"limit {duration(MOST_TO_OPEN)}",
                    opened / MOST_TO_OPEN, 1))
    rows.append(beside_empty(measured, "start to the first painted window",
                             "start to the first painted window", "an empty window"))
    rows.append(beside_empty(measured, "print report 1", "print report 1 of 28 students",
                             "its text from an empty window"))
    memory = measured[f"peak memory, {LARGE}"]
    over_empty = memory["ours"][0] - memory["peer"][0]
    rows.append(Row(f"peak memory of the window, {LARGE}",
                    f"{over_empty / MEGABYTE:.1f} MB over an empty window",
                    f"the file: {large_sheet_bytes / MEGABYTE:.1f} MB",
                    over_empty / large_sheet_bytes, 0.5))
    return rows
