#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <vector>

#include "platform/win32/Handles.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// Files that another program than the tried one has open: this one. They are closed with this
/// object.
class HeldFiles {
  public:
    /// Throws ScenarioError when the file cannot be opened like that.
    void open(const std::filesystem::path& file, FileSharing sharing);
    /// Throws ScenarioError when the file is not open.
    void close(const std::filesystem::path& file);

    bool contains(const std::filesystem::path& file) const { return files_.contains(file); }
    /// The bytes of a file that is open.
    std::vector<std::byte> contentOf(const std::filesystem::path& file) const;

  private:
    std::map<std::filesystem::path, UniqueHandle> files_;
};

}  // namespace quorvel::scenario
