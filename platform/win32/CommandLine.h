#pragma once

#include <string>
#include <vector>

#include "core/CodePage.h"

namespace quorvel {

/// The words of the process's command line behind the program's name, in UTF-8.
std::vector<std::string> commandLineArguments();

/// The code page that sheets are written in on this system.
CodePage sheetCodePage();

/// While it lives, standard input and output carry bytes as they are, and a console shows them as
/// UTF-8.
class Utf8Streams {
  public:
    Utf8Streams();
    ~Utf8Streams();
    Utf8Streams(const Utf8Streams&) = delete;
    Utf8Streams& operator=(const Utf8Streams&) = delete;

  private:
    unsigned int consoleCodePage_;
};

}  // namespace quorvel
