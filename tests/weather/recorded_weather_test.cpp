// Choosing a recorded weather file: the checks of OK, the preview and its
// heading, the custom format's year on two lines, and the copy for the run.
#include "weather/recorded_weather.h"

#include <gtest/gtest.h>

#include "common/text_lines.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

// A custom file of n lines; line 5 and line 10 start with their years.
std::string customFile(int n, const std::string& year5, const std::string& year10) {
  std::string s;
  for (int i = 1; i <= n; ++i) {
    if (i == 5) s += year5 + " 1 1 1 32.0 28.0";
    else if (i == 10) s += year10 + " 1 1 6 30.5 27.1";
    else s += "line " + std::to_string(i);
    s += "\r\n";
  }
  return s;
}

const Shown kYear{"Weather Year",
                  "The year of your weather data file is not the same as the project evaluation year.  "
                  "Do you want to continue?"};

struct Screen {
  Screen() {
    state.project.data[kConstructionYear] = "1991";
    tree.write("temp/ecalc$.tmy", "old\r\n");
  }
  std::string tmy() const { return tree.read("temp/ecalc$.tmy"); }

  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  SelectWeatherForm form{state, prompt, tree.path("sample").string()};
};

TEST(RecordedWeather, YearsAreTheLastTwoDigitsOfTheFirstNumber) {
  EXPECT_EQ(yearOfLine("1991 1 1 1 32.0"), 91);
  EXPECT_EQ(yearOfLine("  station 724666, year 2091"), 66);  // the first run of digits counts
  EXPECT_EQ(yearOfLine("7"), 7);
  EXPECT_EQ(yearOfLine("no digits here"), 0);
  Project p;
  p.data[kConstructionYear] = "2091";
  EXPECT_EQ(projectYear(p), 91);
  p.data[kConstructionYear] = "";
  EXPECT_EQ(projectYear(p), 0);
}

TEST(RecordedWeather, SamplesOfTheButtonsAndOfTheMenu) {
  EXPECT_STREQ(formatSample(2).file, "custom.txt");
  EXPECT_STREQ(formatSample(3).caption, "Example of IWEC format");
  EXPECT_STREQ(sampleMenuEntry(3).file, "iwec.txt");  // the menu orders IWEC before Custom
  EXPECT_STREQ(sampleMenuEntry(4).caption, "Example of Custom format");
  EXPECT_STREQ(sampleMenuEntry(1).file, "tmy2.txt");
}

TEST(RecordedWeather, OkNeedsANameAFormatAndAFileThatExists) {
  Screen s;
  EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Stay);
  s.form.setName("denver.csv");
  EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Stay);
  s.form.chooseFormat(2);
  EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Stay);
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"Weather Data File", "Please enter the weather data file name."},
                                {"Weather File Format", "Please select the weather file format."},
                                {"Error", "File does not exist.  Check your directory again."}}));
  EXPECT_EQ(s.form.name(), s.tree.path("sample").string() + "/denver.csv");  // shown as a full path
  s.prompt.log.clear();
  s.form.setName("");
  EXPECT_FALSE(s.form.view());
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"<beep>", ""}, {"Weather File Name", "Please enter the weather file name."}}));
}

TEST(RecordedWeather, OkShowsThePreviewThenItsOkCopiesTheFile) {
  Screen s;
  const std::string file = customFile(30, "1991", "1991");
  s.tree.write("sample/denver.csv", file);
  s.form.setName("denver.csv");
  s.form.chooseFormat(2);
  ASSERT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Preview);
  const std::vector<std::string> lines = splitLines(s.form.previewText());
  ASSERT_EQ(lines.size(), 25u);
  EXPECT_EQ(lines[0], "");
  EXPECT_EQ(lines[1], "                           THIS IS ONLY PART OF YOUR WEATHER FILE.");
  EXPECT_EQ(lines[2], "           PLEASE MAKE SURE THAT THIS IS THE RIGHT WEATHER FILE YOU ARE GOING TO USE.");
  EXPECT_EQ(lines[4], std::string(86, '-'));
  EXPECT_EQ(lines[5], "line 1");
  EXPECT_EQ(lines[24], "line 20");
  EXPECT_EQ(s.form.previewCaption(), s.tree.path("sample").string() + "/denver.csv");
  EXPECT_EQ(s.tmy(), "old\r\n");  // nothing copied before the preview's OK

  EXPECT_EQ(s.form.previewOk(), SelectWeatherForm::PreviewNext::CloseBoth);
  EXPECT_EQ(s.tmy(), file);
  EXPECT_TRUE(s.state.recorded.fileChosen);
  EXPECT_FALSE(s.state.recorded.previewShown);
  EXPECT_TRUE(s.state.project.flags.recordedWeatherPicked);
  EXPECT_EQ(s.state.recorded.format, 3);
  EXPECT_TRUE(s.prompt.log.empty());
}

