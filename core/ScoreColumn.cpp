#include "core/ScoreColumn.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

#include "core/PointSums.h"
#include "core/UsualCells.h"

namespace quorvel {

namespace {

constexpr PackedPoints zeroCell = integerCell(0);

std::size_t indexOf(int student) {
    return static_cast<std::size_t>(student) - 1;
}

}  // namespace

TaggedView ScoreColumn::value(int student) const {
    if (isUnstoredZero(student)) return std::int16_t{0};
    if (student > storedCount()) return {};
    const PackedPoints cell = cells_[indexOf(student)];
    return isMarked(cell, apartMark) ? valueApart(student) : usualValue(cell);
}

CellPoints ScoreColumn::points(int student) const {
    if (student > storedCount()) return {.empty = !isUnstoredZero(student)};
    const PackedPoints cell = cells_[indexOf(student)];
    return cell == apartMark ? largeCells_.at(student).points : unpacked(cell);
}

std::size_t ScoreColumn::smallValues(int first, std::span<SmallValue> target) const {
    for (std::size_t i = 0; i < target.size(); ++i) {
        const int student = first + static_cast<int>(i);
        const PackedPoints cell = student <= storedCount() ? cells_[indexOf(student)] : packedEmpty;
        if (isUsualText(cell)) {
            target[i] = usualText(cell);
        } else {
            const TaggedView held = value(student);
            if (!SmallValue::fits(held)) return i;
            target[i] = SmallValue(held);
        }
    }
    return target.size();
}

void ScoreColumn::setValue(int student, const TaggedView& value) {
    if (student > storedCount()) {
        if (holdsUnstored(student, value)) return;
        storeThrough(student);
    }
    PackedPoints& cell = cells_[indexOf(student)];
    if (const auto usual = usualCell(value)) {
        if (isMarked(cell, apartMark)) forgetApart(student);
        cell = *usual;
        return;
    }
    const CellPoints points = pointsOf(value);
    if (SmallValue::fits(value) && canBePacked(points)) {
        setApart(student, SmallValue(value));
        cell = static_cast<PackedPoints>(packed(points) + apartMark);
    } else {
        largeCells_.insert_or_assign(student, LargeCell{valueOf(value), points});
        dropApart(student);
        cell = apartMark;
    }
}

void ScoreColumn::reserve(int studentCount) {
    cells_.reserve(static_cast<std::size_t>(studentCount));
}

void ScoreColumn::setValues(int first, std::span<const SmallValue> values) {
    const int last = first + static_cast<int>(values.size()) - 1;
    if (last > storedCount()) storeThrough(last);
    for (int student = first; student <= last; ++student) {
        const SmallValue& value = values[static_cast<std::size_t>(student - first)];
        PackedPoints& cell = cells_[indexOf(student)];
        const int whole = value.fewDigits();
        if (isUsualWhole(whole) && !isMarked(cell, apartMark))
            cell = textCell(whole);
        else
            setValue(student, value.view());
    }
}

/// Whether a cell behind the stored ones holds the value without being stored, as it does when a 0
/// comes directly behind the zeros.
bool ScoreColumn::holdsUnstored(int student, const TaggedView& value) {
    const TaggedView zero = std::int16_t{0};
    const int firstEmpty = storedCount() + zeroCount_ + 1;
    if (student < firstEmpty) return value == zero;
    if (student > firstEmpty || value != zero) return value == TaggedView();
    ++zeroCount_;
    return true;
}

/// Stores the cells up to `student` as they are. Requires student > storedCount().
void ScoreColumn::storeThrough(int student) {
    const auto behindZeros = cells_.size() + static_cast<std::size_t>(zeroCount_);
    const std::size_t stored = cells_.size();
    cells_.resize(static_cast<std::size_t>(student), packedEmpty);
    const std::size_t end = std::min(behindZeros, cells_.size());
    std::fill(cells_.begin() + static_cast<std::ptrdiff_t>(stored),
              cells_.begin() + static_cast<std::ptrdiff_t>(end), zeroCell);
    zeroCount_ = static_cast<int>(behindZeros - end);
}

void ScoreColumn::fillEmpty(int studentCount) {
    std::ranges::replace(cells_, packedEmpty, zeroCell);
    zeroCount_ = std::max(0, studentCount - storedCount());
}

void ScoreColumn::shrinkTo(int studentCount) {
    if (studentCount < storedCount()) {
        cells_.resize(static_cast<std::size_t>(studentCount));
        apartCells_.resize(apartIndex(studentCount + 1));
        largeCells_.erase(largeCells_.upper_bound(studentCount), largeCells_.end());
    }
    zeroCount_ = std::min(zeroCount_, studentCount - storedCount());
}

void ScoreColumn::remove(int student) {
    if (student > storedCount()) {
        if (student <= storedCount() + zeroCount_) --zeroCount_;
        return;
    }
    forgetApart(student);
    cells_.erase(cells_.begin() + student - 1);
    for (std::size_t i = apartIndex(student); i < apartCells_.size(); ++i) --apartCells_[i].student;
    // In ascending order, so that each moves into a place that is free already.
    for (auto cell = largeCells_.upper_bound(student); cell != largeCells_.end();) {
        auto node = largeCells_.extract(cell++);
        --node.key();
        largeCells_.insert(std::move(node));
    }
}

void ScoreColumn::reorder(std::span<const int> order) {
    const int count = static_cast<int>(order.size());
    if (storedCount() == 0 && (zeroCount_ == 0 || zeroCount_ == count)) return;
    if (storedCount() < count) storeThrough(count);
    std::vector<PackedPoints> cells(order.size());
    std::ranges::transform(order, cells.begin(),
                           [this](int student) { return cells_[indexOf(student)]; });
    apartCells_ = apartInOrder(order, cells);
    cells_ = std::move(cells);
    if (!largeCells_.empty()) reorderLargeCells(order);
    forgetTail();
}

void ScoreColumn::reorderLargeCells(std::span<const int> order) {
    std::map<int, LargeCell> ordered;
    for (std::size_t i = 0; i < order.size(); ++i) {
        auto node = largeCells_.extract(order[i]);
        if (!node) continue;
        node.key() = static_cast<int>(i) + 1;
        ordered.insert(ordered.end(), std::move(node));
    }
    largeCells_ = std::move(ordered);
}

/// Stores no more of the last cells than it must, so that a column stays as short as it can.
void ScoreColumn::forgetTail() {
    while (!cells_.empty() && cells_.back() == packedEmpty) cells_.pop_back();
    for (; !cells_.empty() && cells_.back() == zeroCell; ++zeroCount_) cells_.pop_back();
}

/// Where the student's cell is among those apart, or would be.
std::size_t ScoreColumn::apartIndex(int student) const {
    const auto place = std::ranges::lower_bound(apartCells_, student, {}, &ApartCell::student);
    return static_cast<std::size_t>(place - apartCells_.begin());
}

bool ScoreColumn::isApart(std::size_t index, int student) const {
    return index < apartCells_.size() && apartCells_[index].student == student;
}

/// Requires a cell that is marked.
TaggedView ScoreColumn::valueApart(int student) const {
    const std::size_t index = apartIndex(student);
    return isApart(index, student) ? apartCells_[index].value.view()
                                   : viewOf(largeCells_.at(student).value);
}

void ScoreColumn::setApart(int student, const SmallValue& value) {
    const std::size_t index = apartIndex(student);
    if (isApart(index, student))
        apartCells_[index].value = value;
    else
        apartCells_.insert(apartCells_.begin() + static_cast<std::ptrdiff_t>(index),
                           {.student = student, .value = value});
    largeCells_.erase(student);
}

/// As far as it is no large one.
void ScoreColumn::dropApart(int student) {
    const std::size_t index = apartIndex(student);
    if (isApart(index, student))
        apartCells_.erase(apartCells_.begin() + static_cast<std::ptrdiff_t>(index));
}

void ScoreColumn::forgetApart(int student) {
    dropApart(student);
    largeCells_.erase(student);
}

/// `cells` are in that order already.
std::vector<ScoreColumn::ApartCell> ScoreColumn::apartInOrder(
    std::span<const int> order, std::span<const PackedPoints> cells) const {
    std::vector<ApartCell> ordered;
    ordered.reserve(apartCells_.size());
    for (auto i = findMarked(cells, 0, apartMark); i < cells.size();
         i = findMarked(cells, i + 1, apartMark)) {
        const std::size_t index = apartIndex(order[i]);
        if (isApart(index, order[i]))
            ordered.push_back({static_cast<int>(i) + 1, apartCells_[index].value});
    }
    return ordered;
}

void ScoreColumn::addPoints(std::int16_t value, std::span<std::int16_t> earned,
                            std::span<std::int16_t> possible) const {
    const auto cells = std::span(cells_).first(std::min(cells_.size(), earned.size()));
    addEarned(cells, earned);
    addPossible(value, cells, possible);
    for (const auto& [student, cell] : largeCells_)
        if (indexOf(student) < cells.size()) addEarned(cell.points, earned[indexOf(student)]);
}

ScoreColumn::NumericSum ScoreColumn::numericSum() const {
    const PackedSum packedSum = sumOf(cells_);
    NumericSum numeric{.sum = {}, .count = zeroCount_ + packedSum.count};
    // Only what is kept apart can be more than its whole part.
    std::int64_t wholeSum = packedSum.wholeParts;
    for (const auto& [student, value] : apartCells_) {
        wholeSum -= cells_[indexOf(student)] >> packedWholeShift;
        numeric.sum += readingOf(value.view());
    }
    for (const auto& [student, cell] : largeCells_) numeric.sum += readingOf(viewOf(cell.value));
    numeric.sum += Decimal(wholeSum);
    return numeric;
}

}  // namespace quorvel
