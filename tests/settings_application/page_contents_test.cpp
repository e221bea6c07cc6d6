// Tests of reading the contents of a page from specifiers, including invalid specifiers.
#include "simulator/settings/page_contents.hpp"

#include <gtest/gtest.h>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/settings/list_controller.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using namespace settings_application;
using test::Json;

class PageContents : public testing::Test {
 protected:
  PageContents() { registerClasses(); }

  std::vector<Section> read(const Json& items) {
    NSMutableArray* const specifiers = NSMutableArray::array();
    page = objc::make<PSListController>();
    for (const Json& item : items) {
      const auto made = objc::make<PSSpecifier>();
      objc::state(made.get()) = {objc::retain(objc::as<NSDictionary>(base::objectOf(item))), page.get()};
      specifiers->addObject(made);
    }
    return sectionsOf(specifiers);
  }
  // Returns the number of rows that the page shows for one specifier.
  std::size_t rowsOf(const Json& item) { return read(Json::array({item})).front().rows.size(); }
  static Json with(Json item, const char* key, const Json& value) {
    item[key] = value;
    return item;
  }

  test::PlainPhone phone;
  const objc::AutoreleasePool pool;
  objc::Ref<PSListController> page;
  const Json toggle = {{"cell", "PSSwitchCell"}, {"key", "a"}, {"defaults", "org.example"}, {"label", "A"}};
  const Json slider = {{"cell", "PSSliderCell"}, {"key", "b"}, {"defaults", "org.example"}, {"min", 2}, {"max", 4}};
  const Json list = {{"cell", "PSLinkListCell"},  {"key", "c"},
                     {"defaults", "org.example"}, {"default", 1},
                     {"validValues", {0, 1}},     {"validTitles", {"Zero", "One"}}};
  const Json button = {{"cell", "PSButtonCell"}, {"label", "Do"}, {"action", "doIt"}};
  const Json group = {{"cell", "PSGroupCell"}, {"label", "Group"}, {"footerText", "Footer"}};
};

TEST_F(PageContents, GroupsBeginSections) {
  const std::vector<Section> sections = read({group, toggle, slider, group, button});
  ASSERT_EQ(sections.size(), 2U);
  EXPECT_EQ(sections[0].header, "Group");
  EXPECT_EQ(sections[0].footer, "Footer");
  ASSERT_EQ(sections[0].rows.size(), 2U);
  EXPECT_EQ(sections[0].rows[0].label, "A");
  EXPECT_EQ(sections[0].rows[1].kind, RowKind::Slider);
  EXPECT_EQ(sections[1].rows.front().kind, RowKind::Button);
}

TEST_F(PageContents, RowsBeforeTheFirstGroupAreASection) {
  const std::vector<Section> sections = read({toggle, group});
  ASSERT_EQ(sections.size(), 2U);
  EXPECT_EQ(sections[0].rows.size(), 1U);
  EXPECT_TRUE(sections[0].header.empty());
}

TEST_F(PageContents, AMissingListHasNoSections) {
  EXPECT_TRUE(sectionsOf(nullptr).empty());
  EXPECT_TRUE(domainsOf(nullptr).empty());
}

TEST_F(PageContents, InvalidRowsAreSkipped) {
  for (const Json& valid : {toggle, slider, list, button}) EXPECT_EQ(rowsOf(valid), 1U) << valid;
  for (const Json& invalid : {Json::object(), with(toggle, "cell", "PSUnknownCell"), with(toggle, "cell", 7),
                              with(toggle, "key", ""), with(toggle, "key", 5), with(toggle, "defaults", Json::array()),
                              with(slider, "max", 2), with(slider, "min", 5), with(list, "validValues", Json::array()),
                              with(list, "validTitles", "One"), with(button, "action", ""), with(button, "label", 3)})
    EXPECT_EQ(rowsOf(invalid), 0U) << invalid;
}

TEST_F(PageContents, ListHasOnlyValuesWithTitles) {
  const Row row = read(Json::array({with(list, "validTitles", {"Zero"})})).front().rows.front();
  ASSERT_EQ(row.choices.size(), 1U);
  EXPECT_EQ(row.choices.front().title, "Zero");
  EXPECT_EQ(choicesOf(row).rows.size(), 1U);
}

TEST_F(PageContents, SegmentsCountOnlyIfTheSliderIsSegmented) {
  const auto segments = [&](const Json& item) { return read(Json::array({item})).front().rows.front().range.segments; };
  const Json segmented = with(with(slider, "isSegmented", true), "segmentCount", 20);
  EXPECT_EQ(segments(segmented), 20);
  EXPECT_EQ(segments(with(segmented, "isSegmented", false)), 0);
  EXPECT_EQ(segments(with(segmented, "segmentCount", -4)), 0);
  EXPECT_EQ(segments(with(segmented, "segmentCount", 1e300)), 0);
}

TEST_F(PageContents, StoredValuesOfTheWrongTypeAreReplacedByTheDefault) {
  const std::vector<Section> sections = read({with(toggle, "default", true), with(slider, "default", 3), list});
  const std::vector<Row>& rows = sections.front().rows;
  const auto store = [](const char* key, const Json& value) {
    EXPECT_EQ(foundation::writePreference("org.example", key, base::objectOf(value)), std::nullopt);
  };
  for (const char* key : {"a", "b", "c"}) store(key, Json::array({"wrong"}));
  EXPECT_TRUE(switchValue(rows[0].specifier));
  EXPECT_EQ(sliderValue(rows[1]), 3);
  EXPECT_EQ(selectedChoice(rows[2].specifier, rows[2].choices), 1U);
  store("a", "NO");
  store("b", "4");
  store("c", 0);
  EXPECT_FALSE(switchValue(rows[0].specifier));
  EXPECT_EQ(sliderValue(rows[1]), 4);
  EXPECT_EQ(selectedChoice(rows[2].specifier, rows[2].choices), 0U);
  store("c", 9);
  EXPECT_EQ(selectedChoice(rows[2].specifier, rows[2].choices), rows[2].choices.size());
}

TEST_F(PageContents, EachDomainIsListedOnce) {
  NSMutableArray* const specifiers = NSMutableArray::array();
  for (const Json& item : {toggle, slider, group, with(list, "defaults", "org.other")}) {
    const auto made = objc::make<PSSpecifier>();
    objc::state(made.get()).properties = objc::retain(objc::as<NSDictionary>(base::objectOf(item)));
    specifiers->addObject(made);
  }
  EXPECT_EQ(domainsOf(specifiers), (std::vector<std::string>{"org.example", "org.other"}));
}

}  // namespace
