// Choosing a recorded weather file for a run: the file and its format, a look
// at its head, the year check of the custom format, and the copy the engine
// reads (temp/ecalc$.tmy).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

inline constexpr int kRecordedFormats = 4;
inline constexpr int kCustomFormat = 3;

struct WeatherSample {
  const char* file;     // under helpinfo/
  const char* caption;  // of the viewer
};
// The sample of a format button (0 TMY2, 1 WYEC2, 2 Custom, 3 IWEC).
WeatherSample formatSample(int formatIndex);
// The sample menu has its own order: 1 TMY2, 2 WYEC2, 3 IWEC, 4 Custom.
WeatherSample sampleMenuEntry(int menuIndex);

// The year of a line: the last two digits of its first run of digits, as a
// number; 0 when the line has no digits.
int yearOfLine(std::string_view line);
// The last two digits of the project's evaluation year text, as a number.
int projectYear(const Project& p);

// The preview of a file: the heading lines, then its first 20 lines.
// FileError 62 when the file has fewer than 20 lines.
std::string weatherPreview(const std::string& path);

class SelectWeatherForm {
 public:
  enum class Next { Stay, Preview, Close };
  enum class PreviewNext { Stay, ClosePreview, CloseBoth };

  // directory is where the picker stands; names are joined to it.
  SelectWeatherForm(AppState& state, Prompt& prompt, std::string directory);

  const std::string& name() const { return name_; }
  const std::string& directory() const { return directory_; }
  void setName(const std::string& name) { name_ = name; }
  void setDirectory(const std::string& dir) { directory_ = dir; }
  // Format buttons 0..3; -1 when none is on.
  void chooseFormat(int index);
  int formatIndex() const { return state_.recorded.format - 1; }

  // OK: checks, then the preview the first time (previewText() holds it),
  // the copy after it.
  Next clickOk();
  const std::string& previewText() const { return preview_; }
  // View: the preview's text, or nothing when the user was told why not.
  std::optional<std::string> view();
  // The preview's caption: the file's full path.
  const std::string& previewCaption() const { return state_.recorded.path; }
  // OK in the preview: the custom year check, then the copy when the
  // preview came from OK.
  PreviewNext previewOk();

 private:
  bool checkCustomYear(int line);
  bool resolvePath();
  bool copyForRun();

  AppState& state_;
  Prompt& prompt_;
  std::string directory_;
  std::string name_;
  std::string preview_;
};

}  // namespace marloven
