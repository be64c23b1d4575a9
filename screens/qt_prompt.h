// Prompt shown with message boxes over the active window.
#pragma once

#include <QPointer>
#include <QWidget>

#include "common/prompt.h"

namespace marloven::screens {

class QtPrompt : public Prompt {
 public:
  // Boxes are parented to parent, or to the active window when it is null.
  explicit QtPrompt(QWidget* parent = nullptr) : parent_(parent) {}

  void beep() override;
  void message(Icon icon, std::string_view title, std::string_view text) override;
  Answer ask(Buttons buttons, Icon icon, std::string_view title, std::string_view text) override;
  std::optional<std::string> input(std::string_view title, std::string_view text,
                                   std::string_view preset) override;

 private:
  QWidget* owner() const;
  QPointer<QWidget> parent_;
};

}  // namespace marloven::screens
