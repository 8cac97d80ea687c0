#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Copies the open sheet's file to the floppy drive, as it is on disk.
void mnuBackup1(CommandContext& context);
/// Copies every sheet file of the Grades folder to the floppy drive.
void mnuBackup(CommandContext& context);
/// Replaces the roster by that of another sheet file and clears all scores.
void mnuCopy(CommandContext& context);

}  // namespace quorvel
