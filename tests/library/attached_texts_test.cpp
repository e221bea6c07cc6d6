// Tests of the texts of a notification that a banner shows.
#include <gtest/gtest.h>

#include <functional>

#include "platform/nc_notification_view.hpp"
#include "tests/library/banner_layout.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/laid_out_banner.hpp"
#include "tests/library/platform_methods.hpp"

namespace {

using test::Json;
using test::Phone;
using test::phoneWith;

std::function<void(runner::Options&)> onSystem(const char* system) {
  return [system](runner::Options& options) { options.systemVersion = system; };
}

std::string shownText(Phone& phone, int controller, const char* label) {
  const Json view = phone.view(controller, label);
  return view.is_null() ? "(none)" : view.value("text", "");
}

struct TextCase {
  Json fields;
  const char* header;
  const char* subHeader;
  const char* body;
};

class AttachedTextFields : public testing::TestWithParam<TextCase> {};

TEST_P(AttachedTextFields, ComeFromTheFirstNonEmptyField) {
  Phone phone = phoneWith({});
  const int controller = phone.present(GetParam().fields);
  EXPECT_EQ(shownText(phone, controller, "headerLabel"), GetParam().header);
  EXPECT_EQ(shownText(phone, controller, "subHeaderLabel"), GetParam().subHeader);
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, AttachedTextFields,
    testing::Values(TextCase{{{"title", "T"}, {"subtitle", "S"}, {"message", "M"}}, "T", "S", "M"},
                    TextCase{{{"title", "T"}, {"message", "M"}}, "T", "(none)", "M"},
                    TextCase{{{"title", "T"}, {"subtitle", ""}, {"message", "M"}}, "T", "(none)", "M"},
                    TextCase{{{"title", ""}, {"subtitle", "S"}, {"message", "M"}}, "S", "(none)", "M"},
                    TextCase{{{"subtitle", "S"}, {"message", "M"}}, "S", "(none)", "M"},
                    TextCase{{{"message", "M"}}, "", "(none)", "M"},
                    TextCase{{{"title", "T"}, {"summary", "Sum"}}, "T", "(none)", "Sum"},
                    TextCase{{{"title", "T"}, {"message", ""}, {"summary", "Sum"}}, "T", "(none)", "Sum"},
                    TextCase{{{"title", "T"}, {"message", "M"}, {"summary", "Sum"}}, "T", "(none)", "M"}));

TEST(AttachedTexts, SummaryIsIgnoredBeforeSystemVersion12) {
  Phone phone = phoneWith({}, onSystem("11.4"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "");
}

TEST(AttachedTexts, SummaryIsUsedFromSystemVersion12On) {
  Phone phone = phoneWith({}, onSystem("12.0"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "Sum");
}

// The text that the content of each notification returns as its message.
NSMutableString* changingMessage;

NSString* messageOf(objc::Original<NSString*(NCNotificationShortLookView*)>, NCNotificationShortLookView*) {
  return changingMessage;
}

// UTF-8 cannot represent an unpaired surrogate. For such a text, the phone returns nil, but Foundation on Linux returns
// data.
NSData* dataUsingEncoding(objc::Original<NSData*(NSString*, NSStringEncoding)> original, NSString* self,
                          NSStringEncoding encoding) {
  return encoding == NSStringEncoding::UTF8 && self->isEqualToString(changingMessage) ? nullptr
                                                                                      : original(self, encoding);
}

TEST(AttachedTexts, AreCopies) {
  Phone phone = phoneWith({{"hide_unless_expanded", true}});
  const objc::AutoreleasePool pool;
  const auto message = objc::retain(NSMutableString::stringWithCapacity(8));
  message->appendString("Grüße 😀"_ns);
  // An unpaired surrogate and a zero are valid in UTF-16 only.
  constexpr std::uint16_t units[] = {0xd83d, 0, 'x'};
  message->appendString(objc::adopt(
      objc::send<NSString*, "initWithCharacters:length:">(objc::send<id, "alloc">(objc::lookUpClass<"NSString">()),
                                                          static_cast<const std::uint16_t*>(units), NSUInteger{3})));
  const auto before = objc::adopt(objc::send<NSString*, "copy">(message.get()));
  changingMessage = message;
  test::replaceMethod<"secondaryText", &messageOf>(NCNotificationShortLookView::classObject());
  test::replaceMethod<"dataUsingEncoding:", &dataUsingEncoding>(NSString::classObject());
  const int controller = phone.present({{"title", "One"}});
  message->appendString(" changed"_ns);
  const auto* body = test::instanceVariable<NSString>(test::containerOf(controller), "_originalBody");
  EXPECT_TRUE(body->isEqualToString(before));
  changingMessage = nullptr;
}

TEST(AttachedTexts, EmptySummaryIsAnEmptyBody) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "One"}, {"summary", ""}, {"dismissAutomatically", false}});
  const auto* body = test::instanceVariable<NSString>(test::containerOf(controller), "_body");
  ASSERT_NE(body, nullptr);
  EXPECT_EQ(body->length(), 0u);
  phone.run({{"do", "update"}, {"controller", controller}, {"title", "One"}, {"message", "More"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "\nMore");
}

}  // namespace
