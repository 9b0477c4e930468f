// Values of a property bag as a drawing needs them. None of these fails: a value that can't be read
// counts as missing.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include "hosts/model/DesignerTree.h"

namespace tessel::workbench {

/// Twips of one pixel at 96 dots an inch.
inline constexpr double TwipsPerPixel = 15;

/// Greatest distance from a container's corner that is drawn, twips.
inline constexpr double FarthestTwip = 1'000'000;

/// The number at the head of a plain value; 0 when there is none or it is beyond all bounds.
[[nodiscard]] double PlainNumber(StringView plain);

/// The number of a property; `fallback` when it is missing or none. Kept within ±1e9.
[[nodiscard]] double NumberOf(const model::DesignerNode& node, StringView property,
                              double fallback);

/// A text property without its quotes. Empty for one that stands in the binary companion file.
[[nodiscard]] QString TextOf(const model::DesignerNode& node, StringView property);

/// Whether a property has a value other than 0 and False; `fallback` when it is missing.
[[nodiscard]] bool FlagOf(const model::DesignerNode& node, StringView property, bool fallback);

/// Whether a raw value refers to the binary companion file: "Form1.frx":0000.
[[nodiscard]] bool IsBinaryReference(StringView raw);

/// A colour property: &H00BBGGRR& or one of the system's, &H800000nn&.
[[nodiscard]] QColor ColorOf(const model::DesignerNode& node, StringView property,
                             const QColor& fallback);

/// A colour by its number, as ColorOf.
[[nodiscard]] QColor ColorFromNumber(double number);

/// Number of a colour: 0x00BBGGRR.
[[nodiscard]] unsigned NumberOfColor(const QColor& color);

/// What a block's font says.
struct FontValue {
  QString Name;  ///< empty: no font given
  double Points = 8.25;
  bool Bold = false, Italic = false, Underline = false, Strikethrough = false;
};
[[nodiscard]] FontValue FontOf(const model::DesignerNode& node);

/// The font at a scale in pixels a twip.
[[nodiscard]] QFont DrawnFont(const FontValue& font, double scale);

}  // namespace tessel::workbench
