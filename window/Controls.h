#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "core/ProgramName.h"

namespace quorvel {

/// Red, green and blue in the order of the notation: 0xC0C0C0 is light grey.
using Colour = std::uint32_t;

inline constexpr Colour headingGrey = 0xC0C0C0;
inline constexpr Colour headingRed = 0xFF0000;

/// What a label stands on. Headings have colours of their own where the system's colours do not
/// have to be kept to; paper and window have the system's.
enum class Ground { Heading, ChangedHeading, Paper, Window };

/// A text beside the grid. What its platform control shows is brought up to date after every event.
struct Label {
    std::string caption;
    Ground ground = Ground::Heading;

    bool operator==(const Label&) const = default;
};

/// A read-only text box; lines are separated by CR LF.
struct TextBox {
    std::string text;

    bool operator==(const TextBox&) const = default;
};

/// The in-place editor over one cell of the grid. It has the focus while it is visible.
struct CellEditor {
    std::string text;
    bool visible = false;
    int openings = 0;  // grows by one whenever the editor was opened, over whichever cell
    int left = 0;      // client pixels
    int top = 0;
    /// The selected part of the text.
    std::size_t selectionStart = 0;
    std::size_t selectionLength = 0;

    bool operator==(const CellEditor&) const = default;
};

/// A scroll bar. Whatever moves its position raises its change handler: the user, and just as well
/// a new range that no longer holds the position.
class ScrollBar {
  public:
    int minimum() const { return minimum_; }
    int maximum() const { return maximum_; }
    int position() const { return position_; }

    void onChange(std::function<void()> handler) { changed_ = std::move(handler); }

    void setMinimum(int minimum);
    void setMaximum(int maximum);
    /// A position outside the range stops at its end.
    void moveTo(int position);

  private:
    int minimum_ = 0;
    int maximum_ = 0;
    int position_ = 0;
    std::function<void()> changed_;
};

/// The controls of the main window as the program left them. The platform shows them; it changes
/// them only through frmQRV's event handlers.
struct Controls {
    std::string caption = programName;
    Label lblStudent{"Student Name"};
    Label lblSN{"#"};
    TextBox txtS;
    TextBox txtSN;
    Label lblAN{"1 2 3 4 5", Ground::Paper};
    Label lblA1{"#"};
    Label lblA2{"Assignment Name"};
    TextBox txtA;
    Label lblAV{"Value"};
    TextBox txtAV;
    Label lblClassAvg{"Class Average:", Ground::Window};
    Label lblAvgScore{"Average Score:", Ground::Window};
    Label Label1{"Average Percent:", Ground::Window};
    CellEditor txtEnter;
    ScrollBar hsbA;
    ScrollBar vsbA;
    ScrollBar vsbS;
};

}  // namespace quorvel
