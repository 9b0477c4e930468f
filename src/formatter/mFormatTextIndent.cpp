// The indentation engine: looks at the first word and the first two words of each statement.

#include <algorithm>
#include <array>
#include <unordered_map>

#include "formatter/mFormatText.h"
#include "formatter/mOptionsVBA.h"
#include "foundation/Routine.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel::mFormatText {
namespace {

/// What a statement word does to the two levels.
enum class Action { Member, EndMember, Open, If, Middle, Close, OpenSelect, CloseSelect };

using ActionTable = std::unordered_map<StringView, Action>;

const ActionTable& FirstWords() {
  static const ActionTable table{
      {u"FUNCTION", Action::Member}, {u"SUB", Action::Member},  {u"PROPERTY", Action::Member},
      {u"WITH", Action::Open},       {u"FOR", Action::Open},    {u"DO", Action::Open},
      {u"IF", Action::If},           {u"ELSE", Action::Middle}, {u"ELSEIF", Action::Middle},
      {u"CASE", Action::Middle},     {u"NEXT", Action::Close},  {u"LOOP", Action::Close}};
  return table;
}

const ActionTable& WordPairs() {
  static const ActionTable table{
      {u"END FUNCTION", Action::EndMember},  {u"END SUB", Action::EndMember},
      {u"END PROPERTY", Action::EndMember},  {u"END IF", Action::Close},
      {u"END WITH", Action::Close},          {u"END SELECT", Action::CloseSelect},
      {u"SELECT CASE", Action::OpenSelect},  {u"PRIVATE FUNCTION", Action::Member},
      {u"PUBLIC FUNCTION", Action::Member},  {u"FRIEND FUNCTION", Action::Member},
      {u"STATIC FUNCTION", Action::Member},  {u"PRIVATE SUB", Action::Member},
      {u"PUBLIC SUB", Action::Member},       {u"FRIEND SUB", Action::Member},
      {u"STATIC SUB", Action::Member},       {u"PRIVATE STATIC", Action::Member},
      {u"PUBLIC STATIC", Action::Member},    {u"FRIEND STATIC", Action::Member},
      {u"PRIVATE PROPERTY", Action::Member}, {u"PUBLIC PROPERTY", Action::Member},
      {u"FRIEND PROPERTY", Action::Member},  {u"STATIC PROPERTY", Action::Member}};
  return table;
}

/// No entry of either table is longer.
constexpr std::size_t LongestKey = 16;

constexpr std::array<StringView, 52> LabelKeywords{
    u"AND",      u"ARRAY",    u"BOOLEAN", u"BYTE",     u"CASE",   u"CALL",   u"CHARACTERS",
    u"CURRENCY", u"DATE",     u"DECIMAL", u"DIM",      u"DO",     u"DOUBLE", u"ELSE",
    u"ELSEIF",   u"END",      u"EQV",     u"EXIT",     u"FALSE",  u"FRIEND", u"FUNCTION",
    u"FOR",      u"GOTO",     u"IF",      u"INTEGER",  u"IS",     u"IN",     u"IMP",
    u"LONG",     u"LOOP",     u"MOD",     u"NEXT",     u"NOT",    u"NULL",   u"OBJECT",
    u"OR",       u"PRESERVE", u"PRIVATE", u"PROPERTY", u"PUBLIC", u"REDIM",  u"SELECT",
    u"SINGLE",   u"STATIC",   u"STOP",    u"STRING",   u"SUB",    u"TRUE",   u"TYPE",
    u"VARIANT",  u"WITH",     u"XOR"};

struct Levels {
  std::int32_t& Current;
  std::int32_t& Next;
};

StringView FirstWord(StringView line) { return line.substr(0, line.find(u' ')); }

/// Up to the second blank, as the blanks stand.
StringView FirstTwoWords(StringView line) {
  const std::size_t first = line.find(u' ');
  return first == StringView::npos ? line : line.substr(0, line.find(u' ', first + 1));
}

/// Takes a line number or a label off the head of a statement and trims what is left.
StringView TakePrefix(StringView& line) {
  if (line.empty() || line.front() == u' ' || line.front() == u'#') {
    line = vb::Trim(line);
    return {};
  }
  const StringView word = FirstWord(line);
  const bool prefix = vb::IsNumeric(word) || vb::Right(word, 1) == u":";
  if (!prefix) return {};
  line = vb::Trim(line.substr(word.size()));
  return word;
}

void OpenBlock(Levels levels, std::int32_t by) {
  levels.Current = levels.Next;
  levels.Next += by;
}

void CloseBlock(Levels levels, std::int32_t by) {
  levels.Next -= by;
  levels.Current = levels.Next;
}

/// What one statement does to the levels and its blank lines.
class StatementRules {
 public:
  StatementRules(FormatRun& format, Levels levels, StringView line)
      : format_(format), levels_(levels), line_(line) {
    Apply(FirstWords(), FirstWord(line));
    Apply(WordPairs(), FirstTwoWords(line));
  }
  std::int32_t Before = 0, After = 0;  ///< blank lines; those of the pair hold

