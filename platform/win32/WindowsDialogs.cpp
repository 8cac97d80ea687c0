#include "platform/win32/WindowsDialogs.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>

#include <windows.h>

#include "core/Errors.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/FileDialogs.h"
#include "platform/win32/Handles.h"
#include "platform/win32/PasswordWindow.h"
#include "platform/win32/PrinterDevice.h"
#include "platform/win32/PromptBox.h"
#include "platform/win32/Texts.h"

#include <commdlg.h>

namespace quorvel {

namespace {

constexpr float pointParts = 10;  // the font dialog counts in tenths of a point
constexpr int pointsPerInch = 72;

UINT boxStyle(const Message& message) {
    UINT style = message.buttons == Buttons::Ok         ? MB_OK
                 : message.buttons == Buttons::OkCancel ? MB_OKCANCEL
                                                        : MB_YESNO;
    if (message.icon == Icon::Critical) style |= MB_ICONERROR;
    if (message.icon == Icon::Information) style |= MB_ICONINFORMATION;
    return style;
}

Answer answerOf(int button) {
    switch (button) {
        case IDOK:
            return Answer::Ok;
        case IDYES:
            return Answer::Yes;
        case IDNO:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

/// Brings an owner back when it goes.
class KeptOwner {
  public:
    explicit KeptOwner(HWND& owner) : owner_(owner), before_(owner) {}
    KeptOwner(const KeptOwner&) = delete;
    KeptOwner& operator=(const KeptOwner&) = delete;
    ~KeptOwner() { owner_ = before_; }

  private:
    HWND& owner_;
    HWND before_;
};

/// Brings the cursor back that the program showed before a dialog.
class KeptCursor {
  public:
    KeptCursor() = default;
    KeptCursor(const KeptCursor&) = delete;
    KeptCursor& operator=(const KeptCursor&) = delete;
    ~KeptCursor() { ::SetCursor(before_); }

  private:
    HCURSOR before_ = ::GetCursor();
};

}  // namespace

void WindowsDialogs::setOwner(HWND owner, std::function<void()> opening) {
    owner_ = owner;
    opening_ = std::move(opening);
}

HWND WindowsDialogs::beginDialog() {
    if (opening_) opening_();
    // Windows can end the session while a dialog is open: what is asked then belongs to that one.
    return owner_ == nullptr ? nullptr : ::GetLastActivePopup(owner_);
}

std::string WindowsDialogs::prompt(const Prompt& prompt) {
    const KeptCursor cursor;
    return showPromptBox(beginDialog(), prompt, codePage_);
}

Answer WindowsDialogs::message(const Message& message) {
    const KeptCursor cursor;
    const HWND owner = beginDialog();
    const CentredDialogs centred;
    return answerOf(::MessageBoxW(owner, toWide(message.text, codePage_).c_str(),
                                  toWide(message.title, codePage_).c_str(), boxStyle(message)));
}

std::optional<std::filesystem::path> WindowsDialogs::openFile(
    std::string_view title, const std::filesystem::path& startFolder) {
    const KeptCursor cursor;
    return chooseFileToOpen(beginDialog(), toWide(title, codePage_), startFolder);
}

std::optional<std::filesystem::path> WindowsDialogs::saveFile(
    std::string_view title, const std::filesystem::path& startFolder) {
    const KeptCursor cursor;
    return chooseFileToSave(beginDialog(), toWide(title, codePage_), startFolder);
}

std::optional<PrintFont> WindowsDialogs::chooseFont(const PrintFont& current) {
    const KeptCursor cursor;
    const HWND owner = beginDialog();
    const UniqueDC printer = openPrinter(defaultPrinterName(), {});
    LOGFONTW font{};
    const WindowDC screen(nullptr);
    font.lfHeight = static_cast<LONG>(
        -std::lround(current.size * static_cast<float>(::GetDeviceCaps(screen.get(), LOGPIXELSY)) /
                     pointsPerInch));
    font.lfWeight = FW_NORMAL;
    const std::wstring name = toWide(current.name, codePage_).substr(0, LF_FACESIZE - 1);
    name.copy(font.lfFaceName, name.size());

    CHOOSEFONTW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.hDC = printer.get();
    request.lpLogFont = &font;
    request.Flags = CF_INITTOLOGFONTSTRUCT | CF_FORCEFONTEXIST | CF_NOVERTFONTS |
                    (printer ? CF_BOTH : CF_SCREENFONTS);
    const CentredDialogs centred;
    if (::ChooseFontW(&request) == FALSE) return std::nullopt;
    return PrintFont{fromWide(font.lfFaceName, codePage_),
                     static_cast<float>(request.iPointSize) / pointParts};
}

bool WindowsDialogs::passwordWindow(std::string_view caption, const SubmitPassword& submit) {
    const KeptCursor cursor;
    const HWND owner = beginDialog();
    const KeptOwner kept(owner_);
    return showPasswordWindow(
        owner, caption, codePage_, [this](HWND window) { owner_ = window; }, submit);
}

}  // namespace quorvel
