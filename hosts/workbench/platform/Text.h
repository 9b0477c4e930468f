// Texts between the tools and Qt: both count 16-bit units.
#pragma once

#include <QString>

#include "vb/Text.h"

namespace tessel::workbench {

[[nodiscard]] inline QString ToQt(StringView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline String FromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace tessel::workbench
