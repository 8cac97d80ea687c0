#include "tests/qrv/ProgramFixture.h"

namespace quorvel {

namespace {

class UsageTest : public ProgramTest {};

TEST_F(UsageTest, HelpNamesEveryCommandAndTheScaleInForce) {
    const ProgramRun run = qrv("--help");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.problem, "");
    for (const char* text : {"figures", "report", "page", "export", "import", "check", "help",
                             "Grading scale in force: 94,86,76,70,60 (built in)"}) {
        EXPECT_NE(run.output.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(qrv("-h").output, run.output);
    EXPECT_EQ(qrv("help").output, run.output);
}

TEST_F(UsageTest, EveryCommandHelpsWithItsOwnOptions) {
    const std::pair<const char*, std::vector<const char*>> commands[] = {
        {"figures", {"--format", "--no-class", "--output", "--damaged"}},
        {"report",
         {"KIND", "--student", "--alias", "--school", "--teacher", "--date", "--time",
          "--damaged"}},
        {"page",
         {"--student", "--alias", "--school", "--teacher", "--date", "--output", "--damaged"}},
        {"export", {"--format", "--spreadsheet", "--output", "--damaged"}},
        {"import", {"FILE", "--output", "--title"}},
        {"check", {"--output"}}};
    for (const auto& [command, options] : commands) {
        const ProgramRun run = qrv(std::string(command) + " --help");
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_NE(run.output.find(std::string("Usage: qrv ") + command), std::string::npos)
            << run.output;
        for (const char* option : options) {
            EXPECT_NE(run.output.find(option), std::string::npos) << command << option;
        }
        for (const char* option : {"--settings", "--scale", "--round-up", "--help",
                                   "Grading scale in force: 94,86,76,70,60 (built in)"}) {
            EXPECT_NE(run.output.find(option), std::string::npos) << command << option;
        }
        for (const char* words : {"--help ", "-h ", "help "}) {
            EXPECT_EQ(qrv(words + std::string(command)).output, run.output) << words;
        }
    }
}

TEST_F(UsageTest, TellsItsVersion) {
    EXPECT_EQ(qrv("--version").output, "qrv 2.60\n");
}

TEST_F(UsageTest, HelpFitsIntoEightyColumns) {
    for (const char* words : {"--help", "figures --help", "report --help", "page --help",
                              "export --help", "import --help", "check --help"}) {
        std::istringstream help(qrv(words).output);
        for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST_F(UsageTest, WrongCommandLinesAreToldInOneLineWithExitTwo) {
    makeClass();
    const std::pair<const char*, const char*> lines[] = {
        {"", "a command is missing (see qrv --help)"},
        {"grades class.qrv", "there is no command 'grades'; the nearest is 'page'"},
        {"reprot 1 class.qrv", "there is no command 'reprot'; the nearest is 'report' (see qrv"},
        {"grades --help", "there is no command 'grades'"},
        {"help exprot", "there is no command 'exprot'; the nearest is 'export'"},
        {"--nothing", "there is no option '--nothing'"},
        {"figures", "figures: SHEET is required (see qrv figures --help)"},
        {"report 1", "report: SHEET is required (see qrv report --help)"},
        {"report class.qrv", "report: KIND: "},
        {"page", "page: SHEET is required (see qrv page --help)"},
        {"page class.qrv --time 5PM", "page: there is no option '--time'"},
        {"page class.qrv --student one", "page: Could not convert: --student"},
        {"page class.qrv class.qrv --student 1", "page: --student is for one sheet (see qrv"},
        {"export", "export: SHEET is required"},
        {"import -o out.qrv", "import: FILE is required"},
        {"import a.csv b.csv", "import: there is no use for 'b.csv'"},
        {"check", "check: SHEET is required"},
        {"figures class.qrv --scael 90,80,70,60,50",
         "figures: there is no option '--scael'; the nearest is '--scale' (see qrv figures "
         "--help)"},
        {"figures class.qrv -x", "figures: there is no option '-x'"},
        {"figures class.qrv --scale", "figures: --scale: "},
        {"figures class.qrv --format xml", "figures: --format: "},
        {"export class.qrv -o", "export: --output: "},
        {"report 2 class.qrv --t 5PM", "report: there is no option '--t'"},
        {"figures class.qrv --alias", "figures: there is no option '--alias'"},
        {"import class.csv --damaged", "import: there is no option '--damaged'"},
        {"check class.qrv --title T", "check: there is no option '--title'"},
        {"export class.qrv --school S", "export: there is no option '--school'"}};
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
    EXPECT_EQ(qrv("figures --round-up --scale=99,98,97,96,95 class.qrv").output, wanted);
    EXPECT_EQ(qrv("figures --round-up --scale 99,98,97,96,95 -- class.qrv").output, wanted);
}

TEST_F(UsageTest, NamesOfFilesMayHoldBlanksAndAccents) {
    makeClass();
    EXPECT_EQ(
        shell("cp class.qrv 'Se\xC3\xB1or\xC4\x87 1.qrv'; qrv check 'Se\xC3\xB1or\xC4\x87 1.qrv'")
            .exitCode,
        0);
    EXPECT_TRUE(isOneLine(qrv("check 'Se\xC3\xB1or 2.qrv'").problem,
                          "qrv: Se\xC3\xB1or 2.qrv: there is no such file"));
}

TEST_F(UsageTest, AFileMayHaveTheNameOfACommandOrAnOption) {
    makeClass();
    EXPECT_EQ(shell("cp class.qrv check; cp class.qrv ./--help; qrv check check").exitCode, 0);
    EXPECT_EQ(qrv("check -- --help").exitCode, 0);
}

TEST_F(UsageTest, AProblemIsOneLineEvenWhereANameHasTwo) {
    EXPECT_TRUE(isOneLine(qrv("check 'a\nb'").problem, "qrv: a b: there is no such file"));
}

TEST_F(UsageTest, AClosedOrFullStandardOutputIsAnError) {
    makeClass();
    for (const char* redirection : {">&-", ">/dev/full"}) {
        for (const char* words : {"--help", "figures class.qrv", "report 1 class.qrv",
                                  "check class.qrv", "page class.qrv"}) {
            const ProgramRun run = qrv(std::string(words) + " " + redirection);
            EXPECT_EQ(run.exitCode, 1) << words << redirection;
            EXPECT_TRUE(isOneLine(run.problem, "qrv: standard output: "));
        }
    }
}

}  // namespace

}  // namespace quorvel
