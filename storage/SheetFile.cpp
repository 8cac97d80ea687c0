#include "storage/SheetFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "core/Numbers.h"
#include "storage/RecordFile.h"

namespace quorvel {

namespace {

/// The count that a value of any type means: nothing where it was never set, 0 where it is none
/// that a sheet can have.
std::optional<int> countOf(const TaggedValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
    const std::int64_t count = roundHalfEven(numberOf(value));
    if (count < 0 || count > GradeSheet::maximumCount) return 0;
    return static_cast<int>(count);
}

TaggedValue countValue(int count, bool isSet) {
    return isSet ? TaggedValue(static_cast<std::int16_t>(count)) : TaggedValue();
}

void decodeScores(RecordReader& reader, GradeSheet& sheet) {
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            if (reader.atEnd()) return;
            sheet.setScore(assignment, student, Score(reader.taggedValue()));
        }
    }
}

void decodeStudents(RecordReader& reader, GradeSheet& sheet) {
    for (int student = 1; student <= sheet.studentCount() && !reader.atEnd(); ++student) {
        const std::string name = reader.text();
        const std::string alias = reader.text();
        sheet.setStudent(student, name, alias);
    }
}

void decodeAssignments(RecordReader& reader, GradeSheet& sheet) {
    for (int assignment = 1; assignment <= sheet.assignmentCount() && !reader.atEnd();
         ++assignment) {
        const std::string name = reader.text();
        const std::int16_t value = reader.integer();
        sheet.setAssignment(assignment, name, value);
    }
}

void decode(RecordReader& reader, GradeSheet& sheet) {
    const auto students = countOf(reader.taggedValue());
    const auto assignments = countOf(reader.taggedValue());
    sheet.sheetTitle = reader.text();
    sheet.recreate(students, assignments);
    decodeScores(reader, sheet);
    decodeStudents(reader, sheet);
    decodeAssignments(reader, sheet);
}

void encodeScores(RecordStream& stream, const GradeSheet& sheet) {
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        if (stream.failed()) return;
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            stream.next().taggedValue(sheet.score(assignment, student).value());
        }
    }
}

void encodeSheet(RecordStream& stream, const GradeSheet& sheet) {
    stream.next().taggedValue(countValue(sheet.studentCount(), sheet.studentCountIsSet()));
    stream.next().taggedValue(countValue(sheet.assignmentCount(), sheet.assignmentCountIsSet()));
    stream.next().text(sheet.sheetTitle);
    encodeScores(stream, sheet);
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        stream.next().text(sheet.studentName(student));
        stream.next().text(sheet.studentAlias(student));
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        stream.next().text(sheet.assignmentName(assignment));
        stream.next().integer(sheet.assignmentValue(assignment));
    }
}

}  // namespace

GradeSheet decodeSheet(std::span<const std::byte> bytes) {
    RecordReader reader(bytes);
    GradeSheet sheet;
    decode(reader, sheet);
    return sheet;
}

void readSheet(Files& files, const std::filesystem::path& file, GradeSheet& sheet) {
    const auto input = files.openForReading(file);
    if (input) {
        RecordReader reader(*input);
        decode(reader, sheet);
    } else {
        sheet.sheetTitle.clear();
        sheet.recreate(std::nullopt, std::nullopt);
    }
}

bool writeSheet(Files& files, const std::filesystem::path& file, const GradeSheet& sheet) {
    return writeRecords(files, file, [&](RecordStream& stream) { encodeSheet(stream, sheet); });
}

}  // namespace quorvel
