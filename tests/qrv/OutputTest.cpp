#include <cstdio>
#include <optional>
#include <string>

#include "qrv/Output.h"
#include "qrv/Problem.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/qrv/FullFile.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// More than any buffer holds back.
const std::string longText(1 << 20, 'x');

Outcome writeLongText(OutputFile& file) {
    TextWriter writer(file);
    writer.write(longText);
    return writer.finish();
}

/// Standard output for as long as it lives: it takes nothing and never says why.
class SilentlyFullOutput {
  public:
    SilentlyFullOutput() {
        stdout = fopencookie(this, "w",
                             {.read = nullptr,
                              .write = [](void*, const char*, std::size_t) { return ssize_t{0}; },
                              .seek = nullptr,
                              .close = nullptr});
    }
    ~SilentlyFullOutput() {
        std::fclose(stdout);
        stdout = console_;
    }
    SilentlyFullOutput(const SilentlyFullOutput&) = delete;
    SilentlyFullOutput& operator=(const SilentlyFullOutput&) = delete;

  private:
    std::FILE* console_ = stdout;
};

class OutputTest : public testing::Test {
  protected:
    /// What is said where this cannot be written; empty where it can.
    std::string problemOf(const std::optional<std::string>& name, const WriteResult& write) {
        try {
            writeResult(name, environment_, write);
        } catch (const OutputError& error) {
            return error.what();
        }
        return "";
    }

    MemoryFiles files_;
    Environment environment_{.files = files_,
                             .codePage = CodePage::windows1252(),
                             .programFolder = std::nullopt,
                             .expandsWildcards = false};
};

TEST_F(OutputTest, ADeviceThatIsFullIsToldWhetherItSaysSoAtOnceOrAtTheEnd) {
    const auto writeShortText = [](OutputFile& file) {
        TextWriter writer(file);
        writer.write("x");
        return writer.finish();
    };
    EXPECT_EQ(problemOf("/dev/full", writeLongText), "/dev/full: it cannot be written");
    EXPECT_EQ(problemOf("/dev/full", writeShortText), "/dev/full: it cannot be written");
    EXPECT_EQ(problemOf("/dev/null", writeLongText), "");
    EXPECT_EQ(problemOf("/dev/null", writeShortText), "");
}

TEST_F(OutputTest, AStandardOutputThatTakesNothingIsAnErrorAlsoWhereItGivesNoReason) {
    std::string problem;
    {
        const SilentlyFullOutput full;
        problem = problemOf(std::nullopt, [](OutputFile& file) {
            writeLongText(file);
            return writeLongText(file);
        });
    }
    EXPECT_EQ(problem, "standard output: Input/output error");
}

TEST_F(OutputTest, StandardOutputAndDevicesHaveNoOldRestToCutOff) {
    const auto cut = [](OutputFile& file) {
        return file.cut() ? Outcome::Written : Outcome::Failed;
    };
    EXPECT_EQ(problemOf("/dev/null", cut), "");
    testing::internal::CaptureStdout();
    EXPECT_EQ(problemOf("-",
                        [&](OutputFile& file) {
                            EXPECT_EQ(cut(file), Outcome::Written);
                            return Outcome::Written;
                        }),
              "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(OutputTest, AFolderIsNoPlaceForAFile) {
    EXPECT_EQ(problemOf("/dev", writeLongText), "/dev: it is a folder, no file");
}

TEST_F(OutputTest, WhatTheSystemCannotTellIsWrittenAsAFile) {
    const std::string longName = "/" + std::string(1000, 'n');
    EXPECT_EQ(problemOf(longName, writeLongText), "");
    EXPECT_EQ(files_.files[longName].size(), longText.size());
    files_.readOnly = true;
    EXPECT_EQ(problemOf(longName, writeLongText), longName + ": it cannot be written");
}

TEST_F(OutputTest, NothingMoreIsWrittenOnceAFileTookNothing) {
    FullFile file;
    TextWriter writer(file);
    EXPECT_FALSE(writer.failed());
    writer.write(longText);
    EXPECT_TRUE(writer.failed());
    writer.write(longText);
    EXPECT_EQ(writer.finish(), Outcome::Failed);
    EXPECT_EQ(file.attempts, 1);
}

}  // namespace

}  // namespace quorvel
