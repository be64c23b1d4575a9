#include "input/economics.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/keys.h"
#include "support/fake_prompt.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

struct Screen {
  explicit Screen(UnitSystem units = UnitSystem::IP) {
    state.project.units = units;
    state.project.economics = {"30", "20", "20", "0.07", "0.03", "0.10", "0.03", "1.10", "0.04", "4.00", "0.04"};
    state.project.demand.text = "N";
    form.open();
  }
  Project& p() { return state.project; }
  std::string type(int i, const std::string& keys) {
    std::string kept;
    for (char k : keys)
      if (form.keyPress(i, k)) {
        kept += k;
        form.textChanged(i, form.box(i) + k);
      }
    return kept;
  }

  AppState state;
  FakePrompt prompt;
  EconomicsForm form{state, prompt};
};

TEST(Economics, CaptionsAndUnitsFollowTheUnitSystem) {
  Screen ip;
  EXPECT_EQ(ip.form.caption(), "Economics Data -- New_Project");
  EXPECT_EQ(ip.form.tutorialCaption(), "ECONOMICS -- New_Project");
  EXPECT_STREQ(EconomicsForm::label(4), " Building Cost          Escalation          :");
  EXPECT_EQ(ip.form.unitLabel(0), " years");
  EXPECT_EQ(ip.form.unitLabel(3), " fraction");
  EXPECT_EQ(ip.form.unitLabel(5), "$/kWh");
  EXPECT_EQ(ip.form.unitLabel(7), " $/Therm");
  EXPECT_EQ(ip.form.unitLabel(9), " $/1000 G");
  EXPECT_EQ(ip.form.unitLabel(6), "");
  Screen si(UnitSystem::SI);
  EXPECT_EQ(si.form.unitLabel(7), "$/GJoule");
  EXPECT_EQ(si.form.unitLabel(9), "$/1000 L");
  EXPECT_EQ(si.form.box(7), "1.10");
  EXPECT_EQ(si.form.demand(), "N");
}

TEST(Economics, KeysAreDigitsAndThePointOnly) {
  Screen s;
  s.form.textChanged(5, "");
  EXPECT_EQ(s.type(5, "0.1 2a\t"), "0.12\t");
  const Shown beep{"<beep>", ""}, msg{"Error", "You should use numerical value."};
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{beep, msg, beep, msg}));
  EXPECT_EQ(s.state.lastEconomicsBox, 5);
}

TEST(Economics, LifeAndRateMenusFillOnlyTheirOwnBoxes) {
  Screen s;
  s.form.clickBox(5);
  s.form.chooseLife(1);  // "20" with the cursor in the electric price: nothing
  s.form.chooseRate(0);
  EXPECT_EQ(s.form.box(5), "0.10");
  s.form.clickBox(1);
  s.form.chooseLife(4);
  EXPECT_EQ(s.form.box(1), "50");
  s.form.chooseRate(2);
  EXPECT_EQ(s.form.box(1), "50");
  for (int i : {3, 4, 6, 8, 10}) {
    s.form.clickBox(i);
    s.form.chooseRate(5);
    EXPECT_EQ(s.form.box(i), "0.10") << i;
    s.form.chooseLife(0);
    EXPECT_EQ(s.form.box(i), "0.10") << i;
  }
  for (int i : {7, 9}) {
    s.form.clickBox(i);
    s.form.chooseRate(1);
    s.form.chooseLife(1);
  }
  EXPECT_EQ(s.form.box(7), "1.10");
  EXPECT_EQ(s.form.box(9), "4.00");
  EXPECT_EQ(s.p().economics[1], "20");  // nothing stored before OK
  ASSERT_TRUE(s.form.clickOk());
  EXPECT_EQ(s.p().economics[1], "50");
  EXPECT_EQ(s.p().economics[3], "0.10");
  EXPECT_TRUE(s.p().flags.stepDone[3]);
}

