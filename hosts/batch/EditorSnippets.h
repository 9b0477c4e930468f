// The JSON snippets of well-known editors as records.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "snippets/RecordText.h"

namespace tessel::batch {

/// Reads a ".code-snippets" file: JSON with comments and commas ahead of a closing bracket. The
/// body becomes the text, with words for its tab stops; description, prefix and scope become the
/// notes. Fails with a vb::Failure that names file and line, or the snippet.
[[nodiscard]] std::vector<NamedFragment> ReadEditorSnippets(std::string_view bytes,
                                                            const std::string& file);

}  // namespace tessel::batch
