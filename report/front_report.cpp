#include "report/front_report.h"

#include <array>
#include <cmath>
#include <optional>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "report/compliance.h"
#include "report/report_printer.h"

namespace marloven {

namespace {

constexpr std::array<const char*, 8> kWeekdays = {"",         "Sunday",   "Monday", "Tuesday",
                                                  "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 6> kProfileKindTitles = {"",       "Occupancy", "Hot Water",
                                                           "Ventilation", "Lights", "Temperatures"};
constexpr std::array<const char*, 10> kCoolingTexts = {
    "",          "V.A.V. SYSTEM",  "DBL.DUCT SYSTEM", "MLT.ZONE SYSTEM", "FAN COIL UNITS", "ROOF TOP SGL.ZONE",
    "DX SPLIT SYSTEM", "DX HEAT PUMP", "DX WINDOW RES.", "EVAP. COOLER"};
constexpr std::array<const char*, 4> kHeatingTexts = {"", "GAS", "ELEC. RES.", "HEAT PUMP"};
constexpr std::array<const char*, 7> kLightingTexts = {"",        "FLUORESCENT", "INCANDESCENT", "H.P.S",
                                                       "L.P.S", "HALOGEN",     "MERCURY"};
constexpr std::array<const char*, 7> kExposureTexts = {"", "ASPHALT", "CONCRETE", "GRASS", "TREES", "WATER", "ROOF"};

constexpr int kLightShelfBlock = 22;

// The text of a code table by the leading number of a field; empty outside it.
template <std::size_t N>
std::string codeText(const std::array<const char*, N>& table, const std::string& field) {
  const double n = leadingNumber(field);
  if (n < 1 || n >= static_cast<double>(N)) return {};
  return table[static_cast<std::size_t>(n)];
}

// A building figure must exist: the report cannot show a quotient of nothing.
float required(const std::optional<float>& v, const char* what) {
  if (!v) throw FileError(11, std::string("building ") + what + " divides by zero");
  return *v;
}

// Splits at runs of blanks, at most 24 values.
std::vector<std::string> hourTokens(std::string_view text) {
  std::vector<std::string> out;
  std::size_t i = 0;
  while (i < text.size() && out.size() < 24) {
    while (i < text.size() && text[i] == ' ') ++i;
    std::size_t j = i;
    while (j < text.size() && text[j] != ' ') ++j;
    if (j > i) out.emplace_back(text.substr(i, j - i));
    i = j;
  }
  return out;
}

double tokenValue(const std::vector<std::string>& tokens, std::size_t i) {
  return i < tokens.size() ? leadingNumber(tokens[i]) : 0.0;
}

class Composer {
 public:
  // Writes into out, so that what was written before a fault can still be
  // saved.
  Composer(const Project& p, const ReportSetup& s, const ReportSources& src, ReportPrinter& out)
      : p_(p), s_(s), src_(src), ip_(p.units == UnitSystem::IP), out_(out) {}

  FrontReport run() {
    banner();
    periodSummary();
    out_.pageFeed();
    weatherPage();
    out_.pageFeed();
    economicsPage();
    out_.pageFeed();
    catalogPage();
    out_.pageFeed();
    if (anyDaylight()) lightShelfPages();
    stack_ = readSketchStack(src_.sketch);
    compliance_ = computeCompliance(p_);
    checkBuildingQuotients();
    sectionOne();
    sectionTwo();
    FrontReport r;
    r.text = out_.str();
    r.abandoned = abandoned_;
    r.warningTitle = warningTitle_;
    r.warningText = warningText_;
    return r;
  }

 private:
  const char* units(const char* ip, const char* si) const { return ip_ ? ip : si; }

  bool anyDaylight() const {
    for (int z = 1; z <= p_.zoneCount && z <= kMaxZones; ++z)
      if (isDaylightYes(p_.zones[z].daylight)) return true;
    return false;
  }

