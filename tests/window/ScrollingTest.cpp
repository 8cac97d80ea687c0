#include "window/Scrolling.h"

#include "WindowTest.h"

namespace quorvel {

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

    int after(int keyCode, bool control, ScrollBar Controls::*bar) {
        EXPECT_TRUE(form.Form_KeyDown(keyCode, control));
        return (form.controls().*bar).position();
    }
};

TEST_F(KeyboardScrolling, KeysGoThroughTheStudents) {
    EXPECT_EQ(after(key::down, false, &Controls::vsbS), 2);
    EXPECT_EQ(after(key::pageDown, false, &Controls::vsbS), 22);
    EXPECT_EQ(after(key::end, false, &Controls::vsbS), 26);
    EXPECT_EQ(after(key::down, false, &Controls::vsbS), 26);
    EXPECT_EQ(after(key::up, false, &Controls::vsbS), 25);
    EXPECT_EQ(after(key::pageUp, false, &Controls::vsbS), 5);
    EXPECT_EQ(after(key::home, false, &Controls::vsbS), 1);
}

TEST_F(KeyboardScrolling, KeysGoThroughTheAssignments) {
    EXPECT_EQ(after(key::right, false, &Controls::hsbA), 2);
    EXPECT_EQ(after(key::right, true, &Controls::hsbA), 17);
    EXPECT_EQ(after(key::end, true, &Controls::hsbA), 19);
    EXPECT_EQ(after(key::left, false, &Controls::hsbA), 18);
    EXPECT_EQ(after(key::left, true, &Controls::hsbA), 3);
    EXPECT_EQ(after(key::home, true, &Controls::hsbA), 1);
}

TEST_F(KeyboardScrolling, KeysGoThroughTheAssignmentList) {
    EXPECT_EQ(after(key::down, true, &Controls::vsbA), 2);
    EXPECT_EQ(after(key::pageDown, true, &Controls::vsbA), 12);
    EXPECT_EQ(after(key::up, true, &Controls::vsbA), 11);
    EXPECT_EQ(after(key::pageUp, true, &Controls::vsbA), 1);
}

TEST_F(KeyboardScrolling, KeysBelongToTheEditorWhileItIsOpen) {
    clickCell(0, 0);
    EXPECT_FALSE(form.Form_KeyDown(key::down, false));
    EXPECT_TRUE(form.controls().txtEnter.visible);
    EXPECT_EQ(form.controls().vsbS.position(), 1);
}

TEST_F(KeyboardScrolling, OtherKeysScrollNothing) {
    EXPECT_FALSE(form.Form_KeyDown('A', false));
    EXPECT_FALSE(form.Form_KeyDown(key::escape, false));
}

}  // namespace quorvel
