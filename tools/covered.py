"""Says of each folder how many of its lines and branches the tests went through, and which not.

covered.py BUILD TRACE LEAST-LINES LEAST-BRANCHES FOLDER...: asks gcov about every object of the build
that has run; the least are percent. Branches are those of tools/conditions.py. TRACE is written for
gcovr, which makes pages of it.
"""

import json
import os
import re
import subprocess
import sys
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from conditions import added, counted, has_condition, ways

ROOT = Path(__file__).resolve().parent.parent


def told_by_gcov(data_file):
    """The files that an object is made of, as gcov describes them."""
    done = subprocess.run(["gcov", "--json-format", "--branch-probabilities", "--stdout",
                           "--relative-only", data_file.name],
                          cwd=data_file.parent, capture_output=True, text=True, check=True)
    told = json.loads(done.stdout)
    working = Path(told["current_working_directory"])
    return [(working / entry["file"], entry["lines"]) for entry in told["files"]]


def own_name(path, names):
    """The path below the root; headers are seen through links."""
    if path not in names:
        real = path.resolve()
        names[path] = str(real.relative_to(ROOT)) if real.is_relative_to(ROOT) else None
    return names[path]


def read_build(build, folders):
    """Of each file: how often each line ran, and of each line the counts of its conditions' ways."""
    lines = defaultdict(lambda: defaultdict(int))
    conditions = defaultdict(dict)
    names = {}
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for entries in pool.map(told_by_gcov, sorted(build.rglob("*.gcda"))):
            for path, entry in entries:
                name = own_name(path, names)
                if name and name.split("/")[0] in folders:
                    add(entry, lines[name], conditions[name])
    return lines, conditions


def add(entry, lines, conditions):
    for line in entry:
        number = line["line_number"]
        lines[number] += line["count"]
        found = ways(line["branches"])
        if found:
            conditions[number] = added(conditions[number], found) if number in conditions else found


def described(name, lines, conditions):
    """How often each line with a word on it ran, and the counts of the branches of those with any."""
    source = (ROOT / name).read_text(encoding="utf-8").splitlines()
    worded = {number: count for number, count in lines.items() if re.search(r"\w", source[number - 1])}
    branches = {number: counted(found, lines[number])
                for number, found in conditions.items() if has_condition(source, number)}
    return worded, {number: counts for number, counts in branches.items() if counts}


def write_trace(trace, files):
    entries = [{"file": name, "functions": [],
                "lines": [traced(number, count, branches.get(number, []))
                          for number, count in sorted(lines.items())]}
               for name, (lines, branches) in files.items()]
    trace.write_text(json.dumps({"gcovr/format_version": "0.3", "files": entries}))


def traced(number, count, branches):
    return {"line_number": number, "count": count, "gcovr/excluded": False, "gcovr/noncode": False,
            "branches": [{"count": way, "fallthrough": False, "throw": False} for way in branches]}


def percent(part, whole):
    return 100.0 * part / whole if whole else 100.0


def told(numbers):
    """Line numbers as text, neighbours as ranges."""
    ranges = []
    for number in sorted(numbers):
        if ranges and number == ranges[-1][1] + 1:
            ranges[-1][1] = number
        else:
            ranges.append([number, number])
    return " ".join(str(a) if a == b else f"{a}-{b}" for a, b in ranges)


def missing(name, lines, branches):
    """What of the file the tests did not go through, as text."""
    never = {number for number, count in lines.items() if count == 0}
    half = {number for number, counts in branches.items() if 0 in counts} - never
    return ((f"  {name}: never run: {told(never)}\n" if never else "")
            + (f"  {name}: not both ways: {told(half)}\n" if half else ""))


def report(folder, files, least_lines, least_branches):
    """Prints how the folder stands; whether it stands well."""
    own = {name: found for name, found in files.items() if name.split("/")[0] == folder}
    counts = [count for lines, _ in own.values() for count in lines.values()]
    ways_taken = [way for _, branches in own.values() for found in branches.values() for way in found]
    run, taken = (sum(count > 0 for count in found) for found in (counts, ways_taken))
    line_percent = percent(run, len(counts))
    branch_percent = percent(taken, len(ways_taken))
    good = bool(counts) and line_percent >= least_lines and branch_percent >= least_branches
    print(f"{folder}: {run} of {len(counts)} lines ({line_percent:.1f} %), "
          f"{taken} of {len(ways_taken)} branches ({branch_percent:.1f} %)"
          + ("" if good else ": FAILED"))
    print("".join(missing(name, *found) for name, found in sorted(own.items())), end="")
    return good


def measured(build, folders):
    """Of each file of the folders: how often its lines ran, and the counts of their branches."""
    lines, conditions = read_build(build, folders)
    return {name: described(name, lines[name], conditions[name]) for name in lines}


def main():
    build, trace, least_lines, least_branches, *folders = sys.argv[1:]
    files = measured(Path(build), folders)
    write_trace(Path(trace), files)
    passed = sum(report(folder, files, float(least_lines), float(least_branches))
                 for folder in folders)
    print(f"{passed} passed, {len(folders) - passed} failed")
    return 0 if passed == len(folders) else 1


if __name__ == "__main__":
    sys.exit(main())
