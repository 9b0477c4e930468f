#include "store/TreeListings.h"

#include <algorithm>
#include <map>

namespace tessel::store {
namespace {

/// `T_` stands for a table, `N1_` and `N2_` for a number or a parameter.
struct Listing {
  StringView Known, Linear;
  std::optional<std::size_t> SpanCount = std::nullopt;
};
constexpr Listing Listings[] = {
    // All nodes with their depth.
    {u"SELECT K2.ID, K2.Name, Count(*) AS lvl, K2.Root FROM T_ AS K1, T_ AS K2 "
     u"WHERE K2.lft Between K1.lft And K1.rgt "
     u"GROUP BY K2.ID, K2.Name, K2.Root, K2.lft ORDER BY K2.lft",
     u"SELECT ID, Name, rgt AS lvl, Root, lft FROM T_ WHERE lft IS NOT NULL ORDER BY lft", 2},
    // The nodes below one node, with their depth below it.
    {u"SELECT K2.ID, K2.Name, COUNT(*) AS lvl FROM T_ as K1, T_ as K2, T_ as K3 "
     u"WHERE (K2.lft BETWEEN K1.lft AND K1.rgt) AND (K1.lft BETWEEN K3.lft AND K3.rgt) "
     u"AND (K3.ID = N1_) GROUP BY K2.lft, K2.ID, K2.Name ORDER BY COUNT(*), K2.ID",
     u"SELECT ID, Name, lvl FROM (SELECT ID, Name, SpanCount(lft, "
     u"CASE WHEN lft <= (SELECT rgt FROM T_ WHERE ID = N1_) THEN rgt END) OVER (ORDER BY lft) "
     u"AS lvl FROM T_ WHERE lft >= (SELECT lft FROM T_ WHERE ID = N1_)) "
     u"WHERE lvl > 0 ORDER BY lvl, ID"},
    // The depth of one node.
    {u"SELECT Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 "
     u"WHERE (((P1.lft) Between P2.lft And P2.rgt)) GROUP BY P1.ID Having (((P1.Id) = N1_)) "
     u"ORDER BY P1.ID",
     u"SELECT Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, Tree AS P2 "
     u"WHERE P1.ID = N1_ AND P1.lft BETWEEN P2.lft AND P2.rgt GROUP BY P1.ID"},
    // The node behind one node, with its depth.
    {u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 "
     u"WHERE (P1.lft Between P2.lft And P2.rgt) GROUP BY P1.ID HAVING ((P1.ID=( SELECT P3.ID FROM "
     u"Tree As P3 Where (P3.lft = (SELECT P5.rgt+1 FROM Tree as P5 WHERE (P5.ID= N1_ And P5.Root= "
     u"N2_ )) And P3.Root= N2_ ) ))) ORDER BY P1.ID",
     u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, Tree AS P2 "
     u"WHERE P1.ID = (SELECT P3.ID FROM Tree AS P3 WHERE P3.lft = (SELECT P5.rgt + 1 FROM Tree AS "
     u"P5 WHERE P5.ID = N1_ AND P5.Root = N2_) AND P3.Root = N2_) "
     u"AND P1.lft BETWEEN P2.lft AND P2.rgt GROUP BY P1.ID"},
    // The node ahead of one node, with its depth.
    {u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, tree AS P2 "
     u"WHERE (((P1.lft) Between [P2].[lft] And [P2].[rgt])) GROUP BY P1.ID HAVING "
     u"(((P1.ID)=(SELECT "
     u"P3.ID FROM Tree As P3 Where (P3.rgt = (SELECT P5.lft-1 FROM Tree as P5 WHERE (P5.ID= N1_ )) "
     u"And P3.Root=N2_ ) ))) ORDER BY P1.ID",
     u"SELECT Count(P2.ID) AS LevelOut, P1.ID AS ReturnID FROM Tree AS P1, Tree AS P2 "
     u"WHERE P1.ID = (SELECT P3.ID FROM Tree AS P3 WHERE P3.rgt = (SELECT P5.lft - 1 FROM Tree AS "
     u"P5 WHERE P5.ID = N1_) AND P3.Root = N2_) "
     u"AND P1.lft BETWEEN P2.lft AND P2.rgt GROUP BY P1.ID"},
    // The first node of a kind at a depth.
    {u"SELECT TOP 1 Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 "
     u"WHERE (((P1.lft) Between P2.lft And P2.rgt) AND (P1.Root=N1_)) GROUP BY P1.ID "
     u"Having (((Count(P2.Id)) = N2_)) ORDER BY P1.ID",
     u"SELECT TOP 1 indentation, tmpID FROM (SELECT SpanCount(lft, rgt) OVER (ORDER BY lft) AS "
     u"indentation, ID AS tmpID, Root FROM Tree) WHERE Root = N1_ AND indentation > 0 "
     u"AND indentation = N2_ ORDER BY tmpID"},
    // The youngest folder one level above a node.
    {u"SELECT Top 1 K2.ID FROM Tree AS K1, Tree AS K2 WHERE (((K2.lft) Between [K1].[lft] And "
     u"[K1].[rgt])) GROUP BY K2.ID, K2.Name, K2.Root, K2.lft HAVING (((K2.Root)=1) AND "
     u"(((Count(*))+1)=(SELECT Count(P2.ID) AS LvlID FROM Tree AS P1, tree AS P2 WHERE (((P1.lft) "
     u"Between P2.lft And P2.rgt)) GROUP BY P1.ID Having (P1.Id = N1_) ORDER BY P1.ID ))) "
     u"ORDER BY K2.ID DESC , K2.lft",
     u"SELECT TOP 1 ID FROM (SELECT ID, Root, lft, SpanCount(lft, rgt) OVER (ORDER BY lft) AS lvl "
     u"FROM Tree) WHERE Root = 1 AND lvl > 0 AND lvl + 1 = (SELECT Count(P2.ID) FROM Tree AS P1, "
     u"Tree AS P2 WHERE P1.ID = N1_ AND P1.lft BETWEEN P2.lft AND P2.rgt) "
     u"ORDER BY ID DESC, lft"}};

using Found = std::map<String, String>;

bool IsPlaceholder(StringView word) { return word == u"T_" || word == u"N1_" || word == u"N2_"; }

std::vector<Piece> WithoutBlanks(const std::vector<Piece>& pieces) {
  std::vector<Piece> rest;
  std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(rest),
               [](const Piece& piece) { return piece.Kind != PieceKind::Blank; });
  return rest;
}

/// The listings as pieces, cut once.
struct CutListing {
  std::vector<Piece> Known;
  StringView Linear;
  std::optional<std::size_t> SpanCount;
};
const std::vector<CutListing>& CutListings() {
  static const std::vector<CutListing> all = [] {
    std::vector<CutListing> cut;
    for (const Listing& one : Listings) {
      cut.push_back({WithoutBlanks(CutStatement(one.Known)), one.Linear, one.SpanCount});
    }
    return cut;
  }();
  return all;
}

/// Matches a statement against a known one and keeps what stands in its open places.
class Matcher {
 public:
  Matcher(const std::vector<Piece>& known, const std::vector<Piece>& given)
      : known_(known), given_(given) {}

