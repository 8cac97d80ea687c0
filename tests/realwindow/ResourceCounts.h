#pragma once

#include <string>

#include <windows.h>

namespace quorvel::scenario {

/// What a process holds of the system at a moment.
struct ResourceCounts {
    int drawingObjects = 0;
    int userObjects = 0;
    int kernelObjects = 0;
    std::size_t memory = 0;  // bytes that are its own
};

/// Throws ScenarioError where something cannot be counted.
ResourceCounts resourcesOf(HANDLE process);

/// "113 drawing, 41 user and 60 kernel objects, 5120 KB".
std::string described(const ResourceCounts& counts);

}  // namespace quorvel::scenario