TEST(Economics, UndoAndCancelGoBackToTheStoredValues) {
  Screen s;
  for (int i = 0; i < 4; ++i) s.form.textChanged(i, "9");
  s.form.clickBox(2);
  s.form.clickUndo();
  s.form.clickUndo();
  EXPECT_EQ(s.form.box(2), "20");
  EXPECT_EQ(s.form.box(1), "20");
  EXPECT_EQ(s.form.box(0), "9");
  s.form.clickUndo();
  s.form.clickUndo();  // stays at box 0
  EXPECT_EQ(s.form.box(0), "30");
  EXPECT_EQ(s.state.lastEconomicsBox, 0);
  EXPECT_EQ(s.form.box(3), "9");
  s.form.toggleDemand();
  s.form.clickCancel();
  EXPECT_EQ(s.form.box(3), "0.07");
  EXPECT_EQ(s.form.demand(), "N");
  EXPECT_FALSE(s.p().flags.stepDone[3]);
}

TEST(Economics, DemandScheduleOpensOnlyFromNToY) {
  Screen s;
  s.p().demand.pairCount = 2;
  s.p().demand.pairs[1] = {"100", "5.5"};
  s.p().demand.pairs[2] = {"200", "7"};
  ASSERT_TRUE(s.form.toggleDemand());
  EXPECT_EQ(s.form.demand(), "Y");
  EXPECT_EQ(s.form.schedule().text(0, 0), "100");
  EXPECT_EQ(s.form.schedule().text(1, 1), "7");
  EXPECT_EQ(s.form.schedule().text(2, 0), "");
  EXPECT_FALSE(s.form.toggleDemand());  // to "N": the pairs stay
  EXPECT_EQ(s.form.demand(), "N");
  EXPECT_EQ(s.p().demand.pairCount, 2);
  EXPECT_TRUE(s.form.toggleDemand());
  EXPECT_EQ(s.form.schedule().text(0, 1), "5.5");

  Screen file;  // a flag as a file may hold it, with a leading blank
  file.p().demand.text = " Y";
  file.form.open();
  EXPECT_FALSE(file.form.toggleDemand());
  EXPECT_EQ(file.form.demand(), "N");
  EXPECT_TRUE(file.form.toggleDemand());
}

TEST(Economics, ABrokenScheduleIsReportedAndTheFlagStaysN) {
  Screen s;
  s.p().demand.pairCount = 7;
  EXPECT_FALSE(s.form.toggleDemand());
  EXPECT_EQ(s.form.demand(), "N");
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{
                {"", "The demand charge file has a wrong format.  Please check the file and try again."}}));
}

TEST(Economics, OkRefusesYWithoutPairsUntilAScheduleIsEntered) {
  Screen s;
  s.p().demand.text = "Y";  // as a building type may bring it
  s.form.open();
  EXPECT_FALSE(s.form.clickOk());
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"Demand Charge", "Please enter the demand charge schedule."}}));
  EXPECT_FALSE(s.p().flags.stepDone[3]);

  s.form.toggleDemand();
  ASSERT_TRUE(s.form.toggleDemand());
  DemandChargeForm& d = s.form.schedule();
  d.textChanged(0, 0, "50");
  d.textChanged(0, 1, "8.25");
  d.clickOk();
  EXPECT_EQ(s.p().demand.pairCount, 1);
  EXPECT_TRUE(s.form.clickOk());
  EXPECT_EQ(s.p().demand.text, "Y");
}

TEST(DemandCharge, RowsStopAtTheFirstEmptyIncrement) {
  Screen s;
  DemandChargeForm& d = s.form.schedule();
  d.textChanged(0, 0, "100");
  d.textChanged(0, 1, "4");
  d.textChanged(2, 0, "300");  // an empty middle row keeps only the first
  d.textChanged(2, 1, "6");
  d.clickOk();
  EXPECT_EQ(s.p().demand.pairCount, 1);
  EXPECT_EQ(s.p().demand.pairs[1].first, "100");
  EXPECT_EQ(s.p().demand.pairs[1].second, "4");

  s.p().demand.pairCount = 3;
  DemandChargeForm empty(s.p(), s.prompt);
  empty.clickOk();  // row 0 empty: the count stays
  EXPECT_EQ(s.p().demand.pairCount, 3);

  DemandChargeForm cancelled(s.p(), s.prompt);
  cancelled.fill();
  cancelled.textChanged(0, 0, "1");  // Cancel stores nothing: the dialog just closes
  EXPECT_EQ(s.p().demand.pairs[1].first, "100");
  EXPECT_FALSE(cancelled.keyPress(0, 0, 'k'));
  EXPECT_TRUE(cancelled.keyPress(0, 1, '5'));
}

}  // namespace
}  // namespace marloven
