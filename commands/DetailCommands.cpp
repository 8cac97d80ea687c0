#include "commands/DetailCommands.h"

#include <array>
#include <cstddef>
#include <optional>

#include "commands/Questions.h"
#include "core/Numbers.h"
#include "storage/Settings.h"

namespace quorvel {

namespace {

constexpr std::string_view cancellation = "Cancellation";

using Percentages = std::array<Decimal, GradingScale::defaultMinimums.size()>;

/// Asks for one grade's percentage until it lies between the limits, both excluded; nothing when
/// the user gave up.
std::optional<Decimal> askForPercentage(CommandContext& context, std::string_view question,
                                        std::string_view defaultAnswer, const Decimal& above,
                                        const Decimal& below) {
    for (;;) {
        const std::string answer = context.ports.dialogs.prompt(
            {.title = "Grading Scale", .question = question, .defaultAnswer = defaultAnswer});
        if (answer.empty()) return std::nullopt;
        const Decimal percentage = typedNumber(answer, *context.state.codePage);
        if (percentage > above && percentage < below) return percentage;
    }
}

/// The percentages for the grades from A to E, each below the one before; nothing when the user
/// gave up.
std::optional<Percentages> askForPercentages(CommandContext& context) {
    Percentages percentages;
    Decimal below(GradingScale::highestChosen);
    for (std::size_t grade = 0; grade < percentages.size(); ++grade) {
        const std::string question =
            std::string("What percentage is needed to receive an ") + "ABCDE"[grade] + "?";
        const std::optional<Decimal> percentage = askForPercentage(
            context, question, std::to_string(context.state.gradingScale.minimums[grade]),
            Decimal(GradingScale::lowestChosen[grade]), below);
        if (!percentage) return std::nullopt;
        percentages[grade] = below = *percentage;
    }
    return percentages;
}

}  // namespace

void mnuEditGradesheetTitle(CommandContext& context) {
    context.state.isDirty = true;
    const std::string title =
        context.ports.dialogs.prompt({.title = "Edit Grade Sheet [Class] Name",
                                      .question = "What is the grade sheet's [class's] name? "
                                                  "(recommended format: Class - Period)",
                                      .defaultAnswer = context.sheet.sheetTitle});
    if (title.empty()) {
        showCritical(context, "Edit Grade sheet [Class] Name Cancelled", cancellation);
        return;
    }
    context.sheet.sheetTitle = title;
}

void mnuEditSchoolName(CommandContext& context) {
    const std::string name =
        context.ports.dialogs.prompt({.title = "Edit School Name",
                                      .question = "What is the school's name?",
                                      .defaultAnswer = context.state.schoolName});
    if (name.empty())
        showCritical(context, "Edit School Name Cancelled", cancellation);
    else
        context.state.schoolName = name;
    writeSchoolName(context.ports.files, context.state);
}

void mnuEditTN(CommandContext& context) {
    const std::string name = txtTruncate(
        context.ports.dialogs.prompt({.title = "Edit Teacher's Name",
                                      .question = "What is your name? (20 Characters Max)",
                                      .defaultAnswer = context.state.teacherName}));
    if (name.empty())
        showCritical(context, "Edit Teacher Name Cancelled", cancellation);
    else
        context.state.teacherName = name;
    writeTeacherName(context.ports.files, context.state);
}

void mnuGradingScale(CommandContext& context) {
    showCritical(context, "In the following questions, answer with integers only.",
                 "Grading Scale");
    Dialogs& dialogs = context.ports.dialogs;
    const std::optional<Percentages> percentages = askForPercentages(context);
    if (!percentages) {
        dialogs.message({.text = "Grading Scale Change Aborted",
                         .title = "Grading Scale",
                         .icon = Icon::Information});
        writeGradingScale(context.ports.files, context.state);
        return;
    }

    const Answer roundUp =
        dialogs.message({.text = "Do you want to round percentages up when calculating grades?",
                         .title = "Rounding Percentage To Find Letter Grade",
                         .buttons = Buttons::YesNo});
    GradingScale& scale = context.state.gradingScale;
    scale.roundUp = roundUp == Answer::Yes ? GradingScale::roundUpOn : GradingScale::roundUpOff;
    for (std::size_t grade = 0; grade < percentages->size(); ++grade)
        scale.minimums[grade] = static_cast<std::int16_t>((*percentages)[grade].roundedHalfEven());
    writeGradingScale(context.ports.files, context.state);
    context.window.RefreshGrid();
}

void mnuFont(CommandContext& context) {
    Dialogs& dialogs = context.ports.dialogs;
    PrintFont& font = context.state.printFont;
    font = dialogs.chooseFont(font).value_or(font);

    const std::string question = "Is " + font.name + " the correct font type and " +
                                 decimalText(font.size) + " the correct font size?";
    const Answer correct = dialogs.message(
        {.text = question, .title = "Change Default Font", .buttons = Buttons::YesNo});
    if (correct == Answer::Yes)
        writeChosenPrintFont(context.ports.files, context.state);
    else
        dialogs.message({.text = "Change Default Font Canceled"});
}

}  // namespace quorvel
