#include "core/Score.h"

#include <cmath>

#include "core/Numbers.h"

namespace quorvel {

bool Score::isExcused() const {
    const std::string* const held = std::get_if<std::string>(&value_);
    return held != nullptr && *held == excusedMark;
}

Decimal Score::reading() const {
    if (const auto* const number = std::get_if<std::int16_t>(&value_)) return Decimal(*number);
    if (const auto* const number = std::get_if<std::int32_t>(&value_)) return Decimal(*number);
    // A real counts as the decimal that it is shown as. "E" has no leading number.
    if (const auto* const held = std::get_if<std::string>(&value_)) return Decimal::fromText(*held);
    return Decimal::fromText(text());
}

Score scoreFromEntry(std::string_view upperCased) {
    if (upperCased == Score::excusedMark) return Score::excused();
    const double number = std::abs(leadingNumber(upperCased));
    return Score::ofText(decimalText(roundHalfUpKeepingSmallFraction(number)));
}

}  // namespace quorvel
