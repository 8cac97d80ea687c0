#include "platform/win32/FormControls.h"

#include <algorithm>
#include <array>

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/Texts.h"
#include "window/GridTexts.h"

namespace quorvel {

namespace {

constexpr int labelTextHeight = 11;
/// Row numbers of four digits fit their column.
constexpr int rowNumberWidth = 6;
constexpr int nameMargin = 2;
/// Air between the row numbers and the scroll bar, where the numbers leave it.
constexpr int rowNumberMargin = 5;

constexpr DWORD clickedHeading = SS_NOPREFIX | SS_CENTERIMAGE | SS_CENTER | SS_NOTIFY;
constexpr DWORD leftHeading = SS_NOPREFIX | SS_CENTERIMAGE | SS_LEFT;
constexpr DWORD caption = SS_NOPREFIX | SS_CENTERIMAGE | SS_RIGHT;
constexpr DWORD centredHeading = SS_NOPREFIX | SS_CENTERIMAGE | SS_CENTER;
constexpr DWORD lines = SS_NOPREFIX | SS_RIGHT;

struct LabelPlan {
    int id;
    Label Controls::*label;
    Rectangle Layout::*place;
    DWORD style;
};

constexpr std::array labelPlans{
    LabelPlan{control_id::lblSN, &Controls::lblSN, &Layout::lblSN, clickedHeading},
    LabelPlan{control_id::lblStudent, &Controls::lblStudent, &Layout::lblStudent, clickedHeading},
    LabelPlan{control_id::lblAvgScore, &Controls::lblAvgScore, &Layout::lblAvgScore, caption},
    LabelPlan{control_id::Label1, &Controls::Label1, &Layout::Label1, caption},
    LabelPlan{control_id::lblClassAvg, &Controls::lblClassAvg, &Layout::lblClassAvg, caption},
    LabelPlan{control_id::lblA1, &Controls::lblA1, &Layout::lblA1, centredHeading},
    LabelPlan{control_id::lblA2, &Controls::lblA2, &Layout::lblA2, leftHeading},
    LabelPlan{control_id::lblAV, &Controls::lblAV, &Layout::lblAV, centredHeading},
    LabelPlan{control_id::lblAN, &Controls::lblAN, &Layout::lblAN, lines},
};

struct TextPlan {
    int id;
    int heading;  // the label that names it
    TextBox Controls::*box;
    Rectangle Layout::*place;
    DWORD alignment = ES_LEFT;
};

constexpr std::array textPlans{
    TextPlan{control_id::txtSN, control_id::lblSN, &Controls::txtSN, &Layout::txtSN},
    TextPlan{control_id::txtS, control_id::lblStudent, &Controls::txtS, &Layout::txtS},
    TextPlan{control_id::txtA, control_id::lblA2, &Controls::txtA, &Layout::txtA},
    TextPlan{control_id::txtAV, control_id::lblAV, &Controls::txtAV, &Layout::txtAV, ES_RIGHT},
};

bool isBesideTheRows(int id) {
    return id == control_id::txtSN || id == control_id::txtS;
}

/// Black or white, whichever can be read on the background.
COLORREF textColourOn(Colour background) {
    constexpr unsigned middle = 128;
    const unsigned brightness = (299 * ((background >> 16) & 0xFF) +
                                 587 * ((background >> 8) & 0xFF) + 114 * (background & 0xFF)) /
                                1000;
    return brightness < middle ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

UniqueFont createLabelFont() {
    return UniqueFont(::CreateFontW(-labelTextHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                    DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                    DEFAULT_QUALITY, VARIABLE_PITCH | FF_SWISS, L"Tahoma"));
}

/// Puts text on a system colour.
HBRUSH systemGround(HDC context, int ground, int text) {
    ::SetBkColor(context, ::GetSysColor(ground));
    ::SetTextColor(context, ::GetSysColor(text));
    return ::GetSysColorBrush(ground);
}

/// A click on the names goes to the window below them, like one on a label: a box whose text can be
/// selected can also be pulled out of its place beside the rows.
LRESULT CALLBACK textBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCHITTEST) return HTTRANSPARENT;
    const auto usual = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    return ::CallWindowProcW(usual, window, message, wParam, lParam);
}

/// Not by the helpers for that: they look the window up anew for every message, which takes longer
/// than what most messages are about.
void passClicksOn(HWND textBox) {
    const LONG_PTR usual = ::GetWindowLongPtrW(textBox, GWLP_WNDPROC);
    ::SetWindowLongPtrW(textBox, GWLP_USERDATA, usual);
    ::SetWindowLongPtrW(textBox, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(textBoxProcedure));
}

/// Without the inner border of an edit control: line k stands k line heights below the text's top.
void placeText(HWND edit, const RECT& text) {
    ::SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    ::SendMessageW(edit, EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(&text));
}

/// An edit control has each of its old and its new lines painted by itself. While it has no room
/// for any, it does not, and all of them are painted once.
void setLines(HWND edit, std::string_view text, const CodePage& codePage) {
    RECT room{};
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    placeText(edit, RECT{});
    setWindowText(edit, text, codePage);
    placeText(edit, room);
    ::InvalidateRect(edit, nullptr, TRUE);
}

/// The margin yields to numbers that need the whole column.
int rowNumberIndent(std::string_view rowNumbers, LONG columnWidth) {
    const int width = static_cast<int>(longestLine(rowNumbers)) * rowNumberWidth;
    return width + rowNumberMargin > columnWidth ? 0 : rowNumberMargin;
}

void indentRowNumbers(HWND edit, std::string_view rowNumbers) {
    RECT text{};
    ::SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    const int left = rowNumberIndent(rowNumbers, text.right);
    if (left == text.left) return;
    text.left = left;
    placeText(edit, text);
}

}  // namespace

