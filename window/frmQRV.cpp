#include "window/frmQRV.h"

#include <exception>
#include <utility>

#include "access/Password.h"
#include "commands/FileCommands.h"
#include "commands/RecentFiles.h"
#include "storage/Settings.h"
#include "window/Menu.h"

namespace quorvel {

namespace {

constexpr std::string_view studentNameHeading = "Student Name";
constexpr std::string_view studentAliasHeading = "Student Alias";
constexpr std::string_view rowNumberHeading = "#";
constexpr std::string_view rankHeading = "SR";

void toggleHeading(Label& heading, std::string_view usual, std::string_view other) {
    const bool backToUsual = heading.caption != usual;
    heading.caption = backToUsual ? usual : other;
    heading.background = backToUsual ? headingGrey : headingRed;
}

}  // namespace

frmQRV::frmQRV(const Ports& ports, std::filesystem::path programFolder,
               std::filesystem::path passwordFile, const CodePage& codePage)
    : ports_(ports), canvas_(ports_.canvas) {
    state_.programFolder = std::move(programFolder);
    state_.passwordFile = std::move(passwordFile);
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
    firstVisibleAssignment_ = firstListedAssignment_ = firstVisibleStudent_ = 0;
    state_.currentAssignment = state_.currentStudent = 0;
    layout_ = layoutFor(ports_.shell.screenSize());
    bindScrollBars();

    readSettings(ports_.files, state_);
    showRecentFiles(state_);
    state_.saveMode = SaveMode::SaveAs;
    sheet_.fillEmptyScores();
    canvas_.load(state_.programFolder, layout_.small ? CanvasSize::Small : CanvasSize::Wide);
    readPrintFont(ports_.files, state_);
    RefreshGrid();
}

void frmQRV::chooseMenu(int item) {
    leaveEditor();
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
    leaveEditor();
    toggleHeading(controls_.lblStudent, studentNameHeading, studentAliasHeading);
    RefreshGrid();
}

void frmQRV::lblSN_Click() {
    leaveEditor();
    toggleHeading(controls_.lblSN, rowNumberHeading, rankHeading);
    RefreshGrid();
}

void frmQRV::scroll(ScrollBar Controls::*bar, int position) {
    (controls_.*bar).moveTo(position);
}

void frmQRV::bindScrollBars() {
    controls_.hsbA.onChange([this] { hsbA_Change(); });
    controls_.vsbA.onChange([this] { vsbA_Change(); });
    controls_.vsbS.onChange([this] { vsbS_Change(); });
}

void frmQRV::hsbA_Change() {
    hideEditor();
    firstVisibleAssignment_ = static_cast<std::int16_t>(controls_.hsbA.position());
    RefreshGrid();
}

void frmQRV::vsbA_Change() {
    hideEditor();
    firstListedAssignment_ = static_cast<std::int16_t>(controls_.vsbA.position());
    RefreshGrid();
}

void frmQRV::vsbS_Change() {
    hideEditor();
    firstVisibleStudent_ = static_cast<std::int16_t>(controls_.vsbS.position());
    RefreshGrid();
}

void frmQRV::setCaption(std::string_view caption) {
    controls_.caption = caption;
}

void frmQRV::resetHeadings() {
    controls_.lblSN = Label{std::string(rowNumberHeading)};
    controls_.lblStudent = Label{std::string(studentNameHeading)};
}

void frmQRV::setStudentScrollMaximum(int maximum) {
    controls_.vsbS.setMaximum(maximum);
    if (maximum == 0) controls_.vsbS.setMinimum(0);
}

bool frmQRV::showsAliases() const {
    return controls_.lblStudent.caption == studentAliasHeading;
}

void frmQRV::closeBox() {
    leaveEditor();
    close();
}

void frmQRV::close() {
    CommandContext program = context();
    offerToSave(program);
    canvas_.release();
    open_ = false;
    if (!reloadForNew) ended_ = true;
}

void frmQRV::reload() {
    close();
    start();
}

void frmQRV::endProgram() {
    open_ = false;
    ended_ = true;
}

}  // namespace quorvel
