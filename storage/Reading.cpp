#include "storage/Reading.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <span>

namespace quorvel {

namespace {

constexpr std::chrono::seconds patience{1};

/// Reads up to `limit` bytes in blocks; false where the file cannot be read any further.
bool readUpTo(InputFile& file, std::uint64_t limit, Bytes& bytes) {
    while (bytes.size() < limit) {
        const std::size_t start = bytes.size();
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(blockSize, limit - start));
        bytes.resize(start + wanted);
        const auto count = file.read(std::span(bytes).subspan(start));
        if (!count) return false;
        bytes.resize(start + *count);
        if (*count < wanted) break;
    }
    return true;
}

std::filesystem::path::string_type lowerCase(std::filesystem::path::string_type text) {
    using Character = std::filesystem::path::value_type;
    std::ranges::transform(text, text.begin(), [](Character character) {
        const bool isCapital = character >= 'A' && character <= 'Z';
        return isCapital ? static_cast<Character>(character - 'A' + 'a') : character;
    });
    return text;
}

}  // namespace

FileProblem patiently(Files& files, const std::function<FileProblem()>& attempt) {
    // A network takes its own time to fail, so both the pauses and the clock are counted.
    const auto end = std::chrono::steady_clock::now() + patience;
    FileProblem problem = attempt();
    for (auto waited = Files::moment; waited <= patience; waited += Files::moment) {
        if (!isUnreadable(problem)) break;
        if (std::chrono::steady_clock::now() >= end) break;
        files.pause();
        problem = attempt();
    }
    return problem;
}

ReadBytes readBytes(Files& files, const std::filesystem::path& file, std::uint64_t limit) {
    ReadBytes read;
    read.problem = patiently(files, [&] {
        read.bytes.clear();
        const auto opened = files.openForReading(file);
        if (!opened.file) return opened.problem;
        if (readUpTo(*opened.file, limit, read.bytes)) return FileProblem::None;
        read.bytes.clear();
        return FileProblem::Unreadable;
    });
    return read;
}

bool copyRest(InputFile& from, OutputFile& to) {
    Bytes block(blockSize);
    for (;;) {
        const auto count = from.read(block);
        if (!count) return false;
        if (!to.append(std::span(block).first(*count))) return false;
        if (*count < block.size()) return true;
    }
}

std::vector<std::filesystem::path> filesEndingWith(Files& files,
                                                   const std::filesystem::path& folder,
                                                   std::string_view ending) {
    const auto wanted = lowerCase(std::filesystem::path(ending).native());
    std::vector<std::filesystem::path> found = files.list(folder);
    std::erase_if(found, [&](const std::filesystem::path& file) {
        return !lowerCase(file.filename().native()).ends_with(wanted);
    });
    std::ranges::sort(found);
    return found;
}

}  // namespace quorvel
