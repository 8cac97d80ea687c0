#pragma once

namespace quorvel {

/// The keys that mean something to the main window, as virtual key codes.
namespace key {

inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int f2 = 113;
inline constexpr int f3 = 114;
inline constexpr int f4 = 115;

}  // namespace key

}  // namespace quorvel
