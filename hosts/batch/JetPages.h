// The few places of a Jet file's pages that are looked at here.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vb/Text.h"

namespace tessel::batch {

/// What the first page of a Jet file says.
struct JetHeader {
  /// Texts are stored in two bytes a character; the older format has one byte.
  bool Wide = true;
  std::size_t PageSize = 0;
  /// Of an older file's texts.
  int CodePage = 0;
  bool Encrypted = false;
};
inline constexpr std::size_t JetHeaderSize = 0x18 + 128;
/// Nothing for bytes that are no head of a Jet file.
[[nodiscard]] std::optional<JetHeader> ReadJetHeader(std::string_view bytes);

/// A column of a table's definition.
struct JetColumn {
  String Name;
  bool Memo = false;
};
/// Makes the memo columns of a table's definition columns of bytes, whose contents mdbtools hands
/// over as they are; memo columns lose zeros and surrogates on their way. Answers the columns as
/// they were, none for a page that defines no table or only a part of one.
std::vector<JetColumn> MemosAsBytes(std::string& page, const JetHeader& header);

/// A text as it stands in a column; with the mark FF FE ahead it is in the short form.
[[nodiscard]] String TextOfWideColumn(std::string_view bytes);

}  // namespace tessel::batch
