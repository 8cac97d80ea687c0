#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

#include "storage/SheetFile.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr std::size_t recordLength = 128;

Bytes fileOf(const GradeSheet& sheet, Bytes before = {}) {
    MemoryFiles files;
    if (!before.empty()) files.files["/a.qrv"] = std::move(before);
    EXPECT_TRUE(writeSheet(files, "/a.qrv", sheet));
    EXPECT_EQ(files.files.size(), 1U);
    return files.files["/a.qrv"];
}

/// A file of two counts, with nothing behind them.
GradeSheet sheetWithCounts(const Bytes& students, const Bytes& assignments) {
    return decodeSheet(students + assignments);
}

TEST(DecodeSheet, ReadsEveryValueOfAHandMadeFile) {
    EXPECT_EQ(contentOf(decodeSheet(sampleFile())), sampleContent());
}

TEST(DecodeSheet, DoesNotCareWhatFillsTheRecords) {
    EXPECT_EQ(contentOf(decodeSheet(sampleFile(0xFF))), sampleContent());
    EXPECT_EQ(contentOf(decodeSheet(sampleFile(0x08))), sampleContent());
}

TEST(DecodeSheet, IgnoresWhatStandsBehindTheLastRecord) {
    EXPECT_EQ(contentOf(decodeSheet(sampleFile() + sampleFile())), sampleContent());
    EXPECT_EQ(contentOf(decodeSheet(sampleFile() + hex("05"))), sampleContent());
}

TEST(DecodeSheet, AFileWithoutCountsIsASheetThatNeverHadAnything) {
    const GradeSheet sheet = decodeSheet(emptyRecord() + emptyRecord() + textRecord("New"));
    EXPECT_EQ(contentOf(sheet), "students never set, assignments never set, title 'New'\n");
}

TEST(DecodeSheet, AFileOfNoBytesIsAnEmptySheet) {
    EXPECT_EQ(contentOf(decodeSheet({})), "students never set, assignments never set, title ''\n");
}

TEST(DecodeSheet, CountsOfZeroAreKnownAndRead) {
    EXPECT_EQ(contentOf(decodeSheet(taggedIntegerRecord(0) + taggedIntegerRecord(0))),
              "students 0, assignments 0, title ''\n");
}

TEST(DecodeSheet, TakesCountsOfEveryType) {
    struct Case {
        Bytes record;
        int count;
    };
    const Case cases[] = {
        {recordWith(hex("02 00 02 00")), 2},
        {recordWith(hex("03 00 02 00 00 00")), 2},
        {recordWith(hex("04 00 00 00 00 40")), 2},              // 2.0
        {recordWith(hex("04 00 00 00 20 40")), 2},              // 2.5: to even
        {recordWith(hex("04 00 00 00 60 40")), 4},              // 3.5: to even
        {recordWith(hex("05 00 00 00 00 00 00 00 00 40")), 2},  // 2.0
        {recordWith(hex("05 00 33 33 33 33 33 33 05 40")), 3},  // 2.65
        {taggedTextRecord("2"), 2},
        {taggedTextRecord(" 2 students"), 2},
        {taggedTextRecord("none"), 0},
        {taggedTextRecord(""), 0},
    };
    for (const Case& each : cases) {
        const GradeSheet sheet = sheetWithCounts(each.record, each.record);
        EXPECT_EQ(sheet.studentCount(), each.count);
        EXPECT_EQ(sheet.assignmentCount(), each.count);
        EXPECT_NE(sheet.studentCountIfSet(), std::nullopt);
        EXPECT_NE(sheet.assignmentCountIfSet(), std::nullopt);
    }
}

TEST(DecodeSheet, ACountThatNoSheetCanHaveIsZeroButSet) {
    const Bytes impossible[] = {
        recordWith(hex("02 00 FF FF")),                    // -1
        recordWith(hex("02 00 00 80")),                    // -32768
        recordWith(hex("03 00 00 80 00 00")),              // 32768
        recordWith(hex("03 00 02 00 01 00")),              // 65538
        recordWith(hex("03 00 00 00 00 80")),              // the lowest of 32 bits
        recordWith(hex("04 00 00 00 00 47")),              // 32768.0
        recordWith(hex("04 00 00 00 80 7F")),              // infinity
        recordWith(hex("04 00 00 00 C0 7F")),              // not a number
        recordWith(hex("05 00 00 00 00 00 00 00 F0 FF")),  // minus infinity
        recordWith(hex("05 00 9C 75 00 88 3C E4 37 7E")),  // 1e300
        taggedTextRecord("99999999999999999999"),
        taggedTextRecord("-3"),
    };
    for (const Bytes& count : impossible) {
        EXPECT_EQ(contentOf(sheetWithCounts(count, taggedIntegerRecord(1))),
                  "students 0, assignments 1, title ''\n'' 0:\n");
    }
}

