// The on-screen keyboard: when it is there, and what its keys do.
#include <algorithm>
#include <set>

#include "platform/ui_text_field.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/describe.hpp"
#include "simulator/uikit/keyboard_key.hpp"
#include "simulator/uikit/view_record.hpp"
#include "simulator/uikit/window.hpp"
#include "tests/uikit/content.hpp"

namespace test {

namespace {

using uikit::KeyRole;

class Keyboard : public Stage {
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

  // Nil while there is no keyboard on the screen.
  static UIWindow* keyboard() {
    const auto windows = uikit::visibleWindows();
    const auto found = std::ranges::find_if(windows, [](const UIWindow* each) {
      return std::string(object_getClassName(objc::detail::identifier(each))) == "UIRemoteKeyboardWindow";
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
    press(keyThat([&](const auto& key) { return key.label == label; }));
  }
  static void press(KeyRole role) {
    press(keyThat([&](const auto& key) { return key.role == role; }));
  }

  template <class Predicate>
  static uikit::Key keyThat(const Predicate& predicate) {
    const auto all = keys();
    const auto found = std::ranges::find_if(all, predicate);
    if (found != all.end()) return *found;
    ADD_FAILURE() << "there is no such key";
    return {};
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UITextField> field = UIView::withFrame<UITextField>({{100, 100}, {200, 36}});
};

TEST_F(Keyboard, IsThereWhileAFieldIsEdited) {
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

TEST_F(Keyboard, SlidesInAQuarterOfASecond) {
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

TEST_F(Keyboard, StaysWhereAnotherFieldTakesOver) {
  const auto other = UIView::withFrame<UITextField>({{100, 200}, {200, 36}});
  window->addSubview(other);
  edit();
  other->becomeFirstResponder();
  foundation::stepClock(0.01);
  EXPECT_EQ(uikit::shownFrame(uikit::record(keyboard()).layer).origin.y, keyboard()->frame().origin.y);
}

TEST_F(Keyboard, BeginsWithACapitalAndGoesOnWithSmallLetters) {
  edit();
  press("H");
  press("i");
  press(KeyRole::Space);
  press("a");
  EXPECT_EQ(shown(), "Hi a");
}

TEST_F(Keyboard, ShiftHoldsForOneLetter) {
  edit();
  press(KeyRole::Shift);
  press("a");
  press(KeyRole::Shift);
  press("B");
  press("c");
  EXPECT_EQ(shown(), "aBc");
}

TEST_F(Keyboard, SendKeyIsPaleOnlyWhileItHasNothingToSendAndTheFieldMinds) {
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

TEST_F(Keyboard, KeysCanBeReadInTheTree) {
  edit();
  std::set<std::string> texts;
  const auto tree = uikit::describeTree(keyboard());
  for (const auto& node : tree.at("children")) texts.insert(node.value("text", ""));
  EXPECT_TRUE(texts.contains("Q"));
  EXPECT_TRUE(texts.contains("return"));
}

TEST_F(Keyboard, BackspaceErases) {
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

TEST_F(Keyboard, NamesItsReturnKeyAsTheFieldWants) {
  edit();
  EXPECT_EQ(keyThat([](const auto& key) { return key.role == KeyRole::Return; }).label, "return");
  field->setReturnKeyType(UIReturnKeyType::Send);
  foundation::drainMainQueue();
  EXPECT_EQ(keyThat([](const auto& key) { return key.role == KeyRole::Return; }).label, "send");
}

bool areApart(const CGRect& a, const CGRect& b) {
  return a.origin.x + a.size.width <= b.origin.x || b.origin.x + b.size.width <= a.origin.x ||
         a.origin.y + a.size.height <= b.origin.y || b.origin.y + b.size.height <= a.origin.y;
}

void expectInsideAndApart(const std::vector<uikit::Key>& keys, const uikit::KeyboardSize& size) {
  for (std::size_t first = 0; first < keys.size(); ++first) {
    const CGRect& frame = keys[first].frame;
    EXPECT_GE(frame.origin.x, 0);
    EXPECT_LE(frame.origin.x + frame.size.width, size.width);
    EXPECT_LE(frame.origin.y + frame.size.height, size.height());
    for (std::size_t second = first + 1; second < keys.size(); ++second)
      EXPECT_TRUE(areApart(frame, keys[second].frame)) << keys[first].label << " and " << keys[second].label;
  }
}

constexpr const char* locales[] = {"en_US", "de_DE", "fr_FR", "es_ES", "pt_BR", "sv_SE", "fi_FI", "da_DK", "nb_NO",
                                   "pl_PL", "tr_TR", "ru_RU", "uk_UA", "ar_EG", "he_IL", "ja_JP", "ko_KR", "zh_CN"};

std::vector<uikit::Key> keysFor(const char* locale, const uikit::KeyboardSize& size,
                                uikit::Shift shift = uikit::Shift::Off,
                                uikit::KeyboardPlane plane = uikit::KeyboardPlane::Letters) {
  return uikit::keysOf(size, {plane, shift, uikit::lettersOf(locale), "send"});
}

std::size_t count(const std::vector<uikit::Key>& keys, KeyRole role) {
  return static_cast<std::size_t>(std::ranges::count(keys, role, &uikit::Key::role));
}

// The letters row by row.
std::string lettersOn(const std::vector<uikit::Key>& keys) {
  std::string letters;
  double row = 0;
  for (const uikit::Key& key : keys) {
    if (key.role != KeyRole::Character) continue;
    if (!letters.empty() && key.frame.origin.y != row) letters += ' ';
    row = key.frame.origin.y;
    letters += key.label;
  }
  return letters;
}

constexpr uikit::KeyboardSize usualSize = {375, 34};

TEST_F(Keyboard, KeysLieInsideAndApart) {
  using enum uikit::KeyboardPlane;
  for (const char* locale : locales) {
    for (const uikit::KeyboardSize size : {uikit::KeyboardSize{320, 0}, usualSize, {414, 34}})
      for (const auto plane : {Letters, Numbers, Symbols})
        expectInsideAndApart(keysFor(locale, size, uikit::Shift::On, plane), size);
  }
}

TEST_F(Keyboard, KeysAreWideEnoughForAFinger) {
  for (const char* locale : locales)
    for (const uikit::Key& key : keysFor(locale, {320, 0})) EXPECT_GT(key.frame.size.width, 15) << locale;
}

struct Letters {
  const char* locale;
  const char* small;
  const char* capital;
};

TEST_F(Keyboard, LettersAreThoseOfTheLanguage) {
  for (const Letters& wanted : {
           Letters{"en_US", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"de_AT", "qwertzuiopü asdfghjklöä yxcvbnm", "QWERTZUIOPÜ ASDFGHJKLÖÄ YXCVBNM"},
           {"fr_FR", "azertyuiop qsdfghjklm wxcvbn", "AZERTYUIOP QSDFGHJKLM WXCVBN"},
           {"es_MX", "qwertyuiop asdfghjklñ zxcvbnm", "QWERTYUIOP ASDFGHJKLÑ ZXCVBNM"},
           {"tr_TR", "qwertyuıopğü asdfghjklşi zxcvbnmöç", "QWERTYUIOPĞÜ ASDFGHJKLŞİ ZXCVBNMÖÇ"},
           {"ru_RU", "йцукенгшщзх фывапролджэ ячсмитьбю", "ЙЦУКЕНГШЩЗХ ФЫВАПРОЛДЖЭ ЯЧСМИТЬБЮ"},
           {"pl_PL", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"ja_JP", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"de", "qwertzuiopü asdfghjklöä yxcvbnm", "QWERTZUIOPÜ ASDFGHJKLÖÄ YXCVBNM"},
           {"", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
       }) {
    EXPECT_EQ(lettersOn(keysFor(wanted.locale, usualSize, uikit::Shift::Off)), wanted.small) << wanted.locale;
    EXPECT_EQ(lettersOn(keysFor(wanted.locale, usualSize, uikit::Shift::On)), wanted.capital) << wanted.locale;
  }
}

// The letter itself where its script has no capitals.
std::string capitalOf(const std::string& letter, const char* locale) {
  if (letter == "i" && std::string(locale).starts_with("tr")) return "İ";
  return text(objc::send<NSString*, "uppercaseString">(NSString::stringWithUTF8String(letter.c_str())));
}

TEST_F(Keyboard, NoLanguageHasALetterTwiceOrALetterWithoutItsCapital) {
  for (const char* locale : locales) {
    const auto small = keysFor(locale, usualSize, uikit::Shift::Off);
    const auto capital = keysFor(locale, usualSize, uikit::Shift::On);
    ASSERT_EQ(small.size(), capital.size()) << locale;
    std::set<std::string> letters;
    for (std::size_t index = 0; index < small.size(); ++index) {
      if (small[index].role != KeyRole::Character) continue;
      letters.insert(small[index].label);
      EXPECT_EQ(capital[index].label, capitalOf(small[index].label, locale)) << locale;
    }
    EXPECT_EQ(letters.size(), count(small, KeyRole::Character)) << locale;
  }
}

TEST_F(Keyboard, ScriptsWithoutCapitalsHaveNoShift) {
  for (const char* locale : {"ar_EG", "he_IL"}) {
    EXPECT_EQ(count(keysFor(locale, usualSize), KeyRole::Shift), 0U) << locale;
    EXPECT_EQ(count(keysFor(locale, usualSize), KeyRole::Backspace), 1U) << locale;
  }
  EXPECT_EQ(count(keysFor("uk_UA", usualSize), KeyRole::Shift), 1U);
}

TEST_F(Keyboard, FollowsThePhonesLanguage) {
  uikit::Environment german = uikit::environment();
  german.locale = "de_DE";
  uikit::setEnvironment(german);
  edit();
  press("Ü");
  press("z");
  press("ö");
  EXPECT_EQ(shown(), "Üzö");
}

TEST_F(Keyboard, GoesBackToTheLanguagesLetters) {
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
