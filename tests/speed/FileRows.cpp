#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "storage/Reading.h"
#include "storage/SheetFile.h"
#include "tests/speed/Sizes.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// A class in a file, and the folder around it, which goes with it.
class SheetOnDisk {
  public:
    explicit SheetOnDisk(const GradeSheet& sheet) {
        std::filesystem::create_directories(folder_);
        PosixFiles files;
        writeSheet(files, file, sheet);
    }
    SheetOnDisk(const SheetOnDisk&) = delete;
    SheetOnDisk& operator=(const SheetOnDisk&) = delete;
    ~SheetOnDisk() { std::filesystem::remove_all(folder_); }

  private:
    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("quorvel-speed-" + std::to_string(::getpid()));

  public:
    const std::filesystem::path file = folder_ / "class.qrv";
    const std::filesystem::path other = folder_ / "other.qrv";
};

void load(benchmark::State& state) {
    const SheetOnDisk disk(sampleClass(studentsOf(state)));
    PosixFiles files;
    for (auto _ : state) {
        SheetReading reading = readSheet(files, disk.file);
        benchmark::DoNotOptimize(reading.sheet.studentCount());
        state.PauseTiming();
        reading.sheet = GradeSheet();
        state.ResumeTiming();
    }
}

void readBlocks(benchmark::State& state) {
    const SheetOnDisk disk(sampleClass(studentsOf(state)));
    for (auto _ : state) {
        std::vector<char> block(blockSize);
        const int file = ::open(disk.file.c_str(), O_RDONLY);
        while (::read(file, block.data(), block.size()) > 0) benchmark::ClobberMemory();
        ::close(file);
    }
}

void save(benchmark::State& state) {
    const GradeSheet sheet = sampleClass(studentsOf(state));
    const SheetOnDisk disk(sheet);
    PosixFiles files;
    for (auto _ : state) {
        const auto file = files.openForWriting(disk.other);
        RecordStream stream(*file);
        writeSheet(stream, sheet);
        stream.finish();
        state.PauseTiming();
        std::filesystem::remove(disk.other);
        state.ResumeTiming();
    }
}

/// Writes that many bytes into a new file; it is left open.
int writeBlocks(const std::filesystem::path& file, std::size_t length) {
    const std::vector<char> block(blockSize, 'x');
    const int written = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    while (length > 0)
        length -= static_cast<std::size_t>(
            ::write(written, block.data(), std::min(length, block.size())));
    return written;
}

void writeBytes(benchmark::State& state) {
    const SheetOnDisk disk(sampleClass(studentsOf(state)));
    const auto length = static_cast<std::size_t>(std::filesystem::file_size(disk.file));
    for (auto _ : state) {
        const int file = writeBlocks(disk.other, length);
        state.PauseTiming();
        ::close(file);
        std::filesystem::remove(disk.other);
        state.ResumeTiming();
    }
}

void saveSafely(benchmark::State& state) {
    const GradeSheet sheet = sampleClass(studentsOf(state));
    const SheetOnDisk disk(sheet);
    PosixFiles files;
    for (auto _ : state) writeSheet(files, disk.file, sheet);
}

void writeFlushAndReplace(benchmark::State& state) {
    const SheetOnDisk disk(sampleClass(studentsOf(state)));
    const auto length = static_cast<std::size_t>(std::filesystem::file_size(disk.file));
    for (auto _ : state) {
        const int file = writeBlocks(disk.other, length);
        ::fsync(file);
        ::close(file);
        std::filesystem::rename(disk.other, disk.file);
    }
}

BENCHMARK(load)->Apply(eachSize);
BENCHMARK(readBlocks)->Apply(eachSize);
BENCHMARK(save)->Apply(eachSize);
BENCHMARK(writeBytes)->Apply(eachSize);
// They wait for the disk, which is no time of the processor.
BENCHMARK(saveSafely)->Apply(eachSize)->UseRealTime();
BENCHMARK(writeFlushAndReplace)->Apply(eachSize)->UseRealTime();

}  // namespace

}  // namespace quorvel