TEST(DecodeSheet, TakesTheGreatestCountsThereAre) {
    const Bytes greatest = recordWith(hex("02 00 FF 7F"));
    const GradeSheet sheet = sheetWithCounts(greatest, taggedIntegerRecord(1));
    EXPECT_EQ(sheet.studentCount(), 32767);
    EXPECT_TRUE(sheet.score(1, 32767).isEmpty());
}

TEST(DecodeSheet, TimeAndMemoryFollowTheBytesAndNotTheCounts) {
    const Bytes greatest = recordWith(hex("02 00 FF 7F"));
    const auto start = std::chrono::steady_clock::now();
    const GradeSheet sheet = decodeSheet(
        joined({greatest, greatest, textRecord("Huge"), taggedTextRecord("17"), emptyRecord()}));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(sheet.studentCount(), 32767);
    EXPECT_EQ(sheet.assignmentCount(), 32767);
    EXPECT_EQ(sheet.scores(1).storedCount(), 1);
    EXPECT_EQ(sheet.score(1, 1), Score::ofText("17"));
    for (int assignment = 2; assignment <= 32767; ++assignment) {
        ASSERT_EQ(sheet.scores(assignment).storedCount(), 0);
    }
    EXPECT_TRUE(sheet.score(32767, 32767).isEmpty());
}

TEST(DecodeSheet, EmptyCellsInTheFileTakeNoMemory) {
    Bytes bytes = joined({taggedIntegerRecord(100), taggedIntegerRecord(2), textRecord("")});
    bytes.resize(bytes.size() + 200 * recordLength);
    const GradeSheet sheet = decodeSheet(bytes);
    EXPECT_EQ(sheet.scores(1).storedCount(), 0);
    EXPECT_EQ(sheet.scores(2).storedCount(), 0);
}

TEST(DecodeSheet, KeepsALongTextCellWhole) {
    const std::string text = std::string(123, '7') + "x";
    const GradeSheet sheet = decodeSheet(joined(
        {taggedIntegerRecord(1), taggedIntegerRecord(1), textRecord(""), taggedTextRecord(text)}));
    EXPECT_EQ(sheet.score(1, 1), Score::ofText(text));
}

TEST(DecodeSheet, ACellOfUnknownTypeIsEmptyAndTheOthersStay) {
    const GradeSheet sheet = decodeSheet(joined(
        {taggedIntegerRecord(3), taggedIntegerRecord(1), textRecord(""), taggedTextRecord("1"),
         recordWith(hex("07 00 01 02 03 04")), taggedTextRecord("3"), textRecord("A")}));
    EXPECT_EQ(contentOf(sheet),
              "students 3, assignments 1, title ''\n'A' ''\n'' ''\n'' ''\n"
              "'' 0: text '1' empty text '3'\n");
}

/// One student and one assignment in 8 records, and what each number of its bytes is read as.
class CutOff : public ::testing::Test {
  protected:
    static Bytes whole() {
        return joined({taggedIntegerRecord(1, 0xCC), taggedIntegerRecord(1, 0xCC),
                       textRecord("Math", 0xCC), taggedTextRecord("17", 0xCC),
                       textRecord("Doe, Jane", 0xCC), textRecord("Jane", 0xCC),
                       textRecord("Quiz", 0xCC), integerRecord(20, 0xCC)});
    }

    /// A text whose record starts at `record` (from 1), its characters at `offset` in it.
    static std::string textAt(std::size_t record, std::size_t offset, std::string_view text,
                              std::size_t size) {
        const std::size_t start = (record - 1) * recordLength + offset;
        return std::string(text.substr(0, size > start ? size - start : 0));
    }

    static std::string expected(std::size_t size) {
        const bool students = size >= 4;
        const bool assignments = size >= recordLength + 4;
        std::string text = students ? "students 1" : "students never set";
        text += assignments ? ", assignments 1" : ", assignments never set";
        text += ", title '" + textAt(3, 2, "Math", size) + "'\n";
        if (students) {
            text +=
                "'" + textAt(5, 2, "Doe, Jane", size) + "' '" + textAt(6, 2, "Jane", size) + "'\n";
        }
        if (assignments) {
            const bool scored = size >= 3 * recordLength + 4;
            const bool valued = size >= 7 * recordLength + 2;
            text += "'" + textAt(7, 2, "Quiz", size) + "' " + (valued ? "20" : "0") + ": " +
                    (scored ? "text '" + textAt(4, 4, "17", size) + "'" : "empty") + "\n";
        }
        return text;
    }
};

TEST_F(CutOff, AtEveryLengthReadsWhatIsThereAndNothingElse) {
    const Bytes bytes = whole();
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        ASSERT_EQ(contentOf(decodeSheet(firstBytes(bytes, size))), expected(size)) << size;
    }
}

