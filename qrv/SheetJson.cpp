#include "qrv/SheetJson.h"

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <variant>

#include "core/Numbers.h"
#include "qrv/FieldRules.h"

namespace quorvel {

namespace {

using nlohmann::json;
/// Keeps its keys in the order in which they were put in.
using nlohmann::ordered_json;

double tenths(std::int64_t number) {
    constexpr double tenthsOfOne = 10;
    return static_cast<double>(number) / tenthsOfOne;
}

/// Writes a list piece by piece, so that its length does not matter.
void writeList(TextWriter& writer, int count, const std::function<ordered_json(int)>& element) {
    writer.write("[");
    for (int number = 1; number <= count && !writer.failed(); ++number) {
        if (number > 1) writer.write(",");
        writer.write(element(number).dump());
    }
    writer.write("]");
}

ordered_json scoreJson(const Score& score, const CodePage& codePage) {
    if (score.isEmpty()) return nullptr;
    if (const auto* const number = std::get_if<std::int16_t>(&score.value())) return *number;
    return codePage.toUtf8(score.text());
}

class JsonSheetReader {
  public:
    explicit JsonSheetReader(const CodePage& codePage) : rules_(codePage) {}

    ImportedSheet read(const json& root) {
        const auto students = listAt(root, "students");
        const auto assignments = listAt(root, "assignments");
        if (!students || !assignments) return std::move(result_);
        if (root.contains("title")) result_.title = text(root["title"], "title");
        result_.sheet.recreate(countOf(**students, "students"),
                               countOf(**assignments, "assignments"));
        for (int number = 1; number <= result_.sheet.assignmentCount(); ++number) {
            readAssignment(number, (**assignments)[indexOf(number)]);
        }
        for (int number = 1; number <= result_.sheet.studentCount(); ++number) {
            readStudent(number, (**students)[indexOf(number)]);
        }
        return std::move(result_);
    }

  private:
    static std::size_t indexOf(int number) { return static_cast<std::size_t>(number) - 1; }

    /// The list, or null where the sheet never had one.
    std::optional<const json*> listAt(const json& object, const char* key) {
        if (object.is_object() && object.contains(key)) {
            const json& list = object[key];
            if (list.is_array() || list.is_null()) return &list;
        }
        refuse(key, "this list is missing", "");
        return std::nullopt;
    }

    std::optional<int> countOf(const json& list, const char* place) {
        if (list.is_null()) return std::nullopt;
        if (list.size() <= static_cast<std::size_t>(GradeSheet::maximumCount)) {
            return static_cast<int>(list.size());
        }
        refuse(place, "more than a sheet can hold", "");
        return 0;
    }

    void readAssignment(int number, const json& assignment) {
        const std::string place = "assignment " + std::to_string(number);
        const json& value = memberOf(assignment, "value");
        const std::string name = text(memberOf(assignment, "name"), place + ", name");
        if (name.size() > FieldRules::longestAssignmentName) {
            warn(place + ", name", FieldRules::longestAssignmentName, assignment["name"]);
        }
        result_.sheet.setAssignment(number, name, accepted(value, place + ", value", [&] {
                                        return rules_.value(value.dump());
                                    }));
    }

    void readStudent(int number, const json& student) {
        const std::string place = "student " + std::to_string(number);
        const std::string name = text(memberOf(student, "name"), place + ", name");
        const std::string alias = text(memberOf(student, "alias"), place + ", alias");
        if (alias.size() > FieldRules::longestAlias) {
            warn(place + ", alias", FieldRules::longestAlias, student["alias"]);
        }
        result_.sheet.setStudent(number, name, alias);
        const json& scores = memberOf(student, "scores");
        const auto wanted = static_cast<std::size_t>(result_.sheet.assignmentCount());
        if (!scores.is_array() || scores.size() != wanted) {
            refuse(place + ", scores", "a list with one score for each assignment is wanted", "");
            return;
        }
        for (int assignment = 1; assignment <= result_.sheet.assignmentCount(); ++assignment) {
            const json& score = scores[indexOf(assignment)];
            if (score.is_null()) continue;
            const auto read = [&] { return scoreOf(score); };
            result_.sheet.setScore(
                assignment, number,
                accepted(score, place + ", score " + std::to_string(assignment), read));
        }
    }

