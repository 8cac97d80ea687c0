#pragma once

#include <cstdint>
#include <string>

#include "core/GradingScale.h"

namespace quorvel::figures {

/// Each figure once more, in plain whole numbers and by another way than the program goes: a
/// percentage or an average is not computed but put to the test.

/// Whether `tenths` / 1000 is `earned` / `possible`, cut toward minus infinity to a whole number of
/// thousandths; 1000 where nothing is possible.
constexpr bool isPercentage(std::int64_t tenths, std::int64_t earned, std::int64_t possible) {
    if (possible == 0) return tenths == 1000;
    const std::int64_t rest = earned * 1000 - tenths * possible;
    return possible > 0 ? 0 <= rest && rest < possible : possible < rest && rest <= 0;
}

/// Whether `average` is `sum` / `count` rounded to a whole number, halves to the even one.
constexpr bool isAverage(std::int64_t average, std::int64_t sum, std::int64_t count) {
    const std::int64_t twiceAway = 2 * (sum - average * count);
    if (twiceAway == count || twiceAway == -count) return average % 2 == 0;
    return -count < twiceAway && twiceAway < count;
}

/// The letter as it is told: from the worst grade on, each one that is reached overrides those
/// before it.
inline LetterGrade letter(std::int64_t tenths, const GradingScale& scale) {
    const std::int64_t allowance = scale.roundUp == GradingScale::roundUpOn ? 5 : 0;
    LetterGrade reached = LetterGrade::F;
    const auto test = [&](std::int64_t minimum, LetterGrade grade) {
        if (tenths + allowance >= minimum * 10) reached = grade;
    };
    test(scale.minimums[4], LetterGrade::E);
    test(scale.minimums[3], LetterGrade::D);
    test(scale.minimums[2], LetterGrade::C);
    test(scale.minimums[1], LetterGrade::B);
    test(scale.minimums[0], LetterGrade::A);
    return reached;
}

/// The shortest decimal text of a number of tenths.
inline std::string text(std::int64_t tenths) {
    const std::int64_t size = tenths < 0 ? -tenths : tenths;
    std::string written = (tenths < 0 ? "-" : "") + std::to_string(size / 10);
    if (size % 10 != 0) {
        written += '.';
        written += std::to_string(size % 10);
    }
    return written;
}

}  // namespace quorvel::figures
