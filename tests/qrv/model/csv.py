"""Sheets as CSV and back."""

import re
import unicodedata

from .files import CELL_TEXT, FIELD_TEXT, MOST, Sheet
from .texts import FROM_UNICODE, TO_UNICODE, cell_text, entered, number_in, utf8

BYTE_ORDER_MARK = b"\xef\xbb\xbf"
HIGHEST_SCORE = 32767


class Refused(Exception):
    """A CSV file that cannot be made out at all, with the place where that shows."""

    def __init__(self, line, column):
        super().__init__(line, column)
        self.place = (line, column)


FORMULA = rb"[=+\-@\x00-\x1f\x7f]"


def guarded(text, for_spreadsheet):
    """A text that a spreadsheet would compute, or that looks guarded already, behind an apostrophe."""
    pattern = rb"'*" + FORMULA if for_spreadsheet else rb"'+" + FORMULA
    return b"'" + text if re.match(pattern, text) else text


def csv_row(fields):
    quoted = [
        b'"' + text.replace(b'"', b'""') + b'"' if re.search(rb'[,"\r\n]', text) else text for text in fields
    ]
    if not any(quoted):
        quoted[0] = b'""'
    return b",".join(quoted)


def to_csv(sheet, for_spreadsheet=False):
    names = [guarded(name, for_spreadsheet) for name in sheet.assignments]
    rows = [[b"Name", b"Alias", *names], [b"Value", b"", *(b"%d" % value for value in sheet.values)]]
    for s in range(sheet.students):
        scores = [cell_text(sheet.cell(a, s)) for a in range(len(sheet.values))]
        scores = [text if NUMBER.fullmatch(text) else guarded(text, for_spreadsheet) for text in scores]
        texts = [guarded(text, for_spreadsheet) for text in (sheet.names[s], sheet.aliases[s])]
        rows.append(texts + scores)
    mark = BYTE_ORDER_MARK if for_spreadsheet else b""
    return mark + utf8(b"".join(csv_row(row) + b"\n" for row in rows))


def decoded(data):
    for mark, encoding in ((b"\xff\xfe", "utf-16-le"), (b"\xfe\xff", "utf-16-be")):
        if data.startswith(mark):
            return data[2:].decode(encoding, "replace")
    try:
        return data.removeprefix(BYTE_ORDER_MARK).decode("utf-8")
    except UnicodeDecodeError:
        return "".join(TO_UNICODE[byte] for byte in data.removeprefix(BYTE_ORDER_MARK))


class Field:
    def __init__(self, text, line, column, quoted=False):
        self.text = text
        self.place = (line, column)
        self.quoted = quoted


QUOTED = re.compile(r'"((?:[^"]|"")*)"')
LINE_END = re.compile(r"\r\n|\n|\r|\Z")


def line_ends(text):
    return len(re.findall(r"\r\n|\n|\r", text))


def csv_rows(text):
    """The rows that are not blank, and the separator: whichever comes first outside quotes."""
    line = 1
    at = 0
    if text.startswith("sep="):
        named = re.match(r"sep=([,;\t])(\r\n|\n|\r|\Z)", text)
        if not named:
            raise Refused(1, 1)
        separator, at, line = named.group(1), named.end(), 1 + line_ends(named.group())
    else:
        outside = re.sub(r'(?:(?<=^)|(?<=[,;\t\r\n]))"(?:[^"]|"")*"', "", text)
        found = re.search(r"[,;\t]", outside)
        separator = found.group() if found else ","
    plain = re.compile("[^\r\n" + separator + "]*")
    rows, row = [], []
    while at < len(text) or row:
        column = len(row) + 1
        if text[at : at + 1] == '"':
            quoted = QUOTED.match(text, at)
            if not quoted:
                raise Refused(line, column)
            row.append(Field(quoted.group(1).replace('""', '"'), line, column, quoted=True))
            at = quoted.end()
            if text[at : at + 1] != separator and not LINE_END.match(text, at):
                raise Refused(line, column)
            line += line_ends(quoted.group())
        else:
            found = plain.match(text, at)
            row.append(Field(found.group(), line, column))
            at = found.end()
        if text[at : at + 1] == separator:
            at += 1
            if at < len(text):
                continue
            row.append(Field("", line, column + 1))
        # Quotes around an empty field count where not all fields have them.
        if any(field.text or field.quoted != row[0].quoted for field in row):
            rows.append(row)
        row = []
        line += 1
        at = LINE_END.match(text, at).end()
    return rows, separator


