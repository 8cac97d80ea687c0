#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/Score.h"

namespace quorvel {

/// What one cell adds to a student's points earned, found once when the score is stored.
struct CellPoints {
    /// Where the whole part stops.
    static constexpr std::int32_t wholeLimit = 1'000'000;

    /// The greatest whole number not above the reading; beyond the limit, up or down, it stops
    /// there, which no 16-bit sum can take anyway.
    std::int32_t whole = 0;
    Fraction fraction = Fraction::None;
    bool excused = false;
    bool empty = true;
};

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

    void setScore(int student, const Score& score) { setValue(student, score.view()); }
    /// A column that finds no memory stays as it was.
    void setValue(int student, const TaggedView& value);

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
    void addPoints(std::int16_t value, std::span<std::int32_t> earned,
                   std::span<std::int32_t> possible) const;

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
    /// A CellPoints in 32 bits, since every recomputation reads all of them.
    using PackedPoints = std::int32_t;

    /// 10 bytes a cell: the value itself where it is small, which every usual score is.
    struct Cell {
        std::uint8_t type = 0;
        std::uint8_t textLength = 0;
        std::array<char, 8> payload{};  // number bits, or a text of up to 8 characters
    };

    static void put(const TaggedView& value, Cell& cell);
    bool holdsUnstored(int student, const TaggedView& value);
    bool isUnstoredZero(int student) const {
        return student > storedCount() && student <= storedCount() + zeroCount_;
    }
    int lastStoredIn(std::span<const int> order) const;
    void takeStored(const ScoreColumn& from, std::span<const int> order);
    void storeThrough(int student);
    void setZero(std::size_t index);

    /// A cell's points and its value, one of each for every stored cell.
    std::vector<PackedPoints> points_;
    std::vector<Cell> cells_;
    /// Texts that do not fit into their cell, by student.
    std::map<int, std::string> longTexts_;
    int zeroCount_ = 0;
};

}  // namespace quorvel
