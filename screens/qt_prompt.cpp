#include "screens/qt_prompt.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include "screens/text_codec.h"

namespace marloven::screens {

namespace {

QMessageBox::Icon toQt(Icon icon) {
  switch (icon) {
    case Icon::Information: return QMessageBox::Information;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Question: return QMessageBox::Question;
    case Icon::Critical: return QMessageBox::Critical;
    case Icon::None: break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons toQt(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

// The first button is the default, as in the boxes these texts were written for.
QMessageBox::StandardButton firstOf(Buttons buttons) {
  return buttons == Buttons::Ok || buttons == Buttons::OkCancel ? QMessageBox::Ok
                                                                 : QMessageBox::Yes;
}

}  // namespace

QWidget* QtPrompt::owner() const {
  return parent_ ? parent_.data() : QApplication::activeWindow();
}

void QtPrompt::beep() { QApplication::beep(); }

void QtPrompt::message(Icon icon, std::string_view title, std::string_view text) {
  QMessageBox box(toQt(icon), fromBytes(title), fromBytes(text), QMessageBox::Ok, owner());
  box.exec();
}

Answer QtPrompt::ask(Buttons buttons, Icon icon, std::string_view title, std::string_view text) {
  QMessageBox box(toQt(icon), fromBytes(title), fromBytes(text), toQt(buttons), owner());
  box.setDefaultButton(firstOf(buttons));
  switch (box.exec()) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: return Answer::Cancel;  // also the Escape key and the close box
  }
}

std::optional<std::string> QtPrompt::input(std::string_view title, std::string_view text,
                                           std::string_view preset) {
  bool ok = false;
  const QString typed = QInputDialog::getText(owner(), fromBytes(title), fromBytes(text),
                                              QLineEdit::Normal, fromBytes(preset), &ok);
  if (!ok) return std::nullopt;
  return toBytes(typed);
}

}  // namespace marloven::screens
