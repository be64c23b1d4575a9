#include "engine/control_file.h"

#include <string>
#include <vector>

#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/input_checks.h"
#include "engine/run_log.h"

namespace tarn {

namespace {
const char* const kLabels[8] = {"Run type", "Wthr type", "1st day", "Run begin",
                                "Run end",  "Hourly out", "Skip month", "Comfort"};
std::string where(int line) { return "ecalc$.tmp line " + std::to_string(line); }

constexpr double kComfortMin = -100, kComfortMax = 200;

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

std::string_view firstToken(std::string_view s) {
  const std::size_t a = s.find_first_not_of(' ');
  if (a == std::string_view::npos) return {};
  s.remove_prefix(a);
  return s.substr(0, s.find(' '));
}

// A control value must be a number and nothing else; blank is 0.
double controlNumber(std::string_view text, int line, const char* what) {
  const NumberText n = strictNumber(text);
  if (n.kind == NumberText::Empty) return 0;
  if (n.kind != NumberText::Number)
    throw RunFailure(ExitCode::BadInput, where(line),
                     std::string(what) + " \"" + std::string(firstToken(text)) + "\" is not a number");
  return n.value;
}
}  // namespace

RunControl parseControl(std::string_view bytes, RunLog& log) {
  const std::vector<std::string> lines = marloven::splitLines(bytes);
  RunControl c;
  if (lines.empty()) throw RunFailure(ExitCode::BadInput, "ecalc$.tmp", "the control file is empty");
  // The error check writes a control file of the single line "1".
  if (lines.size() == 1 && marloven::leadingNumber(lines[0]) == 1.0) {
    c.runType = 1;
    return c;
  }
  if (lines.size() < 8)
    throw RunFailure(ExitCode::BadInput, where(static_cast<int>(lines.size()) + 1),
                     std::string("the control file ends before the \"") + kLabels[lines.size()] + "\" line");
  for (int i = 0; i < 8; ++i)
    if (lines[i].compare(0, std::string(kLabels[i]).size(), kLabels[i]) != 0)
      throw RunFailure(ExitCode::BadInput, where(i + 1),
                       std::string("expected the \"") + kLabels[i] + "\" line, found \"" + lines[i] + "\"");
  auto value = [&](int i) {
    return controlNumber(firstToken(marloven::fromColumn(lines[i], 13)), i + 1, kLabels[i]);
  };

  const double run = value(0);
  if (run != 1 && run != 2 && run != 3 && run != 4)
    throw RunFailure(ExitCode::BadInput, where(1), "run type must be 1, 2, 3 or 4, found \"" + lines[0] + "\"");
  c.runType = static_cast<int>(run);
  const double wthr = value(1);
  if (!(wthr >= 0 && wthr <= 4 && wthr == static_cast<int>(wthr)))
    throw RunFailure(ExitCode::BadInput, where(2), "weather type must be 0 to 4, found \"" + lines[1] + "\"");
  c.weatherFormat = static_cast<int>(wthr);
  const double first = value(2);
  if (!(first >= 1 && first <= 7 && first == static_cast<int>(first)))
    throw RunFailure(ExitCode::BadInput, where(3), "weekday of 1 January must be 1 to 7, found \"" + lines[2] + "\"");
  c.firstWeekday = static_cast<int>(first);
  const double begin = value(3), end = value(4);
  if (!(begin >= 1 && begin <= 366 && begin == static_cast<int>(begin)))
    throw RunFailure(ExitCode::BadInput, where(4), "run begin must be a day of the year, found \"" + lines[3] + "\"");
  if (!(end >= 1 && end <= 366 && end == static_cast<int>(end)))
    throw RunFailure(ExitCode::BadInput, where(5), "run end must be a day of the year, found \"" + lines[4] + "\"");
  c.beginDay = static_cast<int>(begin);
  c.endDay = static_cast<int>(end);
  const double hourly = value(5);
  if (hourly != 0 && hourly != 1)
    throw RunFailure(ExitCode::BadInput, where(6), "hourly out must be 0 or 1, found \"" + lines[5] + "\"");
  c.hourlyOut = hourly == 1.0;

  std::string_view skip = marloven::fromColumn(lines[6], 13);
  while (true) {
    const std::size_t p = skip.find_first_not_of(' ');
    if (p == std::string_view::npos) break;
    skip.remove_prefix(p);
    const double m = controlNumber(firstToken(skip), 7, "Skip month");
    if (!(m >= 1 && m <= 12 && m == static_cast<int>(m)))
      throw RunFailure(ExitCode::BadInput, where(7), "skipped months must be 1 to 12, found \"" + lines[6] + "\"");
    c.skipMonth[static_cast<int>(m)] = true;
    const std::size_t q = skip.find(' ');
    if (q == std::string_view::npos) break;
    skip.remove_prefix(q);
  }

  // In the report's units, so the range holds both scales.
  auto comfort = [&](std::string_view text, const char* what) {
    const double t = controlNumber(text, 8, what);
    if (trimmed(text).empty())
      throw RunFailure(ExitCode::BadInput, where(8), std::string("the ") + what + " is missing");
    if (t < kComfortMin || t > kComfortMax)
      throw RunFailure(ExitCode::BadInput, where(8),
                       std::string("the ") + what + " " + std::string(trimmed(text)) + " is outside " +
                           marloven::bare(kComfortMin) + " to " + marloven::bare(kComfortMax));
    return t;
  };
  c.comfortLow = comfort(marloven::midText(lines[7], 13, 10), "lower comfort limit");
  c.comfortHigh = comfort(marloven::fromColumn(lines[7], 23), "upper comfort limit");
  if (c.comfortLow > c.comfortHigh) {
    std::swap(c.comfortLow, c.comfortHigh);
    log.warning(where(8), "comfort limits were reversed and have been swapped");
  }
  return c;
}

}  // namespace tarn
