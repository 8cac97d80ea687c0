#include "core/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace quorvel {

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}
bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Whether a number that no double can hold is too large, rather than too near to 0.
bool isLarge(std::string_view number) {
    const std::string_view wholePart = number.substr(0, number.find('.'));
    return std::ranges::any_of(wholePart, [](char c) { return c >= '1' && c <= '9'; });
}

/// A positive number as `digits` times ten to the power of `exponent`.
struct ScaledDigits {
    std::int64_t digits = 0;
    int exponent = 0;
};

/// What is nearest to `number` with `digitCount` digits.
ScaledDigits nearestDigits(double number, int digitCount) {
    // A digit, a point, 16 digits and an exponent of up to "e-324".
    std::array<char, 32> form{};
    std::snprintf(form.data(), form.size(), "%.*e", digitCount - 1, number);
    ScaledDigits nearest;
    const auto* character = form.begin();
    for (; *character != 'e'; ++character)
        if (isDigit(*character)) nearest.digits = nearest.digits * 10 + (*character - '0');
    nearest.exponent = std::atoi(character + 1) - (digitCount - 1);
    return nearest;
}

template <typename Real>
bool readBackAs(Real number, const ScaledDigits& digits) {
    const std::string form = std::to_string(digits.digits) + "e" + std::to_string(digits.exponent);
    Real read = 0;
    std::from_chars(form.data(), form.data() + form.size(), read);
    return read == number;
}

/// The fewest digits that read back as `number`, which is positive.
template <typename Real>
ScaledDigits shortestDigits(Real number) {
    constexpr int mostDigits = std::numeric_limits<Real>::max_digits10;
    for (int digitCount = 1; digitCount < mostDigits; ++digitCount) {
        ScaledDigits digits = nearestDigits(number, digitCount);
        if (readBackAs(number, digits)) return digits;
        // Above a power of two the next number is twice as far away as below: what lies above may
        // read back where the nearest, below, does not.
        ++digits.digits;
        if (readBackAs(number, digits)) return digits;
    }
    return nearestDigits(number, mostDigits);
}

template <typename Real>
std::string expandedText(Real number) {
    if (!std::isfinite(number) || number == 0) return "0";
    const ScaledDigits shortest = shortestDigits(std::abs(number));
    std::string digits = std::to_string(shortest.digits);
    const int digitCount = static_cast<int>(digits.size());
    const int wholeDigits = digitCount + shortest.exponent;
    if (wholeDigits <= 0)
        digits.insert(0, "0." + std::string(static_cast<std::size_t>(-wholeDigits), '0'));
    else if (wholeDigits < digitCount)
        digits.insert(static_cast<std::size_t>(wholeDigits), 1, '.');
    else
        digits.append(static_cast<std::size_t>(wholeDigits - digitCount), '0');
    return number < 0 ? "-" + digits : digits;
}

}  // namespace

std::string_view leadingNumberText(std::string_view text) {
    text.remove_prefix(
        static_cast<std::size_t>(std::ranges::find_if_not(text, isBlank) - text.begin()));
    std::size_t length = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    bool hasDigit = false;
    bool hasPoint = false;
    for (; length < text.size(); ++length) {
        if (isDigit(text[length]))
            hasDigit = true;
        else if (text[length] == '.' && !hasPoint)
            hasPoint = true;
        else
            break;
    }
    return hasDigit ? text.substr(0, length) : std::string_view();
}

bool isNumberText(std::string_view text) {
    const std::string_view number = leadingNumberText(text);
    return !number.empty() &&
           std::all_of(number.data() + number.size(), text.data() + text.size(), isBlank);
}

double leadingNumber(std::string_view text) {
    std::string_view number = leadingNumberText(text);
    if (number.empty()) return 0;
    const bool isNegative = number[0] == '-';
    if (isNegative || number[0] == '+') number.remove_prefix(1);
    double magnitude = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), magnitude,
                                        std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range)
        magnitude = isLarge(number) ? std::numeric_limits<double>::max() : 0;
    return isNegative ? -magnitude : magnitude;
}

std::string decimalText(double number) {
    return expandedText(number);
}
std::string decimalText(float number) {
    return expandedText(number);
}

std::int64_t roundHalfEven(double number) {
    constexpr double beyondLargest = 9223372036854775808.0;  // 2 to the 63rd
    if (std::isnan(number)) return 0;
    if (number >= beyondLargest) return std::numeric_limits<std::int64_t>::max();
    if (number < -beyondLargest) return std::numeric_limits<std::int64_t>::min();
    const double wholePart = std::floor(number);
    const double fraction = number - wholePart;
    const auto whole = static_cast<std::int64_t>(wholePart);
    const bool roundsUp = fraction > 0.5 || (fraction == 0.5 && whole % 2 != 0);
    return roundsUp ? whole + 1 : whole;
}

std::int64_t divideHalfEven(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t whole = divideDown(dividend, divisor);
    const std::int64_t rest = dividend - whole * divisor;
    const std::int64_t missing = divisor - rest;
    const bool roundsUp = rest > missing || (rest == missing && whole % 2 != 0);
    return roundsUp ? whole + 1 : whole;
}

std::int64_t divideDown(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t quotient = dividend / divisor;
    const bool wasCutUp = dividend % divisor != 0 && (dividend < 0) != (divisor < 0);
    return wasCutUp ? quotient - 1 : quotient;
}

std::string tenthsText(std::int64_t tenths) {
    return Decimal(tenths).tenthsText();
}

Decimal typedNumber(std::string_view typed, const CodePage& codePage) {
    return Decimal::fromText(codePage.withPlainDigits(typed));
}

int numberInRange(const Decimal& typed, int count) {
    if (typed <= Decimal(0) || typed > Decimal(count)) return 0;
    return static_cast<int>(typed.roundedHalfEven());
}

}  // namespace quorvel
