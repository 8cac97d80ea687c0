#include "commands/Questions.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

using Questions = CommandTest;

TEST_F(Questions, StudentTextsAreCutToFifteenCharacters) {
    EXPECT_EQ(txtTruncateS(""), "");
    EXPECT_EQ(txtTruncateS("123456789012345"), "123456789012345");
    EXPECT_EQ(txtTruncateS("1234567890123456"), "123456789012345");
}

TEST_F(Questions, NamesAreCutToTwentyCharacters) {
    EXPECT_EQ(txtTruncate(""), "");
    EXPECT_EQ(txtTruncate("12345678901234567890"), "12345678901234567890");
    EXPECT_EQ(txtTruncate("123456789012345678901"), "12345678901234567890");
}

TEST_F(Questions, AnAccentedLetterIsOneCharacter) {
    const std::string accents(21, '\xE9');
    EXPECT_EQ(txtTruncate(accents).size(), 20U);
    EXPECT_EQ(txtTruncateS(accents).size(), 15U);
}

TEST_F(Questions, TryingAgainIsOkAndNothingElse) {
    for (const Answer answer : {Answer::Ok, Answer::Cancel}) {
        dialogs.expectMessage("Quorvel", "Again?", Icon::None, Buttons::OkCancel, answer);
        EXPECT_EQ(askToTryAgain(context, "Again?"), answer == Answer::Ok);
    }
}

}  // namespace
}  // namespace quorvel
