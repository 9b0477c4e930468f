// Times of keys in an editor, each from its event until its picture is painted.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <functional>
#include <vector>

namespace tessel::bench {

/// Notes when a widget was painted first.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget& widget) { widget.installEventFilter(this); }

  bool eventFilter(QObject*, QEvent* event) override {
    Seen |= event->type() == QEvent::Paint;
    return false;
  }
  void Wait() const {
    while (!Seen) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  bool Seen = false;
};

inline double Milliseconds(const std::function<void()>& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

inline double Percentile99(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() * 99 / 100];
}

/// Types lines of a statement, without a pause; behind each key `settle` runs, within its time.
inline std::vector<double> TypingTimes(
    QsciScintilla& editor, int keys, const std::function<void()>& settle = [] {}) {
  std::vector<double> times;
  static const QString Text = QStringLiteral("Result = Value + 1 ' note\n");
  for (int key = 0; key < keys; ++key) {
    const QChar sign = Text[key % Text.size()];
    FirstPaint painted(*editor.viewport());
    times.push_back(Milliseconds([&] {
      if (sign == u'\n') {
        QTest::keyClick(&editor, Qt::Key_Return);
      } else {
        QTest::keyClick(&editor, sign.toLatin1());
      }
      painted.Wait();
      settle();
    }));
  }
  return times;
}

}  // namespace tessel::bench
