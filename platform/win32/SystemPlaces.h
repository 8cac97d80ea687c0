#pragma once

#include "core/Places.h"

namespace quorvel {

/// Where the program finds and puts its files on this machine, for this user.
Places systemPlaces();

}  // namespace quorvel
