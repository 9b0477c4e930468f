// One record of a snippet library as a text file, so that a team can keep it in version control.
#pragma once

#include <string>
#include <string_view>

#include "snippets/ListFragment.h"

namespace tessel {

struct NamedFragment {
  String Name;
  ListFragment Fragment;
  bool operator==(const NamedFragment&) const = default;
};

/// The record in UTF-8, lines ended by LF: head lines "Key: value", then a section for each column
/// that holds something, its lines four blanks in. Every unit comes back by `ReadRecordText`.
/// docs/batch.md has an example.
[[nodiscard]] std::string WriteRecordText(const NamedFragment& record);

/// Reads what WriteRecordText wrote; also with CR LF line ends and a byte order mark, and with the
/// line "Export:" that older exports wrote into the head. Fails with a vb::Failure that names
/// `file` and the line.
[[nodiscard]] NamedFragment ReadRecordText(std::string_view bytes, StringView file);

/// The text of a file in UTF-8, without its byte order mark. Fails with a vb::Failure that names
/// `file` and the line where it is none, so that nothing is lost on the way.
[[nodiscard]] String TextOfUtf8(std::string_view bytes, StringView file);

/// A name as one line of such a file: line ends and what a text file can't hold stand as escapes.
[[nodiscard]] String EscapedName(StringView name);
/// The name again; a line that isn't written that way is the name itself.
[[nodiscard]] String UnescapedName(StringView line);

}  // namespace tessel
