#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "core/Numbers.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(LeadingNumber, ReadsAsFarAsANumberGoes) {
    struct Case {
        const char* text;
        const char* number;
        double value;
    };
    const Case cases[] = {
        {"17", "17", 17},
        {"0", "0", 0},
        {"007", "007", 7},
        {"+3", "+3", 3},
        {"-7", "-7", -7},
        {"  -7x", "-7", -7},
        {"\t 12", "12", 12},
        {"12.5", "12.5", 12.5},
        {".5", ".5", 0.5},
        {"5.", "5.", 5},
        {"-.25", "-.25", -0.25},
        {"1.2.3", "1.2", 1.2},
        {"1..2", "1.", 1},
        {"1e5", "1", 1},
        {"1E5", "1", 1},
        {"0x10", "0", 0},
        {"&H10", "", 0},
        {"1,234", "1", 1},
        {"1 234", "1", 1},
        {"12abc", "12", 12},
        {"7;8", "7", 7},
        {"", "", 0},
        {"   ", "", 0},
        {".", "", 0},
        {"-", "", 0},
        {"+.", "", 0},
        {"- 5", "", 0},
        {"--5", "", 0},
        {"+-5", "", 0},
        {"..5", "", 0},
        {"x5", "", 0},
        {"E", "", 0},
        {"\n5", "", 0},
        {"\xA0"
         "5",
         "", 0},
        {"inf", "", 0},
        {"nan", "", 0},
        {"-0", "-0", 0},
        {"0.49999999999999994", "0.49999999999999994", 0.49999999999999994},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(leadingNumberText(c.text), c.number) << "'" << c.text << "'";
        EXPECT_EQ(leadingNumber(c.text), c.value) << "'" << c.text << "'";
    }
}

TEST(LeadingNumber, StopsAtTheLargestNumber) {
    const std::string nines(400, '9');
    EXPECT_EQ(leadingNumber(nines), std::numeric_limits<double>::max());
    EXPECT_EQ(leadingNumber("-" + nines), std::numeric_limits<double>::lowest());
    EXPECT_EQ(leadingNumber(nines + ".5"), std::numeric_limits<double>::max());
}

TEST(LeadingNumber, ReadsWhatIsTooNearToZeroAsZero) {
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(leadingNumber("000." + std::string(400, '0') + "9"), 0);
    EXPECT_EQ(leadingNumber(std::string(400, '0') + "5"), 5);
}

TEST(DecimalText, IsTheShortestThatReadsBack) {
    struct Case {
        double number;
        std::string text;
    };
    const Case cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-7, "-7"},
        {10, "10"},
        {100, "100"},
        {0.5, "0.5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {12.49, "12.49"},
        {-0.25, "-0.25"},
        {0.001, "0.001"},
        {123456.789, "123456.789"},
        {1e15, "1000000000000000"},
        {1e22, "1" + std::string(22, '0')},
        {1e23, "1" + std::string(23, '0')},
        {9007199254740993.0, "9007199254740992"},
        {1e-7, "0.0000001"},
        {1.5e-10, "0.00000000015"},
        {5e-324, "0." + std::string(323, '0') + "5"},
        {1.7976931348623157e308, "17976931348623157" + std::string(292, '0')},
        {-1e300, "-1" + std::string(300, '0')},
        {infinity, "0"},
        {-infinity, "0"},
        {notANumber, "0"},
    };
    for (const Case& c : cases) EXPECT_EQ(decimalText(c.number), c.text);
}

TEST(DecimalText, KnowsThatASingleNeedsFewerDigits) {
    EXPECT_EQ(decimalText(0.1F), "0.1");
    EXPECT_EQ(decimalText(2.03F), "2.03");
    EXPECT_EQ(decimalText(8.25F), "8.25");
    EXPECT_EQ(decimalText(16777216.0F), "16777216");
    EXPECT_EQ(decimalText(1e20F), "1" + std::string(20, '0'));
    EXPECT_EQ(decimalText(-0.0F), "0");
    EXPECT_EQ(decimalText(std::numeric_limits<float>::infinity()), "0");
}

