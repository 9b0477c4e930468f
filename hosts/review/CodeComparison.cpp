#include "hosts/review/CodeComparison.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "hosts/review/CodeTokens.h"
#include "hosts/review/HandlerTokens.h"

namespace tessel::review {
namespace {

/// White space inside a comment counts as one blank, at its end as none.
String Folded(StringView comment) {
  String folded;
  for (std::size_t at = 0; at < comment.size(); ++at) {
    const char16_t unit = comment[at];
    if (unit == u'_' && at + 1 < comment.size() && IsLineEnd(comment[at + 1])) continue;
    const bool space = IsBlank(unit) || IsLineEnd(unit);
    if (!space) folded += unit;
    if (space && !folded.empty() && folded.back() != u' ') folded += u' ';
  }
  while (!folded.empty() && folded.back() == u' ') folded.pop_back();
  return folded;
}

bool Same(const Token& left, const Token& right) {
  if (left.Kind != right.Kind) return false;
  if (left.Kind == TokenKind::Comment) return Folded(left.Text) == Folded(right.Text);
  return left.Text == right.Text;
}

std::string Quote(const Token& token) {
  if (token.Kind == TokenKind::Comment) return "the comment " + vb::ToUtf8(Folded(token.Text));
  return '"' + vb::ToUtf8(token.Text) + '"';
}

/// Says what happened to the token that differs first.
std::string CauseOf(const Token& before, const std::optional<Token>& after) {
  switch (before.Kind) {
    case TokenKind::LineNumber:
      return "the line number " + vb::ToUtf8(before.Text) + " is lost";
    case TokenKind::Label:
      return "the label " + vb::ToUtf8(before.Text) + " is lost";
    case TokenKind::Comment:
      if (!after || after->Kind != TokenKind::Comment) return Quote(before) + " moves or is lost";
      return Quote(before) + " becomes " + Quote(*after);
    case TokenKind::Separator:
      return after && after->Kind == TokenKind::EndOfSingleIf
                 ? "statements behind Then leave the If of their line"
                 : "two statements become one";
    case TokenKind::EndOfSingleIf:
      return "the If of one line takes in more or fewer statements";
    default:
      break;
  }
  if (!after) return Quote(before) + " is lost";
  if (after->Kind == TokenKind::Label) {
    return "the word " + vb::ToUtf8(before.Text) + " ahead of a colon becomes a label";
  }
  if (after->Kind == TokenKind::Separator) return "a statement is broken ahead of " + Quote(before);
  return Quote(before) + " becomes " + Quote(*after);
}

/// A comment and the separators round it may change places: the comment behind a statement may go
/// to the next line. So comments are compared in a stream of their own.
struct Streams {
  std::vector<Token> Code, Comments;
};

/// Whether a separator behind the token separates anything.
bool TakesSeparator(const Token& token) {
  return token.Kind != TokenKind::Separator && token.Kind != TokenKind::Label &&
         token.Kind != TokenKind::EndOfSingleIf;
}

Streams Part(const std::vector<Token>& tokens) {
  Streams parted;
  for (const Token& token : tokens) {
    if (token.Kind == TokenKind::Comment) {
      parted.Comments.push_back(token);
    } else if (token.Kind != TokenKind::Separator ||
               (!parted.Code.empty() && TakesSeparator(parted.Code.back()))) {
      parted.Code.push_back(token);
    }
  }
  return parted;
}

/// How far ahead two streams are searched for the place where they meet again.
constexpr std::size_t Reach = 64;

/// The nearest pair of places behind (i, j) from which both streams agree for a few tokens.
bool MeetAgain(const std::vector<Token>& left, const std::vector<Token>& right, std::size_t& i,
               std::size_t& j) {
  constexpr std::size_t Run = 4;
  const auto agrees = [&](std::size_t a, std::size_t b) {
    for (std::size_t step = 0; step < Run; ++step) {
      if (a + step == left.size() && b + step == right.size()) return true;
      if (a + step >= left.size() || b + step >= right.size()) return false;
      if (!Same(left[a + step], right[b + step])) return false;
    }
    return true;
  };
  for (std::size_t sum = 1; sum <= 2 * Reach; ++sum) {
    for (std::size_t a = 0; a <= std::min(sum, Reach); ++a) {
      if (sum - a > Reach || !agrees(i + a, j + sum - a)) continue;
      i += a;
      j += sum - a;
      return true;
    }
  }
  return false;
}

/// Whether the token is a number at the head of a line that goes on with a statement.
bool IsContinuationNumber(const std::vector<Token>& tokens, std::size_t at) {
  const char16_t first = tokens[at].Text.empty() ? u' ' : tokens[at].Text.front();
  return at > 0 && tokens[at].Kind == TokenKind::Word && first >= u'0' && first <= u'9' &&
         tokens[at - 1].Kind != TokenKind::Separator && tokens[at - 1].Line < tokens[at].Line;
}

/// Two streams of tokens walked side by side.
class Comparison {
 public:
  Comparison(const std::vector<Token>& left, const std::vector<Token>& right, std::size_t most,
             std::vector<Difference>& found)
      : left_(left), right_(right), most_(most), found_(found) {}

  /// Looks at two tokens that are the same; may tell a difference all the same.
  std::function<void(std::size_t left, std::size_t right)> OnSame;

