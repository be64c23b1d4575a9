#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "engine/psychro.h"
#include "engine/rng.h"
#include "engine/weather.h"
#include "engine/weather_readers.h"

using namespace tarn;

namespace {

MonthlyStats denver() {
  MonthlyStats s;
  s.dbAve = {29.7, 33.4, 39.0, 48.2, 57.2, 66.9, 73.5, 71.4, 62.3, 51.4, 39.0, 30.3};
  s.aveStd = {7.8, 7.4, 6.9, 6.3, 5.5, 4.8, 3.4, 3.6, 5.0, 5.8, 7.0, 7.6};
  s.dbMax = {43.2, 46.6, 52.2, 61.8, 70.8, 81.4, 88.2, 85.8, 77.5, 66.3, 52.5, 44.5};
  s.maxStd = {9.6, 9.1, 8.7, 8.0, 7.1, 6.0, 4.4, 4.6, 6.3, 7.6, 8.9, 9.4};
  s.dpAve = {14.2, 16.8, 20.1, 25.6, 35.7, 43.8, 49.2, 49.0, 39.2, 27.9, 19.6, 14.8};
  s.dpStd = {8.6, 8.4, 8.8, 8.7, 7.6, 6.3, 5.1, 5.2, 6.8, 8.0, 8.4, 8.7};
  s.solar = {840, 1120, 1510, 1890, 2090, 2310, 2270, 2030, 1730, 1290, 900, 740};
  s.wind = {8.7, 8.9, 9.7, 10.2, 9.6, 9.0, 8.5, 8.1, 8.2, 8.1, 8.4, 8.5};
  return s;
}

Site denverSite() {
  Site s;
  s.latitude = 39.8;
  s.longitude = 104.9;
  s.meridian = 105.0;
  s.elevation = 5330;
  return s;
}

std::uint64_t hashYear(const WeatherYear& w) {
  std::string bytes;
  for (const WeatherHour& h : w.hours) {
    const double v[7] = {h.dryBulb, h.dewPoint, h.globalH, h.directN, h.diffuseH, h.wind, h.pressure};
    bytes.append(reinterpret_cast<const char*>(v), sizeof v);
  }
  return fnv1a64(bytes);
}

}  // namespace

TEST(WeatherSynthesis, SameSeedSameBytesAndPinnedHash) {
  const WeatherYear a = synthesize(denver(), denverSite(), ".83774665", 2025);
  const WeatherYear b = synthesize(denver(), denverSite(), ".83774665", 2025);
  ASSERT_EQ(a.hours.size(), 8760u);
  EXPECT_EQ(0, std::memcmp(a.hours.data(), b.hours.data(), a.hours.size() * sizeof(WeatherHour)));
  const WeatherYear c = synthesize(denver(), denverSite(), "0.83774665", 2025);
  EXPECT_NE(hashYear(a), hashYear(c));  // the text is the key, not its value
  // Pinned: the same in debug and release builds and on every machine.
  EXPECT_EQ(hashYear(a), 9102173168564311696ULL) << std::hex << hashYear(a);
}

TEST(WeatherSynthesis, MeanPreservingCurveKeepsMonthlyMeans) {
  const MonthlyStats s = denver();
  const std::vector<double> curve = meanPreservingCurve(s.dbAve, 2024);
  ASSERT_EQ(curve.size(), 366u);
  for (int m = 1; m <= 12; ++m) {
    double sum = 0;
    for (int d = firstDayOfMonth(m, 2024); d < firstDayOfMonth(m, 2024) + daysInMonth(m, 2024); ++d) sum += curve[d - 1];
    EXPECT_NEAR(sum / daysInMonth(m, 2024), s.dbAve[m - 1], 1e-9);
  }
}

