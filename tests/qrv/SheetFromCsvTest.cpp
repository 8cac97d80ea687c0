#include "tests/qrv/SheetTexts.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

constexpr const char* plain = "Name,Alias,Quiz\nValue,,20\n\"Doe, Jane\",J,5\n";

/// What the file comes to, as CSV; or what is wrong with it.
std::string imported(std::string_view file) {
    const ImportedSheet read = importedFrom(file);
    return read.mistakes.count() == 0 ? csvOf(read.sheet) : textOf(read.mistakes);
}

std::string importedScore(const std::string& field) {
    const std::string start = "Name,Alias,Quiz\nValue,,20\nDoe,,";
    const std::string csv = imported(start + field + "\n");
    return csv.starts_with(start) ? csv.substr(start.size(), csv.size() - start.size() - 1) : csv;
}

std::string utf16(std::string_view text, bool littleEndian) {
    std::string bytes = littleEndian ? "\xFF\xFE" : "\xFE\xFF";
    for (const char character : text) {
        bytes += littleEndian ? std::string{character, '\0'} : std::string{'\0', character};
    }
    return bytes;
}

TEST(SheetFromCsvTest, SeparatorsAreFoundFromTheFirstLineOutsideQuotes) {
    EXPECT_EQ(imported(plain), plain);
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20\nDoe, Jane;J;5\n"), plain);
    EXPECT_EQ(imported("Name\tAlias\tQuiz\nValue\t\t20\nDoe, Jane\tJ\t5\n"), plain);
    EXPECT_EQ(imported("sep=;\r\nName;Alias;Quiz\r\nValue;;20\r\nDoe, Jane;J;5\r\n"), plain);
    EXPECT_EQ(imported("sep=,\n" + std::string(plain)), plain);
    EXPECT_EQ(imported("\"Name\";\"Alias\";\"Quiz\"\n\"Value\";;\"20\"\n\"Doe, Jane\";\"J\";5\n\n"),
              plain);
    EXPECT_EQ(imported("Name,Alias,Quiz; unit 2\nValue,,20\nDoe; Jane,J,5\n"),
              "Name,Alias,Quiz; unit 2\nValue,,20\nDoe; Jane,J,5\n");
    EXPECT_EQ(imported("sep=|\nName|Alias\nValue|\n"),
              "line 1, column 1: the line sep= names neither , nor ; nor a tab: \n");
    EXPECT_EQ(imported("sep=;;\nName;Alias\nValue;\n"),
              "line 1, column 1: the line sep= names more than one character: \n");
}

TEST(SheetFromCsvTest, EveryLineEndIsOne) {
    EXPECT_EQ(imported("Name,Alias,Quiz\r\nValue,,20\r\n\"Doe, Jane\",J,5\r\n"), plain);
    EXPECT_EQ(imported("Name,Alias,Quiz\rValue,,20\r\"Doe, Jane\",J,5\r"), plain);
    EXPECT_EQ(imported("Name,Alias,Quiz\nValue,,20\n\"Doe, Jane\",J,5"), plain);
    EXPECT_TRUE(imported("Name,Alias,A\r\rValue,,5\rDoe,,x\r").starts_with("line 4, column 3: "));
    EXPECT_TRUE(
        imported("Name,Alias,A\r\n\r\nValue,,5\r\nDoe,,x\r\n").starts_with("line 4, column 3: "));
}

TEST(SheetFromCsvTest, EncodingsOfSpreadsheetsAreRead) {
    const std::string accented =
        "Name,Alias\nValue,\nNu\xC3\xB1"
        "ez,\xE2\x82\xAC\n";
    EXPECT_EQ(imported(accented), accented);
    EXPECT_EQ(imported("\xEF\xBB\xBF" + accented), accented);
    EXPECT_EQ(imported("Name,Alias\nValue,\nNu\xF1"
                       "ez,\x80\n"),
              accented)
        << "the code page";
    EXPECT_EQ(imported(utf16(plain, true)), plain);
    EXPECT_EQ(imported(utf16(plain, false)), plain);
    EXPECT_EQ(imported(utf16("Name,Alias\nValue,\n", true) + "\xAC\x20,\0\n\0"),
              "line 3, column 2: the file breaks off within this line: \n"
              "line 3, column 1: a character that the sheet's code page lacks: "
              "\xE2\x82\xAC\xEF\xBF\xBD\n")
        << "half of a character";
    EXPECT_EQ(imported(utf16("Name,Alias\nValue,\n", true) + std::string("\xAC\x20\n\0", 4)),
              "Name,Alias\nValue,\n\xE2\x82\xAC,\n");
}

