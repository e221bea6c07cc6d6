// Reads and writes whole files, and runs shell commands. The functions throw std::runtime_error on failure.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace mutation {

std::string readFile(const std::filesystem::path& path);
// Writes the text, and creates the folders of the path. Does not modify a file that already contains this text.
void writeFile(const std::filesystem::path& path, const std::string& text);

struct CommandResult {
  int status = 0;
  std::string output;  // standard output and standard error
};
CommandResult runCommand(const std::string& command);

// Calls the function for 0 to count - 1, on one thread for each processor.
void inParallel(std::size_t count, const std::function<void(std::size_t)>& function);

}  // namespace mutation
