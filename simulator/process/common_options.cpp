#include "simulator/process/common_options.hpp"

#include <cstdlib>
#include <regex>

namespace process {

ExpectedValue parseRoot(std::filesystem::path& root, const std::string& value) {
  if (value.empty()) return "a folder";
  root = value;
  return std::nullopt;
}

ExpectedValue parseSystem(std::string& systemVersion, const std::string& value) {
  static const std::regex pattern(R"((\d{1,2})(\.\d{1,2}){0,2})");
  if (!std::regex_match(value, pattern) || std::atoi(value.c_str()) < 11)
    return "a system version of 11.0 or later, such as 11.4, 12.4 or 13.5";
  // A phone always reports a minor version, so "13" becomes "13.0".
  systemVersion = value.find('.') == std::string::npos ? value + ".0" : value;
  return std::nullopt;
}

}  // namespace process
