#include "screens/text_viewer.h"

#include <QCommandLinkButton>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/file_error.h"
#include "common/file_io.h"
#include "screens/text_codec.h"
#include "common/error_report.h"

namespace marloven::screens {

TextViewer::TextViewer(const QString& caption, const std::string& bytes, bool fixedPitch, QWidget* parent)
    : QDialog(parent), text_(new QPlainTextEdit(this)) {
  setObjectName(fixedPitch ? "Learning" : "filesamp");
  setWindowTitle(caption);
  text_->setObjectName("Text1");
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  if (fixedPitch) text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QString t = fromBytes(bytes);
  t.replace("\r\n", "\n");
  text_->setPlainText(t);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("okey");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text_);
  layout->addWidget(buttons);
  // Wide enough for 78 columns of the help texts.
  const int w = text_->fontMetrics().horizontalAdvance(QString(80, 'M'));
  resize(w + 40, 560);
}

void showHelpFile(QWidget* parent, const std::string& installDir, const std::string& file,
                  const QString& caption, marloven::Prompt& prompt, bool fixedPitch) {
  std::string bytes;
  try {
    bytes = readFile(joinPath(installDir, "helpinfo/" + file));
  } catch (const FileError& e) {
    reportError(prompt, e);
    return;
  }
  TextViewer v(caption, bytes, fixedPitch, parent);
  v.exec();
}

HelpContents::HelpContents(const std::string& installDir, marloven::Prompt& prompt, QWidget* parent)
    : QDialog(parent) {
  setObjectName("Content");
  setWindowTitle("MARLOVEN 6 Help");
  auto* layout = new QVBoxLayout(this);
  struct Topic {
    const char* name;
    const char* caption;
    const char* file;
    const char* title;
  };
  const Topic topics[] = {
      {"Label2", "Introduction", "mainhlp2.txt", "INTRODUCTION TO MARLOVEN 6"},
      {"Label3", "Learning MARLOVEN", "help1.txt", "Learning MARLOVEN"},
      {"Label4", "About MARLOVEN", "mainhlp1.txt", "ABOUT MARLOVEN 6"},
  };
  for (const Topic& t : topics) {
    auto* b = new QCommandLinkButton(tr(t.caption), this);
    b->setObjectName(t.name);
    const std::string file = t.file;
    const QString title = t.title;
    connect(b, &QCommandLinkButton::clicked, this,
            [this, installDir, file, title, &prompt] { showHelpFile(this, installDir, file, title, prompt); });
    layout->addWidget(b);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

void addTutorialMenu(QMenuBar* bar, QWidget* owner, const std::string& installDir, const std::string& file,
                     std::function<std::string()> caption, marloven::Prompt& prompt) {
  QMenu* help = bar->addMenu(QObject::tr("&Help"));
  help->setObjectName("helpmenu");
  QAction* tutorial = help->addAction(QObject::tr("&Tutorial"));
  tutorial->setObjectName("tutorial");
  QObject::connect(tutorial, &QAction::triggered, owner, [owner, installDir, file, caption, &prompt] {
    showHelpFile(owner, installDir, file, fromBytes(caption()), prompt);
  });
}

}  // namespace marloven::screens
