#include "store/SelectShape.h"

#include <algorithm>
#include <array>

namespace tessel::store {
namespace {

constexpr std::array<StringView, 11> Aggregates = {u"COUNT", u"SUM",   u"AVG",         u"MIN",
                                                   u"MAX",   u"FIRST", u"LAST",        u"STDEV",
                                                   u"VAR",   u"TOTAL", u"GROUP_CONCAT"};
/// Words after which the rows are no longer those of one table.
constexpr std::array<StringView, 7> Mixing = {u"DISTINCT", u"JOIN",   u"GROUP",    u"HAVING",
                                              u"UNION",    u"EXCEPT", u"INTERSECT"};

template <class Words>
bool IsOneOf(const Piece& piece, const Words& words) {
  return std::any_of(words.begin(), words.end(),
                     [&](StringView word) { return IsWord(piece, word); });
}

class Reader {
 public:
  explicit Reader(const std::vector<Piece>& pieces) : pieces_(pieces) {}

  std::optional<SelectShape> Read() {
    const std::size_t first = NextPiece(pieces_, 0);
    if (first >= pieces_.size() || !IsWord(pieces_[first], u"SELECT")) return std::nullopt;
    shape_.End = pieces_.size();
    for (std::size_t at = first + 1; at < pieces_.size() && single_; ++at) Step(at);
    if (!single_ || shape_.From == 0 || !ReadTable()) return std::nullopt;
    return shape_;
  }

 private:
  void Step(std::size_t at) {
    const Piece& piece = pieces_[at];
    if (IsSign(piece, u'(')) ++depth_;
    if (IsSign(piece, u')')) --depth_;
    if (depth_ == 0 && IsSign(piece, u';')) shape_.End = std::min(shape_.End, at);
    if (piece.Kind != PieceKind::Word || BesidePoint(pieces_, at)) return;
    if (shape_.From == 0 && IsOneOf(piece, Aggregates) && OpensBracket(at)) single_ = false;
    if (depth_ == 0) ReadClause(piece, at);
  }

  [[nodiscard]] bool OpensBracket(std::size_t at) const {
    const std::size_t next = NextPiece(pieces_, at + 1);
    return next < pieces_.size() && IsSign(pieces_[next], u'(');
  }

  void ReadClause(const Piece& piece, std::size_t at) {
    if (IsOneOf(piece, Mixing)) single_ = false;
    if (IsWord(piece, u"FROM") && shape_.From == 0) shape_.From = at;
    if (IsWord(piece, u"WHERE") && tableEnd_ == 0) tableEnd_ = at;
    if (IsWord(piece, u"ORDER")) {
      shape_.Ordered = true;
      if (tableEnd_ == 0) tableEnd_ = at;
    }
    if (IsWord(piece, u"LIMIT")) {
      shape_.Limited = true;
      shape_.End = at;
    }
  }

  /// "FROM table [AS] [alias]" and nothing more.
  bool ReadTable() {
    const std::size_t end = tableEnd_ == 0 ? shape_.End : tableEnd_;
    std::vector<Piece> names;
    for (std::size_t at = shape_.From + 1; at < end; ++at) {
      if (pieces_[at].Kind != PieceKind::Blank) names.push_back(pieces_[at]);
    }
    if (names.size() == 3 && IsWord(names[1], u"AS")) names.erase(names.begin() + 1);
    const bool plain = std::all_of(names.begin(), names.end(), [](const Piece& name) {
      return name.Kind == PieceKind::Word || name.Kind == PieceKind::Name;
    });
    if (!plain || names.empty() || names.size() > 2) return false;
    shape_.Table = names.front();
    shape_.Alias = names.back();
    return true;
  }

  const std::vector<Piece>& pieces_;
  SelectShape shape_;
  std::size_t tableEnd_ = 0;
  int depth_ = 0;
  bool single_ = true;
};

}  // namespace

std::optional<SelectShape> ShapeOf(const std::vector<Piece>& pieces) {
  return Reader(pieces).Read();
}

}  // namespace tessel::store
