#!/usr/bin/env python3
"""Runs every example and command line of the papers about qrv and compares what they print.

    python3 tests/qrv/documents.py --qrv build/native/qrv

In the manual page an example is a line that starts with "$ ", and what it prints stands below it. In
docs/SCHOOLS.md and README.md every line of a fenced or indented block of commands is run, the blocks of a
paper one after the other in one folder; a block that starts with "$ " shows what it prints as well. The
last line is `N passed, N failed`.
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

MATH = "Name,Alias,Quiz,Test\nValue,,20,20\n\"Doe, Jane\",Jane,17,20\n\"Roe, Rick\",Rick,12,E\n"
ART = "Name,Alias,Sketch\nValue,,10\n\"Poe, Edgar\",Ed,7\n"
# Stands for other machines as ssh reaches them: what they are told to do is done here, with the shell named
# that logged in, which the one that runs this need not have named.
OTHER_MACHINE = """#!/bin/sh
while [ "${1#-}" != "$1" ]; do shift; done
shift
[ "$1" != -- ] || shift
SHELL=/bin/sh exec sh -c "$*"
"""

BAD = "Name,Alias,Quiz\nValue,,20\nDoe,,17%\nRoe,,x\n"


class Folder:
    """A folder with `qrv` at hand, where commands are run one after the other. It goes with its `with`."""

    def __init__(self, qrv):
        self.whole = tempfile.TemporaryDirectory(prefix="qrv-documents-")
        self.path = Path(self.whole.name)
        tools = self.path / ".tools"
        tools.mkdir()
        (tools / "qrv").symlink_to(qrv)
        ssh = tools / "ssh"
        ssh.write_text(OTHER_MACHINE)
        ssh.chmod(0o755)
        self.environment = {**os.environ, "PATH": f"{tools}:{os.environ['PATH']}", "HOME": str(tools)}

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.whole.cleanup()

    def sheet(self, name, csv, title):
        (self.path / name).parent.mkdir(parents=True, exist_ok=True)
        command = ["qrv", "import", "-", "-o", name, "--title", title]
        subprocess.run(command, cwd=self.path, env=self.environment, input=csv.encode(), check=True)

    def run(self, command):
        """What the command prints on both streams, and how it ended."""
        done = subprocess.run(
            ["bash", "-uo", "pipefail", "-c", command],
            cwd=self.path,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            timeout=120,
            check=False,
        )
        return done.stdout.decode("utf-8", "replace").replace("\r\n", "\n"), done.returncode


class Examples:
    def __init__(self):
        self.count = 0
        self.differences = 0

    def expect(self, command, came, wanted):
        self.count += 1
        if came != wanted:
            self.differences += 1
            print(f"$ {command}\n--- printed:\n{came}--- expected:\n{wanted}")


def sessions(lines):
    """(command, what it prints) for each line that starts with "$ "."""
    command, printed = None, []
    for line in lines:
        if line.startswith("$ "):
            if command is not None:
                yield command, "".join(printed)
            command, printed = line[2:].rstrip("\n"), []
        else:
            printed.append(line)
    if command is not None:
        yield command, "".join(printed)


def manual(folder, examples):
    folder.sheet("math.qrv", MATH, "Math - 1")
    folder.sheet("art.qrv", ART, "Art")
    (folder.path / "bad.csv").write_text(BAD)
    text = (ROOT / "docs/qrv.1").read_text()
    blocks = re.findall(r"^\.EX\n(.*?)^\.EE\n", text, re.MULTILINE | re.DOTALL)
    for block in blocks:
        for command, wanted in sessions(block.replace("\\-", "-").splitlines(keepends=True)):
            examples.expect(command, folder.run(command)[0], wanted)


def fenced(path):
    """The blocks of commands of a Markdown paper."""
    return re.findall(r"^```sh\n(.*?)^```\n", path.read_text(), re.MULTILINE | re.DOTALL)


def schools(folder, examples):
    """Each block is a script; it has to end well and to print what stands behind "# prints:" lines."""
    for number in range(1, 13):
        folder.sheet(f"Grades/class-{number:02}.qrv", MATH, f"Math - {number}")
    (folder.path / "csv").mkdir()
    for number in range(1, 4):
        (folder.path / f"csv/class-{number:02}.csv").write_text(MATH)
    for block in fenced(ROOT / "docs/SCHOOLS.md"):
        wanted = "".join(re.findall(r"^# prints: (.*\n)", block, re.MULTILINE))
        came, code = folder.run(block)
        examples.expect(block, came + ("" if code == 0 else f"exit {code}\n"), wanted)


def readme(folder, examples):
    folder.sheet("Quorvel/Grades/algebra.qrv", MATH, "Algebra")
    (folder.path / "Quorvel/GradingScale.qrv").write_bytes(
        b"".join(bytes([minimum, 0]).ljust(128, b"\0") for minimum in (90, 80, 70, 60, 50)) + b"\x01\0000".ljust(128, b"\0")
    )
    folder.path /= "Quorvel"
    for command in re.findall(r"^    (qrv .*)\n", (ROOT / "README.md").read_text(), re.MULTILINE):
        came, code = folder.run(command.replace("\\", "/"))
        examples.expect(command, f"exit {code}" if code else "well", "well")
        if command.startswith("qrv check"):
            examples.expect(command, str("scale: 90,80,70,60,50 (from " in came), "True")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    arguments.add_argument("--qrv", required=True, help="the program to run the examples with")
    qrv = Path(arguments.parse_args().qrv).resolve()
    examples = Examples()
    for paper in (manual, schools, readme):
        before = examples.count
        with Folder(qrv) as folder:
            paper(folder, examples)
        if examples.count == before:
            print(f"there is no example in the paper of {paper.__name__}")
            examples.differences += 1
    print(f"{examples.count - examples.differences} passed, {examples.differences} failed")
    return int(examples.differences > 0)


if __name__ == "__main__":
    sys.exit(main())
