// Tests of the on-screen keyboard: when it appears, and what its keys do.
#include <algorithm>

#include "platform/ns_notification_center.hpp"
#include "platform/ns_value.hpp"
#include "platform/ui_text_field.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

using uikit::KeyRole;

// Records the top of the keyboard from each notification of a change of its frame.
class FrameObserver : public objc::Interface<"FrameObserver", NSObject> {};

std::vector<double>* announcedTops = nullptr;

void keyboardWillChangeFrame(FrameObserver*, NSNotification* notification) {
  const auto* frame = objc::as<NSValue>(notification->userInfo()->objectForKey("UIKeyboardFrameEndUserInfoKey"_ns));
  announcedTops->push_back(frame->CGRectValue().origin.y);
}

class AnnouncedFrames {
 public:
  explicit AnnouncedFrames(std::vector<double>& tops) {
    static constexpr objc::MethodEntry methods[] = {
        objc::method<"keyboardWillChangeFrame:", &keyboardWillChangeFrame>()};
    if (FrameObserver::classObject() == nullptr) objc::defineClass<FrameObserver>(methods);
    announcedTops = &tops;
    observer_ = objc::make<FrameObserver>();
    NSNotificationCenter::defaultCenter()->addObserver(observer_, objc::selector<"keyboardWillChangeFrame:">(), name());
  }
  AnnouncedFrames(const AnnouncedFrames&) = delete;
  AnnouncedFrames& operator=(const AnnouncedFrames&) = delete;
  ~AnnouncedFrames() { NSNotificationCenter::defaultCenter()->removeObserver(observer_, name()); }

 private:
  static NSString* name() { return "UIKeyboardWillChangeFrameNotification"_ns; }

  objc::Ref<FrameObserver> observer_;
};

class Keyboard : public UIKitTest {
 public:
  Keyboard() {
    window->addSubview(field);
    window->makeKeyAndVisible();
  }

  void edit() {
    field->becomeFirstResponder();
    foundation::stepClock(1);
  }
  std::string shown() const { return text(field->text()); }

  // The window of the keyboard. Null while the keyboard is not on the screen.
  static UIWindow* keyboard() {
    const auto windows = uikit::visibleWindows();
    const auto found = std::ranges::find_if(windows, [](const UIWindow* each) {
      return std::string(object_getClassName(objc::detail::toId(each))) == "UIRemoteKeyboardWindow";
    });
    return found == windows.end() ? nullptr : *found;
  }

  static std::vector<uikit::Key> keys() {
    std::vector<uikit::Key> found;
    for (const auto& view : uikit::record(keyboard()).subviews)
      found.push_back(objc::state(static_cast<UIKBKeyView*>(view.get())).key);
    return found;
  }

  static void press(const uikit::Key& key) {
    const CGRect frame = keyboard()->frame();
    tap({frame.origin.x + key.frame.origin.x + key.frame.size.width / 2,
         frame.origin.y + key.frame.origin.y + key.frame.size.height / 2});
    foundation::drainMainQueue();
  }
  static void press(const std::string& label) {
    press(findKey([&](const auto& key) { return key.label == label; }));
  }
  static void press(KeyRole role) {
    press(findKey([&](const auto& key) { return key.role == role; }));
  }

  template <class Predicate>
  static uikit::Key findKey(const Predicate& predicate) {
    const auto all = keys();
    const auto found = std::ranges::find_if(all, predicate);
    if (found != all.end()) return *found;
    ADD_FAILURE() << "the keyboard has no such key";
    return {};
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UITextField> field = UIView::withFrame<UITextField>({{100, 100}, {200, 36}});
};

TEST_F(Keyboard, IsShownWhileAFieldIsEdited) {
  foundation::drainMainQueue();
  EXPECT_EQ(keyboard(), nullptr);
  edit();
  ASSERT_NE(keyboard(), nullptr);
  const CGRect frame = keyboard()->frame();
  EXPECT_EQ(frame.origin.y + frame.size.height, 812);
  field->resignFirstResponder();
  foundation::stepClock(1);
  EXPECT_EQ(keyboard(), nullptr);
}

TEST_F(Keyboard, SlidesInWithinAQuarterOfASecond) {
  field->becomeFirstResponder();
  foundation::drainMainQueue();
  const auto top = [] { return uikit::shownFrame(uikit::record(keyboard()).layer).origin.y; };
  EXPECT_EQ(top(), 812);
  foundation::stepClock(0.125);
  EXPECT_GT(top(), keyboard()->frame().origin.y);
  EXPECT_LT(top(), 812);
  foundation::stepClock(0.125);
  EXPECT_EQ(top(), keyboard()->frame().origin.y);
}

TEST_F(Keyboard, StaysWhenAnotherFieldBecomesFirstResponder) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  edit();
  other->becomeFirstResponder();
  foundation::stepClock(0.01);
  EXPECT_EQ(uikit::shownFrame(uikit::record(keyboard()).layer).origin.y, keyboard()->frame().origin.y);
}

