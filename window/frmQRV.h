#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/CommandContext.h"
#include "window/Controls.h"
#include "window/GlyphCanvas.h"
#include "window/GridView.h"
#include "window/Layout.h"
#include "window/Wheel.h"

namespace quorvel {

/// The main window: owner of the one sheet and of all working state. Its event handlers are what a
/// platform calls when the user acts; after each it shows what controls() and the canvas hold.
class frmQRV final : public MainWindow {
  public:
    /// Everything in `ports` and the code page must outlive the window.
    frmQRV(const Ports& ports, const Places& places, const CodePage& codePage);
    frmQRV(const frmQRV&) = delete;
    frmQRV& operator=(const frmQRV&) = delete;

    /// Starts the program: the password window, then this window.
    void start();
    bool isOpen() const { return open_; }
    /// True when the program is over; nothing may be called any more.
    bool hasEnded() const { return ended_; }
    /// Grows by one whenever the window was opened (again).
    int openings() const { return openings_; }

    /// Chooses an entry of menuItems() by its place. An entry under way is stored first; errors of
    /// the command are shown in a message box.
    void chooseMenu(int item);
    /// The mouse went down on the window itself, at client pixels.
    void Form_MouseDown(double x, double y);
    void lblStudent_Click();
    void lblSN_Click();
    /// The user used a scroll bar, whether it moves by that or not.
    void scroll(ScrollBar Controls::*bar, int position);
    /// A mouse wheel was turned at height `y` of the client area: by so many parts of
    /// WheelTurns::notch, on (down, to the right) or back.
    void Form_MouseWheel(int y, bool sideways, const WheelSetting& setting, int turn);
    /// A key, as a virtual key code, while the editor is closed: it scrolls, opens a cell or
    /// changes a heading. False when it means nothing here.
    bool Form_KeyDown(int keyCode, bool controlHeld);
    /// The user changed the editor's text, or selected another part of it.
    void txtEnter_Change(std::string_view text);
    /// A key in the editor, as a virtual key code. False when it is the editor's own; what is typed
    /// arrives through txtEnter_Change.
    bool txtEnter_KeyDown(int keyCode, bool controlHeld);
    /// The window's close box.
    void closeBox();

    /// The session is about to end: sees to an unsaved sheet, also while a dialog is open. The
    /// window and the sheet stay as they are, since another program may keep the session from
    /// ending.
    void sessionMayEnd();
    /// The session goes on after all.
    void sessionGoesOn() { sheetIsSeenTo_ = false; }
    /// The session ends now, and with it the program. Nothing is asked.
    void sessionEnds();

    const Controls& controls() const { return controls_; }
    const Layout& layout() const { return layout_; }
    /// What the scroll bars' positions mean, 1-based and 0 for none: the assignment in the leftmost
    /// score column, the first one of the list, the student in the top row.
    int firstVisibleAssignment() const { return controls_.hsbA.position(); }
    int firstListedAssignment() const { return controls_.vsbA.position(); }
    int firstVisibleStudent() const { return controls_.vsbS.position(); }
    /// The part of the sheet that the grid shows.
    GridView view() const {
        return {sheet_, layout_, firstVisibleStudent(), firstVisibleAssignment()};
    }
    const GradeSheet& sheet() const { return sheet_; }
    const WorkingState& state() const { return state_; }

    // What the commands ask of the window.
    void RefreshGrid() override;
    /// Also called when the focus goes from the editor to something else. Without an entry under
    /// way it does nothing.
    void hideEditor() override;
    void setCaption(std::string_view caption) override;
    void resetHeadings() override;
    void setStudentScrollMaximum(int maximum) override;
    bool showsAliases() const override;
    bool close() override;
    void reload() override;
    void endProgram() override;

    /// What the editor holds at most.
    static constexpr std::size_t longestEntry = Score::longestText;

  private:
    CommandContext context() { return {sheet_, state_, *this, ports_}; }

    void Form_Load();
    void bindScrollBars();
    void hsbA_Change();
    void vsbA_Change();
    void vsbS_Change();

    // RefreshGrid, step by step.
    void setScrollRanges();
    void showHeadings();
    void showNames();
    void showRowNumbers();
    void showAssignmentList();
    void showClassFigures();

    bool scrollByKey(int keyCode, bool controlHeld);

    // In-place entry.
    bool hitsCell(double x, double y) const;
    bool hasCell(int student, int assignment) const;
    void openClickedCell(double x, double y);
    void openCellByKey();
    void openNeighbour(int studentsOn, int assignmentsOn);
    void openEditor(int student, int assignment);
    void txtEnter_GotFocus();
    void txtEnter_LostFocus();

    GradeSheet sheet_;
    WorkingState state_;
    Ports ports_;
    Controls controls_;
    Layout layout_;
    GlyphCanvas canvas_;
    WheelTurns wheel_;

    /// What the two columns beside the grid show, and their headings say.
    enum class NameColumn { Names, Aliases };
    enum class NumberColumn { RowNumbers, Ranks };
    NameColumn nameColumn_ = NameColumn::Names;
    NumberColumn numberColumn_ = NumberColumn::RowNumbers;

    bool sheetIsSeenTo_ = false;  // since the session is about to end
    bool open_ = false;
    bool ended_ = false;
    int openings_ = 0;
};

}  // namespace quorvel
