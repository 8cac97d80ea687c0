#include "commands/ScoreCommands.h"

#include "commands/Questions.h"
#include "core/Numbers.h"

namespace quorvel {

namespace {

/// What the two sequences say differently.
struct Sequence {
    std::string_view title;
    std::string_view selectionQuestion;
    std::string_view selectionCanceled;
    std::string_view remainderCanceled;
    bool signCounts;  // whether -2 is another choice than 2
};

constexpr Sequence byAssignment{
    .title = "Input Assignment Scores",
    .selectionQuestion = "What assignment do you want to input scores for?",
    .selectionCanceled = "Input Assignment Scores Canceled",
    .remainderCanceled = "Remainder of Input Assignment Scores have been canceled",
    .signCounts = false,
};
constexpr Sequence byStudent{
    .title = "Input Student Scores",
    .selectionQuestion = "What student do you want to input scores for?",
    .selectionCanceled = "Input Student Scores Canceled",
    .remainderCanceled = "Remainder of Input Student Scores have been canceled",
    .signCounts = true,
};

constexpr std::string_view cancelation = "Cancelation";

/// What both commands begin with, before any check.
void beginInput(CommandContext& context) {
    context.state.isDirty = true;
    context.window.hideEditor();
}

/// The chosen number, from 1 to `count`; 0 when the user gave up, which has then been reported.
/// One out of range is just asked for again.
int askForSelection(CommandContext& context, const Sequence& sequence, int count) {
    for (;;) {
        const std::string answer = context.ports.dialogs.prompt(
            {.title = sequence.title, .question = sequence.selectionQuestion});
        if (answer.empty()) {
            context.ports.dialogs.message(
                {.text = sequence.selectionCanceled, .title = cancelation});
            return 0;
        }
        const Decimal typed = typedNumber(answer, *context.state.codePage);
        if (const int number = numberInRange(sequence.signCounts ? typed : typed.absolute(), count))
            return number;
    }
}

/// Asks for one score and stores it. False when the answer was empty: the rest of the sequence is
/// called off, which has then been reported.
bool askForScore(CommandContext& context, const Sequence& sequence, int assignment, int student) {
    GradeSheet& sheet = context.sheet;
    const std::string question = "Student: " + sheet.studentName(student) +
                                 "\r\n\r\n"
                                 "Assignment: " +
                                 sheet.assignmentName(assignment) +
                                 "\r\n"
                                 "Value: " +
                                 std::to_string(sheet.assignmentValue(assignment)) +
                                 "\r\n\r\n"
                                 "What was this student's score on this assignment?\r\n"
                                 "(Any non-integer values will be rounded...E = Excused)";
    const std::string answer =
        context.ports.dialogs.prompt({.title = sequence.title,
                                      .question = question,
                                      .defaultAnswer = sheet.score(assignment, student).text(),
                                      .longestAnswer = Score::longestText});
    if (answer.empty()) {
        context.window.RefreshGrid();
        context.ports.dialogs.message({.text = sequence.remainderCanceled, .title = cancelation});
        return false;
    }
    sheet.setScore(assignment, student, scoreFromEntry(answer, *context.state.codePage));
    return true;
}

}  // namespace

void mnuInputA(CommandContext& context) {
    beginInput(context);
    GradeSheet& sheet = context.sheet;
    // Each text names what the other one lacks.
    if (sheet.studentCount() == 0) {
        showCritical(context, "There are no assignments to which you can input scores.", "Error");
        return;
    }
    if (sheet.assignmentCount() == 0) {
        showCritical(context, "There are no students to which you can input scores.", "Error");
        return;
    }

    const int assignment = askForSelection(context, byAssignment, sheet.assignmentCount());
    if (assignment == 0) return;
    for (int student = 1; student <= sheet.studentCount(); ++student)
        if (!askForScore(context, byAssignment, assignment, student)) return;
    context.window.RefreshGrid();
}

void mnuInputS(CommandContext& context) {
    beginInput(context);
    GradeSheet& sheet = context.sheet;
    if (sheet.studentCount() == 0 || sheet.assignmentCount() == 0) {
        showCritical(context, "There are no students to which you can input scores.", "Error");
        return;
    }

    const int student = askForSelection(context, byStudent, sheet.studentCount());
    if (student == 0) return;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
        if (!askForScore(context, byStudent, assignment, student)) return;
    context.window.RefreshGrid();
}

}  // namespace quorvel
