#pragma once

#include <array>
#include <functional>

#include "core/CodePage.h"
#include "platform/win32/CellEditorBox.h"
#include "platform/win32/FormBars.h"
#include "platform/win32/FormControls.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/GridAccessible.h"
#include "platform/win32/Handles.h"
#include "platform/win32/WindowsDialogs.h"
#include "window/frmQRV.h"

namespace quorvel {

/// The real window of frmQRV. It hands on what the user does and shows what came of it.
class FormWindow {
  public:
    /// Opens the window of a form that is open. Everything named must outlive it.
    FormWindow(frmQRV& form, WindowsDialogs& dialogs, GdiCanvas& canvas, const CodePage& codePage);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow();

    /// Takes the messages that belong to no single control: menu keys, keys that scroll, the mouse
    /// wheel. True when the message is done with.
    bool translate(MSG& message);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    /// The messages that are about how the window looks.
    LRESULT handleShowing(UINT message, WPARAM wParam, LPARAM lParam);
    void handleCommand(WPARAM wParam, LPARAM lParam);
    void handleNotification(int control, int code);
    void scroll(HWND bar, WPARAM scrollMessage);
    bool takesKey(const MSG& message);
    void turnWheel(UINT message, WPARAM wParam, LPARAM lParam);
    void mouseDown(LPARAM position);
    void querySessionEnd(LPARAM reason);
    void endSession(bool ending);
    void followSystemColours(UINT message, WPARAM wParam, LPARAM lParam);

    /// Lets the form handle something that the user did, unless a dialog is open, and shows the
    /// outcome.
    void act(const std::function<void()>& event);
    /// The same for what happens while dialogs are open, too.
    void actAnyTime(const std::function<void()>& event);

    void present();
    void reopen();
    void fitToLayout();
    void showMenuBar();
    void invalidateCanvas(Surface surface, const Rectangle& place);
    void paint();
    void eraseBackground(HDC context) const;

    frmQRV& form_;
    WindowsDialogs& dialogs_;
    GdiCanvas& canvas_;
    const CodePage& codePage_;

    HWND window_ = nullptr;
    FormControls controls_;
    FormBars bars_;
    CellEditorBox editor_;
    UniqueAcceleratorTable accelerators_;
    UniqueInterface<GridAccessible> accessible_;
    int openings_ = 0;
    int actions_ = 0;  // under way, one inside the other
    std::string shownCaption_;
    std::array<MenuEntry, recentFileCount> shownRecentFiles_;
};

}  // namespace quorvel
