#include <string>
#include <vector>

#include "tests/fakes/MemoryFiles.h"
#include "window/BitmapFiles.h"
#include "window/StartCheck.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

MemoryFiles wholeProgramIn(const std::filesystem::path& folder) {
    MemoryFiles files;
    for (const std::string_view name : glyphFiles) files.files[folder / name];
    for (const CanvasSize size : {CanvasSize::Wide, CanvasSize::Small}) {
        files.files[folder / canvasFiles(size).grid];
        files.files[folder / canvasFiles(size).bottom];
    }
    return files;
}

std::string problemIn(const std::filesystem::path& folder, Files& files) {
    return startProblem(folder, files, CodePage::windows1252());
}

TEST(StartCheck, AWholeProgramStartsInAnyFolder) {
    for (const char* folder :
         {"/Quorvel", "/Temp/Quorvel", "/tmp/quorvel.7zOab", "/Classes.zip/Quorvel",
          "/users/jane/AppData/Local/Programs/Quorvel"}) {
        MemoryFiles files = wholeProgramIn(folder);
        EXPECT_EQ(problemIn(folder, files), "") << folder;
    }
}

TEST(StartCheck, AProgramInsideAnArchiveSaysSoEvenWhereItIsWhole) {
    for (const char* folder :
         {"/users/jane/AppData/Local/Temp/Temp1_Quorvel-2.60-portable.zip/Quorvel",
          "/users/jane/AppData/Local/Temp/0a1b_Quorvel-2.60-portable.ZIP.c1d/Quorvel",
          "/users/jane/AppData/Local/TEMP/7zO4F2A", "/tmp/Rar$EXa123.45/Quorvel"}) {
        MemoryFiles files = wholeProgramIn(folder);
        EXPECT_NE(problemIn(folder, files).find("\"Extract All...\""), std::string::npos) << folder;
    }
}

TEST(StartCheck, NamesTheBitmapsThatAreMissingAndWhereTheyBelong) {
    struct Case {
        std::vector<const char*> missing;
        const char* named;
    };
    for (const Case& missing :
         {Case{{"7.bmp"}, "\r\n7.bmp\r\n"},
          Case{{"GraphBottomS.bmp", "__.bmp"}, "\r\n__.bmp, GraphBottomS.bmp\r\n"},
          Case{{"0.bmp", "1.bmp", "2.bmp", "3.bmp"}, "\r\n0.bmp, 1.bmp, 2.bmp, 3.bmp\r\n"},
          Case{{"0.bmp", "1.bmp", "2.bmp", "3.bmp", "4.bmp"},
               "\r\n0.bmp, 1.bmp, 2.bmp, 3.bmp and 1 more\r\n"}}) {
        MemoryFiles files = wholeProgramIn("/Quorvel");
        for (const char* name : missing.missing)
            files.files.erase(std::filesystem::path("/Quorvel") / name);
        const std::string problem = problemIn("/Quorvel", files);
        EXPECT_NE(problem.find(missing.named), std::string::npos) << problem;
        EXPECT_NE(problem.find("\\Quorvel\r\n"), std::string::npos) << problem;
    }
}

TEST(StartCheck, CountsEveryBitmapInAnEmptyFolder) {
    MemoryFiles files;
    EXPECT_NE(problemIn("/Quorvel", files).find("3.bmp and 35 more"), std::string::npos);
}

}  // namespace
}  // namespace quorvel
