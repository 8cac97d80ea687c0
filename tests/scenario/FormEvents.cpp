#include "tests/scenario/FormEvents.h"

#include <algorithm>
#include <optional>
#include <string>

#include "tests/scenario/HeadlessControls.h"
#include "window/Keys.h"
#include "window/Menu.h"

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

FormEvent menuChosen(const frmQRV& form, std::string_view entry) {
    const auto shown = menuEntryNamed(form, entry);
    if (!shown) throw ScenarioError("there is no menu entry " + std::string(entry));
    if (!shown->visible) throw ScenarioError("the menu entry is hidden");
    const int item = menuItemIndex(entry);
    return [item](frmQRV& chosen) { chosen.chooseMenu(item); };
}

/// In the middle of a control.
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

/// A mouse button goes down at a place of the client area.
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

/// Over what is selected in the editor, which takes no more than fits.
FormEvent textTyped(const frmQRV& form, std::string_view text) {
    const CellEditor& editor = form.controls().txtEnter;
    if (!editor.visible) throw ScenarioError("no editor has the focus");
    const std::size_t kept = editor.text.size() - editor.selectionLength;
    std::string changed = editor.text;
    changed.replace(editor.selectionStart, editor.selectionLength,
                    text.substr(0, frmQRV::longestEntry - std::min(kept, frmQRV::longestEntry)));
    return [changed](frmQRV& typedInto) { typedInto.txtEnter_Change(changed); };
}

std::optional<int> codeOfKey(std::string_view name) {
    if (name == "Enter") return key::enter;
    if (name == "Escape") return key::escape;
    if (name == "Tab") return key::tab;
    return std::nullopt;
}

FormEvent keyPressed(const frmQRV& form, std::string_view name) {
    if (!form.controls().txtEnter.visible) return [](frmQRV&) {};
    const auto code = codeOfKey(name);
    if (!code) return textTyped(form, name);
    return [code](frmQRV& pressed) { pressed.txtEnter_KeyDown(*code, false); };
}

FormEvent barMoved(std::string_view bar, int position) {
    const auto member = scrollBarNamed(bar);
    if (member == nullptr) failUnknown(bar);
    return [member, position](frmQRV& form) { form.scroll(member, position); };
}

/// Windows asks first, and then tells.
void endSession(frmQRV& form) {
    form.sessionMayEnd();
    form.sessionEnds();
}

}  // namespace

FormEvent eventOf(const Action& action, const frmQRV& form) {
    return std::visit(
        ForEachKind{
            [](const Start&) -> FormEvent {
                throw ScenarioError("the program is running already");
            },
            [&](const ChooseMenu& menu) { return menuChosen(form, menu.entry); },
            [&](const ClickPoint& click) { return clickAt(form, click.x, click.y); },
            [&](const ClickControl& click) { return clickOn(form, click.control); },
            [&](const TypeText& typed) { return textTyped(form, typed.text); },
            [&](const PressKey& press) { return keyPressed(form, press.key); },
            [](const MoveScrollBar& scroll) { return barMoved(scroll.bar, scroll.position); },
            [](const CloseWindow&) -> FormEvent {
                return [](frmQRV& closed) { closed.closeBox(); };
            },
            [](const EndSession&) -> FormEvent { return endSession; },
        },
        action);
}

}  // namespace quorvel::scenario
