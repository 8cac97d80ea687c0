#include "qrv/SafeText.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::string textOf(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes bytesOf(std::string_view text) {
    const auto* start = reinterpret_cast<const std::byte*>(text.data());
    return {start, start + text.size()};
}

TEST(SafeTextTest, TheOldTextIsReplacedWhole) {
    MemoryFiles disk;
    disk.files["/a.csv"] = bytesOf("a much longer old text");
    EXPECT_TRUE(writeTextSafely(disk, "/a.csv", "new"));
    EXPECT_EQ(textOf(disk.files["/a.csv"]), "new");
    EXPECT_EQ(disk.files.size(), 1U);
}

TEST(SafeTextTest, AnyFailingOperationLeavesTheOldTextAndNothingBesideIt) {
    MemoryFiles counted;
    FaultyFiles counter(counted);
    EXPECT_TRUE(writeTextSafely(counter, "/a.csv", "new"));
    ASSERT_GT(counter.operations(), 3);
    for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten}) {
        for (int operation = 1; operation <= counter.operations(); ++operation) {
            MemoryFiles disk;
            disk.files["/a.csv"] = bytesOf("old");
            FaultyFiles faulty(disk);
            faulty.breakAt(operation, fault);
            const bool written = writeTextSafely(faulty, "/a.csv", "new text");
            EXPECT_EQ(textOf(disk.files["/a.csv"]), written ? "new text" : "old") << operation;
            EXPECT_EQ(disk.files.size(), 1U) << operation;
        }
    }
}

TEST(SafeTextTest, APowerCutAtAnyMomentLeavesTheOldTextOrTheNewOne) {
    MemoryFiles counted;
    FaultyFiles counter(counted);
    EXPECT_TRUE(writeTextSafely(counter, "/a.csv", "new"));
    for (int operation = 1; operation <= counter.operations(); ++operation) {
        MemoryFiles disk;
        disk.files["/a.csv"] = bytesOf("old");
        FaultyFiles faulty(disk);
        faulty.breakAt(operation, FaultyFiles::Fault::PowerCut);
        writeTextSafely(faulty, "/a.csv", "new text");
        const std::string left = textOf(disk.files["/a.csv"]);
        EXPECT_TRUE(left == "old" || left == "new text") << left;
    }
}

TEST(SafeTextTest, AFileThatIsTakenAlreadyIsLeftAlone) {
    MemoryFiles disk;
    disk.files["/a.csv.new"] = bytesOf("the user's");
    EXPECT_TRUE(writeTextSafely(disk, "/a.csv", "new"));
    EXPECT_EQ(textOf(disk.files["/a.csv.new"]), "the user's");
}

}  // namespace

}  // namespace quorvel
