#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/ports/Files.h"

namespace quorvel::faults {

/// Something that the program writes over what it wrote before.
struct Save {
    std::string name;
    std::filesystem::path file;
    std::function<void(Files&)> write;
};

/// A sheet in which every cell holds a score.
Save sheetSave(int students, int assignments);

/// Sheets of 1 x 1 and 30 x 20, every settings file, the recent files, the password.
std::vector<Save> everySave();

/// What the save writes where there is no file.
Bytes contentOf(const Save& save);

/// `content` over `old`: what is longer stays behind it.
Bytes over(const Bytes& old, const Bytes& content);

}  // namespace quorvel::faults
