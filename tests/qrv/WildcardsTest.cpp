#include <filesystem>

#include "qrv/Input.h"
#include "tests/fakes/MemoryFiles.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class WildcardsTest : public testing::Test {
  protected:
    WildcardsTest() {
        for (const char* name : {"B.qrv", "a1.QRV", "a12.qrv", "a.csv", "[x].qrv"}) {
            files_.files[std::filesystem::absolute(std::filesystem::path("Grades") / name)];
        }
    }

    std::string expanded(const std::vector<std::string>& names) {
        std::string all;
        for (const std::string& name : expandWildcards(names, files_)) all += name + ' ';
        return all;
    }

  private:
    MemoryFiles files_;
};

TEST_F(WildcardsTest, AStarIsAnyTextAndAQuestionMarkOneCharacterInAnyCase) {
    EXPECT_EQ(expanded({"Grades/*.qrv"}),
              "Grades/B.qrv Grades/[x].qrv Grades/a1.QRV Grades/a12.qrv ");
    EXPECT_EQ(expanded({"Grades/A?.qrv"}), "Grades/a1.QRV ");
    EXPECT_EQ(expanded({"Grades/a*2*.q*v"}), "Grades/a12.qrv ");
    EXPECT_EQ(expanded({"Grades/*"}),
              "Grades/B.qrv Grades/[x].qrv Grades/a.csv Grades/a1.QRV Grades/a12.qrv ");
}

TEST_F(WildcardsTest, WhatMatchesNothingAndWhatIsNoPatternStays) {
    EXPECT_EQ(expanded({"Grades/*.txt", "Grades/B.qrv", "-", "other", "Gr?des/B.qrv"}),
              "Grades/*.txt Grades/B.qrv - other Gr?des/B.qrv ");
}

}  // namespace

}  // namespace quorvel
