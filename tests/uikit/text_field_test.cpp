// Tests of UITextField: typing, editing events and drawing.
#include "platform/ui_text_field.hpp"

#include "simulator/uikit/controls/text_position.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/text/text_boundaries.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/control_target.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

constexpr std::uint32_t black = 0xff000000;

class TextFields : public UIKitTest {
 public:
  TextFields() {
    field->setFont(UIFont::systemFontOfSize(15));
    field->setTextColor(UIColor::withRed(1, 1, 1, 1));
    window->addSubview(field);
    window->makeKeyAndVisible();
    logEditingEvents(target, field);
  }

  void type(const std::string& characters) const { objc::send<void, "insertText:">(field.get(), string(characters)); }
  void deleteBackward() const { objc::send<void, "deleteBackward">(field.get()); }
  void select(NSUInteger location, NSUInteger length) const {
    objc::send<void, "_setSelectedRange:">(field.get(), NSRange{location, length});
  }
  std::string shown() const { return text(field->text()); }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UITextField> field = UIView::withFrame<UITextField>({{100, 100}, {200, 36}});
  objc::Ref<ControlTarget> target = ControlTarget::make();
};

TEST_F(TextFields, AreInitiallyEmpty) {
  EXPECT_EQ(shown(), "");
  field->setText("text"_ns);
  field->setText(nullptr);
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(TextFields, SendEditingEventsInOrder) {
  EXPECT_TRUE(field->becomeFirstResponder());
  type("Hi");
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_EQ(takeLog(), (Log{"began", "changed", "ended on exit", "ended"}));
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, SendEditingDidBeginOnce) {
  field->becomeFirstResponder();
  EXPECT_TRUE(field->becomeFirstResponder());
  EXPECT_EQ(takeLog(), Log{"began"});
}

TEST_F(TextFields, SendOnlyEditingDidEndWhenAnotherFieldBecomesFirstResponder) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  field->becomeFirstResponder();
  takeLog();
  EXPECT_TRUE(other->becomeFirstResponder());
  EXPECT_EQ(takeLog(), Log{"ended"});
  EXPECT_EQ(uikit::firstResponder(), other.get());
}

TEST_F(TextFields, SendEditingDidEndWhenRemovedFromTheWindow) {
  field->becomeFirstResponder();
  takeLog();
  field->removeFromSuperview();
  EXPECT_EQ(takeLog(), Log{"ended"});
  EXPECT_EQ(uikit::firstResponder(), nullptr);
}

TEST_F(TextFields, StayFirstResponderIfTheReturnKeyHasNoAction) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  other->becomeFirstResponder();
  objc::send<void, "_returnKeyPressed">(other.get());
  EXPECT_TRUE(other->isFirstResponder());
}

TEST_F(TextFields, IgnoreTheReturnKeyWhileEmptyIfRequested) {
  objc::send<void, "setEnablesReturnKeyAutomatically:">(field.get(), true);
  field->becomeFirstResponder();
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_TRUE(field->isFirstResponder());
  type("Hi");
  objc::send<void, "_returnKeyPressed">(field.get());
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, TreatALineFeedAsTheReturnKey) {
  field->becomeFirstResponder();
  type("Hi");
  type("\n");
  EXPECT_EQ(shown(), "Hi");
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, ReplaceLineBreaksWithSpaces) {
  type("one\ntwo\r\nthree");
  EXPECT_EQ(shown(), "one two three");
}

TEST_F(TextFields, BeginEditingWhenTapped) {
  tap({150, 118});
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_EQ(takeLog(), Log{"began"});
}

TEST_F(TextFields, DoNotBeginEditingOnADragThatEndsElsewhere) {
  drag({150, 118}, {0, 300});
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFields, DoNotBeginEditingOutsideOfAWindow) {
  const auto loose = UIView::withFrame<UITextField>({});
  EXPECT_FALSE(loose->becomeFirstResponder());
}

