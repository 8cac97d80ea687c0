#include "platform/win32/FormBars.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "window/Scrolling.h"

namespace quorvel {

namespace {

struct BarPlan {
    int id;
    ScrollBar Controls::*bar;
    Rectangle Layout::*place;
    DWORD style;
};

constexpr std::array barPlans{
    BarPlan{control_id::vsbS, &Controls::vsbS, &Layout::vsbS, SBS_VERT},
    BarPlan{control_id::hsbA, &Controls::hsbA, &Layout::hsbA, SBS_HORZ},
    BarPlan{control_id::vsbA, &Controls::vsbA, &Layout::vsbA, SBS_VERT},
};

std::optional<ScrollDistance> distanceOf(int code) {
    switch (code) {
        case SB_LINEUP:
            return ScrollDistance::StepBack;
        case SB_LINEDOWN:
            return ScrollDistance::StepOn;
        case SB_PAGEUP:
            return ScrollDistance::PageBack;
        case SB_PAGEDOWN:
            return ScrollDistance::PageOn;
        case SB_TOP:
            return ScrollDistance::Start;
        case SB_BOTTOM:
            return ScrollDistance::End;
        default:
            return std::nullopt;
    }
}

}  // namespace

void FormBars::create(HWND parent) {
    for (const BarPlan& plan : barPlans)
        bars_.push_back({createControl(parent, {.windowClass = L"SCROLLBAR",
                                                .style = WS_VISIBLE | plan.style,
                                                .id = plan.id}),
                         plan.bar, 1});
}

void FormBars::place(const Layout& layout) {
    for (std::size_t i = 0; i < barPlans.size(); ++i) {
        moveControl(bars_[i].control, layout.*barPlans[i].place);
        bars_[i].page = pageOf(barPlans[i].bar, layout);
        bars_[i].maximum = -1;
    }
}

void FormBars::show(const Controls& controls) {
    for (Bar& target : bars_) showBar(target, controls.*target.bar);
}

void FormBars::showBar(Bar& target, const ScrollBar& bar) {
    if (bar.minimum() == target.minimum && bar.maximum() == target.maximum &&
        bar.position() == target.position)
        return;
    target.minimum = bar.minimum();
    target.maximum = bar.maximum();
    target.position = bar.position();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMin = target.minimum;
    // Windows counts the page in: its front end stops at the last position.
    info.nMax = target.maximum + target.page - 1;
    info.nPage = static_cast<UINT>(target.page);
    info.nPos = target.position;
    ::SetScrollInfo(target.control, SB_CTL, &info, TRUE);
}

ScrollBar Controls::*FormBars::barOf(HWND control) const {
    const auto found = std::ranges::find(bars_, control, &Bar::control);
    return found == bars_.end() ? nullptr : found->bar;
}

int positionWanted(const ScrollBar& bar, int page, WPARAM scrollMessage) {
    const int code = LOWORD(scrollMessage);
    // 16 bits hold every number that a student or assignment can have.
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION) return HIWORD(scrollMessage);
    const auto distance = distanceOf(code);
    return distance ? positionAfter(bar, *distance, page) : bar.position();
}

}  // namespace quorvel
