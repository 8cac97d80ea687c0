#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/MainWindow.h"

namespace quorvel {

/// A main window that only notes what it was asked for.
class FakeMainWindow final : public MainWindow {
  public:
    /// The calls in their order, such as "RefreshGrid" or "setCaption a.qrv".
    std::vector<std::string> calls;
    bool aliasesShown = false;
    /// What closing it comes to.
    bool closes = true;

    void RefreshGrid() override { calls.emplace_back("RefreshGrid"); }
    void hideEditor() override { calls.emplace_back("hideEditor"); }
    void setCaption(std::string_view caption) override {
        calls.push_back("setCaption " + std::string(caption));
    }
    void resetHeadings() override { calls.emplace_back("resetHeadings"); }
    void setStudentScrollMaximum(int maximum) override {
        calls.push_back("setStudentScrollMaximum " + std::to_string(maximum));
    }
    bool showsAliases() const override { return aliasesShown; }
    bool close() override {
        calls.emplace_back("close");
        return closes;
    }
    void reload() override { calls.emplace_back("reload"); }
    void endProgram() override { calls.emplace_back("endProgram"); }
};

}  // namespace quorvel
