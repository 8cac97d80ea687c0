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
    for (const char* option : {"-o", "--output", "--out"}) {
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
    EXPECT_TRUE(isOneLine(run.problem, "qrv: missing/out.csv: cannot be written"));
    EXPECT_EQ(listing(), "class.csv class.qrv ");
}

TEST_F(ExportTest, ADeviceOrAFolderIsNoPlaceForAFile) {
    for (const char* place : {"/dev/full", "/dev/null", "."}) {
        const ProgramRun run = qrv("export class.qrv -o " + std::string(place));
        EXPECT_EQ(run.exitCode, 1) << place;
        EXPECT_TRUE(isOneLine(run.problem, "qrv: " + std::string(place) + ": "));
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
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
            std::string students;
            for (int i = 0; i < 3000; ++i) students += "Somebody with quite a long name,alias\n";
            return students;
        }());
    EXPECT_EQ(qrv("import long.csv -o long.qrv").exitCode, 0);
    // A limit on the size of files stands for a disk that has no more room.
    const ProgramRun run = shell("trap '' XFSZ; ulimit -f 20; qrv export long.qrv -o out.csv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(isOneLine(run.problem, "qrv: out.csv: cannot be written"));
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
    const ProgramRun run =
        qrv("export class.qrv --settings Quorvel --scale 90,80,70,60,50 --round-up");
    EXPECT_EQ(run.exitCode, 0) << run.problem;
    EXPECT_EQ(run.output, classCsv);
}

}  // namespace

}  // namespace quorvel
