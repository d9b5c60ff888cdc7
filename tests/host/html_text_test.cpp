#include "host/charts/html_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace tslm5::host {
namespace {

TEST(HtmlText, MakesMarksHarmless) {
  EXPECT_EQ(HtmlText("<script>a&b</script>"), "&lt;script&gt;a&amp;b&lt;/script&gt;");
  EXPECT_EQ(HtmlText("\" onload='x'"), "&quot; onload=&#39;x&#39;");
  EXPECT_EQ(HtmlText("größe"), "größe");
}

TEST(HtmlText, ShowsWhatWouldDisturbThePage) {
  EXPECT_EQ(HtmlText(std::string_view("a\0b", 3)), "a\\u{0000}b");
  EXPECT_EQ(HtmlText("a\u202Eb"), "a\\u{202E}b");
  EXPECT_EQ(HtmlText("\xFF"), "\\xFF");
  EXPECT_EQ(HtmlLabel("a<b"), "<bdi>a&lt;b</bdi>");
}

TEST(CountText, GroupsDigits) {
  EXPECT_EQ(CountText(0), "0");
  EXPECT_EQ(CountText(999), "999");
  EXPECT_EQ(CountText(1000), "1\u202F000");
  EXPECT_EQ(CountText(1234567), "1\u202F234\u202F567");
  EXPECT_EQ(HtmlCount(1000), "<data value=\"1000\">1\u202F000</data>");
}

TEST(FigureText, HasSixDigits) {
  EXPECT_EQ(FigureText(2.6457513110645907), "2.64575");
  EXPECT_EQ(FigureText(-0.5), "\u22120.5");
  EXPECT_EQ(FigureText(1.5e-12), "1.5\u202F\u00D7\u202F10\u207B\u00B9\u00B2");
  EXPECT_EQ(FigureText(-2e30), "\u22122\u202F\u00D7\u202F10\u00B3\u2070");
  EXPECT_EQ(FigureText(std::numeric_limits<double>::infinity()), "\u221E");
}

TEST(HtmlFigure, KeepsEveryDigit) {
  EXPECT_EQ(HtmlFigure(0.1 + 0.2), "<data value=\"0.30000000000000004\">0.3</data>");
  EXPECT_EQ(HtmlFigure({}), "<span class=\"none\">\u2013</span>");
}

TEST(ShareText, TellsNothingAndAllFromNearly) {
  EXPECT_EQ(ShareText(0, 10), "0\u202F%");
  EXPECT_EQ(ShareText(0, 0), "0\u202F%");
  EXPECT_EQ(ShareText(1, 8), "12.5\u202F%");
  EXPECT_EQ(ShareText(1, 1000000), "below\u00A00.1\u202F%");
  EXPECT_EQ(ShareText(999999, 1000000), "99.9\u202F%");
  EXPECT_EQ(ShareText(7, 7), "100\u202F%");
}

TEST(HtmlTime, IsShownToTheMinute) {
  EXPECT_EQ(HtmlTime("2026-01-31T12:05:59Z"),
            "<time datetime=\"2026-01-31T12:05:59Z\">2026-01-31 12:05 UTC</time>");
  EXPECT_EQ(HtmlTime("<soon>"), "<time datetime=\"&lt;soon&gt;\">&lt;soon&gt;</time>");
}

}  // namespace
}  // namespace tslm5::host
