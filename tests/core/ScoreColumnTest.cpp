#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "ColumnScores.h"

namespace quorvel {
namespace {

TEST(ScoreColumn, GivesBackExactlyWhatWasSet) {
    const Score scores[] = {
        Score(),
        Score::zero(),
        number(-32768),
        number(32767),
        Score(TaggedValue(std::int32_t{0})),
        Score(TaggedValue(std::numeric_limits<std::int32_t>::min())),
        Score(TaggedValue(2.03F)),
        Score(TaggedValue(std::numeric_limits<float>::infinity())),
        Score(TaggedValue(0.1)),
        Score(TaggedValue(5e-324)),
        text(""),
        text("E"),
        text("17"),
        text("007"),
        text("12345678"),
        text("123456789"),
        text(std::string("a\0b", 3)),
        text(std::string("\0\0\0\0\0\0\0\0", 8)),
        text(longText),
        text(std::string(1000, '9')),
        text("\xC9t\xE9"),
    };
    ScoreColumn column;
    int student = 0;
    for (const Score& score : scores) column.setScore(++student, score);
    student = 0;
    for (const Score& score : scores) EXPECT_EQ(column.score(++student), score) << student;
}

TEST(ScoreColumn, TellsAWholeNumberFromItsText) {
    ScoreColumn column;
    column.setScore(1, number(5));
    column.setScore(2, Score(TaggedValue(std::int32_t{5})));
    column.setScore(3, text("5"));
    column.setScore(4, Score(TaggedValue(5.0F)));
    column.setScore(5, Score(TaggedValue(5.0)));
    for (int student = 1; student <= 5; ++student)
        EXPECT_EQ(
            column.score(student).value().index(),
            (std::array<std::size_t, 5>{1, 2, 5, 3, 4})[static_cast<std::size_t>(student - 1)])
            << student;
}

TEST(ScoreColumn, KeepsEveryBitOfAReal) {
    const auto quietNan = std::bit_cast<double>(std::uint64_t{0x7FF8DEADBEEF1234});
    const auto singleNan = std::bit_cast<float>(std::uint32_t{0x7FC12345});
    ScoreColumn column;
    column.setScore(1, Score(TaggedValue(quietNan)));
    column.setScore(2, Score(TaggedValue(singleNan)));
    column.setScore(3, Score(TaggedValue(-0.0)));
    const Score first = column.score(1);
    const Score second = column.score(2);
    const Score third = column.score(3);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(std::get<double>(first.value())), 0x7FF8DEADBEEF1234u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(std::get<float>(second.value())), 0x7FC12345u);
    EXPECT_TRUE(std::signbit(std::get<double>(third.value())));
}

TEST(ScoreColumn, ReplacesALongTextByAnything) {
    ScoreColumn column;
    column.setScore(1, text(longText));
    column.setScore(1, text(longText + "!"));
    EXPECT_EQ(column.score(1), text(longText + "!"));
    column.setScore(1, text("5"));
    EXPECT_EQ(column.score(1), text("5"));
    column.setScore(1, text(longText));
    column.setScore(1, Score());
    EXPECT_EQ(column.score(1), Score());
    column.setScore(1, text(longText));
    EXPECT_EQ(column.score(1), text(longText));
}

TEST(ScoreColumn, StoresNothingForEmptyCellsBehindTheOthers) {
    ScoreColumn column;
    EXPECT_EQ(column.storedCount(), 0);
    column.setScore(32767, Score());
    EXPECT_EQ(column.storedCount(), 0);
    column.setScore(3, text("5"));
    EXPECT_EQ(column.storedCount(), 3);
    column.setScore(4, Score());
    EXPECT_EQ(column.storedCount(), 3);
    EXPECT_EQ(texts(column, 5), (Texts{"-", "-", "5", "-", "-"}));
    EXPECT_TRUE(column.points(1).empty);
    EXPECT_FALSE(column.points(3).empty);
}

TEST(ScoreColumn, FindsTheNumberThatACellCountsAs) {
    struct Case {
        Score score;
        std::int32_t whole;
        Fraction fraction;
    };
    const Case cases[] = {
        {number(7), 7, Fraction::None},
        {number(-7), -7, Fraction::None},
        {Score(TaggedValue(std::int32_t{70000})), 70000, Fraction::None},
        {text("17"), 17, Fraction::None},
        {text("007"), 7, Fraction::None},
        {text("999999"), 999999, Fraction::None},
        {text("-7"), -7, Fraction::None},
        {text(" 7 "), 7, Fraction::None},
        {text("7.0"), 7, Fraction::None},
        {text("7.3"), 7, Fraction::BelowHalf},
        {text("7.49999999999999999999"), 7, Fraction::BelowHalf},
        {text("7.5"), 7, Fraction::Half},
        {text("7.50000000000000000000"), 7, Fraction::Half},
        {text("7.50000000000000000001"), 7, Fraction::AboveHalf},
        {text("7.9"), 7, Fraction::AboveHalf},
        {text("-0.3"), -1, Fraction::AboveHalf},
        {text("-0.5"), -1, Fraction::Half},
        {text("-0.7"), -1, Fraction::BelowHalf},
        {text("-2.5"), -3, Fraction::Half},
        {text("0.00000000000000000000000001"), 0, Fraction::BelowHalf},
        {text("absent"), 0, Fraction::None},
        {text(""), 0, Fraction::None},
        {text("e"), 0, Fraction::None},
        {text("1e5"), 0, Fraction::None},
        {text("12:30"), 0, Fraction::None},
        {text("7x"), 0, Fraction::None},
        {text("7.5."), 0, Fraction::None},
        {text("1000000"), 1000000, Fraction::None},
        {text("1000001"), 1000000, Fraction::None},
        {text("99999999999999999999999"), 1000000, Fraction::None},
        {text("-99999999999999999999999"), -1000000, Fraction::None},
        {Score(TaggedValue(8.25F)), 8, Fraction::BelowHalf},
        {Score(TaggedValue(-1e300)), -1000000, Fraction::None},
        {Score(TaggedValue(std::numeric_limits<double>::quiet_NaN())), 0, Fraction::None},
        {text(longText), 0, Fraction::None},
        {text("12.34567890123456789012345"), 12, Fraction::BelowHalf},
    };
    for (const Case& c : cases) {
        const CellPoints points = pointsOf(c.score);
        EXPECT_EQ(points.whole, c.whole) << c.score.text();
        EXPECT_EQ(points.fraction, c.fraction) << c.score.text();
        EXPECT_FALSE(points.excused) << c.score.text();
        EXPECT_FALSE(points.empty) << c.score.text();
    }
}

TEST(ScoreColumn, MarksExcusedAndEmptyCells) {
    EXPECT_TRUE(pointsOf(Score::excused()).excused);
    EXPECT_FALSE(pointsOf(Score::excused()).empty);
    EXPECT_EQ(pointsOf(Score::excused()).whole, 0);
    EXPECT_TRUE(pointsOf(Score()).empty);
    EXPECT_FALSE(pointsOf(Score()).excused);
    EXPECT_EQ(pointsOf(Score()).whole, 0);
}

TEST(ScoreColumn, AddsUpItsNumericScoresExactly) {
    struct Case {
        std::vector<Score> scores;
        const char* sum;
        int count;
    };
    const Case cases[] = {
        {{}, "0", 0},
        {{Score(), Score::excused()}, "0", 0},
        {{text("17"), Score(), text("-999999"), Score::excused(), Score::zero()}, "-999982", 3},
        {{text("17.25"), text("1.5"), text("2")}, "20.75", 3},
        {{text("007"), text("2.50 "), text("x"), text("-.5")}, "9", 4},
        {{text("5000000"), text("-7000000.5"), text("absent")}, "-2000000.5", 3},
    };
    for (const Case& c : cases) {
        ScoreColumn column;
        for (std::size_t i = 0; i < c.scores.size(); ++i)
            column.setScore(static_cast<int>(i) + 1, c.scores[i]);
        const auto [sum, count] = column.numericSum();
        EXPECT_EQ(sum.text(), c.sum);
        EXPECT_EQ(count, c.count) << c.sum;
    }
    ScoreColumn zeros;
    zeros.fillEmpty(5);
    EXPECT_EQ(zeros.numericSum().count, 5) << "zeros that are not stored count";
}

TEST(ScoreColumn, ForgetsTheCellsBehindASmallerCount) {
    ScoreColumn column;
    for (int student = 1; student <= 4; ++student) column.setScore(student, text(longText));
    column.shrinkTo(9);
    EXPECT_EQ(column.storedCount(), 4);
    column.shrinkTo(2);
    EXPECT_EQ(texts(column, 4), (Texts{longText, longText, "-", "-"}));
    column.setScore(4, text("5"));
    EXPECT_EQ(texts(column, 4), (Texts{longText, longText, "-", "5"}));
    column.shrinkTo(0);
    EXPECT_EQ(column.storedCount(), 0);
}

TEST(ScoreColumn, MovesLaterCellsUpWhenOneIsTakenOut) {
    ScoreColumn column;
    column.setScore(1, text("a long text of its own: 1"));
    column.setScore(2, text("2"));
    column.setScore(3, text("a long text of its own: 3"));
    column.setScore(4, text("a long text of its own: 4"));
    column.setScore(6, text("6"));
    column.remove(2);
    EXPECT_EQ(texts(column, 6), (Texts{"a long text of its own: 1", "a long text of its own: 3",
                                       "a long text of its own: 4", "-", "6", "-"}));
    EXPECT_EQ(column.storedCount(), 5);
    EXPECT_EQ(column.points(5).whole, 6);
    column.remove(2);
    EXPECT_EQ(texts(column, 4),
              (Texts{"a long text of its own: 1", "a long text of its own: 4", "-", "6"}));
    column.remove(20);
    EXPECT_EQ(column.storedCount(), 4);
}

TEST(ScoreColumn, DropsTheLastCellWhenThatIsTakenOut) {
    ScoreColumn column;
    column.setScore(1, text("1"));
    column.setScore(2, text(longText));
    column.remove(2);
    EXPECT_EQ(texts(column, 2), (Texts{"1", "-"}));
    column.setScore(2, text("2"));
    EXPECT_EQ(texts(column, 2), (Texts{"1", "2"}));
}

TEST(ScoreColumn, TakesANewOrder) {
    ScoreColumn column;
    column.setScore(1, text("1"));
    column.setScore(2, text("a long text of its own: 2"));
    column.setScore(3, text("3.5"));
    const std::vector<int> order{5, 2, 4, 1, 3};
    column.reorder(order);
    EXPECT_EQ(texts(column, 5), (Texts{"-", "a long text of its own: 2", "-", "1", "3.5"}));
    EXPECT_EQ(column.points(5).fraction, Fraction::Half);
    const std::vector<int> back{4, 2, 5, 1, 3};
    column.reorder(back);
    EXPECT_EQ(texts(column, 5), (Texts{"1", "a long text of its own: 2", "3.5", "-", "-"}));
    EXPECT_EQ(column.storedCount(), 3) << "empty cells behind the last are not stored";
}

TEST(ScoreColumn, StaysEmptyInAnyOrder) {
    ScoreColumn column;
    column.reorder(std::vector<int>{3, 1, 2});
    column.remove(1);
    EXPECT_EQ(column.storedCount(), 0);
}

TEST(ScoreColumn, FillsItsEmptyCellsWithZerosAndStoresNoneBehindItsOwn) {
    ScoreColumn column;
    column.fillEmpty(32767);
    EXPECT_EQ(column.storedCount(), 0);
    EXPECT_EQ(column.zeroCount(), 32767);
    EXPECT_EQ(column.score(1), Score::zero());
    EXPECT_EQ(column.score(32767), Score::zero());
    EXPECT_EQ(column.score(32768), Score());

    ScoreColumn some;
    some.setScore(3, text("5"));
    some.setScore(2, Score::excused());
    some.fillEmpty(5);
    EXPECT_EQ(texts(some, 6), (Texts{"0", "E", "5", "0", "0", "-"}));
    EXPECT_EQ(some.score(1), Score::zero());
    EXPECT_EQ(some.points(1).whole, 0);
    EXPECT_FALSE(some.points(1).empty);
    EXPECT_EQ(some.storedCount(), 3);
    EXPECT_EQ(some.zeroCount(), 2);
}

TEST(ScoreColumn, StoresNoZerosThatComeOneBehindTheOther) {
    ScoreColumn column;
    column.setScore(1, text("7"));
    for (int student = 2; student <= 4; ++student) column.setScore(student, Score::zero());
    EXPECT_EQ(column.storedCount(), 1);
    column.setScore(3, Score::zero());
    EXPECT_EQ(column.storedCount(), 1);
    column.setScore(3, Score());
    EXPECT_EQ(texts(column, 5), (Texts{"7", "0", "-", "0", "-"}));
    column.setScore(6, Score::zero());
    EXPECT_EQ(texts(column, 7), (Texts{"7", "0", "-", "0", "-", "0", "-"}));
    column.setScore(4, text("4"));
    EXPECT_EQ(texts(column, 7), (Texts{"7", "0", "-", "4", "-", "0", "-"}));
}

TEST(ScoreColumn, MovesItsZerosWithTheirStudents) {
    const auto column = [] {
        ScoreColumn made;
        made.setScore(2, text(longText));
        made.fillEmpty(4);
        return made;
    };
    ScoreColumn shorter = column();
    shorter.remove(3);
    EXPECT_EQ(texts(shorter, 4), (Texts{"0", longText, "0", "-"}));
    shorter.remove(1);
    EXPECT_EQ(texts(shorter, 4), (Texts{longText, "0", "-", "-"}));
    shorter.remove(3);
    EXPECT_EQ(texts(shorter, 3), (Texts{longText, "0", "-"}));

    ScoreColumn cut = column();
    cut.shrinkTo(3);
    EXPECT_EQ(texts(cut, 4), (Texts{"0", longText, "0", "-"}));
    cut.shrinkTo(1);
    EXPECT_EQ(texts(cut, 3), (Texts{"0", "-", "-"}));

    ScoreColumn ordered = column();
    ordered.reorder(std::vector<int>{5, 4, 2, 1, 3});
    EXPECT_EQ(texts(ordered, 6), (Texts{"-", "0", longText, "0", "0", "-"}));
    EXPECT_EQ(ordered.score(2), Score::zero());
}

TEST(ScoreColumn, ReadsTheSameAsPlainCellsWhateverIsDone) {
    std::mt19937 random(14);
    const Score values[] = {Score(),   Score::zero(), Score::zero(), text("5"),
                            text("E"), text("7.5"),   text("99999"), text(longText)};
    const Score smallOnes[] = {Score(),     Score::zero(), text("5"),
                               text("007"), text("-1"),    text("99999999")};
    constexpr int most = 12;
    for (int round = 0; round < 300; ++round) {
        ScoreColumn column;
        std::vector<Score> plain(most);
        const auto student = [&] { return static_cast<int>(random() % plain.size()) + 1; };
        for (int step = 0; step < 30 && plain.size() > 2; ++step) {
            const auto action = random() % 13;
            if (action < 8) {
                const int s = student();
                const Score& value = values[random() % std::size(values)];
                column.setScore(s, value);
                plain[static_cast<std::size_t>(s) - 1] = value;
            } else if (action == 8) {
                column.fillEmpty(static_cast<int>(plain.size()));
                for (Score& score : plain)
                    if (score.isEmpty()) score = Score::zero();
            } else if (action == 9) {
                const int s = student();
                column.remove(s);
                plain.erase(plain.begin() + s - 1);
            } else if (action == 10) {
                plain.pop_back();
                column.shrinkTo(static_cast<int>(plain.size()));
            } else if (action == 11) {
                const int first = student();
                std::vector<SmallValue> taken;
                const int last = std::max(first, student());
                for (int s = first; s <= last; ++s) {
                    const Score& value = smallOnes[random() % std::size(smallOnes)];
                    taken.emplace_back(value.view());
                    plain[static_cast<std::size_t>(s) - 1] = value;
                }
                column.setValues(first, taken);
            } else {
                std::vector<int> order(plain.size());
                std::iota(order.begin(), order.end(), 1);
                std::ranges::shuffle(order, random);
                column.reorder(order);
                std::vector<Score> moved;
                moved.reserve(order.size());
                for (const int s : order) moved.push_back(plain[static_cast<std::size_t>(s) - 1]);
                plain = moved;
            }
            Decimal sum;
            for (const Score& score : plain)
                if (score.isNumeric()) sum += score.reading();
            ASSERT_EQ(column.numericSum().sum, sum) << "round " << round << ", step " << step;
            for (int s = 1; s <= most; ++s)
                ASSERT_EQ(column.score(s), s <= static_cast<int>(plain.size())
                                               ? plain[static_cast<std::size_t>(s) - 1]
                                               : Score())
                    << "round " << round << ", step " << step << ", student " << s;
        }
    }
}

}  // namespace
}  // namespace quorvel
