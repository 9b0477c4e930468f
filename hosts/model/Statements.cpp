#include "hosts/model/Statements.h"

#include <algorithm>
#include <iterator>

namespace tessel::model {
namespace {

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == 0xA0 || unit == 0x3000;
}
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsNameUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || IsDigit(unit) ||
         unit == u'_' || (unit >= 0x80 && !IsBlank(unit));
}

StringView TrimBlanks(StringView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// The word at the head of a statement, taken off together with the blanks behind it.
StringView TakeWord(StringView& statement) {
  std::size_t length = 0;
  while (length < statement.size() && IsNameUnit(statement[length])) ++length;
  const StringView word = statement.substr(0, length);
  statement = TrimBlanks(statement.substr(length));
  return word;
}

/// The name behind Sub, Function or Property Get; brackets round it are no part of it.
StringView NameAt(StringView statement) {
  if (!statement.empty() && statement.front() == u'[') {
    return statement.substr(1, statement.find(u']') - 1);
  }
  return TakeWord(statement);
}

bool Is(StringView word, StringView wanted) { return vb::SameText(word, wanted); }

bool PropertyKind(StringView word, host::vbext_ProcKind& kind) {
  if (Is(word, u"Get"))
    kind = host::vbext_pk_Get;
  else if (Is(word, u"Let"))
    kind = host::vbext_pk_Let;
  else if (Is(word, u"Set"))
    kind = host::vbext_pk_Set;
  else
    return false;
  return true;
}

bool IsModifier(StringView word) {
  return Is(word, u"Public") || Is(word, u"Private") || Is(word, u"Friend") ||
         Is(word, u"Static") || Is(word, u"Global");
}

/// Whether a statement is the head of a member.
bool ReadHead(StringView statement, LineFacts& facts) {
  StringView word = TakeWord(statement);
  while (IsModifier(word)) word = TakeWord(statement);
  facts.Kind = host::vbext_pk_Proc;
  if (Is(word, u"Property")) {
    if (!PropertyKind(TakeWord(statement), facts.Kind)) return false;
  } else if (!Is(word, u"Sub") && !Is(word, u"Function")) {
    return false;
  }
  // A field of a Type may bear a keyword's name: "Function As Long" is no head.
  if (Is(statement.substr(0, 2), u"As") &&
      !IsNameUnit(statement.size() > 2 ? statement[2] : u' ')) {
    return false;
  }
  facts.Name = String(NameAt(statement));
  return !facts.Name.empty();
}

bool IsEnd(StringView statement) {
  if (!Is(TakeWord(statement), u"End")) return false;
  const StringView word = TakeWord(statement);
  return Is(word, u"Sub") || Is(word, u"Function") || Is(word, u"Property");
}

/// Only these letters begin a head or an end; most statements are told by that.
bool MayMatter(char16_t first) {
  switch (first | 0x20) {
    case u'p':
    case u'f':
    case u's':
    case u'g':
    case u'e':
      return true;
    default:
      return false;
  }
}

/// Whether the first word is one that a head, an end or a remark begins with.
bool BeginsWithListed(StringView statement) {
  if (!MayMatter(statement.front()) && (statement.front() | 0x20) != u'r') return false;
  const StringView word = TakeWord(statement);
  constexpr StringView Words[] = {u"End",    u"Sub",    u"Rem",     u"Public",   u"Friend",
                                  u"Static", u"Global", u"Private", u"Function", u"Property"};
  return std::any_of(std::begin(Words), std::end(Words),
                     [&](StringView one) { return Is(word, one); });
}

void ReadStatement(StringView statement, LineFacts& facts) {
  statement = TrimBlanks(statement);
  if (statement.empty()) return;
  facts.Declares = true;
  if (!MayMatter(statement.front())) return;
  LineFacts head;
  if (!facts.Head && ReadHead(statement, head)) {
    facts.Head = true;
    facts.Name = std::move(head.Name);
    facts.Kind = head.Kind;
  } else if (IsEnd(statement)) {
    (facts.Head ? facts.End : facts.EndFirst) = true;
  }
}

bool IsRemark(StringView statement) {
  statement = TrimBlanks(statement);
  return Is(statement.substr(0, 3), u"Rem") && (statement.size() == 3 || !IsNameUnit(statement[3]));
}

/// Skips a line number.
StringView WithoutNumber(StringView line) {
  line = TrimBlanks(line);
  std::size_t digits = 0;
  while (digits < line.size() && IsDigit(line[digits])) ++digits;
  const bool number = digits > 0 && (digits == line.size() || IsBlank(line[digits]));
  return number ? line.substr(digits) : line;
}

}  // namespace

bool IsContinued(StringView line) {
  while (!line.empty() && IsBlank(line.back())) line.remove_suffix(1);
  return line.size() >= 2 && line.back() == u'_' && IsBlank(line[line.size() - 2]);
}

LineFacts ReadLine(StringView line) {
  LineFacts facts;
  const StringView text = TrimBlanks(WithoutNumber(line));
  if (text.empty() || text.front() == u'\'') return facts;
  // Most lines are one statement that matters to nobody.
  if (!BeginsWithListed(text) && vb::FindUnit(text, u':') == StringView::npos) {
    facts.Declares = true;
    return facts;
  }
  std::size_t start = 0, at = 0;
  for (; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit == u'"' || unit == u'[') {
      const std::size_t close = text.find(unit == u'"' ? u'"' : u']', at + 1);
      if (close == StringView::npos) {
        if (unit == u'"') at = text.size();
        continue;
      }
      at = close;
    } else if (unit == u'\'') {
      break;
    } else if (unit == u':' && text.substr(at, 2) != u":=") {
      if (IsRemark(text.substr(start, at - start))) return facts;
      ReadStatement(text.substr(start, at - start), facts);
      start = at + 1;
    }
  }
  const StringView last = text.substr(start, std::min(at, text.size()) - start);
  if (!IsRemark(last)) ReadStatement(last, facts);
  return facts;
}

}  // namespace tessel::model
