#include "engine/weather_readers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <deque>
#include <limits>
#include <vector>

#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/psychro.h"

namespace tarn {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kWhM2ToBtuFt2 = 0.3170;
constexpr double kKjM2ToBtuFt2 = 0.08806;
constexpr double kMsToMph = 2.23694;

double cToF(double c) { return c * 1.8 + 32.0; }

struct RawHour {
  std::size_t line = 0;  // 1-based, for messages
  int month = 0, day = 0;
  double db = kNaN, dp = kNaN, rh = kNaN, p = kNaN, gh = kNaN, dn = kNaN, dh = kNaN, wind = kNaN;
  double ir = kNaN, cover = kNaN;  // sky long-wave Btu/h·ft², opaque cloud cover tenths
};

struct RawFile {
  std::vector<RawHour> hours;
  bool hasSite = false;
  Site site;
  std::string station;
};

const std::string kWhere = "ecalc$.tmy";

std::string where(std::size_t line) { return kWhere + " line " + std::to_string(line); }

// A number from a fixed column field; NaN when blank or not a number.
double field(std::string_view line, std::size_t col, std::size_t width) {
  const std::string_view s = marloven::midText(line, col, width);
  std::size_t i = 0;
  while (i < s.size() && s[i] == ' ') ++i;
  if (i == s.size()) return kNaN;
  double v = 0;
  const char* b = s.data() + i;
  if (*b == '+') ++b;
  const auto r = std::from_chars(b, s.data() + s.size(), v);
  if (r.ec != std::errc()) return kNaN;
  return v;
}

double orNaN(double v, bool missing) { return missing ? kNaN : v; }

// A month, day or hour field as an integer; 0 for a blank or absurd field (a
// conversion out of the integer's range is undefined).
int calendarNumber(double v) { return v > -1000 && v < 1000 ? static_cast<int>(v) : 0; }

// The lines of a text as views into it; a line ends at CR LF, LF or CR, and
// bytes after the last end are one more line. The ends are found with memchr,
// the next LF being kept until a line passes it.
std::vector<std::string_view> lineViews(std::string_view text) {
  std::vector<std::string_view> lines;
  lines.reserve(text.size() / 64 + 1);
  const char* const base = text.data();
  const std::size_t n = text.size();
  auto find = [&](char c, std::size_t from, std::size_t to) {
    const void* at = to > from ? std::memchr(base + from, c, to - from) : nullptr;
    return at ? static_cast<std::size_t>(static_cast<const char*>(at) - base) : to;
  };
  std::size_t start = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;  // a byte-order mark is no part of line 1
  std::size_t lf = find('\n', start, n);
  while (start < n) {
    if (lf < start) lf = find('\n', start, n);
    const std::size_t cr = find('\r', start, lf);
    const std::size_t end = std::min(cr, lf);
    lines.push_back(text.substr(start, end - start));
    if (end == n) break;
    start = end + 1;
    if (end == cr && cr + 1 == lf) start = lf + 1;
  }
  return lines;
}

// The comma-separated fields of a line as views into it, reused line after
// line so a year of records allocates nothing per field. Double quotes group
// a field and are dropped from it.
class CsvFields {
 public:
  void split(std::string_view line) {
    fields_.clear();
    unquoted_.clear();
    if (line.find('"') != std::string_view::npos) return splitQuoted(line);
    std::size_t start = 0;
    for (;;) {
      const std::size_t comma = line.find(',', start);
      if (comma == std::string_view::npos) break;
      fields_.push_back(line.substr(start, comma - start));
      start = comma + 1;
    }
    fields_.push_back(line.substr(start));
  }
  std::size_t size() const { return fields_.size(); }
  std::string_view operator[](std::size_t i) const { return fields_[i]; }

