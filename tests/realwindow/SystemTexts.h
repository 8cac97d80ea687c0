#pragma once

#include <string>
#include <string_view>

#include <windows.h>

#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

/// Texts of Windows in the code page of the scenarios, and back.
std::string inCodePage(std::wstring_view text);
std::wstring wide(std::string_view text);

/// A window that was asked is no longer there.
class WindowGone : public ScenarioError {
  public:
    WindowGone() : ScenarioError("a window of the program is gone") {}
};

/// Sends a message to a window of the program. Throws WindowGone, or ScenarioError when no answer
/// comes.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// The text of a window or control.
std::wstring wideTextOf(HWND window);
std::string textOf(HWND window);
std::wstring classNameOf(HWND window);

}  // namespace quorvel::scenario
