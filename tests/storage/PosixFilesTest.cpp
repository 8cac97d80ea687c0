#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "storage/SheetFile.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

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
        const auto output = files_.open(file, Files::OpenMode::Replace);
        EXPECT_TRUE(output && output->append(bytes) && output->flush());
        return file;
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

TEST_F(PosixFilesTest, ReadsWholeFilesTheirStartAndTheirRest) {
    const fs::path file = put("a", hex("01 02 03 04 05"));
    EXPECT_EQ(files_.read(file), hex("01 02 03 04 05"));
    EXPECT_EQ(files_.read(file, 2), hex("01 02"));
    EXPECT_EQ(files_.read(file, 0), Bytes());
    EXPECT_EQ(files_.read(file, 100), hex("01 02 03 04 05"));
    EXPECT_EQ(files_.readFrom(file, 0), hex("01 02 03 04 05"));
    EXPECT_EQ(files_.readFrom(file, 3), hex("04 05"));
    EXPECT_EQ(files_.readFrom(file, 5), Bytes());
    EXPECT_EQ(files_.readFrom(file, 1000), Bytes());
}

TEST_F(PosixFilesTest, WhatIsNoFileCannotBeRead) {
    EXPECT_EQ(files_.read(folder_ / "missing"), std::nullopt);
    EXPECT_EQ(files_.readFrom(folder_ / "missing", 0), std::nullopt);
    EXPECT_EQ(files_.read(folder_), std::nullopt);
}

TEST_F(PosixFilesTest, ReadsAFileThatDoesNotTellItsSize) {
    const auto bytes = files_.read("/proc/self/status");
    ASSERT_TRUE(bytes);
    EXPECT_GT(bytes->size(), 100U);
    EXPECT_EQ(files_.read("/proc/self/status", 5), firstBytes(*bytes, 5));
}

TEST_F(PosixFilesTest, ReadsPieceByPiece) {
    const fs::path file = put("a", hex("01 02 03 04 05"));
    const auto input = files_.openForReading(file);
    ASSERT_TRUE(input);
    Bytes piece(3);
    EXPECT_EQ(input->read(piece), 3U);
    EXPECT_EQ(piece, hex("01 02 03"));
    EXPECT_EQ(input->read(piece), 2U);
    EXPECT_EQ(firstBytes(piece, 2), hex("04 05"));
    EXPECT_EQ(input->read(piece), 0U);
    EXPECT_EQ(files_.openForReading(folder_ / "missing"), nullptr);
}

TEST_F(PosixFilesTest, AFileWithoutAnEndIsReadNoFurtherThanItsSheetGoes) {
    GradeSheet sheet = sampleSheet();
    readSheet(files_, "/dev/zero", sheet);
    EXPECT_EQ(contentOf(sheet), contentOf(GradeSheet()));
}

TEST_F(PosixFilesTest, AFolderIsReadAsASheetWithoutBytes) {
    GradeSheet sheet = sampleSheet();
    readSheet(files_, folder_, sheet);
    EXPECT_EQ(contentOf(sheet), contentOf(GradeSheet()));
}

TEST_F(PosixFilesTest, ReplaceEmptiesAFileAndWriteOverKeepsItsRest) {
    const fs::path file = put("a", hex("01 02 03 04 05"));
    ASSERT_TRUE(files_.open(file, Files::OpenMode::WriteOver)->append(hex("AA BB")));
    EXPECT_EQ(files_.read(file), hex("AA BB 03 04 05"));
    ASSERT_TRUE(files_.open(file, Files::OpenMode::Replace)->append(hex("CC")));
    EXPECT_EQ(files_.read(file), hex("CC"));
    ASSERT_TRUE(files_.open(folder_ / "new", Files::OpenMode::WriteOver)->append(hex("DD")));
    EXPECT_EQ(files_.read(folder_ / "new"), hex("DD"));
}

TEST_F(PosixFilesTest, AFullDiskIsNoticed) {
    const auto full = files_.open("/dev/full", Files::OpenMode::WriteOver);
    ASSERT_TRUE(full);
    EXPECT_FALSE(full->append(hex("01")));
}

TEST_F(PosixFilesTest, WhatCannotBeOpenedIsNotOpened) {
    EXPECT_EQ(files_.open(folder_ / "missing" / "a", Files::OpenMode::Replace), nullptr);
    EXPECT_EQ(files_.open(folder_, Files::OpenMode::Replace), nullptr);
}

TEST_F(PosixFilesTest, AReplacedFileKeepsItsPermissions) {
    const fs::path old = put("old", hex("01"));
    const fs::path renewed = put("new", hex("02"));
    fs::permissions(old, fs::perms(0640));
    EXPECT_TRUE(files_.replace(renewed, old));
    EXPECT_EQ(files_.read(old), hex("02"));
    EXPECT_EQ(modeOf(old), 0640U);
    EXPECT_FALSE(files_.exists(renewed));
    EXPECT_FALSE(files_.replace(folder_ / "missing", old));
}

TEST_F(PosixFilesTest, AWriteProtectedFileIsNeitherReplacedNorOpenedForWriting) {
    const fs::path old = put("old", hex("01"));
    const fs::path renewed = put("new", hex("02"));
    fs::permissions(old, fs::perms(0444));
    EXPECT_FALSE(files_.replace(renewed, old));
    EXPECT_EQ(files_.open(old, Files::OpenMode::WriteOver), nullptr);
    EXPECT_EQ(files_.open(old, Files::OpenMode::Replace), nullptr);
    EXPECT_EQ(files_.read(old), hex("01"));
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
    EXPECT_EQ(files_.list(folder_, ".qrv"), (std::vector{folder_ / ".qrv", folder_ / "A.QRV",
                                                         folder_ / "b.Qrv", folder_ / "c.qrv"}));
    EXPECT_TRUE(files_.list(folder_ / "missing", ".qrv").empty());
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
    EXPECT_EQ(files_.read(real), sampleFile());
    EXPECT_EQ(entryCount(), 2U);
}

TEST_F(PosixFilesTest, ASheetSavedOverAnOlderOneLeavesNothingElseInTheFolder) {
    const fs::path file = put("a.qrv", Bytes(5000, std::byte{0xAB}));
    EXPECT_TRUE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(files_.read(file), sampleFile() + Bytes(5000 - 19 * 128, std::byte{0xAB}));
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(PosixFilesTest, AWriteProtectedSheetStaysAsItIs) {
    const fs::path file = put("a.qrv", hex("01"));
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(writeSheet(files_, file, sampleSheet()));
    EXPECT_EQ(files_.read(file), hex("01"));
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
    EXPECT_EQ(files_.read(file), sampleFile());
    EXPECT_EQ(entryCount(), 1U);
}

}  // namespace
}  // namespace quorvel
