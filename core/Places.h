#pragma once

#include <filesystem>

namespace quorvel {

/// Where the program finds and puts its files. All absolute.
struct Places {
    /// The folder of the executable: settings, bitmaps and the Grades folder live in it.
    std::filesystem::path programFolder;
    /// Where the start-up password of the machine is kept: outside the program's folder.
    std::filesystem::path passwordFile;
    /// The user's own folders.
    std::filesystem::path documents;
    std::filesystem::path localData;
    std::filesystem::path temporary;
};

}  // namespace quorvel
