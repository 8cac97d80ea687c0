#include <array>
#include <limits>

#include "core/Grades.h"
#include "core/GradingScale.h"
#include "core/Numbers.h"
#include "tests/figures/ByHand.h"
#include "tests/figures/Trials.h"

namespace quorvel::figures {

namespace {

constexpr std::int64_t smallest = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int16_t>::max();
constexpr std::uint64_t sizeOf16Bits = 65536;
/// The farthest percentage that a pair comes to: the smallest points earned of 1 or -1 possible.
constexpr std::int64_t farthestTenths = -smallest * 1000;

std::string named(char letter) {
    return {letter};
}

std::string described(const GradingScale& scale) {
    std::string words = "in the scale";
    for (const std::int16_t minimum : scale.minimums) words += ' ' + std::to_string(minimum);
    return words + " with the allowance " + scale.roundUp;
}

/// The five minimums with and without rounding up.
void addBoth(std::vector<GradingScale>& scales, const std::array<std::int16_t, 5>& minimums) {
    scales.push_back({.minimums = minimums, .roundUp = GradingScale::roundUpOff});
    scales.push_back({.minimums = minimums, .roundUp = GradingScale::roundUpOn});
}

/// The usual scale, one at each end of what the program lets a teacher choose, and ones that only a
/// file can hold: equal, ascending and mixed minimums, negative ones, the ends of 16 bits. Then
/// every whole percentage once as each letter's minimum.
std::vector<GradingScale> manyScales() {
    std::vector<GradingScale> scales;
    addBoth(scales, GradingScale::defaultMinimums);
    addBoth(scales, {99, 98, 97, 96, 95});
    addBoth(scales, {6, 5, 4, 3, 2});
    addBoth(scales, {90, 80, 70, 60, 50});
    addBoth(scales, {0, 0, 0, 0, 0});
    addBoth(scales, {75, 75, 75, 75, 75});
    addBoth(scales, {60, 70, 76, 86, 94});
    addBoth(scales, {70, 94, 60, 86, 76});
    addBoth(scales, {94, 60, 76, 60, 94});
    addBoth(scales, {100, 50, 0, -50, -100});
    addBoth(scales, {150, 120, 110, 105, 101});
    addBoth(scales,
            {static_cast<std::int16_t>(largest), 1, 0, -1, static_cast<std::int16_t>(smallest)});
    addBoth(scales,
            {static_cast<std::int16_t>(smallest), -1, 0, 1, static_cast<std::int16_t>(largest)});
    for (std::int16_t minimum = 2; minimum < 100; ++minimum)
        for (std::size_t letter = 0; letter < 5; ++letter) {
            std::array<std::int16_t, 5> minimums{};
            for (std::size_t i = 0; i < minimums.size(); ++i)
                minimums[i] = static_cast<std::int16_t>(
                    minimum + 10 * (static_cast<int>(letter) - static_cast<int>(i)));
            addBoth(scales, minimums);
        }
    return scales;
}

bool isRightLetter(std::int64_t tenths, const GradingScale& scale, LetterGrade found,
                   Outcome& outcome) {
    const LetterGrade wanted = letter(tenths, scale);
    if (found == wanted) return true;
    if (outcome.wantsWords())
        outcome.tell(text(tenths) + " % is " + named(static_cast<char>(wanted)) + ", not " +
                     named(static_cast<char>(found)) + ", " + described(scale));
    return false;
}

}  // namespace

Outcome tryPairs(const Selection& selection) {
    const GradingScale plain;
    const GradingScale roundedUp{.minimums = GradingScale::defaultMinimums,
                                 .roundUp = GradingScale::roundUpOn};
    const LetterThresholds thresholds(plain);
    const LetterThresholds loweredThresholds(roundedUp);
    Outcome outcome;
    for (std::uint64_t number = selection.first; number < sizeOf16Bits * sizeOf16Bits;
         number += selection.stride) {
        const auto earned =
            static_cast<std::int16_t>(smallest + static_cast<std::int64_t>(number / sizeOf16Bits));
        const auto possible =
            static_cast<std::int16_t>(smallest + static_cast<std::int64_t>(number % sizeOf16Bits));
        const std::int32_t found = percentageTenths(earned, possible);
        const bool isRight = isPercentage(found, earned, possible);
        if (!isRight && outcome.wantsWords())
            outcome.tell(std::to_string(earned) + " of " + std::to_string(possible) + " is not " +
                         text(found) + " %");
        const bool isRightPlain = isRightLetter(found, plain, thresholds.letterFor(found), outcome);
        const bool isRightRoundedUp =
            isRightLetter(found, roundedUp, loweredThresholds.letterFor(found), outcome);
        outcome.add(isRight && isRightPlain && isRightRoundedUp);
    }
    return outcome;
}

Outcome tryTexts(const Selection& selection) {
    Outcome outcome;
    for (std::uint64_t number = selection.first;
         number <= 2 * static_cast<std::uint64_t>(farthestTenths); number += selection.stride) {
        const std::int64_t tenths = static_cast<std::int64_t>(number) - farthestTenths;
        const std::string found = tenthsText(tenths);
        const bool isRight = found == text(tenths);
        if (!isRight && outcome.wantsWords())
            outcome.tell(std::to_string(tenths) + " tenths are " + text(tenths) + ", not " + found);
        outcome.add(isRight);
    }
    return outcome;
}

Outcome tryLetters(const Selection& selection) {
    /// Around a threshold, in tenths: the lowered one and a whole percent on each side.
    constexpr std::int64_t around = 15;
    Outcome outcome;
    std::uint64_t number = 0;
    for (const GradingScale& scale : manyScales()) {
        const LetterThresholds thresholds(scale);
        for (const std::int16_t minimum : scale.minimums)
            for (std::int64_t tenths = minimum * 10 - around; tenths <= minimum * 10 + around;
                 ++tenths)
                if (number++ % selection.stride == selection.first % selection.stride)
                    outcome.add(
                        isRightLetter(tenths, scale, thresholds.letterFor(tenths), outcome));
    }
    return outcome;
}

}  // namespace quorvel::figures
