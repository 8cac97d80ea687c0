#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvel {

/// The name that takes the fewest added, dropped and changed characters to come to from `word`; the
/// first of those that are equally near. `names` must not be empty.
std::string nearestName(std::string_view word, std::span<const std::string> names);

}  // namespace quorvel
