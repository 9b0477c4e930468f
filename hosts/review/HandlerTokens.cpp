#include "hosts/review/HandlerTokens.h"

#include <algorithm>
#include <utility>

#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "scanning/mFunctions.h"

namespace tessel::review {
namespace {

namespace handlers = mInsertErrorHandlerCode;
using Tokens = std::vector<Token>;

bool IsWord(const Tokens& tokens, std::size_t at, StringView word) {
  return at < tokens.size() && tokens[at].Kind == TokenKind::Word &&
         vb::SameText(tokens[at].Text, word);
}

bool IsNumber(const Token& token) {
  return token.Kind == TokenKind::Word && token.Text.front() >= u'0' && token.Text.front() <= u'9';
}

bool EndsStatement(const Token& token) {
  return token.Kind == TokenKind::Separator || token.Kind == TokenKind::EndOfSingleIf;
}

bool EndsMember(const Tokens& tokens, std::size_t at) {
  return IsWord(tokens, at, u"End") &&
         (IsWord(tokens, at + 1, u"Sub") || IsWord(tokens, at + 1, u"Function") ||
          IsWord(tokens, at + 1, u"Property"));
}

bool IsComment(const Token& token, StringView text) {
  return token.Kind == TokenKind::Comment && vb::SameText(vb::Trim(token.Text), text);
}

/// Behind the block that begins at `start`; `start` itself when it isn't closed in its member.
std::size_t BehindBlock(const Tokens& tokens, std::size_t start) {
  StringView end;
  if (IsComment(tokens[start], handlers::HeaderStart)) end = handlers::HeaderEnd;
  if (IsComment(tokens[start], handlers::FooterStart)) end = handlers::FooterEnd;
  if (end.empty()) return start;
  for (std::size_t at = start + 1; at < tokens.size() && !EndsMember(tokens, at); ++at) {
    if (IsComment(tokens[at], end)) return at + 1;
  }
  return start;
}

bool IsKeyComment(const Token& token) {
  return token.Kind == TokenKind::Comment &&
         vb::StartsWithText(token.Text, mFunctions::KeyCommentHead);
}

/// Whether the token behind `at` is the statement that a line number at `at` belongs to.
bool BearsNumber(const Tokens& tokens, std::size_t at) {
  return at + 1 < tokens.size() && tokens[at + 1].Line == tokens[at].Line &&
         !EndsStatement(tokens[at + 1]) && tokens[at + 1].Kind != TokenKind::Comment;
}

bool IsErrorTarget(const Tokens& all) {
  const std::size_t size = all.size();
  return size > 3 && IsWord(all, size - 4, u"On") && IsWord(all, size - 3, u"Error") &&
         IsWord(all, size - 2, u"GoTo");
}

}  // namespace

Tokens WithoutHandlers(const Tokens& tokens) {
  Tokens kept;
  kept.reserve(tokens.size());
  StringView number;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (const std::size_t behind = BehindBlock(tokens, at); behind != at) {
      at = behind - 1;
    } else if (tokens[at].Kind == TokenKind::LineNumber && BearsNumber(tokens, at)) {
      number = tokens[at].Text;
    } else if (!IsKeyComment(tokens[at])) {
      kept.push_back(tokens[at]);
      kept.back().Number = std::exchange(number, {});
      if (IsErrorTarget(kept)) kept.back().Text = u"0";
    }
  }
  return kept;
}

namespace {

/// Walks over members and notes what their handlers lack.
class HandlerWalk {
 public:
  explicit HandlerWalk(const Tokens& tokens) : tokens_(tokens) {}

  std::vector<MisplacedHandler> Run() {
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
      if (const std::size_t behind = BehindBlock(tokens_, at); behind != at) {
        Block(at, behind);
        at = behind - 1;
        continue;
      }
      Code(at);
    }
    EndMember();
    return std::move(found_);
  }

 private:
  void Code(std::size_t at) {
    const Token& token = tokens_[at];
    if (token.Kind == TokenKind::Label) labels_.insert(vb::UCase(token.Text));
    if (token.Kind == TokenKind::Comment || EndsStatement(token)) return;
    if (outside_) outside_ = false, name_ = {};
    if (name_.empty() && IsHead(at) && at + 1 < tokens_.size()) NameFrom(at + 1);
    if (EndsMember(tokens_, at)) ending_ = at + 1;
    if (ending_ == at && at > 0) EndMember();
  }

  /// Declarations of library routines and what End and Exit end hold the same words.
  [[nodiscard]] bool IsHead(std::size_t at) const {
    if (!IsWord(tokens_, at, u"Sub") && !IsWord(tokens_, at, u"Function") &&
        !IsWord(tokens_, at, u"Property")) {
      return false;
    }
    if (at == 0 || EndsStatement(tokens_[at - 1])) return true;
    return std::any_of(std::begin(Modifiers), std::end(Modifiers),
                       [&](StringView word) { return IsWord(tokens_, at - 1, word); });
  }

