#include "tests/realwindow/SystemTexts.h"

#include <array>

#include "core/CodePage.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

namespace {

constexpr UINT answerTimeout = 10'000;  // milliseconds

}  // namespace

std::string inCodePage(std::wstring_view text) {
    return CodePage::windows1252().fromUtf16(std::u16string(text.begin(), text.end()));
}

std::wstring wide(std::string_view text) {
    const std::u16string converted = CodePage::windows1252().toUtf16(text);
    return {converted.begin(), converted.end()};
}

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, answerTimeout, &result) ==
        0) {
        if (IsWindow(window) == 0) throw WindowGone();
        throw ScenarioError("a window of the program does not answer");
    }
    return static_cast<LRESULT>(result);
}

std::wstring wideTextOf(HWND window) {
    const auto length = static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied = ask(window, WM_GETTEXT, static_cast<WPARAM>(text.size()),
                               reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::string textOf(HWND window) {
    return inCodePage(wideTextOf(window));
}

std::wstring classNameOf(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
}

}  // namespace quorvel::scenario
