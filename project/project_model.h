// The project model: the one in-memory picture of the building that every
// screen edits and every project file is made from.
//
// It is text-first on purpose: project and zone values are held as the text
// typed or read, and turned into numbers (leadingNumber) only when computed
// with. A value never entered is the empty text, not zero. Only the surface
// rows of a zone and a few derived values are numbers.
//
// Tables keep the 1-based indexes of the files and screens: entry 0 exists but
// holds nothing, so "zone 3" is zones[3] and "wall type 5" is walls[5].
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace marloven {

enum class UnitSystem : std::int16_t { IP = 1, SI = 2 };

inline constexpr int kMaxZones = 99;
inline constexpr int kZoneSlots = 101;          // zones 0..100
inline constexpr int kMaxSurfaceRows = 33;
inline constexpr int kRowSlots = 34;            // rows 0..33
inline constexpr int kTypesInFile = 26;         // type IDs written to a file
inline constexpr int kMaxTypeId = 50;           // type IDs held in memory
inline constexpr int kMaxProfiles = 50;
inline constexpr int kTempProfilesInFile = 12;
inline constexpr int kBuildingTypes = 42;
inline constexpr int kDemandPairs = 3;
inline constexpr int kWeatherLines = 11;
inline constexpr int kProfileKinds = 5;
inline constexpr int kInputSteps = 5;

// ProjectData entries and their file labels.
inline constexpr int kProjectDataCount = 12;
inline constexpr std::array<const char*, kProjectDataCount> kProjectDataLabels = {
    "Bld. Type ", "Proj.Name ", "Proj.Desc ", "Location  ", "Dsgn. Stg ", "Schm. Num ",
    "Con. Year ", "Orient.   ", "FloorArea ", "Con. Cost ", "Occ. Days ", "An Hldays "};
enum ProjectField : int {
  kBuildingType = 0, kProjectName, kProjectDesc, kLocation, kDesignStage, kSchemeNumber,
  kConstructionYear, kOrientation, kFloorArea, kConstructionCost, kOccupiedDays, kAnnualHolidays
};

inline constexpr int kEconomicsCount = 11;
inline constexpr std::array<const char*, kEconomicsCount> kEconomicsLabels = {
    "Econ.Life ", "Mech.Life ", "SolarLife ", "Disc.Rate ", "Cost Esc. ", "Elec.Cost ",
    "Elec.Esc. ", "Gas  Cost ", "Gas  Esc. ", "WaterCost ", "WaterEsc. "};
enum EconomicsField : int {
  kEconomicLife = 0, kMechanicalLife, kSolarLife, kDiscountRate, kCostEscalation, kElecCost,
  kElecEscalation, kGasCost, kGasEscalation, kWaterCost, kWaterEscalation
};

struct DemandPair {
  std::string first;
  std::string second;
};

struct DemandChargeSchedule {
  std::string text;                               // value of the "DemCharge " line
  std::int16_t pairCount = 0;                     // 0 = no schedule
  std::array<DemandPair, kDemandPairs + 1> pairs; // 1..3
};

// Weather tags of lines 4..11 of the weather block, in order.
inline constexpr std::array<const char*, 8> kWeatherTags = {
    "DB Ave ", "Ave std", "DB Max ", "Max std", "DP Ave ", "DP std ", "SOLAR  ", "WIND   "};

struct WeatherSummary {
  std::array<std::string, kWeatherLines + 1> lines;  // 1..11, as held
  // Month tables filled from lines 4..11 on demand: months[t][m], t = 1..8 in the
  // order of kWeatherTags, m = 1..12. Always I-P once parsed.
  std::array<std::array<std::string, 13>, 9> months;
  float elevation = 0;                                // feet, once parsed
};

struct DesignTemperatures {
  std::array<std::string, 4> values;  // 1 summer dry-bulb, 2 summer wet-bulb, 3 winter dry-bulb
  bool known = false;
};

// A wall/roof type or a window type: seven parallel texts. An empty ID is a free
// entry; an ID equals its index.
struct CatalogType {
  std::array<std::string, 7> fields;
  const std::string& id() const { return fields[0]; }
};
inline constexpr std::array<const char*, 7> kWallLabels = {
    "ID. #     ", "Descript. ", "U-Factor  ", "Solar Abs ", "Time Lag  ", "Dec. Fact ", "Ins. Cost "};
inline constexpr std::array<const char*, 7> kWindowLabels = {
    "ID. #     ", "Descript. ", "U-Factor  ", "S.H.G.C.  ", "Emissiv.  ", "DL. Trans ", "Ins. Cost "};

enum class ProfileKind : int { Occ = 1, HW = 2, Vent = 3, Lite = 4, Temp = 5 };
inline constexpr std::array<const char*, kProfileKinds + 1> kProfileKindNames = {
    "", "Occ", "HW", "Vent", "Lite", "Temp"};

struct Profile {
  std::string id;      // the ID line as held; empty = free
  std::string values;  // the line of 24 hourly values
};

struct ProfileLibrary {
  // kinds[k][i], k = 1..5 (ProfileKind), i = 0..50
  std::array<std::array<Profile, kMaxProfiles + 1>, kProfileKinds + 1> kinds;
  std::array<Profile, kMaxProfiles + 1>& of(ProfileKind k) { return kinds[static_cast<int>(k)]; }
  const std::array<Profile, kMaxProfiles + 1>& of(ProfileKind k) const {
    return kinds[static_cast<int>(k)];
  }
};

// One exterior surface of a zone.
struct EnvelopeRow {
  std::int16_t wallId = 0;
  float wallArea = 0;
  std::int16_t wallOrientation = 0;
  std::int16_t surfaceExposure = 0;
  std::string externalShading;
  std::int16_t windowId = 0;
  float windowArea = 0;
  float slope = 0;
  std::string surfaceCode;  // S, W or B
  std::int16_t venetianBlind = 0;
  float diffuseTransmittance = 0;
  float sillHeight = 0;
  float windowHeight = 0;
  float groundReflectance = 0;
};
inline constexpr int kRowFieldCount = 14;
inline constexpr std::array<const char*, kRowFieldCount> kRowLabels = {
    "Wall ID.  ", "Wall Area ", "WallOrien ", "Surf Exp. ", "Ext. Shd. ", "Window ID ", "Win. Area ",
    "Rf/Wl Slp ", "S/W/B     ", "Ven. Blnd ", "DiffTrans ", "Sill High ", "Window Ht ", "Grnd Refl "};

// Zone fields 1..30 by index.
inline constexpr int kZoneFieldCount = 30;
inline constexpr std::array<const char*, kZoneFieldCount + 1> kZoneLabels = {
    "",           "Zone No.  ", "Zone Name ", "Flr. Area ", "Int. Mass ", "No.People ", "Occ. Prof ",
    "HW/person ", "HW.  Prof ", "OA CFM    ", "Vent Prof ", "Lite Type ", "Cost/sqft ", "Watt/sqft ",
    "EquipLoad ", "Lite Prof ", "S-Occ.    ", "W-Occ.    ", "S-Unocc.  ", "W-Unocc.  ", "Cool.Type ",
    "Heat.Type ", "CFM/sqft. ", "Inf. Rate ", "DL Depth  ", "Target FC ", "Stat.Pres ", "Cool SEER ",
    "Heat COP  ", "1st Cost  ", "Maint Cost"};
enum ZoneField : int {
  kZoneId = 1, kZoneName, kZoneFloorArea, kInternalMass, kPeople, kOccProfile, kHotWaterPerPerson,
  kHotWaterProfile, kOutsideAir, kVentProfile, kLightingType, kLightingCost, kLightingPower,
  kEquipmentLoad, kLightProfile, kSummerOccupied, kWinterOccupied, kSummerUnoccupied,
  kWinterUnoccupied, kCoolingType, kHeatingType, kNaturalVentRate, kInfiltration, kDaylitDepth,
  kTargetIlluminance, kStaticPressure, kCoolingEfficiency, kHeatingEfficiency, kFirstCost,
  kMaintenanceCost
};

struct ZoneRecord {
  std::array<std::string, kZoneFieldCount + 1> fields;  // 1..30
  std::string naturalVent;   // "Nat. Vent "
  std::string daylight;      // "Daylight  ": " Yes"/"Yes" when daylighting is used
  std::string economizer;    // "Econ.Cycle"
  // Quick-access copies of fields 1, 2 and 3, kept by the reader and the zone screens.
  std::string listedId;
  std::string listedName;
  float listedFloorArea = 0;
  // Field 3 over field 5, exactly 1 when field 5 is zero or less.
  float floorAreaPerPerson = 1.0f;
  std::array<EnvelopeRow, kRowSlots> rows;  // 1..33
  std::int16_t rowCount = 0;
  // ZoneExists: the zone held a zone when the list was last left (so it
  // existed before a later sketch); ZoneOpened: left through OK of the zone
  // screen since the sketch was last opened; ZoneOpenedSinceSketch: the same,
  // in a session that opened the sketch. The sketch clears all three; a read
  // sets the first two.
  bool exists = false;
  bool opened = false;
  bool openedSinceSketch = false;
};

// The outside-air text of a zone: the first two characters are the kind ("CP"
// per person, "CS" per floor area, "PA" untouched by unit changes) and the rest
// the number. A text without a kind counts as "CP" on the whole text.
struct OutsideAir {
  std::string kind;
  std::string number;
};
OutsideAir splitOutsideAir(const std::string& text);
bool hasOutsideAirKind(const std::string& text);

// The state flags of a project. 0/false = off.
struct ProjectFlags {
  std::array<bool, kInputSteps + 1> stepDone{};  // 1 project info .. 5 zones opened
  bool fromFile = false;
  bool inputSaved = false;
  bool anySaveSinceStart = false;
  bool resketched = false;
  bool zonesOpened = false;
  int sketchCount = 0;
  bool weatherRereadPending = false;
  bool projectDataFilled = false;
  // The pair the sketch clears when it opens ("project name changed"): the
  // orientation or the floor area was typed on the project information screen.
  bool orientationEdited = false;
  bool floorAreaEdited = false;
  bool zoneKey = false;
  bool buildingTypeChosen = false;
  bool daylightingInUse = false;
  bool runMade = false;
  bool outputSaved = false;
  bool outputViewable = false;
  bool resultsDisplay = false;
  int runKind = 0;
  int lastRunKind = 0;
  bool recordedWeatherPicked = false;
  bool exitAfterSave = false;
  bool exitQuestionAnswered = false;  // "do not save" chosen in the exit question
  bool hourlyOutputMade = false;      // the last run wrote the hourly files
  bool zoneSelected = false;
  // The sketch template was just copied over bld_mtx.all: the next load of the
  // sketch applies the defaults of a new sketch in SI.
  bool newSketch = false;
  // Per profile kind 1..5: loaded for this project; touched by zone data.
  std::array<bool, kProfileKinds + 1> profileKindLoaded{};
  std::array<bool, kProfileKinds + 1> profileKindTouched{};
};

struct Project {
  UnitSystem units = UnitSystem::SI;

  // Identity and file state.
  std::string fileName = "New_Project";
  std::string rememberedName;
  std::string previousName;
  std::string baseName;
  std::string outputFileName = "Untitled.ot1";
  std::string seed;                // columns 11-20 of line 1
  std::int16_t weeksPerMonth = 4;

  std::array<std::string, kProjectDataCount> data;
  std::array<std::string, kEconomicsCount> economics;
  DemandChargeSchedule demand;
  WeatherSummary weather;
  DesignTemperatures designTemps;
  std::array<CatalogType, kMaxTypeId + 1> walls;
  std::array<CatalogType, kMaxTypeId + 1> windows;
  ProfileLibrary profiles;

  std::array<ZoneRecord, kZoneSlots> zones;  // 1..99 (100 for the table's bound)
  std::int16_t zoneCount = 0;
  int currentZone = 0;

  // The sketch's own copies of orientation and total floor area.
  std::string sketchOrientation;
  float sketchFloorArea = 0;
  // The two sketch scale settings.
  std::array<int, 2> sketchScale = {60, 80};

  ProjectFlags flags;
};

// True when any of input steps 1..5 is done.
bool anyStepDone(const Project& p);

// "Yes" or " Yes": the zone uses daylighting.
inline bool isDaylightYes(const std::string& s) { return s == " Yes" || s == "Yes"; }

// Floor area per person from the texts of fields 3 and 5.
float floorAreaPerPerson(const std::string& area, const std::string& people);

}  // namespace marloven
