#include "hosts/workbench/forms/ButtonFace.h"

#include <QMenu>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

void ShowFace(QAbstractButton& button, const forms::CaptionedControl& control) {
  const QString caption = ToQt(control.Caption());
  if (control.Picture == 0) {
    button.setIcon({});
    button.setText(caption);
    return;
  }
  const QString name = QString(caption).remove(QLatin1Char('&'));
  button.setIcon(Picture(control.Picture));
  button.setText({});
  button.setAccessibleName(name);
  if (control.ToolTipText().empty()) button.setToolTip(name);
  // As wide as high; only a list below it needs room for its arrow.
  if (button.findChild<QMenu*>() == nullptr) button.setFixedWidth(button.sizeHint().height());
}

}  // namespace tessel::workbench
