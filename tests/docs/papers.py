"""Checks that the papers say what is so: every command line in them works, every link leads to a
file, every version is the present one. usage: papers.py ROOT QRV"""

import json
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

root = Path(sys.argv[1])
qrv = sys.argv[2]
papers = [*sorted(root.glob("*.md")), *sorted((root / "docs").glob("*.md"))]
guide = root / "assets" / "HowToUseQRV.txt"
version = re.search(r"project\(Quorvel VERSION ([0-9.]+)", (root / "CMakeLists.txt").read_text())[1]


def command_lines(paper):
    """The lines that stand alone, indented, and begin with a command."""
    for line in paper.read_text().splitlines():
        found = re.match(r"(?: {3,})((?:\./|cmake |qrv |ctest |osslsigncode |Quorvel-).*)", line)
        if found and not re.search(r"\b[A-Z]{3,}\b", found[1].replace("ALLUSERS", "")):
            yield found[1]


class Papers(unittest.TestCase):
    def test_links_lead_to_files(self):
        for paper in papers:
            for link in re.findall(r"\]\(([^)#]+)\)", paper.read_text()):
                if not link.startswith("http"):
                    self.assertTrue((paper.parent / link).exists(), f"{paper.name}: {link}")

    def test_versions_are_the_present_one(self):
        for paper in papers:
            if paper.name == "CHANGELOG.md":
                continue
            for named in re.findall(r"(?:Quorvel|qrv)-([0-9]+\.[0-9]+)", paper.read_text()):
                self.assertEqual(named, version, paper.name)
        self.assertRegex((root / "CHANGELOG.md").read_text(), rf"(?m)^## {version} \(\d{{4}}-\d\d-\d\d\)$")

    def test_scripts_know_what_the_papers_tell_them(self):
        count = 0
        for paper in papers:
            for line in command_lines(paper):
                script, *arguments = shlex.split(line)
                if not script.startswith("./"):
                    continue
                count += 1
                text = subprocess.run([root / script, "--help"], capture_output=True, text=True,
                                      check=True, timeout=60).stdout
                for argument in arguments:
                    self.assertIn(argument, text + "--help", f"{paper.name}: {line}")
        self.assertGreater(count, 5)

    def test_scripts_refuse_what_they_do_not_know(self):
        for script in ["run", "test", "package"]:
            done = subprocess.run([root / script, "--nonsense"], capture_output=True, timeout=60)
            self.assertEqual(done.returncode, 2, script)
            self.assertIn(b"./" + script.encode(), done.stderr)

    def test_presets_exist(self):
        presets = json.loads((root / "CMakePresets.json").read_text())
        kinds = {"--preset": "configurePresets", "--build": "buildPresets", "ctest": "testPresets"}
        for paper in papers:
            for line in command_lines(paper):
                words = shlex.split(line)
                if words[0] not in ("cmake", "ctest"):
                    continue
                kind = kinds.get(words[1]) or kinds.get(words[0])
                names = [preset["name"] for preset in presets[kind]]
                self.assertIn(words[words.index("--preset") + 1], names, f"{paper.name}: {line}")

    def test_the_companion_does_what_the_papers_show(self):
        for paper in [root / "README.md", guide]:
            lines = [line for line in command_lines(paper) if line.startswith("qrv ")]
            self.assertGreater(len(lines), 4, paper.name)
            with tempfile.TemporaryDirectory() as folder:
                grades = Path(folder) / "Grades"
                grades.mkdir()
                samples = root / "assets" / "samples"
                for name in ["class", "algebra"]:
                    shutil.copy(samples / "Algebra I - Period 3.qrv", grades / f"{name}.qrv")
                    shutil.copy(samples / "Algebra I - Period 3.csv", Path(folder) / f"{name}.csv")
                for line in lines:
                    words = [word.replace("\\", "/") for word in shlex.split(line, posix=False)]
                    words = [word.strip('"') for word in words]
                    done = subprocess.run([qrv, *words[1:]], cwd=folder, capture_output=True,
                                          text=True, timeout=60)
                    self.assertEqual(done.returncode, 0, f"{paper.name}: {line}\n{done.stderr}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
