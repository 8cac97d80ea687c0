#pragma once

#include <string_view>

namespace quorvel::scenario {

/// The identifier of a control of the main window by its name; 0 when there is none.
int controlId(std::string_view name);

}  // namespace quorvel::scenario
