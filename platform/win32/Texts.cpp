#include "platform/win32/Texts.h"

#include <array>
#include <cstddef>

namespace quorvel {

namespace {

UINT pageOfLanguage() {
    UINT page = 0;
    ::GetLocaleInfoEx(LOCALE_NAME_SYSTEM_DEFAULT,
                      LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                      reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    return page;
}

bool isSingleByte(UINT codePage) {
    CPINFO info{};
    return ::GetCPInfo(codePage, &info) != 0 && info.MaxCharSize == 1;
}

CodePage::UnicodeTable unicodeTable(UINT codePage) {
    CodePage::UnicodeTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const char character = static_cast<char>(byte);
        wchar_t unicode = static_cast<wchar_t>(byte);
        if (byte >= 0x80) ::MultiByteToWideChar(codePage, 0, &character, 1, &unicode, 1);
        table[byte] = static_cast<char16_t>(unicode);
    }
    return table;
}

/// A letter whose upper case stands in no place of the page is its own upper case.
CodePage::UpperCaseTable upperCaseTable(UINT codePage, const CodePage::UnicodeTable& unicode) {
    CodePage::UpperCaseTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = static_cast<char>(byte);
        const wchar_t letter = static_cast<wchar_t>(unicode[byte]);
        wchar_t upper = letter;
        ::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, &letter, 1, &upper, 1, nullptr,
                        nullptr, 0);
        if (upper == letter) continue;
        char converted = 0;
        BOOL lacking = FALSE;
        const int length = ::WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &upper, 1,
                                                 &converted, 1, nullptr, &lacking);
        if (length == 1 && lacking == FALSE) table[byte] = converted;
    }
    return table;
}

}  // namespace

std::wstring toWide(std::string_view text, const CodePage& codePage) {
    const std::u16string converted = codePage.toUtf16(text);
    return {converted.begin(), converted.end()};
}

std::string fromWide(std::wstring_view text, const CodePage& codePage) {
    return codePage.fromUtf16(std::u16string(text.begin(), text.end()));
}

std::string windowText(HWND window, const CodePage& codePage) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return fromWide(std::wstring_view(text).substr(0, static_cast<std::size_t>(length)), codePage);
}

void setWindowText(HWND window, std::string_view text, const CodePage& codePage) {
    ::SetWindowTextW(window, toWide(text, codePage).c_str());
}

std::string systemErrorText(DWORD error, const CodePage& codePage) {
    std::array<wchar_t, 512> buffer{};
    const DWORD length =
        ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                         0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::wstring_view text(buffer.data(), length);
    while (!text.empty() && text.back() <= L' ') text.remove_suffix(1);
    return fromWide(text, codePage);
}

CodePage systemCodePage() {
    const UINT codePage = pageForTexts({::GetACP(), pageOfLanguage(), isSingleByte});
    if (codePage == westernPage) return CodePage::windows1252();
    const CodePage::UnicodeTable unicode = unicodeTable(codePage);
    return {unicode, upperCaseTable(codePage, unicode)};
}

}  // namespace quorvel
