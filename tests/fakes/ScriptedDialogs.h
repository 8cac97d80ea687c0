#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/ports/Dialogs.h"

namespace quorvel {

/// Dialogs that a test scripts: they must come in this order and with exactly these words, icons,
/// buttons and defaults, or the test fails. What was scripted and never came fails it, too.
class ScriptedDialogs final : public Dialogs {
  public:
    ScriptedDialogs() = default;
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
    ~ScriptedDialogs() override;

    /// An empty answer is that of Cancel, too.
    ScriptedDialogs& expectPrompt(std::string_view title, std::string_view question,
                                  std::string_view defaultAnswer, std::string_view answer);
    ScriptedDialogs& expectMessage(std::string_view title, std::string_view text, Icon icon,
                                   Buttons buttons, Answer answer);
    /// A box with an OK button and no icon.
    ScriptedDialogs& expectMessage(std::string_view title, std::string_view text);
    ScriptedDialogs& expectOpenFile(std::string_view title,
                                    const std::filesystem::path& startFolder,
                                    const std::optional<std::filesystem::path>& chosen);
    ScriptedDialogs& expectSaveFile(std::string_view title,
                                    const std::filesystem::path& startFolder,
                                    const std::optional<std::filesystem::path>& chosen);
    ScriptedDialogs& expectFont(const PrintFont& current, const std::optional<PrintFont>& chosen);
    /// One entry into the password window that is open then; nothing closes it by its box.
    ScriptedDialogs& expectPassword(std::string_view caption, std::optional<std::string> entry);

    /// Is called while the dialog scripted last is open.
    ScriptedDialogs& whileOpen(std::function<void()> check);

    bool allCame() const { return steps_.empty(); }
    /// The caption that the password window shows, or showed last.
    const std::string& passwordCaption() const { return passwordCaption_; }

    std::string prompt(const Prompt& prompt) override;
    Answer message(const Message& message) override;
    std::optional<std::filesystem::path> openFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<std::filesystem::path> saveFile(
        std::string_view title, const std::filesystem::path& startFolder) override;
    std::optional<PrintFont> chooseFont(const PrintFont& current) override;
    bool passwordWindow(std::string_view caption, const SubmitPassword& submit) override;

  private:
    using Reply = std::variant<std::string, Answer, std::optional<std::filesystem::path>,
                               std::optional<PrintFont>, std::optional<std::string>>;
    struct Step {
        std::string dialog;  // everything about it, as text
        Reply reply;
        std::function<void()> check;
    };

    ScriptedDialogs& expect(std::string dialog, Reply reply);
    /// The scripted reply to a dialog that came. Throws std::logic_error where none can be given.
    template <typename ReplyKind>
    ReplyKind replyTo(const std::string& dialog);

    std::deque<Step> steps_;
    std::string passwordCaption_;
};

}  // namespace quorvel
