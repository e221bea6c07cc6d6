// The executable of the settings pane: its file, and its code in an emulated process of the Settings application.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>

#include "tests/device/allowed_symbols.hpp"
#include "tests/device/built_files.hpp"
#include "tests/device/code_signature.hpp"
#include "tests/device/emulator/image.hpp"
#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/runtime_functions.hpp"
#include "tests/device/fixups.hpp"

namespace {

using device::Address;
using device::MachFile;
using device::Message;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const MachFile& executableFile() {
  static const MachFile file = MachFile::read(device::builtPane() / "BrimPreferences");
  return file;
}

TEST(PaneFile, IsABundleForArm64AndSystemVersion11_2) {
  constexpr std::uint32_t bundle = 8;
  EXPECT_EQ(executableFile().processor, 0x0100000cU);
  EXPECT_EQ(executableFile().fileType, bundle);
  EXPECT_EQ(executableFile().minimumSystem, device::version(11, 2));
}

// The Settings application has loaded its own framework before. Another process must be able to load the file as well.
TEST(PaneFile, LinksOnlyTheRuntimeAndTheCLibraries) {
  std::vector<std::string> linked;
  for (const device::LinkedLibrary& library : executableFile().libraries) linked.push_back(library.path);
  EXPECT_THAT(linked, UnorderedElementsAre("/usr/lib/libSystem.B.dylib", "/usr/lib/libobjc.A.dylib"));
}

TEST(PaneFile, ImportsOnlySymbolsThatTheLibraryMayImport) {
  std::set<std::string> allowed;
  for (const device::AllowedSymbol& each : device::allowedSymbols()) allowed.insert(each.symbol);
  const std::vector<device::Bind> imported = device::binds(executableFile());
  EXPECT_GT(imported.size(), 5U);
  for (const device::Bind& bind : imported) EXPECT_TRUE(allowed.contains(bind.symbol)) << bind.symbol;
}

TEST(PaneFile, ExportsNothing) {
  EXPECT_THAT(device::exports(executableFile()), IsEmpty());
  EXPECT_EQ(executableFile().linkerInformation.weakBinds.size, 0U);
}

TEST(PaneFile, HasOneInitializer) {
  const auto initializers = executableFile().sectionsOfType(device::SectionType::Initializers);
  ASSERT_EQ(initializers.size(), 1U);
  EXPECT_EQ(initializers.front().size, sizeof(Address));
}

TEST(PaneFile, IsSigned) {
  const device::CodeSignature signature = device::codeSignature(executableFile());
  EXPECT_GT(signature.writtenDigests.size(), 3U);
  EXPECT_EQ(signature.writtenDigests, signature.computedDigests);
}

enum class SettingsFramework { Present, WithAnotherLayout, Absent };

// A process with the classes that the pane uses. They record the calls.
class SettingsApplication {
 public:
  explicit SettingsApplication(SettingsFramework framework) : runtime(processor), imports(processor) {
    supplyRuntimeFunctions(imports, runtime, changes);
    device::defineStrings(runtime);
    device::defineCollections(runtime, platform);
    device::defineFoundation(runtime, platform);
    defineNumbers();
    defineBundlesAndNotifications();
    if (framework != SettingsFramework::Absent) definePages(framework);
    executable.emplace(processor, executableFile(), [this](const std::string& symbol, const std::string& library) {
      return imports.resolve(symbol, library);
    });
    executable->runInitializers();
  }

  Address number(const char* type, double value) {
    const Address made = runtime.make("NSNumber");
    runtime.object(made).value = value;
    numberTypes[made] = type;
    return made;
  }
  double valueOf(Address object) { return std::any_cast<double>(runtime.object(object).value); }
  Address variable(Address object, const std::string& name) {
    return processor.load<Address>(object + runtime.classOf(object).findVariable(name)->offset);
  }

  device::Processor processor;
  device::ObjectiveC runtime;
  device::Imports imports;
  device::Platform platform;
  std::vector<device::ChangedMethod> changes;
  std::vector<std::string> loadedPages;
  std::vector<Address> storedValues;
  std::vector<std::string> postedNotifications;
  std::optional<device::Image> executable;

 private:
  void defineNumbers() {
    runtime.addMethod("NSNumber", "objCType", "*@:", [this](const Message& message) {
      message.answer(processor.allocateText(numberTypes.at(message.self)));
    });
    runtime.addMethod("NSNumber", "doubleValue",
                      "d@:", [this](const Message& message) { message.answerNumber(valueOf(message.self)); });
    runtime.addClassMethod("NSNumber", "numberWithInteger:", "@@:q", [this](const Message& message) {
      message.answer(number("q", static_cast<double>(static_cast<std::int64_t>(message.argument(0)))));
    });
  }

