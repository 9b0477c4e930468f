#include "hosts/workbench/window/Settings.h"

#include <QFileInfo>
#include <QFontDatabase>

namespace tessel::workbench {
namespace {

constexpr int MostRecent = 10;
const auto FontKey = QStringLiteral("editor/font"), TabKey = QStringLiteral("editor/tab-width"),
           NumbersKey = QStringLiteral("editor/line-numbers"),
           TidyKey = QStringLiteral("editor/tidy-lines"),
           ColorsKey = QStringLiteral("window/colors"), RecentKey = QStringLiteral("recent"),
           GeometryKey = QStringLiteral("window/geometry"),
           DocksKey = QStringLiteral("window/docks");

}  // namespace

QPalette PaletteOf(ColorScheme scheme) {
  if (scheme == ColorScheme::System) return {};  // what the desktop says, now and later
  if (scheme == ColorScheme::Light) return {QColor(0xf0f0f0), QColor(0xf0f0f0)};
  QPalette dark(QColor(0x3a3a3a), QColor(0x2b2b2b));
  dark.setColor(QPalette::Base, QColor(0x1e1e1e));
  dark.setColor(QPalette::AlternateBase, QColor(0x262626));
  dark.setColor(QPalette::ToolTipBase, QColor(0x3a3a3a));
  dark.setColor(QPalette::ToolTipText, QColor(0xe0e0e0));
  dark.setColor(QPalette::Highlight, QColor(0x264f78));
  dark.setColor(QPalette::Link, QColor(0x7ab4f0));
  return dark;
}

Settings::Settings(const QString& file) : values_(file, QSettings::IniFormat) {}

EditorOptions Settings::Editor() const {
  EditorOptions options;
  options.Font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const QString font = values_.value(FontKey).toString();
  if (!font.isEmpty()) options.Font.fromString(font);
  options.TabWidth = values_.value(TabKey, options.TabWidth).toInt();
  options.LineNumbers = values_.value(NumbersKey, options.LineNumbers).toBool();
  options.TidyLines = values_.value(TidyKey, options.TidyLines).toBool();
  return options;
}

void Settings::SetEditor(const EditorOptions& options) {
  values_.setValue(FontKey, options.Font.toString());
  values_.setValue(TabKey, options.TabWidth);
  values_.setValue(NumbersKey, options.LineNumbers);
  values_.setValue(TidyKey, options.TidyLines);
}

ColorScheme Settings::Colors() const {
  return static_cast<ColorScheme>(values_.value(ColorsKey, 0).toInt());
}

void Settings::SetColors(ColorScheme scheme) {
  values_.setValue(ColorsKey, static_cast<int>(scheme));
}

QStringList Settings::Recent() const { return values_.value(RecentKey).toStringList(); }

void Settings::AddRecent(const QString& file) {
  QStringList recent = Recent();
  const QString path = QFileInfo(file).absoluteFilePath();
  recent.removeAll(path);
  recent.prepend(path);
  while (recent.size() > MostRecent) recent.removeLast();
  values_.setValue(RecentKey, recent);
}

void Settings::RemoveRecent(const QString& file) {
  QStringList recent = Recent();
  recent.removeAll(file);
  values_.setValue(RecentKey, recent);
}

QByteArray Settings::Geometry() const { return values_.value(GeometryKey).toByteArray(); }

QByteArray Settings::Docks() const { return values_.value(DocksKey).toByteArray(); }

void Settings::SetPlaces(const QByteArray& geometry, const QByteArray& docks) {
  values_.setValue(GeometryKey, geometry);
  values_.setValue(DocksKey, docks);
}

}  // namespace tessel::workbench
