// The profile screens: the library of one kind's 24-hour profiles (one per
// building type) with the rows in the project marked, and the temperature
// set-point schedules assigned to a zone's four slots.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

// The values of a profile text: the count of value starts, or -1 when a
// character is neither a digit, "." nor blank (nor "-" where allowed).
int profileValueCount(const std::string& text, bool minusAllowed);

class ProfileForm {
 public:
  static constexpr int kVisibleRows = 21;
  static constexpr int kEntries = kBuildingTypes;  // 42
  static constexpr const char* kHours =
      " 1  2  3  4  5  6  7  8  9 10 11 12  1  2  3  4  5  6  7  8  9 10 11 12";

  // kind 1..4; the zone's box value comes in as SelectedProfile.
  ProfileForm(AppState& state, Prompt& prompt, int kind);

  std::string title() const;
  int scroll() const { return scroll_; }
  void setScroll(int value);
  // Visible row 1..21.
  int entry(int row) const { return row + scroll_; }
  std::string rowLabel(int row) const;
  const std::string& rowText(int row) const { return text_.at(static_cast<std::size_t>(entry(row))); }
  bool rowYellow(int row) const { return yellow_.at(static_cast<std::size_t>(entry(row))); }
  // The selected profile's text: what a plot of it shows.
  const std::string& selectedText() const;

  void clickLabel(int row);
  // A click in a row's text: the used-profile warning the first time.
  void clickText(int row);
  // A key in a row's text: true when kept. The text as it stood before the
  // key goes into the library at once.
  bool keyPress(int row, char key);
  void textChanged(int row, const std::string& text);
  // Cut, copy and paste act on a selection [from, to) of the row last worked on.
  void copy(int from, int to);
  void cut(int from, int to);
  void paste(int from, int to);
  void clickUndo();
  // OK: true when the screen closes; chosen() is then the profile number the
  // zone's box takes, or nothing after Undo.
  bool clickOk();
  std::optional<int> chosen() const { return notChosen_ ? std::nullopt : std::optional<int>(selected_); }

 private:
  void touch(int row);
  void colourFromIds();

  AppState& state_;
  Prompt& prompt_;
  int kind_;
  int scroll_ = 0;
  std::array<std::string, kEntries + 1> text_;      // the boxes
  std::array<std::string, kEntries + 1> original_;  // ProfileEditCopy
  std::array<bool, kEntries + 1> yellow_{};
  std::array<bool, kEntries + 1> touched_{};
  int lastRow_ = 0;  // the entry last worked on
  std::string clip_;
  bool notChosen_ = false;
  int selected_ = 0;
};

class TemperatureForm {
 public:
  static constexpr int kRows = 12;
  static constexpr const char* kHours =
      "  1   2   3   4   5   6  7  8   9  10 11 12  1   2   3   4   5   6  7  8  9  10  11 12";

  TemperatureForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // Opening (the zone was stored first): rows from the project and
  // profiles/bprof5.dat; false after the error report.
  bool open();
  std::string title() const;
  static const char* rowLabel(int row);
  const std::string& rowText(int row) const { return text_.at(static_cast<std::size_t>(row)); }
  bool rowYellow(int row) const { return yellow_.at(static_cast<std::size_t>(row)); }

  void clickLabel(int row);
  void clickText(int row);
  bool keyPress(int row, char key);
  void textChanged(int row, const std::string& text);
  void copy(int from, int to);
  void cut(int from, int to);
  void paste(int from, int to);
  void clickUndo();
  // OK: true when the screen closes, the zone's slots filled.
  bool clickOk();
  // The four slots' profile numbers the zone takes (0: unchanged).
  const std::array<int, 5>& tempSlots() const { return slots_; }
  bool undone() const { return undone_; }

 private:
  void touch(int row);

  AppState& state_;
  Prompt& prompt_;
  std::array<std::string, kRows + 1> text_;
  std::array<std::string, kRows + 1> original_;  // TempEditCopy
  std::array<bool, kRows + 1> yellow_{};
  std::array<bool, kRows + 1> touched_{};
  std::array<int, 5> slots_{};  // TempSlots 1..4
  int lastRow_ = 0;
  std::string clip_;
  bool undone_ = false;
};

// The zone slot (1..4) a temperature row fills.
inline int temperatureSlot(int row) { return (row - 1) % 4 + 1; }

}  // namespace marloven
