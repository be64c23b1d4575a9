#include "common/text_lines.h"

#include <iterator>

#include "common/file_error.h"

namespace marloven {

std::vector<std::string> splitLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  // Editors on other systems start a text with the UTF-8 byte-order mark; it is
  // no part of the first line.
  if (text.substr(0, 3) == "\xEF\xBB\xBF") start = 3;
  const std::size_t n = text.size();
  for (std::size_t i = 0; i < n; ++i) {
    const char c = text[i];
    if (c != '\r' && c != '\n') continue;
    lines.emplace_back(text.substr(start, i - start));
    if (c == '\r' && i + 1 < n && text[i + 1] == '\n') ++i;
    start = i + 1;
  }
  if (start < n) lines.emplace_back(text.substr(start));
  return lines;
}

const std::string& LineReader::next() {
  if (atEnd()) throw FileError(err::kInputPastEnd, "line " + std::to_string(next_ + 1));
  return lines_[next_++];
}

std::vector<std::string> LineReader::rest() {
  // Reading the rest consumes it, as reading to the end of a file would.
  std::vector<std::string> out;
  if (next_ < lines_.size()) {
    out.assign(std::make_move_iterator(lines_.begin() + static_cast<std::ptrdiff_t>(next_)),
               std::make_move_iterator(lines_.end()));
    next_ = lines_.size();
  }
  return out;
}

std::string_view fromColumn(std::string_view line, std::size_t column) {
  const std::size_t start = column == 0 ? 0 : column - 1;
  if (start >= line.size()) return {};
  return line.substr(start);
}

std::string_view midText(std::string_view line, std::size_t column, std::size_t count) {
  const std::size_t start = column == 0 ? 0 : column - 1;
  if (start >= line.size()) return {};
  return line.substr(start, count);
}

}  // namespace marloven
