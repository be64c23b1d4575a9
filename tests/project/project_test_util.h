// Helpers for the project file tests: the fixture, line editing, and reading
// and writing through the real reader and straight writer.
#pragma once

#include <string>
#include <vector>

#include "common/column_printer.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "project/project_writer.h"

namespace marloven::testing {

inline std::string fixture(const std::string& name) {
  return readFile(std::string(FIXTURE_DIR) + "/" + name);
}

inline std::vector<std::string> fixtureLines(const std::string& name) { return splitLines(fixture(name)); }

inline std::string joinCrlf(const std::vector<std::string>& lines) {
  std::string out;
  for (const auto& l : lines) out += l + "\r\n";
  return out;
}

// Index of the first line equal to text (at or after from); -1 when absent.
inline int indexOf(const std::vector<std::string>& lines, const std::string& text, int from = 0) {
  for (int i = from; i < static_cast<int>(lines.size()); ++i)
    if (lines[i] == text) return i;
  return -1;
}

// Reads bytes into a fresh project, as after start-up.
inline Project readFresh(const std::string& bytes, ReadSideFiles* side = nullptr) {
  Project p;
  ReadSideFiles s = readProject(bytes, p);
  if (side) *side = std::move(s);
  return p;
}

// The whole file a save in the project's own units would write.
inline std::string writeAsSaved(Project& p, const std::vector<std::string>& sketch) {
  ColumnPrinter out;
  printHeader(out, p.seed, p.weeksPerMonth, p.units);
  writeProjectStraight(out, p, sketch);
  return out.take();
}

}  // namespace marloven::testing
