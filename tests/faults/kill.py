#!/usr/bin/env python3
"""Kills `qrv import` while it writes a sheet over another one, and looks at what is left.

kill.py QRV COUNT [SEED]: the last line is "N passed, N failed".
"""

import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

STUDENTS = 120
ASSIGNMENTS = 40
KILLS_BETWEEN_LINES = 1000


def csv(students, points):
    """A class whose every score is the same."""
    rows = [
        ["Name", "Alias"] + [f"Quiz {n}" for n in range(1, ASSIGNMENTS + 1)],
        ["Value", ""] + ["100"] * ASSIGNMENTS,
    ]
    rows += [[f"Student {n}", f"S{n}"] + [str(points)] * ASSIGNMENTS for n in range(1, students + 1)]
    return "".join(",".join(row) + "\n" for row in rows)


class Kills:
    def __init__(self, qrv, folder, seed):
        self.qrv = qrv
        self.folder = folder
        self.sheet = folder / "class.qrv"
        self.random = random.Random(seed)
        self.durations = []
        self.kept = self.replaced = self.left_beside = 0

        (folder / "csv").mkdir()
        (folder / "csv" / "old.csv").write_text(csv(STUDENTS, 17))
        (folder / "csv" / "new.csv").write_text(csv(STUDENTS, 95))
        self.save("old")
        self.old = self.sheet.read_bytes()
        self.save("new")
        self.new = self.sheet.read_bytes()
        if len(self.old) != len(self.new) or self.old == self.new:
            raise AssertionError("the two sheets are to differ in their bytes alone")

    def command(self, source):
        return [self.qrv, "import", self.folder / "csv" / f"{source}.csv", "-o", self.sheet]

    def save(self, source):
        start = time.perf_counter()
        subprocess.run(self.command(source), check=True, timeout=60)
        self.durations.append(time.perf_counter() - start)

    def kill_once(self):
        """A save killed at any moment of its life."""
        shutil.copyfile(self.folder / "old.qrv", self.sheet)
        moment = self.random.uniform(0, 1.2 * statistics.median(self.durations[-15:]))
        process = subprocess.Popen(self.command("new"))
        time.sleep(moment)
        process.kill()
        process.wait()

        left = self.sheet.read_bytes()
        if left not in (self.old, self.new):
            raise AssertionError(f"a broken file of {len(left)} bytes after {moment} s")
        if left == self.old:
            self.kept += 1
        else:
            self.replaced += 1
        self.left_beside += len(self.beside()) > 0

        self.save("new")
        if self.sheet.read_bytes() != self.new:
            raise AssertionError("the next save wrote another sheet")
        if self.beside():
            raise AssertionError(f"the next save left {self.beside()} beside its file")

    def beside(self):
        return [f.name for f in self.folder.glob("class.qrv*") if f != self.sheet]

    def run(self, count):
        (self.folder / "old.qrv").write_bytes(self.old)
        for number in range(1, count + 1):
            self.kill_once()
            if number % KILLS_BETWEEN_LINES == 0:
                self.tell()
        self.tell()

    def tell(self):
        """So far, so that a run which is broken off has told something, too."""
        print(
            f"{self.kept} old, {self.replaced} new, none broken; "
            f"{self.left_beside} left a file beside it, all gone with the next save",
            flush=True,
        )


def main():
    qrv = Path(sys.argv[1]).resolve()
    count = int(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    with tempfile.TemporaryDirectory() as folder:
        kills = Kills(qrv, Path(folder), seed)
        try:
            kills.run(count)
        except AssertionError as error:
            print(f"{error}: FAILED\n{kills.kept + kills.replaced} passed, 1 failed")
            sys.exit(1)
    print(f"{count} passed, 0 failed")


main()
