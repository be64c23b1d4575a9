// A sketch level file on any bytes, on level 1 and a level above: it fills the
// matrix or raises FileError, and a level it read formats back.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "common/file_error.h"
#include "sketch/level_files.h"
#include "sketch/sketch_matrix.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (int level : {1, 2}) {
    auto m = std::make_unique<marloven::SketchMatrix>();
    m->currentLevel = level;
    m->levelCount = level;
    try {
      marloven::applyLevelText(*m, bytes);
      marloven::formatLevel(*m);
    } catch (const marloven::FileError&) {
    }
  }
  return 0;
}
