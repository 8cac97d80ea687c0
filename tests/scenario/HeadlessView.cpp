#include <utility>

#include "core/Paths.h"
#include "tests/scenario/HeadlessControls.h"
#include "tests/scenario/HeadlessDriver.h"
#include "tests/scenario/Records.h"

namespace quorvel::scenario {

namespace {

[[noreturn]] void failUnknown(std::string_view name) {
    throw ScenarioError("there is no such control as " + std::string(name));
}

void requireEditor(std::string_view control) {
    if (control != "txtEnter") throw ScenarioError("only txtEnter can be asked for that");
}

PrintedJob seenJob(const FakePrinter::Job& job) {
    PrintedJob seen;
    seen.pages = job.pages;
    seen.landscape = job.orientation == Orientation::Landscape;
    seen.font = job.fonts.size() == 1 ? job.fonts.front() : PrintFont{"several fonts", 0};
    return seen;
}

}  // namespace

bool HeadlessDriver::hasEnded() {
    return program_ != nullptr && program_->hasEnded();
}

std::optional<std::string> HeadlessDriver::windowCaption() {
    return program().controls().caption;
}

std::optional<std::string> HeadlessDriver::text(std::string_view control) {
    const Controls& controls = program().controls();
    if (control == "txtEnter") return controls.txtEnter.text;
    if (const auto label = labelNamed(control)) return (controls.*label).caption;
    if (const auto box = textBoxNamed(control)) return (controls.*box).text;
    if (const auto entry = menuEntryNamed(program(), control)) return entry->caption;
    failUnknown(control);
}

std::optional<std::uint32_t> HeadlessDriver::colour(std::string_view control) {
    const auto label = labelNamed(control);
    if (label == nullptr) failUnknown(control);
    switch ((program().controls().*label).ground) {
        case Ground::Heading:
            return headingGrey;
        case Ground::ChangedHeading:
            return headingRed;
        default:
            return std::nullopt;  // the system's own
    }
}

std::optional<bool> HeadlessDriver::visible(std::string_view control) {
    if (control == "txtEnter") return program().controls().txtEnter.visible;
    if (const auto entry = menuEntryNamed(program(), control)) return entry->visible;
    if (placeNamed(control) == nullptr) failUnknown(control);
    return true;
}

std::optional<bool> HeadlessDriver::focused(std::string_view control) {
    requireEditor(control);
    return program().controls().txtEnter.visible;
}

std::optional<ClickPoint> HeadlessDriver::position(std::string_view control) {
    if (control == "txtEnter") {
        const CellEditor& txtEnter = program().controls().txtEnter;
        return ClickPoint{static_cast<double>(txtEnter.left), static_cast<double>(txtEnter.top)};
    }
    const auto place = placeNamed(control);
    if (place == nullptr) failUnknown(control);
    const Rectangle& area = program().layout().*place;
    return ClickPoint{static_cast<double>(area.left), static_cast<double>(area.top)};
}

std::optional<std::string> HeadlessDriver::selectedText(std::string_view control) {
    requireEditor(control);
    const CellEditor& txtEnter = program().controls().txtEnter;
    return txtEnter.text.substr(txtEnter.selectionStart, txtEnter.selectionLength);
}

std::optional<BarState> HeadlessDriver::scrollBar(std::string_view bar) {
    const auto member = scrollBarNamed(bar);
    if (member == nullptr) failUnknown(bar);
    const ScrollBar& state = program().controls().*member;
    return BarState{state.minimum(), state.maximum(), state.position()};
}

std::optional<int> HeadlessDriver::glyphAt(Surface surface, int x, int y) {
    program();
    const int glyph = canvas_.glyphAt(surface, x, y);
    if (glyph == FakeCanvas::bare) return bareCanvas;
    if (glyph == FakeCanvas::unknown) return unknownGlyph;
    return glyph;
}

int HeadlessDriver::visibleColumns() {
    return program().layout().visibleColumns;
}

int HeadlessDriver::rightColumnsShift() {
    return program().layout().rightColumnsShift;
}

std::optional<std::vector<std::byte>> HeadlessDriver::contentOf(std::string_view path) {
    return fileBytes(resolve(path));
}

std::optional<std::vector<PrintedJob>> HeadlessDriver::printedJobs() {
    std::vector<PrintedJob> jobs;
    for (const FakePrinter::Job& job : printer_.jobs) jobs.push_back(seenJob(job));
    return jobs;
}

std::optional<std::vector<FileCopy>> HeadlessDriver::copies() {
    std::vector<FileCopy> copies;
    const CodePage& codePage = CodePage::windows1252();
    for (const auto& [from, to] : files_.copies)
        copies.push_back({pathText(from, codePage), pathText(to, codePage)});
    return copies;
}

std::optional<std::vector<std::string>> HeadlessDriver::launches() {
    std::vector<std::string> launches;
    for (const auto& [commandLine, file] : shell_.launches)
        launches.push_back(commandLine + pathText(file, CodePage::windows1252()));
    return launches;
}

const GradeSheet* HeadlessDriver::sheet() {
    return &program().sheet();
}

const WorkingState* HeadlessDriver::state() {
    return &program().state();
}

}  // namespace quorvel::scenario
