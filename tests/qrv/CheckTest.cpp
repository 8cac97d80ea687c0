#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class CheckTest : public ProgramTest {
  protected:
    CheckTest() { makeClass(); }

    /// class.qrv with these bytes at the start of a record (counted from 1).
    std::string withRecord(std::size_t number, std::string_view start) const {
        std::string bytes = read("class.qrv");
        bytes.replace((number - 1) * recordSize, start.size(), start);
        return bytes;
    }

    /// What is said about a damaged file behind "record ".
    std::string damageOf(const std::string& bytes) const {
        write("damaged.qrv", bytes);
        const ProgramRun run = qrv("check damaged.qrv");
        EXPECT_EQ(run.exitCode, 1);
        const std::string start = "qrv: damaged.qrv: record ";
        EXPECT_TRUE(isOneLine(run.problem, start));
        if (!run.problem.starts_with(start)) return run.problem;
        std::string damage =
            run.problem.substr(start.size(), run.problem.size() - start.size() - 1);
        EXPECT_TRUE(run.output.ends_with("whole: no\nfirst damaged record: " + damage + "\n"));
        return damage;
    }

    static constexpr std::size_t recordSize = 128;
    static constexpr std::size_t records = 3 + 12 + 6 + 8;
};

TEST_F(CheckTest, AWholeSheet) {
    const ProgramRun run = qrv("check class.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem, "");
    EXPECT_EQ(run.output,
              "title: Math - 1\nstudents: 3\nassignments: 4\nrecords wanted: 29\n"
              "records present: 29\nscale: 94,86,76,70,60 (built in)\nwhole: yes\n");
}

TEST_F(CheckTest, WhatStandsBehindTheSheetDoesNoHarm) {
    write("long.qrv", read("class.qrv") + std::string(300, '\xFF'));
    const ProgramRun run = qrv("check long.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output,
              "title: Math - 1\nstudents: 3\nassignments: 4\nrecords wanted: 29\n"
              "records present: 32\nscale: 94,86,76,70,60 (built in)\nwhole: yes\n");
}

TEST_F(CheckTest, ALastRecordThatLacksOnlyItsFillerIsWhole) {
    write("short.qrv", read("class.qrv").substr(0, (records - 1) * recordSize + 2));
    EXPECT_EQ(qrv("check short.qrv").exitCode, 0);
}

TEST_F(CheckTest, AFileThatEndsEarlyMissesARecord) {
    EXPECT_EQ(damageOf(read("class.qrv").substr(0, 20 * recordSize)), "21: it is missing");
    EXPECT_EQ(damageOf(read("class.qrv").substr(0, 20 * recordSize + 1)), "21: it is cut short");
    EXPECT_EQ(damageOf(read("class.qrv").substr(0, (records - 1) * recordSize + 1)),
              "29: it is cut short");
    EXPECT_EQ(damageOf(""), "1: it is missing");
}

TEST_F(CheckTest, EveryLengthThatIsShortOfTheLastValueIsDamaged) {
    const std::string whole = read("class.qrv");
    for (std::size_t length = 0; length < (records - 1) * recordSize + 2; length += 61) {
        write("cut.qrv", whole.substr(0, length));
        EXPECT_EQ(qrv("check cut.qrv").exitCode, 1) << length;
    }
}

TEST_F(CheckTest, TheFirstDamagedRecordIsNamedWithItsReason) {
    EXPECT_EQ(damageOf(withRecord(4, std::string("\x09\x00", 2))), "4: a value of unknown type 9");
    EXPECT_EQ(damageOf(withRecord(3, std::string("\x7F\x00", 2))),
              "3: a text of 127 characters, where 126 have room");
    EXPECT_EQ(damageOf(withRecord(5, std::string("\x08\x00\x7D\x00", 4))),
              "5: a text of 125 characters, where 124 have room");
    EXPECT_EQ(damageOf(withRecord(16, "\xFF\xFF")),
              "16: a text of 65535 characters, where 126 have room");
    EXPECT_EQ(damageOf(withRecord(28, std::string("\x7F\x00", 2))),
              "28: a text of 127 characters, where 126 have room");
}

TEST_F(CheckTest, CountsThatNoSheetHasAreDamage) {
    EXPECT_EQ(damageOf(withRecord(1, std::string("\x02\x00\xFF\xFF", 4))),
              "1: no sheet has a count of -1");
    EXPECT_EQ(damageOf(withRecord(2, std::string("\x04\x00\x00\x00\x20\x40", 6))),
              "2: no sheet has a count of 2.5");
    EXPECT_EQ(damageOf(withRecord(2, std::string("\x03\x00\x00\x80\x00\x00", 6))),
              "2: no sheet has a count of 32768");
    EXPECT_EQ(damageOf(withRecord(1, std::string("\x08\x00\x01\x00x", 5))),
              "1: a text that is no count");
    write("damaged.qrv", withRecord(2, "\x07"));
    EXPECT_EQ(qrv("check damaged.qrv").output,
              "title: \nstudents: 3\nassignments: unknown\nrecords wanted: unknown\n"
              "records present: 29\nscale: 94,86,76,70,60 (built in)\n"
              "whole: no\nfirst damaged record: 2: a value of unknown type 7\n");
}

TEST_F(CheckTest, CountsOfEveryTypeAreCounts) {
    for (const std::string& count :
         {std::string("\x03\x00\x03\x00\x00\x00", 6), std::string("\x04\x00\x00\x00\x40\x40", 6),
          std::string("\x05\x00\x00\x00\x00\x00\x00\x00\x08\x40", 10),
          std::string("\x08\x00\x01\x00"
                      "3",
                      5)}) {
        write("typed.qrv", withRecord(1, count));
        EXPECT_EQ(qrv("check typed.qrv").exitCode, 0);
    }
    write("never-set.qrv", std::string(3 * recordSize, '\0'));
    EXPECT_EQ(qrv("check never-set.qrv").output,
              "title: \nstudents: 0\nassignments: 0\nrecords wanted: 3\nrecords present: 3\n"
              "scale: 94,86,76,70,60 (built in)\nwhole: yes\n");
}

TEST_F(CheckTest, AScoreMayHoldAnyTextOrNumber) {
    for (const std::string& score : {std::string("\x08\x00\x03\x00"
                                                 "abc",
                                                 7),
                                     std::string("\x04\x00\xFF\xFF\xFF\xFF", 6)}) {
        write("odd.qrv", withRecord(7, score));
        EXPECT_EQ(qrv("check odd.qrv").exitCode, 0);
    }
}

TEST_F(CheckTest, CountsOfAThousandMillionCellsTakeNeitherTimeNorMemory) {
    const std::string count("\x02\x00\xFF\x7F", 4);
    write("claims.qrv", count + std::string(124, '\0') + count + std::string(124, '\0'));
    const ProgramRun run = shell(memoryLimit() + "qrv check claims.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output,
              "title: \nstudents: 32767\nassignments: 32767\nrecords wanted: 1073807360\n"
              "records present: 2\nscale: 94,86,76,70,60 (built in)\nwhole: no\nfirst damaged "
              "record: 3: it is missing\n");
}

TEST_F(CheckTest, AMissingFileIsAnError) {
    const ProgramRun run = qrv("check missing.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing.qrv: there is no such file"));
}

TEST_F(CheckTest, SeveralSheetsAreEachNamedAndOneBadOneDoesNotStopTheOthers) {
    write("bad.qrv", read("class.qrv").substr(0, 7 * recordSize));
    const ProgramRun run = qrv("check bad.qrv missing.qrv class.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.starts_with("sheet: bad.qrv\ntitle: Math - 1\n")) << run.output;
    EXPECT_NE(run.output.find("it is missing\n\nsheet: class.qrv\n"), std::string::npos);
    EXPECT_TRUE(run.output.ends_with("whole: yes\n"));
    EXPECT_EQ(run.problem,
              "qrv: bad.qrv: record 8: it is missing\n"
              "qrv: missing.qrv: there is no such file\n");
}

TEST_F(CheckTest, TheScaleInForceIsShownWithWhereItIsFrom) {
    const ProgramRun given = qrv("check class.qrv --scale 90,80,70,60,50 --round-up");
    EXPECT_NE(given.output.find("\nscale: 90,80,70,60,50, each lowered by 0.5 (given)\n"),
              std::string::npos)
        << given.output;
}

}  // namespace

}  // namespace quorvel
