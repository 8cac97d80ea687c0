#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "storage/Reading.h"
#include "storage/RecordFile.h"
#include "storage/SafeWriting.h"
#include "storage/SheetFile.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Fault = FaultyFiles::Fault;

const std::filesystem::path target = "/Grades/a.qrv";
const std::filesystem::path beside = "/Grades/a.qrv.quorvel-new";
const std::filesystem::path secondBeside = "/Grades/a.qrv.quorvel-new2";

WriteContent contentOf(const Bytes& bytes) {
    return [&bytes](OutputFile& file) { return file.append(bytes); };
}

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
    int operationsOf(const MemoryFiles& start, bool isHeld = false) {
        MemoryFiles memory = start;
        FaultyFiles files(memory);
        if (isHeld) files.held.insert(target);
        EXPECT_TRUE(writeSheet(files, target, sheet_));
        return files.operations();
    }
    MemoryFiles diskWithOldFile() const {
        MemoryFiles memory;
        memory.files[target] = old_;
        return memory;
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
    const MemoryFiles start = diskWithOldFile();
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
        EXPECT_EQ(filesEndingWith(memory, "/Grades", ".qrv"), std::vector{target}) << operation;
    }
    EXPECT_TRUE(newWasSeen);
}

TEST_F(SafeWriting, EveryOperationWorksWhereNothingFails) {
    MemoryFiles memory = diskWithOldFile();
    EXPECT_TRUE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, AHeldFileIsWrittenInPlace) {
    MemoryFiles memory = diskWithOldFile();
    FaultyFiles files(memory);
    files.held.insert(target);
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, AFileHeldForAMomentIsReplaced) {
    MemoryFiles memory = diskWithOldFile();
    FaultyFiles files(memory);
    files.held.insert(target);
    files.pausesUntilReleased = 3;
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_TRUE(files.held.empty());
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, ALockedFileStaysAndSoDoesNothingBesideIt) {
    MemoryFiles memory = diskWithOldFile();
    FaultyFiles files(memory);
    files.locked.insert(target);
    EXPECT_FALSE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], old_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, AFailureOfAnyOperationOnAHeldFileLeavesTheOldFileOrTheNewOne) {
    const MemoryFiles start = diskWithOldFile();
    const int operations = operationsOf(start, true);
    for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
        for (int operation = 1; operation <= operations; ++operation) {
            MemoryFiles memory = start;
            FaultyFiles files(memory);
            files.held.insert(target);
            files.breakAt(operation, fault);
            const bool saved = writeSheet(files, target, sheet_);
            EXPECT_EQ(memory.files[target], saved ? newOverOld_ : old_) << operation;
        }
    }
}

TEST_F(SafeWriting, APowerCutOnAHeldFileLeavesTheWholeContentInItOrBesideIt) {
    const MemoryFiles start = diskWithOldFile();
    const int operations = operationsOf(start, true);
    bool tornWasSeen = false;
    for (int operation = 1; operation <= operations; ++operation) {
        MemoryFiles memory = start;
        FaultyFiles files(memory);
        files.held.insert(target);
        files.breakAt(operation, Fault::PowerCut);
        writeSheet(files, target, sheet_);
        const Bytes& bytes = memory.files[target];
        const bool whole = bytes == old_ || bytes == newOverOld_;
        tornWasSeen = tornWasSeen || !whole;
        EXPECT_TRUE(whole || memory.files[beside] == newOverOld_) << operation;
    }
    EXPECT_TRUE(tornWasSeen);
}

/// A disk that writes over a file only up to some length, for good.
class WornDisk final : public FaultyFiles {
  public:
    using FaultyFiles::FaultyFiles;
    std::unique_ptr<OutputFile> openForWriting(const std::filesystem::path& file) override {
        // Half of the new bytes is written, and then nothing of the old ones.
        const bool isFirst = openings_++ == 0;
        breakAt(isFirst ? 3 : 2, isFirst ? Fault::Shorten : Fault::Fail);
        return FaultyFiles::openForWriting(file);
    }

