#include <algorithm>
#include <cmath>
#include <random>

#include "core/GradeSheet.h"
#include "core/Numbers.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

const GradingScale usual;
const GradingScale roundingUp{.roundUp = GradingScale::roundUpOn};

Score text(std::string_view value) {
    return Score::ofText(value);
}

/// A class whose students have the given percentages, in tenths: one assignment worth 1000.
GradeSheet classWith(const std::vector<int>& percentages) {
    GradeSheet sheet;
    sheet.addAssignment("Exam", 1000);
    for (const int percentage : percentages) {
        sheet.addStudent("Student", "S");
        sheet.setScore(1, sheet.studentCount(), text(std::to_string(percentage)));
    }
    return sheet;
}

/// The figures of the only student whose scores are these texts: "" is an empty cell.
StudentFigures figuresOf(const std::vector<std::string>& scores,
                         const std::vector<std::int16_t>& values) {
    GradeSheet sheet;
    sheet.addStudent("Doe, Jane", "Jane");
    for (std::size_t i = 0; i < scores.size(); ++i) {
        sheet.addAssignment("Assignment", values[i]);
        if (!scores[i].empty()) sheet.setScore(sheet.assignmentCount(), 1, text(scores[i]));
    }
    sheet.recomputeFigures(usual);
    return sheet.figures(1);
}

std::vector<int> ranks(const std::vector<int>& percentages) {
    GradeSheet sheet = classWith(percentages);
    sheet.recomputeFigures(usual);
    std::vector<int> result;
    for (int s = 1; s <= sheet.studentCount(); ++s) result.push_back(sheet.figures(s).rank);
    return result;
}

std::int64_t averageOf(const std::vector<int>& percentages) {
    GradeSheet sheet = classWith(percentages);
    sheet.recomputeFigures(usual);
    return sheet.classAverage().value().tenths;
}

char letterAt(int tenths, const GradingScale& scale) {
    GradeSheet sheet = classWith({tenths});
    sheet.recomputeFigures(scale);
    return static_cast<char>(sheet.figures(1).letterGrade);
}

TEST(Figures, AddUpScoresAndValues) {
    const StudentFigures figures = figuresOf({"17", "8"}, {20, 10});
    EXPECT_EQ(figures.pointsEarned, 25);
    EXPECT_EQ(figures.pointsPossible, 30);
    EXPECT_EQ(figures.percentageTenths, 833);
    EXPECT_EQ(figures.letterGrade, LetterGrade::C);
    EXPECT_EQ(figures.rank, 1);
}

TEST(Figures, CutThePercentageToTenths) {
    EXPECT_EQ(figuresOf({"17"}, {18}).percentageTenths, 944);
    EXPECT_EQ(figuresOf({"2"}, {3}).percentageTenths, 666);
    EXPECT_EQ(figuresOf({"57"}, {100}).percentageTenths, 570);
    EXPECT_EQ(figuresOf({"29"}, {100}).percentageTenths, 290);
    EXPECT_EQ(figuresOf({"-1"}, {3}).percentageTenths, -334);
    EXPECT_EQ(figuresOf({"1"}, {-3}).percentageTenths, -334);
    EXPECT_EQ(figuresOf({"25"}, {20}).percentageTenths, 1250);
    EXPECT_EQ(figuresOf({"32767"}, {1}).percentageTenths, 32767000);
    EXPECT_EQ(figuresOf({"-32768"}, {1}).percentageTenths, -32768000);
}

TEST(Figures, AreExactForEveryScoreOfEveryValue) {
    for (int value = 1; value <= 200; ++value) {
        GradeSheet sheet;
        sheet.addAssignment("Quiz", static_cast<std::int16_t>(value));
        for (int score = 0; score <= value; ++score) {
            sheet.addStudent("Student", "S");
            sheet.setScore(1, score + 1, text(std::to_string(score)));
        }
        sheet.recomputeFigures(usual);
        for (int score = 0; score <= value; ++score) {
            const int tenths = sheet.figures(score + 1).percentageTenths;
            EXPECT_LE(tenths * value, score * 1000) << score << " of " << value;
            EXPECT_GT((tenths + 1) * value, score * 1000) << score << " of " << value;
        }
    }
}

TEST(Figures, CountAnEmptyScoreAsZeroOfTheFullValue) {
    const StudentFigures figures = figuresOf({"10", ""}, {10, 10});
    EXPECT_EQ(figures.pointsEarned, 10);
    EXPECT_EQ(figures.pointsPossible, 20);
    EXPECT_EQ(figures.percentageTenths, 500);
}

