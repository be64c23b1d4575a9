// The desktop program: finds the shipped installation tree, runs in the
// user's working copy of it, starts up and shows the opening screen.
#include <QApplication>
#include <QDate>
#include <QDir>
#include <QStandardPaths>
#include <clocale>
#include <memory>
#include <optional>

#include "screens/desktop.h"
#include "screens/qt_prompt.h"
#include "common/error_report.h"
#include "shell/startup.h"
#include "shell/user_tree.h"

namespace {

// An installed program sits beside its data; run from the build tree it uses
// the source tree's data.
QString shippedTree() {
  const QString here = QCoreApplication::applicationDirPath();
  if (QDir(here + "/btype").exists()) return here;
  return QStringLiteral(MARLOVEN_SOURCE_INSTALL_DIR);
}

QString userTree() {
  QString dir = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  if (dir.isEmpty())
    dir = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/marloven";
  return dir;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QCoreApplication::setApplicationName("marloven");
  // Qt switches the process to the user's locale; numbers in files must not
  // follow it.
  std::setlocale(LC_NUMERIC, "C");

  marloven::screens::QtPrompt prompt;
  std::optional<marloven::FileError> seedError;
  const QString shipped = shippedTree();
  QString installDir = userTree();
  try {
    marloven::seedUserTree(QFile::encodeName(shipped).toStdString(),
                           QFile::encodeName(installDir).toStdString());
  } catch (const marloven::FileError& e) {
    seedError = e;
  }
  // Without a working copy the shipped tree is used as it is.
  if (!QDir::setCurrent(installDir)) {
    installDir = shipped;
    QDir::setCurrent(installDir);
  }

  auto state = std::make_unique<marloven::AppState>();
  state->install = marloven::Installation(QFile::encodeName(QDir::currentPath()).toStdString());

  const QDate today = QDate::currentDate();
  const auto error =
      marloven::startUp(*state, marloven::Date{today.year(), today.month(), today.day()});
  if (seedError) marloven::reportError(prompt, *seedError);
  if (error) marloven::reportError(prompt, *error);

  marloven::screens::Desktop desktop(*state, prompt);
  desktop.start();
  return QApplication::exec();
}
