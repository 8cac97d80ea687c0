#pragma once

#include <string>

namespace quorvel {

/// An entry of the menu whose text or visibility changes while the program runs.
struct MenuEntry {
    std::string caption;
    bool visible = false;
    bool enabled = true;

    bool operator==(const MenuEntry&) const = default;
};

}  // namespace quorvel
