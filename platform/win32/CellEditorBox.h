#pragma once

#include "core/CodePage.h"
#include "platform/win32/Handles.h"
#include "window/Controls.h"

namespace quorvel {

/// The real txtEnter: an edit control over one cell of the grid.
class CellEditorBox {
  public:
    /// `codePage` must outlive the box.
    explicit CellEditorBox(const CodePage& codePage);
    CellEditorBox(const CellEditorBox&) = delete;
    CellEditorBox& operator=(const CellEditorBox&) = delete;

    void create(HWND parent, int id, std::size_t longestText);
    /// Shows what the program left in the editor, under a name for those who do not see its place.
    /// The focus goes to the parent when it is hidden.
    void show(const CellEditor& editor, std::string_view name);
    HWND window() const { return window_; }
    /// The background of the box, with the colours set for its text.
    HBRUSH colour(HDC context) const;

    /// The user's text, after a notification of a change. Changes that show() made itself do not
    /// count.
    bool holdsNewText();
    const std::string& text() const { return text_; }

  private:
    void open(const CellEditor& editor, std::string_view name);
    void hide();

    const CodePage& codePage_;
    UniqueFont font_;
    UniqueBrush background_;
    HWND name_ = nullptr;  // a text of no size before the box
    HWND window_ = nullptr;
    bool visible_ = false;
    int openings_ = 0;
    std::string text_;
};

}  // namespace quorvel
