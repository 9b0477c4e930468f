#include "store/Statements.h"

#include <optional>

#include "store/Engine.h"
#include "store/SelectShape.h"
#include "store/StoredText.h"
#include "store/TextColumns.h"
#include "store/TreeListings.h"

namespace tessel::store {
namespace {

struct Constant {
  StringView Word, Value;
};
constexpr Constant Constants[] = {{u"Yes", u"1"}, {u"True", u"1"},  {u"On", u"1"},
                                  {u"No", u"0"},  {u"False", u"0"}, {u"Off", u"0"}};

class Translator {
 public:
  explicit Translator(std::vector<Piece> pieces) : pieces_(std::move(pieces)) {}

  std::vector<Piece> Translate() {
    TranslateTop();
    TranslateDelete();
    TranslateUpdate();
    TranslateConstants();
    return std::move(pieces_);
  }

 private:
  [[nodiscard]] std::size_t Next(std::size_t from) const { return NextPiece(pieces_, from); }
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
      if (piece.Kind != PieceKind::Sign) continue;
      if (piece.Text == u"(") ++depth;
      if (piece.Text == u";" || (piece.Text == u")" && depth-- == 0)) break;
    }
    pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(at), {{PieceKind::Blank, u" "},
                                                                       {PieceKind::Word, u"LIMIT"},
                                                                       {PieceKind::Blank, u" "},
                                                                       {PieceKind::Word, count}});
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
      if (pieces_[at].Kind != PieceKind::Word || !StandsAsValue(at)) continue;
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
    while (before > 0 && pieces_[before - 1].Kind == PieceKind::Blank) --before;
    if (before == 0) return false;
    const String& sign = pieces_[before - 1].Text;
    return sign == u"=" || sign == u">" || sign == u"<" || sign == u"," || sign == u"(";
  }

  std::vector<Piece> pieces_;
  bool sawSet_ = false;
};

void Insert(std::vector<Piece>& pieces, std::size_t at, String text) {
  pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(at),
                {PieceKind::Sign, std::move(text)});
}

/// The rows of one table come in the order of their entry where nothing else is said, also among
/// rows that sort alike. They can be written back when the statement shows all it finds; then each
/// brings its number along as a last column.
void OrderByEntry(std::vector<Piece>& pieces, const Schema& schema, Translation& translation) {
  const auto shape = ShapeOf(pieces);
  if (!shape || !schema.HasRowNumbers(Content(shape->Table))) return;
  const String number = shape->Alias.Text + u"._rowid_";
  Insert(pieces, shape->End, (shape->Ordered ? u", " : u" ORDER BY ") + number + u" ");
  if (shape->Limited) return;
  Insert(pieces, shape->From, u", " + number + u" ");
  translation.Table = ToStored(shape->Table.Text);
}

}  // namespace

Translation TranslateStatement(StringView statement, const Schema& schema) {
  std::vector<Piece> pieces = CutStatement(statement);
  Translation translation;
  translation.SpanCount = ReplaceTreeListing(pieces);
  pieces = Translator(std::move(pieces)).Translate();
  CollateTextColumns(pieces, schema);
  if (!translation.SpanCount) OrderByEntry(pieces, schema, translation);
  String text;
  for (const Piece& piece : pieces) text += piece.Text;
  translation.Sql = ToStored(text);
  return translation;
}

}  // namespace tessel::store
