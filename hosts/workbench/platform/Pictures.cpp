#include "hosts/workbench/platform/Pictures.h"

#include <QFile>
#include <QHash>

// Q_INIT_RESOURCE declares a function, which it may not do inside a namespace.
static void InitResources() { Q_INIT_RESOURCE(workbench); }

namespace tessel::workbench {

void LoadResources() { InitResources(); }

QIcon Picture(int number) {
  // Reading a drawing takes a while, and a tree shows the same one many times. Pictures must not
  // outlive the application, so nothing takes the cache down behind it.
  static auto& known = *new QHash<int, QIcon>;
  const auto found = known.constFind(number);
  if (found != known.constEnd()) return *found;
  const QString file = QStringLiteral(":/pictures/%1.svg").arg(number);
  return *known.insert(number, QFile::exists(file) ? QIcon(file) : QIcon());
}

}  // namespace tessel::workbench
