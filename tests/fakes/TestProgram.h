#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "tests/fakes/CommandTest.h"
#include "tests/fakes/FaultyFiles.h"
#include "tests/storage/Bytes.h"

namespace quorvel {

/// A program in the folder /Quorvel on a disk on which things can go wrong.
class TestProgram : public CommandTest {
  protected:
    static inline const std::filesystem::path grades = "/Quorvel/Grades";

    /// A file of the program's folder as it lies on the disk; nothing when there is none.
    std::optional<Bytes> file(const std::filesystem::path& name) {
        const auto found = files.files.find(state.inProgramFolder(name));
        if (found == files.files.end()) return std::nullopt;
        return found->second;
    }
    void putFile(const std::filesystem::path& name, Bytes bytes) {
        files.files[state.inProgramFolder(name)] = std::move(bytes);
    }
    void expectYesNo(std::string_view title, std::string_view text, Answer answer) {
        dialogs.expectMessage(title, text, Icon::None, Buttons::YesNo, answer);
    }

    FaultyFiles disk{files};
    Ports portsOnDisk{dialogs, disk, printer, canvas, clock, shell};
    CommandContext program{sheet, state, window, portsOnDisk};
};

}  // namespace quorvel