TEST(DecimalText, ReadsBackForNumbersOfAnySize) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number)) continue;
        const std::string text = decimalText(number);
        EXPECT_EQ(leadingNumber(text), number) << text;
        EXPECT_EQ(leadingNumberText(text), text);
    }
}

template <typename Real>
void expectTheDigitsOfTheLibrary(Real number) {
    std::array<char, 32> form{};
    const auto end =
        std::to_chars(form.data(), form.data() + form.size(), number, std::chars_format::scientific)
            .ptr;
    std::string digits(form.data(), std::find(form.data(), end, 'e'));
    std::erase(digits, '.');
    std::string ours = decimalText(number);
    std::erase(ours, '.');
    ours.erase(0, ours.find_first_not_of('0'));
    ours.erase(ours.find_last_not_of('0') + 1);
    EXPECT_EQ(ours, digits) << number;
}

template <typename Real>
void expectTheDigitsOfTheLibraryAboutPowersOfTwo() {
    constexpr Real zero = 0;
    for (Real power = std::numeric_limits<Real>::denorm_min(); std::isfinite(power); power *= 2) {
        expectTheDigitsOfTheLibrary(power);
        expectTheDigitsOfTheLibrary(std::nextafter(power, std::numeric_limits<Real>::max()));
        if (power > std::numeric_limits<Real>::denorm_min())
            expectTheDigitsOfTheLibrary(std::nextafter(power, zero));
    }
}

TEST(DecimalText, HasTheFewestDigitsAboutPowersOfTwoWhereNumbersChangeTheirDistance) {
    EXPECT_EQ(decimalText(std::ldexp(1.0, -44)), "0.00000000000005684341886080802");
    expectTheDigitsOfTheLibraryAboutPowersOfTwo<double>();
    expectTheDigitsOfTheLibraryAboutPowersOfTwo<float>();
}

TEST(RoundHalfEven, TakesTheNearestAndAtAHalfTheEvenNeighbour) {
    struct Case {
        double number;
        std::int64_t rounded;
    };
    const Case cases[] = {
        {0, 0},
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {-3.5, -4},
        {0.49999999999999994, 0},
        {0.50000000000000011, 1},
        {2.4999999999999996, 2},
        {2.5000000000000004, 3},
        {-2.4999999999999996, -2},
        {-2.5000000000000004, -3},
        {4503599627370495.5, 4503599627370496},
        {4503599627370494.5, 4503599627370494},
        {9007199254740993.0, 9007199254740992},
        {1e30, largest},
        {-1e30, smallest},
        {9223372036854775808.0, largest},
        {-9223372036854775808.0, smallest},
        {9223372036854774784.0, 9223372036854774784},
        {infinity, largest},
        {-infinity, smallest},
        {notANumber, 0},
    };
    for (const Case& c : cases) EXPECT_EQ(roundHalfEven(c.number), c.rounded) << c.number;
}

