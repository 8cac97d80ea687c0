#include "platform/win32/CommandLine.h"

#include <cstdio>
#include <memory>
#include <string_view>

#include <windows.h>

#include "platform/win32/Texts.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace quorvel {

namespace {

struct LocalFreer {
    void operator()(wchar_t** words) const { LocalFree(static_cast<HLOCAL>(words)); }
};

std::string utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

}  // namespace

std::vector<std::string> commandLineArguments() {
    int count = 0;
    const std::unique_ptr<wchar_t*, LocalFreer> words(
        CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int word = 1; words && word < count; ++word) arguments.push_back(utf8(words.get()[word]));
    return arguments;
}

CodePage sheetCodePage() {
    return systemCodePage();
}

Utf8Streams::Utf8Streams() : consoleCodePage_(GetConsoleOutputCP()) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Streams::~Utf8Streams() {
    if (consoleCodePage_ != 0) SetConsoleOutputCP(consoleCodePage_);
}

}  // namespace quorvel
