#include "core/ScoreColumn.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>
#include <variant>

namespace quorvel {

namespace {

// The bits of packed points, from the lowest: the fraction, the two marks, the whole part.
constexpr std::int32_t fractionMask = 3;
constexpr std::int32_t excusedBit = 4;
constexpr std::int32_t emptyBit = 8;
constexpr int wholeShift = 4;

/// The types of a cell. A text too long for its cell has a length above what the cell holds.
enum class CellType : std::uint8_t { Empty, Short, Long, Single, Double, Text };
constexpr std::uint8_t longText = 0xFF;

constexpr std::int32_t packed(const CellPoints& points) {
    return points.whole * (1 << wholeShift) + static_cast<std::int32_t>(points.fraction) +
           (points.excused ? excusedBit : 0) + (points.empty ? emptyBit : 0);
}

/// Whether the whole part is all there is to the reading.
constexpr bool isExact(std::int32_t points) {
    constexpr std::int32_t limit = CellPoints::wholeLimit * (1 << wholeShift);
    return (points & fractionMask) == 0 && points > -limit && points < limit;
}

constexpr std::int32_t packedEmpty = packed(CellPoints{});
constexpr std::int32_t packedZero = packed(CellPoints{.empty = false});

constexpr std::int32_t smallestSum = std::numeric_limits<std::int16_t>::min();
constexpr std::int32_t largestSum = std::numeric_limits<std::int16_t>::max();

/// The value of a text of a few digits, which nearly every score is; -1 for any other.
std::int32_t fewDigits(std::string_view text) {
    constexpr std::size_t few = 6;
    if (text.empty() || text.size() > few) return -1;
    std::int32_t number = 0;
    for (const char character : text) {
        if (character < '0' || character > '9') return -1;
        number = number * 10 + (character - '0');
    }
    return number;
}

bool isEmpty(const TaggedView& value) {
    return std::holds_alternative<std::monostate>(value);
}

bool isZero(const TaggedView& value) {
    const auto* const number = std::get_if<std::int16_t>(&value);
    return number != nullptr && *number == 0;
}

CellPoints pointsOf(const TaggedView& value) {
    CellPoints points;
    points.empty = isEmpty(value);
    if (points.empty) return points;
    if (const auto* const number = std::get_if<std::int16_t>(&value)) {
        points.whole = *number;
        return points;
    }
    if (const auto* const text = std::get_if<std::string_view>(&value)) {
        points.whole = fewDigits(*text);
        if (points.whole >= 0) return points;
        points.whole = 0;
        points.excused = *text == Score::excusedMark;
        if (points.excused) return points;
    }
    const Decimal reading = readingOf(value);
    points.whole = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        reading.toInteger(), -CellPoints::wholeLimit, CellPoints::wholeLimit));
    points.fraction = reading.fraction();
    return points;
}

template <typename Number>
Number numberFrom(const std::array<char, 8>& payload) {
    Number number{};
    std::memcpy(&number, payload.data(), sizeof number);
    return number;
}

std::size_t indexOf(int student) {
    return static_cast<std::size_t>(student) - 1;
}

/// 1 outside of the limits, else 0: numbers, since a loop over them has no branches.
constexpr int outside(std::int32_t number, std::int32_t lowest, std::int32_t highest) {
    return (number < lowest ? 1 : 0) | (number > highest ? 1 : 0);
}

}  // namespace

TaggedView ScoreColumn::value(int student) const {
    if (isUnstoredZero(student)) return std::int16_t{0};
    if (student > storedCount()) return {};
    const Cell& cell = cells_[indexOf(student)];
    switch (static_cast<CellType>(cell.type)) {
        case CellType::Short:
            return numberFrom<std::int16_t>(cell.payload);
        case CellType::Long:
            return numberFrom<std::int32_t>(cell.payload);
        case CellType::Single:
            return numberFrom<float>(cell.payload);
        case CellType::Double:
            return numberFrom<double>(cell.payload);
        case CellType::Text:
            return cell.textLength == longText
                       ? std::string_view(longTexts_.at(student))
                       : std::string_view(cell.payload.data(), cell.textLength);
        case CellType::Empty:
            break;
    }
    return {};
}

