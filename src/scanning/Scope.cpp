#include "scanning/Scope.h"

#include "foundation/Routine.h"

namespace tessel::scope {

String Text(StringView word, StringView name) { return String(word) + u" [" + String(name) + u"]"; }

bool Is(StringView scope, StringView word) {
  return vb::SameText(vb::Left(scope, word.size()), word);
}

StringView Target(StringView scope) {
  const std::size_t open = scope.find(u'[');
  if (open == StringView::npos || open + 2 > scope.size()) return {};
  return scope.substr(open + 1, scope.size() - open - 2);
}

void ShowLine(host::CodeModule& module, int line) {
  const auto pane = module.CodePane();
  Need(pane).SetTopLine(line);
  Need(pane).SetSelection({line, 1, line, 1});
}

}  // namespace tessel::scope
