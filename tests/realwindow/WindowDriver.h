#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>

#include <windows.h>

#include "tests/realwindow/Bench.h"
#include "tests/realwindow/DialogWindow.h"
#include "tests/realwindow/HeldFiles.h"
#include "tests/realwindow/PrintQueue.h"
#include "tests/realwindow/ProgramFolder.h"
#include "tests/realwindow/QueueMark.h"
#include "tests/realwindow/RunningProgram.h"
#include "tests/scenario/Driver.h"

namespace quorvel::scenario {

/// Runs a scenario in the real window, from outside: posts the messages that mouse and keys are,
/// presses the buttons of real dialogs, and believes only what is on the screen, on the disk and on
/// paper.
class WindowDriver final : public Driver {
  public:
    /// The bench must outlive the driver.
    explicit WindowDriver(const Bench& bench);

    std::string programFolderText() const override;
    std::filesystem::path resolve(std::string_view path) const override;

    bool set(const Setting& setting) override;
    bool act(const Action& action) override;

    std::optional<Dialog> openDialog() override;
    void answer(const Reply& reply) override;

    bool hasEnded() override;
    std::optional<std::string> windowCaption() override;
    std::optional<std::string> text(std::string_view name) override;
    std::optional<std::uint32_t> colour(std::string_view name) override;
    std::optional<bool> visible(std::string_view name) override;
    std::optional<bool> focused(std::string_view name) override;
    std::optional<ClickPoint> position(std::string_view name) override;
    std::optional<std::string> selectedText(std::string_view name) override;
    std::optional<BarState> scrollBar(std::string_view name) override;

    std::optional<int> glyphAt(Surface surface, int x, int y) override;
    int visibleColumns() override;
    int rightColumnsShift() override;

    std::optional<std::vector<std::byte>> contentOf(std::string_view path) override;
    std::optional<std::vector<PrintedJob>> printedJobs() override;
    std::optional<std::vector<FileCopy>> copies() override;
    std::optional<std::vector<std::string>> launches() override;

    /// The dialog seen last may be covered by another one by now: the next look finds out.
    void forgetDialog() { dialog_.reset(); }

    /// The process of the program under way.
    HANDLE process() const;

    /// The main window, when the program runs and shows it; throws ScenarioError where it does not.
    HWND mainWindow() const;

  private:
    HWND control(std::string_view name) const;
    // What the user does; nothing is waited for.
    void start();
    void chooseMenu(std::string_view entry);
    bool click(const ClickPoint& place);
    void clickControl(std::string_view name);
    void type(std::string_view text);
    void pressKey(std::string_view key);
    void moveScrollBar(std::string_view bar, int position);
    void closeWindow();
    void endSession();

    /// What the user did begins to change what is on the screen.
    void beginAction();
    void clickAt(HWND window, int x, int y);

    // Waiting for the program.
    std::optional<DialogWindow> settledDialog();
    bool isStillClosing(const DialogWindow& dialog) const;
    bool staysOpen(const DialogWindow& passwordWindow) const;
    bool isIdle();
    bool goOnEndingSession();

    // Looking at the window.
    using RecentFiles = std::array<std::optional<std::string>, recentFileCount>;
    const std::optional<RecentFiles>& recentFiles();
    std::optional<std::string> menuEntryText(std::string_view name);
    std::optional<bool> menuEntryIsVisible(std::string_view name);
    const Picture& clientPicture();
    /// Whether something lies over a part of the client area.
    bool isCovered(const RECT& area) const;
    RECT clientAreaOf(HWND child) const;

    const Bench& bench_;
    ProgramFolder folder_;
    HeldFiles heldFiles_;
    PrintQueue queue_;
    std::unique_ptr<RunningProgram> program_;

    QueueMark mark_;
    std::optional<DialogWindow> dialog_;    // as openDialog() gave it
    std::optional<DialogWindow> answered_;  // the last one that was
    bool sessionEnds_ = false;
    std::optional<Picture> clientPicture_;
    std::optional<RecentFiles> recentFiles_;
};

}  // namespace quorvel::scenario
