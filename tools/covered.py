"""Says of each folder how many of its lines and branches the tests went through, and which not.

covered.py LINES.json LEAST-LINES LEAST-BRANCHES FOLDER...: the file is gcovr's, the least are percent.
"""

import json
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


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


def files_of(folder, files):
    """The entries of a folder's files by their own names: headers are seen through links."""
    for entry in files:
        path = (ROOT / entry["file"]).resolve()
        if path.is_relative_to(ROOT / folder):
            yield str(path.relative_to(ROOT)), entry


def main():
    file, least_lines, least_branches, *folders = sys.argv[1:]
    with open(file, encoding="utf-8") as stream:
        files = json.load(stream)["files"]
    passed = 0
    for folder in folders:
        lines = covered_lines = branches = covered_branches = 0
        missing = []
        for name, entry in files_of(folder, files):
            counted = [line for line in entry["lines"] if not line.get("gcovr/noncode")]
            taken = [(line["line_number"], branch["count"] > 0)
                     for line in counted for branch in line["branches"]]
            lines += len(counted)
            covered_lines += sum(line["count"] > 0 for line in counted)
            branches += len(taken)
            covered_branches += sum(was for _, was in taken)
            never = [line["line_number"] for line in counted if line["count"] == 0]
            half = {number for number, was in taken if not was} - set(never)
            if never:
                missing.append(f"  {name}: never run: {told(never)}")
            if half:
                missing.append(f"  {name}: not both ways: {told(half)}")
        line_percent = percent(covered_lines, lines)
        branch_percent = percent(covered_branches, branches)
        good = (lines > 0 and line_percent >= float(least_lines)
                and branch_percent >= float(least_branches))
        passed += good
        print(f"{folder}: {covered_lines} of {lines} lines ({line_percent:.1f} %), "
              f"{covered_branches} of {branches} branches ({branch_percent:.1f} %)"
              + ("" if good else ": FAILED"))
        print("\n".join(missing) + "\n" if missing else "", end="")
    print(f"{passed} passed, {len(folders) - passed} failed")
    return 0 if passed == len(folders) else 1


if __name__ == "__main__":
    sys.exit(main())
