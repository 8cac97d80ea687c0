#include <cctype>
#include <map>
#include <set>
#include <string>

#include "window/Menu.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(Menu, HasEveryEntryUnderItsName) {
    for (const char* name : {"mnuNew",
                             "mnuOpen",
                             "mnuSave",
                             "mnuSaveAs",
                             "mnuPrint",
                             "mnuPFile(1)",
                             "mnuPFile(9)",
                             "mnuExit",
                             "mnuAddS",
                             "mnuEditS",
                             "mnuRemoveS",
                             "mnuAddA",
                             "mnuEditA",
                             "mnuRemoveA",
                             "mnuEditGradesheetTitle",
                             "mnuEditSchoolName",
                             "mnuEditTN",
                             "mnuGradingScale",
                             "mnuFont",
                             "mnuEditPassword",
                             "mnuCopy",
                             "mnuBackup1",
                             "mnuBackup",
                             "mnuInputA",
                             "mnuInputS",
                             "mnuHowToUse",
                             "mnuAbout"})
        EXPECT_GE(menuItemIndex(name), 0) << name;
    EXPECT_EQ(menuItemIndex("mnuPFile(10)"), -1);
    EXPECT_EQ(menuItemIndex(""), -1);
}

TEST(Menu, EveryEntryDoesSomethingAndHasACaption) {
    for (const MenuItem& item : menuItems()) {
        if (item.name.empty()) continue;
        EXPECT_EQ(item.command == nullptr, item.recentFile != 0) << item.name;
        EXPECT_EQ(item.caption.empty(), item.recentFile != 0) << item.name;
    }
}

TEST(Menu, NoTwoEntriesOfAMenuShareAMnemonic) {
    std::map<std::string_view, std::set<char>> taken;
    for (const MenuItem& item : menuItems()) {
        if (item.caption.empty()) continue;
        const std::size_t mark = item.caption.find('&');
        ASSERT_NE(mark, std::string_view::npos) << item.caption;
        const char mnemonic = static_cast<char>(std::toupper(item.caption[mark + 1]));
        EXPECT_TRUE(taken[item.menu].insert(mnemonic).second) << item.caption;
    }
}

TEST(Menu, TheUsualKeysChooseTheUsualEntries) {
    const auto itemOf = [](std::string_view name) {
        return menuItems()[static_cast<std::size_t>(menuItemIndex(name))];
    };
    const std::map<std::string_view, char> keys{
        {"mnuNew", 'N'}, {"mnuOpen", 'O'}, {"mnuSave", 'S'}, {"mnuPrint", 'P'}};
    for (const auto& [name, key] : keys) {
        EXPECT_EQ(itemOf(name).accelerator.key, key);
        EXPECT_TRUE(itemOf(name).accelerator.control);
    }
    EXPECT_EQ(itemOf("mnuHowToUse").accelerator.functionKey, 1);
}

}  // namespace quorvel
