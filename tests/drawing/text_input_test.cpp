#include <limits>

#include "simulator/drawing/plain_text.hpp"
#include "tests/drawing/pictures.hpp"

namespace drawing {
namespace {

constexpr TextLimit plenty{1000};
const std::string replacement = "\uFFFD";

Paragraph paragraphOf(const std::string& text) {
  Paragraph paragraph;
  paragraph.runs = {{text, {}, {}}};
  return paragraph;
}

std::string plain(const std::string& text) { return plainText(paragraphOf(text), plenty).text; }

TEST(PlainText, KeepsValidText) {
  const std::string text = "Grüße 日本 😀 مرحبا\tend";
  EXPECT_EQ(plain(text), text);
}

TEST(PlainText, ReplacesBytesThatAreNoText) {
  EXPECT_EQ(plain("a\xFFz"), "a" + replacement + "z");
  EXPECT_EQ(plain("\xE2\x82"), replacement + replacement);
  EXPECT_EQ(plain("\xC0\xAF"), replacement + replacement);
  EXPECT_EQ(plain("\xED\xA0\x80"), replacement + replacement + replacement);
  EXPECT_EQ(plain("\xF0\x9F\x98"), replacement + replacement + replacement);
}

TEST(PlainText, LeavesOutControlCharacters) {
  EXPECT_EQ(plain(std::string("a\0b\x01\x1B\x7F", 6) + "\xC2\x85" + "c"), "abc");
}

TEST(PlainText, EndsLinesInOneWay) { EXPECT_EQ(plain("a\r\nb\rc\u2028d\u2029e"), "a\nb\nc\nd\ne"); }

TEST(PlainText, DropsOneFinalLineFeed) {
  EXPECT_EQ(plain("a\n"), "a");
  EXPECT_EQ(plain("a\n\n"), "a\n");
  EXPECT_EQ(plain("\n"), "");
  EXPECT_TRUE(plainText(paragraphOf("\n"), plenty).spans.empty());
}

TEST(PlainText, SpansAreTheRuns) {
  Paragraph paragraph;
  paragraph.runs = {{"ab", {}, {}},
                    {"", {}, {}},
                    {"hidden", {systemFontFamily, 0}, {}},
                    {"\xFF"
                     "c",
                     {},
                     {}}};
  const PlainText text = plainText(paragraph, plenty);
  EXPECT_EQ(text.text, "ab" + replacement + "c");
  ASSERT_EQ(text.spans.size(), 2U);
  EXPECT_EQ(text.spans[0].end, 2U);
  EXPECT_EQ(text.spans[1].begin, 2U);
  EXPECT_EQ(text.spans[1].end, 6U);
  EXPECT_EQ(text.spans[1].run, 3U);
}

TEST(PlainText, StopsAtTheLimitOverAllRuns) {
  Paragraph paragraph;
  paragraph.runs = {{"äbc", {}, {}}, {"def", {}, {}}, {"ghi", {}, {}}};
  EXPECT_EQ(plainText(paragraph, {5}).text, "äbcde");
  EXPECT_EQ(plainText(paragraphOf(std::string(5000, '\x01')), {10}).text, "");
}

TEST(PlainText, GivesEndlessWordsPlacesToBreak) {
  const std::string word(200, 'm');
  EXPECT_EQ(plain(word), word);
  EXPECT_EQ(plain(word + " " + word), word + " " + word);
  EXPECT_EQ(plain(word + word + "m"), word + "\u200B" + word + "\u200Bm");
}

TEST(PlainText, LineFeedsBeyondTheLimitAreBlanks) {
  const TextLimit two{1000, 2};
  EXPECT_EQ(plainText(paragraphOf("a\nb"), two).text, "a\nb");
  EXPECT_EQ(plainText(paragraphOf("a\nb\nc\n\nd"), two).text, "a\nb\nc  d");
  EXPECT_EQ(plainText(paragraphOf("a\r\nb\r\nc\r\nd"), two).text, "a\nb\nc d");
  EXPECT_EQ(plainText(paragraphOf("a\nb\n"), two).text, "a\nb");
  Paragraph runs;
  runs.runs = {{"a\nb", {}, {}}, {"\nc\n", {}, {}}, {"d", {}, {}}};
  EXPECT_EQ(plainText(runs, two).text, "a\nb\nc d");
}

TEST(TextLimit, GrowsWithLinesAndWidth) {
  const Paragraph paragraph = paragraphOf("a");
  const auto characters = [&](double width, int lines) { return textLimit(paragraph, width, lines).characters; };
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_LT(characters(300, 1), 1000U);
  EXPECT_LT(characters(300, 1), characters(300, 2));
  EXPECT_LT(characters(100, 1), characters(300, 1));
  EXPECT_EQ(characters(infinite, 1), 20'000U);
  EXPECT_EQ(characters(300, 0), 20'000U);
  EXPECT_EQ(characters(1e12, 1000), 20'000U);
}

TEST(TextLimit, IsALineFeedALine) {
  const Paragraph paragraph = paragraphOf("a");
  EXPECT_EQ(textLimit(paragraph, 300, 1).lineFeeds, 1U);
  EXPECT_EQ(textLimit(paragraph, std::numeric_limits<double>::infinity(), 15).lineFeeds, 15U);
  EXPECT_GT(textLimit(paragraph, 300, 0).lineFeeds, 20'000U);
}

}  // namespace
}  // namespace drawing
