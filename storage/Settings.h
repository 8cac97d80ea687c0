#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/WorkingState.h"
#include "core/ports/Files.h"

namespace quorvel {

/// The settings files, in the program's folder. Installations in the field have them.
namespace settingsFile {
inline constexpr std::string_view gradingScale = "GradingScale.qrv";
inline constexpr std::string_view schoolName = "SchoolName.qrv";
inline constexpr std::string_view teacherName = "TN.qrv";
inline constexpr std::string_view recentFiles = "LS.qrv";
inline constexpr std::string_view printFont = "DefaultPrintFont.qrv";
/// Written when a font is chosen and never read: start-up goes on with the other one.
inline constexpr std::string_view chosenPrintFont = "DefaultPrintFont.vzr";
}  // namespace settingsFile

/// Creates the Grades folder and reads grading scale, school name, teacher name and recent files
/// with their defaults into the state (start-up's steps before the layout is chosen).
void readSettings(Files& files, WorkingState& state);

/// Reads the print font; where the file gives none, the first default is taken and written to it. A
/// file that cannot be read is left alone.
void readPrintFont(Files& files, WorkingState& state);

/// Each writes the setting in force to its file in the program's folder. Failures are not reported.
void writeGradingScale(Files& files, const WorkingState& state);
void writeSchoolName(Files& files, const WorkingState& state);
void writeTeacherName(Files& files, const WorkingState& state);
void writeRecentFiles(Files& files, const WorkingState& state);
/// Writes the font to a file that start-up does not read: it is in force until the program ends.
void writeChosenPrintFont(Files& files, const WorkingState& state);

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
