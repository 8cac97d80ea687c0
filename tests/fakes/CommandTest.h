#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/CommandContext.h"
#include "tests/fakes/FakeMainWindow.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/ScriptedDialogs.h"
#include "tests/fakes/UnusedPorts.h"

#include <gtest/gtest.h>

namespace quorvel {

/// A menu command with everything that it works on: an empty sheet, a window, and fakes around.
class CommandTest : public testing::Test {
  protected:
    CommandTest() {
        state.places.programFolder = "/Quorvel";
        state.places.passwordFile = "/machine/password";
        state.places.documents = "/user/Documents";
        state.places.localData = "/user/local";
        state.places.temporary = "/temporary";
    }

    /// The bytes of a file of the program's folder, as text; empty where it is missing.
    std::string bytesOf(const std::filesystem::path& file) const {
        const auto found = files.files.find(state.inProgramFolder(file));
        if (found == files.files.end()) return {};
        return {reinterpret_cast<const char*>(found->second.data()), found->second.size()};
    }
    void placeFile(const std::filesystem::path& file, std::string_view bytes) {
        const auto* start = reinterpret_cast<const std::byte*>(bytes.data());
        files.files[state.inProgramFolder(file)] = Bytes(start, start + bytes.size());
    }

    GradeSheet sheet;
    WorkingState state;
    FakeMainWindow window;
    ScriptedDialogs dialogs;
    MemoryFiles files;
    FakeShell shell;
    UnusedPrinter printer;
    UnusedCanvas canvas;
    UnusedClock clock;
    Ports ports{dialogs, files, printer, canvas, clock, shell};
    CommandContext context{sheet, state, window, ports};
};

/// One 128-byte record that begins with `start`.
inline std::string record(std::string_view start) {
    constexpr std::size_t size = 128;
    std::string bytes(start);
    bytes.resize(size);
    return bytes;
}

using Calls = std::vector<std::string>;

}  // namespace quorvel
