"""What the main window shows."""

from dataclasses import dataclass

from model.figures import Figures
from model.texts import cell_number, cell_text, cut, is_excused, tenths

ROWS = 20
COLUMN, ROW = 30, 14
CANVAS_LEFT = 150
LISTED_CHARACTERS = 15


@dataclass
class Entry:
    """The editor over a cell."""

    assignment: int
    student: int
    left: int
    top: int
    text: bytes
    selected: bool = True


@dataclass
class Bar:
    least: int = 0
    most: int = 0
    position: int = 0

    def reach(self, count, shown):
        """From 1 to where the last one is shown at the end."""
        self.least = 1 if count else 0
        self.most = max(self.least, count - shown + 1) if count else 0
        self.position = min(max(self.position, self.least), self.most)


def in_slots(text, slots):
    """Right-aligned; what is too long is all decimal points."""
    return text.rjust(slots) if len(text) <= slots else b"." * slots


def percent_in_slots(percent):
    """Three whole digits, the point and a tenth; a whole percentage leaves those two blank."""
    whole, _, tenth = tenths(percent).partition(b".")
    if len(whole) > 3:
        return b"....."
    return whole.rjust(3) + (b"." + tenth if tenth else b"  ")


class Window:
    """Shows a sheet. Rows and columns on screen count from 0 here."""

    def __init__(self, small):
        self.small = small
        self.columns = 10 if small else 15
        self.lines = 5 if small else 10
        self.shift = 0 if small else 150
        self.aliases = False
        self.ranks = False
        self.entry = None
        self.hsbA, self.vsbA, self.vsbS = Bar(), Bar(), Bar()
        self.caption = b"Quorvel"
        self.figures = None
        # In tenths, and its letter; nothing before there was a student.
        self.average = None
        self.average_letter = b" "

    def refresh(self, sheet, scale, round_up):
        self.sheet = sheet
        self.hsbA.reach(len(sheet.values), self.columns)
        self.vsbA.reach(len(sheet.values), self.lines)
        self.vsbS.reach(sheet.students, ROWS)
        self.figures = Figures(sheet, scale, round_up)
        if sheet.students:
            self.average = self.figures.average
            self.average_letter = self.figures.letter(self.average)

    def bars(self):
        return {"hsbA": self.hsbA, "vsbA": self.vsbA, "vsbS": self.vsbS}

    def visible_students(self):
        return range(max(self.vsbS.position - 1, 0), self.sheet.students)[:ROWS]

    def visible_assignments(self):
        return range(max(self.hsbA.position - 1, 0), len(self.sheet.values))[: self.columns]

    def listed_assignments(self):
        listed = range(max(self.vsbA.position - 1, 0), len(self.sheet.values))[: self.lines]
        return listed if listed and self.sheet.assignments[listed[0]] else range(0)

    def text(self, name):
        """The text of the named control."""
        sheet, visible, listed = self.sheet, self.visible_students(), self.listed_assignments()
        if name == "txtS" and self.aliases:
            lines = [sheet.aliases[s] for s in visible]
        elif name == "txtS":
            lines = [sheet.names[s][:LISTED_CHARACTERS] for s in visible]
        elif name == "txtSN":
            lines = [b"%d" % (self.figures.rank[s] if self.ranks else s + 1) for s in visible]
        elif name == "lblAN":
            lines = [b"#%d" % (a + 1) for a in listed]
        elif name == "txtA":
            lines = [sheet.assignments[a] for a in listed]
        elif name == "txtAV":
            lines = [b"%d" % sheet.values[a] for a in listed]
        elif name == "lblStudent":
            lines = [b"Student Alias" if self.aliases else b"Student Name"]
        elif name == "lblSN":
            lines = [b"SR" if self.ranks else b"#"]
        else:
            assert name == "lblClassAvg"
            lines = [b"Class Average:" + (b"" if self.average is None else b" " + tenths(self.average) + b"%")]
        return b"\r\n".join(lines)

    # What is drawn.

    def heading(self, column):
        visible = self.visible_assignments()
        return b"%3d" % (visible[column] + 1) if column < len(visible) else b"   "

    def glyphs(self, row, column):
        students, assignments = self.visible_students(), self.visible_assignments()
        if row >= len(students) or column >= len(assignments):
            return b"   "
        cell = self.sheet.cell(assignments[column], students[row])
        if cell is None:
            return b"   "
        return b"  E" if is_excused(cell) else in_slots(b"%d" % cut(cell_number(cell)), 3)

    def results(self, row):
        """Earned, possible, percentage and grade."""
        students = self.visible_students()
        if row >= len(students):
            return b"    ", b"    ", b"     ", b" "
        s, figures = students[row], self.figures
        return (
            in_slots(b"%d" % figures.earned[s], 4),
            in_slots(b"%d" % figures.possible[s], 4),
            percent_in_slots(figures.percent[s]),
            figures.letter(figures.percent[s]),
        )

    def foot(self, column):
        """Average score and average percent under a column."""
        assignments = self.visible_assignments()
        if column >= len(assignments):
            return b"   ", b"   "
        a = assignments[column]
        cells = [self.sheet.cell(a, s) for s in range(self.sheet.students)]
        numbers = [cell_number(cell) for cell in cells if cell is not None and not is_excused(cell)]
        if not numbers:
            return b"   ", b"   "
        average = sum(numbers) / len(numbers)
        value = self.sheet.values[a]
        percent = in_slots(b"%d" % cut(average / value * 100), 3) if value else b"   "
        return in_slots(b"%d" % cut(average), 3), percent

    def foot_class(self):
        return b"     " if self.average is None else percent_in_slots(self.average), self.average_letter

    # Clicking.

    def cell_under(self, x, y):
        """The assignment and student that a click at a whole pixel means, from 0, or None."""
        assignments, students = len(self.sheet.values), self.sheet.students
        if assignments == 0 or students == 0:
            return None
        shown_columns = 10 if assignments > self.columns else assignments
        shown_rows = min(students, ROWS)
        inside = (
            x >= CANVAS_LEFT
            and y >= ROW
            and x < COLUMN * shown_columns + 140 + self.shift
            and y < ROW * shown_rows + ROW
        )
        assignment = (x - CANVAS_LEFT) // COLUMN + self.hsbA.position - 1
        student = (y - ROW) // ROW + self.vsbS.position - 1
        if not inside or assignment >= assignments or student >= students:
            return None
        return assignment, student

    def open_editor(self, x, y):
        """Opens it over the cell under the place, if there is one."""
        cell = self.cell_under(x, y)
        self.entry = None
        if cell:
            text = cell_text(self.sheet.cell(*cell))
            self.entry = Entry(*cell, x // COLUMN * COLUMN, y // ROW * ROW, text)