  void banner() {
    out_.fullRule().emptyLine();
    out_.at(20)
        .text("MARLOVEN-ec   (B U I L D I N G   E N E R G Y   C O D E   C O M P L I A N C E   S O F T W A R E)")
        .end();
    out_.emptyLine().at(50).text("*** Simulation Engine Version 64 ***").end().emptyLine();
    static constexpr std::array<const char*, 7> kLegal = {
        "MARLOVEN EC Release 6.5",
        "Energy code compliance and hourly building simulation",
        "Copyright (c) 2026 MARLOVEN EC.  All rights reserved.",
        "Front end, report writer and engine tarn64 by the MARLOVEN EC team",
        "Default values after ASHRAE 90.1-2007 and 62.1-2007",
        "Results depend on the input; review them before use.",
        "Licensed to the holder of this installation."};
    for (const char* line : kLegal) out_.at(50).text(line).end();
    out_.emptyLine();
  }

  void periodSummary() {
    out_.emptyLine().fullRule().emptyLine();
    out_.at(50).text("SUMMARY OF SIMULATION PERIOD:").end().emptyLine();
    const std::string span = s_.periodFrom + " to " + s_.periodTo + ".";
    if (s_.periodKind > 0) {
      out_.at(50).text("This run uses real weather data recorded").end();
      out_.at(50).text("for the period of ").text(span).end();
    } else if (s_.periodKind == 0) {
      out_.at(50).text("Simulation period is: ").text(span).end();
    }
    const std::string weeks = padded(s_.weeksPerMonth);
    out_.at(50).text("Weeks per month simulated will be ").text(weeks.substr(weeks.size() - 1)).text(".").end();
    if (!s_.skippedMonths.empty()) {
      out_.at(30).text("Unoccupied months are: ");
      for (std::size_t i = 0; i < s_.skippedMonths.size(); ++i)
        out_.text(s_.skippedMonths[i]).text(i + 1 < s_.skippedMonths.size() ? ", " : ".");
      out_.end();
    }
    const int day = s_.firstWeekday >= 1 && s_.firstWeekday <= 7 ? s_.firstWeekday : 0;
    out_.emptyLine().at(50).text("Year ").text(bare(s_.year)).text(" begins on ").text(kWeekdays[day]).text(".").end();
  }

  void header() { out_.projectHeader(p_, s_.dateText, s_.timeText); }

  void weatherPage() {
    out_.countPage();
    out_.fullRule().emptyLine();
    out_.text(" DATE: ").at(16).text(s_.dateText).text(", ").text(s_.timeText).end().emptyLine();
    out_.text(" ANALYSIS FOR: ");
    for (int i = kProjectName; i <= kDesignStage; ++i) out_.at(16).text(p_.data[i]).end();
    out_.emptyLine().fullRule();

    const std::string& line2 = p_.weather.lines[2];
    out_.at(4).text("LOCATION: ").text(midText(p_.data[kLocation], 1, 32));
    out_.at(47).text(midText(line2, 57, 5)).text(" DEG. N. LAT.");
    out_.at(90).text(midText(line2, 63, 5)).text(" DEG. W. LONGITUDE").end();
    out_.at(47).text(midText(line2, 69, 5)).text(" DEG. TIME ZONE");
    out_.at(91).masked(roundTo(leadingNumber(midText(line2, 76, 7)), 1), "@@@@@@@@");
    out_.text(units(" FT. ABOVE SEA LEVEL", " M.  ABOVE SEA LEVEL")).end().emptyLine();

    // The results readers find this line and count 13 lines from it to the
    // solar heading's unit.
    out_.at(4).text("WEATHER INPUT DATA ....").end();
    out_.at(49).text("JAN   FEB   MAR   APR   MAY   JUN   JUL   AUG   SEP   OCT   NOV   DEC").end();
    out_.at(49).text("---   ---   ---   ---   ---   ---   ---   ---   ---   ---   ---   ---").end();
    monthRow(9, "AVERAGE DRY BULB TEMPERATURES....", 4);
    monthRow(19, "STANDARD DEVIATIONS....", 5);
    out_.emptyLine();
    monthRow(9, "AVERAGE DAILY MAX TEMPERATURES....", 6);
    monthRow(19, "STANDARD DEVIATIONS....", 7);
    out_.emptyLine();
    monthRow(9, "AVERAGE DEWPOINT TEMPERATURES....", 8);
    monthRow(19, "STANDARD DEVIATIONS....", 9);
    out_.emptyLine();
    out_.at(9).text(units("AVERAGE DAILY SOLAR BTUS PER", "AVERAGE DAILY SOLAR WATT PER")).end();
    // The SI heading starts one column later so that "SQ.M." stands at 12-16.
    if (ip_) monthRow(11, "SQ.FT. OF HORIZONTAL SURFACE", 10);
    else monthRow(12, "SQ.M. OF HORIZONTAL SURFACE", 10);
    out_.emptyLine();
    monthRow(9, "AVERAGE WIND VELOCITY ....", 11);
    out_.emptyLine();
    out_.fullRule();
  }

