#include "tests/walk/Invariants.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "storage/RecordFile.h"
#include "window/CanvasPlaces.h"

namespace quorvel::walk {

namespace {

void require(bool holds, const std::string& what) {
    if (!holds) throw Violation(what);
}

void requireEqual(const std::string& came, const std::string& wanted, const std::string& what) {
    if (came != wanted) throw Violation(what + ": \"" + came + "\" instead of \"" + wanted + "\"");
}

void requireEqual(long came, long wanted, const std::string& what) {
    if (came != wanted)
        throw Violation(what + ": " + std::to_string(came) + " instead of " +
                        std::to_string(wanted));
}

/// A range over `count` entries of which `shown` are shown at a time.
void checkBar(const ScrollBar& bar, int count, int shown, const std::string& name) {
    requireEqual(bar.minimum(), count == 0 ? 0 : 1, name + " minimum");
    requireEqual(bar.maximum(), count == 0 ? 0 : std::max(1, count - shown + 1), name + " maximum");
    require(bar.position() >= bar.minimum() && bar.position() <= bar.maximum(),
            name + " is at " + std::to_string(bar.position()));
}

/// A number as entry leaves it: digits, and a fraction only below one half.
bool isEnteredNumber(const std::string& text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (point == 0 || !std::ranges::all_of(text.substr(0, point), isDigit)) return false;
    if (point == text.size()) return true;
    const std::string fraction = text.substr(point + 1);
    return !fraction.empty() && std::ranges::all_of(fraction, isDigit) && fraction[0] < '5';
}

std::string place(int assignment, int student) {
    return "assignment " + std::to_string(assignment) + ", student " + std::to_string(student);
}

/// Adds as the program does: rounded to a whole number, skipped where 16 bits do not hold it.
void add(long& sum, double addend) {
    const double result = std::nearbyint(static_cast<double>(sum) + addend);
    if (result >= INT16_MIN && result <= INT16_MAX) sum = static_cast<long>(result);
}

struct Sums {
    long earned = 0;
    long possible = 0;

    /// Tenths of a percent.
    long percentage() const { return possible == 0 ? 1000 : earned * 1000 / possible; }
};

Sums sumsOf(const GradeSheet& sheet, int student) {
    Sums sums;
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        const std::string score = sheet.score(assignment, student).text();
        if (score == "E") continue;
        add(sums.earned, std::strtod(score.c_str(), nullptr));
        add(sums.possible, sheet.assignmentValue(assignment));
    }
    return sums;
}

char letterOf(long percentageTenths, const GradingScale& scale) {
    const long allowance = scale.roundUp == "0.5" ? 5 : 0;
    char letter = 'F';
    for (int grade = 4; grade >= 0; --grade)
        if (percentageTenths >= 10L * scale.minimums[static_cast<std::size_t>(grade)] - allowance)
            letter = static_cast<char>('A' + grade);
    return letter;
}

/// What a record keeps of a score: its text to this length.
Score asStored(const Score& score) {
    const std::string text = score.text();
    return text.size() > longestTaggedText ? Score::ofText(text.substr(0, longestTaggedText))
                                           : score;
}

std::string withoutFraction(const std::string& number) {
    return number.substr(0, number.find('.'));
}

/// The three glyphs of a score, in characters.
std::string glyphsOf(const Score& score) {
    std::string text = score.isExcused() ? "E" : withoutFraction(score.text());
    if (text.size() > 3) text = "...";
    return std::string(3 - text.size(), ' ') + text;
}

char characterOf(int glyph, GlyphSet set) {
    if (glyph == glyph::blank(set)) return ' ';
    if (glyph == glyph::decimalPoint) return '.';
    for (int digit = 0; digit <= 9; ++digit)
        if (glyph == glyph::digit(digit, set)) return static_cast<char>('0' + digit);
    for (char letter = 'A'; letter <= 'F'; ++letter)
        if (glyph == glyph::letter(letter, set)) return letter;
    return '?';
}

std::string shownAt(const GlyphRecord& canvas, int x, int row, int slots) {
    std::string text;
    for (int slot = 0; slot < slots; ++slot)
        text += characterOf(canvas.glyphAt(Surface::Grid, canvas_places::slotLeft(x, slot),
                                           canvas_places::rowTop(row)),
                            canvas_places::rowSet(row));
    return text;
}

void checkScores(const frmQRV& form, const GlyphRecord& canvas) {
    const GradeSheet& sheet = form.sheet();
    for (int row = 0; row < visibleRows; ++row)
        for (int column = 0; column < form.layout().visibleColumns; ++column) {
            const int student = form.firstVisibleStudent() + row;
            const int assignment = form.firstVisibleAssignment() + column;
            const bool exists = student >= 1 && student <= sheet.studentCount() &&
                                assignment >= 1 && assignment <= sheet.assignmentCount();
            const std::string wanted =
                exists ? glyphsOf(sheet.score(assignment, student)) : std::string(3, ' ');
            requireEqual(shownAt(canvas, canvas_places::scoreLeft(column), row, 3), wanted,
                         "shown for " + place(assignment, student));
        }
}

}  // namespace

