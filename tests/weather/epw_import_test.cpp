// Monthly statistics from recorded hourly weather: a January worked by hand on
// a synthetic file, the site's conventions, bad files, and one real file.
#include "weather/epw_import.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <sstream>

#include "common/file_io.h"
#include "common/text_lines.h"

namespace marloven::testing {
namespace {

constexpr int kMonthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

struct Hour {
  double dryBulb, dewPoint, ghi, wind;  // C, C, Wh/m2, m/s
};

// A whole year of hourly records in the file layout, each hour's values from hour().
std::string epw(const std::function<Hour(int month, int day, int hour)>& hour,
                const std::string& location = "LOCATION,Miami Intl Ap,FL,USA,TMY3,722020,25.82,-80.30,-5.0,11.0") {
  std::ostringstream out;
  out << location << "\r\n";
  for (const char* head : {"DESIGN CONDITIONS,0", "TYPICAL/EXTREME PERIODS,0", "GROUND TEMPERATURES,0",
                           "HOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0", "COMMENTS 1,synthetic", "COMMENTS 2,",
                           "DATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31"})
    out << head << "\r\n";
  for (int m = 1; m <= 12; ++m)
    for (int d = 1; d <= kMonthDays[m - 1]; ++d)
      for (int h = 1; h <= 24; ++h) {
        const Hour v = hour(m, d, h);
        out << "1999," << m << "," << d << "," << h << ",0,?9?9,"  // fields 1-6
            << v.dryBulb << "," << v.dewPoint << ",90,101325,0,0,300,"  // 7-13
            << v.ghi << ",0,0,0,0,0,0,180," << v.wind  // 14-22
            << ",0,0,9999,99999,9,999999999,0,0,0,88,0,0,0\r\n";
      }
  return out.str();
}

// January by hand: odd days 0 C all day but 5 C at 3 pm, even days 10 C with
// 15 C at 3 pm; dew point -10 C on odd days and 0 C on even days; 100 Wh/m2 in
// hours 9..16; wind 4.4704 m/s (10 mph). Some hours are missing. Other months
// stay at 20 C.
Hour january(int m, int d, int h) {
  if (m != 1) return {20, 10, h >= 9 && h <= 16 ? 200.0 : 0.0, 2};
  const double base = d % 2 ? 0 : 10;
  Hour v{base + (h == 15 ? 5 : 0), d % 2 ? -10.0 : 0.0, h >= 9 && h <= 16 ? 100.0 : 0.0, 4.4704};
  if (d == 1 && h == 1) v.dewPoint = 99.9;          // missing: the day's mean is unchanged
  if (d == 2 && h == 12) v.ghi = 9999;              // missing: day 2 drops out of the solar mean
  if (d == 2 && h == 13) v.ghi = 5000;              // ... so this would show if it were counted
  if (d == 3 && h == 5) v.wind = 999;               // missing
  if (d == 3 && h == 6) v.wind = 2.2352;            // 5 mph
  return v;
}

TEST(EpwImport, JanuaryMatchesTheStatisticsWorkedByHand) {
  const EpwStatistics s = readEpw(epw(january));
  const auto jan = [&](int row) { return s.months[row][0]; };
  // Daily means 32 + 1.8 * 5/24 F on 16 odd days and 50 + 0.375 F on 15 even days.
  EXPECT_NEAR(jan(kDryBulbAverage), (16 * 32.0 + 15 * 50.0) / 31 + 0.375, 1e-9);
  // Two values 18 F apart with shares 16/31 and 15/31: 18 sqrt(pq).
  const double spread = 18.0 * std::sqrt(16.0 / 31 * 15.0 / 31);
  EXPECT_NEAR(jan(kDryBulbAverageStd), spread, 1e-9);
  EXPECT_NEAR(jan(kDryBulbMaximum), (16 * 41.0 + 15 * 59.0) / 31, 1e-9);
  EXPECT_NEAR(jan(kDryBulbMaximumStd), spread, 1e-9);
  // The mean of the hours: the missing hour of day 1 leaves 383 odd-day hours.
  EXPECT_NEAR(jan(kDewPointAverage), (383 * 14.0 + 360 * 32.0) / 743, 1e-9);
  EXPECT_NEAR(jan(kDewPointStd), spread, 1e-9);
  EXPECT_NEAR(jan(kSolar), 800 * 3.6 / 11.3565295, 1e-9);  // 253.6 Btu/ft2 per day
  EXPECT_NEAR(jan(kWind), (742 * 10.0 + 5.0) / 743, 1e-9);
  EXPECT_EQ(s.days[0], 31);
  EXPECT_EQ(s.days[1], 28);
  EXPECT_NEAR(s.months[kDryBulbAverage][6], 68.0, 1e-9);
  EXPECT_NEAR(s.months[kDryBulbAverageStd][6], 0.0, 1e-9);

  // In the database record: rounded to one decimal, solar whole.
  const WeatherFields f = fieldsFromEpw(s, defaultWeatherGroup(s.site), s.site.city);
  const auto lines = splitLines(formatRecord(f, UnitSystem::IP, true));
  EXPECT_EQ(lines[0], "\"Fl\",\"Florida\"");
  EXPECT_EQ(lines[1], "\"Miami Intl Ap, Florida !             \" \"722020\" 25.8  80.3  75 36");
  for (int row = 0; row < kWeatherRows; ++row) {
    static const char* kJanuary[] = {"  41.1", "     9", "  49.7", "     9", "  22.7", "     9", "   254", "    10"};
    EXPECT_EQ(lines[2 + static_cast<std::size_t>(row)].substr(0, 6), kJanuary[row]) << "row " << row + 1;
  }
}

TEST(EpwImport, SiteGoesIntoTheDatabaseConventions) {
  const auto yearAt = [](const std::string& location) {
    return readEpw(epw([](int, int, int h) { return Hour{10, 5, h == 12 ? 500.0 : 0.0, 3}; }, location));
  };
  // East of Greenwich: longitude and meridian turn negative (degrees west).
  const EpwStatistics nz =
      yearAt("LOCATION,Wellington,Wellington,New Zealand,TMY2 NIWA 18234 D14482,934360,-41.41,174.87,12,79");
  EXPECT_EQ(defaultWeatherGroup(nz.site), "New Zealand");
  WeatherFields f = fieldsFromEpw(nz, "New Zealand", "Wellington");
  EXPECT_EQ(f.latitude + "|" + f.longitude + "|" + f.timeZone + "|" + f.elevation, "-41.4|-174.9|-180|259");

  const EpwStatistics pr = yearAt("LOCATION,San Juan L M Marin Intl Ap,PR,PRI,TMY3,785263,18.43,-66.00,-4.0,19.0");
  EXPECT_EQ(defaultWeatherGroup(pr.site), "Puerto Rico");
  const EpwStatistics belize = yearAt("LOCATION,BELIZE_INTL_AIRPORT,-,BLZ,SWERA,785830,17.53,-88.30,-6.0,5.0");
  EXPECT_EQ(defaultWeatherGroup(belize.site), "BLZ");

  // A long city is cut so that the group's name is never cut.
  f = fieldsFromEpw(nz, "South Carolina", "Oklahoma City Will Rogers World AP");
  EXPECT_EQ(f.city, "Oklahoma City Will Ro");
  EXPECT_EQ((f.city + ", " + f.state).size(), 37u);
  EXPECT_THROW(fieldsFromEpw(nz, "Carolina, North", "X"), WeatherImportError);
  EXPECT_THROW(fieldsFromEpw(nz, "Guam!", "X"), WeatherImportError);
  EXPECT_THROW(fieldsFromEpw(nz, "Guam", "Agana, Central"), WeatherImportError);
  EXPECT_THROW(fieldsFromEpw(nz, "Guam", "  "), WeatherImportError);
}

TEST(EpwImport, BadFilesSayWhatIsWrong) {
  const auto message = [](const std::string& bytes) {
    try {
      readEpw(bytes);
    } catch (const WeatherImportError& e) {
      return std::string(e.what());
    }
    return std::string("no error");
  };
  EXPECT_EQ(message("Year,Month,Day\r\n"),
            "line 1 is not a LOCATION line: not a recorded weather file of this layout");
  EXPECT_EQ(message("LOCATION,Nowhere,XX\r\n"), "the LOCATION line has fewer than 10 fields");

  std::string shortRecord = epw(january);
  shortRecord.insert(shortRecord.find("1999,"), "1999,1,1,1,0,?9?9,5,1\r\n");
  EXPECT_EQ(message(shortRecord), "line 9 has 8 fields; an hourly record has at least 22");

  const std::string noJune = epw([](int m, int, int) { return Hour{m == 6 ? 99.9 : 10.0, 5, 100, 3}; });
  EXPECT_EQ(message(noJune), "June has no dry bulb temperatures");
  const std::string darkMarch = epw([](int m, int, int h) { return Hour{10, 5, m == 3 && h == 1 ? 9999.0 : 0.0, 3}; });
  EXPECT_EQ(message(darkMarch), "March has no day with global horizontal radiation in every hour");
}

TEST(EpwImport, ImpossibleAndNonFiniteValuesAreRefused) {
  const auto message = [](const std::string& bytes) {
    try {
      readEpw(bytes);
    } catch (const WeatherImportError& e) {
      return std::string(e.what());
    }
    return std::string("no error");
  };
  const auto mild = [](int, int, int h) { return Hour{10, 5, h == 12 ? 500.0 : 0.0, 3}; };
  const std::string miami = "LOCATION,Miami Intl Ap,FL,USA,TMY3,722020,";
  const struct {
    std::string file;
    const char* message;
  } cases[] = {
      {epw(mild, miami + "125.82,-80.30,-5.0,11.0"), "the LOCATION line's latitude 125.82 is outside -90 to 90 degrees"},
      {epw(mild, miami + "25.82,nan,-5.0,11.0"), "the LOCATION line's longitude \"nan\" is not a number"},
      {epw(mild, miami + "25.82,-80.30,-50,11.0"), "the LOCATION line's time zone -50 is outside -12 to 14 hours"},
      {epw(mild, miami + "25.82,-80.30,-5.0,1e999"), "the LOCATION line's elevation \"1e999\" is not a number"},
      {epw([](int m, int d, int h) { return Hour{m == 7 && d == 4 && h == 15 ? 700.0 : 10.0, 5, 0, 3}; }),
       "line 4439: the dry bulb 700 C is impossible; it must be -90 to 70 C, or 99.9 when missing"},
      {epw([](int m, int, int) { return Hour{10, m == 2 ? -273.0 : 5.0, 0, 3}; }),
       "line 753: the dew point -273 C is impossible; it must be -90 to 70 C, or 99.9 when missing"},
      {epw([](int m, int d, int h) { return Hour{10, 5, m == 1 && d == 1 && h == 2 ? HUGE_VAL : 0.0, 3}; }),
       "line 10: the global horizontal radiation \"inf\" is not a finite number"},
  };
  for (const auto& c : cases) EXPECT_EQ(message(c.file), c.message);
  // A byte-order mark in front of the LOCATION line changes nothing.
  EXPECT_EQ(readEpw("\xEF\xBB\xBF" + epw(mild)).months[kDryBulbAverage][0], readEpw(epw(mild)).months[kDryBulbAverage][0]);
}

TEST(EpwImport, AFullDatabaseTakesNoMoreRecords) {
  const std::filesystem::path dir = std::filesystem::temp_directory_path() / ("epw-full-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  const std::string db = (dir / "weth.asc").string();
  const EpwStatistics s = readEpw(epw([](int, int, int h) { return Hour{10, 5, h == 12 ? 500.0 : 0.0, 3}; }));
  WeatherFields fields;
  int record = 0;
  ASSERT_TRUE(importWeatherRecord(db, s, "Florida", "Miami", fields, record));
  const std::string one = readFile(db);
  std::string full;
  for (int i = 0; i < kMaxWeatherRecords; ++i) full += one;
  writeFileAtomic(db, full);
  try {
    importWeatherRecord(db, s, "Florida", "Tampa", fields, record);
    ADD_FAILURE() << "a record was added behind the reader's limit";
  } catch (const WeatherImportError& e) {
    EXPECT_EQ(std::string(e.what()),
              "the weather database is full: it holds 3000 places, the most it can read; delete one before adding another");
  }
  EXPECT_EQ(readFile(db), full);  // untouched
  // One place fewer: the new one goes in as the last the reader reads.
  writeFileAtomic(db, full.substr(one.size()));
  EXPECT_TRUE(importWeatherRecord(db, s, "Florida", "Tampa", fields, record));
  EXPECT_EQ(record, kMaxWeatherRecords);
  std::filesystem::remove_all(dir);
}

TEST(EpwImport, DenverRecordedYearLooksLikeDenver) {
  const std::string file = std::string(RECORDED_WEATHER_DIR) + "/recorded/725650TYCST.epw";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << "recorded weather files are not beside the repository";
  const EpwStatistics s = readEpw(readFile(file));
  EXPECT_NEAR(s.months[kDryBulbMaximum][6], 88.0, 2.0);  // July mean daily maximum
  // January mean: this typical year is milder than the long-term 30 F; the
  // monthly means agree with the file's own check table (0.8 C, 22.3 C).
  EXPECT_NEAR(s.months[kDryBulbAverage][0], 30.0, 4.0);
  EXPECT_NEAR(s.months[kDryBulbAverage][0], 0.8 * 1.8 + 32, 0.1);
  EXPECT_NEAR(s.months[kDryBulbAverage][6], 22.3 * 1.8 + 32, 0.1);
  EXPECT_EQ(s.site.station, "725650");
  EXPECT_EQ(defaultWeatherGroup(s.site), "Colorado");
  // Dry air: dew points well below the dry bulb; strong sun in June.
  EXPECT_LT(s.months[kDewPointAverage][6], s.months[kDryBulbAverage][6] - 15.0);
  EXPECT_GT(s.months[kSolar][5], 2000.0);
}

}  // namespace
}  // namespace marloven::testing
