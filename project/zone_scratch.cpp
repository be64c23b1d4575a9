#include "project/zone_scratch.h"

#include <cmath>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/typed_input.h"

namespace marloven {

namespace {

constexpr int kDivisionByZero = 11;

// A 16-bit whole from a line read whole: its leading number, rounded half to
// even as an assignment to a whole number does.
std::int16_t wholeOfLine(const std::string& line) {
  const double v = std::nearbyint(leadingNumber(line));
  if (!(v >= -32768.0 && v <= 32767.0)) throw FileError(err::kOverflow, line);
  return static_cast<std::int16_t>(v);
}

float singleOfLine(const std::string& line) { return static_cast<float>(leadingNumber(line)); }

// The "end" line: the token where a row's first number would be.
bool isEndLine(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
  std::size_t j = i;
  while (j < line.size() && line[j] != ' ' && line[j] != '\t' && line[j] != ',') ++j;
  return line.substr(i, j - i) == "end";
}

// Values 6..14 of a row, as the first pass reads them.
void readRowTail(LineReader& in, EnvelopeRow& r) {
  r.windowId = inputWhole(in.next());
  r.windowArea = singleOfLine(in.next());
  r.slope = singleOfLine(in.next());
  r.surfaceCode = inputText(in.next());
  r.venetianBlind = wholeOfLine(in.next());
  r.diffuseTransmittance = singleOfLine(in.next());
  r.sillHeight = singleOfLine(in.next());
  r.windowHeight = singleOfLine(in.next());
  r.groundReflectance = singleOfLine(in.next());
}

double nearestWhole(double v) { return std::floor(v + 0.5); }

}  // namespace

std::string zoneScratchName(const std::string& zoneId) {
  // The ID comes from a project file or the sketch: it must not lead out of
  // the scratch directory.
  for (char c : zoneId)
    if (c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20)
      throw FileError(err::kBadFileName, "zone ID \"" + zoneId + "\"");
  if (zoneId.find("..") != std::string::npos) throw FileError(err::kBadFileName, zoneId);
  return "temp" + zoneId + ".zon";
}

std::string zoneScratchPath(const std::string& installDir, const std::string& zoneId) {
  return joinPath(joinPath(installDir, "temp"), zoneScratchName(zoneId));
}

ScratchRows readScratchRows(std::string_view text) {
  LineReader in = LineReader::fromText(text);
  ScratchRows out;
  for (int k = 1;; ++k) {
    const std::string& first = in.next();
    if (isEndLine(first)) break;
    if (k > kMaxSurfaceRows) throw FileError(err::kSubscriptOutOfRange, "row " + std::to_string(k));
    EnvelopeRow& r = out.rows[k];
    r.wallId = inputWhole(first);
    r.wallArea = singleOfLine(in.next());
    r.wallOrientation = wholeOfLine(in.next());
    r.surfaceExposure = inputWhole(in.next());
    r.externalShading = inputText(in.next());
    readRowTail(in, r);
    out.count = static_cast<std::int16_t>(k);
  }
  return out;
}

int mergeScratchRows(std::string_view text, ZoneRecord& zone) {
  LineReader in = LineReader::fromText(text);
  int replaced = 0;
  const int count = zone.rowCount < kMaxSurfaceRows ? zone.rowCount : kMaxSurfaceRows;
  for (int k = 1; k <= count; ++k) {
    EnvelopeRow r;
    r.wallId = inputWhole(in.next());
    r.wallArea = inputSingle(in.next());
    r.wallOrientation = inputWhole(in.next());
    r.surfaceExposure = inputWhole(in.next());
    r.externalShading = inputText(in.next());
    const EnvelopeRow& old = zone.rows[k];
    const bool changed = nearestWhole(r.wallArea) != nearestWhole(old.wallArea) ||
                         nearestWhole(r.wallOrientation) != old.wallOrientation;
    if (changed) {
      readRowTail(in, r);
      zone.rows[k] = std::move(r);
      ++replaced;
    } else {
      for (int i = 5; i < kRowFieldCount; ++i) in.next();
    }
  }
  return replaced;
}

std::string peopleFromFloorArea(const ZoneRecord& zone) {
  if (zone.floorAreaPerPerson == 0.0f) throw FileError(kDivisionByZero, "floor area per person of zone " + zone.fields[kZoneId]);
  const float perPerson = zone.listedFloorArea / zone.floorAreaPerPerson;
  return bare(std::floor(static_cast<double>(perPerson) + 0.5));
}

}  // namespace marloven
