#include "commands/DetailCommands.h"
#include "tests/fakes/CommandTest.h"

namespace quorvel {
namespace {

constexpr std::string_view titleQuestion =
    "What is the grade sheet's [class's] name? (recommended format: Class - Period)";

class DetailCommands : public CommandTest {
  protected:
    void expectCritical(std::string_view title, std::string_view text) {
        dialogs.expectMessage(title, text, Icon::Critical, Buttons::Ok, Answer::Ok);
    }

    void expectScaleBegins() {
        expectCritical("Grading Scale", "In the following questions, answer with integers only.");
    }
    void answerScale(char grade, std::string_view threshold, std::string_view answer) {
        dialogs.expectPrompt("Grading Scale",
                             std::string("What percentage is needed to receive an ") + grade + "?",
                             threshold, answer);
    }
    void answerScale(const std::vector<std::string_view>& answers) {
        constexpr std::string_view defaults[] = {"94", "86", "76", "70", "60"};
        for (std::size_t grade = 0; grade < answers.size(); ++grade)
            answerScale("ABCDE"[grade], defaults[grade], answers[grade]);
    }
    void answerRoundUp(Answer answer) {
        dialogs.expectMessage("Rounding Percentage To Find Letter Grade",
                              "Do you want to round percentages up when calculating grades?",
                              Icon::None, Buttons::YesNo, answer);
    }
    void expectAborted() {
        dialogs.expectMessage("Grading Scale", "Grading Scale Change Aborted", Icon::Information,
                              Buttons::Ok, Answer::Ok);
    }