 private:
  void splitQuoted(std::string_view line) {
    std::size_t start = 0;
    bool quoted = false, hadQuote = false;
    for (std::size_t i = 0; i <= line.size(); ++i) {
      if (i < line.size()) {
        const char c = line[i];
        if (c == '"') quoted = !quoted, hadQuote = true;
        if (c != ',' || quoted) continue;
      }
      const std::string_view f = line.substr(start, i - start);
      if (hadQuote) {
        std::string& u = unquoted_.emplace_back();
        for (char c : f)
          if (c != '"') u += c;
        fields_.push_back(u);
      } else {
        fields_.push_back(f);
      }
      start = i + 1;
      hadQuote = false;
    }
  }

  std::vector<std::string_view> fields_;
  std::deque<std::string> unquoted_;  // stable storage for fields that had quotes
};

// A plain decimal of at most 15 digits without exponent, [-]digits[.digits],
// as the correctly rounded double: the digits and the power of ten are both
// exact doubles, so one division rounds once, as std::from_chars does. False
// for anything else.
bool plainDecimal(const char* b, const char* e, double& out) {
  static constexpr double kTens[16] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = b < e && *b == '-';
  if (negative) ++b;
  std::uint64_t digits = 0;
  int count = 0, decimals = 0;
  bool point = false;
  for (; b < e; ++b) {
    if (*b >= '0' && *b <= '9') {
      digits = digits * 10 + static_cast<std::uint64_t>(*b - '0');
      if (++count > 15) return false;
      if (point) ++decimals;
    } else if (*b == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  if (count == 0) return false;
  const double v = static_cast<double>(digits) / kTens[decimals];
  out = negative ? -v : v;
  return true;
}

// The shared leading-number parse, with fast paths for a field that is one
// plain number, the form recorded files hold.
double leadingValue(std::string_view s) {
  std::size_t b = 0, e = s.size();
  while (b < e && (s[b] == ' ' || s[b] == '\t')) ++b;
  while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t')) --e;
  double v = 0;
  if (plainDecimal(s.data() + b, s.data() + e, v)) return v;
  const std::size_t first = b < e && s[b] == '-' ? b + 1 : b;
  if (first < e && ((s[first] >= '0' && s[first] <= '9') || s[first] == '.')) {
    const auto r = std::from_chars(s.data() + b, s.data() + e, v);
    if (r.ec == std::errc() && r.ptr == s.data() + e) return v;
  }
  return marloven::leadingNumber(s);
}

double num(const CsvFields& f, std::size_t i) {
  if (i >= f.size()) return kNaN;
  const std::string_view s = f[i];
  if (s.find_first_not_of(" \t") == std::string_view::npos) return kNaN;
  return leadingValue(s);
}

RawFile readEpw(const std::vector<std::string_view>& lines, RunLog& log) {
  RawFile f;
  CsvFields v;
  if (!lines.empty() && lines[0].rfind("LOCATION,", 0) == 0) {
    v.split(lines[0]);
    const CsvFields& loc = v;
    if (loc.size() >= 10) {
      f.hasSite = true;
      f.site.latitude = num(loc, 6);
      f.site.longitude = -num(loc, 7);
      f.site.meridian = -15.0 * num(loc, 8);
      f.site.elevation = num(loc, 9) / 0.3048;
      f.station = std::string(loc[1]) + " " + std::string(loc[2]);
    }
  }
  f.hours.reserve(lines.size());
  for (std::size_t i = 8; i < lines.size(); ++i) {
    if (lines[i].find_first_not_of(" \t") == std::string_view::npos) continue;
    v.split(lines[i]);
    if (v.size() < 22) {
      log.warning(where(i + 1), "record with " + std::to_string(v.size()) + " fields skipped");
      continue;
    }
    RawHour h;
    h.line = i + 1;
    h.month = calendarNumber(num(v, 1));
    h.day = calendarNumber(num(v, 2));
    const double db = num(v, 6), dp = num(v, 7), rh = num(v, 8), p = num(v, 9);
    h.db = orNaN(cToF(db), !(db < 99.9));
    h.dp = orNaN(cToF(dp), !(dp < 99.9));
    h.rh = orNaN(rh / 100.0, !(rh >= 0 && rh <= 110));
    h.p = orNaN(p / 3386.39, !(p > 0 && p < 999999));
    const double gh = num(v, 13), dn = num(v, 14), dh = num(v, 15), ws = num(v, 21), ir = num(v, 12);
    h.gh = orNaN(gh * kWhM2ToBtuFt2, !(gh >= 0 && gh < 9999));
    h.dn = orNaN(dn * kWhM2ToBtuFt2, !(dn >= 0 && dn < 9999));
    h.dh = orNaN(dh * kWhM2ToBtuFt2, !(dh >= 0 && dh < 9999));
    h.wind = orNaN(ws * kMsToMph, !(ws >= 0 && ws < 999));
    h.ir = orNaN(ir * kWhM2ToBtuFt2, !(ir > 0 && ir < 9999));
    if (v.size() > 23) {
      const double opaque = num(v, 23);
      h.cover = orNaN(opaque, !(opaque >= 0 && opaque <= 10));
    }
    f.hours.push_back(h);
  }
  return f;
}

RawFile readTmy3(const std::vector<std::string_view>& lines) {
  RawFile f;
  CsvFields v;
  if (!lines.empty()) {
    v.split(lines[0]);
    const CsvFields& head = v;
    if (head.size() >= 7) {
      f.hasSite = true;
      f.site.latitude = num(head, 4);
      f.site.longitude = -num(head, 5);
      f.site.meridian = -15.0 * num(head, 3);
      f.site.elevation = num(head, 6) / 0.3048;
      f.station = std::string(head[0]) + " " + std::string(head[1]) + " " + std::string(head[2]);
    }
  }
  f.hours.reserve(lines.size());
  for (std::size_t i = 2; i < lines.size(); ++i) {
    v.split(lines[i]);
    if (v.size() < 47) continue;
    RawHour h;
    h.line = i + 1;
    h.month = calendarNumber(num(v, 0));
    h.day = calendarNumber(marloven::leadingNumber(v[0].substr(std::min<std::size_t>(3, v[0].size()))));
    const double gh = num(v, 4), dn = num(v, 7), dh = num(v, 10), db = num(v, 31), dp = num(v, 34),
                 rh = num(v, 37), p = num(v, 40), ws = num(v, 46), opaque = num(v, 28);
    h.gh = orNaN(gh * kWhM2ToBtuFt2, !(gh >= 0 && gh < 9999));
    h.dn = orNaN(dn * kWhM2ToBtuFt2, !(dn >= 0 && dn < 9999));
    h.dh = orNaN(dh * kWhM2ToBtuFt2, !(dh >= 0 && dh < 9999));
    h.db = orNaN(cToF(db), !(db > -99 && db < 99.9));
    h.dp = orNaN(cToF(dp), !(dp > -99 && dp < 99.9));
    h.rh = orNaN(rh / 100.0, !(rh >= 0 && rh <= 110));
    h.p = orNaN(p * 0.02953, !(p > 0 && p < 9999));
    h.wind = orNaN(ws * kMsToMph, !(ws >= 0 && ws < 999));
    h.cover = orNaN(opaque, !(opaque >= 0 && opaque <= 10));
    f.hours.push_back(h);
  }
  return f;
}

// The fields the fixed-width formats share: radiation in the file's unit
// (9999 missing), dry bulb and dew point in tenths of °C, wind in tenths of
// m/s (missing from windMissing up).
void fixedWidthFields(RawHour& h, double gh, double dn, double dh, double toBtu, double db, double dp, double ws,
                      double windMissing) {
  h.gh = orNaN(gh * toBtu, !(gh >= 0 && gh < 9999));
  h.dn = orNaN(dn * toBtu, !(dn >= 0 && dn < 9999));
  h.dh = orNaN(dh * toBtu, !(dh >= 0 && dh < 9999));
  h.db = orNaN(cToF(db / 10.0), !(db > -999 && db < 9999));
  h.dp = orNaN(cToF(dp / 10.0), !(dp > -999 && dp < 9999));
  h.wind = orNaN(ws / 10.0 * kMsToMph, !(ws >= 0 && ws < windMissing));
}

RawFile readTmy2(const std::vector<std::string_view>& lines) {
  RawFile f;
  if (lines.empty()) return f;
  const std::string_view head = lines[0];
  // Column positions as the NREL files have them (checked against a real .tm2).
  const double tz = field(head, 34, 3), latD = field(head, 40, 2), latM = field(head, 43, 2),
               lonD = field(head, 48, 3), lonM = field(head, 52, 2), elev = field(head, 56, 4);
  if (!std::isnan(latD) && !std::isnan(lonD)) {
    f.hasSite = true;
    const double lat = latD + (std::isnan(latM) ? 0 : latM) / 60.0;
    const double lon = lonD + (std::isnan(lonM) ? 0 : lonM) / 60.0;
    f.site.latitude = marloven::midText(head, 38, 1) == "S" ? -lat : lat;
    f.site.longitude = marloven::midText(head, 46, 1) == "E" ? -lon : lon;
    f.site.meridian = std::isnan(tz) ? 15.0 * std::round(f.site.longitude / 15.0) : -15.0 * tz;
    f.site.elevation = (std::isnan(elev) ? 0.0 : elev) / 0.3048;
    f.station = std::string(marloven::midText(head, 2, 5)) + " " +
                std::string(marloven::midText(head, 8, 22));
    while (!f.station.empty() && f.station.back() == ' ') f.station.pop_back();
  }
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::string_view l = lines[i];
    if (l.size() < 98) continue;
    RawHour h;
    h.line = i + 1;
    h.month = calendarNumber(field(l, 4, 2));
    h.day = calendarNumber(field(l, 6, 2));
    const double gh = field(l, 18, 4), dn = field(l, 24, 4), dh = field(l, 30, 4),
                 db = field(l, 68, 4), dp = field(l, 74, 4), rh = field(l, 80, 3),
                 p = field(l, 85, 4), ws = field(l, 96, 3);
    fixedWidthFields(h, gh, dn, dh, kWhM2ToBtuFt2, db, dp, ws, 999);
    h.rh = orNaN(rh / 100.0, !(rh >= 0 && rh <= 110));
    h.p = orNaN(p * 0.02953, !(p > 0 && p < 9999));
    f.hours.push_back(h);
  }
  return f;
}

RawFile readWyec2(const std::vector<std::string_view>& lines) {
  RawFile f;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view l = lines[i];
    if (l.size() < 107) continue;
    RawHour h;
    h.line = i + 1;
    h.month = calendarNumber(field(l, 9, 2));
    h.day = calendarNumber(field(l, 11, 2));
    const double gh = field(l, 19, 4), dn = field(l, 25, 4), dh = field(l, 31, 4),
                 p = field(l, 84, 5), db = field(l, 90, 4), dp = field(l, 95, 4),
                 ws = field(l, 104, 4);
    fixedWidthFields(h, gh, dn, dh, kKjM2ToBtuFt2, db, dp, ws, 9999);
    h.p = orNaN(p / 100.0 * 0.2953, !(p > 0 && p < 99999));
    f.hours.push_back(h);
  }
  return f;
}

RawFile readCustom(const std::vector<std::string_view>& lines, RunLog& log) {
  RawFile f;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string l(lines[i]);
    const std::size_t first = l.find_first_not_of(" \t");
    if (first == std::string::npos) continue;
    if (!(l[first] >= '0' && l[first] <= '9') && l[first] != '-' && l[first] != '.') {
      if (!f.hours.empty() || i >= 4) log.warning(where(i + 1), "comment line inside the data ignored");
      continue;
    }
    std::replace(l.begin(), l.end(), ',', ' ');
    std::vector<double> v;
    std::size_t pos = 0;
    while (pos < l.size()) {
      while (pos < l.size() && (l[pos] == ' ' || l[pos] == '\t')) ++pos;
      if (pos >= l.size()) break;
      const std::size_t end = l.find_first_of(" \t", pos);
      // A value that is no number is missing, never 0 °F.
      const marloven::NumberText n = marloven::readNumberText(l.substr(pos, end == std::string::npos ? end : end - pos));
      v.push_back(n.kind == marloven::NumberText::Number ? n.value : kNaN);
      pos = end == std::string::npos ? l.size() : end;
    }
    if (v.size() < 10) {
      log.warning(where(i + 1), "data line with fewer than 10 values skipped");
      continue;
    }
    RawHour h;
    h.line = i + 1;
    h.month = calendarNumber(v[1]);
    h.day = calendarNumber(v[2]);
    h.db = v[4];
    h.dp = v[5];
    h.gh = orNaN(v[6], v[6] < 0);
    h.dn = orNaN(v[7], v[7] < 0);
    h.dh = orNaN(v[8], v[8] < 0);
    h.wind = orNaN(v[9], v[9] < 0);
    if (v.size() > 10 && v[10] > 0) h.p = v[10];
    f.hours.push_back(h);
  }
  return f;
}

