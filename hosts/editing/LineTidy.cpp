#include "hosts/editing/LineTidy.h"

#include <algorithm>
#include <iterator>

#include "hosts/editing/Spacing.h"
#include "hosts/model/Words.h"

namespace tessel::editing {
namespace {

using model::FindWord;
using model::Word;
using model::WordKind;

std::size_t EndOf(const Token& token) { return token.At + token.Text.size(); }

/// Words that a statement has of its own, though they may be names elsewhere.
struct OwnWords {
  StringView Keyword, Words;
};
constexpr OwnWords Own[] = {
    {u"On", u" Error "},
    {u"Option", u" Base Binary Compare Explicit Module Text "},
    {u"Open", u" Access Append Binary Input Len Output Random Read Shared Write "},
    {u"Declare", u" Alias Lib "},
    {u"For", u" Step "},
};

bool IsOwnWord(StringView keyword, StringView word) {
  return std::any_of(std::begin(Own), std::end(Own), [&](const OwnWords& own) {
    return own.Keyword == keyword && own.Words.find(u" " + String(word) + u" ") != StringView::npos;
  });
}

/// Writes the words of a line.
class Writer {
 public:
  Writer(const Spacing& spacing, const NameCase& names) : spacing_(spacing), names_(names) {}

  [[nodiscard]] String Text(const Token& token, bool named) const {
    if (token.Kind == TokenKind::Number && token.Text.front() == u'&') {
      return vb::UCase(token.Text);
    }
    if (token.Kind != TokenKind::Word || spacing_.BehindBang()) return String(token.Text);
    if (token.Text.front() == u'#') return u"#" + Canonical(token.Text.substr(1));
    const StringView name = WithoutSign(token.Text);
    return Name(name, token.At, named) + String(token.Text.substr(name.size()));
  }

 private:
  static String Canonical(StringView name) {
    const Word word = FindWord(name);
    return String(word.Kind == WordKind::None ? name : word.Text);
  }

  [[nodiscard]] String Name(StringView name, std::size_t at, bool named) const {
    const bool member = spacing_.BehindDot() || named;
    const Word word = member ? Word{} : FindWord(name);
    if (word.Kind == WordKind::Reserved) return String(word.Text);
    // "On Error GoTo error", "For step = 1 To 3 Step 2"
    const bool isName = spacing_.Keyword() == u"On"    ? spacing_.Passed() > 1
                        : spacing_.Keyword() == u"For" ? spacing_.Passed() < 2
                                                       : false;
    if (!isName && IsOwnWord(spacing_.Keyword(), word.Text)) return String(word.Text);
    String known = names_ ? names_(name, member, at) : String();
    if (!known.empty()) return known;
    return String(word.Kind == WordKind::None ? name : word.Text);
  }

  const Spacing& spacing_;
  const NameCase& names_;
};

void AddGap(String& tidy, Gap gap, StringView now) {
  if (gap == Gap::Keep || (gap == Gap::AtLeastOne && !now.empty())) {
    tidy += now;
  } else if (gap != Gap::None) {
    tidy += u' ';
  }
}

/// The name ahead of := belongs to what is called.
bool IsNamed(const std::vector<Token>& tokens, std::size_t at) {
  return at + 1 < tokens.size() && tokens[at + 1].Kind == TokenKind::Assign;
}

/// A field of a type may bear the name of a keyword: "Type As Long".
bool IsField(const std::vector<Token>& tokens, std::size_t at, LineStart start) {
  return at == 0 && start == LineStart::Statement && tokens.size() > 1 && Is(tokens[1], u"As");
}

bool SameTokens(const CutLine& one, const CutLine& other) {
  return other.Whole && one.Next == other.Next &&
         std::equal(one.Tokens.begin(), one.Tokens.end(), other.Tokens.begin(), other.Tokens.end(),
                    [](const Token& a, const Token& b) {
                      return a.Kind == b.Kind && vb::SameText(a.Text, b.Text);
                    });
}

/// Goes over the lines of the statement ahead; false when one isn't understood.
bool PassAhead(Spacing& spacing, const std::vector<StringView>& ahead, LineStart& start) {
  for (const StringView line : ahead) {
    const CutLine cut = Cut(line, start);
    if (!cut.Whole) return false;
    spacing.BeginLine(start);
    for (const Token& token : cut.Tokens) spacing.Pass(token);
    start = cut.Next;
  }
  return true;
}

}  // namespace

String TidyLine(StringView line, const std::vector<StringView>& ahead, const NameCase& names) {
  Spacing spacing;
  LineStart start = LineStart::Statement;
  if (!PassAhead(spacing, ahead, start)) return String(line);
  const CutLine cut = Cut(line, start);
  if (!cut.Whole) return String(line);
  spacing.BeginLine(start);
  const Writer writer(spacing, names);
  String tidy;
  std::size_t end = 0;
  for (std::size_t at = 0; at < cut.Tokens.size(); ++at) {
    const Token& token = cut.Tokens[at];
    const StringView now = line.substr(end, token.At - end);
    AddGap(tidy, at == 0 ? Gap::Keep : spacing.Ahead(token, !now.empty()), now);
    tidy += IsField(cut.Tokens, at, start) ? String(token.Text)
                                           : writer.Text(token, IsNamed(cut.Tokens, at));
    spacing.Pass(token);
    end = EndOf(token);
  }
  tidy += line.substr(end);
  // Whatever the rules above let through, the line is the same to the language.
  return SameTokens(cut, Cut(tidy, start)) ? tidy : String(line);
}

}  // namespace tessel::editing