    Score scoreOf(const json& score) const {
        if (score.is_string()) return rules_.score(score.get_ref<const std::string&>());
        if (!score.is_number()) return rules_.score(score.dump());
        const bool isWhole =
            score.is_number_unsigned() && score.get<std::uint64_t>() <= FieldRules::highestScore;
        if (!isWhole) return rules_.score(score.dump());
        return Score(TaggedValue(score.get<std::int16_t>()));
    }

    static const json& memberOf(const json& object, const char* key) {
        static const json missing;
        return object.is_object() && object.contains(key) ? object[key] : missing;
    }

    std::string text(const json& field, const std::string& place) {
        return accepted(field, place, [&] {
            if (!field.is_string()) throw FieldError("a text is wanted");
            return rules_.text(field.get_ref<const std::string&>());
        });
    }

    template <typename Take>
    auto accepted(const json& field, const std::string& place, const Take& take)
        -> decltype(take()) {
        try {
            return take();
        } catch (const FieldError& error) {
            refuse(place, error.what(), field.dump());
            return {};
        }
    }

    void warn(const std::string& place, std::size_t usual, const json& field) {
        result_.warnings.add(place, "longer than " + std::to_string(usual) + " characters",
                             field.get_ref<const std::string&>());
    }

    void refuse(const std::string& place, const std::string& reason, const std::string& found) {
        result_.mistakes.add(place, reason, found);
    }

    FieldRules rules_;
    ImportedSheet result_;
};

}  // namespace

void writeFiguresJson(const std::string& name, const GradeSheet& sheet, const CodePage& codePage,
                      TextWriter& writer) {
    writer.write("{\"sheet\":" + json(name).dump() +
                 ",\"title\":" + json(codePage.toUtf8(sheet.sheetTitle)).dump() + ",\"students\":");
    writeList(writer, sheet.studentCount(), [&](int student) -> ordered_json {
        const StudentFigures& figures = sheet.figures(student);
        const double percentage = tenths(figures.percentageTenths);
        return {{"number", student},
                {"name", codePage.toUtf8(sheet.studentName(student))},
                {"alias", codePage.toUtf8(sheet.studentAlias(student))},
                {"earned", figures.pointsEarned},
                {"possible", figures.pointsPossible},
                {"percentage", percentage},
                {"letter", letterText(figures.letterGrade)},
                {"rank", figures.rank}};
    });
    json average;
    json letter;
    if (const auto& found = sheet.classAverage()) {
        average = tenths(found->tenths);
        letter = letterText(found->letterGrade);
    }
    writer.write(",\"average\":" + average.dump() + ",\"letter\":" + letter.dump() + "}\n");
}

void writeSheetJson(const std::string& name, const GradeSheet& sheet, const CodePage& codePage,
                    TextWriter& writer) {
    writer.write("{\"sheet\":" + json(name).dump() + ",\"title\":" +
                 json(codePage.toUtf8(sheet.sheetTitle)).dump() + ",\"assignments\":");
    if (sheet.assignmentCountIfSet()) {
        writeList(writer, sheet.assignmentCount(), [&](int assignment) -> ordered_json {
            return {{"name", codePage.toUtf8(sheet.assignmentName(assignment))},
                    {"value", sheet.assignmentValue(assignment)}};
        });
    } else {
        writer.write("null");
    }
    writer.write(",\"students\":");
    if (sheet.studentCountIfSet()) {
        writeList(writer, sheet.studentCount(), [&](int student) {
            ordered_json scores = ordered_json::array();
            for (int assignment = 1; assignment <= sheet.assignmentCount(); ++assignment) {
                scores.push_back(scoreJson(sheet.score(assignment, student), codePage));
            }
            return ordered_json{{"name", codePage.toUtf8(sheet.studentName(student))},
                                {"alias", codePage.toUtf8(sheet.studentAlias(student))},
                                {"scores", std::move(scores)}};
        });
    } else {
        writer.write("null");
    }
    writer.write("}\n");
}

bool isJson(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && text[first] == '{';
}

ImportedSheet sheetFromJson(std::string_view text, const CodePage& codePage) {
    try {
        return JsonSheetReader(codePage).read(json::parse(text));
    } catch (const json::exception& error) {
        ImportedSheet unreadable;
        const std::string_view reason = error.what();
        unreadable.mistakes.add("json", std::string(reason.substr(reason.find("] ") + 2)), "");
        return unreadable;
    }
}

}  // namespace quorvel
