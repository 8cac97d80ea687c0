#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "storage/RecordFile.h"
#include "storage/SheetFile.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Fault = FaultyFiles::Fault;

const std::filesystem::path target = "/Grades/a.qrv";

/// A save of three blocks over a longer file, on a disk where something goes wrong.
class SafeWriting : public ::testing::Test {
  protected:
    SafeWriting() {
        sheet_.sheetTitle = "New";
        sheet_.recreate(40, 60);
        for (int student = 1; student <= 40; ++student) sheet_.setScore(60, student, Score::zero());
        MemoryFiles memory;
        writeSheet(memory, target, sheet_);
        newAlone_ = memory.files[target];
        old_ = Bytes(newAlone_.size() + 1000, std::byte{0xAB});
        newOverOld_ = old_;
        std::ranges::copy(newAlone_, newOverOld_.begin());
    }

    /// How many operations the save takes when all goes well.
    int operationsOf(const MemoryFiles& start) {
        MemoryFiles memory = start;
        FaultyFiles files(memory);
        EXPECT_TRUE(writeSheet(files, target, sheet_));
        return files.operations();
    }

    GradeSheet sheet_;
    Bytes old_;
    Bytes newAlone_;
    Bytes newOverOld_;
};

TEST_F(SafeWriting, AFailureOfAnyOperationLeavesTheOldFileOrTheNewOneAndNothingElse) {
    MemoryFiles start;
    start.files[target] = old_;
    const int operations = operationsOf(start);
    ASSERT_GE(operations, 7);
    for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
        for (int operation = 1; operation <= operations; ++operation) {
            MemoryFiles memory = start;
            FaultyFiles files(memory);
            files.breakAt(operation, fault);
            const bool saved = writeSheet(files, target, sheet_);
            EXPECT_EQ(memory.files[target], saved ? newOverOld_ : old_) << operation;
            EXPECT_EQ(memory.files.size(), 1U) << operation;
        }
    }
}

TEST_F(SafeWriting, AFailureOfAnyOperationLeavesNoFileWhereNoneWas) {
    const int operations = operationsOf({});
    for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
        for (int operation = 1; operation <= operations; ++operation) {
            MemoryFiles memory;
            FaultyFiles files(memory);
            files.breakAt(operation, fault);
            const bool saved = writeSheet(files, target, sheet_);
            if (saved) {
                EXPECT_EQ(memory.files[target], newAlone_) << operation;
            }
            EXPECT_EQ(memory.files.size(), saved ? 1U : 0U) << operation;
        }
    }
}

TEST_F(SafeWriting, APowerCutAfterAnyOperationLeavesTheOldFileOrTheNewOne) {
    MemoryFiles start;
    start.files[target] = old_;
    const int operations = operationsOf(start);
    bool newWasSeen = false;
    for (int operation = 1; operation <= operations; ++operation) {
        MemoryFiles memory = start;
        FaultyFiles files(memory);
        files.breakAt(operation, Fault::PowerCut);
        writeSheet(files, target, sheet_);
        ASSERT_TRUE(files.powerIsOut());
        const Bytes& bytes = memory.files[target];
        EXPECT_TRUE(bytes == old_ || bytes == newOverOld_) << operation;
        newWasSeen = newWasSeen || bytes == newOverOld_;
        EXPECT_LE(memory.files.size(), 2U) << operation;
        EXPECT_TRUE(memory.list("/Grades", ".qrv") == std::vector{target}) << operation;
    }
    EXPECT_TRUE(newWasSeen);
}

