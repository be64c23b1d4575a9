#include "screens/zones.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "screens/key_filter.h"
#include "screens/profiles.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"

namespace marloven::screens {

namespace {

QLabel* caption(const std::string& text, QWidget* parent) {
  auto* l = new QLabel(fromBytes(text), parent);
  l->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  return l;
}

}  // namespace

// ------------------------------------------------------------ ventilation

VentilationDialog::VentilationDialog(Prompt& prompt, UnitSystem units, const std::string& field9, QWidget* parent)
    : QDialog(parent), logic_(prompt, units, field9) {
  setObjectName("venrate");
  setWindowTitle(tr("Ventilation Rate"));
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(tr("Enter the ventilation rate below:"), this), 0, 0, 1, 3);
  for (int i = 0; i < 3; ++i) {
    const int r = 1 + 2 * i;
    if (i > 0) grid->addWidget(new QLabel(tr("or:"), this), r - 1, 0);
    grid->addWidget(new QLabel(VentilationForm::kPrefixes[static_cast<std::size_t>(i)], this), r, 0);
    auto* e = new QLineEdit(fromBytes(logic_.text(i)), this);
    e->setObjectName(QString("ven%1").arg(i));
    BoxFilter::Handlers h;
    h.key = [this, i](char k) {
      const bool kept = logic_.keyPress(i, k);
      refresh();
      return kept;
    };
    h.clicked = [this, i] {
      logic_.click(i);
      refresh();
    };
    h.enter = [this] { accept(); };
    h.escape = [this] { reject(); };
    new BoxFilter(e, std::move(h));
    connect(e, &QLineEdit::textEdited, this, [this, i](const QString& t) { logic_.textChanged(i, toBytes(t)); });
    grid->addWidget(e, r, 1);
    grid->addWidget(new QLabel(fromBytes(logic_.caption(i)), this), r, 2);
    rows_[static_cast<std::size_t>(i)] = e;
  }
  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName("Command1");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("Command2");
  connect(ok, &QPushButton::clicked, this, &VentilationDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addLayout(buttons);
  refresh();
  // The first row that holds a rate takes the focus.
  for (QLineEdit* e : rows_)
    if (!e->text().isEmpty()) {
      e->setFocus();
      break;
    }
}

void VentilationDialog::refresh() {
  for (int i = 0; i < 3; ++i) {
    // The active row is the one OK takes: the others are greyed.
    QPalette p = rows_[static_cast<std::size_t>(i)]->palette();
    p.setColor(QPalette::Text, logic_.active(i) ? palette().color(QPalette::WindowText) : QColor(0xc0, 0xc0, 0xc0));
    rows_[static_cast<std::size_t>(i)]->setPalette(p);
  }
}

void VentilationDialog::accept() {
  const std::optional<std::string> r = logic_.clickOk();
  if (!r) return;
  result_ = *r;
  QDialog::accept();
}

// -------------------------------------------------------- zone description

ZoneFormWindow::ZoneFormWindow(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("zoneform");
  logic_.open();
  build();
  refresh();
}

void ZoneFormWindow::build() {
  auto* bar = new QMenuBar(this);
  QMenu* profiles = bar->addMenu(tr("&Profiles"));
  const std::array<const char*, 5> profileNames = {"Occupancy", "Hot Water", "Ventilation", "Lights & Equipment",
                                                   "Temperature"};
  for (int k = 1; k <= 5; ++k)
    profiles->addAction(QString(profileNames[static_cast<std::size_t>(k - 1)]).replace("&", "&&"), this,
                        [this, k] { follow(logic_.chooseProfile(k)); });
  QMenu* hvac = bar->addMenu(tr("&HVAC System"));
  QMenu* acMenu = hvac->addMenu(tr("AC Type"));
  const std::array<const char*, 10> acNames = {"",
                                               "1. Variable Air Volume",
                                               "2. Double Duct",
                                               "3. Multizone",
                                               "4. Fan Coil Units",
                                               "5. Roof Top Units",
                                               "6. DX Residential",
                                               "7. DX Res. Heat Pump",
                                               "8. DX Window Unit",
                                               "9. Evaporative Cooling"};
  // Items 10 to 15 are spares without captions; they act as any other.
  for (int n = 1; n <= 15; ++n) {
    ac_[static_cast<std::size_t>(n)] = acMenu->addAction(n <= 9 ? acNames[static_cast<std::size_t>(n)] : "", this, [this, n] {
      logic_.chooseAc(n);
      refresh();
    });
  }
  QMenu* heatMenu = hvac->addMenu(tr("Heating Type"));
  const std::array<const char*, 4> heatNames = {"", "1. Gas", "2. Elec. Resistance", "3. Heat Pump"};
  for (int h = 1; h <= 3; ++h)
    heat_[static_cast<std::size_t>(h)] = heatMenu->addAction(heatNames[static_cast<std::size_t>(h)], this, [this, h] {
      logic_.chooseHeating(h);
      refresh();
    });
  QMenu* lighting = bar->addMenu(tr("&Lighting"));
  const std::array<const char*, 6> lightNames = {"1. Fluorescent",         "2. Incandescent", "3. High Pressure Sodium",
                                                 "4. Low Pressure Sodium", "5. Halogen",      "6. Mercury"};
  for (int l = 1; l <= 6; ++l)
    lighting->addAction(lightNames[static_cast<std::size_t>(l - 1)], this, [this, l] {
      logic_.chooseLighting(l);
      refresh();
    });
  addTutorialMenu(bar, this, state_.install.dir(), "help4.txt", [this] { return logic_.tutorialCaption(); }, prompt_);

  const int w = fontMetrics().horizontalAdvance(QString(7, QLatin1Char('0')));
  for (int i = 1; i <= ZoneForm::kBoxes; ++i) {
    auto* e = new QLineEdit(this);
    e->setObjectName(QString("zone%1").arg(i));
    e->setMinimumWidth(w);
    e->setMaximumWidth(i == kZoneName ? w * 4 : w * 2);
    BoxFilter::Handlers h;
    h.key = [this, i](char k) {
      logic_.keyDown(i);
      ZoneForm::Next next = ZoneForm::Next::None;
      const bool kept = logic_.keyPress(i, k, next);
      refresh();
      if (next != ZoneForm::Next::None) follow(next);
      return kept;
    };
    h.clicked = [this, i] { follow(logic_.click(i)); };
    h.enter = [this] { accept(); };
    h.escape = [this] { reject(); };
    new BoxFilter(e, std::move(h));
    connect(e, &QLineEdit::textEdited, this, [this, i](const QString& t) { logic_.textChanged(i, toBytes(t)); });
    boxes_[static_cast<std::size_t>(i)] = e;
  }

  // The project above the zone.
  auto* head = new QHBoxLayout;
  const Project& p = state_.project;
  head->addWidget(new QLabel(tr("Bldg. Type:") + " " + fromBytes(p.data[kBuildingType]), this));
  head->addWidget(new QLabel(fromBytes(p.data[kProjectName]), this));
  head->addWidget(new QLabel(fromBytes(p.data[kLocation]), this));
  head->addStretch(1);

  auto group = [this](const QString& title, std::initializer_list<int> indexes) {
    auto* g = new QGroupBox(title, this);
    auto* l = new QGridLayout(g);
    int c = 0;
    for (int i : indexes) {
      l->addWidget(caption(logic_.boxCaption(i), g), 0, c);
      l->addWidget(boxes_[static_cast<std::size_t>(i)], 1, c);
      ++c;
    }
    return g;
  };
  auto* top = new QHBoxLayout;
  auto* zoneBox = new QGroupBox(tr("Zone"), this);
  auto* zl = new QGridLayout(zoneBox);
  zl->addWidget(caption(logic_.boxCaption(kZoneId), zoneBox), 0, 0);
  zl->addWidget(boxes_[kZoneId], 1, 0);
  zl->addWidget(caption("", zoneBox), 0, 1);
  zl->addWidget(boxes_[kZoneName], 1, 1);
  zl->addWidget(caption(logic_.boxCaption(kZoneFloorArea), zoneBox), 0, 2);
  zl->addWidget(boxes_[kZoneFloorArea], 1, 2);
  zl->addWidget(caption(logic_.boxCaption(kInternalMass), zoneBox), 0, 3);
  zl->addWidget(boxes_[kInternalMass], 1, 3);
  zl->addWidget(new QLabel(fromBytes(logic_.unitLabel()), zoneBox), 1, 4);
  top->addWidget(zoneBox);
  top->addStretch(1);

  auto* second = new QHBoxLayout;
  second->addWidget(group(tr(" Occupancy"), {kPeople, kOccProfile}));
  second->addWidget(group(tr("   Hot Water"), {kHotWaterPerPerson, kHotWaterProfile}));
  second->addWidget(group(tr("  Ventilation"), {kOutsideAir, kVentProfile}));
  second->addWidget(group(tr("         Lights + Equipment"),
                          {kLightingType, kLightingCost, kLightingPower, kEquipmentLoad, kLightProfile}));
  auto* third = new QHBoxLayout;
  third->addWidget(group(tr(" Temp. Profiles"), {kSummerOccupied, kWinterOccupied, kSummerUnoccupied, kWinterUnoccupied}));
  third->addWidget(group(tr("  HVAC System"), {kCoolingType, kHeatingType}));
  auto* toggleBox = new QGroupBox(this);
  auto* tl = new QGridLayout(toggleBox);
  const std::array<const char*, 3> toggleCaptions = {" Nat. Vent.   (Yes/No)", " Daylight (Yes/No)", " Econ  Cycle"};
  const std::array<const char*, 3> toggleNames = {"natvent", "dayt", "Econcycle"};
  for (int t = 0; t < 3; ++t) {
    tl->addWidget(caption(toggleCaptions[static_cast<std::size_t>(t)], toggleBox), 0, t);
    auto* b = new QPushButton(toggleBox);
    b->setObjectName(toggleNames[static_cast<std::size_t>(t)]);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, [this, t] {
      logic_.clickToggle(t);
      refresh();
    });
    tl->addWidget(b, 1, t);
    toggles_[static_cast<std::size_t>(t)] = b;
  }
  third->addWidget(toggleBox);
  third->addStretch(1);
  auto* fourth = new QHBoxLayout;
  fourth->addWidget(group(QString(), {kNaturalVentRate, kInfiltration, kDaylitDepth, kTargetIlluminance,
                                      kStaticPressure, kCoolingEfficiency, kHeatingEfficiency, kFirstCost,
                                      kMaintenanceCost}));
  auto* surfaces = new QGroupBox(tr("Exterior Surfaces"), this);
  auto* sl = new QVBoxLayout(surfaces);
  auto* pending = new QLabel(tr("The surfaces of this zone (walls, roofs, floors and windows) are kept as the "
                                "sketch made them; their table comes with the envelope screens."),
                             surfaces);
  pending->setWordWrap(true);
  sl->addWidget(pending);

