#include <string>

#include "tests/fakes/PowerCutFiles.h"
#include "tests/faults/Saves.h"

#include <gtest/gtest.h>

namespace quorvel::faults {
namespace {

/// The power may go after each operation of a save, with whatever the disk then holds.
class PowerCut : public testing::Test {
  protected:
    /// Saves over `old` and looks at every disk that may be left after each operation.
    void cutEverywhere(const Save& save, const Bytes& old, bool isHeld) {
        const Bytes content = over(old, contentOf(save));
        MemoryFiles start;
        start.files[save.file] = old;
        PowerCutFiles files(start);
        if (isHeld) files.held.insert(save.file);
        files.changed = [&] {
            for (MemoryFiles& disk : files.afterPowerCut()) expectWhole(save, disk, old, content);
        };
        save.write(files);
        EXPECT_EQ(files.afterwards().files.at(save.file), content);
        EXPECT_EQ(files.afterwards().files.size(), 1U);
        EXPECT_GT(oldOnes_, 0);
        EXPECT_GT(newOnes_, 0);
        EXPECT_EQ(tornOnes_ > 0, isHeld);
    }

  private:
    void expectWhole(const Save& save, MemoryFiles& disk, const Bytes& old, const Bytes& content) {
        if (HasFatalFailure()) return;
        const bool isOld = disk.files.at(save.file) == old;
        const bool isNew = disk.files.at(save.file) == content;
        const std::filesystem::path beside = save.file.string() + ".quorvel-new";
        const bool isBeside = disk.files.contains(beside) && disk.files.at(beside) == content;
        ++(isOld ? oldOnes_ : isNew ? newOnes_ : tornOnes_);
        ASSERT_TRUE(isOld || isNew || isBeside) << save.name;

        const Bytes before = disk.files.at(save.file);
        save.write(disk);
        ASSERT_EQ(disk.files.at(save.file), over(before, contentOf(save))) << save.name;
        ASSERT_EQ(disk.files.size(), 1U) << save.name;
    }

    int oldOnes_ = 0;
    int newOnes_ = 0;
    int tornOnes_ = 0;
};

TEST_F(PowerCut, LeavesTheOldFileOrTheNewOneWhereOneTakesTheOthersPlace) {
    for (const Save& save : everySave()) {
        cutEverywhere(save, Bytes(contentOf(save).size() + 1000, std::byte{0xAB}), false);
        cutEverywhere(save, Bytes(100, std::byte{0xAB}), false);
    }
}

TEST_F(PowerCut, LeavesTheNewContentBesideAFileThatIsWrittenInPlace) {
    for (const Save& save : everySave()) {
        cutEverywhere(save, Bytes(contentOf(save).size() + 1000, std::byte{0xAB}), true);
        cutEverywhere(save, Bytes(100, std::byte{0xAB}), true);
    }
}

TEST(PowerCutFiles, LosesWhatWasNotFlushedWhollyByHalvesOrNotAtAll) {
    MemoryFiles start;
    start.files["/a"] = Bytes(4, std::byte{0});
    PowerCutFiles files(start);
    const auto output = files.openForWriting("/a");
    output->append(Bytes(4, std::byte{1}));
    EXPECT_EQ(files.afterPowerCut().size(), 4U);
    output->flush();
    ASSERT_EQ(files.afterPowerCut().size(), 1U);
    EXPECT_EQ(files.afterPowerCut().front().files["/a"], Bytes(4, std::byte{1}));
}

TEST(PowerCutFiles, LosesANameUntilAFileIsFlushed) {
    const MemoryFiles empty;
    PowerCutFiles files(empty);
    const auto output = files.create("/a", {});
    EXPECT_EQ(files.afterPowerCut().size(), 2U);
    output->flush();
    EXPECT_EQ(files.afterPowerCut().size(), 1U);
    files.replace("/a", "/b");
    ASSERT_EQ(files.afterPowerCut().size(), 2U);
    EXPECT_TRUE(files.afterPowerCut().front().files.contains("/a"));
    EXPECT_TRUE(files.afterPowerCut().back().files.contains("/b"));
}

}  // namespace
}  // namespace quorvel::faults
