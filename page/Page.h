#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "page/Html.h"
#include "page/PageContent.h"

namespace quorvel {

/// Takes a page piece by piece.
using PageSink = std::function<void(std::string_view)>;

/// A page for a browser that needs nothing but itself: of one class, of several with a list of
/// contents, or of one student. It holds no script and forbids all requests.
class Page {
  public:
    /// `several` is whether more than one class was asked for.
    explicit Page(bool several) : several_(several) {}

    void add(const ClassContent& content);
    void add(const StudentContent& content);

    /// Whether nothing was added.
    bool isEmpty() const { return sections_.empty(); }
    /// Requires something that was added.
    void write(const PageSink& sink) const;

  private:
    struct Entry {
        std::string title;
        PageHeading heading;
        std::size_t students = 0;
        std::optional<ClassAverage> average;
        std::int64_t emptyCount = 0;
    };

    std::string titleOfAll() const;
    Html contentsRow(std::size_t index, bool withTeacher) const;
    Html contents() const;

    bool several_;
    std::string title_;
    std::vector<Entry> entries_;
    std::vector<Html> sections_;
};

}  // namespace quorvel