 private:
  /// Looks a word up in one table and does what stands there, when a rule is in force for it.
  void Apply(const ActionTable& table, StringView word) {
    if (word.size() > LongestKey) return;
    const String key = vb::UCase(word);
    const auto found = table.find(key);
    if (found == table.end()) return;
    if (ReturnBeforeAfter(format_, key, Before, After)) Act(found->second);
    if (found->second == Action::EndMember) format_.MarkerFound = false;
  }

  void Act(Action action) {
    const std::int32_t selectLevels = format_.IndentCase ? 2 : 1;
    switch (action) {
      case Action::Member:
        return StartMember();
      case Action::EndMember:
        levels_.Current = levels_.Next = 0;
        return;
      case Action::Open:
        return OpenBlock(levels_, 1);
      case Action::If:
        return OpenBlock(levels_, vb::SameText(vb::Right(line_, 5), u" THEN") ? 1 : 0);
      case Action::Middle:
        levels_.Current = levels_.Next - 1;
        return;
      case Action::Close:
        return CloseBlock(levels_, 1);
      case Action::OpenSelect:
        return OpenBlock(levels_, selectLevels);
      case Action::CloseSelect:
        return CloseBlock(levels_, selectLevels);
    }
  }

  /// A member with a key comment has its blank lines ahead of the comment.
  void StartMember() {
    levels_.Current = 0;
    levels_.Next = format_.IndentEntire ? 1 : 0;
    if (!format_.MarkerFound) return;
    format_.MarkerBlankLines = Before;
    Before = 0;
  }

  FormatRun& format_;
  Levels levels_;
  StringView line_;
};

std::size_t IndentWidth(const FormatRun& format, std::int32_t level, int tabWidth) {
  const std::int32_t width = (format.UseTabCharacters ? level * tabWidth : 0) +
                             (format.UseSpaceCharacters ? level * format.SpacesPerLevel : 0);
  return static_cast<std::size_t>(std::max(0, width));
}

/// The indent with a line number or label at column 1 in its place.
String IndentWith(StringView prefix, std::size_t width) {
  if (prefix.empty()) return String(width, u' ');
  String indent(prefix);
  const std::size_t gap = width > prefix.size() ? width - prefix.size() : 1;
  return indent.append(gap, u' ');
}

/// Appends one statement without a closing line end.
void AppendStatement(FormatRun& format, String& out, StringView& line, Levels levels,
                     int tabWidth) {
  const StringView prefix = TakePrefix(line);
  const StatementRules rules(format, levels, line);
  if (line.empty()) return;
  if (levels.Current < 1) levels.Current = 0;
  out += vb::Repeat(rules.Before, u'\r');
  const String indent = IndentWith(prefix, IndentWidth(format, levels.Current, tabWidth));
  if (!format.EnableCodeLines || format.CompactWrapped) {
    out += indent;
    out += line;
  } else {
    out += RunLineWrapping(format, indent, line);
  }
  out += vb::Repeat(rules.After, u'\r');
}

int TabWidth() {
  const int width = mOptionsVBA::GetVBEEditorTabWidth();
  return width < 1 ? 4 : width;
}

/// One call of the engine.
class Formatting {
 public:
  Formatting(FormatRun& format, std::vector<StringView> lines)
      : format_(format), lines_(std::move(lines)) {}

  String Run(std::size_t expected) {
    out_.reserve(expected);
    for (std::size_t at = 0; at < lines_.size(); ++at) Line(at);
    return std::move(out_);
  }

