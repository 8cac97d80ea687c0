"""A second opinion on qrv: what its commands must print, from the grading, layout and file rules alone.

Everything is computed in exact fractions, on plain lists of bytes objects. Nothing here is fast or shares
a line with the program.
"""

import math
import re
import struct
from decimal import Decimal
from fractions import Fraction

RECORD = 128
FIELD_TEXT = 126
CELL_TEXT = 124
MOST = 32767

DEFAULT_MINIMUMS = (94, 86, 76, 70, 60)


class Stopped(Exception):
    """The report came to a division by zero."""


class Refused(Exception):
    """A CSV file that is no sheet, with the place where that shows."""

    def __init__(self, line, column):
        super().__init__(line, column)
        self.line = line
        self.column = column


# Characters -------------------------------------------------------------------------------------------


def character(byte):
    try:
        return bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(byte)


TO_UNICODE = [character(byte) for byte in range(256)]
FROM_UNICODE = {text: byte for byte, text in enumerate(TO_UNICODE)}


def utf8(data):
    return "".join(TO_UNICODE[byte] for byte in data).encode("utf-8")


def from_utf8(data):
    """The bytes in the code page; None where a character is missing there or the text is no UTF-8."""
    try:
        return bytes(FROM_UNICODE[char] for char in data.decode("utf-8"))
    except (UnicodeDecodeError, KeyError):
        return None


def flat(data):
    """Without tabs, line breaks and form feeds."""
    return re.sub(rb"[\t-\r]", b" ", data)


# Numbers ----------------------------------------------------------------------------------------------

LEADING_NUMBER = re.compile(rb"[ \t]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))")


def number_in(text):
    """The leading number of a text, exactly."""
    found = LEADING_NUMBER.match(text)
    return Fraction(Decimal(found.group(1).decode())) if found else Fraction(0)


def half_even(number):
    return round(number)


def cut(number):
    return math.floor(number)


def tenths(number):
    """A whole number of tenths as text."""
    sign = "-" if number < 0 else ""
    whole, rest = divmod(abs(number), 10)
    return (f"{sign}{whole}.{rest}" if rest else f"{sign}{whole}").encode()