  void monthRow(int column, const char* heading, int line) {
    out_.at(column).text(heading).at(47).text(fromColumn(p_.weather.lines[static_cast<std::size_t>(line)], 9)).end();
  }

  void economicsPage() {
    out_.pageMark();
    header();
    out_.fullRule().emptyLine().emptyLine();
    out_.at(5).text("ECONOMIC DATA ...").at(80).text("ELECTRIC").at(96).text("GAS").at(113).text("WATER").end();
    out_.at(9).text("PROJECT LIFE  HVAC LIFE  SOLAR LIFE  DISCOUNT  BLDG. & MAINT COST");
    out_.at(75).text(" $ PER  ESCALA-  $ PER  ESCALA-  $ PER  ESCALA-").end();
    out_.at(9).text("   (YRS)        (YRS)       (YRS)      RATE         ESCALATION    ");
    out_.at(75).text(units(" KWH     TION    THERM   TION  1000 GAL  TION  ",
                           " KWH     TION     GJ     TION  1000 LIT  TION  "))
        .end();
    out_.tableRule();
    static constexpr std::array<int, kEconomicsCount> kColumns = {13, 25, 37, 47, 63, 75, 83, 92, 99, 106, 115};
    for (int i = 0; i < kEconomicsCount; ++i) out_.at(kColumns[static_cast<std::size_t>(i)]).text(p_.economics[i]);
    out_.end().emptyLine();
    out_.at(9).text("ECONOMIC MODEL BEGINS IN YEAR ").text(p_.data[kConstructionYear]);
    out_.tableRule().emptyLine().emptyLine();

    out_.fullRule().emptyLine();
    out_.at(5).text("ELECTRIC DEMAND CHARGE SCHEDULE ...").end().emptyLine().emptyLine();
    const int pairs = std::min<int>(p_.demand.pairCount, kDemandPairs);
    if (pairs >= 1) {
      out_.at(5).text("KW INCREMENT").at(24).text("COST PER KW ($)").end();
      out_.at(5).text("------------").at(24).text("---------------").end();
      for (int i = 1; i <= pairs; ++i) {
        const DemandPair& pair = p_.demand.pairs[static_cast<std::size_t>(i)];
        out_.at(7).text(pair.first).text(" kW").at(27).text("$").text(pair.second).text("/kW").end();
      }
      out_.at(5).text("----------------------------------").end();
    } else {
      out_.at(5)
          .text("A demand rate schedule was not entered.  Electric costs will be based on ")
          .text(p_.economics[kElecCost])
          .text(" per kWh.")
          .end();
    }
    out_.emptyLine().emptyLine().emptyLine().fullRule().emptyLine();
    for (const std::string& line : splitLines(src_.hvacCatalog)) out_.text(line).end();
    out_.emptyLine().fullRule();
  }

  void catalogPage() {
    out_.pageMark();
    header();
    out_.fullRule().emptyLine();
    out_.at(5).text("MATERIAL DESCRIPTIONS CATALOG:").end().catalogRule();
    out_.at(9).text("MATL").at(53).text("U-").at(63).text("SOLAR").at(74).text("TIME").at(83).text("DECREMENT");
    out_.at(99).text("COST").end();
    out_.at(10).text("ID").at(17).text("NAME").at(51).text("FACTOR").at(60).text("ABSORPTIVITY").at(74).text("LAG");
    out_.at(84).text("FACTOR").at(97).text(units("($/SQ.FT)", "($/SQ.M.)")).end();
    out_.catalogRule().emptyLine().emptyLine();
    catalogRows(p_.walls);
    out_.fullRule().emptyLine();

    out_.at(5).text("WINDOW DESCRIPTIONS CATALOG:").end().catalogRule();
    out_.at(9).text("WINDOW").at(53).text("U-").at(61).text("SOLAR HT.").at(84).text("DAYLIGHT").at(99).text("COST");
    out_.end();
    out_.at(10).text("ID").at(17).text("NAME").at(51).text("FACTOR").at(61).text("GN. COEF.").at(71).text("EMISSIVITY");
    out_.at(85).text("TRANS.").at(97).text(units("($/SQ.FT.)", "($/SQ.M.)")).end();
    out_.catalogRule().emptyLine().emptyLine();
    catalogRows(p_.windows);
    out_.fullRule();
  }

