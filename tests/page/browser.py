#!/usr/bin/python3
"""Opens the pages that qrv makes in a real browser, and compares them with what else qrv says.

    tests/page/browser.py --qrv build/native/qrv --axe build/axe/node_modules/axe-core/axe.min.js

Both sample classes, a generated one of odd names and a school of 300 classes are opened in Chromium at
1280 and 390 pixels, light and dark, and printed on A4 and Letter. On each page the figures have to be
those of `qrv figures --format json`, nothing may leave the page or its width, and axe-core has to find
nothing. With --pictures FOLDER what was seen is kept there. The last line is `N passed, N failed`.
"""

import argparse
import base64
import json
import random
import subprocess
import sys
import tempfile
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

ROOT = Path(__file__).resolve().parents[2]
WIDTHS = (1280, 390)
PAPERS = {"a4": (8.27, 11.69), "letter": (8.5, 11)}
AXE = "const done = arguments[arguments.length - 1]; axe.run().then(done)"

# What a page shows of each class, as a person reads it off its tables.
READ_CLASSES = """
const text = node => node === null ? null : node.textContent;
return [...document.querySelectorAll("article")].map(article => ({
    title: text(article.querySelector(".masthead h1, .masthead h2")),
    average: text(article.querySelector(".average b")),
    letter: text(article.querySelector(".average i")),
    letters: [...article.querySelectorAll(".letter-counts td")].map(text),
    dots: article.querySelectorAll(".dots circle").length,
    places: [...article.querySelectorAll(".dots circle title")].map(text),
    students: [...article.querySelectorAll(".students tbody tr")].map(row => ({
        number: text(row.querySelector(".number")),
        name: text(row.querySelector("th")),
        earned: text(row.querySelector(".earned")),
        possible: text(row.querySelector(".possible")),
        percentage: text(row.querySelector(".percent")),
        letter: text(row.querySelector(".grade")),
        rank: text(row.querySelector(".rank")),
    })),
}));
"""


def decimal(number):
    """A figure as the program writes it."""
    return f"{number:.1f}".removesuffix(".0")


def expected_class(figures):
    """What a page has to show of a class, by `qrv figures --format json`."""
    students = figures["students"]
    letters = [student["letter"] for student in students]
    return {
        "title": figures["title"],
        "average": decimal(figures["average"]) + "%",
        "letter": figures["letter"],
        "letters": [str(letters.count(letter)) for letter in "ABCDEF"],
        "dots": len(students),
        "places": sorted(f"{s['name']}: {decimal(s['percentage'])}, {s['letter']}" for s in students),
        "students": [
            {
                **{key: str(student[key]) for key in ("number", "name", "earned", "possible", "letter", "rank")},
                "percentage": decimal(student["percentage"]),
            }
            for student in students
        ],
    }


class Generated:
    """Classes as CSV; the same start gives the same ones."""

    def __init__(self, start):
        self.random = random.Random(start)

    def score(self, value):
        kind = self.random.randrange(14)
        if kind < 2:
            return ("", "E")[kind]
        return str(self.random.randint(value * 4 // 10, value))

    def school_class(self, students, assignments):
        values = [self.random.choice([10, 20, 50, 100]) for _ in range(assignments)]
        lines = ["Name,Alias," + ",".join(f"Assignment {a}" for a in range(1, assignments + 1))]
        lines.append("Value,," + ",".join(map(str, values)))
        for number in range(1, students + 1):
            scores = ",".join(self.score(value) for value in values)
            lines.append(f'"Last{number}, First",Alias {number},{scores}')
        return "\n".join(lines) + "\n"

    @staticmethod
    def odd_names():
        names = ["<script>alert(1)</script>", "O'Neil & \"Co\"", "</td></tr></table>", "Wolfeschlegelsteinhausen" * 5]
        lines = ["Name,Alias,<b>,\"a very, very long one\"", "Value,,20,0"]
        lines += ['"' + name.replace('"', '""') + f'",{number},{17 + number},3' for number, name in enumerate(names)]
        return "\n".join(lines) + "\n"


class Browser:
    def __init__(self, axe):
        options = Options()
        # As root Chromium runs without its sandbox only; it opens nothing but our own pages.
        for argument in ("--headless=new", "--no-sandbox", "--hide-scrollbars", "--disable-dev-shm-usage"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"performance": "ALL", "browser": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))
        self.axe = Path(axe).read_text(encoding="utf-8")

    def open(self, page):
        self.driver.get_log("performance")
        self.driver.get_log("browser")
        self.driver.get(page.as_uri())

    def show(self, width, scheme):
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": features})
        metrics = {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False}
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)

    def requests(self):
        """The addresses that were asked for since the page was opened."""
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        return [m["params"]["request"]["url"] for m in messages if m["method"] == "Network.requestWillBeSent"]

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def run(self, script):
        return self.driver.execute_script(script)

    def violations(self):
        self.driver.execute_script(self.axe)
        found = self.driver.execute_async_script(AXE)
        return [f"{v['id']}: {v['nodes'][0]['html'][:160]}" for v in found["violations"]]

    def picture(self, highest=8000):
        height = min(self.run("return document.documentElement.scrollHeight"), highest)
        width = self.run("return window.innerWidth")
        clip = {"x": 0, "y": 0, "width": width, "height": height, "scale": 1}
        command = {"format": "png", "captureBeyondViewport": True, "clip": clip}
        return base64.b64decode(self.driver.execute_cdp_cmd("Page.captureScreenshot", command)["data"])

    def paper(self, size):
        command = {"paperWidth": size[0], "paperHeight": size[1]}
        return base64.b64decode(self.driver.execute_cdp_cmd("Page.printToPDF", command)["data"])


