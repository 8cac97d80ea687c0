#include <gtest/gtest.h>

#include "page/Html.h"

namespace quorvel {
namespace {

TEST(Html, LiteralsAreMarkupAndTextsAreEscaped) {
    const std::string name = "<script>alert(\"O'Neil & Co\")</script>";
    EXPECT_EQ(Html().add("<b title=\"", name, "\">").markup(),
              "<b title=\"&lt;script&gt;alert(&quot;O&#39;Neil &amp; Co&quot;)&lt;/script&gt;\">");
    EXPECT_EQ(Html().add(std::string_view("<b>")).markup(), "&lt;b&gt;");
    const char* const pointer = "<i>";
    EXPECT_EQ(Html().add(pointer).markup(), "&lt;i&gt;");
    EXPECT_EQ(Html().add(Html().add("<p>", name.substr(0, 1)), "</p>").markup(), "<p>&lt;</p>");
}

TEST(Html, ControlCharactersAreBlanks) {
    using std::string_literals::operator""s;
    EXPECT_EQ(Html()
                  .add("a\0b\tc\nd\x1F"
                       "e\x7F"
                       "f"s)
                  .markup(),
              "a b c d e f");
    EXPECT_EQ(Html().add("\xC2\x80|\xC2\x9F|\xC2\xA0|\xC3\xA9|\xC2"s).markup(),
              " | |\xC2\xA0|\xC3\xA9|\xC2");
}

TEST(Html, NumbersAndTenthsAreDecimals) {
    EXPECT_EQ(Html().add(7, " ", std::size_t{8}, " ", std::int64_t{-9}).markup(), "7 8 -9");
    EXPECT_EQ(Html().add(Tenths{944}, " ", Tenths{1000}, " ", Tenths{-1}).markup(),
              "94.4 100 -0.1");
}

}  // namespace
}  // namespace quorvel
