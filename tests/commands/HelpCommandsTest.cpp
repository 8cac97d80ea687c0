#include "commands/HelpCommands.h"
#include "core/Errors.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

using HelpCommands = CommandTest;

TEST_F(HelpCommands, HowToUseOpensTheHelpTextInNotepad) {
    mnuHowToUse(context);
    ASSERT_EQ(shell.launches.size(), 1U);
    EXPECT_EQ(shell.launches[0].program, " notepad ");
    EXPECT_EQ(shell.launches[0].file, "/Quorvel/HowToUseQRV.txt");
}

TEST_F(HelpCommands, AnEditorThatDoesNotStartIsReported) {
    shell.works = false;
    try {
        mnuHowToUse(context);
        FAIL() << "nothing was reported";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "Notepad could not be started.");
    }
}

TEST_F(HelpCommands, AboutNamesTheProgramAndItsVersion) {
    dialogs.expectMessage("About the Quorvel", "Quorvel\r\nVersion 2.60", Icon::Information,
                          Buttons::Ok, Answer::Ok);
    mnuAbout(context);
    EXPECT_FALSE(state.isDirty);
}

}  // namespace
}  // namespace quorvel
