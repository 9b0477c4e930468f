// Text in the form in which the tables hold it.
#pragma once

#include <string>
#include <string_view>

#include "vb/Text.h"

namespace tessel::store {

/// Text as it is stored: UTF-8, where a lone surrogate has three bytes of its own. All units come
/// back as they went in.
[[nodiscard]] std::string ToStored(StringView text);
[[nodiscard]] String FromStored(std::string_view bytes);

/// A word that is looked for in many stored texts without regard to case, with the result that
/// `InStr` has over the texts themselves.
class StoredWord {
 public:
  explicit StoredWord(StringView word);
  [[nodiscard]] bool IsIn(std::string_view stored) const;

 private:
  String word_;
  /// The word in small letters where all of them are plain ones, else empty.
  std::string plain_;
};

}  // namespace tessel::store
