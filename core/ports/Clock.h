#pragma once

#include <string>

namespace quorvel {

/// The current date and time in the system's short formats, in the code page.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual std::string date() const = 0;
    virtual std::string time() const = 0;
};

}  // namespace quorvel
