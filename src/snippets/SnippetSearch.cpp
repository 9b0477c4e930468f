#include "snippets/SnippetSearch.h"

#include <algorithm>
#include <unordered_map>

#include "store/Command.h"

namespace tessel {
namespace {

/// What a word is worth by where it stands.
constexpr int IsName = 100, StartsName = 60, InName = 40, InPath = 15, InNotes = 10, InText = 4;
/// Records that are read at a time, so that a large library needs no room of its size.
constexpr StringView Batch = u"500";

bool Holds(StringView text, StringView word) {
  return vb::InStr(text, word, vb::Compare::Text) > 0;
}

struct Texts {
  const String &Notes, &Text, &Code, &Object;
};

/// The cell's own text; texts are long, so they aren't copied.
const String& TextOf(const store::Value& cell) {
  static const String None;
  const auto* const text = std::get_if<String>(&cell);
  return text == nullptr ? None : *text;
}

/// 0 when the word stands nowhere.
int ScoreOf(const SnippetPath& one, const Texts& texts, StringView word) {
  if (vb::SameText(one.Node.Name, word)) return IsName;
  if (vb::StartsWithText(one.Node.Name, word)) return StartsName;
  if (Holds(one.Node.Name, word)) return InName;
  if (Holds(one.Path, word)) return InPath;
  if (Holds(texts.Notes, word)) return InNotes;
  return Holds(texts.Text, word) || Holds(texts.Code, word) || Holds(texts.Object, word) ? InText
                                                                                         : 0;
}

int ScoreOf(const SnippetPath& one, const Texts& texts, const std::vector<String>& words) {
  int score = 0;
  for (const String& word : words) {
    const int worth = ScoreOf(one, texts, word);
    if (worth == 0) return 0;
    score += worth;
  }
  return score;
}

}  // namespace

std::vector<SnippetPath> PathsOf(CSQLTree& tree) {
  std::vector<SnippetPath> paths;
  // Behind the top, which has the depth 1.
  std::vector<std::size_t> lengths{0, 0};
  String path;
  const TreeNodes nodes = tree.GetNodesAndList();
  if (!nodes) return paths;
  for (const TreeNode& node : *nodes) {
    const auto depth = static_cast<std::size_t>(std::max(node.lvl, 2));
    lengths.resize(std::max(lengths.size(), depth));
    path.resize(lengths[depth - 1]);
    path += (depth > 2 ? u"/" : u"") + node.Name;
    lengths.resize(depth);
    lengths.push_back(path.size());
    paths.push_back({node, path});
  }
  return paths;
}

std::vector<SnippetHit> FindSnippets(CSQLTree& tree, const std::vector<String>& words) {
  std::vector<SnippetHit> hits;
  const auto paths = PathsOf(tree);
  std::unordered_map<std::int32_t, std::size_t> places;
  for (std::size_t at = 0; at < paths.size(); ++at) places.emplace(paths[at].Node.ID, at);
  std::vector<std::size_t> order;
  store::Command batch(tree.Connection(),
                       u"SELECT TOP " + String(Batch) +
                           u" Id, TextUserNotes, Text, TextObj, NameObj FROM List WHERE Id > @Id "
                           u"ORDER BY Id");
  store::Recordset rows;
  std::int64_t last = 0;
  for (;;) {
    rows.Open(batch, {last});
    if (rows.RecordCount() == 0) break;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      const auto cell = [&](std::size_t column) -> const String& {
        return TextOf(rows.Cell(row, column));
      };
      last = store::ToLong(rows.Cell(row, 0));
      const auto place = places.find(static_cast<std::int32_t>(last));
      if (place == places.end()) continue;
      const SnippetPath& one = paths[place->second];
      const int score = ScoreOf(one, {cell(1), cell(2), cell(3), cell(4)}, words);
      if (score == 0) continue;
      hits.push_back({one.Node.ID, one.Path, score});
      order.push_back(place->second);
    }
  }
  std::vector<std::size_t> ranks(hits.size());
  for (std::size_t at = 0; at < ranks.size(); ++at) ranks[at] = at;
  std::sort(ranks.begin(), ranks.end(), [&](std::size_t a, std::size_t b) {
    return hits[a].Score != hits[b].Score ? hits[a].Score > hits[b].Score : order[a] < order[b];
  });
  std::vector<SnippetHit> sorted;
  for (const std::size_t at : ranks) sorted.push_back(std::move(hits[at]));
  return sorted;
}

}  // namespace tessel
