// The weather database: record heads and the tolerant field reader, groups and
// searches, loading in both unit systems, and the two saves with their rules
// on placement, cutting, marks and failure.
#include "weather/weather_database.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>

#include "common/file_error.h"
#include "common/text_lines.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

// A record in I-P whose values tell the row and month apart: row r, month m
// holds 10 r + m (solar 100 r + m, a whole number).
WeatherFields place(const std::string& city, const std::string& state) {
  WeatherFields f;
  f.city = city;
  f.state = state;
  f.station = "725650";
  f.latitude = "39.8";
  f.longitude = "104.7";
  f.timeZone = "105";
  f.elevation = "5413";
  for (int r = 0; r < kWeatherRows; ++r)
    for (int m = 0; m < 12; ++m) f.rows[r][m] = std::to_string(r == kSolar ? 100 * r + m : 10 * r + m) + ".0";
  return f;
}

struct Database {
  TempInstall inst;
  std::string path = weatherDatabasePath(inst.dir());
  std::string bytes() const { return inst.read("weather/weth.asc"); }
  std::vector<WeatherRecordHead> heads() const { return readRecordHeads(bytes()); }
  int add(const WeatherFields& f) {
    int n = 0;
    EXPECT_EQ(saveAsNew(path, f, UnitSystem::IP, true, &n), SaveOutcome::Saved);
    return n;
  }
};

std::vector<std::string> locations(const std::vector<WeatherRecordHead>& heads) {
  std::vector<std::string> out;
  for (const auto& h : heads) out.push_back(h.city + "|" + h.state + "|" + h.mark);
  return out;
}

TEST(WeatherFieldReader, ReadsQuotedTextsAndNumbersSeparatedByCommasOrBlanks) {
  FieldReader r("\"CO\",\"Colorad\"");
  EXPECT_EQ(r.text(), "CO");
  EXPECT_EQ(r.text(), "Colorad");
  EXPECT_TRUE(r.atEnd());

  FieldReader s("  \"Golden, Colorado     \"  \"724666\" 39.7,-105.2   105 ,  6001");
  EXPECT_EQ(s.text(), "Golden, Colorado     ");
  EXPECT_EQ(s.text(), "724666");
  EXPECT_DOUBLE_EQ(s.number(), 39.7);
  EXPECT_DOUBLE_EQ(s.number(), -105.2);
  EXPECT_DOUBLE_EQ(s.number(), 105);
  EXPECT_EQ(s.token(), "6001");
  EXPECT_TRUE(s.atEnd());

  FieldReader u("plain text , next");  // an unquoted text runs to the comma
  EXPECT_EQ(u.text(), "plain text");
  EXPECT_EQ(u.text(), "next");
}

TEST(WeatherLocation, SplitsCityStateAndMarks) {
  struct Case {
    std::string text, city, state, mark;
  } cases[] = {
      {"Denver, Colorado                     ", "Denver", "Colorado", ""},
      {"Golden, Colorado !                   ", "Golden", "Colorado", "!"},
      {"Lyon, France *#", "Lyon", "France", "*#"},  // a mark followed by "#" keeps both
      {"Nome, Alaska @ #", "Nome", "Alaska", "@"},
      {"Washington, D.C., District of Columbia", "Washington", "D.C., District of Columbia", ""},
      {"No comma at all   ", "No comma at all", "", ""},
  };
  for (const Case& c : cases) {
    std::string city, state, mark;
    splitLocation(c.text, city, state, mark);
    EXPECT_EQ(city + "|" + state + "|" + mark, c.city + "|" + c.state + "|" + c.mark) << c.text;
  }
}

TEST(WeatherDatabase, WritesTheRecordLayout) {
  const std::string existing = formatRecord(place("Denver", "Colorado"), UnitSystem::IP, false, "CO");
  const auto lines = splitLines(existing);
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[0], "\"CO\",\"Colorad\"");
  // Shorter than 35: closing quote at column 39.
  EXPECT_EQ(lines[1], "\"Denver, Colorado                     \" \"725650\" 39.8  104.7  105 5413");
  EXPECT_EQ(lines[1].find('"', 1), 38u);
  EXPECT_EQ(lines[2], "     0     1     2     3     4     5     6     7     8     9    10    11");
  EXPECT_EQ(lines[8], "   600   601   602   603   604   605   606   607   608   609   610   611");

  // A new group: the code is the state's first two characters, the mark " !"
  // follows the text, and 35 characters or more put the quote at column 41.
  const auto fresh = splitLines(formatRecord(place("Twentynine Palms Airport", "California"), UnitSystem::IP, true));
  EXPECT_EQ(fresh[0], "\"Ca\",\"Califor\"");
  EXPECT_EQ(fresh[1].substr(0, 41), "\"Twentynine Palms Airport, California ! \"");
  EXPECT_EQ(fresh[1].find('"', 1), 40u);
  const auto shortNew = splitLines(formatRecord(place("Lyon", "France"), UnitSystem::IP, true));
  EXPECT_EQ(shortNew[1].substr(0, 39), "\"Lyon, France !                       \"");
  EXPECT_EQ(shortNew[0], "\"Fr\",\"France \"");
}