CellPoints ScoreColumn::points(int student) const {
    CellPoints points;
    if (student > storedCount()) {
        points.empty = !isUnstoredZero(student);
        return points;
    }
    const PackedPoints bits = points_[indexOf(student)];
    points.whole = bits >> wholeShift;
    points.fraction = static_cast<Fraction>(bits & fractionMask);
    points.excused = (bits & excusedBit) != 0;
    points.empty = (bits & emptyBit) != 0;
    return points;
}

/// Puts a value that is no long text into the cell, where it lies: copies of so few bytes would
/// have to wait for each other.
void ScoreColumn::put(const TaggedView& value, Cell& cell) {
    cell.type = static_cast<std::uint8_t>(value.index());
    cell.textLength = 0;
    std::visit(
        [&cell](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string_view>) {
                cell.textLength = static_cast<std::uint8_t>(held.size());
                std::memcpy(cell.payload.data(), held.data(), held.size());
            } else if constexpr (!std::is_same_v<Held, std::monostate>) {
                std::memcpy(cell.payload.data(), &held, sizeof held);
            }
        },
        value);
}

void ScoreColumn::setValue(int student, const TaggedView& value) {
    if (student > storedCount()) {
        if (holdsUnstored(student, value)) return;
        storeThrough(student);
    }
    const PackedPoints points = packed(pointsOf(value));
    Cell& changed = cells_[indexOf(student)];
    const auto* const text = std::get_if<std::string_view>(&value);
    if (text != nullptr && text->size() > changed.payload.size()) {
        longTexts_.insert_or_assign(student, std::string(*text));
        changed = {.type = static_cast<std::uint8_t>(CellType::Text), .textLength = longText};
    } else {
        if (changed.textLength == longText) longTexts_.erase(student);
        put(value, changed);
    }
    points_[indexOf(student)] = points;
}

/// Whether a cell behind the stored ones holds the value without being stored, as it does when a 0
/// comes directly behind the zeros.
bool ScoreColumn::holdsUnstored(int student, const TaggedView& value) {
    const int firstEmpty = storedCount() + zeroCount_ + 1;
    if (student < firstEmpty) return isZero(value);
    if (student > firstEmpty || !isZero(value)) return isEmpty(value);
    ++zeroCount_;
    return true;
}

/// Stores the cells up to `student` as they are. Requires student > storedCount().
void ScoreColumn::storeThrough(int student) {
    // One more than there are points for is what an earlier lack of memory left.
    cells_.resize(points_.size());
    while (storedCount() < student) {
        cells_.emplace_back();
        points_.push_back(packedEmpty);
        if (zeroCount_ == 0) continue;
        setZero(points_.size() - 1);
        --zeroCount_;
    }
}

void ScoreColumn::setZero(std::size_t index) {
    cells_[index] = {.type = static_cast<std::uint8_t>(CellType::Short)};
    points_[index] = packedZero;
}

void ScoreColumn::fillEmpty(int studentCount) {
    for (std::size_t i = 0; i < points_.size(); ++i)
        if ((points_[i] & emptyBit) != 0) setZero(i);
    zeroCount_ = std::max(0, studentCount - storedCount());
}

void ScoreColumn::shrinkTo(int studentCount) {
    if (studentCount < storedCount()) {
        points_.resize(static_cast<std::size_t>(studentCount));
        cells_.resize(static_cast<std::size_t>(studentCount));
        longTexts_.erase(longTexts_.upper_bound(studentCount), longTexts_.end());
    }
    zeroCount_ = std::min(zeroCount_, studentCount - storedCount());
}

void ScoreColumn::remove(int student) {
    if (student > storedCount()) {
        if (student <= storedCount() + zeroCount_) --zeroCount_;
        return;
    }
    points_.erase(points_.begin() + student - 1);
    cells_.erase(cells_.begin() + student - 1);
    longTexts_.erase(student);
    // In ascending order, so that each text moves into a place that is free already.
    for (auto text = longTexts_.upper_bound(student); text != longTexts_.end();) {
        auto node = longTexts_.extract(text++);
        --node.key();
        longTexts_.insert(std::move(node));
    }
}

