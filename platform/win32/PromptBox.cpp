#include "platform/win32/PromptBox.h"

#include "platform/win32/ControlIds.h"
#include "platform/win32/ControlParts.h"
#include "platform/win32/ModalDialog.h"
#include "platform/win32/Texts.h"
#include "window/DialogLayout.h"

namespace quorvel {

namespace {

/// Wraps as a text box does: a word that is wider than the line is broken.
constexpr UINT questionFormat = DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;
constexpr DWORD questionStyle = SS_LEFT | SS_EDITCONTROL | SS_NOPREFIX;

ScreenSize questionSize(HWND dialog, HFONT font, const std::wstring& question, int widest) {
    const WindowDC context(dialog);
    const SelectedObject selection(context.get(), font);
    RECT area{0, 0, widest, 0};
    ::DrawTextW(context.get(), question.c_str(), -1, &area, DT_CALCRECT | questionFormat);
    return {static_cast<int>(area.right), static_cast<int>(area.bottom)};
}

PromptLayout layOut(HWND dialog, HFONT font, const std::wstring& question) {
    const DialogFont measure = measureFont(dialog, font);
    const ScreenSize largest = largestClientSize(dialog);
    const int widest = widestQuestion(measure, largest);
    return promptLayout(measure, questionSize(dialog, font, question, widest), largest);
}

void createPromptBox(HWND dialog, HFONT font, const Prompt& prompt, const CodePage& codePage) {
    const std::wstring question = toWide(prompt.question, codePage);
    // The limit of the box holds for what is typed only.
    const std::wstring defaultAnswer =
        toWide(prompt.defaultAnswer.substr(0, prompt.longestAnswer), codePage);
    const PromptLayout layout = layOut(dialog, font, question);

    createControl(dialog, {.windowClass = L"STATIC",
                           .text = question.c_str(),
                           .style = WS_VISIBLE | questionStyle,
                           .id = control_id::promptQuestion,
                           .place = layout.question,
                           .font = font});
    const HWND answer = createControl(dialog, {.windowClass = L"EDIT",
                                               .text = defaultAnswer.c_str(),
                                               .style = WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                                               .extendedStyle = WS_EX_CLIENTEDGE,
                                               .id = control_id::promptAnswer,
                                               .place = layout.answer,
                                               .font = font});
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"OK",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON,
                           .id = IDOK,
                           .place = layout.okButton,
                           .font = font});
    createControl(dialog, {.windowClass = L"BUTTON",
                           .text = L"Cancel",
                           .style = WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                           .id = IDCANCEL,
                           .place = layout.cancelButton,
                           .font = font});
    setWindowText(dialog, prompt.title, codePage);
    setClientSize(dialog, layout.width, layout.height);
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
