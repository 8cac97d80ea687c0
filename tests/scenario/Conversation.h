#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "core/ports/Dialogs.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// Runs the program's own code on a second thread that stands still whenever a dialog is open, so
/// that dialogs can be looked at and answered one by one. Only one of the two threads runs at a
/// time.
class Conversation final : public Dialogs {
  public:
    /// Where the paths of file dialogs lie.
    using PathResolver = std::function<std::filesystem::path(std::string_view path)>;

    explicit Conversation(PathResolver resolve) : resolve_(std::move(resolve)) {}
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;
    /// An action that is under way is thrown out of its dialog.
    ~Conversation() override;

    /// Begins an action of the program. The one before must have finished.
    void begin(std::function<void()> action);
    /// The dialog that is open; nothing when the action has finished. Throws what the action threw.
    std::optional<Dialog> openDialog();
    void answer(const Reply& reply);

    // What the program asks.
    std::string prompt(const Prompt& prompt) override;
    Answer message(const Message& message) override;
    std::optional<std::filesystem::path> openFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<std::filesystem::path> saveFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<PrintFont> chooseFont(const PrintFont& current) override;
    bool passwordWindow(std::string_view caption, const SubmitPassword& submit) override;

  private:
    enum class Turn { Nobodys, Programs, Users };
    struct Abandoned {};

    Reply ask(Dialog dialog);
    void handTurnTo(Turn turn);

    PathResolver resolve_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread program_;
    Turn turn_ = Turn::Nobodys;
    bool abandoned_ = false;
    std::optional<Dialog> dialog_;
    Reply reply_;
    std::exception_ptr error_;
};

}  // namespace quorvel::scenario
