#include "mutation/json_lines.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace mutation {

void appendLine(const std::filesystem::path& file, const nlohmann::json& line) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  const std::string text = line.dump() + "\n";
  // The line is written in one call, because several processes append to the file.
  const bool isWritten = write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  close(descriptor);
  if (!isWritten) throw std::runtime_error(file.string() + " cannot be written");
}

std::vector<nlohmann::json> LineReader::newLines() {
  std::vector<nlohmann::json> lines;
  std::ifstream stream(file_);
  stream.seekg(position_);
  for (std::string line; std::getline(stream, line) && !stream.eof();) {
    position_ += static_cast<std::streamoff>(line.size()) + 1;
    if (nlohmann::json json = nlohmann::json::parse(line, nullptr, false); !json.is_discarded())
      lines.push_back(std::move(json));
  }
  return lines;
}

}  // namespace mutation
