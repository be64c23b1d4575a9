// The zone list, the zone description and its ventilation rate dialog: the
// rules of the screens through which each zone of a sketched building gets
// its people, lights, schedules and HVAC system.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

class ZoneListForm {
 public:
  ZoneListForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  std::string caption() const;  // "ZONE NAMES -- " + project file name
  static const std::array<const char*, 3>& headings();
  static const char* note();
  std::string projectName() const { return state_.project.data[kProjectName]; }
  std::string location() const { return state_.project.data[kLocation]; }
  const std::string& cell(int row, int column) const { return state_.zoneList.cells.at(row).at(column); }

  // OK >> or a double click on a row: true when the zone description opens
  // for it (CurrentZone is the row either way).
  bool openZone(int row);
  // << Menu: true when the list closes for the main menu.
  bool back();

 private:
  AppState& state_;
  Prompt& prompt_;
};

// The three forms of a zone's outside air: per person, per floor area, a
// percentage of the supply air, stored as a two-letter prefix and the number.
class VentilationForm {
 public:
  static constexpr std::array<const char*, 3> kPrefixes = {"CP", "CS", "PA"};

  VentilationForm(Prompt& prompt, UnitSystem units, const std::string& field9);

  std::string caption(int row) const;
  const std::string& text(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  bool active(int row) const { return active_ == row; }

  void click(int row);
  bool keyPress(int row, char key);
  void textChanged(int row, const std::string& text) { rows_.at(static_cast<std::size_t>(row)) = text; }
  // OK: the new field 9, or nothing (after the message) when no active row is filled.
  std::optional<std::string> clickOk();

 private:
  Prompt& prompt_;
  UnitSystem units_;
  std::array<std::string, 3> rows_;
  int active_ = -1;
};

class ZoneForm {
 public:
  static constexpr int kBoxes = kZoneFieldCount;  // 1..30
  enum Toggle { kNaturalVent = 0, kDaylight = 1, kEconomizer = 2 };
  // What a key or click leads to beyond the box itself.
  enum class Next { None, ProfileScreen, TemperatureScreen, VentilationDialog };

  ZoneForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // The screen opens on CurrentZone, as the zone list fills it.
  void open();

  std::string caption() const;  // "Zone Description -- " + project file name
  std::string tutorialCaption() const;
  // The caption above box i (I-P or SI) and the unit behind box 4.
  std::string boxCaption(int i) const;
  std::string unitLabel() const;
  const std::string& box(int i) const { return boxes_.at(static_cast<std::size_t>(i)); }
  bool boxEnabled(int i) const;
  const std::string& toggle(int t) const { return toggles_.at(static_cast<std::size_t>(t)); }
  int undoField() const { return undoField_; }
  int zone() const { return state_.project.currentZone; }

  // A key going down in box i (before the filter): the field to undo, and
  // the people count following the stored floor area.
  void keyDown(int i);
  // The key filter: true when the key reaches the box; next says what opens.
  bool keyPress(int i, char key, Next& next);
  void textChanged(int i, const std::string& text);
  Next click(int i);

  // Menus: profile kinds 1..5, AC types 1..15, heating types 1..3, lighting 1..6.
  Next chooseProfile(int kind);
  void chooseAc(int type);
  void chooseHeating(int type);
  void chooseLighting(int type);
  void clickToggle(int t);
  // The ventilation dialog's OK.
  void setVentilation(const std::string& field9) { boxes_[kOutsideAir] = field9; }
  // Back from a profile screen (kind 1..4): the boxes and toggles from the
  // stored zone, the kind's box the profile chosen there (none after Undo).
  void profilesClosed(int kind, std::optional<int> chosen);
  // Back from the temperature screen: the four slots as the zone now holds them.
  void temperaturesClosed();

  // The screen into the model; false (after the message) when a daylit zone
  // has no depth or target.
  bool storeZone();
  // OK: true when the screen closes (always, as the program does).
  bool clickOk();
  void clickCancel();
  void clickUndo();

 private:
  void markIfChanged(int i, const std::string& before);
  void reloadFromZone();
  void costsForHeat(double factorOf);
  void refreshList();

  AppState& state_;
  Prompt& prompt_;
  std::array<std::string, kBoxes + 1> boxes_;
  std::array<std::string, 3> toggles_;
  int undoField_ = 0;
};

// The factor of a system's first cost that is its yearly maintenance with gas
// heat: by AC type.
double maintenanceFactor(int acType);

}  // namespace marloven
