#include <fstream>
#include <sstream>

#include "tests/scenario/HeadlessDriver.h"
#include "tests/scenario/Runner.h"

#include <gtest/gtest.h>

namespace quorvel::scenario {
namespace {

constexpr std::string_view addStudent = R"step(
menu mnuAddS
  prompt "Add Student" "What is the student's full name?\n(Recommended Format: LastName, FirstName)" default "" -> "Doe, Jane"
  prompt "Add Student" "What is the student's alias? (no more than 15 characters)" default "" -> "Jane"
)step";

constexpr std::string_view addAssignment = R"step(
menu mnuAddA
  prompt "Add Assignment" "What is the assignments name? (no more than 20 characters)" default "Assignment Name Here" -> "Quiz"
  prompt "Add Assignment" "What is the assignments value?\n(Any non-integer values will be rounded)" default "Assignment Value Here" -> "20"
)step";

Verdict verdictOf(const std::string& text) {
    HeadlessDriver driver;
    return runScenario(parseScenario(text), driver, std::filesystem::temp_directory_path());
}

/// "passed", or every failure as "LINE: WHAT CAME".
std::string resultOf(const std::string& text) {
    const Verdict verdict = verdictOf(text);
    std::string result;
    for (const Failure& failure : verdict.failures)
        result += std::to_string(failure.line) + ": " + failure.came + "\n";
    return result.empty() ? "passed" : result;
}

/// A sheet of one student and one assignment, whose score of 0 is in the grid.
std::string inSmallSheet(const std::string& text) {
    // 8 lines come before what is tested.
    return "start\n" + std::string(addStudent.substr(1)) + std::string(addAssignment.substr(1)) +
           "\n" + text;
}

TEST(Runner, ARightScenarioPasses) {
    EXPECT_EQ(resultOf(inSmallSheet("expect students 1\nexpect student 1 \"Doe, Jane\" \"Jane\"\n"
                                    "expect assignment 1 \"Quiz\" 20\n")),
              "passed");
}

TEST(Runner, AWrongWordInADialogFails) {
    EXPECT_EQ(resultOf("start\nmenu mnuAbout\n  message \"About the Quorvel\" "
                       "\"Quorvel\\nVersion 2.61\" icon information buttons ok -> ok"),
              "3: message \"About the Quorvel\" \"Quorvel\\nVersion 2.60\" icon information "
              "buttons ok\n");
}

TEST(Runner, AWrongIconButtonOrDefaultFails) {
    const std::string about =
        "start\nmenu mnuAbout\n  message \"About the Quorvel\" "
        "\"Quorvel\\nVersion 2.60\" ";
    EXPECT_EQ(resultOf(about + "icon information buttons ok -> ok"), "passed");
    EXPECT_NE(resultOf(about + "icon critical buttons ok -> ok"), "passed");
    EXPECT_NE(resultOf(about + "icon information buttons ok-cancel -> ok"), "passed");
    EXPECT_EQ(resultOf("start\nmenu mnuEditSchoolName\n  prompt \"Edit School Name\" "
                       "\"What is the school's name?\" default \"x\" -> \"y\""),
              "3: prompt \"Edit School Name\" \"What is the school's name?\" default \"\"\n");
}

TEST(Runner, ADialogOfAnotherKindFails) {
    EXPECT_EQ(resultOf("start\nmenu mnuSave\n  open \"Save Gradesheet\" -> cancel"),
              "3: save \"Save Gradesheet\"\n");
}

TEST(Runner, AMissingDialogFailsAndEndsTheScenario) {
    EXPECT_EQ(resultOf("start\n  message \"Quorvel\" \"Hello\" icon none buttons ok -> ok\n"
                       "expect students 7"),
              "2: no dialog\n");
}

TEST(Runner, AnExtraDialogFails) {
    EXPECT_EQ(resultOf("start\nmenu mnuSave"), "2: save \"Save Gradesheet\"\n");
}

TEST(Runner, AnIndentedExpectationIsCheckedWhileTheNextDialogIsOpen) {
    EXPECT_EQ(resultOf("start\nmenu mnuSave\n  expect dirty yes\n"
                       "  save \"Save Gradesheet\" -> \"a.qrv\"\n  expect dirty no\n"
                       "expect file \"a.qrv\" records 3"),
              "3: no\n");
}

TEST(Runner, EveryWrongExpectationIsReported) {
    EXPECT_EQ(resultOf("start\nexpect students 1\nexpect assignments 0\nexpect dirty yes"),
              "2: 0\n4: no\n");
}

TEST(Runner, AWrongGlyphFails) {
    EXPECT_EQ(resultOf(inSmallSheet("expect glyphs 1 1 \"  0\"")), "passed");
    EXPECT_EQ(resultOf(inSmallSheet("expect glyphs 1 1 \"  1\"")), "9: \"  0\"\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect glyphs 2 1 \"  0\"")), "9: \"   \"\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect glyphset 1 plain")),
              "9: 0 glyphs plain, 45 double, of 45\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect heading 1 \"  2\"")), "9: \"  1\"\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect results 1 earned \"   1\" grade \"F\"")),
              "9: \"   0\" \"F\"\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect foot score 1 \"  1\"")), "9: \"  0\"\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect foot class \"  0  \" \"E\"")), "9: \"  0  \" \"F\"\n");
}

