#include <algorithm>
#include <cstdio>

#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class ReportTest : public ProgramTest {
  protected:
    ReportTest() { makeClass(); }
};

constexpr const char* at = " --date 3/4/2026 --time '2:15:07 PM'";

TEST_F(ReportTest, PrintsEachOfTheSixKinds) {
    const std::pair<const char*, const char*> starts[] = {
        {"1", "***Student Report***\nClass: Math - 1\n3/4/2026 at 2:15:07 PM\nClass Average"},
        {"2", "***Class Report***\nClass: Math - 1\nClass Report As of 3/4/2026 at 2:15:07 PM\n"},
        {"3 --student 2", "***Student Report***\nClass: Math - 1\n3/4/2026 at 2:15:07 PM\n"},
        {"4", "***Assignment Report***\nClass: Math - 1\n3/4/2026 at 2:15:07 PM\n\n\n#"},
        {"5",
         "Teacher:                       Class: Math - 1                 School:"
         "                         3/4/2026        Page: 1\n"},
        {"6", "\n\n***Student Grade Report***\nSchool:      Class: Math - 1\n3/4/2026 at "}};
    for (const auto& [kind, start] : starts) {
        const ProgramRun right = qrv("report " + std::string(kind) + " class.qrv" + at);
        EXPECT_EQ(right.exitCode, 0) << right.problem;
        EXPECT_TRUE(right.output.starts_with(start)) << right.output;
        EXPECT_EQ(right.output.back(), '\n');
    }
}

TEST_F(ReportTest, AFormFeedStandsBeforeTheFirstLineOfEveryFurtherPage) {
    const std::string full = qrv("report 1 class.qrv").output;
    EXPECT_EQ(std::ranges::count(full, '\f'), 2);
    EXPECT_NE(full.find("\n\f***Student Report***\n"), std::string::npos);
}

TEST_F(ReportTest, NoLineEndsWithABlank) {
    for (const char* kind : {"1", "2", "4", "5", "6"}) {
        EXPECT_EQ(qrv(std::string("report ") + kind + " class.qrv").output.find(" \n"),
                  std::string::npos);
    }
}

TEST_F(ReportTest, SchoolAndTeacherCanBeGiven) {
    const ProgramRun run =
        qrv("report 4 class.qrv --school 'Lyc\xC3\xA9"
            "e' --teacher 'Ms. Ames'");
    EXPECT_TRUE(
        run.output.starts_with("***Assignment Report***\nSchool: Lyc\xC3\xA9"
                               "e\nClass: Math - 1\n"));
    EXPECT_NE(run.output.find("\nTeacher: Ms. Ames\n"), std::string::npos);
}

TEST_F(ReportTest, SchoolAndTeacherComeFromTheSettingsUnlessTheyAreGiven) {
    std::filesystem::create_directory(folder() / "Quorvel");
    writeScale("Quorvel/GradingScale.qrv", "90,80,70,60,50");
    write("Quorvel/SchoolName.qrv", std::string("\x05\x00North", 7) + std::string(121, '\0'));
    write("Quorvel/TN.qrv", std::string("\x04\x00"
                                        "Ames",
                                        6) +
                                std::string(122, '\0'));
    const std::string own = qrv("report 4 class.qrv --settings Quorvel").output;
    EXPECT_NE(own.find("School: North\n"), std::string::npos);
    EXPECT_NE(own.find("Teacher: Ames\n"), std::string::npos);
    const std::string given =
        qrv("report 4 class.qrv --settings Quorvel --school South --teacher ''").output;
    EXPECT_NE(given.find("School: South\n"), std::string::npos);
    EXPECT_EQ(given.find("Teacher:"), std::string::npos);
}

TEST_F(ReportTest, DateAndTimeAreTheSystemsUnlessTheyAreGiven) {
    const std::string output = qrv("report 4 class.qrv").output;
    int month = 0;
    int day = 0;
    int year = 0;
    int hour = 0;
    char minutes[3] = "";
    char seconds[3] = "";
    char half = 0;
    char letter = 0;
    const std::string behind = output.substr(output.find("Math - 1\n") + 9);
    EXPECT_EQ(std::sscanf(behind.c_str(), "%d/%d/%4d at %d:%2[0-9]:%2[0-9] %c%c", &month, &day,
                          &year, &hour, minutes, seconds, &half, &letter),
              8)
        << output;
    EXPECT_TRUE(month >= 1 && month <= 12 && day >= 1 && day <= 31 && year >= 2020) << output;
    EXPECT_TRUE(hour >= 1 && hour <= 12 && (half == 'A' || half == 'P')) << output;
    EXPECT_EQ(letter, 'M') << output;
    EXPECT_EQ(std::string(minutes).size() + std::string(seconds).size(), 4U) << output;
}

