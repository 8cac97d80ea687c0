#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuAddS(CommandContext& context);
void mnuEditS(CommandContext& context);
void mnuRemoveS(CommandContext& context);

}  // namespace quorvel
