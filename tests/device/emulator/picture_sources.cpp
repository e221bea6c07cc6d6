#include "tests/device/emulator/picture_sources.hpp"

#include <algorithm>

#include "tests/device/emulator/c_library.hpp"
#include "tests/device/emulator/platform_classes.hpp"

namespace device {

namespace {

// Result codes of SQLite, and the handles of the emulated functions.
constexpr std::uint64_t success = 0;
constexpr std::uint64_t rowAvailable = 100;
constexpr std::uint64_t done = 101;
constexpr Address database = 0x2000'0001;
constexpr Address statement = 0x2000'0002;

// The error results of system calls: -1 as a 32-bit and as a 64-bit number.
constexpr std::uint64_t fileNumber = 3;
constexpr std::uint64_t noFile = 0xffff'ffff;
constexpr std::uint64_t failure = ~std::uint64_t{0};
constexpr std::uint64_t fromTheEnd = 2;

// Returns the bytes of a data object as an address in emulated memory.
struct Bytes {
  Address address;
  std::size_t count;
};

}  // namespace

PictureSources::PictureSources(Imports& imports, ObjectiveC& objectiveC, Processor& runsOn)
    : runtime(objectiveC), processor(runsOn) {
  supplyFiles(imports);
  supplyDatabases(imports);
  supplyContacts(imports);
  defineWeb();
  defineFiles();
  definePropertyLists();
}

void PictureSources::answerRequest(std::optional<Address> data) {
  constexpr Address invokeOffset = 16;
  const Address completion = requests.back().completion;
  const Address error = data ? 0 : runtime.make("NSError");
  processor.call(processor.load<Address>(completion + invokeOffset), {completion, 0, data.value_or(0), error});
}

void PictureSources::supplyFiles(Imports& imports) {
  imports.add("open", [this](HostCall& call) {
    const std::string path = call.processor.text(call.processor.x(0));
    fileOpenings.push_back({path, call.processor.x(1)});
    const bool isThere = file && file->path == path;
    openFiles += isThere ? 1 : 0;
    call.processor.setX(0, isThere ? fileNumber : noFile);
  });
  imports.add("lseek", [this](HostCall& call) {
    const bool asksForSize =
        call.processor.x(0) == fileNumber && call.processor.x(1) == 0 && call.processor.x(2) == fromTheEnd;
    call.processor.setX(0, asksForSize ? file->text.size() : failure);
  });
  imports.add("pread", [this](HostCall& call) {
    const std::size_t count = std::min<std::size_t>(call.processor.x(2), file->text.size());
    const bool readsFromBegin = call.processor.x(0) == fileNumber && call.processor.x(3) == 0;
    call.processor.write(call.processor.x(1), {reinterpret_cast<const std::uint8_t*>(file->text.data()), count});
    call.processor.setX(0, readsFromBegin ? count : failure);
  });
  imports.add("close", [this](HostCall& call) {
    if (call.processor.x(0) == fileNumber) --openFiles;
    call.processor.setX(0, success);
  });
}

void PictureSources::supplyDatabases(Imports& imports) {
  imports.add("sqlite3_open_v2", [this](HostCall& call) {
    openings.push_back({call.processor.text(call.processor.x(0)), call.processor.x(2)});
    call.processor.store(call.processor.x(1), database);
    ++openDatabases;
    call.processor.setX(0, success);
  });
  imports.add("sqlite3_close", [this](HostCall& call) {
    if (call.processor.x(0) == database) --openDatabases;
    call.processor.setX(0, success);
  });
  imports.add("sqlite3_prepare_v2", [this](HostCall& call) {
    queries.push_back(call.processor.text(call.processor.x(1)));
    call.processor.store(call.processor.x(3), statement);
    ++openStatements;
    call.processor.setX(0, success);
  });
  imports.add("sqlite3_step", [this](HostCall& call) { call.processor.setX(0, row ? rowAvailable : done); });
  imports.add("sqlite3_column_text",
              [this](HostCall& call) { call.processor.setX(0, call.processor.allocateText(row.value())); });
  imports.add("sqlite3_finalize", [this](HostCall& call) {
    --openStatements;
    call.processor.setX(0, success);
  });
}

void PictureSources::supplyContacts(Imports& imports) {
  for (const char* name :
       {"CNContactEmailAddressesKey", "CNContactPhoneNumbersKey", "CNContactGivenNameKey", "CNContactImageDataKey"}) {
    const Address variable = processor.allocate(sizeof(Address));
    processor.store(variable, makeString(runtime, name));
    imports.addVariable(name, variable);
  }
}

// A URL is represented by its string. A string with a space is not a URL.
void PictureSources::defineWeb() {
  runtime.define("NSError");
  for (const char* name : {"NSURL", "NSURLRequest"}) runtime.define(name, "NSString");
  runtime.addClassMethod("NSURL", "URLWithString:", "@@:@", [](const Message& message) {
    const std::string text = message.text(0);
    message.answer(text.find(' ') == std::string::npos ? makeString(message.runtime, text, "NSURL") : 0);
  });
  runtime.addMethod("NSURL", "scheme", "@@:", [](const Message& message) {
    const std::string text = textOf(message.runtime, message.self);
    message.answer(makeString(message.runtime, text.substr(0, text.find(':'))));
  });
  runtime.addMethod("NSURL", "host", "@@:", [](const Message& message) {
    const std::string text = textOf(message.runtime, message.self);
    const std::size_t begin = text.find("//");
    message.answer(begin == std::string::npos
                       ? 0
                       : makeString(message.runtime, text.substr(begin + 2, text.find('/', begin + 2) - begin - 2)));
  });
  runtime.addClassMethod("NSURLRequest", "requestWithURL:", "@@:@", [](const Message& message) {
    message.answer(makeString(message.runtime, message.text(0), "NSURLRequest"));
  });
  runtime.define("NSOperationQueue");
  runtime.addClassMethod("NSOperationQueue", "mainQueue", "@@:", [](const Message& message) {
    message.answer(message.runtime.autorelease(message.runtime.make("NSOperationQueue")));
  });
  runtime.define("NSURLConnection");
  runtime.addClassMethod("NSURLConnection", "sendAsynchronousRequest:queue:completionHandler:", "v@:@@@?",
                         [this](const Message& message) {
                           requests.push_back({message.text(0), message.argument(2)});
                           // Add a reference that is never released, as a connection that stores the block would.
                           constexpr std::uint32_t oneReference = 2;
                           constexpr Address flagsOffset = 8;
                           const Address flags = message.argument(2) + flagsOffset;
                           processor.store(flags, processor.load<std::uint32_t>(flags) + oneReference);
                         });
}

// Only Slack's container and its database exist.
void PictureSources::defineFiles() {
  runtime.define("NSFileManager");
  runtime.define("NSFileHandle");
  runtime.addClassMethod("NSFileManager", "defaultManager", "@@:", [](const Message& message) {
    message.answer(message.runtime.autorelease(message.runtime.make("NSFileManager")));
  });
  runtime.addMethod("NSFileManager", "attributesOfItemAtPath:error:", "@@:@^@",
                    [](const Message& message) { message.answer(0); });
  runtime.addMethod("NSFileManager", "contentsOfDirectoryAtPath:error:", "@@:@^@",
                    [](const Message& message) { message.answer(0); });
}

void PictureSources::definePropertyLists() {
  runtime.define("NSMutableData", "NSData");
  runtime.addClassMethod("NSMutableData", "dataWithLength:", "@@:Q", [](const Message& message) {
    const auto count = static_cast<std::size_t>(message.argument(0));
    const Address data = message.runtime.autorelease(message.runtime.make("NSMutableData"));
    message.runtime.object(data).value = Bytes{message.processor.allocate(count), count};
    message.answer(data);
  });
  runtime.addMethod("NSMutableData", "mutableBytes", "^v@:", [](const Message& message) {
    message.answer(std::any_cast<Bytes>(message.runtime.object(message.self).value).address);
  });
  runtime.define("NSPropertyListSerialization");
  runtime.addClassMethod(
      "NSPropertyListSerialization", "propertyListWithData:options:format:error:", "@@:@Q^Q^@",
      [](const Message& message) {
        const auto data = std::any_cast<Bytes>(message.runtime.object(message.argument(0)).value);
        const std::vector<std::uint8_t> bytes = message.processor.bytes(data.address, data.count);
        const std::string text(bytes.begin(), bytes.end());
        const std::size_t sign = text.find('=');
        const Address made = message.runtime.sendClass("NSMutableDictionary", "dictionaryWithCapacity:", {1});
        message.runtime.send(
            made, "setObject:forKey:",
            {makeString(message.runtime, text.substr(sign + 1)), makeString(message.runtime, text.substr(0, sign))});
        message.answer(made);
      });
}

}  // namespace device