  void catalogRows(const std::array<CatalogType, kMaxTypeId + 1>& types) {
    bool any = false;
    for (int id = 1; id <= kTypesInFile; ++id) {
      const auto& f = types[static_cast<std::size_t>(id)].fields;
      if (f[0].empty()) continue;
      any = true;
      out_.at(10).text(f[0]).at(17).text(f[1]);
      out_.at(52).masked(f[2], "@@@@@@").at(63).masked(f[3], "@@@@@").at(73).masked(f[4], "@@@@@");
      out_.at(85).masked(f[5], "@@@@@").at(99).masked(f[6], "@@@@@@").end();
    }
    if (any) out_.emptyLine().emptyLine();
  }

  void lightShelfPages() {
    const std::vector<std::string> lines = splitLines(src_.lightShelf);
    if (lines.size() < 3 * kLightShelfBlock)
      throw FileError(err::kInputPastEnd, "temp/ltshlf.dat holds " + std::to_string(lines.size()) + " lines");
    std::size_t next = 0;
    auto block = [&] {
      for (int i = 0; i < kLightShelfBlock; ++i) out_.at(5).text(lines[next++]).end();
    };
    out_.pageMark();
    header();
    out_.fullRule().emptyLine();
    block();
    out_.emptyLine();
    block();
    out_.emptyLine();
    out_.at(55).text("(Continued)").end().pageFeed().pageMark();
    header();
    out_.fullRule().emptyLine();
    block();
    out_.emptyLine().fullRule().pageFeed();
  }

  // The building's quotients are taken before section I is written, so a
  // zero divisor stops the report with nothing of the section on the page.
  void checkBuildingQuotients() const {
    const ComplianceFigures& f = compliance_.building;
    required(f.envelope.roofU, "roof U");
    required(f.envelope.roofGlassPercent, "roof glass");
    required(f.envelope.wallU, "wall U");
    required(f.envelope.wallGlassPercent, "wall glass");
    required(f.envelope.overallU, "overall U");
    required(f.lightingPowerDensity, "LPD");
    required(f.ventilationPerPerson, "rate per person");
    required(f.ventilationPerFloorArea, "rate per floor area");
  }

  void sectionOne() {
    out_.pageMark();
    out_.text("I.  P R O J E C T   A N D   B U I L D I N G   D A T A").end();
    out_.text("    -------------------------------------------------").end();
    header();
    out_.emptyLine();
    out_.at(5).text("BUILDING DATA .....").end().emptyLine();
    out_.at(9).text("FLOOR AREA").at(22).text("CONST. COST").at(36).text("OCC. DAYS").at(48).text("ANNUAL");
    out_.at(62).text("EXTERIOR LIGHTING KW and HRS PER DAY..").at(108).text("NO. OF").end();
    out_.at(10).text(units("(SQ.FT.)", "(SQ.M.)")).at(23).text(units("($/SQ.FT.)", "($/SQ.M.)"));
    out_.at(36).text("PER WEEK").at(48).text("HOLIDAYS");
    out_.at(62).text("KW1--Hrs/Day    KW2--Hrs/Day    KW3--Hrs/Day").at(108).text("FLOORS").end();
    out_.heavyRule().emptyLine();
    out_.at(9).masked(roundTo(leadingNumber(p_.data[kFloorArea]), 1), "@@@@@@@@@@@");
    out_.at(22).masked(roundTo(leadingNumber(p_.data[kConstructionCost]), 2), "@@@@@@@@@@@@");
    out_.at(36).masked(roundTo(leadingNumber(p_.data[kOccupiedDays]), 1), "@@@@@@@@@@");
    out_.at(48).masked(roundTo(leadingNumber(p_.data[kAnnualHolidays]), 1), "@@@@@@@@");
    // Exterior lighting is not asked for in this edition: the figures stay zero.
    out_.at(59).text("    0.0    0.0      0.0    0.0      0.0   0.0");
    out_.at(110).number(stack_.floors).end();
    out_.heavyRule().emptyLine();
    out_.at(5).text("CODE COMPLIANCE CHECKING INFORMATION:").end().emptyLine();
    complianceBlock(compliance_.building, true);
    out_.heavyRule();
  }

