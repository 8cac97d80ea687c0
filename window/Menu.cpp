#include "window/Menu.h"

#include <algorithm>
#include <array>

#include "access/Password.h"
#include "commands/AssignmentCommands.h"
#include "commands/DetailCommands.h"
#include "commands/FileCommands.h"
#include "commands/FileUtilities.h"
#include "commands/HelpCommands.h"
#include "commands/ScoreCommands.h"
#include "commands/StudentCommands.h"
#include "reports/PrintCommand.h"

namespace quorvel {

namespace {

constexpr std::string_view file = "&File";
constexpr std::string_view options = "&Options";
constexpr std::string_view inputScores = "&Input Scores";
constexpr std::string_view help = "&Help";

constexpr Accelerator control(char key) {
    return {.control = true, .key = key};
}
constexpr Accelerator functionKey(int number) {
    return {.functionKey = number};
}

constexpr MenuItem separator(std::string_view menu) {
    return {.menu = menu};
}

constexpr MenuItem recentFile(std::string_view name, int number) {
    return {.menu = file, .name = name, .recentFile = number};
}

/// A new command is a new line here; menu bar, accelerators and tests follow.
constexpr std::array items{
    MenuItem{file, "mnuNew", "&New", control('N'), mnuNew},
    MenuItem{file, "mnuOpen", "&Open...", control('O'), mnuOpen},
    MenuItem{file, "mnuSave", "&Save", control('S'), mnuSave},
    MenuItem{file, "mnuSaveAs", "Save &As...", {}, mnuSaveAs},
    separator(file),
    MenuItem{file, "mnuPrint", "&Print...", control('P'), mnuPrint},
    separator(file),
    recentFile("mnuPFile(1)", 1),
    recentFile("mnuPFile(2)", 2),
    recentFile("mnuPFile(3)", 3),
    recentFile("mnuPFile(4)", 4),
    recentFile("mnuPFile(5)", 5),
    recentFile("mnuPFile(6)", 6),
    recentFile("mnuPFile(7)", 7),
    recentFile("mnuPFile(8)", 8),
    recentFile("mnuPFile(9)", 9),
    separator(file),
    MenuItem{file, "mnuExit", "E&xit", {}, mnuExit},

    MenuItem{options, "mnuAddS", "&Add Student...", {}, mnuAddS},
    MenuItem{options, "mnuEditS", "&Edit Student...", {}, mnuEditS},
    MenuItem{options, "mnuRemoveS", "&Remove Student...", {}, mnuRemoveS},
    separator(options),
    MenuItem{options, "mnuAddA", "A&dd Assignment...", {}, mnuAddA},
    MenuItem{options, "mnuEditA", "Ed&it Assignment...", {}, mnuEditA},
    MenuItem{options, "mnuRemoveA", "Re&move Assignment...", {}, mnuRemoveA},
    separator(options),
    MenuItem{options, "mnuEditGradesheetTitle", "Edit &Class Name...", {}, mnuEditGradesheetTitle},
    MenuItem{options, "mnuEditSchoolName", "Edit Sc&hool Name...", {}, mnuEditSchoolName},
    MenuItem{options, "mnuEditTN", "Edit &Teacher Name...", {}, mnuEditTN},
    MenuItem{options, "mnuGradingScale", "&Grading Scale...", {}, mnuGradingScale},
    MenuItem{options, "mnuFont", "Change Default &Font...", {}, mnuFont},
    MenuItem{options, "mnuEditPassword", "Edit &Password...", {}, mnuEditPassword},
    separator(options),
    MenuItem{options, "mnuCopy", "Copy &Students To This File", {}, mnuCopy},
    MenuItem{options, "mnuBackup1", "&Backup This File", {}, mnuBackup1},
    MenuItem{options, "mnuBackup", "Backup A&ll Files", {}, mnuBackup},

    MenuItem{inputScores, "mnuInputA", "Input Scores for &Assignment", {}, mnuInputA},
    MenuItem{inputScores, "mnuInputS", "Input Scores for &Student", {}, mnuInputS},

    MenuItem{help, "mnuHowToUse", "&How To Use", functionKey(1), mnuHowToUse},
    MenuItem{help, "mnuAbout", "&About", {}, mnuAbout},
};

}  // namespace

std::span<const MenuItem> menuItems() {
    return items;
}

int menuItemIndex(std::string_view name) {
    const auto item = std::ranges::find(items, name, &MenuItem::name);
    if (name.empty() || item == items.end()) return -1;
    return static_cast<int>(item - items.begin());
}

}  // namespace quorvel
