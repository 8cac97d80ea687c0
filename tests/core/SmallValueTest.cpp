#include <string>

#include "core/SmallValue.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

SmallValue textValue(std::string_view text) {
    return SmallValue(TaggedView(text));
}

TEST(SmallValue, HasRoomForAnythingButLongTexts) {
    EXPECT_TRUE(SmallValue::fits({}));
    EXPECT_TRUE(SmallValue::fits(-1e300));
    EXPECT_TRUE(SmallValue::fits(std::string_view("12345678")));
    EXPECT_FALSE(SmallValue::fits(std::string_view("123456789")));
}

TEST(SmallValue, GivesBackWhatItWasMadeFrom) {
    const TaggedView values[] = {{},
                                 std::int16_t{-32768},
                                 std::int32_t{-70000},
                                 2.5F,
                                 -1e300,
                                 std::string_view(""),
                                 std::string_view("E"),
                                 std::string_view("12345678"),
                                 std::string_view("a\0b\0", 4)};
    for (const TaggedView& value : values) EXPECT_EQ(SmallValue(value).view(), value);
}

TEST(SmallValue, TakesAsMuchOfATextAsItIsToldTo) {
    const SmallValue::Characters characters{'1', '2', '3', '4', '5', '6', '7', '8'};
    const std::string_view all(characters.data(), characters.size());
    for (std::size_t length = 0; length <= characters.size(); ++length) {
        SmallValue value(TaggedView(-1.0));
        value.setText(characters, length);
        EXPECT_EQ(value.view(), TaggedView(all.substr(0, length)));
        for (std::size_t i = length; i < characters.size(); ++i)
            EXPECT_EQ(value.characters()[i], '\0') << length;
    }
}

TEST(SmallValue, KnowsWhetherItIsAText) {
    EXPECT_FALSE(SmallValue().isText());
    EXPECT_TRUE(textValue("").isText());
    EXPECT_FALSE(SmallValue(TaggedView(std::int16_t{0})).isText());
}

TEST(SmallValue, ReadsEveryTextOfOneToFourDigits) {
    for (int number = 0; number <= 9999; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_EQ(textValue(text).fewDigits(), number);
        for (std::size_t zeros = 1; zeros + text.size() <= 4; ++zeros)
            ASSERT_EQ(textValue(std::string(zeros, '0') + text).fewDigits(), -1) << text;
    }
}

TEST(SmallValue, FindsNoDigitsInAnythingElse) {
    EXPECT_EQ(SmallValue().fewDigits(), -1);
    EXPECT_EQ(SmallValue(TaggedView(std::int16_t{7})).fewDigits(), -1);
    for (const char* const text : {"", "12345", "12345678", " 1", "1 ", "7.5", "-1", "E"})
        EXPECT_EQ(textValue(text).fewDigits(), -1) << text;
    for (int character = 0; character < 256; ++character) {
        if (character >= '0' && character <= '9') continue;
        for (std::size_t length = 1; length <= 4; ++length) {
            for (std::size_t place = 0; place < length; ++place) {
                for (const char other : {'0', '9'}) {
                    std::string text(length, other);
                    text[place] = static_cast<char>(character);
                    ASSERT_EQ(textValue(text).fewDigits(), -1) << character << " in " << text;
                }
            }
        }
    }
}

}  // namespace
}  // namespace quorvel
