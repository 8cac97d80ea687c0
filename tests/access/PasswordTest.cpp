#include "access/Password.h"
#include "tests/fakes/TestProgram.h"

namespace quorvel {
namespace {

constexpr std::string_view startUpCaption = "Enter Password Please...";
constexpr std::string_view oldCaption = "Enter Old Password Please...";
constexpr std::string_view newCaption = "Enter New Password Please...";
constexpr std::string_view confirmCaption = "Confirm New Password Please...";
constexpr std::string_view wrongOldPassword =
    "Password Change Access Denied: The old password you gave is incorrect.  Please try again.";
constexpr std::string_view mismatch =
    "Password Not Changed: Password Mismatch (You typed two different passwords...try again "
    "please)";

class Password : public TestProgram {
  protected:
    void store(std::string_view bytes) { placeFile("/machine/password", bytes); }
    void storePassword(std::string_view password) { store(passwordRecord(password)); }
    static std::string passwordRecord(std::string_view password) {
        return record(std::string("\x08\0", 2) + static_cast<char>(password.size()) + '\0' +
                      std::string(password));
    }
    std::string stored() const { return bytesOf("/machine/password"); }
    std::string ownStored() const { return bytesOf(ownFile); }
    /// As for a user whom the system does not let write into its own folder.
    void refuseMachineFolder() { disk.protectedFolders.insert("/machine"); }
    void changePassword(std::string_view oldPassword, std::string_view newPassword) {
        if (!oldPassword.empty()) giveOldPassword(oldPassword);
        giveNewPassword(newPassword);
        confirmPassword(newPassword);
        expectChanged();
        mnuEditPassword(program);
    }
    void expectInForce(std::string_view password) {
        dialogs.expectPassword(startUpCaption, std::string(password));
        EXPECT_TRUE(frmPW(program));
    }

    static inline const std::filesystem::path ownFile = "/user/local/Quorvel/password";

    void expectTryAgain() { dialogs.expectMessage("Quorvel", "Access Denied: Try Again"); }
    void expectShuttingDown() { dialogs.expectMessage("Quorvel", "Access Denied: Shutting Down"); }
    void expectWrongOldPassword() {
        dialogs.expectMessage("Access Denied", wrongOldPassword, Icon::Critical, Buttons::Ok,
                              Answer::Ok);
    }
    /// The window says it already when the box comes.
    void expectNextStep(std::string_view instruction) {
        dialogs.expectMessage("Quorvel", instruction).whileOpen([this, instruction] {
            EXPECT_EQ(dialogs.passwordCaption(), instruction);
        });
    }
    void giveOldPassword(std::string_view password) {
        dialogs.expectPassword(oldCaption, std::string(password));
        expectNextStep(newCaption);
    }
    void giveNewPassword(std::string_view password) {
        dialogs.expectPassword(newCaption, std::string(password));
        expectNextStep(confirmCaption);
    }
    void confirmPassword(std::string_view password) {
        dialogs.expectPassword(confirmCaption, std::string(password));
    }
    void expectChanged() { dialogs.expectMessage("Edit Password", "Password Changed"); }
};

TEST_F(Password, ItsPlaceOnWindowsIsFixed) {
    EXPECT_STREQ(windowsPasswordFile, "C:\\Windows\\khymltp.wpt");
}

TEST_F(Password, AMissingFileMeansNoPassword) {
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, AnEmptyFileMeansNoPassword) {
    store("");
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, AStoredEmptyTextMeansNoPassword) {
    storePassword("");
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, AFileThatDoesNotHoldATextReadsAsTheTextOfItsValue) {
    store(record(std::string("\x02\0\x2A\0", 4)));
    dialogs.expectPassword(startUpCaption, "42");
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, TheRightEntryOpensTheMainWindow) {
    storePassword("Secret");
    dialogs.expectPassword(startUpCaption, "Secret");
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, TwoWrongEntriesAreForgiven) {
    storePassword("Secret");
    dialogs.expectPassword(startUpCaption, "x");
    expectTryAgain();
    dialogs.expectPassword(startUpCaption, "");
    expectTryAgain();
    dialogs.expectPassword(startUpCaption, "Secret");
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, TheThirdWrongEntryEndsTheProgram) {
    storePassword("Secret");
    dialogs.expectPassword(startUpCaption, "x");
    expectTryAgain();
    dialogs.expectPassword(startUpCaption, "y");
    expectTryAgain();
    dialogs.expectPassword(startUpCaption, "z");
    expectShuttingDown();
    EXPECT_FALSE(frmPW(program));
}

TEST_F(Password, CaseAndBlanksCount) {
    storePassword("Secret");
    for (const char* entry : {"secret", "Secret "}) {
        dialogs.expectPassword(startUpCaption, entry);
        expectTryAgain();
    }
    dialogs.expectPassword(startUpCaption, "SECRET");
    expectShuttingDown();
    EXPECT_FALSE(frmPW(program));
}

TEST_F(Password, ClosingTheStartUpWindowEndsTheProgram) {
    storePassword("Secret");
    dialogs.expectPassword(startUpCaption, "x");
    expectTryAgain();
    dialogs.expectPassword(startUpCaption, std::nullopt);
    EXPECT_FALSE(frmPW(program));
}

TEST_F(Password, ReloadingTheMainWindowDoesNotAskAgain) {
    storePassword("Secret");
    state.reloadForNew = true;
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, AFirstPasswordIsOnlyAskedForAndConfirmed) {
    giveNewPassword("Secret");
    confirmPassword("Secret");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Secret"));
    EXPECT_TRUE(window.calls.empty());
    EXPECT_FALSE(state.isDirty);
}

TEST_F(Password, AnEmptyFileAsksForNoOldPassword) {
    store("");
    giveNewPassword("Secret");
    confirmPassword("Secret");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Secret"));
}

TEST_F(Password, ChangingAsksForTheOldPasswordFirst) {
    storePassword("Old");
    giveOldPassword("Old");
    giveNewPassword("New");
    confirmPassword("New");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("New"));
}

TEST_F(Password, AnEmptyNewPasswordRemovesTheLock) {
    storePassword("Old");
    giveOldPassword("Old");
    giveNewPassword("");
    confirmPassword("");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord(""));
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, AMismatchLeavesTheFileAlone) {
    storePassword("Old");
    giveOldPassword("Old");
    giveNewPassword("New");
    confirmPassword("new");
    dialogs.expectMessage("Edit Password", mismatch);
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Old"));
}

