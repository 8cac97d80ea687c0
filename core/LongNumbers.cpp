#include "core/LongNumbers.h"

#include <algorithm>

namespace quorvel::long_numbers {

namespace {

char digitOf(WideUnsigned value) {
    return static_cast<char>('0' + static_cast<int>(value));
}

}  // namespace

void stripLeadingZeros(std::string& digits) {
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
}

std::string digitsOf(WideUnsigned number) {
    std::string digits;
    for (; number != 0; number /= 10) digits += digitOf(number % 10);
    std::ranges::reverse(digits);
    return digits;
}

std::string sumOf(const std::string& left, const std::string& right) {
    const std::string& longer = left.size() >= right.size() ? left : right;
    const std::string& shorter = left.size() >= right.size() ? right : left;
    std::string sum;
    unsigned carry = 0;
    for (std::size_t i = 0; i < longer.size(); ++i) {
        carry += valueOf(longer[longer.size() - 1 - i]);
        if (i < shorter.size()) carry += valueOf(shorter[shorter.size() - 1 - i]);
        sum += digitOf(carry % 10);
        carry /= 10;
    }
    if (carry != 0) sum += digitOf(carry);
    std::ranges::reverse(sum);
    return sum;
}

std::string differenceOf(const std::string& larger, const std::string& smaller) {
    std::string difference;
    unsigned borrow = 0;
    for (std::size_t i = 0; i < larger.size(); ++i) {
        const unsigned taken =
            borrow + (i < smaller.size() ? valueOf(smaller[smaller.size() - 1 - i]) : 0);
        const unsigned digit = valueOf(larger[larger.size() - 1 - i]);
        borrow = digit < taken ? 1 : 0;
        difference += digitOf(digit + borrow * 10 - taken);
    }
    std::ranges::reverse(difference);
    return difference;
}

bool isBelow(const std::string& left, const std::string& right) {
    return left.size() != right.size() ? left.size() < right.size() : left < right;
}

std::string productOf(const std::string& digits, std::uint64_t factor) {
    std::string product;
    WideUnsigned carry = 0;
    for (std::size_t i = digits.size(); i-- > 0;) {
        carry += WideUnsigned{factor} * valueOf(digits[i]);
        product += digitOf(carry % 10);
        carry /= 10;
    }
    std::ranges::reverse(product);
    return digitsOf(carry) + product;
}

Quotient quotientOf(const std::string& digits, std::uint64_t divisor) {
    Quotient quotient;
    WideUnsigned rest = 0;
    for (const char digit : digits) {
        rest = rest * 10 + valueOf(digit);
        quotient.digits += digitOf(rest / divisor);
        rest %= divisor;
    }
    quotient.hasRest = rest != 0;
    stripLeadingZeros(quotient.digits);
    return quotient;
}

void dropDigits(Quotient& quotient, std::size_t count) {
    const std::size_t kept = quotient.digits.size() - std::min(quotient.digits.size(), count);
    if (quotient.digits.find_first_not_of('0', kept) != std::string::npos) quotient.hasRest = true;
    quotient.digits.resize(kept);
}

}  // namespace quorvel::long_numbers
