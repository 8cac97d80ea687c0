#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quorvel {

/// A grade from "A" to "F".
enum class LetterGrade : char { A = 'A', B = 'B', C = 'C', D = 'D', E = 'E', F = 'F' };

inline std::string letterText(LetterGrade grade) {
    return {static_cast<char>(grade)};
}

/// The percentages that the grades A to E need, and whether thresholds are lowered by a half point.
struct GradingScale {
    static constexpr std::array<std::int16_t, 5> defaultMinimums{94, 86, 76, 70, 60};
    /// What percentages that a user chooses lie between, both ends excluded: each grade's own
    /// lowest one and, for an A, this highest one; for the others, the grade before.
    static constexpr std::array<std::int16_t, 5> lowestChosen{5, 4, 3, 2, 1};
    static constexpr std::int16_t highestChosen = 100;
    static constexpr const char* roundUpOn = "0.5";
    static constexpr const char* roundUpOff = "0";

    /// Whole percentages for A, B, C, D and E, in that order.
    std::array<std::int16_t, 5> minimums = defaultMinimums;
    /// The allowance as text: "0.5" (round up) or "0" (no rounding).
    std::string roundUp = roundUpOff;

    bool operator==(const GradingScale&) const = default;
};

/// The percentages, in tenths, that a scale's grades need: worked out once for a whole class.
class LetterThresholds {
  public:
    explicit LetterThresholds(const GradingScale& scale);

    /// The grade of a percentage given in tenths of a percent.
    LetterGrade letterFor(std::int64_t percentageTenths) const;
    /// What A, B, C, D and E need, in that order.
    const std::array<std::int64_t, 5>& tenths() const { return tenths_; }

  private:
    std::array<std::int64_t, 5> tenths_{};
};

}  // namespace quorvel
