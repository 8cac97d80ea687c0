#include "window/Scrolling.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

// Virtual key codes.
constexpr int pageUpKey = 33;
constexpr int pageDownKey = 34;
constexpr int endKey = 35;
constexpr int homeKey = 36;
constexpr int leftKey = 37;
constexpr int upKey = 38;
constexpr int rightKey = 39;
constexpr int downKey = 40;

struct ScrollKey {
    int keyCode;
    bool controlHeld;
    KeyedScroll scroll;
};

constexpr std::array scrollKeys{
    ScrollKey{upKey, false, {&Controls::vsbS, ScrollDistance::StepBack}},
    ScrollKey{downKey, false, {&Controls::vsbS, ScrollDistance::StepOn}},
    ScrollKey{pageUpKey, false, {&Controls::vsbS, ScrollDistance::PageBack}},
    ScrollKey{pageDownKey, false, {&Controls::vsbS, ScrollDistance::PageOn}},
    ScrollKey{homeKey, false, {&Controls::vsbS, ScrollDistance::Start}},
    ScrollKey{endKey, false, {&Controls::vsbS, ScrollDistance::End}},
    ScrollKey{leftKey, false, {&Controls::hsbA, ScrollDistance::StepBack}},
    ScrollKey{rightKey, false, {&Controls::hsbA, ScrollDistance::StepOn}},
    ScrollKey{leftKey, true, {&Controls::hsbA, ScrollDistance::PageBack}},
    ScrollKey{rightKey, true, {&Controls::hsbA, ScrollDistance::PageOn}},
    ScrollKey{homeKey, true, {&Controls::hsbA, ScrollDistance::Start}},
    ScrollKey{endKey, true, {&Controls::hsbA, ScrollDistance::End}},
    ScrollKey{upKey, true, {&Controls::vsbA, ScrollDistance::StepBack}},
    ScrollKey{downKey, true, {&Controls::vsbA, ScrollDistance::StepOn}},
    ScrollKey{pageUpKey, true, {&Controls::vsbA, ScrollDistance::PageBack}},
    ScrollKey{pageDownKey, true, {&Controls::vsbA, ScrollDistance::PageOn}},
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
