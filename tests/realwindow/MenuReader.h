#pragma once

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "tests/realwindow/RunningProgram.h"

namespace quorvel::scenario {

/// The recent files that the program's File menu shows, from top to bottom: opens the menu, reads
/// it off the screen and closes it again. The program must be waiting for the user.
std::vector<std::string> readRecentFiles(const RunningProgram& program);

}  // namespace quorvel::scenario
