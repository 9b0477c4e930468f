// Code as the error-handler tools see it: what is theirs, and which line numbers matter.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "hosts/review/CodeTokens.h"

namespace tessel::review {

/// The tokens without header and footer blocks and key comments; the target of `On Error GoTo`
/// reads "0". A line number with a statement behind it on its line becomes that token's `Number`. A
/// block that its member doesn't close is code.
[[nodiscard]] std::vector<Token> WithoutHandlers(const std::vector<Token>& tokens);

/// Whether some member bears a handler: a header or footer block, or a statement with
/// a line number.
[[nodiscard]] bool HoldsHandlers(StringView code);

/// A handler that doesn't do its work where it stands.
struct MisplacedHandler {
  int Line;         ///< of its block, from 1
  String Label;     ///< that it jumps to and its member hasn't; empty when it is in no member
  StringView Name;  ///< of the member ahead of it, into the code
};
/// Blocks whose jump has no label in their member, and blocks behind the end of a member.
[[nodiscard]] std::vector<MisplacedHandler> MisplacedHandlers(const std::vector<Token>& tokens);

/// The line numbers that the code itself refers to, member by member.
class NumberReferences {
 public:
  explicit NumberReferences(const std::vector<Token>& tokens);
  /// Whether the token at an index bears a number that its member refers to.
  [[nodiscard]] bool IsReferred(std::size_t index) const;

 private:
  void ReadStatement(std::size_t from, std::size_t to);
  void Note(const Token& token);

  const std::vector<Token>& tokens_;
  std::vector<int> members_;  // ordinal of the member that holds each token
  std::set<std::pair<int, String>> named_;
  int member_ = 0, erlCases_ = 0;
};

/// Whether the token at `index`, which bears a number, must not have one: the first Case of a
/// Select Case, or a directive of the compiler.
[[nodiscard]] bool MayBearNoNumber(const std::vector<Token>& tokens, std::size_t index);

}  // namespace tessel::review