TEST(WeatherSynthesis, HundredYearsReproduceTheStatistics) {
  const MonthlyStats s = denver();
  std::array<double, 12> mean{}, max{}, dew{}, solar{}, wind{}, n{};
  std::array<double, 12> var{};
  for (int y = 0; y < 100; ++y) {
    const WeatherYear w = synthesize(s, denverSite(), "seed" + std::to_string(y), 2025);
    for (int d = 1; d <= 365; ++d) {
      int m = 1;
      while (m < 12 && d >= firstDayOfMonth(m + 1, 2025)) ++m;
      double dm = 0, mx = -1e9, dp = 0, sol = 0, wd = 0;
      for (int h = 0; h < 24; ++h) {
        const WeatherHour& wh = w.hours[(d - 1) * 24 + h];
        ASSERT_LE(wh.dewPoint, wh.dryBulb);
        dm += wh.dryBulb / 24, mx = std::max(mx, wh.dryBulb), dp += wh.dewPoint / 24, sol += wh.globalH, wd += wh.wind / 24;
      }
      const int i = m - 1;
      mean[i] += dm, max[i] += mx, dew[i] += dp, solar[i] += sol, wind[i] += wd, n[i] += 1, var[i] += dm * dm;
    }
  }
  // 0.3 F plus three standard errors of a 100-year mean of autocorrelated
  // days (daily persistence about 0.65 inflates the error by sqrt(1.65/0.35)).
  auto tolerance = [&](double sd, int i) { return 0.3 + 3.0 * sd * std::sqrt(1.65 / 0.35 / n[i]); };
  for (int i = 0; i < 12; ++i) {
    const double m = mean[i] / n[i];
    EXPECT_NEAR(m, s.dbAve[i], tolerance(s.aveStd[i], i)) << "month " << i + 1;
    EXPECT_NEAR(max[i] / n[i], s.dbMax[i], tolerance(s.maxStd[i], i)) << "month " << i + 1;
    EXPECT_NEAR(dew[i] / n[i], s.dpAve[i], tolerance(s.dpStd[i], i)) << "month " << i + 1;
    EXPECT_NEAR(solar[i] / n[i], s.solar[i], 0.03 * s.solar[i]) << "month " << i + 1;
    EXPECT_NEAR(wind[i] / n[i], s.wind[i], 0.03 * s.wind[i]) << "month " << i + 1;
    EXPECT_NEAR(std::sqrt(var[i] / n[i] - m * m), s.aveStd[i], 0.1 * s.aveStd[i]) << "month " << i + 1;
  }
}

TEST(WeatherSynthesis, DailyMeansPersistDayToDay) {
  MonthlyStats flat;
  flat.dbAve.fill(50), flat.aveStd.fill(8), flat.dbMax.fill(62), flat.maxStd.fill(8), flat.dpAve.fill(30);
  flat.dpStd.fill(6), flat.solar.fill(1500), flat.wind.fill(8);
  std::vector<double> x;
  for (int y = 0; y < 20; ++y) {
    const WeatherYear w = synthesize(flat, denverSite(), "ac" + std::to_string(y), 2025);
    for (int d = 0; d < 365; ++d) {
      double s = 0;
      for (int h = 0; h < 24; ++h) s += w.hours[d * 24 + h].dryBulb / 24;
      x.push_back(s);
    }
  }
  double mean = 0;
  for (double v : x) mean += v / static_cast<double>(x.size());
  double num = 0, den = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    den += (x[i] - mean) * (x[i] - mean);
    if (i > 0 && i % 365 != 0) num += (x[i] - mean) * (x[i - 1] - mean);
  }
  EXPECT_NEAR(num / den, 0.65, 0.05);
}

TEST(WeatherSynthesis, ClearnessDistributionHasItsMean) {
  for (double kbar : {0.3, 0.5, 0.65}) {
    const ClearnessDistribution d(kbar);
    double s = 0;
    for (int i = 0; i < 10000; ++i) s += d.quantile((i + 0.5) / 10000.0) / 10000.0;
    EXPECT_NEAR(s, kbar, 0.002);
    EXPECT_GE(d.quantile(0.0), 0.05 - 1e-12);
    EXPECT_LE(d.quantile(1.0), d.kMax() + 1e-12);
  }
}

TEST(Psychrometrics, HandbookValues) {
  EXPECT_NEAR(pressureAtElevation(5000), 24.896, 0.01);
  EXPECT_NEAR(saturationPressure(68.0), 2.3389 / 3.38639, 0.0005);  // 2.3389 kPa at 20 C
  EXPECT_NEAR(humidityRatioFromDewPoint(55.0, 29.921), 0.00917, 0.0001);
  EXPECT_NEAR(relativeHumidity(68.0, 68.0), 1.0, 1e-12);
  EXPECT_NEAR(wetBulb(95.0, 75.0, 29.921), 80.5, 0.5);
  // Saturated air is its own wet bulb, over ice and over water.
  for (double t : {20.0, 31.9, 32.1, 70.0}) EXPECT_NEAR(wetBulb(t, t, 29.921), t, 1e-6) << t;
  EXPECT_NEAR(dewPointFromRh(77.0, relativeHumidity(77.0, 50.0)), 50.0, 1e-6);
}

