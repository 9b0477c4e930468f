#include "snippets/TabStops.h"

#include <algorithm>
#include <map>
#include <set>

namespace tessel {
namespace {

/// Deeper than any editor nests; a body that goes on stays as it is there.
constexpr int Deepest = 50;

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsNameUnit(char16_t unit) {
  return IsDigit(unit) || unit == u'_' || (unit >= u'a' && unit <= u'z') ||
         (unit >= u'A' && unit <= u'Z');
}

class Reader {
 public:
  Reader(StringView body, std::map<String, String>& words) : in_(body), words_(words) {}

  String Read() {
    String out;
    while (at_ < in_.size()) out += ReadUntil(u"");
    return out;
  }

 private:
  [[nodiscard]] bool At(char16_t unit) const { return at_ < in_.size() && in_[at_] == unit; }

  /// Text up to one of `ends`, which stays.
  String ReadUntil(StringView ends) {
    String out;
    while (at_ < in_.size() && ends.find(in_[at_]) == StringView::npos) {
      const char16_t unit = in_[at_];
      if (unit == u'\\' && at_ + 1 < in_.size() &&
          StringView(u"$}\\,|").find(in_[at_ + 1]) != StringView::npos) {
        out += in_[at_ + 1];
        at_ += 2;
      } else if (unit == u'$' && depth_ < Deepest) {
        out += ReadStop();
      } else {
        out += unit;
        ++at_;
      }
    }
    return out;
  }

  String ReadStop() {
    const std::size_t start = at_++;
    const bool braced = At(u'{');
    if (braced) ++at_;
    const String name = ReadName();
    if (name.empty() || (braced && (broken_ || failed_.contains(start)))) {
      at_ = start + 1;
      return u"$";
    }
    if (!braced) return WordOf(name);
    ++depth_;
    String word = ReadRest(name);
    --depth_;
    if (!At(u'}')) {
      // Where the text ended, nothing closes any more, so no later stop is tried in vain. One that
      // is read again as a part of another is tried once.
      broken_ = broken_ || at_ >= in_.size();
      failed_.insert(start);
      at_ = start + 1;
      return u"$";
    }
    ++at_;
    return word;
  }

  String ReadName() {
    const std::size_t start = at_;
    const bool number = at_ < in_.size() && IsDigit(in_[at_]);
    while (at_ < in_.size() && (number ? IsDigit(in_[at_]) : IsNameUnit(in_[at_]))) ++at_;
    return String(in_.substr(start, at_ - start));
  }

  /// What stands between a stop's name and its closing brace.
  String ReadRest(const String& name) {
    if (At(u':')) {
      ++at_;
      String word = ReadUntil(u"}");
      words_.emplace(name, word);
      return word;
    }
    if (At(u'|')) {
      ++at_;
      String word = ReadUntil(u",|");
      while (At(u',')) {
        ++at_;
        ReadUntil(u",|");
      }
      if (At(u'|')) ++at_;
      words_.emplace(name, word);
      return word;
    }
    // A transformation changes what the user types; here nobody types.
    if (At(u'/')) SkipTransformation();
    return WordOf(name);
  }

  void SkipTransformation() {
    for (int open = 0; at_ < in_.size(); ++at_) {
      if (in_[at_] == u'\\') ++at_;
      if (At(u'{')) ++open;
      if (At(u'}') && open-- == 0) break;
    }
    at_ = std::min(at_, in_.size());
  }

  [[nodiscard]] String WordOf(const String& name) const {
    if (name == u"0") return {};
    if (const auto known = words_.find(name); known != words_.end()) return known->second;
    return IsDigit(name.front()) ? u"Value" + name : name;
  }

  StringView in_;
  std::map<String, String>& words_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool broken_ = false;
  std::set<std::size_t> failed_;
};

}  // namespace

String WithoutTabStops(StringView body) {
  std::map<String, String> words;
  // A stop may occur ahead of the place that names it, so the names are gathered first.
  static_cast<void>(Reader(body, words).Read());
  return Reader(body, words).Read();
}

}  // namespace tessel
