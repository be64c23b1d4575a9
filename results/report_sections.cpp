#include "results/report_sections.h"

#include <array>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "results/chart_readers.h"

namespace marloven {

namespace {

struct Span {
  Section section;
  std::string_view fileName;
  std::string_view begin;  // empty: the first line of the file
  std::string_view end;
};

constexpr std::array<Span, 7> kSpans{{
    {Section::ProjectData, "tabproj.txt", "", "II."},
    {Section::ZoneData, "tabzone.txt", "II.", "III."},
    {Section::MonthlySummaries, "tabsum.txt", "III.", "IV. "},
    {Section::HvacDesign, "tabhvac.txt", "IV. ", "V. "},
    {Section::PeakProfiles, "tabprof.txt", "V. ", "VII."},
    {Section::CostAnalysis, "tabcost.txt", "VII.", "VIII"},
    {Section::WeatherSummary, "tabweat.txt", "VIII.", "IX."},
}};

const Span& spanOf(Section section) { return kSpans[static_cast<std::size_t>(section)]; }

bool startsWith(std::string_view line, std::string_view anchor) { return line.substr(0, anchor.size()) == anchor; }

// Lines of the report with their place in it, so that a span is cut as the
// bytes it was written with. Line ends as text_lines.h reads them.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text) : text_(text) {}

  // The next line without its end; start() is where it begins. 62 past the end.
  std::string_view next() {
    if (pos_ >= text_.size()) throw FileError(err::kInputPastEnd, "line " + std::to_string(number_ + 1));
    start_ = pos_;
    std::size_t stop = text_.find_first_of("\r\n", pos_);
    if (stop == std::string_view::npos) stop = text_.size();
    pos_ = stop;
    if (pos_ < text_.size()) pos_ += (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n') ? 2 : 1;
    ++number_;
    return text_.substr(start_, stop - start_);
  }
  std::size_t start() const { return start_; }

 private:
  std::string_view text_;
  std::size_t pos_ = 0;
  std::size_t start_ = 0;
  std::size_t number_ = 0;
};

}  // namespace

std::string_view sectionFileName(Section section) { return spanOf(section).fileName; }

ReadStatus cutSection(const std::string& scratchDir, Section section) {
  return trapped(false, [&] {
    const Span& span = spanOf(section);
    const std::string report = readFile(joinPath(scratchDir, kEngineOutputFile));
    LineCursor lines(report);
    std::string_view line = lines.next();
    if (!span.begin.empty())
      while (!startsWith(line, span.begin)) line = lines.next();
    const std::size_t first = lines.start();
    while (!startsWith(line, span.end)) line = lines.next();
    writeFileAtomic(joinPath(scratchDir, std::string(span.fileName)), report.substr(first, lines.start() - first));
  });
}

ReadStatus splitComfortFile(const std::string& scratchDir, ComfortPages& pages) {
  return trapped(false, [&] {
    LineReader in = LineReader::fromText(readFile(joinPath(scratchDir, kComfortFile)));
    int n = 1;
    int written = 0;
    int count = 1;
    std::string carried;  // the line that ended the previous page starts the next
    const auto close = [&](const std::string& page) {
      writeFileAtomic(joinPath(scratchDir, std::to_string(n) + ".flt"), page);
      ++written;
    };
    while (!in.atEnd()) {
      std::string page;
      if (n == 1) {
        for (int i = 0; i < 4; ++i) page += in.next() + "\r\n";
        count = 4;
      } else {
        page += carried + "\r\n";
        ++count;
      }
      for (;;) {
        const std::string& line = in.next();
        if (startsWith(line, "*** PROJ") || (count > kComfortPageLines && startsWith(line, " ZONE"))) {
          close(page);
          count = 0;
          ++n;
          carried = line;
          break;
        }
        page += line + "\r\n";
        ++count;
        if (in.atEnd()) {
          close(page);
          pages = {n, written};
          return;
        }
      }
    }
    pages = {n, written};
  });
}

}  // namespace marloven
