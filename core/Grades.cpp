#include "core/Grades.h"

#include <utility>

#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr std::int64_t tenthsOfWhole = 1000;  // 100 % in tenths of a percent

}  // namespace

std::int32_t percentageTenths(std::int32_t pointsEarned, std::int32_t pointsPossible) {
    if (pointsPossible == 0) return static_cast<std::int32_t>(tenthsOfWhole);
    return static_cast<std::int32_t>(divideDown(pointsEarned * tenthsOfWhole, pointsPossible));
}

Decimal AssignmentAverage::scoreTenths() const {
    return sum.scaledDown(10, scoreCount);
}

std::optional<Decimal> AssignmentAverage::percentTenths() const {
    if (value == 0) return std::nullopt;
    return sum.scaledDown(tenthsOfWhole, scoreCount * value);
}

std::optional<AssignmentAverage> assignmentAverage(const GradeSheet& sheet, int assignment) {
    auto [sum, count] = sheet.scores(assignment).numericSum();
    if (count == 0) return std::nullopt;
    return AssignmentAverage{
        .sum = std::move(sum), .scoreCount = count, .value = sheet.assignmentValue(assignment)};
}

std::optional<Decimal> scorePercentageTenths(const Score& score, std::int16_t value) {
    if (value == 0) return std::nullopt;
    return score.reading().scaledDown(tenthsOfWhole, value);
}

}  // namespace quorvel
