#include "hosts/batch/DeclarationPlace.h"

#include "hosts/editing/Tokens.h"

namespace tessel::batch {

int LineForDeclarations(model::CodeModule& code) {
  const int last = code.Index().CountOfDeclarationLines();
  std::vector<int> open;  // the lines of the "#If"s without an end so far
  editing::LineStart start = editing::LineStart::Statement;
  for (int line = 1; line <= last; ++line) {
    const bool begins = start == editing::LineStart::Statement;
    const editing::CutLine cut = editing::Cut(code.Buffer().Line(line), start);
    start = cut.Next;
    if (!begins || cut.Tokens.empty()) continue;
    if (editing::Is(cut.Tokens.front(), u"#If")) open.push_back(line);
    if (editing::Is(cut.Tokens.front(), u"#End") && !open.empty()) open.pop_back();
  }
  return open.empty() ? last + 1 : open.front();
}

}  // namespace tessel::batch
