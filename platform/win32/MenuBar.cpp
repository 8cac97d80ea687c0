#include "platform/win32/MenuBar.h"

#include <string>
#include <vector>

#include "platform/win32/ControlIds.h"
#include "platform/win32/Texts.h"
#include "window/Menu.h"

namespace quorvel {

namespace {

std::string keyText(const Accelerator& accelerator) {
    const std::string key = accelerator.functionKey != 0
                                ? "F" + std::to_string(accelerator.functionKey)
                            : accelerator.key != 0 ? std::string(1, accelerator.key)
                                                   : std::string();
    return accelerator.control && !key.empty() ? "Ctrl+" + key : key;
}

/// A name that is shown as it is, not one whose "&" underlines a letter.
std::string withoutMnemonics(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result += character;
        if (character == '&') result += character;
    }
    return result;
}

struct EntryLook {
    std::string text;
    bool visible = true;
    bool enabled = true;
};

EntryLook lookOf(const MenuItem& item, std::span<const MenuEntry> recentFiles) {
    if (item.recentFile != 0) {
        const MenuEntry& entry = recentFiles[static_cast<std::size_t>(item.recentFile) - 1];
        return {withoutMnemonics(entry.caption), entry.visible, entry.enabled};
    }
    std::string text(item.caption);
    const std::string key = keyText(item.accelerator);
    if (!key.empty()) text += '\t' + key;
    return {text};
}

/// Appends entries; a separator waits for the entry behind it, so that none stands doubled or last
/// where recent files are missing.
class MenuFiller {
  public:
    explicit MenuFiller(HMENU menu) : menu_(menu) {}

    void separator() { separatorWaits_ = ::GetMenuItemCount(menu_) > 0; }

    void entry(UINT command, const EntryLook& look, const CodePage& codePage) {
        if (!look.visible) return;
        if (separatorWaits_) ::AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr);
        separatorWaits_ = false;
        ::AppendMenuW(menu_, MF_STRING | (look.enabled ? MF_ENABLED : MF_GRAYED), command,
                      toWide(look.text, codePage).c_str());
    }

  private:
    HMENU menu_;
    bool separatorWaits_ = false;
};

/// Appends a menu with the caption to the bar, which owns it from then on.
HMENU addMenu(HMENU bar, std::string_view caption, const CodePage& codePage) {
    UniqueMenu menu(::CreatePopupMenu());
    if (::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu.get()),
                      toWide(caption, codePage).c_str()) == 0)
        return nullptr;
    return menu.release();
}

}  // namespace

UniqueMenu createMenuBar(std::span<const MenuEntry> recentFiles, const CodePage& codePage) {
    UniqueMenu bar(::CreateMenu());
    std::string_view menuCaption;
    MenuFiller filler(nullptr);
    UINT command = control_id::firstMenuCommand;
    for (const MenuItem& item : menuItems()) {
        if (item.menu != menuCaption) {
            menuCaption = item.menu;
            filler = MenuFiller(addMenu(bar.get(), menuCaption, codePage));
        }
        if (item.name.empty()) {
            filler.separator();
        } else {
            filler.entry(command, lookOf(item, recentFiles), codePage);
        }
        ++command;
    }
    return bar;
}

UniqueAcceleratorTable createAccelerators() {
    std::vector<ACCEL> keys;
    WORD command = control_id::firstMenuCommand;
    for (const MenuItem& item : menuItems()) {
        const Accelerator& accelerator = item.accelerator;
        // Letters are their own virtual keys.
        const int key =
            accelerator.functionKey != 0 ? VK_F1 + accelerator.functionKey - 1 : accelerator.key;
        const BYTE control = accelerator.control ? FCONTROL : 0;
        if (key != 0)
            keys.push_back(
                {static_cast<BYTE>(FVIRTKEY | control), static_cast<WORD>(key), command});
        ++command;
    }
    return UniqueAcceleratorTable(
        ::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

}  // namespace quorvel
