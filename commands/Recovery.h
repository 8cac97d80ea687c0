#pragma once

#include <filesystem>
#include <optional>

#include "core/CommandContext.h"

namespace quorvel {

/// Writes the sheet as "Recovered.qrv" ("Recovered 2.qrv" and so on), never over a file that is
/// there: into the Grades folder, else the user's Documents, else the local application data, else
/// the folder for temporary files. Where it went; nothing when all of them refuse.
std::optional<std::filesystem::path> writeRecoveredSheet(CommandContext& context);

}  // namespace quorvel
