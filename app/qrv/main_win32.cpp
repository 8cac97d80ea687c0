#include "platform/win32/CommandLine.h"
#include "platform/win32/WindowsFiles.h"
#include "qrv/Qrv.h"

int main() {
    const quorvel::Utf8Output output;
    quorvel::WindowsFiles files;
    const quorvel::CodePage codePage = quorvel::sheetCodePage();
    quorvel::Environment environment{files, codePage};
    return static_cast<int>(quorvel::runQrv(quorvel::commandLineArguments(), environment));
}
