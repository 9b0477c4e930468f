#include "hosts/batch/DeclarationPlace.h"

#include "hosts/batch/OpenCode.h"

namespace tessel::batch {

int LineForDeclarations(model::CodeModule& code) {
  const int last = code.Index().CountOfDeclarationLines();
  std::vector<int> open;  // where the "#If"s without an end so far begin, with their comments
  int comments = 0;       // first line of the comments right ahead; those on top are the module's
  editing::LineStart start = editing::LineStart::Statement;
  for (int line = 1; line <= last; ++line) {
    const bool begins = start == editing::LineStart::Statement;
    const editing::CutLine cut = editing::Cut(code.Buffer().Line(line), start);
    start = cut.Next;
    if (!begins) continue;
    if (!cut.Tokens.empty() && cut.Tokens.front().Kind == editing::TokenKind::Comment) {
      if (comments == 0) comments = line;
      continue;
    }
    const int block = comments > 1 ? comments : line;
    comments = 0;
    if (cut.Tokens.empty()) continue;
    if (IsDirective(cut.Tokens, u"If")) open.push_back(block);
    if (IsDirective(cut.Tokens, u"End") && !open.empty()) open.pop_back();
  }
  return open.empty() ? last + 1 : open.front();
}

}  // namespace tessel::batch
