"""Students, assignments and the scores that are asked for one after the other."""

from model.texts import cell_text

from .texts import upper_case
from .typed import entered_score, half_even, number_in, number_text, rounded_up

CRITICAL = "critical"
ERROR = b"Error"
INVALID_STUDENT = b"A valid student number was not entered.  Click OK to try again or Cancel to stop trying."
INVALID_ASSIGNMENT = (
    b"Please enter a valid assignment number.  Click OK to go back and try again or click cancel to quit."
)
INVALID_NAME = b"Please enter a valid assignment name.  Click OK to go back and try again or click cancel to quit."
VALUE_QUESTION = b"What is the assignments value?\r\n(Any non-integer values will be rounded)"
INVALID_VALUE = (
    b"Please enter a valid value for the assignment.  Click Ok to go back and give the assignment a value."
    b"  Clicking cancel will cancel adding this assignmnet."
)
ALIAS_CHARACTERS = 15
NAME_CHARACTERS = 20


def place(number, count):
    """The row or column that a typed number names, from 1; 0 when it names none."""
    if not 0 < number <= count:
        return 0
    return half_even(number)


class Commands:
    # Students.

    def mnuAddS(self):
        self.dirty = True
        question = b"What is the student's full name?\r\n(Recommended Format: LastName, FirstName)"
        name = self.user.prompt(b"Add Student", question, kind="name")
        alias = name and self.user.prompt(
            b"Add Student", b"What is the student's alias? (no more than 15 characters)", kind="alias"
        )
        if not alias:
            self.user.message(b"Student Addition Canceled", b"Canceled Student Addition")
            return
        sheet = self.sheet
        sheet.students_set = True
        sheet.names.append(name)
        sheet.aliases.append(alias[:ALIAS_CHARACTERS])
        for assignment in range(len(sheet.values)):
            sheet.cells[assignment, sheet.students - 1] = ("i", 0)
        self.sort_roster()

    def mnuEditS(self):
        self.dirty = True
        sheet = self.sheet
        title = b"Edit Student"
        if not sheet.students:
            self.user.message(b"There are no students to which you can edit.", ERROR, CRITICAL)
            return
        student = 0
        while not student:
            question = b"Please enter the student number that you wish to edit."
            number = number_in(self.user.prompt(title, question, kind="number", most=sheet.students))
            student = place(number, sheet.students)
            if student or number > sheet.students:
                continue
            if self.user.message(INVALID_STUDENT, ERROR, buttons="ok-cancel") == "cancel":
                self.user.message(b"Student Editing Canceled", title)
                return
        question = b"What is the student's name? (no more than 15 characters)"
        name = self.user.prompt(title, question, sheet.names[student - 1], kind="name")
        if not name:
            self.user.message(b"Student Addition Canceled", title)
        question = b"What is the student's alias? (no more than 15 characters)"
        alias = self.user.prompt(title, question, sheet.aliases[student - 1], kind="alias")
        if not alias:
            self.user.message(b"Student Edit Canceled", title)
        if name != b"nc":
            sheet.names[student - 1] = name
        if alias != b"nc":
            sheet.aliases[student - 1] = alias
        self.sort_roster()

    def mnuRemoveS(self):
        self.dirty = True
        sheet = self.sheet
        if not sheet.students:
            self.user.message(b"There are no students to remove", ERROR, CRITICAL)
            return
        while True:
            question = b"Please enter the student number that you wish to remove."
            answer = self.user.prompt(b"Remove Student", question, kind="number", most=sheet.students)
            student = place(number_in(answer), sheet.students)
            if student:
                break
            if self.user.message(INVALID_STUDENT, ERROR, buttons="ok-cancel") == "cancel":
                self.user.message(b"Student removal Canceled", b"Remove Student")
                return
        del sheet.names[student - 1], sheet.aliases[student - 1]
        count = sheet.students
        # The last assignment's scores stay in their places.
        for assignment in range(len(sheet.values) - 1):
            for s in range(student - 1, count):
                self.put_cell(assignment, s, sheet.cell(assignment, s + 1))
        for assignment in range(len(sheet.values)):
            sheet.cells.pop((assignment, count), None)
        self.sort_roster()

    def put_cell(self, assignment, student, cell):
        if cell is None:
            self.sheet.cells.pop((assignment, student), None)
        else:
            self.sheet.cells[assignment, student] = cell

    def sort_roster(self):
        sheet = self.sheet
        order = sorted(range(sheet.students), key=lambda s: upper_case(sheet.names[s]))
        sheet.names = [sheet.names[s] for s in order]
        sheet.aliases = [sheet.aliases[s] for s in order]
        new_place = {s: place for place, s in enumerate(order)}
        sheet.cells = {(a, new_place[s]): cell for (a, s), cell in sheet.cells.items()}
        self.refresh()

    # Assignments.

    def asked_value(self, title, default, cancelled):
        """None, after its message, when the user gives up."""
        while True:
            answer = self.user.prompt(title, VALUE_QUESTION, default, kind="value")
            if not answer:
                self.user.message(cancelled)
                return None
            if answer == b"0":
                return 0
            value = rounded_up(number_in(answer))
            if 1 <= value <= 999:
                return int(value)
            if self.user.message(INVALID_VALUE, ERROR, buttons="ok-cancel") == "cancel":
                self.user.message(b"Assignment Canceled")
                return None

    def mnuAddA(self):
        self.dirty = True
        title = b"Add Assignment"
        question = b"What is the assignments name? (no more than 20 characters)"
        name = self.user.prompt(title, question, b"Assignment Name Here", kind="assignment")
        if not name:
            self.user.message(b"Assignment Addition Canceled")
            return
        value = self.asked_value(title, b"Assignment Value Here", b"Assignment Addition Canceled")
        if value is None:
            return
        sheet = self.sheet
        sheet.assignments_set = True
        sheet.assignments.append(name[:NAME_CHARACTERS])
        sheet.values.append(value)
        for student in range(sheet.students):
            sheet.cells[len(sheet.values) - 1, student] = ("i", 0)
        self.refresh()

    def mnuEditA(self):
        self.dirty = True
        sheet = self.sheet
        count = len(sheet.values)
        title = b"Edit Assignment"
        if not count:
            self.user.message(b"There are no assignments to which you can edit.", ERROR, CRITICAL)
            return
        while True:
            question = b"What is the assignment's number that you wish to edit?"
            answer = self.user.prompt(title, question, b"Assignment Number Here", kind="number", most=count)
            number = abs(number_in(answer))
            assignment = place(number, count)
            if assignment:
                break
            if self.user.message(INVALID_ASSIGNMENT, buttons="ok-cancel") == "cancel":
                self.user.message(b"Assignment Edit Canceled", b"Abort Edit Assignment")
                return
        while True:
            question = b"What is the new name for the assignment? (no more than 20 characters)"
            old = sheet.assignments[assignment - 1]
            answer = self.user.prompt(title + b" " + number_text(number), question, old, kind="assignment")
            name = answer[:NAME_CHARACTERS]
            if name:
                break
            if self.user.message(INVALID_NAME, buttons="ok-cancel") == "cancel":
                self.user.message(b"Assignment Edit Canceled", b"Abort Edit Assignment")
                return
        value = self.asked_value(title, b"%d" % sheet.values[assignment - 1], b"Assignment Canceled")
        if value is None:
            return
        sheet.assignments[assignment - 1] = name
        sheet.values[assignment - 1] = value
        self.refresh()

    def mnuRemoveA(self):
        self.dirty = True
        sheet = self.sheet
        count = len(sheet.values)
        if not count:
            text = b"There are no assignments to remove."
            self.user.message(text, b"Remove Assignment Error", CRITICAL)
            return
        question = b"What is the number of the assignment you wish to remove?"
        default = b"Assignment Number Here"
        answer = self.user.prompt(b"Remove Assignment", question, default, kind="number", most=count)
        if not answer:
            self.user.message(b"Assignment Removal Canceled")
            return
        assignment = place(abs(number_in(answer)), count)
        if not assignment:
            text = b"Assignment Removal Canceled Due to the Invalid Number You Supplied"
            self.user.message(text, b"Abort Remove Assignment")
            return
        del sheet.assignments[assignment - 1], sheet.values[assignment - 1]
        kept = {at: cell for at, cell in sheet.cells.items() if at[0] != assignment - 1}
        sheet.cells = {(a - (a >= assignment), s): cell for (a, s), cell in kept.items()}
        self.refresh()

    # Scores.

    def mnuInputA(self):
        self.dirty = True
        sheet = self.sheet
        what = b"Input Assignment Scores"
        if not sheet.students or not sheet.values:
            nothing = b"students" if sheet.students else b"assignments"
            self.user.message(b"There are no %s to which you can input scores." % nothing, ERROR, CRITICAL)
            return
        question = b"What assignment do you want to input scores for?"
        chosen = self.chosen_place(what, question, len(sheet.values), abs)
        if chosen:
            self.input_scores(what, [(chosen - 1, student) for student in range(sheet.students)])

    def mnuInputS(self):
        self.dirty = True
        sheet = self.sheet
        what = b"Input Student Scores"
        if not sheet.students or not sheet.values:
            self.user.message(b"There are no students to which you can input scores.", ERROR, CRITICAL)
            return
        question = b"What student do you want to input scores for?"
        chosen = self.chosen_place(what, question, sheet.students, lambda number: number)
        if chosen:
            self.input_scores(what, [(assignment, chosen - 1) for assignment in range(len(sheet.values))])

    def chosen_place(self, what, question, count, reading):
        """From 1; asked again without a word; 0, after its message, when the user gives up."""
        chosen = 0
        while not chosen:
            answer = self.user.prompt(what, question, kind="number", most=count)
            if not answer:
                self.user.message(what + b" Canceled", b"Cancelation")
                return 0
            chosen = place(reading(number_in(answer)), count)
        return chosen

    def input_scores(self, what, cells):
        sheet = self.sheet
        for assignment, student in cells:
            question = b"\r\n".join(
                [
                    b"Student: " + sheet.names[student],
                    b"",
                    b"Assignment: " + sheet.assignments[assignment],
                    b"Value: %d" % sheet.values[assignment],
                    b"",
                    b"What was this student's score on this assignment?",
                    b"(Any non-integer values will be rounded...E = Excused)",
                ]
            )
            default = cell_text(sheet.cell(assignment, student))
            answer = self.user.prompt(what, question, default, kind="score")
            if not answer:
                self.refresh()
                self.user.message(b"Remainder of %s have been canceled" % what, b"Cancelation")
                return
            sheet.cells[assignment, student] = entered_score(answer)
        self.refresh()
