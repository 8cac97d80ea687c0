#include "window/GridDescription.h"

#include "WindowTest.h"

namespace quorvel {

/// Two students, "01" and "02", and two assignments of 10 points, both called "Quiz".
class GridDescriptions : public WindowTest {
  protected:
    GridDescriptions() {
        fill(2, 2);
        enter(0, 0, "9");
        enter(0, 1, "e");
        enter(1, 1, "10");
    }

    std::string name(int number) { return description.at(number).name; }
    std::string value(int number) { return description.at(number).value; }

    GridDescription description{form};
};

TEST_F(GridDescriptions, EachCellSaysWhoseScoreItIsAndWhatItIsWorth) {
    EXPECT_EQ(name(1), "01, Quiz: 9 of 10");
    EXPECT_EQ(value(1), "9");
    EXPECT_EQ(name(2), "01, Quiz: excused");
    EXPECT_EQ(value(2), "E");
    EXPECT_EQ(name(7), "02, Quiz: 0 of 10");
}

TEST_F(GridDescriptions, ResultsFollowTheScoresOfTheRow) {
    EXPECT_EQ(name(3), "01, points earned: 9");
    EXPECT_EQ(name(4), "01, points possible: 10");
    EXPECT_EQ(name(5), "01, percentage: 90%");
    EXPECT_EQ(name(6), "01, grade: B");
    EXPECT_EQ(value(5), "90%");
    EXPECT_EQ(name(9), "02, points earned: 10");
    EXPECT_EQ(name(11), "02, percentage: 50%");
}

TEST_F(GridDescriptions, FiguresOfTheClassComeLast) {
    EXPECT_EQ(description.count(), 18);
    EXPECT_EQ(name(13), "Quiz, average score: 4");
    EXPECT_EQ(name(14), "Quiz, average percent: 45%");
    EXPECT_EQ(name(15), "Quiz, average score: 10");
    EXPECT_EQ(name(17), "Class average: 70%");
    EXPECT_EQ(name(18), "Class grade: D");
}

TEST_F(GridDescriptions, WithoutANumericScoreThereIsNoAverage) {
    enter(1, 1, "e");
    EXPECT_EQ(name(15), "Quiz, average score: none");
    EXPECT_EQ(value(15), "");
}

TEST_F(GridDescriptions, AnAliasHidesTheName) {
    dialogs
        .expectPrompt("Add Student",
                      "What is the student's full name?\r\n"
                      "(Recommended Format: LastName, FirstName)",
                      "", "00, Jane")
        .expectPrompt("Add Student", "What is the student's alias? (no more than 15 characters)",
                      "", "Cat");
    form.chooseMenu(menuItemIndex("mnuAddS"));
    EXPECT_EQ(name(1), "00, Jane, Quiz: 0 of 10");
    form.lblStudent_Click();
    EXPECT_EQ(name(1), "Cat, Quiz: 0 of 10");
}

TEST_F(GridDescriptions, PlacesAreThoseOnTheScreen) {
    const auto placeOf = [this](int number) {
        const Rectangle place = description.at(number).place;
        return std::array{place.left, place.top, place.width, place.height};
    };
    EXPECT_EQ(placeOf(1), (std::array{150, 14, 30, 14}));
    EXPECT_EQ(placeOf(8), (std::array{180, 28, 30, 14}));
    EXPECT_EQ(placeOf(5), (std::array{150 + 378 + 150, 14, 40, 14}));
    EXPECT_EQ(placeOf(13), (std::array{150, 312, 30, 14}));
    EXPECT_EQ(placeOf(18), (std::array{150 + 51, 340, 8, 14}));
    EXPECT_EQ(description.numberAt(181, 29), 8);
    EXPECT_EQ(description.numberAt(150, 13), 0);
    EXPECT_EQ(description.numberAt(10, 20), 0);
}

TEST_F(GridDescriptions, WhatIsScrolledAwayIsNotDescribed) {
    fill(0, 15);
    form.scroll(&Controls::hsbA, 3);
    EXPECT_EQ(name(1), "01, Quiz: 0 of 10");
    EXPECT_EQ(description.count(), 2 * (15 + 4) + 2 * 15 + 2);
}

TEST_F(GridDescriptions, TheEditorIsKnownByItsCell) {
    EXPECT_EQ(description.editedNumber(), 0);
    EXPECT_EQ(editorName(form), "");
    clickCell(1, 1);
    EXPECT_EQ(description.editedNumber(), 8);
    EXPECT_EQ(editorName(form), "02, Quiz");
}

TEST_F(GridDescriptions, AnEmptySheetHasNothingToDescribe) {
    FakeCanvas otherCanvas;
    frmQRV empty{{dialogs, files, printer, otherCanvas, clock, shell},
                 {.programFolder = "/Other",
                  .passwordFile = "/machine/password",
                  .documents = "/user/Documents",
                  .localData = "/user/local",
                  .temporary = "/temporary"},
                 CodePage::windows1252()};
    empty.start();
    EXPECT_EQ(GridDescription(empty).count(), 0);
    EXPECT_EQ(GridDescription(empty).numberAt(160, 20), 0);
}

}  // namespace quorvel
