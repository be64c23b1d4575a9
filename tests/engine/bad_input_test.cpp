// Bad input of every reader of the engine: each case with the log's exact
// ERROR line and the exit code, and no result file left behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "engine/control_file.h"
#include "engine/daylight.h"
#include "engine/engine_run.h"
#include "engine/input_checks.h"
#include "engine/report.h"
#include "engine/run_log.h"
#include "engine/weather.h"
#include "engine/weather_readers.h"
#include "project/project_model.h"
#include "project/project_reader.h"

namespace fs = std::filesystem;
using namespace tarn;

namespace {

class ScratchDir {
 public:
  ScratchDir() {
    path_ = fs::temp_directory_path() / ("tarn64-bad-" + std::to_string(std::random_device{}()));
    fs::create_directories(path_);
  }
  ~ScratchDir() { fs::remove_all(path_); }
  const fs::path& path() const { return path_; }
  void put(const std::string& name, const std::string& bytes) const {
    marloven::writeFileAtomic((path_ / name).string(), bytes);
  }
  std::string get(const std::string& name) const { return marloven::readFile((path_ / name).string()); }

 private:
  fs::path path_;
};

std::string fixture() { return marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case600.inp"); }

const std::string kControl =
    "Run type  :  3\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\nRun end   :  365\r\n"
    "Hourly out:  0 \r\nSkip month: \r\nComfort   :  68       79 \r\n";

// The text with the first line starting `prefix` replaced by `line`.
std::string withLine(const std::string& text, const std::string& prefix, const std::string& line) {
  const std::size_t at = text.rfind("\n" + prefix) == std::string::npos ? 0 : text.find("\n" + prefix) + 1;
  EXPECT_TRUE(at > 0 || text.rfind(prefix, 0) == 0) << prefix;
  const std::size_t end = text.find('\r', at);
  return text.substr(0, at) + line + text.substr(end);
}

// The log's ERROR line and the run's exit code.
struct Outcome {
  ExitCode code;
  std::string error;
};

Outcome run(const std::string& inp, const std::string& control) {
  ScratchDir d;
  d.put("ecalc$.inp", inp);
  d.put("ecalc$.tmp", control);
  const ExitCode code = runEngine(d.path());
  std::string error;
  for (const std::string& l : marloven::splitLines(d.get("tarn64.err")))
    if (l.rfind("ERROR ", 0) == 0) error = l;
  if (code != ExitCode::Ok) {
    EXPECT_FALSE(fs::exists(d.path() / "sim$.out"));
  }
  return {code, error};
}

struct Case {
  const char* prefix;  // the line changed
  const char* line;    // what it becomes
  const char* error;   // the log's ERROR line
};

}  // namespace

TEST(BadRunCopy, NonFiniteAndAbsurdNumbersInEveryKindOfField) {
  const std::string good = fixture();
  const Case cases[] = {
      // header: seed and weeks per month
      {"MARLOVEN", "MARLOVEN  seed      4  IP", "ERROR ecalc$.inp line 1: the seed \"seed\" is not a number"},
      {"MARLOVEN", "MARLOVEN  .83774665 x4  IP", "ERROR ecalc$.inp line 1: the weeks per month \"x4\" is not a whole number"},
      // project and economics
      {"Orient.", "Orient.   inf", "ERROR ecalc$.inp line 9: Orient. \"inf\" is not a finite number"},
      {"Occ. Days", "Occ. Days 1e30", "ERROR ecalc$.inp line 12: Occ. Days 1e30 is outside 0 to 366 days"},
      {"Disc.Rate", "Disc.Rate -NaN", "ERROR ecalc$.inp line 31: Disc.Rate \"-NaN\" is not a finite number"},
      {"Elec.Cost", "Elec.Cost 1D400", "ERROR ecalc$.inp line 33: Elec.Cost \"1D400\" is not a finite number"},
      // weather block: site, monthly tables, design temperatures
      {"DENVER", "DENVER INTL AP, CO                                72565 139.8 104.7     7  5413",
       "ERROR ecalc$.inp line 16: Latitude 139.8 is outside -90 to 90 degrees"},
      {"DENVER", "DENVER INTL AP, CO                                72565  39.8 104.7     7 99999",
       "ERROR ecalc$.inp line 16: Elevation 99999 is outside -1500 to 30000 ft"},
      {"DB Ave", "DB Ave   29.7  33.4  39.0  48.2  57.2 700.9  73.5  71.4  62.3  51.4  39.0  30.3",
       "ERROR ecalc$.inp line 18: DB Ave 700.9 is outside -100 to 150 F"},
      {"SOLAR", "SOLAR     840  1120  1510  1890  2090  2310  2270 -2030  1730  1290   900   740",
       "ERROR ecalc$.inp line 24: SOLAR -2030 is outside 0 to 4000 Btu/ft2.day"},
      {"DesTemps", "DesTemps   91.3  57.4 -2e3 ", "ERROR ecalc$.inp line 26: DesTemps -2e3 is outside -100 to 150 F"},
      // wall and window types: the same label means a different field in each
      {"U-Factor  .0737", "U-Factor  1e300", "ERROR ecalc$.inp line 43: U-Factor 1e300 is outside 0 to 10 Btu/h.ft2.F"},
      {"S.H.G.C.", "S.H.G.C.  1.5", "ERROR ecalc$.inp line 67: S.H.G.C. 1.5 is outside 0 to 1"},
      // profiles: fractions and temperatures
      {" 80.6", " 80.6 80.6 nan", "ERROR ecalc$.inp line 91: Temp profile value \"nan\" is not a finite number"},
      {" 1 1 1", " 1 1 1 -5", "ERROR ecalc$.inp line 87: Lite profile value -5 is outside 0 to 100"},
      // zone fields
      {"Flr. Area", "Flr. Area -516.67", "ERROR ecalc$.inp line 98: Flr. Area -516.67 is outside 0 to 10000000 ft2"},
      {"OA CFM", "OA CFM    PA2e9", "ERROR ecalc$.inp line 104: OA CFM 2e9 is outside 0 to 1000000"},
      {"OA CFM", "OA CFM    CSinf", "ERROR ecalc$.inp line 104: OA CFM \"inf\" is not a finite number"},
      {"Inf. Rate", "Inf. Rate 5e5", "ERROR ecalc$.inp line 119: Inf. Rate 5e5 is outside 0 to 100 air changes/h"},
      {"Cool SEER", "Cool SEER 2e308",
       "ERROR ecalc$.inp line 125: Cool SEER \"2e308\" is not a finite number"},
      // surface rows
      {"Wall Area", "Wall Area  2.3e12 ", "ERROR ecalc$.inp line 130: Wall Area 2.3e12 is outside 0 to 10000000 ft2"},
      {"Rf/Wl Slp", "Rf/Wl Slp  270 ", "ERROR ecalc$.inp line 136: Rf/Wl Slp 270 is outside 0 to 180 degrees"},
      {"Grnd Refl", "Grnd Refl  Infinity ", "ERROR ecalc$.inp line 142: Grnd Refl \"Infinity\" is not a finite number"},
  };
  for (const Case& c : cases) {
    const Outcome o = run(withLine(good, c.prefix, c.line), kControl);
    EXPECT_EQ(o.code, ExitCode::BadInput) << c.line;
    EXPECT_EQ(o.error, c.error);
  }
  // Values at the ends of their ranges run.
  std::string edge = withLine(good, "Occ. Days", "Occ. Days 260");  // days a year
  edge = withLine(edge, "Grnd Refl", "Grnd Refl  1 ");
  edge = withLine(edge, "Elec.Cost", "Elec.Cost 1e-400");  // too small to be anything but 0
  EXPECT_EQ(run(edge, kControl).code, ExitCode::Ok);
}

TEST(BadControlFile, ValuesThatAreNotNumbersOrOutOfRange) {
  const std::string inp = fixture();
  const Case cases[] = {
      {"Run type", "Run type  :  three", "ERROR ecalc$.tmp line 1: Run type \"three\" is not a number"},
      {"Run begin", "Run begin :  1x", "ERROR ecalc$.tmp line 4: Run begin \"1x\" is not a number"},
      {"Run end", "Run end   :  1e999", "ERROR ecalc$.tmp line 5: Run end \"1e999\" is not a number"},
      {"Hourly out", "Hourly out:  2 ", "ERROR ecalc$.tmp line 6: hourly out must be 0 or 1, found \"Hourly out:  2 \""},
      {"Skip month", "Skip month:  3 jul", "ERROR ecalc$.tmp line 7: Skip month \"jul\" is not a number"},
      {"Comfort", "Comfort   :  cool     79 ", "ERROR ecalc$.tmp line 8: lower comfort limit \"cool\" is not a number"},
      {"Comfort", "Comfort   :  68       nan ", "ERROR ecalc$.tmp line 8: upper comfort limit \"nan\" is not a number"},
      {"Comfort", "Comfort   :  68         ", "ERROR ecalc$.tmp line 8: the upper comfort limit is missing"},
      {"Comfort", "Comfort   :  68       790 ", "ERROR ecalc$.tmp line 8: the upper comfort limit 790 is outside -100 to 200"},
  };
  for (const Case& c : cases) {
    const Outcome o = run(inp, withLine(kControl, c.prefix, c.line));
    EXPECT_EQ(o.code, ExitCode::BadInput) << c.line;
    EXPECT_EQ(o.error, c.error);
  }
}

TEST(BadDaylightFile, ControlsAndShelvesThatAreNotNumbers) {
  auto shelf = [](const std::string& power, const std::string& zone) {
    return "DAYLIGHTING AND LIGHT SHELF DATA\r\n----\r\n\r\nDIMMING CONTROL ........ STEPPED\r\n"
           "MINIMUM POWER FRACTION . " + power + "\r\nMINIMUM LIGHT FRACTION . 0.10\r\n"
           "WORK PLANE HEIGHT ...... 0.76\r\nROOM REFLECTANCE ....... 0.60\r\n\r\nZONE\r\n\r\n----\r\n" + zone + "\r\n";
  };
  const std::string zone = "  12  North office             5.00   500.00    1.00    2.20    0.70";
  struct {
    std::string file;
    const char* where;
    const char* what;
  } const cases[] = {
      {shelf("0.3x", zone), "ltshlf.dat line 5", "the minimum power fraction \"0.3x\" is not a number"},
      {shelf("NaN", zone), "ltshlf.dat line 5", "the minimum power fraction \"NaN\" is not a number"},
      {shelf("0.30", "  12  North office             5.00   500.00    9e99    2.20    0.70"), "ltshlf.dat line 13",
       "the shelf depth must be 0 to 1000"},
      {shelf("0.30", "  12  North office             5.00   500.00    1.00    2.20    high"), "ltshlf.dat line 13",
       "the shelf reflectance \"high\" is not a number"},
  };
  for (const auto& c : cases) {
    try {
      readDaylightFile(c.file, false);
      ADD_FAILURE() << c.what << " was accepted";
    } catch (const RunFailure& f) {
      EXPECT_EQ(f.code(), ExitCode::BadInput);
      EXPECT_EQ(f.where(), c.where);
      EXPECT_EQ(std::string(f.what()), c.what);
    }
  }
}

TEST(ByteOrderMark, EveryEngineReaderSkipsIt) {
  const std::string bom = "\xEF\xBB\xBF";
  marloven::Project plain, marked;
  marloven::readProject(fixture(), plain);
  marloven::readProject(bom + fixture(), marked);
  EXPECT_EQ(marked.seed, plain.seed);
  EXPECT_EQ(marked.weeksPerMonth, plain.weeksPerMonth);

  RunLog log;
  EXPECT_EQ(parseControl(bom + "Run type  :  2\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\n"
                               "Run end   :  365\r\nHourly out:  0 \r\nSkip month: \r\nComfort   :  68       79 \r\n",
                         log)
                .runType,
            2);
  EXPECT_EQ(readDaylightFile(bom + "X\r\n\r\n\r\nDIMMING CONTROL ........ ON/OFF\r\n", false).dimming, Dimming::OnOff);

  // The whole run: the same results with and without the mark.
  ScratchDir a, b;
  a.put("ecalc$.inp", fixture());
  a.put("ecalc$.tmp", kControl);
  b.put("ecalc$.inp", bom + fixture());
  b.put("ecalc$.tmp", bom + kControl);
  ASSERT_EQ(runEngine(a.path()), ExitCode::Ok);
  ASSERT_EQ(runEngine(b.path()), ExitCode::Ok);
  EXPECT_EQ(a.get("ecalc$.wth"), b.get("ecalc$.wth"));
}

TEST(NumberText, SpellingsOfNumbersThatAreNot) {
  EXPECT_EQ(readNumberText("  ").kind, NumberText::Empty);
  EXPECT_EQ(readNumberText("abc").kind, NumberText::NotANumber);
  EXPECT_EQ(readNumberText("-inf").kind, NumberText::NotFinite);
  EXPECT_EQ(readNumberText("1e309").kind, NumberText::NotFinite);
  const NumberText tiny = readNumberText("1e-400");
  EXPECT_EQ(tiny.kind, NumberText::Number);
  EXPECT_EQ(tiny.value, 0.0);
  const NumberText d = readNumberText(" 2.5D2 ft");
  EXPECT_EQ(d.kind, NumberText::Number);
  EXPECT_EQ(d.value, 250.0);
  EXPECT_FALSE(d.whole);
  EXPECT_EQ(strictNumber(" 2.5D2 ft").kind, NumberText::NotANumber);
  EXPECT_EQ(strictNumber("+.5 ").value, 0.5);
}

TEST(PrintedParts, HugeEnergiesRoundAtOnce) {
  const auto start = std::chrono::steady_clock::now();
  const std::vector<double> r = roundParts({3.3e17, 1.1e17, 0.25}, 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  ASSERT_EQ(r.size(), 4u);
  EXPECT_EQ(r[0], 3.3e17);
  EXPECT_EQ(r[3], 4.4e17);
  // A target no rounding of the parts can reach stays in the total alone.
  const std::vector<double> far = roundPartsTo({1.4, 2.4}, 0, 1e12);
  EXPECT_EQ(far[0], 1.0);
  EXPECT_EQ(far[1], 2.0);
  EXPECT_EQ(far[2], 3.0);
  // Ordinary parts still add up to their total.
  const std::vector<double> small = roundPartsTo({1.4, 1.4, 1.4}, 0, 4.2);
  EXPECT_EQ(small[0] + small[1] + small[2], small[3]);
  EXPECT_EQ(small[3], 4.0);
  EXPECT_EQ(numberField(1e300, 10, 1, nullptr), "**********");
}

namespace {

Site testSite() {
  Site s;
  s.latitude = 39.8;
  s.longitude = 104.7;
  s.meridian = 105;
  s.elevation = 5413;
  return s;
}

// A year of records of the custom format, with `edit` applied to each line.
std::string customYear(const std::function<std::string(int, std::string)>& edit) {
  std::string s = "Test station\r\n";
  for (int i = 0; i < 8760; ++i) {
    int day = i / 24, month = 1;
    while (month < 12 && day >= firstDayOfMonth(month + 1, 2025) - 1) ++month;
    day -= firstDayOfMonth(month, 2025) - 1;
    std::string l = "2025," + std::to_string(month) + "," + std::to_string(day + 1) + "," + std::to_string(i % 24 + 1) +
                    ",41.0,30.0,50,-1,-1,6.5";
    s += edit(i, l) + "\r\n";
  }
  return s;
}

std::string fieldReplaced(std::string line, int field, const std::string& value) {
  std::size_t at = 0;
  for (int f = 0; f < field; ++f) at = line.find(',', at) + 1;
  const std::size_t end = line.find(',', at);
  return line.replace(at, end == std::string::npos ? std::string::npos : end - at, value);
}

struct WeatherCase {
  const char* what;
  std::string file;
  WeatherFormat declared;
  ExitCode code;
  const char* where;
  const char* message;
};

}  // namespace

TEST(BadRecordedWeather, RangesGapsMissingFieldsAndLayouts) {
  const std::string rec = " 62010112089914150134C40000E40128E50154I40000I40154I50628I510A710A70194A70178A7090A71016A7203A7057A7";
  std::string tmy2 = " 12839 MIAMI                  FL  -5 N 25 48 W  80 16     2\r\n";
  for (int i = 0; i < 8760; ++i) tmy2 += rec + "\r\n";
  const WeatherCase cases[] = {
      {"a summer of 700 F", customYear([](int i, std::string l) { return i == 4000 ? fieldReplaced(l, 4, "700") : l; }),
       WeatherFormat::Custom, ExitCode::BadInput, "ecalc$.tmy line 4002",
       "the dry bulb, 700 F, is outside -130 to 140 F"},
      {"negative wind", customYear([](int i, std::string l) { return i == 9 ? fieldReplaced(l, 9, "-0.5") : l; }),
       WeatherFormat::Custom, ExitCode::Ok, "", ""},  // -1 and below: the format's "not given", a short gap
      {"a dry bulb in exponent form", customYear([](int i, std::string l) {
         return i == 48 ? fieldReplaced(l, 4, "99.9e9") : l;
       }),
       WeatherFormat::Custom, ExitCode::BadInput, "ecalc$.tmy line 50",
       "the dry bulb, 99900000000 F, is outside -130 to 140 F"},
      {"a day without wind", customYear([](int i, std::string l) {
         return i >= 48 && i < 72 ? fieldReplaced(l, 9, "-1") : l;
       }),
       WeatherFormat::Custom, ExitCode::BadWeather, "ecalc$.tmy line 50",
       "the wind speed is missing for 24 hours from this record on; gaps of up to 6 hours are filled"},
      {"a dew point never given", customYear([](int, std::string l) { return fieldReplaced(l, 5, "x"); }),
       WeatherFormat::Custom, ExitCode::BadWeather, "ecalc$.tmy", "the dew point is missing in every record"},
      {"a dry bulb of text for a day",
       customYear([](int i, std::string l) { return i >= 100 && i < 124 ? fieldReplaced(l, 4, "n/a") : l; }),
       WeatherFormat::Custom, ExitCode::BadWeather, "ecalc$.tmy line 102",
       "the dry bulb is missing for 24 hours from this record on; gaps of up to 6 hours are filled"},
      {"TMY2 declared as WYEC2", tmy2, WeatherFormat::Wyec2, ExitCode::BadInput, "ecalc$.tmy",
       "the file is not WYEC2 as the control file says; it looks like TMY2"},
      {"CUSTOM declared as TMY2", customYear([](int, std::string l) { return l; }), WeatherFormat::Tmy2,
       ExitCode::BadInput, "ecalc$.tmy", "the file is not TMY2 as the control file says; it looks like CUSTOM"},
      {"text declared as CUSTOM", std::string(9000, 'x'), WeatherFormat::Custom, ExitCode::BadInput, "ecalc$.tmy",
       "the file is not CUSTOM as the control file says: its records do not have that format's month, day and hour"},
  };
  for (const WeatherCase& c : cases) {
    RunLog log;
    try {
      readRecorded(c.file, c.declared, 2025, testSite(), log);
      EXPECT_EQ(c.code, ExitCode::Ok) << c.what << " was read";
    } catch (const RunFailure& f) {
      EXPECT_EQ(f.code(), c.code) << c.what;
      EXPECT_EQ(f.where(), c.where) << c.what;
      EXPECT_EQ(std::string(f.what()), c.message) << c.what;
    }
  }
}

TEST(BadRecordedWeather, GapsUpToSixHoursAreInterpolatedLongerOnesRefused) {
  // EPW: 99.9 is the dry bulb's missing-value code.
  auto epw = [](int from, int hours) {
    std::string s = "LOCATION,TESTVILLE,CO,USA,TMY3,725650,39.83,-104.65,-7.0,1650.0\r\n";
    for (int i = 0; i < 7; ++i) s += "HEADER\r\n";
    for (int i = 0; i < 8760; ++i) {
      int day = i / 24, month = 1;
      while (month < 12 && day >= firstDayOfMonth(month + 1, 2025) - 1) ++month;
      day -= firstDayOfMonth(month, 2025) - 1;
      const std::string db = i >= from && i < from + hours ? "99.9" : std::to_string(i % 2 ? 12 : 10);
      s += "1995," + std::to_string(month) + "," + std::to_string(day + 1) + "," + std::to_string(i % 24 + 1) +
           ",0,X," + db + ",0.0,50,83700,0,0,300,500,400,100,0,0,0,0,200,4.0,5,5\r\n";
    }
    return s;
  };
  RunLog log;
  const WeatherYear w = readRecorded(epw(101, 6), WeatherFormat::Epw, 2025, testSite(), log);
  // Hours 101..106 between 10 C at hour 100 and 12 C at hour 107, in °F.
  for (int k = 0; k < 6; ++k) EXPECT_NEAR(w.hours[101 + k].dryBulb, 50.0 + 3.6 * (k + 1) / 7.0, 1e-9);
  // At the start of the file the gap takes the first value there is.
  EXPECT_NEAR(readRecorded(epw(0, 3), WeatherFormat::Epw, 2025, testSite(), log).hours[0].dryBulb, 53.6, 1e-9);
  try {
    readRecorded(epw(200, 7), WeatherFormat::Epw, 2025, testSite(), log);
    FAIL() << "a gap of 7 hours was filled";
  } catch (const RunFailure& f) {
    EXPECT_EQ(f.code(), ExitCode::BadWeather);
    EXPECT_EQ(f.where(), "ecalc$.tmy line 209");
    EXPECT_EQ(std::string(f.what()), "the dry bulb is missing for 7 hours from this record on; gaps of up to 6 hours are filled");
  }
  try {
    readRecorded(epw(0, 8760), WeatherFormat::Epw, 2025, testSite(), log);
    FAIL() << "a file without dry bulb was read";
  } catch (const RunFailure& f) {
    EXPECT_EQ(f.code(), ExitCode::BadWeather);
    EXPECT_EQ(f.where(), "ecalc$.tmy");
    EXPECT_EQ(std::string(f.what()), "the dry bulb is missing in every record");
  }
  // A byte-order mark does not hide the format.
  EXPECT_EQ(detectFormat("\xEF\xBB\xBF" + epw(0, 0), WeatherFormat::Tmy2), WeatherFormat::Epw);
  EXPECT_EQ(readRecorded("\xEF\xBB\xBF" + epw(0, 0), WeatherFormat::Epw, 2025, testSite(), log).site.latitude, 39.83);
}

TEST(BadRecordedWeather, EveryRealFileReadsOrIsRefusedByName) {
  const fs::path dir = fs::path(TARN_WEATHER_DIR) / "recorded";
  if (!fs::exists(dir)) GTEST_SKIP() << "recorded weather not found at " << dir;
  int read = 0;
  for (const auto& entry : fs::directory_iterator(dir)) {
    const std::string ext = entry.path().extension().string();
    const std::string bytes = marloven::readFile(entry.path().string());
    RunLog log;
    if (ext == ".TMY") {
      // The older TMY layout, no control code reads it: declared as WYEC2 it read as summers of 700 °F.
      try {
        readRecorded(bytes, WeatherFormat::Wyec2, 2025, testSite(), log);
        ADD_FAILURE() << entry.path() << " was read as WYEC2";
      } catch (const RunFailure& f) {
        EXPECT_EQ(std::string(f.what()),
                  "the file is not WYEC2 as the control file says; it looks like TMY, the older layout that is not "
                  "read; convert it to TMY2 or EPW");
      }
      continue;
    }
    const WeatherFormat declared = ext == ".tm2" ? WeatherFormat::Tmy2 : WeatherFormat::Epw;
    const WeatherYear w = readRecorded(bytes, declared, 2025, testSite(), log);
    double lo = 1e9, hi = -1e9;
    for (const WeatherHour& h : w.hours) lo = std::min(lo, h.dryBulb), hi = std::max(hi, h.dryBulb);
    EXPECT_GT(lo, -70) << entry.path();
    EXPECT_LT(hi, 125) << entry.path();
    ++read;
  }
  EXPECT_GT(read, 50);
}
