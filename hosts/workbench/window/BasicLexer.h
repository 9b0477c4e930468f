// Colours of the language in a code window.
#pragma once

#include <Qsci/qscilexer.h>

#include <QByteArray>

namespace tessel::workbench {

/// The editor's own lexer for the language, in colours for a light or a dark palette.
class BasicLexer : public QsciLexer {
 public:
  BasicLexer(const QFont& font, bool dark, QObject* parent);
  [[nodiscard]] const char* language() const override { return "Basic"; }
  [[nodiscard]] const char* lexer() const override { return "vb"; }
  [[nodiscard]] QString description(int style) const override;
  [[nodiscard]] const char* keywords(int set) const override;
  [[nodiscard]] QColor defaultColor(int style) const override;
  [[nodiscard]] QColor defaultPaper(int style) const override;
  [[nodiscard]] QFont defaultFont(int style) const override;
  [[nodiscard]] const char* wordCharacters() const override;

 private:
  QFont font_;
  bool dark_;
  QByteArray keywords_;
};

}  // namespace tessel::workbench
