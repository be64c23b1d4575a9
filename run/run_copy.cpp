#include "run/run_copy.h"

#include "common/column_printer.h"
#include "common/file_io.h"
#include "project/project_reader.h"
#include "project/project_writer.h"

namespace marloven {

std::string runCopyText(const std::string& installDir, Project& p) {
  ColumnPrinter out;
  printHeader(out, p.seed, p.weeksPerMonth, p.units);
  const bool sketched = fileExists(joinPath(installDir, "sketch/bld_mtx.all"));
  writeProjectStraight(out, p, sketched ? readSketchLines(installDir) : std::vector<std::string>{});
  return out.str();
}

void writeErrorCheck(const std::string& installDir, Project& p) {
  // Written first so that an engine started on these files never takes an
  // old run copy for a full run.
  writeFileAtomic(joinPath(installDir, "temp/ecalc$.tmp"), "1\r\n");
  writeFileAtomic(joinPath(installDir, "temp/ecalc$.inp"), runCopyText(installDir, p));
}

}  // namespace marloven
