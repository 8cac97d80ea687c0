#include "window/Scrolling.h"

#include <algorithm>
#include <array>

#include "window/Keys.h"

namespace quorvel {

namespace {

struct ScrollKey {
    int keyCode;
    bool controlHeld;
    KeyedScroll scroll;
};

constexpr std::array scrollKeys{
    ScrollKey{key::up, false, {&Controls::vsbS, ScrollDistance::StepBack}},
    ScrollKey{key::down, false, {&Controls::vsbS, ScrollDistance::StepOn}},
    ScrollKey{key::pageUp, false, {&Controls::vsbS, ScrollDistance::PageBack}},
    ScrollKey{key::pageDown, false, {&Controls::vsbS, ScrollDistance::PageOn}},
    ScrollKey{key::home, false, {&Controls::vsbS, ScrollDistance::Start}},
    ScrollKey{key::end, false, {&Controls::vsbS, ScrollDistance::End}},
    ScrollKey{key::left, false, {&Controls::hsbA, ScrollDistance::StepBack}},
    ScrollKey{key::right, false, {&Controls::hsbA, ScrollDistance::StepOn}},
    ScrollKey{key::left, true, {&Controls::hsbA, ScrollDistance::PageBack}},
    ScrollKey{key::right, true, {&Controls::hsbA, ScrollDistance::PageOn}},
    ScrollKey{key::home, true, {&Controls::hsbA, ScrollDistance::Start}},
    ScrollKey{key::end, true, {&Controls::hsbA, ScrollDistance::End}},
    ScrollKey{key::up, true, {&Controls::vsbA, ScrollDistance::StepBack}},
    ScrollKey{key::down, true, {&Controls::vsbA, ScrollDistance::StepOn}},
    ScrollKey{key::pageUp, true, {&Controls::vsbA, ScrollDistance::PageBack}},
    ScrollKey{key::pageDown, true, {&Controls::vsbA, ScrollDistance::PageOn}},
};

}  // namespace

int pageOf(ScrollBar Controls::*bar, const Layout& layout) {
    if (bar == &Controls::hsbA) return layout.visibleColumns;
    if (bar == &Controls::vsbA) return layout.listLines;
    return visibleRows;
}

int positionAfter(const ScrollBar& bar, ScrollDistance distance, int page) {
    switch (distance) {
        case ScrollDistance::StepBack:
            return bar.position() - 1;
        case ScrollDistance::StepOn:
            return bar.position() + 1;
        case ScrollDistance::PageBack:
            return bar.position() - page;
        case ScrollDistance::PageOn:
            return bar.position() + page;
        case ScrollDistance::Start:
            return bar.minimum();
        case ScrollDistance::End:
            return bar.maximum();
    }
    return bar.position();
}

std::optional<KeyedScroll> scrollOfKey(int keyCode, bool controlHeld) {
    const auto found = std::ranges::find_if(scrollKeys, [&](const ScrollKey& key) {
        return key.keyCode == keyCode && key.controlHeld == controlHeld;
    });
    if (found == scrollKeys.end()) return std::nullopt;
    return found->scroll;
}

ScrollBar Controls::*barUnderWheel(const Layout& layout, int y, bool sideways) {
    if (sideways) return &Controls::hsbA;
    return y >= layout.lblA1.top ? &Controls::vsbA : &Controls::vsbS;
}

}  // namespace quorvel