TEST(Figures, CountAnEmptyScoreBeforeAStoredOneToo) {
    GradeSheet sheet;
    sheet.addStudent("a", "a");
    sheet.addStudent("b", "b");
    sheet.addAssignment("Quiz", 10);
    sheet.setScore(1, 2, text("10"));
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.figures(1).pointsPossible, 10);
    EXPECT_EQ(sheet.figures(1).percentageTenths, 0);
    EXPECT_EQ(sheet.figures(2).percentageTenths, 1000);
}

TEST(Figures, LeaveAnExcusedScoreOutOfBothSums) {
    const StudentFigures figures = figuresOf({"5", "E", "8"}, {10, 50, 10});
    EXPECT_EQ(figures.pointsEarned, 13);
    EXPECT_EQ(figures.pointsPossible, 20);
}

TEST(Figures, ReadATextThatIsNotWhollyANumberAsZeroOfTheFullValue) {
    const StudentFigures figures = figuresOf({"e", "7x", " 7 of 10", " 5 "}, {10, 10, 10, 10});
    EXPECT_EQ(figures.pointsEarned, 5);
    EXPECT_EQ(figures.pointsPossible, 40);
}

TEST(Figures, AreAHundredPercentWhereNothingIsPossible) {
    const StudentFigures excused = figuresOf({"E", "E"}, {10, 20});
    EXPECT_EQ(excused.pointsPossible, 0);
    EXPECT_EQ(excused.percentageTenths, 1000);
    EXPECT_EQ(excused.letterGrade, LetterGrade::A);
    EXPECT_EQ(figuresOf({}, {}).percentageTenths, 1000);
    EXPECT_EQ(figuresOf({"5"}, {0}).percentageTenths, 1000);
    EXPECT_EQ(figuresOf({"5", "5"}, {10, -10}).percentageTenths, 1000);
}

TEST(Figures, RoundEachAdditionWithHalvesToEven) {
    const std::int16_t value = 10;
    const auto earned = [&](const std::vector<std::string>& scores) {
        return figuresOf(scores, std::vector<std::int16_t>(scores.size(), value)).pointsEarned;
    };
    EXPECT_EQ(earned({"2.5"}), 2);
    EXPECT_EQ(earned({"3.5"}), 4);
    EXPECT_EQ(earned({"1", "2.5"}), 4) << "3.5 goes to 4";
    EXPECT_EQ(earned({"2", "2.5"}), 4) << "4.5 goes to 4";
    EXPECT_EQ(earned({"-2.5"}), -2);
    EXPECT_EQ(earned({"-3.5"}), -4);
    EXPECT_EQ(earned({"-0.5"}), 0);
    EXPECT_EQ(earned({"7.49"}), 7);
    EXPECT_EQ(earned({"7.51"}), 8);
    EXPECT_EQ(earned({"0.4", "0.4", "0.4", "0.4"}), 0) << "each addition is rounded by itself";
    EXPECT_EQ(earned({"0.6", "0.6", "0.6", "0.6"}), 4);
    EXPECT_EQ(earned({"0.5", "0.5", "0.5"}), 0);
    EXPECT_EQ(earned({"0.50000000000000000001", "1"}), 2);
    EXPECT_EQ(earned({"1", "0.49999999999999999999"}), 1);
}

TEST(Figures, CountAFractionOfAnyType) {
    GradeSheet sheet;
    sheet.addStudent("Doe", "D");
    sheet.addAssignment("Quiz", 10);
    sheet.addAssignment("Quiz", 10);
    sheet.addAssignment("Quiz", 10);
    sheet.setScore(1, 1, Score(TaggedValue(std::int32_t{3})));
    sheet.setScore(2, 1, Score(TaggedValue(2.5F)));
    sheet.setScore(3, 1, Score(TaggedValue(0.75)));
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.figures(1).pointsEarned, 7) << "3 + 2.5 goes to 6, 6 + 0.75 to 7";
}

