#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "qrv/Commands.h"
#include "qrv/Input.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class BrokenFile final : public InputFile {
    std::optional<std::size_t> readSome(std::span<std::byte>) override { return std::nullopt; }
};

/// A disk on which every file has the same problem; without one, reading it breaks off.
class TroubledFiles final : public FaultyFiles {
  public:
    using FaultyFiles::FaultyFiles;

    FileProblem problem = FileProblem::None;

    Opened openForReading(const std::filesystem::path&, std::uint64_t) override {
        if (problem != FileProblem::None) return {nullptr, problem};
        return {std::make_unique<BrokenFile>()};
    }
};

class InputTest : public testing::Test {
  protected:
    Environment on(Files& files) {
        return {.files = files,
                .codePage = CodePage::windows1252(),
                .programFolder = std::nullopt,
                .expandsWildcards = false};
    }

    /// Why the file cannot be opened; empty where it can.
    std::string problemOf(const std::string& name, Environment environment) {
        try {
            openInput(name, environment);
        } catch (const InputError& error) {
            return error.what();
        }
        return "";
    }

    MemoryFiles disk_;
};

TEST_F(InputTest, EveryReasonWhyAFileCannotBeOpenedIsTold) {
    const std::pair<FileProblem, const char*> reasons[] = {
        {FileProblem::Missing, "there is no such file"},
        {FileProblem::Folder, "it is a folder, no file"},
        {FileProblem::Refused, "there is no permission to read it"},
        {FileProblem::InUse, "another program has it open and does not share it"},
        {FileProblem::Unreadable, "it cannot be read"}};
    TroubledFiles files(disk_);
    for (const auto& [problem, reason] : reasons) {
        files.problem = problem;
        EXPECT_EQ(problemOf("class.qrv", on(files)), std::string("class.qrv: ") + reason);
    }
}

TEST_F(InputTest, AFileThatIsReleasedWithinAMomentIsRead) {
    const auto file = std::filesystem::absolute("class.qrv");
    disk_.files[file];
    FaultyFiles files(disk_);
    files.locked.insert(file);
    EXPECT_EQ(problemOf("class.qrv", on(files)),
              "class.qrv: another program has it open and does not share it");
    files.pausesUntilReleased = 3;
    EXPECT_EQ(problemOf("class.qrv", on(files)), "");
    EXPECT_EQ(files.pausesUntilReleased, 0);
}

TEST_F(InputTest, APatternThatNoFileMatchesIsNoFile) {
    Environment environment = on(disk_);
    disk_.files[std::filesystem::absolute("*.qrv")];
    disk_.files[std::filesystem::absolute("class.qrv")];
    EXPECT_EQ(problemOf("*.qrv", environment), "") << "where the shell has expanded it";
    environment.expandsWildcards = true;
    EXPECT_EQ(problemOf("*.qrv", environment), "*.qrv: there is no such file");
    EXPECT_EQ(problemOf("clas?.qrv", environment), "clas?.qrv: there is no such file");
    EXPECT_EQ(problemOf("class.qrv", environment), "");
}

TEST_F(InputTest, AReadingThatBreaksOffShowsNothing) {
    TroubledFiles files(disk_);
    Environment environment = on(files);
    Request request;
    request.files = {"class.qrv"};
    for (ExitCode (*command)(const Request&, Environment&) : {check, figures, exportSheets}) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitCode exitCode = command(request, environment);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "qrv: class.qrv: it cannot be read to its end\n");
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
        EXPECT_EQ(exitCode, ExitCode::InputFailed);
    }
    EXPECT_THROW(importSheet(request, environment), InputError);
}

}  // namespace

}  // namespace quorvel
