#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/CellPoints.h"
#include "core/Score.h"
#include "core/SmallValue.h"

namespace quorvel {

/// The scores of one assignment, for students 1 to any number: stored cells first, behind them
/// zeros of which only the number is kept, and behind those empty cells. So a column without a
/// typed value takes no memory.
class ScoreColumn {
  public:
    // All require student >= 1.
    Score score(int student) const { return Score(valueOf(value(student))); }
    /// Lies in the column until that changes.
    TaggedView value(int student) const;
    CellPoints points(int student) const;
    /// The values of the students from `first` to at most `last` as they are stored, up to one that
    /// is no small value or is not stored. Lie in the column until that changes.
    std::span<const SmallValue> smallValues(int first, int last) const;

    void setScore(int student, const Score& score) { setValue(student, score.view()); }
    /// A column that finds no memory stays as it was.
    void setValue(int student, const TaggedView& value);
    /// Takes the memory for so many stored cells at once.
    void reserve(int studentCount);
    /// Sets the cells of the students from `first` on, at least one, all of which are then stored.
    /// A column that finds no memory holds some of the values.
    void setValues(int first, std::span<const SmallValue> values);

    /// Puts the whole number 0 into every empty cell up to `studentCount`. Takes no memory.
    void fillEmpty(int studentCount);
    /// Forgets every cell behind `studentCount`.
    void shrinkTo(int studentCount);
    /// Takes one student's cell out; every later student's cell moves up by one.
    void remove(int student);
    /// Gives student i the cell that student `order[i - 1]` had. `order` names every student once.
    void reorder(std::span<const int> order);

    /// Adds every student's cell to the points earned and `value` to the points possible, one
    /// student after the other: an excused cell adds to neither, an empty one adds 0 to the earned.
    /// Each sum is rounded to a whole number, halves to even; an addition whose sum does not fit
    /// into 16 bits is skipped. Both spans hold one sum a student.
    void addPoints(std::int16_t value, std::span<std::int16_t> earned,
                   std::span<std::int16_t> possible) const;

    /// The sum and the number of all numeric scores: neither excused nor empty ones count.
    struct NumericSum {
        Decimal sum;
        std::int64_t count = 0;
    };
    NumericSum numericSum() const;

    /// The number of students up to the last stored cell.
    int storedCount() const { return static_cast<int>(points_.size()); }
    /// How many cells behind the stored ones hold the whole number 0; those behind them are empty.
    int zeroCount() const { return zeroCount_; }

  private:
    /// A value that does not fit into a small one, or whose points cannot be packed.
    struct LargeCell {
        TaggedValue value;
        CellPoints points;
    };

    bool holdsUnstored(int student, const TaggedView& value);
    bool isUnstoredZero(int student) const {
        return student > storedCount() && student <= storedCount() + zeroCount_;
    }
    void reorderLargeCells(std::span<const int> order);
    void forgetTail();
    void storeThrough(int student);
    void setZero(std::size_t index);

    /// A cell's points and its value, one of each for every stored cell.
    std::vector<PackedPoints> points_;
    std::vector<SmallValue> cells_;
    /// Those that are elsewhere, by student.
    std::map<int, LargeCell> largeCells_;
    int zeroCount_ = 0;
};

}  // namespace quorvel
