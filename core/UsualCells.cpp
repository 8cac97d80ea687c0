#include "core/UsualCells.h"

#include <array>
#include <cstddef>
#include <variant>

#include "core/Score.h"

namespace quorvel {

namespace {

constexpr SmallValue typedWhole(int whole) {
    constexpr int largestPower = 1000;
    static_assert(largestPackedWhole < 10 * largestPower);
    SmallValue::Characters characters{};
    std::size_t length = 0;
    for (int power = largestPower; power > 0; power /= 10)
        if (whole >= power || power == 1)
            characters[length++] = static_cast<char>('0' + whole / power % 10);
    SmallValue value;
    value.setText(characters, length);
    return value;
}

constexpr auto typedWholes = [] {
    std::array<SmallValue, largestPackedWhole + 1> typed;
    for (std::size_t i = 0; i < typed.size(); ++i) typed[i] = typedWhole(static_cast<int>(i));
    return typed;
}();

}  // namespace

std::optional<PackedPoints> usualCell(const TaggedView& value) {
    if (std::holds_alternative<std::monostate>(value)) return packedEmpty;
    if (value == TaggedView(Score::excusedMark)) return packedExcused;
    if (const auto* const number = std::get_if<std::int16_t>(&value))
        return isUsualWhole(*number) ? std::optional(integerCell(*number)) : std::nullopt;
    const int whole = SmallValue::fits(value) ? SmallValue(value).fewDigits() : -1;
    return isUsualWhole(whole) ? std::optional(textCell(whole)) : std::nullopt;
}

TaggedView usualValue(PackedPoints cell) {
    if (cell == packedEmpty) return {};
    if (cell == packedExcused) return Score::excusedMark;
    if (isMarked(cell, integerMark)) return static_cast<std::int16_t>(cell >> packedWholeShift);
    return usualText(cell).text();
}

const SmallValue& usualText(PackedPoints cell) {
    return typedWholes[static_cast<std::size_t>(cell >> packedWholeShift)];
}

}  // namespace quorvel