TEST_F(ReportTest, AliasesAreForClassAndTeacherReport) {
    EXPECT_NE(qrv("report 2 class.qrv --alias").output.find("\nJane   "), std::string::npos);
    EXPECT_NE(qrv("report 5 class.qrv --alias").output.find("\n|Jane   "), std::string::npos);
    EXPECT_NE(qrv("report 6 class.qrv --alias").output.find("\nDoe, Jane, your"),
              std::string::npos);
    EXPECT_NE(qrv("report 2 class.qrv").output.find("\nDoe, Jane   "), std::string::npos);
}

TEST_F(ReportTest, TheLetterFollowsTheScale) {
    EXPECT_NE(qrv("report 2 class.qrv --scale 99,98,97,96,95").output.find("95.8 %   Grade: E"),
              std::string::npos);
    EXPECT_NE(qrv("report 2 class.qrv --round-up").output.find("75.8 %   Grade: C"),
              std::string::npos);
}

TEST_F(ReportTest, ReportThreeWantsAStudentsNumber) {
    const ProgramRun without = qrv("report 3 class.qrv");
    EXPECT_EQ(without.exitCode, 2);
    EXPECT_TRUE(isOneLine(without.problem, "qrv: report 3 wants --student"));
    for (const char* number : {"Jane", "1.5", "99999999999999999999"}) {
        const ProgramRun run = qrv("report 3 class.qrv --student " + std::string(number));
        EXPECT_EQ(run.exitCode, 2) << number;
        EXPECT_TRUE(isOneLine(run.problem, "qrv: report: "));
    }
}

TEST_F(ReportTest, AStudentWhoIsNotThereIsNothingToReportOn) {
    for (const char* number : {"0", "4", "-1"}) {
        const ProgramRun run = qrv("report 3 class.qrv --student " + std::string(number));
        EXPECT_EQ(run.exitCode, 1) << number;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(
            isOneLine(run.problem, "qrv: class.qrv: there is no student " + std::string(number)));
    }
}

TEST_F(ReportTest, SeveralReportsAreLedByTheirSheetsAndTheWorstExitStatusCounts) {
    write("excused.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,E\n");
    EXPECT_EQ(qrv("import excused.csv -o excused.qrv").exitCode, 0);
    const std::string one = qrv("report 3 --student 1 class.qrv" + std::string(at)).output;
    const ProgramRun run =
        qrv("report 3 --student 1 class.qrv excused.qrv missing.qrv class.qrv" + std::string(at));
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output, "Sheet: class.qrv\n\n" + one + "\fSheet: class.qrv\n\n" + one);
    EXPECT_EQ(run.problem,
              "qrv: excused.qrv: Division by zero\nqrv: missing.qrv: there is no such file\n");
}

TEST_F(ReportTest, WithoutStudentsOnlyTheAssignmentReportPrints) {
    write("empty.csv", "Name,Alias,Quiz\nValue,,20\n");
    EXPECT_EQ(qrv("import empty.csv -o empty.qrv").exitCode, 0);
    for (const char* kind : {"1", "2", "3 --student 1", "5", "6"}) {
        const ProgramRun run = qrv("report " + std::string(kind) + " empty.qrv");
        EXPECT_EQ(run.exitCode, 1) << kind;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(isOneLine(run.problem, "qrv: empty.qrv: there are no students"));
    }
    EXPECT_EQ(qrv("report 4 empty.qrv").exitCode, 0);
}

TEST_F(ReportTest, AStudentWithoutPointsPossibleStopsReportsOneAndThree) {
    write("excused.csv", "Name,Alias,Quiz\nValue,,20\nDoe,,17\nRoe,,E\n");
    EXPECT_EQ(qrv("import excused.csv -o excused.qrv").exitCode, 0);
    for (const char* kind : {"1", "3 --student 2"}) {
        const ProgramRun run = qrv("report " + std::string(kind) + " excused.qrv");
        EXPECT_EQ(run.exitCode, 3) << kind;
        EXPECT_EQ(run.output, "") << "what was laid out before is dropped";
        EXPECT_EQ(run.problem, "qrv: excused.qrv: Division by zero\n");
    }
    EXPECT_EQ(qrv("report 3 excused.qrv --student 1").exitCode, 0);
    EXPECT_EQ(qrv("report 6 excused.qrv").exitCode, 0);
}

TEST_F(ReportTest, ThereAreSixKinds) {
    for (const char* kind : {"0", "7", "x", "1.5", "''"}) {
        const ProgramRun run = qrv("report " + std::string(kind) + " class.qrv");
        EXPECT_EQ(run.exitCode, 2) << kind;
        EXPECT_TRUE(isOneLine(run.problem, "qrv: report: KIND: "));
    }
}

TEST_F(ReportTest, AMissingFileCannotBeRead) {
    const ProgramRun run = qrv("report 1 missing.qrv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing.qrv: there is no such file"));
}

}  // namespace

}  // namespace quorvel
