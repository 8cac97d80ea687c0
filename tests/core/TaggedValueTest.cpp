#include "core/TaggedValue.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(TaggedValue, ReadsAsTextOfAnyType) {
    EXPECT_EQ(textOf(TaggedValue()), "");
    EXPECT_EQ(textOf(TaggedValue(std::int16_t{-7})), "-7");
    EXPECT_EQ(textOf(TaggedValue(std::int32_t{100000})), "100000");
    EXPECT_EQ(textOf(TaggedValue(8.25F)), "8.25");
    EXPECT_EQ(textOf(TaggedValue(2.03F)), "2.03");
    EXPECT_EQ(textOf(TaggedValue(1e22)), "1" + std::string(22, '0'));
    EXPECT_EQ(textOf(TaggedValue(-0.0)), "0");
    EXPECT_EQ(textOf(TaggedValue(std::string(" 7x"))), " 7x");
}

TEST(TaggedValue, ReadsAsNumberOfAnyType) {
    EXPECT_EQ(numberOf(TaggedValue()), 0);
    EXPECT_EQ(numberOf(TaggedValue(std::int16_t{-7})), -7);
    EXPECT_EQ(numberOf(TaggedValue(std::int32_t{100000})), 100000);
    EXPECT_EQ(numberOf(TaggedValue(8.25F)), 8.25);
    EXPECT_EQ(numberOf(TaggedValue(0.1)), 0.1);
    EXPECT_EQ(numberOf(TaggedValue(std::string(" 7.5x"))), 7.5);
    EXPECT_EQ(numberOf(TaggedValue(std::string("E"))), 0);
    EXPECT_EQ(numberOf(TaggedValue(std::string())), 0);
}

}  // namespace
}  // namespace quorvel
