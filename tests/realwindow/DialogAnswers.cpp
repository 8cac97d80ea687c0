#include <array>
#include <functional>

#include "core/Numbers.h"
#include "platform/win32/ControlIds.h"
#include "tests/realwindow/DialogControls.h"
#include "tests/realwindow/DialogWindow.h"
#include "tests/realwindow/SystemTexts.h"

namespace quorvel::scenario {

namespace {

constexpr DWORD dialogTimeout = 10'000;  // milliseconds
constexpr DWORD dialogPause = 2;

void press(HWND dialog, int button) {
    PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

int buttonOf(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return IDOK;
        case Answer::Cancel:
            return IDCANCEL;
        case Answer::Yes:
            return IDYES;
        case Answer::No:
            return IDNO;
    }
    return IDOK;
}

void answerPrompt(HWND dialog, const Reply& reply) {
    if (reply.cancelled) {
        press(dialog, IDCANCEL);
        return;
    }
    typeInto(GetDlgItem(dialog, control_id::promptAnswer), reply.text);
    press(dialog, IDOK);
}

void answerPassword(HWND window, const Reply& reply) {
    if (reply.cancelled) {
        PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        return;
    }
    typeInto(GetDlgItem(window, control_id::txtPW), reply.text);
    press(window, control_id::cmdPW);
}

bool isOpen(HWND dialog) {
    return IsWindow(dialog) != 0 && IsWindowVisible(dialog) != 0;
}

/// The system's own question about the file that was chosen, over its dialog.
std::optional<DialogWindow> questionOver(HWND fileDialog, const RunningProgram& program) {
    const auto dialog = answerableDialog(program);
    if (!dialog || dialog->kind != DialogKind::Message) return std::nullopt;
    if (GetWindow(dialog->window, GW_OWNER) != fileDialog) return std::nullopt;
    return dialog;
}

/// Gives the dialog time to take the file. Choosing a file means to say yes when the dialog asks
/// whether to replace it.
void waitForFile(const DialogWindow& fileDialog, const RunningProgram& program) {
    const DWORD start = GetTickCount();
    bool replaced = false;
    while (isOpen(fileDialog.window)) {
        const auto question = questionOver(fileDialog.window, program);
        if (question && !replaced) {
            const std::string text =
                textOf(GetDlgItem(question->window, dialog_control::messageText));
            if (fileDialog.kind == DialogKind::OpenFile)
                throw ScenarioError("the dialog says: " + text);
            press(question->window, IDYES);
            replaced = true;
        }
        if (GetTickCount() - start > dialogTimeout)
            throw ScenarioError("the file dialog does not take the file");
        Sleep(dialogPause);
    }
}

void answerFile(const DialogWindow& dialog, const Reply& reply, const std::filesystem::path& file,
                const RunningProgram& program) {
    if (reply.cancelled) {
        press(dialog.window, IDCANCEL);
        return;
    }
    const std::wstring path = file.wstring();
    ask(GetDlgItem(dialog.window, dialog_control::fileName), WM_SETTEXT, 0,
        reinterpret_cast<LPARAM>(path.c_str()));
    press(dialog.window, IDOK);
    waitForFile(dialog, program);
}

/// Chooses an entry of one of the font dialog's lists.
void choose(HWND dialog, int list, const std::wstring& entry) {
    HWND control = GetDlgItem(dialog, list);
    const LRESULT found = ask(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                              reinterpret_cast<LPARAM>(entry.c_str()));
    if (found == CB_ERR) throw ScenarioError("the font dialog does not offer " + inCodePage(entry));
    ask(control, CB_SETCURSEL, static_cast<WPARAM>(found));
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(control));
}

void answerFont(HWND dialog, const Reply& reply) {
    if (reply.cancelled) {
        press(dialog, IDCANCEL);
        return;
    }
    choose(dialog, dialog_control::fontFace, wide(reply.font.name));
    choose(dialog, dialog_control::fontSize, wide(decimalText(reply.font.size)));
    press(dialog, IDOK);
}

}  // namespace

void typeInto(HWND editBox, std::string_view text) {
    if (text.empty()) {
        DWORD selectionStart = 0;
        DWORD selectionEnd = 0;
        ask(editBox, EM_GETSEL, reinterpret_cast<WPARAM>(&selectionStart),
            reinterpret_cast<LPARAM>(&selectionEnd));
        if (selectionStart != selectionEnd) PostMessageW(editBox, WM_CHAR, VK_BACK, 1);
        return;
    }
    for (const wchar_t character : wide(text))
        PostMessageW(editBox, WM_CHAR, static_cast<WPARAM>(character), 1);
}

void answerDialog(const DialogWindow& dialog, const Reply& reply, const std::filesystem::path& file,
                  const RunningProgram& program) {
    switch (dialog.kind) {
        case DialogKind::Prompt:
            return answerPrompt(dialog.window, reply);
        case DialogKind::Message:
            return press(dialog.window, buttonOf(reply.button));
        case DialogKind::OpenFile:
        case DialogKind::SaveFile:
            return answerFile(dialog, reply, file, program);
        case DialogKind::Font:
            return answerFont(dialog.window, reply);
        case DialogKind::Password:
            return answerPassword(dialog.window, reply);
    }
}

}  // namespace quorvel::scenario
