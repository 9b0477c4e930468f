#include "insertion/BlankLines.h"

namespace tessel::blanklines {

StringView WithoutLineEnds(StringView text) {
  while (text.ends_with(vb::CrLf)) text.remove_suffix(vb::CrLf.size());
  return text;
}

bool IsBlank(host::CodeModule& module, int line) {
  return line >= 1 && line <= module.CountOfLines() &&
         module.Lines(line, 1).find_first_not_of(u" \t") == String::npos;
}

StringView FollowedByOne(StringView text, host::CodeModule& module, int line) {
  const StringView plain = WithoutLineEnds(text);
  if (plain.size() == text.size() || IsBlank(module, line)) return plain;
  return text.substr(0, plain.size() + vb::CrLf.size());
}

String PrecededByOne(String text, host::CodeModule& module, int line) {
  const bool code = line > 1 && !IsBlank(module, line - 1);
  if (code) text.insert(0, vb::CrLf);
  return text;
}

}  // namespace tessel::blanklines
