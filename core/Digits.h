#pragma once

#include <optional>

namespace quorvel {

/// What a decimal digit of any script counts as, 0 to 9; nothing for any other character.
std::optional<int> digitValue(char32_t character);

}  // namespace quorvel
