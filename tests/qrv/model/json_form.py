"""Sheets and figures as JSON, and sheets back from it."""

import json

from .csv import Mistake, read_score, read_text, read_value
from .files import Sheet
from .texts import TO_UNICODE, cell_text


def unicode_of(data):
    return "".join(TO_UNICODE[byte] for byte in data)


def line(thing):
    return (json.dumps(thing, ensure_ascii=False, separators=(",", ":")) + "\n").encode("utf-8")


def figures_json(name, sheet, figures):
    students = [
        {
            "number": s + 1,
            "name": unicode_of(sheet.names[s]),
            "alias": unicode_of(sheet.aliases[s]),
            "earned": figures.earned[s],
            "possible": figures.possible[s],
            "percentage": figures.percent[s] / 10,
            "letter": figures.letter(figures.percent[s]).decode(),
            "rank": figures.rank[s],
        }
        for s in range(sheet.students)
    ]
    whole = {"sheet": name, "title": unicode_of(sheet.title), "students": students, "average": None, "letter": None}
    if sheet.students:
        whole["average"] = figures.average / 10
        whole["letter"] = figures.letter(figures.average).decode()
    return whole


def cell_json(cell):
    if cell is None:
        return None
    if not isinstance(cell, bytes) and cell[0] == "i" and -32768 <= cell[1] <= 32767:
        return cell[1]
    return unicode_of(cell_text(cell))


def sheet_json(name, sheet):
    assignments = [
        {"name": unicode_of(name_), "value": value} for name_, value in zip(sheet.assignments, sheet.values)
    ]
    students = [
        {
            "name": unicode_of(sheet.names[s]),
            "alias": unicode_of(sheet.aliases[s]),
            "scores": [cell_json(sheet.cell(a, s)) for a in range(len(sheet.values))],
        }
        for s in range(sheet.students)
    ]
    return {
        "sheet": name,
        "title": unicode_of(sheet.title),
        "assignments": assignments if sheet.assignments_set else None,
        "students": students if sheet.students_set else None,
    }


def read_json_cell(cell):
    if cell is None:
        return None
    if isinstance(cell, str):
        if not cell.isascii():
            raise Mistake
        return read_score(cell.encode())
    if isinstance(cell, int) and 0 <= cell <= 32767:
        return ("i", cell)
    return read_score(json.dumps(cell).encode())


def from_json(whole):
    """The sheet, or None where there is a mistake; `whole` has the right shape."""
    sheet = Sheet()
    try:
        sheet.title = read_text(whole["title"])
        sheet.assignments = [read_text(assignment["name"]) for assignment in whole["assignments"] or []]
        sheet.values = [read_value(b"%d" % assignment["value"]) for assignment in whole["assignments"] or []]
        for s, student in enumerate(whole["students"] or []):
            sheet.names.append(read_text(student["name"]))
            sheet.aliases.append(read_text(student["alias"]))
            for a, cell in enumerate(student["scores"]):
                read = read_json_cell(cell)
                if read is not None:
                    sheet.cells[a, s] = read
    except Mistake:
        return None
    sheet.assignments_set = whole["assignments"] is not None
    sheet.students_set = whole["students"] is not None
    return sheet
