// The data tables of the installation: comma-separated text with a header row.
// Lines starting with "#" are comments; a field may be quoted ("a, b"), with ""
// for a quote inside. Cells are reached by column name so columns can move.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marloven::datagen {

// A table that cannot be read or a value that breaks its rules; the message
// names the file, the line and the column.
class DataError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class CsvTable {
 public:
  // name is used in messages only.
  static CsvTable parse(std::string_view text, std::string name);

  int rows() const { return static_cast<int>(rows_.size()); }
  // The cell of a data row (0-based) under the named column.
  const std::string& at(int row, std::string_view column) const;
  // The same cell as a number; anything that is not wholly a number is a DataError.
  double number(int row, std::string_view column) const;
  // "file, line N, column C: " for messages about a cell.
  std::string where(int row, std::string_view column) const;

 private:
  int columnIndex(std::string_view column) const;

  std::string name_;
  std::vector<std::string> header_;
  std::vector<std::vector<std::string>> rows_;
  std::vector<int> lineOfRow_;
};

}  // namespace marloven::datagen
