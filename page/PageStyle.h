#pragma once

namespace quorvel {

/// What page.css holds.
extern const char* const pageStyle;

}  // namespace quorvel
