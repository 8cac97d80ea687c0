#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/Decimal.h"
#include "core/GradeSheet.h"

namespace quorvel {

/// A student's percentage in tenths, cut toward minus infinity; 100 % where nothing is possible.
std::int32_t percentageTenths(std::int32_t pointsEarned, std::int32_t pointsPossible);

/// The average over an assignment's numeric scores: neither excused nor empty ones count.
struct AssignmentAverage {
    Decimal sum;
    std::int64_t scoreCount = 0;  // at least 1
    std::int16_t value = 0;

    /// The average score in tenths, cut toward minus infinity.
    Decimal scoreTenths() const;
    /// The average score's percentage of the value in tenths, from the uncut average; nothing where
    /// the value is 0.
    std::optional<Decimal> percentTenths() const;
};

/// Nothing where the assignment has no numeric score.
std::optional<AssignmentAverage> assignmentAverage(const GradeSheet& sheet, int assignment);

/// A score's percentage of its assignment's value in tenths, cut toward minus infinity; nothing
/// where the value is 0.
std::optional<Decimal> scorePercentageTenths(const Score& score, std::int16_t value);

}  // namespace quorvel
