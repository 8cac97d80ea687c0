#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ColumnScores.h"

// What a column does with many students at once: whole columns are read, written and added up.

namespace quorvel {
namespace {

std::vector<SmallValue> smallValues(const std::vector<Score>& scores) {
    std::vector<SmallValue> values;
    values.reserve(scores.size());
    for (const Score& score : scores) values.emplace_back(score.view());
    return values;
}

TEST(ScoreColumn, TakesTheValuesOfManyStudentsAtOnce) {
    const std::vector<Score> scores{text("17"), text("0"),   text("007"), text("4096"),
                                    text("E"),  text("7.5"), text("-3"),  text("absent"),
                                    Score(),    number(7),   text(""),    text("12345678")};
    ScoreColumn column;
    column.setScore(2, text(longText));
    column.setScore(3, text(longText));
    column.setScore(20, text(longText));
    column.setValues(3, smallValues(scores));
    EXPECT_EQ(column.score(2), text(longText));
    EXPECT_EQ(column.score(20), text(longText));
    for (std::size_t i = 0; i < scores.size(); ++i) {
        const int student = static_cast<int>(i) + 3;
        EXPECT_EQ(column.score(student), scores[i]);
        const CellPoints found = column.points(student);
        const CellPoints expected = pointsOf(scores[i]);
        EXPECT_EQ(found.whole, expected.whole) << scores[i].text();
        EXPECT_EQ(found.fraction, expected.fraction) << scores[i].text();
        EXPECT_EQ(found.excused, expected.excused) << scores[i].text();
        EXPECT_EQ(found.empty, expected.empty) << scores[i].text();
    }
}

TEST(ScoreColumn, TakesManyValuesBehindItsZerosAndInTheirPlace) {
    ScoreColumn column;
    column.fillEmpty(4);
    column.setValues(4, smallValues({text("4"), text("5")}));
    EXPECT_EQ(texts(column, 6), (Texts{"0", "0", "0", "4", "5", "-"}));
    column.setValues(8, smallValues({text("8")}));
    EXPECT_EQ(texts(column, 9), (Texts{"0", "0", "0", "4", "5", "-", "-", "8", "-"}));
    EXPECT_EQ(column.storedCount(), 8);
}

TEST(ScoreColumn, GivesItsSmallValuesUpToTheFirstThatIsNone) {
    ScoreColumn column;
    column.setValues(1, smallValues({text("1"), text("1023"), text("7.5"), text("8"), text("E")}));
    column.setScore(4, text(longText));
    column.fillEmpty(6);
    const auto found = [&column](int first, std::size_t most) {
        std::vector<SmallValue> target(most);
        target.resize(column.smallValues(first, target));
        Texts values;
        for (const SmallValue& value : target) values.push_back(textOf(value.view()));
        return values;
    };
    EXPECT_EQ(found(1, 8), (Texts{"1", "1023", "7.5"}));
    EXPECT_EQ(found(1, 1), (Texts{"1"}));
    EXPECT_EQ(found(4, 2), Texts());
    EXPECT_EQ(found(5, 3), (Texts{"E", "0", ""}));
    column.setScore(2, text("5000"));
    EXPECT_EQ(found(1, 3), (Texts{"1", "5000", "7.5"}));
}

TEST(ScoreColumn, GivesBackEveryWholeNumberAsItWasTyped) {
    ScoreColumn column;
    for (int whole = -2; whole <= 1100; ++whole) {
        for (const Score& score : {text(std::to_string(whole)), number(whole),
                                   text("0" + std::to_string(whole)), Score(TaggedValue(whole))}) {
            column.setScore(1, score);
            ASSERT_EQ(column.score(1), score) << whole;
            ASSERT_EQ(column.points(1).whole, score.reading().toInteger());
            ASSERT_EQ(column.numericSum().sum, score.reading());
            ASSERT_EQ(column.numericSum().count, 1);
        }
    }
}

TEST(ScoreColumn, AddsItsLargeCellsToTheSumsOfTheirStudents) {
    ScoreColumn column;
    column.setScore(1, text("5000"));
    column.setScore(2, text("-7.5"));
    column.setScore(3, text(longText));
    column.setScore(4, text("40000"));
    std::vector<std::int16_t> earned{1, 2, 3, 4};
    std::vector<std::int16_t> possible{10, 20, 30, 40};
    column.addPoints(20, earned, possible);
    EXPECT_EQ(earned, (std::vector<std::int16_t>{5001, -6, 3, 4}));
    EXPECT_EQ(possible, (std::vector<std::int16_t>{30, 40, 50, 60}));
}

TEST(ScoreColumn, AddsItsCellsToTheSumsOfTheirStudents) {
    ScoreColumn column;
    column.setScore(1, text("17"));
    column.setScore(2, Score::excused());
    column.setScore(4, text("2.5"));
    std::vector<std::int16_t> earned{1, 2, 3, 4, 5};
    std::vector<std::int16_t> possible{10, 20, 30, 40, 50};
    column.addPoints(20, earned, possible);
    EXPECT_EQ(earned, (std::vector<std::int16_t>{18, 2, 3, 6, 5}));
    EXPECT_EQ(possible, (std::vector<std::int16_t>{30, 20, 50, 60, 70}));
}

}  // namespace
}  // namespace quorvel
