#pragma once

#include <filesystem>
#include <optional>

#include <windows.h>

#include "tests/realwindow/RunningProgram.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// A dialog on the screen.
struct DialogWindow {
    HWND window = nullptr;
    DialogKind kind = DialogKind::Message;
};

/// The dialog that the user can answer now; nothing while there is none.
std::optional<DialogWindow> answerableDialog(const RunningProgram& program);

/// What the dialog shows. Throws ScenarioError where it shows what no dialog of the program may.
Dialog readDialog(const DialogWindow& dialog);

/// Answers it as a user does, by typing and pressing its buttons; `file` is where the reply's path
/// lies. Returns when the keys and clicks are on their way, or for a file dialog when it took the
/// file. Throws ScenarioError where the dialog does not take the answer.
void answerDialog(const DialogWindow& dialog, const Reply& reply, const std::filesystem::path& file,
                  const RunningProgram& program);

/// Types the text into an edit box, in the place of what is selected there.
void typeInto(HWND editBox, std::string_view text);

}  // namespace quorvel::scenario
