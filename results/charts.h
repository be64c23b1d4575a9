// The seven load and energy charts as pictures without a toolkit: what each
// chart shows (caption, labels, axis numbers, totals, bars and trace segments
// in the drawing's twips, y growing downward) and which chart buttons are on.
// A screen only paints the model; tests check the picture through it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "results/chart_readers.h"
#include "results/read_status.h"

namespace marloven {

// The charts by their number in the View menu.
enum class Chart : int {
  PeakHeating = 1,
  PeakCooling,
  AnnualHeating,
  AnnualCooling,
  MonthlyEnergy,
  MonthlyCosts,
  SourceEnergy
};
inline constexpr int kCharts = 7;

// The three screens that show them.
enum class ChartScreen { Peak, Monthly, Source };
ChartScreen screenOf(Chart c);

struct Rgb {
  int r = 0, g = 0, b = 0;
  bool operator==(const Rgb&) const = default;
};
inline constexpr Rgb kChartBlack{0, 0, 0};
// The 16-colour palette of the bars and their labels.
Rgb paletteColour(int index);

// The axis's full scale for the largest magnitude x: from the number text's
// digit count and first digit, with the peak screen's guards (a first digit
// of 0 counts as 1, the scale at least 0.1).
float fitAxis(float x, bool peakGuards);

struct ChartText {
  std::string text;
  Rgb colour = kChartBlack;
};

struct ChartBar {
  double left = 0, top = 0, right = 0, bottom = 0;  // twips
  Rgb fill;
  double value = 0;  // the number the bar stands for
};

struct ChartSegment {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // twips
  Rgb colour;
  int trace = 0;  // 0 heating or gas, 1 cooling or electricity, 2 total
  int month = 0;  // the segment starts at entry `month` (1..12)
};

// Drawing constants of the three screens (twips).
inline constexpr double kPeakBaseY = 3500, kPeakHalfHeight = 1900, kPeakFirstX = 1500, kPeakBarWidth = 400,
                        kPeakStep = 800;
inline constexpr double kMonthlyBaseY = 5000, kMonthlyHeight = 3500, kMonthlyFirstX = 1450, kMonthlyStep = 600;
inline constexpr double kSourceBaseY = 5000, kSourceHeight = 3500, kSourceFirstX = 2000, kSourceBarWidth = 500,
                        kSourceStep = 1000;

struct ChartModel {
  Chart chart = Chart::SourceEnergy;
  ChartScreen screen = ChartScreen::Source;
  OutputUnits units = OutputUnits::IP;
  std::string title;    // "Peak Heating Loads"
  std::string caption;  // title + " -- " + project file name
  std::string projectName, location, outputName;
  std::string unit;     // the unit label beside the axis
  float scale = 0;

  // Peak: category names and values (catlabel, valcat); source: end-use
  // names and values as cut (Label2, Label3), all in their bar's colour.
  std::vector<ChartText> names;
  std::vector<ChartText> values;
  // Source: the electric uses in kWh or MWh and that unit (kwh 0..4).
  std::vector<ChartText> electric;
  std::string electricUnit;
  std::string factor;  // euf: the source energy use factor with its unit

  // Axis numbers: peak gains (pluslb 1..2) and losses (minlb 1..2); monthly
  // and source 1..4 from the bottom.
  std::vector<std::string> axisUp, axisDown;

  // Monthly: legend and total names, the totals, and the third trace.
  std::array<std::string, 2> legend;
  std::array<std::string, 2> totalNames;
  std::string total;   // peak: totheat; monthly: totheat
  std::string total2;  // monthly: totcool
  std::string total3;  // monthly: Label8
  bool thirdTrace = false;

  std::vector<ChartBar> bars;
  std::vector<ChartSegment> segments;
  // The chart buttons by chart number (entry 0 unused): on when pressing it
  // shows another picture.
  std::array<bool, kCharts + 1> buttons{};
};

// What a builder needs besides the report under scratchDir.
struct ChartSource {
  std::string scratchDir;
  std::string projectFile;  // the caption's project file name
  std::string outputName;   // the output file name label
};

// Builds chart c from <scratchDir>/ecalc$.out. A reader's fault comes back
// as its status (the model is then left as it was).
ReadStatus buildChart(const ChartSource& source, Chart c, ChartModel& model);

// "Main Menu" on a chart screen: unsaved results of this session's run are
// asked about first (Yes: the output save dialog; Cancel: stay).
enum class ChartLeave { Close, SaveOutput, Stay };
ChartLeave chartMainMenu(bool runMade, bool outputSaved, Prompt& prompt);

// What a bar or a month of the picture says when pointed at: its name, value
// and unit; empty where nothing is drawn. x, y in twips.
std::string chartValueAt(const ChartModel& m, double x, double y);

// The month names along the monthly axis.
extern const std::array<const char*, 12> kChartMonths;

}  // namespace marloven
