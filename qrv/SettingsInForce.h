#pragma once

#include <string>

#include "qrv/Environment.h"
#include "qrv/Request.h"
#include "storage/Settings.h"

namespace quorvel {

/// Scale and names for a sheet, and where the scale is from, in words.
struct SettingsInForce {
    ReportSettings settings;
    std::string scaleOrigin;
};

/// What the request asks for. Where it asks for nothing, a sheet in a folder "Grades" has the
/// settings of the folder above it where that holds a grading scale, and every other one those of
/// the program's folder; without either the scale is the built-in one. An empty `sheet` is one
/// without a folder. Throws UsageError for a scale that the window would not take, and InputError
/// for settings that are not there or cannot be read.
SettingsInForce settingsFor(const Request& request, const std::string& sheet,
                            Environment& environment);

/// Such as "94,86,76,70,60 (built in)".
std::string scaleText(const SettingsInForce& settings);

}  // namespace quorvel