// The longest gap filled, in hours: linearly, as none of the formats' own
// documentation gives a rule of its own for the hours it leaves missing.
constexpr std::size_t kMaxGapHours = 6;

// Fills the gaps of one series linearly (a gap at an end takes the nearest
// value); a longer gap, or a series missing in every hour, stops the run.
void fillGaps(std::vector<double>& x, const std::vector<RawHour>& hours, const char* what) {
  const std::size_t n = x.size();
  std::size_t i = 0;
  while (i < n) {
    if (!std::isnan(x[i])) {
      ++i;
      continue;
    }
    std::size_t j = i;
    while (j < n && std::isnan(x[j])) ++j;
    const std::size_t len = j - i;
    if (len == n)
      throw RunFailure(ExitCode::BadWeather, kWhere, std::string("the ") + what + " is missing in every record");
    if (len > kMaxGapHours)
      throw RunFailure(ExitCode::BadWeather, where(hours[i].line),
                       std::string("the ") + what + " is missing for " + std::to_string(len) +
                           " hours from this record on; gaps of up to " + std::to_string(kMaxGapHours) +
                           " hours are filled");
    for (std::size_t k = i; k < j; ++k) {
      if (i == 0) x[k] = x[j];
      else if (j == n) x[k] = x[i - 1];
      else x[k] = x[i - 1] + (x[j] - x[i - 1]) * static_cast<double>(k - i + 1) / static_cast<double>(len + 1);
    }
    i = j;
  }
}

