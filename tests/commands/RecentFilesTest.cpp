#include <algorithm>
#include <string>
#include <vector>

#include "commands/RecentFiles.h"
#include "storage/Settings.h"
#include "tests/fakes/TestProgram.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Texts = std::vector<std::string>;

class RecentFiles : public TestProgram {
  protected:
    void startUp() {
        readSettings(disk, state);
        showRecentFiles(state);
    }
    /// Opens or saves the sheet of this path, as far as the list is concerned.
    void use(const std::filesystem::path& path) {
        state.currentPath = path;
        updateRecentFiles(program);
    }
    void showCaptions(const Texts& captions) {
        for (std::size_t index = 0; index < captions.size(); ++index) {
            state.mnuPFile[index].caption = captions[index];
        }
    }
    Texts captions() const {
        Texts texts;
        for (const MenuEntry& entry : state.mnuPFile) texts.push_back(entry.caption);
        return texts;
    }
    Texts stored() const { return {state.recentFiles.begin(), state.recentFiles.end()}; }
    /// How many entries are visible, provided that they are the first ones.
    long visibleCount() const {
        const auto hidden = std::ranges::find(state.mnuPFile, false, &MenuEntry::visible);
        EXPECT_TRUE(std::all_of(hidden, state.mnuPFile.end(),
                                [](const MenuEntry& entry) { return !entry.visible; }));
        return hidden - state.mnuPFile.begin();
    }
};

Bytes listFile(const Texts& texts) {
    Bytes bytes;
    for (const std::string& text : texts) bytes = bytes + textRecord(text);
    return bytes;
}

TEST_F(RecentFiles, StartUpShowsBareNamesAndKeepsWhatWasStored) {
    const Texts texts{"C:\\Q\\Grades\\a.qrv", "b.qrv", "D:c.qrv", "", "", "", "", "", ""};
    putFile("LS.qrv", listFile(texts));
    startUp();
    EXPECT_EQ(stored(), texts);
    EXPECT_EQ(captions(), (Texts{"a.qrv", "b.qrv", "D:c.qrv", "", "", "", "", "", ""}));
    EXPECT_EQ(visibleCount(), 3);
    EXPECT_EQ(file("LS.qrv"), listFile(texts));
}

TEST_F(RecentFiles, StartUpWithoutAListEmptiesEveryEntry) {
    showCaptions({"left over"});
    state.mnuPFile[8] = {.caption = "left over", .visible = true};
    startUp();
    for (const MenuEntry& entry : state.mnuPFile) EXPECT_EQ(entry, MenuEntry());
}

TEST_F(RecentFiles, AnEntryIsVisibleByWhatWasStoredEvenWhenNoNameIsLeftToShow) {
    putFile("LS.qrv", listFile({"C:\\Grades\\", "", "c.qrv"}));
    startUp();
    EXPECT_EQ(state.mnuPFile[0], (MenuEntry{.caption = "", .visible = true}));
    EXPECT_FALSE(state.mnuPFile[1].visible);
    EXPECT_TRUE(state.mnuPFile[2].visible);
}

