"""Rows of whole processes: qrv beside the tools that a shell has."""

import csv
import os
import pathlib
import statistics
import subprocess
import time

from rows import Row, beside

ROUNDS = 15
COUNT_OF_CLASSES = 300
MEGABYTE = 1_000_000


def processor_time(command: list[str]) -> float:
    """Of a command whose output nobody reads, in microseconds."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise RuntimeError(f"{command[0]} failed")
    return (usage.ru_utime + usage.ru_stime) * 1e6


def elapsed_time(command: str) -> float:
    start = time.perf_counter()
    subprocess.run(["sh", "-c", command], check=True, stdout=subprocess.DEVNULL)
    return (time.perf_counter() - start) * 1e6


def medians(measure, ours, peer, rounds: int = ROUNDS) -> tuple[float, float]:
    """Of both sides, which take turns."""
    pairs = [(measure(ours), measure(peer)) for _ in range(rounds)]
    return tuple(statistics.median(side) for side in zip(*pairs))


def peak_memory(command: list[str]) -> int:
    """In bytes. A process counts what it was started from as well, so that has to be small."""
    told = subprocess.run(["/usr/bin/time", "-f", "%M", *command], check=True, text=True,
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    return int(told.stderr.splitlines()[-1]) * 1024


def write_formulas(qrv: str, sheet: str, target: pathlib.Path) -> None:
    """The class as a spreadsheet has it: scores, and the figures as formulas."""
    exported = subprocess.run([qrv, "export", sheet], check=True, text=True, capture_output=True)
    lines = list(csv.reader(exported.stdout.splitlines()))
    last_row = len(lines)
    with target.open("w", newline="") as file:
        writer = csv.writer(file)
        width = len(lines[0])
        last = column_name(width)
        earned, possible, percent = (column_name(width + i) for i in (1, 2, 3))
        writer.writerow(lines[0] + ["earned", "possible", "percentage", "rank"])
        writer.writerow(lines[1])
        for number, line in enumerate(lines[2:], 3):
            scores = f"C{number}:{last}{number}"
            writer.writerow(line + [
                f"=SUM({scores})",
                f"=SUM($C$2:${last}$2)-SUMIF({scores},\"E\",$C$2:${last}$2)",
                f"=ROUNDDOWN(1000*{earned}{number}/{possible}{number},0)/10",
                f"=RANK({percent}{number},${percent}$3:${percent}${last_row})"])


def column_name(number: int) -> str:
    name = ""
    while number > 0:
        number, letter = divmod(number - 1, 26)
        name = chr(ord("A") + letter) + name
    return name


def process_rows(qrv: str, make_classes: str, folder: pathlib.Path) -> list[Row]:
    subprocess.run([make_classes, folder / "large", "1", "1000", "200"], check=True)
    subprocess.run([make_classes, folder / "many", str(COUNT_OF_CLASSES), "35", "40"], check=True)
    large = str(folder / "large" / "1.qrv")
    many = sorted(str(file) for file in (folder / "many").iterdir())
    work = "qrv figures, 1,000 × 200"

    spreadsheet = folder / "formulas.csv"
    write_formulas(qrv, large, spreadsheet)
    ours, theirs = medians(processor_time, [qrv, "figures", large],
                           ["ssconvert", "--recalc", str(spreadsheet), str(folder / "out.csv")], 3)
    faster = Row(work, f"{ours / 1000:.3g} ms",
                 f"ssconvert --recalc of the same with formulas: {theirs / 1000:.3g} ms",
                 theirs / ours, 30, at_least=True)

    reading = beside(work, *interlaced(
        "reading it in 256 KB blocks by dd", processor_time, [qrv, "figures", large],
        ["dd", f"if={large}", "of=/dev/null", "bs=256K", "status=none"]), 2)
    all_classes = beside("qrv figures, 300 classes of 35 × 40", *interlaced(
        "cat of them", processor_time, [qrv, "figures", *many], ["cat", *many]), 3)

    listed = folder / "list"
    listed.write_text("\n".join(many))
    one, two = medians(elapsed_time, f"xargs -n 15 -P 1 {qrv} figures <{listed}",
                       f"xargs -n 15 -P 2 {qrv} figures <{listed}")
    at_once = Row("the same, two at a time by xargs -P 2", f"{two / 1000:.3g} ms",
                  f"one at a time: {one / 1000:.3g} ms", one / two, 1.8, at_least=True)

    size = os.path.getsize(large)
    peak = peak_memory([qrv, "figures", large])
    memory = Row(f"peak memory of {work}", f"{peak / MEGABYTE:.2f} MB",
                 f"the file: {size / MEGABYTE:.1f} MB", peak / size, 0.35)
    return [faster, reading, all_classes, at_once, memory]


def interlaced(peer: str, measure, ours, theirs) -> tuple[float, str, float]:
    mine, others = medians(measure, ours, theirs)
    return mine, peer, others


def size_row(program: pathlib.Path, limit: float) -> Row:
    size = program.stat().st_size / MEGABYTE
    return Row(f"size of {program.name}", f"{size:.2f} MB", f"limit {limit} MB", size / limit, 1)
