#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/Score.h"

namespace quorvel {

/// Why a field to import cannot be part of a sheet.
class FieldError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What a sheet takes from the fields of a file. Fields are UTF-8; each function throws FieldError
/// for one that it does not take.
class FieldRules {
  public:
    static constexpr int highestValue = 999;
    static constexpr int highestScore = 32767;
    /// What the window lets a teacher type; longer ones are kept, but not shown whole everywhere.
    static constexpr std::size_t longestAlias = 15;
    static constexpr std::size_t longestAssignmentName = 20;

    explicit FieldRules(const CodePage& codePage) : codePage_(codePage) {}

    /// A name, an alias or a title in the code page: no control character, at most what its record
    /// holds. Accents that stand behind their letters are put on them.
    std::string text(std::string_view field) const;

    /// A point value: a whole number from 0 to the highest.
    std::int16_t value(std::string_view field) const;

    /// An empty field, "E" or "e", or a number with a decimal point, which is rounded as when it is
    /// typed.
    Score score(std::string_view field) const;

  private:
    const CodePage& codePage_;
};

}  // namespace quorvel
