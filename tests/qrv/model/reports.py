"""The six reports as plain text."""

from .texts import cell_number, cell_text, cut, flat, is_excused, tenths, utf8


class Stopped(Exception):
    """The report came to a division by zero."""


class Paper:
    def __init__(self):
        self.pages = [[]]
        self.row = b""
        self.started = False

    def line(self, *pieces):
        """A piece is bytes, standing behind what there is, or (column, bytes)."""
        row = b""
        for piece in pieces:
            column, text = piece if isinstance(piece, tuple) else (len(row) + 1, piece)
            if len(row) >= column:
                self.pages[-1].append(row)
                row = b""
            row += b" " * (column - 1 - len(row)) + text
        self.pages[-1].append(row)

    def blank(self, count=1):
        for _ in range(count):
            self.line(b"")

    def new_page(self):
        if self.pages[-1]:
            self.pages.append([])

    def text(self):
        return utf8(b"\f".join(b"".join(flat(row).rstrip(b" ") + b"\n" for row in page) for page in self.pages))


class Report:
    def __init__(self, sheet, figures, school=b"", teacher=b"", date=b"DATE", time=b"TIME", student=0, aliases=False):
        self.sheet = sheet
        self.figures = figures
        self.school = school
        self.teacher = teacher
        self.when = date + b" at " + time
        self.date = date
        self.student = student
        self.aliases = aliases
        self.paper = Paper()

    def make(self, kind):
        [self.full, self.class_list, self.individual, self.assignments, self.chart, self.slips][kind - 1]()
        return self.paper.text()

    def heading(self, title, before_date=b""):
        self.paper.line(title)
        if self.school:
            self.paper.line(b"School: " + self.school)
        if self.sheet.title:
            self.paper.line(b"Class: " + self.sheet.title)
        self.paper.line(before_date + self.when)
        if self.teacher:
            self.paper.line(b"Teacher: " + self.teacher)

    def class_average(self):
        self.paper.line(b"Class Average: " + tenths(self.figures.average) + b"%")

    def class_rank(self, s):
        self.paper.line(b"Class Rank: %d (out of %d students)" % (self.figures.rank[s], self.sheet.students))

    def one_student(self, s, percents):
        sheet, figures, paper = self.sheet, self.figures, self.paper
        self.heading(b"***Student Report***")
        self.class_average()
        paper.blank(2)
        paper.line(b"Student: " + sheet.names[s])
        self.class_rank(s)
        paper.blank(2)
        columns = [b"Assignment Name", (30, b"Grade"), (36, b" / "), (39, b"Value")]
        paper.line(*columns, *([(46, b"Percent")] if percents else []))
        for a, name in enumerate(sheet.assignments):
            if not name:
                continue
            cell, value = sheet.cell(a, s), sheet.values[a]
            row = [name, (30, cell_text(cell)), (37, b"/"), (39, b"%d" % value)]
            if percents and is_excused(cell):
                row.append((46, b"Excuse"))
            elif percents and value != 0:
                row.append((46, tenths(cut(cell_number(cell) / value * 1000)) + b" %"))
            paper.line(*row)
        if figures.possible[s] == 0:
            raise Stopped
        paper.line(
            b"Total: ",
            (30, b"%d" % figures.earned[s]),
            (37, b"/"),
            (39, b"%d" % figures.possible[s]),
            (46, tenths(figures.percent[s]) + b" %"),
            (55, b"Grade: " + figures.letter(figures.percent[s])),
        )

    def full(self):
        for s, name in enumerate(self.sheet.names):
            if name:
                self.paper.new_page()
                self.one_student(s, percents=True)

    def individual(self):
        self.one_student(self.student - 1, percents=False)

    def class_list(self):
        sheet, figures = self.sheet, self.figures
        self.heading(b"***Class Report***", b"Class Report As of ")
        self.class_average()
        self.paper.blank(2)
        for s, name in enumerate(sheet.names):
            if not name:
                continue
            right = 0 if self.aliases or len(name) <= 30 else len(name) - 30
            self.paper.line(
                sheet.aliases[s] if self.aliases else name,
                (25 + right, b"Total: "),
                (33 + right, b"%d" % figures.earned[s]),
                (40 + right, b"/"),
                (42 + right, b"%d" % figures.possible[s]),
                (49 + right, tenths(figures.percent[s]) + b" %"),
                (58 + right, b"Grade: " + figures.letter(figures.percent[s])),
            )

    def assignments(self):
        self.heading(b"***Assignment Report***")
        self.paper.blank(2)
        self.paper.line(b"#", (7, b"Assignment Name"), (37, b"Value"))
        for a, name in enumerate(self.sheet.assignments):
            self.paper.line(b"%d" % (a + 1), (7, name), (37, b"%d" % self.sheet.values[a]))

    def averages(self, a):
        """Average score and average percent of an assignment as texts; empty where there is none."""
        numbers = [
            cell_number(cell)
            for (assignment, _), cell in self.sheet.cells.items()
            if assignment == a and not is_excused(cell)
        ]
        if not numbers:
            return b"", b""
        average = sum(numbers) / len(numbers)
        return self.four(average), self.four(average / self.sheet.values[a] * 100) if self.sheet.values[a] else b""

    @staticmethod
    def four(number):
        text = tenths(cut(number * 10))
        return text if len(text) <= 4 else b"%d" % cut(number)

    def chart(self):
        sheet = self.sheet
        averages = [self.averages(a) for a in range(len(sheet.values))]
        groups = [range(first, min(first + 20, len(averages))) for first in range(0, len(averages), 20)] or [range(0)]
        blocks = [range(first, min(first + 40, sheet.students)) for first in range(0, sheet.students, 40)]
        for block in reversed(range(len(blocks))):
            for group, assignments in enumerate(groups):
                self.paper.new_page()
                self.chart_sheet(blocks[block], assignments, averages, block * len(groups) + group + 1)

    def chart_sheet(self, students, assignments, averages, number):
        sheet, figures, paper = self.sheet, self.figures, self.paper
        paper.line(
            b"Teacher: " + self.teacher[:21],
            (32, b"Class: " + sheet.title[:23]),
            (64, b"School: " + self.school[:22]),
            (96, self.date),
            (112, b"Page: %d" % number),
        )

        def row(name, texts, end):
            paper.line(name + b"|" + b"".join(text.rjust(4) + b"|" for text in texts) + end)

        row(b" " * 20, [b""] * len(assignments), b"")
        row(b"|Student Name       ", [b"#%d" % (a + 1) for a in assignments], b"Total| PP |  % |LG|")
        for s in students:
            end = b"%5d|%4d|" % (figures.earned[s], figures.possible[s])
            end += tenths(figures.percent[s]).rjust(4) + b"|" + figures.letter(figures.percent[s]).rjust(2) + b"|"
            name = sheet.aliases[s] if self.aliases else sheet.names[s]
            row(b"|" + name[:19].ljust(19), [cell_text(sheet.cell(a, s)) for a in assignments], end)
        closing = b" --- | -- | -- |--|"
        row(b"|Average Scores     ", [averages[a][0] for a in assignments], closing)
        row(b"|Average Percent    ", [averages[a][1] for a in assignments], closing)
        key = [
            b"#%d-" % (a + 1) + sheet.assignments[a] + b"-PP:%d-AS:" % sheet.values[a] + averages[a][0]
            for a in assignments
        ]
        for first in range(0, len(key), 3):
            paper.line(*zip((1, 41, 82), key[first : first + 3]))

    def slips(self):
        sheet, figures, paper = self.sheet, self.figures, self.paper
        for s in range(sheet.students):
            if (s + 1) % 6 == 0:
                paper.new_page()
            else:
                paper.blank(2)
            paper.line(b"***Student Grade Report***")
            paper.line(b"School: " + self.school + b"     Class: " + sheet.title)
            paper.line(self.when)
            if self.teacher:
                paper.line(b"Teacher: " + self.teacher)
            self.class_average()
            self.class_rank(s)
            paper.blank()
            percent = figures.percent[s]
            paper.line(
                sheet.names[s] + b", your grade is a(n) '" + figures.letter(percent) + b"' " + tenths(percent) + b"%."
            )
            paper.line(b"You have earned %d points out of %d." % (figures.earned[s], figures.possible[s]))
