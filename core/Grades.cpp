#include "core/Grades.h"

#include "core/Numbers.h"

namespace quorvel {

namespace {

constexpr std::int64_t tenthsOfWhole = 1000;  // 100 % in tenths of a percent

}  // namespace

std::int32_t percentageTenths(std::int16_t pointsEarned, std::int16_t pointsPossible) {
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
    const ScoreColumn& column = sheet.scores(assignment);
    AssignmentAverage average;
    average.value = sheet.assignmentValue(assignment);
    average.scoreCount = column.zeroCount();
    std::int64_t wholeSum = 0;
    for (int student = 1; student <= column.storedCount(); ++student) {
        const CellPoints points = column.points(student);
        if (points.empty || points.excused) continue;
        ++average.scoreCount;
        if (points.isExact())
            wholeSum += points.whole;
        else
            average.sum += column.score(student).reading();
    }
    if (average.scoreCount == 0) return std::nullopt;
    average.sum += Decimal(wholeSum);
    return average;
}

std::optional<Decimal> scorePercentageTenths(const Score& score, std::int16_t value) {
    if (value == 0) return std::nullopt;
    return score.reading().scaledDown(tenthsOfWhole, value);
}

}  // namespace quorvel