TEST_F(Keyboard, TypesACapitalFirstAndThenLowercase) {
  edit();
  press("H");
  press("i");
  press(KeyRole::Space);
  press("a");
  EXPECT_EQ(shown(), "Hi a");
}

TEST_F(Keyboard, ShiftAppliesToOneLetter) {
  edit();
  press(KeyRole::Shift);
  press("a");
  press(KeyRole::Shift);
  press("B");
  press("c");
  EXPECT_EQ(shown(), "aBc");
}

TEST_F(Keyboard, SendKeyIsDimmedOnlyIfTheFieldRequiresText) {
  const auto isProminent = [] {
    for (const auto& view : uikit::record(keyboard()).subviews) {
      const KeyViewState& key = objc::state(static_cast<UIKBKeyView*>(view.get()));
      if (key.key.role == KeyRole::Return) return key.isProminent;
    }
    return false;
  };
  field->setReturnKeyType(UIReturnKeyType::Send);
  edit();
  EXPECT_TRUE(isProminent());
  objc::send<void, "setEnablesReturnKeyAutomatically:">(field.get(), true);
  foundation::drainMainQueue();
  press("H");
  EXPECT_TRUE(isProminent());
  press(KeyRole::Backspace);
  EXPECT_FALSE(isProminent());
}

TEST_F(Keyboard, KeysAppearInTheViewTree) {
  edit();
  std::set<std::string> texts;
  const auto tree = uikit::describeTree(keyboard());
  for (const auto& node : tree.at("children")) texts.insert(node.value("text", ""));
  EXPECT_TRUE(texts.contains("Q"));
  EXPECT_TRUE(texts.contains("return"));
}

TEST_F(Keyboard, CharactersHaveOneFontSize) {
  uikit::Environment turkish = uikit::environment();
  turkish.locale = "tr_TR";
  uikit::setEnvironment(turkish);
  edit();
  std::set<double> sizes;
  for (const auto& view : uikit::record(keyboard()).subviews) {
    const KeyViewState& key = objc::state(static_cast<UIKBKeyView*>(view.get()));
    if (key.key.role == KeyRole::Character) sizes.insert(key.characterSize);
  }
  ASSERT_EQ(sizes.size(), 1U);
  EXPECT_GT(*sizes.begin(), 0);
}

TEST_F(Keyboard, PostsNotificationsOfItsFrame) {
  std::vector<double> tops;
  const AnnouncedFrames announced(tops);
  edit();
  ASSERT_EQ(tops.size(), 1U);
  EXPECT_EQ(tops[0], keyboard()->frame().origin.y);
  field->resignFirstResponder();
  foundation::stepClock(1);
  ASSERT_EQ(tops.size(), 2U);
  EXPECT_EQ(tops[1], 812);
}

TEST_F(Keyboard, BackspaceDeletesACharacter) {
  edit();
  press("H");
  press("o");
  press(KeyRole::Backspace);
  EXPECT_EQ(shown(), "H");
}

TEST_F(Keyboard, HasDigitsAndSymbols) {
  edit();
  press("123");
  press("1");
  press("#+=");
  press("€");
  press("123");
  press("?");
  press("ABC");
  press("z");
  EXPECT_EQ(shown(), "1€?z");
}

TEST_F(Keyboard, ReturnKeyShowsTheTypeThatTheFieldRequests) {
  edit();
  EXPECT_EQ(findKey([](const auto& key) { return key.role == KeyRole::Return; }).label, "return");
  field->setReturnKeyType(UIReturnKeyType::Send);
  foundation::drainMainQueue();
  EXPECT_EQ(findKey([](const auto& key) { return key.role == KeyRole::Return; }).label, "send");
}

TEST_F(Keyboard, FollowsTheLocale) {
  uikit::Environment german = uikit::environment();
  german.locale = "de_DE";
  uikit::setEnvironment(german);
  edit();
  press("Ü");
  press("z");
  press("ö");
  EXPECT_EQ(shown(), "Üzö");
}

TEST_F(Keyboard, ReturnsFromTheDigitsToTheLettersOfTheLocale) {
  uikit::Environment russian = uikit::environment();
  russian.locale = "ru_RU";
  uikit::setEnvironment(russian);
  edit();
  press("123");
  press("АБВ");
  press("Ж");
  EXPECT_EQ(shown(), "Ж");
}

}  // namespace

}  // namespace test
