#include "window/StartCheck.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/Paths.h"
#include "window/BitmapFiles.h"

namespace quorvel {

namespace {

constexpr std::size_t namedFiles = 4;  // missing files that the message names

/// What opens an archive unpacks a program that is started in it to a folder of its own among the
/// temporary ones, and removes it afterwards with all that was saved there.
bool isInsideArchive(const std::filesystem::path& folder, const CodePage& codePage) {
    bool temporary = false;
    for (const std::filesystem::path& part : folder) {
        const std::string name = codePage.upperCase(pathText(part, codePage));
        if (temporary && (name.find(".ZIP") != std::string::npos || name.starts_with("7ZO") ||
                          name.starts_with("RAR$")))
            return true;
        temporary = temporary || name == "TEMP" || name == "TMP";
    }
    return false;
}

std::vector<std::string_view> bitmapFiles() {
    std::vector<std::string_view> names(glyphFiles.begin(), glyphFiles.end());
    for (const CanvasSize size : {CanvasSize::Wide, CanvasSize::Small}) {
        names.push_back(canvasFiles(size).grid);
        names.push_back(canvasFiles(size).bottom);
    }
    return names;
}

std::string listed(const std::vector<std::string_view>& names) {
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), namedFiles); ++i)
        text.append(i == 0 ? "" : ", ").append(names[i]);
    if (names.size() > namedFiles)
        text += " and " + std::to_string(names.size() - namedFiles) + " more";
    return text;
}

}  // namespace

std::string startProblem(const std::filesystem::path& programFolder, Files& files,
                         const CodePage& codePage) {
    if (isInsideArchive(programFolder, codePage))
        return "Quorvel was started from inside a compressed (zipped) folder. Your classes would "
               "be lost there.\r\n\r\n"
               "Close this box, click the zipped folder with the right mouse button, choose "
               "\"Extract All...\", and start Quorvel from the folder that you get.";

    std::vector<std::string_view> missing = bitmapFiles();
    std::erase_if(missing,
                  [&](std::string_view name) { return files.exists(programFolder / name); });
    if (missing.empty()) return "";
    return "Quorvel cannot find the pictures that it draws the grid with:\r\n\r\n" +
           listed(missing) + "\r\n\r\nPut them into the folder\r\n\r\n" +
           pathText(programFolder, codePage) +
           "\r\n\r\nbeside Quorvel.exe, or unpack or install Quorvel again.";
}

}  // namespace quorvel
