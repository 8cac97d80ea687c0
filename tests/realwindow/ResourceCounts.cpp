#include "tests/realwindow/ResourceCounts.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tests/realwindow/DrawingHandles.h"
#include "tests/scenario/Scenario.h"

#include <psapi.h>
#include <winternl.h>

namespace quorvel::scenario {

namespace {

/// One entry of the system's list of all handles.
struct SystemHandle {
    std::uint32_t process;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint16_t value;
    void* object;
    std::uint32_t access;
};
constexpr auto allHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS tooShort = static_cast<NTSTATUS>(0xC000'0004);
constexpr std::size_t largestList = 16 << 20;

int kernelObjectsOf(HANDLE process) {
    DWORD counted = 0;
    // Wine has this function, but it always says 0.
    if (GetProcessHandleCount(process, &counted) != 0 && counted > 0)
        return static_cast<int>(counted);
    for (std::size_t size = 1 << 16; size <= largestList; size *= 2) {
        std::vector<std::uint64_t> list(size / sizeof(std::uint64_t));
        ULONG used = 0;
        const NTSTATUS status =
            NtQuerySystemInformation(allHandles, list.data(), static_cast<ULONG>(size), &used);
        if (status == tooShort) continue;
        if (status != 0) break;
        const auto count = static_cast<std::size_t>(*reinterpret_cast<std::uint32_t*>(list.data()));
        const auto* first = reinterpret_cast<const SystemHandle*>(list.data() + 1);
        return static_cast<int>(std::count_if(
            first, first + count,
            [id = GetProcessId(process)](const auto& handle) { return handle.process == id; }));
    }
    throw ScenarioError("the program's kernel objects cannot be counted");
}

/// Wine keeps one table for all programs and fills its gaps first: when so many are made that no
/// gap is left, the last place tells how many there are in all.
int userObjectsOfAllPrograms() {
    constexpr int enough = 4'000;
    constexpr std::uintptr_t places = 0xFFFF;
    std::vector<HMENU> made;
    std::uintptr_t last = 0;
    for (int count = 0; count < enough; ++count) {
        HMENU menu = CreateMenu();
        if (menu == nullptr) break;
        last = std::max(last, reinterpret_cast<std::uintptr_t>(menu) & places);
        made.push_back(menu);
    }
    for (HMENU menu : made) DestroyMenu(menu);
    if (made.size() < static_cast<std::size_t>(enough))
        throw ScenarioError("the program's user objects cannot be counted");
    // Each place is two further.
    return static_cast<int>(last / 2) - enough;
}

int userObjectsOf(HANDLE process) {
    const DWORD counted = GetGuiResources(process, GR_USEROBJECTS);
    return counted > 0 ? static_cast<int>(counted) : userObjectsOfAllPrograms();
}

std::size_t memoryOf(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    if (GetProcessMemoryInfo(process, &counters, sizeof counters) == 0 ||
        counters.PagefileUsage == 0)
        throw ScenarioError("the program's memory cannot be measured");
    return counters.PagefileUsage;
}

}  // namespace

ResourceCounts resourcesOf(HANDLE process) {
    return {drawingHandles(process), userObjectsOf(process), kernelObjectsOf(process),
            memoryOf(process)};
}

std::string described(const ResourceCounts& counts) {
    constexpr std::size_t kilobyte = 1024;
    return std::to_string(counts.drawingObjects) + " drawing, " +
           std::to_string(counts.userObjects) + " user and " +
           std::to_string(counts.kernelObjects) + " kernel objects, " +
           std::to_string(counts.memory / kilobyte) + " KB";
}

}  // namespace quorvel::scenario