    const PrintFont courier{"Courier New", 10};
};

std::string integerRecord(char value) {
    return record(std::string({value, '\0'}));
}

TEST_F(DetailCommands, TheClassNameIsTakenWhole) {
    const std::string name(60, 'c');
    sheet.sheetTitle = "Old - 1";
    dialogs.expectPrompt("Edit Grade Sheet [Class] Name", titleQuestion, "Old - 1", name);
    mnuEditGradesheetTitle(context);
    EXPECT_EQ(sheet.sheetTitle, name);
    EXPECT_TRUE(state.isDirty);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(DetailCommands, WithoutAClassNameTheOldOneStaysAndTheSheetIsMarkedUnsaved) {
    sheet.sheetTitle = "Old - 1";
    dialogs.expectPrompt("Edit Grade Sheet [Class] Name", titleQuestion, "Old - 1", "");
    expectCritical("Cancellation", "Edit Grade sheet [Class] Name Cancelled");
    mnuEditGradesheetTitle(context);
    EXPECT_EQ(sheet.sheetTitle, "Old - 1");
    EXPECT_TRUE(state.isDirty);
}

TEST_F(DetailCommands, TheSchoolNameIsTakenWholeAndWritten) {
    const std::string name(60, 's');
    dialogs.expectPrompt("Edit School Name", "What is the school's name?", "", name);
    mnuEditSchoolName(context);
    EXPECT_EQ(state.schoolName, name);
    EXPECT_EQ(bytesOf("SchoolName.qrv"), record(std::string("\x3C\0", 2) + name));
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, WithoutASchoolNameTheOldOneIsWrittenAgain) {
    state.schoolName = "Old School";
    dialogs.expectPrompt("Edit School Name", "What is the school's name?", "Old School", "");
    expectCritical("Cancellation", "Edit School Name Cancelled");
    dialogs.whileOpen([&] { EXPECT_EQ(bytesOf("SchoolName.qrv"), ""); });
    mnuEditSchoolName(context);
    EXPECT_EQ(state.schoolName, "Old School");
    EXPECT_EQ(bytesOf("SchoolName.qrv"), record(std::string("\x0A\0", 2) + "Old School"));
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, TheTeacherNameIsCutToTwentyCharactersAndWritten) {
    dialogs.expectPrompt("Edit Teacher's Name", "What is your name? (20 Characters Max)", "",
                         "0123456789abcdefghijklmno");
    mnuEditTN(context);
    EXPECT_EQ(state.teacherName, "0123456789abcdefghij");
    EXPECT_EQ(bytesOf("TN.qrv"), record(std::string("\x14\0", 2) + "0123456789abcdefghij"));
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, WithoutATeacherNameTheOldOneIsWrittenAgain) {
    state.teacherName = "Ms. Old";
    dialogs.expectPrompt("Edit Teacher's Name", "What is your name? (20 Characters Max)", "Ms. Old",
                         "");
    expectCritical("Cancellation", "Edit Teacher Name Cancelled");
    mnuEditTN(context);
    EXPECT_EQ(state.teacherName, "Ms. Old");
    EXPECT_EQ(bytesOf("TN.qrv"), record(std::string("\x07\0", 2) + "Ms. Old"));
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, AGradingScaleIsAskedForGradeByGradeAndWritten) {
    expectScaleBegins();
    answerScale({"90", "80", "70", "60", "50"});
    answerRoundUp(Answer::Yes);
    mnuGradingScale(context);
    EXPECT_EQ(state.gradingScale, (GradingScale{{90, 80, 70, 60, 50}, "0.5"}));
    EXPECT_EQ(bytesOf("GradingScale.qrv"),
              integerRecord(90) + integerRecord(80) + integerRecord(70) + integerRecord(60) +
                  integerRecord(50) + record(std::string("\x03\0", 2) + "0.5"));
    EXPECT_EQ(window.calls, Calls{"RefreshGrid"});
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, NotRoundingUpIsZero) {
    state.gradingScale.roundUp = "0.5";
    expectScaleBegins();
    answerScale({"99", "98", "97", "96", "95"});
    answerRoundUp(Answer::No);
    mnuGradingScale(context);
    EXPECT_EQ(state.gradingScale, (GradingScale{{99, 98, 97, 96, 95}, "0"}));
}

TEST_F(DetailCommands, EachPercentageMustLieInsideItsOpenInterval) {
    expectScaleBegins();
    for (const std::string_view answer : {"5", "100", "abc", "-90", "1000", "4.9"})
        answerScale('A', "94", answer);
    answerScale('A', "94", "85");
    for (const std::string_view answer : {"90", "85", "4"}) answerScale('B', "86", answer);
    answerScale('B', "86", "5");
    for (const std::string_view answer : {"5", "3"}) answerScale('C', "76", answer);
    answerScale('C', "76", "4");
    for (const std::string_view answer : {"4", "2"}) answerScale('D', "70", answer);
    answerScale('D', "70", "3");
    for (const std::string_view answer : {"3", "1"}) answerScale('E', "60", answer);
    answerScale('E', "60", "2");
    answerRoundUp(Answer::No);
    mnuGradingScale(context);
    EXPECT_EQ(state.gradingScale, (GradingScale{{85, 5, 4, 3, 2}, "0"}));
}

TEST_F(DetailCommands, FractionsAreComparedAsTypedAndRoundedHalvesToEvenAtTheEnd) {
    expectScaleBegins();
    answerScale({"92.5", "91.5", "80.6", "80.5", "1.01"});
    answerRoundUp(Answer::No);
    mnuGradingScale(context);
    EXPECT_EQ(state.gradingScale, (GradingScale{{92, 92, 81, 80, 1}, "0"}));
}

TEST_F(DetailCommands, CancellingOneGradeSkipsTheRestKeepsTheScaleAndWritesItAgain) {
    for (std::size_t answered = 0; answered < 5; ++answered) {
        files.files.clear();
        std::vector<std::string_view> answers(answered + 1, "");
        constexpr std::string_view valid[] = {"90", "80", "70", "60"};
        for (std::size_t grade = 0; grade < answered; ++grade) answers[grade] = valid[grade];
        expectScaleBegins();
        answerScale(answers);
        expectAborted();
        mnuGradingScale(context);
        EXPECT_EQ(state.gradingScale, GradingScale{});
        EXPECT_EQ(bytesOf("GradingScale.qrv"),
                  integerRecord(94) + integerRecord(86) + integerRecord(76) + integerRecord(70) +
                      integerRecord(60) + record(std::string("\x01\0", 2) + "0"));
    }
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(DetailCommands, AFontThatIsConfirmedIsWrittenToTheFileThatStartUpDoesNotRead) {
    state.printFont = courier;
    dialogs.expectFont(courier, PrintFont{"Arial", 9.75F});
    dialogs.expectMessage("Change Default Font",
                          "Is Arial the correct font type and 9.75 the correct font size?",
                          Icon::None, Buttons::YesNo, Answer::Yes);
    mnuFont(context);
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 9.75F}));
    EXPECT_EQ(bytesOf("DefaultPrintFont.vzr"),
              record(std::string("\x08\0\x05\0", 4) + "Arial") +
                  record(std::string("\x04\0\x00\x00\x1C\x41", 6)));
    EXPECT_EQ(bytesOf("DefaultPrintFont.qrv"), "");
    EXPECT_FALSE(state.isDirty);
}

TEST_F(DetailCommands, AFontThatIsNotConfirmedStaysInForceAndIsNotWritten) {
    state.printFont = courier;
    dialogs.expectFont(courier, PrintFont{"Arial", 12});
    dialogs.expectMessage("Change Default Font",
                          "Is Arial the correct font type and 12 the correct font size?",
                          Icon::None, Buttons::YesNo, Answer::No);
    dialogs.whileOpen([&] { EXPECT_EQ(state.printFont, (PrintFont{"Arial", 12})); });
    dialogs.expectMessage("Quorvel", "Change Default Font Canceled");
    mnuFont(context);
    EXPECT_EQ(state.printFont, (PrintFont{"Arial", 12}));
    EXPECT_TRUE(files.files.empty());
}

TEST_F(DetailCommands, AFontDialogThatIsCancelledKeepsTheFontAndTheQuestionStillFollows) {
    state.printFont = courier;
    dialogs.expectFont(courier, std::nullopt);
    dialogs.expectMessage("Change Default Font",
                          "Is Courier New the correct font type and 10 the correct font size?",
                          Icon::None, Buttons::YesNo, Answer::Yes);
    mnuFont(context);
    EXPECT_EQ(state.printFont, courier);
    EXPECT_FALSE(bytesOf("DefaultPrintFont.vzr").empty());
}

TEST_F(DetailCommands, SettingsThatCannotBeWrittenAreNotReported) {
    files.readOnly = true;
    dialogs.expectPrompt("Edit School Name", "What is the school's name?", "", "New");
    mnuEditSchoolName(context);
    EXPECT_EQ(state.schoolName, "New");
}

}  // namespace
}  // namespace quorvel
