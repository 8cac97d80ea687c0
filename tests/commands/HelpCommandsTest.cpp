#include "commands/HelpCommands.h"
#include "core/Errors.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

using HelpCommands = CommandTest;

TEST_F(HelpCommands, AnEditorThatDoesNotStartIsReported) {
    shell.works = false;
    try {
        mnuHowToUse(context);
        FAIL() << "nothing was reported";
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "Notepad could not be started.");
    }
}

}  // namespace
}  // namespace quorvel