TEST(WeatherDatabase, NewStateIsAppendedMarkedAndItsSecondRecordGoesBehindTheFirst) {
  Database db;
  EXPECT_EQ(db.add(place("Denver", "Colorado")), 1);
  EXPECT_EQ(db.add(place("Boise", "Idaho")), 2);
  EXPECT_EQ(db.add(place("Golden", "Colorado")), 2);  // behind Colorado, before Idaho
  EXPECT_EQ(db.add(place("Pocatello", "Idaho")), 4);  // behind the last group: at the end
  EXPECT_EQ(db.add(place("Aspen", "Colorado")), 3);
  EXPECT_EQ(locations(db.heads()),
            (std::vector<std::string>{"Denver|Colorado|!", "Golden|Colorado|", "Aspen|Colorado|", "Boise|Idaho|!",
                                      "Pocatello|Idaho|"}));
  // Records added to an existing group take its code, not their own.
  EXPECT_EQ(db.heads()[2].code, "Co");

  const auto groups = listGroups(db.heads());
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].state + " " + std::to_string(groups[0].firstRecord) + " " + std::to_string(groups[0].count),
            "Colorado 1 3");
  EXPECT_EQ(groups[1].state + " " + std::to_string(groups[1].firstRecord) + " " + std::to_string(groups[1].count),
            "Idaho 4 2");
  EXPECT_EQ(listCities(db.heads(), "Colorado"), (std::vector<std::string>{"Denver", "Golden", "Aspen"}));
  // The project's location carries the mark.
  EXPECT_EQ(loadRecordFile(db.path, "Denver", "Colorado", UnitSystem::IP)->mark, "!");
}

TEST(WeatherDatabase, ACityWithACommaOfItsOwnSplitsAtTheFirstComma) {
  Database db;
  db.add(place("Washington, D.C.", "Dist. of Columbia"));
  const auto heads = db.heads();
  ASSERT_EQ(heads.size(), 1u);
  EXPECT_EQ(heads[0].city, "Washington");
  EXPECT_EQ(heads[0].state, "D.C., Dist. of Columbia");
  EXPECT_EQ(findLocation(heads, "Washington, D.C.", "Dist. of Columbia"), nullptr);
  EXPECT_FALSE(loadRecordFile(db.path, "Washington, D.C.", "Dist. of Columbia", UnitSystem::IP));
  // Under the names the file gives it, the record is there.
  EXPECT_TRUE(loadRecordFile(db.path, "Washington", "D.C., Dist. of Columbia", UnitSystem::IP));
  // A second record of the same state does not find that group either.
  EXPECT_EQ(db.add(place("Georgetown", "Dist. of Columbia")), 2);
  EXPECT_EQ(db.heads()[1].mark, "!");
}

TEST(WeatherDatabase, ALongNameIsCutSoThatTheFullNameIsNotFoundAgain) {
  Database db;
  db.add(place("Aspen", "Colorado"));
  // 45 characters together, in an existing group: cut to 39.
  const WeatherFields longName = place("Colorado Springs Municipal Airport", "Colorado");
  db.add(longName);
  const auto heads = db.heads();
  ASSERT_EQ(heads.size(), 2u);
  EXPECT_EQ(heads[1].location, "Colorado Springs Municipal Airport, Col");
  EXPECT_EQ(findLocation(heads, longName.city, longName.state), nullptr);
  EXPECT_FALSE(loadRecordFile(db.path, longName.city, longName.state, UnitSystem::IP));
  // Updating it by the full name is refused, and the file stays.
  const std::string before = db.bytes();
  EXPECT_EQ(saveAsUpdate(db.path, longName, UnitSystem::IP, true), SaveOutcome::NotFound);
  EXPECT_EQ(db.bytes(), before);
  EXPECT_EQ(saveMessage(SaveOutcome::NotFound).title, "State or city name not found");
}

