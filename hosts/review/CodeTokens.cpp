#include "hosts/review/CodeTokens.h"

#include <algorithm>

namespace tessel::review {

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == 0xA0 || unit == 0x3000;
}

bool IsLineEnd(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
         (unit >= 0x80 && unit != 0xA0 && unit != 0x3000);
}

/// Walks over code and cuts it into tokens.
class Reader {
 public:
  Reader(StringView code, const std::set<String>& jumpTargets)
      : code_(code), jumpTargets_(jumpTargets) {}

  std::vector<Token> Read() {
    while (at_ < code_.size()) Step();
    EndLine();
    return std::move(tokens_);
  }

 private:
  [[nodiscard]] char16_t Peek(std::size_t ahead = 0) const {
    return at_ + ahead < code_.size() ? code_[at_ + ahead] : u'\0';
  }

  void Step() {
    const char16_t unit = Peek();
    if (IsLineEnd(unit)) {
      EndLine();
      SkipLineEnd();
    } else if (IsBlank(unit)) {
      if (!SkipContinuation()) ++at_;
    } else if (unit == u'\'') {
      Comment();
    } else if (unit == u'"') {
      Quoted();
    } else if (unit == u'[') {
      Bracketed();
    } else if (unit == u':' && Peek(1) != u'=') {
      ++at_;
      Separate();
    } else if (unit == u'#' && DateLength() > 0) {
      Add(TokenKind::Word, DateLength());
    } else if (IsDigit(unit)) {
      Number();
    } else if (IsLetter(unit)) {
      Word();
    } else {
      Add(TokenKind::Word, OperatorLength());
    }
  }

  void Add(TokenKind kind, std::size_t length) {
    const StringView text = code_.substr(at_, length);
    if (kind == TokenKind::Word) NoteWord(text);
    tokens_.push_back({kind, text, line_});
    at_ += length;
    atLineStart_ = false;
  }

  /// Follows `If ... Then` on one line: something behind Then makes it a single-line If.
  void NoteWord(StringView word) {
    if (sawThen_) singleIf_ = true;
    if (statementStart_) inIf_ = vb::SameText(word, u"If");
    if (inIf_ && vb::SameText(word, u"Then")) sawThen_ = true;
    statementStart_ = false;
  }

  void SkipLineEnd() {
    if (Peek() == u'\r' && Peek(1) == u'\n') ++at_;
    ++at_;
    ++line_;
  }

  /// Blanks, an underscore and a line end: the statement goes on.
  bool SkipContinuation() {
    std::size_t ahead = 0;
    while (IsBlank(Peek(ahead))) ++ahead;
    if (Peek(ahead) != u'_') return false;
    ++ahead;
    while (IsBlank(Peek(ahead))) ++ahead;
    if (!IsLineEnd(Peek(ahead))) return false;
    at_ += ahead;
    SkipLineEnd();
    return true;
  }

  /// To the end of the line, over continuations.
  void Comment() {
    const std::size_t start = at_;
    const int line = line_;
    while (at_ < code_.size() && !IsLineEnd(Peek())) {
      if (!(IsBlank(Peek()) && SkipContinuation())) ++at_;
    }
    tokens_.push_back({TokenKind::Comment, code_.substr(start, at_ - start), line});
    atLineStart_ = false;
  }

  void Quoted() {
    std::size_t end = at_ + 1;
    while (end < code_.size() && !IsLineEnd(code_[end])) {
      if (code_[end] == u'"') {
        if (end + 1 >= code_.size() || code_[end + 1] != u'"') break;
        ++end;
      }
      ++end;
    }
    const bool closed = end < code_.size() && code_[end] == u'"';
    NoteWord(u"\"");
    Add(TokenKind::Text, end - at_ + (closed ? 1 : 0));
  }

  void Bracketed() {
    std::size_t end = at_;
    while (end < code_.size() && code_[end] != u']' && !IsLineEnd(code_[end])) ++end;
    const bool closed = end < code_.size() && code_[end] == u']';
    Add(TokenKind::Word, closed ? end - at_ + 1 : 1);
  }

  /// Length of a date literal (#...# on one line: numbers, separators, month names, AM and PM), 0
  /// when it is none.
  [[nodiscard]] std::size_t DateLength() const {
    if (statementStart_ || !(IsDigit(Peek(1)) || IsLetter(Peek(1)))) return 0;
    std::size_t ahead = 1;
    while (at_ + ahead < code_.size() && Peek(ahead) != u'#') {
      const char16_t unit = Peek(ahead);
      if (IsLetter(unit)) {
        const std::size_t length = LettersAt(ahead);
        if (!IsDateWord(code_.substr(at_ + ahead, length))) return 0;
        ahead += length;
      } else if (IsDigit(unit) || StringView(u" /-:,.").find(unit) != StringView::npos) {
        ++ahead;
      } else {
        return 0;
      }
    }
    return at_ + ahead < code_.size() ? ahead + 1 : 0;
  }

