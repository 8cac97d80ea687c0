"""Whether a file is a whole sheet."""

import math

from .files import CELL_TEXT, FIELD_TEXT, MOST, count_of, cut_records, tagged_in, text_in, whole
from .texts import LEADING_NUMBER, cell_text, one_line, utf8


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


def check(data, scale="94,86,76,70,60 (built in)"):
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

    is_titled = len(records) > 2 and not (damage and damage[0] < 3)
    title = (text_in(records[2]) if is_titled else None) or b""
    lines = [
        "title: " + utf8(one_line(title)).decode(),
        "students: " + shown(counts[0]),
        "assignments: " + shown(counts[1]),
        "records wanted: " + shown(wanted),
        f"records present: {len(records)}",
        "scale: " + scale,
        "whole: " + ("no" if damage else "yes"),
    ]
    if damage:
        lines.append(f"first damaged record: {damage[0]}: {damage[1]}")
    return "".join(line + "\n" for line in lines).encode(), damage
