#pragma once

#include <stdexcept>

namespace quorvel {

/// The command line is not one that qrv knows.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What the command was given could not be read or used; the text names the file.
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The result could not be written; the text names where to. No other sheet makes up for that.
class OutputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A report that came to a figure without a value; the text names the file.
class ReportStopped : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace quorvel
