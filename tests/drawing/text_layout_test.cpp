#include "simulator/drawing/text_layout.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

Paragraph paragraphOf(const std::string& text, double size = 13, int lines = 0) {
  Paragraph paragraph;
  paragraph.runs = {{text, {systemFontFamily, size}, {}}};
  paragraph.maxLines = lines;
  return paragraph;
}

TextLayout layoutOf(const std::string& text, double size = 13, int lines = 0, double scale = 2) {
  return TextLayout(paragraphOf(text, size, lines), scale);
}

std::string repeated(const std::string& part, int times) {
  std::string text;
  for (int count = 0; count < times; ++count) text += part;
  return text;
}

const std::string sentence = "The quick brown fox jumps over the lazy dog while the band plays on and on.";

TEST(LineHeight, IsRoundedToWholePixels) {
  EXPECT_EQ(lineHeight({systemFontFamily, 13}, 1), 16);
  EXPECT_EQ(lineHeight({systemFontFamily, 13}, 2), 16);
  EXPECT_NEAR(lineHeight({systemFontFamily, 13}, 3), 47 / 3.0, 1e-9);
  EXPECT_EQ(lineHeight({systemFontFamily, 15}, 1), 18);
  EXPECT_EQ(lineHeight({systemFontFamily, 15}, 3), 18);
  EXPECT_EQ(lineHeight({systemFontFamily, 0}, 2), 0);
  EXPECT_EQ(lineHeight({systemFontFamily, -3}, 2), 0);
  EXPECT_EQ(lineHeight({systemFontFamily, std::numeric_limits<double>::quiet_NaN()}, 2), 0);
  EXPECT_EQ(lineHeight({systemFontFamily, infinity}, 1), 1200);
}

TEST(Measure, EmptyTextHasNoSize) {
  for (const std::string& text : {std::string(), std::string("\n"), std::string("\x01")}) {
    const TextLayout layout = layoutOf(text);
    EXPECT_EQ(layout.measure(100), (Size{0, 0}));
    EXPECT_EQ(layout.lineCount(100), 0);
  }
  EXPECT_EQ(TextLayout({}, 2).measure(100), (Size{0, 0}));
  EXPECT_EQ(layoutOf("a", 0).measure(100), (Size{0, 0}));
}

TEST(Measure, SpacesHaveWidth) {
  const Size size = layoutOf("   ").measure(0);
  EXPECT_GT(size.width, 5);
  EXPECT_EQ(size.height, 16);
}

TEST(Measure, SizeIsOnThePixelGrid) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    const Size size = layoutOf(sentence, 13, 0, scale).measure(120);
    EXPECT_NEAR(size.width * scale, std::round(size.width * scale), 1e-9);
    EXPECT_NEAR(size.height * scale, std::round(size.height * scale), 1e-9);
    EXPECT_LE(size.width, 120);
  }
}

TEST(Measure, TextWithoutAWidthHasOneLine) {
  for (const double width : {0.0, -5.0, infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(layoutOf(sentence).lineCount(width), 1) << width;
  }
}

TEST(Measure, MeasuredWidthGivesTheSameLines) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    for (int step = 0; step < 66; ++step) {
      const double width = 20 + 7.3 * step;
      const TextLayout layout = layoutOf(sentence, 15, 0, scale);
      const Size size = layout.measure(width);
      EXPECT_EQ(layout.measure(size.width), size) << width << " at " << scale;
    }
    const Size whole = layoutOf(sentence, 13, 0, scale).measure(0);
    EXPECT_EQ(layoutOf(sentence, 13, 0, scale).lineCount(whole.width), 1);
  }
}

TEST(Measure, BoldIsWiderThanRegular) {
  Paragraph bold = paragraphOf(sentence);
  bold.runs[0].font.weight = Weight::Bold;
  EXPECT_GT(TextLayout(bold, 2).measure(0).width, layoutOf(sentence).measure(0).width);
}

TEST(Measure, LineHeightIsTheSameInEveryScript) {
  for (const char* text : {"Hello", "😀👨‍👩‍👧‍👦", "日本語", "مرحبا", "ไทย", "हिन्दी", "Z̸̢̛͔̖͑̿̚a̷͝l"}) {
    EXPECT_EQ(layoutOf(text).measure(0).height, 16) << text;
  }
  EXPECT_EQ(layoutOf("a\n😀\nب").measure(0).height, 48);
}

TEST(Measure, UnknownFamilyFallsBackToTheSystemFont) {
  Paragraph paragraph = paragraphOf(sentence);
  paragraph.runs[0].font.family = "No Such Family";
  EXPECT_EQ(TextLayout(paragraph, 2).measure(0), layoutOf(sentence).measure(0));
  paragraph.runs[0].font.family = "";
  EXPECT_EQ(TextLayout(paragraph, 2).measure(0), layoutOf(sentence).measure(0));
}

