#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/Decimal.h"

namespace quorvel {

/// The part of `text` that reads as a number: digits with at most one decimal point, with an
/// optional sign, behind any blanks. The blanks are not part of the result, the sign is.
/// Empty when the text does not start with a number.
std::string_view leadingNumberText(std::string_view text);

/// Whether `text` is wholly a number, blanks around it disregarded.
bool isNumberText(std::string_view text);

/// The leading number of `text`; 0 when it has none. Beyond what a double holds it stops there.
double leadingNumber(std::string_view text);

/// The shortest decimal text that reads back the same, never in exponent form; "-0" is "0".
std::string decimalText(double number);
std::string decimalText(float number);

/// The nearest whole number, exact halves to the even neighbour. Numbers beyond the range of the
/// result stop at its ends; what is not a number gives 0.
std::int64_t roundHalfEven(double number);

/// `dividend` / `divisor` as the nearest whole number, exact halves to the even neighbour.
/// Requires divisor > 0.
std::int64_t divideHalfEven(std::int64_t dividend, std::int64_t divisor);

/// `dividend` / `divisor` cut toward minus infinity. Requires divisor != 0.
std::int64_t divideDown(std::int64_t dividend, std::int64_t divisor);

/// A figure held in tenths as decimal text: 944 is "94.4", 1000 is "100", -1 is "-0.1".
std::string tenthsText(std::int64_t tenths);

/// The leading number of what a user typed, exactly; 0 when it has none. A digit of another script
/// counts as its digit.
Decimal typedNumber(std::string_view typed, const CodePage& codePage);

/// The row or column that a typed number means. It is compared with 0 and `count` as it was typed
/// and only then rounded, halves to even; 0 (none) when it is outside, or rounds to 0.
int numberInRange(const Decimal& typed, int count);

}  // namespace quorvel
