#pragma once

#include "core/ports/Shell.h"
#include "window/Layout.h"

namespace quorvel {

/// What a dialog has to know of the font that is in force, in pixels.
struct DialogFont {
    int averageCharacterWidth = 0;
    int lineHeight = 0;
};

/// The places of a prompt box, in the dialog's client area.
struct PromptLayout {
    Rectangle question, answer, okButton, cancelButton;
    int width = 0;
    int height = 0;
};

/// How wide the lines of a question may become before they are wrapped. `largest` is the largest
/// client area that a dialog can have on its screen.
int widestQuestion(const DialogFont& font, ScreenSize largest);
/// `question` is the size of the question as it is wrapped. Where the screen is too low for it, its
/// end is cut off: answer and buttons are always there.
PromptLayout promptLayout(const DialogFont& font, ScreenSize question, ScreenSize largest);

/// The places of a password window.
struct PasswordLayout {
    Rectangle entry, submitButton;
    int width = 0;
    int height = 0;
};

PasswordLayout passwordLayout(const DialogFont& font);

}  // namespace quorvel
