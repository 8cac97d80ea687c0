#include "platform/win32/PromptBox.h"

#include <algorithm>

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/ModalDialog.h"
#include "platform/win32/Texts.h"

namespace quorvel {

namespace {

// All in pixels.
constexpr int margin = 12;
constexpr int narrowestQuestion = 330;
constexpr int widestQuestion = 420;  // longer lines are wrapped
constexpr int spaceBelowQuestion = 10;
constexpr int spaceBelowAnswer = 14;
constexpr int answerHeight = 22;
constexpr int buttonWidth = 76;
constexpr int buttonHeight = 24;
constexpr int spaceBetweenButtons = 8;

SIZE questionSize(HWND dialog, HFONT font, const std::wstring& question) {
    const WindowDC context(dialog);
    const SelectedObject selection(context.get(), font);
    RECT area{0, 0, widestQuestion, 0};
    ::DrawTextW(context.get(), question.c_str(), -1, &area,
                DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return {area.right, area.bottom};
}

void createPromptBox(HWND dialog, HFONT font, const Prompt& prompt, const CodePage& codePage) {
    const std::wstring question = toWide(prompt.question, codePage);
    // The limit of the box holds for what is typed only.
    const std::wstring defaultAnswer =
        toWide(prompt.defaultAnswer.substr(0, prompt.longestAnswer), codePage);
    const SIZE size = questionSize(dialog, font, question);
    const int width = std::max(narrowestQuestion, static_cast<int>(size.cx));
    const int questionHeight = static_cast<int>(size.cy);
    const int answerTop = margin + questionHeight + spaceBelowQuestion;
    const int buttonTop = answerTop + answerHeight + spaceBelowAnswer;
    const int cancelLeft = margin + width - buttonWidth;
    const int okLeft = cancelLeft - spaceBetweenButtons - buttonWidth;

    createControl(dialog, {.windowClass = L"STATIC",
                           .text = question.c_str(),
                           .style = WS_VISIBLE | SS_LEFT | SS_NOPREFIX,
                           .id = control_id::promptQuestion,
                           .place = {margin, margin, width, questionHeight},
                           .font = font});
    const HWND answer = createControl(dialog, {.windowClass = L"EDIT",
                                               .text = defaultAnswer.c_str(),
                                               .style = WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                                               .extendedStyle = WS_EX_CLIENTEDGE,
                                               .id = control_id::promptAnswer,
                                               .place = {margin, answerTop, width, answerHeight},
                                               .font = font});
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"OK",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON,
                           .id = IDOK,
                           .place = {okLeft, buttonTop, buttonWidth, buttonHeight},
                           .font = font});
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"Cancel",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                           .id = IDCANCEL,
                           .place = {cancelLeft, buttonTop, buttonWidth, buttonHeight},
                           .font = font});
    setWindowText(dialog, prompt.title, codePage);
    setClientSize(dialog, margin + width + margin, buttonTop + buttonHeight + margin);
    ::SendMessageW(answer, EM_SETLIMITTEXT, prompt.longestAnswer, 0);
}

}  // namespace

std::string showPromptBox(HWND owner, const Prompt& prompt, const CodePage& codePage) {
    const UniqueFont font = messageFont();
    std::string answer;
    runModalDialog(
        owner,
        {.create = [&](HWND dialog) { createPromptBox(dialog, font.get(), prompt, codePage); },
         .choose =
             [&](HWND dialog, int id) {
                 if (id == IDOK)
                     answer = windowText(::GetDlgItem(dialog, control_id::promptAnswer), codePage);
                 return id == IDOK || id == IDCANCEL;
             }});
    return answer;
}

}  // namespace quorvel
