// A statement cut into words, texts, blanks and signs.
#pragma once

#include <vector>

#include "vb/Text.h"

namespace tessel::store {

enum class PieceKind { Word, Name, Text, Blank, Sign };

/// A piece as the engine writes it: a Name stood in square brackets and is in double quotes, a Text
/// is in single quotes.
struct Piece {
  PieceKind Kind;
  String Text;
};

[[nodiscard]] std::vector<Piece> CutStatement(StringView statement);

/// True for that word, in any case, outside quotes and brackets.
[[nodiscard]] bool IsWord(const Piece& piece, StringView word);
[[nodiscard]] bool IsSign(const Piece& piece, char16_t sign);
/// What a Name or a Text stands for, without its quotes; any other piece as it is.
[[nodiscard]] String Content(const Piece& piece);
/// Index of the first piece at or behind `from` that is no blank; the number of pieces when none
/// is.
[[nodiscard]] std::size_t NextPiece(const std::vector<Piece>& pieces, std::size_t from);
/// True when the piece is one half of a name with a point, "a.b".
[[nodiscard]] bool BesidePoint(const std::vector<Piece>& pieces, std::size_t at);

}  // namespace tessel::store
