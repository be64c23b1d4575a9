#include "schedules/profiles.h"

#include <algorithm>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/keys.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/zone_entry.h"

namespace marloven {

namespace {

const char* const kUsedWarning =
    "The profile / property has been used.  If you change its value, you will also change the value of the "
    "profile / property you have previously used.";

bool profileKey(char k) {
  return k == key::kBackspace || k == key::kEnter || k == ' ' || k == '.' || k == key::kTab || key::isDigit(k);
}

void copyRange(const std::string& text, int from, int to, std::string& clip) {
  const int a = std::clamp(std::min(from, to), 0, static_cast<int>(text.size()));
  const int b = std::clamp(std::max(from, to), 0, static_cast<int>(text.size()));
  clip = text.substr(static_cast<std::size_t>(a), static_cast<std::size_t>(b - a));
}

void replaceRange(std::string& text, int from, int to, const std::string& with) {
  const int a = std::clamp(std::min(from, to), 0, static_cast<int>(text.size()));
  const int b = std::clamp(std::max(from, to), 0, static_cast<int>(text.size()));
  text.replace(static_cast<std::size_t>(a), static_cast<std::size_t>(b - a), with);
}

}  // namespace

int profileValueCount(const std::string& text, bool minusAllowed) {
  int count = 0;
  char previous = ' ';
  for (char c : text) {
    if (c != ' ' && !key::isDigit(c) && c != '.' && !(minusAllowed && c == '-')) return -1;
    if (c != ' ' && previous == ' ') ++count;
    previous = c;
  }
  return count;
}

// ------------------------------------------------------------ profile library

ProfileForm::ProfileForm(AppState& state, Prompt& prompt, int kind) : state_(state), prompt_(prompt), kind_(kind) {
  auto& lib = state_.project.profiles.kinds.at(static_cast<std::size_t>(kind));
  // The building type's own profile is always in the project once a zone
  // has opened its profiles.
  const int bt = state_.buildingTypeNumber;
  if (bt >= 1 && bt <= kEntries && lib[static_cast<std::size_t>(bt)].id.empty()) {
    lib[static_cast<std::size_t>(bt)].id = padded(bt);
    if (lib[static_cast<std::size_t>(bt)].values.empty())
      lib[static_cast<std::size_t>(bt)].values = state_.tables.profileDefaults[static_cast<std::size_t>(kind)][static_cast<std::size_t>(bt)];
  }
  // Every entry holds a text while the screen is up: the project's own, or
  // the shipped line of its building type. Only entries with an ID are saved.
  for (int e = 1; e <= kEntries; ++e) {
    Profile& pr = lib[static_cast<std::size_t>(e)];
    if (pr.id.empty()) pr.values = state_.tables.profileDefaults[static_cast<std::size_t>(kind)][static_cast<std::size_t>(e)];
    text_[static_cast<std::size_t>(e)] = pr.values;
  }
  original_ = text_;
  colourFromIds();
  selected_ = state_.zoneEditing.selectedProfile;
  state_.project.flags.profileKindLoaded[static_cast<std::size_t>(kind)] = true;
}

void ProfileForm::colourFromIds() {
  const auto& lib = state_.project.profiles.kinds.at(static_cast<std::size_t>(kind_));
  for (int e = 1; e <= kEntries; ++e)
    yellow_[static_cast<std::size_t>(e)] = !lib[static_cast<std::size_t>(e)].id.empty() || e == state_.buildingTypeNumber;
}

std::string ProfileForm::title() const {
  static constexpr std::array<const char*, 5> kTitles = {"", "Occupancy Profiles (percentage)",
                                                         "Hot Water Profiles (percentage)",
                                                         "Ventilation Profiles (ON/OFF)", "Lighting Profiles (percentage)"};
  return std::string(kTitles.at(static_cast<std::size_t>(kind_))) + " -- " + state_.project.fileName;
}

void ProfileForm::setScroll(int value) {
  scroll_ = std::clamp(value, 0, kEntries - kVisibleRows);
  colourFromIds();
}

std::string ProfileForm::rowLabel(int row) const { return state_.tables.buildingTypeNames.at(static_cast<std::size_t>(entry(row))); }

const std::string& ProfileForm::selectedText() const {
  const int e = lastRow_ > 0 ? lastRow_ : std::clamp(selected_, 1, kEntries);
  return text_[static_cast<std::size_t>(e)];
}

void ProfileForm::clickLabel(int row) {
  const int e = entry(row);
  yellow_[static_cast<std::size_t>(e)] = true;
  selected_ = e;
  notChosen_ = false;
  state_.project.profiles.kinds[static_cast<std::size_t>(kind_)][static_cast<std::size_t>(e)].id = padded(e);
}

void ProfileForm::touch(int row) {
  const int e = entry(row);
  if (yellow_[static_cast<std::size_t>(e)] && !touched_[static_cast<std::size_t>(e)]) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Warning", kUsedWarning);
  }
  touched_[static_cast<std::size_t>(e)] = true;
  lastRow_ = e;
}