  void defineBundlesAndNotifications() {
    runtime.addClassMethod("NSBundle", "bundleWithIdentifier:", "@@:@", [](const Message& message) {
      message.answer(device::makeString(message.runtime, message.text(0), "NSBundle"));
    });
    runtime.addMethod("NSDistributedNotificationCenter", "postNotificationName:object:userInfo:", "v@:@@@",
                      [this](const Message& message) { postedNotifications.push_back(message.text(0)); });
  }

  void definePages(SettingsFramework framework) {
    device::ClassRecord& page = runtime.define("PSListController");
    if (framework == SettingsFramework::Present) {
      page.variables["_specifiers"] = {processor.allocate(1), page.instanceSize};
      page.instanceSize += sizeof(Address);
    }
    runtime.addMethod("PSListController", "loadSpecifiersFromPlistName:target:", "@@:@@",
                      [this](const Message& message) {
                        loadedPages.push_back(message.text(0));
                        message.answer(message.runtime.autorelease(message.runtime.make("NSArray")));
                      });
    runtime.addMethod("PSListController", "setPreferenceValue:specifier:", "v@:@@",
                      [this](const Message& message) { storedValues.push_back(message.argument(0)); });
  }

  std::map<Address, std::string> numberTypes;
};

TEST(PhonePane, RegistersItsClassAndDoesNothingElse) {
  SettingsApplication application(SettingsFramework::Present);
  std::vector<std::string> added;
  for (const device::ChangedMethod& method : application.changes) {
    EXPECT_EQ(method.className, "BrimListController");
    EXPECT_EQ(method.kind, "add");
    added.push_back(method.selector + " " + method.encoding);
  }
  EXPECT_THAT(added, UnorderedElementsAre("specifiers @@:", "bundle @@:", "setPreferenceValue:specifier: v@:@@",
                                          "showTestBanner v@:"));
  EXPECT_TRUE(application.runtime.find("BrimListController")->registered);
  EXPECT_FALSE(application.imports.called().contains("objc_msgSend"));
}

// The process can load two copies of the bundle.
TEST(PhonePane, RegistersItsClassOnce) {
  SettingsApplication application(SettingsFramework::Present);
  const std::size_t changes = application.changes.size();
  application.executable->runInitializers();
  EXPECT_EQ(application.changes.size(), changes);
}

TEST(PhonePane, RegistersNothingWithoutTheSettingsFramework) {
  for (const auto framework : {SettingsFramework::Absent, SettingsFramework::WithAnotherLayout}) {
    SettingsApplication application(framework);
    EXPECT_THAT(application.changes, IsEmpty());
    EXPECT_EQ(application.runtime.find("BrimListController"), nullptr);
  }
}

TEST(PhonePane, LoadsItsPageOnceAndRetainsTheSpecifiers) {
  SettingsApplication application(SettingsFramework::Present);
  const Address page = application.runtime.make("BrimListController");
  application.runtime.openPool();
  const Address specifiers = application.runtime.send(page, "specifiers");
  application.runtime.drainPool();
  EXPECT_EQ(application.runtime.send(page, "specifiers"), specifiers);
  EXPECT_EQ(application.variable(page, "_specifiers"), specifiers);
  EXPECT_EQ(application.runtime.object(specifiers).retainCount, 1U);
  EXPECT_THAT(application.loadedPages, ElementsAre("Root"));
}

TEST(PhonePane, FindsItsBundleByTheIdentifier) {
  SettingsApplication application(SettingsFramework::Present);
  const Address page = application.runtime.make("BrimListController");
  const Address bundle = application.runtime.send(page, "bundle");
  EXPECT_EQ(device::textOf(application.runtime, bundle), "com.marrowgate.brim.preferences");
}

TEST(PhonePane, StoresIntegersInsteadOfFractions) {
  SettingsApplication application(SettingsFramework::Present);
  const Address page = application.runtime.make("BrimListController");
  for (const auto& [type, given, expected] :
       {std::tuple("f", 21.5, 22.0), {"d", 21.4, 21.0}, {"f", 0.2, 0.0}, {"d", 60.0, 60.0}}) {
    application.runtime.send(page, "setPreferenceValue:specifier:", {application.number(type, given), 0});
    EXPECT_EQ(application.valueOf(application.storedValues.back()), expected) << type << " " << given;
  }
}

TEST(PhonePane, StoresOtherValuesUnchanged) {
  SettingsApplication application(SettingsFramework::Present);
  const Address page = application.runtime.make("BrimListController");
  const Address text = device::makeString(application.runtime, "text");
  for (const Address value : {application.number("c", 1), application.number("q", 3), text, Address{0}}) {
    application.runtime.send(page, "setPreferenceValue:specifier:", {value, 0});
    EXPECT_EQ(application.storedValues.back(), value);
  }
}

TEST(PhonePane, ButtonPostsTheRequestThatBrimObserves) {
  SettingsApplication application(SettingsFramework::Present);
  application.runtime.send(application.runtime.make("BrimListController"), "showTestBanner");
  EXPECT_THAT(application.postedNotifications, ElementsAre("com.lumetra.brim.receivedbannertest"));
}

}  // namespace
