#include "tests/scenario/Runner.h"

#include <system_error>

#include "tests/scenario/Expectations.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

/// Thrown to end a scenario that cannot go on; the failure is in the verdict already.
struct Ended {};

class Run {
  public:
    Run(Driver& driver, const std::filesystem::path& folder)
        : driver_(driver), folder_(folder), programFolder_(driver.programFolderText()) {}

    Verdict carryOut(const Scenario& scenario) {
        for (std::size_t step = 0; step < scenario.steps.size(); ++step) {
            try {
                if (std::visit([this](const auto& content) { return carryOut(content); },
                               scenario.steps[step]))
                    continue;
            } catch (const Ended&) {
                break;
            }
            leaveRest(scenario, step);
            break;
        }
        return std::move(verdict_);
    }

  private:
    /// Each returns false where the step cannot be done here.
    bool carryOut(const SettingStep& step) {
        try {
            if (const auto* file = std::get_if<PlaceFile>(&step.setting)) {
                place(*file);
                return true;
            }
            return driver_.set(step.setting);
        } catch (const ScenarioError& error) {
            end(step.line, step.source, error.what());
        }
    }

    bool carryOut(const ActionStep& step) {
        int line = step.line;
        std::string source = step.source;
        try {
            if (!driver_.act(expanded(step.action))) return false;
            for (const FollowUp& followUp : step.followUps) {
                line = followUp.line;
                source = followUp.source;
                carryOut(followUp);
            }
            if (const auto dialog = driver_.openDialog())
                end(line, source + ", and no further dialog", described(*dialog, programFolder_));
        } catch (const ScenarioError& error) {
            end(line, source, error.what());
        }
        return true;
    }

    bool carryOut(const ExpectationStep& step) {
        check(step.line, step.source, step.expectation);
        return true;
    }

    void carryOut(const FollowUp& followUp) {
        // An expectation is checked while the next dialog is open.
        const auto dialog = driver_.openDialog();
        if (const auto* expectation = std::get_if<Expectation>(&followUp.content)) {
            check(followUp.line, followUp.source, *expectation);
            return;
        }
        const auto& step = std::get<DialogStep>(followUp.content);
        if (!dialog) end(followUp.line, followUp.source, "no dialog");
        if (*dialog != expanded(step.expected))
            end(followUp.line, followUp.source, described(*dialog, programFolder_));
        Reply reply = step.reply;
        if (dialog->kind == DialogKind::Prompt || dialog->kind == DialogKind::Password)
            reply.text = scenario::expanded(reply.text, programFolder_);
        driver_.answer(reply);
    }

    void check(int line, const std::string& source, const Expectation& expectation) {
        try {
            const Outcome outcome = compare(expectation, driver_, folder_);
            if (outcome.kind == Outcome::Kind::CannotBeSeen) ++verdict_.linesLeft;
            if (outcome.kind == Outcome::Kind::Different)
                verdict_.failures.push_back({line, source, outcome.came});
        } catch (const ScenarioError& error) {
            verdict_.failures.push_back({line, source, error.what()});
        }
    }

    [[noreturn]] void end(int line, const std::string& expected, const std::string& came) {
        verdict_.failures.push_back({line, expected, came});
        throw Ended{};
    }

    void leaveRest(const Scenario& scenario, std::size_t firstStep) {
        for (std::size_t step = firstStep; step < scenario.steps.size(); ++step) {
            ++verdict_.linesLeft;
            if (const auto* action = std::get_if<ActionStep>(&scenario.steps[step]))
                verdict_.linesLeft += static_cast<int>(action->followUps.size());
        }
    }

    Dialog expanded(Dialog dialog) const {
        dialog.title = scenario::expanded(dialog.title, programFolder_);
        dialog.text = scenario::expanded(dialog.text, programFolder_);
        dialog.defaultAnswer = scenario::expanded(dialog.defaultAnswer, programFolder_);
        return dialog;
    }

    Action expanded(Action action) const {
        if (auto* typed = std::get_if<TypeText>(&action))
            typed->text = scenario::expanded(typed->text, programFolder_);
        return action;
    }

    void place(const PlaceFile& file) const {
        const auto target = driver_.resolve(file.path);
        std::error_code error;
        std::filesystem::create_directories(target.parent_path(), error);
        const auto replace = std::filesystem::copy_options::overwrite_existing;
        if (!std::filesystem::copy_file(folder_ / file.fixture, target, replace, error))
            throw ScenarioError("cannot copy " + file.fixture + ": " + error.message());
    }

    Driver& driver_;
    const std::filesystem::path& folder_;
    std::string programFolder_;
    Verdict verdict_;
};

}  // namespace

Verdict runScenario(const Scenario& scenario, Driver& driver, const std::filesystem::path& folder) {
    return Run(driver, folder).carryOut(scenario);
}

}  // namespace quorvel::scenario
