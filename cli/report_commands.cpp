#include "cli/report_commands.h"

#include <array>
#include <ctime>
#include <ostream>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/prompt.h"
#include "project/project_reader.h"
#include "report/front_report.h"
#include "run/light_shelf.h"
#include "run/run_copy.h"

namespace marloven::cli {

namespace {

constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 12> kMonthNames = {"January", "February", "March",     "April",   "May",      "June",
                                                     "July",    "August",   "September", "October", "November", "December"};

// Questions cannot be answered here: messages go to stderr.
class StreamPrompt : public Prompt {
 public:
  explicit StreamPrompt(std::ostream& err) : err_(err) {}
  void beep() override {}
  void message(Icon, std::string_view title, std::string_view text) override { err_ << title << ": " << text << "\n"; }
  Answer ask(Buttons, Icon, std::string_view title, std::string_view text) override {
    err_ << title << ": " << text << "\n";
    return Answer::Cancel;
  }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override { return {}; }

 private:
  std::ostream& err_;
};

// "15-Oct": a day of the month and a month name of three letters.
bool validDayMonth(const std::string& s) {
  const auto dash = s.find('-');
  if (dash == std::string::npos || dash == 0 || dash > 2) return false;
  const double day = leadingNumber(s.substr(0, dash));
  const std::string month = s.substr(dash + 1);
  for (const char* m : kMonths)
    if (month.size() >= 3 && month.substr(0, 3) == m) return day >= 1 && day <= 31;
  return false;
}

}  // namespace

int reportFront(Context& c, const std::vector<std::string>& a) {
  const char* usage = "report front: expected PROJECT.inp [--period FROM TO] [--weeks 1..4] [--skip MONTH,...]\n";
  if (a.empty()) {
    c.err << usage << cli::usage();
    return 2;
  }
  ReportSetup s;
  std::string from = "1-Jan", to = "31-Dec";
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (a[i] == "--period" && i + 2 < a.size()) {
      from = a[i + 1];
      to = a[i + 2];
      i += 2;
    } else if (a[i] == "--weeks" && i + 1 < a.size()) {
      s.weeksPerMonth = static_cast<int>(leadingNumber(a[++i]));
    } else if (a[i] == "--skip" && i + 1 < a.size()) {
      std::string list = a[++i] + ",";
      for (std::size_t p = 0, q; (q = list.find(',', p)) != std::string::npos; p = q + 1) {
        const std::string m = list.substr(p, q - p);
        bool known = false;
        for (std::size_t k = 0; k < kMonths.size(); ++k)
          if (m == kMonths[k] || m == kMonthNames[k]) {
            s.skippedMonths.emplace_back(kMonthNames[k]);
            known = true;
          }
        if (!known) {
          c.err << "report front: unknown month " << m << "\n";
          return 2;
        }
      }
    } else {
      c.err << usage << cli::usage();
      return 2;
    }
  }
  if (!validDayMonth(from) || !validDayMonth(to)) {
    c.err << "Please check the dates of the simulation period and enter the dates in: dd-mmm format.  Example: "
             "15-Oct\n";
    return 2;
  }
  if (s.weeksPerMonth < 1 || s.weeksPerMonth > 4) {
    c.err << "report front: weeks per month must be 1 to 4\n";
    return 2;
  }
  requireInstallation(c);
  Project p;
  sayNotRead(c, a[0], loadProjectFileNoting(c.installDir, a[0], p));

  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  int year = static_cast<int>(leadingNumber(p.data[kConstructionYear]));
  if (year <= 0) year = local.tm_year + 1900;
  if (year < 100) year += 2000;
  s.year = year;
  s.firstWeekday = firstDayOfYear(year);
  s.periodFrom = from + "-" + std::to_string(year);
  s.periodTo = to + "-" + std::to_string(year);
  s.dateText = std::to_string(local.tm_mday) + " " + kMonths[static_cast<std::size_t>(local.tm_mon)] + " " +
               std::to_string(local.tm_year + 1900);
  char clock[8];
  std::strftime(clock, sizeof clock, "%H:%M", &local);
  s.timeText = clock;

  // The run copy completes the model as a run does before its report
  // (outside-air kinds, design temperatures); the copy itself is not kept.
  runCopyText(c.installDir, p);
  writeLightShelfFile(c.installDir, p);
  StreamPrompt prompt(c.err);
  if (writeFrontReport(c.installDir, p, s, prompt) != 0) return 1;
  c.out << joinPath(c.installDir, "temp/ecalc$.out") << "\n";
  return 0;
}

}  // namespace marloven::cli
