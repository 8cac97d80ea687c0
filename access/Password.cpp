#include "access/Password.h"

#include <filesystem>
#include <string>

#include "storage/Reading.h"
#include "storage/RecordFile.h"

namespace quorvel {

namespace {

constexpr int allowedAttempts = 3;

constexpr std::string_view shuttingDown = "Access Denied: Shutting Down";
constexpr std::string_view askForOld = "Enter Old Password Please...";
constexpr std::string_view askForNew = "Enter New Password Please...";
constexpr std::string_view askForConfirmation = "Confirm New Password Please...";

/// The user's own password file, for those whom the system does not let write the machine's.
std::filesystem::path ownFolder(const Places& places) {
    return places.localData / "Quorvel";
}
std::filesystem::path ownFile(const Places& places) {
    return ownFolder(places) / places.passwordFile.filename();
}

/// The password in force; empty when none is set. The user's own file, where there is one, is the
/// one that was written last.
std::string readPassword(CommandContext& context) {
    const Places& places = context.state.places;
    ReadBytes record = readBytes(context.ports.files, ownFile(places), recordSize);
    if (record.problem != FileProblem::None)
        record = readBytes(context.ports.files, places.passwordFile, recordSize);
    return textOf(RecordReader(record.bytes).taggedValue());
}

/// Failures are not reported. A password that a record cannot hold leaves the file as it is.
void writePassword(CommandContext& context, std::string_view password) {
    if (password.size() > longestTaggedText) return;
    RecordWriter record;
    record.taggedValue(std::string(password));
    const Places& places = context.state.places;
    Files& files = context.ports.files;
    const std::filesystem::path own = ownFile(places);
    if (writeRecords(files, places.passwordFile, record.bytes())) {
        if (files.remove(own) || !files.exists(own)) return;
        // It would go on counting.
    } else {
        files.createFolder(ownFolder(places));
    }
    writeRecords(files, own, record.bytes());
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
            caption, [this](std::string_view entry, const SetCaption& setCaption) {
                return submit(entry, setCaption);
            });
        if (failedAttempts_ == allowedAttempts) context_.window.endProgram();
    }

  private:
    enum class ChangeStage {
        NotYet,      // the old password was not given yet
        Yes,         // it was given, or there is none: waiting for the new one
        YesConfirm,  // waiting for the new one once more
    };

    PasswordStep submit(std::string_view entry, const SetCaption& setCaption) {
        switch (changeStage_) {
            case ChangeStage::NotYet:
                return takeOldPassword(entry, setCaption);
            case ChangeStage::Yes:
                newPassword_ = entry;
                changeStage_ = ChangeStage::YesConfirm;
                return askFor(askForConfirmation, setCaption);
            case ChangeStage::YesConfirm:
                return takeConfirmation(entry);
        }
        return PasswordStep::Close;
    }

    PasswordStep takeOldPassword(std::string_view entry, const SetCaption& setCaption) {
        if (entry == storedPassword_) {
            changeStage_ = ChangeStage::Yes;
            return askFor(askForNew, setCaption);
        }
        Dialogs& dialogs = context_.ports.dialogs;
        if (++failedAttempts_ == allowedAttempts) {
            dialogs.message({.text = shuttingDown});
            return PasswordStep::Close;
        }
        dialogs.message({.text = "Password Change Access Denied: The old password you gave is "
                                 "incorrect.  Please try again.",
                         .title = "Access Denied",
                         .icon = Icon::Critical});
        return PasswordStep::GoOn;
    }

    PasswordStep takeConfirmation(std::string_view entry) {
        const bool confirmed = entry == newPassword_;
        if (confirmed) writePassword(context_, newPassword_);
        context_.ports.dialogs.message(
            {.text = confirmed ? "Password Changed"
                               : "Password Not Changed: Password Mismatch (You typed two "
                                 "different passwords...try again please)",
             .title = "Edit Password"});
        return PasswordStep::Close;
    }

    /// The instruction is the window's caption from now on, and is said once in a box, too.
    PasswordStep askFor(std::string_view instruction, const SetCaption& setCaption) {
        setCaption(instruction);
        context_.ports.dialogs.message({.text = instruction});
        return PasswordStep::GoOn;
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
    if (context.state.reloadForNew || storedPassword.empty()) return true;

    Dialogs& dialogs = context.ports.dialogs;
    bool accepted = false;
    int failedAttempts = 0;
    const auto submit = [&](std::string_view entry, const SetCaption&) {
        accepted = entry == storedPassword;
        if (accepted) return PasswordStep::Close;
        const bool last = ++failedAttempts == allowedAttempts;
        dialogs.message({.text = last ? shuttingDown : "Access Denied: Try Again"});
        return last ? PasswordStep::Close : PasswordStep::GoOn;
    };
    dialogs.passwordWindow("Enter Password Please...", submit);
    return accepted;
}

void mnuEditPassword(CommandContext& context) {
    frmPWEdit(context).show();
}

}  // namespace quorvel
