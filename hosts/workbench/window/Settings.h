// What the workbench itself remembers between two starts.
#pragma once

#include <QPalette>
#include <QSettings>
#include <QStringList>

#include "hosts/workbench/window/CodeEditor.h"

namespace tessel::workbench {

/// How the window shall look; System follows the desktop.
enum class ColorScheme { System, Light, Dark };

/// The colours of a scheme.
[[nodiscard]] QPalette PaletteOf(ColorScheme scheme);

class Settings {
 public:
  /// Kept in one file, written as soon as something changes.
  explicit Settings(const QString& file);

  [[nodiscard]] EditorOptions Editor() const;
  void SetEditor(const EditorOptions& options);
  [[nodiscard]] ColorScheme Colors() const;
  void SetColors(ColorScheme scheme);

  /// Latest first, at most ten.
  [[nodiscard]] QStringList Recent() const;
  void AddRecent(const QString& file);
  void RemoveRecent(const QString& file);

  [[nodiscard]] QByteArray Geometry() const;
  [[nodiscard]] QByteArray Docks() const;
  void SetPlaces(const QByteArray& geometry, const QByteArray& docks);

 private:
  QSettings values_;
};

}  // namespace tessel::workbench
