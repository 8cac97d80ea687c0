#include "window/Scrolling.h"

#include "WindowTest.h"

namespace quorvel {

namespace {

constexpr int pageUpKey = 33, pageDownKey = 34, endKey = 35, homeKey = 36;
constexpr int leftKey = 37, upKey = 38, rightKey = 39, downKey = 40;

}  // namespace

TEST(Scrolling, AWheelMovesWhatLiesUnderIt) {
    const Layout layout = layoutFor({1024, 768});
    EXPECT_EQ(barUnderWheel(layout, 100, false), &Controls::vsbS);
    EXPECT_EQ(barUnderWheel(layout, 353, false), &Controls::vsbS);
    EXPECT_EQ(barUnderWheel(layout, 354, false), &Controls::vsbA);
    EXPECT_EQ(barUnderWheel(layout, 514, false), &Controls::vsbA);
    EXPECT_EQ(barUnderWheel(layout, 400, true), &Controls::hsbA);
}

TEST(Scrolling, APageIsWhatTheWindowShows) {
    const Layout layout = layoutFor({1024, 768});
    EXPECT_EQ(pageOf(&Controls::hsbA, layout), 15);
    EXPECT_EQ(pageOf(&Controls::vsbA, layout), 10);
    EXPECT_EQ(pageOf(&Controls::vsbS, layout), 20);
}

class KeyboardScrolling : public WindowTest {
  protected:
    KeyboardScrolling() { fill(45, 33); }

    int after(int key, bool control, ScrollBar Controls::*bar) {
        EXPECT_TRUE(form.Form_KeyDown(key, control));
        return (form.controls().*bar).position();
    }
};

TEST_F(KeyboardScrolling, KeysGoThroughTheStudents) {
    EXPECT_EQ(after(downKey, false, &Controls::vsbS), 2);
    EXPECT_EQ(after(pageDownKey, false, &Controls::vsbS), 22);
    EXPECT_EQ(after(endKey, false, &Controls::vsbS), 26);
    EXPECT_EQ(after(downKey, false, &Controls::vsbS), 26);
    EXPECT_EQ(after(upKey, false, &Controls::vsbS), 25);
    EXPECT_EQ(after(pageUpKey, false, &Controls::vsbS), 5);
    EXPECT_EQ(after(homeKey, false, &Controls::vsbS), 1);
}

TEST_F(KeyboardScrolling, KeysGoThroughTheAssignments) {
    EXPECT_EQ(after(rightKey, false, &Controls::hsbA), 2);
    EXPECT_EQ(after(rightKey, true, &Controls::hsbA), 17);
    EXPECT_EQ(after(endKey, true, &Controls::hsbA), 19);
    EXPECT_EQ(after(leftKey, false, &Controls::hsbA), 18);
    EXPECT_EQ(after(leftKey, true, &Controls::hsbA), 3);
    EXPECT_EQ(after(homeKey, true, &Controls::hsbA), 1);
}

TEST_F(KeyboardScrolling, KeysGoThroughTheAssignmentList) {
    EXPECT_EQ(after(downKey, true, &Controls::vsbA), 2);
    EXPECT_EQ(after(pageDownKey, true, &Controls::vsbA), 12);
    EXPECT_EQ(after(upKey, true, &Controls::vsbA), 11);
    EXPECT_EQ(after(pageUpKey, true, &Controls::vsbA), 1);
}

TEST_F(KeyboardScrolling, KeysBelongToTheEditorWhileItIsOpen) {
    clickCell(0, 0);
    EXPECT_FALSE(form.Form_KeyDown(downKey, false));
    EXPECT_TRUE(form.controls().txtEnter.visible);
    EXPECT_EQ(form.controls().vsbS.position(), 1);
}

TEST_F(KeyboardScrolling, OtherKeysScrollNothing) {
    EXPECT_FALSE(form.Form_KeyDown('A', false));
    EXPECT_FALSE(form.Form_KeyDown(27, false));
}

}  // namespace quorvel
