#include "core/Ranks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>

namespace quorvel {

namespace {

/// A student on the way into the order of ranks.
struct Student {
    std::uint32_t behindBest = 0;  // the difference between the percentages
    std::uint32_t index = 0;
};

constexpr unsigned byteBits = 8;
constexpr std::uint32_t byteValues = 1U << byteBits;

/// In the order of the byte from bit `shift` on; those that are equal in it stay in theirs.
std::vector<Student> sortedByByte(const std::vector<Student>& students, unsigned shift) {
    const auto byteOf = [shift](const Student& student) {
        return (student.behindBest >> shift) % byteValues;
    };
    std::array<std::uint32_t, byteValues + 1> places{};
    for (const Student& student : students) ++places[byteOf(student) + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<Student> sorted(students.size());
    for (const Student& student : students) sorted[places[byteOf(student)]++] = student;
    return sorted;
}

/// Counted byte by byte and not compared: the processor would guess every other comparison wrong.
std::vector<Student> fromBestToLast(std::span<const std::int32_t> percentages) {
    const auto [lowest, highest] = std::ranges::minmax(percentages);
    const auto behind = [best = static_cast<std::uint32_t>(highest)](std::int32_t percentage) {
        return best - static_cast<std::uint32_t>(percentage);
    };
    std::vector<Student> students(percentages.size());
    for (std::uint32_t i = 0; i < students.size(); ++i) students[i] = {behind(percentages[i]), i};
    unsigned shift = 0;
    for (std::uint32_t range = behind(lowest); range != 0; range >>= byteBits) {
        students = sortedByByte(students, shift);
        shift += byteBits;
    }
    return students;
}

}  // namespace

std::vector<int> ranksOf(std::span<const std::int32_t> percentages) {
    if (percentages.empty()) return {};
    std::vector<int> ranks(percentages.size());
    int rank = 0;
    int place = 0;
    std::uint32_t before = 0;
    for (const Student& student : fromBestToLast(percentages)) {
        ++place;
        if (place == 1 || student.behindBest != before) rank = place;
        before = student.behindBest;
        ranks[student.index] = rank;
    }
    return ranks;
}

}  // namespace quorvel
