#pragma once

#include <windows.h>

namespace quorvel::scenario {

/// How many objects of the drawing system a process holds: device contexts, bitmaps, fonts, ...
/// Throws ScenarioError where they cannot be counted.
int drawingHandles(HANDLE process);

}  // namespace quorvel::scenario
