#pragma once

#include <string>
#include <string_view>

#include "core/GradeSheet.h"
#include "qrv/Commands.h"
#include "storage/Settings.h"

namespace quorvel {

/// An absolute path for a path in UTF-8.
std::filesystem::path pathOf(std::string_view path);

/// Throws InputError where the file cannot be read.
Bytes readFile(Environment& environment, const std::string& path);

/// The names and the grading scale that --settings, --scale and --round-up ask for.
ReportSettings settingsFor(const Arguments& arguments, Environment& environment);

/// The sheet as the program loads it, its figures computed.
GradeSheet readSheet(Environment& environment, const std::string& path, const GradingScale& scale);

/// Refuses to put a file where something stands that is none, such as a device.
void requireWritable(const std::string& path);

}  // namespace quorvel