void ProfileForm::clickText(int row) { touch(row); }

bool ProfileForm::keyPress(int row, char k) {
  touch(row);
  if (!profileKey(k)) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
    return false;
  }
  // Written at key time: the library takes the text as it stood before the key.
  state_.project.profiles.kinds[static_cast<std::size_t>(kind_)][static_cast<std::size_t>(entry(row))].values =
      text_[static_cast<std::size_t>(entry(row))];
  return true;
}

void ProfileForm::textChanged(int row, const std::string& text) { text_.at(static_cast<std::size_t>(entry(row))) = text; }

void ProfileForm::copy(int from, int to) {
  if (lastRow_ > 0) copyRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
}
void ProfileForm::cut(int from, int to) {
  if (lastRow_ == 0) return;
  copyRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
  replaceRange(text_[static_cast<std::size_t>(lastRow_)], from, to, "");
}
void ProfileForm::paste(int from, int to) {
  if (lastRow_ > 0) replaceRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
}

void ProfileForm::clickUndo() {
  if (lastRow_ > 0) {
    text_[static_cast<std::size_t>(lastRow_)] = original_[static_cast<std::size_t>(lastRow_)];
    yellow_[static_cast<std::size_t>(lastRow_)] = false;
  }
  notChosen_ = true;
}

bool ProfileForm::clickOk() {
  auto& lib = state_.project.profiles.kinds[static_cast<std::size_t>(kind_)];
  for (int e = 1; e <= kEntries; ++e) {
    if (lib[static_cast<std::size_t>(e)].id.empty()) continue;
    // An entry on screen is checked as shown; the rest as the library holds it.
    const bool shown = e > scroll_ && e <= scroll_ + kVisibleRows;
    const std::string& t = shown && yellow_[static_cast<std::size_t>(e)] ? text_[static_cast<std::size_t>(e)]
                                                                          : lib[static_cast<std::size_t>(e)].values;
    if (profileValueCount(t, false) != 24) {
      prompt_.beep();
      prompt_.message(Icon::Exclamation, "Error...",
                      "The profile you selected has an invalid entry or an insufficient number of values. Please "
                      "make necessary corrections");
      return false;
    }
  }
  for (int row = 1; row <= kVisibleRows; ++row) {
    const int e = entry(row);
    if (!touched_[static_cast<std::size_t>(e)] || yellow_[static_cast<std::size_t>(e)]) continue;
    if (prompt_.ask(Buttons::YesNo, Icon::Question, "Select Profile",
                    "The profile you have just edited is not selected.  Save the new data before leaving?") ==
        Answer::Yes) {
      yellow_[static_cast<std::size_t>(e)] = true;
      selected_ = e;
    } else {
      text_[static_cast<std::size_t>(e)] = original_[static_cast<std::size_t>(e)];
      lib[static_cast<std::size_t>(e)].values = original_[static_cast<std::size_t>(e)];
    }
  }
  touched_.fill(false);
  for (int row = 1; row <= kVisibleRows; ++row) {
    const int e = entry(row);
    if (!yellow_[static_cast<std::size_t>(e)]) continue;
    lib[static_cast<std::size_t>(e)].id = padded(e);
    lib[static_cast<std::size_t>(e)].values = text_[static_cast<std::size_t>(e)];
  }
  state_.project.flags.profileKindTouched[static_cast<std::size_t>(kind_)] = true;
  state_.zoneEditing.selectedProfile = selected_;
  return true;
}

// -------------------------------------------------------- temperature profiles

const char* TemperatureForm::rowLabel(int row) {
  static constexpr std::array<const char*, kRows + 1> kLabels = {
      "",
      " 1 Summer - Occupied",
      " 2 Winter - Occupied",
      " 3 Summer - Unoccupied",
      " 4 Winter - Unoccupied",
      " 5 User's Summer - Occ.",
      " 6 User's Winter - Occ.",
      " 7 User's Summer - Unocc",
      " 8 User's Winter - Unocc.",
      " 9 User's Summer - Occ.",
      "10 User's Winter - Occ.",
      "11 User's Summer - Unocc",
      "12 User's Winter - Unocc."};
  return kLabels.at(static_cast<std::size_t>(row));
}

std::string TemperatureForm::title() const {
  return std::string(state_.project.units == UnitSystem::SI ? "Temperature Profiles (degree C)"
                                                            : "Temperature Profiles (degree F)") +
         " -- " + state_.project.fileName;
}

