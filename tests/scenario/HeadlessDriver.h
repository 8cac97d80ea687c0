#pragma once

#include <filesystem>
#include <memory>

#include "platform/posix/PosixFiles.h"
#include "tests/fakes/FakeCanvas.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakePrinter.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/scenario/Conversation.h"
#include "tests/scenario/Driver.h"
#include "tests/scenario/FormEvents.h"

namespace quorvel::scenario {

/// A new folder of its own in the system's place for temporary files, removed at the end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// Runs a scenario against the portable program with fakes around it. It sees everything.
class HeadlessDriver : public Driver {
  public:
    HeadlessDriver();

    std::string programFolderText() const override;
    std::filesystem::path resolve(std::string_view path) const override;

    bool set(const Setting& setting) override;
    bool act(const Action& action) override;

    std::optional<Dialog> openDialog() override;
    void answer(const Reply& reply) override;

    bool hasEnded() override;
    std::optional<std::string> windowCaption() override;
    std::optional<std::string> text(std::string_view control) override;
    std::optional<std::uint32_t> colour(std::string_view control) override;
    std::optional<bool> visible(std::string_view control) override;
    std::optional<bool> focused(std::string_view control) override;
    std::optional<ClickPoint> position(std::string_view control) override;
    std::optional<std::string> selectedText(std::string_view control) override;
    std::optional<BarState> scrollBar(std::string_view bar) override;

    std::optional<int> glyphAt(Surface surface, int x, int y) override;
    int visibleColumns() override;
    int rightColumnsShift() override;

    std::optional<std::vector<std::byte>> contentOf(std::string_view path) override;
    std::optional<std::vector<PrintedJob>> printedJobs() override;
    std::optional<std::vector<FileCopy>> copies() override;
    std::optional<std::vector<std::string>> launches() override;

    const GradeSheet* sheet() override;
    const WorkingState* state() override;

  private:
    /// The program where it runs and shows its window; throws ScenarioError where it does not.
    frmQRV& program();
    void start();
    void storePassword(std::string_view password) const;
    void openElsewhere(const OpenElsewhere& opened);
    void closeElsewhere(const CloseElsewhere& closed);

    TemporaryFolder folder_;
    TemporaryFolder user_;
    PosixFiles disk_;
    FaultyFiles files_{disk_};
    FakePrinter printer_;
    FakeCanvas canvas_;
    FakeClock clock_;
    FakeShell shell_;
    std::unique_ptr<frmQRV> program_;
    /// Behind the program, so that it lets go of it before the program goes.
    Conversation conversation_{[this](std::string_view path) { return resolve(path); }};
};

}  // namespace quorvel::scenario
