#pragma once

#include <string>

namespace quorvel {

/// The font that reports are printed in.
struct PrintFont {
    std::string name;
    float size = 0;  // points

    bool operator==(const PrintFont&) const = default;
};

}  // namespace quorvel
