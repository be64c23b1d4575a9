// The key filters of the input screens: a typed key goes to the screen's logic
// before the box sees it, and a key the logic refuses never reaches the box.
#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;
class QLineEdit;

namespace marloven::screens {

// The character a key event gives the logic: Backspace and Enter by their
// codes, a character outside the single-byte set as a stand-in no numeric
// filter takes; 0 for keys that type nothing (arrows, Delete, Home...).
char logicKey(const QKeyEvent* event);

// Watches one box: keys (filtered), key release, mouse click; Enter and
// Escape go to the screen's OK and Cancel.
class BoxFilter : public QObject {
  Q_OBJECT

 public:
  struct Handlers {
    std::function<bool(char)> key;   // true to keep the key
    std::function<void()> released;  // optional
    std::function<void()> clicked;   // optional
    std::function<void()> enter;
    std::function<void()> escape;
    std::function<void()> left;      // optional: focus went elsewhere
  };

  BoxFilter(QLineEdit* box, Handlers h);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Handlers h_;
};

}  // namespace marloven::screens
