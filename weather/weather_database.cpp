#include "weather/weather_database.h"

#include <cmath>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/masks.h"
#include "common/number_text.h"

namespace marloven {

namespace {

constexpr std::string_view kMarks = "!#*@";

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimRight(std::string_view s) {
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  return s;
}

// Byte offsets where lines start, and the end of each line without its line
// end, for the whole text. Line ends as in splitLines: CR LF, LF or CR.
struct LineIndex {
  std::vector<std::size_t> start;
  std::vector<std::size_t> end;
};

LineIndex indexLines(std::string_view text) {
  LineIndex idx;
  // A byte-order mark an editor put in front is no part of the first code.
  std::size_t i = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  const std::size_t n = text.size();
  while (i < n) {
    idx.start.push_back(i);
    std::size_t j = i;
    while (j < n && text[j] != '\r' && text[j] != '\n') ++j;
    idx.end.push_back(j);
    if (j < n && text[j] == '\r' && j + 1 < n && text[j + 1] == '\n') j += 2;
    else if (j < n) ++j;
    i = j;
  }
  // Blank lines after the last record are no record.
  while (!idx.start.empty() && trimRight(text.substr(idx.start.back(), idx.end.back() - idx.start.back())).empty()) {
    idx.start.pop_back();
    idx.end.pop_back();
  }
  return idx;
}

std::string_view lineAt(std::string_view text, const LineIndex& idx, std::size_t i) {
  return text.substr(idx.start[i], idx.end[i] - idx.start[i]);
}

// Number of whole records in the text; FileError 62 for a partial last one.
std::size_t recordCount(const LineIndex& idx) {
  const std::size_t lines = idx.start.size();
  // Past the records the program looks at, a partial record is never read.
  if (lines % kWeatherRecordLines != 0 && lines < std::size_t{kMaxWeatherRecords} * kWeatherRecordLines)
    throw FileError(err::kInputPastEnd,
                    "weth.asc: record " + std::to_string(lines / kWeatherRecordLines + 1) + " is incomplete");
  return lines / kWeatherRecordLines;
}

WeatherRecordHead parseHead(std::string_view line1, std::string_view line2, int number) {
  WeatherRecordHead h;
  h.number = number;
  FieldReader first(line1);
  h.code = first.text();
  h.groupName = first.text();
  FieldReader second(line2);
  h.location = second.text();
  h.station = second.text();
  h.latitude = second.number();
  h.longitude = second.number();
  h.timeZone = second.number();
  h.elevation = second.token();
  splitLocation(h.location, h.city, h.state, h.mark);
  return h;
}

// The values of a monthly row. Values stand in 6 columns with nothing between
// them, so a minus sign after a digit also starts a new value.
std::vector<double> rowValues(std::string_view line) {
  std::vector<double> values;
  std::size_t i = 0;
  const std::size_t n = line.size();
  while (i < n) {
    while (i < n && (isBlank(line[i]) || line[i] == ',')) ++i;
    if (i >= n) break;
    const std::size_t from = i++;
    while (i < n && !isBlank(line[i]) && line[i] != ',' &&
           !((line[i] == '-' || line[i] == '+') && (std::isdigit(static_cast<unsigned char>(line[i - 1])) ||
                                                     line[i - 1] == '.')))
      ++i;
    values.push_back(leadingNumber(line.substr(from, i - from)));
  }
  return values;
}

bool isTemperature(int row) { return row == kDryBulbAverage || row == kDryBulbMaximum || row == kDewPointAverage; }
bool isDeviation(int row) { return row == kDryBulbAverageStd || row == kDryBulbMaximumStd || row == kDewPointStd; }
int digitsOf(int row) { return row == kSolar ? 0 : 1; }

double toSI(int row, double v) {
  if (isTemperature(row)) return (v - 32.0) / 1.8;
  if (isDeviation(row)) return v / 1.8;
  return row == kSolar ? v * 11.3565295 : v * 0.44704;
}

double toIP(int row, double v) {
  if (isTemperature(row)) return v * 1.8 + 32.0;
  if (isDeviation(row)) return v * 1.8;
  return row == kSolar ? v * 0.08805507 : v * 2.236936;
}

// A value as the screen shows it: rounded, right-aligned in 5 columns.
std::string shown(double v, int digits) { return applyMask(bare(roundTo(v, digits)), "@@@@@"); }

std::string quoted(std::string_view s) { return "\"" + std::string(s) + "\""; }

// Where the bytes of record n (1-based) start; the text's size past the last.
std::size_t recordOffset(std::string_view text, const LineIndex& idx, std::size_t n) {
  const std::size_t line = (n - 1) * kWeatherRecordLines;
  return line < idx.start.size() ? idx.start[line] : text.size();
}

// The bytes up to the end of the last record, with a line end after it.
std::string wholeLines(std::string_view text, const LineIndex& idx) {
  if (idx.start.empty()) return {};
  std::size_t end = idx.end.back();
  if (end < text.size() && text[end] == '\r') ++end;
  if (end < text.size() && text[end] == '\n') ++end;
  std::string out(text.substr(0, end));
  if (out.back() != '\n' && out.back() != '\r') out += "\r\n";
  return out;
}

std::string readIfExists(const std::string& path) { return fileExists(path) ? readFile(path) : std::string(); }

}  // namespace

// --- FieldReader -------------------------------------------------------------

bool FieldReader::atEnd() const {
  std::size_t i = pos_;
  while (i < line_.size() && isBlank(line_[i])) ++i;
  return i >= line_.size();
}

void FieldReader::skipSeparator() {
  while (pos_ < line_.size() && isBlank(line_[pos_])) ++pos_;
  if (pos_ < line_.size() && line_[pos_] == ',') ++pos_;
}

std::string FieldReader::text() {
  while (pos_ < line_.size() && isBlank(line_[pos_])) ++pos_;
  if (pos_ < line_.size() && line_[pos_] == '"') {
    const std::size_t from = ++pos_;
    while (pos_ < line_.size() && line_[pos_] != '"') ++pos_;
    std::string s(line_.substr(from, pos_ - from));
    if (pos_ < line_.size()) ++pos_;
    skipSeparator();
    return s;
  }
  const std::size_t from = pos_;
  while (pos_ < line_.size() && line_[pos_] != ',') ++pos_;
  std::string s(trimRight(line_.substr(from, pos_ - from)));
  if (pos_ < line_.size()) ++pos_;
  return s;
}

std::string FieldReader::token() {
  while (pos_ < line_.size() && isBlank(line_[pos_])) ++pos_;
  if (pos_ < line_.size() && line_[pos_] == '"') return text();
  const std::size_t from = pos_;
  while (pos_ < line_.size() && line_[pos_] != ',' && !isBlank(line_[pos_])) ++pos_;
  std::string s(line_.substr(from, pos_ - from));
  skipSeparator();
  return s;
}

double FieldReader::number() { return leadingNumber(token()); }

// --- Heads, groups, search ----------------------------------------------------

void splitLocation(std::string_view location, std::string& city, std::string& state, std::string& mark) {
  const std::size_t comma = location.find(',');
  city.clear();
  state.clear();
  mark.clear();
  if (comma == std::string_view::npos) {
    city = std::string(trimRight(location));
    return;
  }
  city = std::string(location.substr(0, comma));
  std::string_view rest = comma + 2 <= location.size() ? location.substr(comma + 2) : std::string_view();
  const std::size_t m = rest.find_first_of(kMarks);
  if (m != std::string_view::npos) {
    mark = std::string(1, rest[m]);
    if (m + 1 < rest.size() && rest[m + 1] == '#') mark += '#';
    rest = rest.substr(0, m);
  }
  state = std::string(trimRight(rest));
}

std::string weatherDatabasePath(const std::string& installDir) {
  return joinPath(joinPath(installDir, "weather"), "weth.asc");
}

std::vector<WeatherRecordHead> readRecordHeads(std::string_view bytes) {
  const LineIndex idx = indexLines(bytes);
  std::size_t count = recordCount(idx);
  if (count > static_cast<std::size_t>(kMaxWeatherRecords)) count = kMaxWeatherRecords;
  std::vector<WeatherRecordHead> heads;
  heads.reserve(count);
  for (std::size_t r = 0; r < count; ++r) {
    const std::size_t first = r * kWeatherRecordLines;
    heads.push_back(parseHead(lineAt(bytes, idx, first), lineAt(bytes, idx, first + 1), static_cast<int>(r + 1)));
  }
  return heads;
}

std::vector<WeatherRecordHead> readRecordHeadsFile(const std::string& path) {
  if (!fileExists(path)) return {};
  return readRecordHeads(readFile(path));
}

std::vector<WeatherGroup> listGroups(const std::vector<WeatherRecordHead>& heads) {
  std::vector<WeatherGroup> groups;
  const WeatherRecordHead* last = nullptr;
  for (const WeatherRecordHead& h : heads) {
    if (!last || h.groupName != last->groupName || h.state != last->state)
      groups.push_back({h.state, h.number, 0});
    ++groups.back().count;
    last = &h;
  }
  return groups;
}

std::vector<std::string> listCities(const std::vector<WeatherRecordHead>& heads, std::string_view state) {
  std::vector<std::string> cities;
  for (const WeatherRecordHead& h : heads)
    if (h.state == state) cities.push_back(h.city);
  return cities;
}

const WeatherRecordHead* findLocation(const std::vector<WeatherRecordHead>& heads, std::string_view city,
                                      std::string_view state) {
  for (const WeatherRecordHead& h : heads)
    if (h.city == city && h.state == state) return &h;
  return nullptr;
}

// --- Load ---------------------------------------------------------------------

std::optional<WeatherFields> loadRecord(std::string_view bytes, std::string_view city, std::string_view state,
                                        UnitSystem units) {
  const LineIndex idx = indexLines(bytes);
  const std::size_t count = std::min<std::size_t>(recordCount(idx), kMaxWeatherRecords);
  const bool si = units == UnitSystem::SI;
  for (std::size_t r = 0; r < count; ++r) {
    const std::size_t first = r * kWeatherRecordLines;
    const WeatherRecordHead h =
        parseHead(lineAt(bytes, idx, first), lineAt(bytes, idx, first + 1), static_cast<int>(r + 1));
    if (h.city != city || h.state != state) continue;

    WeatherFields f;
    f.state = std::string(state);
    f.city = std::string(city);
    f.station = h.station;
    f.latitude = shown(h.latitude, 1);
    f.longitude = shown(h.longitude, 1);
    f.timeZone = shown(h.timeZone, 1);
    f.elevation = si ? bare(static_cast<float>(std::floor(10.0 * leadingNumber(h.elevation) * 0.3048 + 0.5) / 10.0))
                     : h.elevation;
    for (int row = 0; row < kWeatherRows; ++row) {
      const std::vector<double> v = rowValues(lineAt(bytes, idx, first + 2 + static_cast<std::size_t>(row)));
      for (std::size_t m = 0; m < 12; ++m) {
        const double x = m < v.size() ? v[m] : 0.0;
        f.rows[row][m] = shown(si ? toSI(row, x) : x, digitsOf(row));
      }
    }
    f.annualExtreme.fill("0.0");
    f.extremeDryBulb.fill("0.0");
    f.mark = h.mark;
    f.record = h.number;
    return f;
  }
  return std::nullopt;
}

std::optional<WeatherFields> loadRecordFile(const std::string& path, std::string_view city, std::string_view state,
                                            UnitSystem units) {
  if (!fileExists(path)) return std::nullopt;
  return loadRecord(readFile(path), city, state, units);
}

// --- Write and save -----------------------------------------------------------

std::string formatRecord(const WeatherFields& f, UnitSystem units, bool newGroup, std::string_view code) {
  const bool si = units == UnitSystem::SI;
  std::string out;
  std::string group = f.state.substr(0, std::min<std::size_t>(7, f.state.size()));
  group.resize(7, ' ');
  const std::string ownCode = newGroup ? f.state.substr(0, std::min<std::size_t>(2, f.state.size())) : std::string(code);
  out += quoted(ownCode) + "," + quoted(group) + "\r\n";

  // The location text is cut to 39 characters, or 37 in a new group to leave
  // room for " !"; the closing quote then stands at column 41, or at 39 for a
  // text shorter than 35.
  std::string text = f.city + ", " + f.state;
  const std::size_t limit = newGroup ? 37 : 39;
  if (text.size() > limit) text.resize(limit);
  const std::size_t width = text.size() < 35 ? 37 : 39;
  if (newGroup) text += " !";
  if (text.size() < width) text.resize(width, ' ');
  out += quoted(text) + " " + quoted(f.station);
  out += printed(static_cast<float>(leadingNumber(f.latitude)));
  out += printed(static_cast<float>(leadingNumber(f.longitude)));
  out += printed(static_cast<float>(leadingNumber(f.timeZone)));
  out += si ? bare(static_cast<float>(std::floor(leadingNumber(f.elevation) * 3.2808 + 0.5))) : f.elevation;
  out += "\r\n";

  for (int row = 0; row < kWeatherRows; ++row) {
    for (int m = 0; m < 12; ++m) {
      double v = leadingNumber(f.rows[row][m]);
      if (si) v = toIP(row, v);
      out += applyMask(bare(roundTo(v, digitsOf(row))), "@@@@@@");
    }
    out += "\r\n";
  }
  return out;
}

WeatherMessage saveMessage(SaveOutcome outcome) {
  switch (outcome) {
    case SaveOutcome::NothingEdited:
      return {"Message", "No new data have been entered.  Current data will not be saved into the database."};
    case SaveOutcome::NotFound:
      return {"State or city name not found",
              "The current database does not include the state or city name you enter.  Save the data As New."};
    case SaveOutcome::Full:
      return {"Weather database full",
              "The weather database holds 3000 places, the most it can read.  Delete a place before saving a new one."};
    case SaveOutcome::Saved:
      break;
  }
  return {};
}

SaveOutcome saveAsNew(const std::string& path, const WeatherFields& f, UnitSystem units, bool edited,
                      int* recordNumber) {
  if (!edited) return SaveOutcome::NothingEdited;
  const std::string bytes = readIfExists(path);
  const LineIndex idx = indexLines(bytes);
  const std::size_t total = recordCount(idx);
  if (total >= static_cast<std::size_t>(kMaxWeatherRecords)) return SaveOutcome::Full;
  const std::vector<WeatherRecordHead> heads = readRecordHeads(bytes);
  for (const WeatherGroup& g : listGroups(heads)) {
    if (g.state != f.state) continue;
    const std::size_t position = static_cast<std::size_t>(g.firstRecord + g.count);
    const std::size_t at = recordOffset(bytes, idx, position);
    const std::string code = heads[static_cast<std::size_t>(g.firstRecord - 1)].code;
    std::string out = position > total ? wholeLines(bytes, idx) : bytes.substr(0, at);
    out += formatRecord(f, units, false, code);
    if (position <= total) out += bytes.substr(at);
    writeFileAtomic(path, out);
    if (recordNumber) *recordNumber = static_cast<int>(position);
    return SaveOutcome::Saved;
  }
  writeFileAtomic(path, wholeLines(bytes, idx) + formatRecord(f, units, true));
  if (recordNumber) *recordNumber = static_cast<int>(total + 1);
  return SaveOutcome::Saved;
}

SaveOutcome saveAsUpdate(const std::string& path, const WeatherFields& f, UnitSystem units, bool edited) {
  if (!edited) return SaveOutcome::NothingEdited;
  const std::string bytes = readIfExists(path);
  const LineIndex idx = indexLines(bytes);
  const std::size_t total = recordCount(idx);
  const std::vector<WeatherRecordHead> heads = readRecordHeads(bytes);
  const WeatherRecordHead* found = findLocation(heads, f.city, f.state);
  if (!found) return SaveOutcome::NotFound;
  // The record that the screen loaded is the one replaced.
  const std::size_t target =
      f.record > 0 && static_cast<std::size_t>(f.record) <= total ? static_cast<std::size_t>(f.record)
                                                                  : static_cast<std::size_t>(found->number);
  const std::string code = heads.size() >= target ? heads[target - 1].code : found->code;
  std::string out = bytes.substr(0, recordOffset(bytes, idx, target));
  out += formatRecord(f, units, false, code);
  if (target < total) out += bytes.substr(recordOffset(bytes, idx, target + 1));
  writeFileAtomic(path, out);
  return SaveOutcome::Saved;
}

}  // namespace marloven
