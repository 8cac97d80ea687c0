#include "window/frmQRV.h"

#include <exception>
#include <utility>

#include "access/Password.h"
#include "commands/FileCommands.h"
#include "commands/RecentFiles.h"
#include "storage/Settings.h"
#include "window/Keys.h"
#include "window/Menu.h"
#include "window/Scrolling.h"

namespace quorvel {

frmQRV::frmQRV(const Ports& ports, const Places& places, const CodePage& codePage)
    : ports_(ports), canvas_(ports_.canvas) {
    state_.places = places;
    state_.codePage = &codePage;
}

void frmQRV::start() {
    CommandContext program = context();
    if (!frmPW(program)) {
        endProgram();
        return;
    }
    open_ = true;
    ++openings_;
    Form_Load();
}

void frmQRV::Form_Load() {
    controls_ = Controls{};
    resetHeadings();
    state_.currentAssignment = state_.currentStudent = 0;
    layout_ = layoutFor(ports_.shell.screenSize(), ports_.shell.largestClientArea().height);
    bindScrollBars();

    readSettings(ports_.files, state_);
    showRecentFiles(state_);
    state_.saveMode = SaveMode::SaveAs;
    sheet_.fillEmptyScores();
    canvas_.load(state_.places.programFolder, layout_.small ? CanvasSize::Small : CanvasSize::Wide);
    readPrintFont(ports_.files, state_);
    RefreshGrid();
}

void frmQRV::chooseMenu(int item) {
    hideEditor();
    const MenuItem& chosen = menuItems()[static_cast<std::size_t>(item)];
    CommandContext program = context();
    try {
        if (chosen.recentFile != 0) mnuPFile(program, chosen.recentFile);
        if (chosen.command != nullptr) chosen.command(program);
    } catch (const std::exception& error) {
        ports_.dialogs.message({.text = error.what(), .icon = Icon::Critical});
    }
}

void frmQRV::lblStudent_Click() {
    hideEditor();
    nameColumn_ = showsAliases() ? NameColumn::Names : NameColumn::Aliases;
    RefreshGrid();
}

void frmQRV::lblSN_Click() {
    hideEditor();
    numberColumn_ =
        numberColumn_ == NumberColumn::Ranks ? NumberColumn::RowNumbers : NumberColumn::Ranks;
    RefreshGrid();
}

void frmQRV::scroll(ScrollBar Controls::*bar, int position) {
    hideEditor();
    (controls_.*bar).moveTo(position);
}

void frmQRV::Form_MouseWheel(int y, bool sideways, const WheelSetting& setting, int turn) {
    const auto bar = barUnderWheel(layout_, y, sideways);
    const int steps = wheel_.stepsOf(turn, setting, pageOf(bar, layout_));
    if (steps != 0) scroll(bar, (controls_.*bar).position() + steps);
}

bool frmQRV::Form_KeyDown(int keyCode, bool controlHeld) {
    if (controls_.txtEnter.visible) return false;
    switch (keyCode) {
        case key::f2:
            openCellByKey();
            return true;
        case key::f3:
            lblStudent_Click();
            return true;
        case key::f4:
            lblSN_Click();
            return true;
        default:
            return scrollByKey(keyCode, controlHeld);
    }
}

bool frmQRV::scrollByKey(int keyCode, bool controlHeld) {
    const auto wanted = scrollOfKey(keyCode, controlHeld);
    if (!wanted) return false;
    scroll(wanted->bar,
           positionAfter(controls_.*wanted->bar, wanted->distance, pageOf(wanted->bar, layout_)));
    return true;
}

void frmQRV::bindScrollBars() {
    controls_.hsbA.onChange([this] { hsbA_Change(); });
    controls_.vsbA.onChange([this] { vsbA_Change(); });
    controls_.vsbS.onChange([this] { vsbS_Change(); });
}

void frmQRV::hsbA_Change() {
    hideEditor();
    RefreshGrid();
}

void frmQRV::vsbA_Change() {
    hideEditor();
    RefreshGrid();
}

void frmQRV::vsbS_Change() {
    hideEditor();
    RefreshGrid();
}

void frmQRV::setCaption(std::string_view caption) {
    controls_.caption = caption;
}

void frmQRV::resetHeadings() {
    nameColumn_ = NameColumn::Names;
    numberColumn_ = NumberColumn::RowNumbers;
}

void frmQRV::setStudentScrollMaximum(int maximum) {
    controls_.vsbS.setMaximum(maximum);
    if (maximum == 0) controls_.vsbS.setMinimum(0);
}

bool frmQRV::showsAliases() const {
    return nameColumn_ == NameColumn::Aliases;
}

void frmQRV::closeBox() {
    hideEditor();
    close();
}

void frmQRV::sessionMayEnd() {
    hideEditor();
    CommandContext program = context();
    offerToSaveBeforeSessionEnds(program);
    sheetIsSeenTo_ = true;
}

void frmQRV::sessionEnds() {
    if (!sheetIsSeenTo_) {
        hideEditor();
        CommandContext program = context();
        keepBeforeSessionEnds(program);
    }
    endProgram();
}

bool frmQRV::close() {
    CommandContext program = context();
    if (!offerToSave(program)) return false;
    canvas_.release();
    open_ = false;
    if (!state_.reloadForNew) ended_ = true;
    return true;
}

void frmQRV::reload() {
    if (close()) start();
}

void frmQRV::endProgram() {
    open_ = false;
    ended_ = true;
}

}  // namespace quorvel
