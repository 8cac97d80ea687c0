#pragma once

#include <string>

namespace quorvel {

/// The text with a blank for every line break, tab and other control character.
std::string oneLine(std::string text);

/// Prints one line on standard error behind the program's name, whatever the texts in it hold.
void complain(const std::string& problem);

}  // namespace quorvel
