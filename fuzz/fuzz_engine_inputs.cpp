// The engine's own readers of its scratch files on any bytes: the run copy
// check and the model built from a copy that passes it, the control file and
// ltshlf.dat. Each reads or raises RunFailure (or the project reader's FileError).
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/file_error.h"
#include "engine/control_file.h"
#include "engine/daylight.h"
#include "engine/input_checks.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "project/project_model.h"
#include "project/project_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  tarn::RunLog log;
  try {
    tarn::parseControl(bytes, log);
  } catch (const tarn::RunFailure&) {
  }
  try {
    tarn::readDaylightFile(bytes, size % 2 == 0);
  } catch (const tarn::RunFailure&) {
  }
  try {
    tarn::checkRunCopy(bytes);
    marloven::Project p;
    const marloven::ReadSideFiles side = marloven::readProject(bytes, p);
    tarn::buildModel(p, side.sketchLines, tarn::RunControl{}, log);
  } catch (const tarn::RunFailure&) {
  } catch (const marloven::FileError&) {
  }
  return 0;
}
