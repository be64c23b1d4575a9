#include "weather/epw_import.h"

#include <cmath>
#include <map>
#include <vector>

#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

// Fields of a comma-separated line, as they stand.
std::vector<std::string_view> commaFields(std::string_view line) {
  std::vector<std::string_view> out;
  std::size_t from = 0;
  for (;;) {
    const std::size_t comma = line.find(',', from);
    out.push_back(line.substr(from, comma == std::string_view::npos ? std::string_view::npos : comma - from));
    if (comma == std::string_view::npos) return out;
    from = comma + 1;
  }
}

std::string trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return std::string(s);
}

double cToF(double c) { return c * 1.8 + 32.0; }

// Wh/m2 to Btu/ft2: 1 Wh = 3.6 kJ, and 1 Btu/ft2 = 11.3565295 kJ/m2 (the
// database's own SI factor, so an import shown in SI reads back the source).
constexpr double kWhPerM2ToBtuPerFt2 = 3.6 / 11.3565295;
constexpr double kMetresPerSecondToMph = 1.0 / 0.44704;

// Missing-value codes of the layout: 99.9 for temperatures, 9999 for
// radiation, 999 for wind.
// 99.9 marks a missing temperature (999 and 9999 in some files); anything else
// outside the range of the earth's air is a broken record, not a value.
constexpr double kLowestC = -90.0, kHighestC = 70.0;
bool missingTemperature(double c) { return c == 99.9 || c == 999.0 || c == 9999.0; }
bool validTemperature(double c) { return !missingTemperature(c); }

// A number of the file that must be finite; blank or text is 0, as before.
double finiteField(std::string_view text, std::size_t line, const char* what) {
  const NumberText n = readNumberText(text);
  if (n.kind == NumberText::NotFinite)
    throw WeatherImportError("line " + std::to_string(line) + ": the " + what + " \"" + trimmed(text) +
                             "\" is not a finite number");
  return n.kind == NumberText::Number ? n.value : 0.0;
}

double temperatureField(std::string_view text, std::size_t line, const char* what) {
  const double c = finiteField(text, line, what);
  if (!missingTemperature(c) && (c < kLowestC || c > kHighestC))
    throw WeatherImportError("line " + std::to_string(line) + ": the " + what + " " + trimmed(text) +
                             " C is impossible; it must be " + bare(kLowestC) + " to " + bare(kHighestC) +
                             " C, or 99.9 when missing");
  return c;
}

double siteField(std::string_view text, const char* what, double lo, double hi, const char* unit) {
  const NumberText n = readNumberText(text);
  if (n.kind == NumberText::NotFinite || n.kind == NumberText::NotANumber)
    throw WeatherImportError(std::string("the LOCATION line's ") + what + " \"" + trimmed(text) + "\" is not a number");
  if (n.value < lo || n.value > hi)
    throw WeatherImportError(std::string("the LOCATION line's ") + what + " " + trimmed(text) + " is outside " +
                             bare(lo) + " to " + bare(hi) + " " + unit);
  return n.value;
}
bool validRadiation(double v) { return v >= 0.0 && v < 9999.0; }
bool validWind(double v) { return v >= 0.0 && v < 999.0; }

// One calendar day of hourly values.
struct Day {
  int month = 0;
  double dbSum = 0, dpSum = 0, ghiSum = 0;
  int dbCount = 0, dpCount = 0, hours = 0, ghiCount = 0;
  double dbMax = -1e9;
};

struct Accumulator {
  double sum = 0, sumSq = 0;
  int n = 0;
  void add(double v) {
    sum += v;
    sumSq += v * v;
    ++n;
  }
  double mean() const { return n ? sum / n : 0.0; }
  // Population standard deviation: the spread of the days of this month
  // around their own mean, not an estimate for other years.
  double deviation() const {
    if (n == 0) return 0.0;
    const double m = mean();
    const double var = sumSq / n - m * m;
    return var > 0 ? std::sqrt(var) : 0.0;
  }
};

