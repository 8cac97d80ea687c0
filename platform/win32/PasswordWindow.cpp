#include "platform/win32/PasswordWindow.h"

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/ModalDialog.h"
#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

// All in pixels.
constexpr int margin = 14;
constexpr int entryWidth = 220;
constexpr int lineHeight = 24;
constexpr int buttonWidth = 76;
constexpr int spaceBeforeButton = 8;

constexpr wchar_t mask = L'*';

void createPasswordWindow(HWND dialog, HFONT font, std::string_view caption,
                          const CodePage& codePage) {
    const HWND entry =
        createControl(dialog, {.windowClass = L"EDIT",
                               .style = WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD,
                               .extendedStyle = WS_EX_CLIENTEDGE,
                               .id = control_id::txtPW,
                               .place = {margin, margin, entryWidth, lineHeight},
                               .font = font});
    const int buttonLeft = margin + entryWidth + spaceBeforeButton;
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"Submit",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON,
                           .id = control_id::cmdPW,
                           .place = {buttonLeft, margin, buttonWidth, lineHeight},
                           .font = font});
    setWindowText(dialog, caption, codePage);
    setClientSize(dialog, buttonLeft + buttonWidth + margin, margin + lineHeight + margin);
    ::SendMessageW(entry, EM_SETPASSWORDCHAR, mask, 0);
}

/// Takes the entry out of the window, which is empty from then on.
std::string takeEntry(HWND entry, const CodePage& codePage) {
    std::string text = windowText(entry, codePage);
    setWindowText(entry, "", codePage);
    return text;
}

}  // namespace

bool showPasswordWindow(HWND owner, std::string_view caption, const CodePage& codePage,
                        const std::function<void(HWND)>& opened, const SubmitPassword& submit) {
    const UniqueFont font = messageFont();
    bool finished = false;
    const auto create = [&](HWND dialog) {
        createPasswordWindow(dialog, font.get(), caption, codePage);
        opened(dialog);
    };
    const auto choose = [&](HWND dialog, int id) {
        if (id == IDCANCEL) return true;
        if (id != control_id::cmdPW) return false;
        const HWND entry = ::GetDlgItem(dialog, control_id::txtPW);
        const SetCaption setCaption = [&](std::string_view text) {
            setWindowText(dialog, text, codePage);
        };
        finished = submit(takeEntry(entry, codePage), setCaption) == PasswordStep::Close;
        if (!finished) ::SetFocus(entry);
        return finished;
    };
    runModalDialog(owner, {.create = create, .choose = choose});
    return finished;
}

}  // namespace quorvel
