// Tests in which a method of the platform raises an exception while the library calls it. The exception passes through
// the library's functions to a handler outside the library. After that, notifications still have working banners.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

#include "simulator/foundation/hook_function.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/support/library_code.hpp"

// Disables the leak sanitizer, which calls this function. When an exception passes through the library's functions, the
// objects that they retain are not released.
extern "C" int __lsan_is_turned_off() { return 1; }

namespace {

using test::containerOf;
using test::Phone;
using testing::HasSubstr;

// The language in which the platform raises the exception.
enum class Language { ObjectiveC, Cpp };
constexpr Language languages[] = {Language::ObjectiveC, Language::Cpp};

// This type is not derived from std::exception, because the simulator reports a std::exception as the failure of a
// command.
struct PlatformException {};

constexpr const char* reason = "The platform raises an exception.";

[[noreturn]] void raise(Language language) {
  if (language == Language::Cpp) throw PlatformException{};
  objc::send<void, "raise:format:">(objc::lookUpClass<"NSException">(), "PlatformException"_ns, base::stringOf(reason));
  throw std::logic_error("the exception was not raised");
}

// The language of the exception that the replaced method raises next. No value after it was raised.
std::optional<Language> armed;
IMP original;

template <class Signature>
struct Raising;

// The replacement of a method. It raises the exception at the next call by the library.
template <class Result, class... Arguments>
struct Raising<Result(Arguments...)> {
  static Result call(id self, SEL selector, Arguments... arguments) {
    if (!armed || !test::isLibraryCode(__builtin_return_address(0)))
      return objc::detail::call<Result>(original, self, selector, arguments...);
    raise(*std::exchange(armed, std::nullopt));
  }
};

template <class Signature>
void replace(Class target, const char* selector) {
  original = nullptr;
  MSHookMessageEx(target, sel_registerName(selector), objc::toImplementation(&Raising<Signature>::call), &original);
  ASSERT_NE(original, nullptr) << selector;
}

// Performs the action, in which the library must call the replaced method. Returns the language of the exception that
// this function catches.
std::optional<Language> exceptionOf(Language raised, const std::function<void()>& action) {
  armed = raised;
  std::optional<Language> caught;
  try {
    action();
  } catch (const PlatformException&) {
    caught = Language::Cpp;
  } catch (const std::exception&) {
    throw;
  } catch (...) {
    // In C++, an Objective-C exception has no type.
    caught = Language::ObjectiveC;
  }
  EXPECT_FALSE(armed) << "the library did not call the method";
  return caught;
}

class Exception : public testing::Test {
 protected:
  int present(const char* title = "Anna") { return phone_.present({{"title", title}, {"message", "Hello"}}); }

  void expectNextBannerWorks() {
    const int controller = present("Bert");
    ASSERT_TRUE(phone_.state(controller).at("brim"));
    EXPECT_EQ(phone_.view(controller, "headerLabel").at("text"), "Bert");
    phone_.wait(4.9);
    EXPECT_FALSE(phone_.state(controller).at("isDismissing"));
    phone_.wait(1);
    EXPECT_FALSE(phone_.state(controller).at("brim"));
    EXPECT_TRUE(phone_.state(controller).at("hasDismissed"));
  }

  // Presents a banner, and calls the action with its controller's number.
  void expectPassing(const std::function<void(int)>& action) {
    for (const Language language : languages) {
      const int controller = present();
      EXPECT_EQ(exceptionOf(language, [&] { action(controller); }), language);
      expectNextBannerWorks();
    }
  }

  Phone phone_;
};

TEST_F(Exception, PassesThroughAHook) {
  replace<void()>(NCNotificationShortLookView::classObject(), "removeFromSuperview");
  for (const Language language : languages) {
    EXPECT_EQ(exceptionOf(language, [&] { present(); }), language);
    expectNextBannerWorks();
  }
}

// The hook calls an added method. The results of the added method and of the platform's method are narrow.
TEST_F(Exception, PassesThroughAnAddedMethod) {
  replace<bool()>(NCNotificationOptions::classObject(), "dismissAutomatically");
  for (const Language language : languages) {
    EXPECT_EQ(exceptionOf(language, [&] { present(); }), language);
    expectNextBannerWorks();
  }
}

TEST_F(Exception, PassesThroughADispatchedBlock) {
  replace<void(double, objc::Block<void()>*, objc::Block<void(bool)>*)>(
      object_getClass(reinterpret_cast<id>(UIView::classObject())), "animateWithDuration:animations:completion:");
  expectPassing([&](int controller) {
    BrimContainer* const banner = containerOf(controller);
    banner->updateTop(banner->offset() - 10, true, 0.2, nullptr);
    ASSERT_TRUE(armed);
    phone_.wait(0);
  });
}

TEST_F(Exception, PassesThroughAnAnimationBlock) {
  replace<void(double)>(NSLayoutConstraint::classObject(), "setConstant:");
  expectPassing([&](int controller) {
    BrimContainer* const banner = containerOf(controller);
    banner->updateHeight(banner->defaultExpandedHeight(), true, nullptr);
  });
}

// The completion removes a banner that was replaced.
TEST_F(Exception, PassesThroughACompletionBlock) {
  replace<void()>(BrimContainer::classObject(), "removeFromSuperview");
  expectPassing([&](int) {
    present("Carla");
    phone_.wait(0.6);
    ASSERT_TRUE(armed);
    phone_.wait(1);
  });
}

TEST_F(Exception, PassesThroughATimer) {
  replace<NSUInteger()>(UILabel::classObject(), "_measuredNumberOfLines");
  expectPassing([&](int) {
    phone_.wait(4.9);
    ASSERT_TRUE(armed);
    phone_.wait(0.2);
  });
}

// The notification center itself handles the Objective-C exceptions that its observers raise.
TEST_F(Exception, PassesThroughAnObserver) {
  replace<NSUInteger()>(UILabel::classObject(), "_measuredNumberOfLines");
  const auto post = [] { test::postCommand({{"command", "dismiss"}}); };

  present();
  testing::internal::CaptureStderr();
  EXPECT_EQ(exceptionOf(Language::ObjectiveC, post), std::nullopt);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(reason));
  expectNextBannerWorks();

  present();
  EXPECT_EQ(exceptionOf(Language::Cpp, post), Language::Cpp);
  expectNextBannerWorks();
}

}  // namespace
