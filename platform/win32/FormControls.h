#pragma once

#include <vector>

#include "core/CodePage.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Handles.h"
#include "window/frmQRV.h"

namespace quorvel {

/// The real labels and text boxes of the main window. They remember what they show,
/// so that only what differs is brought onto the screen.
class FormControls {
  public:
    /// `codePage` must outlive the controls.
    explicit FormControls(const CodePage& codePage);

    /// Makes the controls, without a place yet.
    void create(HWND parent);
    /// Puts every control into its place, in the layout's sizes. The bands of the rows go on behind
    /// the names, unless the user asked for other colours.
    void place(const Layout& layout, RowBands rowBands);
    void show(const Controls& controls);

    /// The background of a label or text box, with the colours set for its text.
    HBRUSH colour(HDC context, HWND control) const;

  private:
    struct LabelControl {
        HWND control;
        Label Controls::*label;
        Label shown;
    };
    struct TextControl {
        HWND control;
        TextBox Controls::*box;
        TextBox shown;
    };
    void showLabel(LabelControl& target, const Label& label);
    void placeTextBox(TextControl& target, int id, Rectangle place, const Layout& layout) const;
    HFONT fontOf(int id) const;
    bool standsOnRowBands(HWND control) const;

    const CodePage& codePage_;
    UniqueBrush headingBrush_;
    UniqueBrush changedHeadingBrush_;
    RowBands rowBands_;
    UniqueFont labelFont_;
    UniqueFont rowFont_;
    UniqueFont rowNumberFont_;
    UniqueFont listFont_;
    std::vector<LabelControl> labels_;
    std::vector<TextControl> texts_;
};

}  // namespace quorvel
