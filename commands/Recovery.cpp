#include "commands/Recovery.h"

#include <string>

#include "storage/Settings.h"
#include "storage/SheetFile.h"

namespace quorvel {

namespace {

/// Far more than a folder can sensibly hold; it only ends a search that finds nothing free.
constexpr int recoveredNames = 10000;

/// A place in the folder where nothing stands.
std::optional<std::filesystem::path> freePlace(Files& files, const std::filesystem::path& folder) {
    for (int number = 1; number <= recoveredNames; ++number) {
        std::string name = "Recovered";
        if (number > 1) name.append(" ").append(std::to_string(number));
        std::filesystem::path file = folder / name.append(".qrv");
        if (!files.exists(file)) return file;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::filesystem::path> writeRecoveredSheet(CommandContext& context) {
    const WorkingState& state = context.state;
    Files& files = context.ports.files;
    files.createFolder(gradesFolder(state));
    for (const std::filesystem::path& folder : {gradesFolder(state), state.places.documents,
                                                state.places.localData, state.places.temporary}) {
        auto file = freePlace(files, folder);
        if (file && writeSheet(files, *file, context.sheet)) return file;
    }
    return std::nullopt;
}

}  // namespace quorvel
