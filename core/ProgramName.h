#pragma once

namespace quorvel {

/// The program's name: the title of every message box that has none of its own.
inline constexpr const char* programName = "Quorvel";

}  // namespace quorvel
