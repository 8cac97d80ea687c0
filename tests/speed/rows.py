"""What is measured, beside what, and how far it may be from it."""

import dataclasses
import math
import typing


@dataclasses.dataclass(frozen=True)
class Row:
    """A finished line of the table."""

    work: str
    ours: str
    peer: str  # with its figure, or the limit
    ratio: float
    target: float
    at_least: bool = False  # else at most

    @property
    def met(self) -> bool:
        return self.ratio >= self.target if self.at_least else self.ratio <= self.target


@dataclasses.dataclass(frozen=True)
class Pair:
    """A row of the portable half: names of benchmarks, which one of the largest class stands for."""

    work: str
    ours: str
    beside: str
    peer: str
    target: float


LARGEST = 1000
SIZES = (125, 250, 500, LARGEST)
CELLS = LARGEST * 200
# Three records before the scores; one for each cell, two for each student and each assignment.
LARGEST_FILE = (3 + CELLS + 2 * LARGEST + 2 * 200) * 128

PAIRS = (
    Pair("load", "load", "reading the file in the same blocks", "readBlocks", 1.3),
    Pair("save, not flushed", "save", "writing the same bytes", "writeBytes", 1.3),
    Pair("save, flushed and replaced", "saveSafely", "writing, flushing, renaming the same bytes",
         "writeFlushAndReplace", 1.1),
    Pair("recompute all figures", "recompute", "one pass adding up the cells' numbers", "onePass",
         1.5),
    Pair("commit one score, all drawn", "commitScore", "recomputing the figures", "recompute", 1.2),
    Pair("RefreshGrid, canvas in memory", "refreshGrid", "recomputing and as many glyph copies",
         "recomputeAndCopy", 1.2),
    Pair("sort after one added student", "sortRoster", "sorting names and moving the cells",
         "sortNamesAndMoveCells", 1.3),
    Pair("all six reports", "printReports", "writing the same characters", "writeCharacters", 5),
)

MOST_GROWTH = 1.05
MOST_NANOSECONDS_A_CELL = 1.0
MOST_MICROSECONDS_A_SCORE = 15.0


def duration(microseconds: float) -> str:
    if microseconds < 1000:
        return f"{microseconds:.3g} µs"
    return f"{microseconds / 1000:.3g} ms"


def growth(times: typing.Mapping[int, float]) -> float:
    """The exponent that the times grow with."""
    points = [(math.log(size), math.log(time)) for size, time in times.items()]
    mean_x = sum(x for x, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    return (sum((x - mean_x) * (y - mean_y) for x, y in points)
            / sum((x - mean_x) ** 2 for x, _ in points))


def beside(work: str, ours: float, peer: str, peers: float, target: float) -> Row:
    """Both in microseconds."""
    return Row(work, duration(ours), f"{peer}: {duration(peers)}", ours / peers, target)


def within(work: str, ours: float, limit: float, text: typing.Callable[[float], str]) -> Row:
    return Row(work, text(ours), f"limit {text(limit)}", ours / limit, 1.0)


def portable_rows(medians: typing.Mapping[str, float]) -> list[Row]:
    """From the median of each benchmark in microseconds, by its name."""
    rows = [beside(f"{pair.work}, 1,000 × 200", medians[f"{pair.ours}/{LARGEST}"], pair.beside,
                   medians[f"{pair.peer}/{LARGEST}"], pair.target) for pair in PAIRS]
    rows.append(within("recompute, each cell", medians[f"recompute/{LARGEST}"] * 1000 / CELLS,
                       MOST_NANOSECONDS_A_CELL, lambda time: f"{time:.3g} ns"))
    rows.append(within("commit one score, 35 × 40", medians["commitScoreOfTypicalClass"],
                       MOST_MICROSECONDS_A_SCORE, duration))
    for pair in PAIRS:
        exponent = growth({size: medians[f"{pair.ours}/{size}"] for size in SIZES})
        rows.append(Row(f"growth: {pair.work}", f"n^{exponent:.2f}", "125 to 1,000 students",
                        exponent, MOST_GROWTH))
    return rows
