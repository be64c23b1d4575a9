// The weather database's record reader and the recorded-weather importer on
// any bytes: each reads or raises its own error.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/file_error.h"
#include "weather/epw_import.h"
#include "weather/weather_database.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    marloven::readRecordHeads(bytes);
  } catch (const marloven::FileError&) {
  }
  try {
    const marloven::EpwStatistics s = marloven::readEpw(bytes);
    marloven::fieldsFromEpw(s, marloven::defaultWeatherGroup(s.site), s.site.city);
  } catch (const marloven::WeatherImportError&) {
  }
  return 0;
}
