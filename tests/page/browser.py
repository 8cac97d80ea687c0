#!/usr/bin/python3
"""Opens the pages that qrv makes in a real browser, and compares them with what else qrv says.

    tests/page/browser.py --qrv build/native/qrv --axe build/axe/node_modules/axe-core/axe.min.js

Both sample classes, one student's, one with aliases, an empty one, one of a single student, one of odd
names, one of 35 students and 40 assignments and a school of 300 classes are opened in Chromium at 1280 and
390 pixels, light and dark, and printed on A4 and Letter. On each page the figures have to be those of
`qrv figures --format json`, nothing may leave the page or its width, no dot may touch another, no heading
stand alone at the foot of a sheet of paper, and axe-core has to find nothing. Pages of the usual size have to
stay small, and one of 1,000 students and 200 assignments has to come soon. With --pictures FOLDER what was
seen is kept there. The last line is `N passed, N failed`.
"""

import argparse
import json
import resource
import subprocess
import sys
import tempfile
from pathlib import Path

from chromium import Browser
from generated import Generated

ROOT = Path(__file__).resolve().parents[2]
WIDTHS = (1280, 390)
VIEWS = tuple((width, scheme) for width in WIDTHS for scheme in ("light", "dark"))
PAPERS = {"a4": (8.27, 11.69), "letter": (8.5, 11)}
# A page of 35 students and 40 assignments may be as large, one of 1,000 and 200 take as long.
MOST_BYTES = 300_000
MOST_SECONDS = 0.5

# Below each of these on paper stand the head of a table and some rows, the number of the page not counted.
HEADINGS = ("Contents", "By student By assignment", "Students", "Assignments", "Every score")
LINES_BELOW_A_HEADING = 3
# What the notes at the end begin with.
NOTES = "Grading scale:"

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

# How many pairs of dots touch. A dot reaches dots that stand behind it by their left edges only.
TOUCHING = """
let touching = 0;
for (const picture of document.querySelectorAll(".dots")) {
    const boxes = [...picture.querySelectorAll("circle")].map(dot => dot.getBoundingClientRect());
    boxes.sort((one, other) => one.left - other.left);
    boxes.forEach((one, index) => {
        for (let next = index + 1; next < boxes.length && boxes[next].left < one.right; ++next) {
            const other = boxes[next];
            const distance = Math.hypot(one.left - other.left, one.top - other.top);
            if (distance < one.width) ++touching;
        }
    });
}
return touching;
"""


def decimal(number):
    """A figure as the program writes it."""
    return f"{number:.1f}".removesuffix(".0")


