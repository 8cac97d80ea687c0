"""Sheets as CSV and back."""

import re

from .files import CELL_TEXT, FIELD_TEXT, Sheet
from .texts import cell_text, entered, from_utf8, number_in, utf8


class Refused(Exception):
    """A CSV file that is no sheet, with the place where that shows."""

    def __init__(self, line, column):
        super().__init__(line, column)
        self.line = line
        self.column = column


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
    score = entered(text)
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
