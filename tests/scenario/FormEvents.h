#pragma once

#include <functional>

#include "tests/scenario/Scenario.h"
#include "window/frmQRV.h"

namespace quorvel::scenario {

/// What a user does to the window, as the system then tells its controls.
using FormEvent = std::function<void(frmQRV&)>;

/// What becomes of an action as the window stands now; every one but a start. ScenarioError where
/// it cannot be done.
FormEvent eventOf(const Action& action, const frmQRV& form);

}  // namespace quorvel::scenario