TEST_F(RecentFiles, ATenthStoredEntryIsNotRead) {
    putFile("LS.qrv", listFile({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    startUp();
    EXPECT_EQ(captions(), (Texts{"1", "2", "3", "4", "5", "6", "7", "8", "9"}));
}

TEST_F(RecentFiles, AFullPathComesFirstAndIsWritten) {
    use("/Quorvel/Grades/a.qrv");
    const Texts expected{"\\Quorvel\\Grades\\a.qrv", "", "", "", "", "", "", "", ""};
    EXPECT_EQ(captions(), expected);
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(visibleCount(), 1);
    EXPECT_EQ(file("LS.qrv"), listFile(expected));
}

TEST_F(RecentFiles, TheSamePathTwiceIsListedOnce) {
    use("/a.qrv");
    use("/a.qrv");
    EXPECT_EQ(captions(), (Texts{"\\a.qrv", "", "", "", "", "", "", "", ""}));
}

TEST_F(RecentFiles, AnOlderPathMovesUp) {
    use("/a.qrv");
    use("/b.qrv");
    use("/c.qrv");
    use("/b.qrv");
    EXPECT_EQ(captions(), (Texts{"\\b.qrv", "\\c.qrv", "\\a.qrv", "", "", "", "", "", ""}));
    EXPECT_EQ(visibleCount(), 3);
}

TEST_F(RecentFiles, OfTenTheLastNineStayNewestFirst) {
    for (int number = 1; number <= 10; ++number) use("/" + std::to_string(number));
    const Texts expected{"\\10", "\\9", "\\8", "\\7", "\\6", "\\5", "\\4", "\\3", "\\2"};
    EXPECT_EQ(captions(), expected);
    EXPECT_EQ(visibleCount(), 9);
    EXPECT_EQ(file("LS.qrv"), listFile(expected));
}

TEST_F(RecentFiles, ThePathOfEachEntryOfAFullListMovesUpAndNothingDropsOut) {
    const Texts full{"\\1", "\\2", "\\3", "\\4", "\\5", "\\6", "\\7", "\\8", "\\9"};
    for (std::size_t index = 0; index < full.size(); ++index) {
        showCaptions(full);
        use("/" + std::to_string(index + 1));
        Texts expected = full;
        std::rotate(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(index),
                    expected.begin() + static_cast<std::ptrdiff_t>(index) + 1);
        EXPECT_EQ(captions(), expected);
    }
}

TEST_F(RecentFiles, AnotherEntryOfTheSamePathStays) {
    showCaptions({"\\x", "\\a", "\\y", "\\a", "\\z"});
    use("/a");
    EXPECT_EQ(captions(), (Texts{"\\a", "\\x", "\\y", "\\a", "\\z", "", "", "", ""}));
}

TEST_F(RecentFiles, ComparesLetterForLetter) {
    use("/a.qrv");
    use("/A.qrv");
    EXPECT_EQ(captions(), (Texts{"\\A.qrv", "\\a.qrv", "", "", "", "", "", "", ""}));
}

TEST_F(RecentFiles, ABareNameOfTheLastRunIsNeverTheSameAsAFullPath) {
    putFile("LS.qrv", listFile({"\\Quorvel\\Grades\\a.qrv"}));
    startUp();
    use("/Quorvel/Grades/a.qrv");
    const Texts expected{"\\Quorvel\\Grades\\a.qrv", "a.qrv", "", "", "", "", "", "", ""};
    EXPECT_EQ(captions(), expected);
    EXPECT_EQ(file("LS.qrv"), listFile(expected));
}

TEST_F(RecentFiles, AnEntryIsHiddenAsSoonAsItsCaptionIsEmpty) {
    putFile("LS.qrv", listFile({"C:\\Grades\\"}));
    startUp();
    use("/a.qrv");
    EXPECT_FALSE(state.mnuPFile[1].visible);
}

TEST_F(RecentFiles, ALongPathIsCutInTheFileOnly) {
    const std::string path = "/" + std::string(300, 'x');
    use(path);
    EXPECT_EQ(state.mnuPFile[0].caption, "\\" + path.substr(1));
    EXPECT_EQ(firstBytes(*file("LS.qrv"), 128), textRecord("\\" + std::string(125, 'x')));
    use(path);
    EXPECT_EQ(state.mnuPFile[1].caption, "");
}

TEST_F(RecentFiles, APathIsWrittenInTheCodePage) {
    use(std::filesystem::path(u8"/Schüler/ж.qrv"));
    EXPECT_EQ(state.mnuPFile[0].caption, "\\Sch\xFCler\\?.qrv");
}

TEST_F(RecentFiles, AListThatCannotBeWrittenIsInTheMenuAllTheSame) {
    files.readOnly = true;
    use("/a.qrv");
    EXPECT_EQ(state.mnuPFile[0], (MenuEntry{.caption = "\\a.qrv", .visible = true}));
    EXPECT_EQ(file("LS.qrv"), std::nullopt);
}

}  // namespace
}  // namespace quorvel
