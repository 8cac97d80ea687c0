#include "core/ScoreColumn.h"

#include <algorithm>
#include <ranges>
#include <utility>
#include <variant>

#include "core/PointSums.h"

namespace quorvel {

namespace {

constexpr PackedPoints packedZero = packed(CellPoints{.empty = false});

bool isEmpty(const TaggedView& value) {
    return std::holds_alternative<std::monostate>(value);
}

bool isZero(const TaggedView& value) {
    const auto* const number = std::get_if<std::int16_t>(&value);
    return number != nullptr && *number == 0;
}

std::size_t indexOf(int student) {
    return static_cast<std::size_t>(student) - 1;
}

/// What the students of these numbers have, in their order.
template <typename Held>
std::vector<Held> inOrder(const std::vector<Held>& held, std::span<const int> order) {
    const auto moved = std::views::transform(
        order, [&held](int student) -> const Held& { return held[indexOf(student)]; });
    return {moved.begin(), moved.end()};
}

}  // namespace

TaggedView ScoreColumn::value(int student) const {
    if (isUnstoredZero(student)) return std::int16_t{0};
    if (student > storedCount()) return {};
    const SmallValue& cell = cells_[indexOf(student)];
    return cell.isElsewhere() ? viewOf(largeCells_.at(student).value) : cell.view();
}

CellPoints ScoreColumn::points(int student) const {
    if (student > storedCount()) return {.empty = !isUnstoredZero(student)};
    const std::size_t index = indexOf(student);
    return cells_[index].isElsewhere() ? largeCells_.at(student).points : unpacked(points_[index]);
}

std::span<const SmallValue> ScoreColumn::smallValues(int first, int last) const {
    const auto large = largeCells_.lower_bound(first);
    const int beforeLarge = large == largeCells_.end() ? last : large->first - 1;
    const int end = std::min({last, beforeLarge, storedCount()});
    if (end < first) return {};
    return std::span(cells_).subspan(indexOf(first), static_cast<std::size_t>(end - first) + 1);
}

void ScoreColumn::setValue(int student, const TaggedView& value) {
    if (student > storedCount()) {
        if (holdsUnstored(student, value)) return;
        storeThrough(student);
    }
    const CellPoints points = pointsOf(value);
    SmallValue& cell = cells_[indexOf(student)];
    if (SmallValue::fits(value) && canBePacked(points)) {
        const SmallValue small(value);
        if (cell.isElsewhere()) largeCells_.erase(student);
        cell = small;
        points_[indexOf(student)] = packed(points);
    } else {
        largeCells_.insert_or_assign(student, LargeCell{valueOf(value), points});
        cell = SmallValue::elsewhere();
        points_[indexOf(student)] = packedAbsent;
    }
}

void ScoreColumn::reserve(int studentCount) {
    cells_.reserve(static_cast<std::size_t>(studentCount));
    points_.reserve(static_cast<std::size_t>(studentCount));
}

void ScoreColumn::setValues(int first, std::span<const SmallValue> values) {
    const int last = first + static_cast<int>(values.size()) - 1;
    if (last > storedCount()) storeThrough(last);
    largeCells_.erase(largeCells_.lower_bound(first), largeCells_.upper_bound(last));
    for (int student = first; student <= last; ++student) {
        const SmallValue& value = values[static_cast<std::size_t>(student - first)];
        const CellPoints points{.whole = value.fewDigits(), .empty = false};
        if (canBePacked(points)) {
            cells_[indexOf(student)] = value;
            points_[indexOf(student)] = packed(points);
        } else {
            setValue(student, value.view());
        }
    }
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
    const int zeros = std::min(zeroCount_, student - storedCount());
    // The points last, since they tell how many cells are stored: an earlier lack of memory may
    // have left more of the others.
    cells_.resize(points_.size());
    cells_.resize(static_cast<std::size_t>(student));
    const std::size_t stored = points_.size();
    points_.resize(cells_.size(), packedAbsent);
    for (int zero = 0; zero < zeros; ++zero) setZero(stored + static_cast<std::size_t>(zero));
    zeroCount_ -= zeros;
}

void ScoreColumn::setZero(std::size_t index) {
    cells_[index] = SmallValue(std::int16_t{0});
    points_[index] = packedZero;
}

void ScoreColumn::fillEmpty(int studentCount) {
    for (std::size_t i = 0; i < cells_.size(); ++i)
        if (cells_[i].isEmpty()) setZero(i);
    zeroCount_ = std::max(0, studentCount - storedCount());
}

void ScoreColumn::shrinkTo(int studentCount) {
    if (studentCount < storedCount()) {
        points_.resize(static_cast<std::size_t>(studentCount));
        cells_.resize(static_cast<std::size_t>(studentCount));
        largeCells_.erase(largeCells_.upper_bound(studentCount), largeCells_.end());
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
    largeCells_.erase(student);
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
    std::vector<SmallValue> cells = inOrder(cells_, order);
    points_ = inOrder(points_, order);
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
    const auto isStored = [](const SmallValue& cell) { return !cell.isEmpty(); };
    const auto isTyped = [](const SmallValue& cell) { return !isZero(cell.view()); };
    const auto behindLast = [this](auto isLast) {
        return cells_.rend() - std::ranges::find_if(cells_.rbegin(), cells_.rend(), isLast);
    };
    cells_.resize(static_cast<std::size_t>(behindLast(isStored)));
    const auto typed = static_cast<std::size_t>(behindLast(isTyped));
    zeroCount_ += static_cast<int>(cells_.size() - typed);
    cells_.resize(typed);
    points_.resize(typed);
}

void ScoreColumn::addPoints(std::int16_t value, std::span<std::int16_t> earned,
                            std::span<std::int16_t> possible) const {
    const auto cells = std::span(points_).first(std::min(points_.size(), earned.size()));
    addEarned(cells, earned);
    addPossible(value, cells, possible);
    for (const auto& [student, cell] : largeCells_)
        if (indexOf(student) < cells.size()) addEarned(cell.points, earned[indexOf(student)]);
}

ScoreColumn::NumericSum ScoreColumn::numericSum() const {
    const PackedSum packedSum = sumOf(points_);
    NumericSum numeric{.sum = {}, .count = zeroCount_ + packedSum.count};
    std::int64_t wholeSum = packedSum.wholeParts;
    for (auto i = findFraction(points_, 0); i < points_.size(); i = findFraction(points_, i + 1)) {
        wholeSum -= points_[i] >> packedWholeShift;
        numeric.sum += readingOf(cells_[i].view());
    }
    numeric.sum += Decimal(wholeSum);
    for (const auto& [student, cell] : largeCells_) {
        numeric.sum += readingOf(viewOf(cell.value));
        ++numeric.count;
    }
    return numeric;
}

}  // namespace quorvel
