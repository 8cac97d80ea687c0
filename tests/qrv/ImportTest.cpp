#include <algorithm>

#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class ImportTest : public ProgramTest {
  protected:
    /// Imports this CSV; what "qrv export" makes of the sheet, or the problem.
    std::string imported(std::string_view csv) const {
        write("in.csv", csv);
        std::filesystem::remove(folder() / "out.qrv");
        const ProgramRun run = qrv("import in.csv -o out.qrv");
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.exitCode == 0, exists("out.qrv"));
        if (run.exitCode == 0) return qrv("export out.qrv").output;
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(isOneLine(run.problem, "qrv: in.csv: line "));
        return run.problem.substr(std::string("qrv: in.csv: ").size());
    }

    /// The one score that this field becomes.
    std::string importedScore(const std::string& field) const {
        std::string csv = imported("Name,Alias,Quiz\nValue,,20\nDoe,," + field + "\n");
        const std::string start = "Name,Alias,Quiz\nValue,,20\nDoe,,";
        if (!csv.starts_with(start)) return csv;
        return csv.substr(start.size(), csv.size() - start.size() - 1);
    }

    static bool isRefused(const std::string& result, const std::string& place) {
        return result.starts_with(place + ": ");
    }
};

TEST_F(ImportTest, WhatWasExportedComesBackByteForByte) {
    makeClass();
    EXPECT_EQ(qrv("export class.qrv -o again.csv").exitCode, 0);
    EXPECT_EQ(qrv("import again.csv -o again.qrv --title 'Math - 1'").exitCode, 0);
    EXPECT_EQ(read("again.qrv"), read("class.qrv"));
}

TEST_F(ImportTest, TheClassesOfTheReportsAreWhatTheirCsvGives) {
    const std::pair<const char*, const char*> classes[] = {{"typical", "Algebra I - Period 3"},
                                                           {"large", ""}};
    for (const auto& [name, title] : classes) {
        std::string command = "golden='" QUORVEL_GOLDEN_FOLDER "'; name='";
        command.append(name).append("'; title='").append(title).append("'\n");
        command +=
            "qrv import \"$golden/$name.csv\" -o out.qrv --title \"$title\" && "
            "cmp out.qrv \"$golden/$name.qrv\" && "
            "qrv export out.qrv | cmp - \"$golden/$name.csv\"";
        EXPECT_EQ(shell(command).exitCode, 0) << name;
        std::filesystem::remove(folder() / "out.qrv");
    }
}

TEST_F(ImportTest, AScoreBeyondWhatPointsCanAddUpToIsRefused) {
    const ProgramRun run =
        shell("qrv import '" QUORVEL_GOLDEN_FOLDER "/long-and-empty-names.csv' -o out.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.problem.find("line 5, column 3: a score is at most 32767: \"1234567.25\"\n"),
              std::string::npos)
        << run.problem;
    EXPECT_FALSE(exists("out.qrv"));
}

TEST_F(ImportTest, WritesTheRecordsOfASheet) {
    write("in.csv", "Name,Alias,Quiz\nValue,,300\nDoe,D,\nRoe,R,7.5\nLoe,L,e\n");
    EXPECT_EQ(qrv("import in.csv -o out.qrv --title T").exitCode, 0);
    const auto record = [](std::string start) {
        start.resize(128);
        return start;
    };
    const std::string expected =
        record(std::string("\x02\x00\x03\x00", 4)) + record(std::string("\x02\x00\x01\x00", 4)) +
        record(std::string("\x01\x00T", 3)) + record("") +
        record(std::string("\x08\x00\x01\x00"
                           "8",
                           5)) +
        record(std::string("\x08\x00\x01\x00"
                           "E",
                           5)) +
        record(std::string("\x03\x00"
                           "Doe",
                           5)) +
        record(std::string("\x01\x00"
                           "D",
                           3)) +
        record(std::string("\x03\x00Roe", 5)) + record(std::string("\x01\x00R", 3)) +
        record(std::string("\x03\x00Loe", 5)) + record(std::string("\x01\x00L", 3)) +
        record(std::string("\x04\x00Quiz", 6)) + record(std::string("\x2C\x01", 2));
    EXPECT_EQ(read("out.qrv"), expected) << "the roster is not sorted";
}

TEST_F(ImportTest, ASheetWithoutStudentsOrAssignmentsHoldsNoCounts) {
    write("in.csv", "Name,Alias\nValue,\n");
    EXPECT_EQ(qrv("import in.csv -o out.qrv").exitCode, 0);
    EXPECT_EQ(read("out.qrv"), std::string(3 * 128, '\0'));
}

