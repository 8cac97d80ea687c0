#include <fstream>

#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class ExportTest : public ProgramTest {
  protected:
    ExportTest() { makeClass(); }
};

TEST_F(ExportTest, PrintsTheSheetAsCsv) {
    const ProgramRun run = qrv("export class.qrv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, classCsv);
    EXPECT_EQ(run.problem, "");
}

TEST_F(ExportTest, WritesAFileWhereItIsAskedFor) {
    for (const char* option : {"-o", "--output"}) {
        std::filesystem::remove(folder() / "out.csv");
        const ProgramRun run = qrv("export class.qrv " + std::string(option) + " out.csv");
        EXPECT_EQ(run.exitCode, 0) << run.problem;
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(read("out.csv"), classCsv);
        EXPECT_EQ(listing(), "class.csv class.qrv out.csv ");
    }
}

TEST_F(ExportTest, ALongerOldFileIsReplacedWhole) {
    write("out.csv", std::string(5000, 'x'));
    EXPECT_EQ(qrv("export -o out.csv class.qrv").exitCode, 0);
    EXPECT_EQ(read("out.csv"), classCsv);
}

TEST_F(ExportTest, ALinkStaysALinkAndItsFileIsReplaced) {
    write("real.csv", "old");
    std::filesystem::create_symlink("real.csv", folder() / "link.csv");
    EXPECT_EQ(qrv("export class.qrv -o link.csv").exitCode, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder() / "link.csv"));
    EXPECT_EQ(read("real.csv"), classCsv);
}

TEST_F(ExportTest, AnEmptySheetHasTheTwoHeadingLines) {
    write("empty.csv", "Name,Alias\nValue,\n");
    EXPECT_EQ(qrv("import empty.csv -o empty.qrv").exitCode, 0);
    EXPECT_EQ(qrv("export empty.qrv").output, "Name,Alias\nValue,\n");
}

TEST_F(ExportTest, AFolderThatIsMissingIsAnErrorAndLeavesNothing) {
    const ProgramRun run = qrv("export class.qrv -o missing/out.csv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing/out.csv: it cannot be written"));
    EXPECT_EQ(listing(), "class.csv class.qrv ");
}

TEST_F(ExportTest, ADeviceTakesTheResultAsItComes) {
    EXPECT_EQ(qrv("export class.qrv -o /dev/null").exitCode, 0);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    const ProgramRun full = qrv("export class.qrv -o /dev/full");
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_TRUE(isOneLine(full.problem, "qrv: /dev/full: it cannot be written"));
    const ProgramRun pipe = shell("mkfifo pipe; cat pipe & qrv export class.qrv -o pipe; wait");
    EXPECT_EQ(pipe.output, classCsv);
    EXPECT_EQ(qrv("export class.qrv -o -").output, classCsv);
}

TEST_F(ExportTest, TheInputIsNeverTheOutput) {
    const std::string old = read("class.qrv");
    std::filesystem::create_symlink("class.qrv", folder() / "link.qrv");
    std::filesystem::create_hard_link(folder() / "class.qrv", folder() / "hard.qrv");
    for (const char* output : {"class.qrv", "./class.qrv", "link.qrv", "hard.qrv"}) {
        for (const char* command : {"export", "figures", "report 2", "check"}) {
            const ProgramRun run = qrv(std::string(command) + " class.qrv -o " + output);
            EXPECT_EQ(run.exitCode, 2) << command << output;
            EXPECT_TRUE(isOneLine(run.problem, "qrv: " + std::string(output) + ": it would"));
        }
    }
    EXPECT_EQ(qrv("import class.csv -o class.csv").exitCode, 2);
    EXPECT_EQ(shell("qrv export - -o class.qrv <class.qrv").exitCode, 2);
    EXPECT_EQ(read("class.qrv"), old);
    EXPECT_EQ(read("class.csv"), classCsv);
}

TEST_F(ExportTest, ADamagedSheetGivesNothingUnlessItIsWanted) {
    write("cut.qrv", read("class.qrv").substr(0, 15 * 128 + 5));
    write("foreign.qrv", "Name,Alias\nValue,\n");
    write("out.csv", "old");
    for (const char* command : {"export", "figures", "report 4"}) {
        for (const char* sheet : {"cut.qrv", "foreign.qrv"}) {
            const std::string line = std::string(command) + " " + sheet;
            const ProgramRun run = qrv(line);
            EXPECT_EQ(run.exitCode, 1) << line;
            EXPECT_EQ(run.output, "") << line;
            EXPECT_TRUE(isOneLine(run.problem, "qrv: " + std::string(sheet) + ": record "));
            EXPECT_EQ(qrv(line + " -o out.csv").exitCode, 1) << line;
            EXPECT_EQ(read("out.csv"), "old");
            const ProgramRun wanted = qrv(line + " --damaged");
            EXPECT_EQ(wanted.exitCode, 1);
            EXPECT_NE(wanted.output, "");
            EXPECT_EQ(wanted.problem, run.problem);
        }
    }
}

