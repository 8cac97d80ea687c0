#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/Shell.h"

namespace quorvel {

/// A shell that notes what it was asked for. Nothing is started.
class FakeShell final : public Shell {
  public:
    struct Launch {
        std::string program;
        std::filesystem::path file;
        bool operator==(const Launch&) const = default;
    };

    std::vector<Launch> launches;
    /// What starting reports.
    bool works = true;
    ScreenSize screen{1024, 768};

    bool startMaximized(std::string_view program, const std::filesystem::path& file) override {
        launches.push_back({std::string(program), file});
        return works;
    }
    ScreenSize screenSize() const override { return screen; }
    ScreenSize largestClientArea() const override {
        return {screen.width - frameWidth, screen.height - frameCaptionAndMenuHeight};
    }

  private:
    static constexpr int frameWidth = 8;
    static constexpr int frameCaptionAndMenuHeight = 46;
};

}  // namespace quorvel
