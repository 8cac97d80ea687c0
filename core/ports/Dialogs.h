#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/PrintFont.h"
#include "core/ProgramName.h"

namespace quorvel {

enum class Icon { None, Critical, Information };
enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// What a text record holds, and so what can be typed for a text.
inline constexpr std::size_t longestTextAnswer = 126;

struct Prompt {
    std::string_view title;
    std::string_view question;  // lines are separated by CR LF
    std::string_view defaultAnswer = "";
    /// What the box takes; a longer default answer is cut.
    std::size_t longestAnswer = longestTextAnswer;
};

struct Message {
    std::string_view text;  // lines are separated by CR LF
    std::string_view title = programName;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
};

/// What a password window does after one entry was submitted.
enum class PasswordStep { GoOn, Close };

/// Gives the open password window another caption, at once.
using SetCaption = std::function<void(std::string_view caption)>;

/// Looks at an entry while the password window is still open.
using SubmitPassword =
    std::function<PasswordStep(std::string_view entry, const SetCaption& setCaption)>;

/// Everything that asks the user something. Every call is modal and returns when it was answered.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// The answer; empty when the box was cancelled, which counts as an empty answer everywhere.
    virtual std::string prompt(const Prompt& prompt) = 0;
    virtual Answer message(const Message& message) = 0;

    /// The chosen file, which exists; nothing when cancelled.
    virtual std::optional<std::filesystem::path> openFile(
        std::string_view title, const std::filesystem::path& startFolder) = 0;
    /// The chosen place, with ".qrv" where no extension was typed; nothing when cancelled.
    virtual std::optional<std::filesystem::path> saveFile(
        std::string_view title, const std::filesystem::path& startFolder) = 0;

    /// The chosen font; nothing when cancelled.
    virtual std::optional<PrintFont> chooseFont(const PrintFont& current) = 0;

    /// Shows a window with a masked text box and a button "Submit", and calls `submit` with each
    /// entry until it asks to close. The box is empty again after each entry. Message boxes shown
    /// by `submit` belong to this window. Returns false when the window's close box ended it.
    virtual bool passwordWindow(std::string_view caption, const SubmitPassword& submit) = 0;
};

}  // namespace quorvel
