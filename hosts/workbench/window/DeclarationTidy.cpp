#include "hosts/workbench/window/DeclarationTidy.h"

#include <algorithm>
#include <array>
#include <vector>

#include "hosts/workbench/window/BasicWords.h"

namespace tessel::workbench {
namespace {

enum class Kind { Word, Number, Literal, Comma, Open, Close, Operator, Colon, Dot, Other };

struct Token {
  Kind Type;
  String Text;
  bool SpaceAhead = false;
};

bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit >= 0x80 ||
         unit == u'_';
}
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }

/// Signs that give a name its type, as in "Name$".
bool IsTypeSign(char16_t unit) { return StringView(u"$%&!#@").find(unit) != StringView::npos; }

std::size_t EndOfWord(StringView line, std::size_t at) {
  while (at < line.size() && (IsLetter(line[at]) || IsDigit(line[at]))) ++at;
  return at;
}

/// Cuts a line into tokens up to its comment.
class Cutter {
 public:
  explicit Cutter(StringView line) : line_(line) {}

  /// False for a text that never ends.
  bool Run() {
    while (at_ < line_.size()) {
      const std::size_t gap = at_;
      while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
      if (at_ == line_.size()) return true;
      if (line_[at_] == u'\'') {
        at_ = gap;  // the room ahead of a comment belongs to it
        return true;
      }
      const std::size_t before = Tokens.size();
      if (!Next()) return false;
      if (Tokens.size() > before) Tokens.back().SpaceAhead = at_ > gap && IsBlank(line_[gap]);
      if (IsRem()) return true;
    }
    return true;
  }

  std::vector<Token> Tokens;
  /// What stands behind the tokens.
  [[nodiscard]] StringView Rest() const { return line_.substr(at_); }

 private:
  void Take(Kind kind, std::size_t end) {
    Tokens.push_back({kind, String(line_.substr(at_, end - at_))});
    at_ = end;
  }

  bool TakeUpTo(char16_t close) {
    const std::size_t end = line_.find(close, at_ + 1);
    if (end == StringView::npos) return false;
    Take(Kind::Literal, end + 1);
    return true;
  }

  bool Next() {
    const char16_t unit = line_[at_];
    if (unit == u'"') return TakeUpTo(u'"');
    if (unit == u'[') return TakeUpTo(u']');
    if (IsLetter(unit)) {
      std::size_t end = EndOfWord(line_, at_);
      if (end < line_.size() && IsTypeSign(line_[end]) && unit != u'_') ++end;
      Take(Kind::Word, end);
      return true;
    }
    if (unit == u'#' && TakeUpTo(u'#')) return true;
    if (IsDigit(unit) || (unit == u'&' && at_ + 1 < line_.size() && IsLetter(line_[at_ + 1]))) {
      std::size_t end = EndOfWord(line_, at_ + 1);
      while (end < line_.size() && (line_[end] == u'.' || IsTypeSign(line_[end]))) {
        end = EndOfWord(line_, end + 1);
      }
      Take(Kind::Number, end);
      return true;
    }
    return TakeSign(unit);
  }

  bool TakeSign(char16_t unit) {
    static constexpr std::array Pairs{StringView(u"<="), StringView(u">="), StringView(u"<>"),
                                      StringView(u":=")};
    const StringView two = line_.substr(at_, 2);
    if (std::find(Pairs.begin(), Pairs.end(), two) != Pairs.end()) {
      Take(Kind::Operator, at_ + 2);
      return true;
    }
    Take(SignKind(unit), at_ + 1);
    return true;
  }

  static Kind SignKind(char16_t unit) {
    if (unit == u',' || unit == u';') return Kind::Comma;
    if (unit == u'(') return Kind::Open;
    if (unit == u')') return Kind::Close;
    if (unit == u':') return Kind::Colon;
    if (unit == u'.' || unit == u'!') return Kind::Dot;
    return StringView(u"=+-*/\\^&<>").find(unit) != StringView::npos ? Kind::Operator : Kind::Other;
  }

  [[nodiscard]] bool IsRem() const {
    return !Tokens.empty() && vb::SameText(Tokens.back().Text, u"Rem") &&
           (Tokens.size() == 1 || Tokens[Tokens.size() - 2].Type == Kind::Colon);
  }

  StringView line_;
  std::size_t at_ = 0;
};

