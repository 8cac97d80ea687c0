#include "tests/storage/Bytes.h"

#include <cctype>
#include <cstddef>
#include <variant>

namespace quorvel {

namespace {

constexpr std::size_t recordLength = 128;

Bytes littleEndian16(int value) {
    return {static_cast<std::byte>(value & 0xFF), static_cast<std::byte>((value >> 8) & 0xFF)};
}

Bytes characters(std::string_view text) {
    Bytes bytes;
    for (const char character : text) bytes.push_back(static_cast<std::byte>(character));
    return bytes;
}

struct CellDescription {
    std::string operator()(std::monostate) const { return "empty"; }
    std::string operator()(std::int16_t number) const { return "int16 " + std::to_string(number); }
    std::string operator()(std::int32_t number) const { return "int32 " + std::to_string(number); }
    std::string operator()(float number) const { return "single " + std::to_string(number); }
    std::string operator()(double number) const { return "double " + std::to_string(number); }
    std::string operator()(const std::string& text) const { return "text '" + text + "'"; }
};

std::string countText(std::optional<int> count) {
    return count ? std::to_string(*count) : "never set";
}

}  // namespace

Bytes hex(std::string_view digits) {
    Bytes bytes;
    std::string pair;
    for (const char digit : digits) {
        if (std::isspace(static_cast<unsigned char>(digit)) != 0) continue;
        pair += digit;
        if (pair.size() < 2) continue;
        bytes.push_back(static_cast<std::byte>(std::stoi(pair, nullptr, 16)));
        pair.clear();
    }
    return bytes;
}

Bytes recordWith(const Bytes& start, unsigned char filler) {
    Bytes bytes = start;
    bytes.resize(recordLength, static_cast<std::byte>(filler));
    return bytes;
}

Bytes integerRecord(int value, unsigned char filler) {
    return recordWith(littleEndian16(value), filler);
}

Bytes textRecord(std::string_view text, unsigned char filler) {
    return recordWith(littleEndian16(static_cast<int>(text.size())) + characters(text), filler);
}

Bytes emptyRecord(unsigned char filler) {
    return recordWith(hex("00 00"), filler);
}

Bytes taggedIntegerRecord(int value, unsigned char filler) {
    return recordWith(hex("02 00") + littleEndian16(value), filler);
}

Bytes taggedTextRecord(std::string_view text, unsigned char filler) {
    return recordWith(
        hex("08 00") + littleEndian16(static_cast<int>(text.size())) + characters(text), filler);
}

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes bytes;
    for (const Bytes& part : parts) bytes.insert(bytes.end(), part.begin(), part.end());
    return bytes;
}

Bytes firstBytes(const Bytes& bytes, std::size_t count) {
    return Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
}

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

std::string contentOf(const GradeSheet& sheet) {
    std::string text = "students " + countText(sheet.studentCountIfSet()) + ", assignments " +
                       countText(sheet.assignmentCountIfSet()) + ", title '" + sheet.sheetTitle +
                       "'\n";
    for (int student = 1; student <= sheet.studentCount(); ++student) {
        text += "'" + sheet.studentName(student) + "' '" + sheet.studentAlias(student) + "'\n";
    }
    for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
        text += "'" + sheet.assignmentName(assignment) + "' " +
                std::to_string(sheet.assignmentValue(assignment)) + ":";
        for (int student = 1; student <= sheet.studentCount(); ++student) {
            text += " " + std::visit(CellDescription(), sheet.score(assignment, student).value());
        }
        text += "\n";
    }
    return text;
}

Bytes sampleFile(unsigned char filler) {
    return joined({
        taggedIntegerRecord(2, filler),
        taggedIntegerRecord(3, filler),
        textRecord("Math - 1", filler),
        taggedTextRecord("17", filler),
        taggedTextRecord("E", filler),
        emptyRecord(filler),
        taggedIntegerRecord(0, filler),
        taggedTextRecord("12.25", filler),
        recordWith(hex("04 00  00 00 20 41"), filler),
        textRecord("Doe, Jane", filler),
        textRecord("Jane", filler),
        textRecord("Roe, Rick", filler),
        textRecord("", filler),
        textRecord("Quiz", filler),
        integerRecord(20, filler),
        textRecord("Essay", filler),
        integerRecord(0, filler),
        textRecord("Final", filler),
        integerRecord(999, filler),
    });
}

GradeSheet sampleSheet() {
    GradeSheet sheet;
    sheet.sheetTitle = "Math - 1";
    sheet.recreate(2, 3);
    sheet.setStudent(1, "Doe, Jane", "Jane");
    sheet.setStudent(2, "Roe, Rick", "");
    sheet.setAssignment(1, "Quiz", 20);
    sheet.setAssignment(2, "Essay", 0);
    sheet.setAssignment(3, "Final", 999);
    sheet.setScore(1, 1, Score::ofText("17"));
    sheet.setScore(1, 2, Score::excused());
    sheet.setScore(2, 2, Score::zero());
    sheet.setScore(3, 1, Score::ofText("12.25"));
    sheet.setScore(3, 2, Score(TaggedValue(10.0F)));
    return sheet;
}

std::string sampleContent() {
    return "students 2, assignments 3, title 'Math - 1'\n"
           "'Doe, Jane' 'Jane'\n"
           "'Roe, Rick' ''\n"
           "'Quiz' 20: text '17' text 'E'\n"
           "'Essay' 0: empty int16 0\n"
           "'Final' 999: text '12.25' single 10.000000\n";
}

}  // namespace quorvel
