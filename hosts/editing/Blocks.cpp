#include "hosts/editing/Blocks.h"

#include <algorithm>

#include "hosts/editing/Names.h"
#include "hosts/editing/Tokens.h"
#include "hosts/model/Statements.h"

namespace tessel::editing {
namespace {

StringView MarginOf(StringView line) {
  return line.substr(0, std::min(line.find_first_not_of(u" \t"), line.size()));
}

/// Whether an End comes ahead of the next head. Branches of #If may hold a head each, with one End
/// behind them.
bool HasEnd(const model::LineBuffer& lines, int line) {
  for (; line <= lines.Count(); ++line) {
    const StringView text = lines.Line(line);
    if (vb::StartsWithText(text.substr(MarginOf(text).size()), u"#Else")) return true;
    const model::LineFacts facts = model::ReadLine(text);
    if (facts.EndFirst) return true;
    if (facts.Head) return false;
  }
  return false;
}

StringView MemberWord(const std::vector<StringView>& head) {
  LineStart start = LineStart::Statement;
  for (const StringView line : head) {
    const CutLine cut = Cut(line, start);
    for (const Token& token : cut.Tokens) {
      for (const StringView word :
           {StringView(u"Sub"), StringView(u"Function"), StringView(u"Property")}) {
        if (Is(token, word)) return word;
      }
    }
    start = cut.Next;
  }
  return {};
}

/// "Sub Foo" gets its parentheses behind the name.
String WithParentheses(StringView line) {
  const CutLine cut = Cut(line);
  const auto& tokens = cut.Tokens;
  const bool open = std::any_of(tokens.begin(), tokens.end(),
                                [](const Token& one) { return one.Kind == TokenKind::Open; });
  if (open || !cut.Whole || cut.Next != LineStart::Statement) return String(line);
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    const bool plain = Is(tokens[at], u"Sub") || Is(tokens[at], u"Function");
    const bool property = at > 0 && Is(tokens[at - 1], u"Property");
    if (!plain && !property) continue;
    const Token& name = tokens[at + 1];
    String head(line);
    head.insert(name.At + name.Text.size(), u"()");
    return head;
  }
  return String(line);
}

}  // namespace

std::optional<MissingEnd> FindMissingEnd(const model::LineBuffer& lines, int line) {
  if (line < 1 || line > lines.Count()) return std::nullopt;
  const StringView last = lines.Line(line);
  auto head = LinesAhead(lines, line);
  head.push_back(last);
  String whole;
  for (const StringView one : head) {
    if (!whole.empty()) whole.pop_back();  // the underline
    whole += one;
    while (!whole.empty() && IsBlank(whole.back())) whole.pop_back();
  }
  const model::LineFacts facts = model::ReadLine(whole);
  if (!facts.Head || facts.End || model::IsContinued(last)) return std::nullopt;
  if (HasEnd(lines, line + 1)) return std::nullopt;
  return MissingEnd{head.size() == 1 ? WithParentheses(last) : String(last),
                    String(MarginOf(head.front())) + u"End " + String(MemberWord(head))};
}

std::vector<String> Commented(const std::vector<StringView>& lines) {
  std::vector<String> commented;
  for (const StringView line : lines) commented.push_back(u"'" + String(line));
  return commented;
}

std::vector<String> Uncommented(const std::vector<StringView>& lines) {
  std::vector<String> plain;
  for (const StringView line : lines) {
    const std::size_t margin = MarginOf(line).size();
    String one(line);
    if (margin < line.size() && line[margin] == u'\'') one.erase(margin, 1);
    plain.push_back(std::move(one));
  }
  return plain;
}

}  // namespace tessel::editing
