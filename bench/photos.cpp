#include "bench/benchmarks.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/measurement.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_request.hpp"

namespace bench {

namespace {

namespace fs = std::filesystem;

constexpr const char* metadataName = ".com.apple.mobile_container_manager.metadata.plist";
constexpr std::size_t containerCounts[] = {10, 100, 1000, 10'000};
constexpr std::size_t contactCounts[] = {100, 1000, 10'000};
// A measurement is repeated until it has processed about this number of containers or contacts, but at least minRounds
// times.
constexpr std::size_t processedItems = 20'000;
constexpr std::size_t minRounds = 5;
constexpr NSUInteger binaryFormat = 200;
constexpr std::size_t bannerRounds = 200;

std::size_t roundsFor(std::size_t count) { return std::max(processedItems / count, minRounds); }

// A phone whose root is in a temporary folder.
class Phone {
 public:
  Phone() : session_(options()) {}
  ~Phone() { fs::remove_all(folder_); }
  Phone(const Phone&) = delete;
  Phone& operator=(const Phone&) = delete;

  fs::path root() const { return folder_ / "root"; }
  runner::Session& session() { return session_; }

 private:
  runner::Options options() const {
    runner::Options chosen;
    chosen.root = root();
    return chosen;
  }

  fs::path folder_ = [] {
    std::string pattern = (fs::temp_directory_path() / "brim-bench-XXXXXX").string();
    return fs::path(mkdtemp(pattern.data()));
  }();
  runner::Session session_;
};

// The processor time that the main thread has used, in seconds.
double mainThreadTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class Work>
double medianTime(std::size_t rounds, const Work& work) {
  Figures times;
  for (std::size_t round = 0; round < rounds; ++round) {
    const double start = processorTime();
    work();
    times.push_back(processorTime() - start);
  }
  return median(times);
}

// Creates a container's metadata, in the binary format that phones use.
NSData* metadataOf(std::size_t index) {
  const std::string identifier = "group.org.example." + std::to_string(index);
  auto* const list = NSMutableDictionary::dictionaryWithCapacity(1);
  list->setObject(NSString::stringWithUTF8String(identifier.c_str()), "MCMMetadataIdentifier"_ns);
  return objc::send<NSData*, "dataFromPropertyList:format:errorDescription:">(
      NSPropertyListSerialization::classObject(), static_cast<NSObject*>(list), binaryFormat,
      static_cast<void*>(nullptr));
}

void makeContainers(const fs::path& folder, std::size_t count) {
  for (std::size_t index = 0; index < count; ++index) {
    const objc::AutoreleasePool pool;
    const fs::path container = folder / ("C-" + std::to_string(index));
    fs::create_directories(container);
    const NSData* const metadata = metadataOf(index);
    std::ofstream(container / metadataName, std::ios::binary)
        .write(static_cast<const char*>(metadata->bytes()), static_cast<std::streamsize>(metadata->length()));
  }
}

// Does only the work that every search needs: lists each folder and reads each metadata file. Returns the number of
// bytes that were read.
std::size_t readAllMetadata(const std::string& folder) {
  std::size_t total = 0;
  DIR* const containers = opendir(folder.c_str());
  while (const dirent* container = readdir(containers)) {
    if (container->d_name[0] == '.') continue;
    const std::string path = folder + "/" + container->d_name;
    DIR* const entries = opendir(path.c_str());
    while (const dirent* entry = readdir(entries)) {
      if (std::strstr(entry->d_name, metadataName) == nullptr) continue;
      const int file = open((path + "/" + entry->d_name).c_str(), O_RDONLY | O_CLOEXEC);
      char buffer[65536];
      total += static_cast<std::size_t>(read(file, buffer, sizeof buffer));
      close(file);
    }
    closedir(entries);
  }
  closedir(containers);
  return total;
}

// Returns the time per container, in seconds, of the library's search and of reading only the metadata.
Figures searchContainers(std::size_t count) {
  const Phone phone;
  const objc::AutoreleasePool pool;
  const fs::path folder = phone.root() / "var/mobile/Containers/Shared/AppGroup";
  makeContainers(folder, count);
  const auto each = static_cast<double>(count);
  const double searchTime = medianTime(roundsFor(count), [] {
    const objc::AutoreleasePool inner;
    FolderFinder::findSharedFolder("group.org.example.nobody"_ns);
  });
  volatile std::size_t total = 0;
  const double readTime = medianTime(roundsFor(count), [&] { total = total + readAllMetadata(folder.string()); });
  return {searchTime / each, readTime / each};
}

void writeAddressBook(const fs::path& path, std::size_t count) {
  fs::create_directories(path.parent_path());
  std::ofstream book(path);
  for (std::size_t index = 0; index < count; ++index)
    book << "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" << index << "\r\nN:Family;Given" << index << ";;;\r\nEMAIL:given"
         << index << "@example.org\r\nTEL:+49" << index << "\r\nEND:VCARD\r\n";
}

// Returns the time per contact, in seconds, of a search without a result.
Figures searchContacts(std::size_t count) {
  const Phone phone;
  const objc::AutoreleasePool pool;
  writeAddressBook(phone.root() / "var/mobile/Library/AddressBook/Contacts.vcf", count);
  springboard::NotificationDescription description;
  description.section = "com.apple.MobileSMS";
  description.userInfo = {{"AssistantContext", {{"msgSender", {{"displayText", "nobody"}}}}}};
  const auto request = springboard::makeRequest(description, nullptr);
  const auto search = [&] {
    const objc::AutoreleasePool inner;
    const auto provider =
        objc::adopt(objc::send<ContactPhotoProvider*, "new">(BrimMessagesContactPhotoProvider::classObject()));
    provider->contactPhoto(request, nullptr, nullptr, nullptr);
  };
  search();  // The first search reads the file; later searches use the contacts in memory.
  return {medianTime(roundsFor(count), search) / static_cast<double>(count)};
}

// Returns the median time, in seconds, that presenting a banner takes on the main thread. `address` is the address of
// the sender's picture; an empty address causes no download.
Figures present(const char* address) {
  Phone phone;
  Figures times;
  for (std::size_t round = 0; round < bannerRounds; ++round) {
    const double start = mainThreadTime();
    phone.session().run({{"do", "present"},
                         {"section", "com.burbn.instagram"},
                         {"title", "Anna Weber"},
                         {"message", "Lunch?"},
                         {"userInfo", {{"a", address}}}});
    times.push_back(mainThreadTime() - start);
    phone.session().run({{"do", "wait"}, {"seconds", 7}});
    // If the address is empty, no request is sent and this command fails. The error is ignored.
    phone.session().run({{"do", "await"}, {"for", "http"}, {"seconds", *address == 0 ? 0.01 : 5}});
    phone.session().run({{"do", "log"}});
  }
  return {median(times)};
}

}  // namespace

void measurePhotos() {
  double firstTime = 0;
  for (const std::size_t count : containerCounts) {
    const Figures each = inChildProcess([count] { return searchContainers(count); });
    const std::string containers = std::to_string(count) + " containers: ";
    report((containers + "search / reading the metadata only").c_str(), each[0] / each[1], 2);
    if (count == containerCounts[0])
      firstTime = each[0];
    else
      report((containers + "time per container / with 10").c_str(), each[0] / firstTime, 1.2);
  }
  for (const std::size_t count : contactCounts) {
    const Figures each = inChildProcess([count] { return searchContacts(count); });
    if (count == contactCounts[0])
      firstTime = each[0];
    else
      report((std::to_string(count) + " contacts: time per contact / with 100").c_str(), each[0] / firstTime, 1.2);
  }
  // No server listens on port 1.
  const Figures withDownload = inChildProcess([] { return present("http://127.0.0.1:1/photo.jpg"); });
  const Figures withoutDownload = inChildProcess([] { return present(""); });
  report("presenting with a download / without", withDownload[0] / withoutDownload[0], 1.1);
}

}  // namespace bench
