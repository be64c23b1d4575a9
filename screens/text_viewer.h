// The read-only text viewers: help texts (Learning), the help topics (Content)
// and a weather format's sample (filesamp, fixed pitch).
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "common/prompt.h"

class QMenuBar;
class QPlainTextEdit;

namespace marloven::screens {

class TextViewer : public QDialog {
  Q_OBJECT

 public:
  TextViewer(const QString& caption, const std::string& bytes, bool fixedPitch, QWidget* parent = nullptr);
  QPlainTextEdit* text() const { return text_; }

 private:
  QPlainTextEdit* text_;
};

// Shows a help file of helpinfo/ modally; a missing file gets the error report.
void showHelpFile(QWidget* parent, const std::string& installDir, const std::string& file,
                  const QString& caption, marloven::Prompt& prompt, bool fixedPitch = true);

// An input screen's Help menu with its one entry, Tutorial, showing a help
// file under the caption that caption() gives when it is chosen.
void addTutorialMenu(QMenuBar* bar, QWidget* owner, const std::string& installDir, const std::string& file,
                     std::function<std::string()> caption, marloven::Prompt& prompt);

// "MARLOVEN 6 Help": three topics, each opening its text.
class HelpContents : public QDialog {
  Q_OBJECT

 public:
  HelpContents(const std::string& installDir, marloven::Prompt& prompt, QWidget* parent = nullptr);
};

}  // namespace marloven::screens
