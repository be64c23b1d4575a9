#include "project/zone_entry.h"

#include <vector>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"
#include "project/catalog_record.h"
#include "project/unit_conversion.h"
#include "project/zone_scratch.h"

namespace marloven {

namespace {

constexpr int kTempDefaults = 4;

std::string profileFile(const std::string& installDir, int k) {
  return joinPath(installDir, "profiles/bprof" + std::to_string(k) + ".dat");
}

std::array<CatalogType, kDefaultTypeCount + 1> readDefaults(const std::string& path, UnitSystem units) {
  LineReader in = LineReader::fromText(readFile(path));
  std::array<CatalogType, kDefaultTypeCount + 1> out;
  for (int n = 1; n <= kDefaultTypeCount; ++n) out[n] = readCatalogRecord(in, units);
  return out;
}

bool keepsWallId(int n) {
  for (int id : kSketchWallIds)
    if (id == n) return true;
  return false;
}

}  // namespace

std::string temperaturesToSI(const std::string& line) {
  std::string out;
  for (const std::string& token : splitBlanks(line)) {
    if (!out.empty()) out += ' ';
    out += convertText(token, kFToC, 0, "@@");
  }
  return out;
}

void loadDefaultTypes(const std::string& installDir, Project& p) {
  const auto walls = readDefaults(joinPath(installDir, "profiles/bprof6.dat"), p.units);
  const auto windows = readDefaults(joinPath(installDir, "profiles/bprof7.dat"), p.units);
  for (int n = 1; n <= kDefaultTypeCount; ++n) {
    p.walls[n] = walls[n];
    if (!keepsWallId(n)) p.walls[n].fields[0].clear();
    p.windows[n] = windows[n];
  }
}

void loadDefaultProfiles(const std::string& installDir, Project& p, int buildingType) {
  struct Loaded {
    int kind;
    int number;
    Profile profile;
  };
  std::vector<Loaded> loaded;
  for (int k = 1; k <= kProfileKinds; ++k) {
    if (p.flags.profileKindLoaded[k]) continue;
    LineReader in = LineReader::fromText(readFile(profileFile(installDir, k)));
    in.next();  // heading
    if (k == static_cast<int>(ProfileKind::Temp)) {
      for (int n = 1; n <= kTempDefaults; ++n) {
        const std::string& line = in.next();
        loaded.push_back({k, n, {padded(n), p.units == UnitSystem::SI ? temperaturesToSI(line) : line}});
      }
      continue;
    }
    if (buildingType < 1 || buildingType > kBuildingTypes)
      throw FileError(err::kSubscriptOutOfRange, "building type " + std::to_string(buildingType));
    for (int i = 1; i < buildingType; ++i) in.next();
    loaded.push_back({k, buildingType, {padded(buildingType), in.next()}});
  }
  for (Loaded& l : loaded) p.profiles.kinds[l.kind][l.number] = std::move(l.profile);
}

void readZoneScratchFiles(const std::string& installDir, Project& p) {
  struct ZoneRead {
    std::string people;
    ScratchRows rows;
  };
  std::vector<ZoneRead> read;
  for (int z = 1; z <= p.zoneCount; ++z) {
    const ZoneRecord& zone = p.zones[z];
    std::string people = peopleFromFloorArea(zone);
    read.push_back({std::move(people), readScratchRows(readFile(zoneScratchPath(installDir, zone.fields[kZoneId])))});
  }
  for (int z = 1; z <= p.zoneCount; ++z) {
    ZoneRecord& zone = p.zones[z];
    ZoneRead& r = read[static_cast<std::size_t>(z - 1)];
    zone.fields[kPeople] = std::move(r.people);
    for (int k = 1; k <= r.rows.count; ++k) zone.rows[k] = std::move(r.rows.rows[k]);
    zone.rowCount = r.rows.count;
  }
}

void mergeZoneScratchFiles(const std::string& installDir, Project& p) {
  for (int z = 1; z <= p.zoneCount; ++z) {
    ZoneRecord& zone = p.zones[z];
    try {
      mergeScratchRows(readFile(zoneScratchPath(installDir, zone.fields[kZoneId])), zone);
    } catch (const FileError&) {
      // A zone whose file is missing or short keeps its rows from there on.
    }
  }
}

void loadZoneDataAfterSketch(const std::string& installDir, Project& p, int buildingType) {
  Project next = p;
  if (!next.flags.zonesOpened) {
    loadDefaultTypes(installDir, next);
    loadDefaultProfiles(installDir, next, buildingType);
    readZoneScratchFiles(installDir, next);
  } else {
    loadDefaultProfiles(installDir, next, buildingType);
    mergeZoneScratchFiles(installDir, next);
  }
  p = std::move(next);
}

}  // namespace marloven