FormControls::FormControls(const CodePage& codePage)
    : codePage_(codePage),
      headingBrush_(::CreateSolidBrush(windowsColour(headingGrey))),
      changedHeadingBrush_(::CreateSolidBrush(windowsColour(headingRed))) {}

void FormControls::create(HWND parent) {
    for (const LabelPlan& plan : labelPlans)
        labels_.push_back({createControl(parent, {.windowClass = L"STATIC",
                                                  .style = WS_VISIBLE | plan.style,
                                                  .id = plan.id}),
                           plan.label,
                           {}});
    for (const TextPlan& plan : textPlans) {
        texts_.push_back({createControl(parent, {.windowClass = L"EDIT",
                                                 .style = WS_VISIBLE | ES_MULTILINE | ES_READONLY |
                                                          ES_AUTOHSCROLL | plan.alignment,
                                                 .id = plan.id}),
                          plan.box,
                          {}});
        passClicksOn(texts_.back().control);
        // A screen reader takes the label before a box for its name.
        ::SetWindowPos(texts_.back().control, ::GetDlgItem(parent, plan.heading), 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    }
}

void FormControls::place(const Layout& layout, RowBands rowBands) {
    rowBands_ = std::move(rowBands);
    const auto fitFont = [&](HWND control, int id) {
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(fontOf(id)), TRUE);
    };
    // The fonts before them go when no control uses them any more.
    const auto labelFontBefore = std::exchange(labelFont_, createLabelFont());
    const auto rowFontBefore = std::exchange(rowFont_, cellFont(layout.rowTextHeight));
    const auto rowNumberFontBefore =
        std::exchange(rowNumberFont_, cellFont(layout.rowTextHeight, rowNumberWidth));
    const auto listFontBefore = std::exchange(listFont_, cellFont(layout.listTextHeight));

    for (std::size_t i = 0; i < labelPlans.size(); ++i) {
        moveControl(labels_[i].control, layout.*labelPlans[i].place);
        fitFont(labels_[i].control, labelPlans[i].id);
    }
    for (std::size_t i = 0; i < textPlans.size(); ++i) {
        fitFont(texts_[i].control, textPlans[i].id);
        placeTextBox(texts_[i], textPlans[i].id, layout.*textPlans[i].place, layout);
    }
}

void FormControls::placeTextBox(TextControl& target, int id, Rectangle place,
                                const Layout& layout) const {
    RECT text{layout.listIndent, 0, place.width - layout.listIndent, place.height};
    if (isBesideTheRows(id)) {
        const int top = rowTextTop(ascentOf(target.control, rowFont_.get()));
        place.height += top;  // for the last line, which begins lower, too
        const int left =
            id == control_id::txtSN ? rowNumberIndent(target.shown.text, place.width) : nameMargin;
        text = {left, top, place.width, place.height};
    }
    moveControl(target.control, place);
    placeText(target.control, text);
}

HFONT FormControls::fontOf(int id) const {
    switch (id) {
        case control_id::txtS:
            return rowFont_.get();
        case control_id::txtSN:
            return rowNumberFont_.get();
        case control_id::lblAN:
        case control_id::txtA:
        case control_id::txtAV:
            return listFont_.get();
        default:
            return labelFont_.get();
    }
}

void FormControls::show(const Controls& controls) {
    for (LabelControl& target : labels_) showLabel(target, controls.*target.label);
    for (TextControl& target : texts_) {
        const TextBox& box = controls.*target.box;
        if (box == target.shown) continue;
        target.shown = box;
        if (target.box == &Controls::txtSN) indentRowNumbers(target.control, box.text);
        setLines(target.control, box.text, codePage_);
    }
}

void FormControls::showLabel(LabelControl& target, const Label& label) {
    if (label.ground != target.shown.ground) ::InvalidateRect(target.control, nullptr, TRUE);
    if (label.caption != target.shown.caption)
        setWindowText(target.control, label.caption, codePage_);
    target.shown = label;
}

bool FormControls::standsOnRowBands(HWND control) const {
    return isBesideTheRows(::GetDlgCtrlID(control)) && !isHighContrast() &&
           ::GetSysColor(COLOR_WINDOW) == rowBands_.lightColour;
}

HBRUSH FormControls::colour(HDC context, HWND control) const {
    if (standsOnRowBands(control)) {
        ::SetBkMode(context, TRANSPARENT);
        ::SetTextColor(context, ::GetSysColor(COLOR_WINDOWTEXT));
        return rowBands_.brush.get();
    }
    const auto label = std::ranges::find(labels_, control, &LabelControl::control);
    const Ground ground = label == labels_.end() ? Ground::Paper : label->shown.ground;
    if (ground == Ground::Paper) return systemGround(context, COLOR_WINDOW, COLOR_WINDOWTEXT);
    if (ground == Ground::Window) return systemGround(context, COLOR_BTNFACE, COLOR_BTNTEXT);
    const bool isChanged = ground == Ground::ChangedHeading;
    if (isHighContrast())
        return isChanged ? systemGround(context, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT)
                         : systemGround(context, COLOR_BTNFACE, COLOR_BTNTEXT);
    const Colour colour = isChanged ? headingRed : headingGrey;
    ::SetBkColor(context, windowsColour(colour));
    ::SetTextColor(context, textColourOn(colour));
    return isChanged ? changedHeadingBrush_.get() : headingBrush_.get();
}

}  // namespace quorvel
