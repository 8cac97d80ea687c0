#include "core/Decimal.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/LongNumbers.h"
#include "core/Numbers.h"

namespace quorvel {

using namespace long_numbers;

namespace {

__extension__ typedef __int128 Wide;

/// Any number of this many digits fits into 64 bits.
constexpr std::size_t shortDigits = 18;

constexpr std::array<std::int64_t, shortDigits + 1> powersOfTen = [] {
    std::array<std::int64_t, shortDigits + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

bool isShort(std::int64_t number) {
    constexpr std::int64_t tooLong = powersOfTen[shortDigits];
    return number > -tooLong && number < tooLong;
}

std::uint64_t magnitudeOf(std::int64_t number) {
    return number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
}

}  // namespace

Decimal::Decimal(std::int64_t number) {
    if (isShort(number))
        units_ = number;
    else
        *this = Decimal(number < 0, digitsOf(magnitudeOf(number)), 0);
}

Decimal::Decimal(bool negative, std::string digits, std::size_t fractionDigits)
    : digits_(std::move(digits)), negative_(negative), fractionDigits_(fractionDigits) {
    stripLeadingZeros(digits_);
    dropNeedlessZeros();
    if (digits_.size() > shortDigits) return;
    for (const char digit : digits_) units_ = units_ * 10 + static_cast<int>(valueOf(digit));
    if (negative_) units_ = -units_;
    digits_.clear();
    negative_ = false;
}

Decimal Decimal::fromText(std::string_view text) {
    std::string_view number = leadingNumberText(text);
    if (number.empty()) return {};
    const bool negative = number[0] == '-';
    if (negative || number[0] == '+') number.remove_prefix(1);
    if (number.size() <= shortDigits) return shortFromText(negative, number);
    std::string digits(number);
    const std::size_t point = digits.find('.');
    if (point == std::string::npos) return Decimal(negative, std::move(digits), 0);
    digits.erase(point, 1);
    const std::size_t fractionDigits = digits.size() - point;
    return Decimal(negative, std::move(digits), fractionDigits);
}

/// Requires digits with at most one decimal point, few enough.
Decimal Decimal::shortFromText(bool negative, std::string_view number) {
    Decimal decimal;
    const std::size_t point = number.find('.');
    if (point != std::string_view::npos) decimal.fractionDigits_ = number.size() - point - 1;
    for (const char character : number)
        if (character != '.')
            decimal.units_ = decimal.units_ * 10 + static_cast<int>(valueOf(character));
    if (negative) decimal.units_ = -decimal.units_;
    decimal.dropNeedlessZeros();
    return decimal;
}

void Decimal::dropNeedlessZeros() {
    if (isLong()) {
        while (fractionDigits_ > 0 && !digits_.empty() && digits_.back() == '0') {
            digits_.pop_back();
            --fractionDigits_;
        }
        if (!digits_.empty()) return;
    }
    while (fractionDigits_ > 0 && units_ % 10 == 0) {
        if (units_ == 0) fractionDigits_ = 1;
        units_ /= 10;
        --fractionDigits_;
    }
}

Decimal& Decimal::operator+=(const Decimal& other) {
    if (!addShort(other)) addLong(other);
    return *this;
}

/// Adds in 64 bits; false, with nothing changed, where that is too little.
bool Decimal::addShort(const Decimal& other) {
    if (isLong() || other.isLong()) return false;
    const std::size_t digits = std::max(fractionDigits_, other.fractionDigits_);
    const std::size_t mine = digits - fractionDigits_;
    const std::size_t theirs = digits - other.fractionDigits_;
    if (mine > shortDigits || theirs > shortDigits) return false;
    std::int64_t left = 0;
    std::int64_t right = 0;
    std::int64_t sum = 0;
    if (__builtin_mul_overflow(units_, powersOfTen[mine], &left) ||
        __builtin_mul_overflow(other.units_, powersOfTen[theirs], &right) ||
        __builtin_add_overflow(left, right, &sum) || !isShort(sum))
        return false;
    units_ = sum;
    fractionDigits_ = digits;
    dropNeedlessZeros();
    return true;
}

void Decimal::addLong(const Decimal& other) {
    const std::size_t digits = std::max(fractionDigits_, other.fractionDigits_);
    std::string mine = magnitude() + std::string(digits - fractionDigits_, '0');
    std::string theirs = other.magnitude() + std::string(digits - other.fractionDigits_, '0');
    stripLeadingZeros(mine);
    stripLeadingZeros(theirs);
    if (isNegative() == other.isNegative())
        *this = Decimal(isNegative(), sumOf(mine, theirs), digits);
    else if (isBelow(mine, theirs))
        *this = Decimal(other.isNegative(), differenceOf(theirs, mine), digits);
    else
        *this = Decimal(isNegative(), differenceOf(mine, theirs), digits);
}

/// The digits without sign and decimal point; none for 0.
std::string Decimal::magnitude() const {
    if (isLong()) return digits_;
    return units_ == 0 ? std::string() : std::to_string(magnitudeOf(units_));
}

Decimal Decimal::scaledDown(std::int64_t factor, std::int64_t divisor) const {
    if (!isLong() && fractionDigits_ <= shortDigits) {
        std::int64_t dividend = 0;
        std::int64_t whole = 0;
        if (!__builtin_mul_overflow(units_, factor, &dividend) &&
            !__builtin_mul_overflow(divisor, powersOfTen[fractionDigits_], &whole) &&
            dividend > std::numeric_limits<std::int64_t>::min())
            return Decimal(divideDown(dividend, whole));
    }
    Quotient quotient =
        quotientOf(productOf(magnitude(), magnitudeOf(factor)), magnitudeOf(divisor));
    dropDigits(quotient, fractionDigits_);
    const bool negative = isNegative() != (divisor < 0);
    if (negative && quotient.hasRest) quotient.digits = sumOf(quotient.digits, "1");
    return Decimal(negative, std::move(quotient.digits), 0);
}

bool Decimal::isNegative() const {
    return isLong() ? negative_ : units_ < 0;
}

Decimal Decimal::negated() const {
    Decimal negated = *this;
    negated.units_ = -units_;
    negated.negative_ = isLong() && !negative_;
    return negated;
}

std::strong_ordering Decimal::operator<=>(const Decimal& other) const {
    if (*this == other) return std::strong_ordering::equal;
    Decimal difference = *this;
    difference += other.negated();
    return difference.isNegative() ? std::strong_ordering::less : std::strong_ordering::greater;
}

Fraction Decimal::fraction() const {
    if (fractionDigits_ == 0) return Fraction::None;
    const std::string digits = magnitude();
    const bool startsBehindTenths = digits.size() < fractionDigits_;
    const char tenths = startsBehindTenths ? '0' : digits[digits.size() - fractionDigits_];
    // The last digit is never 0, so only one that stands alone makes exactly one half.
    if (tenths == '5' && fractionDigits_ == 1) return Fraction::Half;
    return (tenths >= '5') != isNegative() ? Fraction::AboveHalf : Fraction::BelowHalf;
}

Decimal Decimal::roundedUpFromHalf() const {
    const Fraction rest = fraction();
    if (rest != Fraction::Half && rest != Fraction::AboveHalf) return *this;
    Decimal rounded = scaledDown(1, 1);
    rounded += Decimal(1);
    return rounded;
}

std::int64_t Decimal::roundedHalfEven() const {
    const std::int64_t whole = toInteger();
    const Fraction rest = fraction();
    const bool roundsUp = rest == Fraction::AboveHalf || (rest == Fraction::Half && whole % 2 != 0);
    return roundsUp && whole < std::numeric_limits<std::int64_t>::max() ? whole + 1 : whole;
}

std::string Decimal::text() const {
    std::string digits = magnitude();
    if (digits.size() <= fractionDigits_)
        digits.insert(0, fractionDigits_ + 1 - digits.size(), '0');
    if (fractionDigits_ > 0) digits.insert(digits.size() - fractionDigits_, 1, '.');
    return isNegative() ? "-" + digits : digits;
}

std::string Decimal::tenthsText() const {
    Decimal number = *this;
    ++number.fractionDigits_;
    number.dropNeedlessZeros();
    return number.text();
}

std::int64_t Decimal::toInteger() const {
    if (!isLong() && fractionDigits_ <= shortDigits)
        return divideDown(units_, powersOfTen[fractionDigits_]);
    const Decimal whole = fractionDigits_ == 0 ? *this : scaledDown(1, 1);
    if (!whole.isLong()) return whole.units_;
    // 19 digits may still fit, more never do.
    constexpr std::size_t mostDigits = shortDigits + 1;
    const bool negative = whole.negative_;
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
    if (whole.digits_.size() > mostDigits) return negative ? smallest : largest;
    Wide number = 0;
    for (const char digit : whole.digits_) number = number * 10 + static_cast<int>(valueOf(digit));
    if (negative) number = -number;
    return static_cast<std::int64_t>(std::clamp(number, Wide{smallest}, Wide{largest}));
}

}  // namespace quorvel