TEST_F(ImportTest, AnEmptyFieldStaysAnEmptyCell) {
    write("in.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,\n");
    EXPECT_EQ(qrv("import in.csv -o out.qrv").exitCode, 0);
    EXPECT_EQ(read("out.qrv").substr(3 * 128, 128), std::string(128, '\0'));
}

TEST_F(ImportTest, APointValueIsAWholeNumberFromZeroTo999) {
    for (const char* value : {"0", "999", "1"}) {
        EXPECT_TRUE(imported("Name,Alias,Quiz\nValue,," + std::string(value) + "\n")
                        .ends_with("Value,," + std::string(value) + "\n"));
    }
    for (const char* value : {"", "-1", "1000", "10.5", "x", "E", "1e2"}) {
        EXPECT_TRUE(isRefused(imported("Name,Alias,A,Quiz\nValue,,5," + std::string(value) + "\n"),
                              "line 2, column 4"))
            << value;
    }
}

TEST_F(ImportTest, TextsThatARecordCannotHoldAreRefusedAndNotCut) {
    const std::string longest(126, 'x');
    const std::string fits =
        "Name,Alias," + longest + "\nValue,,5\n" + longest + "," + longest + ",5\n";
    EXPECT_EQ(imported(fits), fits);
    EXPECT_TRUE(isRefused(imported("Name,Alias,x" + longest + "\nValue,,5\n"), "line 1, column 3"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\nx" + longest + ",\n"), "line 3, column 1"));
    EXPECT_TRUE(
        isRefused(imported("Name,Alias\nValue,\na,\nb,x" + longest + "\n"), "line 4, column 2"));
    EXPECT_TRUE(isRefused(importedScore(std::string(125, '1')), "line 3, column 3"));
    EXPECT_TRUE(isRefused(importedScore(std::string(124, '9')), "line 3, column 3"));
}

TEST_F(ImportTest, CharactersOutsideTheCodePageAreRefused) {
    EXPECT_TRUE(imported("Name,Alias\nValue,\n\xE2\x82\xAC \xC3\xA9,\n")
                    .ends_with("\xE2\x82\xAC \xC3\xA9,\n"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\nDoe,\xC4\x87\n"), "line 3, column 2"));
    EXPECT_TRUE(isRefused(imported("Name,Alias,\xF0\x9F\x98\x80\nValue,,5\n"), "line 1, column 3"));
}

TEST_F(ImportTest, EveryMistakeIsToldWithItsPlaceAndText) {
    write("bad.csv", "Name,Alias,Quiz\nValue,,1000\nDoe,,17%\n\"R\noe\",,x\n");
    const ProgramRun run = qrv("import bad.csv -o out.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.problem,
              "qrv: bad.csv: line 2, column 3: a point value is a whole number from 0 to 999: "
              "\"1000\"\n"
              "qrv: bad.csv: line 3, column 3: a score is a number, E or nothing: \"17%\"\n"
              "qrv: bad.csv: line 4, column 1: a line break, a tab or another control character: "
              "\"R oe\"\n"
              "qrv: bad.csv: line 5, column 3: a score is a number, E or nothing: \"x\"\n");
    EXPECT_FALSE(exists("out.qrv"));
}

TEST_F(ImportTest, TheFirstTwentyMistakesAreShown) {
    std::string csv = "Name,Alias,Quiz\nValue,,20\n";
    for (int line = 0; line < 25; ++line) csv += "Doe,,x\n";
    write("bad.csv", csv);
    const std::string problem = qrv("import bad.csv -o out.qrv").problem;
    EXPECT_EQ(std::ranges::count(problem, '\n'), 21);
    EXPECT_TRUE(
        problem.ends_with("line 22, column 3: a score is a number, E or nothing: \"x\"\n"
                          "qrv: bad.csv: and 5 more\n"))
        << problem;
}

TEST_F(ImportTest, AWarningIsNoFailure) {
    write("in.csv", "Name,Alias\nValue,\nDoe,an alias of 18 ch.\n");
    const ProgramRun run = qrv("import in.csv -o out.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem,
              "qrv: in.csv: line 3, column 2: warning: longer than 15 characters: "
              "\"an alias of 18 ch.\"\n");
    EXPECT_TRUE(exists("out.qrv"));
}

TEST_F(ImportTest, TheTitleOfTheSheetInPlaceIsKept) {
    makeClass();
    const std::string old = read("class.qrv");
    EXPECT_EQ(qrv("import class.csv -o class.qrv").exitCode, 0);
    EXPECT_EQ(read("class.qrv"), old);
    EXPECT_EQ(qrv("import class.csv -o class.qrv --title ''").exitCode, 0);
    EXPECT_EQ(read("class.qrv").substr(256, 128), std::string(128, '\0'));
    write("text.txt", "This is no sheet, and has no title.");
    EXPECT_EQ(qrv("import class.csv -o text.txt").exitCode, 0);
    EXPECT_EQ(read("text.txt"), read("class.qrv"));
}

TEST_F(ImportTest, ADamagedSheetsTitleIsKeptWhereItIsWhole) {
    makeClass();
    const std::string old = read("class.qrv");
    write("cut.qrv", old.substr(0, 20 * 128));
    EXPECT_EQ(qrv("import class.csv -o cut.qrv").exitCode, 0);
    EXPECT_EQ(read("cut.qrv"), old);
    write("cut.qrv", old.substr(0, 2 * 128 + 5));
    EXPECT_EQ(qrv("import class.csv -o cut.qrv").exitCode, 0);
    EXPECT_EQ(read("cut.qrv").substr(2 * 128, 128), std::string(128, '\0'));
}

TEST_F(ImportTest, WithoutAPlaceAndATitleTheSheetGoesToStandardOutputUntitled) {
    makeClass();
    EXPECT_EQ(qrv("import class.csv --title '' -o untitled.qrv").exitCode, 0);
    EXPECT_EQ(shell("qrv import class.csv | cmp - untitled.qrv").exitCode, 0);
}

TEST_F(ImportTest, NothingOfALongerSheetStaysBehindTheNewOne) {
    makeClass();
    write("short.csv", "Name,Alias\nValue,\nDoe,\n");
    EXPECT_EQ(qrv("import short.csv -o class.qrv").exitCode, 0);
    EXPECT_EQ(read("class.qrv").size(), 5U * 128);
}

TEST_F(ImportTest, ReadsStandardInputAndWritesStandardOutput) {
    makeClass();
    EXPECT_EQ(shell("qrv import - --title 'Math - 1' <class.csv | cmp - class.qrv").exitCode, 0);
    EXPECT_EQ(shell("qrv export class.qrv --format json | qrv import - | cmp - class.qrv").exitCode,
              0);
}

TEST_F(ImportTest, ARefusedFileLeavesTheOldSheet) {
    makeClass();
    const std::string old = read("class.qrv");
    write("bad.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,abc\n");
    EXPECT_EQ(qrv("import bad.csv -o class.qrv").exitCode, 1);
    EXPECT_EQ(read("class.qrv"), old);
    EXPECT_EQ(listing(), "bad.csv class.csv class.qrv ");
}

TEST_F(ImportTest, AFullDiskLeavesTheOldSheet) {
    makeClass();
    const std::string old = read("class.qrv");
    std::string csv = "Name,Alias\nValue,\n";
    for (int i = 0; i < 5000; ++i) csv += "Somebody,alias\n";
    write("long.csv", csv);
    const ProgramRun run = shell("trap '' XFSZ; ulimit -f 1000; qrv import long.csv -o class.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: class.qrv: it cannot be written"));
    EXPECT_EQ(read("class.qrv"), old);
    EXPECT_EQ(listing(), "class.csv class.qrv long.csv ");
}

TEST_F(ImportTest, ATitleHasToFitIntoItsRecord) {
    makeClass();
    const std::string longest(126, 't');
    EXPECT_EQ(qrv("import class.csv -o out.qrv --title " + longest).exitCode, 0);
    EXPECT_EQ(read("out.qrv").substr(2 * 128, 128), std::string("\x7E\x00", 2) + longest);
    for (const std::string& title : {longest + "t", std::string("'\xC4\x87'")}) {
        const ProgramRun run = qrv("import class.csv -o other.qrv --title " + title);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(isOneLine(run.problem, "qrv: --title: "));
        EXPECT_FALSE(exists("other.qrv"));
    }
}

TEST_F(ImportTest, AMissingFileOrPlaceIsAnError) {
    makeClass();
    EXPECT_TRUE(isOneLine(qrv("import missing.csv -o out.qrv").problem,
                          "qrv: missing.csv: there is no such file"));
    const ProgramRun run = qrv("import class.csv -o missing/out.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing/out.qrv: it cannot be written"));
    EXPECT_EQ(qrv("import class.csv -o /dev/null").exitCode, 0);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(ImportTest, AStandardInputThatCannotBeReadIsAnError) {
    const ProgramRun run = qrv("import - -o out.qrv <.");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.problem, "qrv: -: it cannot be read to its end\n");
    EXPECT_FALSE(exists("out.qrv"));
}

}  // namespace

}  // namespace quorvel
