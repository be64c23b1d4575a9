#include "weather/recorded_weather.h"

#include <array>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/keys.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/installation.h"

namespace marloven {

namespace {

constexpr std::array<WeatherSample, kRecordedFormats> kSamples = {{
    {"tmy2.txt", "Example of TMY2 format"},
    {"wyec2.txt", "Example of WYEC2 format"},
    {"custom.txt", "Example of Custom format"},
    {"iwec.txt", "Example of IWEC format"},
}};

constexpr int kPreviewLines = 20;
constexpr int kYearLineOnOk = 10;
constexpr int kYearLineInPreview = 5;

int lastTwoDigits(std::string_view digits) {
  if (digits.empty()) return 0;
  return static_cast<int>(leadingNumber(digits.substr(digits.size() >= 2 ? digits.size() - 2 : 0)));
}

}  // namespace

WeatherSample formatSample(int formatIndex) { return kSamples.at(formatIndex); }

WeatherSample sampleMenuEntry(int menuIndex) {
  static constexpr std::array<int, kRecordedFormats + 1> kButton = {0, 0, 1, 3, 2};
  return kSamples.at(kButton.at(menuIndex));
}

int yearOfLine(std::string_view line) {
  const std::size_t first = line.find_first_of("0123456789");
  if (first == std::string_view::npos) return 0;
  std::size_t end = first;
  while (end < line.size() && key::isDigit(line[end])) ++end;
  return lastTwoDigits(line.substr(first, end - first));
}

int projectYear(const Project& p) {
  const std::string& year = p.data[kConstructionYear];
  std::size_t end = year.size();
  while (end > 0 && !key::isDigit(year[end - 1])) --end;
  std::size_t begin = end;
  while (begin > 0 && key::isDigit(year[begin - 1])) --begin;
  return lastTwoDigits(std::string_view(year).substr(begin, end - begin));
}

std::string weatherPreview(const std::string& path) {
  LineReader in = LineReader::fromText(readFile(path));
  std::string out = "\r\n";
  out += "                           THIS IS ONLY PART OF YOUR WEATHER FILE.\r\n";
  out += "           PLEASE MAKE SURE THAT THIS IS THE RIGHT WEATHER FILE YOU ARE GOING TO USE.\r\n";
  out += "\r\n";
  out += std::string(86, '-') + "\r\n";
  for (int i = 0; i < kPreviewLines; ++i) out += in.next() + "\r\n";
  return out;
}

SelectWeatherForm::SelectWeatherForm(AppState& state, Prompt& prompt, std::string directory)
    : state_(state), prompt_(prompt), directory_(std::move(directory)) {
  const std::string& path = state_.recorded.path;
  if (!path.empty()) name_ = path;
}

void SelectWeatherForm::chooseFormat(int index) {
  if (index >= 0 && index < kRecordedFormats) state_.recorded.format = index + 1;
}

bool SelectWeatherForm::resolvePath() {
  const std::string path = resolveUserPath(directory_, name_);
  name_ = path;
  if (!fileExists(path)) {
    prompt_.message(Icon::Exclamation, "Error", "File does not exist.  Check your directory again.");
    return false;
  }
  state_.recorded.path = path;
  return true;
}

bool SelectWeatherForm::checkCustomYear(int line) {
  if (state_.recorded.format != kCustomFormat) return true;
  try {
    LineReader in = LineReader::fromText(readFile(state_.recorded.path));
    std::string text;
    for (int i = 0; i < line; ++i) text = in.next();
    if (yearOfLine(text) == projectYear(state_.project)) return true;
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
  prompt_.beep();
  return prompt_.ask(Buttons::YesNo, Icon::Question, "Weather Year",
                     "The year of your weather data file is not the same as the project evaluation year.  "
                     "Do you want to continue?") == Answer::Yes;
}

bool SelectWeatherForm::copyForRun() {
  try {
    writeFileAtomic(state_.install.scratchFile("ecalc$.tmy"), readFile(state_.recorded.path));
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
  state_.recorded.fileChosen = true;
  state_.project.flags.recordedWeatherPicked = true;
  return true;
}

SelectWeatherForm::Next SelectWeatherForm::clickOk() {
  if (name_.empty()) {
    prompt_.message(Icon::Exclamation, "Weather Data File", "Please enter the weather data file name.");
    return Next::Stay;
  }
  if (state_.recorded.format == 0) {
    prompt_.message(Icon::Exclamation, "Weather File Format", "Please select the weather file format.");
    return Next::Stay;
  }
  if (!resolvePath() || !checkCustomYear(kYearLineOnOk)) return Next::Stay;
  if (!state_.recorded.previewShown) {
    std::optional<std::string> text = view();
    if (!text) return Next::Stay;
    preview_ = std::move(*text);
    state_.recorded.fileChosen = true;
    state_.recorded.previewShown = true;
    return Next::Preview;
  }
  return copyForRun() ? Next::Close : Next::Stay;
}

std::optional<std::string> SelectWeatherForm::view() {
  if (name_.empty()) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Weather File Name", "Please enter the weather file name.");
    return std::nullopt;
  }
  if (!resolvePath()) return std::nullopt;
  try {
    return weatherPreview(state_.recorded.path);
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return std::nullopt;
  }
}

SelectWeatherForm::PreviewNext SelectWeatherForm::previewOk() {
  if (!checkCustomYear(kYearLineInPreview)) return PreviewNext::Stay;
  const bool fromOk = state_.recorded.previewShown;
  state_.recorded.previewShown = false;
  if (fromOk) return copyForRun() ? PreviewNext::CloseBoth : PreviewNext::ClosePreview;
  return PreviewNext::ClosePreview;
}

}  // namespace marloven
