#include "hosts/model/Declarations.h"

#include <algorithm>
#include <iterator>

#include "hosts/model/Statements.h"

namespace tessel::model {
namespace {

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == 0xA0; }

bool IsNameUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
         (unit >= u'0' && unit <= u'9') || unit == u'_' || (unit >= 0x80 && !IsBlank(unit));
}

/// Words that stand ahead of a declared name. One of the first list begins a declaration.
constexpr StringView Beginnings[] = {u"Public", u"Private", u"Friend", u"Global", u"Dim",
                                     u"Static", u"Const",   u"Event",  u"Declare"};
constexpr StringView BetweenWords[] = {u"Const",   u"Event",    u"WithEvents", u"Declare", u"Sub",
                                       u"PtrSafe", u"Function", u"Enum",       u"Type"};

template <class Words>
bool IsOneOf(StringView word, const Words& words) {
  return std::any_of(std::begin(words), std::end(words),
                     [&](StringView one) { return vb::SameText(word, one); });
}

/// Reads the declared names of one statement.
class NameReader {
 public:
  explicit NameReader(StringView statement) : rest_(statement) {}

  std::vector<String> Names() {
    std::vector<String> names;
    StringView word = Word();
    if (!IsOneOf(word, Beginnings)) return names;
    for (word = Word(); IsOneOf(word, BetweenWords) || IsOneOf(word, Beginnings); word = Word()) {
    }
    while (!word.empty()) {
      names.emplace_back(word);
      if (!SkipToComma()) break;
      word = Word();
      if (vb::SameText(word, u"WithEvents")) word = Word();
    }
    return names;
  }

 private:
  StringView Word() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
    const bool bracketed = !rest_.empty() && rest_.front() == u'[';
    if (bracketed) rest_.remove_prefix(1);
    std::size_t length = 0;
    while (length < rest_.size() &&
           (bracketed ? rest_[length] != u']' : IsNameUnit(rest_[length]))) {
      ++length;
    }
    const StringView word = rest_.substr(0, length);
    rest_.remove_prefix(std::min(rest_.size(), length + (bracketed ? 1 : 0)));
    return word;
  }

  bool SkipToComma() {
    int depth = 0;
    bool text = false;
    for (std::size_t at = 0; at < rest_.size(); ++at) {
      const char16_t unit = rest_[at];
      if (unit == u'"') text = !text;
      if (text) continue;
      if (unit == u'(') ++depth;
      if (unit == u')') --depth;
      if (unit == u'\'') return false;
      if (unit != u',' || depth > 0) continue;
      rest_.remove_prefix(at + 1);
      return true;
    }
    return false;
  }

  StringView rest_;
};

/// The statements of a logical line, ahead of its comment.
std::vector<StringView> StatementsOf(StringView line) {
  std::vector<StringView> statements;
  bool text = false;
  std::size_t start = 0, at = 0;
  for (; at < line.size(); ++at) {
    if (line[at] == u'"') text = !text;
    if (text) continue;
    if (line[at] == u'\'') break;
    if (line[at] != u':') continue;
    statements.push_back(line.substr(start, at - start));
    start = at + 1;
  }
  statements.push_back(line.substr(start, at - start));
  return statements;
}

String LogicalLine(const LineBuffer& lines, int line, int last) {
  String joined;
  for (; line < last; ++line) {
    const StringView physical = lines.Line(line);
    joined += physical.substr(0, physical.rfind(u'_'));
  }
  return joined += lines.Line(last);
}

}  // namespace

int StatementEnd(const LineBuffer& lines, int line) {
  while (line < lines.Count() && IsContinued(lines.Line(line))) ++line;
  return line;
}

int StatementStart(const LineBuffer& lines, int line) {
  while (line > 1 && IsContinued(lines.Line(line - 1))) --line;
  return line;
}

std::vector<Declaration> DeclarationsIn(const LineBuffer& lines, int first, int count,
                                        int lastDeclaring) {
  std::vector<Declaration> found;
  int line = first;
  if (line > 1 && IsContinued(lines.Line(line - 1))) line = StatementEnd(lines, line) + 1;
  while (line < first + count) {
    const int last = StatementEnd(lines, line);
    const String text = LogicalLine(lines, line, last);
    LineFacts facts = ReadLine(text);
    if (facts.Head) found.push_back({line, std::move(facts.Name), facts.Kind});
    if (!facts.Head && facts.Declares && line <= lastDeclaring) {
      for (const StringView statement : StatementsOf(text)) {
        for (String& name : NameReader(statement).Names()) {
          found.push_back({line, std::move(name), VariableKind});
        }
      }
    }
    line = last + 1;
  }
  return found;
}

}  // namespace tessel::model
