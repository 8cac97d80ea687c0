#include <vector>

#include "window/Layout.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::vector<Rectangle> placesOf(const Layout& layout) {
    return {layout.lblSN,       layout.lblStudent, layout.vsbS,        layout.txtSN,
            layout.txtS,        layout.gridCanvas, layout.hsbA,        layout.bottomCanvas,
            layout.lblAvgScore, layout.Label1,     layout.lblClassAvg, layout.lblA1,
            layout.lblA2,       layout.lblAV,      layout.lblAN,       layout.txtA,
            layout.txtAV,       layout.vsbA};
}

bool overlap(const Rectangle& a, const Rectangle& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

void expectNothingOverlapsOrLeavesTheWindow(const Layout& layout) {
    const std::vector<Rectangle> places = placesOf(layout);
    for (std::size_t one = 0; one < places.size(); ++one) {
        EXPECT_LE(places[one].left + places[one].width, layout.clientWidth) << one;
        EXPECT_LE(places[one].top + places[one].height, layout.clientHeight) << one;
        for (std::size_t other = one + 1; other < places.size(); ++other)
            EXPECT_FALSE(overlap(places[one], places[other])) << one << " and " << other;
    }
}

}  // namespace

TEST(Layout, IsSmallOnlyOnAScreenOfExactly640By480) {
    EXPECT_TRUE(layoutFor({640, 480}).small);
    EXPECT_FALSE(layoutFor({640, 481}).small);
    EXPECT_FALSE(layoutFor({800, 600}).small);
}

TEST(Layout, TheWideOneShowsFifteenColumnsAndTenListLines) {
    const Layout layout = layoutFor({1024, 768});
    EXPECT_EQ(layout.extraColumns, 5);
    EXPECT_EQ(layout.rightColumnsShift, 150);
    EXPECT_EQ(layout.visibleColumns, 15);
    EXPECT_EQ(layout.listLines, 10);
    EXPECT_EQ(layout.windowWidth, 748);
    EXPECT_EQ(layout.windowHeight, 561);
    EXPECT_EQ(layout.clientWidth, 740);
    EXPECT_EQ(layout.clientHeight, 515);
    EXPECT_EQ(layout.hsbA.width, 588);
    EXPECT_EQ(layout.vsbA.height, 161);
    EXPECT_EQ(layout.txtA.height, 144);
    EXPECT_EQ(layout.lblAN.height, 144);
    EXPECT_EQ(layout.txtAV.height, 144);
    expectNothingOverlapsOrLeavesTheWindow(layout);
}

TEST(Layout, TheSmallOneFitsItsScreen) {
    const Layout layout = layoutFor({640, 480});
    EXPECT_EQ(layout.extraColumns, 0);
    EXPECT_EQ(layout.rightColumnsShift, 0);
    EXPECT_EQ(layout.visibleColumns, 10);
    EXPECT_EQ(layout.listLines, 5);
    EXPECT_EQ(layout.gridCanvas.width, 438);
    constexpr int frameWidth = 8;
    constexpr int frameCaptionAndMenuHeight = 46;
    EXPECT_LE(layout.clientWidth + frameWidth, 640);
    EXPECT_LE(layout.clientHeight + frameCaptionAndMenuHeight, 480);
    expectNothingOverlapsOrLeavesTheWindow(layout);
}

TEST(Layout, TheAssignmentListGivesUpLinesOnALowScreen) {
    const auto linesAt = [](int clientHeight) {
        const Layout layout = layoutFor({1920, 1080}, clientHeight);
        expectNothingOverlapsOrLeavesTheWindow(layout);
        EXPECT_EQ(layout.txtA.height, 14 * layout.listLines + 4);
        return layout.listLines;
    };
    EXPECT_EQ(linesAt(515), 10);
    EXPECT_EQ(linesAt(514), 9);
    EXPECT_EQ(linesAt(450), 5);
    EXPECT_EQ(linesAt(417), 3);
    EXPECT_EQ(linesAt(300), 3);
    EXPECT_EQ(layoutFor({1920, 1080}, 450).clientHeight, 445);
    EXPECT_EQ(layoutFor({640, 480}, 410).listLines, 3);
}

TEST(Layout, EachTextLineStandsBesideItsRow) {
    for (const ScreenSize screen : {ScreenSize{640, 480}, ScreenSize{1024, 768}}) {
        const Layout layout = layoutFor(screen);
        EXPECT_EQ(layout.rowTextHeight, rowPitch);
        EXPECT_EQ(layout.txtS.top, 14);
        EXPECT_EQ(layout.txtS.height, visibleRows * rowPitch);
        EXPECT_GE(layout.txtA.height, layout.listLines * layout.listTextHeight);
    }
}

TEST(Layout, TextsBesideTheRowsStandOnOneLineWithTheFigures) {
    EXPECT_EQ(rowTextTop(10), 1);
    EXPECT_EQ(rowTextTop(11), 0);
    EXPECT_EQ(rowTextTop(13), 0);
}

}  // namespace quorvel
