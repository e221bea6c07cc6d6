// Tables of the reference documents, which are Markdown.
#pragma once

#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace test {

using MarkdownRow = std::vector<std::string>;

// The cells of a row of a Markdown table, without the spaces around them. An escaped "\|" does not end a
// cell.
inline MarkdownRow markdownCells(const std::string& line) {
  MarkdownRow cells;
  std::string cell;
  for (std::size_t index = 1; index < line.size(); ++index) {
    if (line[index] != '|' || line[index - 1] == '\\') {
      cell += line[index];
      continue;
    }
    const std::size_t first = cell.find_first_not_of(' ');
    cells.push_back(first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
    cell.clear();
  }
  return cells;
}

// The rows of all tables whose header line begins with this text. The headers are not included.
inline std::vector<MarkdownRow> markdownTable(const std::string& text, const std::string& header) {
  std::vector<MarkdownRow> rows;
  std::istringstream lines(text);
  bool isInside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(header)) {
      isInside = true;
    } else if (!line.starts_with("|")) {
      isInside = false;
    } else if (isInside && !line.starts_with("|--")) {
      rows.push_back(markdownCells(line));
    }
  }
  return rows;
}

// The words in backquotes that have the form of a name.
inline std::set<std::string> markdownNames(const std::string& cell) {
  static const std::regex name("`([A-Za-z0-9_]+)`");
  std::set<std::string> names;
  for (std::sregex_iterator match(cell.begin(), cell.end(), name), end; match != end; ++match)
    names.insert((*match)[1]);
  return names;
}

}  // namespace test
