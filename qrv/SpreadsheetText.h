#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// Whether a spreadsheet would take the text for a formula: it begins with = + - @ or a control
/// character.
bool looksLikeFormula(std::string_view text);

/// Whether the text is such a one behind one or more apostrophes, which is how it is kept from
/// being one.
bool isGuardedFormula(std::string_view text);

/// The text as it was before an apostrophe was put in front of it.
std::string_view withoutGuard(std::string_view text);

}  // namespace quorvel
