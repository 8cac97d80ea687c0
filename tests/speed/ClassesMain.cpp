#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/posix/PosixFiles.h"
#include "storage/SheetFile.h"
#include "tests/speed/SampleClass.h"

/// speed_classes FOLDER COUNT STUDENTS ASSIGNMENTS: writes so many sample classes of that size.
int main(int argc, char** argv) {
    if (argc != 5) return EXIT_FAILURE;
    const std::filesystem::path folder = std::filesystem::absolute(argv[1]);
    const quorvel::GradeSheet sheet = quorvel::sampleClass(std::stoi(argv[3]), std::stoi(argv[4]));
    std::filesystem::create_directories(folder);
    quorvel::PosixFiles files;
    for (int number = 1; number <= std::stoi(argv[2]); ++number)
        if (!quorvel::writeSheet(files, folder / (std::to_string(number) + ".qrv"), sheet))
            return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
