#pragma once

#include <string_view>
#include <vector>

#include "tests/scenario/Driver.h"

namespace quorvel::scenario {

Reply typed(std::string_view text);
Reply pressed(Answer button);
Reply cancelled();

/// Does one whole thing after the other with a program that a driver runs: each returns when the
/// program waits for the user again. A dialog that is missing or too many is a ScenarioError.
class User {
  public:
    /// The driver must outlive the user.
    explicit User(Driver& driver) : driver_(driver) {}

    /// What opens no dialog.
    void act(const Action& action);
    void start();
    void choose(std::string_view entry, const std::vector<Reply>& replies = {});
    /// Into the editor that has the focus, and Enter behind it.
    void enter(std::string_view text);

    /// The dialog that is open, as it was before it was answered.
    Dialog answer(const Reply& reply);
    /// Nothing is open any more.
    void finish();

  private:
    Driver& driver_;
};

}  // namespace quorvel::scenario
