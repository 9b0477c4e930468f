#include "snippets/SnippetSearch.h"

#include <algorithm>

#include "store/RowStream.h"
#include "store/StoredText.h"

namespace tessel {
namespace {

/// What a word is worth by where it stands.
constexpr int IsName = 100, StartsName = 60, InName = 40, InPath = 15, InNotes = 10, InText = 4;

bool Holds(StringView text, StringView word) {
  return vb::InStr(text, word, vb::Compare::Text) > 0;
}

/// What is looked for, in each form that the search needs.
struct Word {
  String Text;
  store::StoredWord Stored;
  /// A word that may lie across the end of a folder's name.
  bool Crosses;
};

/// The nodes of a library, each with the path of what it lies in.
class Walk {
 public:
  /// The path ahead of the name of the next node in the order of the tree.
  StringView Enter(const TreeNode& node) {
    depth_ = static_cast<std::size_t>(std::max(node.lvl, 2));
    lengths_.resize(std::max(lengths_.size(), depth_));
    path_.resize(lengths_[depth_ - 1]);
    if (depth_ > 2) path_ += u'/';
    const std::size_t folder = path_.size();
    path_ += node.Name;
    lengths_.resize(depth_);
    lengths_.push_back(path_.size());
    return StringView(path_).substr(0, folder);
  }
  [[nodiscard]] const String& Path() const { return path_; }
  [[nodiscard]] std::size_t Depth() const { return depth_; }

 private:
  String path_;
  // Behind the top, which has the depth 1.
  std::vector<std::size_t> lengths_{0, 0};
  std::size_t depth_ = 0;
};

/// The texts of one row of List, as they are stored.
struct Texts {
  std::string_view Notes, Text, Code, Object;
};

class Search {
 public:
  Search(CSQLTree& tree, const std::vector<String>& words) : tree_(tree) {
    for (const String& word : words) {
      words_.push_back({word, store::StoredWord(word), vb::InStr(word, u"/") > 0});
    }
    ReadNodes(tree.GetNodes().value_or(std::vector<TreeNode>()));
  }

  std::vector<SnippetHit> Run() {
    store::RowStream rows(u"SELECT Id, TextUserNotes, Text, TextObj, NameObj FROM List ORDER BY Id",
                          tree_.Connection());
    while (rows.Next()) {
      Look(rows.Whole(0),
           {rows.StoredText(1), rows.StoredText(2), rows.StoredText(3), rows.StoredText(4)});
    }
    while (next_ != places_.end()) LookAtNext({});
    return Ranked();
  }

 private:
  struct Folder {
    String Path;
    /// Whether it holds each of the words.
    std::vector<bool> Holds;
  };
  struct Entry {
    String Name;
    std::size_t Folder;
    bool IsRecord;
  };
  struct Hit {
    std::int32_t ID;
    std::size_t Entry;
    int Score;
  };

  void ReadNodes(std::vector<TreeNode> nodes) {
    Walk walk;
    constexpr std::size_t Unknown = ~std::size_t{0};
    /// Number of the folder that the nodes of each depth lie in.
    std::vector<std::size_t> folders;
    for (TreeNode& node : nodes) {
      const StringView path = walk.Enter(node);
      folders.resize(std::max(folders.size(), walk.Depth() + 1), Unknown);
      std::size_t& folder = folders[walk.Depth()];
      if (folder == Unknown) {
        folder = folders_.size();
        folders_.push_back(FolderOf(path));
      }
      places_.emplace_back(node.ID, entries_.size());
      entries_.push_back({std::move(node.Name), folder, node.Root == RecordKind});
      folders.resize(walk.Depth() + 1);
    }
    std::sort(places_.begin(), places_.end());
    next_ = places_.begin();
  }

  [[nodiscard]] Folder FolderOf(StringView path) const {
    Folder folder{String(path), {}};
    for (const Word& word : words_) folder.Holds.push_back(Holds(path, word.Text));
    return folder;
  }

  /// Rows come by rising numbers, and so do the places. A record gets its row with its first text.
  void Look(std::int64_t id, const Texts& texts) {
    while (next_ != places_.end() && next_->first < id) LookAtNext({});
    if (next_ != places_.end() && next_->first == id) LookAtNext(texts);
  }

  void LookAtNext(const Texts& texts) {
    const auto [id, entry] = *next_++;
    if (!entries_[entry].IsRecord) return;
    int score = 0;
    for (std::size_t word = 0; word < words_.size(); ++word) {
      const int worth = ScoreOf(entries_[entry], texts, word);
      if (worth == 0) return;
      score += worth;
    }
    if (score > 0) hits_.push_back({id, entry, score});
  }

  /// 0 when the word stands nowhere.
  [[nodiscard]] int ScoreOf(const Entry& one, const Texts& texts, std::size_t at) const {
    const Word& word = words_[at];
    if (vb::SameText(one.Name, word.Text)) return IsName;
    if (vb::StartsWithText(one.Name, word.Text)) return StartsName;
    if (Holds(one.Name, word.Text)) return InName;
    if (folders_[one.Folder].Holds[at] || (word.Crosses && Holds(PathOf(one), word.Text))) {
      return InPath;
    }
    if (word.Stored.IsIn(texts.Notes)) return InNotes;
    for (const std::string_view text : {texts.Text, texts.Code, texts.Object}) {
      if (word.Stored.IsIn(text)) return InText;
    }
    return 0;
  }

  [[nodiscard]] String PathOf(const Entry& one) const {
    return folders_[one.Folder].Path + one.Name;
  }

  std::vector<SnippetHit> Ranked() {
    std::sort(hits_.begin(), hits_.end(), [](const Hit& one, const Hit& other) {
      return one.Score != other.Score ? one.Score > other.Score : one.Entry < other.Entry;
    });
    std::vector<SnippetHit> ranked;
    for (const Hit& hit : hits_) ranked.push_back({hit.ID, PathOf(entries_[hit.Entry]), hit.Score});
    return ranked;
  }

  CSQLTree& tree_;
  std::vector<Word> words_;
  std::vector<Folder> folders_;
  /// In the order of the tree.
  std::vector<Entry> entries_;
  /// Number of a node and its entry, by rising numbers.
  using Places = std::vector<std::pair<std::int32_t, std::size_t>>;
  Places places_;
  Places::const_iterator next_;
  std::vector<Hit> hits_;
};

}  // namespace

std::vector<SnippetPath> PathsOf(CSQLTree& tree) {
  std::vector<SnippetPath> paths;
  Walk walk;
  const TreeNodes nodes = tree.GetNodesAndList();
  if (!nodes) return paths;
  for (const TreeNode& node : *nodes) {
    walk.Enter(node);
    paths.push_back({node, walk.Path()});
  }
  return paths;
}

std::vector<SnippetHit> FindSnippets(CSQLTree& tree, const std::vector<String>& words) {
  return Search(tree, words).Run();
}

}  // namespace tessel
