#include "commands/AssignmentCommands.h"

#include <cstdint>
#include <optional>

#include "commands/Questions.h"
#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr int smallestValue = 1;  // but for an answer of exactly "0"
constexpr int largestValue = 999;

constexpr std::string_view numberHere = "Assignment Number Here";

/// The point value; nothing when the user gave up, which has then been reported.
/// `cancellation` is what an empty answer is reported with.
std::optional<std::int16_t> askForValue(CommandContext& context, std::string_view title,
                                        std::string_view defaultAnswer,
                                        std::string_view cancellation) {
    Dialogs& dialogs = context.ports.dialogs;
    for (;;) {
        const std::string answer =
            dialogs.prompt({.title = title,
                            .question = "What is the assignments value?\r\n"
                                        "(Any non-integer values will be rounded)",
                            .defaultAnswer = defaultAnswer});
        if (answer.empty()) {
            dialogs.message({.text = cancellation});
            return std::nullopt;
        }
        // Every other answer, 0.2 or 00 among them, has to come to 1 at least.
        if (answer == "0") return std::int16_t{0};
        const Decimal value = typedNumber(answer, *context.state.codePage).roundedUpFromHalf();
        if (value >= Decimal(smallestValue) && value <= Decimal(largestValue))
            return static_cast<std::int16_t>(value.toInteger());
        if (!askToTryAgain(context,
                           "Please enter a valid value for the assignment.  "
                           "Click Ok to go back and give the assignment a value.  "
                           "Clicking cancel will cancel adding this assignmnet.",
                           "Error")) {
            dialogs.message({.text = "Assignment Canceled"});
            return std::nullopt;
        }
    }
}

/// The number that an answer gives for an assignment, its sign disregarded.
Decimal assignmentNumber(const CommandContext& context, std::string_view answer) {
    return typedNumber(answer, *context.state.codePage).absolute();
}

/// The number of the assignment to edit, as it was typed; 0 when the user gave up.
Decimal askForAssignmentToEdit(CommandContext& context) {
    for (;;) {
        const std::string answer = context.ports.dialogs.prompt(
            {.title = "Edit Assignment",
             .question = "What is the assignment's number that you wish to edit?",
             .defaultAnswer = numberHere});
        Decimal number = assignmentNumber(context, answer);
        if (numberInRange(number, context.sheet.assignmentCount()) != 0) return number;
        if (!askToTryAgain(context,
                           "Please enter a valid assignment number.  "
                           "Click OK to go back and try again or click cancel to quit."))
            return {};
    }
}

/// The assignment's new name; empty when the user gave up. The title says the number as it was
/// typed.
std::string askForNewName(CommandContext& context, int assignment, const Decimal& typed) {
    const std::string title = "Edit Assignment " + typed.text();
    for (;;) {
        std::string name = txtTruncate(context.ports.dialogs.prompt(
            {.title = title,
             .question = "What is the new name for the assignment? (no more than 20 characters)",
             .defaultAnswer = context.sheet.assignmentName(assignment)}));
        if (!name.empty()) return name;
        if (!askToTryAgain(context,
                           "Please enter a valid assignment name.  "
                           "Click OK to go back and try again or click cancel to quit."))
            return name;
    }
}

}  // namespace

void mnuAddA(CommandContext& context) {
    context.state.isDirty = true;
    constexpr std::string_view canceled = "Assignment Addition Canceled";

    const std::string name = context.ports.dialogs.prompt(
        {.title = "Add Assignment",
         .question = "What is the assignments name? (no more than 20 characters)",
         .defaultAnswer = "Assignment Name Here"});
    if (name.empty()) {
        context.ports.dialogs.message({.text = canceled});
        return;
    }
    const std::optional<std::int16_t> value =
        askForValue(context, "Add Assignment", "Assignment Value Here", canceled);
    if (!value) return;

    GradeSheet& sheet = context.sheet;
    sheet.addAssignment(txtTruncate(name), *value);
    for (int student = 1; student <= sheet.studentCount(); ++student)
        sheet.setScore(sheet.assignmentCount(), student, Score::zero());
    context.window.RefreshGrid();
}

void mnuEditA(CommandContext& context) {
    context.state.isDirty = true;
    GradeSheet& sheet = context.sheet;
    const auto reportCanceled = [&context] {
        context.ports.dialogs.message(
            {.text = "Assignment Edit Canceled", .title = "Abort Edit Assignment"});
    };
    if (sheet.assignmentCount() == 0) {
        showCritical(context, "There are no assignments to which you can edit.", "Error");
        return;
    }

    const Decimal typed = askForAssignmentToEdit(context);
    const int assignment = numberInRange(typed, sheet.assignmentCount());
    if (assignment == 0) return reportCanceled();
    const std::string name = askForNewName(context, assignment, typed);
    if (name.empty()) return reportCanceled();
    const std::optional<std::int16_t> value =
        askForValue(context, "Edit Assignment", std::to_string(sheet.assignmentValue(assignment)),
                    "Assignment Canceled");
    if (!value) return;

    sheet.setAssignment(assignment, name, *value);
    context.window.RefreshGrid();
}

void mnuRemoveA(CommandContext& context) {
    context.state.isDirty = true;
    Dialogs& dialogs = context.ports.dialogs;
    if (context.sheet.assignmentCount() == 0) {
        showCritical(context, "There are no assignments to remove.", "Remove Assignment Error");
        return;
    }

    const std::string answer =
        dialogs.prompt({.title = "Remove Assignment",
                        .question = "What is the number of the assignment you wish to remove?",
                        .defaultAnswer = numberHere});
    if (answer.empty()) {
        dialogs.message({.text = "Assignment Removal Canceled"});
        return;
    }
    const int assignment =
        numberInRange(assignmentNumber(context, answer), context.sheet.assignmentCount());
    if (assignment == 0) {
        dialogs.message(
            {.text = "Assignment Removal Canceled Due to the Invalid Number You Supplied",
             .title = "Abort Remove Assignment"});
        return;
    }

    context.sheet.removeAssignment(assignment);
    context.window.RefreshGrid();
}

}  // namespace quorvel
