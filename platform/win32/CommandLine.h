#pragma once

#include <string>
#include <vector>

#include "core/CodePage.h"

namespace quorvel {

/// The words of the process's command line behind the program's name, in UTF-8.
std::vector<std::string> commandLineArguments();

/// The code page that sheets are written in on this system.
CodePage sheetCodePage();

/// While it lives, standard output takes bytes as they are, and a console shows them as UTF-8.
class Utf8Output {
  public:
    Utf8Output();
    ~Utf8Output();
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;

  private:
    unsigned int consoleCodePage_;
};

}  // namespace quorvel
