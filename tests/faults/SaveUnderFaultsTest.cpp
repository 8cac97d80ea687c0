#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/fakes/FaultyFiles.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/faults/Saves.h"

#include <gtest/gtest.h>

namespace quorvel::faults {
namespace {

using Fault = FaultyFiles::Fault;

/// How a file comes by its new content.
enum class Way {
    Replaced,      // one that was written beside it takes its place
    Held,          // it is written in place, with the new content beside it
    NoRoomBeside,  // it is written in place: no file can be made beside it
};
constexpr Way everyWay[] = {Way::Replaced, Way::Held, Way::NoRoomBeside};

/// A disk for one of these ways.
class Disk final : public FaultyFiles {
  public:
    Disk(Files& below, Way way, const std::filesystem::path& file) : FaultyFiles(below), way_(way) {
        if (way == Way::Held) held.insert(file);
    }
    std::unique_ptr<OutputFile> create(const std::filesystem::path& file,
                                       const std::filesystem::path& model) override {
        if (way_ == Way::NoRoomBeside) return nullptr;
        return FaultyFiles::create(file, model);
    }

  private:
    Way way_;
};

/// As vectors of bytes compare themselves, only quicker.
bool same(const Bytes& left, const Bytes& right) {
    return left.size() == right.size() &&
           (left.empty() || std::memcmp(left.data(), right.data(), left.size()) == 0);
}

/// A save over a file that was there before, or over none.
struct Attempt {
    const Save& save;
    const Bytes& written;  // what it writes where there is no file
    Way way;
    MemoryFiles before;

