#include "cli/weather_commands.h"

#include <ostream>

#include "common/file_io.h"
#include "weather/epw_import.h"
#include "weather/weather_database.h"

namespace marloven::cli {

int weatherImport(Context& c, const std::vector<std::string>& a) {
  std::string file, group, city;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if ((a[i] == "--group" || a[i] == "--city") && i + 1 < a.size()) {
      (a[i] == "--group" ? group : city) = a[i + 1];
      ++i;
    } else if (file.empty() && a[i].rfind("--", 0) != 0) {
      file = a[i];
    } else {
      c.err << "weather import: unexpected " << a[i] << "\n" << usage();
      return 2;
    }
  }
  if (file.empty()) {
    c.err << "weather import: expected FILE.epw\n" << usage();
    return 2;
  }

  const std::string database = weatherDatabasePath(c.installDir);
  try {
    const EpwStatistics stats = readEpw(readFile(file));
    WeatherFields fields;
    int record = 0;
    if (!importWeatherRecord(database, stats, group, city, fields, record)) {
      c.err << "weather import: " << database << " already has " << fields.city << ", " << fields.state
            << "; give another name with --city\n";
      return 1;
    }
    c.out << "record " << record << ": " << fields.city << ", " << fields.state << "\n";
    return 0;
  } catch (const WeatherImportError& e) {
    c.err << "weather import: " << file << ": " << e.what() << "\n";
    return 1;
  }
}

}  // namespace marloven::cli
