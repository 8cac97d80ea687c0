#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "tests/fakes/TestProgram.h"

namespace quorvel {

inline const std::filesystem::path aFile = "/Quorvel/Grades/a.qrv";
inline const std::filesystem::path bFile = "/Quorvel/Grades/b.qrv";

/// The File menu with the sample sheet open, which has no file yet.
class FileCommands : public TestProgram {
  protected:
    FileCommands() { sheet = sampleSheet(); }

    void expectSaveDialog(const std::optional<std::filesystem::path>& chosen) {
        dialogs.expectSaveFile("Save Gradesheet", grades, chosen);
    }
    void expectOpenDialog(const std::optional<std::filesystem::path>& chosen) {
        dialogs.expectOpenFile("Open Gradesheet", grades, chosen);
    }
    void expectSaveQuestion(Answer answer) {
        expectYesNo("Save Current Grade Sheet?",
                    "Do you want to save the grade sheet you are currently working on?", answer);
    }

    /// The sheet came from a.qrv and was changed since.
    void workOnA() {
        files.files[aFile] = hex("01");
        state.currentPath = aFile;
        state.knownFile = {};
        state.sheetFileName = "a.qrv";
        state.saveMode = SaveMode::Save;
        state.isDirty = true;
    }
    void expectStillDirtyAt(const std::filesystem::path& path) {
        EXPECT_TRUE(state.isDirty);
        EXPECT_EQ(state.currentPath, path);
    }
    Bytes bytesOn(const std::filesystem::path& path) { return file(path).value_or(Bytes()); }
};

}  // namespace quorvel
