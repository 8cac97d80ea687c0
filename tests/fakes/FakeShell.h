#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/Shell.h"

namespace quorvel {

/// A shell that notes what it was asked for. Nothing is started or copied.
class FakeShell final : public Shell {
  public:
    struct Launch {
        std::string program;
        std::filesystem::path file;
        bool operator==(const Launch&) const = default;
    };
    struct Copy {
        std::filesystem::path from;
        std::filesystem::path to;
        bool operator==(const Copy&) const = default;
    };

    std::vector<Launch> launches;
    std::vector<Copy> copies;
    /// What starting and copying report.
    bool works = true;
    ScreenSize screen{1024, 768};

    bool startMaximized(std::string_view program, const std::filesystem::path& file) override {
        launches.push_back({std::string(program), file});
        return works;
    }
    bool copyFile(const std::filesystem::path& from, const std::filesystem::path& to) override {
        copies.push_back({from, to});
        return works;
    }
    ScreenSize screenSize() const override { return screen; }
};

}  // namespace quorvel
