#pragma once

#include <string>

#include "tests/fakes/FakeCanvas.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakePrinter.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/ScriptedDialogs.h"
#include "window/CanvasPlaces.h"
#include "window/Keys.h"
#include "window/Menu.h"
#include "window/frmQRV.h"

#include <gtest/gtest.h>

namespace quorvel {

/// The main window on fakes, started on an empty sheet.
class WindowTest : public testing::Test {
  protected:
    explicit WindowTest(ScreenSize screen = {1024, 768}) {
        shell.screen = screen;
        form.start();
    }

    /// Adds a student through the menu, as a user would.
    void addStudent(std::string_view name) {
        dialogs
            .expectPrompt("Add Student",
                          "What is the student's full name?\r\n"
                          "(Recommended Format: LastName, FirstName)",
                          "", name)
            .expectPrompt("Add Student",
                          "What is the student's alias? (no more than 15 characters)", "", name);
        form.chooseMenu(menuItemIndex("mnuAddS"));
    }

    void addAssignment(std::string_view value) {
        dialogs
            .expectPrompt("Add Assignment",
                          "What is the assignments name? (no more than 20 characters)",
                          "Assignment Name Here", "Quiz")
            .expectPrompt("Add Assignment",
                          "What is the assignments value?\r\n"
                          "(Any non-integer values will be rounded)",
                          "Assignment Value Here", value);
        form.chooseMenu(menuItemIndex("mnuAddA"));
    }

    /// Students "01", "02" ... and assignments worth 10 points.
    void fill(int students, int assignments) {
        for (int student = 1; student <= students; ++student)
            addStudent((student < 10 ? "0" : "") + std::to_string(student));
        for (int assignment = 1; assignment <= assignments; ++assignment) addAssignment("10");
    }

    void clickCell(int row, int column) {
        form.Form_MouseDown(150 + 30 * column + 5, 14 + 14 * row + 5);
    }

    void enter(int row, int column, std::string_view text) {
        clickCell(row, column);
        form.txtEnter_Change(text);
        form.txtEnter_KeyDown(key::enter, false);
    }

    /// What the window shows from (x, y) on: digits, letters, "." and blanks; "?" for nothing.
    std::string shown(Surface surface, int x, int y, int slots) const {
        std::string text;
        for (int slot = 0; slot < slots; ++slot)
            text += character(canvas.glyphAt(surface, canvas_places::slotLeft(x, slot), y));
        return text;
    }
    std::string shownScore(int row, int column) const {
        return shown(Surface::Grid, canvas_places::scoreLeft(column), canvas_places::rowTop(row),
                     canvas_places::scoreSlots);
    }

    static char character(int glyph) {
        for (const GlyphSet set : {GlyphSet::Plain, GlyphSet::Double}) {
            if (glyph == glyph::blank(set)) return ' ';
            for (int digit = 0; digit <= 9; ++digit)
                if (glyph == glyph::digit(digit, set)) return static_cast<char>('0' + digit);
            for (char letter = 'A'; letter <= 'F'; ++letter)
                if (glyph == glyph::letter(letter, set)) return letter;
        }
        return glyph == glyph::decimalPoint ? '.' : '?';
    }

    FakeCanvas canvas;
    FakeClock clock;
    FakePrinter printer;
    FakeShell shell;
    MemoryFiles files;
    ScriptedDialogs dialogs;
    frmQRV form{{dialogs, files, printer, canvas, clock, shell},
                {.programFolder = "/Quorvel",
                 .passwordFile = "/machine/password",
                 .documents = "/user/Documents",
                 .localData = "/user/local",
                 .temporary = "/temporary"},
                CodePage::windows1252()};
};

}  // namespace quorvel
