// Tests of UILabel: text, styles and sizes.
#include "platform/ui_label.hpp"

#include "objc/class_definition.hpp"
#include "simulator/uikit/text/font_class.hpp"
#include "simulator/uikit/views/color.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

// A label that counts the invalidations of its intrinsic content size.
class CountingLabel : public objc::Interface<"CountingLabel", UILabel> {};

namespace {

int invalidations = 0;

void countInvalidation(CountingLabel* self) {
  ++invalidations;
  objc::sendSuper<"CountingLabel", void, "invalidateIntrinsicContentSize">(self);
}

constexpr const char* pangram = "The quick brown fox jumps over the lazy dog";
// The line height of the system font at 15 points.
constexpr double lineHeight = 18;

class Labels : public UIKitTest {
 public:
  Labels() {
    static constexpr objc::MethodEntry methods[] = {
        objc::method<"invalidateIntrinsicContentSize", &countInvalidation>(),
    };
    if (CountingLabel::classObject() == nullptr) objc::defineClass<CountingLabel>(methods);
  }
};

template <class Type = UILabel>
objc::Ref<Type> makeLabel(const std::string& text, CGRect frame = {}) {
  auto label = UIView::withFrame<Type>(frame);
  label->setFont(UIFont::systemFontOfSize(15));
  label->setText(string(text));
  return label;
}

CGSize intrinsicSize(const UIView* view) { return objc::send<CGSize, "intrinsicContentSize">(view); }
CGSize sizeThatFits(const UIView* view, CGSize size) { return objc::send<CGSize, "sizeThatFits:">(view, size); }

objc::Ref<NSMutableAttributedString> boldAndRegularText() {
  auto text = NSMutableAttributedString::withString("John: Hello"_ns);
  text->addAttribute(fontAttributeName(), UIFont::boldSystemFontOfSize(20), {0, 6});
  text->addAttribute(fontAttributeName(), UIFont::systemFontOfSize(20), {6, 5});
  return text;
}

TEST_F(Labels, AreInitiallyEmptyInTheSystemFont) {
  const auto label = UIView::withFrame<UILabel>({});
  EXPECT_EQ(label->text(), nullptr);
  EXPECT_TRUE(label->font()->isEqual(UIFont::systemFontOfSize(17)));
  EXPECT_EQ((objc::send<NSInteger, "numberOfLines">(label.get())), 1);
  EXPECT_EQ(intrinsicSize(label), CGSize{});
  EXPECT_FALSE((objc::send<bool, "isUserInteractionEnabled">(label.get())));
}

TEST_F(Labels, InitSetsTheDefaultFont) {
  EXPECT_TRUE(objc::make<UILabel>()->font()->isEqual(UIFont::systemFontOfSize(17)));
}

TEST_F(Labels, CopyTheirText) {
  auto* text = NSMutableString::stringWithCapacity(10);
  text->appendString("before"_ns);
  const auto label = UIView::withFrame<UILabel>({});
  label->setText(text);
  text->appendString(" and after"_ns);
  EXPECT_EQ(test::text(label->text()), "before");
}

TEST_F(Labels, SingleLineLabelIsAsWideAsItsText) {
  const auto label = makeLabel(pangram);
  const CGSize size = intrinsicSize(label);
  EXPECT_GT(size.width, 280);
  EXPECT_LT(size.width, 360);
  EXPECT_EQ(size.height, lineHeight);
  EXPECT_EQ(sizeThatFits(label, {100, 1000}), size);
}

TEST_F(Labels, MultilineLabelFitsTheGivenWidth) {
  const auto label = makeLabel(pangram);
  label->setNumberOfLines(0);
  const CGSize size = sizeThatFits(label, {100, 1000});
  EXPECT_LE(size.width, 100);
  EXPECT_EQ(size.height, 4 * lineHeight);
  label->setNumberOfLines(2);
  EXPECT_EQ(sizeThatFits(label, {100, 1000}).height, 2 * lineHeight);
}

TEST_F(Labels, WrapToTheWidthFoundByLayout) {
  const auto window = makeWindow();
  const auto label = makeLabel(pangram);
  label->setNumberOfLines(0);
  label->setTranslatesAutoresizingMaskIntoConstraints(false);
  window->addSubview(label);
  label->topAnchor()->equalTo(window->topAnchor())->activated();
  label->leadingAnchor()->equalTo(window->leadingAnchor(), 20)->activated();
  label->widthAnchor()->equalToConstant(100)->activated();
  window->layoutIfNeeded();
  EXPECT_EQ(label->frame(), (CGRect{{20, 0}, {100, 4 * lineHeight}}));
  EXPECT_EQ(label->measuredNumberOfLines(), 4u);
}

TEST_F(Labels, WrapToThePreferredMaxLayoutWidth) {
  const auto label = makeLabel(pangram);
  label->setNumberOfLines(0);
  objc::send<void, "setPreferredMaxLayoutWidth:">(label.get(), CGFloat{100});
  EXPECT_EQ(intrinsicSize(label).height, 4 * lineHeight);
  EXPECT_LE(intrinsicSize(label).width, 100);
}

TEST_F(Labels, CountTheLinesAtTheirWidthUpToTheLimit) {
  const auto label = makeLabel(pangram, {{0, 0}, {100, 200}});
  EXPECT_EQ(label->measuredNumberOfLines(), 1u);
  label->setNumberOfLines(3);
  EXPECT_EQ(label->measuredNumberOfLines(), 3u);
  label->setNumberOfLines(0);
  EXPECT_EQ(label->measuredNumberOfLines(), 4u);
  label->setFrame({{0, 0}, {400, 200}});
  EXPECT_EQ(label->measuredNumberOfLines(), 1u);
}

TEST_F(Labels, CountNoLinesWithoutText) {
  const auto label = makeLabel("", {{0, 0}, {100, 100}});
  EXPECT_EQ(label->measuredNumberOfLines(), 0u);
  label->setText(nullptr);
  EXPECT_EQ(label->measuredNumberOfLines(), 0u);
}

TEST_F(Labels, TreatANegativeLineLimitAsNoLimit) {
  const auto label = makeLabel("a\nb\nc", {{0, 0}, {100, 100}});
  label->setNumberOfLines(-4);
  EXPECT_EQ(label->measuredNumberOfLines(), 3u);
}

TEST_F(Labels, KeepTheirIntrinsicSizeIfAValueIsSetAgain) {
  const auto label = makeLabel<CountingLabel>("text");
  invalidations = 0;
  label->setText("text"_ns);
  label->setFont(UIFont::systemFontOfSize(15));
  label->setNumberOfLines(1);
  label->setTextColor(UIColor::redColor());
  label->setTextAlignment(NSTextAlignment::Right);
  EXPECT_EQ(invalidations, 0);
  label->setText("other"_ns);
  EXPECT_EQ(invalidations, 1);
  label->setFont(UIFont::boldSystemFontOfSize(15));
  EXPECT_EQ(invalidations, 2);
  label->setNumberOfLines(0);
  EXPECT_EQ(invalidations, 3);
}

TEST_F(Labels, ShowAttributedText) {
  const auto label = makeLabel("plain");
  label->setAttributedText(boldAndRegularText());
  EXPECT_EQ(text(label->text()), "John: Hello");
  EXPECT_TRUE(label->font()->isEqual(UIFont::boldSystemFontOfSize(20)));
  EXPECT_EQ(intrinsicSize(label).height, 24);
  EXPECT_EQ(describe(label).at("runs"),
            (Json{{{"text", "John: "}, {"font", "Inter"}, {"size", 20.0}, {"weight", "bold"}},
                  {{"text", "Hello"}, {"font", "Inter"}, {"size", 20.0}, {"weight", "regular"}}}));
}

TEST_F(Labels, ReturnTheirAttributedText) {
  const auto label = makeLabel("plain");
  label->setAttributedText(boldAndRegularText());
  const auto other = makeLabel("");
  other->setAttributedText(objc::send<NSAttributedString*, "attributedText">(label.get()));
  EXPECT_EQ(describe(other).at("runs"), describe(label).at("runs"));
}

TEST_F(Labels, CopyTheirAttributedText) {
  const auto styled = boldAndRegularText();
  const auto label = makeLabel("");
  label->setAttributedText(styled);
  styled->addAttribute(fontAttributeName(), UIFont::systemFontOfSize(5), {0, 11});
  EXPECT_EQ(describe(label).at("runs").at(0).at("weight"), "bold");
}

TEST_F(Labels, LoseTheirStylesWhenPlainTextIsSet) {
  const auto label = makeLabel("plain");
  label->setAttributedText(boldAndRegularText());
  label->setText("John: Hello"_ns);
  EXPECT_EQ(describe(label).at("runs").size(), 1u);
  EXPECT_TRUE(label->font()->isEqual(UIFont::systemFontOfSize(15)));
}

TEST_F(Labels, ApplyAFontToTheWholeText) {
  const auto label = makeLabel("plain");
  label->setAttributedText(boldAndRegularText());
  label->setFont(UIFont::systemFontOfSize(9));
  const Json node = describe(label);
  for (const Json& run : node.at("runs")) {
    EXPECT_EQ(run.at("size"), 9);
    EXPECT_EQ(run.at("weight"), "regular");
  }
}

TEST_F(Labels, LoseTheirTextWhenNilAttributedTextIsSet) {
  const auto label = makeLabel("plain");
  label->setAttributedText(nullptr);
  EXPECT_EQ(label->text(), nullptr);
  EXPECT_EQ((objc::send<NSAttributedString*, "attributedText">(label.get())), nullptr);
}

TEST_F(Labels, DefaultTextColorFollowsTheAppearance) {
  const auto label = makeLabel("text");
  EXPECT_EQ(uikit::colorOf(label->textColor()), (drawing::Color{0, 0, 0, 1}));
  uikit::Environment dark;
  dark.style = UIUserInterfaceStyle::Dark;
  uikit::setEnvironment(dark);
  EXPECT_EQ(uikit::colorOf(label->textColor()), (drawing::Color{1, 1, 1, 1}));
  label->setTextColor(UIColor::redColor());
  EXPECT_EQ(label->textColor(), UIColor::redColor());
}

TEST_F(Labels, DescriptionContainsTheirContent) {
  const auto label = makeLabel("Body", {{0, 0}, {200, 40}});
  label->setNumberOfLines(2);
  label->setTextAlignment(NSTextAlignment::Center);
  label->setTextColor(UIColor::withRed(1, 0, 0, 0.5));
  const Json node = describe(label);
  EXPECT_EQ(node.at("text"), "Body");
  EXPECT_EQ(node.at("font"), (Json{{"family", "Inter"}, {"size", 15.0}, {"weight", "regular"}}));
  EXPECT_EQ(node.at("lines"), 2);
  EXPECT_EQ(node.at("measuredLines"), 1);
  EXPECT_EQ(node.at("alignment"), "center");
  EXPECT_EQ(node.at("color"), (Json{1.0, 0.0, 0.0, 0.5}));
}

TEST_F(Labels, DescriptionReplacesAnUnpairedSurrogate) {
  const auto label = makeLabel("");
  label->setText(stringWithUnpairedSurrogate());
  EXPECT_EQ(describe(label).at("text"), "a\uFFFD");
  EXPECT_GT(intrinsicSize(label).width, 0);
}

TEST_F(Labels, CountTheLinesOfEnormousTextUpToTheLimit) {
  const auto label = UIView::withFrame<UILabel>({{0, 0}, {300, 60}});
  NSString* enormous = string(std::string(10'000'000, 'x'));
  label->setText(enormous);
  label->setNumberOfLines(3);
  EXPECT_EQ(label->measuredNumberOfLines(), 3u);
}

}  // namespace

}  // namespace test
