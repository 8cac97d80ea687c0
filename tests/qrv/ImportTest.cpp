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
    const std::pair<const char*, const char*> classes[] = {
        {"typical", "Algebra I - Period 3"},
        {"long-and-empty-names", "Advanced Placement World History - Period 7"},
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

TEST_F(ImportTest, ReadsWhatSpreadsheetsWrite) {
    const std::string plain = "Name,Alias,Quiz\nValue,,20\n\"Doe, Jane\",J,5\n";
    EXPECT_EQ(imported(plain), plain);
    EXPECT_EQ(imported("Name,Alias,Quiz\r\nValue,,20\r\n\"Doe, Jane\",J,5\r\n"), plain);
    EXPECT_EQ(imported("\xEF\xBB\xBFName,Alias,Quiz\nValue,,20\n\"Doe, Jane\",J,5"), plain);
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20\nDoe, Jane;J;5\n"), plain);
    EXPECT_EQ(imported("\"Name\";\"Alias\";\"Quiz\"\n\"Value\";;\"20\"\n\"Doe, Jane\";\"J\";5\n\n"),
              plain);
    EXPECT_EQ(imported("name,ALIAS,Quiz\nvalue,, 20\n\n\"Doe, Jane\",J,5 \n\r\n"), plain);
}

TEST_F(ImportTest, QuotedFieldsHoldQuotesAndLineBreaks) {
    const std::string csv =
        "Name,Alias,\"a \"\"b\"\"\"\nValue,,20\n\"Doe,\n\"\"J\"\"\r\nane\",J,5\n";
    EXPECT_EQ(imported(csv), csv);
}

TEST_F(ImportTest, ASemicolonIsNoSeparatorWhereTheFirstLineHasCommas) {
    const std::string csv = "Name,Alias,Quiz; unit 2\nValue,,20\nDoe; Jane,J,5\n";
    EXPECT_EQ(imported(csv), csv);
}

TEST_F(ImportTest, AnEmptyFieldStaysAnEmptyCell) {
    write("in.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,\n");
    EXPECT_EQ(qrv("import in.csv -o out.qrv").exitCode, 0);
    EXPECT_EQ(read("out.qrv").substr(3 * 128, 128), std::string(128, '\0'));
}

TEST_F(ImportTest, ScoresFollowTheRulesOfTyping) {
    const std::pair<const char*, const char*> scores[] = {
        {"17", "17"},       {"e", "E"},   {"E", "E"},      {"0", "0"},   {"12.5", "13"},
        {"12.49", "12.49"}, {"7.9", "8"}, {"7.30", "7.3"}, {"007", "7"}, {"-3", "3"},
        {"+4", "4"},        {".5", "1"},  {"5.", "5"},     {" 6 ", "6"}, {"0.4", "0.4"}};
    for (const auto& [field, score] : scores) EXPECT_EQ(importedScore(field), score) << field;
}

TEST_F(ImportTest, AnythingElseIsNoScore) {
    for (const char* field : {"abc", "1e5", "0x10", "12x", "EE", "\"1,5\"", "1 2", ".", "-"}) {
        EXPECT_TRUE(isRefused(importedScore(field), "line 3, column 3")) << field;
    }
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
    EXPECT_EQ(importedScore(std::string(20, '9') + ".1"), "100000000000000000000");
    EXPECT_TRUE(isRefused(importedScore(std::string(125, '1')), "line 3, column 3"));
    EXPECT_TRUE(isRefused(importedScore(std::string(124, '9')), "line 3, column 3"))
        << "it is rounded to a number of 125 digits";
}

TEST_F(ImportTest, CharactersOutsideTheCodePageAreRefused) {
    EXPECT_TRUE(imported("Name,Alias\nValue,\n\xE2\x82\xAC \xC3\xA9,\n")
                    .ends_with("\xE2\x82\xAC \xC3\xA9,\n"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\nDoe,\xC4\x87\n"), "line 3, column 2"));
    EXPECT_TRUE(isRefused(imported("Name,Alias,\xF0\x9F\x98\x80\nValue,,5\n"), "line 1, column 3"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\nD\xE9,\n"), "line 3, column 1"))
        << "that is no UTF-8";
}

TEST_F(ImportTest, BrokenCsvIsRefusedWithItsPlace) {
    EXPECT_TRUE(isRefused(imported(""), "line 1, column 1"));
    EXPECT_TRUE(isRefused(imported("Name\n"), "line 1, column 1"));
    EXPECT_TRUE(isRefused(imported("Names,Alias\nValue,\n"), "line 1, column 1"));
    EXPECT_TRUE(isRefused(imported("Name,Quiz\nValue,\n"), "line 1, column 2"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\n"), "line 2, column 1"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nDoe,\n"), "line 2, column 1"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,5\n"), "line 2, column 2"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\n\"Doe,\n"), "line 3, column 1"));
    EXPECT_TRUE(isRefused(imported("Name,Alias\nValue,\n\"Doe\"x,\n"), "line 3, column 1"));
    EXPECT_TRUE(isRefused(imported("Name,Alias,A\nValue,,5\nDoe,\n"), "line 3, column 3"));
    EXPECT_TRUE(isRefused(imported("Name,Alias,A\nValue,,5\nDoe,,1,2\n"), "line 3, column 4"));
}

TEST_F(ImportTest, LinesAreCountedAsATextEditorDoes) {
    EXPECT_TRUE(
        isRefused(imported("Name,Alias,A\n\nValue,,5\n\"Doe\nJane\",,x\n"), "line 5, column 3"));
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
    for (int i = 0; i < 200; ++i) csv += "Somebody,alias\n";
    write("long.csv", csv);
    const ProgramRun run = shell("trap '' XFSZ; ulimit -f 20; qrv import long.csv -o class.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: class.qrv: cannot be written"));
    EXPECT_EQ(read("class.qrv"), old);
    EXPECT_EQ(listing(), "class.csv class.qrv long.csv ");
}

TEST_F(ImportTest, TheSheetToWriteIsNotOptional) {
    makeClass();
    const ProgramRun run = qrv("import class.csv");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: import wants -o"));
}

TEST_F(ImportTest, ATitleHasToFitIntoItsRecord) {
    makeClass();
    const std::string longest(126, 't');
    EXPECT_EQ(qrv("import class.csv -o out.qrv --title " + longest).exitCode, 0);
    EXPECT_EQ(read("out.qrv").substr(2 * 128, 128), std::string("\x7E\x00", 2) + longest);
    for (const std::string& title : {longest + "t", std::string("'\xC4\x87'")}) {
        const ProgramRun run = qrv("import class.csv -o other.qrv --title " + title);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(isOneLine(run.problem, "qrv: --title "));
        EXPECT_FALSE(exists("other.qrv"));
    }
}

TEST_F(ImportTest, AMissingFileOrPlaceIsAnError) {
    makeClass();
    EXPECT_TRUE(isOneLine(qrv("import missing.csv -o out.qrv").problem,
                          "qrv: missing.csv: cannot be read"));
    const ProgramRun run = qrv("import class.csv -o missing/out.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing/out.qrv: cannot be written"));
    EXPECT_EQ(qrv("import class.csv -o /dev/null").exitCode, 1);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

}  // namespace

}  // namespace quorvel
