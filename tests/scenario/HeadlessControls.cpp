#include "tests/scenario/HeadlessControls.h"

#include <algorithm>
#include <array>
#include <utility>

#include "window/Menu.h"

namespace quorvel::scenario {

namespace {

template <typename Member>
using Named = std::pair<std::string_view, Member>;

constexpr std::array labels{
    Named<const Label Controls::*>{"lblStudent", &Controls::lblStudent},
    Named<const Label Controls::*>{"lblSN", &Controls::lblSN},
    Named<const Label Controls::*>{"lblAN", &Controls::lblAN},
    Named<const Label Controls::*>{"lblA1", &Controls::lblA1},
    Named<const Label Controls::*>{"lblA2", &Controls::lblA2},
    Named<const Label Controls::*>{"lblAV", &Controls::lblAV},
    Named<const Label Controls::*>{"lblClassAvg", &Controls::lblClassAvg},
    Named<const Label Controls::*>{"lblAvgScore", &Controls::lblAvgScore},
    Named<const Label Controls::*>{"Label1", &Controls::Label1},
};

constexpr std::array textBoxes{
    Named<const TextBox Controls::*>{"txtS", &Controls::txtS},
    Named<const TextBox Controls::*>{"txtSN", &Controls::txtSN},
    Named<const TextBox Controls::*>{"txtA", &Controls::txtA},
    Named<const TextBox Controls::*>{"txtAV", &Controls::txtAV},
};

constexpr std::array scrollBars{
    Named<ScrollBar Controls::*>{"hsbA", &Controls::hsbA},
    Named<ScrollBar Controls::*>{"vsbA", &Controls::vsbA},
    Named<ScrollBar Controls::*>{"vsbS", &Controls::vsbS},
};

constexpr std::array places{
    Named<const Rectangle Layout::*>{"lblStudent", &Layout::lblStudent},
    Named<const Rectangle Layout::*>{"lblSN", &Layout::lblSN},
    Named<const Rectangle Layout::*>{"lblAN", &Layout::lblAN},
    Named<const Rectangle Layout::*>{"lblA1", &Layout::lblA1},
    Named<const Rectangle Layout::*>{"lblA2", &Layout::lblA2},
    Named<const Rectangle Layout::*>{"lblAV", &Layout::lblAV},
    Named<const Rectangle Layout::*>{"lblClassAvg", &Layout::lblClassAvg},
    Named<const Rectangle Layout::*>{"lblAvgScore", &Layout::lblAvgScore},
    Named<const Rectangle Layout::*>{"Label1", &Layout::Label1},
    Named<const Rectangle Layout::*>{"txtS", &Layout::txtS},
    Named<const Rectangle Layout::*>{"txtSN", &Layout::txtSN},
    Named<const Rectangle Layout::*>{"txtA", &Layout::txtA},
    Named<const Rectangle Layout::*>{"txtAV", &Layout::txtAV},
    Named<const Rectangle Layout::*>{"hsbA", &Layout::hsbA},
    Named<const Rectangle Layout::*>{"vsbA", &Layout::vsbA},
    Named<const Rectangle Layout::*>{"vsbS", &Layout::vsbS},
};

template <typename Member, std::size_t count>
Member memberNamed(const std::array<Named<Member>, count>& members, std::string_view name) {
    const auto found = std::ranges::find(members, name, &Named<Member>::first);
    return found == members.end() ? nullptr : found->second;
}

}  // namespace

const Label Controls::*labelNamed(std::string_view name) {
    return memberNamed(labels, name);
}

const TextBox Controls::*textBoxNamed(std::string_view name) {
    return memberNamed(textBoxes, name);
}

ScrollBar Controls::*scrollBarNamed(std::string_view name) {
    return memberNamed(scrollBars, name);
}

const Rectangle Layout::*placeNamed(std::string_view name) {
    return memberNamed(places, name);
}

std::string_view controlAt(const Layout& layout, double x, double y) {
    for (const auto& [name, place] : places) {
        const Rectangle& area = layout.*place;
        if (x >= area.left && x < area.left + area.width && y >= area.top &&
            y < area.top + area.height)
            return name;
    }
    return {};
}

std::optional<MenuEntry> menuEntryNamed(const frmQRV& form, std::string_view name) {
    const int index = menuItemIndex(name);
    if (index < 0) return std::nullopt;
    const MenuItem& item = menuItems()[static_cast<std::size_t>(index)];
    if (item.recentFile > 0)
        return form.state().mnuPFile[static_cast<std::size_t>(item.recentFile) - 1];
    MenuEntry entry{std::string(item.caption), true, true};
    std::erase(entry.caption, '&');
    return entry;
}

}  // namespace quorvel::scenario
