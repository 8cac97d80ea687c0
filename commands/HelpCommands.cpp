#include "commands/HelpCommands.h"

#include <string>

#include "core/Errors.h"
#include "core/ProgramName.h"
#include "core/Version.h"

namespace quorvel {

void mnuHowToUse(CommandContext& context) {
    const std::filesystem::path helpText = context.state.inProgramFolder("HowToUseQRV.txt");
    if (!context.ports.shell.startMaximized(" notepad ", helpText))
        throw Error("Notepad could not be started.");
}

void mnuAbout(CommandContext& context) {
    const std::string text =
        std::string(programName).append("\r\nVersion ").append(programVersion());
    context.ports.dialogs.message(
        {.text = text, .title = "About the Quorvel", .icon = Icon::Information});
}

}  // namespace quorvel
