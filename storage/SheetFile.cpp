#include "storage/SheetFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <variant>

#include "core/Numbers.h"
#include "storage/Reading.h"
#include "storage/SheetLayout.h"

namespace quorvel {

namespace {

/// How many scores are taken together.
constexpr std::size_t scoresAtATime = 1024;

static_assert(Score::longestText == longestTaggedText, "what can be typed is kept");

/// Why no sheet can have this count; nothing where it can.
std::optional<std::string> damageOfCount(const TaggedValue& value, double count) {
    const auto* const text = std::get_if<std::string>(&value);
    const bool isNumber = text == nullptr || !leadingNumberText(*text).empty();
    const bool isCount =
        std::floor(count) == count && count >= 0 && count <= GradeSheet::maximumCount;
    if (isNumber && isCount) return std::nullopt;
    return text != nullptr ? "a text that is no count" : "no sheet has a count of " + textOf(value);
}

/// The count that the next record means: nothing where it was never set, 0 where it is none that a
/// sheet can have.
std::optional<int> readCount(RecordReader& reader) {
    const TaggedValue value = reader.taggedValue();
    if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
    const double number = numberOf(value);
    if (auto damage = damageOfCount(value, number)) reader.noteDamage(std::move(*damage));
    const std::int64_t count = roundHalfEven(number);
    if (count < 0 || count > GradeSheet::maximumCount) return 0;
    return static_cast<int>(count);
}

/// Puts what it reads into a sheet.
class SheetReader {
  public:
    SheetReader(RecordReader& reader, GradeSheet& sheet) : reader_(reader), sheet_(sheet) {}

    bool goesOn() { return reader_.hasWanted(); }
    int studentCount() {
        students_ = readCount(reader_);
        return students_.value_or(0);
    }
    int assignmentCount() {
        assignments_ = readCount(reader_);
        return assignments_.value_or(0);
    }
    void sheetTitle() {
        sheet_.sheetTitle = reader_.text();
        sheet_.recreate(students_, assignments_);
    }
    bool scores(int assignment, int students) {
        for (int student = 1; student <= students;) {
            if (!goesOn()) return false;
            const auto wanted = static_cast<std::size_t>(students - student + 1);
            const auto texts = std::span(texts_).first(std::min(texts_.size(), wanted));
            const std::size_t count = reader_.smallTexts(texts);
            if (count > 0)
                sheet_.setScores(assignment, student, texts.first(count));
            else
                sheet_.setScore(assignment, student, reader_.taggedView());
            student += std::max(1, static_cast<int>(count));
        }
        return true;
    }
    void studentName(int) { name_ = reader_.text(); }
    void studentAlias(int student) { sheet_.setStudent(student, name_, reader_.text()); }
    void assignmentName(int) { name_ = reader_.text(); }
    void assignmentValue(int assignment) {
        sheet_.setAssignment(assignment, name_, reader_.integer());
    }

  private:
    RecordReader& reader_;
    GradeSheet& sheet_;
    std::optional<int> students_;
    std::optional<int> assignments_;
    std::string name_;  // waits for what stands in the record behind it
    std::array<SmallValue, scoresAtATime> texts_;
};

/// Stops at the first record that is damaged and keeps only what a check tells.
class SheetChecker {
  public:
    SheetChecker(RecordReader& reader, SheetCheck& check) : reader_(reader), check_(check) {}

    bool goesOn() { return reader_.hasWanted() && isWhole(); }
    int studentCount() { return count(check_.studentCount); }
    int assignmentCount() { return isWhole() ? count(check_.assignmentCount) : 0; }
    void sheetTitle() {
        if (isWhole()) check_.sheetTitle = reader_.text();
    }
    bool scores(int, int students) {
        for (int student = 1; student <= students; ++student) {
            if (!goesOn()) return false;
            reader_.taggedView();
        }
        return true;
    }
    void studentName(int) { reader_.text(); }
    void studentAlias(int) { reader_.text(); }
    void assignmentName(int) { reader_.text(); }
    void assignmentValue(int) { reader_.integer(); }

