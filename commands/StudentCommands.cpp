#include "commands/StudentCommands.h"

#include <functional>
#include <utility>

#include "commands/Questions.h"
#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr std::string_view invalidNumber =
    "A valid student number was not entered.  Click OK to try again or Cancel to stop trying.";

/// The answer that keeps a field as it is.
constexpr std::string_view noChange = "nc";

/// Changes the roster, sorts it and shows it. Should the memory not suffice, nothing has changed.
void changeRoster(CommandContext& context, const std::function<void(GradeSheet&)>& change) {
    GradeSheet changed = context.sheet;
    change(changed);
    changed.sortRoster(*context.state.codePage);
    if (changed.studentCount() != context.sheet.studentCount())
        context.window.setStudentScrollMaximum(changed.studentCount());
    context.sheet = std::move(changed);
    context.window.RefreshGrid();
}

/// The number of the student to edit; 0 when the user gave up.
int askForStudentToEdit(CommandContext& context) {
    for (;;) {
        const std::string answer = context.ports.dialogs.prompt(
            {.title = "Edit Student",
             .question = "Please enter the student number that you wish to edit."});
        const Decimal typed = typedNumber(answer, *context.state.codePage);
        const int count = context.sheet.studentCount();
        if (const int number = numberInRange(typed, count)) return number;
        // Only a number that is too small is complained about; one that is too large is just asked
        // for again.
        const bool isTooLarge = typed > Decimal(count);
        if (!isTooLarge && !askToTryAgain(context, invalidNumber, "Error")) return 0;
    }
}

/// The number of the student to remove; 0 when the user gave up.
int askForStudentToRemove(CommandContext& context) {
    for (;;) {
        const std::string answer = context.ports.dialogs.prompt(
            {.title = "Remove Student",
             .question = "Please enter the student number that you wish to remove."});
        const Decimal typed = typedNumber(answer, *context.state.codePage);
        if (const int number = numberInRange(typed, context.sheet.studentCount())) return number;
        if (!askToTryAgain(context, invalidNumber, "Error")) return 0;
    }
}

}  // namespace

void mnuAddS(CommandContext& context) {
    context.state.isDirty = true;
    Dialogs& dialogs = context.ports.dialogs;
    const auto reportCanceled = [&dialogs] {
        dialogs.message(
            {.text = "Student Addition Canceled", .title = "Canceled Student Addition"});
    };

    const std::string name =
        dialogs.prompt({.title = "Add Student",
                        .question = "What is the student's full name?\r\n"
                                    "(Recommended Format: LastName, FirstName)"});
    if (name.empty()) return reportCanceled();
    const std::string alias =
        dialogs.prompt({.title = "Add Student",
                        .question = "What is the student's alias? (no more than 15 characters)"});
    if (alias.empty()) return reportCanceled();

    changeRoster(context, [&](GradeSheet& sheet) {
        sheet.addStudent(name, txtTruncateS(alias));
        for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
            sheet.setScore(assignment, sheet.studentCount(), Score::zero());
    });
}

void mnuEditS(CommandContext& context) {
    context.state.isDirty = true;
    GradeSheet& sheet = context.sheet;
    Dialogs& dialogs = context.ports.dialogs;
    if (sheet.studentCount() == 0) {
        showCritical(context, "There are no students to which you can edit.", "Error");
        return;
    }

    const int student = askForStudentToEdit(context);
    if (student == 0) {
        dialogs.message({.text = "Student Editing Canceled", .title = "Edit Student"});
        return;
    }

    const std::string oldName = sheet.studentName(student);
    const std::string name =
        dialogs.prompt({.title = "Edit Student",
                        .question = "What is the student's name? (no more than 15 characters)",
                        .defaultAnswer = oldName});
    if (name.empty())
        dialogs.message({.text = "Student Addition Canceled", .title = "Edit Student"});

    const std::string oldAlias = sheet.studentAlias(student);
    const std::string alias =
        dialogs.prompt({.title = "Edit Student",
                        .question = "What is the student's alias? (no more than 15 characters)",
                        .defaultAnswer = oldAlias});
    if (alias.empty()) dialogs.message({.text = "Student Edit Canceled", .title = "Edit Student"});

    // An empty answer was reported, and yet it empties the field; nothing is cut here.
    changeRoster(context, [&](GradeSheet& changed) {
        changed.setStudent(student, name == noChange ? oldName : name,
                           alias == noChange ? oldAlias : alias);
    });
}

void mnuRemoveS(CommandContext& context) {
    context.state.isDirty = true;
    GradeSheet& sheet = context.sheet;
    if (sheet.studentCount() == 0) {
        showCritical(context, "There are no students to remove", "Error");
        return;
    }

    const int student = askForStudentToRemove(context);
    if (student == 0) {
        context.ports.dialogs.message(
            {.text = "Student removal Canceled", .title = "Remove Student"});
        return;
    }

    changeRoster(context, [&](GradeSheet& changed) { changed.removeStudent(student); });
}

}  // namespace quorvel