/// Whether a sign between two operands is a sign of the second one, as in "= -1".
bool IsUnary(const std::vector<Token>& tokens, std::size_t at) {
  if (tokens[at].Text != u"-" && tokens[at].Text != u"+") return false;
  if (at == 0) return true;
  const Token& before = tokens[at - 1];
  return before.Type == Kind::Operator || before.Type == Kind::Comma || before.Type == Kind::Open ||
         (before.Type == Kind::Word && !CanonicalWord(before.Text).empty());
}

bool NeedsBlank(const std::vector<Token>& tokens, std::size_t at) {
  const Token& left = tokens[at - 1];
  const Token& right = tokens[at];
  if (right.Text == u"_") return true;  // the line goes on
  if (right.Type == Kind::Comma || right.Type == Kind::Close || right.Type == Kind::Colon) {
    return false;
  }
  if (left.Type == Kind::Open || left.Type == Kind::Dot || right.Type == Kind::Dot) return false;
  if (left.Type == Kind::Operator && at >= 2 && IsUnary(tokens, at - 1)) return false;
  if (right.Type == Kind::Open) {
    // An array's or a procedure's parentheses stand at its name.
    return left.Type == Kind::Operator || left.Type == Kind::Comma || left.Type == Kind::Colon ||
           (left.Type == Kind::Word && left.SpaceAhead && right.SpaceAhead &&
            !CanonicalWord(left.Text).empty());
  }
  return true;
}

template <std::size_t N>
bool OneOf(const std::array<StringView, N>& words, StringView word) {
  return std::any_of(words.begin(), words.end(),
                     [&](StringView one) { return vb::SameText(one, word); });
}

/// Whether the name of something new stands at a place; it keeps its own case.
bool IsNewName(const std::vector<Token>& tokens, std::size_t at) {
  static constexpr std::array Words{StringView(u"Sub"), StringView(u"Function"),
                                    StringView(u"Event"), StringView(u"Type"), StringView(u"Enum")};
  if (at == 0) return false;
  return OneOf(Words, tokens[at - 1].Text) ||
         (at >= 2 && vb::SameText(tokens[at - 2].Text, u"Property"));
}

String WordOf(const std::vector<Token>& tokens, std::size_t at) {
  const Token& token = tokens[at];
  if (token.Type != Kind::Word) return token.Text;
  if (IsNewName(tokens, at) || (at > 0 && tokens[at - 1].Type == Kind::Dot)) return token.Text;
  const StringView known = CanonicalWord(token.Text);
  return known.empty() ? token.Text : String(known);
}

constexpr std::array Modifiers{StringView(u"Public"), StringView(u"Private"), StringView(u"Friend"),
                               StringView(u"Static"), StringView(u"Global")};
constexpr std::array Starts{
    StringView(u"Dim"),       StringView(u"ReDim"),    StringView(u"Const"),
    StringView(u"Sub"),       StringView(u"Function"), StringView(u"Property"),
    StringView(u"Declare"),   StringView(u"Type"),     StringView(u"Enum"),
    StringView(u"Event"),     StringView(u"Option"),   StringView(u"Implements"),
    StringView(u"WithEvents")};

StringView FirstWord(StringView text) {
  const std::size_t start = std::min(text.find_first_not_of(u" \t"), text.size());
  return text.substr(start, EndOfWord(text, start) - start);
}

}  // namespace

bool IsDeclaration(StringView line) {
  const StringView word = FirstWord(line);
  if (word.empty()) return false;
  const auto behind = static_cast<std::size_t>(word.data() + word.size() - line.data());
  // "Type = 3" and "Property.Name" use the word as a name.
  const std::size_t next = line.find_first_not_of(u" \t", behind);
  if (next == StringView::npos || (!IsLetter(line[next]) && line[next] != u'[')) return false;
  return OneOf(Starts, word) || OneOf(Modifiers, word);
}

String TidyDeclaration(StringView line) {
  if (!IsDeclaration(line)) return String(line);
  const std::size_t margin = std::min(line.find_first_not_of(u" \t"), line.size());
  Cutter cutter(line.substr(margin));
  if (!cutter.Run()) return String(line);
  String tidy(line.substr(0, margin));
  for (std::size_t at = 0; at < cutter.Tokens.size(); ++at) {
    if (at > 0 && NeedsBlank(cutter.Tokens, at)) tidy += u' ';
    tidy += WordOf(cutter.Tokens, at);
  }
  const StringView rest = cutter.Rest();
  if (vb::Trim(rest).empty()) return tidy;
  return tidy += rest;
}

}  // namespace tessel::workbench
