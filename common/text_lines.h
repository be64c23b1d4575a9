// Reading single-byte text files as lines.
//
// Files are kept as bytes end to end: no decoding happens here. A line ends at
// CR LF, at LF alone (files edited on other systems) or at CR alone. The bytes
// after the last line end, when there are any, are one more line. A UTF-8
// byte-order mark at the start of the text is skipped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace marloven {

// Splits text into lines (see above). An empty text has no lines.
std::vector<std::string> splitLines(std::string_view text);

// Sequential reading of lines, as a file channel would: past the last line a
// read raises FileError 62 (input past end of file).
class LineReader {
 public:
  explicit LineReader(std::vector<std::string> lines) : lines_(std::move(lines)) {}
  static LineReader fromText(std::string_view text) { return LineReader(splitLines(text)); }

  bool atEnd() const { return next_ >= lines_.size(); }
  // The next line; FileError 62 past the end.
  const std::string& next();
  // 1-based number of the line last returned by next(); 0 before the first.
  std::size_t lineNumber() const { return next_; }
  // All lines not read yet, in order.
  std::vector<std::string> rest();

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
};

// The text of a line from a 1-based column on; empty when the line is shorter.
std::string_view fromColumn(std::string_view line, std::size_t column);
// Up to count characters from a 1-based column (as a substring function would).
std::string_view midText(std::string_view line, std::size_t column, std::size_t count);

}  // namespace marloven
