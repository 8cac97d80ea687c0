#include "tests/scenario/FormEvents.h"

#include <algorithm>
#include <string>

#include "tests/scenario/HeadlessControls.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

namespace {

[[noreturn]] void failUnknown(std::string_view name) {
    throw ScenarioError("there is no such control as " + std::string(name));
}

bool isInEditor(const CellEditor& editor, double x, double y) {
    return editor.visible && x >= editor.left && x < editor.left + columnPitch && y >= editor.top &&
           y < editor.top + rowPitch;
}

FormEvent mouseDown(double x, double y) {
    return [x, y](frmQRV& form) { form.Form_MouseDown(x, y); };
}

}  // namespace

FormEvent clickAt(const frmQRV& form, double x, double y) {
    if (isInEditor(form.controls().txtEnter, x, y))
        return [](frmQRV& clicked) {
            clicked.txtEnter_Change(std::string(clicked.controls().txtEnter.text));
        };
    const std::string_view control = controlAt(form.layout(), x, y);
    const bool isHeading = control == "lblStudent" || control == "lblSN";
    const bool takesClicks =
        isHeading || textBoxNamed(control) != nullptr || scrollBarNamed(control) != nullptr;
    return takesClicks ? clickOn(form, control) : mouseDown(x, y);
}

FormEvent clickOn(const frmQRV& form, std::string_view control) {
    if (control == "lblStudent") return [](frmQRV& clicked) { clicked.lblStudent_Click(); };
    if (control == "lblSN") return [](frmQRV& clicked) { clicked.lblSN_Click(); };
    // A text box takes the focus.
    if (textBoxNamed(control) != nullptr) return [](frmQRV& clicked) { clicked.hideEditor(); };

    const auto place = placeNamed(control);
    if (place == nullptr) failUnknown(control);
    if (scrollBarNamed(control) != nullptr)
        throw ScenarioError("a scroll bar is moved with scroll");
    const Rectangle& area = form.layout().*place;
    return mouseDown(area.left + area.width / 2.0, area.top + area.height / 2.0);
}

FormEvent textTyped(const frmQRV& form, std::string_view text) {
    const CellEditor& editor = form.controls().txtEnter;
    if (!editor.visible) throw ScenarioError("no editor has the focus");
    const std::size_t kept = editor.text.size() - editor.selectionLength;
    std::string changed = editor.text;
    changed.replace(editor.selectionStart, editor.selectionLength,
                    text.substr(0, frmQRV::longestEntry - std::min(kept, frmQRV::longestEntry)));
    return [changed](frmQRV& typedInto) { typedInto.txtEnter_Change(changed); };
}

FormEvent keyPressed(const frmQRV& form, std::string_view key) {
    if (!form.controls().txtEnter.visible) return [](frmQRV&) {};
    if (key == "Enter") return [](frmQRV& pressed) { pressed.txtEnter_KeyDown(frmQRV::enterKey); };
    if (key == "Escape")
        return [](frmQRV& pressed) { pressed.txtEnter_KeyDown(frmQRV::escapeKey); };
    if (key == "Tab") return [](frmQRV& pressed) { pressed.hideEditor(); };
    return textTyped(form, key);
}

FormEvent barMoved(std::string_view bar, int position) {
    const auto member = scrollBarNamed(bar);
    if (member == nullptr) failUnknown(bar);
    return [member, position](frmQRV& form) { form.scroll(member, position); };
}

FormEvent sessionEnding() {
    return [](frmQRV& form) {
        form.sessionMayEnd();
        form.sessionEnds();
    };
}

}  // namespace quorvel::scenario
