#pragma once

#include <filesystem>
#include <string_view>

namespace quorvel {

struct ScreenSize {
    int width = 0;   // pixels
    int height = 0;  // pixels

    bool operator==(const ScreenSize&) const = default;
};

/// What the program asks of the system around it.
class Shell {
  public:
    virtual ~Shell() = default;
    /// Starts `program` (a command line as asked for, blanks included) on `file`, in a maximised
    /// window that takes the focus, and does not wait for it. False when it did not start.
    virtual bool startMaximized(std::string_view program, const std::filesystem::path& file) = 0;
    virtual ScreenSize screenSize() const = 0;
    /// The client area of the largest window with a menu bar that the screen has room for.
    virtual ScreenSize largestClientArea() const = 0;
};

}  // namespace quorvel
