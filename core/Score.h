#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/Decimal.h"
#include "core/TaggedValue.h"

namespace quorvel {

/// One score cell: empty, the text "E" (excused), a number typed as text, or a whole number.
/// A value of another numeric type read from a file keeps its type.
class Score {
  public:
    /// The empty cell.
    Score() = default;
    explicit Score(TaggedValue value) : value_(std::move(value)) {}

    static Score ofText(std::string_view text) {
        // Made in place: sheets are read and written by the hundred thousand scores.
        Score score;
        score.value_.emplace<std::string>(text);
        return score;
    }
    static Score excused() { return ofText(excusedMark); }
    /// The whole number 0 (not text) that new cells are given.
    static Score zero() { return Score(TaggedValue(std::int16_t{0})); }

    /// What a score's record keeps, and so what can be typed for one.
    static constexpr std::size_t longestText = 124;

    /// The mark of an excused score.
    static constexpr std::string_view excusedMark = "E";

    /// Whether this is zero().
    bool isZero() const {
        const auto* const number = std::get_if<std::int16_t>(&value_);
        return number != nullptr && *number == 0;
    }
    bool isEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    bool isExcused() const;
    /// Neither empty nor excused.
    bool isNumeric() const { return !isEmpty() && !isExcused(); }

    const TaggedValue& value() const { return value_; }
    TaggedView view() const { return viewOf(value_); }
    /// What the editor and the prompts show: "E", decimal text, or nothing.
    std::string text() const { return textOf(value_); }
    /// The exact numeric reading; see readingOf.
    Decimal reading() const;

    bool operator==(const Score&) const = default;

  private:
    TaggedValue value_;
};

/// What a score of this value counts as, exactly; 0 for an empty or excused one, and for a text
/// that is not wholly a number.
Decimal readingOf(const TaggedView& value);

/// The score that a typed text stands for: "E" in any case is excused; anything else is its leading
/// number without sign, a fraction of one half or more rounded up and a smaller one kept, as text.
Score scoreFromEntry(std::string_view typed, const CodePage& codePage);

}  // namespace quorvel