  void complianceBlock(const ComplianceFigures& f, bool building) {
    const EnvelopeFigures& e = f.envelope;
    out_.at(7).text("Total Envelope:").end();
    out_.at(10).text(units("UA(Btu/hr/deg.F)", "UA(Watts/deg.K)")).at(30).text(units("Area(sq.ft.)", "Area(sq.m.)"));
    out_.at(50).text(units("U-ave(Btu/hr/sq.ft./deg.F)", "U-ave(Watts/sq.m./deg.K)")).end();
    out_.at(10).text("----------------").at(30).text("------------").at(50).text("--------------------------").end();
    if (building || e.roofArea > 0) {
      out_.at(10).text("Roof UA=").number(e.roofUA).at(30).text("Roof A=").number(e.roofArea);
      out_.at(50).text("Ur=").number(e.roofU.value()).end();
      out_.at(30).text("Glass A=").number(e.roofGlass).at(50).text("% Glass=").number(e.roofGlassPercent.value()).end();
    }
    if (building || e.wallArea > 0) {
      out_.at(10).text("Wall UA=").number(e.wallUA).at(30).text("Wall A=").number(e.wallArea);
      out_.at(50).text("Uw=").number(e.wallU.value()).end();
      out_.at(30).text("Glass A=").number(e.wallGlass).at(50).text("% Glass=").number(e.wallGlassPercent.value()).end();
    }
    if (building || e.envelopeArea > 0) {
      out_.at(10).text("Env  UA=").number(e.envelopeUA).at(30).text("Env  A=").number(e.envelopeArea);
      out_.at(50).text("Uo=").number(e.overallU.value()).end();
    }
    out_.emptyLine();
    out_.at(7).text("Lighting:").end();
    out_.at(10).text(building ? "Total Bldg Watts =" : "Total Zone Watts =").number(f.watts).end();
    out_.at(10).text(building ? "Bldg Floor Area  =" : "Zone Floor Area  =").number(f.floorArea);
    out_.text(units("Sq.Ft.", "Sq.m.")).end();
    if (f.lightingPowerDensity) {
      out_.at(10).text("LPD (LtgPwrDens) =").number(*f.lightingPowerDensity).text(units("W/sq.ft.", "W/sq.m.")).end();
    }
    out_.emptyLine();
    out_.at(7).text("Ventilation Rate:").end();
    out_.at(10).text("Total Design Cap.=").number(f.ventilation).text(units("CFM", "L/s")).end();
    out_.at(10).text("Total Occupancy  =").number(f.people).text("people").end();
    if (building || f.people > 0) {
      out_.at(10).text("Rate per person  =").number(f.ventilationPerPerson.value());
      out_.text(units("CFM/person", "L/s/person")).end();
    }
    if (f.ventilationPerFloorArea) {
      out_.at(10).text("Rate per FlrArea =").number(*f.ventilationPerFloorArea);
      out_.text(units("CFM/sq.ft.", "L/s/sq.m.")).end();
    }
    out_.emptyLine();
  }

  void sectionTwo() {
    out_.text("II.  Z O N E - B Y - Z O N E   P R O P E R T I E S").end();
    out_.text("     ---------------------------------------------").end();
    for (const ZoneCompliance& zc : compliance_.zones) {
      zonePage(zc);
      if (abandoned_) return;
    }
  }

