#include <algorithm>

#include "tests/scenario/Comparison.h"
#include "tests/scenario/Records.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

constexpr std::string_view missing = "the file is missing";

std::string hexadecimal(std::span<const std::byte> bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::byte byte : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[std::to_integer<unsigned>(byte) / 16];
        text += digits[std::to_integer<unsigned>(byte) % 16];
    }
    return text;
}

std::span<const std::byte> part(std::span<const std::byte> bytes, std::size_t offset,
                                std::size_t length) {
    if (offset >= bytes.size()) return {};
    return bytes.subspan(offset, std::min(length, bytes.size() - offset));
}

}  // namespace

Outcome Comparison::operator()(const FolderExists& expected) const {
    return whether(std::filesystem::is_directory(driver_.resolve(expected.path)), "no folder");
}

Outcome Comparison::operator()(const FileMissing& expected) const {
    return whether(!std::filesystem::exists(driver_.resolve(expected.path)), "the file exists");
}

Outcome Comparison::operator()(const FileRecordCount& expected) const {
    const auto bytes = driver_.contentOf(expected.path);
    if (!bytes) return different(std::string(missing));
    const std::size_t records = bytes->size() / recordLength;
    return whether(
        records == static_cast<std::size_t>(expected.records) && bytes->size() % recordLength == 0,
        std::to_string(records) + " whole records, " + std::to_string(bytes->size()) + " bytes");
}

Outcome Comparison::operator()(const FileBytes& expected) const {
    const auto bytes = driver_.contentOf(expected.path);
    if (!bytes) return different(std::string(missing));
    const auto found = part(*bytes, expected.offset, expected.bytes.size());
    return whether(std::ranges::equal(found, expected.bytes), "bytes " + hexadecimal(found));
}

Outcome Comparison::operator()(const FileRecord& expected) const {
    const auto bytes = driver_.contentOf(expected.path);
    if (!bytes) return different(std::string(missing));
    const std::size_t offset = static_cast<std::size_t>(expected.record - 1) * recordLength;
    if (offset >= bytes->size())
        return different("the file has only " + std::to_string(bytes->size()) + " bytes");

    TaggedValue value = expected.value;
    if (auto* text = std::get_if<std::string>(&value)) *text = expanded(*text, programFolder_);
    const std::string found =
        describedRecord(part(*bytes, offset, recordLength), expected.kind, programFolder_);
    return whether(found == describedValue(value, expected.kind, programFolder_), found);
}

Outcome Comparison::operator()(const Copied& expected) const {
    const auto copies = driver_.copies();
    if (!copies) return cannotBeSeen();
    const std::string from = expanded(expected.from, programFolder_);
    const std::string to = expanded(expected.to, programFolder_);
    std::string came;
    for (const FileCopy& copy : *copies) {
        // A path from the program's folder may be given without the folder.
        const bool sameSource =
            copy.from == from || copy.from == expanded("*\\" + expected.from, programFolder_);
        if (sameSource && copy.to == to) return asExpected();
        came += (came.empty() ? "" : ", ") + quotedText(copy.from) + " " + quotedText(copy.to);
    }
    return different(came.empty() ? "none" : came);
}

Outcome Comparison::operator()(const CopiedNothing&) const {
    const auto copies = driver_.copies();
    if (!copies) return cannotBeSeen();
    if (copies->empty()) return asExpected();
    return different(quotedText(copies->front().from) + " " + quotedText(copies->front().to));
}

Outcome Comparison::operator()(const Launched& expected) const {
    const auto launches = driver_.launches();
    if (!launches) return cannotBeSeen();
    const std::string commandLine = expandedEverywhere(expected.commandLine, programFolder_);
    std::string came;
    for (const std::string& launch : *launches) {
        if (launch == commandLine) return asExpected();
        came += (came.empty() ? "" : ", ") + quotedText(launch);
    }
    return different(came.empty() ? "nothing was started" : came);
}

}  // namespace quorvel::scenario