namespace {
std::string epwSnippet(int hours, bool withGap) {
  std::string s = "LOCATION,TESTVILLE,CO,USA,TMY3,725650,39.83,-104.65,-7.0,1650.0\r\n";
  for (int i = 0; i < 7; ++i) s += "HEADER\r\n";
  for (int i = 0; i < hours; ++i) {
    int day = i / 24, month = 1;
    while (month < 12 && day >= firstDayOfMonth(month + 1, 2025) - 1) ++month;
    day -= firstDayOfMonth(month, 2025) - 1;
    const int hour = i % 24 + 1;
    const std::string db = (withGap && i >= 10 && i < 13) ? "99.9" : std::to_string(10 + (i % 24) * 0.5);
    s += "1995," + std::to_string(month) + "," + std::to_string(day + 1) + "," + std::to_string(hour) + ",0,X," + db +
         ",0.0,50,83700,0,0,300,500,400,100,0,0,0,0,200,4.0,5,5\r\n";
  }
  return s;
}
}  // namespace

// Berdahl & Martin at a hand point: 20 C air, 10 C dew point, clear sky:
// emissivity 0.711 + 0.056 + 0.0073 = 0.7743 of σT⁴ (T = 293.15 K, 418.7 W/m²).
TEST(SkyLongWave, ClearSkyEmissivityAndClouds) {
  const double clear = skyInfrared(68.0, 50.0, 0.0);
  EXPECT_NEAR(clear / 0.3170, 0.7743 * 5.670e-8 * std::pow(293.15, 4), 0.6);
  // Overcast raises it (Walton: × 1.1484 at 10 tenths), never past a black body.
  EXPECT_NEAR(skyInfrared(68.0, 50.0, 10.0) / clear, 1.0 + 0.224 - 0.35 + 0.28, 1e-9);
  EXPECT_LE(skyInfrared(90.0, 89.0, 10.0), 0.1714e-8 * std::pow(90.0 + 459.67, 4) + 1e-9);
  // Cloud cover from clearness: clear at 0.75, overcast at 0, monotonic between.
  EXPECT_NEAR(cloudCoverFromClearness(0.75), 0.0, 1e-12);
  EXPECT_NEAR(cloudCoverFromClearness(0.0), 10.0, 1e-12);
  EXPECT_GT(cloudCoverFromClearness(0.3), cloudCoverFromClearness(0.5));
}

TEST(WeatherReaders, EpwUnitsGapsAndLocation) {
  RunLog log;
  const WeatherYear w = readRecorded(epwSnippet(8760, true), WeatherFormat::Epw, 2025, denverSite(), log);
  ASSERT_EQ(w.hours.size(), 8760u);
  EXPECT_NEAR(w.site.latitude, 39.83, 1e-9);
  EXPECT_NEAR(w.site.longitude, 104.65, 1e-9);
  EXPECT_NEAR(w.site.meridian, 105.0, 1e-9);
  EXPECT_NEAR(w.site.elevation, 1650.0 / 0.3048, 1e-6);
  EXPECT_NEAR(w.hours[0].dryBulb, 50.0, 1e-9);  // 10 C
  EXPECT_NEAR(w.hours[0].pressure, 83700 / 3386.39, 1e-9);
  EXPECT_NEAR(w.hours[0].wind, 4.0 * 2.23694, 1e-9);
  EXPECT_NEAR(w.hours[0].globalH, 500 * 0.3170, 1e-9);
  EXPECT_NEAR(w.hours[0].skyIr, 300 * 0.3170, 1e-9);  // the file's sky long-wave wins
  // Three missing hours are interpolated linearly between 14.5 C and 16.5 C.
  EXPECT_NEAR(w.hours[11].dryBulb, (15.5 * 1.8 + 32), 1e-9);
}

