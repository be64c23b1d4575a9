#include "shell/main_menu.h"

#include <filesystem>
#include <system_error>

#include "shell/startup.h"

namespace marloven {

namespace {

MenuEntry item(Command c, std::string caption, int index = 0) {
  return MenuEntry{MenuEntry::Kind::Item, c, index, std::move(caption), {}};
}

MenuEntry separator() { return MenuEntry{MenuEntry::Kind::Separator, Command::None, 0, {}, {}}; }

// A heading of the View menu: its own click does nothing, its items hang below it.
MenuEntry submenu(int viewIndex, std::string caption, Command c,
                  std::initializer_list<const char*> captions) {
  MenuEntry m{MenuEntry::Kind::Submenu, Command::View, viewIndex, std::move(caption), {}};
  int i = 1;
  for (const char* text : captions) m.children.push_back(item(c, text, i++));
  return m;
}

std::vector<MenuSpec> buildMenuBar() {
  std::vector<MenuSpec> bar;
  bar.push_back({MenuId::File,
                 "&File",
                 {item(Command::NewProject, "&New Project"),
                  item(Command::RetrieveProject, "&Retrieve Old Project"),
                  item(Command::SaveProject, "Save &Project File"), separator(),
                  item(Command::Exit, "E&xit")}});
  bar.push_back({MenuId::Analysis,
                 "&Analysis",
                 {item(Command::Run, "&Error Check Only", 1),
                  item(Command::Run, "&Abbreviated Run", 2),
                  item(Command::Run, "Run with   A/C ", 3),
                  item(Command::Run, "Run w/out A/C (&Passive)", 4)}});
  bar.push_back(
      {MenuId::View,
       "&View Output",
       {submenu(6, "Tabular Results (Current)", Command::Table,
                {"Project Data", "Zone Data", "Monthly Summaries", "HVAC Design Data",
                 "Peak Demand Profiles", "Cost Analysis", "Weather Summary",
                 "Space Comfort Conditions"}),
        item(Command::View, "Space Comfort Conditions", 7),
        item(Command::View, "Weather Summary", 8), separator(),
        submenu(10, "Graphical Results (Current)", Command::Graph,
                {"Peak Heating Load", "Peak Cooling Load", "Annual Heating Load",
                 "Annual Cooling Load", "Monthly Heating & Cooling", "Monthly Utility Costs",
                 "Breakdown of Annual Energy"}),
        separator(), item(Command::View, "Retrieve Previous Output File", 12)}});
  bar.push_back({MenuId::Database,
                 "Database",
                 {item(Command::Database, "Wall/Roof/Floor Catalog", 1),
                  item(Command::Database, "Window & Skylight Catalog", 2),
                  item(Command::Database, "HVAC System Types", 3)}});
  bar.push_back({MenuId::Help,
                 "&Help",
                 {item(Command::HelpContents, "&Contents"),
                  item(Command::HelpIntroduction, "&Introduction"),
                  item(Command::HelpLearning, "&Learning"), separator(),
                  item(Command::HelpAbout, "&About")}});
  return bar;
}

}  // namespace

const std::vector<MenuSpec>& mainMenuBar() {
  static const std::vector<MenuSpec> bar = buildMenuBar();
  return bar;
}

std::string mainMenuCaption(const Project& p) {
  return "-- " + (p.flags.fromFile ? p.fileName : std::string("New_Project.inp"));
}

void MainMenu::activated() {
  // Screens that browse folders may have moved the current directory.
  std::error_code ec;
  std::filesystem::current_path(state_.install.dir(), ec);

  Project& p = state_.project;
  if (p.flags.runMade) p.fileName = p.rememberedName;
  caption_ = mainMenuCaption(p);

  const auto& done = p.flags.stepDone;
  if (done[1] && done[2] && done[4] && done[5]) {
    runMenuEnabled_ = true;
    stepEnabled_[6] = true;
  }
}

bool MainMenu::stepEnabled(int step) const {
  return step >= 1 && step <= kMainMenuSteps && stepEnabled_[step];
}

bool MainMenu::menuEnabled(MenuId menu) const {
  switch (menu) {
    case MenuId::Analysis: return runMenuEnabled_;
    case MenuId::View: return viewMenuEnabled_;
    default: return true;
  }
}

void MainMenu::exit() { killZoneScratch(state_.install, state_.project); }

void MainMenu::projectReset() {
  stepEnabled_[5] = stepEnabled_[6] = false;
  runMenuEnabled_ = false;
  caption_ = mainMenuCaption(state_.project);
}

void MainMenu::inputAccepted() {
  const ProjectFlags& f = state_.project.flags;
  if (f.fromFile || f.stepDone[4]) stepEnabled_[5] = true;
  if (f.fromFile) runMenuEnabled_ = stepEnabled_[6] = true;
}

void MainMenu::projectOpened() {
  stepEnabled_.fill(true);
  runMenuEnabled_ = viewMenuEnabled_ = true;
  caption_ = mainMenuCaption(state_.project);
}

}  // namespace marloven
