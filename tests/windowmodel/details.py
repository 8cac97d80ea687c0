"""The class, the school and the teacher, the grading scale, the print font, help and the password."""

import struct

from model.files import RECORD, put_cell, put_text, tagged_in
from model.texts import cell_text

from .typed import half_even, number_in

CRITICAL = "critical"
GRADES = (b"A", b"B", b"C", b"D", b"E")
TEACHER_CHARACTERS = 20


class Ended(Exception):
    """The program ended in the middle of a command."""


class Details:
    def mnuEditGradesheetTitle(self):
        self.dirty = True
        question = b"What is the grade sheet's [class's] name? (recommended format: Class - Period)"
        answer = self.user.prompt(b"Edit Grade Sheet [Class] Name", question, self.sheet.title, kind="name")
        if answer:
            self.sheet.title = answer
        else:
            self.user.message(b"Edit Grade sheet [Class] Name Cancelled", b"Cancellation", CRITICAL)

    def mnuEditSchoolName(self):
        answer = self.user.prompt(b"Edit School Name", b"What is the school's name?", self.school, kind="name")
        if answer:
            self.school = answer
        else:
            self.user.message(b"Edit School Name Cancelled", b"Cancellation", CRITICAL)
        self.disk.write_texts(b"SchoolName.qrv", [self.school])

    def mnuEditTN(self):
        question = b"What is your name? (20 Characters Max)"
        answer = self.user.prompt(b"Edit Teacher's Name", question, self.teacher, kind="name")
        if answer:
            self.teacher = answer[:TEACHER_CHARACTERS]
        else:
            self.user.message(b"Edit Teacher Name Cancelled", b"Cancellation", CRITICAL)
        self.disk.write_texts(b"TN.qrv", [self.teacher])

    def mnuGradingScale(self):
        title = b"Grading Scale"
        self.user.message(b"In the following questions, answer with integers only.", title, CRITICAL)
        scale = self.asked_scale(title)
        if scale:
            question = b"Do you want to round percentages up when calculating grades?"
            self.round_up = self.user.agrees(question, b"Rounding Percentage To Find Letter Grade")
            self.scale = tuple(half_even(minimum) for minimum in scale)
            self.refresh()
        else:
            self.user.message(b"Grading Scale Change Aborted", title, "information")
        minimums = b"".join(struct.pack("<h", minimum).ljust(RECORD, b"\0") for minimum in self.scale)
        self.disk.write(b"GradingScale.qrv", minimums + put_text(b"0.5" if self.round_up else b"0"))

    def asked_scale(self, title):
        """The five minimums as typed; nothing when the user gives up."""
        typed = []
        for grade, least, current in zip(GRADES, (5, 4, 3, 2, 1), self.scale):
            below = typed[-1] if typed else 100
            question = b"What percentage is needed to receive an %s?" % grade
            minimum = 0
            while not least < minimum < below:
                answer = self.user.prompt(title, question, b"%d" % current, kind="percentage", most=below)
                if not answer:
                    return None
                minimum = number_in(answer)
            typed.append(minimum)
        return typed

    def mnuFont(self):
        self.font = self.user.choose_font() or self.font
        name, size = self.font
        size_text = cell_text(("f", size))
        question = b"Is %s the correct font type and %s the correct font size?" % (name, size_text)
        if self.user.agrees(question, b"Change Default Font"):
            self.disk.write(b"DefaultPrintFont.vzr", put_cell(name) + put_cell(("f", size)))
        else:
            self.user.message(b"Change Default Font Canceled")

    def mnuAbout(self):
        self.user.message(b"Quorvel\r\nVersion 2.60", b"About the Quorvel", "information")

    # The password.

    def stored_password(self):
        stored = self.disk.password
        return tagged_in(stored) or b"" if stored else b""

    def mnuEditPassword(self):
        stored = self.stored_password()
        stage = "old" if stored else "new"
        caption = b"Enter Old Password Please..." if stored else b"Enter New Password Please..."
        wrong = 0
        new = b""
        while True:
            entry = self.user.password(caption)
            if entry is None:
                return
            if stage == "old" and entry != stored:
                wrong += 1
                if wrong == 3:
                    self.user.message(b"Access Denied: Shutting Down")
                    raise Ended
                text = b"Password Change Access Denied: The old password you gave is incorrect.  Please try again."
                self.user.message(text, b"Access Denied", CRITICAL)
            elif stage == "old":
                stage, caption = "new", b"Enter New Password Please..."
                self.user.message(caption)
            elif stage == "new":
                stage, caption, new = "confirm", b"Confirm New Password Please...", entry
                self.user.message(caption)
            else:
                break
        if entry == new:
            self.disk.password = put_cell(new)
            self.user.message(b"Password Changed", b"Edit Password")
        else:
            text = (
                b"Password Not Changed: Password Mismatch"
                b" (You typed two different passwords...try again please)"
            )
            self.user.message(text, b"Edit Password")
