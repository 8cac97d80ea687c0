#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// Every file of the program is a sequence of records of this size.
inline constexpr std::size_t recordLength = 128;

/// A file's bytes; nothing when there is none.
std::optional<std::vector<std::byte>> fileBytes(const std::filesystem::path& file);

/// The value at the start of a record, as a scenario writes it behind its number: `text "x"`,
/// `tagged integer 0`. Knows the encoding by itself, so that a reader and a writer that are wrong
/// together do not pass.
std::string describedRecord(std::span<const std::byte> record, FileRecord::Kind kind,
                            std::string_view programFolder);

/// A value as a scenario writes it.
std::string describedValue(const TaggedValue& value, FileRecord::Kind kind,
                           std::string_view programFolder);

}  // namespace quorvel::scenario
