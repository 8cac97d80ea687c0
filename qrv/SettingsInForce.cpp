#include "qrv/SettingsInForce.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "core/Numbers.h"
#include "qrv/Problem.h"
#include "storage/Reading.h"

namespace quorvel {

namespace {

constexpr std::string_view defaultScale = "default";
constexpr const char* builtIn = "built in";

/// The scale that the window's questions would take the answers for; nothing for any other.
std::optional<GradingScale> scaleFrom(std::string_view text) {
    GradingScale scale;
    int below = GradingScale::highestChosen;
    for (std::size_t grade = 0; grade < scale.minimums.size(); ++grade) {
        const bool isLast = grade + 1 == scale.minimums.size();
        int minimum = 0;
        const auto [rest, error] = std::from_chars(text.begin(), text.end(), minimum);
        if (error != std::errc()) return std::nullopt;
        if (minimum <= GradingScale::lowestChosen[grade] || minimum >= below) return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(rest - text.begin()));
        if (isLast ? !text.empty() : !text.starts_with(',')) return std::nullopt;
        if (!isLast) text.remove_prefix(1);
        scale.minimums[grade] = static_cast<std::int16_t>(minimum);
        below = minimum;
    }
    return scale;
}

/// Whether the folder holds a grading scale. Throws InputError for one that cannot be read: its
/// grades would be others.
bool hasScale(const std::filesystem::path& folder, Files& files) {
    const std::filesystem::path file = folder / settingsFile::gradingScale;
    const FileProblem problem = readBytes(files, file, 1).problem;
    if (problem == FileProblem::None) return true;
    if (problem == FileProblem::Missing) return false;
    throw InputError(utf8Of(file) + ": it cannot be read");
}

bool isGradesFolder(const std::filesystem::path& folder) {
    return CodePage::windows1252().compareIgnoringCase(utf8Of(folder.filename()), "Grades") == 0;
}

/// The folder whose settings a sheet has by itself; empty without one.
std::filesystem::path folderFor(const std::string& sheet, Environment& environment) {
    if (!sheet.empty()) {
        const auto folder = pathOf(sheet).lexically_normal().parent_path();
        auto above = folder.parent_path();
        if (isGradesFolder(folder) && hasScale(above, environment.files)) return above;
    }
    return environment.programFolder.value_or(std::filesystem::path());
}

SettingsInForce settingsIn(const std::filesystem::path& folder, Files& files) {
    const bool own = hasScale(folder, files);
    return {.settings = readReportSettings(files, folder),
            .scaleOrigin = own ? "from " + utf8Of(folder / settingsFile::gradingScale) : builtIn};
}

}  // namespace

SettingsInForce settingsFor(const Request& request, const std::string& sheet,
                            Environment& environment) {
    SettingsInForce found{.settings = {}, .scaleOrigin = builtIn};
    if (request.settings) {
        const std::filesystem::path folder = pathOf(*request.settings);
        if (!hasScale(folder, environment.files)) {
            throw InputError(*request.settings + ": there is no " +
                             std::string(settingsFile::gradingScale) + " in it");
        }
        found = settingsIn(folder, environment.files);
    } else if (const auto folder = folderFor(sheet, environment); !folder.empty()) {
        found = settingsIn(folder, environment.files);
    }
    GradingScale& scale = found.settings.gradingScale;
    if (request.scale == defaultScale) {
        scale = {};
        found.scaleOrigin = builtIn;
    } else if (request.scale) {
        const auto given = scaleFrom(*request.scale);
        if (!given) {
            throw UsageError(
                "--scale wants five falling whole numbers, such as 94,86,76,70,60, "
                "or \"default\"");
        }
        scale.minimums = given->minimums;
        found.scaleOrigin = "given";
    }
    if (request.roundUp) scale.roundUp = GradingScale::roundUpOn;
    return found;
}

std::string scaleText(const SettingsInForce& settings) {
    const GradingScale& scale = settings.settings.gradingScale;
    std::string text;
    for (const std::int16_t minimum : scale.minimums) {
        text += (text.empty() ? "" : ",") + std::to_string(minimum);
    }
    const double lowered = leadingNumber(scale.roundUp);
    if (lowered != 0) text += ", each lowered by " + decimalText(lowered);
    return text + " (" + settings.scaleOrigin + ')';
}

}  // namespace quorvel
