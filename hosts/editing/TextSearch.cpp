#include "hosts/editing/TextSearch.h"

#include <algorithm>

#include "hosts/editing/Tokens.h"

namespace tessel::editing {
namespace {

bool IsWhole(StringView line, std::size_t at, std::size_t length) {
  const std::size_t end = at + length;
  const bool before = at > 0 && IsNameUnit(line[at - 1]) && IsNameUnit(line[at]);
  const bool behind = end < line.size() && IsNameUnit(line[end]) && IsNameUnit(line[end - 1]);
  return !before && !behind;
}

}  // namespace

SearchRange WholeRange(const model::LineBuffer& lines) {
  const int count = lines.Count();
  return {1, 1, count, count == 0 ? 1 : static_cast<int>(lines.Line(count).size()) + 1};
}

std::vector<SearchHit> FindAll(const model::LineBuffer& lines, const SearchRange& range,
                               const SearchText& search) {
  std::vector<SearchHit> hits;
  const std::size_t length = search.What.size();
  if (length == 0) return hits;
  const auto compare = search.MatchCase ? vb::Compare::Binary : vb::Compare::Text;
  for (int line = range.FirstLine; line <= std::min(range.LastLine, lines.Count()); ++line) {
    const StringView text = lines.Line(line);
    const std::size_t first =
        line == range.FirstLine ? static_cast<std::size_t>(range.FirstColumn) : 1;
    const std::size_t last =
        line == range.LastLine
            ? std::min(text.size(), static_cast<std::size_t>(range.LastColumn) - 1)
            : text.size();
    std::size_t at = first;
    while (at + length - 1 <= last) {
      at = vb::InStr(at, text.substr(0, last), search.What, compare);
      if (at == 0) break;
      const bool taken = !search.WholeWord || IsWhole(text, at - 1, length);
      if (taken) hits.push_back({line, static_cast<int>(at)});
      at += taken ? length : 1;
    }
  }
  return hits;
}

String ReplaceHits(StringView line, const std::vector<SearchHit>& hits, std::size_t length,
                   StringView with) {
  String replaced;
  std::size_t from = 0;
  for (const SearchHit& hit : hits) {
    const auto at = static_cast<std::size_t>(hit.Column) - 1;
    replaced += line.substr(from, at - from);
    replaced += with;
    from = at + length;
  }
  return replaced += line.substr(from);
}

}  // namespace tessel::editing
