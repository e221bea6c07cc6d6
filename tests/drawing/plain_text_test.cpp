#include <algorithm>
#include <limits>

#include "simulator/drawing/plain_text.hpp"
#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr TextLimit ampleLimit{1000};
const std::string replacementCharacter = "\uFFFD";

Paragraph paragraphOf(const std::string& text) {
  Paragraph paragraph;
  paragraph.runs = {{text, {}, {}}};
  return paragraph;
}

std::string plain(const std::string& text) { return plainText(paragraphOf(text), ampleLimit).text; }

TEST(PlainText, KeepsValidText) {
  const std::string text = "Grüße 日本 😀 مرحبا\tend";
  EXPECT_EQ(plain(text), text);
}

TEST(PlainText, ReplacesInvalidUtf8) {
  EXPECT_EQ(plain("a\xFFz"), "a" + replacementCharacter + "z");
  EXPECT_EQ(plain("\xE2\x82"), replacementCharacter + replacementCharacter);
  EXPECT_EQ(plain("\xC0\xAF"), replacementCharacter + replacementCharacter);
  EXPECT_EQ(plain("\xED\xA0\x80"), replacementCharacter + replacementCharacter + replacementCharacter);
  EXPECT_EQ(plain("\xF0\x9F\x98"), replacementCharacter + replacementCharacter + replacementCharacter);
}

TEST(PlainText, RemovesControlCharacters) {
  EXPECT_EQ(plain(std::string("a\0b\x01\x1B\x7F", 6) + "\xC2\x85" + "c"), "abc");
}

TEST(PlainText, NormalizesLineEndings) { EXPECT_EQ(plain("a\r\nb\rc\u2028d\u2029e"), "a\nb\nc\nd\ne"); }

TEST(PlainText, RemovesOneFinalLineFeed) {
  EXPECT_EQ(plain("a\n"), "a");
  EXPECT_EQ(plain("a\n\n"), "a\n");
  EXPECT_EQ(plain("\n"), "");
  EXPECT_TRUE(plainText(paragraphOf("\n"), ampleLimit).spans.empty());
}

TEST(PlainText, SpansMatchTheVisibleRuns) {
  Paragraph paragraph;
  paragraph.runs = {{"ab", {}, {}},
                    {"", {}, {}},
                    {"hidden", {systemFontFamily, 0}, {}},
                    {"\xFF"
                     "c",
                     {},
                     {}}};
  const PlainText text = plainText(paragraph, ampleLimit);
  EXPECT_EQ(text.text, "ab" + replacementCharacter + "c");
  ASSERT_EQ(text.spans.size(), 2U);
  EXPECT_EQ(text.spans[0].end, 2U);
  EXPECT_EQ(text.spans[1].begin, 2U);
  EXPECT_EQ(text.spans[1].end, 6U);
  EXPECT_EQ(text.spans[1].run, 3U);
}

TEST(PlainText, LimitAppliesToAllRunsTogether) {
  Paragraph paragraph;
  paragraph.runs = {{"äbc", {}, {}}, {"def", {}, {}}, {"ghi", {}, {}}};
  EXPECT_EQ(plainText(paragraph, {5}).text, "äbcde");
  EXPECT_EQ(plainText(paragraphOf(std::string(5000, '\x01')), {10}).text, "");
}

TEST(PlainText, InsertsBreakOpportunitiesIntoLongWords) {
  const std::string word(200, 'm');
  EXPECT_EQ(plain(word), word);
  EXPECT_EQ(plain(word + " " + word), word + " " + word);
  EXPECT_EQ(plain(word + word + "m"), word + "\u200B" + word + "\u200Bm");
}

TEST(PlainText, LineFeedsBeyondTheLimitBecomeSpaces) {
  const TextLimit twoLineFeeds{1000, 2};
  EXPECT_EQ(plainText(paragraphOf("a\nb"), twoLineFeeds).text, "a\nb");
  EXPECT_EQ(plainText(paragraphOf("a\nb\nc\n\nd"), twoLineFeeds).text, "a\nb\nc  d");
  EXPECT_EQ(plainText(paragraphOf("a\r\nb\r\nc\r\nd"), twoLineFeeds).text, "a\nb\nc d");
  EXPECT_EQ(plainText(paragraphOf("a\nb\n"), twoLineFeeds).text, "a\nb");
  Paragraph runs;
  runs.runs = {{"a\nb", {}, {}}, {"\nc\n", {}, {}}, {"d", {}, {}}};
  EXPECT_EQ(plainText(runs, twoLineFeeds).text, "a\nb\nc d");
}

TEST(PlainText, TabsBeyondTheLimitBecomeSpaces) {
  const std::string text = plainText(paragraphOf("a\t\nb" + std::string(20'000, '\t')), {30'000}).text;
  EXPECT_EQ(std::ranges::count(text, '\t'), 500);
  EXPECT_EQ(std::ranges::count(text, ' '), 19'501);
}

TEST(TextLimit, GrowsWithLinesAndWidth) {
  const Paragraph paragraph = paragraphOf("a");
  const auto characters = [&](double width, int lines) { return textLimit(paragraph, width, lines).characters; };
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_LT(characters(300, 1), 1000U);
  EXPECT_LT(characters(300, 1), characters(300, 2));
  EXPECT_LT(characters(100, 1), characters(300, 1));
  EXPECT_EQ(characters(infinity, 1), 20'000U);
  EXPECT_EQ(characters(300, 0), 20'000U);
  EXPECT_EQ(characters(1e12, 1000), 20'000U);
}

TEST(TextLimit, AllowsOneLineFeedPerLine) {
  const Paragraph paragraph = paragraphOf("a");
  EXPECT_EQ(textLimit(paragraph, 300, 1).lineFeeds, 1U);
  EXPECT_EQ(textLimit(paragraph, std::numeric_limits<double>::infinity(), 15).lineFeeds, 15U);
  EXPECT_GT(textLimit(paragraph, 300, 0).lineFeeds, 20'000U);
}

}  // namespace
}  // namespace drawing
