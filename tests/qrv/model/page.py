"""What a class' page has to say, read by a parser that knows nothing of how it is written."""

from html.parser import HTMLParser

from .texts import tenths

VOID = {"meta", "link", "br", "img", "hr", "input"}
# In the order of a student's row.
FIGURES = ("number", "earned", "possible", "percent", "grade", "rank")


class Page(HTMLParser):
    """The figures of each student and of the class; `broken` is the first tag that does not fit."""

    def __init__(self, text):
        super().__init__()
        self.open = []
        self.broken = None
        self.students = []
        self.average = []
        self.feed(text)
        self.close()
        if self.open and not self.broken:
            self.broken = self.open[-1][0]

    def handle_starttag(self, tag, attrs):
        names = dict(attrs).get("class") or ""
        if tag == "tr" and ("table", "students") in self.open and ("tbody", "") in self.open:
            self.students.append({})
        if tag == "script":
            self.broken = tag
        if tag not in VOID:
            self.open.append((tag, names))

    def handle_startendtag(self, tag, attrs):
        pass

    def handle_endtag(self, tag):
        if self.open and self.open[-1][0] == tag:
            self.open.pop()
        elif self.broken is None:
            self.broken = tag

    def handle_data(self, data):
        if not self.open:
            return
        tag, names = self.open[-1]
        kind = names.partition(" ")[0]
        if tag == "td" and kind in FIGURES and ("table", "students") in self.open:
            self.students[-1][kind] = data
        if tag in ("b", "i") and ("p", "average") in self.open:
            self.average.append(data)


def page_of(sheet, figures):
    """(students, average) as such a page has to have them."""
    students = [
        {
            "number": str(s + 1),
            "earned": str(figures.earned[s]),
            "possible": str(figures.possible[s]),
            "percent": tenths(figures.percent[s]).decode(),
            "grade": figures.letter(figures.percent[s]).decode(),
            "rank": str(figures.rank[s]),
        }
        for s in range(sheet.students)
    ]
    average = []
    if figures.average is not None:
        average = [tenths(figures.average).decode(), figures.letter(figures.average).decode()]
    return students, average
