#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/CodePage.h"
#include "core/ports/Files.h"

namespace quorvel {

/// What the commands work with. Must outlive them.
struct Environment {
    Files& files;
    const CodePage& codePage;
    /// The folder of the program and its settings, where qrv lies in it.
    std::optional<std::filesystem::path> programFolder;
    /// Whether * and ? in the names of sheets are for qrv to expand: some shells leave them.
    bool expandsWildcards = false;
};

/// An absolute path for a path in UTF-8.
std::filesystem::path pathOf(std::string_view path);

/// The path as text in UTF-8.
std::string utf8Of(const std::filesystem::path& path);

}  // namespace quorvel