TEST_F(SafeWriting, EveryOperationWorksWhereNothingFails) {
    MemoryFiles memory;
    memory.files[target] = old_;
    EXPECT_TRUE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

/// A disk that has no room for new files, only for what is written over old ones.
class NoNewFiles final : public Files {
  public:
    explicit NoNewFiles(Files& disk) : disk_(disk) {}

    bool readable = true;

    std::optional<Bytes> read(const std::filesystem::path& file, std::uint64_t limit) override {
        if (!readable) return std::nullopt;
        return disk_.read(file, limit);
    }
    std::optional<Bytes> readFrom(const std::filesystem::path& file,
                                  std::uint64_t offset) override {
        return disk_.readFrom(file, offset);
    }
    std::unique_ptr<OutputFile> open(const std::filesystem::path& file, OpenMode mode) override {
        return mode == OpenMode::Replace ? nullptr : disk_.open(file, mode);
    }
    bool replace(const std::filesystem::path&, const std::filesystem::path&) override {
        return false;
    }
    bool remove(const std::filesystem::path& file) override { return disk_.remove(file); }
    bool exists(const std::filesystem::path& path) override { return disk_.exists(path); }
    bool createFolder(const std::filesystem::path&) override { return false; }
    std::vector<std::filesystem::path> list(const std::filesystem::path& folder,
                                            std::string_view ending) override {
        return disk_.list(folder, ending);
    }

  private:
    Files& disk_;
};

TEST_F(SafeWriting, WhereNoFileCanBeMadeBesideItTheFileItselfIsWrittenOver) {
    MemoryFiles memory;
    memory.files[target] = old_;
    NoNewFiles files(memory);
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, WritingOverThatFailsPutsTheOldBytesBack) {
    for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
        int failures = 0;
        for (int operation = 1; operation <= 6; ++operation) {
            MemoryFiles memory;
            memory.files[target] = old_;
            FaultyFiles faulty(memory);
            NoNewFiles files(faulty);
            faulty.breakAt(operation, fault);
            const bool saved = writeSheet(files, target, sheet_);
            EXPECT_EQ(memory.files[target], saved ? newOverOld_ : old_) << operation;
            failures += saved ? 0 : 1;
        }
        // To look for a free name may fail; to read, open, write two blocks and flush may not.
        EXPECT_EQ(failures, 5);
    }
}

TEST_F(SafeWriting, AFileThatCannotBePutBackIsNotWrittenOver) {
    MemoryFiles memory;
    memory.files[target] = old_;
    NoNewFiles files(memory);
    files.readable = false;
    EXPECT_FALSE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], old_);
}

TEST_F(SafeWriting, WritingOverThatFailsLeavesNoFileWhereNoneWas) {
    for (int operation = 1; operation <= 7; ++operation) {
        MemoryFiles memory;
        FaultyFiles faulty(memory);
        NoNewFiles files(faulty);
        faulty.breakAt(operation, Fault::Shorten);
        const bool saved = writeSheet(files, target, sheet_);
        EXPECT_EQ(memory.files.size(), saved ? 1U : 0U) << operation;
    }
}

TEST_F(SafeWriting, WhereNothingCanBeWrittenNothingChanges) {
    MemoryFiles memory;
    memory.files[target] = old_;
    memory.readOnly = true;
    EXPECT_FALSE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], old_);
}

TEST_F(SafeWriting, AFileBesideItIsLeftAloneAndAnotherNameIsTaken) {
    const Bytes others = hex("01 02 03");
    MemoryFiles start;
    start.files[target] = old_;
    start.files["/Grades/a.qrv.new"] = others;
    start.files["/Grades/a.qrv.new2"] = others;
    const int operations = operationsOf(start);
    for (int operation = 1; operation <= operations; ++operation) {
        MemoryFiles memory = start;
        FaultyFiles files(memory);
        files.breakAt(operation, Fault::PowerCut);
        writeSheet(files, target, sheet_);
        const Bytes& bytes = memory.files[target];
        EXPECT_TRUE(bytes == old_ || bytes == newOverOld_) << operation;
        EXPECT_EQ(memory.files["/Grades/a.qrv.new"], others);
        EXPECT_EQ(memory.files["/Grades/a.qrv.new2"], others);
        EXPECT_LE(memory.files.size(), 4U);
    }
}

TEST_F(SafeWriting, WhereEveryNameBesideItIsTakenTheFileItselfIsWrittenOver) {
    MemoryFiles memory;
    memory.files[target] = old_;
    memory.files["/Grades/a.qrv.new"] = {};
    for (int number = 2; number <= 100; ++number) {
        memory.files["/Grades/a.qrv.new" + std::to_string(number)] = {};
    }
    EXPECT_TRUE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 101U);
}

TEST(WriteRecords, PutsRecordsInMemoryIntoAFileTheSameWay) {
    MemoryFiles memory;
    memory.files["/TN.qrv"] = textRecord("A long name", 0xCC) + hex("AA BB");
    EXPECT_TRUE(writeRecords(memory, "/TN.qrv", textRecord("Short")));
    EXPECT_EQ(memory.files["/TN.qrv"], textRecord("Short") + hex("AA BB"));
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST(WriteRecords, LeavesNothingBehindWhenMakingTheContentThrows) {
    MemoryFiles memory;
    memory.files["/TN.qrv"] = textRecord("Old");
    EXPECT_THROW(writeRecords(memory, "/TN.qrv",
                              [](RecordStream& stream) {
                                  stream.next().text("New");
                                  throw std::runtime_error("out of memory");
                              }),
                 std::runtime_error);
    EXPECT_EQ(memory.files["/TN.qrv"], textRecord("Old"));
    EXPECT_EQ(memory.files.size(), 1U);
}

}  // namespace
}  // namespace quorvel