const std::map<std::string, std::string>& usStates() {
  static const std::map<std::string, std::string> names = {
      {"AK", "Alaska"}, {"AL", "Alabama"}, {"AR", "Arkansas"}, {"AZ", "Arizona"}, {"CA", "California"},
      {"CO", "Colorado"}, {"CT", "Connecticut"}, {"DC", "District of Columbia"}, {"DE", "Delaware"},
      {"FL", "Florida"}, {"GA", "Georgia"}, {"GU", "Guam"}, {"HI", "Hawaii"}, {"IA", "Iowa"}, {"ID", "Idaho"},
      {"IL", "Illinois"}, {"IN", "Indiana"}, {"KS", "Kansas"}, {"KY", "Kentucky"}, {"LA", "Louisiana"},
      {"MA", "Massachusetts"}, {"MD", "Maryland"}, {"ME", "Maine"}, {"MI", "Michigan"}, {"MN", "Minnesota"},
      {"MO", "Missouri"}, {"MS", "Mississippi"}, {"MT", "Montana"}, {"NC", "North Carolina"},
      {"ND", "North Dakota"}, {"NE", "Nebraska"}, {"NH", "New Hampshire"}, {"NJ", "New Jersey"},
      {"NM", "New Mexico"}, {"NV", "Nevada"}, {"NY", "New York"}, {"OH", "Ohio"}, {"OK", "Oklahoma"},
      {"OR", "Oregon"}, {"PA", "Pennsylvania"}, {"PR", "Puerto Rico"}, {"RI", "Rhode Island"},
      {"SC", "South Carolina"}, {"SD", "South Dakota"}, {"TN", "Tennessee"}, {"TX", "Texas"}, {"UT", "Utah"},
      {"VA", "Virginia"}, {"VI", "Virgin Islands"}, {"VT", "Vermont"}, {"WA", "Washington"},
      {"WI", "Wisconsin"}, {"WV", "West Virginia"}, {"WY", "Wyoming"}};
  return names;
}

std::string oneDecimal(double v) { return bare(roundTo(v, 1)); }

}  // namespace

EpwStatistics readEpw(std::string_view bytes) {
  const std::vector<std::string> lines = splitLines(bytes);
  if (lines.empty() || lines[0].rfind("LOCATION", 0) != 0)
    throw WeatherImportError("line 1 is not a LOCATION line: not a recorded weather file of this layout");
  const auto loc = commaFields(lines[0]);
  if (loc.size() < 10) throw WeatherImportError("the LOCATION line has fewer than 10 fields");
  EpwStatistics s;
  s.site = {trimmed(loc[1]), trimmed(loc[2]), trimmed(loc[3]), trimmed(loc[4]), trimmed(loc[5]),
            siteField(loc[6], "latitude", -90, 90, "degrees"), siteField(loc[7], "longitude", -180, 180, "degrees"),
            siteField(loc[8], "time zone", -12, 14, "hours"), siteField(loc[9], "elevation", -500, 9000, "m")};

  std::size_t first = 8;
  for (std::size_t i = 1; i < lines.size() && i < 12; ++i)
    if (lines[i].rfind("DATA PERIODS", 0) == 0) first = i + 1;

  // Hours are grouped into days by their month and day fields, in file order.
  std::vector<Day> days;
  std::array<Accumulator, 12> dryBulb{}, dewPoint{}, wind{};
  int lastMonth = -1, lastDay = -1;
  for (std::size_t i = first; i < lines.size(); ++i) {
    if (lines[i].empty()) continue;
    const auto f = commaFields(lines[i]);
    if (f.size() < 22)
      throw WeatherImportError("line " + std::to_string(i + 1) + " has " + std::to_string(f.size()) +
                               " fields; an hourly record has at least 22");
    // Through a range first: a conversion out of the integer's range is undefined.
    const double monthValue = leadingNumber(f[1]), dayValue = leadingNumber(f[2]);
    const int month = monthValue >= 1 && monthValue < 13 ? static_cast<int>(monthValue) : 0;
    const int day = dayValue >= 1 && dayValue < 32 ? static_cast<int>(dayValue) : 0;
    if (month < 1 || month > 12 || day < 1 || day > 31)
      throw WeatherImportError("line " + std::to_string(i + 1) + ": month " + trimmed(f[1]) + ", day " + trimmed(f[2]) +
                               " is not a date");
    if (month != lastMonth || day != lastDay) {
      days.push_back(Day{});
      days.back().month = month;
      lastMonth = month;
      lastDay = day;
    }
    Day& d = days.back();
    const std::size_t m = static_cast<std::size_t>(month - 1);
    ++d.hours;
    const double db = temperatureField(f[6], i + 1, "dry bulb"), dp = temperatureField(f[7], i + 1, "dew point");
    const double ghi = finiteField(f[13], i + 1, "global horizontal radiation"),
                 ws = finiteField(f[21], i + 1, "wind speed");
    if (validTemperature(db)) {
      const double t = cToF(db);
      dryBulb[m].add(t);
      d.dbSum += t;
      ++d.dbCount;
      if (t > d.dbMax) d.dbMax = t;
    }
    if (validTemperature(dp)) {
      const double t = cToF(dp);
      dewPoint[m].add(t);
      d.dpSum += t;
      ++d.dpCount;
    }
    if (validRadiation(ghi)) {
      d.ghiSum += ghi;
      ++d.ghiCount;
    }
    if (validWind(ws)) wind[m].add(ws * kMetresPerSecondToMph);
  }

  std::array<Accumulator, 12> dailyMean{}, dailyMax{}, dailyDewPoint{}, dailySolar{};
  for (const Day& d : days) {
    const std::size_t m = static_cast<std::size_t>(d.month - 1);
    ++s.days[m];
    if (d.dbCount > 0) {
      dailyMean[m].add(d.dbSum / d.dbCount);
      dailyMax[m].add(d.dbMax);
    }
    if (d.dpCount > 0) dailyDewPoint[m].add(d.dpSum / d.dpCount);
    // A day's radiation counts only when every hour of it is known: a sum
    // with gaps would understate it.
    if (d.ghiCount == d.hours) dailySolar[m].add(d.ghiSum * kWhPerM2ToBtuPerFt2);
  }

  static constexpr const char* kMonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                                "July",    "August",   "September", "October", "November", "December"};
  for (std::size_t m = 0; m < 12; ++m) {
    const auto missing = [&](const char* what) {
      return WeatherImportError(std::string(kMonthNames[m]) + " has no " + what);
    };
    if (dailyMean[m].n == 0) throw missing("dry bulb temperatures");
    if (dailyDewPoint[m].n == 0) throw missing("dew point temperatures");
    if (dailySolar[m].n == 0) throw missing("day with global horizontal radiation in every hour");
    if (wind[m].n == 0) throw missing("wind speeds");
    auto& v = s.months;
    // Mean dry bulb: the mean of every hourly value of the month.
    v[kDryBulbAverage][m] = dryBulb[m].mean();
    // Its deviation: the spread of the daily means (each the mean of that
    // day's hours) around their monthly mean.
    v[kDryBulbAverageStd][m] = dailyMean[m].deviation();
    // Mean daily maximum: the mean over the days of each day's highest hour.
    v[kDryBulbMaximum][m] = dailyMax[m].mean();
    v[kDryBulbMaximumStd][m] = dailyMax[m].deviation();
    // Dew point: the mean of the hourly values; its deviation from the daily
    // means as for the dry bulb.
    v[kDewPointAverage][m] = dewPoint[m].mean();
    v[kDewPointStd][m] = dailyDewPoint[m].deviation();
    // Solar: the mean over the days of the day's total global horizontal
    // radiation, Btu/ft2 per day.
    v[kSolar][m] = dailySolar[m].mean();
    // Wind: the mean of the hourly speeds, mph.
    v[kWind][m] = wind[m].mean();
  }
  return s;
}

