#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/Score.h"

namespace quorvel {

/// What one cell adds to a student's points earned, found once when the score is stored.
/// Small enough that a class of any size is summed in one pass over plain arrays.
struct CellPoints {
    /// The part of the number behind its whole part, as far as rounding needs to know it.
    enum class Fraction : std::uint8_t { None, BelowHalf, Half, AboveHalf };

    /// The greatest whole number not above the reading; beyond ±1,000,000 it stops there, which no
    /// 16-bit sum can take anyway.
    std::int32_t whole = 0;
    Fraction fraction = Fraction::None;
    bool excused = false;
    bool empty = true;
};

/// The scores of one assignment, for students 1 to any number: a compact prefix of stored cells,
/// empty behind it. A column without a value takes no memory.
class ScoreColumn {
  public:
    /// Cells that were never stored are empty. Requires student >= 1.
    Score score(int student) const;
    void setScore(int student, const Score& score);

    /// Forgets every cell behind `studentCount`.
    void shrinkTo(int studentCount);

    /// The number of students up to the last stored cell; the cells behind it are empty.
    int storedCount() const { return static_cast<int>(cells_.size()); }
    /// Requires 1 <= student <= storedCount().
    CellPoints points(int student) const { return cells_[static_cast<std::size_t>(student) - 1].points; }

  private:
    /// 20 bytes a cell: the value itself where it is small, which every usual score is.
    struct Cell {
        CellPoints points;
        std::uint8_t type = 0;
        std::uint8_t textLength = 0;
        std::array<char, 8> payload{};  // number bits, or a text of up to 8 characters
    };

    std::vector<Cell> cells_;
    /// Texts that do not fit into their cell, by student.
    std::map<int, std::string> longTexts_;
};

}  // namespace quorvel