TEST_F(TextFields, IgnoreInputWhenDisabled) {
  field->becomeFirstResponder();
  takeLog();
  field->setEnabled(false);
  EXPECT_EQ(takeLog(), Log{"ended"});
  EXPECT_FALSE(field->becomeFirstResponder());
  type("Hi");
  deleteBackward();
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

TEST_F(TextFields, ReplaceTheSelection) {
  type("Hello world");
  select(6, 5);
  type("there");
  EXPECT_EQ(shown(), "Hello there");
  objc::send<void, "selectAll:">(field.get(), static_cast<NSObject*>(nullptr));
  deleteBackward();
  EXPECT_EQ(shown(), "");
}

TEST_F(TextFields, ClampTheSelectionToTheText) {
  type("Hi");
  select(1, NSNotFound);
  type("ello");
  EXPECT_EQ(shown(), "Hello");
  select(99, 99);
  type("!");
  EXPECT_EQ(shown(), "Hello!");
}

TEST_F(TextFields, DeleteWholeCharacters) {
  for (const char* character : {"é", "e\u0301", "👍🏽", "👩‍👩‍👧‍👦", "🇩🇪", "한"}) {
    field->setText("a"_ns);
    type(character);
    deleteBackward();
    EXPECT_EQ(shown(), "a") << character;
  }
}

TEST_F(TextFields, DeleteNothingAtTheStart) {
  type("Hi");
  select(0, 0);
  takeLog();
  deleteBackward();
  EXPECT_EQ(shown(), "Hi");
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(TextFields, DeleteFromEnormousTextQuickly) {
  field->setText(string(std::string(1'000'000, 'x') + "🇩🇪"));
  deleteBackward();
  EXPECT_EQ(field->text()->length(), 1'000'000u);
  for (int count = 0; count < 20; ++count) deleteBackward();
  EXPECT_EQ(field->text()->length(), 999'980u);
}

TEST_F(TextFields, HandleAnUnpairedSurrogate) {
  field->setText(stringWithUnpairedSurrogate());
  EXPECT_EQ(describe(field).at("text"), "a\uFFFD");
  type("b");
  deleteBackward();
  deleteBackward();
  EXPECT_EQ(shown(), "a");
}

TEST_F(TextFields, CenterTheirTextVertically) {
  field->setText("HH"_ns);
  const CGRect ink = inkBounds(black);
  EXPECT_NEAR(ink.origin.y + ink.size.height / 2, 118, 1.5);
  EXPECT_NEAR(ink.origin.x, 100, 3);
}

TEST_F(TextFields, AlignTheirTextAtTheTopOrBottomIfRequested) {
  field->setText("HH"_ns);
  field->setContentVerticalAlignment(static_cast<UIControlContentVerticalAlignment>(1));
  EXPECT_LT(inkBounds(black).origin.y, 105);
  field->setContentVerticalAlignment(static_cast<UIControlContentVerticalAlignment>(2));
  EXPECT_GT(inkBounds(black).origin.y, 118);
}

TEST_F(TextFields, ShowACaretWhileEditing) {
  EXPECT_EQ(inkBounds(black), CGRect{});
  field->becomeFirstResponder();
  EXPECT_EQ(inkBounds(black), (CGRect{{100, 109}, {2, 18}}));
  type("HH");
  EXPECT_GT(inkBounds(black).size.width, 20);
}

TEST_F(TextFields, ScrollToTheCaretIfTheTextIsTooLong) {
  field->becomeFirstResponder();
  type(std::string(100, 'H'));
  const CGRect atEnd = inkBounds(black);
  EXPECT_GE(atEnd.origin.x, 100);
  EXPECT_NEAR(atEnd.origin.x + atEnd.size.width, 300, 1);
  select(0, 0);
  EXPECT_NEAR(inkBounds(black).origin.x, 100, 1);
}

TEST_F(TextFields, TruncateTheirTextWhenNotEditing) {
  field->setText(string(std::string(100, 'H')));
  const CGRect ink = inkBounds(black);
  EXPECT_GE(ink.origin.x, 100);
  EXPECT_LE(ink.origin.x + ink.size.width, 300);
}

TEST_F(TextFields, StartOnTheRightInRightToLeftLanguages) {
  uikit::Environment environment;
  environment.direction = uikit::LayoutDirection::RightToLeft;
  uikit::setEnvironment(environment);
  field->becomeFirstResponder();
  EXPECT_EQ(inkBounds(black), (CGRect{{298, 109}, {2, 18}}));
}

TEST_F(TextFields, ShowTheirPlaceholderWhileEmpty) {
  objc::send<void, "setPlaceholder:">(field.get(), "HHHH"_ns);
  uikit::Environment dark;
  dark.style = UIUserInterfaceStyle::Dark;
  uikit::setEnvironment(dark);
  EXPECT_GT(inkBounds(black).size.width, 30);
  field->setText("H"_ns);
  EXPECT_LT(inkBounds(black).size.width, 20);
}

TEST_F(TextFields, KeepTextInsideTheirBorder) {
  EXPECT_EQ((objc::send<CGRect, "textRectForBounds:">(field.get(), field->bounds())), field->bounds());
  field->setBorderStyle(static_cast<UITextBorderStyle>(3));
  EXPECT_EQ((objc::send<CGRect, "textRectForBounds:">(field.get(), field->bounds())), (CGRect{{7, 0}, {186, 36}}));
}

TEST_F(TextFields, DescriptionContainsTheirContent) {
  field->setText("Hi"_ns);
  const Json node = describe(field);
  EXPECT_EQ(node.at("text"), "Hi");
  EXPECT_EQ(node.at("font"), (Json{{"family", "Inter"}, {"size", 15.0}, {"weight", "regular"}}));
  EXPECT_EQ(node.at("color"), (Json{1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(node.at("firstResponder"), false);
  EXPECT_EQ(node.at("enabled"), true);
  field->becomeFirstResponder();
  EXPECT_EQ(describe(field).at("firstResponder"), true);
}

TEST_F(TextFields, StoreTheirReturnKeyType) {
  EXPECT_EQ((objc::send<UIReturnKeyType, "returnKeyType">(field.get())), UIReturnKeyType{});
  field->setReturnKeyType(UIReturnKeyType::Send);
  EXPECT_EQ((objc::send<UIReturnKeyType, "returnKeyType">(field.get())), UIReturnKeyType::Send);
}

class MarkedText : public TextFields {
 public:
  MarkedText() {
    field->becomeFirstResponder();
    takeLog();
  }

  void mark(const std::string& text, NSUInteger caret) const {
    objc::send<void, "setMarkedText:selectedRange:">(field.get(), string(text), NSRange{caret, 0});
  }
  void unmark() const { objc::send<void, "unmarkText">(field.get()); }
  UITextRange* markedRange() const { return objc::send<UITextRange*, "markedTextRange">(field.get()); }
  UITextRange* selectedRange() const { return objc::send<UITextRange*, "selectedTextRange">(field.get()); }
  std::string textIn(UITextRange* range) const {
    return text(objc::send<NSString*, "textInRange:">(field.get(), range));
  }
  NSInteger offset(UITextPosition* position) const {
    auto* const beginning = objc::send<UITextPosition*, "beginningOfDocument">(field.get());
    return objc::send<NSInteger, "offsetFromPosition:toPosition:">(field.get(), beginning, position);
  }
  NSInteger caret() const { return offset(selectedRange()->end()); }
  void replace(NSRange range, const std::string& replacement) const {
    objc::send<void, "replaceRange:withText:">(field.get(), uikit::textRange(range), string(replacement));
  }
};

TEST_F(MarkedText, IsInsertedAtTheCaret) {
  type("Hi!");
  select(2, 0);
  takeLog();
  mark("ni", 1);
  EXPECT_EQ(shown(), "Hini!");
  EXPECT_EQ(textIn(markedRange()), "ni");
  EXPECT_EQ(caret(), 3);
  EXPECT_EQ(takeLog(), Log{"changed"});
  EXPECT_EQ(describe(field).at("markedText"), "ni");
}

TEST_F(MarkedText, IsReplacedByTheNextMarkedText) {
  type("Hi!");
  select(2, 0);
  mark("ni", 2);
  mark("nihao", 0);
  EXPECT_EQ(shown(), "Hinihao!");
  EXPECT_EQ(offset(markedRange()->start()), 2);
  EXPECT_EQ(offset(markedRange()->end()), 7);
  EXPECT_EQ(caret(), 2);
}

TEST_F(MarkedText, IsReplacedByInsertedText) {
  type("Hi!");
  select(2, 0);
  mark("nihao", 5);
  takeLog();
  type("你好");
  EXPECT_EQ(shown(), "Hi你好!");
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(caret(), 4);
  EXPECT_EQ(takeLog(), Log{"changed"});
}

TEST_F(MarkedText, LeavesNoTraceWhenItIsCleared) {
  type("Hi!");
  select(2, 0);
  const Json before = describe(field);
  mark("nihao", 5);
  mark("", 0);
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(describe(field), before);
  EXPECT_EQ(caret(), 2);
  takeLog();
  mark("", 0);
  objc::send<void, "setMarkedText:selectedRange:">(field.get(), static_cast<NSString*>(nullptr), NSRange{});
  EXPECT_EQ(takeLog(), Log{});
  select(0, 2);
  mark("", 0);
  EXPECT_EQ(shown(), "Hi!");
}

TEST_F(MarkedText, ReplacesTheSelection) {
  type("Hello world");
  select(6, 5);
  mark("sekai", 5);
  EXPECT_EQ(shown(), "Hello sekai");
}

TEST_F(MarkedText, BecomesOrdinaryTextWhenItIsUnmarked) {
  mark("ni", 1);
  takeLog();
  unmark();
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_FALSE(describe(field).contains("markedText"));
  type("x");
  EXPECT_EQ(shown(), "nxi");
}

TEST_F(MarkedText, IsUnmarkedByTheReturnKeyWhichDoesNotEndEditing) {
  mark("ni", 2);
  takeLog();
  type("\n");
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_TRUE(field->isFirstResponder());
  type("\n");
  EXPECT_EQ(takeLog(), (Log{"ended on exit", "ended"}));
  EXPECT_EQ(shown(), "ni");
}

TEST_F(MarkedText, IsUnmarkedWhenEditingEndsOrTheSelectionLeavesIt) {
  type("Hi!");
  mark("ni", 2);
  select(4, 0);
  EXPECT_NE(markedRange(), nullptr);
  select(1, 0);
  EXPECT_EQ(markedRange(), nullptr);
  mark("hao", 3);
  objc::send<bool, "resignFirstResponder">(field.get());
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(shown(), "Hhaoi!ni");
}

TEST_F(MarkedText, StaysMarkedWhenACharacterIsDeletedFromIt) {
  type("Hi");
  mark("n你", 2);
  deleteBackward();
  EXPECT_EQ(textIn(markedRange()), "n");
  deleteBackward();
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(shown(), "Hi");
  deleteBackward();
  EXPECT_EQ(shown(), "H");
}

TEST_F(MarkedText, IsRemovedWhenTheTextIsSet) {
  mark("ni", 2);
  field->setText("Bye"_ns);
  EXPECT_EQ(markedRange(), nullptr);
  type("!");
  EXPECT_EQ(shown(), "Bye!");
}

TEST_F(MarkedText, MovesWhenTextBeforeItIsReplaced) {
  type("one two");
  select(4, 0);
  mark("ni", 1);
  replace({0, 3}, "three");
  EXPECT_EQ(shown(), "three nitwo");
  EXPECT_EQ(textIn(markedRange()), "ni");
  EXPECT_EQ(caret(), 7);
  replace({8, NSNotFound}, "");
  EXPECT_EQ(textIn(markedRange()), "ni");
  EXPECT_EQ(shown(), "three ni");
  replace({7, 1}, "o");
  EXPECT_EQ(markedRange(), nullptr);
  EXPECT_EQ(shown(), "three no");
  EXPECT_EQ(caret(), 7);
  replace({6, 2}, "yes");
  EXPECT_EQ(caret(), 9);
}

TEST_F(MarkedText, IsClampedAndCleaned) {
  mark("a\nb", NSNotFound);
  EXPECT_EQ(shown(), "a b");
  EXPECT_EQ(caret(), 3);
  objc::send<void, "setMarkedText:selectedRange:">(field.get(), stringWithUnpairedSurrogate(), NSRange{});
  EXPECT_EQ(shown(), "a\uFFFD");
  EXPECT_EQ(textIn(uikit::textRange({1, NSNotFound})), "\uFFFD");
  field->setEnabled(false);
  mark("x", 1);
  EXPECT_EQ(shown(), "a\uFFFD");
}

// The marked text is spaces, so only its line is drawn, in white. The caret is blue.
TEST_F(MarkedText, IsUnderlined) {
  const auto inkOfLine = [] {
    const auto screen = uikit::renderScreen(1);
    int count = 0;
    for (int y = 0; y < screen->pixelHeight(); ++y) {
      for (int x = 0; x < screen->pixelWidth(); ++x) {
        const std::uint32_t pixel = screen->pixel(x, y);
        count += pixel != black && (pixel & 0xff) == (pixel >> 16 & 0xff) ? 1 : 0;
      }
    }
    return count;
  };
  mark("       ", 0);
  EXPECT_GT(inkOfLine(), 10);
  unmark();
  EXPECT_EQ(inkOfLine(), 0);
}

TEST_F(MarkedText, MovesTheCaretRectangle) {
  const auto caretX = [&](UITextPosition* position) {
    return objc::send<CGRect, "caretRectForPosition:">(field.get(), position).origin.x;
  };
  mark("HH", 2);
  EXPECT_EQ(caretX(markedRange()->start()), 0);
  EXPECT_GT(caretX(markedRange()->end()), 15);
}

TEST_F(MarkedText, PositionsOutsideOfTheTextDoNotExist) {
  type("Hi");
  auto* const end = objc::send<UITextPosition*, "endOfDocument">(field.get());
  const auto moved = [&](NSInteger distance) {
    return objc::send<UITextPosition*, "positionFromPosition:offset:">(field.get(), end, distance);
  };
  EXPECT_EQ(moved(1), nullptr);
  EXPECT_EQ(moved(-3), nullptr);
  ASSERT_EQ(offset(moved(-2)), 0);
  auto* const range = objc::send<UITextRange*, "textRangeFromPosition:toPosition:">(field.get(), end, moved(-1));
  EXPECT_EQ(textIn(range), "i");
  objc::send<void, "setSelectedTextRange:">(field.get(), range);
  type("a");
  EXPECT_EQ(shown(), "Ha");
}

}  // namespace

}  // namespace test
