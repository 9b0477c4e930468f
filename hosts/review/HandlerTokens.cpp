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