TEST(WeatherDatabase, GroupsAlikeInTheirFirstSevenCharactersStayApart) {
  Database db;
  db.add(place("Darwin", "Northern Territory"));
  db.add(place("Belfast", "Northern Ireland"));
  db.add(place("Alice Springs", "Northern Territory"));
  db.add(place("Armagh", "Northern Ireland"));
  const auto heads = db.heads();
  EXPECT_EQ(heads[0].groupName, heads[2].groupName);  // both "Norther"
  EXPECT_EQ(heads[0].groupName, "Norther");
  const auto groups = listGroups(heads);
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].state, "Northern Territory");
  EXPECT_EQ(groups[1].state, "Northern Ireland");
  EXPECT_EQ(listCities(heads, "Northern Ireland"), (std::vector<std::string>{"Belfast", "Armagh"}));
  EXPECT_EQ(findLocation(heads, "Belfast", "Northern Territory"), nullptr);
  EXPECT_EQ(loadRecordFile(db.path, "Armagh", "Northern Ireland", UnitSystem::IP)->record, 4);
}

TEST(WeatherDatabase, LoadsInSiWithItsRoundingsAndWritesBackTheSameIpRecord) {
  WeatherFields f = place("Denver", "Colorado");
  f.rows[kDryBulbAverage][0] = "70.0";
  f.rows[kDryBulbAverageStd][0] = "5.3";
  f.rows[kSolar][0] = "1000";
  f.rows[kWind][0] = "8.9";
  f.latitude = "39.83";
  Database db;
  db.add(f);
  const std::string before = db.bytes();

  const WeatherFields si = *loadRecordFile(db.path, "Denver", "Colorado", UnitSystem::SI);
  EXPECT_EQ(si.rows[kDryBulbAverage][0], " 21.1");
  EXPECT_EQ(si.rows[kDryBulbAverageStd][0], "  2.9");
  EXPECT_EQ(si.rows[kDryBulbMaximum][0], " -6.7");  // 20 F
  EXPECT_EQ(si.rows[kSolar][0], "11357");
  EXPECT_EQ(si.rows[kWind][0], "    4");             // 3.98 m/s
  EXPECT_EQ(si.latitude, " 39.8");
  EXPECT_EQ(si.elevation, "1649.9");
  EXPECT_EQ(si.annualExtreme[0], "0.0");

  // Written back unchanged, 21.1 C gives 70 again; the rest of the record
  // changes by at most the rounding of the shown SI value.
  const auto back = splitLines(formatRecord(si, UnitSystem::SI, false, "Co"));
  EXPECT_EQ(back[2].substr(0, 6), "    70");
  EXPECT_EQ(back[8].substr(0, 6), "  1000");
  EXPECT_EQ(back[9].substr(0, 6), "   8.9");
  EXPECT_EQ(back[1].substr(back[1].size() - 4), "5413");
  ASSERT_EQ(saveAsUpdate(db.path, si, UnitSystem::SI, true), SaveOutcome::Saved);
  const auto ip = *loadRecordFile(db.path, "Denver", "Colorado", UnitSystem::IP);
  for (int r = 0; r < kWeatherRows; ++r)
    for (int m = 0; m < 12; ++m)
      EXPECT_NEAR(std::stod(ip.rows[r][m]), std::stod(f.rows[r][m]), r == kSolar ? 1.0 : r == kWind ? 0.2 : 0.1 + 1e-9)
          << r << " " << m;
}

TEST(WeatherDatabase, UpdateReplacesTheLoadedRecordOnly) {
  Database db;
  db.add(place("Denver", "Colorado"));
  db.add(place("Golden", "Colorado"));
  db.add(place("Boise", "Idaho"));
  const auto before = splitLines(db.bytes());

  WeatherFields golden = *loadRecordFile(db.path, "Golden", "Colorado", UnitSystem::IP);
  EXPECT_EQ(golden.record, 2);
  EXPECT_EQ(saveAsUpdate(db.path, golden, UnitSystem::IP, false), SaveOutcome::NothingEdited);
  EXPECT_EQ(saveAsNew(db.path, golden, UnitSystem::IP, false), SaveOutcome::NothingEdited);
  golden.rows[kWind][11] = "99.5";
  golden.station = "724666";
  ASSERT_EQ(saveAsUpdate(db.path, golden, UnitSystem::IP, true), SaveOutcome::Saved);

  const auto after = splitLines(db.bytes());
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (i == 11 || i == 19) continue;  // the station and the wind row of record 2
    EXPECT_EQ(after[i], before[i]) << "line " << i + 1;
  }
  EXPECT_EQ(after[19].substr(66), "  99.5");
  EXPECT_NE(after[11].find("\"724666\""), std::string::npos);

  // The last record too: nothing follows it.
  WeatherFields boise = *loadRecordFile(db.path, "Boise", "Idaho", UnitSystem::IP);
  boise.elevation = "2871";
  ASSERT_EQ(saveAsUpdate(db.path, boise, UnitSystem::IP, true), SaveOutcome::Saved);
  EXPECT_EQ(db.heads().size(), 3u);
  EXPECT_EQ(db.heads()[2].elevation, "2871");
}

