// Runs one workload a number of times: bench_workload NAME ROUNDS. The script `instructions` counts the instructions of
// two runs with different numbers of rounds. The difference between the counts excludes the start of the phone and the
// first use of fonts and pictures.
#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "library/photos/folder_finder.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_dictionary.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/display_link.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace {

namespace fs = std::filesystem;

constexpr double fixedTime = 1'700'000'000;
constexpr std::size_t containers = 500;
constexpr std::size_t pictures = 1000;

struct Phone {
  fs::path root;
  runner::Session& session;
};

using Workload = void (*)(Phone&, std::size_t rounds);

void wait(Phone& phone, double seconds) { phone.session.run({{"do", "wait"}, {"seconds", seconds}}); }

void present(Phone& phone, std::size_t number) {
  phone.session.run({{"do", "present"},
                     {"section", "com.apple.MobileSMS"},
                     {"title", "Anna Weber"},
                     {"message", "Message number " + std::to_string(number) + ": are we still on for lunch today?"}});
}

// Presents a banner and dismisses it after 1.2 seconds. Waits until its controller is released, and paints each frame
// in which the screen differs, as a window with one pixel per point does.
void runBannerLife(Phone& phone, std::size_t rounds) {
  uikit::ScreenPicture picture;
  const uikit::DisplayLink link([&picture] { picture.update(1); });
  for (std::size_t round = 0; round < rounds; ++round) {
    present(phone, round);
    wait(phone, 1.2);
    phone.session.run({{"do", "dismiss"}, {"controller", round + 1}});
    wait(phone, 2.8);
    phone.session.run({{"do", "log"}});
  }
}

// Presents banners with the same identifier in sequence and paints them as runBannerLife() does.
void runReplacements(Phone& phone, std::size_t rounds) {
  uikit::ScreenPicture picture;
  const uikit::DisplayLink link([&picture] { picture.update(1); });
  for (std::size_t round = 0; round < rounds; ++round) {
    phone.session.run({{"do", "present"},
                       {"section", "com.apple.MobileSMS"},
                       {"identifier", "same"},
                       {"title", "Anna Weber"},
                       {"message", "Message number " + std::to_string(round)}});
    wait(phone, 0.1);
    phone.session.run({{"do", "log"}});
  }
}

enum class Painting { None, Changes, Complete };

void paint(Painting painting) {
  const double scale = uikit::environment().device.scale;
  if (painting == Painting::Changes) uikit::renderScreen(scale);
  if (painting == Painting::Complete) uikit::paintScreen(scale);
}

// Moves the finger of a drag in each round.
template <Painting painting>
void runDrag(Phone& phone, std::size_t rounds) {
  present(phone, 0);
  wait(phone, 1);
  phone.session.run({{"do", "drag"}, {"by", {0, -12}}, {"steps", 1}, {"end", "hold"}});
  paint(Painting::Changes);
  for (std::size_t round = 0; round < rounds; ++round) {
    phone.session.run({{"do", "drag"}, {"by", {0, round % 2 == 0 ? -4 : 4}}, {"steps", 1}, {"end", "hold"}});
    paint(painting);
  }
}

// Paints the screen with a banner.
void runPainting(Phone& phone, std::size_t rounds) {
  present(phone, 0);
  wait(phone, 1);
  for (std::size_t round = 0; round < rounds; ++round) paint(Painting::Complete);
}

// Does the same work as the benchmark `presenting`.
void runPresenting(Phone& phone, std::size_t rounds) {
  for (std::size_t round = 0; round < rounds; ++round) {
    present(phone, round);
    wait(phone, 1);
    paint(Painting::Changes);
    wait(phone, 6);
    phone.session.run({{"do", "log"}});
  }
}

// Presents a notification in each round while the clock stands still, and then withdraws all of them.
void runBurst(Phone& phone, std::size_t rounds) {
  for (std::size_t round = 0; round < rounds; ++round) present(phone, round);
  phone.session.run({{"do", "withdraw"}});
}

