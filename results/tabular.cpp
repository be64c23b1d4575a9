#include "results/tabular.h"

#include <vector>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "results/report_sections.h"

namespace marloven {

const std::array<const char*, kTabButtons> kTabularCaptions = {
    "Project Data", "Zone Data", "Summaries", "HVAC Design", "Peak Profiles", "Cost Analysis",
    "Weather",      "Print ...", "Main Menu", "Hourly Output", "Space Comfort"};

namespace {

// Lines read as a file channel gives them: the end is known once the last
// line has been read.
class Channel {
 public:
  explicit Channel(const std::string& text) : lines_(splitLines(text)) {}
  bool eof() const { return next_ >= lines_.size(); }
  std::string read() { return eof() ? std::string() : lines_[next_++]; }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
};

bool columnsAre(const std::string& line, std::size_t column, std::string_view text) {
  return line.size() >= column - 1 + text.size() && std::string_view(line).substr(column - 1, text.size()) == text;
}

}  // namespace

int splitZonePages(const std::string& scratchDir) {
  const std::string text = readFile(joinPath(scratchDir, "tabzone.txt"));
  // Zones: one more than the zone headings after the first line.
  int c = 1;
  {
    Channel in(text);
    in.read();
    while (!in.eof())
      if (columnsAre(in.read(), 5, "ZONE")) ++c;
  }
  const int pages = (c + 4) / 5;
  Channel in(text);
  std::string line = in.read();
  for (int k = 1; k <= pages; ++k) {
    std::string page = line + "\r\n";
    line = in.read();
    for (int j = 1; j <= 5; ++j) {
      bool ended = false;
      while (!columnsAre(line, 1, "***")) {
        if (in.eof()) {
          ended = true;
          break;
        }
        page += line + "\r\n";
        line = in.read();
      }
      if (ended) break;
      // The line that opens the sixth zone is left out: the next page starts
      // at that zone's second header line.
      if (j != 5) page += line + "\r\n";
      line = in.read();
    }
    writeFileAtomic(joinPath(scratchDir, std::to_string(k) + ".txt"), page);
  }
  return pages;
}

int splitWeatherPages(const std::string& scratchDir) {
  Channel in(readFile(joinPath(scratchDir, "tabweat.txt")));
  std::array<std::string, 2> pages;
  int m = 0;
  std::string line = in.read();
  bool done = false;
  while (!in.eof() && !done) {
    std::string& page = pages[m >= 7 ? 1 : 0];
    page += line + "\r\n";
    for (;;) {
      line = in.read();
      if (columnsAre(line, 2, "DAILY")) break;
      page += line + "\r\n";
      if (in.eof()) {
        done = true;
        break;
      }
    }
    if (!done) ++m;
  }
  writeFileAtomic(joinPath(scratchDir, "1wth.txt"), pages[0]);
  writeFileAtomic(joinPath(scratchDir, "2wth.txt"), pages[1]);
  return m;
}

std::string TabularForm::caption() const { return title_ + " -- " + state_.project.fileName; }

bool TabularForm::failed(const ReadStatus& st) {
  if (st.ok()) return false;
  reportError(prompt_, st.errorNumber);
  return true;
}

void TabularForm::show(const std::string& file, const std::string& title) {
  try {
    text_ = readFile(joinPath(state_.install.scratchDir(), file));
    title_ = title;
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void TabularForm::showZonePage() {
  const TabularPages& t = state_.tabular;
  show(std::to_string(t.zonePage) + ".txt", "Zone Data");
  previous_ = t.zonePage != 1;
  next_ = t.zonePage != t.zonePageCount;
}

void TabularForm::showTable(int table) {
  if (table >= 1 && table <= 7) clickSummary(table - 1);
  if (table == 8) clickSummary(kTabComfort);
}

void TabularForm::clickSummary(int index) {
  enabled_.fill(true);
  enabled_[static_cast<std::size_t>(index)] = false;
  enabled_[kTabHourly] = state_.project.flags.hourlyOutputMade;
  next_ = index == kTabZones || index == kTabWeather || index == kTabComfort;
  previous_ = false;
  const std::string dir = state_.install.scratchDir();
  struct Span {
    Section section;
    const char* file;
    const char* title;
  };
  static const std::array<Span, 6> kSpans = {{{Section::ProjectData, "tabproj.txt", "Project Data"},
                                              {Section::ZoneData, "tabzone.txt", "Zone Data"},
                                              {Section::MonthlySummaries, "tabsum.txt", "Monthly Summaries"},
                                              {Section::HvacDesign, "tabhvac.txt", "Design Data for HVAC Zones"},
                                              {Section::PeakProfiles, "tabprof.txt", "Peak Demand Profiles"},
                                              {Section::CostAnalysis, "tabcost.txt", "Cost Analysis"}}};
  TabularPages& t = state_.tabular;
  switch (index) {
    case kTabZones:
      if (!t.zonePagesReady) {
        if (failed(cutSection(dir, Section::ZoneData))) return;
        try {
          t.zonePageCount = splitZonePages(dir);
        } catch (const FileError& e) {
          reportError(prompt_, e);
          return;
        }
        t.zonePage = 1;
        t.zonePagesReady = true;
      }
      showZonePage();
      break;
    case kTabWeather: {
      if (failed(cutSection(dir, Section::WeatherSummary))) return;
      int months = 0;
      try {
        months = splitWeatherPages(dir);
      } catch (const FileError& e) {
        reportError(prompt_, e);
        return;
      }
      show("1wth.txt", "Weather Summary");
      next_ = months > 7;
      previous_ = false;
      break;
    }
    case kTabComfort: {
      ComfortPages pages;
      if (failed(splitComfortFile(dir, pages))) return;
      t.comfortPageCount = pages.pageCount;
      comfortIndex_ = 0;
      if (pages.pagesWritten > 0) {
        show("1.flt", "Space Comfort Conditions");
      } else {
        // A run with its HVAC has no comfort table: an empty page, no error.
        text_.clear();
        title_ = "Space Comfort Conditions";
      }
      next_ = pages.pageCount > 0;
      previous_ = false;
      break;
    }
    default: {
      if (index < 0 || index > kTabCosts) return;
      const Span& s = kSpans[static_cast<std::size_t>(index)];
      if (failed(cutSection(dir, s.section))) return;
      show(s.file, s.title);
    }
  }
}

void TabularForm::clickPage(int index) {
  TabularPages& t = state_.tabular;
  if (index == 1 && t.zonePage < t.zonePageCount) ++t.zonePage;
  if (index == 2 && t.zonePage > 1) --t.zonePage;
  if (title_.rfind("Zone Data", 0) == 0) {
    showZonePage();
  } else if (title_.rfind("Weather Summary", 0) == 0) {
    show(index == 1 ? "2wth.txt" : "1wth.txt", "Weather Summary");
    next_ = index != 1;
    previous_ = index == 1;
    for (int i = kTabZones; i <= kTabWeather; ++i) enabled_[static_cast<std::size_t>(i)] = true;
    enabled_[kTabWeather] = false;
  } else if (title_.rfind("Space Comfort Conditions", 0) == 0) {
    if (index == 1) {
      ++comfortIndex_;
      previous_ = true;
      next_ = comfortIndex_ + 1 != t.comfortPageCount;
    } else {
      --comfortIndex_;
      next_ = true;
      if (comfortIndex_ <= 0) {
        comfortIndex_ = 0;
        previous_ = false;
      }
    }
    if (comfortIndex_ + 1 <= t.comfortPageCount) show(std::to_string(comfortIndex_ + 1) + ".flt", "Space Comfort Conditions");
    if (state_.project.flags.runMade)
      for (int i = kTabZones; i <= kTabWeather; ++i) enabled_[static_cast<std::size_t>(i)] = true;
  }
}

TabularForm::Leave TabularForm::clickMainMenu() {
  const ProjectFlags& f = state_.project.flags;
  if (f.runMade && !f.outputSaved) {
    switch (prompt_.ask(Buttons::YesNoCancel, Icon::Question, "Save Output",
                        "The simulation results have not been saved.  Do you want to save them?")) {
      case Answer::Yes:
        enabled_[kTabMainMenu] = true;
        return Leave::SaveOutput;
      case Answer::No: break;
      default: return Leave::Stay;
    }
  }
  text_.clear();
  comfortIndex_ = 0;
  return Leave::Close;
}

}  // namespace marloven
