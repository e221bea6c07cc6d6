// usage: phone_report LIBRARY FOLDER
//
// Summarizes what the phone's library did in the processes of the tests. LIBRARY is the library with the names of its
// functions. FOLDER contains the reports of the processes (device/emulation/report.hpp) and, in files named *.log, the
// code that the emulator translated. The emulator translates code just before it executes the code. Fails if a hooked
// or added method, a photo provider or a method of the settings pane was never called.
#include <cxxabi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "device/emulation/library_address.hpp"
#include "device/mach_o/mach_file.hpp"
#include "tests/hook_rows.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t instructionSize = 4;

constexpr const char* paneMethods[] = {"specifiers", "bundle", "setPreferenceValue:specifier:", "showTestBanner"};

struct Function {
  std::string name;
  std::uint64_t instructions = 0;
  std::uint64_t executed = 0;
};

struct Reports {
  std::set<std::string> called;
  std::set<std::string> notExtended;
  std::size_t processes = 0;
  // Addresses in the library. Empty if the emulator wrote no logs.
  std::set<std::uint64_t> executed;
};

// Replaces each array of characters, as the demangler prints it, by its text.
std::string withTexts(const std::string& name) {
  static const std::regex array(R"(objc::FixedString<\d+ul>\{char \[\d+\]\{([^}]*)\}\})");
  static const std::regex character(R"(\(char\)(\d+))");
  std::string result;
  auto rest = name.cbegin();
  for (std::sregex_iterator match(name.begin(), name.end(), array), end; match != end; ++match) {
    result.append(rest, (*match)[0].first).append("\"");
    const std::string numbers = (*match)[1];
    for (std::sregex_iterator each(numbers.begin(), numbers.end(), character); each != end; ++each)
      if (const int code = std::stoi((*each)[1]); code != 0) result.push_back(static_cast<char>(code));
    result.append("\"");
    rest = (*match)[0].second;
  }
  return result.append(rest, name.cend());
}

std::string readableName(const std::string& symbol) {
  // The phone's C compiler adds an underscore.
  int status = 0;
  char* const readable = abi::__cxa_demangle(symbol.c_str() + 1, nullptr, nullptr, &status);
  std::string name = status == 0 ? withTexts(readable) : symbol;
  std::free(readable);
  return name;
}

// A line of an executed instruction begins with its address: "0x6000016074:  d10083ff  sub ...".
void readLog(const fs::path& path, Reports& reports) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("0x")) continue;
    const std::uint64_t address = std::strtoull(line.c_str(), nullptr, 16);
    reports.executed.insert(address - emulation::loadAddress);
  }
}

void readReport(const fs::path& path, Reports& reports) {
  constexpr std::string_view called = "called ";
  constexpr std::string_view notExtended = "not extended: ";
  std::ifstream file(path);
  ++reports.processes;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(called)) reports.called.insert(line.substr(called.size()));
    if (line.starts_with(notExtended)) reports.notExtended.insert(line.substr(notExtended.size()));
  }
}

Reports readReports(const fs::path& folder) {
  Reports reports;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".log") {
      readLog(entry.path(), reports);
    } else {
      readReport(entry.path(), reports);
    }
  }
  return reports;
}

std::set<std::string> photoProviders(const device::MachFile& library) {
  static const std::regex name("Brim[A-Za-z]+ContactPhotoProvider");
  const std::string content(library.bytes.begin(), library.bytes.end());
  std::set<std::string> found;
  for (std::sregex_iterator match(content.begin(), content.end(), name), end; match != end; ++match)
    found.insert(match->str());
  return found;
}

std::vector<std::string> neverCalled(const device::MachFile& library, const Reports& reports) {
  std::vector<std::string> missing;
  const auto require = [&](const std::string& method) {
    if (!reports.called.contains("-" + method) && !reports.called.contains("+" + method)) missing.push_back(method);
  };
  for (const test::HookRow& row : test::hookRows) require("[" + std::string(row.className) + " " + row.selector + "]");
  for (const std::string& provider : photoProviders(library))
    require("[" + provider + " contactPhotoForNotification:withHeader:withBody:forView:]");
  for (const char* method : paneMethods) require(std::string("[BrimListController ") + method + "]");
  return missing;
}

// The functions of the library's code, by address. A function ends where the next one begins.
std::vector<Function> functions(const device::MachFile& library, const std::set<std::uint64_t>& executed) {
  std::vector<Function> found;
  for (const device::Segment& segment : library.segments) {
    for (const device::Section& section : segment.sections) {
      if (section.name != "__text") continue;
      for (std::uint64_t address = section.address; address < section.address + section.size;
           address += instructionSize) {
        const auto symbol = library.symbols.find(address);
        if (symbol != library.symbols.end() || found.empty())
          found.push_back({symbol == library.symbols.end() ? "" : readableName(symbol->second)});
        ++found.back().instructions;
        if (executed.contains(address)) ++found.back().executed;
      }
    }
  }
  return found;
}

void printCoverage(const std::vector<Function>& all) {
  std::uint64_t instructions = 0;
  std::uint64_t executed = 0;
  for (const Function& function : all) {
    instructions += function.instructions;
    executed += function.executed;
  }
  std::printf("%llu of %llu instructions were executed: %.1f %%\n", static_cast<unsigned long long>(executed),
              static_cast<unsigned long long>(instructions),
              100 * static_cast<double>(executed) / static_cast<double>(instructions));
  for (const Function& function : all) {
    if (function.executed > 0) continue;
    std::printf("not executed: %s, %llu instructions\n", function.name.c_str(),
                static_cast<unsigned long long>(function.instructions));
  }
  std::vector<Function> partly;
  std::copy_if(all.begin(), all.end(), std::back_inserter(partly), [](const Function& function) {
    return function.executed > 0 && function.executed < function.instructions;
  });
  std::sort(partly.begin(), partly.end(), [](const Function& left, const Function& right) {
    return left.instructions - left.executed > right.instructions - right.executed;
  });
  for (const Function& function : partly) {
    std::printf("partly executed: %s, %llu of %llu instructions\n", function.name.c_str(),
                static_cast<unsigned long long>(function.executed),
                static_cast<unsigned long long>(function.instructions));
  }
}

int summarize(const fs::path& libraryPath, const fs::path& folder) {
  const device::MachFile library = device::MachFile::read(libraryPath);
  const Reports reports = readReports(folder);
  const std::vector<std::string> missing = neverCalled(library, reports);
  std::printf("%zu processes called %zu methods of the library and of the settings pane\n", reports.processes,
              reports.called.size());
  for (const std::string& method : missing) std::printf("never called: %s\n", method.c_str());
  for (const std::string& value : reports.notExtended) std::printf("not extended: %s\n", value.c_str());
  if (!reports.executed.empty()) printCoverage(functions(library, reports.executed));
  return missing.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count == 3) return summarize(arguments[1], arguments[2]);
    std::fprintf(stderr, "usage: phone_report LIBRARY FOLDER\n");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "phone_report: %s\n", error.what());
  }
  return 2;
}
