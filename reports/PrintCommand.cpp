#include "reports/PrintCommand.h"

#include <algorithm>

#include "core/Numbers.h"
#include "reports/Report.h"

namespace quorvel {

namespace {

constexpr int reportCount = 6;

void print(CommandContext& context) {
    const WorkingState& state = context.state;
    const auto kind = static_cast<ReportKind>(state.reportKind);
    const Clock& clock = context.ports.clock;
    ReportData data{context.sheet,
                    state.schoolName,
                    state.teacherName,
                    clock.date(),
                    clock.time(),
                    state.printFont,
                    state.reportOption == "Alias"};
    if (kind == ReportKind::Teacher) data.useAliases = context.window.showsAliases();
    if (kind == ReportKind::IndividualStudent) {
        const auto number = roundHalfEven(leadingNumber(state.reportOption));
        data.student =
            static_cast<int>(std::clamp<std::int64_t>(number, 1, context.sheet.studentCount()));
    }
    printReport(kind, data, context.ports.printer);
}

void chooseNamesOrAliases(CommandContext& context) {
    const Answer answer =
        context.ports.dialogs.message({.text = "Do you want the students name's to be printed? "
                                               "(If choice is no, then aliases will be printed)",
                                       .buttons = Buttons::YesNo});
    context.state.reportOption = answer == Answer::Yes ? "Name" : "Alias";
}

/// False when the user gave up.
bool chooseStudent(CommandContext& context) {
    Dialogs& dialogs = context.ports.dialogs;
    constexpr std::string_view title = "Print Individual Student Report Error";
    while (true) {
        const std::string answer = dialogs.prompt(
            {.title = title, .question = "What student number's report you wish to print?"});
        const double number = leadingNumber(answer);
        context.state.reportOption = decimalText(number);
        if (number >= 1 && number <= context.sheet.studentCount()) return true;
        const Answer retry = dialogs.message(
            {.text =
                 "An invalid student number was given.  Click OK to try again or cancel to quit.",
             .title = title,
             .buttons = Buttons::OkCancel});
        if (retry == Answer::Cancel) {
            dialogs.message({.text = "Print Individual Student Report Canceled",
                             .title = "Canceled Print Job"});
            return false;
        }
    }
}

void selectReport(CommandContext& context) {
    const auto kind = static_cast<ReportKind>(context.state.reportKind);
    if (kind != ReportKind::Assignment && context.sheet.studentCount() == 0) {
        context.ports.dialogs.message({.text = "There are no students to print a report on.",
                                       .title = "Print Student(s) Report Error",
                                       .icon = Icon::Critical});
        return;
    }
    if (kind == ReportKind::Class) chooseNamesOrAliases(context);
    if (kind == ReportKind::IndividualStudent && !chooseStudent(context)) return;
    print(context);
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
        const double number = leadingNumber(answer);
        const std::int64_t rounded = roundHalfEven(number);
        if (number >= 1 && rounded <= reportCount) {
            context.state.reportKind = static_cast<std::int16_t>(rounded);
            selectReport(context);
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
