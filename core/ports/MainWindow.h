#pragma once

#include <string_view>

namespace quorvel {

/// The main window as the commands see it.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    /// Rebuilds everything that the window shows from the sheet, figures included.
    virtual void RefreshGrid() = 0;
    /// Hides the in-place editor; an entry under way is stored.
    virtual void hideEditor() = 0;
    virtual void setCaption(std::string_view caption) = 0;
    /// Back to row numbers and full names.
    virtual void resetHeadings() = 0;
    /// Sets the maximum of the student scroll bar; a minimum of 0 where the maximum is 0.
    virtual void setStudentScrollMaximum(int maximum) = 0;
    virtual bool showsAliases() const = 0;

    /// Closes the window, offering to save an unsaved sheet. Ends the program unless
    /// `reloadForNew`. False where the user goes back to a sheet that could not be saved.
    virtual bool close() = 0;
    /// Closes the window and shows it again, with the sheet as it is.
    virtual void reload() = 0;
    /// Ends the program at once; an unsaved sheet is not offered for saving.
    virtual void endProgram() = 0;
};

}  // namespace quorvel