TEST(WriteSheet, WritesEveryByteOfTheLayout) {
    EXPECT_EQ(sampleFile().size(), 19 * recordLength);
    EXPECT_EQ(fileOf(sampleSheet()), sampleFile());
}

TEST(WriteSheet, ASheetThatNeverHadAnythingHasEmptyCounts) {
    EXPECT_EQ(fileOf(GradeSheet()), joined({emptyRecord(), emptyRecord(), textRecord("")}));
}

TEST(WriteSheet, CountsOfZeroAreWrittenAsNumbers) {
    GradeSheet sheet;
    sheet.addStudent("Doe, Jane", "Jane");
    sheet.removeStudent(1);
    EXPECT_EQ(fileOf(sheet), joined({taggedIntegerRecord(0), emptyRecord(), textRecord("")}));
}

TEST(WriteSheet, ACellThatWasNeverEnteredIsAnEmptyValueAndReadsBackEmpty) {
    GradeSheet sheet;
    sheet.recreate(1, 1);
    const Bytes bytes = fileOf(sheet);
    EXPECT_EQ(bytes[3 * recordLength], std::byte{0});
    EXPECT_EQ(bytes[3 * recordLength + 1], std::byte{0});
    EXPECT_TRUE(decodeSheet(bytes).score(1, 1).isEmpty());
}

TEST(WriteSheet, ANumberOfAnotherTypeIsWrittenBackAsItWasRead) {
    const Bytes file = joined(
        {taggedIntegerRecord(4), taggedIntegerRecord(1), textRecord(""),
         recordWith(hex("03 00 70 11 01 00")), recordWith(hex("04 00 00 00 40 3F")),
         recordWith(hex("05 00 00 00 00 00 00 00 04 C0")), recordWith(hex("04 00 01 00 C0 7F")),
         recordWith({}), recordWith({}), recordWith({}), recordWith({}), recordWith({}),
         recordWith({}), recordWith({}), recordWith({}), textRecord("Quiz"), integerRecord(-5)});
    EXPECT_EQ(fileOf(decodeSheet(file)), file);
}

TEST(WriteSheet, TextsAreCutToWhatTheirRecordsHold) {
    GradeSheet sheet;
    sheet.sheetTitle = std::string(200, 't');
    sheet.recreate(1, 1);
    sheet.setStudent(1, std::string(127, 'n'), std::string(126, 'a'));
    sheet.setAssignment(1, std::string(128, 'q'), 7);
    sheet.setScore(1, 1, Score::ofText(std::string(125, '5')));
    EXPECT_EQ(
        fileOf(sheet),
        joined({taggedIntegerRecord(1), taggedIntegerRecord(1), recordWith(hex("7E 00"), 't'),
                recordWith(hex("08 00 7C 00"), '5'), recordWith(hex("7E 00"), 'n'),
                recordWith(hex("7E 00"), 'a'), recordWith(hex("7E 00"), 'q'), integerRecord(7)}));
}

TEST(WriteSheet, StaleRecordsOfALongerFileStayBehindTheNewEnd) {
    GradeSheet small;
    small.sheetTitle = "Small";
    small.addStudent("Doe, Jane", "Jane");
    const Bytes old = sampleFile(0xCC) + hex("01 02 03");
    const Bytes expected = joined({taggedIntegerRecord(1), emptyRecord(), textRecord("Small"),
                                   textRecord("Doe, Jane"), textRecord("Jane")});
    const Bytes written = fileOf(small, old);
    ASSERT_EQ(written.size(), old.size());
    EXPECT_EQ(firstBytes(written, expected.size()), expected);
    EXPECT_TRUE(std::equal(written.begin() + 5 * recordLength, written.end(),
                           old.begin() + 5 * recordLength));
    EXPECT_EQ(contentOf(decodeSheet(written)), contentOf(small));
}

TEST(WriteSheet, AShorterFileIsReplacedWhole) {
    EXPECT_EQ(fileOf(sampleSheet(), taggedIntegerRecord(9)), sampleFile());
    EXPECT_EQ(fileOf(sampleSheet(), hex("02")), sampleFile());
}

TEST(ReadSheet, ReadsASheetFromItsFile) {
    MemoryFiles files;
    files.files["/a.qrv"] = sampleFile();
    const SheetReading reading = readSheet(files, "/a.qrv");
    EXPECT_EQ(reading.problem, FileProblem::None);
    EXPECT_EQ(contentOf(reading.sheet), sampleContent());
}