def processor_time():
    """The seconds that programs called so far have computed, which other work does not lengthen."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def left_alone(printed):
    """What stands alone on a sheet of a PDF: headings with too little below them, notes with nothing above."""
    text = subprocess.run(
        ["pdftotext", "-layout", "-", "-"], input=printed, capture_output=True, check=True, timeout=120
    ).stdout.decode("utf-8")
    found = []
    for sheet in text.split("\f"):
        lines = [" ".join(line.split()) for line in sheet.splitlines() if line.strip()][:-1]
        found += [line for line in lines[-LINES_BELOW_A_HEADING:] if line in HEADINGS]
        found += [line for line in lines[:1] if line.startswith(NOTES)]
    return found


def expected_class(figures):
    """What a page has to show of a class, by `qrv figures --format json`."""
    students = figures["students"]
    letters = [student["letter"] for student in students]
    return {
        "title": figures["title"],
        "average": None if figures["average"] is None else decimal(figures["average"]) + "%",
        "letter": figures["letter"],
        "letters": [str(letters.count(letter)) for letter in "ABCDEF" if students],
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

    def look(self, name, page, views_for_axe=VIEWS):
        """What has to hold for every page, however it is looked at."""
        self.browser.open(page)
        for width, scheme in VIEWS:
            self.browser.show(width, scheme)
            view = f"{name} at {width}, {scheme}"
            wide = self.browser.run("return document.documentElement.scrollWidth")
            self.expect(f"{view}: its width", wide, width)
            if (width, scheme) in views_for_axe:
                self.expect(f"{view}: axe-core", self.browser.violations(), [])
            self.expect(f"{view}: dots that touch", self.browser.run(TOUCHING), 0)
            self.keep(f"{name}-{width}-{scheme}.png", self.browser.picture())
        for paper, size in PAPERS.items():
            printed = self.browser.paper(size)
            self.expect(f"{name} on {paper}: left alone", left_alone(printed), [])
            self.keep(f"{name}-{paper}.pdf", printed)
        self.expect(f"{name}: its requests", set(self.browser.requests()) - {"data:,"}, {page.as_uri()})
        self.expect(f"{name}: what the browser complains of", self.browser.complaints(), [])

    def front(self, sample):
        """The top of a class' page, for the papers."""
        page = self.page("front", [sample], "--school", "North High", "--teacher", "Ms. Rivera", "--date", "11/22/2026")
        self.browser.open(page)
        self.browser.show(WIDTHS[0], "light")
        self.keep("front.png", self.browser.picture(highest=1316))

    def classes(self, name, sheets, views_for_axe=VIEWS):
        page = self.page(name, sheets)
        self.look(name, page, views_for_axe)
        self.compare(name, sheets)
        return page

    def compare(self, name, sheets):
        """The figures on the page that is open with those of its sheets."""
        lines = self.call("figures", "--format", "json", *sheets).splitlines()
        came = self.browser.run(READ_CLASSES)
        for shown in came:
            shown["places"].sort()
        self.expect(f"{name}: its classes", len(came), len(lines))
        for shown, line in zip(came, lines):
            wanted = expected_class(json.loads(line))
            self.expect(f"{name}: {wanted['title']}", shown, wanted)

    def aliases(self, sheets):
        self.look("aliases", self.page("aliases", sheets, "--alias"))
        whole = self.browser.run("return document.documentElement.outerHTML")
        classes = [json.loads(line) for line in self.call("figures", "--format", "json", *sheets).splitlines()]
        names = [student["name"] for one in classes for student in one["students"] if student["name"] in whole]
        self.expect("names on a page of aliases", names, [])

    def many(self, sheet):
        """A class larger than any: how soon its page is there, and that its dots can be told apart."""
        seconds = []
        for _ in range(3):
            begin = processor_time()
            page = self.page("many", [sheet])
            seconds.append(processor_time() - begin)
        print(f"1,000 students and 200 assignments: {min(seconds):.2f} s")
        self.expect("the page of 1,000 students comes soon", min(seconds) < MOST_SECONDS, True)
        self.browser.open(page)
        for width in WIDTHS:
            self.browser.show(width, "light")
            self.expect(f"many at {width}: dots that touch", self.browser.run(TOUCHING), 0)
            self.keep(f"many-{width}.png", self.browser.picture(highest=1200))
        self.compare("many", [sheet])

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
    proof.aliases(samples)
    proof.student(samples[0], 9)
    proof.classes("odd", [proof.sheet("odd", Generated.odd_names())])
    proof.classes("empty", [proof.sheet("empty", Generated.nobody())])
    generated = Generated("school")
    proof.classes("one", [proof.sheet("one", generated.school_class(1, 6))])
    usual = proof.classes("usual", [proof.sheet("usual", generated.school_class(35, 40))]).stat().st_size
    print(f"35 students and 40 assignments: {usual} bytes")
    proof.expect("a page of the usual size is small", usual < MOST_BYTES, True)
    proof.many(proof.sheet("many", generated.school_class(1000, 200)))
    # axe-core takes minutes for 300 classes even of a few; both widths and both schemes are among two views.
    school = [proof.sheet(f"class-{number:03}", generated.school_class(5, 4)) for number in range(1, 301)]
    proof.classes("school", school, views_for_axe=(VIEWS[0], VIEWS[-1]))


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
