#include "window/DialogLayout.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// The usual message font, and the same at the largest text that Windows offers.
constexpr DialogFont usualFont{6, 15};
constexpr DialogFont largeFont{14, 34};
constexpr ScreenSize usualScreen{1024, 768};
constexpr ScreenSize smallScreen{640, 480};

}  // namespace

TEST(DialogLayout, BoxesAndButtonsHoldALineOfTheFont) {
    for (const DialogFont& font : {usualFont, largeFont}) {
        const PromptLayout prompt = promptLayout(font, {100, font.lineHeight}, usualScreen);
        EXPECT_GT(prompt.answer.height, font.lineHeight);
        EXPECT_GT(prompt.okButton.height, font.lineHeight);
        EXPECT_GT(prompt.cancelButton.width, 6 * font.averageCharacterWidth);
        const PasswordLayout password = passwordLayout(font);
        EXPECT_GT(password.entry.height, font.lineHeight);
        EXPECT_GT(password.submitButton.height, font.lineHeight);
        EXPECT_EQ(password.height, 24 + password.entry.height);
    }
}

TEST(DialogLayout, NothingStandsOverWhatIsBelowIt) {
    const PromptLayout layout = promptLayout(largeFont, {500, 3 * 34}, usualScreen);
    EXPECT_GT(layout.answer.top, layout.question.top + layout.question.height);
    EXPECT_GT(layout.okButton.top, layout.answer.top + layout.answer.height);
    EXPECT_GT(layout.cancelButton.left, layout.okButton.left + layout.okButton.width);
    EXPECT_EQ(layout.cancelButton.left + layout.cancelButton.width,
              layout.answer.left + layout.answer.width);
    EXPECT_GT(layout.height, layout.okButton.top + layout.okButton.height);
}

TEST(DialogLayout, AShortQuestionStillGivesTheAnswerRoom) {
    EXPECT_EQ(promptLayout(usualFont, {50, 15}, usualScreen).answer.width, 330);
    EXPECT_EQ(promptLayout(usualFont, {400, 15}, usualScreen).answer.width, 400);
}

TEST(DialogLayout, NoBoxIsWiderThanTheScreen) {
    EXPECT_EQ(widestQuestion(usualFont, usualScreen), 420);
    const int widest = widestQuestion(largeFont, smallScreen);
    EXPECT_LT(widest, smallScreen.width);
    EXPECT_LE(promptLayout(largeFont, {widest, 34}, smallScreen).width, smallScreen.width);
}

TEST(DialogLayout, AQuestionThatIsTooHighLeavesTheAnswerOnTheScreen) {
    const PromptLayout fits = promptLayout(usualFont, {400, 20 * 15}, smallScreen);
    EXPECT_EQ(fits.question.height, 20 * 15);
    const PromptLayout cut = promptLayout(largeFont, {400, 20 * 34}, smallScreen);
    EXPECT_EQ(cut.height, smallScreen.height);
    EXPECT_GT(cut.answer.top, cut.question.top + cut.question.height);
}

}  // namespace quorvel
