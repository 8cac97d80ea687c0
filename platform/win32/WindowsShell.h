#pragma once

#include "core/CodePage.h"
#include "core/ports/Shell.h"

namespace quorvel {

/// Windows around the program.
class WindowsShell final : public Shell {
  public:
    /// `codePage` must outlive the shell.
    explicit WindowsShell(const CodePage& codePage) : codePage_(codePage) {}

    bool startMaximized(std::string_view program, const std::filesystem::path& file) override;
    ScreenSize screenSize() const override;
    ScreenSize largestClientArea() const override;

  private:
    const CodePage& codePage_;
};

}  // namespace quorvel