TEST_F(Password, TwoWrongOldPasswordsAreForgiven) {
    storePassword("Old");
    dialogs.expectPassword(oldCaption, "old");
    expectWrongOldPassword();
    dialogs.expectPassword(oldCaption, "");
    expectWrongOldPassword();
    giveOldPassword("Old");
    giveNewPassword("New");
    confirmPassword("New");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("New"));
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Password, TheThirdWrongOldPasswordEndsTheProgramAtOnce) {
    storePassword("Old");
    state.isDirty = true;
    dialogs.expectPassword(oldCaption, "a");
    expectWrongOldPassword();
    dialogs.expectPassword(oldCaption, "b");
    expectWrongOldPassword();
    dialogs.expectPassword(oldCaption, "c");
    expectShuttingDown();
    mnuEditPassword(program);
    EXPECT_EQ(window.calls, Calls{"endProgram"});
    EXPECT_EQ(stored(), passwordRecord("Old"));
}

TEST_F(Password, ReopeningTheWindowForgivesTwoMore) {
    storePassword("Old");
    for (int opening = 0; opening < 2; ++opening) {
        dialogs.expectPassword(oldCaption, "a");
        expectWrongOldPassword();
        dialogs.expectPassword(oldCaption, "b");
        expectWrongOldPassword();
        dialogs.expectPassword(oldCaption, std::nullopt);
        mnuEditPassword(program);
    }
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Password, ClosingTheWindowAtAnyStageChangesNothing) {
    storePassword("Old");
    giveOldPassword("Old");
    dialogs.expectPassword(newCaption, std::nullopt);
    mnuEditPassword(program);
    giveOldPassword("Old");
    giveNewPassword("New");
    dialogs.expectPassword(confirmCaption, std::nullopt);
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Old"));
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(Password, TheLongestPasswordThatFitsIsStored) {
    const std::string longest(124, 'p');
    giveNewPassword(longest);
    confirmPassword(longest);
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord(longest));
    dialogs.expectPassword(startUpCaption, longest);
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, ALongerPasswordLeavesTheFileAsItIsAndIsReportedAsChanged) {
    storePassword("Old");
    const std::string tooLong(125, 'p');
    giveOldPassword("Old");
    giveNewPassword(tooLong);
    confirmPassword(tooLong);
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Old"));
}

TEST_F(Password, WritingKeepsTheBytesBehindTheRecord) {
    store(passwordRecord("Old") + "left behind");
    giveOldPassword("Old");
    giveNewPassword("New");
    confirmPassword("New");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("New") + "left behind");
}

