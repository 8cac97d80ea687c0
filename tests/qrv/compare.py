#!/usr/bin/env python3
"""Runs qrv on generated sheets and CSV files and compares every byte with what model.py expects.

    python3 tests/qrv/compare.py --qrv build/native/qrv --count 2000

Sheets are of two kinds: such as the program writes, and hostile ones (odd types, damaged records, cut
files, wild counts). CSV files are those of sheets, as spreadsheets write them and with something broken.
The last line is `N passed, N failed`; each difference leaves its input in the folder that is named.
"""

import argparse
import json
import random
import shutil
import string
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True

import model  # noqa: E402

ACCENTED = [byte for byte in range(0xC0, 0x100)]
LETTERS = [ord(char) for char in string.ascii_letters + " ,.-'"]
ODD = [ord(char) for char in "\t\r\n\f;\"'|/#*"] + [0, 0x7F, 0x80, 0x81, 0x95, 0xA0]


class Sheets:
    """Generated inputs; the same start gives the same ones."""

    def __init__(self, start):
        self.random = random.Random(start)

    def chance(self, percent):
        return self.random.random() * 100 < percent

    def text(self, longest, odd=False):
        length = self.random.choice([0, 1, 3, 8, 12, 15, 19, 20, 22, 24, 25, 29, 30, 31, 36, 45, 126])
        pool = LETTERS * 3 + ACCENTED + (ODD * 3 if odd else [])
        return bytes(self.random.choice(pool) for _ in range(min(length, longest)))

    def title(self):
        return self.text(126)

    def name(self, longest, odd):
        if self.chance(4):
            return b""
        if odd or self.chance(25):
            return self.text(longest, odd)
        last = self.random.choice([b"Doe", b"Roe", b"Nu\xf1ez", b"\xc5str\xf6m", b"O'Neil", b"Smith-Jones"])
        return (last + b", " + self.random.choice([b"Jane", b"Rick", b"Zo\xeb", b"Al"]))[:longest]

    def number(self, value):
        kind = self.random.randrange(12)
        most = max(value, 0)
        if kind < 7:
            return b"%d" % self.random.randint(0, most)
        if kind == 7:
            return b"%d.%d" % (self.random.randint(0, most), self.random.choice([1, 2, 25, 3, 49, 4999]))
        if kind == 8:
            return b"%d" % self.random.randint(0, 2 * most + 10)
        if kind == 9:
            return b"%d.%02d" % (self.random.randint(0, most), self.random.randint(0, 49))
        if kind == 10:
            return b"0"
        return b"%d" % most

    def usual_cell(self, value):
        kind = self.random.randrange(20)
        if kind == 0:
            return None
        if kind == 1:
            return b"E"
        if kind == 2:
            return ("i", 0)
        return self.number(value)

    def odd_cell(self, value):
        kind = self.random.randrange(16)
        if kind == 0:
            return ("i", self.random.choice([-32768, -7, 1, 999, 32767]))
        if kind == 1:
            return ("i", self.random.choice([-(2**31), 40000, 2**31 - 1, -32769]))
        if kind == 2:
            return ("f", struct.unpack("<f", struct.pack("<f", self.random.uniform(-200, 200)))[0])
        if kind == 3:
            return ("f", struct.unpack("<f", self.random.randbytes(4))[0])
        if kind == 4:
            return ("d", struct.unpack("<d", self.random.randbytes(8))[0])
        if kind == 5:
            return ("d", self.random.choice([0.5, 2.5, 12.25, -1.5, 1e22, 0.1, 85.35, -0.0]))
        if kind == 6:
            return self.random.choice([b"e", b"E ", b"", b".", b"-", b"-5", b"+7.5", b"1.2.3", b" 8", b"\t9x", b"1e5"])
        if kind == 7:
            return self.random.choice([b"32767", b"40000", b"-40000", b"0.5", b"1.5", b"2.5", b"3.4999999999999999"])
        if kind == 8:
            return bytes(self.random.choice(b"0123456789") for _ in range(self.random.randint(5, model.CELL_TEXT)))
        if kind == 9:
            return self.text(model.CELL_TEXT, odd=True)
        return self.usual_cell(value)

    def sheet(self, hostile):
        sheet = model.Sheet()
        sheet.title = self.text(126, hostile)
        students = self.random.choice([0, 1, 2, 3, 5, 6, 7, 12, 18, 39, 40, 41, 45, 81])
        assignments = self.random.choice([0, 1, 2, 3, 4, 7, 12, 19, 20, 21, 25, 41])
        if students * assignments > 500 and self.chance(70):
            assignments = 3
        for _ in range(students):
            sheet.names.append(self.name(126, hostile))
            sheet.aliases.append(self.name(15 if not hostile else 126, hostile))
        for a in range(assignments):
            sheet.assignments.append(self.name(20 if not hostile else 126, hostile))
            value = self.random.choice([0, 1, 5, 10, 18, 20, 50, 100, 250, 999])
            if hostile and self.chance(20):
                value = self.random.choice([-32768, -20, 1000, 9999, 32767])
            sheet.values.append(value)
            all_excused = self.chance(8)
            for s in range(students):
                cell = self.odd_cell(value) if hostile else self.usual_cell(value)
                if all_excused and self.chance(90):
                    cell = b"E"
                if cell is not None:
                    sheet.cells[a, s] = cell
        return sheet

    def damaged(self, data):
        """The file with some records spoilt, with something behind it, or cut."""
        data = bytearray(data)
        for _ in range(self.random.choice([0, 0, 1, 2, 6])):
            record = self.random.randrange(len(data) // model.RECORD)
            start = record * model.RECORD
            kind = self.random.randrange(5)
            if kind == 0:
                data[start : start + 2] = struct.pack("<H", self.random.choice([1, 6, 7, 9, 11, 127, 300, 65535]))
            elif kind == 1:
                data[start + 2 : start + 4] = struct.pack("<H", self.random.choice([125, 126, 127, 200, 65535]))
            elif kind == 2:
                data[start : start + 8] = self.random.randbytes(8)
            elif kind == 3:
                data[start : start + model.RECORD] = self.random.randbytes(model.RECORD)
            else:
                data[start + 2 : start + model.RECORD] = self.random.randbytes(model.RECORD - 2)
        if self.chance(30):
            count = self.random.choice([("i", 3), ("f", 2.5), ("d", 1.5), b"4", b"x", b"-2", ("i", -1), None, b"2.5"])
            start = self.random.choice([0, model.RECORD])
            data[start : start + model.RECORD] = model.put_cell(count)
        if self.chance(15):
            data += self.random.randbytes(self.random.choice([1, 100, 128, 500]))
        if self.chance(40):
            del data[self.random.randrange(len(data) + 1) :]
        return bytes(data)

    def wild_counts(self):
        start = b"".join(model.put_cell(("i", self.random.choice([0, 300, 32767]))) for _ in range(2))
        return start + b"".join(model.put_cell(self.odd_cell(20)) for _ in range(self.random.randrange(20)))

    def options(self):
        """Options for the command line, and what they mean to the model."""
        words, scale, round_up = [], model.DEFAULT_MINIMUMS, False
        kind = self.random.randrange(10)
        if kind < 4:
            scale = tuple(sorted(self.random.sample(range(6, 100), 5), reverse=True))
            words += ["--scale", ",".join(map(str, scale))]
        elif kind == 4:
            words += ["--scale", "default"]
        if self.chance(40):
            round_up = True
            words.append("--round-up")
        return words, scale, round_up

    def csv(self, sheet):
        """A CSV file near to that of a sheet: another separator or line end, or something broken."""
        data = model.to_csv(sheet)
        for _ in range(self.random.choice([0, 1, 1, 2, 4])):
            kind = self.random.randrange(9)
            place = self.random.randrange(len(data) + 1)
            if kind == 0:
                data = data.replace(b"\n", self.random.choice([b"\r\n", b"\r"]))
            elif kind == 1:
                data = data.replace(b",", self.random.choice([b";", b"\t"]))
            elif kind == 2:
                start = self.random.choice([b"", b"\xef\xbb\xbf", b"sep=;\n", b"sep=,\r\n", b"sep=x\n", b",,\n"])
                data = start + data.removeprefix(b"\xef\xbb\xbf")
            elif kind == 3:
                data = data.rstrip(b"\n")
            elif kind == 4:
                data += self.random.choice([b"\n\r\n", b",,,\n,,\n", b";;;\r\n"])
            elif kind == 5:
                word = self.random.choice([b",", b'"', b"\n", b"\r", b"x", b"7.5", b"e", b"\xff", "\u20ac\u0107".encode(),
                                           b";", "n\u0303A\u030a".encode(), b"'=", b"\x07", b"%", b" "])
                data = data[:place] + word + data[place:]
            elif kind == 6:
                data = data[:place] + data[place + 1 :]
            elif kind == 7:
                data = data[:place]
            else:
                score = self.random.choice([b"1e5", b"-3", b"+4.5", b" 7 ", b".5", b"5.", b"e", b"9" * 120, b"A", b"1,5",
                                            b"32767", b"32768", b"85%", b"7.25"])
                data = data.replace(b",0", b"," + score, self.random.choice([1, 3]))
        if self.chance(12):
            order = self.random.choice(["utf-16-le", "utf-16-be"])
            mark = b"\xff\xfe" if order == "utf-16-le" else b"\xfe\xff"
            data = mark + data.decode("utf-8", "replace").encode(order)
            if self.chance(20):
                data = data[:-1]
        elif self.chance(10):
            data = data.decode("utf-8", "replace").encode("cp1252", "replace")
        return data

    def spreadsheet_csv(self, sheet):
        """A CSV file of a sheet's as spreadsheets write one: with decimal commas, and empty lines and columns."""
        separator = self.random.choice([b";", b"\t"])
        comma = self.chance(70)
        rows = [[b"Name", b"Alias", *sheet.assignments], [b"Value", b"", *(b"%d" % value for value in sheet.values)]]
        for s in range(sheet.students):
            scores = [model.cell_text(sheet.cell(a, s)) for a in range(len(sheet.values))]
            if comma:
                scores = [score.replace(b".", b",") for score in scores]
            rows.append([sheet.names[s], sheet.aliases[s], *scores])
        wide = self.random.choice([0, 0, 1, 3])
        lines = []
        for row in rows:
            texts = [b'"' + text.replace(b'"', b'""') + b'"' if self.chance(50) and text else text for text in row]
            while texts and not texts[-1] and self.chance(60):
                texts.pop()
            lines.append(separator.join(texts + [b""] * wide))
        lines += [separator * len(rows[0])] * self.random.choice([0, 1, 4])
        end = self.random.choice([b"\r\n", b"\n"])
        return model.utf8(end.join(lines) + end)


class Comparison:
    def __init__(self, qrv, folder):
        self.qrv = qrv
        self.folder = folder
        self.sheet = folder / "sheet.qrv"
        self.comparisons = 0
        self.differences = 0

    def run(self, *words):
        return subprocess.run([self.qrv, *map(str, words)], capture_output=True, timeout=60, check=False)

    def differ(self, words, text, files):
        self.differences += 1
        keep = self.folder / f"difference-{self.differences}"
        keep.mkdir()
        for file in self.folder.glob("*.*"):
            if file.is_file():
                shutil.copy(file, keep)
        for name, data in files.items():
            (keep / name).write_bytes(data)
        print(f"{keep}: qrv {' '.join(map(str, words))}")
        print(f"    {text}")

    def expect(self, words, output, code=0, problems=()):
        """Each of the problems is how a line on standard error has to go on behind the program's name."""
        self.comparisons += 1
        done = self.run(*words)
        lines = done.stderr.decode("utf-8", "replace").splitlines()
        right_problems = len(lines) == len(problems) and all(
            line.startswith("qrv: " + problem) for line, problem in zip(lines, problems)
        )
        if (done.stdout, done.returncode) != (output, code) or not right_problems:
            text = f"exit {done.returncode}, expected {code}; {lines}, expected {list(problems)}"
            self.differ(words, text, {"expected": output, "came": done.stdout})

    def figures(self, inputs, generator):
        """The figures of some files, each with its name, its sheet and its damage."""
        words, scale, round_up = generator.options()
        show_damaged = generator.chance(50)
        form = generator.random.choice(["tsv", "csv", "json"])
        with_class = generator.chance(70)
        shown = [
            (name, sheet, model.Figures(sheet, scale, round_up))
            for name, sheet, damage in inputs
            if show_damaged or damage is None
        ]
        if form == "json":
            output = b"".join(model.line(model.figures_json(str(name), *rest)) for name, *rest in shown)
        else:
            named = [(str(name).encode(), *rest) for name, *rest in shown]
            output = model.figures_table(named, form, with_class, len(inputs) > 1)
        words += ["--format", form] if form != "tsv" or generator.chance(30) else []
        words += ["--damaged"] if show_damaged else []
        words += [] if with_class else ["--no-class"]
        problems = [f"{name}: record {damage[0]}: {damage[1]}" for name, _, damage in inputs if damage]
        self.expect(["figures", *[name for name, *_ in inputs], *words], output, int(bool(problems)), problems)

    def reports(self, sheet, generator):
        words, scale, round_up = generator.options()
        figures = model.Figures(sheet, scale, round_up)
        school, teacher = generator.text(126), generator.text(126)
        date = generator.random.choice([b"3/4/2026", b"Wednesday, 4 March 2026"])
        names = ["--school", model.utf8(school).decode(), "--teacher", model.utf8(teacher).decode()]
        names += ["--date", date.decode(), "--time", "2:15:07 PM", *words]
        aliases = generator.chance(50)
        if aliases:
            names.append("--alias")
        for kind in range(1, 7):
            student = generator.random.randint(1, max(1, sheet.students))
            report = model.Report(sheet, figures, school, teacher, date, b"2:15:07 PM", student, aliases)
            command = ["report", kind, self.sheet, *names, *(["--student", student] if kind == 3 else [])]
            if kind != 4 and not sheet.students:
                self.expect(command, b"", 1, [f"{self.sheet}: there are no students"])
                continue
            try:
                self.expect(command, report.make(kind))
            except model.Stopped:
                self.expect(command, b"", 3, [f"{self.sheet}: Division by zero"])

    def page(self, sheet, generator):
        """The figures of a class' page, whose markup no text of the sheet may break."""
        words, scale, round_up = generator.options()
        aliases = ["--alias"] if generator.chance(50) else []
        command = ["page", self.sheet, *aliases, *words]
        self.comparisons += 1
        done = self.run(*command)
        read = model.Page(done.stdout.decode("utf-8", "replace"))
        wanted = model.page_of(sheet, model.Figures(sheet, scale, round_up))
        came = (read.students, read.average)
        if (came, read.broken, done.returncode, done.stderr) != (wanted, None, 0, b""):
            self.differ(command, f"broken at {read.broken}; {came}, expected {wanted}", {"came": done.stdout})

    def check(self, data):
        output, damage = model.check(data)
        problems = [f"{self.sheet}: record {damage[0]}: {damage[1]}"] if damage else []
        self.expect(["check", self.sheet], output, len(problems), problems)
        return damage

    def expect_import(self, name, data, options, expected, problems):
        source, target = self.folder / name, self.folder / "imported.qrv"
        source.write_bytes(data)
        target.unlink(missing_ok=True)
        words = ["import", source, "-o", target, *options]
        self.expect(words, b"", int(expected is None), [f"{source}: {problem}" for problem in problems])
        self.comparisons += 1
        came = target.read_bytes() if target.exists() else None
        if came != expected:
            self.differ(words, "the imported sheet's bytes", {"expected": expected or b"", "came": came or b""})

    def import_csv(self, data, title):
        read = model.CsvImport(data)
        places, warning = (read.mistakes, "") if read.mistakes else (read.warnings, "warning: ")
        problems = [f"line {line}, column {column}: {warning}" for line, column in places[:20]]
        if len(places) > 20:
            problems.append(f"{warning}and {len(places) - 20} more")
        read.sheet.title = title
        expected = None if read.mistakes else model.save(read.sheet)
        self.expect_import("class.csv", data, ["--title", model.utf8(title).decode()], expected, problems)

    def import_json(self, sheet):
        whole = model.sheet_json("class.qrv", sheet)
        again = model.from_json(whole)
        if again is not None and not any(len(alias) > 15 for alias in sheet.aliases) and not any(
            len(name) > 20 for name in sheet.assignments
        ):
            data = json.dumps(whole, ensure_ascii=bool(sheet.students % 2), indent=sheet.students % 3 or None)
            self.expect_import("class.json", data.encode(), [], model.save(again), [])

    def one(self, generator):
        hostile = generator.chance(50)
        if hostile and generator.chance(8):
            data = generator.wild_counts()
            self.sheet.write_bytes(data)
            damage = self.check(data)
            self.figures([(self.sheet, model.load(data), damage)], generator)
            return
        sheet = generator.sheet(hostile)
        data = model.save(sheet)
        if hostile and generator.chance(60):
            data = generator.damaged(data)
        self.sheet.write_bytes(data)
        sheet = model.load(data)
        damage = self.check(data)
        inputs = [(self.sheet, sheet, damage)]
        for number in range(generator.random.choice([0, 0, 1, 2])):
            other = generator.sheet(hostile=False)
            name = self.folder / f"other {number}.qrv"
            name.write_bytes(model.save(other))
            inputs.insert(generator.random.randrange(2), (name, other, None))
        self.figures(inputs, generator)
        small = sheet.students * len(sheet.values) < 20000 and sheet.students < 500
        if damage or not small:
            return
        self.reports(sheet, generator)
        self.page(sheet, generator)
        self.expect(["export", self.sheet], model.to_csv(sheet))
        self.expect(["export", self.sheet, "--spreadsheet"], model.to_csv(sheet, for_spreadsheet=True))
        self.expect(["export", self.sheet, "--format", "json"], model.line(model.sheet_json(str(self.sheet), sheet)))
        title = generator.title()
        self.import_csv(model.to_csv(sheet, for_spreadsheet=generator.chance(50)), title)
        self.import_csv(generator.csv(sheet), title)
        self.import_csv(generator.spreadsheet_csv(sheet), title)
        self.import_json(sheet)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    arguments.add_argument("--qrv", required=True, help="the program to compare with the model")
    arguments.add_argument("--count", type=int, default=200, help="how many sheets")
    arguments.add_argument("--series", type=int, default=1, help="another series has other sheets")
    options = arguments.parse_args()
    folder = Path(tempfile.mkdtemp(prefix="qrv-compare-"))
    comparison = Comparison(Path(options.qrv).resolve(), folder)
    for number in range(options.count):
        comparison.one(Sheets(f"{options.series}/{number}"))
    print(f"{comparison.comparisons - comparison.differences} passed, {comparison.differences} failed")
    if comparison.differences:
        return 1
    shutil.rmtree(folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
