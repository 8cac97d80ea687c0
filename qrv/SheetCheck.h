#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quorvel {

/// A record that does not hold what the sheet's layout wants there.
struct DamagedRecord {
    std::uint64_t number = 0;  // from 1
    std::string reason;
};

/// How far a file is the whole sheet that its counts claim.
struct SheetCheck {
    std::optional<int> studentCount;     // nothing where the count itself is damaged
    std::optional<int> assignmentCount;  // likewise
    /// Nothing where a count is damaged.
    std::optional<std::uint64_t> recordsWanted;
    /// A shortened last record counts, and so does what stands behind the sheet.
    std::uint64_t recordsPresent = 0;
    std::optional<DamagedRecord> firstDamage;
};

/// Looks at every record that the file has, never at those that its counts only claim.
SheetCheck checkSheet(std::span<const std::byte> bytes);

}  // namespace quorvel