// Physical ranges of the values read, I-P, once the format's missing-value
// codes are taken out: anything outside is a misread file or a bad record.
// Radiation allows for the files' own excursions above the solar constant
// (433 Btu/ft2 in an hour); a file read at kJ where it has Wh is far above.
struct ValueRange {
  double RawHour::*member;
  const char* name;
  double lo, hi;
  const char* unit;
};
constexpr ValueRange kValueRanges[] = {
    {&RawHour::db, "dry bulb", -130, 140, "F"},
    {&RawHour::dp, "dew point", -130, 100, "F"},
    {&RawHour::gh, "global horizontal radiation", 0, 600, "Btu/ft2"},
    {&RawHour::dn, "direct normal radiation", 0, 600, "Btu/ft2"},
    {&RawHour::dh, "diffuse horizontal radiation", 0, 600, "Btu/ft2"},
    {&RawHour::wind, "wind speed", 0, 200, "mph"},
    {&RawHour::p, "pressure", 10, 33, "in Hg"},
    {&RawHour::ir, "sky long-wave radiation", 0, 250, "Btu/h.ft2"},
};

void checkRanges(const std::vector<RawHour>& hours) {
  for (const RawHour& h : hours)
    for (const ValueRange& r : kValueRanges) {
      const double v = h.*r.member;
      if (std::isnan(v) || (v >= r.lo && v <= r.hi)) continue;
      const double shown = std::isfinite(v) ? std::round(v * 10.0) / 10.0 : v;
      throw RunFailure(ExitCode::BadInput, where(h.line),
                       std::string("the ") + r.name + ", " +
                           (std::isfinite(v) ? marloven::bare(shown) : std::string("not a finite number")) + " " +
                           r.unit + ", is outside " + marloven::bare(r.lo) + " to " + marloven::bare(r.hi) + " " +
                           r.unit);
    }
}

