#include "store/TextColumns.h"

#include <algorithm>
#include <set>

#include "store/TextOrder.h"

namespace tessel::store {
namespace {

enum class Clause { Other, Condition, Sorting };

bool IsNumber(const Piece& piece) {
  return piece.Kind == PieceKind::Word &&
         std::all_of(piece.Text.begin(), piece.Text.end(),
                     [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

class Collator {
 public:
  Collator(std::vector<Piece>& pieces, const Schema& schema) : pieces_(pieces), schema_(schema) {}

  void Run() {
    std::vector<Piece> out;
    out.reserve(pieces_.size());
    for (std::size_t at = 0; at < pieces_.size(); ++at) {
      Enter(at);
      out.push_back(pieces_[at]);
      if (IsTextColumn(at)) {
        out.push_back({PieceKind::Word, u" COLLATE " + String(TextOrderName)});
      }
    }
    pieces_ = std::move(out);
  }

 private:
  /// Brackets keep the clause they stand in, until a SELECT inside begins its own.
  void Enter(std::size_t at) {
    const Piece& piece = pieces_[at];
    if (IsSign(piece, u'(')) outer_.push_back(clause_);
    if (IsSign(piece, u')') && !outer_.empty()) {
      clause_ = outer_.back();
      outer_.pop_back();
    }
    if (piece.Kind != PieceKind::Word || BesidePoint(pieces_, at)) return;
    for (const auto& [word, clause] : {std::pair{u"SELECT", Clause::Other},
                                       {u"FROM", Clause::Other},
                                       {u"SET", Clause::Other},
                                       {u"LIMIT", Clause::Other},
                                       {u"UNION", Clause::Other},
                                       {u"WHERE", Clause::Condition},
                                       {u"HAVING", Clause::Condition},
                                       {u"ON", Clause::Condition},
                                       {u"ORDER", Clause::Sorting},
                                       {u"GROUP", Clause::Sorting}}) {
      if (IsWord(piece, word)) clause_ = clause;
    }
    if (IsWord(piece, u"AS")) NoteAlias(at);
    if (IsWord(piece, u"CONFLICT")) clause_ = Clause::Other;
  }

  /// A result column may go by a name of its own in ORDER BY.
  void NoteAlias(std::size_t at) {
    const std::size_t next = NextPiece(pieces_, at + 1);
    if (next < pieces_.size()) aliases_.insert(vb::LCase(Content(pieces_[next])));
  }

  [[nodiscard]] bool IsTextColumn(std::size_t at) const {
    const Piece& piece = pieces_[at];
    if (clause_ == Clause::Other) return false;
    if (piece.Kind != PieceKind::Word && piece.Kind != PieceKind::Name) return false;
    const std::size_t next = NextPiece(pieces_, at + 1);
    if (next < pieces_.size()) {
      const Piece& behind = pieces_[next];
      if (IsSign(behind, u'.') || IsSign(behind, u'(') || IsWord(behind, u"COLLATE")) return false;
    }
    if (schema_.IsText(Content(piece))) return true;
    if (clause_ != Clause::Sorting || (at > 0 && IsSign(pieces_[at - 1], u'.'))) return false;
    return aliases_.contains(vb::LCase(Content(piece))) || (IsNumber(piece) && StartsTerm(at));
  }

  /// "ORDER BY 2" sorts by the second result column.
  [[nodiscard]] bool StartsTerm(std::size_t at) const {
    while (at > 0 && pieces_[at - 1].Kind == PieceKind::Blank) --at;
    return at > 0 && (IsWord(pieces_[at - 1], u"BY") || IsSign(pieces_[at - 1], u','));
  }

  std::vector<Piece>& pieces_;
  const Schema& schema_;
  Clause clause_ = Clause::Other;
  std::vector<Clause> outer_;
  std::set<String> aliases_;
};

}  // namespace

void CollateTextColumns(std::vector<Piece>& pieces, const Schema& schema) {
  const std::size_t first = NextPiece(pieces, 0);
  for (const StringView word : {u"SELECT", u"WITH", u"UPDATE", u"DELETE", u"INSERT"}) {
    if (first < pieces.size() && IsWord(pieces[first], word)) Collator(pieces, schema).Run();
  }
}

}  // namespace tessel::store
