#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tests/scenario/Expectations.h"

namespace quorvel::scenario {

/// Compares each kind of expectation with what a driver sees.
class Comparison {
  public:
    Comparison(Driver& driver, const std::filesystem::path& folder)
        : driver_(driver), folder_(folder), programFolder_(driver.programFolderText()) {}

    // The sheet and the state beside it.
    Outcome operator()(const Count& expected) const;
    Outcome operator()(const SheetTitle& expected) const;
    Outcome operator()(const StudentIs& expected) const;
    Outcome operator()(const AssignmentIs& expected) const;
    Outcome operator()(const CellIs& expected) const;
    Outcome operator()(const FiguresAre& expected) const;
    Outcome operator()(const AverageIs& expected) const;
    Outcome operator()(const DirtyIs& expected) const;
    Outcome operator()(const CurrentPathIs& expected) const;

    // The window's controls.
    Outcome operator()(const WindowCaption& expected) const;
    Outcome operator()(const WindowEnded& expected) const;
    Outcome operator()(const ControlText& expected) const;
    Outcome operator()(const ControlColour& expected) const;
    Outcome operator()(const BarRange& expected) const;
    Outcome operator()(const BarPosition& expected) const;
    Outcome operator()(const ControlVisible& expected) const;
    Outcome operator()(const ControlAt& expected) const;
    Outcome operator()(const ControlFocused& expected) const;
    Outcome operator()(const SelectedText& expected) const;

    // What is drawn on the canvases.
    Outcome operator()(const ScoreGlyphs& expected) const;
    Outcome operator()(const RowGlyphSet& expected) const;
    Outcome operator()(const HeadingGlyphs& expected) const;
    Outcome operator()(const ResultGlyphs& expected) const;
    Outcome operator()(const FootGlyphs& expected) const;
    Outcome operator()(const FootClassGlyphs& expected) const;

    // Files, and the system around the program.
    Outcome operator()(const FolderExists& expected) const;
    Outcome operator()(const FileMissing& expected) const;
    Outcome operator()(const FileRecordCount& expected) const;
    Outcome operator()(const FileBytes& expected) const;
    Outcome operator()(const FileRecord& expected) const;
    Outcome operator()(const Copied& expected) const;
    Outcome operator()(const CopiedNothing& expected) const;
    Outcome operator()(const Launched& expected) const;

    // The last print job.
    Outcome operator()(const PrintedFile& expected) const;
    Outcome operator()(const PrintedLine& expected) const;
    Outcome operator()(const PrintedContains& expected) const;
    Outcome operator()(const PrintedFont& expected) const;
    Outcome operator()(const PrintedLandscape& expected) const;
    Outcome operator()(const PrintedNothing& expected) const;

  private:
    std::string quotedText(std::string_view text) const;
    /// Compares a text, whose `*\` is resolved first, with what was seen.
    Outcome compareText(std::string_view expected, const std::optional<std::string>& seen) const;

    /// Nothing where it cannot be read, `glyphs` slots from (x, y) on.
    std::optional<std::string> glyphs(Surface surface, int x, int y, int slots) const;
    Outcome compareGlyphs(std::string_view expected, Surface surface, int x, int y,
                          int slots) const;
    int columnLeft(int column) const;

    const GradeSheet* sheetWith(int student, int assignment) const;
    /// Throws where nothing was printed; nothing where printing cannot be seen.
    std::optional<PrintedJob> lastJob() const;

    Driver& driver_;
    const std::filesystem::path& folder_;
    std::string programFolder_;
};

inline Outcome asExpected() {
    return {};
}

inline Outcome cannotBeSeen() {
    return {Outcome::Kind::CannotBeSeen, {}};
}

inline Outcome different(std::string came) {
    return {Outcome::Kind::Different, std::move(came)};
}

/// As expected, or different with what came.
inline Outcome whether(bool same, std::string came) {
    return same ? asExpected() : different(std::move(came));
}

}  // namespace quorvel::scenario
