#pragma once

#include <functional>

#include <windows.h>

#include "core/CodePage.h"
#include "core/ports/Dialogs.h"
#include "platform/win32/Handles.h"

namespace quorvel {

/// The program's questions in Windows' own boxes.
class WindowsDialogs final : public Dialogs {
  public:
    /// `codePage` must outlive the dialogs.
    explicit WindowsDialogs(const CodePage& codePage) : codePage_(codePage) {}

    /// The window that dialogs belong to from now on; none at first. `opening` is called before
    /// each, so that the window behind it shows the state that it asks about.
    void setOwner(HWND owner, std::function<void()> opening);

    std::string prompt(const Prompt& prompt) override;
    Answer message(const Message& message) override;
    std::optional<std::filesystem::path> openFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<std::filesystem::path> saveFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<PrintFont> chooseFont(const PrintFont& current) override;
    bool passwordWindow(std::string_view caption, const SubmitPassword& submit) override;

  private:
    /// Brings the main window up to date; the owner of what is opened next.
    HWND beginDialog();

    ObjectApartment apartment_;
    const CodePage& codePage_;
    HWND owner_ = nullptr;
    std::function<void()> opening_;
};

}  // namespace quorvel
