#include "window/DialogLayout.h"

#include <algorithm>

namespace quorvel {

namespace {

// Pixels that do not grow with the font.
constexpr int margin = 12;
constexpr int spaceBelowQuestion = 10;
constexpr int spaceBelowAnswer = 14;
constexpr int spaceBetweenButtons = 8;
/// What a text box and a button have above and below their line of text.
constexpr int boxBorders = 7;
constexpr int buttonBorders = 9;

// Characters of average width.
constexpr int narrowestQuestionCharacters = 55;
constexpr int widestQuestionCharacters = 70;
constexpr int passwordCharacters = 36;
constexpr int buttonCharacters = 12;

int buttonWidth(const DialogFont& font) {
    return buttonCharacters * font.averageCharacterWidth + 4;
}

int buttonHeight(const DialogFont& font) {
    return font.lineHeight + buttonBorders;
}

int answerHeight(const DialogFont& font) {
    return font.lineHeight + boxBorders;
}

int widestContent(ScreenSize largest) {
    return largest.width - 2 * margin;
}

int highestQuestion(const DialogFont& font, ScreenSize largest) {
    return largest.height - 2 * margin - spaceBelowQuestion - answerHeight(font) -
           spaceBelowAnswer - buttonHeight(font);
}

}  // namespace

int widestQuestion(const DialogFont& font, ScreenSize largest) {
    return std::min(widestQuestionCharacters * font.averageCharacterWidth, widestContent(largest));
}

PromptLayout promptLayout(const DialogFont& font, ScreenSize question, ScreenSize largest) {
    const int narrowest =
        std::min(narrowestQuestionCharacters * font.averageCharacterWidth, widestContent(largest));
    const int width = std::max(narrowest, question.width);
    const int height = std::min(question.height, highestQuestion(font, largest));
    const int right = margin + width;
    PromptLayout layout;
    layout.question = {margin, margin, width, height};
    const int answerTop = margin + height + spaceBelowQuestion;
    layout.answer = {margin, answerTop, width, answerHeight(font)};
    const int buttonTop = answerTop + layout.answer.height + spaceBelowAnswer;
    const int button = buttonWidth(font);
    layout.cancelButton = {right - button, buttonTop, button, buttonHeight(font)};
    layout.okButton = {layout.cancelButton.left - spaceBetweenButtons - button, buttonTop, button,
                       buttonHeight(font)};
    layout.width = right + margin;
    layout.height = buttonTop + buttonHeight(font) + margin;
    return layout;
}

PasswordLayout passwordLayout(const DialogFont& font) {
    PasswordLayout layout;
    const int height = buttonHeight(font);
    layout.entry = {margin, margin, passwordCharacters * font.averageCharacterWidth, height};
    layout.submitButton = {layout.entry.left + layout.entry.width + spaceBetweenButtons, margin,
                           buttonWidth(font), height};
    layout.width = layout.submitButton.left + layout.submitButton.width + margin;
    layout.height = margin + height + margin;
    return layout;
}

}  // namespace quorvel