// Whether the records of a file have the month, day and hour of a fixed-column
// layout where they belong: the first day of records checked.
bool fixedColumnsFit(const std::vector<std::string_view>& lines, std::size_t firstLine, std::size_t minLength,
                     std::size_t monthCol) {
  int seen = 0;
  for (std::size_t i = firstLine; i < lines.size() && seen < 24; ++i) {
    if (lines[i].size() < minLength) continue;
    const double m = field(lines[i], monthCol, 2), d = field(lines[i], monthCol + 2, 2),
                 h = field(lines[i], monthCol + 4, 2);
    if (!(m >= 1 && m <= 12 && d >= 1 && d <= 31 && h >= 0 && h <= 24)) return false;
    ++seen;
  }
  return seen > 0;
}

bool customFits(const std::vector<std::string_view>& lines) {
  int seen = 0;
  for (std::size_t i = 0; i < lines.size() && seen < 24; ++i) {
    const std::string_view l = lines[i];
    const std::size_t first = l.find_first_not_of(" \t");
    if (first == std::string_view::npos) continue;
    if (!(l[first] >= '0' && l[first] <= '9') && l[first] != '-' && l[first] != '.') continue;
    std::vector<double> v;
    for (std::size_t pos = 0; (pos = l.find_first_not_of(" \t,", pos)) != std::string_view::npos;) {
      const std::size_t end = std::min(l.size(), l.find_first_of(" \t,", pos));
      v.push_back(marloven::leadingNumber(l.substr(pos, end - pos)));
      pos = end;
    }
    if (v.size() < 10 || !(v[1] >= 1 && v[1] <= 12 && v[2] >= 1 && v[2] <= 31 && v[3] >= 0 && v[3] <= 24)) return false;
    ++seen;
  }
  return seen > 0;
}

