#include "core/ScoreColumn.h"

#include <algorithm>
#include <cstring>
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

constexpr std::int32_t packedEmpty = packed(CellPoints{});
constexpr std::int32_t packedZero = packed(CellPoints{.empty = false});

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

CellPoints pointsOf(const Score& score) {
    CellPoints points;
    points.empty = score.isEmpty();
    points.excused = score.isExcused();
    if (points.empty || points.excused) return points;
    if (const auto* const number = std::get_if<std::int16_t>(&score.value())) {
        points.whole = *number;
        return points;
    }
    if (const auto* const text = std::get_if<std::string>(&score.value())) {
        points.whole = fewDigits(*text);
        if (points.whole >= 0) return points;
    }
    const Decimal reading = score.reading();
    points.whole = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        reading.toInteger(), -CellPoints::wholeLimit, CellPoints::wholeLimit));
    points.fraction = reading.fraction();
    return points;
}

template <typename Number>
Score scoreFrom(const std::array<char, 8>& payload) {
    Number number{};
    std::memcpy(&number, payload.data(), sizeof number);
    return Score(TaggedValue(number));
}

/// The sum after an addition came to `result`, which is skipped where 16 bits are too few.
std::int16_t keptSum(std::int16_t sum, std::int32_t result) {
    const auto kept = static_cast<std::int16_t>(result);
    return kept == result ? kept : sum;
}

std::size_t indexOf(int student) {
    return static_cast<std::size_t>(student) - 1;
}

}  // namespace

Score ScoreColumn::score(int student) const {
    if (student > storedCount())
        return student <= storedCount() + zeroCount_ ? Score::zero() : Score();
    const Cell& cell = cells_[indexOf(student)];
    switch (static_cast<CellType>(cell.type)) {
        case CellType::Short:
            return scoreFrom<std::int16_t>(cell.payload);
        case CellType::Long:
            return scoreFrom<std::int32_t>(cell.payload);
        case CellType::Single:
            return scoreFrom<float>(cell.payload);
        case CellType::Double:
            return scoreFrom<double>(cell.payload);
        case CellType::Text:
            return Score::ofText(cell.textLength == longText
                                     ? std::string_view(longTexts_.at(student))
                                     : std::string_view(cell.payload.data(), cell.textLength));
        case CellType::Empty:
            break;
    }
    return {};
}

ScoreColumn::Cell ScoreColumn::cellOf(const Score& score) {
    Cell cell;
    cell.type = static_cast<std::uint8_t>(score.value().index());
    std::visit(
        [&cell](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string>) {
                const bool fits = held.size() <= cell.payload.size();
                cell.textLength = fits ? static_cast<std::uint8_t>(held.size()) : longText;
                if (fits) std::memcpy(cell.payload.data(), held.data(), held.size());
            } else if constexpr (!std::is_same_v<Held, std::monostate>) {
                std::memcpy(cell.payload.data(), &held, sizeof held);
            }
        },
        score.value());
    return cell;
}

void ScoreColumn::setScore(int student, const Score& score) {
    if (student > storedCount()) {
        if (holdsUnstored(student, score)) return;
        storeThrough(student);
    }
    const Cell cell = cellOf(score);
    const PackedPoints points = packed(pointsOf(score));
    Cell& changed = cells_[indexOf(student)];
    if (cell.textLength == longText)
        longTexts_.insert_or_assign(student, std::get<std::string>(score.value()));
    else if (changed.textLength == longText)
        longTexts_.erase(student);
    changed = cell;
    points_[indexOf(student)] = points;
}

/// Whether a cell behind the stored ones holds the score without being stored, as it does when a 0
/// comes directly behind the zeros.
bool ScoreColumn::holdsUnstored(int student, const Score& score) {
    const int firstEmpty = storedCount() + zeroCount_ + 1;
    if (student < firstEmpty) return score.isZero();
    if (student > firstEmpty || !score.isZero()) return score.isEmpty();
    ++zeroCount_;
    return true;
}

/// Stores the cells up to `student` as they are. Requires student > storedCount().
void ScoreColumn::storeThrough(int student) {
    const std::size_t firstNew = points_.size();
    const std::size_t count = static_cast<std::size_t>(student);
    // Cells first: should the points then find no memory, cells behind theirs do not count.
    cells_.resize(count);
    points_.resize(count, packedEmpty);
    const std::size_t zeros = std::min(static_cast<std::size_t>(zeroCount_), count - firstNew);
    for (std::size_t i = firstNew; i < firstNew + zeros; ++i) setZero(i);
    zeroCount_ -= static_cast<int>(zeros);
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
    ScoreColumn ordered;
    for (std::size_t i = 0; i < order.size(); ++i)
        ordered.takeCell(static_cast<int>(i) + 1, *this, order[i]);
    *this = std::move(ordered);
}

/// Gives `student`, who has no stored cell yet, the one that `source` has in another column.
void ScoreColumn::takeCell(int student, const ScoreColumn& from, int source) {
    if (source > from.storedCount()) return setScore(student, from.score(source));
    // Stored only as far as values come, so that a column stays as short as it can.
    if (from.points(source).empty) return;
    const Cell& cell = from.cells_[indexOf(source)];
    storeThrough(student);
    if (cell.textLength == longText) longTexts_.emplace(student, from.longTexts_.at(source));
    cells_[indexOf(student)] = cell;
    points_[indexOf(student)] = from.points_[indexOf(source)];
}

void ScoreColumn::addPoints(std::int16_t value, std::span<std::int16_t> earned,
                            std::span<std::int16_t> possible) const {
    const std::size_t stored = std::min(points_.size(), earned.size());
    for (std::size_t i = 0; i < stored; ++i) {
        const PackedPoints points = points_[i];
        const std::int32_t whole = earned[i] + (points >> wholeShift);
        // The fractions are numbered so that this is 1 above one half, and at one half beside an
        // odd whole number: halves go to the even neighbour.
        const std::int32_t roundedUp = ((points & fractionMask) + (whole & 1) + 1) >> 2;
        earned[i] = keptSum(earned[i], whole + roundedUp);
        const std::int32_t counted = (points & excusedBit) != 0 ? 0 : value;
        possible[i] = keptSum(possible[i], possible[i] + counted);
    }
    if (value == 0) return;
    for (std::size_t i = stored; i < possible.size(); ++i)
        possible[i] = keptSum(possible[i], possible[i] + value);
}

CellPoints ScoreColumn::points(int student) const {
    const PackedPoints bits = points_[indexOf(student)];
    CellPoints points;
    points.whole = bits >> wholeShift;
    points.fraction = static_cast<Fraction>(bits & fractionMask);
    points.excused = (bits & excusedBit) != 0;
    points.empty = (bits & emptyBit) != 0;
    return points;
}

}  // namespace quorvel
