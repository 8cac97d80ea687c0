#include "qrv/Input.h"

#include <algorithm>
#include <filesystem>
#include <limits>

#include "qrv/Problem.h"
#include "storage/Reading.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

UsageError scaleError() {
    return UsageError("--scale wants five whole numbers, such as 94,86,76,70,60");
}

std::array<std::int16_t, 5> parseScale(std::string_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    std::array<std::int16_t, 5> minimums{};
    for (std::size_t grade = 0; grade < minimums.size(); ++grade) {
        const bool last = grade + 1 == minimums.size();
        const std::size_t end = last ? text.size() : text.find(',');
        const auto number = wholeNumber(text.substr(0, end));
        if (!number || *number < Limits::min() || *number > Limits::max()) throw scaleError();
        minimums[grade] = static_cast<std::int16_t>(*number);
        if (last) break;
        if (end == std::string_view::npos) throw scaleError();
        text.remove_prefix(end + 1);
    }
    return minimums;
}

}  // namespace

std::filesystem::path pathOf(std::string_view path) {
    const std::filesystem::path given(std::u8string(path.begin(), path.end()));
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(given, error);
    return error ? given : absolute;
}

Bytes readFile(Environment& environment, const std::string& path) {
    ReadBytes read = readBytes(environment.files, pathOf(path));
    if (read.problem != FileProblem::None) throw InputError(path + ": cannot be read");
    return std::move(read.bytes);
}

ReportSettings settingsFor(const Arguments& arguments, Environment& environment) {
    ReportSettings settings;
    if (const auto folder = arguments.value("settings")) {
        std::error_code error;
        if (!std::filesystem::is_directory(pathOf(*folder), error)) {
            throw InputError(*folder + ": is no folder");
        }
        settings = readReportSettings(environment.files, pathOf(*folder));
    }
    if (const auto scale = arguments.value("scale")) {
        settings.gradingScale.minimums = parseScale(*scale);
    }
    if (arguments.has("round-up")) settings.gradingScale.roundUp = GradingScale::roundUpOn;
    return settings;
}

GradeSheet readSheet(Environment& environment, const std::string& path, const GradingScale& scale) {
    GradeSheet sheet = decodeSheet(readFile(environment, path));
    sheet.recomputeFigures(scale);
    return sheet;
}

void requireWritable(const std::string& path) {
    std::error_code error;
    const auto kind = std::filesystem::status(pathOf(path), error).type();
    if (kind != std::filesystem::file_type::regular &&
        kind != std::filesystem::file_type::not_found) {
        throw InputError(path + ": is no file that can be written");
    }
}

}  // namespace quorvel
