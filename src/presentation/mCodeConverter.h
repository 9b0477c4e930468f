// Source text as a coloured rich-text document.
#pragma once

#include <span>

#include "vb/Text.h"

namespace tessel::mCodeConverter {

/// The keyword table: a leading blank means that a blank must stand ahead, a trailing one behind,
/// and a closing "(" a function that is coloured without its bracket.
[[nodiscard]] std::span<const StringView> Keywords();

/// The document for `text` (lines separated by CR LF). `charset` is that of the target control's
/// font and chooses the suffix of the font's name. Work is linear in the text and the marks that it
/// holds.
[[nodiscard]] String MakeRTF(StringView text, int charset);

}  // namespace tessel::mCodeConverter
