#include "tests/hostile/Victims.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "core/WorkingState.h"
#include "storage/RecordFile.h"
#include "storage/SheetFile.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fuzz/Trials.h"
#include "tests/hostile/Limits.h"

namespace quorvel::hostile {

namespace {

constexpr int students = 40;
constexpr int assignments = 30;
constexpr std::size_t bitsInByte = 8;
constexpr std::size_t numbersOf16Bits = 65536;

/// Scores as they come up in a class: numbers, fractions, the excused, new and empty cells.
Score someScore(int assignment, int student) {
    switch ((assignment * 7 + student * 3) % 11) {
        case 0:
            return Score::excused();
        case 1:
            return Score::zero();
        case 2:
            return {};
        case 3:
            return Score::ofText("9.25");
        default:
            return Score::ofText(std::to_string((assignment * 13 + student * 5) % 101));
    }
}

GradeSheet someClass() {
    GradeSheet sheet;
    sheet.sheetTitle = "Math - 1";
    sheet.recreate(students, assignments);
    for (int student = 1; student <= students; ++student) {
        const std::string number = std::to_string(student);
        sheet.setStudent(student, "Student " + number + ", Some", "S" + number);
    }
    for (int assignment = 1; assignment <= assignments; ++assignment) {
        sheet.setAssignment(assignment, "Assignment " + std::to_string(assignment), 100);
        for (int student = 1; student <= students; ++student)
            sheet.setScore(assignment, student, someScore(assignment, student));
    }
    return sheet;
}

Bytes bytesOf(const GradeSheet& sheet) {
    MemoryFiles files;
    writeSheet(files, "/sheet.qrv", sheet);
    return std::move(files.files.at("/sheet.qrv"));
}

/// Most damage leaves a sheet that was there before. What follows from a sheet is tried once.
class SheetAttempt {
  public:
    void operator()(std::span<const std::byte> bytes) {
        const GradeSheet sheet = decodeSheet(bytes);
        if (sheet.studentCount() <= students && sheet.assignmentCount() <= assignments) {
            const Bytes content = bytesOf(sheet);
            const std::string_view text(reinterpret_cast<const char*>(content.data()),
                                        content.size());
            if (!tried_.insert(std::hash<std::string_view>()(text)).second) return;
        }
        fuzz::trySheet(bytes);
    }

  private:
    std::unordered_set<std::size_t> tried_;
};

template <typename Put>
Bytes records(Put put) {
    RecordWriter writer;
    put(writer);
    return {writer.bytes().begin(), writer.bytes().end()};
}

Bytes gradingScale() {
    return records([](RecordWriter& writer) {
        for (const std::int16_t minimum : GradingScale::defaultMinimums) writer.integer(minimum);
        writer.text(GradingScale::roundUpOn);
    });
}

Bytes name() {
    return records([](RecordWriter& writer) { writer.text("Jefferson High School"); });
}

Bytes recentFiles() {
    return records([](RecordWriter& writer) {
        for (int file = 1; file <= recentFileCount; ++file)
            writer.text("C:\\Quorvel\\Grades\\Class " + std::to_string(file) + ".qrv");
    });
}

Bytes printFont() {
    return records([](RecordWriter& writer) {
        writer.taggedValue(std::string("Times New Roman"));
        writer.taggedValue(9.75F);
    });
}

Bytes password() {
    return records([](RecordWriter& writer) { writer.taggedValue(std::string("secret")); });
}

}  // namespace

std::vector<Victim> victims() {
    const auto sheetAttempt = std::make_shared<SheetAttempt>();
    const auto asSheet = [sheetAttempt](std::span<const std::byte> bytes) {
        (*sheetAttempt)(bytes);
    };
    return {{"sheet of 40 students and 30 assignments", bytesOf(someClass()), asSheet},
            {"grading scale", gradingScale(), fuzz::trySettings},
            {"school or teacher name", name(), fuzz::trySettings},
            {"recent files", recentFiles(), fuzz::trySettings},
            {"print font", printFont(), fuzz::trySettings},
            {"password", password(), fuzz::tryPassword}};
}

void attempt(const Attempt& attempt, std::span<const std::byte> bytes, Toll& toll) {
    const Meter meter;
    attempt(bytes);
    toll.seconds = std::max(toll.seconds, meter.seconds());
    toll.bytes =
        std::max(toll.bytes, meter.mostBytes() - std::min(meter.mostBytes(), bytes.size()));
    if (toll.bytes > mostFurtherBytes)
        throw fuzz::Broken(std::to_string(meter.mostBytes()) + " bytes of memory for a file of " +
                           std::to_string(bytes.size()));
}

std::uint64_t tryLengths(const Victim& victim, std::size_t step, Toll& toll) {
    std::uint64_t attempts = 0;
    for (std::size_t length = 0; length <= victim.bytes.size(); length += step, ++attempts) {
        // A copy, so that reading behind its end is noticed.
        const Bytes cut(victim.bytes.begin(),
                        victim.bytes.begin() + static_cast<std::ptrdiff_t>(length));
        attempt(victim.attempt, cut, toll);
    }
    return attempts;
}

std::uint64_t tryBits(const Victim& victim, std::size_t step, Toll& toll) {
    Bytes damaged = victim.bytes;
    std::uint64_t attempts = 0;
    for (std::size_t bit = 0; bit < damaged.size() * bitsInByte; bit += step, ++attempts) {
        const std::byte mask = std::byte{1} << (bit % bitsInByte);
        damaged[bit / bitsInByte] ^= mask;
        attempt(victim.attempt, damaged, toll);
        damaged[bit / bitsInByte] ^= mask;
    }
    return attempts;
}

std::uint64_t tryNumbers(const Victim& victim, std::size_t offset, std::size_t step, Toll& toll) {
    Bytes damaged = victim.bytes;
    std::uint64_t attempts = 0;
    for (std::size_t number = 0; number < numbersOf16Bits; number += step, ++attempts) {
        damaged.at(offset) = static_cast<std::byte>(number);
        damaged.at(offset + 1) = static_cast<std::byte>(number >> bitsInByte);
        attempt(victim.attempt, damaged, toll);
    }
    return attempts;
}

}  // namespace quorvel::hostile
