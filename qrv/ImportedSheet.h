#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/GradeSheet.h"

namespace quorvel {

/// Something to say about one place of a file; `text` is what stands there. All are UTF-8.
struct Remark {
    std::string place;
    std::string reason;
    std::string text;
};

/// Remarks on a file, of which the first ones are kept and all are counted.
class Remarks {
  public:
    static constexpr std::size_t mostKept = 20;

    void add(std::string place, std::string reason, std::string_view text) {
        ++count_;
        if (count_ > mostKept) return;
        kept_.push_back({std::move(place), std::move(reason), std::string(text)});
    }

    const std::vector<Remark>& kept() const { return kept_; }
    std::size_t count() const { return count_; }

  private:
    std::vector<Remark> kept_;
    std::size_t count_ = 0;
};

/// What a file to import comes to. The sheet is of use only where there are no mistakes.
struct ImportedSheet {
    GradeSheet sheet;
    /// Nothing where the file says none.
    std::optional<std::string> title;
    Remarks mistakes;
    Remarks warnings;
};

}  // namespace quorvel
