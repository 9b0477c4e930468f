#include "hosts/batch/OpenCode.h"

#include <algorithm>
#include <initializer_list>

namespace tessel::batch {
namespace {

using editing::Is;
using editing::LineStart;
using editing::Token;
using editing::TokenKind;

bool IsAny(const Token& token, std::initializer_list<StringView> words) {
  return std::any_of(words.begin(), words.end(), [&](StringView word) { return Is(token, word); });
}

/// Whether a line may begin or end something, or go on: most lines need not be cut.
bool MayMatter(StringView line) {
  const std::size_t start = line.find_first_not_of(u" \t");
  if (start == StringView::npos) return false;
  constexpr StringView Initials = u"#0123456789EFGPSTefgpst";
  if (Initials.find(line[start]) != StringView::npos) return true;
  return line[line.find_last_not_of(u" \t")] == u'_' ||
         vb::FindUnit(line, u':') != StringView::npos;
}

class Reader {
 public:
  void Read(int number, StringView line) {
    if (start_ == LineStart::Statement && !MayMatter(line)) return;
    if (start_ == LineStart::Statement) begin_ = number;
    const editing::CutLine cut = editing::Cut(line, start_);
    for (const Token& token : cut.Tokens) {
      if (token.Kind == TokenKind::Colon) {
        Finish();
      } else if (token.Kind != TokenKind::Comment && token.Kind != TokenKind::Underline) {
        statement_.push_back(token);
      }
    }
    start_ = cut.Next;
    if (start_ != LineStart::Inside) Finish();
  }

  [[nodiscard]] CodeAhead Answer() const {
    if (start_ == LineStart::Inside) return {OpenCode{begin_, u"the statement has no end"}, false};
    CodeAhead ahead;
    ahead.GoesOn = start_ == LineStart::Remark;
    // The outermost is told.
    for (const auto& one : {block_, member_, Conditional()}) {
      if (one && (!ahead.Open || one->Line < ahead.Open->Line)) ahead.Open = Lacking(*one);
    }
    return ahead;
  }

 private:
  struct Begun {
    int Line;
    StringView Word;
  };

  static OpenCode Lacking(const Begun& begun) {
    const bool directive = begun.Word.front() == u'#';
    return {begun.Line, u"the " + String(begun.Word) + u" has no " +
                            (directive ? String(u"#End If") : u"End " + String(begun.Word))};
  }

  [[nodiscard]] std::optional<Begun> Conditional() const {
    if (conditionals_.empty()) return std::nullopt;
    return Begun{conditionals_.front(), u"#If"};
  }

  void Finish() {
    if (!statement_.empty()) ReadStatement();
    statement_.clear();
  }

  void ReadStatement() {
    std::size_t at = statement_.front().Kind == TokenKind::Number ? 1 : 0;
    const auto is = [&](std::initializer_list<StringView> words) {
      return at < statement_.size() && IsAny(statement_[at], words);
    };
    if (IsDirective(statement_, u"If")) return conditionals_.push_back(begin_);
    if (IsDirective(statement_, u"End")) {
      if (!conditionals_.empty()) conditionals_.pop_back();
      return;
    }
    if (is({u"End"})) {
      ++at;
      if (is({u"Type", u"Enum"})) block_.reset();
      if (is({u"Sub", u"Function", u"Property"})) member_.reset();
      return;
    }
    while (is({u"Public", u"Private", u"Friend", u"Static", u"Global"})) ++at;
    if (is({u"Property"})) {
      ++at;
      if (is({u"Get", u"Let", u"Set"}) && IsNamed(at + 1)) OpenMember(u"Property");
      return;
    }
    for (const StringView word : {StringView(u"Sub"), StringView(u"Function")}) {
      if (is({word}) && IsNamed(at + 1)) return OpenMember(word);
    }
    if (member_) return;
    for (const StringView word : {StringView(u"Type"), StringView(u"Enum")}) {
      if (is({word}) && IsNamed(at + 1)) block_ = Begun{begin_, word};
    }
  }

  /// A field of a Type may bear a keyword's name: "Type As Long" names nothing.
  [[nodiscard]] bool IsNamed(std::size_t at) const {
    if (at >= statement_.size() || Is(statement_[at], u"As")) return false;
    return statement_[at].Kind == TokenKind::Word || statement_[at].Kind == TokenKind::Bracketed;
  }

  void OpenMember(StringView word) {
    member_ = Begun{begin_, word};
    block_.reset();
  }

  std::vector<Token> statement_;
  LineStart start_ = LineStart::Statement;
  int begin_ = 0;  // line of the statement's first token
  std::optional<Begun> member_, block_;
  std::vector<int> conditionals_;  // lines of the #Ifs that are open
};

}  // namespace

CodeAhead ReadAhead(const model::LineBuffer& lines, int line) {
  Reader reader;
  for (int one = 1; one < line; ++one) reader.Read(one, lines.Line(one));
  return reader.Answer();
}

bool IsDirective(const std::vector<Token>& statement, StringView word) {
  if (statement.empty()) return false;
  const Token& first = statement.front();
  if (first.Kind == TokenKind::Hash) return statement.size() > 1 && Is(statement[1], word);
  return first.Kind == TokenKind::Word && first.Text.front() == u'#' &&
         vb::SameText(first.Text.substr(1), word);
}

}  // namespace tessel::batch
