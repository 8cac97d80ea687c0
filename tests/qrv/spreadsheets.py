#!/usr/bin/env python3
"""Sends sheets through real spreadsheet programs and back and compares what is left of them.

    python3 tests/qrv/spreadsheets.py --qrv build/native/qrv --count 20

The samples and generated classes are exported by qrv, read and written again by ssconvert and soffice in
each form that they have for CSV, and imported. The last line is `N passed, N failed`; a program that is not
installed is named and left out.
"""

import argparse
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True

import model  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]


def generated(number):
    """A class as the window makes them, with names that spreadsheets like to change.

    None begins with an apostrophe: spreadsheets take that for a mark of their own.
    """
    chance = random.Random(number)
    sheet = model.Sheet()
    texts = [b"Doe, Jane", b"O'Neil", b"Nu\xf1ez; Zo\xeb", b'"Al"', b"=SUM(1)", b"+1", b"-x", b"@home", b"q'",
             b"1-2", b"3/4", b"TRUE", b"007", b"1e5", b"A1", b" led by a blank", b"x  y", b"\x80 and \x93quotes\x94"]
    for _ in range(chance.randint(1, 12)):
        sheet.names.append(chance.choice(texts) + b", " + chance.choice(texts))
        sheet.aliases.append(b"x" + chance.choice(texts)[:14])
    for a in range(chance.randint(1, 8)):
        sheet.assignments.append(b"a " + chance.choice(texts))
        sheet.values.append(chance.choice([0, 5, 20, 100, 999]))
        for s in range(sheet.students):
            score = chance.choice([None, b"E", b"0", b"17", b"7.25", b"12.4", b"%d" % chance.randint(0, 999)])
            if score is not None:
                sheet.cells[a, s] = score
    return model.save(sheet)


class Trips:
    def __init__(self, qrv, folder):
        self.qrv = qrv
        self.folder = folder
        self.passed = 0
        self.failed = 0

    def run(self, *words):
        done = subprocess.run([str(word) for word in words], capture_output=True, timeout=300, check=False)
        if done.returncode:
            print(" ".join(map(str, words)), done.stderr.decode("utf-8", "replace"), sep="\n    ")
        return done.stdout

    def expect_back(self, name, exported, came_back):
        """`came_back` is the file that the spreadsheet program made of the export of a sheet."""
        again = self.folder / "again.qrv"
        again.unlink(missing_ok=True)
        self.run(self.qrv, "import", came_back, "-o", again)
        result = self.run(self.qrv, "export", again) if again.exists() else b""
        if result == exported:
            self.passed += 1
            return
        self.failed += 1
        kept = Path(tempfile.mkdtemp(prefix="qrv-spreadsheet-"))
        shutil.copy(came_back, kept)
        (kept / "exported").write_bytes(exported)
        (kept / "result").write_bytes(result)
        print(f"{name} came back changed: {kept}")

    def through(self, program, convert, sheet):
        exported = self.run(self.qrv, "export", sheet)
        source = self.folder / "class.csv"
        for option in ([], ["--spreadsheet"]):
            source.write_bytes(self.run(self.qrv, "export", sheet, *option))
            for form, came_back in convert(source):
                if came_back.exists():
                    self.expect_back(f"{sheet} through {program} {form} {option}", exported, came_back)
                else:
                    self.failed += 1
                    print(f"{program} made nothing of {sheet} as {form}")


def with_ssconvert(trips, source):
    """Straight to CSV again, by way of a workbook, and with other separators and quotes."""
    work = trips.folder
    read_utf8 = "--import-encoding=UTF-8"
    for form, options in (
        ("csv", []),
        ("semicolons", ["separator=; eol=windows"]),
        ("tabs", ["separator='\t'"]),
        ("quoted", ["quoting-mode=always"]),
    ):
        target = work / f"ssconvert-{form}.txt"
        target.unlink(missing_ok=True)
        trips.run("ssconvert", read_utf8, "--export-type=Gnumeric_stf:stf_assistant",
                  *(["-O", options[0]] if options else []), source, target)
        yield form, target
    workbook, target = work / "class.xlsx", work / "ssconvert-xlsx.csv"
    target.unlink(missing_ok=True)
    trips.run("ssconvert", read_utf8, source, workbook)
    trips.run("ssconvert", workbook, target)
    yield "xlsx", target


def with_soffice(trips, source):
    """By way of LibreOffice, whose filter options are separator, quote, encoding and so on as numbers."""
    work = trips.folder
    read_utf8 = "--infilter=CSV:44,34,76,1,,0,true,true"
    for form, options in (
        ("csv", "44,34,76,1,,0,false,true,false"),
        ("semicolons", "59,34,76,1,,0,false,true,false"),
        ("tabs", "9,34,76,1,,0,false,true,false"),
        ("quoted", "44,34,76,1,,0,true,true,false"),
        ("utf16", "59,34,65535,1,,0,false,true,false"),
        ("codepage", "59,34,1,1,,0,false,true,false"),
    ):
        folder = work / f"soffice-{form}"
        folder.mkdir(exist_ok=True)
        trips.run("soffice", "--headless", f"-env:UserInstallation=file://{work}/profile", read_utf8, "--convert-to",
                  f"csv:Text - txt - csv (StarCalc):{options}", "--outdir", folder, source)
        yield form, folder / "class.csv"


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    arguments.add_argument("--qrv", required=True, help="the program to try")
    arguments.add_argument("--count", type=int, default=10, help="how many generated classes")
    options = arguments.parse_args()
    folder = Path(tempfile.mkdtemp(prefix="qrv-spreadsheets-"))
    trips = Trips(Path(options.qrv).resolve(), folder)
    sheets = sorted((ROOT / "assets/samples").glob("*.qrv"))
    for number in range(options.count):
        sheets.append(folder / f"generated {number}.qrv")
        sheets[-1].write_bytes(generated(number))
    for program, convert in (("ssconvert", with_ssconvert), ("soffice", with_soffice)):
        if shutil.which(program) is None:
            print(f"{program} is not installed and was left out")
            continue
        for sheet in sheets:
            trips.through(program, lambda source, convert=convert: convert(trips, source), sheet)
    shutil.rmtree(folder)
    print(f"{trips.passed} passed, {trips.failed} failed")
    return int(trips.failed > 0)


if __name__ == "__main__":
    sys.exit(main())
