#include "mutation/library_build.hpp"

#include <algorithm>
#include <iostream>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>

#include "mutation/compiler_errors.hpp"
#include "mutation/files.hpp"
#include "mutation/switched_source.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t place = text.find(from); place != std::string::npos; place = text.find(from, place + to.size()))
    text.replace(place, from.size(), to);
  return text;
}

}  // namespace

LibraryBuild::LibraryBuild(fs::path tree, fs::path configured, fs::path output)
    : tree_(std::move(tree)), configured_(std::move(configured)), output_(std::move(output)) {
  const CommandResult listed = runCommand("ninja -C '" + configured_.string() + "' -t commands lib/brim/libBrim.so");
  if (listed.status != 0) throw std::runtime_error("ninja cannot list the commands of the build:\n" + listed.output);
  const std::string marker = " -c " + tree_.string() + "/";
  std::istringstream lines(listed.output);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t place = line.find(marker);
    if (place != std::string::npos && line.compare(place + marker.size(), 8, "library/") == 0) {
      const std::string source = line.substr(place + marker.size());
      sources_.push_back(source);
      commands_[source] = line;
    } else if (line.find(" -o lib/brim/libBrim.so ") != std::string::npos) {
      linkCommand_ = line;
    }
  }
  if (sources_.empty() || linkCommand_.empty()) throw std::runtime_error("the build has no library");
  std::ranges::sort(sources_);
}

std::vector<std::string> LibraryBuild::languageOptions(const std::string& source) const {
  std::vector<std::string> options = {"-xc++", "-fno-exceptions", "-fno-rtti"};
  std::istringstream words(replaced(commands_.at(source), "\\\"", "\""));
  for (std::string word; words >> word;) {
    if (word.starts_with("-I") || word.starts_with("-D") || word.starts_with("-std=")) options.push_back(word);
    if (word != "-isystem") continue;
    options.push_back(word);
    words >> word;
    options.push_back(word);
  }
  return options;
}

std::vector<std::string> LibraryBuild::commands() const {
  std::vector<std::string> commands = {linkCommand_};
  for (const auto& [source, command] : commands_) commands.push_back(command);
  return commands;
}

std::string LibraryBuild::object(const std::string& source) const {
  return (output_ / "objects" / (replaced(source, "/", "-") + ".o")).string();
}

// Returns the command that compiles `file` instead of `source`.
std::string LibraryBuild::compilation(const std::string& source, const std::string& file,
                                      const std::vector<std::string>& includes, const std::string& options,
                                      const std::string& target) const {
  static const std::regex outputs(R"( -(MT|MF|o) \S+| -MD| -O3| -Werror)");
  std::string command = std::regex_replace(commands_.at(source), outputs, "");
  std::string folders;
  for (const std::string& include : includes) folders += " -I" + include;
  command = replaced(command, " -I" + tree_.string() + " ", folders + " -I" + tree_.string() + " ");
  command =
      replaced(command, " -c " + tree_.string() + "/" + source, " " + options + " -w -O0 -o " + target + " " + file);
  return "cd '" + configured_.string() + "' && " + command;
}

void LibraryBuild::link(const std::map<std::string, std::string>& objects, const fs::path& library) const {
  static const std::regex inputs(R"( library/\S+\.o)");
  std::string command = std::regex_replace(linkCommand_, inputs, "");
  std::string files = " " + object("selection");
  for (const auto& [source, file] : objects) files += " " + file;
  command = replaced(command, " -o lib/brim/libBrim.so ", " -o " + library.string() + files + " ");
  const CommandResult result = runCommand("cd '" + configured_.string() + "' && " + command);
  if (result.status != 0) throw std::runtime_error("the library cannot be linked:\n" + result.output);
}