// Writes the metadata in the binary format that phones use.
void writePropertyList(const fs::path& path, const std::string& identifier) {
  const objc::AutoreleasePool pool;
  fs::create_directories(path.parent_path());
  auto* const list = NSMutableDictionary::dictionaryWithCapacity(1);
  list->setObject(NSString::stringWithUTF8String(identifier.c_str()), "MCMMetadataIdentifier"_ns);
  constexpr NSUInteger binaryFormat = 200;
  const NSData* const metadata = objc::send<NSData*, "dataFromPropertyList:format:errorDescription:">(
      NSPropertyListSerialization::classObject(), static_cast<NSObject*>(list), binaryFormat,
      static_cast<void*>(nullptr));
  std::ofstream(path, std::ios::binary)
      .write(static_cast<const char*>(metadata->bytes()), static_cast<std::streamsize>(metadata->length()));
}

constexpr const char* metadataName = ".com.apple.mobile_container_manager.metadata.plist";

// Searches for a container that does not exist among 500 containers.
void runContainerSearch(Phone& phone, std::size_t rounds) {
  const fs::path folder = phone.root / "var/mobile/Containers/Shared/AppGroup";
  for (std::size_t index = 0; index < containers; ++index)
    writePropertyList(folder / ("C-" + std::to_string(index)) / metadataName, "group.org." + std::to_string(index));
  for (std::size_t round = 0; round < rounds; ++round) {
    const objc::AutoreleasePool pool;
    FolderFinder::findSharedFolder("group.org.example.nobody"_ns);
  }
}

// Presents a notification whose sender has 1000 picture files.
void runMatchingPictures(Phone& phone, std::size_t rounds) {
  const fs::path folder = phone.root / "var/mobile/Containers/Shared/AppGroup/C-1";
  writePropertyList(folder / metadataName, "group.net.whatsapp.WhatsApp.shared");
  const fs::path profile = folder / "Media/Profile";
  fs::create_directories(profile);
  const fs::path picture = phone.root / "picture.png";
  phone.session.run({{"do", "screenshot"}, {"path", picture.string()}, {"scale", 0.25}});
  for (std::size_t index = 0; index < pictures; ++index)
    fs::copy_file(picture, profile / ("491701234567-" + std::to_string(index) + ".png"));
  for (std::size_t round = 0; round < rounds; ++round) {
    phone.session.run({{"do", "present"},
                       {"section", "net.whatsapp.WhatsApp"},
                       {"title", "Anna"},
                       {"thread", "491701234567@s.whatsapp.net"}});
    wait(phone, 7);
  }
}

struct NamedWorkload {
  std::string_view name;
  process::LibraryUse library;
  Workload run;
};

constexpr NamedWorkload workloads[] = {
    {"life", process::LibraryUse::Loaded, &runBannerLife},
    {"life-without-brim", process::LibraryUse::Absent, &runBannerLife},
    {"replacement", process::LibraryUse::Loaded, &runReplacements},
    {"drag", process::LibraryUse::Loaded, &runDrag<Painting::Changes>},
    {"drag-without-painting", process::LibraryUse::Loaded, &runDrag<Painting::None>},
    {"paint", process::LibraryUse::Loaded, &runPainting},
    {"presenting", process::LibraryUse::Loaded, &runPresenting},
    {"presenting-without-brim", process::LibraryUse::Absent, &runPresenting},
    {"burst", process::LibraryUse::Loaded, &runBurst},
    {"containers", process::LibraryUse::Loaded, &runContainerSearch},
    {"pictures", process::LibraryUse::Loaded, &runMatchingPictures},
};

int reportUsage() {
  std::fputs("usage: bench_workload NAME ROUNDS; the workloads are", stderr);
  for (const NamedWorkload& workload : workloads) std::fprintf(stderr, " %s", workload.name.data());
  std::fputs("\n", stderr);
  return 2;
}

void runWorkload(const NamedWorkload& workload, std::size_t rounds) {
  std::string pattern = (fs::temp_directory_path() / "brim-bench-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  {
    runner::Options options;
    options.root = folder / "root";
    options.device = "iphone-8";
    options.time = fixedTime;
    options.library = workload.library;
    runner::Session session(options);
    Phone phone{options.root, session};
    workload.run(phone, rounds);
  }
  fs::remove_all(folder);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return reportUsage();
  const std::string_view name = arguments[1];
  for (const NamedWorkload& workload : workloads) {
    if (workload.name != name) continue;
    runWorkload(workload, std::strtoul(arguments[2], nullptr, 10));
    return 0;
  }
  return reportUsage();
}
