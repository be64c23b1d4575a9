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

int firstDayOfYear(int year) {
  const int y = year - 1980;
  // Floor division, so years before 1980 count back correctly.
  const int leap = (y + 3 >= 0) ? (y + 3) / 4 : -((-(y + 3) + 3) / 4);
  const int d = (y + leap + 2) % 7;
  return (d < 0 ? d + 7 : d) + 1;
}

}  // namespace marloven
