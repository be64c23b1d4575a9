// The recorded-weather readers on any bytes, under each declared format: a
// year is read or RunFailure says why. The first byte picks the format and
// whether the year is a leap year; the second whether the rest is repeated
// to a year's length, so the checks after the record count are reached too.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/run_log.h"
#include "engine/weather_readers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const auto format = static_cast<tarn::WeatherFormat>(1 + data[0] % 4);
  const int year = data[0] & 0x10 ? 2024 : 2025;
  std::string bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  if (data[1] & 1 && !bytes.empty()) {
    std::size_t lines = 0;
    for (char c : bytes) lines += c == '\n';
    const std::size_t copies = lines == 0 ? 1 : std::min<std::size_t>(9000 / lines + 1, 400);
    const std::string once = bytes;
    for (std::size_t i = 1; i < copies; ++i) bytes += once;
  }
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
