#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Creates the Grades folder and reads grading scale, school name, teacher name and recent files
/// with their defaults into the state (start-up's steps before the layout is chosen).
void readSettings(CommandContext& context);

/// Reads the print font; where the file gives none, the first default is taken and written to it.
void readPrintFont(CommandContext& context);

/// Each writes the setting in force to its file in the program's folder. Failures are not reported.
void writeGradingScale(CommandContext& context);
void writeSchoolName(CommandContext& context);
void writeTeacherName(CommandContext& context);
/// Writes the font to a file that start-up does not read: it is in force until the program ends.
void writeChosenPrintFont(CommandContext& context);

/// The folder that sheets are kept in.
std::filesystem::path gradesFolder(const WorkingState& state);

/// Scale and names from a program folder, without touching it.
struct ReportSettings {
    GradingScale gradingScale;
    std::string schoolName;
    std::string teacherName;
};
ReportSettings readReportSettings(Files& files, const std::filesystem::path& programFolder);

}  // namespace quorvel
