#pragma once

#include <string>
#include <variant>
#include <vector>

#include "qrv/Request.h"

namespace quorvel {

/// A text that the command line asks for in place of a command: help, or the version.
struct HelpText {
    std::string text;
};

/// Takes the words behind the program's own name apart. `scaleInForce` is what help says of the
/// grading scale. Throws UsageError for a line that qrv does not know.
std::variant<Request, HelpText> parseCommandLine(const std::vector<std::string>& words,
                                                 const std::string& scaleInForce);

}  // namespace quorvel