const char* formatName(WeatherFormat f) {
  switch (f) {
    case WeatherFormat::Tmy2: return "TMY2";
    case WeatherFormat::Wyec2: return "WYEC2";
    case WeatherFormat::Custom: return "CUSTOM";
    case WeatherFormat::Epw: return "IWEC (EPW)";
    case WeatherFormat::Tmy3: return "TMY3 CSV";
    case WeatherFormat::Simulated: break;
  }
  return "";
}

bool fits(const std::vector<std::string_view>& lines, WeatherFormat f) {
  switch (f) {
    case WeatherFormat::Tmy2: return fixedColumnsFit(lines, 1, 98, 4);
    case WeatherFormat::Wyec2: return fixedColumnsFit(lines, 0, 107, 9);
    case WeatherFormat::Custom: return customFits(lines);
    case WeatherFormat::Epw: return !lines.empty() && lines[0].rfind("LOCATION,", 0) == 0;
    default: return true;
  }
}

// Refuses a file whose records are not laid out as the declared format's,
// naming the layout they have, so a file is never read at the wrong columns.
void checkLayout(const std::vector<std::string_view>& lines, WeatherFormat declared) {
  if (fits(lines, declared)) return;
  std::string looks;
  if (fits(lines, WeatherFormat::Tmy2)) looks = "TMY2";
  else if (fits(lines, WeatherFormat::Wyec2)) looks = "WYEC2";
  // The first TMY layout (month, day and hour from column 8), which no control code reads.
  else if (fixedColumnsFit(lines, 0, 100, 8)) looks = "TMY, the older layout that is not read; convert it to TMY2 or EPW";
  else if (fits(lines, WeatherFormat::Custom)) looks = "CUSTOM";
  throw RunFailure(ExitCode::BadInput, kWhere,
                   std::string("the file is not ") + formatName(declared) + " as the control file says" +
                       (looks.empty() ? std::string(": its records do not have that format's month, day and hour")
                                      : "; it looks like " + looks));
}