// The same year written with other line ends, a quoted station name holding a
// comma and numbers in other spellings reads to the same hours.
TEST(WeatherReaders, EpwLineEndsQuotesAndNumberSpellings) {
  RunLog log;
  const std::string crlf = epwSnippet(8760, true);
  const WeatherYear base = readRecorded(crlf, WeatherFormat::Epw, 2025, denverSite(), log);
  auto replaced = [](std::string s, const std::string& from, const std::string& to) {
    for (std::size_t at = s.find(from); at != std::string::npos; at = s.find(from, at + to.size()))
      s.replace(at, from.size(), to);
    return s;
  };
  const std::string variants[] = {
      replaced(crlf, "\r\n", "\n"), replaced(crlf, "\r\n", "\r"),
      replaced(crlf, "LOCATION,TESTVILLE,", "LOCATION,\"TEST, VILLE\","),
      // 83700 Pa as +83700, 4.0 m/s as 4.0e0 and " 4 ", 0.0 C dew point as -0.0, .00
      replaced(replaced(crlf, ",83700,", ",+83700,"), ",4.0,5,5", ",4.0e0,5,5"),
      replaced(replaced(crlf, ",4.0,5,5", ", 4 ,5,5"), ",0.0,50,", ",-.00,50,")};
  for (const std::string& v : variants) {
    const WeatherYear w = readRecorded(v, WeatherFormat::Epw, 2025, denverSite(), log);
    ASSERT_EQ(w.hours.size(), base.hours.size());
    EXPECT_NEAR(w.site.latitude, 39.83, 1e-12);
    for (std::size_t i = 0; i < w.hours.size(); i += 97) {
      EXPECT_EQ(w.hours[i].dryBulb, base.hours[i].dryBulb) << i;
      EXPECT_EQ(w.hours[i].dewPoint, base.hours[i].dewPoint) << i;
      EXPECT_EQ(w.hours[i].pressure, base.hours[i].pressure) << i;
      EXPECT_EQ(w.hours[i].wind, base.hours[i].wind) << i;
      EXPECT_EQ(w.hours[i].directN, base.hours[i].directN) << i;
    }
  }
  EXPECT_NE(readRecorded(variants[2], WeatherFormat::Epw, 2025, denverSite(), log).source.find("TEST, VILLE CO"),
            std::string::npos);
}

TEST(WeatherReaders, LeapYearsAndShortFiles) {
  RunLog log;
  // 8760 hours in a leap year: 28 February is repeated.
  const WeatherYear leap = readRecorded(epwSnippet(8760, false), WeatherFormat::Epw, 2024, denverSite(), log);
  EXPECT_EQ(leap.hours.size(), 8784u);
  // Too few hours: the run stops with exit code 2.
  try {
    readRecorded(epwSnippet(48, false), WeatherFormat::Epw, 2025, denverSite(), log);
    FAIL() << "a two-day file was accepted";
  } catch (const RunFailure& f) {
    EXPECT_EQ(f.code(), ExitCode::BadWeather);
    EXPECT_NE(std::string(f.what()).find("48 hourly records"), std::string::npos);
  }
}

TEST(WeatherReaders, Tmy2HeaderAndRecordColumns) {
  // Header and a record laid out as the NREL files have them.
  const std::string head = " 12839 MIAMI                  FL  -5 N 25 48 W  80 16     2";
  const std::string rec = " 62010112089914150134C40000E40128E50154I40000I40154I50628I510A710A70194A70178A7090A71016A7203A7057A7";
  std::string file = head + "\r\n";
  for (int i = 0; i < 8760; ++i) file += rec + "\r\n";
  RunLog log;
  const WeatherYear w = readRecorded(file, WeatherFormat::Tmy2, 2025, denverSite(), log);
  EXPECT_NEAR(w.site.latitude, 25.8, 1e-9);
  EXPECT_NEAR(w.site.longitude, 80.0 + 16.0 / 60.0, 1e-9);
  EXPECT_NEAR(w.site.meridian, 75.0, 1e-9);
  EXPECT_NEAR(w.hours[0].dryBulb, 19.4 * 1.8 + 32, 1e-9);
  EXPECT_NEAR(w.hours[0].dewPoint, 17.8 * 1.8 + 32, 1e-9);
  EXPECT_NEAR(w.hours[0].pressure, 1016 * 0.02953, 1e-9);
  EXPECT_NEAR(w.hours[0].wind, 5.7 * 2.23694, 1e-9);
}

TEST(WeatherReaders, CustomFormatAndContentDetection) {
  std::string file = "My station\r\nsecond comment\r\n";
  for (int i = 0; i < 8760; ++i) file += "2025, 1, 1, 1, 41.0, 30.0, 50, -1, -1, 6.5\r\n";
  RunLog log;
  const WeatherYear w = readRecorded(file, WeatherFormat::Custom, 2025, denverSite(), log);
  EXPECT_DOUBLE_EQ(w.hours[5].dryBulb, 41.0);
  EXPECT_DOUBLE_EQ(w.hours[5].wind, 6.5);
  EXPECT_DOUBLE_EQ(w.site.latitude, 39.8);  // no location in the file: the project's
  // A file that starts like an EPW is read as one whatever the control file says.
  EXPECT_EQ(detectFormat(epwSnippet(1, false), WeatherFormat::Tmy2), WeatherFormat::Epw);
}
