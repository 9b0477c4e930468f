// A reader of generated code with rules of its own: names are declared, property pairs agree, and
// lines keep the limits of the language.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::test {

/// Reads code that the builders make. Its statements are few: one on each line, texts without
/// apostrophes.
class CodeReader {
 public:
  explicit CodeReader(StringView code) {
    const auto lines = vb::SplitViews(code, vb::CrLf);
    Limits(lines);
    Module(lines);
    for (const StringView line : lines) Read(Words(line));
    for (const auto& [name, types] : properties_) {
      if (types.size() > 1) Report(u"the types of property " + name + u" differ");
    }
  }
  [[nodiscard]] const std::vector<std::string>& Faults() const { return faults_; }

 private:
  using List = std::vector<String>;

  void Report(const String& what) { faults_.push_back(vb::ToUtf8(what)); }

  void Limits(const std::vector<StringView>& lines) {
    int continued = 0;
    for (const StringView line : lines) {
      if (line.size() > 1023) Report(u"a line of " + vb::Str(line.size()) + u" characters");
      continued = line.ends_with(u" _") ? continued + 1 : 0;
      if (continued == 25) Report(u"a statement continued more than 24 times");
    }
  }

  /// Names and signs of a line, without comment; a text counts as one sign, and so does a name
  /// behind a point.
  static List Words(StringView line) {
    List words;
    String word;
    const auto flush = [&] {
      if (!word.empty()) words.push_back(word);
      word.clear();
    };
    for (std::size_t at = 0; at < line.size(); ++at) {
      const char16_t sign = line[at];
      if (sign == u'\'') break;
      if (sign == u'"') {
        flush();
        while (++at < line.size() && line[at] != u'"') {
        }
        words.emplace_back(u"\"");
      } else if (sign == u'_' || sign >= 128 ||
                 vb::UCase(StringView(&sign, 1)) != vb::LCase(StringView(&sign, 1)) ||
                 (sign >= u'0' && sign <= u'9') || (sign == u'.' && !word.empty())) {
        word += sign;
      } else {
        flush();
        if (sign != u' ') words.emplace_back(1, sign);
      }
    }
    flush();
    return words;
  }

  static bool Is(const List& words, std::size_t at, StringView word) {
    return at < words.size() && vb::SameText(words[at], word);
  }

  static bool IsModifier(const String& word) {
    static const std::set<String> modifiers{u"PUBLIC", u"PRIVATE", u"FRIEND", u"STATIC"};
    return modifiers.contains(vb::UCase(word));
  }

  /// Names that the module declares: variables, members, enums.
  void Module(const std::vector<StringView>& lines) {
    for (const StringView line : lines) {
      const List words = Words(line);
      std::size_t at = 0;
      while (at < words.size() && IsModifier(words[at])) ++at;
      if (Is(words, at, u"Property")) ++at;
      if (Is(words, at, u"Sub") || Is(words, at, u"Function") || Is(words, at, u"Get") ||
          Is(words, at, u"Let") || Is(words, at, u"Set") || Is(words, at, u"Enum")) {
        ++at;
      } else if (at == 0) {
        continue;
      }
      if (at < words.size()) module_.insert(vb::UCase(words[at]));
    }
  }

  void Read(const List& words) {
    std::size_t at = 0;
    while (at < words.size() && IsModifier(words[at])) ++at;
    if (Is(words, at, u"Enum")) {
      inEnum_ = true;
    } else if (Is(words, at, u"End") && words.size() == 2) {
      inEnum_ = false;
      if (!Is(words, 1, u"If")) local_.reset();
    } else if (Is(words, at, u"Property")) {
      Head(words, at + 2, words[at + 1]);
    } else if (Is(words, at, u"Sub") || Is(words, at, u"Function")) {
      Head(words, at + 1, {});
    } else if (local_ && Is(words, 0, u"Dim")) {
      local_->insert(vb::UCase(words.at(1)));
    } else if (local_) {
      Statement(words);
    }
  }

  /// The declaring line from the member's name on.
  void Head(const List& words, std::size_t at, const String& kind) {
    local_.emplace();
    const String name = words.at(at);
    String type;
    bool parameter = false;
    for (++at; at < words.size(); ++at) {
      if (Is(words, at, u"As")) {
        if (at + 1 < words.size()) type = words[at + 1];
        parameter = false;
      } else if (words[at] == u"(" || words[at] == u",") {
        parameter = true;
      } else if (parameter && !IsPassing(words[at]) && words[at] != u")") {
        local_->insert(vb::UCase(words[at]));
        parameter = false;
      }
    }
    if (!kind.empty()) properties_[name].insert(type);
  }
  static bool IsPassing(const String& word) {
    static const std::set<String> passing{u"OPTIONAL", u"BYREF", u"BYVAL", u"PARAMARRAY"};
    return passing.contains(vb::UCase(word));
  }

  void Statement(const List& words) {
    static const std::set<String> known{u"SET",   u"NEW",    u"COLLECTION", u"NOTHING", u"ON",
                                        u"ERROR", u"RESUME", u"NEXT",       u"GOTO",    u"IF",
                                        u"THEN",  u"NOT",    u"IS",         u"_NEWENUM"};
    for (const String& word : words) {
      const String name = vb::UCase(StringView(word).substr(0, word.find(u'.')));
      const char16_t first = name.front();
      const bool isName = first == u'_' || first >= 128 || (first >= u'A' && first <= u'Z');
      if (!isName || known.contains(name) || local_->contains(name) || module_.contains(name)) {
        continue;
      }
      Report(name + u" is not declared");
    }
  }

  std::set<String> module_;
  std::optional<std::set<String>> local_;
  std::map<String, std::set<String>> properties_;
  bool inEnum_ = false;
  std::vector<std::string> faults_;
};

inline std::vector<std::string> FaultsOfCode(StringView code) { return CodeReader(code).Faults(); }

}  // namespace tessel::test
