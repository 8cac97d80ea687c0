#include "platform/win32/ControlIds.h"
#include "tests/realwindow/SystemTexts.h"
#include "tests/realwindow/WindowDriver.h"

namespace quorvel::scenario {

namespace {

constexpr DWORD programTimeout = 30'000;  // milliseconds
constexpr DWORD programPause = 2;

}  // namespace

std::optional<Dialog> WindowDriver::openDialog() {
    if (!program_) throw ScenarioError("the program was not started");
    if (!dialog_) dialog_ = settledDialog();
    if (!dialog_) return std::nullopt;
    return readDialog(*dialog_);
}

/// Waits until the program asks something, waits for the user, or has ended.
std::optional<DialogWindow> WindowDriver::settledDialog() {
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < programTimeout) {
        if (hasEnded()) return std::nullopt;
        try {
            const auto dialog = answerableDialog(*program_);
            if (dialog && !isStillClosing(*dialog)) return dialog;
            if (!dialog && isIdle() && !goOnEndingSession()) return std::nullopt;
        } catch (const WindowGone&) {
            // The next look finds another one, or none.
        }
        Sleep(programPause);
    }
    throw ScenarioError("the program neither asks something nor waits for the user");
}

/// Windows asks every program first, and then tells it.
bool WindowDriver::goOnEndingSession() {
    if (!sessionEnds_) return false;
    sessionEnds_ = false;
    mark_.forget();
    PostMessageW(mainWindow(), WM_ENDSESSION, TRUE, 0);
    return true;
}

/// Whether the dialog was answered and is only still to be seen. A password window stays where it
/// is after most entries, with a message over it; it is open again when the program waits in it.
bool WindowDriver::isStillClosing(const DialogWindow& dialog) const {
    if (answered_ && answered_->window == dialog.window) return true;
    return dialog.kind == DialogKind::Password && !staysOpen(dialog);
}

/// Whether the window is still there when the program has taken what was posted to it before.
bool WindowDriver::staysOpen(const DialogWindow& passwordWindow) const {
    HWND box = GetDlgItem(passwordWindow.window, control_id::txtPW);
    const DWORD start = GetTickCount();
    PostMessageW(box, EM_SETMODIFY, TRUE, 0);
    while (IsWindow(box) != 0 && IsWindowEnabled(passwordWindow.window) != 0) {
        if (ask(box, EM_GETMODIFY) != 0) {
            ask(box, EM_SETMODIFY, FALSE);
            return IsWindowVisible(passwordWindow.window) != 0;
        }
        if (GetTickCount() - start > programTimeout) return true;
        Sleep(programPause);
    }
    return false;
}

bool WindowDriver::isIdle() {
    HWND window = program_->mainWindow();
    if (window == nullptr || IsWindowEnabled(window) == 0) return false;
    HWND box = GetDlgItem(window, control_id::txtAV);
    if (box == nullptr) return false;
    if (!mark_.isPostedTo(box)) mark_.post(box);
    if (!mark_.isReached()) return false;
    // A dialog may have opened while the mark was on its way.
    return IsWindowEnabled(window) != 0 && !answerableDialog(*program_);
}

bool WindowDriver::hasEnded() {
    if (!program_ || !program_->hasEnded()) return false;
    if (program_->exitCode() != 0)
        throw ScenarioError("the program broke off with exit code " +
                            std::to_string(program_->exitCode()));
    return true;
}

}  // namespace quorvel::scenario
