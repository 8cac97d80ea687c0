#include "core/ScoreColumn.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

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

CellPoints::Fraction fractionOf(const Decimal& number) {
    if (number.isWhole()) return CellPoints::Fraction::None;
    Decimal twice = number;
    twice += number;
    if (twice.toInteger() % 2 == 0) return CellPoints::Fraction::BelowHalf;
    return twice.isWhole() ? CellPoints::Fraction::Half : CellPoints::Fraction::AboveHalf;
}

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
    points.fraction = fractionOf(reading);
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
    if (student > storedCount()) return {};
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

void ScoreColumn::setScore(int student, const Score& score) {
    if (student > storedCount()) {
        if (score.isEmpty()) return;
        points_.resize(static_cast<std::size_t>(student), packedEmpty);
        cells_.resize(static_cast<std::size_t>(student));
    }
    Cell& cell = cells_[indexOf(student)];
    if (cell.textLength == longText) longTexts_.erase(student);
    cell = {};
    cell.type = static_cast<std::uint8_t>(score.value().index());
    if (const auto* const text = std::get_if<std::string>(&score.value()))
        setText(student, *text);
    else if (const auto* const small = std::get_if<std::int16_t>(&score.value()))
        std::memcpy(cell.payload.data(), small, sizeof *small);
    else if (const auto* const large = std::get_if<std::int32_t>(&score.value()))
        std::memcpy(cell.payload.data(), large, sizeof *large);
    else if (const auto* const single = std::get_if<float>(&score.value()))
        std::memcpy(cell.payload.data(), single, sizeof *single);
    else if (const auto* const real = std::get_if<double>(&score.value()))
        std::memcpy(cell.payload.data(), real, sizeof *real);
    points_[indexOf(student)] = packed(pointsOf(score));
}

void ScoreColumn::setText(int student, std::string_view text) {
    Cell& cell = cells_[indexOf(student)];
    if (text.size() > cell.payload.size()) {
        cell.textLength = longText;
        longTexts_[student] = text;
        return;
    }
    cell.textLength = static_cast<std::uint8_t>(text.size());
    std::memcpy(cell.payload.data(), text.data(), text.size());
}

void ScoreColumn::shrinkTo(int studentCount) {
    if (studentCount >= storedCount()) return;
    points_.resize(static_cast<std::size_t>(studentCount));
    cells_.resize(static_cast<std::size_t>(studentCount));
    longTexts_.erase(longTexts_.upper_bound(studentCount), longTexts_.end());
}

void ScoreColumn::remove(int student) {
    if (student > storedCount()) return;
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
    std::vector<PackedPoints> newPoints;
    std::vector<Cell> newCells;
    std::map<int, std::string> newLongTexts;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const int student = order[i];
        // Grown only as far as values come, so that a column stays as short as it can.
        if (student > storedCount() || points(student).empty) continue;
        newPoints.resize(i + 1, packedEmpty);
        newCells.resize(i + 1);
        newPoints[i] = points_[indexOf(student)];
        newCells[i] = cells_[indexOf(student)];
        if (newCells[i].textLength == longText)
            newLongTexts.emplace(static_cast<int>(i) + 1, std::move(longTexts_.at(student)));
    }
    points_ = std::move(newPoints);
    cells_ = std::move(newCells);
    longTexts_ = std::move(newLongTexts);
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
    points.fraction = static_cast<CellPoints::Fraction>(bits & fractionMask);
    points.excused = (bits & excusedBit) != 0;
    points.empty = (bits & emptyBit) != 0;
    return points;
}

}  // namespace quorvel
