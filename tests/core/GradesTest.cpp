#include "core/Grades.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

GradeSheet sheetWith(const std::vector<Score>& scores, std::int16_t value) {
    GradeSheet sheet;
    sheet.addAssignment("Quiz", value);
    for (const Score& score : scores) {
        sheet.addStudent("Student", "S");
        sheet.setScore(1, sheet.studentCount(), score);
    }
    return sheet;
}

std::vector<Score> texts(const std::vector<const char*>& values) {
    std::vector<Score> scores;
    scores.reserve(values.size());
    for (const char* const value : values) scores.push_back(Score::ofText(value));
    return scores;
}

AssignmentAverage averageOf(const std::vector<Score>& scores, std::int16_t value) {
    return assignmentAverage(sheetWith(scores, value), 1).value();
}

TEST(PercentageTenths, AreCutTowardMinusInfinity) {
    EXPECT_EQ(percentageTenths(57, 100), 570);
    EXPECT_EQ(percentageTenths(17, 18), 944);
    EXPECT_EQ(percentageTenths(2, 3), 666);
    EXPECT_EQ(percentageTenths(-2, 3), -667);
    EXPECT_EQ(percentageTenths(2, -3), -667);
    EXPECT_EQ(percentageTenths(0, 10), 0);
    EXPECT_EQ(percentageTenths(10, 10), 1000);
}

TEST(PercentageTenths, AreAHundredPercentOfNothing) {
    EXPECT_EQ(percentageTenths(0, 0), 1000);
    EXPECT_EQ(percentageTenths(50, 0), 1000);
}

TEST(ScorePercentageTenths, CountTheDecimalThatWasTyped) {
    const auto percent = [](const char* score, std::int16_t value) {
        return scorePercentageTenths(Score::ofText(score), value).value().tenthsText();
    };
    EXPECT_EQ(percent("2.03", 10), "20.3");
    EXPECT_EQ(percent("1.15", 10), "11.5");
    EXPECT_EQ(percent("57", 100), "57");
    EXPECT_EQ(percent("2", 3), "66.6");
    EXPECT_EQ(percent("-2", 3), "-66.7");
    EXPECT_EQ(percent("25", 20), "125");
    EXPECT_EQ(percent("absent", 20), "0");
    EXPECT_EQ(percent("99999999999999999999", 1), "9999999999999999999900");
    EXPECT_EQ(scorePercentageTenths(Score(), 10), Decimal(0));
    EXPECT_EQ(scorePercentageTenths(Score(TaggedValue(2.03F)), 10), Decimal(203));
}

TEST(ScorePercentageTenths, AreMissingWhereTheValueIsZero) {
    EXPECT_EQ(scorePercentageTenths(Score::ofText("5"), 0), std::nullopt);
}

TEST(AssignmentAverage, CountsNumericScoresOnly) {
    std::vector<Score> scores = texts({"10", "E", "7", ""});
    scores.push_back(Score());
    scores.push_back(Score::zero());
    const AssignmentAverage average = averageOf(scores, 10);
    EXPECT_EQ(average.scoreCount, 4) << "a text without a number counts as 0";
    EXPECT_EQ(average.sum, Decimal(17));
    EXPECT_EQ(average.value, 10);
    EXPECT_EQ(average.scoreTenths().tenthsText(), "4.2");
    EXPECT_EQ(average.percentTenths().value().tenthsText(), "42.5") << "of the uncut average";
}

TEST(AssignmentAverage, IsMissingWithoutANumericScore) {
    GradeSheet sheet = sheetWith({Score(), Score::excused(), Score()}, 10);
    EXPECT_FALSE(assignmentAverage(sheet, 1).has_value());
    sheet.addAssignment("New", 10);
    EXPECT_FALSE(assignmentAverage(sheet, 2).has_value());
}

TEST(AssignmentAverage, HasNoPercentWhereTheValueIsZero) {
    const AssignmentAverage average = averageOf(texts({"5"}), 0);
    EXPECT_EQ(average.scoreTenths(), Decimal(50));
    EXPECT_FALSE(average.percentTenths().has_value());
}

TEST(AssignmentAverage, IsExactWithFractions) {
    const AssignmentAverage average = averageOf(texts({"2.03", "0.1", "0.2", "7"}), 10);
    EXPECT_EQ(average.sum.text(), "9.33");
    EXPECT_EQ(average.scoreTenths(), Decimal(23)) << "2.3325";
    EXPECT_EQ(average.percentTenths(), Decimal(233));
    EXPECT_EQ(averageOf(texts({"0.1", "0.2"}), 3).percentTenths(), Decimal(50)) << "0.15 of 3";
}

TEST(AssignmentAverage, CutsTowardMinusInfinity) {
    EXPECT_EQ(averageOf(texts({"-1", "0", "0"}), 10).scoreTenths(), Decimal(-4));
    EXPECT_EQ(averageOf(texts({"1", "0", "0"}), -10).percentTenths(), Decimal(-34));
}

TEST(AssignmentAverage, IsExactBeyondWhatASumOfPointsHolds) {
    const AssignmentAverage average =
        averageOf(texts({"99999999999999999999", "1000000", "-1000000", "999999", "2"}), 1);
    EXPECT_EQ(average.sum.text(), "100000000000001000000");
    EXPECT_EQ(average.scoreTenths().tenthsText(), "20000000000000200000");
}

TEST(AssignmentAverage, ReadsNumbersOfAnyType) {
    const AssignmentAverage average =
        averageOf({Score(TaggedValue(std::int32_t{2000000})), Score(TaggedValue(0.1F)),
                   Score(TaggedValue(-0.1)), Score(TaggedValue(std::int16_t{-5}))},
                  10);
    EXPECT_EQ(average.sum, Decimal(1999995));
}

}  // namespace
}  // namespace quorvel
