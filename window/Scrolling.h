#pragma once

#include <optional>

#include "window/Controls.h"
#include "window/Layout.h"
#include "window/Wheel.h"

namespace quorvel {

/// How far a scroll bar is asked to go: one step or what the window shows at a time, back or on, or
/// to its end.
enum class ScrollDistance { StepBack, StepOn, PageBack, PageOn, Start, End };

/// What the window shows at a time of what the bar scrolls.
int pageOf(ScrollBar Controls::*bar, const Layout& layout);

/// Where the bar then stands, inside its range or not.
int positionAfter(const ScrollBar& bar, ScrollDistance distance, int page);

struct KeyedScroll {
    ScrollBar Controls::*bar;
    ScrollDistance distance;
};

/// What a key (a virtual key code) scrolls; nothing for other keys. Up, Down, Page Up, Page Down,
/// Home and End go through the students, Left and Right through the assignments. With Control held,
/// Left, Right, Home and End go further through the assignments, Up, Down, Page Up and Page Down
/// through the assignment list.
std::optional<KeyedScroll> scrollOfKey(int keyCode, bool controlHeld);

/// The bar that a wheel turned at height `y` of the client area moves. `sideways` is a wheel of the
/// horizontal kind, or one that is turned with Shift held.
ScrollBar Controls::*barUnderWheel(const Layout& layout, int y, bool sideways);

}  // namespace quorvel
