#include "tests/realwindow/DrawingHandles.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <windows.h>

#include "tests/scenario/Scenario.h"

#include <winternl.h>

namespace quorvel::scenario {

namespace {

/// One place in the table of a process's drawing objects, as Wine keeps it.
struct TableEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;  // 0 for a free place
    std::uint8_t flags;
    std::uint64_t content;
};
constexpr std::size_t tableSize = 65'536;
/// Where the process's own description tells the table's place.
constexpr std::size_t tablePlace = 0xF8;

void readMemory(HANDLE process, std::uintptr_t address, void* target, std::size_t size) {
    if (ReadProcessMemory(process, reinterpret_cast<const void*>(address), target, size, nullptr) ==
        0)
        throw ScenarioError("the program's drawing objects cannot be counted");
}

int handlesInTable(HANDLE process) {
    PROCESS_BASIC_INFORMATION information{};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &information,
                                  sizeof information, nullptr) != 0)
        throw ScenarioError("the program's drawing objects cannot be counted");
    std::uintptr_t table = 0;
    readMemory(process, reinterpret_cast<std::uintptr_t>(information.PebBaseAddress) + tablePlace,
               &table, sizeof table);
    std::vector<TableEntry> entries(tableSize);
    readMemory(process, table, entries.data(), entries.size() * sizeof(TableEntry));
    return static_cast<int>(
        std::ranges::count_if(entries, [](const TableEntry& entry) { return entry.type != 0; }));
}

}  // namespace

int drawingHandles(HANDLE process) {
    // Wine has this function, but it always says 0.
    const DWORD counted = GetGuiResources(process, GR_GDIOBJECTS);
    return counted > 0 ? static_cast<int>(counted) : handlesInTable(process);
}

}  // namespace quorvel::scenario