  void zonePage(const ZoneCompliance& zc) {
    const ZoneRecord& z = p_.zones[zc.zone];
    const auto& f = z.fields;
    out_.pageMark();
    header();
    out_.emptyLine().heavyRule();
    out_.at(5).text("ZONE").at(11).text(f[kZoneId]).at(15).text(f[kZoneName]);
    out_.at(39).text("NATURAL VENT.=").at(54).text(z.naturalVent).at(59).text(f[kNaturalVentRate]);
    out_.text(units("CFM", "L/S"));
    out_.at(70).text("CEIL.HT.=").at(80).masked(roundTo(stack_.lastHeight, 1), "@@@@").text(units(" FT", " M."));
    out_.at(90).text("INF.RATE=").at(100).text(f[kInfiltration]).text(" AC/HR");
    out_.at(114).text("DAYLIGHTING=").text(z.daylight).end();
    out_.emptyLine();
    out_.at(9).text("FLOOR AREA").at(22).text("INT. MASS").at(34).text("HVAC SYSTEM TYPE").at(54).text("ECONO-");
    out_.at(64).text("SYSTEM COST").at(80).text("H.W. FUEL").at(93).text("SPACE HEAT").at(107);
    out_.text("LIGHTING SYSTEM & COST").end();
    out_.at(10).text(units("(SQ.FT.)", "(SQ.M.)")).at(21).text(units("(LB/SQ.FT.)", "(KG/SQ.M.)"));
    out_.at(34).text(units("(SEER & FAN S.P.)", "(COP & FAN S.P.)")).at(54).text("MIZER").at(66).text("($/TON)");
    out_.at(80).text("(C.O.P.)").at(94).text("(C.O.P.)").at(107).text("TYPE").at(121);
    out_.text(units("$/SQ.FT.", "$/SQ.M.")).end();
    out_.heavyRule();

    const std::string cooling = codeText(kCoolingTexts, f[kCoolingType]);
    const std::string heating = codeText(kHeatingTexts, f[kHeatingType]);
    const bool heatPumpCooling = leadingNumber(f[kCoolingType]) == 7;
    const std::string spaceHeat = heatPumpCooling ? "HEAT PUMP" : heating;
    const std::string cop = bare(roundTo(leadingNumber(f[kHeatingEfficiency]), 2));
    // Heat pump space heat on a non-heat-pump water heater takes the fixed
    // seasonal COP of the system.
    const std::string spaceCop = spaceHeat == "HEAT PUMP" && heating != "HEAT PUMP" ? "   2.4" : cop;
    out_.at(6).masked(roundTo(leadingNumber(f[kZoneFloorArea]), 1), "@@@@@@@@@@");
    out_.at(22).masked(roundTo(leadingNumber(f[kInternalMass]), 1), "@@@@@@");
    out_.at(34).text(cooling).at(54).text(z.economizer);
    out_.at(62).text("1st COST =").masked(roundTo(leadingNumber(f[kFirstCost]), 1), "@@@@@@@");
    out_.at(82).text(heating).at(95).text(spaceHeat).at(107).text(codeText(kLightingTexts, f[kLightingType]));
    out_.at(121).masked(roundTo(leadingNumber(f[kLightingCost]), 2), "@@@@@@@@@").end();
    out_.at(27).text(units("(SEER= ", "(COP = ")).text(f[kCoolingEfficiency]).text(", ").text("S.P.= ");
    out_.text(f[kStaticPressure]).text(" w.g.)");
    out_.at(62).text("Ann.Maint=").text(f[kMaintenanceCost]);
    out_.at(82).text("(").masked(cop, "@@@@@@").text(")").at(94).text("(").masked(spaceCop, "@@@@@@").text(")").end();
    out_.heavyRule().emptyLine();

    out_.at(9).text("**** 24 HOUR ZONE PROFILES ****").end().emptyLine();
    if (!profileLines(z)) return;
    thermostats(z);
    materialTable(z);
    if (s_.sketchLevel != 0) out_.pageFeed();
    out_.at(5).text("CODE COMPLIANCE CHECKING INFORMATION:").end().emptyLine();
    complianceBlock(zc.figures, false);
    out_.heavyRule();
  }

