// The project file reader on any bytes: it reads or raises FileError, and a
// project it read is written and read again (the reader's known limits may
// refuse that copy; it must still never crash).
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "project/project_model.h"
#include "project/project_reader.h"
#include "project/project_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  marloven::Project p;
  try {
    const marloven::ReadSideFiles side = marloven::readProject(bytes, p);
    marloven::ColumnPrinter out;
    marloven::printHeader(out, p.seed, p.weeksPerMonth, p.units);
    marloven::writeProjectStraight(out, p, side.sketchLines);
    marloven::Project again;
    marloven::readProject(out.str(), again);
  } catch (const marloven::FileError&) {
  }
  return 0;
}
