#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "storage/Reading.h"
#include "storage/SheetFile.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvel {
namespace {

namespace fs = std::filesystem;

class PosixFilesTest : public ::testing::Test {
  protected:
    PosixFilesTest() {
        std::string name = (fs::temp_directory_path() / "quorvel-files-XXXXXX").string();
        if (::mkdtemp(name.data()) != nullptr) folder_ = name;
    }
    ~PosixFilesTest() override {
        std::error_code error;
        if (!folder_.empty()) fs::remove_all(folder_, error);
    }

    fs::path put(const fs::path& name, const Bytes& bytes) {
        fs::path file = folder_ / name;
        const auto output = files_.create(file, "model");
        EXPECT_TRUE(output && output->append(bytes) && output->flush());
        return file;
    }
    /// What a file holds from there on.
    Bytes rest(const fs::path& file, std::uint64_t offset = 0) {
        const auto opened = files_.openForReading(file, offset);
        EXPECT_TRUE(opened.file);
        Bytes bytes(100'000);
        if (opened.file) bytes.resize(opened.file->read(bytes).value_or(0));
        return bytes;
    }
    std::size_t entryCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    static mode_t modeOf(const fs::path& file) {
        struct stat status {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    fs::path folder_;
    PosixFiles files_;
};

TEST_F(PosixFilesTest, ReadsFromWhereItIsTold) {
    const fs::path file = put("a", hex("01 02 03 04 05"));
    EXPECT_EQ(rest(file, 0), hex("01 02 03 04 05"));
    EXPECT_EQ(rest(file, 3), hex("04 05"));
    EXPECT_EQ(rest(file, 5), Bytes());
    EXPECT_EQ(rest(file, 1000), Bytes());
    EXPECT_EQ(files_.openForReading(file, UINT64_MAX).problem, FileProblem::Unreadable);
}

TEST_F(PosixFilesTest, ReadsPieceByPiece) {
    const auto input = files_.openForReading(put("a", hex("01 02 03 04 05"))).file;
    ASSERT_TRUE(input);
    Bytes piece(3);
    EXPECT_EQ(input->read(piece), 3U);
    EXPECT_EQ(piece, hex("01 02 03"));
    EXPECT_EQ(input->read(piece), 2U);
    EXPECT_EQ(firstBytes(piece, 2), hex("04 05"));
    EXPECT_EQ(input->read(piece), 0U);
}

TEST_F(PosixFilesTest, SaysWhyAFileCannotBeRead) {
    EXPECT_EQ(files_.openForReading(folder_ / "missing").problem, FileProblem::Missing);
    EXPECT_EQ(files_.openForReading(put("a", {}) / "b").problem, FileProblem::Missing);
    EXPECT_EQ(files_.openForReading(folder_).problem, FileProblem::Folder);
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_EQ(files_.openForReading(folder_ / "loop").problem, FileProblem::Unreadable);
}

TEST_F(PosixFilesTest, AFileThatCannotBeReadAnyFurtherIsNotAtItsEnd) {
    const auto memory = files_.openForReading("/proc/self/mem").file;
    ASSERT_TRUE(memory);
    Bytes piece(3);
    EXPECT_EQ(memory->read(piece), std::nullopt);
}

TEST_F(PosixFilesTest, AFileWithoutAnEndIsReadNoFurtherThanItsSheetGoes) {
    const SheetReading reading = readSheet(files_, "/dev/zero");
    EXPECT_EQ(reading.problem, FileProblem::None);
    EXPECT_EQ(contentOf(reading.sheet), contentOf(GradeSheet()));
}

TEST_F(PosixFilesTest, WritingOverKeepsTheRestUnlessItIsCut) {
    const fs::path file = put("a", hex("01 02 03 04 05"));
    ASSERT_TRUE(files_.openForWriting(file)->append(hex("AA BB")));
    EXPECT_EQ(rest(file), hex("AA BB 03 04 05"));
    const auto output = files_.openForWriting(file);
    ASSERT_TRUE(output->append(hex("CC")) && output->append(hex("DD")));
    EXPECT_EQ(output->length(), 2U);
    EXPECT_TRUE(output->cut());
    EXPECT_EQ(rest(file), hex("CC DD"));
    ASSERT_TRUE(files_.openForWriting(folder_ / "new")->append(hex("DD")));
    EXPECT_EQ(rest(folder_ / "new"), hex("DD"));
}

TEST_F(PosixFilesTest, AFullDiskIsNoticed) {
    const auto full = files_.openForWriting("/dev/full");
    ASSERT_TRUE(full);
    EXPECT_FALSE(full->append(hex("01")));
}

TEST_F(PosixFilesTest, WhatCannotBeOpenedIsNotOpened) {
    EXPECT_EQ(files_.openForWriting(folder_ / "missing" / "a"), nullptr);
    EXPECT_EQ(files_.create(folder_ / "missing" / "a", "model"), nullptr);
    EXPECT_EQ(files_.openForWriting(folder_), nullptr);
}

TEST_F(PosixFilesTest, ANewFileIsNeverOpenedOverAnother) {
    const fs::path file = put("a", hex("01"));
    EXPECT_EQ(files_.create(file, "model"), nullptr);
    fs::create_symlink("nowhere", folder_ / "link");
    EXPECT_EQ(files_.create(folder_ / "link", "model"), nullptr);
    EXPECT_EQ(rest(file), hex("01"));
}

TEST_F(PosixFilesTest, ANewFileHasTheModeOfItsModelBeforeItHasBytes) {
    const fs::path model = put("model", hex("01"));
    for (const mode_t mode : {0600U, 0640U, 0666U, 0700U}) {
        fs::permissions(model, fs::perms(mode));
        const auto output = files_.create(folder_ / "new", model);
        ASSERT_TRUE(output);
        EXPECT_EQ(modeOf(folder_ / "new"), mode);
        fs::remove(folder_ / "new");
    }
}

TEST_F(PosixFilesTest, ANewFileHasOwnerAndGroupOfItsModelWhereThatIsAllowed) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may give files away";
    const fs::path model = put("model", hex("01"));
    ASSERT_EQ(::chown(model.c_str(), 12, 34), 0);
    ASSERT_TRUE(files_.create(folder_ / "new", model));
    struct stat status {};
    ASSERT_EQ(::stat((folder_ / "new").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12U);
    EXPECT_EQ(status.st_gid, 34U);
}

TEST_F(PosixFilesTest, ASavedSheetKeepsModeOwnerAndGroup) {
    const fs::path file = put("a.qrv", hex("01"));
    fs::permissions(file, fs::perms(0640));
    const bool mayGiveAway = ::chown(file.c_str(), 12, 34) == 0;
    EXPECT_TRUE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(rest(file), sampleFile());
    EXPECT_EQ(modeOf(file), 0640U);
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_TRUE(!mayGiveAway || (status.st_uid == 12 && status.st_gid == 34));
}

TEST_F(PosixFilesTest, ReplacesAFileByAnother) {
    const fs::path old = put("old", hex("01"));
    const fs::path renewed = put("new", hex("02"));
    EXPECT_TRUE(files_.replace(renewed, old));
    EXPECT_EQ(rest(old), hex("02"));
    EXPECT_FALSE(files_.exists(renewed));
    EXPECT_FALSE(files_.replace(folder_ / "missing", old));
}

TEST_F(PosixFilesTest, AWriteProtectedFileIsNeitherReplacedNorOpenedForWriting) {
    const fs::path old = put("old", hex("01"));
    const fs::path renewed = put("new", hex("02"));
    fs::permissions(old, fs::perms(0444));
    EXPECT_FALSE(files_.replace(renewed, old));
    EXPECT_EQ(files_.openForWriting(old), nullptr);
    EXPECT_EQ(rest(old), hex("01"));
}

TEST_F(PosixFilesTest, CopiesAFileOverAnother) {
    const fs::path from = put("from", hex("01 02"));
    const fs::path to = put("to", hex("03"));
    EXPECT_TRUE(files_.copy(from, to));
    EXPECT_EQ(rest(to), hex("01 02"));
    EXPECT_FALSE(files_.copy(folder_ / "missing", to));
    EXPECT_FALSE(files_.copy(from, folder_ / "missing" / "to"));
}

TEST_F(PosixFilesTest, AStampTellsLengthAndTimeOfAFile) {
    const fs::path file = put("a", hex("01 02"));
    const auto stamp = files_.stampOf(file);
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->length, 2U);
    EXPECT_EQ(files_.stampOf(file), stamp);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(1));
    EXPECT_NE(files_.stampOf(file), stamp);
    EXPECT_EQ(files_.stampOf(folder_ / "missing"), std::nullopt);
    EXPECT_TRUE(files_.exists(folder_));
}

TEST_F(PosixFilesTest, AFileThatIsBeingMadeIsNotRemoved) {
    const fs::path file = folder_ / "new";
    auto output = files_.create(file, "model");
    ASSERT_TRUE(output);
    EXPECT_FALSE(files_.remove(file));
    EXPECT_TRUE(files_.exists(file));
    output.reset();
    EXPECT_TRUE(files_.remove(file));
}

TEST_F(PosixFilesTest, RemovesFilesAndSaysWhetherItDid) {
    const fs::path file = put("a", {});
    EXPECT_TRUE(files_.exists(file));
    EXPECT_TRUE(files_.remove(file));
    EXPECT_FALSE(files_.exists(file));
    EXPECT_FALSE(files_.remove(file));
}

TEST_F(PosixFilesTest, AFolderThatIsThereIsAsGoodAsAFolderMade) {
    EXPECT_TRUE(files_.createFolder(folder_ / "Grades"));
    EXPECT_TRUE(files_.createFolder(folder_ / "Grades"));
    EXPECT_TRUE(files_.exists(folder_ / "Grades"));
    put("file", {});
    EXPECT_FALSE(files_.createFolder(folder_ / "file"));
    EXPECT_FALSE(files_.createFolder(folder_ / "missing" / "Grades"));
}

TEST_F(PosixFilesTest, ListsTheFilesOfAnEndingInAnyCaseInTheOrderOfTheirNames) {
    for (const char* name : {"c.qrv", "A.QRV", "b.Qrv", "d.qrv.new", "qrv", ".qrv", "e.txt"}) {
        put(name, {});
    }
    files_.createFolder(folder_ / "folder.qrv");
    EXPECT_EQ(files_.list(folder_).size(), 7U);
    EXPECT_EQ(
        filesEndingWith(files_, folder_, ".qrv"),
        (std::vector{folder_ / ".qrv", folder_ / "A.QRV", folder_ / "b.Qrv", folder_ / "c.qrv"}));
    EXPECT_TRUE(files_.list(folder_ / "missing").empty());
}

TEST_F(PosixFilesTest, FollowsLinksToTheirEnd) {
    files_.createFolder(folder_ / "sub");
    fs::create_symlink("sub/b", folder_ / "a");
    fs::create_symlink("c", folder_ / "sub/b");
    EXPECT_EQ(files_.followLink(folder_ / "a"), folder_ / "sub/c");
    EXPECT_EQ(files_.followLink(folder_ / "no link"), folder_ / "no link");
    fs::create_symlink("y", folder_ / "x");
    fs::create_symlink("x", folder_ / "y");
    EXPECT_EQ(files_.followLink(folder_ / "x"), folder_ / "x");
}

TEST_F(PosixFilesTest, ASheetSavedToALinkGoesToTheLinkedFile) {
    files_.createFolder(folder_ / "sub");
    const fs::path real = put("sub/real.qrv", {});
    const fs::path link = folder_ / "link.qrv";
    fs::create_symlink("sub/real.qrv", link);
    EXPECT_TRUE(writeSheet(files_, link, sampleSheet()));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(rest(real), sampleFile());
    EXPECT_EQ(entryCount(), 2U);
}

TEST_F(PosixFilesTest, ASheetSavedOverAnOlderOneLeavesNothingElseInTheFolder) {
    const fs::path file = put("a.qrv", Bytes(5000, std::byte{0xAB}));
    EXPECT_TRUE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(rest(file), sampleFile() + Bytes(5000 - 19 * 128, std::byte{0xAB}));
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(PosixFilesTest, AWriteProtectedSheetStaysAsItIs) {
    const fs::path file = put("a.qrv", hex("01"));
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(rest(file), hex("01"));
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(PosixFilesTest, AFolderIsNotReplacedByASheet) {
    files_.createFolder(folder_ / "a.qrv");
    EXPECT_FALSE(writeSheet(files_, folder_ / "a.qrv", sampleSheet()));
    EXPECT_TRUE(fs::is_directory(folder_ / "a.qrv"));
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(PosixFilesTest, ANameTooLongForAFileBesideItIsWrittenInPlace) {
    const fs::path file = put(std::string(251, 'x') + ".qrv", hex("01"));
    EXPECT_TRUE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(rest(file), sampleFile());
    EXPECT_EQ(entryCount(), 1U);
}

}  // namespace
}  // namespace quorvel