  private:
    int openings_ = 0;
};

TEST_F(SafeWriting, WhereTheOldBytesCannotBePutBackTheFileBesideItStays) {
    MemoryFiles memory = diskWithOldFile();
    WornDisk files(memory);
    files.held.insert(target);
    EXPECT_FALSE(writeSheet(files, target, sheet_));
    EXPECT_NE(memory.files[target], old_);
    EXPECT_EQ(memory.files[beside], newOverOld_);
}

/// A disk that has no room for new files, only for what is written over old ones.
class NoNewFiles final : public FaultyFiles {
  public:
    using FaultyFiles::FaultyFiles;
    std::unique_ptr<OutputFile> create(const std::filesystem::path&,
                                       const std::filesystem::path&) override {
        return nullptr;
    }
};

TEST_F(SafeWriting, WhereNoFileCanBeMadeBesideItTheFileItselfIsWrittenOver) {
    MemoryFiles memory = diskWithOldFile();
    NoNewFiles files(memory);
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST_F(SafeWriting, WritingOverThatFailsPutsTheOldBytesBack) {
    int operations = 0;
    for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
        int failures = 0;
        for (int operation = 0; operation == 0 || operation <= operations; ++operation) {
            MemoryFiles memory = diskWithOldFile();
            NoNewFiles files(memory);
            files.breakAt(operation, fault);
            const bool saved = writeSheet(files, target, sheet_);
            if (operation == 0) operations = files.operations();
            EXPECT_EQ(memory.files[target], saved ? newOverOld_ : old_) << operation;
            failures += saved ? 0 : 1;
        }
        // To open, to write two blocks and to flush may not fail; to read is tried again.
        EXPECT_EQ(failures, 4);
    }
}

TEST_F(SafeWriting, WritingOverThatFailsMakesAShortFileShortAgain) {
    MemoryFiles memory;
    memory.files[target] = hex("01 02 03");
    NoNewFiles files(memory);
    files.breakAt(7, Fault::Shorten);
    EXPECT_FALSE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], hex("01 02 03"));
}

TEST_F(SafeWriting, WritingOverThatFailsLeavesNoFileWhereNoneWas) {
    for (int operation = 1; operation <= 7; ++operation) {
        MemoryFiles memory;
        NoNewFiles files(memory);
        files.breakAt(operation, Fault::Shorten);
        const bool saved = writeSheet(files, target, sheet_);
        EXPECT_EQ(memory.files.size(), saved ? 1U : 0U) << operation;
    }
}

TEST_F(SafeWriting, WhereNothingCanBeWrittenNothingChanges) {
    MemoryFiles memory = diskWithOldFile();
    memory.readOnly = true;
    EXPECT_FALSE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], old_);
}