    const Bytes* old() const {
        const auto found = before.files.find(save.file);
        return found == before.files.end() ? nullptr : &found->second;
    }
    Bytes content() const { return old() == nullptr ? written : over(*old(), written); }
    std::string told() const {
        return save.name + ", way " + std::to_string(static_cast<int>(way)) + ", over " +
               (old() == nullptr ? "none" : std::to_string(old()->size()));
    }
};

/// What a save with up to two faults left.
struct Outcome {
    MemoryFiles disk;
    int operations = 0;       // as the program made them
    int operationsBelow = 0;  // those that got as far as the second fault
};

/// Fails the operation number `first`, and number `second` of those that are left (0: none).
Outcome saveWith(const Attempt& attempt, Fault fault, int first, int second = 0) {
    Outcome outcome{attempt.before};
    FaultyFiles below(outcome.disk);
    Disk disk(below, attempt.way, attempt.save.file);
    below.breakAt(second, Fault::Fail);
    disk.breakAt(first, fault);
    attempt.save.write(disk);
    outcome.operations = disk.operations();
    outcome.operationsBelow = below.operations();
    return outcome;
}

/// The old file or the new one, whole. Beside it there may be what could not be removed, and where
/// it had to be written in place and that broke off, the whole new one.
void expectPromise(const Attempt& attempt, const MemoryFiles& after, const Bytes& content) {
    const auto found = after.files.find(attempt.save.file);
    const bool isThere = found != after.files.end();
    const bool isOld =
        attempt.old() == nullptr ? !isThere : isThere && same(found->second, *attempt.old());
    const bool isNew = isThere && same(found->second, content);
    const auto beside = after.files.find(attempt.save.file.string() + ".quorvel-new");
    const bool isBeside = beside != after.files.end();
    EXPECT_TRUE(isOld || isNew ||
                (attempt.way == Way::Held && isBeside && same(beside->second, content)));
    EXPECT_EQ(after.files.size(), (isThere ? 1U : 0U) + (isBeside ? 1U : 0U));
}

/// Once nothing is wrong any more, a save succeeds and tidies up.
void expectNextSave(const Attempt& attempt, MemoryFiles& disk) {
    const auto found = disk.files.find(attempt.save.file);
    const Bytes old = found == disk.files.end() ? Bytes() : found->second;
    attempt.save.write(disk);
    EXPECT_TRUE(same(disk.files.at(attempt.save.file), over(old, attempt.written)));
    EXPECT_EQ(disk.files.size(), 1U);
}

void expectEverythingKept(const Attempt& attempt, const Bytes& content, Outcome outcome) {
    expectPromise(attempt, outcome.disk, content);
    expectNextSave(attempt, outcome.disk);
}

/// Over a longer file, a shorter one and none.
std::vector<Attempt> attemptsOf(const Save& save, const Bytes& written) {
    std::vector<Attempt> attempts;
    for (const Way way : everyWay) {
        for (const std::size_t oldSize : {written.size() + 1000, written.size() / 2 + 1}) {
            attempts.push_back({save, written, way, {}});
            attempts.back().before.files[save.file] = Bytes(oldSize, std::byte{0xAB});
        }
        attempts.push_back({save, written, way, {}});
    }
    return attempts;
}

/// All operations, or the first and the last ones and every `stride`-th between them.
std::vector<int> operationsUpTo(int count, int stride) {
    constexpr int first = 3;
    constexpr int last = 8;
    std::vector<int> operations;
    for (int operation = 1; operation <= count; ++operation)
        if (operation <= first || operation > count - last || operation % stride == 0)
            operations.push_back(operation);
    return operations;
}

void breakOperations(const Attempt& attempt, std::initializer_list<Fault> faults, int stride = 1) {
    SCOPED_TRACE(attempt.told());
    const Bytes content = attempt.content();
    const Outcome whole = saveWith(attempt, Fault::Fail, 0);
    ASSERT_TRUE(same(whole.disk.files.at(attempt.save.file), content));
    ASSERT_EQ(whole.disk.files.size(), 1U);
    for (const Fault fault : faults) {
        for (const int operation : operationsUpTo(whole.operations, stride)) {
            SCOPED_TRACE(operation);
            expectEverythingKept(attempt, content, saveWith(attempt, fault, operation));
            if (testing::Test::HasFailure()) return;
        }
    }
}

TEST(SaveUnderFaults, AnyFaultLeavesTheOldFileOrTheNewOne) {
    for (const Save& save : everySave()) {
        const Bytes written = contentOf(save);
        for (const Attempt& attempt : attemptsOf(save, written))
            breakOperations(attempt, {Fault::Fail, Fault::Shorten});
    }
}

/// A large sheet's save does the same to one block after the other, which takes its time.
int strideThroughLargeSheet() {
    constexpr int quickStride = 97;
    return std::getenv("QUORVEL_EVERY_FAULT") != nullptr ? 1 : quickStride;
}

TEST(SaveUnderFaults, AnyFaultLeavesTheOldLargeFileOrTheNewOne) {
    const Save save = sheetSave(300, 100);
    const Bytes written = contentOf(save);
    for (const Way way : everyWay) {
        Attempt attempt{save, written, way, {}};
        attempt.before.files[save.file] = Bytes(written.size() + 1000, std::byte{0xAB});
        // What fails to write or to read does half of it first, which is the worse of the two.
        breakOperations(attempt, {Fault::Shorten}, strideThroughLargeSheet());
    }
}

/// Whether nothing can be done about a second fault: half a file with nothing beside it, or one
/// that was not there before and cannot be removed, which is a fault already.
bool isBeyondTwoFaults(const Attempt& attempt) {
    return attempt.way == Way::NoRoomBeside ||
           (attempt.way == Way::Held && attempt.old() == nullptr);
}

TEST(SaveUnderFaults, AnyTwoFaultsLeaveTheOldFileOrTheNewOne) {
    const Save save = sheetSave(1, 1);
    const Bytes written = contentOf(save);
    for (const Attempt& attempt : attemptsOf(save, written)) {
        if (isBeyondTwoFaults(attempt)) continue;
        SCOPED_TRACE(attempt.told());
        const Bytes content = attempt.content();
        const int operations = saveWith(attempt, Fault::Fail, 0).operations;
        for (const Fault fault : {Fault::Fail, Fault::Shorten}) {
            for (int first = 1; first <= operations; ++first) {
                const int left = saveWith(attempt, fault, first).operationsBelow;
                for (int second = 1; second <= left; ++second) {
                    SCOPED_TRACE(std::to_string(first) + " and " + std::to_string(second));
                    expectEverythingKept(attempt, content, saveWith(attempt, fault, first, second));
                    ASSERT_FALSE(testing::Test::HasFailure());
                }
            }
        }
    }
}

}  // namespace
}  // namespace quorvel::faults
