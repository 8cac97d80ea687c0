#include <gtest/gtest.h>

#include "page/Spread.h"

namespace quorvel {
namespace {

TEST(Spread, IsWhatASpreadsheetsQuartileGives) {
    const std::pair<std::vector<std::int64_t>, Spread> rows[] = {
        {{700}, {700, 700, 700, 700, 700}},
        {{100, 200}, {100, 125, 150, 175, 200}},
        {{300, 100, 200}, {100, 150, 200, 250, 300}},
        {{1, 2, 3, 4}, {1, 1, 2, 3, 4}},  // 1.75, 2.5 and 3.25, cut
        {{5, 4, 3, 2, 1}, {1, 2, 3, 4, 5}},
        {{-10, -5}, {-10, -9, -8, -7, -5}},  // cut toward minus infinity
        {{0, 0, 0, 1000}, {0, 0, 0, 250, 1000}}};
    for (const auto& [figures, wanted] : rows) {
        EXPECT_EQ(spreadOf(figures), wanted) << figures.size() << " from " << figures.front();
    }
}

TEST(Spread, OfNothingIsNone) {
    EXPECT_EQ(spreadOf({}), std::nullopt);
}

}  // namespace
}  // namespace quorvel
