#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quorvel {

/// The rank of each student by these percentages: 1 for the highest one; equal ones share a rank,
/// and those behind a tie skip as many.
std::vector<int> ranksOf(std::span<const std::int32_t> percentages);

}  // namespace quorvel