  ok_ = new QPushButton(tr("OK"), this);
  ok_->setObjectName("okey");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancel");
  auto* undo = new QPushButton(tr("Undo Last"), this);
  undo->setObjectName("Undo");
  for (QPushButton* b : {ok_, cancel, undo}) b->setAutoDefault(false);
  connect(ok_, &QPushButton::clicked, this, &ZoneFormWindow::accept);
  connect(cancel, &QPushButton::clicked, this, &ZoneFormWindow::reject);
  connect(undo, &QPushButton::clicked, this, [this] {
    logic_.clickUndo();
    refresh();
  });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  buttons->addWidget(undo);

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addLayout(head);
  layout->addLayout(top);
  layout->addLayout(second);
  layout->addLayout(third);
  layout->addLayout(fourth);
  layout->addWidget(surfaces, 1);
  layout->addLayout(buttons);
}

void ZoneFormWindow::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  for (int i = 1; i <= ZoneForm::kBoxes; ++i) {
    QLineEdit* e = boxes_[static_cast<std::size_t>(i)];
    const QString t = fromBytes(logic_.box(i));
    if (e->text() != t) e->setText(t);
    e->setEnabled(logic_.boxEnabled(i));
  }
  for (int t = 0; t < 3; ++t) toggles_[static_cast<std::size_t>(t)]->setText(fromBytes(logic_.toggle(t)));
}

