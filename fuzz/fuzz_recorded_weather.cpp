// The recorded-weather readers on any bytes, under each declared format: a
// year is read or RunFailure says why. The first byte picks the format and
// whether the year is a leap year.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/run_log.h"
#include "engine/weather_readers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto format = static_cast<tarn::WeatherFormat>(1 + data[0] % 4);
  const int year = data[0] & 0x10 ? 2024 : 2025;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  tarn::Site site;
  site.latitude = 39.8;
  site.longitude = 104.7;
  site.meridian = 105;
  tarn::RunLog log;
  try {
    tarn::readRecorded(bytes, format, year, site, log);
  } catch (const tarn::RunFailure&) {
  }
  return 0;
}