TEST(SheetFromCsvTest, AccentsBehindTheirLettersAreComposed) {
    EXPECT_EQ(imported("Name,Alias\nValue,\nNun\xCC\x83"
                       "ez,A\xCC\x8A\n"),
              "Name,Alias\nValue,\nNu\xC3\xB1"
              "ez,\xC3\x85\n");
    EXPECT_EQ(imported("Name,Alias\nValue,\nx\xCC\x83,\n"),
              "line 3, column 1: a character that the sheet's code page lacks: x\xCC\x83\n");
}

TEST(SheetFromCsvTest, DecimalCommasAreReadWhereACommaSeparatesNothing) {
    const std::string wanted = "Name,Alias,Quiz\nValue,,20\nDoe,,7.25\nRoe,,8\n";
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20,0\nDoe;;7,25\nRoe;;7,5\n"), wanted);
    EXPECT_EQ(imported("Name\tAlias\tQuiz\nValue\t\t20\nDoe\t\t7,25\nRoe\t\t7,5\n"), wanted);
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20\nDoe;;7.25\nRoe;;7.5\n"), wanted);
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20\nDoe;;7,25\nRoe;;1.500\n"),
              "line 4, column 3: numbers before this one have a decimal comma: 1.500\n");
    EXPECT_EQ(imported("Name;Alias;Quiz\nValue;;20\nDoe;;7.25\nRoe;;7,5\n"),
              "line 4, column 3: numbers before this one have a decimal point: 7,5\n");
    EXPECT_EQ(importedScore("\"7,5\""),
              "line 3, column 3: a score is a number, E or nothing: 7,5\n");
}

TEST(SheetFromCsvTest, ScoresFollowTheRulesOfTyping) {
    const std::pair<const char*, const char*> scores[] = {
        {"17", "17"},   {"e", "E"},         {"E", "E"},         {"0", "0"},
        {"12.5", "13"}, {"12.49", "12.49"}, {"7.9", "8"},       {"7.30", "7.3"},
        {"007", "7"},   {"-3", "3"},        {"+4", "4"},        {".5", "1"},
        {"5.", "5"},    {"0.4", "0.4"},     {"32767", "32767"}, {"32766.5", "32767"}};
    for (const auto& [field, score] : scores) EXPECT_EQ(importedScore(field), score) << field;
}

TEST(SheetFromCsvTest, AnythingElseIsNoScore) {
    for (const std::string field : {"abc", "1e5", "0x10", "12x", "EE", "1 2", ".", "-", " ", " 6",
                                    "6 ", "85%", "85 %", "'5", "=1+1"}) {
        EXPECT_EQ(importedScore(field),
                  "line 3, column 3: a score is a number, E or nothing: " + field + "\n");
    }
    EXPECT_EQ(importedScore("32768"), "line 3, column 3: a score is at most 32767: 32768\n");
    EXPECT_EQ(importedScore("32767.5"), "line 3, column 3: a score is at most 32767: 32767.5\n");
}

TEST(SheetFromCsvTest, ControlCharactersAreRefusedInEveryText) {
    const std::string reason = ": a line break, a tab or another control character: ";
    EXPECT_EQ(imported("Name,Alias,\"Quiz\n1\"\nValue,,20\n\"Doe\tJane\",\"J\x7F\"\n"),
              "line 1, column 3" + reason + "Quiz\n1\nline 4, column 1" + reason +
                  "Doe\tJane\nline 4, column 2" + reason + "J\x7F\n");
    EXPECT_EQ(imported("Name,Alias\nValue,\n\"Doe\rJane\",\n"),
              "line 3, column 1" + reason + "Doe\rJane\n");
}

TEST(SheetFromCsvTest, LinesAndColumnsWithoutContentAreLeftOut) {
    EXPECT_EQ(
        imported(",,,,\nName,Alias,,Quiz,\n,,,,\nValue,,,20,\n\"Doe, Jane\",J,,5,\n,,,,\n,,,,\n"),
        plain);
    EXPECT_EQ(imported("Name,Alias\nValue,\n\"\",\n"), "Name,Alias\nValue,\n\"\",\n")
        << "an empty name in quotes is a student's";
    EXPECT_EQ(imported("\"Name\",\"Alias\",\"Quiz\",\"\"\n\"Value\",\"\",\"20\",\"\"\n"
                       "\"Doe, Jane\",\"J\",\"5\",\"\"\n\"\",\"\",\"\",\"\"\n"),
              plain)
        << "quotes around every field tell nothing";
    EXPECT_EQ(imported("Name,Alias,,Quiz\nValue,,5,20\nDoe,J,,5\n"),
              "Name,Alias,,Quiz\nValue,,5,20\nDoe,J,,5\n")
        << "an assignment without a name";
    EXPECT_EQ(imported("Name,Alias,,Quiz\nValue,,,20\nDoe,J,3,5\n"),
              "line 2, column 3: a point value is a whole number from 0 to 999: \n");
}

