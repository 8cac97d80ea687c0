"""The print command."""

from model.reports import Report, Stopped

from .typed import half_even, number_in

REPORTS = b"""Type the value that corresponds to the print job you want to send to the printer.

1: Full Report (All Scores for each student)

2: Class Report (List of each student's total score)

3: Individual Student Report (All scores for a student)

4: Assignment Report (All assignment names and values)

5: Teacher Report (Concise chart of all scores)

6: Student Grade Report (Short descriptions of each student's grade)""".replace(b"\n", b"\r\n")

NAMES_OR_ALIASES = b"Do you want the students name's to be printed? (If choice is no, then aliases will be printed)"
INVALID_METHOD = b"An invalid number was entered.  Click OK to try again or cancel to quit."
INVALID_STUDENT = b"An invalid student number was given.  Click OK to try again or cancel to quit."
INDIVIDUAL_ERROR = b"Print Individual Student Report Error"


class Printing:
    def mnuPrint(self):
        while True:
            answer = self.user.prompt(b"Print Method", REPORTS, kind="report")
            if not answer:
                break
            number = number_in(answer)
            # At least 1 before rounding, at most 6 after it.
            if number >= 1 and half_even(number) <= 6:
                self.print_report(half_even(number))
                return
            if self.user.message(INVALID_METHOD, b"Print Method Error", buttons="ok-cancel") == "cancel":
                break
        self.user.message(b"Print Report Cancelled")

    def print_report(self, kind):
        if kind != 4 and not self.sheet.students:
            text = b"There are no students to print a report on."
            self.user.message(text, b"Print Student(s) Report Error", "critical")
            return
        student, aliases = 0, False
        if kind == 2:
            aliases = not self.user.agrees(NAMES_OR_ALIASES)
        if kind == 3:
            student = self.chosen_student()
            if student is None:
                return
        if kind == 5:
            aliases = self.window.aliases
        report = Report(
            self.sheet, self.window.figures, self.school, self.teacher, student=student, aliases=aliases
        )
        try:
            text = report.make(kind)
        except Stopped:
            self.user.message(b"Division by zero", icon="critical")
            return
        # Report 1 has nothing to print for students without names.
        if kind != 1 or any(self.sheet.names):
            self.user.printed(text, None if kind == 5 else self.font)

    def chosen_student(self):
        """From 1; None when the user gives up."""
        count = self.sheet.students
        while True:
            question = b"What student number's report you wish to print?"
            number = number_in(self.user.prompt(INDIVIDUAL_ERROR, question, kind="number", most=count))
            if 1 <= number <= count:
                return min(max(half_even(number), 1), count)
            if self.user.message(INVALID_STUDENT, INDIVIDUAL_ERROR, buttons="ok-cancel") == "cancel":
                self.user.message(b"Print Individual Student Report Canceled", b"Canceled Print Job")
                return None
