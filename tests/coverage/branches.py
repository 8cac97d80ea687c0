"""Checks what ./coverage counts as a branch, on a program whose lines say what is to be counted.
usage: branches.py ROOT COMPILER"""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

root = Path(sys.argv[1])
compiler = sys.argv[2]
sys.path.insert(0, str(root / "tools"))

import covered  # noqa: E402: it lies in the folder above

# Behind a line stands how many of its branches are taken, or that it never runs.
program = r"""
#include <stdexcept>
#include <string>
#include <vector>

struct Pair {
    std::string a;
    int b = 0;
    bool operator==(const Pair&) const = default;
};

const char* told(bool yes) {
    return yes ? "yes" : "no";  // 1 of 2
}

bool both(bool a, bool b) {
    return a && b;  // 2 of 4
}

bool neither(bool a, int b) {
    return !a &&   // 1 of 2
           b > 3;  // never reached
}

int choice(int kind) {
    switch (kind) {  // 2 of 3
        case 1:
            return 10;
        case 2:         // never run
            return 20;  // never run
    }
    return 0;
}

const std::string& name() {
    static const std::string text("a text that is made once");
    return text;
}

void caught() {
    try {
        throw std::logic_error("no");
    } catch (const std::logic_error&) {
    }
}

int counted(const std::vector<int>& numbers) {
    int sum = 0;
    for (const int number : numbers) sum += number;  // 2 of 2
    while (sum > 100) --sum;  // 1 of 2
    if (sum < 0) return sum;  // 1 of 2
    return sum;
}

int neverCalled(int number) {     // never run
    if (number > 1) return 1;     // never run, 0 of 2
    return number;                // never run
}

int main() {
    told(true);
    both(true, true);
    both(true, true);
    neither(true, 5);
    choice(1);
    choice(3);
    name();
    caught();
    const Pair pair{name()};
    const int sum = counted({1, 2});
    if (sum != 3) return 1;  // 1 of 2
    if (pair != pair) caught();  // 1 of 2
    return 0;
}
"""


def run_program(folder):
    source = folder / "code" / "program.cpp"
    source.parent.mkdir()
    source.write_text(program)
    subprocess.run([compiler, "-std=c++20", "-O0", "-g1", "--coverage", "../code/program.cpp", "-o",
                    "program"], cwd=make(folder / "build"), check=True)
    subprocess.run(["./program"], cwd=folder / "build", check=True)


def make(folder):
    folder.mkdir()
    return folder


class Branches(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name).resolve()
            run_program(folder)
            covered.ROOT = folder
            cls.lines, cls.branches = covered.measured(folder / "build", ["code"])["code/program.cpp"]

    def test_the_ways_of_conditions_count_and_nothing_else(self):
        for number, line in enumerate(program.splitlines(), 1):
            wanted = re.search(r"// .*?(\d) of (\d)", line)
            counts = self.branches.get(number, [])
            found = (sum(count > 0 for count in counts), len(counts))
            self.assertEqual(found, (int(wanted[1]), int(wanted[2])) if wanted else (0, 0), line)

    def test_a_line_that_never_ran_is_told(self):
        for number, line in enumerate(program.splitlines(), 1):
            if number in self.lines:
                self.assertEqual(self.lines[number] == 0, "// never run" in line, line)

    def test_lines_without_a_word_are_none(self):
        self.assertFalse([number for number in self.lines
                          if not re.search(r"\w", program.splitlines()[number - 1])])


unittest.main(argv=["branches"])