// Erbs, Klein & Duffie hourly diffuse fraction.
double erbsHourly(double kt) {
  if (kt <= 0.22) return 1.0 - 0.09 * kt;
  if (kt <= 0.80) return 0.9511 - 0.1604 * kt + 4.388 * kt * kt - 16.638 * kt * kt * kt + 12.336 * kt * kt * kt * kt;
  return 0.165;
}

}  // namespace

WeatherFormat detectFormat(std::string_view bytes, WeatherFormat declared) {
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
  const std::size_t e1 = bytes.find_first_of("\r\n");
  const std::string_view first = bytes.substr(0, e1);
  if (first.rfind("LOCATION,", 0) == 0) return WeatherFormat::Epw;
  if (e1 != std::string_view::npos) {
    std::size_t s2 = e1;
    while (s2 < bytes.size() && (bytes[s2] == '\r' || bytes[s2] == '\n')) ++s2;
    if (bytes.substr(s2).rfind("Date (MM/DD/YYYY)", 0) == 0) return WeatherFormat::Tmy3;
  }
  return declared;
}

WeatherYear readRecorded(std::string_view bytes, WeatherFormat declared, int year,
                         const Site& projectSite, RunLog& log) {
  const WeatherFormat format = detectFormat(bytes, declared);
  if (format != declared)
    log.warning(kWhere, "the file's content shows a different format than the control file names; read by its content");
  const std::vector<std::string_view> lines = lineViews(bytes);
  if (format == declared) checkLayout(lines, declared);
  RawFile raw;
  const char* name = formatName(format);
  switch (format) {
    case WeatherFormat::Tmy2: raw = readTmy2(lines); break;
    case WeatherFormat::Wyec2: raw = readWyec2(lines); break;
    case WeatherFormat::Custom: raw = readCustom(lines, log); break;
    case WeatherFormat::Epw: raw = readEpw(lines, log); break;
    case WeatherFormat::Tmy3: raw = readTmy3(lines); break;
    case WeatherFormat::Simulated: break;
  }
  checkRanges(raw.hours);

  const bool leap = isLeapYear(year);
  const std::size_t need = leap ? 8784 : 8760;
  std::vector<RawHour> hours;
  hours.reserve(need);
  const bool fileHasFeb29 = std::any_of(raw.hours.begin(), raw.hours.end(),
                                        [](const RawHour& h) { return h.month == 2 && h.day == 29; });
  for (std::size_t i = 0; i < raw.hours.size(); ++i) {
    const RawHour& h = raw.hours[i];
    if (h.month == 2 && h.day == 29 && !leap) continue;
    hours.push_back(h);
    // A common-year file run in a leap year repeats 28 February.
    if (leap && !fileHasFeb29 && h.month == 2 && h.day == 28 &&
        (i + 1 == raw.hours.size() || raw.hours[i + 1].month != 2 || raw.hours[i + 1].day != 28)) {
      const std::size_t n = hours.size();
      if (n >= 24)
        for (std::size_t k = n - 24; k < n; ++k) hours.push_back(hours[k]);
    }
  }
  if (hours.size() < need)
    throw RunFailure(ExitCode::BadWeather, kWhere,
                     std::string("recorded weather (") + name + ") has " + std::to_string(raw.hours.size()) +
                         " hourly records; the year " + std::to_string(year) + " needs " +
                         std::to_string(need));
  hours.resize(need);

  WeatherYear wy;
  wy.year = year;
  wy.days = leap ? 366 : 365;
  wy.recordedHours = static_cast<int>(raw.hours.size());
  wy.site = projectSite;
  if (raw.hasSite) {
    if (std::fabs(raw.site.latitude - projectSite.latitude) > 1.0 ||
        std::fabs(raw.site.longitude - projectSite.longitude) > 1.0)
      log.warning(kWhere, "the file's location differs from the project's by more than 1 degree; the file's is used for the sun");
    wy.site = raw.site;
  }
  wy.source = std::string("RECORDED ") + name + " FILE" +
              (raw.station.empty() ? std::string() : ", STATION " + raw.station) + ", " +
              std::to_string(wy.recordedHours) + " HOURS";

  // Dew point from RH where only RH is given.
  for (RawHour& h : hours)
    if (std::isnan(h.dp) && !std::isnan(h.rh) && !std::isnan(h.db)) h.dp = dewPointFromRh(h.db, h.rh);

  auto series = [&](double RawHour::*m) {
    std::vector<double> x(hours.size());
    for (std::size_t i = 0; i < hours.size(); ++i) x[i] = hours[i].*m;
    return x;
  };
  const std::vector<double> dnRaw = series(&RawHour::dn), dhRaw = series(&RawHour::dh);
  auto db = series(&RawHour::db), dp = series(&RawHour::dp), gh = series(&RawHour::gh),
       wind = series(&RawHour::wind), p = series(&RawHour::p);
  const double pSite = pressureAtElevation(wy.site.elevation);
  for (double& v : p)
    if (std::isnan(v)) v = pSite;
  fillGaps(db, hours, "dry bulb");
  fillGaps(dp, hours, "dew point");
  fillGaps(gh, hours, "global horizontal radiation");
  fillGaps(wind, hours, "wind speed");

  wy.hours.resize(need);
  const double lat = wy.site.latitude * kDeg;
  DayAstro astro{};
  for (std::size_t i = 0; i < need; ++i) {
    WeatherHour& w = wy.hours[i];
    w.dryBulb = db[i];
    w.dewPoint = std::min(dp[i], db[i]);
    w.pressure = p[i];
    w.wind = std::max(0.0, wind[i]);
    w.globalH = std::max(0.0, gh[i]);
    const int day = static_cast<int>(i / 24) + 1;
    const double hour = static_cast<double>(i % 24) + 0.5;
    if (i % 24 == 0) astro = dayAstro(day);
    const DayAstro& a = astro;
    const double omega = 15.0 * kDeg * (solarTime(hour, wy.site, a.equationOfTime) - 12.0);
    const double sinAlt = sunVector(lat, a.declination, omega).u;
    double dn = dnRaw[i], dh = dhRaw[i];
    if (std::isnan(dn) || std::isnan(dh)) {
      // Split the global by the hourly diffuse-fraction correlation.
      const double kt = sinAlt > 0.02 ? std::min(1.0, w.globalH / (a.extraNormal * sinAlt)) : 0.0;
      dh = std::isnan(dh) ? w.globalH * (sinAlt > 0.02 ? erbsHourly(kt) : 1.0) : dh;
      dn = sinAlt > 0.02 ? std::max(0.0, w.globalH - dh) / sinAlt : 0.0;
    }
    w.diffuseH = std::max(0.0, dh);
    w.directN = sinAlt > 0.0 ? std::max(0.0, dn) : 0.0;
  }
  // Daily clearness of the recorded days, for the weather summary.
  wy.dailyClearness.assign(wy.days, 0.0);
  for (int d = 1; d <= wy.days; ++d) {
    double h = 0;
    for (int k = 0; k < 24; ++k) h += wy.hours[static_cast<std::size_t>(d - 1) * 24 + k].globalH;
    const double h0 = dailyExtraterrestrial(lat, dayAstro(d));
    wy.dailyClearness[d - 1] = h0 > 0 ? h / h0 : 0.0;
  }
  // Sky long-wave: the file's where it has it, else from the dew point and the
  // cloud cover (the file's, or the day's clearness when it has none).
  for (std::size_t i = 0; i < need; ++i) {
    WeatherHour& w = wy.hours[i];
    if (!std::isnan(hours[i].ir)) {
      w.skyIr = hours[i].ir;
      continue;
    }
    const double cover = !std::isnan(hours[i].cover) ? hours[i].cover
                                                      : cloudCoverFromClearness(wy.dailyClearness[i / 24]);
    w.skyIr = skyInfrared(w.dryBulb, w.dewPoint, cover);
  }
  return wy;
}

}  // namespace tarn
