#include "core/GradingScale.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

GradingScale scaleWith(std::array<std::int16_t, 5> minimums, std::string roundUp) {
    return {.minimums = minimums, .roundUp = std::move(roundUp)};
}

/// The grade as its letter, so that a failure shows it.
char letter(const GradingScale& scale, std::int64_t tenths) {
    return static_cast<char>(LetterThresholds(scale).letterFor(tenths));
}

TEST(GradingScale, StartsWithTheUsualMinimumsAndWithoutRounding) {
    const GradingScale scale;
    EXPECT_EQ(scale.minimums, (std::array<std::int16_t, 5>{94, 86, 76, 70, 60}));
    EXPECT_EQ(scale.roundUp, "0");
}

TEST(GradingScale, GivesTheHigherGradeExactlyOnAThreshold) {
    const GradingScale scale;
    struct Case {
        std::int64_t tenths;
        char letter;
    };
    const Case cases[] = {{1000, 'A'}, {1005, 'A'}, {940, 'A'}, {939, 'B'}, {860, 'B'},
                          {859, 'C'},  {760, 'C'},  {759, 'D'}, {700, 'D'}, {699, 'E'},
                          {600, 'E'},  {599, 'F'},  {0, 'F'},   {-100, 'F'}};
    for (const Case& c : cases) EXPECT_EQ(letter(scale, c.tenths), c.letter) << c.tenths;
}

TEST(GradingScale, LowersEveryThresholdByHalfAPointWhenRoundingUp) {
    const GradingScale scale = scaleWith(GradingScale::defaultMinimums, GradingScale::roundUpOn);
    struct Case {
        std::int64_t tenths;
        char letter;
    };
    const Case cases[] = {{935, 'A'}, {934, 'B'}, {855, 'B'}, {854, 'C'}, {755, 'C'},
                          {754, 'D'}, {695, 'D'}, {694, 'E'}, {595, 'E'}, {594, 'F'}};
    for (const Case& c : cases) EXPECT_EQ(letter(scale, c.tenths), c.letter) << c.tenths;
}

TEST(GradingScale, ReadsTheAllowanceAsTheNumberOfItsText) {
    const auto gradeA = [](const char* allowance, std::int64_t tenths) {
        return letter(scaleWith({94, 0, 0, 0, 0}, allowance), tenths) == 'A';
    };
    EXPECT_TRUE(gradeA("", 940));
    EXPECT_FALSE(gradeA("", 939));
    EXPECT_FALSE(gradeA("x", 939));
    // A threshold of 93.75 is reached by 93.8, not by 93.7.
    EXPECT_TRUE(gradeA("0.25", 938));
    EXPECT_FALSE(gradeA("0.25", 937));
    EXPECT_TRUE(gradeA(" .50 points", 935));
    EXPECT_TRUE(gradeA("-1", 950));
    EXPECT_FALSE(gradeA("-1", 949));
    // 94.25 is reached by 94.3, not by 94.2.
    EXPECT_TRUE(gradeA("-0.25", 943));
    EXPECT_FALSE(gradeA("-0.25", 942));
    EXPECT_TRUE(gradeA("99999999999999999999999", -32768000));
    EXPECT_FALSE(gradeA("-99999999999999999999999", 32767000));
}

TEST(GradingScale, LetsTheBestReachedGradeWinWhereMinimumsDoNotDescend) {
    EXPECT_EQ(letter(scaleWith({50, 90, 80, 70, 60}, "0"), 550), 'A');
    EXPECT_EQ(letter(scaleWith({90, 50, 80, 70, 60}, "0"), 550), 'B');
    EXPECT_EQ(letter(scaleWith({90, 80, 70, 60, 95}, "0"), 600), 'D');
    EXPECT_EQ(letter(scaleWith({0, 0, 0, 0, 0}, "0"), 0), 'A');
    EXPECT_EQ(letter(scaleWith({-5, 0, 0, 0, 0}, "0"), -50), 'A');
    EXPECT_EQ(letter(scaleWith({101, 101, 101, 101, 101}, "0"), 1000), 'F');
}

}  // namespace
}  // namespace quorvel
