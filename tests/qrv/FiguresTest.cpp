#include <algorithm>

#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class FiguresTest : public ProgramTest {};

constexpr const char* heading = "number\tname\talias\tearned\tpossible\tpercentage\tletter\trank\n";

TEST_F(FiguresTest, PrintsALinePerStudentInTheOrderOfTheSheetAndTheClass) {
    makeClass();
    const ProgramRun run = qrv("figures class.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem, "");
    EXPECT_EQ(run.output, std::string(heading) +
                              "1\tDoe, Jane\tJane\t115\t120\t95.8\tA\t2\n"
                              "2\tRoe, Rick\tRick\t129\t170\t75.8\tD\t3\n"
                              "3\t\xC3\x85str\xC3\xB6m\t\xC3\x85se\t170\t170\t100\tA\t1\n"
                              "class\t90.5\tB\n");
}

TEST_F(FiguresTest, WithoutStudentsThereIsTheHeadingLineOnly) {
    write("empty.csv", "Name,Alias,Quiz\nValue,,20\n");
    EXPECT_EQ(qrv("import empty.csv -o empty.qrv").exitCode, 0);
    const ProgramRun run = qrv("figures empty.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, heading);
}

TEST_F(FiguresTest, ATabOrALineBreakInATextIsPrintedAsABlank) {
    write("odd.csv", "Name,Alias\nValue,\naXbYc,dZe\n");
    EXPECT_EQ(qrv("import odd.csv -o odd.qrv").exitCode, 0);
    EXPECT_EQ(shell("tr 'XYZ' '\\t\\n\\r' <odd.qrv >broken.qrv; qrv figures broken.qrv").output,
              std::string(heading) + "1\ta b c\td e\t0\t0\t100\tA\t1\nclass\t100\tA\n");
}

TEST_F(FiguresTest, SeveralSheetsAreTheFirstColumn) {
    makeClass();
    write("bad.qrv", "nothing");
    const ProgramRun run = qrv("figures bad.qrv class.qrv missing.qrv ./class.qrv --no-class");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.starts_with("sheet\t" + std::string(heading) +
                                       "class.qrv\t1\tDoe, Jane\tJane\t115\t"))
        << run.output;
    EXPECT_EQ(std::ranges::count(run.output, '\n'), 7);
    EXPECT_NE(run.output.find("\n./class.qrv\t3\t"), std::string::npos);
    EXPECT_EQ(std::ranges::count(run.problem, '\n'), 2) << run.problem;
}

TEST_F(FiguresTest, CsvIsForStudentsOnly) {
    makeClass();
    EXPECT_EQ(qrv("figures class.qrv --format csv").output,
              "number,name,alias,earned,possible,percentage,letter,rank\r\n"
              "1,\"Doe, Jane\",Jane,115,120,95.8,A,2\r\n"
              "2,\"Roe, Rick\",Rick,129,170,75.8,D,3\r\n"
              "3,\xC3\x85str\xC3\xB6m,\xC3\x85se,170,170,100,A,1\r\n");
}

TEST_F(FiguresTest, JsonIsOneObjectASheetAndLine) {
    makeClass();
    write("empty.csv", "Name,Alias\nValue,\n");
    EXPECT_EQ(qrv("import empty.csv -o empty.qrv").exitCode, 0);
    EXPECT_EQ(qrv("figures class.qrv empty.qrv --format json").output,
              "{\"sheet\":\"class.qrv\",\"title\":\"Math - 1\",\"students\":["
              "{\"number\":1,\"name\":\"Doe, Jane\",\"alias\":\"Jane\",\"earned\":115,"
              "\"possible\":120,\"percentage\":95.8,\"letter\":\"A\",\"rank\":2},"
              "{\"number\":2,\"name\":\"Roe, Rick\",\"alias\":\"Rick\",\"earned\":129,"
              "\"possible\":170,\"percentage\":75.8,\"letter\":\"D\",\"rank\":3},"
              "{\"number\":3,\"name\":\"\xC3\x85str\xC3\xB6m\",\"alias\":\"\xC3\x85se\","
              "\"earned\":170,\"possible\":170,\"percentage\":100.0,\"letter\":\"A\","
              "\"rank\":1}],\"average\":90.5,\"letter\":\"B\"}\n"
              "{\"sheet\":\"empty.qrv\",\"title\":\"\",\"students\":[],\"average\":null,"
              "\"letter\":null}\n");
}

TEST_F(FiguresTest, StandardInputIsASheetAndAFileTakesTheResult) {
    makeClass();
    const std::string wanted = qrv("figures class.qrv").output;
    EXPECT_EQ(shell("cat class.qrv | qrv figures -").output, wanted);
    EXPECT_EQ(qrv("figures class.qrv -o figures.tsv").output, "");
    EXPECT_EQ(read("figures.tsv"), wanted);
}

TEST_F(FiguresTest, TheScaleCanBeGiven) {
    makeClass();
    const ProgramRun run = qrv("figures class.qrv --scale 99,95,75,50,10");
    EXPECT_NE(run.output.find("95.8\tB\t2\n"), std::string::npos);
    EXPECT_NE(run.output.find("75.8\tC\t3\n"), std::string::npos);
    EXPECT_NE(run.output.find("100\tA\t1\n"), std::string::npos);
}

TEST_F(FiguresTest, RoundingUpLowersTheThresholdsByAHalf) {
    makeClass();
    EXPECT_NE(qrv("figures class.qrv --round-up").output.find("75.8\tC\t3\n"), std::string::npos);
    EXPECT_NE(qrv("figures class.qrv --round-up --scale 96,92,77,75,60").output.find("95.8\tA\t2"),
              std::string::npos);
}

TEST_F(FiguresTest, AScaleIsFiveWholeNumbers) {
    makeClass();
    for (const char* scale :
         {"94,86,76,70", "94,86,76,70,60,50", "94,86,76,70,x", "94,,76,70,60", "94.5,86,76,70,60",
          "40000,1,1,1,1", "100,86,76,70,60", "94,94,76,70,60", "60,70,76,86,94", "5,4,3,2,1",
          "94,86,76,70,1", "94,86,76,70,60,", "' 94,86,76,70,60'", "Default", "''"}) {
        const ProgramRun run = qrv("figures class.qrv --scale " + std::string(scale));
        EXPECT_EQ(run.exitCode, 2) << scale;
        EXPECT_TRUE(isOneLine(run.problem, "qrv: --scale wants five falling whole numbers"))
            << scale;
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(FiguresTest, SettingsComeFromAProgramFolderAndTheOptionsOverrideThem) {
    makeClass();
    std::filesystem::create_directory(folder() / "Quorvel");
    std::string scale;
    for (char minimum = 99; minimum >= 95; --minimum) {
        scale += std::string({minimum, 0}) + std::string(126, '\0');
    }
    scale += std::string({3, 0, '0', '.', '5'}) + std::string(123, '\0');
    write("Quorvel/GradingScale.qrv", scale);
    EXPECT_NE(qrv("figures class.qrv --settings Quorvel").output.find("95.8\tD\t2"),
              std::string::npos)
        << "96 for a D, and the folder rounds up";
    EXPECT_NE(qrv("figures class.qrv --settings Quorvel --scale 96,90,80,70,60")
                  .output.find("95.8\tA\t2"),
              std::string::npos)
        << "the folder rounds up";
}

TEST_F(FiguresTest, AFolderWithoutAGradingScaleIsAnError) {
    makeClass();
    std::filesystem::create_directory(folder() / "Quorvel");
    const ProgramRun run = qrv("figures class.qrv --settings Quorvel");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.problem, "qrv: Quorvel: there is no GradingScale.qrv in it\n");
    EXPECT_EQ(listing(), "Quorvel class.csv class.qrv ") << "nothing is written there";
}

TEST_F(FiguresTest, ASheetInGradesHasTheScaleOfTheFolderAbove) {
    makeClass();
    writeScale("GradingScale.qrv", "90,80,70,60,50");
    EXPECT_EQ(shell("mkdir Grades Other; cp class.qrv Grades; cp class.qrv Other").exitCode, 0);
    const char* own = "75.8\tC\t3\n";
    EXPECT_NE(qrv("figures Grades/class.qrv").output.find(own), std::string::npos);
    EXPECT_NE(shell("cd Grades; qrv figures class.qrv").output.find(own), std::string::npos);
    EXPECT_EQ(qrv("figures Other/class.qrv").output.find(own), std::string::npos);
    EXPECT_EQ(qrv("figures Grades/class.qrv --scale default").output,
              qrv("figures class.qrv").output);
    EXPECT_NE(qrv("check Grades/class.qrv").output.find("\nscale: 90,80,70,60,50 (from /"),
              std::string::npos);
}

TEST_F(FiguresTest, AFolderThatIsMissingIsAnError) {
    makeClass();
    const ProgramRun run = qrv("figures class.qrv --settings Quorvel");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: Quorvel: "));
}

TEST_F(FiguresTest, AMissingFileAndAFolderCannotBeRead) {
    for (const char* name : {"missing.qrv", ".", "''"}) {
        const ProgramRun run = qrv("figures " + std::string(name));
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(isOneLine(run.problem, "qrv: "));
    }
    EXPECT_EQ(qrv("figures .").problem, "qrv: .: it is a folder, no file\n");
}

TEST_F(FiguresTest, ADamagedSheetIsShownAsTheProgramLoadsIt) {
    makeClass();
    const std::string whole = read("class.qrv");
    // Three records of the heading, twelve scores, then the first name, cut in the middle.
    write("cut.qrv", whole.substr(0, 15 * 128 + 5));
    const ProgramRun run = qrv("figures cut.qrv --damaged");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.problem, "qrv: cut.qrv: record 16: it is cut short\n");
    EXPECT_EQ(run.output, std::string(heading) +
                              "1\tDoe\t\t115\t0\t100\tA\t1\n"
                              "2\t\t\t129\t0\t100\tA\t1\n"
                              "3\t\t\t170\t0\t100\tA\t1\n"
                              "class\t100\tA\n");
}

TEST_F(FiguresTest, CountsWithoutBytesBehindThemTakeNeitherTimeNorMemory) {
    std::string counts;
    for (int count = 0; count < 2; ++count) {
        counts += std::string("\x02\x00\xFF\x7F", 4) + std::string(124, '\0');
    }
    write("claims.qrv", counts);
    const ProgramRun run = shell(memoryLimit() + "qrv figures claims.qrv --damaged | tail -n 1");
    EXPECT_EQ(run.output, "class\t100\tA\n") << run.problem;
}

}  // namespace

}  // namespace quorvel
