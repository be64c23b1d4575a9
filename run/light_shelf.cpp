#include "run/light_shelf.h"

#include <algorithm>

#include "common/column_printer.h"
#include "common/file_io.h"
#include "common/masks.h"
#include "common/number_text.h"

namespace marloven {

namespace {

constexpr int kFirstZoneLine = 13;

// A number right-aligned in the columns first..last.
void field(ColumnPrinter& out, int first, int last, double value) {
  out.tab(first).text(applyMask(bare(roundTo(value, 2)), std::string(static_cast<std::size_t>(last - first + 1), '@')));
}

double windowTop(const ZoneRecord& z) {
  double top = 0;
  for (int k = 1; k <= z.rowCount && k <= kMaxSurfaceRows; ++k) {
    const EnvelopeRow& r = z.rows[k];
    if (r.windowArea > 0) top = std::max(top, static_cast<double>(r.sillHeight) + r.windowHeight);
  }
  return top;
}

}  // namespace

std::string lightShelfText(const Project& p) {
  const bool ip = p.units == UnitSystem::IP;
  ColumnPrinter out;
  out.line("DAYLIGHTING AND LIGHT SHELF DATA");
  out.line("--------------------------------");
  out.endLine();
  out.line("DIMMING CONTROL ........ CONTINUOUS");
  out.line("MINIMUM POWER FRACTION . 0.20");
  out.line("MINIMUM LIGHT FRACTION . 0.10");
  out.line(ip ? "WORK PLANE HEIGHT ...... 2.5" : "WORK PLANE HEIGHT ...... 0.76");
  out.line("ROOM REFLECTANCE ....... 0.50");
  out.endLine();
  out.line("ZONE  NAME                  DEPTH   TARGET    SHELF   SHELF  SHELF");
  out.line(ip ? "                             (FT)    (FC)     DEPTH   HEIGHT REFL."
              : "                              (M)   (LUX)     DEPTH   HEIGHT REFL.");
  out.line("-------------------------------------------------------------------");
  int line = kFirstZoneLine;
  for (int i = 1; i <= p.zoneCount && i <= kMaxZones; ++i) {
    const ZoneRecord& z = p.zones[i];
    if (!isDaylightYes(z.daylight)) continue;
    out.text(applyMask(z.fields[kZoneId].substr(0, 4), "@@@@"));
    out.tab(7).text(z.fields[kZoneName].substr(0, 20));
    field(out, 29, 35, leadingNumber(z.fields[kDaylitDepth]));
    field(out, 37, 42, leadingNumber(z.fields[kTargetIlluminance]));
    field(out, 45, 51, 0);
    field(out, 54, 60, windowTop(z));
    out.tab(63).text("  0.80").endLine();
    ++line;
  }
  for (; line <= kLightShelfLines; ++line) out.endLine();
  return out.str();
}

bool writeLightShelfFile(const std::string& installDir, const Project& p) {
  for (int i = 1; i <= p.zoneCount && i <= kMaxZones; ++i)
    if (isDaylightYes(p.zones[i].daylight)) {
      writeFileAtomic(joinPath(installDir, "temp/ltshlf.dat"), lightShelfText(p));
      return true;
    }
  return false;
}

}  // namespace marloven
