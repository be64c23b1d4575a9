#include "screens/key_filter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include "common/keys.h"

namespace marloven::screens {

char logicKey(const QKeyEvent* e) {
  if (e->key() == Qt::Key_Backspace) return key::kBackspace;
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) return key::kEnter;
  if (e->key() == Qt::Key_Tab) return key::kTab;
  const QString t = e->text();
  if (t.size() != 1 || !t[0].isPrint()) return 0;
  const char16_t c = t[0].unicode();
  return c < 256 ? static_cast<char>(c) : '\x7f';
}

BoxFilter::BoxFilter(QLineEdit* box, Handlers h) : QObject(box), h_(std::move(h)) {
  box->installEventFilter(this);
}

bool BoxFilter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      auto* e = static_cast<QKeyEvent*>(event);
      if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        if (h_.enter) h_.enter();
        return true;
      }
      if (e->key() == Qt::Key_Escape) {
        if (h_.escape) h_.escape();
        return true;
      }
      // Shortcuts (copy, paste, select all) are the box's own.
      if (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
      const char k = logicKey(e);
      if (k == 0 || k == key::kTab) return false;
      return !h_.key(k);
    }
    case QEvent::KeyRelease:
      if (h_.released && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) h_.released();
      return false;
    case QEvent::FocusOut:
      if (h_.left) h_.left();
      return false;
    case QEvent::MouseButtonPress:
      if (h_.clicked) h_.clicked();
      return false;
    default: return QObject::eventFilter(watched, event);
  }
}

}  // namespace marloven::screens
