#pragma once

#include <cstddef>
#include <span>

#include "core/ports/Files.h"

namespace quorvel {

/// A file on a full disk.
class FullFile final : public OutputFile {
  public:
    int attempts = 0;

    bool cut() override { return true; }
    bool flush() override { return true; }

  private:
    std::size_t writeSome(std::span<const std::byte>) override {
        ++attempts;
        return 0;
    }
};

}  // namespace quorvel