TEST_F(Password, AFileThatCannotBeWrittenIsNotReported) {
    storePassword("Old");
    giveOldPassword("Old");
    giveNewPassword("New");
    files.readOnly = true;
    confirmPassword("New");
    expectChanged();
    mnuEditPassword(program);
    EXPECT_EQ(stored(), passwordRecord("Old"));
}

TEST_F(Password, AnOrdinaryUserHasAFileOfTheirOwn) {
    storePassword("Old");
    refuseMachineFolder();
    changePassword("Old", "New");
    EXPECT_EQ(stored(), passwordRecord("Old"));
    EXPECT_EQ(ownStored(), passwordRecord("New"));
    EXPECT_TRUE(files.folders.contains("/user/local/Quorvel"));
    expectInForce("New");
    changePassword("New", "Newer");
    EXPECT_EQ(ownStored(), passwordRecord("Newer"));
}

TEST_F(Password, AnOrdinaryUserRemovesTheLockWithAnEmptyFileOfTheirOwn) {
    storePassword("Old");
    refuseMachineFolder();
    changePassword("Old", "");
    EXPECT_EQ(ownStored(), passwordRecord(""));
    EXPECT_TRUE(frmPW(program));
}

TEST_F(Password, TheOwnFileGoesOnceTheMachineTookANewerOne) {
    refuseMachineFolder();
    changePassword("", "Own");
    disk.protectedFolders.clear();
    changePassword("Own", "Machine");
    EXPECT_EQ(stored(), passwordRecord("Machine"));
    EXPECT_EQ(ownStored(), "");
    expectInForce("Machine");
}

TEST_F(Password, WhatWasWrittenLastCountsAlsoWhereTheOwnFileCannotBeRemoved) {
    refuseMachineFolder();
    changePassword("", "Own");
    disk.protectedFolders.clear();
    disk.held.insert(ownFile);
    changePassword("Own", "Machine");
    EXPECT_EQ(stored(), passwordRecord("Machine"));
    expectInForce("Machine");
}

TEST_F(Password, AnOwnFileThatCannotBeReadLeavesTheMachinesInForce) {
    storePassword("Machine");
    placeFile(ownFile, passwordRecord("Own"));
    disk.locked.insert(ownFile);
    expectInForce("Machine");
}

class PasswordUnderFaults : public Password {
  protected:
    /// The password is being changed from "old" to "new" when operation number `operation` of the
    /// writing fails.
    void changeWith(FaultyFiles::Fault fault, int operation) {
        giveOldPassword("old");
        dialogs.expectPassword(newCaption, "new");
        dialogs.expectMessage("Quorvel", confirmCaption).whileOpen([=, this] {
            disk.breakAt(operation, fault);
        });
        confirmPassword("new");
        expectChanged();
        mnuEditPassword(program);
    }
    /// Each operation fails in its turn; `prepare` puts the old password where it lies.
    template <typename Prepare>
    void failEveryOperation(Prepare prepare) {
        for (const auto fault : {FaultyFiles::Fault::Fail, FaultyFiles::Fault::Shorten}) {
            int operations = 1;
            for (int operation = 0; operation <= operations; ++operation) {
                SCOPED_TRACE(operation);
                files.files.clear();
                prepare();
                changeWith(fault, operation);
                if (operation == 0) operations = disk.operations();
                disk.breakAt(0, fault);
                expectOldOrNew();
            }
        }
    }

  private:
    void expectOldOrNew() {
        const std::string inForce = ownStored().empty() ? stored() : ownStored();
        EXPECT_TRUE(inForce == passwordRecord("old") || inForce == passwordRecord("new"));
        EXPECT_LE(files.files.size(), 2U);
    }
};

TEST_F(PasswordUnderFaults, TheOldOneOrTheNewOneIsInForce) {
    failEveryOperation([&] { storePassword("old"); });
}

TEST_F(PasswordUnderFaults, TheOldOneOrTheNewOneIsInForceForAnOrdinaryUser) {
    refuseMachineFolder();
    failEveryOperation([&] { placeFile(ownFile, passwordRecord("old")); });
}

TEST_F(PasswordUnderFaults, TheOldOneOrTheNewOneIsInForceWhereAnOwnOneGoes) {
    failEveryOperation([&] {
        storePassword("older");
        placeFile(ownFile, passwordRecord("old"));
    });
}

}  // namespace
}  // namespace quorvel
