// UITextField: typing, its events and what it shows.
#include "platform/ui_text_field.hpp"

#include "simulator/uikit/text/text_boundaries.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/content.hpp"
#include "tests/uikit/listener.hpp"

namespace test {

namespace {

constexpr std::uint32_t black = 0xff000000;

class TextFields : public Stage {
 public:
  TextFields() {
    field->setFont(UIFont::systemFontOfSize(15));
    field->setTextColor(UIColor::withRed(1, 1, 1, 1));
    window->addSubview(field);
    window->makeKeyAndVisible();
    listenToEditing(listener, field);
  }

  void type(const std::string& characters) const { objc::send<void, "insertText:">(field.get(), string(characters)); }
  void erase() const { objc::send<void, "deleteBackward">(field.get()); }
  void select(NSUInteger location, NSUInteger length) const {
    objc::send<void, "_setSelectedRange:">(field.get(), NSRange{location, length});
  }
  std::string shown() const { return text(field->text()); }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UITextField> field = UIView::withFrame<UITextField>({{100, 100}, {200, 36}});
  objc::Ref<Listener> listener = Listener::make();
};

TEST_F(TextFields, BeginEmpty) {
  EXPECT_EQ(shown(), "");
  field->setText("text"_ns);
  field->setText(nullptr);
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(TextFields, TellOfEditingInOrder) {
  EXPECT_TRUE(field->becomeFirstResponder());
  type("Hi");
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_EQ(takeJournal(), (Journal{"began", "changed", "ended on exit", "ended"}));
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, TellOnceThatEditingBegan) {
  field->becomeFirstResponder();
  EXPECT_TRUE(field->becomeFirstResponder());
  EXPECT_EQ(takeJournal(), Journal{"began"});
}

TEST_F(TextFields, TellOnlyThatEditingEndedWhenAnotherTakesTheKeyboard) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  field->becomeFirstResponder();
  takeJournal();
  EXPECT_TRUE(other->becomeFirstResponder());
  EXPECT_EQ(takeJournal(), Journal{"ended"});
  EXPECT_EQ(uikit::firstResponder(), other.get());
}

TEST_F(TextFields, TellThatEditingEndedWhenTheyLeaveTheScreen) {
  field->becomeFirstResponder();
  takeJournal();
  field->removeFromSuperview();
  EXPECT_EQ(takeJournal(), Journal{"ended"});
  EXPECT_EQ(uikit::firstResponder(), nullptr);
}

TEST_F(TextFields, KeepTheKeyboardWhereNobodyHearsTheReturnKey) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  other->becomeFirstResponder();
  objc::send<void, "_returnKeyPressed">(other.get());
  EXPECT_TRUE(other->isFirstResponder());
}

TEST_F(TextFields, WithoutATextCanBeDeafToTheReturnKey) {
  objc::send<void, "setEnablesReturnKeyAutomatically:">(field.get(), true);
  field->becomeFirstResponder();
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_TRUE(field->isFirstResponder());
  type("Hi");
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, TakeALineFeedForTheReturnKey) {
  field->becomeFirstResponder();
  type("Hi");
  type("\n");
  EXPECT_EQ(shown(), "Hi");
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, PutLongerTextOnOneLine) {
  type("one\ntwo\r\nthree");
  EXPECT_EQ(shown(), "one two three");
}

TEST_F(TextFields, BeginEditingWhenTapped) {
  tap({150, 118});
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_EQ(takeJournal(), Journal{"began"});
}

TEST_F(TextFields, DoNotBeginEditingByADragThatEndsElsewhere) {
  drag({150, 118}, {0, 300});
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, DoNotBeginEditingOutsideOfAWindow) {
  const auto loose = UIView::withFrame<UITextField>({});
  EXPECT_FALSE(loose->becomeFirstResponder());
}

TEST_F(TextFields, RefuseEverythingWhenDisabled) {
  field->becomeFirstResponder();
  takeJournal();
  field->setEnabled(false);
  EXPECT_EQ(takeJournal(), Journal{"ended"});
  EXPECT_FALSE(field->becomeFirstResponder());
  type("Hi");
  erase();
  EXPECT_EQ(shown(), "");
}

TEST_F(TextFields, InsertAtTheCaret) {
  type("Helo");
  select(3, 0);
  type("l");
  EXPECT_EQ(shown(), "Hello");
  type("p");
  EXPECT_EQ(shown(), "Hellpo");
}

TEST_F(TextFields, ReplaceWhatIsSelected) {
  type("Hello world");
  select(6, 5);
  type("there");
  EXPECT_EQ(shown(), "Hello there");
  objc::send<void, "selectAll:">(field.get(), static_cast<NSObject*>(nullptr));
  erase();
  EXPECT_EQ(shown(), "");
}

TEST_F(TextFields, KeepTheSelectionInsideTheText) {
  type("Hi");
  select(1, NSNotFound);
  type("ello");
  EXPECT_EQ(shown(), "Hello");
  select(99, 99);
  type("!");
  EXPECT_EQ(shown(), "Hello!");
}

TEST_F(TextFields, EraseWholeCharacters) {
  for (const char* character : {"é", "e\u0301", "👍🏽", "👩‍👩‍👧‍👦", "🇩🇪", "한"}) {
    field->setText("a"_ns);
    type(character);
    erase();
    EXPECT_EQ(shown(), "a") << character;
  }
}

TEST_F(TextFields, EraseNothingAtTheStart) {
  type("Hi");
  select(0, 0);
  takeJournal();
  erase();
  EXPECT_EQ(shown(), "Hi");
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(TextFields, EraseFromEnormousTextsQuickly) {
  field->setText(string(std::string(1'000'000, 'x') + "🇩🇪"));
  erase();
  EXPECT_EQ(field->text()->length(), 1'000'000u);
  for (int count = 0; count < 20; ++count) erase();
  EXPECT_EQ(field->text()->length(), 999'980u);
}

TEST_F(TextFields, SurviveHalfASurrogatePair) {
  field->setText(brokenString());
  EXPECT_EQ(described(field).at("text"), "a\uFFFD");
  type("b");
  erase();
  erase();
  EXPECT_EQ(shown(), "a");
}

TEST_F(TextFields, ShowTheirTextInTheMiddleOfTheHeight) {
  field->setText("HH"_ns);
  const CGRect ink = inkOnScreen(black);
  EXPECT_NEAR(ink.origin.y + ink.size.height / 2, 118, 1.5);
  EXPECT_NEAR(ink.origin.x, 100, 3);
}

TEST_F(TextFields, ShowTheirTextAtTheTopOrBottomWhenTold) {
  field->setText("HH"_ns);
  field->setContentVerticalAlignment(static_cast<UIControlContentVerticalAlignment>(1));
  EXPECT_LT(inkOnScreen(black).origin.y, 105);
  field->setContentVerticalAlignment(static_cast<UIControlContentVerticalAlignment>(2));
  EXPECT_GT(inkOnScreen(black).origin.y, 118);
}

TEST_F(TextFields, ShowACaretWhileEditing) {
  EXPECT_EQ(inkOnScreen(black), CGRect{});
  field->becomeFirstResponder();
  EXPECT_EQ(inkOnScreen(black), (CGRect{{100, 109}, {2, 18}}));
  type("HH");
  EXPECT_GT(inkOnScreen(black).size.width, 20);
}

TEST_F(TextFields, KeepTheCaretInViewWhenTheTextIsTooLong) {
  field->becomeFirstResponder();
  type(std::string(100, 'H'));
  const CGRect atEnd = inkOnScreen(black);
  EXPECT_GE(atEnd.origin.x, 100);
  EXPECT_NEAR(atEnd.origin.x + atEnd.size.width, 300, 1);
  select(0, 0);
  EXPECT_NEAR(inkOnScreen(black).origin.x, 100, 1);
}

TEST_F(TextFields, TruncateTheirTextWhenNotEditing) {
  field->setText(string(std::string(100, 'H')));
  const CGRect ink = inkOnScreen(black);
  EXPECT_GE(ink.origin.x, 100);
  EXPECT_LE(ink.origin.x + ink.size.width, 300);
}

TEST_F(TextFields, BeginOnTheRightInRightToLeftLanguages) {
  uikit::Environment environment;
  environment.direction = uikit::LayoutDirection::RightToLeft;
  uikit::setEnvironment(environment);
  field->becomeFirstResponder();
  EXPECT_EQ(inkOnScreen(black), (CGRect{{298, 109}, {2, 18}}));
}

TEST_F(TextFields, ShowTheirPlaceholderWhileEmpty) {
  objc::send<void, "setPlaceholder:">(field.get(), "HHHH"_ns);
  uikit::Environment dark;
  dark.style = UIUserInterfaceStyle::Dark;
  uikit::setEnvironment(dark);
  EXPECT_GT(inkOnScreen(black).size.width, 30);
  field->setText("H"_ns);
  EXPECT_LT(inkOnScreen(black).size.width, 20);
}

TEST_F(TextFields, KeepTextOffTheirBorder) {
  EXPECT_EQ((objc::send<CGRect, "textRectForBounds:">(field.get(), field->bounds())), field->bounds());
  field->setBorderStyle(static_cast<UITextBorderStyle>(3));
  EXPECT_EQ((objc::send<CGRect, "textRectForBounds:">(field.get(), field->bounds())), (CGRect{{7, 0}, {186, 36}}));
}

TEST_F(TextFields, TellWhatTheyHold) {
  field->setText("Hi"_ns);
  const Json node = described(field);
  EXPECT_EQ(node.at("text"), "Hi");
  EXPECT_EQ(node.at("font"), (Json{{"family", "Inter"}, {"size", 15.0}, {"weight", "regular"}}));
  EXPECT_EQ(node.at("color"), (Json{1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(node.at("firstResponder"), false);
  EXPECT_EQ(node.at("enabled"), true);
  field->becomeFirstResponder();
  EXPECT_EQ(described(field).at("firstResponder"), true);
}

TEST_F(TextFields, KeepTheirTraits) {
  EXPECT_EQ((objc::send<UIReturnKeyType, "returnKeyType">(field.get())), UIReturnKeyType{});
  field->setReturnKeyType(UIReturnKeyType::Send);
  EXPECT_EQ((objc::send<UIReturnKeyType, "returnKeyType">(field.get())), UIReturnKeyType::Send);
}

}  // namespace

}  // namespace test
