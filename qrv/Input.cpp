#include "qrv/Input.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "qrv/Complaints.h"
#include "storage/Reading.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

class StandardInput final : public InputFile {
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        const std::size_t count = std::fread(target.data(), 1, target.size(), stdin);
        if (count == 0 && std::ferror(stdin) != 0) return std::nullopt;
        return count;
    }
};

const char* reasonFor(FileProblem problem) {
    switch (problem) {
        case FileProblem::Missing:
            return "there is no such file";
        case FileProblem::Folder:
            return "it is a folder, no file";
        case FileProblem::Refused:
            return "there is no permission to read it";
        case FileProblem::InUse:
            return "another program has it open and does not share it";
        case FileProblem::Unreadable:
        case FileProblem::None:
            break;
    }
    return "it cannot be read";
}

using NativeText = std::basic_string_view<std::filesystem::path::value_type>;

NativeText::value_type lowerCase(NativeText::value_type character) {
    const bool isCapital = character >= 'A' && character <= 'Z';
    return isCapital ? static_cast<NativeText::value_type>(character - 'A' + 'a') : character;
}

/// Where a later * could take more, the pattern is tried again from there.
bool matches(NativeText pattern, NativeText name) {
    std::size_t star = NativeText::npos;
    std::size_t starsEnd = 0;  // how far the name went into the last *
    std::size_t at = 0;
    std::size_t place = 0;
    while (place < name.size()) {
        const bool fits = at < pattern.size() && pattern[at] != '*' &&
                          (pattern[at] == '?' || lowerCase(pattern[at]) == lowerCase(name[place]));
        if (fits) {
            ++at;
            ++place;
        } else if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            starsEnd = place;
        } else if (star != NativeText::npos) {
            at = star + 1;
            place = ++starsEnd;
        } else {
            return false;
        }
    }
    return pattern.substr(at).find_first_not_of(NativeText::value_type('*')) == NativeText::npos;
}

std::vector<std::string> filesMatching(const std::string& name, Files& files) {
    const std::filesystem::path pattern(std::u8string(name.begin(), name.end()));
    std::vector<std::string> found;
    for (const auto& file : files.list(pathOf(name).parent_path())) {
        if (!matches(pattern.filename().native(), file.filename().native())) continue;
        found.push_back(utf8Of(pattern.parent_path() / file.filename()));
    }
    std::ranges::sort(found);
    return found;
}

}  // namespace

std::unique_ptr<InputFile> openInput(const std::string& name, Environment& environment) {
    if (name == standardStream) return std::make_unique<StandardInput>();
    const std::filesystem::path path = pathOf(name);
    if (environment.expandsWildcards && name.find_first_of("*?") != std::string::npos) {
        throw InputError(name + ": there is no such file");
    }
    Files::Opened opened = environment.files.openForReading(path);
    if (opened.problem == FileProblem::InUse) {
        patiently(environment.files, [&] {
            opened = environment.files.openForReading(path);
            return opened.problem;
        });
    }
    if (!opened.file) throw InputError(name + ": " + reasonFor(opened.problem));
    return std::move(opened.file);
}

InputError brokenOff(const std::string& name) {
    return InputError(name + ": it cannot be read to its end");
}

std::string damageText(const std::string& name, const DamagedRecord& damage) {
    return name + ": record " + std::to_string(damage.number) + ": " + damage.reason;
}

OpenedSheet openSheet(const std::string& name, const Request& request, Environment& environment) {
    OpenedSheet opened;
    opened.settings = settingsFor(request, name, environment);
    const auto file = openInput(name, environment);
    RecordReader reader(*file);
    opened.sheet = readSheet(reader);
    if (reader.brokeOff()) throw brokenOff(name);
    if (const auto& damage = reader.firstDamage()) {
        if (!request.damaged) throw InputError(damageText(name, *damage));
        complain(damageText(name, *damage));
        opened.isDamaged = true;
    }
    opened.sheet.recomputeFigures(opened.settings.settings.gradingScale);
    return opened;
}

void requireStudent(const std::string& name, const GradeSheet& sheet, int student) {
    if (student >= 1 && student <= sheet.studentCount()) return;
    throw InputError(name + ": there is no student " + std::to_string(student));
}

std::vector<std::string> expandWildcards(const std::vector<std::string>& names, Files& files) {
    std::vector<std::string> expanded;
    for (const std::string& name : names) {
        const std::size_t lastPart = name.find_last_of("/\\") + 1;
        const bool isPattern = name.find_first_of("*?", lastPart) != std::string::npos;
        const auto found = isPattern ? filesMatching(name, files) : std::vector<std::string>();
        if (found.empty()) expanded.push_back(name);
        expanded.insert(expanded.end(), found.begin(), found.end());
    }
    return expanded;
}

}  // namespace quorvel
