#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuAddA(CommandContext& context);
void mnuEditA(CommandContext& context);
void mnuRemoveA(CommandContext& context);

}  // namespace quorvel