TEST_F(SafeWriting, WhatACrashLeftBesideItGoesWithTheNextSuccess) {
    MemoryFiles memory = diskWithOldFile();
    memory.files[beside] = hex("01 02 03");
    memory.files[secondBeside] = hex("01 02 03");
    memory.files["/Grades/b.qrv.quorvel-new"] = hex("01");
    EXPECT_TRUE(writeSheet(memory, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_FALSE(memory.files.contains(beside));
    EXPECT_FALSE(memory.files.contains(secondBeside));
    EXPECT_EQ(memory.files.size(), 2U);
}

TEST_F(SafeWriting, WhatACrashLeftBesideItIsNeverWrittenInto) {
    MemoryFiles start = diskWithOldFile();
    start.files[beside] = hex("01 02 03");
    const int operations = operationsOf(start);
    for (const Fault fault : {Fault::Fail, Fault::Shorten, Fault::PowerCut}) {
        for (int operation = 1; operation <= operations; ++operation) {
            MemoryFiles memory = start;
            FaultyFiles files(memory);
            files.breakAt(operation, fault);
            writeSheet(files, target, sheet_);
            const Bytes& bytes = memory.files[target];
            EXPECT_TRUE(bytes == old_ || bytes == newOverOld_) << operation;
            const bool gone = !memory.files.contains(beside);
            EXPECT_TRUE(gone ? bytes == newOverOld_ : memory.files[beside] == hex("01 02 03"));
        }
    }
}

TEST_F(SafeWriting, AFileBesideItThatSomebodyHasOpenStays) {
    MemoryFiles memory = diskWithOldFile();
    memory.files[beside] = hex("01 02 03");
    FaultyFiles files(memory);
    files.locked.insert(beside);
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files[beside], hex("01 02 03"));
    EXPECT_EQ(memory.files.size(), 2U);
}

TEST_F(SafeWriting, WhereEveryNameBesideItIsTakenTheFileItselfIsWrittenOver) {
    MemoryFiles memory = diskWithOldFile();
    FaultyFiles files(memory);
    for (const char* number : {"", "2", "3", "4"}) {
        const std::filesystem::path taken = beside.string() + number;
        memory.files[taken] = hex("01 02 03");
        files.locked.insert(taken);
    }
    EXPECT_TRUE(writeSheet(files, target, sheet_));
    EXPECT_EQ(memory.files[target], newOverOld_);
    EXPECT_EQ(memory.files.size(), 5U);
}

TEST(WriteSafely, CutsTheOldRestWhenAskedTo) {
    const Bytes content = hex("AA");
    for (const bool isHeld : {false, true}) {
        MemoryFiles memory;
        memory.files[target] = hex("01 02 03");
        FaultyFiles files(memory);
        if (isHeld) files.held.insert(target);
        EXPECT_TRUE(writeSafely(files, target, OldRest::Cut, contentOf(content)));
        EXPECT_EQ(memory.files[target], content);
        EXPECT_EQ(memory.files.size(), 1U);
    }
}

TEST(WriteSafely, AnyFailureLeavesTheOldContentOrTheNewOne) {
    const Bytes old = hex("01 02 03");
    const Bytes content = hex("AA BB");
    for (const Fault fault : {Fault::Fail, Fault::Shorten, Fault::PowerCut}) {
        for (int operation = 1; operation <= 12; ++operation) {
            MemoryFiles memory;
            memory.files[target] = old;
            FaultyFiles files(memory);
            files.breakAt(operation, fault);
            const bool written = writeSafely(files, target, OldRest::Cut, contentOf(content));
            const Bytes& bytes = memory.files[target];
            EXPECT_TRUE(bytes == old || bytes == content) << operation;
            EXPECT_TRUE(fault == Fault::PowerCut || written == (bytes == content)) << operation;
        }
    }
}

TEST(WriteRecords, PutsRecordsInMemoryIntoAFileTheSameWay) {
    MemoryFiles memory;
    memory.files["/TN.qrv"] = textRecord("A long name", 0xCC) + hex("AA BB");
    EXPECT_TRUE(writeRecords(memory, "/TN.qrv", textRecord("Short")));
    EXPECT_EQ(memory.files["/TN.qrv"], textRecord("Short") + hex("AA BB"));
    EXPECT_EQ(memory.files.size(), 1U);
}

TEST(WriteRecords, LeavesTheOldFileAndNothingElseWhenMakingTheContentThrows) {
    const auto fail = [](RecordStream& stream) {
        stream.next().text("New");
        stream.finish();
        throw std::runtime_error("out of memory");
    };
    for (const bool besideIt : {true, false}) {
        MemoryFiles memory;
        memory.files["/TN.qrv"] = textRecord("Old");
        NoNewFiles noNewFiles(memory);
        Files& files = besideIt ? static_cast<Files&>(memory) : noNewFiles;
        EXPECT_THROW(writeRecords(files, "/TN.qrv", fail), std::runtime_error);
        EXPECT_EQ(memory.files["/TN.qrv"], textRecord("Old"));
        EXPECT_EQ(memory.files.size(), 1U);
    }
}

}  // namespace
}  // namespace quorvel
