"""The bytes of a sheet's file."""

import struct
from decimal import Decimal
from fractions import Fraction

from .texts import cell_text, half_even, number_in

RECORD = 128
FIELD_TEXT = 126
CELL_TEXT = 124
MOST = 32767


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
        # Whether the file holds the counts; None where that follows from there being any.
        self.has_students = None
        self.has_assignments = None

    @property
    def students(self):
        return len(self.names)

    @property
    def students_set(self):
        return bool(self.names) if self.has_students is None else self.has_students

    @students_set.setter
    def students_set(self, is_set):
        self.has_students = is_set

    @property
    def assignments_set(self):
        return bool(self.values) if self.has_assignments is None else self.has_assignments

    @assignments_set.setter
    def assignments_set(self, is_set):
        self.has_assignments = is_set

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
    sheet.students_set = tagged_in(record(0)) is not None
    sheet.assignments_set = tagged_in(record(1)) is not None
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
    """A count that was never set is empty."""
    parts = [put_cell(("i", sheet.students) if sheet.students_set else None)]
    parts.append(put_cell(("i", len(sheet.values)) if sheet.assignments_set else None))
    parts.append(put_text(sheet.title))
    for assignment in range(len(sheet.values)):
        parts += [put_cell(sheet.cell(assignment, student)) for student in range(sheet.students)]
    for name, alias in zip(sheet.names, sheet.aliases):
        parts += [put_text(name), put_text(alias)]
    for name, value in zip(sheet.assignments, sheet.values):
        parts += [put_text(name), struct.pack("<h", value).ljust(RECORD, b"\0")]
    return b"".join(parts)
