#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

/// The part of a number behind its whole part, as far as rounding needs to know it. The whole part
/// is the greatest whole number not above the number.
enum class Fraction : std::uint8_t { None, BelowHalf, Half, AboveHalf };

/// An exact decimal number of any length. Typed fractions count as the decimals that were typed,
/// so averages and percentages of them are computed here and never in floating point.
class Decimal {
  public:
    Decimal() = default;
    explicit Decimal(std::int64_t number);

    /// The leading number of `text`, exactly; 0 when it has none.
    static Decimal fromText(std::string_view text);

    Decimal& operator+=(const Decimal& other);

    /// This number x `factor` / `divisor`, cut toward minus infinity to a whole number.
    /// Requires factor >= 0 and divisor != 0.
    Decimal scaledDown(std::int64_t factor, std::int64_t divisor) const;

    bool isNegative() const;
    /// The number without its sign.
    Decimal absolute() const { return isNegative() ? negated() : *this; }
    Fraction fraction() const;

    /// The rule for typed scores and point values: a number whose fraction is one half or more
    /// becomes its whole part plus 1, a smaller fraction stays.
    Decimal roundedUpFromHalf() const;

    /// The decimal text, without needless zeros: "7.25", "12", "-0.5", "0".
    std::string text() const;

    /// A whole number of tenths as text with its decimal point: 944 is "94.4", 1000 is "100".
    /// Requires a whole number, as scaledDown gives it.
    std::string tenthsText() const;

    /// The digits of a whole number as 64 bits, stopping at their ends. A fraction is cut
    /// toward minus infinity.
    std::int64_t toInteger() const;
    /// The nearest whole number, exact halves to the even neighbour, stopping at the ends of 64
    /// bits.
    std::int64_t roundedHalfEven() const;

    bool operator==(const Decimal&) const = default;
    std::strong_ordering operator<=>(const Decimal& other) const;

  private:
    Decimal(bool negative, std::string digits, std::size_t fractionDigits);

    static Decimal shortFromText(bool negative, std::string_view number);

    bool isLong() const { return !digits_.empty(); }
    Decimal negated() const;
    std::string magnitude() const;
    void dropNeedlessZeros();
    bool addShort(const Decimal& other);
    void addLong(const Decimal& other);

    /// The number without its decimal point, while it has few enough digits ...
    std::int64_t units_ = 0;
    /// ... and where it has more: its digits, most significant first, and its sign.
    std::string digits_;
    bool negative_ = false;
    /// How many of the digits stand behind the decimal point; the last of them is never 0.
    std::size_t fractionDigits_ = 0;
};

}  // namespace quorvel
