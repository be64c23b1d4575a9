// The hourly spreadsheets: the comma-separated copy a spreadsheet opens into
// columns, and the choices of the Hourly screen.
#include "results/hourly.h"

#include <gtest/gtest.h>

#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

TEST(Hourly, TabsBecomeCommasAndOddFieldsAreQuoted) {
  EXPECT_EQ(hourlyCsv("Month\tDay\t11 South T_F\r\n1\t1\t60.0\r\n"), "Month,Day,11 South T_F\r\n1,1,60.0\r\n");
  EXPECT_EQ(hourlyCsv("a,b\tsay \"hi\"\t\n"), "\"a,b\",\"say \"\"hi\"\"\",\r\n");
  EXPECT_EQ(hourlyCsv(""), "");
}

TEST(Hourly, DisplayNeedsAChoiceAndMakesTheCopy) {
  TempInstall t;
  AppState s{Installation(t.dir())};
  s.project.fileName = "office.inp";
  FakePrompt prompt;
  HourlyForm form(s, prompt);
  EXPECT_EQ(form.caption(), "Marloven Hourly Data Output -- office.inp");
  EXPECT_FALSE(form.display());
  ASSERT_EQ(prompt.log.size(), 1u);
  EXPECT_EQ(prompt.log[0].title, "Display Option");
  EXPECT_EQ(prompt.log[0].text, "You must first select a display option");

  t.write("temp/etemp$.hry", "Month\tDay\r\n1\t2\r\n");
  form.choose(1);
  const auto path = form.display();
  ASSERT_TRUE(path);
  EXPECT_EQ(*path, t.path("temp/hourly-temperatures.csv").string());
  EXPECT_EQ(t.read("temp/hourly-temperatures.csv"), "Month,Day\r\n1,2\r\n");
  EXPECT_EQ(form.choice(), 0);  // the choice is cleared after each action

  form.choose(0);  // the energy file is missing: the error report
  EXPECT_FALSE(form.display());
  EXPECT_EQ(prompt.log.back().title, "Marloven Error #  53");
  form.openFailed();
  EXPECT_EQ(prompt.log.back().title, "EXCEL Access Error");
}

}  // namespace
}  // namespace marloven::testing
