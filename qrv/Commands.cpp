#include "qrv/Commands.h"

#include <array>

namespace quorvel {

namespace {

constexpr std::array<std::string_view, 6> reportOptions{"alias",   "date",    "school",
                                                        "student", "teacher", "time"};
constexpr std::array<std::string_view, 1> exportOptions{"output"};
constexpr std::array<std::string_view, 2> importOptions{"output", "title"};

constexpr std::string_view figuresHelp =
    R"(Usage: qrv figures SHEET [--settings FOLDER] [--scale A,B,C,D,E] [--round-up]

Prints what every student's scores come to, as a table whose columns are
separated by tabs: a heading line, one line per student in the order of the
sheet, and last the word "class" with the class average and its letter grade.
A sheet without students gives the heading line only. A tab or line break inside
a name or an alias is printed as a blank.

  number      the student's number, from 1
  name        the full name
  alias       the short name
  earned      points earned
  possible    points possible
  percentage  cut to one decimal
  letter      the letter grade, A to F
  rank        the class rank, 1 for the best percentage

Options:
  --settings FOLDER    take the grading scale from this program folder
  --scale A,B,C,D,E    the lowest percentages for the grades A to E, five whole
                       numbers; without any scale 94,86,76,70,60
  --round-up           lower each of them by half a percent
  --help               print this help
)";

constexpr std::string_view reportHelp =
    R"(Usage: qrv report KIND SHEET [--student N] [--alias] [--school TEXT]
                  [--teacher TEXT] [--date TEXT --time TEXT]
                  [--settings FOLDER] [--scale A,B,C,D,E] [--round-up]

Prints a report as plain text, one character per column. A form feed stands
where the report itself starts a new page; the text has no page length.

  KIND 1  full report: all scores of each student
  KIND 2  class report: each student's total
  KIND 3  individual student report: all scores of the student --student
  KIND 4  assignment report: all assignments and their values
  KIND 5  teacher report: a chart of all scores
  KIND 6  student grade report: a short slip for each student

Options:
  --student N          the student's number in report 3, from 1
  --alias              print aliases in place of names in reports 2 and 5
  --school TEXT        the name of the school
  --teacher TEXT       the name of the teacher
  --date TEXT          print this in place of today's date
  --time TEXT          print this in place of the current time
  --settings FOLDER    take grading scale, school and teacher from this program
                       folder
  --scale A,B,C,D,E    the lowest percentages for the grades A to E, five whole
                       numbers; without any scale 94,86,76,70,60
  --round-up           lower each of them by half a percent
  --help               print this help

An option that a report has no use for is left unused. Reports 1 and 3 stop at a
student without points possible ("Division by zero", exit status 3).
)";

constexpr std::string_view exportHelp =
    R"(Usage: qrv export SHEET [-o FILE.csv]

Writes the sheet as CSV in UTF-8, to standard output or to a file. The first
line holds Name, Alias and the names of the assignments, the second one Value,
nothing and their point values. A line per student follows: name, alias and the
scores ("E" for excused, nothing where no score was entered).

Options:
  -o, --output FILE    the file to write; it is replaced as a whole, or left as
                       it was when that fails
  --help               print this help

The options --settings, --scale and --round-up are accepted and change nothing.
)";

constexpr std::string_view importHelp =
    R"(Usage: qrv import FILE.csv -o SHEET [--title TEXT]

Makes a sheet of a CSV file of the form that "qrv export" writes. Students keep
the order of the file. Fields are separated by commas, or by semicolons where
the first line has them, and may stand in quotes; lines end with LF or CR LF;
the text is UTF-8, with or without a byte order mark. Empty lines are left out.

An empty score stays an empty cell, "E" or "e" is excused, and a number is
rounded as when it is typed: a fraction of one half or more counts as a whole
point, a smaller one stays; the sign is dropped. A point value is a whole number
from 0 to 999. Names, aliases and the title hold at most 126 characters of the
sheet's code page. Anything else is refused with its line and column, and
nothing is written.

Options:
  -o, --output SHEET   the sheet to write; it is replaced in one step, or left
                       as it was when that fails
  --title TEXT         the sheet's title; without it the title is empty
  --help               print this help

The options --settings, --scale and --round-up are accepted and change nothing.
)";

constexpr std::string_view checkHelp =
    R"(Usage: qrv check FILE

Says whether a file is a whole sheet: how many students and assignments it has,
how many records these need and how many are there, and the first record that is
damaged and why. Records behind the sheet's end do no harm. The program loads a
damaged sheet, too, with what is damaged or missing left empty.

The exit status is 0 for a whole sheet and 1 for a damaged one.

Options:
  --help               print this help

The options --settings, --scale and --round-up are accepted and change nothing.
)";

constexpr std::string_view help =
    R"(Usage: qrv COMMAND ...

Works with grade sheets from the command line.

  qrv figures SHEET            points, percentages, letter grades and ranks
  qrv report KIND SHEET        one of the six reports as plain text
  qrv export SHEET             the sheet as CSV
  qrv import FILE.csv -o SHEET a sheet from CSV
  qrv check FILE               whether a file is a whole sheet

Options of every command:
  --settings FOLDER    take grading scale, school and teacher from this program
                       folder
  --scale A,B,C,D,E    the lowest percentages for the grades A to E
  --round-up           lower each of them by half a percent
  --help               print this help; with a command, that command's help

Output is UTF-8. The exit status is 0 when all went well, 1 when the input is
damaged (check), could not be read or has nothing to report on, 2 for a wrong
command line, 3 when a report stopped.
)";

constexpr std::array<Command, 5> allCommands{{
    {"figures", 1, {}, figures, figuresHelp},
    {"report", 2, reportOptions, report, reportHelp},
    {"export", 1, exportOptions, exportSheet, exportHelp},
    {"import", 1, importOptions, importSheet, importHelp},
    {"check", 1, {}, check, checkHelp},
}};

}  // namespace

std::span<const Command> commands() {
    return allCommands;
}

std::string_view generalHelp() {
    return help;
}

}  // namespace quorvel
