#pragma once

#include <filesystem>

namespace quorvel {

/// The folder that the program lies in, wherever it was started from.
std::filesystem::path programFolder();

}  // namespace quorvel
