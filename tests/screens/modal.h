// Driving modal dialogs and the sketch canvas from a Qt test.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QPoint>
#include <QTest>
#include <QTimer>

#include "screens/drawform.h"

namespace marloven::testing {

// Runs fn on the modal dialog of type T once it is up (the caller then opens
// it); a dialog fn leaves open is rejected so a failing check cannot hang.
template <typename T, typename F>
void whenShown(F fn) {
  auto* timer = new QTimer;
  QObject::connect(timer, &QTimer::timeout, [timer, fn] {
    auto* dlg = qobject_cast<T*>(QApplication::activeModalWidget());
    if (dlg == nullptr) return;
    timer->stop();
    timer->deleteLater();
    fn(dlg);
    if (dlg->isVisible()) dlg->reject();
  });
  timer->start(10);
}

// A drag on the canvas between two points of the drawing (user scale).
inline void dragOn(screens::SketchCanvas* c, double x1, double y1, double x2, double y2) {
  const QPoint a = c->toWidget(x1, y1).toPoint(), b = c->toWidget(x2, y2).toPoint();
  QTest::mousePress(c, Qt::LeftButton, Qt::NoModifier, a);
  QTest::mouseMove(c, (a + b) / 2);
  QTest::mouseMove(c, b);
  QTest::mouseRelease(c, Qt::LeftButton, Qt::NoModifier, b);
}

}  // namespace marloven::testing
