#include "reports/PrintCommand.h"

#include "core/Errors.h"
#include "core/Numbers.h"
#include "reports/Report.h"

namespace quorvel {

namespace {

constexpr int reportCount = 6;

/// What the user chose to print.
struct Choice {
    ReportKind kind = ReportKind::Full;
    bool useAliases = false;  // class report
    int student = 0;          // individual student report
};

void print(CommandContext& context, const Choice& choice) {
    const WorkingState& state = context.state;
    const Clock& clock = context.ports.clock;
    const bool useAliases =
        choice.kind == ReportKind::Teacher ? context.window.showsAliases() : choice.useAliases;
    const ReportData data{context.sheet, state.schoolName, state.teacherName, clock.date(),
                          clock.time(),  state.printFont,  useAliases,        choice.student};
    try {
        printReport(choice.kind, data, context.ports.printer);
    } catch (const PrintingCalledOff&) {
        // Whoever called it off knows: there is nothing to say.
    }
}

bool askForAliases(CommandContext& context) {
    const Answer names =
        context.ports.dialogs.message({.text = "Do you want the students name's to be printed? "
                                               "(If choice is no, then aliases will be printed)",
                                       .buttons = Buttons::YesNo});
    context.state.reportOption = names == Answer::Yes ? "Name" : "Alias";
    return names != Answer::Yes;
}

/// The number of the student to print a report on; 0 when the user gave up.
int askForStudent(CommandContext& context) {
    Dialogs& dialogs = context.ports.dialogs;
    constexpr std::string_view title = "Print Individual Student Report Error";
    while (true) {
        const std::string answer = dialogs.prompt(
            {.title = title, .question = "What student number's report you wish to print?"});
        const Decimal number = typedNumber(answer, *context.state.codePage);
        context.state.reportOption = number.text();
        if (number >= Decimal(1) && number <= Decimal(context.sheet.studentCount()))
            return static_cast<int>(number.roundedHalfEven());
        const Answer retry = dialogs.message(
            {.text =
                 "An invalid student number was given.  Click OK to try again or cancel to quit.",
             .title = title,
             .buttons = Buttons::OkCancel});
        if (retry == Answer::Cancel) {
            dialogs.message({.text = "Print Individual Student Report Canceled",
                             .title = "Canceled Print Job"});
            return 0;
        }
    }
}

void selectReport(CommandContext& context, ReportKind kind) {
    if (kind != ReportKind::Assignment && context.sheet.studentCount() == 0) {
        context.ports.dialogs.message({.text = "There are no students to print a report on.",
                                       .title = "Print Student(s) Report Error",
                                       .icon = Icon::Critical});
        return;
    }
    Choice choice{.kind = kind};
    if (kind == ReportKind::Class) choice.useAliases = askForAliases(context);
    if (kind == ReportKind::IndividualStudent) {
        choice.student = askForStudent(context);
        if (choice.student == 0) return;
    }
    print(context, choice);
}

}  // namespace

void mnuPrint(CommandContext& context) {
    Dialogs& dialogs = context.ports.dialogs;
    while (true) {
        const std::string answer = dialogs.prompt(
            {.title = "Print Method",
             .question =
                 "Type the value that corresponds to the print job you want to send to the printer."
                 "\r\n\r\n1: Full Report (All Scores for each student)"
                 "\r\n\r\n2: Class Report (List of each student's total score)"
                 "\r\n\r\n3: Individual Student Report (All scores for a student)"
                 "\r\n\r\n4: Assignment Report (All assignment names and values)"
                 "\r\n\r\n5: Teacher Report (Concise chart of all scores)"
                 "\r\n\r\n6: Student Grade Report (Short descriptions of each student's grade)"});
        if (answer.empty()) break;
        const Decimal number = typedNumber(answer, *context.state.codePage);
        const std::int64_t rounded = number.roundedHalfEven();
        if (number >= Decimal(1) && rounded <= reportCount) {
            context.state.reportKind = static_cast<std::int16_t>(rounded);
            selectReport(context, static_cast<ReportKind>(rounded));
            return;
        }
        const Answer retry = dialogs.message(
            {.text = "An invalid number was entered.  Click OK to try again or cancel to quit.",
             .title = "Print Method Error",
             .buttons = Buttons::OkCancel});
        if (retry == Answer::Cancel) break;
    }
    dialogs.message({.text = "Print Report Cancelled"});
}

}  // namespace quorvel