NUMBER = re.compile(rb"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)")


class Mistake(Exception):
    """A field that a sheet cannot take."""


def in_page(text):
    if all(char in FROM_UNICODE for char in text):
        return bytes(FROM_UNICODE[char] for char in text)
    return None


def composed(text):
    result = ""
    for char in text:
        whole = unicodedata.normalize("NFC", result[-1:] + char)
        is_mark = unicodedata.combining(char) != 0
        if result and is_mark and len(whole) == 1 and whole in FROM_UNICODE:
            result = result[:-1] + whole
        else:
            result += char
    return result


def read_text(text):
    data = in_page(text)
    if data is None:
        data = in_page(composed(text))
    if data is None or re.search(rb"[\x00-\x1f\x7f]", data) or len(data) > FIELD_TEXT:
        raise Mistake
    return data


def without_guard(text):
    return text[1:] if re.match(r"'+[=+\-@\x00-\x1f\x7f]", text) else text


def read_value(text):
    if not NUMBER.fullmatch(text):
        raise Mistake
    value = number_in(text)
    if value.denominator != 1 or not 0 <= value <= 999:
        raise Mistake
    return int(value)


def read_score(text):
    if not text:
        return None
    if text in (b"E", b"e"):
        return b"E"
    if not NUMBER.fullmatch(text) or len(text) > CELL_TEXT:
        raise Mistake
    score = entered(text)
    if len(score) > CELL_TEXT or number_in(score) > HIGHEST_SCORE:
        raise Mistake
    return score


class CsvImport:
    """Reads a CSV file; what a sheet cannot take is in `mistakes`, as places in the order of their finding."""

    def __init__(self, data):
        self.text = decoded(data)
        self.mistakes = []
        self.warnings = []
        self.mark = None
        self.sheet = Sheet()
        try:
            self.read()
        except Refused as refused:
            self.mistakes.append(refused.place)

    def take(self, field, rule):
        try:
            return rule(field.text)
        except Mistake:
            self.mistakes.append(field.place)
            return None

    def name(self, field, usual=None):
        data = self.take(field, lambda text: read_text(without_guard(text)))
        if data is not None and usual is not None and len(data) > usual:
            self.warnings.append(field.place)
        return data

    def number(self, text):
        try:
            data = text.encode("ascii")
        except UnicodeEncodeError:
            raise Mistake from None
        marks = b"." if self.separator == "," else b".,"
        found = re.search(b"[" + marks + b"]", data)
        if not found:
            return data
        data = data[: found.start()] + b"." + data[found.end() :]
        if NUMBER.fullmatch(data):
            if self.mark not in (None, found.group()):
                raise Mistake
            self.mark = found.group()
        return data

    def read(self):
        rows, self.separator = csv_rows(self.text)

        def field(row, column):
            return row[column] if column < len(row) else Field("", row[0].place[0], column + 1)

        def require(row, column, wanted):
            found = field(row, column)
            if found.text.upper() != wanted or not found.text.isascii():
                raise Refused(*found.place)

        if not rows:
            raise Refused(1, 1)
        require(rows[0], 0, "NAME")
        require(rows[0], 1, "ALIAS")
        if len(rows) < 2:
            raise Refused(rows[0][0].place[0] + 1, 1)
        require(rows[1], 0, "VALUE")
        named = len(rows[0])
        columns = [c for c in range(2, named) if any(c < len(row) and row[c].text for row in rows)]
        if len(columns) > MOST:
            raise Refused(*rows[0][columns[MOST]].place)
        if field(rows[1], 1).text:
            self.mistakes.append(rows[1][1].place)
        for row in rows:
            self.mistakes += [extra.place for extra in row[named:] if extra.text]
        if len(rows[-1]) < named and not self.text.endswith(("\r", "\n")):
            self.mistakes.append((rows[-1][0].place[0], len(rows[-1]) + 1))
        if len(rows) - 2 > MOST:
            raise Refused(*rows[2 + MOST][0].place)
        for column in columns:
            self.sheet.assignments.append(self.name(field(rows[0], column), 20))
            value = self.take(field(rows[1], column), lambda text: read_value(self.number(text)))
            self.sheet.values.append(value)
        for s, row in enumerate(rows[2:]):
            self.sheet.names.append(self.name(field(row, 0)))
            self.sheet.aliases.append(self.name(field(row, 1), 15))
            for a, column in enumerate(columns):
                found = field(row, column)
                if found.text:
                    self.sheet.cells[a, s] = self.take(found, lambda text: read_score(self.number(text)))
