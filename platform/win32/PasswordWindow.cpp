#include "platform/win32/PasswordWindow.h"

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/ModalDialog.h"
#include "platform/win32/Texts.h"
#include "window/DialogLayout.h"

namespace quorvel {

namespace {

constexpr wchar_t mask = L'*';

void createPasswordWindow(HWND dialog, HFONT font, std::string_view caption,
                          const CodePage& codePage) {
    const PasswordLayout layout = passwordLayout(measureFont(dialog, font));
    const HWND entry =
        createControl(dialog, {.windowClass = L"EDIT",
                               .style = WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD,
                               .extendedStyle = WS_EX_CLIENTEDGE,
                               .id = control_id::txtPW,
                               .place = layout.entry,
                               .font = font});
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"Submit",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON,
                           .id = control_id::cmdPW,
                           .place = layout.submitButton,
                           .font = font});
    setWindowText(dialog, caption, codePage);
    setClientSize(dialog, layout.width, layout.height);
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
        // Escape does nothing; only the close box ends the window without an entry.
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