  // The four hourly profiles of a zone; false when one is missing.
  bool profileLines(const ZoneRecord& z) {
    const auto& f = z.fields;
    const std::string ventWord = [&]() -> std::string {
      const std::string code = f[kOutsideAir].substr(0, 2);
      if (code == "CP") return units("CFM/PERSON", "L/S.PERSON");
      if (code == "CS") return units("CFM/SQ.FT.", "L/S.SQ.M.");
      if (code == "PA") return "% O.A.";
      return {};
    }();
    struct Kind {
      ProfileKind kind;
      std::string title;
      int valueField;
      int profileField;
    };
    const std::array<Kind, 4> kinds = {{
        {ProfileKind::Occ, "OCCUPANCY: NO OF PEOPLE ", kPeople, kOccProfile},
        {ProfileKind::HW, units("HOT WATER: GALLON/PERSON ", "HOT WATER: LITRE/PERSON "), kHotWaterPerPerson,
         kHotWaterProfile},
        {ProfileKind::Vent, "VENTILATION: " + ventWord, kOutsideAir, kVentProfile},
        {ProfileKind::Lite, units("ELECTRIC WATTS/SQ.FT.", "ELECTRIC WATTS/SQ.M."), kLightingPower, kLightProfile},
    }};
    for (const Kind& k : kinds) {
      const std::string& id = f[k.profileField];
      out_.at(9).text(k.title).at(34).text("=");
      if (k.kind == ProfileKind::Lite) {
        const float watts = roundTo(leadingNumber(f[kLightingPower]) + leadingNumber(f[kEquipmentLoad]), 2);
        out_.at(36).masked(bare(watts), " &&&&&&").at(54).text("Profile i.d. is  ").text(id).end();
      } else {
        out_.at(36).masked(f[k.valueField], " &&&&&&").at(54).text("Profile i.d. is ").at(74).text(id).end();
      }
      const Profile* found = nullptr;
      const auto& library = p_.profiles.of(k.kind);
      for (int n = 1; n <= kBuildingTypes && !found; ++n)
        if (leadingNumber(library[static_cast<std::size_t>(n)].id) == leadingNumber(id))
          found = &library[static_cast<std::size_t>(n)];
      if (!found) {
        const std::string name = kProfileKindTitles[static_cast<int>(k.kind)];
        abandoned_ = true;
        warningTitle_ = name + " profile missing!";
        warningText_ = "The profile number for " + name + " has not been clicked in zone " + f[kZoneId] +
                       ".  Return to zone description and check profiles.";
        out_.finish();
        return false;
      }
      out_.at(23);
      if (k.kind == ProfileKind::Vent && leadingNumber(found->id) == 16) {
        // The ventilation schedule 16 holds air changes, not percentages.
        out_.text(found->values);
      } else {
        const auto tokens = hourTokens(found->values);
        for (std::size_t h = 0; h < 24; ++h) {
          const double v = tokenValue(tokens, h);
          out_.masked(v <= 1 ? roundTo(v, 0) : roundTo(v / 100, 2), "@@@@");
        }
      }
      out_.end().emptyLine();
    }
    return true;
  }

  void thermostats(const ZoneRecord& z) {
    out_.at(9).text("THERMOSTAT (NORMAL OCCUPIED DAYS):").end();
    const auto& temps = p_.profiles.of(ProfileKind::Temp);
    for (int field = kSummerOccupied; field <= kWinterUnoccupied; ++field) {
      const std::string& id = z.fields[field];
      const Profile* found = nullptr;
      for (int n = 1; n <= kTempProfilesInFile && !found; ++n) {
        const Profile& t = temps[static_cast<std::size_t>(n)];
        if (!t.id.empty() && leadingNumber(t.id) == leadingNumber(id)) found = &t;
      }
      if (found) {
        const bool upper = field == kSummerOccupied || field == kSummerUnoccupied;
        out_.at(14).text(upper ? "UPPER=" : "LOWER=").at(23);
        const auto tokens = hourTokens(found->values);
        for (std::size_t h = 0; h < 24; ++h) out_.masked(static_cast<float>(std::nearbyint(tokenValue(tokens, h))), "@@@@");
        out_.end();
      }
      if (field == kWinterOccupied) {
        out_.emptyLine();
        out_.at(9).text("THERMOSTAT (UNOCCUPIED WEEKENDS/HOLIDAYS):").end();
      }
    }
  }

