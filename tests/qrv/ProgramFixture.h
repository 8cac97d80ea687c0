#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace quorvel {

/// What one call of the program left.
struct ProgramRun {
    int exitCode = -1;
    std::string output;
    std::string problem;  // standard error
};

/// The real program, run in an empty folder of its own.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest();
    ~ProgramTest() override;

    /// `words` is what a shell reads behind the program's name, redirections included. Standard
    /// error is always kept apart.
    ProgramRun qrv(const std::string& words) const;
    /// Runs a whole shell command in the folder, in which `qrv` is the program.
    ProgramRun shell(const std::string& command) const;

    /// A shell command that keeps what is run behind it from taking much memory.
    static std::string memoryLimit();

    void write(const std::string& file, std::string_view content) const;
    std::string read(const std::string& file) const;
    bool exists(const std::string& file) const { return std::filesystem::exists(folder_ / file); }
    /// The names of everything in the folder, sorted, each followed by a blank.
    std::string listing() const;

    /// Makes class.qrv: three students and four assignments with scores of every kind.
    void makeClass() const;
    /// Writes a grading scale such as "90,80,70,60,50" as the window does, without rounding.
    void writeScale(const std::string& file, const std::string& scale) const;

    const std::filesystem::path& folder() const { return folder_; }

  private:
    std::filesystem::path folder_;
};

/// One line that starts like this and ends with a line feed.
testing::AssertionResult isOneLine(const std::string& text, const std::string& start);

/// The CSV that makeClass imports.
extern const char* const classCsv;

}  // namespace quorvel
