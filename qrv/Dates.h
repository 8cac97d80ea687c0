#pragma once

#include <ctime>
#include <string>

namespace quorvel {

/// The system's date and time.
std::tm localTime();

/// Such as "3/4/2026" and "2:15:07 PM".
std::string dateText(const std::tm& time);
std::string timeText(const std::tm& time);

}  // namespace quorvel
