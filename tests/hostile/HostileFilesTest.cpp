#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "storage/SheetFile.h"
#include "tests/fuzz/Trials.h"
#include "tests/hostile/Limits.h"
#include "tests/hostile/Victims.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>

namespace quorvel::hostile {
namespace {

/// Strides that share no factor with a record's size, so that they come to all of its places.
constexpr std::size_t stepOfLengths = 1733;
constexpr std::size_t stepOfBits = 14009;
constexpr std::size_t stepInSmallFiles = 41;
constexpr std::size_t stepOfNumbers = 251;
constexpr std::size_t smallFile = 4096;

/// What 384 bytes may take, in the processor's time: ten times what the program may, since it is
/// built for testing here.
constexpr double mostSeconds = 1;

bool isSmall(const Victim& victim) {
    return victim.bytes.size() < smallFile;
}

TEST(HostileFiles, AreReadAtEveryLength) {
    Toll toll;
    for (const Victim& victim : victims()) {
        SCOPED_TRACE(victim.name);
        EXPECT_GT(tryLengths(victim, isSmall(victim) ? stepInSmallFiles : stepOfLengths, toll), 1U);
    }
}

TEST(HostileFiles, AreReadWithAnyBitChanged) {
    Toll toll;
    for (const Victim& victim : victims()) {
        SCOPED_TRACE(victim.name);
        EXPECT_GT(tryBits(victim, isSmall(victim) ? stepInSmallFiles : stepOfBits, toll), 1U);
    }
}

TEST(HostileFiles, AreReadWithEveryTypeAndLengthOfAText) {
    Toll toll;
    for (const Victim& victim : victims()) {
        if (!isSmall(victim)) continue;
        SCOPED_TRACE(victim.name);
        for (const std::size_t offset : {0U, 2U})
            EXPECT_GT(tryNumbers(victim, offset, stepOfNumbers, toll), 1U);
    }
}

/// Two counts and a title: 384 bytes, whatever they claim.
class Claim : public testing::TestWithParam<Bytes> {};

TEST_P(Claim, OfManyCellsTakesNoLongerThanItsBytes) {
    const Bytes file = GetParam() + GetParam() + textRecord("Huge");
    ASSERT_EQ(file.size(), 384U);
    Toll toll;
    attempt(fuzz::trySheet, file, toll);
    EXPECT_LT(toll.seconds, mostSeconds);
}

INSTANTIATE_TEST_SUITE_P(Counts, Claim,
                         testing::Values(recordWith(hex("02 00 FF 7F")),               // 32,767
                                         recordWith(hex("03 00 FF 7F 00 00")),         // the same
                                         recordWith(hex("04 00 00 FE FF 46")),         // the same
                                         taggedTextRecord("32767"),                    // the same
                                         recordWith(hex("02 00 FF FF")),               // -1
                                         recordWith(hex("02 00 00 80")),               // -32,768
                                         recordWith(hex("03 00 00 00 00 80")),         // lowest
                                         recordWith(hex("03 00 FF FF FF 7F")),         // highest
                                         recordWith(hex("04 00 00 00 80 7F")),         // infinite
                                         recordWith(hex("04 00 00 00 C0 7F")),         // no number
                                         taggedTextRecord("-99999999999999999999")));  // too long

/// A file that somebody else makes longer or shorter after the first block was read.
class ChangingFiles final : public Files {
  public:
    ChangingFiles(Bytes before, Bytes after)
        : before_(std::move(before)), after_(std::move(after)) {}

    Opened openForReading(const std::filesystem::path&, std::uint64_t) override {
        return {std::make_unique<Input>(before_, after_)};
    }
    std::optional<FileStamp> stampOf(const std::filesystem::path&) override {
        return FileStamp{before_.size(), 0};
    }
    std::unique_ptr<OutputFile> create(const std::filesystem::path&,
                                       const std::filesystem::path&) override {
        return nullptr;
    }
    std::unique_ptr<OutputFile> openForWriting(const std::filesystem::path&) override {
        return nullptr;
    }
    bool replace(const std::filesystem::path&, const std::filesystem::path&) override {
        return false;
    }
    bool remove(const std::filesystem::path&) override { return false; }
    bool copy(const std::filesystem::path&, const std::filesystem::path&) override { return false; }
    bool createFolder(const std::filesystem::path&) override { return false; }
    std::vector<std::filesystem::path> list(const std::filesystem::path&) override { return {}; }
    std::filesystem::path followLink(const std::filesystem::path& file) override { return file; }
    void pause() override {}

  private:
    class Input final : public InputFile {
      public:
        Input(const Bytes& before, const Bytes& after) : now_(&before), after_(after) {}

      private:
        std::optional<std::size_t> readSome(std::span<std::byte> target) override {
            const std::size_t left = now_->size() - std::min(now_->size(), position_);
            const std::size_t count = std::min({target.size(), left, bytesAtATime});
            std::copy_n(now_->begin() + static_cast<std::ptrdiff_t>(left == 0 ? 0 : position_),
                        count, target.begin());
            position_ += count;
            now_ = &after_;
            return count;
        }

        static constexpr std::size_t bytesAtATime = 10'000;

        const Bytes* now_;
        const Bytes& after_;
        std::size_t position_ = 0;
    };

    Bytes before_;
    Bytes after_;
};

Victim sheetVictim() {
    return victims().front();
}

TEST(HostileFiles, MayShrinkWhileTheyAreRead) {
    const Victim sheet = sheetVictim();
    const Bytes shorter(sheet.bytes.begin(), sheet.bytes.begin() + 100'000);
    ChangingFiles files(sheet.bytes, shorter);
    const SheetReading reading = readSheet(files, "/a.qrv");
    EXPECT_EQ(reading.problem, FileProblem::None);
    EXPECT_EQ(reading.sheet.studentCount(), 40);
    EXPECT_FALSE(reading.sheet.score(1, 1).isEmpty());
    EXPECT_TRUE(reading.sheet.score(30, 39).isEmpty());
}

TEST(HostileFiles, MayGrowWhileTheyAreRead) {
    const Victim sheet = sheetVictim();
    ChangingFiles files(Bytes(sheet.bytes.begin(), sheet.bytes.begin() + 1000),
                        sheet.bytes + Bytes(100'000, std::byte{0xFF}));
    const SheetReading reading = readSheet(files, "/a.qrv");
    EXPECT_EQ(reading.problem, FileProblem::None);
    EXPECT_EQ(reading.sheet.studentCount(), 40);
}

TEST(Meter, SeesWhatWasTakenAndGivenBack) {
    constexpr std::size_t some = 1'000'000;
    const Meter meter;
    { const Bytes bytes(some); }
    EXPECT_GE(meter.mostBytes(), some);
    EXPECT_LT(meter.mostBytes(), 2 * some);
}

TEST(HostileFiles, ThatTakeTooMuchMemoryAreNoticed) {
    Toll toll;
    const auto greedy = [](std::span<const std::byte>) { const Bytes bytes(mostFurtherBytes + 1); };
    EXPECT_THROW(attempt(greedy, {}, toll), fuzz::Broken);
}

}  // namespace
}  // namespace quorvel::hostile
