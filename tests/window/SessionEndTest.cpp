#include "storage/Reading.h"
#include "storage/SheetFile.h"

#include "WindowTest.h"

namespace quorvel {

class SessionEnd : public WindowTest {
  protected:
    static constexpr const char* copy = "/Quorvel/Grades/Recovered.qrv";

    bool isKept() { return files.exists(copy); }

    std::string scoreInCopy(int student) {
        return decodeSheet(readBytes(files, copy).bytes).score(1, student).text();
    }

    void expectOffer(Answer answer) {
        dialogs.expectMessage("Save Current Grade Sheet?",
                              "Do you want to save the grade sheet you are currently working on?",
                              Icon::None, Buttons::YesNo, answer);
    }
};

TEST_F(SessionEnd, KeepsACopyWhileTheQuestionIsOpen) {
    fill(1, 1);
    expectOffer(Answer::No);
    dialogs.whileOpen([this] { EXPECT_TRUE(isKept()); });
    form.sessionMayEnd();
    EXPECT_FALSE(isKept());
    form.sessionEnds();
    EXPECT_TRUE(form.hasEnded());
    EXPECT_FALSE(isKept());
}

TEST_F(SessionEnd, LeavesEverythingAsItWasWhenAnotherProgramStopsIt) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    expectOffer(Answer::No);
    form.sessionMayEnd();
    form.sessionGoesOn();
    EXPECT_TRUE(form.isOpen());
    EXPECT_FALSE(form.hasEnded());
    EXPECT_TRUE(form.state().isDirty);
    EXPECT_EQ(form.sheet().score(1, 1).text(), "9");
    enter(0, 0, "10");
    expectOffer(Answer::No);
    form.closeBox();
    EXPECT_TRUE(form.hasEnded());
}

TEST_F(SessionEnd, APromptSequenceGoesOnBehindIt) {
    fill(2, 1);
    const auto question = [](std::string_view student) {
        return "Student: " + std::string(student) +
               "\r\n\r\nAssignment: Quiz\r\nValue: 10\r\n\r\nWhat was this student's score on this "
               "assignment?\r\n(Any non-integer values will be rounded...E = Excused)";
    };
    constexpr const char* title = "Input Assignment Scores";
    dialogs.expectPrompt(title, "What assignment do you want to input scores for?", "", "1")
        .expectPrompt(title, question("01"), "0", "5")
        .expectPrompt(title, question("02"), "0", "6")
        .whileOpen([this] {
            form.sessionMayEnd();
            form.sessionGoesOn();
        });
    expectOffer(Answer::Yes);
    dialogs.whileOpen([this] { EXPECT_EQ(scoreInCopy(1), "5"); })
        .expectSaveFile("Save Gradesheet", "/Quorvel/Grades", "/Quorvel/Grades/class.qrv");
    form.chooseMenu(menuItemIndex("mnuInputA"));
    EXPECT_EQ(form.sheet().score(1, 1).text(), "5");
    EXPECT_EQ(form.sheet().score(1, 2).text(), "6");
    EXPECT_FALSE(isKept());
}

TEST_F(SessionEnd, WithoutAQuestionBeforeKeepsACopy) {
    fill(1, 1);
    clickCell(0, 0);
    form.txtEnter_Change("9");
    form.sessionEnds();
    EXPECT_TRUE(form.hasEnded());
    EXPECT_TRUE(isKept());
}

TEST_F(SessionEnd, AskedForAgainKeepsACopyAgain) {
    fill(1, 1);
    expectOffer(Answer::No);
    form.sessionMayEnd();
    form.sessionGoesOn();
    form.sessionEnds();
    EXPECT_TRUE(isKept());
}

TEST_F(SessionEnd, WithoutChangesAsksNothingAndKeepsNothing) {
    form.sessionMayEnd();
    form.sessionEnds();
    EXPECT_TRUE(form.hasEnded());
    EXPECT_FALSE(isKept());
}

}  // namespace quorvel
