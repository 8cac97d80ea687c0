#include "qrv/Dates.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

TEST(DatesTest, TheHoursOfADayAreToldByTwelve) {
    const std::pair<int, const char*> hours[] = {{0, "12:05:09 AM"},  {1, "1:05:09 AM"},
                                                 {11, "11:05:09 AM"}, {12, "12:05:09 PM"},
                                                 {13, "1:05:09 PM"},  {23, "11:05:09 PM"}};
    for (const auto& [hour, text] : hours) {
        std::tm time{};
        time.tm_hour = hour;
        time.tm_min = 5;
        time.tm_sec = 9;
        EXPECT_EQ(timeText(time), text);
    }
}

TEST(DatesTest, ADateHasItsMonthFirst) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 2;
    time.tm_mday = 4;
    EXPECT_EQ(dateText(time), "3/4/2026");
    time.tm_mon = 11;
    time.tm_mday = 31;
    EXPECT_EQ(dateText(time), "12/31/2026");
}

}  // namespace

}  // namespace quorvel
