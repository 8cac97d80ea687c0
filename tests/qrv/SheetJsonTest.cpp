#include "qrv/SheetJson.h"
#include "tests/qrv/FullFile.h"
#include "tests/qrv/SheetTexts.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::string mistakes(std::string_view json) {
    return textOf(importedFrom(json).mistakes);
}

TEST(SheetJsonTest, HoldsAllThatASheetHolds) {
    GradeSheet sheet;
    sheet.sheetTitle = "Math \"1\"";
    sheet.addStudent(
        "Nu\xF1"
        "ez",
        "N");
    sheet.addAssignment("Quiz", 20);
    sheet.addAssignment("Test", 5);
    sheet.setScore(1, 1, Score::ofText("17"));
    sheet.addStudent("Doe", "D");
    sheet.setScore(1, 2, Score::excused());
    sheet.setScore(2, 2, Score::zero());
    const std::string json =
        "{\"sheet\":\"class.qrv\",\"title\":\"Math \\\"1\\\"\","
        "\"assignments\":[{\"name\":\"Quiz\",\"value\":20},{\"name\":\"Test\",\"value\":5}],"
        "\"students\":[{\"name\":\"Nu\xC3\xB1"
        "ez\",\"alias\":\"N\",\"scores\":[\"17\",null]},"
        "{\"name\":\"Doe\",\"alias\":\"D\",\"scores\":[\"E\",0]}]}\n";
    EXPECT_EQ(jsonOf(sheet), json);
    EXPECT_EQ(jsonOf(importedFrom(json).sheet),
              std::string(json).replace(json.find("Math"), 10, ""));
    EXPECT_EQ(importedFrom(json).title, "Math \"1\"");
}

TEST(SheetJsonTest, AFullDiskIsTriedOnce) {
    GradeSheet sheet;
    sheet.recreate(30000, 1);
    FullFile file;
    TextWriter writer(file);
    writeSheetJson("class.qrv", sheet, CodePage::windows1252(), writer);
    EXPECT_EQ(writer.finish(), Outcome::Failed);
    EXPECT_EQ(file.attempts, 1);
}

TEST(SheetJsonTest, AListThatASheetNeverHadIsNull) {
    EXPECT_EQ(jsonOf({}),
              "{\"sheet\":\"class.qrv\",\"title\":\"\",\"assignments\":null,\"students\":null}\n");
}

TEST(SheetJsonTest, NumbersFromOtherProgramsAreReadAsWhenTyped) {
    const ImportedSheet read = importedFrom(
        "{\"assignments\":[{\"name\":\"Quiz\",\"value\":20}],\"students\":["
        "{\"name\":\"A\",\"alias\":\"\",\"scores\":[17]},"
        "{\"name\":\"B\",\"alias\":\"\",\"scores\":[17.5]},"
        "{\"name\":\"C\",\"alias\":\"\",\"scores\":[\"e\"]},"
        "{\"name\":\"D\",\"alias\":\"\",\"scores\":[\"\"]}]}");
    EXPECT_EQ(textOf(read.mistakes), "");
    EXPECT_EQ(read.title, std::nullopt);
    EXPECT_EQ(read.sheet.score(1, 1), Score(TaggedValue(std::int16_t{17})));
    EXPECT_EQ(read.sheet.score(1, 2), Score::ofText("18"));
    EXPECT_EQ(read.sheet.score(1, 3), Score::excused());
    EXPECT_TRUE(read.sheet.score(1, 4).isEmpty());
}

TEST(SheetJsonTest, AWholeScoreIsTheHighestAtMost) {
    const auto withScore = [](const std::string& score) {
        return "{\"assignments\":[{\"name\":\"Quiz\",\"value\":20}],\"students\":["
               "{\"name\":\"A\",\"alias\":\"\",\"scores\":[" +
               score + "]}]}";
    };
    EXPECT_EQ(importedFrom(withScore("32767")).sheet.score(1, 1),
              Score(TaggedValue(std::int16_t{32767})));
    for (const std::string score : {"32768", "18446744073709551615"}) {
        EXPECT_EQ(mistakes(withScore(score)),
                  "student 1, score 1: a score is at most 32767: " + score + "\n");
    }
}

TEST(SheetJsonTest, MoreThanASheetCanHoldIsRefused) {
    std::string list = "[";
    for (int i = 0; i < 32768; ++i) list += i == 0 ? "1" : ",1";
    list += "]";
    const std::string reason = ": more than a sheet can hold: \n";
    EXPECT_EQ(mistakes("{\"students\":" + list + ",\"assignments\":[]}"), "students" + reason);
    EXPECT_EQ(mistakes("{\"students\":[],\"assignments\":" + list + "}"), "assignments" + reason);
}

TEST(SheetJsonTest, MistakesAreToldWithTheirPlaces) {
    EXPECT_EQ(mistakes("{}"),
              "students: this list is missing: \nassignments: this list is missing: \n");
    EXPECT_EQ(mistakes("{\"students\":[]}"), "assignments: this list is missing: \n");
    EXPECT_EQ(textOf(sheetFromJson("[1]", CodePage::windows1252()).mistakes), mistakes("{}"));
    EXPECT_TRUE(mistakes("{\"students\":[").starts_with("json: parse error at line 1, column 14"));
    EXPECT_EQ(mistakes("{\"title\":5,\"assignments\":[{\"name\":\"a\\nb\",\"value\":1000}],"
                       "\"students\":[{\"name\":\"A\",\"scores\":[]},"
                       "{\"name\":\"B\",\"alias\":\"\",\"scores\":[true]}]}"),
              "title: a text is wanted: 5\n"
              "assignment 1, name: a line break, a tab or another control character: \"a\\nb\"\n"
              "assignment 1, value: a point value is a whole number from 0 to 999: 1000\n"
              "student 1, alias: a text is wanted: null\n"
              "student 1, scores: a list with one score for each assignment is wanted: \n"
              "student 2, score 1: a score is a number, E or nothing: true\n");
}

TEST(SheetJsonTest, OddShapesAreMistakesAndNothingWorse) {
    for (const char* json :
         {"{\"students\":5,\"assignments\":[]}", "{\"students\":[1],\"assignments\":[2]}",
          "{\"students\":[[]],\"assignments\":null}", "{\"students\":{},\"assignments\":{}}",
          "{\"students\":[{\"name\":null,\"alias\":{},\"scores\":null}],\"assignments\":[null]}",
          "{ x"}) {
        EXPECT_GT(importedFrom(json).mistakes.count(), 0U) << json;
    }
    EXPECT_GT(importedFrom("{\"students\":" + std::string(100000, '[')).mistakes.count(), 0U);
}

}  // namespace

}  // namespace quorvel
