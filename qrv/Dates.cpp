#include "qrv/Dates.h"

namespace quorvel {

namespace {

std::string twoDigits(int number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

std::tm localTime() {
    const std::time_t clock = std::time(nullptr);
    return *std::localtime(&clock);
}

std::string dateText(const std::tm& time) {
    constexpr int firstYear = 1900;
    return std::to_string(time.tm_mon + 1) + '/' + std::to_string(time.tm_mday) + '/' +
           std::to_string(time.tm_year + firstYear);
}

std::string timeText(const std::tm& time) {
    constexpr int noon = 12;
    const int hour = time.tm_hour % noon == 0 ? noon : time.tm_hour % noon;
    return std::to_string(hour) + ':' + twoDigits(time.tm_min) + ':' + twoDigits(time.tm_sec) +
           (time.tm_hour < noon ? " AM" : " PM");
}

}  // namespace quorvel
