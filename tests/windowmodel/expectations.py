"""Everything that can be seen of a program, as lines of a scenario."""

import struct

from model.files import cut_records, tagged_in
from model.texts import cell_text, tenths

from .texts import quoted

GREY, RED = "C0C0C0", "FF0000"
TEXTS = ("txtS", "txtSN", "lblAN", "txtA", "txtAV", "lblStudent", "lblSN", "lblClassAvg")
# Of a long file, so many records are read.
RECORDS_SEEN = 40


def cell_value(cell):
    if cell is None:
        return "empty"
    return f"text {quoted(cell)}" if isinstance(cell, bytes) else f"number {cell_text(cell).decode()}"


def tagged_value(cell):
    if cell is None:
        return "tagged empty"
    if isinstance(cell, bytes):
        return f"tagged text {quoted(cell)}"
    return f"tagged {'integer' if cell[0] == 'i' else 'single'} {cell_text(cell).decode()}"


class Expectations:
    """Each method gives lines without their "expect"."""

    def __init__(self, program):
        self.program = program
        self.window = program.window
        self.sheet = program.sheet

    def every_step(self):
        program, window = self.program, self.window
        yield f"students {self.sheet.students}"
        yield f"assignments {len(self.sheet.values)}"
        yield f"dirty {'yes' if program.dirty else 'no'}"
        yield f"path {quoted(program.path)}"
        yield f"window caption {quoted(window.caption)}"
        for name, bar in window.bars().items():
            yield f"{name} range {bar.least} {bar.most}"
            yield f"{name} position {bar.position}"
        for name in TEXTS:
            yield f"{name} text {quoted(window.text(name))}"
        yield from self.entry()

    def entry(self):
        entry = self.window.entry
        if entry is None:
            yield "txtEnter hidden"
            return
        yield "txtEnter visible"
        yield "txtEnter focused"
        yield f"txtEnter at {entry.left} {entry.top}"
        yield f"txtEnter text {quoted(entry.text)}"
        yield f"txtEnter selected {quoted(entry.text if entry.selected else b'')}"

    def whole_sheet(self):
        sheet, figures = self.sheet, self.window.figures
        yield f"title {quoted(sheet.title)}"
        for s in range(sheet.students):
            yield f"student {s + 1} {quoted(sheet.names[s])} {quoted(sheet.aliases[s])}"
            yield (
                f"figures {s + 1} earned {figures.earned[s]} possible {figures.possible[s]}"
                f" percentage {tenths(figures.percent[s]).decode()}"
                f" grade {figures.letter(figures.percent[s]).decode()} rank {figures.rank[s]}"
            )
        for a, name in enumerate(sheet.assignments):
            yield f"assignment {a + 1} {quoted(name)} {sheet.values[a]}"
            for s in range(sheet.students):
                yield f"cell {a + 1} {s + 1} {cell_value(sheet.cell(a, s))}"
        if self.window.average is None:
            yield "average none"
        else:
            letter = self.window.average_letter.decode()
            yield f"average {tenths(self.window.average).decode()} {letter}"

    def picture(self):
        window = self.window
        yield f"lblStudent colour {RED if window.aliases else GREY}"
        yield f"lblSN colour {RED if window.ranks else GREY}"
        columns = min(len(window.visible_assignments()) + 1, window.columns)
        rows = min(len(window.visible_students()) + 1, 20)
        for column in range(columns):
            yield f"heading {column + 1} {quoted(window.heading(column))}"
            score, percent = window.foot(column)
            yield f"foot score {column + 1} {quoted(score)}"
            yield f"foot percent {column + 1} {quoted(percent)}"
        average, letter = window.foot_class()
        yield f"foot class {quoted(average)} {quoted(letter)}"
        for row in range(rows):
            for column in range(columns):
                yield f"glyphs {row + 1} {column + 1} {quoted(window.glyphs(row, column))}"
            earned, possible, percentage, grade = map(quoted, window.results(row))
            yield f"results {row + 1} earned {earned} possible {possible} percentage {percentage} grade {grade}"
        for row in range(rows - 1):
            # A decimal point belongs to both sets.
            if columns > 1 and b"." not in b"".join(window.glyphs(row, column) for column in range(columns)):
                yield f"glyphset {row + 1} {'plain' if row % 2 else 'double'}"

    def recent_files(self):
        for number, (caption, visible) in enumerate(zip(self.program.captions, self.program.visible), 1):
            yield f"mnuPFile({number}) {'visible' if visible else 'hidden'}"
            if visible:
                yield f"mnuPFile({number}) text {quoted(caption)}"

    def settings(self):
        yield from self.text_file(b"LS.qrv")
        yield from self.text_file(b"SchoolName.qrv")
        yield from self.text_file(b"TN.qrv")
        font = [tagged_in(record) for record in cut_records(self.program.disk.read(b"DefaultPrintFont.vzr"))]
        for number, value in enumerate(font, 1):
            yield f'file "DefaultPrintFont.vzr" record {number} {tagged_value(value)}'
        scale = cut_records(self.program.disk.read(b"GradingScale.qrv"))
        for number, record in enumerate(scale[:5], 1):
            yield f'file "GradingScale.qrv" record {number} integer {struct.unpack("<h", record[:2])[0]}'

    def text_file(self, name):
        if not self.program.disk.exists(name):
            yield f"file {quoted(name)} missing"
            return
        for number, text in enumerate(self.program.disk.texts(name, self.program.disk.records(name)), 1):
            yield f"file {quoted(name)} record {number} text {quoted(text)}"

    def saved_file(self, path):
        """The sheet as it was just written, and how long the file is with what was there before."""
        sheet = self.sheet
        name = quoted(path)
        values = [
            tagged_value(("i", sheet.students) if sheet.students_set else None),
            tagged_value(("i", len(sheet.values)) if sheet.assignments_set else None),
        ]
        values.append(f"text {quoted(sheet.title)}")
        for a in range(len(sheet.values)):
            values += [tagged_value(sheet.cell(a, s)) for s in range(sheet.students)]
        for student in zip(sheet.names, sheet.aliases):
            values += [f"text {quoted(text)}" for text in student]
        for assignment, value in zip(sheet.assignments, sheet.values):
            values += [f"text {quoted(assignment)}", f"integer {value}"]
        yield f"file {name} records {self.program.disk.records(path)}"
        stride = len(values) // RECORDS_SEEN + 1
        for number in range(0, len(values), stride):
            yield f"file {name} record {number + 1} {values[number]}"