  bool Match(Found& found) {
    for (const Piece& piece : known_) {
      if (at_ >= given_.size()) return false;
      const bool fits = IsPlaceholder(piece.Text)
                            ? Take(piece.Text, found)
                            : vb::SameText(Content(piece), Content(given_[at_]));
      if (!fits) return false;
      ++at_;
    }
    return at_ == given_.size();
  }

 private:
  /// Leaves `at_` on the last piece of what was taken.
  bool Take(const String& name, Found& found) {
    String text = given_[at_].Text;
    if (IsSign(given_[at_], u'-') && at_ + 1 < given_.size()) text += given_[++at_].Text;
    const PieceKind kind = given_[at_].Kind;
    if (kind != PieceKind::Word && kind != PieceKind::Name) return false;
    const auto [place, fresh] = found.emplace(name, text);
    return fresh || vb::SameText(place->second, text);
  }

  const std::vector<Piece>& known_;
  const std::vector<Piece>& given_;
  std::size_t at_ = 0;
};

}  // namespace

std::optional<std::size_t> ReplaceTreeListing(std::vector<Piece>& pieces) {
  const std::vector<Piece> given = WithoutBlanks(pieces);
  for (const CutListing& listing : CutListings()) {
    Found found;
    if (!Matcher(listing.Known, given).Match(found)) continue;
    pieces = CutStatement(listing.Linear);
    for (Piece& piece : pieces) {
      if (const auto place = found.find(piece.Text); place != found.end()) {
        piece.Text = place->second;
      }
    }
    return listing.SpanCount;
  }
  return std::nullopt;
}

}  // namespace tessel::store