  void NameFrom(std::size_t at) {
    for (const StringView kind : {u"Get", u"Let", u"Set"}) {
      if (IsWord(tokens_, at, kind) && at + 1 < tokens_.size() &&
          tokens_[at + 1].Kind == TokenKind::Word && tokens_[at + 1].Text != u"(") {
        ++at;
        break;
      }
    }
    name_ = tokens_[at].Text;
  }

  void Block(std::size_t from, std::size_t to) {
    if (outside_) {
      if (IsComment(tokens_[from], handlers::HeaderStart)) {
        found_.push_back({tokens_[from].Line, {}, name_});
      }
      return;
    }
    for (std::size_t at = from; at < to; ++at) {
      const Token& token = tokens_[at];
      if (token.Kind == TokenKind::Label) labels_.insert(vb::UCase(token.Text));
      const bool target = at >= from + 3 && IsWord(tokens_, at - 1, u"GoTo") &&
                          IsWord(tokens_, at - 2, u"Error") && !IsNumber(token) &&
                          token.Kind == TokenKind::Word && token.Text != u"-";
      if (target) jumps_.push_back({tokens_[from].Line, String(token.Text), name_});
    }
  }

  void EndMember() {
    for (MisplacedHandler& jump : jumps_) {
      if (!labels_.contains(vb::UCase(jump.Label))) found_.push_back(std::move(jump));
    }
    jumps_.clear();
    labels_.clear();
    outside_ = true;
  }

  static constexpr StringView Modifiers[] = {u"Public", u"Private", u"Friend", u"Static"};

  const Tokens& tokens_;
  std::vector<MisplacedHandler> found_, jumps_;
  std::set<String> labels_;
  StringView name_;
  bool outside_ = false;    // behind the end of a member, and nothing has come since
  std::size_t ending_ = 0;  // the last word of an End statement
};

}  // namespace

std::vector<MisplacedHandler> MisplacedHandlers(const Tokens& tokens) {
  return HandlerWalk(tokens).Run();
}

bool HoldsHandlers(StringView code) {
  const Tokens tokens = ReadTokens(code, {});
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const bool numbered = tokens[at].Kind == TokenKind::LineNumber && BearsNumber(tokens, at);
    if (numbered || BehindBlock(tokens, at) != at) return true;
  }
  return false;
}

NumberReferences::NumberReferences(const Tokens& tokens) : tokens_(tokens) {
  members_.reserve(tokens.size());
  std::size_t start = 0;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    members_.push_back(member_);
    if (!EndsStatement(tokens[at]) && at + 1 < tokens.size()) continue;
    ReadStatement(start, at + 1);
    if (EndsMember(tokens, start)) ++member_, erlCases_ = 0;
    start = at + 1;
  }
}

void NumberReferences::Note(const Token& token) {
  if (IsNumber(token)) named_.emplace(member_, String(token.Text));
}

/// Numbers behind a jump, and all numbers of a statement that asks Erl or of a Case below one.
void NumberReferences::ReadStatement(std::size_t from, std::size_t to) {
  const auto begin = tokens_.begin() + static_cast<std::ptrdiff_t>(from);
  const auto end = tokens_.begin() + static_cast<std::ptrdiff_t>(to);
  const bool asks = std::any_of(begin, end, [](const Token& token) {
    return token.Kind == TokenKind::Word && vb::SameText(token.Text, u"Erl");
  });
  if (IsWord(tokens_, from, u"Select")) {
    if (erlCases_ > 0 || asks) ++erlCases_;
  } else if (IsWord(tokens_, from, u"End") && IsWord(tokens_, from + 1, u"Select")) {
    erlCases_ = std::max(0, erlCases_ - 1);
  }
  const bool all = asks || (erlCases_ > 0 && IsWord(tokens_, from, u"Case"));
  bool jump = false;
  for (std::size_t at = from; at < to; ++at) {
    if (all || jump) Note(tokens_[at]);
    jump = IsJump(tokens_[at]) || (jump && (IsNumber(tokens_[at]) || tokens_[at].Text == u"," ||
                                            tokens_[at].Kind == TokenKind::Word));
  }
}

bool NumberReferences::IsReferred(std::size_t index) const {
  const StringView number =
      tokens_[index].Kind == TokenKind::LineNumber ? tokens_[index].Text : tokens_[index].Number;
  return !number.empty() && named_.contains({members_[index], String(number)});
}

bool MayBearNoNumber(const Tokens& tokens, std::size_t index) {
  if (tokens[index].Text == u"#") return true;
  if (!IsWord(tokens, index, u"Case")) return false;
  std::size_t at = index;
  while (at > 0 && tokens[at - 1].Kind == TokenKind::Separator) --at;
  while (at > 0 && tokens[at - 1].Kind != TokenKind::Separator) --at;
  return IsWord(tokens, at, u"Select") && IsWord(tokens, at + 1, u"Case");
}

}  // namespace tessel::review
