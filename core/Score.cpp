#include "core/Score.h"

#include "core/Numbers.h"

namespace quorvel {

bool Score::isExcused() const {
    const std::string* const held = std::get_if<std::string>(&value_);
    return held != nullptr && *held == excusedMark;
}

Decimal Score::reading() const {
    return readingOf(view());
}

Decimal readingOf(const TaggedView& value) {
    if (const auto* const number = std::get_if<std::int16_t>(&value)) return Decimal(*number);
    if (const auto* const number = std::get_if<std::int32_t>(&value)) return Decimal(*number);
    if (const auto* const text = std::get_if<std::string_view>(&value))
        return isNumberText(*text) ? Decimal::fromText(*text) : Decimal();
    // A real counts as the decimal that it is shown as.
    return Decimal::fromText(textOf(value));
}

Score scoreFromEntry(std::string_view typed, const CodePage& codePage) {
    if (codePage.upperCase(typed) == Score::excusedMark) return Score::excused();
    const Decimal number = typedNumber(typed, codePage).absolute().roundedUpFromHalf();
    // The 0 that is written before a bare decimal point may be the one character too many.
    return Score::ofText(number.text().substr(0, Score::longestText));
}

}  // namespace quorvel
