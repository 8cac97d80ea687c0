#!/usr/bin/env python3
"""Measures everything and tells of it: a table, a file of figures, a picture.

Exits with 1 where a row misses its target.
"""

import argparse
import dataclasses
import json
import pathlib
import subprocess
import sys
import tempfile

from picture import picture
from processes import process_rows, size_row
from rows import LARGEST_FILE, Row, portable_rows
from windowrows import window_rows

REPETITIONS = 9
SECONDS_EACH = 0.03
MOST_MEGABYTES = {"Quorvel.exe": 1.25, "qrv.exe": 1.5}


def benchmark_medians(program: str, target: pathlib.Path) -> dict[str, float]:
    """Of every benchmark in microseconds, by its name; the repetitions of all take turns."""
    subprocess.run([program, f"--benchmark_repetitions={REPETITIONS}",
                    f"--benchmark_min_time={SECONDS_EACH}",
                    "--benchmark_enable_random_interleaving=true",
                    f"--benchmark_out={target}", "--benchmark_out_format=json"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    medians = {}
    for entry in json.loads(target.read_text())["benchmarks"]:
        if entry.get("aggregate_name") != "median":
            continue
        name = entry["run_name"].removesuffix("/real_time")
        waits = name != entry["run_name"]
        assert entry["time_unit"] == "us"
        medians[name] = entry["real_time" if waits else "cpu_time"]
    return medians


def table(rows: list[Row]) -> str:
    lines = [("work", "ours", "limit or peer", "ratio", "target", "met")]
    for row in rows:
        sign = "≥" if row.at_least else "≤"
        lines.append((row.work, row.ours, row.peer, f"{row.ratio:.2f}", f"{sign} {row.target:g}",
                      "yes" if row.met else "NO"))
    widths = [max(len(line[column]) for line in lines) for column in range(6)]
    drawn = ["| " + " | ".join(text.ljust(width) for text, width in zip(line, widths)) + " |"
             for line in lines]
    drawn.insert(1, "|" + "|".join("-" * (width + 2) for width in widths) + "|")
    return "\n".join(drawn) + "\n"


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--native", type=pathlib.Path, required=True,
                        help="the folder of the native build that holds the benchmarks")
    parser.add_argument("--qrv", required=True, help="the program to measure as a process")
    parser.add_argument("--window", type=pathlib.Path, help="what window.sh printed")
    parser.add_argument("--windows", type=pathlib.Path, help="the folder of the Windows programs")
    parser.add_argument("--out", type=pathlib.Path, required=True)
    options = parser.parse_args()
    options.out.mkdir(parents=True, exist_ok=True)

    programs = options.native / "tests" / "speed"
    rows = portable_rows(benchmark_medians(str(programs / "speed_rows"),
                                           options.out / "speed_rows.json"))
    with tempfile.TemporaryDirectory() as folder:
        rows += process_rows(options.qrv, str(programs / "speed_classes"), pathlib.Path(folder))
    if options.window:
        rows += window_rows(options.window, LARGEST_FILE)
    if options.windows:
        rows += [size_row(options.windows / name, limit)
                 for name, limit in MOST_MEGABYTES.items()]

    told = [dataclasses.asdict(row) | {"met": row.met} for row in rows]
    (options.out / "bench.json").write_text(json.dumps(told, indent=1, ensure_ascii=False) + "\n")
    (options.out / "bench.svg").write_text(picture(rows))
    print(table(rows), end="")
    return 0 if all(row.met for row in rows) else 1


if __name__ == "__main__":
    sys.exit(main())
