#include <csignal>

#include "platform/posix/PosixFiles.h"
#include "qrv/Qrv.h"

int main(int argc, char** argv) {
    // Writing to a reader that is gone fails instead of killing the program.
    std::signal(SIGPIPE, SIG_IGN);
    quorvel::PosixFiles files;
    quorvel::Environment environment{files, quorvel::CodePage::windows1252()};
    return static_cast<int>(quorvel::runQrv({argv + 1, argv + argc}, environment));
}