TEST(Runner, AWrongControlFails) {
    EXPECT_EQ(resultOf("start\nexpect lblStudent text \"Student Alias\""), "2: \"Student Name\"\n");
    EXPECT_EQ(resultOf("start\nexpect lblStudent colour FF0000"), "2: C0C0C0\n");
    EXPECT_EQ(resultOf("start\nexpect hsbA range 0 1"), "2: 0 0\n");
    EXPECT_EQ(resultOf("start\nexpect txtEnter visible"), "2: hidden\n");
    EXPECT_EQ(resultOf("start\nexpect mnuPFile(1) visible"), "2: hidden\n");
    EXPECT_EQ(resultOf("start\nexpect mnuPFile(10) visible"),
              "2: there is no such control as mnuPFile(10)\n");
    EXPECT_EQ(resultOf("start\nexpect window caption \"Quorvel 2\""), "2: \"Quorvel\"\n");
    EXPECT_EQ(resultOf("start\nexpect window ended"), "2: the program goes on\n");
}

TEST(Runner, AWrongSheetFails) {
    EXPECT_EQ(resultOf(inSmallSheet("expect cell 1 1 text \"0\"")), "9: number 0\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect cell 1 2 empty")), "9: there are only 1 students\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect figures 1 earned 0 possible 10")),
              "9: earned 0 possible 20 percentage 0 grade F rank 1\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect average none")), "9: 0 F\n");
    EXPECT_EQ(resultOf(inSmallSheet("expect path \"a\"")), "9: \"\"\n");
}

TEST(Runner, AWrongFileFails) {
    const std::string saved = "start\nmenu mnuSave\n  save \"Save Gradesheet\" -> \"a\"\n";
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" record 1 tagged empty\n"
                               "expect file \"a.qrv\" bytes 0 \"0000\"\n"
                               "expect file \"a.qrv\" record 3 text \"\""),
              "passed");
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" records 2"),
              "4: 3 whole records, 384 bytes\n");
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" record 1 tagged integer 0"),
              "4: tagged empty\n");
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" record 4 text \"\""),
              "4: the file has only 384 bytes\n");
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" bytes 1 \"01\""), "4: bytes 00\n");
    EXPECT_EQ(resultOf(saved + "expect file \"b.qrv\" records 3"), "4: the file is missing\n");
    EXPECT_EQ(resultOf(saved + "expect file \"a.qrv\" missing"), "4: the file exists\n");
    EXPECT_EQ(resultOf(saved + "expect folder \"Grade\""), "4: no folder\n");
}

TEST(Runner, PathsOfTheProgramsFolderCanBeAbbreviated) {
    EXPECT_EQ(resultOf("start\nmenu mnuSave\n  save \"Save Gradesheet\" -> \"*\\\\a.qrv\"\n"
                       "expect path \"*\\\\a.qrv\"\nexpect path \"a.qrv\""),
              "5: \"*\\\\a.qrv\"\n");
}

TEST(Runner, AnythingPrintedOrCopiedOrStartedThatIsWrongFails) {
    EXPECT_EQ(resultOf("start\nexpect printed none\nexpect copied none"), "passed");
    EXPECT_EQ(resultOf("start\nexpect printed contains \"x\""), "2: nothing was printed\n");
    EXPECT_EQ(resultOf("start\nexpect pages 1"), "2: nothing was printed\n");
    EXPECT_EQ(resultOf("start\nexpect copied \"a\" \"b\""), "2: none\n");
    EXPECT_EQ(resultOf("start\nexpect launched \"x\""), "2: nothing was started\n");
    EXPECT_EQ(resultOf("start\nmenu mnuHowToUse\nexpect launched \"notepad *\\\\HowToUseQRV.txt\""),
              "3: \" notepad *\\\\HowToUseQRV.txt\"\n");
}

TEST(Runner, WhatCannotBeDoneFailsTheLine) {
    EXPECT_EQ(resultOf("menu mnuNew"), "1: the program was not started\n");
    EXPECT_EQ(resultOf("start\nstart"), "2: the program is running already\n");
    EXPECT_EQ(resultOf("start\nmenu mnuNothing"), "2: there is no menu entry mnuNothing\n");
    EXPECT_EQ(resultOf("start\nmenu mnuPFile(1)"), "2: the menu entry is hidden\n");
    EXPECT_EQ(resultOf("start\ntype \"1\""), "2: no editor has the focus\n");
    EXPECT_EQ(resultOf("start\nclose\nexpect window ended\nexpect students 0\nmenu mnuNew"),
              "4: the program has ended\n5: the program has ended\n");
    EXPECT_EQ(resultOf("start\nmenu mnuOpen\n  open \"Open Gradesheet\" -> \"none.qrv\""),
              "3: there is no file none.qrv to open\n");
    EXPECT_EQ(resultOf("file \"a\" from \"there is no such fixture\""),
              "1: cannot copy there is no such fixture: No such file or directory\n");
}

