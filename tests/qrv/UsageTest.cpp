#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class UsageTest : public ProgramTest {};

TEST_F(UsageTest, HelpNamesEveryCommandAndOptionOfAllCommands) {
    const ProgramRun run = qrv("--help");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem, "");
    for (const char* text : {"qrv figures", "qrv report", "qrv export", "qrv import", "qrv check",
                             "--settings", "--scale", "--round-up", "--help"}) {
        EXPECT_NE(run.output.find(text), std::string::npos) << text;
    }
}

TEST_F(UsageTest, EveryCommandHelpsWithItsOwnOptions) {
    const std::pair<const char*, std::vector<const char*>> commands[] = {
        {"figures", {"--settings", "--scale", "--round-up"}},
        {"report",
         {"--student", "--alias", "--school", "--teacher", "--date", "--time", "--settings",
          "--scale", "--round-up"}},
        {"export", {"-o", "--settings", "--scale", "--round-up"}},
        {"import", {"-o", "--title", "--settings", "--scale", "--round-up"}},
        {"check", {"--settings", "--scale", "--round-up"}}};
    for (const auto& [command, options] : commands) {
        const ProgramRun run = qrv(std::string(command) + " --help");
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TRUE(run.output.starts_with(std::string("Usage: qrv ") + command)) << run.output;
        for (const char* option : options) {
            EXPECT_NE(run.output.find(option), std::string::npos) << command << option;
        }
        EXPECT_EQ(qrv(std::string("--help ") + command).output, run.output);
    }
}

TEST_F(UsageTest, HelpFitsIntoEightyColumns) {
    for (const char* words : {"--help", "figures --help", "report --help", "export --help",
                              "import --help", "check --help"}) {
        std::istringstream help(qrv(words).output);
        for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST_F(UsageTest, WrongCommandLinesAreToldInOneLineWithExitTwo) {
    makeClass();
    const std::pair<const char*, const char*> lines[] = {
        {"", "a command is missing"},
        {"grades class.qrv", "there is no command 'grades'"},
        {"grades --help", "there is no command 'grades'"},
        {"figures", "figures wants 1 operand"},
        {"figures a.qrv b.qrv", "figures wants 1 operand"},
        {"report 1", "report wants 2 operands"},
        {"report 1 class.qrv x", "report wants 2 operands"},
        {"export", "export wants 1 operand"},
        {"import -o out.qrv", "import wants 1 operand"},
        {"check", "check wants 1 operand"},
        {"figures class.qrv --nothing", "unknown option --nothing"},
        {"figures class.qrv -x", "unknown option -x"},
        {"figures class.qrv --scale", "option --scale wants a value"},
        {"export class.qrv -o", "option -o wants a value"},
        {"report 2 class.qrv --t 5PM", "unknown option --t"},
        {"report 2 class.qrv --s 9,8,7,6,5", "unknown option --s"},
        {"import class.csv --ti T", "unknown option --ti"},
        {"report 2 class.qrv --alias=yes", "unknown option --alias=yes"},
        {"figures class.qrv --alias", "figures has no option --alias"},
        {"figures class.qrv -o x", "figures has no option --output"},
        {"check class.qrv --title T", "check has no option --title"},
        {"export class.qrv --school S", "export has no option --school"}};
    for (const auto& [words, problem] : lines) {
        const ProgramRun run = qrv(words);
        EXPECT_EQ(run.exitCode, 2) << words;
        EXPECT_EQ(run.output, "") << words;
        EXPECT_TRUE(isOneLine(run.problem, std::string("qrv: ") + problem)) << words;
    }
}

TEST_F(UsageTest, OptionsMayStandAnywhereAndTheirValuesBehindAnEqualsSign) {
    makeClass();
    const std::string wanted = qrv("figures class.qrv --scale 99,98,97,96,95 --round-up").output;
    EXPECT_EQ(qrv("--round-up figures --scale=99,98,97,96,95 class.qrv").output, wanted);
    EXPECT_EQ(qrv("figures --round-up --scale 99,98,97,96,95 -- class.qrv").output, wanted);
}

TEST_F(UsageTest, NamesOfFilesMayHoldBlanksAndAccents) {
    makeClass();
    EXPECT_EQ(
        shell("cp class.qrv 'Se\xC3\xB1or\xC4\x87 1.qrv'; qrv check 'Se\xC3\xB1or\xC4\x87 1.qrv'")
            .exitCode,
        0);
    EXPECT_TRUE(isOneLine(qrv("check 'Se\xC3\xB1or 2.qrv'").problem,
                          "qrv: Se\xC3\xB1or 2.qrv: cannot be read"));
}

TEST_F(UsageTest, AProblemIsOneLineEvenWhereANameHasTwo) {
    EXPECT_TRUE(isOneLine(qrv("check 'a\nb'").problem, "qrv: a b: cannot be read"));
}

TEST_F(UsageTest, AClosedOrFullStandardOutputIsAnError) {
    makeClass();
    for (const char* redirection : {">&-", ">/dev/full"}) {
        for (const char* words :
             {"--help", "figures class.qrv", "report 1 class.qrv", "check class.qrv"}) {
            const ProgramRun run = qrv(std::string(words) + " " + redirection);
            EXPECT_EQ(run.exitCode, 1) << words << redirection;
            EXPECT_TRUE(isOneLine(run.problem, "qrv: standard output: "));
        }
    }
}

}  // namespace

}  // namespace quorvel
