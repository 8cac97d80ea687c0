#include <limits>

#include "core/Score.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(Score, IsEmptyAtFirst) {
    const Score score;
    EXPECT_TRUE(score.isEmpty());
    EXPECT_FALSE(score.isExcused());
    EXPECT_FALSE(score.isNumeric());
    EXPECT_EQ(score.text(), "");
    EXPECT_EQ(score.reading(), Decimal(0));
}

TEST(Score, IsExcusedByExactlyOneCapitalE) {
    EXPECT_TRUE(Score::excused().isExcused());
    EXPECT_FALSE(Score::excused().isNumeric());
    EXPECT_FALSE(Score::excused().isEmpty());
    EXPECT_EQ(Score::excused().text(), "E");
    EXPECT_EQ(Score::excused(), Score::ofText("E"));
    EXPECT_EQ(Score::excused().reading(), Decimal(0));
    for (const char* other : {"e", " E", "E ", "EE", "", "F"})
        EXPECT_FALSE(Score::ofText(other).isExcused()) << "'" << other << "'";
}

TEST(Score, OfNewCellsIsTheNumberZeroAndNoText) {
    EXPECT_TRUE(std::holds_alternative<std::int16_t>(Score::zero().value()));
    EXPECT_EQ(Score::zero().text(), "0");
    EXPECT_TRUE(Score::zero().isNumeric());
    EXPECT_NE(Score::zero(), Score::ofText("0"));
}

TEST(Score, ReadsExactlyAsTheDecimalThatItIsShownAs) {
    EXPECT_EQ(Score::ofText("2.03").reading(), Decimal::fromText("2.03"));
    EXPECT_EQ(Score::ofText(" -7.5 ").reading(), Decimal::fromText("-7.5"));
    EXPECT_EQ(Score::ofText("7x").reading(), Decimal(0)) << "malformed";
    EXPECT_EQ(Score::ofText("1e5").reading(), Decimal(0)) << "malformed";
    EXPECT_EQ(Score::ofText("absent").reading(), Decimal(0));
    EXPECT_EQ(Score(TaggedValue(2.03F)).reading(), Decimal::fromText("2.03"));
    EXPECT_EQ(Score(TaggedValue(2.03)).reading(), Decimal::fromText("2.03"));
    EXPECT_EQ(Score(TaggedValue(std::int16_t{-5})).reading(), Decimal(-5));
    EXPECT_EQ(Score(TaggedValue(std::int32_t{70000})).reading(), Decimal(70000));
    EXPECT_EQ(Score(TaggedValue(std::numeric_limits<double>::infinity())).reading(), Decimal(0));
}

Score entered(std::string_view typed) {
    return scoreFromEntry(typed, CodePage::windows1252());
}

TEST(ScoreFromEntry, KeepsWhatAScoresRecordHolds) {
    const std::string digits(123, '7');
    EXPECT_EQ(entered("9" + digits).text(), "9" + digits);
    const std::string fraction = "." + std::string(123, '3');
    EXPECT_EQ(entered(fraction).text(), "0." + std::string(122, '3'));
}

TEST(ScoreFromEntry, FollowsTheRuleForTypedScores) {
    struct Case {
        const char* typed;
        const char* stored;
    };
    const Case cases[] = {
        {"E", "E"},
        {"e", "E"},
        {"", "0"},
        {"X", "0"},
        {"EE", "0"},
        {"E ", "0"},
        {" E", "0"},
        {"17", "17"},
        {"017", "17"},
        {"+17", "17"},
        {"  -7X", "7"},
        {"-3", "3"},
        {"-4", "4"},
        {"-0", "0"},
        {".", "0"},
        {".5", "1"},
        {".25", "0.25"},
        {"5.", "5"},
        {"7.3", "7.3"},
        {"7.5", "8"},
        {"7.9", "8"},
        {"12.5", "13"},
        {"12.49", "12.49"},
        {"-12.49", "12.49"},
        {"-12.5", "13"},
        {"9.25", "9.25"},
        {"9.5", "10"},
        {"2.03", "2.03"},
        {"0.49999999999999994", "0.49999999999999994"},
        {"0.4999999999999999999999", "0.4999999999999999999999"},
        {"7.4999999999999999", "7.4999999999999999"},
        {"7.5000000000000000000001", "8"},
        {"99.99", "100"},
        {"1E5", "1"},
        {"1.2.3", "1.2"},
        {"10 20", "10"},
        {"1,5", "1"},
        {"1000", "1000"},
        {"99999999999999999999", "99999999999999999999"},
        {"99999999999999999999.5", "100000000000000000000"},
        {"0.0000001", "0.0000001"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(entered(c.typed), Score::ofText(c.stored)) << "'" << c.typed << "'";
}

TEST(ScoreFromEntry, LeavesWhatItMadeAsItIs) {
    for (const char* typed : {"E", "", "7.3", "7.5", "-0.2", "12345678901234567890", "0.1"}) {
        const std::string once = entered(typed).text();
        EXPECT_EQ(entered(once).text(), once) << "'" << typed << "'";
    }
}

}  // namespace
}  // namespace quorvel
