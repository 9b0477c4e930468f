#include "store/Statements.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessel::store {
namespace {

enum class Kind { Word, Text, Blank, Sign };

struct Piece {
  Kind Type;
  String Text;
};

bool IsWordUnit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
         (unit >= u'A' && unit <= u'Z') || unit == u'_' || unit == u'@' || unit >= 0x80;
}

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

/// Text in quotes as the engine writes it: single quotes, doubled inside.
String Quoted(StringView content) { return u"'" + vb::Replace(content, u"'", u"''") + u"'"; }

/// Cuts a statement into words, texts, blanks and signs.
class Cutter {
 public:
  explicit Cutter(StringView statement) : in_(statement) {}

  std::vector<Piece> Cut() {
    while (at_ < in_.size()) Step();
    return std::move(pieces_);
  }

 private:
  void Step() {
    const char16_t unit = in_[at_];
    if (unit == u'"' || unit == u'\'') {
      Text(unit);
    } else if (unit == u'[') {
      Name();
    } else if (IsBlank(unit)) {
      Run(Kind::Blank, IsBlank);
    } else if (IsWordUnit(unit)) {
      Run(Kind::Word, IsWordUnit);
    } else {
      pieces_.push_back({Kind::Sign, unit == u'&' ? String(u"||") : String(1, unit)});
      ++at_;
    }
  }

  void Run(Kind kind, bool (*belongs)(char16_t)) {
    const std::size_t start = at_;
    while (at_ < in_.size() && belongs(in_[at_])) ++at_;
    pieces_.push_back({kind, String(in_.substr(start, at_ - start))});
  }

  void Text(char16_t quote) {
    String content;
    ++at_;
    for (; at_ < in_.size(); ++at_) {
      if (in_[at_] == quote) {
        if (at_ + 1 >= in_.size() || in_[at_ + 1] != quote) break;
        ++at_;
      }
      content += in_[at_];
    }
    ++at_;
    pieces_.push_back({Kind::Text, Quoted(content)});
  }

  /// A name in square brackets; the engine takes double quotes for that.
  void Name() {
    const std::size_t end = in_.find(u']', at_);
    const std::size_t stop = end == StringView::npos ? in_.size() : end;
    const String name(in_.substr(at_ + 1, stop - at_ - 1));
    pieces_.push_back({Kind::Sign, u"\"" + vb::Replace(name, u"\"", u"\"\"") + u"\""});
    at_ = stop + 1;
  }

  StringView in_;
  std::size_t at_ = 0;
  std::vector<Piece> pieces_;
};

bool IsWord(const Piece& piece, StringView word) {
  return piece.Type == Kind::Word && vb::SameText(piece.Text, word);
}

struct Constant {
  StringView Word, Value;
};
constexpr Constant Constants[] = {{u"Yes", u"1"}, {u"True", u"1"},  {u"On", u"1"},
                                  {u"No", u"0"},  {u"False", u"0"}, {u"Off", u"0"}};

class Translator {
 public:
  explicit Translator(std::vector<Piece> pieces) : pieces_(std::move(pieces)) {}

  String Translate() {
    TranslateTop();
    TranslateDelete();
    TranslateUpdate();
    TranslateConstants();
    String text;
    for (const Piece& piece : pieces_) text += piece.Text;
    return text;
  }