TEST(Figures, SkipAnAdditionThatDoesNotFitInto16Bits) {
    EXPECT_EQ(figuresOf({"32767", "1"}, {1, 1}).pointsEarned, 32767);
    EXPECT_EQ(figuresOf({"32766", "1"}, {1, 1}).pointsEarned, 32767);
    EXPECT_EQ(figuresOf({"32766", "2", "1"}, {1, 1, 1}).pointsEarned, 32767)
        << "only the addition that does not fit is skipped";
    EXPECT_EQ(figuresOf({"32767", "0.49"}, {1, 1}).pointsEarned, 32767);
    EXPECT_EQ(figuresOf({"32767", "0.5"}, {1, 1}).pointsEarned, 32767);
    EXPECT_EQ(figuresOf({"32767.5"}, {1}).pointsEarned, 0);
    EXPECT_EQ(figuresOf({"32766.5"}, {1}).pointsEarned, 32766);
    EXPECT_EQ(figuresOf({"5", "40000"}, {1, 1}).pointsEarned, 5);
    EXPECT_EQ(figuresOf({"5", "99999999999999999999"}, {1, 1}).pointsEarned, 5);
    EXPECT_EQ(figuresOf({"-5", "-99999999999999999999"}, {1, 1}).pointsEarned, -5);
    EXPECT_EQ(figuresOf({"-32768", "-1"}, {1, 1}).pointsEarned, -32768);
    EXPECT_EQ(figuresOf({"-32768", "-0.5"}, {1, 1}).pointsEarned, -32768);
    EXPECT_EQ(figuresOf({"-32769"}, {1}).pointsEarned, 0);
}

TEST(Figures, SkipAValueThatDoesNotFitInto16Bits) {
    EXPECT_EQ(figuresOf({"1", "1"}, {32767, 1}).pointsPossible, 32767);
    EXPECT_EQ(figuresOf({"1", "1", "1"}, {32000, 800, 700}).pointsPossible, 32700);
    EXPECT_EQ(figuresOf({"1", "1"}, {-32768, -1}).pointsPossible, -32768);
    EXPECT_EQ(figuresOf({"", "", ""}, {32000, 800, 700}).pointsPossible, 32700)
        << "without a stored cell";
    const StudentFigures skipped = figuresOf({"1", "2"}, {32767, 1});
    EXPECT_EQ(skipped.pointsEarned, 3) << "the score of a skipped value still counts";
}

TEST(Figures, GiveTheLetterOfTheWorkedOutPercentage) {
    EXPECT_EQ(letterAt(940, usual), 'A');
    EXPECT_EQ(letterAt(939, usual), 'B');
    EXPECT_EQ(letterAt(600, usual), 'E');
    EXPECT_EQ(letterAt(599, usual), 'F');
    EXPECT_EQ(letterAt(935, roundingUp), 'A');
    EXPECT_EQ(letterAt(934, roundingUp), 'B');
    EXPECT_EQ(letterAt(855, roundingUp), 'B');
    EXPECT_EQ(letterAt(755, roundingUp), 'C');
    EXPECT_EQ(letterAt(754, roundingUp), 'D');
    EXPECT_EQ(letterAt(595, roundingUp), 'E');
    EXPECT_EQ(letterAt(594, roundingUp), 'F');
}

TEST(ClassAverage, IsTheMeanWithExactHalvesToTheEvenTenth) {
    EXPECT_EQ(averageOf({500}), 500);
    EXPECT_EQ(averageOf({852, 853}), 852) << "85.25";
    EXPECT_EQ(averageOf({853, 854}), 854) << "85.35";
    EXPECT_EQ(averageOf({853, 854, 854}), 854) << "85.366...";
    EXPECT_EQ(averageOf({853, 853, 854}), 853) << "85.333...";
    EXPECT_EQ(averageOf({0, 1}), 0) << "0.05";
    EXPECT_EQ(averageOf({1, 2}), 2) << "0.15";
    EXPECT_EQ(averageOf({-1, 0}), 0) << "-0.05";
    EXPECT_EQ(averageOf({-2, -1}), -2) << "-0.15";
    EXPECT_EQ(averageOf({1000, 1000, 1000}), 1000);
    EXPECT_EQ(averageOf({1, 0, 0, 0, 1, 0, 0, 0}), 0) << "0.025";
    EXPECT_EQ(averageOf({12, 13, 12, 12}), 12) << "1.225";
    EXPECT_EQ(averageOf({32767, -30000}), 1384) << "138.35";
}

TEST(ClassAverage, HasItsOwnLetter) {
    GradeSheet sheet = classWith({935, 944});
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.classAverage(), (ClassAverage{.tenths = 940, .letterGrade = LetterGrade::A}));
    sheet = classWith({935, 936});
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.classAverage(), (ClassAverage{.tenths = 936, .letterGrade = LetterGrade::B}));
    sheet.recomputeFigures(roundingUp);
    EXPECT_EQ(sheet.classAverage(), (ClassAverage{.tenths = 936, .letterGrade = LetterGrade::A}));
}

