#pragma once

#include <vector>

#include <windows.h>

#include "window/Controls.h"
#include "window/Layout.h"

namespace quorvel {

/// The real scroll bars of the main window. They remember what they show, so that only what differs
/// is brought onto the screen.
class FormBars {
  public:
    /// Makes the bars, without a place yet.
    void create(HWND parent);
    void place(const Layout& layout);
    void show(const Controls& controls);

    /// The program's scroll bar behind a real one; null for another window.
    ScrollBar Controls::*barOf(HWND control) const;

  private:
    struct Bar {
        HWND control;
        ScrollBar Controls::*bar;
        int page;  // what the window shows of it at a time
        int minimum = 0;
        int maximum = -1;  // nothing shown yet
        int position = 0;
    };

    static void showBar(Bar& target, const ScrollBar& bar);

    std::vector<Bar> bars_;
};

/// Where the parameters of a scroll message take a bar that shows so much at a time, inside its
/// range or not.
int positionWanted(const ScrollBar& bar, int page, WPARAM scrollMessage);

}  // namespace quorvel
