"""Points, percentages, letters and ranks."""

from fractions import Fraction

from .csv import csv_row
from .texts import cell_number, cut, flat, half_even, is_excused, tenths, utf8

DEFAULT_MINIMUMS = (94, 86, 76, 70, 60)


class Figures:
    def __init__(self, sheet, minimums=DEFAULT_MINIMUMS, round_up=False):
        allowance = Fraction(1, 2) if round_up else Fraction(0)
        self.thresholds = [minimum - allowance for minimum in minimums]
        self.earned = []
        self.possible = []
        self.percent = []
        counting = [a for a in range(len(sheet.values)) if sheet.values[a] != 0]
        counting = sorted(set(counting) | {a for a, _ in sheet.cells})
        for student in range(sheet.students):
            earned = possible = 0
            for assignment in counting:
                cell = sheet.cell(assignment, student)
                if is_excused(cell):
                    continue
                sum_ = half_even(earned + cell_number(cell))
                if -32768 <= sum_ <= 32767:
                    earned = sum_
                sum_ = possible + sheet.values[assignment]
                if -32768 <= sum_ <= 32767:
                    possible = sum_
            self.earned.append(earned)
            self.possible.append(possible)
            self.percent.append(cut(Fraction(earned * 1000, possible)) if possible else 1000)
        self.average = None
        if sheet.students:
            self.average = half_even(Fraction(sum(self.percent), sheet.students))
        best_first = sorted(self.percent, reverse=True)
        first_place = {}
        for place, percent in enumerate(best_first, 1):
            first_place.setdefault(percent, place)
        self.rank = [first_place[percent] for percent in self.percent]

    def letter(self, percent_tenths):
        grade = b"F"
        for letter, threshold in zip((b"E", b"D", b"C", b"B", b"A"), reversed(self.thresholds)):
            if Fraction(percent_tenths, 10) >= threshold:
                grade = letter
        return grade


HEADING = [b"number", b"name", b"alias", b"earned", b"possible", b"percentage", b"letter", b"rank"]


def student_rows(sheet, figures):
    for s in range(sheet.students):
        yield [
            b"%d" % (s + 1),
            sheet.names[s],
            sheet.aliases[s],
            b"%d" % figures.earned[s],
            b"%d" % figures.possible[s],
            tenths(figures.percent[s]),
            figures.letter(figures.percent[s]),
            b"%d" % figures.rank[s],
        ]


def figures_table(sheets, form="tsv", with_class=True, several=False):
    """A table of (name, sheet, figures), the name first in each row where there are several."""
    rows = [([b"sheet"] if several else []) + HEADING]
    for name, sheet, figures in sheets:
        start = [name] if several else []
        rows += [start + row for row in student_rows(sheet, figures)]
        if form == "tsv" and with_class and sheet.students:
            rows.append(start + [b"class", tenths(figures.average), figures.letter(figures.average)])
    if not sheets:
        return b""
    if form == "tsv":
        return utf8(b"".join(b"\t".join(map(flat, row)) + b"\n" for row in rows))
    return utf8(b"".join(csv_row(row) + b"\r\n" for row in rows))