class Proof:
    def __init__(self, qrv, browser, folder, pictures):
        self.qrv = qrv
        self.browser = browser
        self.folder = folder
        self.pictures = pictures
        self.passed = 0
        self.failed = 0

    def expect(self, what, came, wanted):
        if came == wanted:
            self.passed += 1
            return
        self.failed += 1
        print(f"{what}:\n    came     {str(came)[:2000]}\n    expected {str(wanted)[:2000]}")

    def call(self, *words):
        done = subprocess.run([self.qrv, *map(str, words)], capture_output=True, check=True, timeout=120)
        return done.stdout.decode("utf-8")

    def sheet(self, name, csv):
        source, sheet = self.folder / f"{name}.csv", self.folder / f"{name}.qrv"
        source.write_text(csv, encoding="utf-8")
        self.call("import", source, "-o", sheet, "--title", name)
        return sheet

    def keep(self, name, content):
        if self.pictures:
            (self.pictures / name).write_bytes(content)

    def page(self, name, sheets, *options):
        page = self.folder / f"{name}.html"
        self.call("page", *sheets, *options, "-o", page)
        return page

    def look(self, name, page, with_axe=True):
        """What has to hold for every page, however it is looked at."""
        self.browser.open(page)
        for width in WIDTHS:
            for scheme in ("light", "dark"):
                self.browser.show(width, scheme)
                view = f"{name} at {width}, {scheme}"
                wide = self.browser.run("return document.documentElement.scrollWidth")
                self.expect(f"{view}: its width", wide, width)
                if with_axe:
                    self.expect(f"{view}: axe-core", self.browser.violations(), [])
                self.keep(f"{name}-{width}-{scheme}.png", self.browser.picture())
        for paper, size in PAPERS.items():
            printed = self.browser.paper(size)
            self.expect(f"{name} on {paper}", printed[:5], b"%PDF-")
            self.keep(f"{name}-{paper}.pdf", printed)
        self.expect(f"{name}: its requests", set(self.browser.requests()) - {"data:,"}, {page.as_uri()})
        self.expect(f"{name}: what the browser complains of", self.browser.complaints(), [])

    def front(self, sample):
        """The top of a class' page, for the papers."""
        page = self.page("front", [sample], "--school", "North High", "--teacher", "Ms. Rivera", "--date", "11/22/2026")
        self.browser.open(page)
        self.browser.show(WIDTHS[0], "light")
        self.keep("front.png", self.browser.picture(highest=1316))

    def classes(self, name, sheets, with_axe=True):
        self.look(name, self.page(name, sheets), with_axe)
        lines = self.call("figures", "--format", "json", *sheets).splitlines()
        came = self.browser.run(READ_CLASSES)
        for shown in came:
            shown["places"].sort()
        self.expect(f"{name}: its classes", len(came), len(lines))
        for shown, line in zip(came, lines):
            wanted = expected_class(json.loads(line))
            self.expect(f"{name}: {wanted['title']}", shown, wanted)

    def student(self, sheet, number):
        self.look("student", self.page("student", [sheet], "--student", number))
        figures = json.loads(self.call("figures", "--format", "json", sheet))
        student = figures["students"][number - 1]
        shown = self.browser.run("return document.querySelector('.masthead').innerText").split("\n")
        points = f"{student['earned']} of {student['possible']} points"
        for text in (student["name"], f"{decimal(student['percentage'])}% {student['letter']}", points):
            self.expect("the student's head", text in shown, True)
        whole = self.browser.run("return document.documentElement.outerHTML")
        others = [s["name"] for s in figures["students"] if s["name"] != student["name"] and s["name"] in whole]
        self.expect("others on a student's page", others, [])
        self.expect("the class average", f"Class average {decimal(figures['average'])}" in whole, True)


def prove(proof):
    samples = sorted((ROOT / "assets/samples").glob("*.qrv"))
    for number, sample in enumerate(samples, start=1):
        proof.classes(f"sample-{number}", [sample])
    proof.front(samples[0])
    proof.classes("samples", samples)
    proof.look("aliases", proof.page("aliases", samples, "--alias"))
    proof.student(samples[0], 9)
    proof.classes("odd", [proof.sheet("odd", Generated.odd_names())])
    generated = Generated("school")
    school = [proof.sheet(f"class-{number:03}", generated.school_class(28, 15)) for number in range(1, 301)]
    # axe-core takes minutes for so much of the same.
    proof.classes("school", school, with_axe=False)


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    arguments.add_argument("--qrv", required=True, help="the program that makes the pages")
    arguments.add_argument("--axe", required=True, help="axe-core's script")
    arguments.add_argument("--pictures", help="a folder for what was seen")
    options = arguments.parse_args()
    pictures = Path(options.pictures) if options.pictures else None
    if pictures:
        pictures.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="qrv-pages-") as folder:
        browser = Browser(options.axe)
        proof = Proof(Path(options.qrv).resolve(), browser, Path(folder), pictures)
        try:
            prove(proof)
        finally:
            browser.driver.quit()
    print(f"{proof.passed} passed, {proof.failed} failed")
    return int(proof.failed > 0)


if __name__ == "__main__":
    sys.exit(main())
