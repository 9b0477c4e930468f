// The words of the language as the environment writes them.
#pragma once

#include <cstdint>
#include <span>

#include "vb/Text.h"

namespace tessel::model {

/// What a word of the language may be besides.
enum class WordKind : std::uint8_t {
  None,      ///< no word of the language
  Reserved,  ///< never a name, but behind a dot
  Common,    ///< a keyword in its place and a name elsewhere, as Text or Name
  Library,   ///< a function, an object or a constant of the run-time library
};

struct Word {
  StringView Text;  ///< in its usual case
  WordKind Kind = WordKind::None;
};

/// All words, sorted without regard to case.
[[nodiscard]] std::span<const Word> Words();

/// A word without regard to case; of kind None for one that the language doesn't have.
[[nodiscard]] Word FindWord(StringView text);

/// Whether a word is a keyword: reserved or common.
[[nodiscard]] bool IsKeyword(StringView text);

}  // namespace tessel::model
