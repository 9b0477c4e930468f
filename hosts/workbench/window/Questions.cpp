#include "hosts/workbench/window/Questions.h"

#include <QApplication>
#include <QPushButton>

#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {

QString Listed(const QStringList& lines) {
  constexpr int Most = 12;
  QStringList shown = lines.mid(0, Most);
  if (lines.size() > Most) shown.append(QObject::tr("... and %1 more").arg(lines.size() - Most));
  return shown.join(u'\n');
}

void Questions::ShowFailure(const QString& text) {
  QMessageBox(QMessageBox::Warning, QObject::tr("Tessel"), text, QMessageBox::Ok, &window_).exec();
}

bool Questions::Guard(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const vb::Failure& failure) {
    ShowFailure(ToQt(failure.Description()));
  } catch (const std::exception& failure) {
    ShowFailure(QString::fromUtf8(failure.what()));
  }
  return false;
}

QMessageBox::StandardButton Questions::Ask(const QString& text,
                                           QMessageBox::StandardButtons buttons,
                                           QMessageBox::StandardButton byDefault) {
  QMessageBox box(QMessageBox::Question, QObject::tr("Tessel"), text, buttons, &window_);
  box.setDefaultButton(byDefault);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

int Questions::Choose(const QString& text, const QStringList& captions, int byDefault) {
  QMessageBox box(QMessageBox::Question, QObject::tr("Tessel"), text, QMessageBox::NoButton,
                  &window_);
  QList<QPushButton*> buttons;
  for (const QString& caption : captions) {
    const bool last = buttons.size() + 1 == captions.size();
    buttons.append(box.addButton(caption, last              ? QMessageBox::RejectRole
                                          : buttons.empty() ? QMessageBox::AcceptRole
                                                            : QMessageBox::DestructiveRole));
  }
  box.setDefaultButton(buttons[byDefault]);
  box.setEscapeButton(buttons.last());
  box.exec();
  for (int at = 0; at + 1 < buttons.size(); ++at) {
    if (box.clickedButton() == buttons[at]) return at;
  }
  return -1;
}

bool Questions::IsBoxOpen() {
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr;
}

}  // namespace tessel::workbench
