#pragma once

namespace quorvel::helpText {

// What each command's help says behind its list of options. Lines fit into 80 columns.

inline constexpr const char* figures =
    R"(A table with a heading line, a line for each student in the order of the sheet
(number, name, alias, points earned, points possible, percentage cut to one
decimal, letter grade, class rank) and, as tsv, last the word "class" with the
class average and its letter. With several sheets the first column names the
sheet. json is one object a sheet, each on a line of its own.
)";

inline constexpr const char* report =
    R"(KIND is 1 for the full report (all scores of each student), 2 for the class
report (each student's total), 3 for one student's report, 4 for the assignment
report, 5 for the teacher report (a chart of all scores) and 6 for the student
grade report (a short slip for each student).

The text has one character per column; a form feed stands where the report
itself starts a new page. With several sheets each report is led by a line that
names its sheet. An option that a report has no use for is left unused. Reports
1 and 3 stop at a student without points possible ("Division by zero").
)";

inline constexpr const char* page =
    R"(One HTML file that needs no network and no script: how the letters are
distributed, where every student stands, what is missing, each student's line
and each assignment's spread. Several sheets are one page with a list of
contents. --student makes a page of one student of one sheet, without the rank
or anything else of other students but the class average.
)";

inline constexpr const char* exportSheets =
    R"(The first line of a csv holds Name, Alias and the names of the assignments, the
second one Value, nothing and their point values. A line per student follows:
name, alias and the scores, E for excused and nothing where none was entered.
json is one object a sheet with all that it holds. Several sheets go into the
folder -o, each into a file of its own name, or one after the other to standard
output.
)";

inline constexpr const char* importSheet =
    R"(FILE has the form that "qrv export" writes, csv or json. A csv may come from any
spreadsheet: separated by commas, semicolons or tabs, in UTF-8, UTF-16 or the
sheet's code page. Students keep the order of the lines; lines and columns
without content are left out. An empty score stays an empty cell, E or e is
excused, and a number is rounded as when it is typed.

Whatever a sheet cannot hold is refused with its line and column, and nothing is
written. The sheet is written anew; a title that it had is kept.
)";

inline constexpr const char* check =
    R"(Prints a sheet's title and counts, how many records these need and how many are
there, the grading scale in force for it, and for a damaged one the first record
that is damaged and why. Records behind the sheet's end do no harm. The program
loads a damaged sheet, too, with what is damaged or missing left empty.
)";

inline constexpr const char* program =
    R"(Without --settings and --scale, a sheet in a folder "Grades" has the scale of
the folder above it where that holds a GradingScale.qrv; else qrv.exe takes that
of the folder it lies in; else it is 94,86,76,70,60.

Output is UTF-8. The exit status is 0 when all went well, 1 when a file is
damaged, cannot be read or written or has nothing to report on, 2 for a wrong
command line and 3 when a report stopped; with several sheets it is the worst.
)";

}  // namespace quorvel::helpText