  private:
    bool isWhole() const { return !reader_.firstDamage(); }
    int count(std::optional<int>& count) {
        const int number = readCount(reader_).value_or(0);
        if (isWhole()) count = number;
        return number;
    }

    RecordReader& reader_;
    SheetCheck& check_;
};

class SheetWriter {
  public:
    SheetWriter(RecordStream& stream, const GradeSheet& sheet) : stream_(stream), sheet_(sheet) {}

    bool goesOn() const { return !stream_.failed(); }
    int studentCount() { return count(sheet_.studentCountIfSet()); }
    int assignmentCount() { return count(sheet_.assignmentCountIfSet()); }
    void sheetTitle() { stream_.next().text(sheet_.sheetTitle); }
    bool scores(int assignment, int students) {
        const ScoreColumn& column = sheet_.scores(assignment);
        for (int student = 1; student <= students;) {
            if (!goesOn()) return false;
            const auto wanted = static_cast<std::size_t>(students - student + 1);
            const auto values = std::span(values_).first(std::min(values_.size(), wanted));
            const std::size_t count = column.smallValues(student, values);
            stream_.smallValues(values.first(count));
            student += static_cast<int>(count);
            if (count < values.size()) stream_.next().taggedView(column.value(student++));
        }
        return true;
    }
    void studentName(int student) { stream_.next().text(sheet_.studentName(student)); }
    void studentAlias(int student) { stream_.next().text(sheet_.studentAlias(student)); }
    void assignmentName(int assignment) { stream_.next().text(sheet_.assignmentName(assignment)); }
    void assignmentValue(int assignment) {
        stream_.next().integer(sheet_.assignmentValue(assignment));
    }

  private:
    int count(std::optional<int> count) {
        stream_.next().taggedValue(count ? TaggedValue(static_cast<std::int16_t>(*count))
                                         : TaggedValue());
        return count.value_or(0);
    }

    RecordStream& stream_;
    const GradeSheet& sheet_;
    std::array<SmallValue, scoresAtATime> values_;
};

}  // namespace

GradeSheet readSheet(RecordReader& reader) {
    GradeSheet sheet;
    SheetReader visitor(reader, sheet);
    visitSheet(visitor);
    return sheet;
}

GradeSheet decodeSheet(std::span<const std::byte> bytes) {
    RecordReader reader(bytes);
    return readSheet(reader);
}

SheetReading readSheet(Files& files, const std::filesystem::path& file) {
    SheetReading reading;
    reading.problem = patiently(files, [&] {
        const auto opened = files.openForReading(file);
        if (!opened.file) return opened.problem;
        RecordReader reader(*opened.file);
        reading.sheet = readSheet(reader);
        return reader.brokeOff() ? FileProblem::Unreadable : FileProblem::None;
    });
    if (reading.problem != FileProblem::None) reading.sheet = GradeSheet();
    return reading;
}

SheetCheck checkSheet(RecordReader& reader) {
    SheetCheck check;
    SheetChecker visitor(reader, check);
    visitSheet(visitor);
    if (check.studentCount && check.assignmentCount)
        check.recordsWanted = sheetRecords(*check.studentCount, *check.assignmentCount);
    check.firstDamage = reader.firstDamage();
    reader.skipRest();
    check.recordsPresent = reader.recordsPresent();
    return check;
}

void writeSheet(RecordStream& stream, const GradeSheet& sheet) {
    SheetWriter visitor(stream, sheet);
    visitSheet(visitor);
}

bool writeSheet(Files& files, const std::filesystem::path& file, const GradeSheet& sheet) {
    return writeRecords(files, file, [&](RecordStream& stream) { writeSheet(stream, sheet); });
}

}  // namespace quorvel
