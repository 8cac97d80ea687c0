#include "platform/win32/CommandLine.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/WindowsFiles.h"
#include "qrv/Qrv.h"

int main() {
    const quorvel::Utf8Streams streams;
    quorvel::WindowsFiles files;
    const quorvel::CodePage codePage = quorvel::sheetCodePage();
    // The shells of Windows leave * and ? to the program.
    quorvel::Environment environment{.files = files,
                                     .codePage = codePage,
                                     .programFolder = quorvel::programFolder(),
                                     .expandsWildcards = true};
    return static_cast<int>(quorvel::runQrv(quorvel::commandLineArguments(), environment));
}
