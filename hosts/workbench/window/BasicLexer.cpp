#include "hosts/workbench/window/BasicLexer.h"

#include <array>

#include "hosts/model/Words.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

struct Style {
  const char* Description;
  QRgb Light, Dark;
};

/// By the lexer's style numbers.
constexpr std::array Styles{
    Style{"Default", 0x000000, 0xd4d4d4},  Style{"Comment", 0x007000, 0x6aad5a},
    Style{"Number", 0x000000, 0xb5cea8},   Style{"Keyword", 0x00007f, 0x7ab4f0},
    Style{"String", 0x7f0000, 0xd69d85},   Style{"Preprocessor", 0x00007f, 0xc586c0},
    Style{"Operator", 0x000000, 0xd4d4d4}, Style{"Identifier", 0x000000, 0xd4d4d4},
    Style{"Date", 0x7f0000, 0xd69d85},     Style{"Unclosed string", 0xa00000, 0xf48771}};
constexpr QRgb LightPaper = 0xffffff, DarkPaper = 0x1e1e1e;

bool Known(int style) { return style >= 0 && style < static_cast<int>(Styles.size()); }

}  // namespace

BasicLexer::BasicLexer(const QFont& font, bool dark, QObject* parent)
    : QsciLexer(parent), font_(font), dark_(dark) {
  for (const model::Word& word : model::Words()) {
    if (word.Kind != model::WordKind::Library)
      keywords_ += ToQt(word.Text).toLower().toUtf8() + ' ';
  }
  setDefaultFont(font);
  setDefaultColor(defaultColor(0));
  setDefaultPaper(defaultPaper(0));
}

QString BasicLexer::description(int style) const {
  return Known(style) ? QString::fromLatin1(Styles[static_cast<std::size_t>(style)].Description)
                      : QString();
}

const char* BasicLexer::keywords(int set) const {
  return set == 1 ? keywords_.constData() : nullptr;
}

QColor BasicLexer::defaultColor(int style) const {
  const Style& chosen = Styles[Known(style) ? static_cast<std::size_t>(style) : 0];
  return QColor::fromRgb(dark_ ? chosen.Dark : chosen.Light);
}

QColor BasicLexer::defaultPaper(int) const {
  return QColor::fromRgb(dark_ ? DarkPaper : LightPaper);
}

QFont BasicLexer::defaultFont(int) const { return font_; }

const char* BasicLexer::wordCharacters() const {
  return "_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
}

}  // namespace tessel::workbench