 private:
  /// The first piece at or behind `from` that is no blank, or the end.
  [[nodiscard]] std::size_t Next(std::size_t from) const {
    while (from < pieces_.size() && pieces_[from].Type == Kind::Blank) ++from;
    return from;
  }
  [[nodiscard]] bool WordAt(std::size_t at, StringView word) const {
    return at < pieces_.size() && IsWord(pieces_[at], word);
  }
  void Erase(std::size_t from, std::size_t to) {
    pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(from),
                  pieces_.begin() + static_cast<std::ptrdiff_t>(to));
  }

  /// "SELECT TOP n ..." ends in "LIMIT n" instead, ahead of the bracket that closes a sub-select.
  void TranslateTop() {
    for (std::size_t at = 0; at < pieces_.size(); ++at) {
      if (!IsWord(pieces_[at], u"SELECT")) continue;
      std::size_t top = Next(at + 1);
      if (WordAt(top, u"DISTINCT") || WordAt(top, u"ALL")) top = Next(top + 1);
      if (!WordAt(top, u"TOP")) continue;
      const std::size_t number = Next(top + 1);
      if (number >= pieces_.size()) return;
      const String count = pieces_[number].Text;
      Erase(top, Next(number + 1));
      InsertLimit(at, count);
    }
  }

  void InsertLimit(std::size_t from, const String& count) {
    int depth = 0;
    std::size_t at = from;
    for (; at < pieces_.size(); ++at) {
      const Piece& piece = pieces_[at];
      if (piece.Type != Kind::Sign) continue;
      if (piece.Text == u"(") ++depth;
      if (piece.Text == u";" || (piece.Text == u")" && depth-- == 0)) break;
    }
    pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(at),
                   {Kind::Word, u" LIMIT " + count});
  }

  /// "DELETE Table.Column FROM" and "DELETE * FROM": whole rows go, so what is named does not
  /// matter.
  void TranslateDelete() {
    const std::size_t first = Next(0);
    if (!WordAt(first, u"DELETE")) return;
    std::size_t from = Next(first + 1);
    while (from < pieces_.size() && !IsWord(pieces_[from], u"FROM")) ++from;
    if (from < pieces_.size()) Erase(Next(first + 1), from);
  }

  /// "UPDATE t SET t.c = ...": the column to be set stands without its table.
  void TranslateUpdate() {
    if (!WordAt(Next(0), u"UPDATE")) return;
    bool target = false;
    int depth = 0;
    for (std::size_t at = 0; at < pieces_.size(); ++at) {
      const Piece& piece = pieces_[at];
      if (piece.Text == u"(") ++depth;
      if (piece.Text == u")") --depth;
      if (depth == 0 &&
          (IsWord(piece, u"SET") || (target == false && sawSet_ && piece.Text == u","))) {
        sawSet_ = target = true;
      } else if (IsWord(piece, u"WHERE")) {
        return;
      } else if (target && at + 1 < pieces_.size() && pieces_[at + 1].Text == u".") {
        Erase(at, at + 2);
        --at;
        target = false;
      } else if (piece.Text == u"=") {
        target = false;
      }
    }
  }

  /// Yes, No and their like stand for truth values unless they are names ("t.No", "No.x", "ON a =
  /// b").
  void TranslateConstants() {
    for (std::size_t at = 0; at < pieces_.size(); ++at) {
      if (pieces_[at].Type != Kind::Word || !StandsAsValue(at)) continue;
      for (const Constant& constant : Constants) {
        if (vb::SameText(pieces_[at].Text, constant.Word)) {
          pieces_[at].Text = constant.Value;
          break;
        }
      }
    }
  }

  /// Behind a comparison, a comma, an opening bracket or THEN-like words a value is expected.
  [[nodiscard]] bool StandsAsValue(std::size_t at) const {
    if (at + 1 < pieces_.size() && pieces_[at + 1].Text == u".") return false;
    std::size_t before = at;
    while (before > 0 && pieces_[before - 1].Type == Kind::Blank) --before;
    if (before == 0) return false;
    const String& sign = pieces_[before - 1].Text;
    return sign == u"=" || sign == u">" || sign == u"<" || sign == u"," || sign == u"(";
  }

  std::vector<Piece> pieces_;
  bool sawSet_ = false;
};

}  // namespace

std::string TranslateStatement(StringView statement) {
  return vb::ToUtf8(Translator(Cutter(statement).Cut()).Translate());
}

}  // namespace tessel::store