TEST(ReadSheet, TellsAMissingFileFromOneThatCannotBeRead) {
    MemoryFiles memory;
    memory.files["/a.qrv"] = sampleFile();
    memory.folders.insert("/folder");
    FaultyFiles files(memory);
    files.locked.insert("/a.qrv");
    for (const auto& [file, problem] :
         {std::pair("/missing.qrv", FileProblem::Missing),
          std::pair("/folder", FileProblem::Folder), std::pair("/a.qrv", FileProblem::InUse)}) {
        const SheetReading reading = readSheet(files, file);
        EXPECT_EQ(reading.problem, problem) << file;
        EXPECT_EQ(contentOf(reading.sheet), contentOf(GradeSheet())) << file;
    }
}

TEST(ReadSheet, WaitsForWhoeverHasTheFileOpenForAMoment) {
    MemoryFiles memory;
    memory.files["/a.qrv"] = sampleFile();
    FaultyFiles files(memory);
    files.locked.insert("/a.qrv");
    files.pausesUntilReleased = 30;
    EXPECT_EQ(contentOf(readSheet(files, "/a.qrv").sheet), sampleContent());
}

/// A disk whose files break off in the middle, however often they are read.
class BreakingFiles final : public FaultyFiles {
  public:
    using FaultyFiles::FaultyFiles;
    Opened openForReading(const std::filesystem::path& file, std::uint64_t offset) override {
        breakAt(2, Fault::Shorten);
        return FaultyFiles::openForReading(file, offset);
    }
};

TEST(ReadSheet, OneThatBreaksOffIsNeverHalfASheet) {
    MemoryFiles memory;
    memory.files["/a.qrv"] = sampleFile();
    BreakingFiles files(memory);
    const SheetReading reading = readSheet(files, "/a.qrv");
    EXPECT_EQ(reading.problem, FileProblem::Unreadable);
    EXPECT_EQ(contentOf(reading.sheet), contentOf(GradeSheet()));
}

TEST(ReadSheet, OneThatBreaksOffOnceIsReadAgain) {
    for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten}) {
        for (int operation = 1; operation <= 3; ++operation) {
            MemoryFiles memory;
            memory.files["/a.qrv"] = sampleFile();
            FaultyFiles files(memory);
            files.breakAt(operation, fault);
            const SheetReading reading = readSheet(files, "/a.qrv");
            EXPECT_EQ(reading.problem, FileProblem::None) << operation;
            EXPECT_EQ(contentOf(reading.sheet), sampleContent()) << operation;
        }
    }
}

SheetCheck checkOf(const Bytes& bytes) {
    RecordReader reader(bytes);
    return checkSheet(reader);
}

TEST(CheckSheet, AWholeSheetAndWhatStandsBehindIt) {
    const SheetCheck check = checkOf(sampleFile() + hex("01"));
    EXPECT_EQ(check.studentCount, 2);
    EXPECT_EQ(check.assignmentCount, 3);
    EXPECT_EQ(check.sheetTitle, "Math - 1");
    EXPECT_EQ(check.recordsWanted, 19U);
    EXPECT_EQ(check.recordsPresent, 20U);
    EXPECT_FALSE(check.firstDamage);
}

TEST(CheckSheet, EveryEndThatComesTooEarlyIsTheFirstMissingOrShortenedRecord) {
    const Bytes whole = sampleFile();
    for (std::size_t records = 0; records < 19; ++records) {
        const SheetCheck check = checkOf(firstBytes(whole, records * 128));
        ASSERT_TRUE(check.firstDamage) << records;
        EXPECT_EQ(check.firstDamage->number, records + 1);
        EXPECT_EQ(check.firstDamage->reason, "it is missing");
        EXPECT_EQ(check.recordsPresent, records);
        const SheetCheck shortened = checkOf(firstBytes(whole, records * 128 + 1));
        ASSERT_TRUE(shortened.firstDamage) << records;
        EXPECT_EQ(shortened.firstDamage->number, records + 1);
        EXPECT_EQ(shortened.firstDamage->reason, "it is cut short");
    }
}

TEST(CheckSheet, ACountThatNoSheetHasLeavesTheRestUnknown) {
    const SheetCheck check = checkOf(recordWith(hex("02 00 FF FF")) + taggedIntegerRecord(1));
    EXPECT_EQ(check.studentCount, std::nullopt);
    EXPECT_EQ(check.assignmentCount, std::nullopt);
    EXPECT_EQ(check.recordsWanted, std::nullopt);
    ASSERT_TRUE(check.firstDamage);
    EXPECT_EQ(check.firstDamage->reason, "no sheet has a count of -1");
}

TEST(CheckSheet, CountsThatTheBytesDoNotHoldCostNoTime) {
    const SheetCheck check =
        checkOf(taggedIntegerRecord(32767) + taggedIntegerRecord(32767) + textRecord("Huge"));
    EXPECT_EQ(check.recordsWanted, 3U + 32767U * 32767U + 4U * 32767U);
    ASSERT_TRUE(check.firstDamage);
    EXPECT_EQ(check.firstDamage->number, 4U);
}

}  // namespace
}  // namespace quorvel