TEST(DivideHalfEven, TakesTheNearestAndAtAHalfTheEvenNeighbour) {
    struct Case {
        std::int64_t dividend, divisor, quotient;
    };
    const Case cases[] = {
        {0, 7, 0},
        {6, 3, 2},
        {7, 3, 2},
        {8, 3, 3},
        {1, 2, 0},
        {3, 2, 2},
        {5, 2, 2},
        {7, 2, 4},
        {-1, 2, 0},
        {-3, 2, -2},
        {-5, 2, -2},
        {-7, 3, -2},
        {-8, 3, -3},
        {1705, 2, 852},
        {1707, 2, 854},
        {2, 4, 0},
        {6, 4, 2},
        {10, 4, 2},
        {8535, 10, 854},
        {8525, 10, 852},
        {8537, 10, 854},
        {8534, 10, 853},
        {largest, 1, largest},
        {smallest, 1, smallest},
        {largest, 2, 4611686018427387904},
        {largest, largest, 1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(divideHalfEven(c.dividend, c.divisor), c.quotient)
            << c.dividend << " / " << c.divisor;
}

TEST(DivideDown, CutsTowardMinusInfinity) {
    EXPECT_EQ(divideDown(7, 2), 3);
    EXPECT_EQ(divideDown(-7, 2), -4);
    EXPECT_EQ(divideDown(7, -2), -4);
    EXPECT_EQ(divideDown(-7, -2), 3);
    EXPECT_EQ(divideDown(6, 3), 2);
    EXPECT_EQ(divideDown(-6, 3), -2);
    EXPECT_EQ(divideDown(0, -5), 0);
    EXPECT_EQ(divideDown(-1, 1000), -1);
}

TEST(TenthsText, SetsTheDecimalPoint) {
    EXPECT_EQ(tenthsText(944), "94.4");
    EXPECT_EQ(tenthsText(1000), "100");
    EXPECT_EQ(tenthsText(500), "50");
    EXPECT_EQ(tenthsText(0), "0");
    EXPECT_EQ(tenthsText(5), "0.5");
    EXPECT_EQ(tenthsText(-1), "-0.1");
    EXPECT_EQ(tenthsText(-10), "-1");
    EXPECT_EQ(tenthsText(-2005), "-200.5");
    EXPECT_EQ(tenthsText(32767000), "3276700");
}

TEST(NumberText, IsOneNumberAndNothingButBlanksAroundIt) {
    for (const char* text : {"7", " 7", "7 ", "\t -7.5 \t", "+7", ".5", "5.", "007", "-0"})
        EXPECT_TRUE(isNumberText(text)) << "'" << text << "'";
    for (const char* text : {"", " ", "7x", "x7", "7 8", "- 7", "1.2.3", "1e5", "E", ".", "7,5"})
        EXPECT_FALSE(isNumberText(text)) << "'" << text << "'";
}

TEST(TypedNumber, IsTheLeadingNumberWithDigitsOfAnyScriptThatThePageHas) {
    CodePage::UnicodeTable unicode{};
    CodePage::UpperCaseTable upperCase{};
    for (std::size_t byte = 0; byte < unicode.size(); ++byte)
        unicode[byte] = static_cast<char16_t>(byte < 0x80 ? byte : 0x0E50 - 0xF0 + byte);  // Thai
    const CodePage thai(unicode, upperCase);
    EXPECT_EQ(typedNumber("\xF1\xF2.\xF5 points", thai), Decimal::fromText("12.5"));
    EXPECT_EQ(typedNumber(" -3x", CodePage::windows1252()), Decimal(-3));
    EXPECT_EQ(typedNumber("\xF1\xF2", CodePage::windows1252()), Decimal());
}

TEST(NumberInRange, LooksAtTheNumberAsTypedAndRoundsHalvesToEvenBehindThat) {
    struct Case {
        const char* typed;
        int number;
    };
    const Case cases[] = {
        {"1", 1},
        {"3", 3},
        {"0", 0},
        {"4", 0},
        {"-2", 0},
        {"0.4", 0},
        {"0.5", 0},
        {"0.50000000000000000000001", 1},
        {"0.6", 1},
        {"1.5", 2},
        {"2.5", 2},
        {"2.7", 3},
        {"3.0", 3},
        {"3.00000000000000000000001", 0},
        {"3.4", 0},
        {"3.5", 0},
        {"4294967297", 0},
        {"99999999999999999999999999", 0},
        {"-99999999999999999999999999", 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(numberInRange(Decimal::fromText(c.typed), 3), c.number) << c.typed;
    EXPECT_EQ(numberInRange(Decimal(1), 0), 0);
}

}  // namespace
}  // namespace quorvel