def real_text(number, single):
    if math.isnan(number) or math.isinf(number) or number == 0:
        return b"0"
    if single:
        digits = 1
        while struct.unpack("<f", struct.pack("<f", float(f"{number:.{digits - 1}e}")))[0] != number:
            digits += 1
        shortest = f"{number:.{digits - 1}e}"
    else:
        shortest = repr(number)
    text = format(Decimal(shortest), "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return text.encode()


# Cells: None, ("i", int), ("f", float), ("d", float) or bytes ------------------------------------------


def cell_text(cell):
    if cell is None:
        return b""
    if isinstance(cell, bytes):
        return cell
    kind, number = cell
    return str(number).encode() if kind == "i" else real_text(number, kind == "f")


def is_excused(cell):
    return cell == b"E"


def cell_number(cell):
    return Fraction(0) if is_excused(cell) else number_in(cell_text(cell))


# Files ------------------------------------------------------------------------------------------------


def cut_records(data):
    return [data[start : start + RECORD] for start in range(0, len(data), RECORD)]


def whole(record, start, size, signed=True):
    part = record[start : start + size]
    return int.from_bytes(part, "little", signed=signed) if len(part) == size else None


def text_in(record, start=0):
    length = whole(record, start, 2, signed=False)
    return None if length is None else record[start + 2 : start + 2 + length]


def tagged_in(record):
    tag = whole(record, 0, 2, signed=False)
    if tag in (2, 3):
        number = whole(record, 2, 2 if tag == 2 else 4)
        return None if number is None else ("i", number)
    if tag == 4 and len(record) >= 6:
        return ("f", struct.unpack("<f", record[2:6])[0])
    if tag == 5 and len(record) >= 10:
        return ("d", struct.unpack("<d", record[2:10])[0])
    if tag == 8:
        return text_in(record, 2)
    return None


class Sheet:
    """Lists count from 0 here; `cells` maps (assignment, student) to what is no empty cell."""

    def __init__(self):
        self.title = b""
        self.names = []
        self.aliases = []
        self.assignments = []
        self.values = []
        self.cells = {}

    @property
    def students(self):
        return len(self.names)

    def cell(self, assignment, student):
        return self.cells.get((assignment, student))


def count_of(cell):
    text = cell_text(cell)
    # A file's numbers are read as reals of double precision before they are rounded.
    count = half_even(Fraction(Decimal(float(number_in(text))))) if abs(number_in(text)) < 10**9 else -1
    return count if 0 <= count <= MOST else 0


def load(data):
    records = cut_records(data)

    def record(index):
        return records[index] if index < len(records) else b""

    sheet = Sheet()
    students = count_of(tagged_in(record(0)))
    assignments = count_of(tagged_in(record(1)))
    sheet.title = text_in(record(2)) or b""
    for index in range(3, min(3 + students * assignments, len(records))):
        cell = tagged_in(records[index])
        if cell is not None:
            sheet.cells[divmod(index - 3, students)] = cell
    place = 3 + students * assignments
    for student in range(students):
        sheet.names.append(text_in(record(place + 2 * student)) or b"")
        sheet.aliases.append(text_in(record(place + 2 * student + 1)) or b"")
    place += 2 * students
    for assignment in range(assignments):
        sheet.assignments.append(text_in(record(place + 2 * assignment)) or b"")
        sheet.values.append(whole(record(place + 2 * assignment + 1), 0, 2) or 0)
    return sheet


def put_text(text):
    return (struct.pack("<H", len(text)) + text).ljust(RECORD, b"\0")


def put_cell(cell):
    if cell is None:
        start = struct.pack("<H", 0)
    elif isinstance(cell, bytes):
        start = struct.pack("<HH", 8, len(cell)) + cell
    elif cell[0] == "i":
        start = struct.pack("<Hh", 2, cell[1]) if -32768 <= cell[1] <= 32767 else struct.pack("<Hi", 3, cell[1])
    else:
        start = struct.pack("<Hf", 4, cell[1]) if cell[0] == "f" else struct.pack("<Hd", 5, cell[1])
    return start.ljust(RECORD, b"\0")


def save(sheet):
    """A count of 0 is one that was never set."""
    parts = [put_cell(("i", count) if count else None) for count in (sheet.students, len(sheet.values))]
    parts.append(put_text(sheet.title))
    for assignment in range(len(sheet.values)):
        parts += [put_cell(sheet.cell(assignment, student)) for student in range(sheet.students)]
    for name, alias in zip(sheet.names, sheet.aliases):
        parts += [put_text(name), put_text(alias)]
    for name, value in zip(sheet.assignments, sheet.values):
        parts += [put_text(name), struct.pack("<h", value).ljust(RECORD, b"\0")]
    return b"".join(parts)


# Figures ----------------------------------------------------------------------------------------------


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


def figures_table(sheet, figures):
    rows = [[b"number", b"name", b"alias", b"earned", b"possible", b"percentage", b"letter", b"rank"]]
    for s in range(sheet.students):
        rows.append(
            [
                b"%d" % (s + 1),
                flat(sheet.names[s]),
                flat(sheet.aliases[s]),
                b"%d" % figures.earned[s],
                b"%d" % figures.possible[s],
                tenths(figures.percent[s]),
                figures.letter(figures.percent[s]),
                b"%d" % figures.rank[s],
            ]
        )
    if sheet.students:
        rows.append([b"class", tenths(figures.average), figures.letter(figures.average)])
    return utf8(b"".join(b"\t".join(row) + b"\n" for row in rows))


# Reports ----------------------------------------------------------------------------------------------


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


# CSV --------------------------------------------------------------------------------------------------


def csv_field(text):
    if re.search(rb'[,"\r\n]', text):
        return b'"' + text.replace(b'"', b'""') + b'"'
    return text


def to_csv(sheet):
    rows = [[b"Name", b"Alias", *sheet.assignments], [b"Value", b"", *(b"%d" % value for value in sheet.values)]]
    for s in range(sheet.students):
        scores = [cell_text(sheet.cell(a, s)) for a in range(len(sheet.values))]
        rows.append([sheet.names[s], sheet.aliases[s], *scores])
    return utf8(b"".join(b",".join(map(csv_field, row)) + b"\n" for row in rows))


QUOTED = re.compile(rb'"((?:[^"]|"")*)"')


def csv_rows(data):
    """Rows of (text, line, column). The separator is whichever of , and ; comes first outside quotes."""
    if data.startswith(b"\xef\xbb\xbf"):
        data = data[3:]
    outside = re.sub(rb'(?:(?<=^)|(?<=[,;\n]))"(?:[^"]|"")*"', b"", data)
    found = re.search(rb"[,;]", outside)
    separator = found.group() if found else b","
    plain = re.compile(rb"(?:(?!\r\n)[^\n" + separator + rb"])*")
    end = re.compile(rb"\r?\n|\Z")
    rows, row, at, line = [], [], 0, 1
    while at < len(data) or row:
        column = len(row) + 1
        if data[at : at + 1] == b'"':
            quoted = QUOTED.match(data, at)
            if not quoted:
                raise Refused(line, column)
            row.append((quoted.group(1).replace(b'""', b'"'), line, column))
            line += quoted.group().count(b"\n")
            at = quoted.end()
            if data[at : at + 1] != separator and not end.match(data, at):
                raise Refused(row[-1][1], column)
        else:
            text = plain.match(data, at)
            row.append((text.group(), line, column))
            at = text.end()
        if data[at : at + 1] == separator:
            at += 1
            continue
        is_empty_line = len(row) == 1 and row[0][0] == b"" and data[at - 1 : at] != b'"'
        if not is_empty_line:
            rows.append(row)
        row = []
        line += 1
        at = end.match(data, at).end()
    return rows


NUMBER = re.compile(rb"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)")


def read_text(field):
    text = from_utf8(field[0])
    if text is None or len(text) > FIELD_TEXT:
        raise Refused(*field[1:])
    return text


def read_value(field):
    text = field[0].strip(b" \t")
    if not NUMBER.fullmatch(text):
        raise Refused(*field[1:])
    value = number_in(text)
    if value.denominator != 1 or not 0 <= value <= 999:
        raise Refused(*field[1:])
    return int(value)


def read_score(field):
    text = field[0].strip(b" \t")
    if not text:
        return None
    if text in (b"E", b"e"):
        return b"E"
    if not NUMBER.fullmatch(text) or len(text) > CELL_TEXT:
        raise Refused(*field[1:])
    number = abs(float(text))
    if number - math.floor(number) >= 0.5:
        number = float(math.floor(number) + 1)
    score = real_text(number, single=False)
    if len(score) > CELL_TEXT:
        raise Refused(*field[1:])
    return score


def from_csv(data, title=b""):
    rows = csv_rows(data)
    if not rows or len(rows[0]) < 2:
        raise Refused(1, 1)
    heading = rows[0]

    def require(field, wanted):
        if field[0].upper() != wanted:
            raise Refused(*field[1:])

    require(heading[0], b"NAME")
    require(heading[1], b"ALIAS")
    if len(rows) < 2:
        raise Refused(heading[0][1] + 1, 1)
    require(rows[1][0], b"VALUE")
    for row in rows:
        if len(row) != len(heading):
            raise Refused(row[0][1], min(len(row), len(heading)) + 1)
    require(rows[1][1], b"")
    sheet = Sheet()
    sheet.title = title
    sheet.assignments = [read_text(field) for field in heading[2:]]
    sheet.values = [read_value(field) for field in rows[1][2:]]
    for s, row in enumerate(rows[2:]):
        sheet.names.append(read_text(row[0]))
        sheet.aliases.append(read_text(row[1]))
        for a, field in enumerate(row[2:]):
            score = read_score(field)
            if score is not None:
                sheet.cells[a, s] = score
    return sheet


# Check ------------------------------------------------------------------------------------------------


def bad_text(record, start, longest):
    length = whole(record, start, 2, signed=False)
    if length is None:
        return "it is cut short"
    if length > longest:
        return f"a text of {length} characters, where {longest} have room"
    return None if len(record) >= start + 2 + length else "it is cut short"


def bad_tagged(record):
    tag = whole(record, 0, 2, signed=False)
    if tag is None:
        return "it is cut short"
    if tag == 8:
        return bad_text(record, 2, CELL_TEXT)
    sizes = {0: 2, 2: 4, 3: 6, 4: 6, 5: 10}
    if tag not in sizes:
        return f"a value of unknown type {tag}"
    return None if len(record) >= sizes[tag] else "it is cut short"


def bad_count(record):
    problem = bad_tagged(record)
    if problem:
        return problem
    cell = tagged_in(record)
    if isinstance(cell, bytes):
        found = LEADING_NUMBER.match(cell)
        number = float(found.group(1)) if found else -1.0
        return None if 0 <= number <= MOST and number == math.floor(number) else "a text that is no count"
    number = 0 if cell is None else cell[1]
    if not 0 <= number <= MOST or number != math.floor(number):
        return "no sheet has a count of " + cell_text(cell).decode()
    return None


def check(data):
    """The lines of standard output, and the damage as (record, reason) or None."""
    records = cut_records(data)
    counts = [None, None]
    damage = None
    for index in range(2):
        record = records[index] if index < len(records) else None
        problem = "it is missing" if record is None else bad_count(record)
        if problem:
            damage = (index + 1, problem)
            break
        counts[index] = count_of(tagged_in(record))
    wanted = None
    if damage is None:
        students, assignments = counts
        cells = students * assignments
        wanted = 3 + cells + 2 * students + 2 * assignments
        for index in range(2, min(wanted, len(records) + 1)):
            behind_students = index - 3 - cells - 2 * students
            if index >= len(records):
                problem = "it is missing"
            elif index == 2 or 3 + cells <= index < 3 + cells + 2 * students:
                problem = bad_text(records[index], 0, FIELD_TEXT)
            elif index < 3 + cells:
                problem = bad_tagged(records[index])
            elif behind_students % 2 == 0:
                problem = bad_text(records[index], 0, FIELD_TEXT)
            else:
                problem = None if len(records[index]) >= 2 else "it is cut short"
            if problem:
                damage = (index + 1, problem)
                break

    def shown(number):
        return "unknown" if number is None else str(number)

    lines = [
        "students: " + shown(counts[0]),
        "assignments: " + shown(counts[1]),
        "records wanted: " + shown(wanted),
        f"records present: {len(records)}",
        "whole: " + ("no" if damage else "yes"),
    ]
    if damage:
        lines.append(f"first damaged record: {damage[0]}: {damage[1]}")
    return "".join(line + "\n" for line in lines).encode(), damage
