#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/CommandContext.h"

namespace quorvel {

/// What the hidden box `txtTruncateS` leaves of a student's text: its first 15 characters.
std::string txtTruncateS(std::string_view text);
/// What the hidden box `txtTruncate` leaves of a name: its first 20 characters.
std::string txtTruncate(std::string_view text);

/// Shows a message box with the critical icon and an OK button.
void showCritical(CommandContext& context, std::string_view text, std::string_view title);

/// Shows a message box with OK and Cancel; true when it was answered with OK.
bool askToTryAgain(CommandContext& context, std::string_view text,
                   std::string_view title = programName);

}  // namespace quorvel
