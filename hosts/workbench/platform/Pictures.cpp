#include "hosts/workbench/platform/Pictures.h"

#include <QFile>

// Q_INIT_RESOURCE declares a function, which it may not do inside a namespace.
static void InitResources() { Q_INIT_RESOURCE(workbench); }

namespace tessel::workbench {

void LoadResources() { InitResources(); }

QIcon Picture(int number) {
  const QString file = QStringLiteral(":/pictures/%1.svg").arg(number);
  return QFile::exists(file) ? QIcon(file) : QIcon();
}

}  // namespace tessel::workbench