TEST(RecordedWeather, TheCustomYearIsCheckedOnLineTenAndAgainOnLineFive) {
  for (const std::string project : {"1991", "2091"}) {
    Screen s;  // 1991 in the file matches both: two digits are compared
    s.state.project.data[kConstructionYear] = project;
    s.tree.write("sample/c.txt", customFile(25, "1991", "1991"));
    s.form.setName("c.txt");
    s.form.chooseFormat(2);
    EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Preview) << project;
    EXPECT_EQ(s.form.previewOk(), SelectWeatherForm::PreviewNext::CloseBoth) << project;
    EXPECT_TRUE(s.prompt.log.empty()) << project;
  }

  Screen s;  // line 10 of another year: asked on OK; No changes nothing
  s.tree.write("sample/c.txt", customFile(25, "1991", "1985"));
  s.form.setName("c.txt");
  s.form.chooseFormat(2);
  s.prompt.answers = {Answer::No};
  EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Stay);
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{{"<beep>", ""}, kYear}));
  EXPECT_FALSE(s.state.recorded.previewShown);

  Screen five;  // line 5 differs: asked in the preview only
  five.tree.write("sample/c.txt", customFile(25, "1985", "1991"));
  five.form.setName("c.txt");
  five.form.chooseFormat(2);
  ASSERT_EQ(five.form.clickOk(), SelectWeatherForm::Next::Preview);
  EXPECT_TRUE(five.prompt.log.empty());
  five.prompt.answers = {Answer::No, Answer::Yes};
  EXPECT_EQ(five.form.previewOk(), SelectWeatherForm::PreviewNext::Stay);
  EXPECT_EQ(five.tmy(), "old\r\n");
  EXPECT_EQ(five.form.previewOk(), SelectWeatherForm::PreviewNext::CloseBoth);
  EXPECT_EQ(five.prompt.titlesAndTexts(), (std::vector<Shown>{{"<beep>", ""}, kYear, {"<beep>", ""}, kYear}));

  Screen none;  // a line without digits is year 0
  std::vector<std::string> lines = splitLines(customFile(25, "1991", "1991"));
  lines[9] = "January, first hour";
  std::string noDigits;
  for (const auto& l : lines) noDigits += l + "\r\n";
  none.tree.write("sample/c.txt", noDigits);
  none.form.setName("c.txt");
  none.form.chooseFormat(2);
  none.prompt.answers = {Answer::No};
  EXPECT_EQ(none.form.clickOk(), SelectWeatherForm::Next::Stay);
  none.state.project.data[kConstructionYear] = "2000";
  EXPECT_EQ(none.form.clickOk(), SelectWeatherForm::Next::Preview);

  Screen tmy2;  // other formats are never asked about their year
  tmy2.tree.write("sample/c.txt", customFile(25, "1900", "1900"));
  tmy2.form.setName("c.txt");
  tmy2.form.chooseFormat(0);
  EXPECT_EQ(tmy2.form.clickOk(), SelectWeatherForm::Next::Preview);
  EXPECT_EQ(tmy2.form.previewOk(), SelectWeatherForm::PreviewNext::CloseBoth);
  EXPECT_TRUE(tmy2.prompt.log.empty());
}

TEST(RecordedWeather, APreviewFromViewOrACancelledOneCopiesNothing) {
  Screen s;
  s.tree.write("sample/w.tm2", customFile(22, "1991", "1991"));
  s.form.setName("w.tm2");
  s.form.chooseFormat(0);
  ASSERT_TRUE(s.form.view());
  EXPECT_EQ(s.form.previewOk(), SelectWeatherForm::PreviewNext::ClosePreview);
  EXPECT_EQ(s.tmy(), "old\r\n");
  ASSERT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Preview);
  // Cancel in the preview: the window goes, the run's copy stays as it was.
  EXPECT_EQ(s.tmy(), "old\r\n");
  EXPECT_FALSE(s.state.project.flags.recordedWeatherPicked);
}

TEST(RecordedWeather, AFileShorterThanThePreviewGivesTheErrorReport) {
  Screen s;
  s.tree.write("sample/short.tm2", customFile(19, "1991", "1991"));
  s.form.setName("short.tm2");
  s.form.chooseFormat(0);
  EXPECT_EQ(s.form.clickOk(), SelectWeatherForm::Next::Stay);
  ASSERT_EQ(s.prompt.log.size(), 1u);
  EXPECT_EQ(s.prompt.log[0].title, "Marloven Error #  62");
  EXPECT_FALSE(s.state.recorded.previewShown);
  EXPECT_EQ(s.tmy(), "old\r\n");
}

}  // namespace
}  // namespace marloven
