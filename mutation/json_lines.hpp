// Files with one JSON value in each line, to which several processes append lines.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <vector>

namespace mutation {

// Throws std::runtime_error if the file cannot be written.
void appendLine(const std::filesystem::path& file, const nlohmann::json& line);

// Reads the lines of a file. Skips a line that is not valid JSON, because the line is incomplete if the program was
// terminated while it wrote the line.
class LineReader {
 public:
  explicit LineReader(std::filesystem::path file) : file_(std::move(file)) {}

  // Returns the complete lines that were appended since the last call. A missing file has no lines.
  std::vector<nlohmann::json> newLines();

 private:
  std::filesystem::path file_;
  std::streamoff position_ = 0;
};

}  // namespace mutation
