// Tests of parsing property lists from untrusted input: damaged, truncated, cyclic and oversized data.
#include <gtest/gtest.h>

#include <string>

#include "platform/ns_dictionary.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

class PropertyListParsing : public RuntimeTest {};

NSObject* parsed(const std::string& bytes) {
  return NSPropertyListSerialization::propertyList(NSData::dataWithBytes(bytes.data(), bytes.size()));
}

// A binary property list of these objects. The first object is the root; references and offsets have one byte.
std::string binary(const std::vector<std::string>& objects) {
  std::string list = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += static_cast<char>(list.size());
    list += object;
  }
  const std::size_t table = list.size();
  list += offsets;
  list += std::string(6, '\0') + "\x01\x01";
  list += std::string(7, '\0') + static_cast<char>(objects.size());
  list += std::string(8, '\0');
  list += std::string(7, '\0') + static_cast<char>(table);
  return list;
}

const std::string key = std::string("\x51") + "a";
const std::string dictionaryOfKeyAndValue("\xd1\x01\x02", 3);

TEST_F(PropertyListParsing, ReadsEveryFormat) {
  for (const std::string& list :
       {std::string("{ a = b; }"),
        binary({dictionaryOfKeyAndValue, key,
                "\x51"
                "b"}),
        std::string(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>a</key><string>b</string>)"
                    "</dict></plist>")}) {
    const auto* const read = objc::as<NSDictionary>(parsed(list));
    ASSERT_NE(read, nullptr) << list;
    EXPECT_TRUE(objc::as<NSString>(read->objectForKey("a"_ns))->isEqualToString("b"_ns)) << list;
  }
}

TEST_F(PropertyListParsing, TruncatedListNeverCrashes) {
  for (const std::string& list :
       {std::string("{ a = (b, \"c\"); }"), binary({dictionaryOfKeyAndValue, key, std::string("\xa1\x01", 2)}),
        std::string(
            R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>a</key><integer>1</integer>)"
            "</dict></plist>")})
    for (std::size_t length = 0; length < list.size(); ++length) parsed(list.substr(0, length));
}

TEST_F(PropertyListParsing, DamagedBinaryListNeverCrashes) {
  const std::string list = binary({dictionaryOfKeyAndValue, key, std::string("\xa1\x01", 2)});
  ASSERT_NE(parsed(list), nullptr);
  for (std::size_t index = 0; index < list.size(); ++index) {
    for (int value = 0; value < 256; ++value) {
      std::string damaged = list;
      damaged[index] = static_cast<char>(value);
      parsed(damaged);
    }
  }
}

TEST_F(PropertyListParsing, RejectsACyclicList) {
  EXPECT_EQ(parsed(binary({std::string("\xa1\x00", 2)})), nullptr);
  EXPECT_EQ(parsed(binary({dictionaryOfKeyAndValue, key, std::string("\xa1\x00", 2)})), nullptr);
}

TEST_F(PropertyListParsing, RejectsAListThatExpandsExponentially) {
  std::vector<std::string> objects;
  for (char next = 1; next < 60; ++next) objects.push_back(std::string("\xa2") + next + next);
  objects.push_back(key);
  EXPECT_EQ(parsed(binary(objects)), nullptr);
}

TEST_F(PropertyListParsing, RejectsNestingThatWouldOverflowTheStack) {
  EXPECT_EQ(parsed(std::string(100'000, '(')), nullptr);
}

TEST_F(PropertyListParsing, RejectsTheFormatThatOnlyGNUstepReads) {
  EXPECT_EQ(parsed(std::string("\x00\x04lbpyl", 7)), nullptr);
  EXPECT_EQ(parsed(std::string("\x01\x04lbpyl", 7)), nullptr);
  NSObject* const written = objc::send<NSObject*, "dataFromPropertyList:format:errorDescription:">(
      NSPropertyListSerialization::classObject(), static_cast<NSObject*>("text"_ns), NSUInteger{1001},
      static_cast<void*>(nullptr));
  ASSERT_NE(written, nullptr);
  EXPECT_EQ(NSPropertyListSerialization::propertyList(objc::as<NSData>(written)), nullptr);
}

TEST_F(PropertyListParsing, RejectsEmptyAndNilData) {
  EXPECT_EQ(parsed(""), nullptr);
  EXPECT_EQ(NSPropertyListSerialization::propertyList(nullptr), nullptr);
}

}  // namespace
