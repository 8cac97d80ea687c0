#include "tests/realwindow/DialogWindow.h"

#include <algorithm>

#include "platform/win32/ControlIds.h"
#include "tests/realwindow/DialogControls.h"
#include "tests/realwindow/MessageIcon.h"
#include "tests/realwindow/SystemTexts.h"

namespace quorvel::scenario {

namespace {

bool has(HWND dialog, int control) {
    return GetDlgItem(dialog, control) != nullptr;
}

bool hasButton(HWND dialog, int button) {
    HWND control = GetDlgItem(dialog, button);
    return control != nullptr && IsWindowVisible(control) != 0;
}

/// What is on the button that takes the file tells the two file dialogs apart. It is among the last
/// that a dialog gets.
std::optional<DialogKind> fileDialogKind(HWND dialog) {
    HWND button = GetDlgItem(dialog, IDOK);
    if (button == nullptr || classNameOf(button) != L"Button") return std::nullopt;
    std::wstring caption = wideTextOf(button);
    std::erase(caption, L'&');
    return caption == L"Save" ? DialogKind::SaveFile : DialogKind::OpenFile;
}

std::optional<DialogKind> kindOf(HWND window) {
    if (has(window, control_id::promptAnswer)) return DialogKind::Prompt;
    if (has(window, control_id::txtPW)) return DialogKind::Password;
    if (has(window, dialog_control::fileName)) return fileDialogKind(window);
    if (has(window, dialog_control::fontFace) && has(window, dialog_control::fontSize))
        return DialogKind::Font;
    if (has(window, dialog_control::messageText)) return DialogKind::Message;
    return std::nullopt;
}

Buttons buttonsOf(HWND messageBox) {
    const bool ok = hasButton(messageBox, IDOK);
    const bool cancel = hasButton(messageBox, IDCANCEL);
    const bool yes = hasButton(messageBox, IDYES);
    const bool no = hasButton(messageBox, IDNO);
    if (ok && !cancel && !yes && !no) return Buttons::Ok;
    if (ok && cancel && !yes && !no) return Buttons::OkCancel;
    if (!ok && !cancel && yes && no) return Buttons::YesNo;
    throw ScenarioError("a message box with other buttons");
}

}  // namespace

std::optional<DialogWindow> answerableDialog(const RunningProgram& program) {
    for (HWND window : program.visibleWindows()) {
        if (IsWindowEnabled(window) == 0 || classNameOf(window) == control_id::mainWindowClass)
            continue;
        try {
            if (const auto kind = kindOf(window)) return DialogWindow{window, *kind};
        } catch (const WindowGone&) {
            // It was closing.
        }
    }
    return std::nullopt;
}

Dialog readDialog(const DialogWindow& dialog) {
    Dialog seen;
    seen.kind = dialog.kind;
    if (dialog.kind == DialogKind::Font) return seen;
    seen.title = textOf(dialog.window);
    if (dialog.kind == DialogKind::Prompt) {
        seen.text = textOf(GetDlgItem(dialog.window, control_id::promptQuestion));
        seen.defaultAnswer = textOf(GetDlgItem(dialog.window, control_id::promptAnswer));
    }
    if (dialog.kind == DialogKind::Message) {
        seen.text = textOf(GetDlgItem(dialog.window, dialog_control::messageText));
        seen.icon = iconOf(dialog.window);
        seen.buttons = buttonsOf(dialog.window);
    }
    return seen;
}

}  // namespace quorvel::scenario
