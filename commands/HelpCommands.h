#pragma once

#include "core/CommandContext.h"

namespace quorvel {

void mnuHowToUse(CommandContext& context);
void mnuAbout(CommandContext& context);

}  // namespace quorvel
