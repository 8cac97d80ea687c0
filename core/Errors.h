#pragma once

#include <exception>
#include <stdexcept>

namespace quorvel {

/// Base of everything that the program reports to the user in a message box.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An access outside the bounds of the sheet: a fault of the program, not of the user.
class InternalError : public Error {
  public:
    using Error::Error;
};

/// The sheet cannot take another student or assignment.
class SheetFullError : public Error {
  public:
    using Error::Error;
};

/// There is no printer, or it failed; the text is the reason.
class PrinterError : public Error {
  public:
    using Error::Error;
};

/// The user called a job off in a box or a queue of the printer's own, and so knows of it. Nothing
/// to report: no Error.
class PrintingCalledOff : public std::exception {};

/// A figure that has no value was asked for.
class DivisionByZeroError : public Error {
  public:
    DivisionByZeroError() : Error("Division by zero") {}
};

}  // namespace quorvel