 private:
  void Line(std::size_t at) {
    const std::size_t commentAt = ProcessingCommentarary(lines_[at]);
    if (commentAt > 0) KeyComment(at, commentAt);
    const StringView line = lines_[at];
    const StringView comment = commentAt > 0 ? line.substr(commentAt - 1) : StringView();
    const StringView code = commentAt > 0 ? line.substr(0, commentAt - 1) : line;
    if (code.find(u':') == StringView::npos) {
      const StringView statement = vb::Trim(code);
      statement.empty() ? CommentLine(comment) : OneStatement(statement, comment);
      return;
    }
    Pieces pieces = ProcessingColon(code);
    if (auto* list = std::get_if<std::vector<String>>(&pieces)) {
      SeveralStatements(*list, comment);
    } else {
      CommentLine(comment);
    }
  }

  /// A key comment has the blank lines of the member below it written ahead of itself.
  void KeyComment(std::size_t at, std::size_t commentAt) {
    const StringView comment = lines_[at].substr(commentAt - 1);
    if (!vb::StartsWithText(comment, mFunctions::KeyCommentHead)) return;
    format_.MarkerFound = true;
    if (at + 1 < lines_.size()) {
      String thrownAway;
      AppendStatement(format_, thrownAway, lines_[at + 1],
                      {format_.LookAheadCurrent, format_.LookAheadNext}, tabWidth_);
    }
    out_ += vb::Repeat(format_.MarkerBlankLines, u'\r');
  }

  void CommentLine(StringView comment) {
    if (!comment.empty()) {
      out_.append(IndentWidth(format_, current_, tabWidth_), u' ');
      out_ += comment;
    }
    out_ += vb::CrLf;
  }

  void OneStatement(StringView statement, StringView comment) {
    Statement(statement);
    if (!comment.empty()) {
      out_ += u' ';
      out_ += comment;
    }
    out_ += vb::CrLf;
  }

  /// A comment behind several statements stands straight behind the last one.
  void SeveralStatements(std::vector<String>& items, StringView comment) {
    bool isLabel = CheckTextLabel(items.front());
    for (std::size_t at = 0; at < items.size(); ++at) {
      if (at > 0) out_ += vb::CrLf;
      if (isLabel) {
        out_ += items[at];
        out_ += u':';
        isLabel = false;
      } else {
        Statement(items[at]);
      }
    }
    out_ += comment;
    out_ += vb::CrLf;
  }

  void Statement(StringView statement) {
    AppendStatement(format_, out_, statement, {current_, next_}, tabWidth_);
    current_ = next_;
  }

  FormatRun& format_;
  std::vector<StringView> lines_;
  String out_;
  std::int32_t current_ = 0, next_ = 0;
  int tabWidth_ = TabWidth();
};

/// The lines without their margins, and without the empty ones.
std::vector<StringView> FilledLines(StringView text) {
  std::vector<StringView> lines;
  while (!text.empty()) {
    const std::size_t end = text.find(vb::CrLf);
    const StringView line = vb::Trim(text.substr(0, end));
    if (!line.empty()) lines.push_back(line);
    if (end == StringView::npos) break;
    text.remove_prefix(end + vb::CrLf.size());
  }
  return lines;
}

}  // namespace

bool CheckTextLabel(String& text) {
  text = String(vb::Trim(text));
  if (text.find(u' ') != String::npos || text.find(u'.') != String::npos) return false;
  const String upper = vb::UCase(text);
  return std::find(LabelKeywords.begin(), LabelKeywords.end(), upper) == LabelKeywords.end();
}

String CheckTextInKey(FormatRun& format, String& line, std::int32_t& currentLevel,
                      std::int32_t& nextLevel) {
  StringView rest = line;
  String out;
  AppendStatement(format, out, rest, {currentLevel, nextLevel}, TabWidth());
  line = String(rest);
  return out;
}

String FormatTextComponent(FormatRun& format, StringView text) {
  String result;
  Routine(u"mFormatText.FormatTextComponent", [&] {
    const String joined = mFunctions::DeleteUnderline(text);
    std::vector<StringView> lines = FilledLines(joined);
    result = lines.empty()
                 ? joined
                 : Formatting(format, std::move(lines)).Run(joined.size() + joined.size() / 4);
  });
  return result;
}

}  // namespace tessel::mFormatText