TEST(WeatherDatabase, AFailureInTheMiddleOfASaveLeavesTheDatabase) {
  Database db;
  for (int i = 0; i < 40; ++i) db.add(place("City " + std::to_string(i), i % 2 ? "Idaho" : "Colorado"));
  const std::string before = db.bytes();

  // The process may write no more than half the database: the save's write
  // fails part way through.
  struct rlimit old {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
  const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = old;
  small.rlim_cur = before.size() / 2;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  int number = 0;
  try {
    saveAsNew(db.path, place("Aspen", "Colorado"), UnitSystem::IP, true);
    ADD_FAILURE() << "the save did not fail";
  } catch (const FileError& e) {
    number = e.number();
  }
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, oldHandler);

  EXPECT_NE(number, 0);
  EXPECT_EQ(db.bytes(), before);
  EXPECT_EQ(db.inst.files(), std::vector<std::string>{"weather/weth.asc"});
}

TEST(WeatherDatabase, ReadsWhatOtherEditorsLeaveAndRefusesATruncatedRecord) {
  Database db;
  db.add(place("Denver", "Colorado"));
  // LF line ends and a missing last line end still read; blank lines at the
  // end are no record.
  std::string lf;
  for (const auto& line : splitLines(db.bytes())) lf += line + "\n";
  lf.pop_back();
  db.inst.write("weather/weth.asc", lf);
  EXPECT_EQ(db.add(place("Golden", "Colorado")), 2);
  EXPECT_EQ(db.add(place("Boise", "Idaho")), 3);
  EXPECT_EQ(db.heads().size(), 3u);
  db.inst.write("weather/weth.asc", db.bytes() + "\r\n  \r\n");
  EXPECT_EQ(db.heads().size(), 3u);

  const auto lines = splitLines(db.bytes());
  std::string cut;
  ASSERT_EQ(lines.size(), 32u);  // three records and the two blank lines
  for (std::size_t i = 0; i < 29; ++i) cut += lines[i] + "\r\n";
  try {
    readRecordHeads(cut);
    FAIL() << "a record of 9 lines was read";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), 62);
  }
  // A byte-order mark in front: the same places, and one more goes in behind them.
  db.inst.write("weather/weth.asc", "\xEF\xBB\xBF" + db.bytes());
  ASSERT_EQ(db.heads().size(), 3u);
  EXPECT_EQ(db.heads()[0].code, readRecordHeads(db.bytes().substr(3))[0].code);
  EXPECT_EQ(db.heads()[0].city, "Denver");
  EXPECT_EQ(db.add(place("Austin", "Texas")), 4);
  EXPECT_EQ(db.bytes().substr(0, 3), "\xEF\xBB\xBF");

  // A missing database has no records and no cities.
  EXPECT_TRUE(readRecordHeadsFile(db.inst.path("weather/none.asc").string()).empty());
}

TEST(WeatherDatabase, AFullDatabaseTakesNoNewPlace) {
  Database db;
  db.add(place("Denver", "Colorado"));
  const std::string one = db.bytes();
  std::string full;
  for (int i = 0; i < kMaxWeatherRecords; ++i) full += one;
  db.inst.write("weather/weth.asc", full);
  EXPECT_EQ(saveAsNew(db.path, place("Golden", "Colorado"), UnitSystem::IP, true), SaveOutcome::Full);
  EXPECT_EQ(db.bytes(), full);
  EXPECT_EQ(saveMessage(SaveOutcome::Full).title, "Weather database full");
  // An update of a place in it still saves.
  WeatherFields denver = place("Denver", "Colorado");
  denver.record = 1;
  denver.rows[0][0] = "1.5";
  EXPECT_EQ(saveAsUpdate(db.path, denver, UnitSystem::IP, true), SaveOutcome::Saved);
}

TEST(WeatherDatabase, ReadsValuesThatFillTheirColumns) {
  Database db;
  WeatherFields f = place("Vostok", "Antarctica");
  f.rows[kDryBulbAverage][0] = "-100.5";
  f.rows[kDryBulbAverage][1] = "-99.5";
  db.add(f);
  const WeatherFields back = *loadRecordFile(db.path, "Vostok", "Antarctica", UnitSystem::IP);
  EXPECT_EQ(back.rows[kDryBulbAverage][0], "-100.5");
  EXPECT_EQ(back.rows[kDryBulbAverage][1], "-99.5");
  EXPECT_EQ(back.rows[kDryBulbAverage][2], "    2");  // whole values show without a decimal
}

}  // namespace
}  // namespace marloven::testing