TEST(ClassAverage, StaysAsItWasWithoutStudents) {
    GradeSheet sheet = classWith({853});
    sheet.recomputeFigures(usual);
    sheet.removeStudent(1);
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.classAverage(), (ClassAverage{.tenths = 853, .letterGrade = LetterGrade::C}));
    GradeSheet fresh;
    fresh.addAssignment("Quiz", 10);
    fresh.recomputeFigures(usual);
    EXPECT_EQ(fresh.classAverage(), std::nullopt);
}

TEST(Ranks, AreSharedByEqualPercentagesAndSkippedBehindThem) {
    EXPECT_EQ(ranks({900}), (std::vector{1}));
    EXPECT_EQ(ranks({900, 900, 800}), (std::vector{1, 1, 3}));
    EXPECT_EQ(ranks({900, 900, 900, 800}), (std::vector{1, 1, 1, 4}));
    EXPECT_EQ(ranks({900, 800, 800, 800}), (std::vector{1, 2, 2, 2}));
    EXPECT_EQ(ranks({800, 900, 700, 900}), (std::vector{3, 1, 4, 1}));
    EXPECT_EQ(ranks({100, 200, 300, 400}), (std::vector{4, 3, 2, 1}));
    EXPECT_EQ(ranks({0, 0, 0}), (std::vector{1, 1, 1}));
    EXPECT_EQ(ranks({-5, 0, -5, 1200}), (std::vector{3, 2, 3, 1}));
}

TEST(Ranks, AreOnePlusTheNumberOfBetterStudents) {
    std::mt19937 random(7);
    std::vector<int> percentages(400);
    for (int& percentage : percentages) percentage = static_cast<int>(random() % 150);
    const std::vector<int> found = ranks(percentages);
    for (std::size_t i = 0; i < percentages.size(); ++i)
        EXPECT_EQ(found[i], 1 + std::ranges::count_if(percentages, [&](int other) {
                                return other > percentages[i];
                            }));
}

/// Scores whose fractions are quarters are exact in floating point, where the processor's own
/// rounding, halves to even, is a second way to find the sums.
TEST(Figures, AgreeWithAddingScoreByScore) {
    std::mt19937 random(11);
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    constexpr int students = 60;
    constexpr int assignments = 80;
    GradeSheet sheet;
    sheet.recreate(students, assignments);
    std::vector<double> earned(students + 1);
    std::vector<double> possible(students + 1);
    const auto add = [](double& sum, double summand) {
        const double result = std::nearbyint(sum + summand);
        if (result >= -32768 && result <= 32767) sum = result;
    };
    for (int a = 1; a <= assignments; ++a) {
        const auto value = static_cast<std::int16_t>(below(8) == 0 ? below(30000) : below(100));
        sheet.setAssignment(a, "Assignment", value);
        for (int s = 1; s <= students; ++s) {
            const auto row = static_cast<std::size_t>(s);
            const int kind = below(10);
            const int quarters = kind == 2 ? below(130000) - 65000 : below(400) - 100;
            if (kind == 0) sheet.setScore(a, s, Score::excused());
            if (kind > 1) sheet.setScore(a, s, text(decimalText(quarters / 4.0)));
            if (kind > 1) add(earned[row], quarters / 4.0);
            if (kind > 0) add(possible[row], value);
        }
    }
    sheet.recomputeFigures(usual);
    for (int s = 1; s <= students; ++s) {
        EXPECT_EQ(sheet.figures(s).pointsEarned, earned[static_cast<std::size_t>(s)]) << s;
        EXPECT_EQ(sheet.figures(s).pointsPossible, possible[static_cast<std::size_t>(s)]) << s;
    }
}

TEST(Figures, FollowTheScoresEachTimeTheyAreRecomputed) {
    GradeSheet sheet = classWith({500, 600});
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.figures(1).rank, 2);
    sheet.setScore(1, 1, text("700"));
    EXPECT_EQ(sheet.figures(1).percentageTenths, 500) << "figures are those last computed";
    sheet.recomputeFigures(usual);
    EXPECT_EQ(sheet.figures(1).percentageTenths, 700);
    EXPECT_EQ(sheet.figures(1).rank, 1);
    EXPECT_EQ(sheet.figures(2).rank, 2);
}

}  // namespace
}  // namespace quorvel
