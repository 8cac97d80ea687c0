#include <cstdlib>
#include <limits>
#include <random>

#include "core/Decimal.h"
#include "core/Numbers.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

Decimal decimal(std::string_view text) {
    return Decimal::fromText(text);
}

std::string sum(std::string_view left, std::string_view right) {
    Decimal result = decimal(left);
    result += decimal(right);
    return result.text();
}

TEST(Decimal, IsZeroAtFirst) {
    EXPECT_EQ(Decimal().text(), "0");
    EXPECT_EQ(Decimal(), Decimal(0));
    EXPECT_EQ(Decimal().fraction(), Fraction::None);
    EXPECT_FALSE(Decimal().isNegative());
}

TEST(Decimal, ReadsTheLeadingNumberOfAText) {
    struct Case {
        const char* text;
        const char* number;
    };
    const Case cases[] = {
        {"7.25", "7.25"},
        {"12", "12"},
        {"-0.5", "-0.5"},
        {"007.2500", "7.25"},
        {"5.", "5"},
        {".5", "0.5"},
        {"+3.10", "3.1"},
        {"  4x", "4"},
        {"1e5", "1"},
        {"E", "0"},
        {"", "0"},
        {".", "0"},
        {"-0", "0"},
        {"-0.000", "0"},
        {"0.0", "0"},
        {"100", "100"},
        {"100.00", "100"},
        {"0.001", "0.001"},
        {"1.2.3", "1.2"},
        {"999999999999999999", "999999999999999999"},
        {"1000000000000000000", "1000000000000000000"},
        {"-123456789012345678901234567890.125", "-123456789012345678901234567890.125"},
        {"000000000000000000000000000001", "1"},
        {"1.000000000000000000000000000000", "1"},
        {"0.000000000000000000000000000001", "0.000000000000000000000000000001"},
        {"-00000000000000000000.00000000000000000000", "0"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(decimal(c.text).text(), c.number) << "'" << c.text << "'";
        EXPECT_EQ(decimal(c.text), decimal(c.number)) << "'" << c.text << "'";
    }
}

TEST(Decimal, HoldsEveryWholeNumberOf64Bits) {
    EXPECT_EQ(Decimal(largest).text(), "9223372036854775807");
    EXPECT_EQ(Decimal(smallest).text(), "-9223372036854775808");
    EXPECT_EQ(Decimal(largest).toInteger(), largest);
    EXPECT_EQ(Decimal(smallest).toInteger(), smallest);
    EXPECT_EQ(Decimal(-1'000'000'000'000'000'000).text(), "-1000000000000000000");
}

TEST(Decimal, KnowsItsSignAndWhetherItIsWhole) {
    EXPECT_TRUE(decimal("-0.01").isNegative());
    EXPECT_TRUE(decimal("-99999999999999999999").isNegative());
    EXPECT_FALSE(decimal("99999999999999999999").isNegative());
    EXPECT_FALSE(decimal("-0").isNegative());
    EXPECT_EQ(decimal("7.0").fraction(), Fraction::None);
    EXPECT_NE(decimal("7.5").fraction(), Fraction::None);
    EXPECT_NE(decimal("99999999999999999999.5").fraction(), Fraction::None);
}

TEST(Decimal, AddsExactly) {
    struct Case {
        const char* left;
        const char* right;
        const char* result;
    };
    const Case cases[] = {
        {"0.1", "0.2", "0.3"},
        {"7.25", "0.75", "8"},
        {"1", "-1", "0"},
        {"1.5", "-2.25", "-0.75"},
        {"-1.5", "2.25", "0.75"},
        {"-1.5", "-2.5", "-4"},
        {"999999999999999999", "1", "1000000000000000000"},
        {"-999999999999999999", "-1", "-1000000000000000000"},
        {"1000000000000000000", "-1", "999999999999999999"},
        {"9223372036854775807", "9223372036854775807", "18446744073709551614"},
        {"99999999999999999999", "-99999999999999999999", "0"},
        {"-99999999999999999999", "100000000000000000000.5", "1.5"},
        {"99999999999999999999", "-100000000000000000000.5", "-1.5"},
        {"99999999999999999999", "0.00000000000000000001",
         "99999999999999999999.00000000000000000001"},
        {"0.5", "0.0000000000000000000000000001", "0.5000000000000000000000000001"},
        {"100000000000000000", "0.01", "100000000000000000.01"},
        {"12345678901234567890.12345", "0.87655", "12345678901234567891"},
        {"-12345678901234567890", "0", "-12345678901234567890"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(sum(c.left, c.right), c.result) << c.left << " + " << c.right;
        EXPECT_EQ(sum(c.right, c.left), c.result) << c.right << " + " << c.left;
    }
}

TEST(Decimal, AddsItselfToItself) {
    Decimal number = decimal("12345678901234567890.5");
    number += number;
    EXPECT_EQ(number.text(), "24691357802469135781");
}

TEST(Decimal, IsEqualHoweverItCameAbout) {
    Decimal number = decimal("99999999999999999999.75");
    number += decimal("-99999999999999999998.5");
    EXPECT_EQ(number, decimal("1.25"));
    EXPECT_NE(number, decimal("1.5"));
    EXPECT_NE(decimal("99999999999999999999"), decimal("-99999999999999999999"));
}

TEST(Decimal, IsEqualOnBothSidesOfWhatIsLong) {
    const char* const edges[] = {"999999999999999999", "-999999999999999999", "1000000000000000000",
                                 "-1000000000000000000", "1000000000000000001"};
    for (const char* const edge : edges) {
        const std::int64_t number = std::stoll(edge);
        EXPECT_EQ(Decimal(number), decimal(edge)) << edge;
        Decimal sumOfTwo(number - 1);
        sumOfTwo += Decimal(1);
        EXPECT_EQ(sumOfTwo, decimal(edge)) << edge;
        EXPECT_EQ(sumOfTwo.scaledDown(1, 1), decimal(edge)) << edge;
        Decimal difference(number + 1);
        difference += Decimal(-1);
        EXPECT_EQ(difference, decimal(edge)) << edge;
    }
}

TEST(Decimal, HoldsFewDigitsFarBehindTheDecimalPoint) {
    EXPECT_EQ(sum("0.0000000000000000001", "1"), "1.0000000000000000001");
    EXPECT_EQ(sum("0.0000000000000000001", "0.0000000000000000009"), "0.000000000000000001");
    EXPECT_EQ(decimal("0.0000000000000000007").scaledDown(largest, 1), Decimal(6));
    EXPECT_EQ(decimal("-0.0000000000000000007").toInteger(), -1);
    EXPECT_EQ(decimal("0.000000000000000007").scaledDown(largest, 1), Decimal(64));
    EXPECT_EQ(decimal("-0.000000000000000007").toInteger(), -1);
}

TEST(Decimal, ScalesDownTowardMinusInfinity) {
    struct Case {
        const char* number;
        std::int64_t factor, divisor;
        const char* result;
    };
    const Case cases[] = {
        {"57", 1000, 100, "570"},
        {"2.03", 1000, 10, "203"},
        {"17", 1000, 18, "944"},
        {"2", 1000, 3, "666"},
        {"-2", 1000, 3, "-667"},
        {"2", 1000, -3, "-667"},
        {"-2", 1000, -3, "666"},
        {"0.5", 1, 1, "0"},
        {"-0.5", 1, 1, "-1"},
        {"-3", 1, 1, "-3"},
        {"-3", 2, 3, "-2"},
        {"7.25", 0, 3, "0"},
        {"123456789012345678901234567890.5", 10, 7, "176366841446208112716049382700"},
        {"-123456789012345678901234567890.5", 10, 7, "-176366841446208112716049382701"},
        {"123456789012345678901234567890.5", 10, -7, "-176366841446208112716049382701"},
        {"0.000000000000000000000000000001", 1000, 1, "0"},
        {"-0.000000000000000000000000000001", 1000, 1, "-1"},
        {"999999999999999999", largest, 3, "3074457345618258599258875987715074731"},
        {"-999999999999999999.9", largest, -largest, "999999999999999999"},
        {"12345678901234567890123456789", 1, 1000000007, "12345678814814816186"},
        {"0.1234567890123456789", 10, -3, "-1"},
        {"100000000000000000000", 1, 10, "10000000000000000000"},
        {"-100000000000000000000", 1, 10, "-10000000000000000000"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(decimal(c.number).scaledDown(c.factor, c.divisor).text(), c.result)
            << c.number << " x " << c.factor << " / " << c.divisor;
}

TEST(Decimal, ScalesLongAndShortNumbersAlike) {
    // A multiple of every divisor, too long for the short form.
    const std::string far = "1" + std::string(30, '0');
    std::mt19937 random(3);
    const auto below = [&random](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    for (int i = 0; i < 5000; ++i) {
        const int units = below(2'000'001) - 1'000'000;
        const int divisor = 1 << below(10);
        const int factor = below(2000);
        // units / 1000, written with its decimal point.
        std::string text = std::to_string(std::abs(units));
        text.insert(0, text.size() < 4 ? 4 - text.size() : 0, '0');
        text.insert(text.size() - 3, 1, '.');
        if (units < 0) text.insert(0, 1, '-');
        const std::int64_t expected =
            divideDown(std::int64_t{units} * factor, std::int64_t{1000} * divisor);
        EXPECT_EQ(decimal(text).scaledDown(factor, divisor), Decimal(expected)) << text;

        Decimal longNumber = decimal(text);
        longNumber += decimal(far);
        Decimal expectedLong = decimal(far).scaledDown(factor, divisor);
        expectedLong += Decimal(expected);
        EXPECT_EQ(longNumber.scaledDown(factor, divisor), expectedLong) << text;
    }
}

TEST(Decimal, WritesTenthsWithTheirDecimalPoint) {
    EXPECT_EQ(Decimal(944).tenthsText(), "94.4");
    EXPECT_EQ(Decimal(1000).tenthsText(), "100");
    EXPECT_EQ(Decimal(0).tenthsText(), "0");
    EXPECT_EQ(Decimal(7).tenthsText(), "0.7");
    EXPECT_EQ(Decimal(-7).tenthsText(), "-0.7");
    EXPECT_EQ(decimal("123456789012345678901").tenthsText(), "12345678901234567890.1");
    EXPECT_EQ(decimal("123456789012345678900").tenthsText(), "12345678901234567890");
}

TEST(Decimal, BecomesAWholeNumberOf64BitsThatStopsAtItsEnds) {
    struct Case {
        const char* text;
        std::int64_t number;
    };
    const Case cases[] = {
        {"0", 0},
        {"7.9", 7},
        {"-7.1", -8},
        {"-7", -7},
        {"-0.0000000000000000000000001", -1},
        {"0.0000000000000000000000001", 0},
        {"1000000000000000000.5", 1000000000000000000},
        {"-1000000000000000000.5", -1000000000000000001},
        {"9223372036854775807", largest},
        {"9223372036854775807.5", largest},
        {"9223372036854775808", largest},
        {"-9223372036854775808", smallest},
        {"-9223372036854775808.5", smallest},
        {"-9223372036854775809", smallest},
        {"99999999999999999999999999999", largest},
        {"-99999999999999999999999999999", smallest},
        {"99999999999999999999999999999.5", largest},
    };
    for (const Case& c : cases) EXPECT_EQ(decimal(c.text).toInteger(), c.number) << c.text;
}

TEST(Decimal, TakesTextsOfAnyLength) {
    const std::string nines(2000, '9');
    EXPECT_EQ(sum(nines, "1"), "1" + std::string(2000, '0'));
    EXPECT_EQ(sum("1" + std::string(2000, '0'), "-1"), nines);
    EXPECT_EQ(decimal("0." + nines).scaledDown(1, 1), Decimal(0));
    EXPECT_EQ(decimal("-0." + nines).scaledDown(1, 1), Decimal(-1));
}

TEST(Decimal, TellsTheFractionAboveItsWholePart) {
    struct Case {
        const char* number;
        Fraction fraction;
    };
    const Case cases[] = {
        {"0", Fraction::None},
        {"-3", Fraction::None},
        {"7.000", Fraction::None},
        {"7.3", Fraction::BelowHalf},
        {"7.05", Fraction::BelowHalf},
        {"7.5", Fraction::Half},
        {"7.51", Fraction::AboveHalf},
        {"7.9", Fraction::AboveHalf},
        {"-0.3", Fraction::AboveHalf},
        {"-0.05", Fraction::AboveHalf},
        {"-0.5", Fraction::Half},
        {"-0.51", Fraction::BelowHalf},
        {"99999999999999999999999.25", Fraction::BelowHalf},
        {"99999999999999999999999.5", Fraction::Half},
        {"0.49999999999999999999999", Fraction::BelowHalf},
        {"-0.49999999999999999999999", Fraction::AboveHalf},
        {"0.50000000000000000000001", Fraction::AboveHalf},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Decimal::fromText(c.number).fraction(), c.fraction) << c.number;
}

TEST(Decimal, RoundsUpFromOneHalfAndKeepsASmallerFraction) {
    struct Case {
        const char* number;
        const char* result;
    };
    const Case cases[] = {
        {"0", "0"},
        {"7", "7"},
        {"7.5", "8"},
        {"7.9", "8"},
        {"7.3", "7.3"},
        {"12.49", "12.49"},
        {"12.4999999999999999", "12.4999999999999999"},
        {"7.4999999999999999999999999", "7.4999999999999999999999999"},
        {"0.5", "1"},
        {"0.2", "0.2"},
        {"999.4", "999.4"},
        {"999.5", "1000"},
        {"-0.3", "0"},
        {"-0.5", "0"},
        {"-0.7", "-0.7"},
        {"-2", "-2"},
        {"99999999999999999999.5", "100000000000000000000"},
        {"99999999999999999999.25", "99999999999999999999.25"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Decimal::fromText(c.number).roundedUpFromHalf().text(), c.result) << c.number;
}

TEST(Decimal, RoundsToTheNearestAndAtAHalfToTheEvenNeighbour) {
    struct Case {
        const char* number;
        std::int64_t rounded;
    };
    const Case cases[] = {
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"-0.5", 0},
        {"-1.5", -2},
        {"-2.5", -2},
        {"2.4999999999999999999999", 2},
        {"2.5000000000000000000001", 3},
        {"-2.5000000000000000000001", -3},
        {"9223372036854775806.5", largest - 1},
        {"9223372036854775807.5", largest},
        {"99999999999999999999999", largest},
        {"-99999999999999999999999.5", smallest},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Decimal::fromText(c.number).roundedHalfEven(), c.rounded) << c.number;
}

TEST(Decimal, IsOrderedByItsValue) {
    const char* const ascending[] = {"-99999999999999999999999",
                                     "-12",
                                     "-0.5",
                                     "-0.49999999999999999999999",
                                     "0",
                                     "0.00000000000000000000001",
                                     "2.4",
                                     "2.40000000000000000000001",
                                     "12",
                                     "99999999999999999999999",
                                     "99999999999999999999999.1"};
    for (std::size_t left = 0; left < std::size(ascending); ++left)
        for (std::size_t right = 0; right < std::size(ascending); ++right)
            EXPECT_TRUE((Decimal::fromText(ascending[left]) <=>
                         Decimal::fromText(ascending[right])) == (left <=> right))
                << ascending[left] << " and " << ascending[right];
}

TEST(Decimal, LosesItsSign) {
    EXPECT_EQ(Decimal::fromText("-2.5").absolute().text(), "2.5");
    EXPECT_EQ(Decimal::fromText("2.5").absolute().text(), "2.5");
    EXPECT_EQ(Decimal::fromText("-99999999999999999999.5").absolute().text(),
              "99999999999999999999.5");
}

}  // namespace
}  // namespace quorvel
