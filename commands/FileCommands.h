#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuNew(CommandContext& context);
void mnuOpen(CommandContext& context);
/// `index` is the number of the recent-file entry, from 1.
void mnuPFile(CommandContext& context, int index);
void mnuSave(CommandContext& context);
void mnuSaveAs(CommandContext& context);
void mnuExit(CommandContext& context);

/// The question that closing the window and New ask about an unsaved sheet, and the save when the
/// answer is yes. A save that fails then leaves the sheet as "Recovered.qrv". False where nothing
/// took it and the user goes back to it.
bool offerToSave(CommandContext& context);

/// Puts an unsaved sheet beside the others as "Recovered.qrv": the session ends and there is no
/// time to ask.
void keepBeforeSessionEnds(CommandContext& context);
/// The same, and then the question of offerToSave: whatever happens while it is open, the sheet is
/// safe. The copy goes once the sheet was saved or the answer was no.
void offerToSaveBeforeSessionEnds(CommandContext& context);

}  // namespace quorvel
