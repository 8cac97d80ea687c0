#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace quorvel::walk {

/// The walk so far as a scenario file. Every line is on the disk before the program goes on, so
/// that the file tells how it came to a crash.
class ScenarioLog {
  public:
    explicit ScenarioLog(std::filesystem::path file) : file_(std::move(file)) {}
    /// A walk that nobody asks about.
    ScenarioLog() = default;

    bool isKept() const { return !file_.empty(); }

    /// Begins a new scenario; the one before is forgotten.
    void begin() {
        if (isKept()) stream_ = std::ofstream(file_, std::ios::trunc);
    }
    void line(std::string_view line) {
        if (isKept()) stream_ << line << '\n' << std::flush;
    }
    /// What an action is followed by.
    void indented(std::string_view line) {
        if (isKept()) stream_ << "  " << line << '\n' << std::flush;
    }

  private:
    std::filesystem::path file_;
    std::ofstream stream_;
};

}  // namespace quorvel::walk
