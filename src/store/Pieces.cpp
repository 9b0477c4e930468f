#include "store/Pieces.h"

namespace tessel::store {
namespace {

bool IsWordUnit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
         (unit >= u'A' && unit <= u'Z') || unit == u'_' || unit == u'@' || unit >= 0x80;
}

bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

/// Text in quotes as the engine writes it: the quotes inside are doubled.
String Quoted(StringView content, char16_t quote) {
  const String mark(1, quote);
  return mark + vb::Replace(content, mark, mark + mark) + mark;
}

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
      Run(PieceKind::Blank, IsBlank);
    } else if (IsWordUnit(unit)) {
      Run(PieceKind::Word, IsWordUnit);
    } else {
      pieces_.push_back({PieceKind::Sign, unit == u'&' ? String(u"||") : String(1, unit)});
      ++at_;
    }
  }

  void Run(PieceKind kind, bool (*belongs)(char16_t)) {
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
    pieces_.push_back({PieceKind::Text, Quoted(content, u'\'')});
  }

  /// A name in square brackets; the engine takes double quotes for that.
  void Name() {
    const std::size_t end = in_.find(u']', at_);
    const std::size_t stop = end == StringView::npos ? in_.size() : end;
    pieces_.push_back({PieceKind::Name, Quoted(in_.substr(at_ + 1, stop - at_ - 1), u'"')});
    at_ = stop + 1;
  }

  StringView in_;
  std::size_t at_ = 0;
  std::vector<Piece> pieces_;
};

}  // namespace

std::vector<Piece> CutStatement(StringView statement) { return Cutter(statement).Cut(); }

bool IsWord(const Piece& piece, StringView word) {
  return piece.Kind == PieceKind::Word && vb::SameText(piece.Text, word);
}

bool IsSign(const Piece& piece, char16_t sign) {
  return piece.Kind == PieceKind::Sign && piece.Text.size() == 1 && piece.Text.front() == sign;
}

String Content(const Piece& piece) {
  if (piece.Kind != PieceKind::Name && piece.Kind != PieceKind::Text) return piece.Text;
  const String quote(1, piece.Text.front());
  return vb::Replace(StringView(piece.Text).substr(1, piece.Text.size() - 2), quote + quote, quote);
}

std::size_t NextPiece(const std::vector<Piece>& pieces, std::size_t from) {
  while (from < pieces.size() && pieces[from].Kind == PieceKind::Blank) ++from;
  return from;
}

bool BesidePoint(const std::vector<Piece>& pieces, std::size_t at) {
  return (at > 0 && IsSign(pieces[at - 1], u'.')) ||
         (at + 1 < pieces.size() && IsSign(pieces[at + 1], u'.'));
}

}  // namespace tessel::store
