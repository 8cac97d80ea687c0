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

    /// Begins a new scenario; the one before is forgotten.
    void begin() { stream_ = std::ofstream(file_, std::ios::trunc); }
    void line(std::string_view line) { stream_ << line << '\n' << std::flush; }
    /// What an action is followed by.
    void indented(std::string_view line) { stream_ << "  " << line << '\n' << std::flush; }

  private:
    std::filesystem::path file_;
    std::ofstream stream_;
};

}  // namespace quorvel::walk
