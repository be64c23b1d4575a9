// The largest project a year long, for the benchmarks: 99 zones of 33 surface
// rows, every zone the given project's first, turned about, its rows cut
// into smaller surfaces.
#pragma once

#include <string>

#include "project/project_model.h"

namespace bench {

inline void makeLargest(marloven::Project& p) {
  const marloven::ZoneRecord base = p.zones[1];
  for (int z = 1; z <= marloven::kMaxZones; ++z) {
    marloven::ZoneRecord zr = base;
    zr.fields[marloven::kZoneId] = std::to_string(100 + z);
    zr.rowCount = marloven::kMaxSurfaceRows;
    for (int r = 1; r <= marloven::kMaxSurfaceRows; ++r) {
      marloven::EnvelopeRow row = base.rows[1 + (r - 1) % base.rowCount];
      row.wallOrientation = static_cast<std::int16_t>((r * 45 + z * 15) % 360);
      row.wallArea /= 16.0f;
      row.windowArea /= 16.0f;
      zr.rows[r] = row;
    }
    p.zones[z] = zr;
  }
  p.zoneCount = marloven::kMaxZones;
}

}  // namespace bench
