#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

/// What anybody may put before the program, as bytes, and what the program promises of it. A trial
/// throws Broken where a promise is not kept; what else goes wrong is a crash, or lets an exception
/// out that the program does not catch.
namespace quorvel::fuzz {

class Broken : public std::logic_error {
  public:
    using std::logic_error::logic_error;
};

/// A sheet: its figures and reports can be made, and it is the same sheet once it was written.
void trySheet(std::span<const std::byte> bytes);

/// Every settings file at once: what was read is read again once it was written.
void trySettings(std::span<const std::byte> bytes);

/// The password file: what it holds opens the program and lets it be changed, nothing else does.
void tryPassword(std::span<const std::byte> bytes);

/// A file for "qrv import": it is refused, or gives a sheet that json and csv give back.
void tryImport(std::span<const std::byte> bytes);

/// A command line of qrv, a word a line, in a folder with a sheet, a damaged one and a csv. One
/// that leads elsewhere is not run.
void tryCommandLine(std::span<const std::byte> bytes);

/// A scenario is read or refused.
void tryScenario(std::span<const std::byte> bytes);

/// A user of the whole program, whose every choice the bytes make; the random walk's promises hold
/// after every step.
void tryProgram(std::span<const std::byte> bytes);

struct Trial {
    std::string_view name;
    void (*run)(std::span<const std::byte> bytes);
};

/// All of them. Each has a folder of its name in tests/corpus.
inline constexpr std::array<Trial, 7> trials{{
    {"sheet", trySheet},
    {"settings", trySettings},
    {"password", tryPassword},
    {"import", tryImport},
    {"command-line", tryCommandLine},
    {"scenario", tryScenario},
    {"program", tryProgram},
}};

}  // namespace quorvel::fuzz