void ZoneFormWindow::follow(ZoneForm::Next next) {
  refresh();
  switch (next) {
    case ZoneForm::Next::VentilationDialog: {
      VentilationDialog v(prompt_, state_.project.units, logic_.box(kOutsideAir), this);
      if (v.exec() == QDialog::Accepted) logic_.setVentilation(v.result());
      refresh();
      break;
    }
    case ZoneForm::Next::ProfileScreen: {
      const int kind = state_.zoneEditing.profileKind;
      ProfileWindow w(state_, prompt_, kind, this);
      w.exec();
      logic_.profilesClosed(kind, w.logic().chosen());
      refresh();
      break;
    }
    case ZoneForm::Next::TemperatureScreen: {
      logic_.storeZone();
      TemperatureWindow w(state_, prompt_, this);
      if (w.opened()) w.exec();
      logic_.temperaturesClosed();
      refresh();
      break;
    }
    case ZoneForm::Next::None: break;
  }
}

void ZoneFormWindow::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

void ZoneFormWindow::reject() {
  logic_.clickCancel();
  QDialog::reject();
}

// -------------------------------------------------------------- zone list

ZoneListWindow::ZoneListWindow(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("zonename");
  grid_ = new QTableWidget(ZoneListGrid::kRows - 1, 3, this);
  grid_->setObjectName("MSFlexGrid1");
  QStringList headings;
  for (const char* h : ZoneListForm::headings()) headings << h;
  grid_->setHorizontalHeaderLabels(headings);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  grid_->verticalHeader()->setVisible(false);
  connect(grid_, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { openRow(row + 1); });
  auto* name = new QLabel(this);
  name->setObjectName("proname");
  name->setText(tr("Project Name: ") + fromBytes(logic_.projectName()));
  auto* loc = new QLabel(this);
  loc->setObjectName("proloc");
  loc->setText(tr("Location: ") + fromBytes(logic_.location()));
  auto* note = new QLabel(fromBytes(ZoneListForm::note()), this);
  note->setObjectName("Label2");
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignCenter);
  ok_ = new QPushButton(tr("OK >>"), this);
  ok_->setObjectName("OK");
  back_ = new QPushButton(tr("<< Menu"), this);
  back_->setObjectName("back");
  connect(ok_, &QPushButton::clicked, this, [this] { openRow(grid_->currentRow() + 1); });
  connect(back_, &QPushButton::clicked, this, &ZoneListWindow::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(back_);
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(name);
  layout->addWidget(loc);
  layout->addWidget(grid_, 1);
  layout->addWidget(note);
  layout->addLayout(buttons);
  resize(640, 520);
  refresh();
}

void ZoneListWindow::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  for (int r = 1; r < ZoneListGrid::kRows; ++r)
    for (int c = 0; c < 3; ++c) {
      const QString t = fromBytes(logic_.cell(r, c));
      QTableWidgetItem* item = grid_->item(r - 1, c);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        grid_->setItem(r - 1, c, item);
      }
      if (item->text() != t) item->setText(t);
    }
}

void ZoneListWindow::openRow(int row) {
  if (!logic_.openZone(row)) return;
  ZoneFormWindow form(state_, prompt_, this);
  form.resize(1000, 640);
  form.exec();
  refresh();
  grid_->selectRow(state_.project.currentZone - 1);
}

void ZoneListWindow::reject() {
  if (logic_.back()) QDialog::reject();
}

}  // namespace marloven::screens
