#include "project/project_reader.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"
#include "project/typed_input.h"
#include "project/zone_scratch.h"

namespace marloven {

namespace {

// The value of a labelled line: everything from column 11 on.
std::string valueOf(const std::string& line) { return std::string(fromColumn(line, 11)); }

bool startsWith(std::string_view s, std::string_view prefix) {
  return s.substr(0, prefix.size()) == prefix;
}

// An ID read from a file must name an entry of its table.
int tableIndex(double id, int last, const std::string& line) {
  if (!(id >= 0 && id < last + 1.0)) throw FileError(err::kSubscriptOutOfRange, line);
  return static_cast<int>(id);
}

void resetForRead(Project& p) {
  ProjectFlags& f = p.flags;
  for (int i = 1; i <= kInputSteps; ++i) f.stepDone[i] = true;
  for (int k = 1; k <= kProfileKinds; ++k) {
    f.profileKindLoaded[k] = true;
    f.profileKindTouched[k] = true;
    for (int i = 1; i <= kMaxProfiles; ++i) p.profiles.kinds[k][i].id.clear();
  }
  f.outputViewable = false;
  f.resultsDisplay = false;
  f.resketched = false;
  f.zonesOpened = true;
  f.fromFile = true;
  f.weatherRereadPending = false;
  f.projectDataFilled = true;
  f.runKind = 0;
  f.inputSaved = false;
  f.daylightingInUse = false;
  f.zoneSelected = true;
  f.buildingTypeChosen = false;
  f.recordedWeatherPicked = false;
  p.designTemps.known = false;
  for (int i = 1; i <= 3; ++i) p.designTemps.values[i].clear();
}

// The types of one kind; true when the reader's limit ended the loop rather
// than the "9999" line.
bool readTypes(LineReader& in, std::array<CatalogType, kMaxTypeId + 1>& table) {
  for (int n = 1; n <= kTypesInFile; ++n) {
    const std::string line = in.next();
    if (line == "9999") return false;
    const std::string id = valueOf(line);
    CatalogType& t = table[tableIndex(leadingNumber(id), kMaxTypeId, line)];
    t.fields[0] = id;
    for (int f = 1; f < 7; ++f) t.fields[f] = valueOf(in.next());
  }
  return true;
}

// Profiles; returns true when "ZONES" was met inside the kinds. A kind before
// "Temp" that fills its limit shifts the kinds after it (Temp's own end is
// found by the search for "ZONES"): noted in notRead.
bool readProfiles(LineReader& in, ProfileLibrary& lib, std::vector<std::string>& notRead) {
  for (int k = 1; k <= kProfileKinds; ++k) {
    const int limit = k == static_cast<int>(ProfileKind::Temp) ? kTempProfilesInFile : kMaxProfiles;
    bool full = true;
    for (int n = 1; n <= limit; ++n) {
      const std::string line = in.next();
      if (line == "99") {
        if (in.next() == "ZONES") return true;
        full = false;
        break;  // that line was the next kind's name
      }
      Profile& entry = lib.kinds[k][tableIndex(leadingNumber(line), kMaxProfiles, line)];
      entry.id = line;
      entry.values = in.next();
    }
    if (full && k < static_cast<int>(ProfileKind::Temp))
      notRead.push_back(std::string(kProfileKindNames[k]) + " holds " + std::to_string(limit) +
                        " profiles, the most the reader takes: the profile kinds after it were not read as written");
  }
  return false;
}

EnvelopeRow typedRow(LineReader& in) {
  EnvelopeRow r;
  r.wallId = inputWhole(in.next());
  r.wallArea = inputSingle(in.next());
  r.wallOrientation = inputWhole(in.next());
  r.surfaceExposure = inputWhole(in.next());
  r.externalShading = inputText(in.next());
  r.windowId = inputWhole(in.next());
  r.windowArea = inputSingle(in.next());
  r.slope = inputSingle(in.next());
  r.surfaceCode = inputText(in.next());
  r.venetianBlind = inputWhole(in.next());
  r.diffuseTransmittance = inputSingle(in.next());
  r.sillHeight = inputSingle(in.next());
  r.windowHeight = inputSingle(in.next());
  r.groundReflectance = inputSingle(in.next());
  return r;
}

// One zone after its "Zone No.  " line; the scratch file's text is returned.
ZoneScratchFile readZone(LineReader& in, const std::string& firstLine, ZoneRecord& z) {
  z.exists = true;
  z.opened = true;
  z.fields[kZoneId] = valueOf(firstLine);
  for (int f = kZoneName; f <= kHeatingType; ++f) {
    z.fields[f] = valueOf(in.next());
    if (f == kPeople) z.floorAreaPerPerson = floorAreaPerPerson(z.fields[kZoneFloorArea], z.fields[kPeople]);
  }
  z.listedId = z.fields[kZoneId];
  z.listedName = z.fields[kZoneName];
  z.listedFloorArea = static_cast<float>(leadingNumber(z.fields[kZoneFloorArea]));

  z.naturalVent = valueOf(in.next());
  z.fields[kNaturalVentRate] = valueOf(in.next());
  z.fields[kInfiltration] = valueOf(in.next());
  z.daylight = valueOf(in.next());
  z.fields[kDaylitDepth] = valueOf(in.next());
  z.fields[kTargetIlluminance] = valueOf(in.next());
  z.economizer = valueOf(in.next());
  for (int f = kStaticPressure; f <= kMaintenanceCost; ++f) z.fields[f] = valueOf(in.next());

  ZoneScratchFile scratch{zoneScratchName(z.fields[kZoneId]), {}};
  std::vector<std::string> values;
  for (int k = 1; k <= kMaxSurfaceRows; ++k) {
    const std::string line = in.next();
    if (line == "9999") break;
    z.rowCount = static_cast<std::int16_t>(k);
    values.push_back(valueOf(line));
    for (int f = 1; f < kRowFieldCount; ++f) values.push_back(valueOf(in.next()));
    if (k == kMaxSurfaceRows) in.next();  // its "9999"
  }
  for (const std::string& v : values) scratch.text += v + "\r\n";
  scratch.text += "end\r\n";

  // The rows come back from the scratch text by typed input, as from the file. A
  // zone without rows keeps its row count from before the read; when that is not
  // 0 the "end" line fails the typed input (error 13).
  values.push_back("end");
  LineReader rows(std::move(values));
  for (int k = 1; k <= z.rowCount; ++k) z.rows[k] = typedRow(rows);
  return scratch;
}

}  // namespace

void readHeader(std::string_view line, Project& p) {
  p.seed = std::string(midText(line, 11, 10));
  // Clamped first: a conversion out of the integer's range is undefined.
  p.weeksPerMonth = static_cast<std::int16_t>(std::clamp(leadingNumber(midText(line, 21, 3)), -32768.0, 32767.0));
}

ReadSideFiles readProject(std::string_view bytes, Project& p) {
  LineReader in = LineReader::fromText(bytes);
  ReadSideFiles side;
  resetForRead(p);

  const std::string header = in.next();
  readHeader(header, p);
  if (header.size() >= 2) {
    p.units = UnitSystem::IP;
    for (std::size_t i = 1; i + 1 < header.size(); ++i)
      if (header.compare(i, 2, "SI") == 0) {
        p.units = UnitSystem::SI;
        break;
      }
  }

  for (std::string& d : p.data) d = valueOf(in.next());
  p.sketchOrientation = p.data[kOrientation];
  p.sketchFloorArea = static_cast<float>(leadingNumber(p.data[kFloorArea]));

  in.next();  // "WEATHER"
  for (int i = 1; i <= kWeatherLines; ++i) p.weather.lines[i] = in.next();

  const std::string afterWeather = in.next();
  if (startsWith(afterWeather, "DesTemps")) {
    const auto tokens = splitBlanks(fromColumn(afterWeather, 10), 3);
    for (std::size_t i = 0; i < tokens.size(); ++i) p.designTemps.values[i + 1] = tokens[i];
    in.next();  // "ECONOMICS"
  }
  p.designTemps.known = !p.designTemps.values[1].empty();

  for (std::string& e : p.economics) e = valueOf(in.next());
  p.demand.text = valueOf(in.next());

  const std::string afterDemand = in.next();
  if (startsWith(afterDemand, "DemChgRate")) {
    const auto tokens = splitBlanks(fromColumn(afterDemand, 12), 6);
    // Half a pair counts as a pair when the count rounds up to even.
    const double half = static_cast<double>(tokens.size()) / 2.0;
    p.demand.pairCount = static_cast<std::int16_t>(std::nearbyint(half));
    for (int i = 1; i <= p.demand.pairCount; ++i) {
      const std::size_t a = static_cast<std::size_t>(2 * i - 2), b = a + 1;
      p.demand.pairs[i].first = a < tokens.size() ? tokens[a] : std::string();
      p.demand.pairs[i].second = b < tokens.size() ? tokens[b] : std::string();
    }
    in.next();  // "WALL AND ROOF PROPERTIES"
  }

  const auto typesAtLimit = [&](const char* kind) {
    side.notRead.push_back(std::to_string(kTypesInFile) + " " + kind +
                           " types, the most the reader takes: the lines after them were not read as written");
  };
  if (readTypes(in, p.walls)) typesAtLimit("wall and roof");
  in.next();  // "WINDOW PROPERTIES"
  if (readTypes(in, p.windows)) typesAtLimit("window");

  in.next();  // "PROFILES"
  in.next();  // "Occ"
  if (!readProfiles(in, p.profiles, side.notRead))
    while (in.next() != "ZONES") {
    }

  int z = 1;
  for (; z <= kMaxZones; ++z) {
    const std::string line = in.next();
    if (line == "BUILDING MATRIX") break;
    ZoneRecord& zone = p.zones[z];
    side.zoneFiles.push_back(readZone(in, line, zone));
    if (isDaylightYes(zone.daylight)) p.flags.daylightingInUse = true;
  }
  p.zoneCount = static_cast<std::int16_t>(z - 1);

  side.sketchLines = in.rest();
  if (z > kMaxZones) {
    // The reader stops at its limit; further zones stay in the sketch's lines.
    const auto more = std::count_if(side.sketchLines.begin(), side.sketchLines.end(),
                                    [](const std::string& l) { return l.rfind("Zone No.  ", 0) == 0; });
    if (more > 0)
      side.notRead.push_back(std::to_string(more) + (more == 1 ? " zone" : " zones") + " after the " +
                             std::to_string(kMaxZones) + "th not read: a project holds at most " +
                             std::to_string(kMaxZones) + " zones");
  }
  return side;
}

void writeSideFiles(const std::string& installDir, const ReadSideFiles& files) {
  const std::string temp = joinPath(installDir, "temp");
  for (const ZoneScratchFile& f : files.zoneFiles) writeFileAtomic(joinPath(temp, f.name), f.text);
  std::string sketch;
  for (const std::string& l : files.sketchLines) sketch += l + "\r\n";
  writeFileAtomic(joinPath(installDir, "sketch/bld_mtx.all"), sketch);
}

std::vector<std::string> loadProjectFileNoting(const std::string& installDir, const std::string& path, Project& p) {
  const std::string bytes = readFile(path);
  Project next = p;
  const ReadSideFiles side = readProject(bytes, next);
  writeSideFiles(installDir, side);
  p = std::move(next);
  return side.notRead;
}

void loadProjectFile(const std::string& installDir, const std::string& path, Project& p) {
  loadProjectFileNoting(installDir, path, p);
}

}  // namespace marloven
