#pragma once

#include "core/CommandContext.h"

namespace quorvel {

/// Asks for a report and what it needs to know, and prints it on the default printer.
void mnuPrint(CommandContext& context);

}  // namespace quorvel
