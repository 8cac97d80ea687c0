#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuEditGradesheetTitle(CommandContext& context);
void mnuEditSchoolName(CommandContext& context);
void mnuEditTN(CommandContext& context);
void mnuGradingScale(CommandContext& context);
void mnuFont(CommandContext& context);

}  // namespace quorvel
