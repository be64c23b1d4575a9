#include "results/chart_readers.h"

#include <string_view>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

bool columnsHold(std::string_view line, std::size_t column, std::string_view text) {
  return midText(line, column, text.size()) == text;
}

std::string cut(std::string_view line, std::size_t column, std::size_t count) {
  return std::string(midText(line, column, count));
}

// The walk every chart reader starts with: from the first line of the report
// to the unit test of the weather page, then on to the reader's own anchors.
class OutputWalk {
 public:
  explicit OutputWalk(const std::string& scratchDir)
      : lines_(LineReader::fromText(readFile(joinPath(scratchDir, kEngineOutputFile)))) {}

  OutputUnits units() {
    readUntil(4, "WEATHER");
    return columnsHold(skip(13), 12, "SQ.M.") ? OutputUnits::SI : OutputUnits::IP;
  }

  // Reads lines until one holds the anchor at the column; 62 at the end.
  const std::string& readUntil(std::size_t column, std::string_view anchor) {
    for (;;) {
      const std::string& line = lines_.next();
      if (columnsHold(line, column, anchor)) return line;
    }
  }

  const std::string& next() { return lines_.next(); }

  // Reads count lines and gives the last.
  const std::string& skip(int count) {
    for (int i = 1; i < count; ++i) lines_.next();
    return lines_.next();
  }

 private:
  LineReader lines_;
};

// A month row's entry; past the table's bound is the subscript fault.
template <std::size_t N>
std::string& entry(std::array<std::string, N>& table, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= N)
    throw FileError(err::kSubscriptOutOfRange, "month row index " + std::to_string(index));
  return table[static_cast<std::size_t>(index)];
}

struct Field {
  std::size_t column;
  std::size_t count;
};

struct FieldPair {
  std::size_t value;    // 8 columns
  std::size_t percent;  // 5 columns
};
constexpr std::array<FieldPair, 4> kLoadFields{{{29, 38}, {45, 54}, {100, 109}, {117, 126}}};

// Rows 8-11 (infiltration and ventilation) become one category, mass effect
// moves up to 9 and the total to 11, so the charts read 1..9 and 11.
void fold(LoadBreakdown& t) {
  for (int i = 9; i <= 11; ++i)
    t.value[8] = padded(leadingNumber(t.value[8]) + leadingNumber(t.value[static_cast<std::size_t>(i)]));
  t.value[9] = t.value[12];
  t.value[11] = t.value[14];
}

}  // namespace

int monthNumber(std::string_view label) {
  static constexpr std::array<std::string_view, 12> kMonths{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                            "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  for (std::size_t m = 0; m < kMonths.size(); ++m)
    if (label == kMonths[m]) return static_cast<int>(m);
  return 0;
}

ReadStatus readLoadBreakdown(const std::string& scratchDir, LoadColumn column, ChartTables& tables) {
  return trapped(true, [&] {
    OutputWalk walk(scratchDir);
    tables.units = walk.units();
    LoadBreakdown& t = tables.loads[static_cast<std::size_t>(column)];
    const FieldPair f = kLoadFields[static_cast<std::size_t>(column)];
    const std::string* line = &walk.readUntil(1, "ROOF");
    for (std::size_t row = 1; row <= 14; ++row) {
      if (row != 13) {
        t.value[row] = cut(*line, f.value, 8);
        t.percent[row] = cut(*line, f.percent, 5);
      }
      line = &walk.next();
    }
    line = &walk.skip(6);  // row 21
    tables.peakHeatingTime = cut(*line, 30, 15);
    tables.peakCoolingTime = cut(*line, 46, 15);
    line = &walk.next();  // row 22
    tables.peakHeatingDate = cut(*line, 30, 17);
    tables.peakCoolingDate = cut(*line, 47, 17);
    fold(t);
  });
}

ReadStatus readMonthlyEnergy(const std::string& scratchDir, ChartTables& tables) {
  return trapped(true, [&] {
    OutputWalk walk(scratchDir);
    tables.units = walk.units();
    MonthlyEnergy& m = tables.energy;
    walk.readUntil(1, "MON");
    const std::string* line = &walk.skip(5);
    // Only the first row's label counts; the rows after it are the months after it.
    m.firstMonth = monthNumber(midText(*line, 1, 3));
    int index = m.firstMonth;
    while (!columnsHold(*line, 1, "=")) {
      ++index;
      entry(m.heating, index) = cut(*line, 4, 8);
      entry(m.cooling, index) = cut(*line, 31, 9);
      line = &walk.next();
    }
    m.lastMonth = index;
    line = &walk.next();
    m.heatingTotal = cut(*line, 4, 8);
    m.coolingTotal = cut(*line, 31, 9);
  });
}

ReadStatus readMonthlyCosts(const std::string& scratchDir, ChartTables& tables) {
  return trapped(true, [&] {
    OutputWalk walk(scratchDir);
    tables.units = walk.units();
    MonthlyCosts& c = tables.costs;
    walk.readUntil(1, "MON");
    const std::string* line = &walk.skip(5);
    c.firstMonth = monthNumber(midText(*line, 1, 3));
    int index = c.firstMonth;
    const auto store = [&c](int at, const std::string& from) {
      entry(c.gas, at) = cut(from, 80, 8);
      entry(c.electricity, at) = cut(from, 105, 9);
      entry(c.total, at) = cut(from, 114, 9);
    };
    while (!columnsHold(*line, 1, "=")) {
      ++index;
      store(index, *line);
      line = &walk.next();
    }
    c.lastMonth = index;
    line = &walk.skip(2);  // the cost totals row
    store(index + 1, *line);
  });
}

ReadStatus readSiteEnergy(const std::string& scratchDir, ChartTables& tables) {
  return trapped(true, [&] {
    OutputWalk walk(scratchDir);
    tables.units = walk.units();
    SiteEnergy& s = tables.site;
    walk.readUntil(1, "III.");
    const std::string* line = &walk.skip(2);  // line 1 of the page header
    s.projectCaption = cut(*line, 14, 35);
    s.locationCaption = cut(*line, 98, 37);
    line = &walk.readUntil(1, "Site");
    static constexpr std::array<Field, 6> kUses{{{18, 7}, {27, 8}, {38, 7}, {48, 7}, {57, 7}, {68, 7}}};
    for (std::size_t i = 0; i < kUses.size(); ++i) s.endUse[i + 1] = cut(*line, kUses[i].column, kUses[i].count);
    line = &walk.next();
    s.total = cut(*line, 89, 7);
    s.sourceFactor = cut(*line, 104, 7);
  });
}

}  // namespace marloven
