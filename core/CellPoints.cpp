#include "core/CellPoints.h"

#include <algorithm>
#include <variant>

#include "core/Score.h"

namespace quorvel {

CellPoints pointsOf(const TaggedView& value) {
    CellPoints points;
    points.empty = std::holds_alternative<std::monostate>(value);
    if (points.empty) return points;
    const auto* const text = std::get_if<std::string_view>(&value);
    points.excused = text != nullptr && *text == Score::excusedMark;
    if (points.excused) return points;
    const Decimal reading = readingOf(value);
    points.whole = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        reading.toInteger(), -CellPoints::wholeLimit, CellPoints::wholeLimit));
    points.fraction = reading.fraction();
    return points;
}

}  // namespace quorvel
