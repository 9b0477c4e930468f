#include "vb/OneLine.h"

namespace tessel::vb {

String InOneLine(StringView text) {
  constexpr char16_t LastControl = 0x1F, NextLine = 0x85, LineBreak = 0x2028, Paragraph = 0x2029;
  String line = Replace(text, CrLf, u" ");
  for (char16_t& one : line) {
    if (one <= LastControl || one == NextLine || one == LineBreak || one == Paragraph) one = u' ';
  }
  return line;
}

}  // namespace tessel::vb
