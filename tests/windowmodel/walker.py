"""Uses a program at random and writes down what was done and what must then be seen."""

import random

from .disk import Disk
from .expectations import Expectations
from .program import Program
from .texts import quoted

# A sheet grows to more than the window shows at a time, and no further.
MANY_STUDENTS, MANY_ASSIGNMENTS = 24, 18

# The entries that are chosen, more often chosen ones more often.
ENTRIES = (
    ("mnuAddS", 12),
    ("mnuEditS", 6),
    ("mnuRemoveS", 4),
    ("mnuAddA", 10),
    ("mnuEditA", 5),
    ("mnuRemoveA", 3),
    ("mnuInputA", 4),
    ("mnuInputS", 4),
    ("mnuSave", 6),
    ("mnuSaveAs", 3),
    ("mnuOpen", 5),
    ("mnuPFile", 4),
    ("mnuNew", 2),
    ("mnuPrint", 6),
    ("mnuEditGradesheetTitle", 3),
    ("mnuEditSchoolName", 2),
    ("mnuEditTN", 2),
    ("mnuGradingScale", 3),
    ("mnuFont", 1),
    ("mnuEditPassword", 1),
    ("mnuCopy", 2),
    ("mnuBackup1", 2),
    ("mnuBackup", 1),
    ("mnuAbout", 1),
    ("mnuExit", 1),
)

ODD_NUMBERS = (
    b"0", b"-1", b"-7", b"2.5", b"0.4", b"0.5", b"1.5", b"9.25", b"7.4999", b"12.5", b"12.49", b"999.4", b"999.5",
    b"1000", b"E", b"e", b" e", b"abc", b".", b"-", b"1e5", b"  3 ", b"+2", b".25", b"5.", b"007", b"3x", b"32767",
    b"40000", b"-0.3", b"0.0", b"100.75",
)  # fmt: skip
LETTERS = b"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ  ,.-'\"\\&"
ACCENTS = b"\xc0\xc4\xc9\xd1\xd6\xdc\xdf\xe0\xe4\xe9\xf1\xf6\xfc\xff\x8a\x9a\x8e\x9f"
FILE_NAMES = (b"a.qrv", b"b.qrv", b"Algebra I - Period 3.qrv", b"c", b"\xc9t\xe9.qrv")
PASSWORDS = (b"", b"a", b"Secret", b"secret")
FONT_SIZES = (8.0, 9.0, 10.0)