void checkWindow(const frmQRV& form) {
    const GradeSheet& sheet = form.sheet();
    const Controls& controls = form.controls();
    checkBar(controls.hsbA, sheet.assignmentCount(), form.layout().visibleColumns, "hsbA");
    checkBar(controls.vsbA, sheet.assignmentCount(), form.layout().listLines, "vsbA");
    checkBar(controls.vsbS, sheet.studentCount(), visibleRows, "vsbS");

    const CellEditor& txtEnter = controls.txtEnter;
    if (!txtEnter.visible) return;
    const WorkingState& state = form.state();
    require(state.currentStudent >= 1 && state.currentStudent <= sheet.studentCount() &&
                state.currentAssignment >= 1 && state.currentAssignment <= sheet.assignmentCount(),
            "the editor is open over " + place(state.currentAssignment, state.currentStudent));
    require(txtEnter.selectionStart + txtEnter.selectionLength <= txtEnter.text.size(),
            "more is selected than the editor holds");
}

void checkRosterOrder(const frmQRV& form) {
    const GradeSheet& sheet = form.sheet();
    const CodePage& codePage = *form.state().codePage;
    for (int student = 2; student <= sheet.studentCount(); ++student)
        require(codePage.upperCase(sheet.studentName(student - 1)) <=
                    codePage.upperCase(sheet.studentName(student)),
                "student " + std::to_string(student) + " stands behind a later name");
}

void checkCells(const GradeSheet& sheet) {
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment)
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            const Score score = sheet.score(assignment, student);
            require(score.isEmpty() || score.isExcused() || score == Score::zero() ||
                        (std::holds_alternative<std::string>(score.value()) &&
                         isEnteredNumber(score.text())),
                    place(assignment, student) + " holds \"" + score.text() + "\"");
        }
}

void checkFigures(const frmQRV& form) {
    const GradeSheet& sheet = form.sheet();
    const GradingScale& scale = form.state().gradingScale;
    std::vector<long> percentages;
    for (int student = 1; student <= sheet.studentCount(); ++student)
        percentages.push_back(sumsOf(sheet, student).percentage());

    long total = 0;
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        const std::string who = " of student " + std::to_string(student);
        const StudentFigures& figures = sheet.figures(student);
        const Sums sums = sumsOf(sheet, student);
        const long percentage = percentages[static_cast<std::size_t>(student) - 1];
        requireEqual(figures.pointsEarned, sums.earned, "points earned" + who);
        requireEqual(figures.pointsPossible, sums.possible, "points possible" + who);
        requireEqual(figures.percentageTenths, percentage, "percentage" + who);
        requireEqual(static_cast<char>(figures.letterGrade), letterOf(percentage, scale),
                     "letter" + who);
        requireEqual(
            figures.rank,
            1 + std::ranges::count_if(percentages, [&](long other) { return other > percentage; }),
            "rank" + who);
        total += percentage;
    }
    if (percentages.empty()) return;
    require(sheet.classAverage().has_value(), "a class without an average");
    const long average =
        std::lrint(static_cast<double>(total) / static_cast<double>(percentages.size()));
    requireEqual(sheet.classAverage()->tenths, average, "class average");
    requireEqual(static_cast<char>(sheet.classAverage()->letterGrade), letterOf(average, scale),
                 "letter of the class");
}

void checkDisplay(const frmQRV& form, const GlyphRecord& canvas) {
    const GradeSheet& sheet = form.sheet();
    std::string names;
    for (int row = 0; row < visibleRows; ++row) {
        const int student = form.firstVisibleStudent() + row;
        if (student < 1 || student > sheet.studentCount()) break;
        if (row > 0) names += "\r\n";
        names += form.showsAliases() ? sheet.studentAlias(student)
                                     : sheet.studentName(student).substr(0, 15);
        const int letterLeft = canvas_places::letterGradeLeft + form.layout().rightColumnsShift;
        requireEqual(shownAt(canvas, letterLeft, row, 1),
                     std::string(1, static_cast<char>(sheet.figures(student).letterGrade)),
                     "shown letter of student " + std::to_string(student));
    }
    requireEqual(form.controls().txtS.text, names, "names beside the grid");
    checkScores(form, canvas);
}

void checkSameSheet(const GradeSheet& saved, const GradeSheet& sheet) {
    requireEqual(saved.sheetTitle, sheet.sheetTitle, "saved title");
    requireEqual(saved.studentCount(), sheet.studentCount(), "saved students");
    requireEqual(saved.assignmentCount(), sheet.assignmentCount(), "saved assignments");
    require(saved.studentCountIfSet() == sheet.studentCountIfSet(), "saved student count");
    require(saved.assignmentCountIfSet() == sheet.assignmentCountIfSet(), "saved assignment count");
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        requireEqual(saved.studentName(student), sheet.studentName(student), "saved name");
        requireEqual(saved.studentAlias(student), sheet.studentAlias(student), "saved alias");
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        requireEqual(saved.assignmentName(assignment), sheet.assignmentName(assignment),
                     "saved assignment");
        requireEqual(saved.assignmentValue(assignment), sheet.assignmentValue(assignment),
                     "saved value");
        for (int student = 1; student <= sheet.studentCount(); ++student)
            require(saved.score(assignment, student) == asStored(sheet.score(assignment, student)),
                    "saved score of " + place(assignment, student) + " is another one");
    }
}

}  // namespace quorvel::walk
