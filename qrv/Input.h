#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"
#include "qrv/Commands.h"
#include "qrv/Problem.h"
#include "qrv/SettingsInForce.h"
#include "storage/RecordFile.h"

namespace quorvel {

/// The name that stands for standard input and standard output.
inline constexpr const char* standardStream = "-";

/// Throws InputError with the reason where the file cannot be opened.
std::unique_ptr<InputFile> openInput(const std::string& name, Environment& environment);

/// The error for a file whose reading broke off.
InputError brokenOff(const std::string& name);

/// What is said of a damaged sheet.
std::string damageText(const std::string& name, const DamagedRecord& damage);

/// A sheet as the window loads it, its figures computed.
struct OpenedSheet {
    GradeSheet sheet;
    SettingsInForce settings;
    bool isDamaged = false;

    ExitCode exitCode() const { return isDamaged ? ExitCode::InputFailed : ExitCode::Done; }
};

/// Throws InputError for a sheet that cannot be read and, unless the request wants it all the same,
/// for a damaged one; it is then told of and marked.
OpenedSheet openSheet(const std::string& name, const Request& request, Environment& environment);

/// Throws InputError where the sheet has no student of this number.
void requireStudent(const std::string& name, const GradeSheet& sheet, int student);

/// The names with those that have * or ? in their last part replaced by the names of the files that
/// match, in alphabetical order; one that none matches stays.
std::vector<std::string> expandWildcards(const std::vector<std::string>& names, Files& files);

}  // namespace quorvel