TEST_F(ExportTest, SeveralSheetsGoIntoAFolderOrOneAfterTheOther) {
    std::filesystem::create_directory(folder() / "out");
    std::filesystem::create_directory(folder() / "other");
    EXPECT_EQ(shell("cp class.qrv other.qrv; cp class.qrv other/class.qrv").exitCode, 0);
    EXPECT_EQ(qrv("export class.qrv other.qrv -o out").exitCode, 0);
    EXPECT_EQ(read("out/class.csv"), classCsv);
    EXPECT_EQ(read("out/other.csv"), classCsv);
    EXPECT_EQ(qrv("export class.qrv other.qrv").output, std::string(classCsv) + "\n" + classCsv);
    const ProgramRun twice = qrv("export class.qrv other/class.qrv -o out --format json");
    EXPECT_EQ(twice.exitCode, 1);
    EXPECT_EQ(twice.problem, "qrv: other/class.qrv: its export would replace that of class.qrv\n");
    EXPECT_TRUE(read("out/class.json").starts_with("{\"sheet\":\"class.qrv\",\"title\":\"Math"));
}

TEST_F(ExportTest, ForASpreadsheetItIsMarkedAndFormulasAreNone) {
    write("odd.csv", "Name,Alias,=A1\nValue,,5\n+Doe,-d,3\n'@Roe,R,1\n");
    EXPECT_EQ(qrv("import odd.csv -o odd.qrv").exitCode, 0);
    EXPECT_EQ(qrv("export odd.qrv").output, "Name,Alias,=A1\nValue,,5\n+Doe,-d,3\n@Roe,R,1\n");
    EXPECT_EQ(qrv("export odd.qrv --spreadsheet").output,
              "\xEF\xBB\xBFName,Alias,'=A1\nValue,,5\n'+Doe,'-d,3\n'@Roe,R,1\n");
}

TEST_F(ExportTest, CellsThatAreOnlyClaimedRunThroughInFlatMemory) {
    const std::string students = std::string("\x02\x00\xFF\x7F", 4) + std::string(124, '\0');
    const std::string assignments = std::string("\x02\x00\xE8\x03", 4) + std::string(124, '\0');
    write("claims.qrv", students + assignments);
    const ProgramRun run =
        shell(memoryLimit() + "qrv export claims.qrv --damaged | tail -n 1 | wc -c");
    EXPECT_EQ(std::stoi(run.output), 2 + 1 + 1000 + 1) << run.problem;
}

TEST_F(ExportTest, ASheetThatCannotBeReadLeavesTheOldFile) {
    write("out.csv", "old");
    EXPECT_EQ(qrv("export missing.qrv -o out.csv").exitCode, 1);
    EXPECT_EQ(read("out.csv"), "old");
}

TEST_F(ExportTest, AFullDiskIsAnErrorOnStandardOutput) {
    const ProgramRun run = qrv("export class.qrv >/dev/full");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: standard output: "));
}

TEST_F(ExportTest, AFullDiskLeavesTheOldFile) {
    write("out.csv", "old");
    write(
        "long.csv", "Name,Alias\nValue,\n" + [] {
            const std::string name(100, 'x');
            std::string students;
            for (int i = 0; i < 12000; ++i) students += name + ",alias\n";
            return students;
        }());
    EXPECT_EQ(qrv("import long.csv -o long.qrv").exitCode, 0);
    // A limit on the size of files stands for a disk that has no more room. A build that counts
    // which lines it went through writes its own files below it.
    const ProgramRun run = shell("trap '' XFSZ; ulimit -f 1000; qrv export long.qrv -o out.csv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: out.csv: it cannot be written"));
    EXPECT_EQ(read("out.csv"), "old");
    EXPECT_EQ(listing(), "class.csv class.qrv long.csv long.qrv out.csv ");
}

TEST_F(ExportTest, AReaderThatHasSeenEnoughIsNoError) {
    write(
        "long.csv", "Name,Alias\nValue,\n" + [] {
            std::string students;
            for (int i = 0; i < 20000; ++i) students += "Somebody,alias\n";
            return students;
        }());
    EXPECT_EQ(qrv("import long.csv -o long.qrv").exitCode, 0);
    const ProgramRun run = shell("{ qrv export long.qrv; echo $? >exit; } | head -n 1; cat exit");
    EXPECT_EQ(run.output, "Name,Alias\n0\n");
    EXPECT_EQ(run.problem, "");
}

TEST_F(ExportTest, TheOptionsOfEveryCommandAreAcceptedHere) {
    std::filesystem::create_directory(folder() / "Quorvel");
    writeScale("Quorvel/GradingScale.qrv", "50,40,30,20,10");
    const ProgramRun run =
        qrv("export class.qrv --settings Quorvel --scale 90,80,70,60,50 --round-up");
    EXPECT_EQ(run.exitCode, 0) << run.problem;
    EXPECT_EQ(run.output, classCsv);
}

}  // namespace

}  // namespace quorvel
