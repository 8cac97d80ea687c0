#pragma once

#include <string>

#include "core/ports/Files.h"
#include "tests/scenario/Scenario.h"
#include "tests/walk/RandomNumbers.h"
#include "tests/walk/ScenarioLog.h"

namespace quorvel::walk {

/// A user who answers every dialog with something: what was asked for, nonsense, nothing.
class RandomDialogs final : public Dialogs {
  public:
    /// `files` are those that can be opened. All must outlive the dialogs.
    RandomDialogs(RandomNumbers& random, ScenarioLog& log, Files& files,
                  std::filesystem::path programFolder, std::filesystem::path passwordFile)
        : random_(random),
          log_(log),
          files_(files),
          programFolder_(std::move(programFolder)),
          passwordFile_(std::move(passwordFile)) {}

    /// A text as a user might type it, of up to 300 characters.
    std::string typedText();
    std::string typedNumber();

    /// Whether a file was chosen, to open or to save, since this was last set to false.
    bool fileWasChosen = false;

    std::string prompt(const Prompt& prompt) override;
    Answer message(const Message& message) override;
    std::optional<std::filesystem::path> openFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<std::filesystem::path> saveFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<PrintFont> chooseFont(const PrintFont& current) override;
    bool passwordWindow(std::string_view caption, const SubmitPassword& submit) override;

  private:
    std::optional<std::string> passwordFor(std::string_view caption);
    std::string storedPassword();
    /// Notes a dialog and its reply.
    void note(const scenario::Dialog& dialog, std::string_view reply);
    void noteFile(scenario::DialogKind kind, std::string_view title,
                  const std::optional<std::filesystem::path>& chosen);

    RandomNumbers& random_;
    ScenarioLog& log_;
    Files& files_;
    std::filesystem::path programFolder_;
    std::filesystem::path passwordFile_;
    std::string lastPassword_;
};

}  // namespace quorvel::walk