  void Run() {
    std::size_t i = 0, j = 0;
    while (found_.size() < most_) {
      for (; i < left_.size() && j < right_.size() && Same(left_[i], right_[j]); ++i, ++j) {
        if (OnSame) OnSame(i, j);
      }
      if (i == left_.size() && j == right_.size()) return;
      Tell(i, j, Cause(i, j));
      if (!MeetAgain(left_, right_, i, j)) return;
    }
  }

  /// Notes a difference at two places; each may lie behind its stream.
  void Tell(std::size_t i, std::size_t j, std::string cause) {
    if (found_.size() < most_)
      found_.push_back({LineAt(left_, i), LineAt(right_, j), std::move(cause)});
  }

 private:
  static int LineAt(const std::vector<Token>& tokens, std::size_t at) {
    if (tokens.empty()) return 1;
    return tokens[std::min(at, tokens.size() - 1)].Line;
  }

  [[nodiscard]] std::string Cause(std::size_t i, std::size_t j) const {
    const std::optional<Token> after = j < right_.size() ? std::optional(right_[j]) : std::nullopt;
    if (i >= left_.size()) return Quote(*after) + " is new";
    if (IsContinuationNumber(left_, i)) {
      return "a continuation line loses the number " + vb::ToUtf8(left_[i].Text) + " at its head";
    }
    return CauseOf(left_[i], after);
  }

  const std::vector<Token>& left_;
  const std::vector<Token>& right_;
  std::size_t most_;
  std::vector<Difference>& found_;
};

/// What a run over numbers did to the one that a token bears.
void TellNumber(Comparison& comparison, const NumberReferences& references, const Streams& left,
                const Streams& right, std::size_t i, std::size_t j) {
  const StringView before = left.Code[i].Number, after = right.Code[j].Number;
  if (references.IsReferred(i) && before != after) {
    comparison.Tell(i, j,
                    "the line number " + vb::ToUtf8(before) + ", which a jump or Erl refers to, " +
                        (after.empty() ? "is lost" : "becomes " + vb::ToUtf8(after)));
  }
  if (before.empty() && !after.empty() && MayBearNoNumber(right.Code, j)) {
    comparison.Tell(i, j,
                    "the number " + vb::ToUtf8(after) + " stands ahead of " +
                        (right.Code[j].Text == u"#" ? "a directive" : "the first Case"));
  }
}

/// Which line of the text before a line of the text behind the run comes from.
class LineMap {
 public:
  void Note(int before, int after) {
    if (lines_.empty() || lines_.back().first < after) lines_.emplace_back(after, before);
  }
  /// That of the nearest code above, 1 without any.
  [[nodiscard]] int Before(int after) const {
    const auto above = std::upper_bound(lines_.begin(), lines_.end(), std::pair(after, 0));
    return above == lines_.begin() ? 1 : std::prev(above)->second;
  }

 private:
  std::vector<std::pair<int, int>> lines_;
};

/// Tells of handlers that don't work where they stand, unless they stood so before.
void TellMisplaced(const std::vector<MisplacedHandler>& was,
                   const std::vector<MisplacedHandler>& is, const LineMap& lines, std::size_t most,
                   std::vector<Difference>& found) {
  for (const MisplacedHandler& one : is) {
    const bool old = std::any_of(was.begin(), was.end(), [&](const MisplacedHandler& other) {
      return other.Label == one.Label && other.Name == one.Name;
    });
    if (old || found.size() >= most) continue;
    const std::string name = vb::ToUtf8(one.Name);
    const bool outside = one.Label.empty();
    found.push_back({lines.Before(one.Line), one.Line,
                     outside ? name + " stands on one line, so its error handler stands behind it"
                             : "the error handler of " + name + " jumps to " +
                                   vb::ToUtf8(one.Label) + ", a label that isn't there",
                     outside});
  }
}

void SortByLine(std::vector<Difference>& found) {
  std::stable_sort(found.begin(), found.end(),
                   [](const Difference& a, const Difference& b) { return a.Line < b.Line; });
}

}  // namespace

std::vector<Difference> CompareCode(StringView before, StringView after, std::size_t most) {
  const std::set<String> targets = JumpTargets(before);
  const Streams left = Part(ReadTokens(before, targets));
  const Streams right = Part(ReadTokens(after, targets));
  std::vector<Difference> found;
  Comparison(left.Code, right.Code, most, found).Run();
  Comparison(left.Comments, right.Comments, most, found).Run();
  SortByLine(found);
  return found;
}

std::vector<Difference> CompareHandlers(StringView before, StringView after, std::size_t most) {
  const std::set<String> targets = JumpTargets(before);
  const std::vector<Token> was = ReadTokens(before, targets), is = ReadTokens(after, targets);
  const Streams left = Part(WithoutHandlers(was)), right = Part(WithoutHandlers(is));
  const NumberReferences references(left.Code);
  std::vector<Difference> found;
  Comparison code(left.Code, right.Code, most, found);
  LineMap lines;
  code.OnSame = [&](std::size_t i, std::size_t j) {
    TellNumber(code, references, left, right, i, j);
    lines.Note(left.Code[i].Line, right.Code[j].Line);
  };
  code.Run();
  Comparison(left.Comments, right.Comments, most, found).Run();
  TellMisplaced(MisplacedHandlers(was), MisplacedHandlers(is), lines, most, found);
  SortByLine(found);
  return found;
}

}  // namespace tessel::review