std::string defaultWeatherGroup(const EpwSite& site) {
  if (site.country == "USA" || site.country == "PRI") {
    const auto found = usStates().find(site.state);
    if (found != usStates().end()) return found->second;
  }
  return site.country;
}

WeatherFields fieldsFromEpw(const EpwStatistics& s, const std::string& group, const std::string& city) {
  const auto check = [](const std::string& name, const char* what, std::string_view refused) {
    if (trimmed(name).empty()) throw WeatherImportError(std::string("the ") + what + " name is empty");
    if (name.find_first_of(refused) != std::string::npos)
      throw WeatherImportError(std::string("the ") + what + " name \"" + name + "\" holds one of " +
                               std::string(refused) + ", which the location text cannot keep apart");
  };
  check(group, "group", ",\"!#*@");
  check(city, "city", ",\"");
  if (group.size() > 30) throw WeatherImportError("the group name \"" + group + "\" is longer than 30 characters");

  WeatherFields f;
  f.state = group;
  // "city, group" must fit the 37 characters of a new group's location text,
  // or the group's name in the file would be cut and the group lost.
  const std::size_t room = 37 - 2 - group.size();
  f.city = trimmed(city.size() > room ? city.substr(0, room) : city);
  f.station = s.site.station;
  f.latitude = oneDecimal(s.site.latitude);
  f.longitude = oneDecimal(-s.site.longitude + 0.0);
  f.timeZone = oneDecimal(-15.0 * s.site.timeZone + 0.0);
  f.elevation = bare(static_cast<float>(std::floor(s.site.elevation / 0.3048 + 0.5)));
  for (int row = 0; row < kWeatherRows; ++row)
    for (std::size_t m = 0; m < 12; ++m)
      f.rows[row][m] = bare(roundTo(s.months[row][m], row == kSolar ? 0 : 1));
  f.annualExtreme.fill("0.0");
  f.extremeDryBulb.fill("0.0");
  return f;
}

bool importWeatherRecord(const std::string& path, const EpwStatistics& s, const std::string& group,
                         const std::string& city, WeatherFields& fields, int& record) {
  fields = fieldsFromEpw(s, group.empty() ? defaultWeatherGroup(s.site) : group,
                         city.empty() ? s.site.city : city);
  const std::vector<WeatherRecordHead> heads = readRecordHeadsFile(path);
  // The reader stops at its record limit: a record behind it could never be found.
  if (heads.size() >= static_cast<std::size_t>(kMaxWeatherRecords))
    throw WeatherImportError("the weather database is full: it holds " + std::to_string(kMaxWeatherRecords) +
                             " places, the most it can read; delete one before adding another");
  if (findLocation(heads, fields.city, fields.state)) return false;
  saveAsNew(path, fields, UnitSystem::IP, true, &record);
  return true;
}

}  // namespace marloven
