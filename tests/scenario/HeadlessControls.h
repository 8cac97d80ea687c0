#pragma once

#include <optional>
#include <string_view>

#include "window/frmQRV.h"

namespace quorvel::scenario {

/// The controls of the main window by their names. Each is null for other names.
const Label Controls::*labelNamed(std::string_view name);
const TextBox Controls::*textBoxNamed(std::string_view name);
ScrollBar Controls::*scrollBarNamed(std::string_view name);
/// Where a control stands; also null for the editor, which has no place of its own.
const Rectangle Layout::*placeNamed(std::string_view name);

/// The name of the control at a point of the client area, the editor aside; empty where there is
/// none.
std::string_view controlAt(const Layout& layout, double x, double y);

/// The entry's text as a user sees it, and whether it is in the menu. Nothing for a name that no
/// entry has.
std::optional<MenuEntry> menuEntryNamed(const frmQRV& form, std::string_view name);

}  // namespace quorvel::scenario
