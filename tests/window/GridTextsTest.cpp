#include "window/GridTexts.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(LongestLine, IsCountedWithoutTheLineBreaks) {
    EXPECT_EQ(longestLine(""), 0u);
    EXPECT_EQ(longestLine("7"), 1u);
    EXPECT_EQ(longestLine("9\r\n10\r\n11"), 2u);
    EXPECT_EQ(longestLine("100\r\n2"), 3u);
    EXPECT_EQ(longestLine("1\r\n\r\n"), 1u);
}

}  // namespace quorvel
