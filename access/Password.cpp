#include "access/Password.h"

#include <string>

#include "storage/RecordFile.h"

namespace quorvel {

namespace {

constexpr int allowedAttempts = 3;

constexpr std::string_view shuttingDown = "Access Denied: Shutting Down";
constexpr std::string_view askForOld = "Enter Old Password Please...";
constexpr std::string_view askForNew = "Enter New Password Please...";
constexpr std::string_view askForConfirmation = "Confirm New Password Please...";

PasswordStep closeWindow() {
    return {.close = true, .caption = {}};
}

/// The window stays, with this caption.
PasswordStep goOn(std::string_view caption) {
    return {.close = false, .caption = std::string(caption)};
}

/// The password in force; empty when none is set.
std::string readPassword(CommandContext& context) {
    const Bytes record =
        context.ports.files.read(context.state.passwordFile, recordSize).value_or(Bytes{});
    return textOf(RecordReader(record).taggedValue());
}

/// Failures are not reported. A password that a record cannot hold leaves the file as it is.
void writePassword(CommandContext& context, std::string_view password) {
    if (password.size() > longestTaggedText) return;
    RecordWriter record;
    record.taggedValue(std::string(password));
    writeRecords(context.ports.files, context.state.passwordFile, record.bytes());
}

/// The conversation of the window that changes the password.
class frmPWEdit {
  public:
    explicit frmPWEdit(CommandContext& context)
        : context_(context),
          storedPassword_(readPassword(context)),
          changeStage_(storedPassword_.empty() ? ChangeStage::Yes : ChangeStage::NotYet) {}

    void show() {
        const std::string_view caption = changeStage_ == ChangeStage::Yes ? askForNew : askForOld;
        context_.ports.dialogs.passwordWindow(
            caption, [this](std::string_view entry) { return submit(entry); });
        if (failedAttempts_ == allowedAttempts) context_.window.endProgram();
    }

  private:
    enum class ChangeStage {
        NotYet,      // the old password was not given yet
        Yes,         // it was given, or there is none: waiting for the new one
        YesConfirm,  // waiting for the new one once more
    };

    PasswordStep submit(std::string_view entry) {
        switch (changeStage_) {
            case ChangeStage::NotYet:
                return takeOldPassword(entry);
            case ChangeStage::Yes:
                newPassword_ = entry;
                changeStage_ = ChangeStage::YesConfirm;
                return askFor(askForConfirmation);
            case ChangeStage::YesConfirm:
                return takeConfirmation(entry);
        }
        return closeWindow();
    }

    PasswordStep takeOldPassword(std::string_view entry) {
        if (entry == storedPassword_) {
            changeStage_ = ChangeStage::Yes;
            return askFor(askForNew);
        }
        Dialogs& dialogs = context_.ports.dialogs;
        if (++failedAttempts_ == allowedAttempts) {
            dialogs.message({.text = shuttingDown});
            return closeWindow();
        }
        dialogs.message({.text = "Password Change Access Denied: The old password you gave is "
                                 "incorrect.  Please try again.",
                         .title = "Access Denied",
                         .icon = Icon::Critical});
        return goOn(askForOld);
    }

    PasswordStep takeConfirmation(std::string_view entry) {
        const bool confirmed = entry == newPassword_;
        if (confirmed) writePassword(context_, newPassword_);
        context_.ports.dialogs.message(
            {.text = confirmed ? "Password Changed"
                               : "Password Not Changed: Password Mismatch (You typed two "
                                 "different passwords...try again please)",
             .title = "Edit Password"});
        return closeWindow();
    }

    /// The instruction is the window's caption from now on, and is said once in a box, too.
    PasswordStep askFor(std::string_view instruction) {
        context_.ports.dialogs.message({.text = instruction});
        return goOn(instruction);
    }

    CommandContext& context_;
    std::string storedPassword_;
    ChangeStage changeStage_;
    std::string newPassword_;
    int failedAttempts_ = 0;
};

}  // namespace

bool frmPW(CommandContext& context) {
    const std::string storedPassword = readPassword(context);
    if (reloadForNew || storedPassword.empty()) return true;

    constexpr std::string_view caption = "Enter Password Please...";
    Dialogs& dialogs = context.ports.dialogs;
    bool accepted = false;
    int failedAttempts = 0;
    dialogs.passwordWindow(caption, [&](std::string_view entry) -> PasswordStep {
        accepted = entry == storedPassword;
        if (accepted) return closeWindow();
        const bool last = ++failedAttempts == allowedAttempts;
        dialogs.message({.text = last ? shuttingDown : "Access Denied: Try Again"});
        return last ? closeWindow() : goOn(caption);
    });
    return accepted;
}

void mnuEditPassword(CommandContext& context) {
    frmPWEdit(context).show();
}

}  // namespace quorvel
