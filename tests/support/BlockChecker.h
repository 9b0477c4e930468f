// Whether code hangs together: its own reading of the language, so that tools can be checked by it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::test {

/// Reads a module and keeps what is wrong with it: blocks that don't close or close another, labels
/// and line numbers that stand twice in a member or that a jump misses, a numbered first Case.
class BlockChecker {
 public:
  explicit BlockChecker(StringView code) {
    for (const String& line : LogicalLines(code)) {
      ++line_;
      Line(line);
    }
    if (!open_.empty()) Report(u"still open at the end: " + open_.back());
    if (inMember_) Leave();
  }
  [[nodiscard]] const std::vector<std::string>& Errors() const { return errors_; }

 private:
  using Words = std::vector<String>;

  static std::vector<String> LogicalLines(StringView code) {
    std::vector<String> lines;
    bool joins = false;
    for (const String& line : vb::Split(code, vb::CrLf)) {
      const bool continued = line.size() > 1 && line.ends_with(u" _");
      const String text = continued ? line.substr(0, line.size() - 1) : line;
      if (joins) {
        lines.back() += text;
      } else {
        lines.push_back(text);
      }
      joins = continued;
    }
    return lines;
  }

  void Report(const String& what) {
    errors_.push_back("logical line " + std::to_string(line_) + ": " + vb::ToUtf8(what));
  }

  /// The words of the line's statements, in capitals; texts count as one word, comments as none.
  static std::vector<Words> Statements(StringView line) {
    std::vector<Words> statements(1);
    String word;
    const auto flush = [&] {
      if (!word.empty()) statements.back().push_back(vb::UCase(word));
      word.clear();
    };
    for (std::size_t at = 0; at < line.size(); ++at) {
      const char16_t sign = line[at];
      if (sign == u'"') {
        flush();
        for (++at; at < line.size() && line[at] != u'"';) ++at;
        statements.back().push_back(u"\"\"");
      } else if (sign == u'\'') {
        break;
      } else if (sign == u':') {
        flush();
        if (statements.back().size() == 1 && statements.size() == 1) {
          statements.back().push_back(u":");
        }
        statements.emplace_back();
      } else if (sign == u' ' || sign == u'\t' || sign == u'(' || sign == u',') {
        flush();
        if (IsRemark(statements.back())) break;
      } else {
        word += sign;
      }
    }
    flush();
    return statements;
  }

  static bool IsRemark(const Words& words) {
    return !words.empty() && words.back() == u"REM" &&
           (words.size() == 1 || (words.size() == 2 && IsNumber(words[0])));
  }

  static bool IsNumber(const String& word) {
    return !word.empty() && word.find_first_not_of(u"0123456789") == String::npos;
  }

  void Line(StringView line) {
    auto statements = Statements(line);
    Words& first = statements.front();
    numbered_ = !first.empty() && IsNumber(first.front());
    if (numbered_) {
      Number(first.front());
      first.erase(first.begin());
    } else if (first.size() == 2 && first[1] == u":" && !IsStatement(first[0])) {
      Label(first[0]);
      first.clear();
    }
    if (!first.empty() && first.back() == u":") first.pop_back();
    inSingleIf_ = false;
    for (const Words& words : statements) {
      if (!words.empty() && words[0] != u"REM") Statement(words);
    }
  }

  static bool IsStatement(const String& word) {
    static const std::set<String> alone{u"ELSE", u"DO", u"LOOP", u"NEXT", u"WEND", u"BEEP", u"END"};
    return alone.contains(word);
  }

  void Number(const String& number) {
    if (!labels_.insert(number).second) Report(u"the line number " + number + u" stands twice");
  }
  void Label(const String& label) {
    if (!labels_.insert(label).second) Report(u"the label " + label + u" stands twice");
  }

  void Statement(const Words& words) {
    Jumps(words);
    if (inSingleIf_) return;
    if (CheckCase(words)) return;
    if (Member(words) || Closes(words)) return;
    Opens(words);
  }

  void Jumps(const Words& words) {
    for (std::size_t at = 0; at + 1 < words.size(); ++at) {
      const bool jump = words[at] == u"GOTO" || words[at] == u"GOSUB" || words[at] == u"RESUME";
      if (jump && words[at + 1] != u"NEXT" && words[at + 1] != u"0") jumps_.insert(words[at + 1]);
    }
  }

  bool CheckCase(const Words& words) {
    if (words[0] != u"CASE") {
      firstCase_ = false;
      return false;
    }
    if (firstCase_ && numbered_) Report(u"the first Case has a number");
    if (open_.empty() || open_.back() != u"SELECT") Report(u"a Case outside of Select");
    firstCase_ = false;
    return true;
  }

  bool Member(const Words& words) {
    static const std::set<String> modifiers{u"PUBLIC", u"PRIVATE", u"FRIEND", u"STATIC"},
        kinds{u"SUB", u"FUNCTION", u"PROPERTY"};
    std::size_t at = 0;
    while (at < words.size() && modifiers.contains(words[at])) ++at;
    if (at < words.size() && kinds.contains(words[at])) {
      if (!open_.empty()) Report(u"a member begins inside " + open_.back());
      open_ = {words[at]};
      inMember_ = true;
      return true;
    }
    if (words[0] != u"END" || words.size() < 2 || !kinds.contains(words[1])) return false;
    Close(words[1]);
    Leave();
    return true;
  }

  void Leave() {
    for (const String& jump : jumps_) {
      if (!labels_.contains(jump)) Report(u"no label " + jump);
    }
    labels_.clear();
    jumps_.clear();
    inMember_ = false;
  }

  void Close(const String& word) {
    if (open_.empty() || open_.back() != word) {
      Report(u"the end of " + word + u" inside " + (open_.empty() ? u"nothing" : open_.back()));
    }
    if (!open_.empty()) open_.pop_back();
  }

  bool Closes(const Words& words) {
    static const std::set<String> blocks{u"IF", u"WITH", u"SELECT"};
    if (words[0] == u"END" && words.size() > 1 && blocks.contains(words[1])) {
      Close(words[1]);
    } else if (words[0] == u"NEXT") {
      Close(u"FOR");
    } else if (words[0] == u"LOOP") {
      Close(u"DO");
    } else if (words[0] == u"WEND") {
      Close(u"WHILE");
    } else {
      return false;
    }
    return true;
  }

  void Opens(const Words& words) {
    static const std::set<String> blocks{u"FOR", u"DO", u"WHILE", u"WITH", u"SELECT"};
    if (words[0] == u"IF") {
      if (words.back() == u"THEN") {
        open_.push_back(u"IF");
      } else {
        inSingleIf_ = true;
      }
    } else if (words[0] == u"ELSEIF" || words[0] == u"ELSE") {
      if (open_.empty() || open_.back() != u"IF") Report(words[0] + u" outside of If");
    } else if (blocks.contains(words[0])) {
      open_.push_back(words[0]);
      firstCase_ = words[0] == u"SELECT";
    }
  }

  std::vector<std::string> errors_;
  std::vector<String> open_;
  std::set<String> labels_, jumps_;
  int line_ = 0;
  bool numbered_ = false, inSingleIf_ = false, inMember_ = false, firstCase_ = false;
};

}  // namespace tessel::test
