#include "tests/speed/SampleClass.h"

#include <random>
#include <string>

namespace quorvel {

namespace {

constexpr int valueOfAnAssignment = 20;

Score anyScore(std::mt19937& random) {
    const auto kind = random() % 100;
    if (kind == 0) return Score::excused();
    if (kind == 1) return {};
    std::string text = std::to_string(random() % (valueOfAnAssignment + 1));
    if (kind == 2) text += ".25";
    return Score::ofText(text);
}

}  // namespace

GradeSheet sampleClass(int students, int assignments) {
    std::mt19937 random(1);
    GradeSheet sheet;
    sheet.sheetTitle = "Algebra I - Period 3";
    sheet.recreate(students, assignments);
    for (int student = 1; student <= students; ++student) {
        const std::string number = std::to_string(student);
        sheet.setStudent(
            student, std::to_string(random() % 9000 + 1000).append("Name, Given ").append(number),
            "Alias " + number);
    }
    for (int assignment = 1; assignment <= assignments; ++assignment) {
        sheet.setAssignment(assignment, "Quiz " + std::to_string(assignment), valueOfAnAssignment);
        for (int student = 1; student <= students; ++student)
            sheet.setScore(assignment, student, anyScore(random));
    }
    return sheet;
}

}  // namespace quorvel
