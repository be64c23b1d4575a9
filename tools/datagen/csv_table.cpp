#include "tools/datagen/csv_table.h"

#include <charconv>

namespace marloven::datagen {
namespace {

std::vector<std::string> splitRecord(std::string_view line, const std::string& where) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted) {
      if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
        fields.back() += '"';
        ++i;
      } else if (c == '"') {
        quoted = false;
      } else {
        fields.back() += c;
      }
    } else if (c == '"' && fields.back().empty()) {
      quoted = true;
    } else if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  if (quoted) throw DataError(where + ": quote not closed");
  return fields;
}

}  // namespace

CsvTable CsvTable::parse(std::string_view text, std::string name) {
  CsvTable t;
  t.name_ = std::move(name);
  int lineNo = 0;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    ++lineNo;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty() || line.front() == '#') continue;
    const std::string where = t.name_ + ", line " + std::to_string(lineNo);
    auto fields = splitRecord(line, where);
    if (t.header_.empty()) {
      t.header_ = std::move(fields);
      continue;
    }
    if (fields.size() != t.header_.size())
      throw DataError(where + ": " + std::to_string(fields.size()) + " fields, the header has " +
                      std::to_string(t.header_.size()));
    t.rows_.push_back(std::move(fields));
    t.lineOfRow_.push_back(lineNo);
  }
  if (t.header_.empty()) throw DataError(t.name_ + ": no header row");
  return t;
}

int CsvTable::columnIndex(std::string_view column) const {
  for (size_t i = 0; i < header_.size(); ++i)
    if (header_[i] == column) return static_cast<int>(i);
  throw DataError(name_ + ": no column \"" + std::string(column) + "\"");
}

const std::string& CsvTable::at(int row, std::string_view column) const {
  return rows_.at(static_cast<size_t>(row)).at(static_cast<size_t>(columnIndex(column)));
}

double CsvTable::number(int row, std::string_view column) const {
  const std::string& s = at(row, column);
  double v = 0;
  const auto [p, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
  if (s.empty() || ec != std::errc() || p != s.data() + s.size())
    throw DataError(where(row, column) + ": \"" + s + "\" is not a number");
  return v;
}

std::string CsvTable::where(int row, std::string_view column) const {
  return name_ + ", line " + std::to_string(lineOfRow_.at(static_cast<size_t>(row))) + ", column " +
         std::string(column);
}

}  // namespace marloven::datagen
