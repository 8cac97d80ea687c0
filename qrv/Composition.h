#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// The text with each letter and the accent behind it made one character, where Unicode has one and
/// a single-byte code page may hold it: some programs write the two apart. Both are UTF-8.
std::string composed(std::string_view text);

}  // namespace quorvel