TEST(SheetFromCsvTest, FieldsMissingAtALinesEndAreEmpty) {
    EXPECT_EQ(imported("Name,Alias,A,B\nValue,,5,5\nDoe\nRoe,R,1\n"),
              "Name,Alias,A,B\nValue,,5,5\nDoe,,,\nRoe,R,1,\n");
    EXPECT_EQ(imported("Name,Alias\nValue\nDoe\n"), "Name,Alias\nValue,\nDoe,\n");
    EXPECT_EQ(imported("Name,Alias,A,B\nValue,,5,5\nRoe,R,1"),
              "line 3, column 4: the file breaks off within this line: \n");
    EXPECT_EQ(imported("Name,Alias,A\nValue,,5\nDoe,,1,2\n"),
              "line 3, column 4: the heading has no field here: 2\n");
    EXPECT_EQ(imported("Name,Alias,A\nValue,,5\nDoe,,1,,\n"), "Name,Alias,A\nValue,,5\nDoe,,1\n")
        << "nothing stands there";
}

TEST(SheetFromCsvTest, AnApostropheThatKeepsATextFromBeingAFormulaGoes) {
    EXPECT_EQ(imported("Name,Alias,'=A\nValue,,5\n'+Doe,'@d,\n"),
              "Name,Alias,=A\nValue,,5\n+Doe,@d,\n");
    EXPECT_EQ(imported("Name,Alias\nValue,\n'Doe,''-\n"), "Name,Alias\nValue,\n'Doe,''-\n")
        << "it is led by another one when it is written again";
    EXPECT_EQ(importedFrom("Name,Alias\nValue,\n'Doe,''-\n").sheet.studentAlias(1), "'-");
}

TEST(SheetFromCsvTest, EveryMistakeIsToldAndTheFirstTwentyAreKept) {
    EXPECT_EQ(imported("Name,Alias,A,B\nValue,x,5,1000\nDoe,,y,1\nRoe,,1,z\n"),
              "line 2, column 2: this field is to be empty: x\n"
              "line 2, column 4: a point value is a whole number from 0 to 999: 1000\n"
              "line 3, column 3: a score is a number, E or nothing: y\n"
              "line 4, column 4: a score is a number, E or nothing: z\n");
    std::string csv = "Name,Alias,A\nValue,,5\n";
    for (int line = 0; line < 30; ++line) csv += "Doe,,x\n";
    const ImportedSheet read = importedFrom(csv);
    EXPECT_EQ(read.mistakes.count(), 30U);
    EXPECT_EQ(read.mistakes.kept().size(), 20U);
}

TEST(SheetFromCsvTest, TextsThatTheWindowWouldCutAreWarnedAbout) {
    const std::string name21(21, 'n');
    const std::string alias16(16, 'a');
    const ImportedSheet read =
        importedFrom("Name,Alias," + name21 + "," + name21.substr(1) + "\nValue,,5,5\nDoe," +
                     alias16 + "\nRoe," + alias16.substr(1) + "\n");
    EXPECT_EQ(read.mistakes.count(), 0U);
    EXPECT_EQ(textOf(read.warnings),
              "line 1, column 3: longer than 20 characters: " + name21 +
                  "\nline 3, column 2: longer than 15 characters: " + alias16 + "\n");
}

TEST(SheetFromCsvTest, WhatIsNoCsvOfASheetIsToldWithItsPlace) {
    const std::pair<const char*, const char*> files[] = {
        {"", "line 1, column 1: the heading line"},
        {"Name\n", "line 1, column 2: this field is to read Alias: "},
        {"Names,Alias\nValue,\n", "line 1, column 1: this field is to read Name: Names"},
        {"Name,Quiz\nValue,\n", "line 1, column 2: this field is to read Alias: Quiz"},
        {"Name,Alias\n", "line 2, column 1: the line of point values is missing"},
        {"Name,Alias\nDoe,\n", "line 2, column 1: this field is to read Value: Doe"},
        {"Name,Alias\nValue,\n\"Doe,\n", "line 3, column 1: the closing quote is missing"},
        {"Name,Alias\nValue,\n\"Doe\"x,\n", "line 3, column 1: there is more behind"}};
    for (const auto& [file, mistake] : files) {
        EXPECT_TRUE(imported(file).starts_with(mistake)) << file << imported(file);
    }
}

TEST(SheetFromCsvTest, MoreThanASheetCanHoldIsRefused) {
    std::string students = "Name,Alias\nValue,\n";
    for (int i = 0; i < 32768; ++i) students += "s,\n";
    EXPECT_EQ(imported(students), "line 32770, column 1: more students than a sheet can hold: \n");
    std::string names = "Name,Alias";
    std::string values = "Value,";
    for (int i = 0; i < 32768; ++i) {
        names += ",a";
        values += ",1";
    }
    EXPECT_EQ(imported(names + "\n" + values + "\n"),
              "line 1, column 32770: more assignments than a sheet can hold: \n");
}

}  // namespace

}  // namespace quorvel