TEST(Runner, TypedTextReplacesTheSelectionAndThenGoesOn) {
    EXPECT_EQ(resultOf(inSmallSheet("click 155 18\nexpect txtEnter selected \"0\"\ntype \"1\"\n"
                                    "type \"7\"\nexpect txtEnter text \"17\"\nkey Enter\n"
                                    "expect txtEnter hidden\nexpect cell 1 1 text \"17\"")),
              "passed");
}

TEST(Runner, TabLeavesTheEditorAndEscapeDoesNot) {
    EXPECT_EQ(resultOf(inSmallSheet("click 155 18\nkey e\nkey Escape\nexpect txtEnter focused\n"
                                    "expect cell 1 1 number 0\nkey Tab\nexpect txtEnter hidden\n"
                                    "expect cell 1 1 text \"E\"")),
              "passed");
}

/// Cannot look inside the program, nor fill up its disk.
class DriverFromOutside final : public HeadlessDriver {
  public:
    const GradeSheet* sheet() override { return nullptr; }
    const WorkingState* state() override { return nullptr; }
    bool set(const Setting& setting) override {
        return !std::holds_alternative<SetDisk>(setting) && HeadlessDriver::set(setting);
    }
};

TEST(Runner, WhatCannotBeSeenIsCountedAndNotFailed) {
    DriverFromOutside driver;
    const Verdict verdict = runScenario(
        parseScenario("start\nexpect students 5\nexpect dirty yes\nexpect hsbA range 0 0"), driver,
        ".");
    EXPECT_TRUE(verdict.failures.empty());
    EXPECT_EQ(verdict.linesLeft, 2);
}

TEST(Runner, BehindAStepThatCannotBeDoneEverythingIsLeft) {
    DriverFromOutside driver;
    const Verdict verdict = runScenario(
        parseScenario("start\ndisk full\nmenu mnuSave\n"
                      "  save \"Save Gradesheet\" -> \"a.qrv\"\nexpect lblSN text \"x\""),
        driver, ".");
    EXPECT_TRUE(verdict.failures.empty());
    EXPECT_EQ(verdict.linesLeft, 4);
}

/// Writes scenarios into a folder and reads the report on them.
class ReportTest : public testing::Test {
  protected:
    std::filesystem::path write(const std::string& name, const std::string& text) {
        std::ofstream(folder_.path() / name, std::ios::binary) << text;
        return folder_.path() / name;
    }

    /// The report, its folder cut off.
    std::string report(const std::vector<std::filesystem::path>& files) {
        std::ostringstream stream;
        const DriverMaker make = [](const Scenario&) { return std::make_unique<HeadlessDriver>(); };
        exitCode_ = runFiles(files, make, stream);
        std::string text = stream.str();
        const std::string prefix = folder_.path().string() + "/";
        for (auto at = text.find(prefix); at != std::string::npos; at = text.find(prefix))
            text.erase(at, prefix.size());
        return text;
    }

    TemporaryFolder folder_;
    int exitCode_ = -1;
};

TEST_F(ReportTest, ALineAFileAndTheTotalsLast) {
    const auto good = write("good", "start\nexpect students 0\n");
    const auto bad = write("bad", "start\nexpect students 1\n");
    EXPECT_EQ(report({good, bad}),
              "good: passed\n"
              "bad: FAILED\n"
              "  line 2\n"
              "    expected: expect students 1\n"
              "    came:     0\n"
              "1 passed, 1 failed\n");
    EXPECT_EQ(exitCode_, 1);
    EXPECT_EQ(report({good}), "good: passed\n1 passed, 0 failed\n");
    EXPECT_EQ(exitCode_, 0);
}

TEST_F(ReportTest, AFileThatIsNoScenarioFails) {
    EXPECT_EQ(report({write("odd", "start\nstrat\n"), folder_.path() / "none"}),
              "odd: FAILED\n"
              "  line 2\n"
              "    expected: a step of a scenario\n"
              "    came:     strat is no step\n"
              "none: FAILED\n"
              "  line 0\n"
              "    expected: a scenario that can be run\n"
              "    came:     the file cannot be read\n"
              "0 passed, 2 failed\n");
}

TEST_F(ReportTest, FixturesLieBesideTheScenario) {
    write("fixture", std::string(128, '\0'));
    EXPECT_EQ(report({write("good",
                            "file \"Grades\\\\a.qrv\" from \"fixture\"\n"
                            "expect file \"Grades\\\\a.qrv\" records 1\n")}),
              "good: passed\n1 passed, 0 failed\n");
}

}  // namespace
}  // namespace quorvel::scenario