std::vector<bool> LibraryBuild::buildSwitched(const Mutants& all) {
  const std::string copies = (output_ / "switched").string() + "/";
  std::vector<bool> isContained(all.mutants.size() + all.bodies.size() + 1, true);
  isContained[0] = false;
  std::map<std::string, std::vector<NumberedMutant>> mutants;
  std::map<std::string, std::vector<NumberedBody>> bodies;
  std::set<std::string> files;
  for (std::size_t index = 0; index < all.mutants.size(); ++index) {
    if (!all.mutants[index].isInBody) isContained[index + 1] = false;
    mutants[all.mutants[index].file].push_back({static_cast<unsigned>(index) + 1, &all.mutants[index]});
    files.insert(all.mutants[index].file);
  }
  for (std::size_t index = 0; index < all.bodies.size(); ++index) {
    bodies[all.bodies[index].file].push_back(
        {static_cast<unsigned>(all.mutants.size() + index) + 1, all.bodies[index].begin});
    files.insert(all.bodies[index].file);
  }
  const auto removeMissing = [&](auto& numbered) {
    std::erase_if(numbered, [&](const auto& entry) { return !isContained[entry.number]; });
  };

  const std::string include = "-include " + tree_.string() + "/mutation/runtime/selection.hpp";
  fs::create_directories(output_ / "objects");
  const CommandResult selection = runCommand(
      compilation(sources_[0], tree_.string() + "/mutation/runtime/selection.cpp", {}, "-c", object("selection")));
  if (selection.status != 0) throw std::runtime_error(selection.output);

  std::set<std::string> pending(sources_.begin(), sources_.end());
  std::map<std::string, SwitchedSource> written;
  while (!pending.empty()) {
    bool headerChanged = false;
    for (const std::string& file : files) {
      removeMissing(mutants[file]);
      removeMissing(bodies[file]);
      SwitchedSource source = switchedSource(readFile(tree_ / file), mutants[file], bodies[file]);
      for (const unsigned number : source.omitted) isContained[number] = false;
      const auto known = written.find(file);
      headerChanged =
          headerChanged || (file.ends_with(".hpp") && known != written.end() && known->second.text != source.text);
      writeFile(copies + file, source.text);
      written[file] = std::move(source);
    }
    if (headerChanged) pending = {sources_.begin(), sources_.end()};
    const std::vector<std::string> compiled(pending.begin(), pending.end());
    std::vector<CommandResult> results(compiled.size());
    inParallel(compiled.size(), [&](std::size_t index) {
      const std::string& source = compiled[index];
      const std::string file = fs::exists(copies + source) ? copies + source : (tree_ / source).string();
      results[index] = runCommand(
          compilation(source, file, {copies}, "-c -MD -MF " + object(source) + ".d " + include, object(source)));
    });
    for (std::size_t index = 0; index < compiled.size(); ++index) {
      if (results[index].status == 0) {
        pending.erase(compiled[index]);
        continue;
      }
      const CompilerFolders folders = {configured_, output_ / "switched"};
      std::set<unsigned> numbers = erroneousNumbers(results[index].output, folders, written, Lines::Errors);
      if (numbers.empty()) numbers = erroneousNumbers(results[index].output, folders, written, Lines::All);
      if (numbers.empty())
        for (const SwitchedSource::Range& range : written[compiled[index]].ranges) numbers.insert(range.number);
      if (numbers.empty()) throw std::runtime_error(results[index].output);
      for (const unsigned number : numbers) isContained[number] = false;
    }
    std::cerr << "mutants: compiled the switched copy; " << pending.size() << " sources to compile again\n";
  }
  std::map<std::string, std::string> objects;
  for (const std::string& source : sources_) objects[source] = object(source);
  link(objects, switchedLibrary());
  return isContained;
}

LibraryBuild::Result LibraryBuild::buildWith(const Mutant& mutant, const fs::path& folder) const {
  const std::string copies = (output_ / "switched").string() + "/";
  const fs::path changed = folder / "changed";
  const fs::path unchanged = folder / "unchanged";
  fs::remove_all(changed);
  fs::remove_all(unchanged);
  const std::string text = readFile(tree_ / mutant.file);
  writeFile(changed / mutant.file, mutated(text, mutant));
  writeFile(unchanged / mutant.file, text);
  const std::string include = "-include " + tree_.string() + "/mutation/runtime/selection.hpp";
  std::map<std::string, std::string> objects;
  bool isChanged = false;
  for (const std::string& source : sources_) {
    objects[source] = object(source);
    if (source != mutant.file) {
      const std::string dependencies = readFile(object(source) + ".d");
      if (dependencies.find("/" + mutant.file) == std::string::npos) continue;
    }
    const fs::path compiled = folder / (replaced(source, "/", "-") + ".o");
    const std::string copy = fs::exists(copies + source) ? copies + source : (tree_ / source).string();
    const std::string file = source == mutant.file ? (changed / source).string() : copy;
    if (source != mutant.file) {
      const CommandResult before =
          runCommand(compilation(source, file, {unchanged.string(), copies}, "-E -P " + include, "-"));
      const CommandResult after =
          runCommand(compilation(source, file, {changed.string(), copies}, "-E -P " + include, "-"));
      if (before.output == after.output) continue;
    }
    const CommandResult result =
        runCommand(compilation(source, file, {changed.string(), copies}, "-c " + include, compiled.string()));
    if (result.status != 0) return Result::DoesNotCompile;
    // The compiler can omit the changed code, for example a row of a table that only the tests use.
    if (source != mutant.file && readFile(compiled) == readFile(object(source))) continue;
    isChanged = true;
    objects[source] = compiled.string();
  }
  if (!isChanged) return Result::ChangesNothing;
  fs::create_directories(folder / "lib/brim");
  link(objects, folder / "lib/brim/libBrim.so");
  return Result::Built;
}

void LibraryBuild::buildForCoverage(const fs::path& folder) const {
  fs::create_directories(folder / "lib/brim");
  fs::create_directories(folder / "objects");
  std::map<std::string, std::string> objects;
  for (const std::string& source : sources_)
    objects[source] = (folder / "objects" / (replaced(source, "/", "-") + ".o")).string();
  inParallel(sources_.size(), [&](std::size_t index) {
    const std::string& source = sources_[index];
    const CommandResult result = runCommand(
        compilation(source, (tree_ / source).string(), {}, "-c --coverage -fprofile-abs-path", objects[source]));
    if (result.status != 0) throw std::runtime_error(result.output);
  });
  LibraryBuild counted = *this;
  counted.linkCommand_ = replaced(linkCommand_, " -shared ", " -shared --coverage ");
  counted.link(objects, folder / "lib/brim/libBrim.so");
}

}  // namespace mutation
