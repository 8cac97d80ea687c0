#include <csignal>

#include "platform/posix/PosixFiles.h"
#include "qrv/Qrv.h"

int main(int argc, char** argv) {
    // Writing to a reader that is gone fails instead of killing the program.
    std::signal(SIGPIPE, SIG_IGN);
    quorvel::PosixFiles files;
    quorvel::Environment environment{.files = files,
                                     .codePage = quorvel::CodePage::windows1252(),
                                     .programFolder = std::nullopt,
                                     .expandsWildcards = false};
    return static_cast<int>(quorvel::runQrv({argv + 1, argv + argc}, environment));
}
