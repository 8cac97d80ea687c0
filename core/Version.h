#pragma once

#include <string_view>

namespace quorvel {

/// The program's version as the build names it, such as "1.0".
std::string_view programVersion();

}  // namespace quorvel