bool TemperatureForm::open() {
  Project& p = state_.project;
  p.flags.profileKindLoaded[5] = true;
  state_.zoneEditing.profileKind = 5;
  yellow_.fill(false);
  const auto& lib = p.profiles.of(ProfileKind::Temp);
  if (p.flags.profileKindTouched[5])
    for (int r = 1; r <= kRows; ++r)
      if (!lib[static_cast<std::size_t>(r)].id.empty()) {
        text_[static_cast<std::size_t>(r)] = lib[static_cast<std::size_t>(r)].values;
        original_[static_cast<std::size_t>(r)] = text_[static_cast<std::size_t>(r)];
        yellow_[static_cast<std::size_t>(r)] = true;
      }
  try {
    LineReader in = LineReader::fromText(readFile(state_.install.profileFile(5)));
    in.next();
    for (int r = 1; r <= kRows; ++r) {
      const std::string line = in.next();
      if (yellow_[static_cast<std::size_t>(r)]) continue;
      text_[static_cast<std::size_t>(r)] = p.units == UnitSystem::SI ? temperaturesToSI(line) : line;
      original_[static_cast<std::size_t>(r)] = text_[static_cast<std::size_t>(r)];
    }
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
  const ZoneRecord& z = p.zones.at(static_cast<std::size_t>(p.currentZone));
  for (int f = kSummerOccupied; f <= kWinterUnoccupied; ++f) {
    const int r = static_cast<int>(leadingNumber(z.fields[static_cast<std::size_t>(f)]));
    if (r >= 1 && r <= kRows) yellow_[static_cast<std::size_t>(r)] = true;
  }
  return true;
}

void TemperatureForm::clickLabel(int row) {
  yellow_.at(static_cast<std::size_t>(row)) = true;
  slots_[static_cast<std::size_t>(temperatureSlot(row))] = row;
}

void TemperatureForm::touch(int row) {
  if (yellow_.at(static_cast<std::size_t>(row)) && !touched_[static_cast<std::size_t>(row)]) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Warning", kUsedWarning);
  }
  touched_[static_cast<std::size_t>(row)] = true;
  lastRow_ = row;
}

void TemperatureForm::clickText(int row) { touch(row); }

bool TemperatureForm::keyPress(int row, char k) {
  touch(row);
  if (profileKey(k)) return true;
  prompt_.beep();
  prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
  return false;
}

void TemperatureForm::textChanged(int row, const std::string& text) { text_.at(static_cast<std::size_t>(row)) = text; }

void TemperatureForm::copy(int from, int to) {
  if (lastRow_ > 0) copyRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
}
void TemperatureForm::cut(int from, int to) {
  if (lastRow_ == 0) return;
  copyRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
  replaceRange(text_[static_cast<std::size_t>(lastRow_)], from, to, "");
}
void TemperatureForm::paste(int from, int to) {
  if (lastRow_ > 0) replaceRange(text_[static_cast<std::size_t>(lastRow_)], from, to, clip_);
}

void TemperatureForm::clickUndo() {
  if (lastRow_ > 0) {
    text_[static_cast<std::size_t>(lastRow_)] = original_[static_cast<std::size_t>(lastRow_)];
    yellow_[static_cast<std::size_t>(lastRow_)] = false;
  }
  undone_ = true;
}

bool TemperatureForm::clickOk() {
  Project& p = state_.project;
  auto& lib = p.profiles.of(ProfileKind::Temp);
  for (int r = 1; r <= kRows; ++r) {
    if (lib[static_cast<std::size_t>(r)].id.empty() && !yellow_[static_cast<std::size_t>(r)]) continue;
    if (profileValueCount(text_[static_cast<std::size_t>(r)], true) != 24) {
      prompt_.beep();
      prompt_.message(Icon::Exclamation, "Error...",
                      "The profile you selected has less or more than 24 values. Please make necessary corrections");
      return false;
    }
  }
  for (int r = 1; r <= kRows; ++r) {
    if (!touched_[static_cast<std::size_t>(r)] || yellow_[static_cast<std::size_t>(r)]) continue;
    if (prompt_.ask(Buttons::YesNo, Icon::Question, "Select Profile",
                    "The profile you have just editted is not selected.  Save the new data before leaving?") ==
        Answer::Yes)
      yellow_[static_cast<std::size_t>(r)] = true;
    else
      text_[static_cast<std::size_t>(r)] = original_[static_cast<std::size_t>(r)];
  }
  for (int r = 1; r <= kRows; ++r)
    if (yellow_[static_cast<std::size_t>(r)]) lib[static_cast<std::size_t>(r)] = {padded(r), text_[static_cast<std::size_t>(r)]};
  p.flags.profileKindTouched[5] = true;
  if (!undone_) {
    ZoneRecord& z = p.zones.at(static_cast<std::size_t>(p.currentZone));
    for (int slot = 1; slot <= 4; ++slot)
      if (slots_[static_cast<std::size_t>(slot)] != 0)
        z.fields[static_cast<std::size_t>(15 + slot)] = bare(slots_[static_cast<std::size_t>(slot)]);
  }
  return true;
}

}  // namespace marloven