TEST(Measure, FontDoesNotSubstituteCharacterSequences) {
  // A zero-width space prevents the font from replacing a sequence such as "->" by one glyph. Equal widths with and
  // without the space show that no glyph was replaced.
  const auto width = [](const char* text) { return layoutOf(text, 100).measure(0).width; };
  EXPECT_NEAR(width("->"), width("-\u200B>"), 0.5);
  EXPECT_NEAR(width("2x3"), width("2\u200Bx\u200B3"), 0.5);
}

TEST(Measure, CacheDependsOnTheTextNotOnTheObject) {
  EXPECT_EQ(layoutOf("Hello").measure(100), layoutOf("Hello").measure(100));
  EXPECT_NE(layoutOf("Hello").measure(100).width, layoutOf("Hello, you").measure(100).width);
  EXPECT_NE(layoutOf("Hello", 13).measure(100).width, layoutOf("Hello", 14).measure(100).width);
  Paragraph split = paragraphOf("Hel");
  split.runs.push_back({"lo", {systemFontFamily, 13, Weight::Bold}, {}});
  EXPECT_NE(TextLayout(split, 2).measure(100).width, layoutOf("Hello").measure(100).width);
}

TEST(Lines, BreakAtWordsAndLineFeeds) {
  const TextLayout layout = layoutOf("one two\nthree\r\n\nfour");
  EXPECT_EQ(layout.lineCount(0), 4);
  const double word = layoutOf("three").measure(0).width;
  EXPECT_EQ(layout.lineCount(word), 5);
}

TEST(Lines, BreakAWordThatIsTooLong) {
  const TextLayout layout = layoutOf(repeated("m", 100));
  EXPECT_GT(layout.lineCount(100), 5);
  EXPECT_LE(layout.measure(100).width, 100);
  EXPECT_EQ(layoutOf("mm").lineCount(0.5), 2);
}

TEST(Lines, DoNotExceedTheLimit) {
  EXPECT_EQ(layoutOf(sentence, 13, 2).lineCount(100), 2);
  EXPECT_EQ(layoutOf(sentence, 13, 2).measure(100).height, 32);
  EXPECT_EQ(layoutOf("short", 13, 2).lineCount(100), 1);
  EXPECT_EQ(layoutOf(repeated("a\n", 20), 13, 15).lineCount(100), 15);
  EXPECT_GT(layoutOf(sentence, 13, -1).lineCount(100), 2);
}

TEST(Lines, LimitedCountIsTheUnlimitedCountUpToTheLimit) {
  for (const char* end : {"", "\n", "\n\n", "\n\n\n", "\nb", "\n\nb", "\n\n\nb\n"}) {
    const std::string text = std::string("one two") + end;
    const TextLayout unlimited = layoutOf(text);
    const TextLayout limited = layoutOf(text, 13, 2);
    for (const double width : {0.0, 300.0, 30.0})
      EXPECT_EQ(limited.lineCount(width), std::min(unlimited.lineCount(width), 2)) << text << width;
  }
}

TEST(Lines, FinalLineFeedAddsNoLine) {
  EXPECT_EQ(layoutOf("a\n").lineCount(100), 1);
  EXPECT_EQ(layoutOf("a\n\n").lineCount(100), 2);
}

TEST(Baseline, IsOnAPixelInTheLowerThirdOfTheLine) {
  for (const double scale : {1.0, 2.0, 3.0}) {
    const double baseline = layoutOf("a", 13, 0, scale).firstBaseline();
    EXPECT_NEAR(baseline * scale, std::round(baseline * scale), 1e-9);
    EXPECT_NEAR(baseline, 12.5, 0.7);
  }
  EXPECT_EQ(layoutOf("").firstBaseline(), 0);
}

TEST(LongText, TenMegabytesAreCutToTheAllowedLines) {
  const TextLayout layout = layoutOf(repeated(sentence + " ", 10 * 1024 * 1024 / 76), 13, 2);
  EXPECT_EQ(layout.lineCount(300), 2);
  Canvas canvas({300, 40}, 2);
  layout.draw(canvas, {0, 0, 300, 40}, black);
  EXPECT_NE(canvas.pixelsAsPng(), Canvas({300, 40}, 2).pixelsAsPng());
}

// The test times out if the layout of one of these texts takes too long.
TEST(LongText, LineCountIsBoundedWithoutALimit) {
  for (const std::string& text : {repeated(sentence, 100'000), repeated("m", 10'000'000), repeated("\n", 10'000'000),
                                  repeated("😀", 2'000'000), repeated("\u0301", 3'000'000), repeated("ب", 3'000'000)}) {
    const TextLayout layout = layoutOf(text);
    EXPECT_LE(layout.lineCount(300), 20'000) << text.substr(0, 8);
  }
}

TEST(LongText, ManyRunsAreCutToTheAllowedLines) {
  Paragraph paragraph = paragraphOf("", 13, 2);
  for (int count = 0; count < 100'000; ++count) paragraph.runs.push_back({"a ", {systemFontFamily, 13}, red});
  EXPECT_EQ(TextLayout(std::move(paragraph), 2).lineCount(300), 2);
}

}  // namespace
}  // namespace drawing
