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
    /// Fills `target` with the values of the students from `first` on, up to one that is no small
    /// value. How many it got.
    std::size_t smallValues(int first, std::span<SmallValue> target) const;

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
    int storedCount() const { return static_cast<int>(cells_.size()); }
    /// How many cells behind the stored ones hold the whole number 0; those behind them are empty.
    int zeroCount() const { return zeroCount_; }

  private:
    /// A small value that its points do not tell.
    struct ApartCell {
        int student = 0;
        SmallValue value;
    };
    /// A value that does not fit into a small one, or whose points cannot be packed.
    struct LargeCell {
        TaggedValue value;
        CellPoints points;
    };

    bool holdsUnstored(int student, const TaggedView& value);
    bool isUnstoredZero(int student) const {
        return student > storedCount() && student <= storedCount() + zeroCount_;
    }
    void storeThrough(int student);
    void forgetTail();
    std::size_t apartIndex(int student) const;
    bool isApart(std::size_t index, int student) const;
    TaggedView valueApart(int student) const;
    void setApart(int student, const SmallValue& value);
    void dropApart(int student);
    void forgetApart(int student);
    std::vector<ApartCell> apartInOrder(std::span<const int> order,
                                        std::span<const PackedPoints> cells) const;
    void reorderLargeCells(std::span<const int> order);

    /// The stored cells. A usual value is told by its points alone: nothing, "E", and whole numbers
    /// up to 1023, typed or of 16 bits. That is two bytes a cell, and nearly every cell.
    std::vector<PackedPoints> cells_;
    /// The others, in the order of their students ...
    std::vector<ApartCell> apartCells_;
    /// ... and by student.
    std::map<int, LargeCell> largeCells_;
    int zeroCount_ = 0;
};

}  // namespace quorvel
