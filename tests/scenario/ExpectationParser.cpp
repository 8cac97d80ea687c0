#include <algorithm>
#include <array>

#include "tests/scenario/Parser.h"

namespace quorvel::scenario {

namespace {

constexpr std::array<std::string_view, 17> controlNames{
    "lblStudent", "lblSN", "txtS",  "txtSN", "lblAN",       "lblA1",
    "lblA2",      "txtA",  "lblAV", "txtAV", "lblClassAvg", "lblAvgScore",
    "Label1",     "hsbA",  "vsbA",  "vsbS",  "txtEnter"};

bool isControl(std::string_view name) {
    return name.starts_with("mnu") || std::ranges::find(controlNames, name) != controlNames.end();
}

Expectation parseCell(LineReader& line) {
    CellIs cell;
    cell.assignment = line.integer();
    cell.student = line.integer();
    if (line.take("empty")) {
        cell.kind = CellIs::Kind::Empty;
    } else if (line.take("number")) {
        cell.kind = CellIs::Kind::Number;
        cell.value = line.word();
    } else {
        line.require("text");
        cell.kind = CellIs::Kind::Text;
        cell.value = line.text();
    }
    return cell;
}

Expectation parseFigures(LineReader& line) {
    FiguresAre figures;
    figures.student = line.integer();
    do {
        if (line.take("earned"))
            figures.earned = line.integer();
        else if (line.take("possible"))
            figures.possible = line.integer();
        else if (line.take("percentage"))
            figures.percentage = line.word();
        else if (line.take("grade"))
            figures.grade = line.word();
        else if (line.take("rank"))
            figures.rank = line.integer();
        else
            line.fail("earned, possible, percentage, grade or rank is expected");
    } while (!line.atEnd());
    return figures;
}

Expectation parseAverage(LineReader& line) {
    if (line.take("none")) return AverageIs{};
    AverageIs average{line.word(), {}};
    average.grade = line.word();
    return average;
}

bool parseYes(LineReader& line) {
    if (line.take("yes")) return true;
    line.require("no");
    return false;
}

Expectation parseWindow(LineReader& line) {
    if (line.take("ended")) return WindowEnded{};
    line.require("caption");
    return WindowCaption{line.text()};
}

Expectation parseControl(const std::string& control, LineReader& line) {
    if (line.take("text")) return ControlText{control, line.text()};
    if (line.take("colour")) return ControlColour{control, line.colour()};
    if (line.take("range")) {
        BarRange range{control, line.integer(), 0};
        range.maximum = line.integer();
        return range;
    }
    if (line.take("position")) return BarPosition{control, line.integer()};
    if (line.take("visible")) return ControlVisible{control, true};
    if (line.take("hidden")) return ControlVisible{control, false};
    if (line.take("at")) {
        ControlAt place{control, line.integer(), 0};
        place.top = line.integer();
        return place;
    }
    if (line.take("focused")) return ControlFocused{control};
    line.require("selected");
    return SelectedText{control, line.text()};
}

Expectation parseScoreGlyphs(LineReader& line) {
    ScoreGlyphs glyphs;
    glyphs.row = line.integer();
    glyphs.column = line.integer();
    glyphs.glyphs = line.text();
    return glyphs;
}

Expectation parseGlyphSet(LineReader& line) {
    RowGlyphSet set{line.integer(), GlyphSet::Plain};
    if (line.take("plain")) return set;
    line.require("double");
    set.set = GlyphSet::Double;
    return set;
}

Expectation parseResults(LineReader& line) {
    ResultGlyphs results;
    results.row = line.integer();
    do {
        if (line.take("earned"))
            results.earned = line.text();
        else if (line.take("possible"))
            results.possible = line.text();
        else if (line.take("percentage"))
            results.percentage = line.text();
        else if (line.take("grade"))
            results.grade = line.text();
        else
            line.fail("earned, possible, percentage or grade is expected");
    } while (!line.atEnd());
    return results;
}

Expectation parseFoot(LineReader& line) {
    if (line.take("class")) {
        FootClassGlyphs foot{line.text(), {}};
        foot.grade = line.text();
        return foot;
    }
    FootGlyphs foot;
    if (line.take("percent"))
        foot.line = FootGlyphs::Line::Percent;
    else
        line.require("score");
    foot.column = line.integer();
    foot.glyphs = line.text();
    return foot;
}

std::int16_t wordOf(LineReader& line) {
    const int number = line.integer();
    if (number < INT16_MIN || number > INT16_MAX) line.fail("the number does not fit 16 bits");
    return static_cast<std::int16_t>(number);
}

TaggedValue parseTagged(LineReader& line) {
    if (line.take("empty")) return std::monostate{};
    if (line.take("integer")) return wordOf(line);
    if (line.take("single")) return static_cast<float>(line.decimal());
    line.require("text");
    return line.text();
}

FileRecord parseRecord(const std::string& path, LineReader& line) {
    FileRecord record;
    record.path = path;
    record.record = line.integer();
    if (record.record < 1) line.fail("records count from 1");
    if (line.take("text")) {
        record.kind = FileRecord::Kind::Text;
        record.value = line.text();
    } else if (line.take("integer")) {
        record.kind = FileRecord::Kind::Integer;
        record.value = wordOf(line);
    } else {
        line.require("tagged");
        record.kind = FileRecord::Kind::Tagged;
        record.value = parseTagged(line);
    }
    return record;
}

Expectation parseFile(LineReader& line) {
    const std::string path = line.text();
    if (line.take("missing")) return FileMissing{path};
    if (line.take("records")) return FileRecordCount{path, line.integer()};
    if (line.take("record")) return parseRecord(path, line);
    line.require("bytes");
    FileBytes file;
    file.path = path;
    const int offset = line.integer();
    const auto bytes = bytesFromHexadecimal(line.text());
    if (offset < 0 || !bytes || bytes->empty())
        line.fail("an offset and pairs of hexadecimal digits are expected");
    file.offset = static_cast<std::size_t>(offset);
    file.bytes = *bytes;
    return file;
}

Expectation parsePrinted(LineReader& line) {
    if (line.textComesNext()) return PrintedFile{line.text()};
    if (line.take("none")) return PrintedNothing{};
    if (line.take("landscape")) return PrintedLandscape{};
    if (line.take("contains")) return PrintedContains{line.text()};
    if (line.take("font")) {
        PrintedFont font{line.text(), 0};
        font.size = static_cast<float>(line.decimal());
        return font;
    }
    PrintedLine printed;
    line.require("page");
    printed.page = line.integer();
    line.require("line");
    printed.line = line.integer();
    printed.text = line.text();
    return printed;
}

Expectation parseCopied(LineReader& line) {
    if (line.take("none")) return CopiedNothing{};
    Copied copied{line.text(), {}};
    copied.to = line.text();
    return copied;
}

/// The sheet and the state beside it.
std::optional<Expectation> parseSheet(std::string_view subject, LineReader& line) {
    if (subject == "students") return Count{Count::Of::Students, line.integer()};
    if (subject == "assignments") return Count{Count::Of::Assignments, line.integer()};
    if (subject == "title") return SheetTitle{line.text()};
    if (subject == "student") {
        StudentIs student{line.integer(), line.text(), {}};
        student.alias = line.text();
        return student;
    }
    if (subject == "assignment") {
        AssignmentIs assignment{line.integer(), line.text(), 0};
        assignment.value = line.integer();
        return assignment;
    }
    if (subject == "cell") return parseCell(line);
    if (subject == "figures") return parseFigures(line);
    if (subject == "average") return parseAverage(line);
    if (subject == "dirty") return DirtyIs{parseYes(line)};
    if (subject == "path") return CurrentPathIs{line.text()};
    return std::nullopt;
}

/// What is drawn on the canvases.
std::optional<Expectation> parseCanvas(std::string_view subject, LineReader& line) {
    if (subject == "glyphs") return parseScoreGlyphs(line);
    if (subject == "glyphset") return parseGlyphSet(line);
    if (subject == "heading") {
        HeadingGlyphs heading{line.integer(), {}};
        heading.glyphs = line.text();
        return heading;
    }
    if (subject == "results") return parseResults(line);
    if (subject == "foot") return parseFoot(line);
    return std::nullopt;
}

/// Files, the printer and the system around the program.
std::optional<Expectation> parseSurroundings(std::string_view subject, LineReader& line) {
    if (subject == "folder") return FolderExists{line.text()};
    if (subject == "file") return parseFile(line);
    if (subject == "printed") return parsePrinted(line);
    if (subject == "pages") return Count{Count::Of::PrintedPages, line.integer()};
    if (subject == "copied") return parseCopied(line);
    if (subject == "launched") return Launched{line.text()};
    return std::nullopt;
}

}  // namespace

Expectation parseExpectation(LineReader& line) {
    const std::string subject = line.word();
    std::optional<Expectation> expectation;
    if (subject == "window")
        expectation = parseWindow(line);
    else if (isControl(subject))
        expectation = parseControl(subject, line);
    if (!expectation) expectation = parseSheet(subject, line);
    if (!expectation) expectation = parseCanvas(subject, line);
    if (!expectation) expectation = parseSurroundings(subject, line);
    if (!expectation) line.fail(subject + " is nothing that can be expected");
    line.requireEnd();
    return *expectation;
}

}  // namespace quorvel::scenario
