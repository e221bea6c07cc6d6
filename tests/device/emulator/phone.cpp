#include "tests/device/emulator/phone.hpp"

#include "tests/device/built_files.hpp"

namespace device {

namespace {

// The stripped library, with function names from the build before stripping.
const MachFile& libraryFile() {
  static const MachFile file = [] {
    MachFile finished = MachFile::read(builtLibrary());
    finished.symbols = MachFile::read(namedLibrary()).symbols;
    return finished;
  }();
  return file;
}

}  // namespace

Phone::Phone(Platform started, Process process)
    : runtime(processor), imports(processor), c(imports, runtime, processor), platform(std::move(started)) {
  supplyRuntimeFunctions(imports, runtime, changes);
  defineStrings(runtime);
  defineCollections(runtime, platform);
  defineFoundation(runtime, platform);
  pictures.emplace(imports, runtime, processor);
  defineViewToolkit(runtime, platform);
  if (process == Process::HomeScreen) defineHookedClasses(runtime, platform);
  c.symbols["MSHookMessageEx"] = imports.resolve("_MSHookMessageEx", "");
  image.emplace(processor, libraryFile(), [this](const std::string& symbol, const std::string& exportedBy) {
    return imports.resolve(symbol, exportedBy);
  });
  image->runInitializers();
}

std::vector<Phone::ReportedMethod> Phone::reportedMethods() {
  constexpr Address entrySize = 32;
  const Address count = processor.allocate(sizeof(std::uint64_t));
  const Address list = processor.call(image->exported("_brim_installed_methods"), {count});
  std::vector<ReportedMethod> methods;
  for (std::uint64_t index = 0; index < processor.load<std::uint64_t>(count); ++index) {
    const Address entry = list + index * entrySize;
    const auto textAt = [&](Address offset) { return processor.text(processor.load<Address>(entry + offset)); };
    methods.push_back({textAt(0), textAt(8), textAt(16), processor.load<std::uint8_t>(entry + 24) == 0 ? "hook" : "add",
                       processor.load<std::uint8_t>(entry + 25) != 0});
  }
  return methods;
}

std::vector<Phone::ReportedSetting> Phone::reportedSettings() {
  constexpr Address entrySize = 24;
  const Address count = processor.allocate(sizeof(std::uint64_t));
  const Address list = processor.call(image->exported("_brim_settings"), {count});
  std::vector<ReportedSetting> settings;
  for (std::uint64_t index = 0; index < processor.load<std::uint64_t>(count); ++index) {
    const Address entry = list + index * entrySize;
    settings.push_back({processor.text(processor.load<Address>(entry)),
                        processor.load<std::uint8_t>(entry + 8) == 0 ? "bool" : "integer",
                        processor.load<Address>(entry + 16)});
  }
  return settings;
}

Address Phone::variable(Address object, const std::string& name) {
  const VariableRecord* const found = runtime.classOf(object).findVariable(name);
  if (found == nullptr) throw std::runtime_error("there is no variable " + name);
  return processor.load<Address>(object + found->offset);
}

}  // namespace device
