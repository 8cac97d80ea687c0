"""Makes one small mistake at a time in a copy of the sources and sees whether a headless test notices.

mutate.py ROOT COUNT SEED: the work of ./mutate, which tells more.
"""

import hashlib
import json
import os
import random
import signal
import subprocess
import sys
from pathlib import Path

from mutants import mutants_of

FOLDERS = ("core", "storage", "access", "reports", "commands", "window", "qrv")
SCENARIOS = "scenario_headless"
SECONDS_AT_MOST = 300


class Workshop:
    """A copy of the sources and its build: no mistake is ever made in the sources themselves."""

    def __init__(self, root):
        self.root = root
        self.sources = root / "build/mutation/copy"
        # Where a compiler cache finds what was built elsewhere.
        self.build = self.sources / "build/dev"
        self.log = root / "build/mutation.log"
        self.all_tests = ("ctest", "--test-dir", self.build, "--stop-on-failure", "-j",
                          os.cpu_count())

    def prepare(self):
        self.copy_sources()
        self.run("cmake", "-S", self.sources, "-B", self.build, "-G", "Ninja",
                 "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", check=True)

    def copy_sources(self):
        listed = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=self.root,
                                check=True, capture_output=True, text=True).stdout
        wanted = {name for name in listed.split("\0") if name and (self.root / name).is_file()}
        for old in [path for path in self.sources.rglob("*") if path.is_file()]:
            name = str(old.relative_to(self.sources))
            if name not in wanted and not name.startswith("build/"):
                old.unlink()
        for name in wanted:
            source, copy = self.root / name, self.sources / name
            content = source.read_bytes()
            if copy.is_file() and copy.read_bytes() == content:
                continue
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)
            copy.chmod(source.stat().st_mode)

    def run(self, *command, cwd=None, check=False, seconds=SECONDS_AT_MOST):
        """Whether the command succeeds in time, if that is limited. What it says is in the log."""
        with open(self.log, "ab") as log:
            process = subprocess.Popen([str(part) for part in command], cwd=cwd, stdout=log,
                                       stderr=log, stdin=subprocess.DEVNULL, start_new_session=True)
            try:
                good = process.wait(seconds) == 0
            except subprocess.TimeoutExpired:
                good = False
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
        if check and not good:
            sys.exit(f"failed, see {self.log}: {' '.join(map(str, command))}")
        return good

    def builds(self, *targets):
        return self.run("ninja", "-C", self.build, *targets)

    def is_in_order(self):
        """Whether everything builds and passes without a mistake, however long that takes."""
        return (self.run("ninja", "-C", self.build, seconds=None)
                and self.run(*self.all_tests, seconds=None))

    def near_tests(self, folder):
        """The unit test programs of a folder."""
        names = sorted((self.sources / "tests" / folder).glob("CMakeLists.txt"))
        programs = [line[len("quorvel_tests("):].split()[0]
                    for name in names for line in name.read_text().splitlines()
                    if line.startswith("quorvel_tests(")]
        return [self.build / "tests" / folder / program for program in programs]

    def who_notices(self, folder):
        """The name of the first to notice, nearest first; none where nobody does."""
        for program in self.near_tests(folder):
            if not self.builds(program.name):
                return "the compiler"
            if not self.run(program, "--gtest_brief=1", "--gtest_fail_fast", cwd=program.parent):
                return program.name
        if not self.builds(SCENARIOS):
            return "the compiler"
        scenarios = sorted((self.sources / "tests/scenarios").glob("*.scenario"))
        if not self.run(self.build / "tests/scenario" / SCENARIOS, *scenarios, cwd=self.sources):
            return SCENARIOS
        if not self.builds():
            return "the compiler"
        others = ("-E", "^scenarios$")
        return "" if self.run(*self.all_tests, *others) else "another test"


def all_mutants(root):
    found = []
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                file = str(path.relative_to(root))
                found += [(mutant, path.read_text()) for mutant in mutants_of(file, path.read_text())]
    return found


def line_text(code, mutant):
    return code.splitlines()[mutant.line - 1].strip()


def harmless_changes(root):
    """What was looked at and changes nothing that anybody could notice: see the file itself."""
    known = set()
    for line in (root / "tests/mutation/harmless.txt").read_text().splitlines():
        if line and not line.startswith("#"):
            file, text, change, _reason = line.split(" | ")
            known.add((file, text, change))
    return known


def key_of(mutant, code):
    whole = f"{mutant.file}\0{mutant.start}\0{mutant.end}\0{mutant.new}\0{code}"
    return hashlib.sha256(whole.encode()).hexdigest()[:20]


class Results:
    """What came of each mutant so far, kept so that a later run goes on."""

    def __init__(self, file):
        self.file = file
        self.known = {}
        if file.is_file():
            for line in file.read_text().splitlines():
                key, verdict = json.loads(line)
                self.known[key] = verdict

    def add(self, key, verdict):
        self.known[key] = verdict
        with open(self.file, "a", encoding="utf-8") as stream:
            stream.write(json.dumps([key, verdict]) + "\n")


def try_mutant(workshop, mutant, code):
    copy = workshop.sources / mutant.file
    try:
        copy.write_text(mutant.applied_to(code))
        return workshop.who_notices(mutant.file.split("/")[0])
    finally:
        copy.write_text(code)


def main():
    root, count, seed = Path(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("stopped; the same call goes on from here"))
    workshop = Workshop(root)
    workshop.sources.mkdir(parents=True, exist_ok=True)
    harmless = harmless_changes(root)
    mutants = [(mutant, code) for mutant, code in all_mutants(root)
               if (mutant.file, line_text(code, mutant), mutant.change()) not in harmless]
    chosen = random.Random(seed).sample(mutants, min(count, len(mutants)))
    print(f"{len(mutants)} mistakes could be made, {len(chosen)} of them are tried", flush=True)
    workshop.prepare()
    results = Results(root / "build/mutation/results.jsonl")
    if any(key_of(mutant, code) not in results.known for mutant, code in chosen):
        if not workshop.is_in_order():
            sys.exit(f"the tests fail without a mistake; see {workshop.log}")

    caught = survived = refused = 0
    for number, (mutant, code) in enumerate(chosen, 1):
        key = key_of(mutant, code)
        if key not in results.known:
            results.add(key, try_mutant(workshop, mutant, code))
        verdict = results.known[key]
        refused += verdict == "the compiler"
        survived += not verdict
        caught += bool(verdict) and verdict != "the compiler"
        if verdict:
            print(f"{number} {mutant.file}:{mutant.line}: noticed by {verdict}", flush=True)
        else:
            print(f"{number} {mutant.file}:{mutant.line}: SURVIVED: {mutant.change()}\n"
                  f"    {line_text(code, mutant)}", flush=True)
    rate = 100.0 * caught / (caught + survived) if caught + survived else 0.0
    print(f"{rate:.1f} % noticed; the compiler refused {refused} more")
    print(f"{caught} passed, {survived} failed")
    return 1 if survived else 0


if __name__ == "__main__":
    sys.exit(main())