void ScoreColumn::reorder(std::span<const int> order) {
    const bool allZeros = zeroCount_ == static_cast<int>(order.size());
    if (storedCount() == 0 && (zeroCount_ == 0 || allZeros)) return;
    // Stored only as far as values come, so that a column stays as short as it can.
    const auto last = static_cast<std::size_t>(lastStoredIn(order));
    ScoreColumn ordered;
    ordered.takeStored(*this, order.first(last));
    for (std::size_t i = last; i < order.size(); ++i)
        ordered.setValue(static_cast<int>(i) + 1, value(order[i]));
    *this = std::move(ordered);
}

/// The last place in the order that a stored value comes to; 0 without one.
int ScoreColumn::lastStoredIn(std::span<const int> order) const {
    const auto isStored = [this](int student) {
        return student <= storedCount() && !points(student).empty;
    };
    const auto last = std::ranges::find_if(order.rbegin(), order.rend(), isStored);
    return static_cast<int>(order.rend() - last);
}

/// Fills a column that is still empty with the cells of these students.
void ScoreColumn::takeStored(const ScoreColumn& from, std::span<const int> order) {
    cells_.resize(order.size());
    points_.resize(order.size(), packedEmpty);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const int source = order[i];
        if (source > from.storedCount()) {
            if (from.isUnstoredZero(source)) setZero(i);
            continue;
        }
        cells_[i] = from.cells_[indexOf(source)];
        points_[i] = from.points_[indexOf(source)];
        if (cells_[i].textLength == longText)
            longTexts_.emplace(static_cast<int>(i) + 1, from.longTexts_.at(source));
    }
}

void ScoreColumn::addPoints(std::int16_t value, std::span<std::int32_t> earned,
                            std::span<std::int32_t> possible) const {
    // From sums outside of these the value would lead out of 16 bits.
    const std::int32_t lowest = smallestSum - std::min<std::int32_t>(value, 0);
    const std::int32_t highest = largestSum - std::max<std::int32_t>(value, 0);
    const std::size_t stored = std::min(points_.size(), earned.size());
    for (std::size_t i = 0; i < stored; ++i) {
        const PackedPoints points = points_[i];
        const std::int32_t whole = earned[i] + (points >> wholeShift);
        // The fractions are numbered so that this is 1 above one half, and at one half beside an
        // odd whole number: halves go to the even neighbour.
        const std::int32_t sum = whole + (((points & fractionMask) + (whole & 1) + 1) >> 2);
        earned[i] = outside(sum, smallestSum, largestSum) != 0 ? earned[i] : sum;
        const int isExcused = (points & excusedBit) != 0 ? 1 : 0;
        possible[i] += (isExcused | outside(possible[i], lowest, highest)) != 0 ? 0 : value;
    }
    if (value == 0) return;
    for (std::size_t i = stored; i < possible.size(); ++i)
        possible[i] += outside(possible[i], lowest, highest) != 0 ? 0 : value;
}

ScoreColumn::NumericSum ScoreColumn::numericSum() const {
    NumericSum numeric{.sum = {}, .count = zeroCount_};
    std::int64_t wholeSum = 0;
    int others = 0;
    for (const PackedPoints points : points_) {
        const int counts = (points & (excusedBit | emptyBit)) == 0 ? 1 : 0;
        const int isWhole = isExact(points) ? 1 : 0;
        numeric.count += counts;
        wholeSum += (counts & isWhole) != 0 ? points >> wholeShift : 0;
        others |= counts & ~isWhole;
    }
    numeric.sum = Decimal(wholeSum);
    // What does not count is a whole 0.
    for (int student = 1; others != 0 && student <= storedCount(); ++student)
        if (!isExact(points_[indexOf(student)])) numeric.sum += readingOf(value(student));
    return numeric;
}

}  // namespace quorvel
