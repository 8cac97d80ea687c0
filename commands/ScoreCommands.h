#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuInputA(CommandContext& context);
void mnuInputS(CommandContext& context);

}  // namespace quorvel