  void materialTable(const ZoneRecord& z) {
    out_.emptyLine();
    out_.at(9).text("MATERIAL DATA:").end();
    out_.at(36).text("OPAQUE").end();
    out_.at(6).text("I.D.   NAME");
    out_.at(37).text("AREA    ORIENT  GROUND   SHADES    WINDOW I.D., Name, Overhang Symbol, & Area");
    out_.at(122).text("SLOPE").end();
    out_.heavyRule();
    if (z.rowCount == 0) {
      out_.at(9).text("INTERNAL ZONE - NO EXTERNAL WALL DATA.").end();
    } else {
      // The building orientation may be fractional; it is added as it stands.
      const double orientation = leadingNumber(p_.data[kOrientation]);
      std::string exposure;
      for (int k = 1; k <= z.rowCount && k <= kMaxSurfaceRows; ++k) {
        const EnvelopeRow& r = z.rows[k];
        if (r.surfaceExposure >= 1) exposure = r.surfaceExposure <= 6 ? kExposureTexts[r.surfaceExposure] : "U-GROUND";
        const auto typeName = [](const std::array<CatalogType, kMaxTypeId + 1>& types, int id) -> std::string {
          return id >= 0 && id <= kMaxTypeId ? types[static_cast<std::size_t>(id)].fields[1] : std::string();
        };
        // The IDs are numbers with their trailing blank: a two-digit wall ID
        // ends past column 10 and puts the name on the next line.
        out_.at(5).text(r.surfaceCode).at(7).number(r.wallId);
        out_.at(10).text(midText(typeName(p_.walls, r.wallId), 1, 25));
        out_.at(35).masked(roundTo(static_cast<double>(r.wallArea) - r.windowArea, 1), "@@@@@@@");
        out_.at(45).text(padded(r.wallOrientation + orientation)).at(51).text(exposure);
        out_.at(60).text(r.externalShading).at(74).number(r.windowId).at(79).text(typeName(p_.windows, r.windowId));
        out_.at(112).number(r.windowArea).at(122).number(r.slope).end();
      }
    }
    out_.heavyRule();
    out_.at(82).text("SYMBOL NOTE:  H=Overhang,  L=Lightshelf").end();
  }

  const Project& p_;
  const ReportSetup& s_;
  const ReportSources& src_;
  const bool ip_;
  ReportPrinter& out_;
  SketchStack stack_;
  BuildingCompliance compliance_;
  bool abandoned_ = false;
  std::string warningTitle_, warningText_;
};

}  // namespace

SketchStack readSketchStack(const std::string& sketchText) {
  SketchStack s;
  const std::vector<std::string> lines = splitLines(sketchText);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (midText(lines[i], 1, 11) != "No. of Flrs") continue;
    s.floors += static_cast<float>(leadingNumber(fromColumn(lines[i], 14)));
    ++s.blocks;
    if (i + 1 < lines.size()) s.lastHeight = static_cast<int>(std::nearbyint(leadingNumber(fromColumn(lines[++i], 14))));
  }
  return s;
}

FrontReport composeFrontReport(const Project& p, const ReportSetup& setup, const ReportSources& sources) {
  ReportPrinter out;
  return Composer(p, setup, sources, out).run();
}

int writeFrontReport(const std::string& installDir, const Project& p, const ReportSetup& setup, Prompt& prompt) {
  // The report is started before anything is read, so that whatever stops it
  // no earlier run's report is left for the results to read.
  const std::string path = joinPath(installDir, "temp/ecalc$.out");
  writeFileAtomic(path, {});
  ReportSources src;
  src.hvacCatalog = readFile(joinPath(installDir, "btype/tcool.dat"));
  const std::string sketch = joinPath(installDir, "sketch/bld_mtx.all");
  if (fileExists(sketch)) src.sketch = readFile(sketch);
  for (int z = 1; z <= p.zoneCount && z <= kMaxZones; ++z)
    if (isDaylightYes(p.zones[z].daylight)) {
      src.lightShelf = readFile(joinPath(installDir, "temp/ltshlf.dat"));
      break;
    }
  return writeFrontReportTo(path, p, setup, src, prompt);
}

int writeFrontReportTo(const std::string& path, const Project& p, const ReportSetup& setup,
                       const ReportSources& src, Prompt& prompt) {
  ReportPrinter out;
  FrontReport r;
  try {
    r = Composer(p, setup, src, out).run();
  } catch (const FileError&) {
    writeFileAtomic(path, out.str());  // the part written before the fault
    throw;
  }
  writeFileAtomic(path, r.text);
  if (!r.abandoned) return 0;
  prompt.message(Icon::Exclamation, r.warningTitle, r.warningText);
  return 5;
}

}  // namespace marloven