  [[nodiscard]] std::size_t LettersAt(std::size_t ahead) const {
    std::size_t length = 0;
    while (IsLetter(Peek(ahead + length))) ++length;
    return length;
  }

  static bool IsDateWord(StringView word) {
    constexpr StringView Words[] = {u"AM",  u"PM",  u"A",   u"P",   u"Jan", u"Feb", u"Mar", u"Apr",
                                    u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    return std::any_of(std::begin(Words), std::end(Words), [&](StringView one) {
      return vb::SameText(word, one) || (one.size() == 3 && vb::StartsWithText(word, one));
    });
  }

  [[nodiscard]] std::size_t WordLength() const {
    std::size_t length = 0;
    while (IsLetter(Peek(length)) || IsDigit(Peek(length))) ++length;
    return length;
  }

  void Number() {
    std::size_t length = WordLength();
    if (Peek(length) == u'.' && IsDigit(Peek(length + 1))) {
      ++length;
      while (IsLetter(Peek(length)) || IsDigit(Peek(length))) ++length;
    }
    const char16_t before = at_ + length > 0 ? Peek(length - 1) : u'\0';
    const bool exponent = before == u'E' || before == u'e' || before == u'D' || before == u'd';
    if (exponent && (Peek(length) == u'+' || Peek(length) == u'-') && IsDigit(Peek(length + 1))) {
      ++length;
      while (IsDigit(Peek(length))) ++length;
    }
    if (!atLineStart_) {
      Add(TokenKind::Word, length);
      return;
    }
    tokens_.push_back({TokenKind::LineNumber, code_.substr(at_, length), line_});
    at_ += length;
    atLineStart_ = false;
  }

  void Word() {
    const std::size_t length = WordLength();
    const StringView word = code_.substr(at_, length);
    if (statementStart_ && vb::SameText(word, u"Rem") &&
        (at_ + length >= code_.size() || IsBlank(Peek(length)) || IsLineEnd(Peek(length)))) {
      Comment();
      return;
    }
    if (atLineStart_ && IsLabel(word)) {
      tokens_.push_back({TokenKind::Label, word, line_});
      at_ += length;
      while (Peek() != u':') ++at_;
      ++at_;
      atLineStart_ = false;
      return;
    }
    Add(TokenKind::Word, length);
  }

  /// A word and a colon that either stand alone on the line or are the target of some jump.
  [[nodiscard]] bool IsLabel(StringView word) const {
    std::size_t ahead = word.size();
    while (IsBlank(Peek(ahead))) ++ahead;
    if (Peek(ahead) != u':' || Peek(ahead + 1) == u'=') return false;
    ++ahead;
    while (IsBlank(Peek(ahead))) ++ahead;
    const char16_t next = Peek(ahead);
    const bool alone = at_ + ahead >= code_.size() || IsLineEnd(next) || next == u'\'';
    return alone ? !vb::SameText(word, u"Else") : jumpTargets_.count(vb::UCase(word)) > 0;
  }

  [[nodiscard]] std::size_t OperatorLength() const {
    static constexpr StringView Two[]{u":=", u"<=", u">=", u"<>", u"=<", u"=>", u"><"};
    for (const StringView one : Two) {
      if (code_.substr(at_, 2) == one) return 2;
    }
    return 1;
  }

  void Separate() {
    if (!tokens_.empty() && tokens_.back().Kind != TokenKind::Separator &&
        tokens_.back().Kind != TokenKind::Label &&
        tokens_.back().Kind != TokenKind::EndOfSingleIf) {
      tokens_.push_back({TokenKind::Separator, {}, line_});
    }
    statementStart_ = true;
    atLineStart_ = false;
  }

  void EndLine() {
    if (singleIf_) tokens_.push_back({TokenKind::EndOfSingleIf, {}, line_});
    // A comment stands for itself, so that it may move to a line of its own.
    Separate();
    atLineStart_ = true;
    inIf_ = sawThen_ = singleIf_ = false;
  }

  StringView code_;
  const std::set<String>& jumpTargets_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int line_ = 1;
  bool atLineStart_ = true, statementStart_ = true;
  bool inIf_ = false, sawThen_ = false, singleIf_ = false;
};

}  // namespace

bool IsJump(const Token& token) {
  if (token.Kind != TokenKind::Word) return false;
  for (const StringView jump : {u"GoTo", u"GoSub", u"Resume"}) {
    if (vb::SameText(token.Text, jump)) return true;
  }
  return false;
}

std::vector<Token> ReadTokens(StringView code, const std::set<String>& jumpTargets) {
  return Reader(code, jumpTargets).Read();
}

std::set<String> JumpTargets(StringView code) {
  std::set<String> targets;
  bool jump = false;
  for (const Token& token : ReadTokens(code, {})) {
    // "On x GoTo a, b" names several.
    const bool named = jump && token.Kind == TokenKind::Word &&
                       (IsLetter(token.Text.front()) || token.Text == u",");
    if (named) {
      targets.insert(vb::UCase(token.Text));
      continue;
    }
    jump = IsJump(token);
  }
  return targets;
}

}  // namespace tessel::review
