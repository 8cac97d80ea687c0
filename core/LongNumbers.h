#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvel::long_numbers {

// Whole numbers from 0 on, of any length, as their decimal digits, the most significant first. 0
// has none. What is given has no leading zeros, and so has what comes of it.

__extension__ typedef unsigned __int128 WideUnsigned;

constexpr unsigned valueOf(char digit) {
    return static_cast<unsigned>(digit - '0');
}

std::string digitsOf(WideUnsigned number);
void stripLeadingZeros(std::string& digits);

bool isBelow(const std::string& left, const std::string& right);
std::string sumOf(const std::string& left, const std::string& right);
/// Requires larger >= smaller. May have leading zeros.
std::string differenceOf(const std::string& larger, const std::string& smaller);
/// Has leading zeros where `factor` is 0.
std::string productOf(const std::string& digits, std::uint64_t factor);

struct Quotient {
    std::string digits;
    bool hasRest = false;
};
/// Requires divisor != 0. The digits may have leading zeros.
Quotient quotientOf(const std::string& digits, std::uint64_t divisor);
/// Cuts the last `count` digits off, which become part of the rest.
void dropDigits(Quotient& quotient, std::size_t count);

}  // namespace quorvel::long_numbers