class Walker:
    """`lines` is the scenario, `texts` are the files that belong beside it. The same number gives the same."""

    def __init__(self, number):
        self.random = random.Random(number)
        self.name = f"walk-{number}"
        self.lines = []
        self.texts = {}
        self.disk = Disk()
        self.small = self.chance(25)
        self.many = self.chance(30)
        if self.small:
            self.lines.append("screen 640x480")
        self.program = None

    def walk(self, steps):
        for _ in range(steps):
            if self.program is None or self.program.ended:
                self.start()
            else:
                self.step()
            if self.program.ended:
                self.expect(["window ended"])
            else:
                self.expect(Expectations(self.program).every_step())
        if not self.program.ended:
            seen = Expectations(self.program)
            self.expect([*seen.whole_sheet(), *seen.picture(), *seen.recent_files(), *seen.settings()])

    def chance(self, percent):
        return self.random.random() * 100 < percent

    def expect(self, lines):
        self.lines += ["expect " + line for line in lines]

    # Steps.

    def start(self):
        self.lines.append("start")
        self.program = Program(self, self.disk, self.small)
        self.program.start()
        if not self.program.ended:
            self.expect(Expectations(self.program).recent_files())

    def step(self):
        if self.program.window.entry and self.chance(60):
            return self.use_editor()
        choice = self.random.random() * 100
        if choice < 25:
            return self.click()
        if choice < 35:
            return self.scroll()
        if choice < 40:
            return self.click_heading()
        if choice < 41 and self.chance(30):
            return self.close()
        return self.choose()

    def use_editor(self):
        if self.chance(60):
            text = self.number(20)
            self.lines.append(f"type {quoted(text)}")
            self.program.type(text)
            return
        key = self.random.choice(("Enter", "Enter", "Tab", "Escape"))
        self.lines.append(f"key {key}")
        if key != "Escape":
            self.program.end_entry()

    def click(self):
        """Mostly where cells are; not on a scroll bar and not into the open editor."""
        window = self.program.window
        columns, rows = max(1, len(self.program.sheet.values)), max(1, self.program.sheet.students)
        canvas = 438 if self.small else 588
        x = 150 + self.random.randrange(min(30 * columns + 40, canvas) if self.chance(80) else canvas)
        y = self.random.randrange(min(14 * rows + 28, 295) if self.chance(80) else 295)
        entry = window.entry
        if entry and entry.left - 3 <= x < entry.left + 33 and entry.top - 3 <= y < entry.top + 17:
            return self.click_heading()
        self.lines.append(f"click {x} {y}")
        self.program.click(x, y)

    def click_heading(self):
        name = self.random.choice(("lblStudent", "lblSN"))
        self.lines.append(f"click {name}")
        self.program.click_heading(name)

    def scroll(self):
        name, bar = self.random.choice(list(self.program.window.bars().items()))
        position = self.random.randint(bar.least, bar.most)
        self.lines.append(f"scroll {name} {position}")
        self.program.scroll(name, position)

    def close(self):
        self.lines.append("close")
        self.program.close()

    def choose(self):
        program = self.program
        entry = self.wanted_entry()
        self.lines.append(f"menu {entry}")
        if entry.startswith("mnuPFile"):
            program.choose("open_recent")
        else:
            program.choose(entry)
        if program.ended:
            return
        seen = Expectations(program)
        if entry in ("mnuOpen", "mnuSave", "mnuSaveAs", "mnuNew") or entry.startswith("mnuPFile"):
            self.expect(seen.recent_files())
            if program.path and program.save_mode == "Save" and not program.dirty:
                if self.disk.exists(program.path):
                    self.expect([*seen.whole_sheet(), *seen.saved_file(program.path)])
        if entry in ("mnuBackup", "mnuBackup1"):
            copies = [f"copied {quoted(source)} {quoted(target)}" for source, target in program.copies]
            self.expect(copies or ["copied none"])
        if entry in ("mnuGradingScale", "mnuEditSchoolName", "mnuEditTN", "mnuFont"):
            self.expect(seen.settings())
        if self.chance(15):
            self.expect([*seen.whole_sheet(), *seen.picture()])

    def wanted_entry(self):
        program = self.program
        students, assignments = program.sheet.students, len(program.sheet.values)
        entry = self.random.choices([name for name, _ in ENTRIES], [often for _, often in ENTRIES])[0]
        if self.many and students < MANY_STUDENTS and self.chance(40):
            entry = "mnuAddS"
        if self.many and assignments < MANY_ASSIGNMENTS and self.chance(40):
            entry = "mnuAddA"
        if entry == "mnuAddS" and students >= MANY_STUDENTS:
            entry = "mnuRemoveS"
        if entry == "mnuAddA" and assignments >= MANY_ASSIGNMENTS:
            entry = "mnuRemoveA"
        if entry == "mnuPFile":
            shown = [number for number, visible in enumerate(program.visible, 1) if visible]
            entry = f"mnuPFile({self.random.choice(shown)})" if shown else "mnuAbout"
        return entry

    # Answers. Each is noted as a dialog of the step.

    def note(self, dialog, answer):
        if self.chance(5) and self.program is not None and hasattr(self.program, "dirty"):
            self.lines.append(f"  expect dirty {'yes' if self.program.dirty else 'no'}")
        self.lines.append(f"  {dialog} -> {answer}")

    def number(self, most):
        if self.chance(65):
            return b"%d" % self.random.randint(1, max(1, int(most)))
        if self.chance(50):
            return self.random.choice(ODD_NUMBERS)
        if self.chance(50):
            return b"%d.%d" % (self.random.randrange(200), self.random.randrange(1000))
        return b"%d" % self.random.randint(-50, 1100)

    def text(self, longest):
        if self.chance(3):
            return b"nc"
        length = self.random.randint(1, longest if self.chance(10) else min(longest, 18))
        pool = LETTERS * 4 + ACCENTS
        return bytes(self.random.choice(pool) for _ in range(length))

    def answer_to(self, kind, most, default):
        if kind == "percentage":
            return b"%d" % self.random.randint(int(default) - 3, int(default) + 2)
        if kind in ("number", "report"):
            return self.number(6 if kind == "report" else most + 1)
        if kind == "value":
            return self.number(self.random.choice((10, 100)))
        if kind == "score":
            return b"e" if self.chance(8) else self.number(25)
        return self.text({"name": 60, "alias": 30, "assignment": 30}[kind])

    def prompt(self, title, question, default=b"", kind="name", most=0):
        if self.chance(8):
            answer = b""
        elif self.chance(8):
            answer = default
        else:
            answer = self.answer_to(kind, most, default)
        given = "cancel" if not answer and self.chance(50) else quoted(answer)
        self.note(f"prompt {quoted(title)} {quoted(question)} default {quoted(default)}", given)
        return answer

    def message(self, text, title=b"Quorvel", icon="none", buttons="ok"):
        answer = "ok"
        if buttons == "ok-cancel" and self.chance(30):
            answer = "cancel"
        if buttons == "yes-no":
            answer = "yes" if self.chance(65) else "no"
        self.note(f"message {quoted(title)} {quoted(text)} icon {icon} buttons {buttons}", answer)
        return answer

    def agrees(self, question, title=b"Quorvel"):
        return self.message(question, title, buttons="yes-no") == "yes"

    def open_file(self, title, sheets):
        chosen = self.random.choice(sheets) if sheets and self.chance(85) else None
        self.note(f"open {quoted(title)}", quoted(chosen) if chosen else "cancel")
        return chosen

    def save_file(self, title):
        name = b"Grades\\" + self.random.choice(FILE_NAMES) if self.chance(85) else None
        self.note(f"save {quoted(title)}", quoted(name) if name else "cancel")
        if name is None:
            return None
        return b"*\\" + (name if b"." in name else name + b".qrv")

    def choose_font(self):
        font = (b"Courier New", self.random.choice(FONT_SIZES)) if self.chance(70) else None
        self.note("font", f"{quoted(font[0])} {font[1]:g}" if font else "cancel")
        return font

    def password(self, caption):
        """Mostly the right one where there is one."""
        stored = self.program.stored_password()
        if b"New" not in caption and self.chance(70):
            entry = stored
        else:
            entry = None if self.chance(10) else self.random.choice(PASSWORDS)
        self.note(f"password {quoted(caption)}", "cancel" if entry is None else quoted(entry))
        return entry

    def printed(self, text, font):
        name = f"{self.name}-{len(self.texts) + 1}.txt"
        # Blank last lines of a page cannot be seen on paper.
        pages = text.split(b"\f")
        self.texts[name] = b"\f".join(page.rstrip(b"\n") + b"\n" for page in pages)
        self.lines.append(f'  expect printed "{name}"')
        if font:
            self.lines.append(f"  expect printed font {quoted(font[0])} {font[1]:g}")
        else:
            self.lines.append("  expect printed landscape")
