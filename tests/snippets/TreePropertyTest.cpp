// Random operations over two databases at once, against a tree of plain lists.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "snippets/CSQLTrees.h"
#include "snippets/SnippetDatabase.h"

namespace tessel {
namespace {

/// A tree of lists of children that knows nothing of left and right numbers.
class ModelTree {
 public:
  struct Node {
    int ID = 1;
    int Kind = FolderKind;
    String Name = u"root";
    Node* Parent = nullptr;
    std::vector<std::unique_ptr<Node>> Children;
  };

  int Add(StringView name, int parent, int before, int after, int kind) {
    Node* place = Find(parent > 0 ? parent : before > 0 ? before : after > 0 ? after : 1);
    if (place == nullptr || place->Kind != FolderKind) return 0;
    auto node = std::make_unique<Node>();
    node->ID = next_;
    node->Kind = kind;
    node->Name = name;
    if (parent > 0 || (before < 1 && after < 1)) {
      const bool front = parent > 0 && kind == FolderKind;
      Put(*place, std::move(node), front ? 0 : place->Children.size());
    } else {
      Node& up = *place->Parent;
      Put(up, std::move(node), IndexOf(*place) + (before > 0 ? 0 : 1));
    }
    return next_++;
  }
  void Delete(int id) {
    Node* node = Find(id);
    if (node == nullptr) return;
    Forget(*node);
    static_cast<void>(Take(*node));
  }
  void Rename(int id, StringView name) {
    if (Node* node = Find(id)) node->Name = name;
  }
  void MoveBeside(int id, int step) {
    Node* node = Find(id);
    if (node == nullptr || node->Parent == nullptr) return;
    auto& all = node->Parent->Children;
    const std::size_t at = IndexOf(*node), other = at + static_cast<std::size_t>(step);
    if (other >= all.size() || all[other]->Kind != node->Kind) return;
    std::swap(all[at], all[other]);
  }
  void MoveLeft(int id) {
    Node* node = Find(id);
    if (node == nullptr) return;
    Node* parent = SecondByNumber(node);
    Node* grand = SecondByNumber(parent);
    if (parent == node) {
      parent = node->Parent;
      grand = parent->Parent;
    }
    if (grand != nullptr) MoveInto(*node, *grand);
  }
  void MoveRight(int id) {
    Node* node = Find(id);
    if (node == nullptr) return;
    Node* parent = SecondByNumber(node);
    Node* first = FirstFolderIn(parent);
    if (parent == node && first != nullptr) first = FirstFolderIn(node->Parent);
    if (first != nullptr && first != node) MoveInto(*node, *first);
  }

  [[nodiscard]] std::vector<test::TreeRow> Rows() const {
    std::vector<test::TreeRow> rows;
    int number = 0;
    Number(root_, number, rows);
    return rows;
  }
  [[nodiscard]] std::vector<TreeNode> Grid() const {
    std::vector<TreeNode> grid;
    List(root_, 1, grid);
    return grid;
  }
  [[nodiscard]] std::vector<int> Ids() const {
    std::vector<int> ids;
    for (const auto& row : Rows()) ids.push_back(row.ID);
    return ids;
  }
  [[nodiscard]] Node* Find(int id) { return FindBelow(root_, id); }

  std::map<int, ListFragment> Fragments;

 private:
  static Node* FindBelow(Node& node, int id) {
    if (node.ID == id) return &node;
    for (const auto& child : node.Children) {
      if (Node* found = FindBelow(*child, id)) return found;
    }
    return nullptr;
  }
  static std::size_t IndexOf(const Node& node) {
    const auto& all = node.Parent->Children;
    return static_cast<std::size_t>(
        std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.get() == &node; }) -
        all.begin());
  }
  static void Put(Node& parent, std::unique_ptr<Node> node, std::size_t at) {
    node->Parent = &parent;
    parent.Children.insert(parent.Children.begin() + static_cast<std::ptrdiff_t>(at),
                           std::move(node));
  }
  static std::unique_ptr<Node> Take(Node& node) {
    auto& all = node.Parent->Children;
    const auto at = all.begin() + static_cast<std::ptrdiff_t>(IndexOf(node));
    auto taken = std::move(*at);
    all.erase(at);
    return taken;
  }
  static void MoveInto(Node& node, Node& folder) {
    auto taken = Take(node);
    const std::size_t at = node.Kind == FolderKind ? 0 : folder.Children.size();
    Put(folder, std::move(taken), at);
  }
  /// The second of a node and its ancestors, the highest number first.
  static Node* SecondByNumber(Node* node) {
    std::vector<Node*> line;
    for (; node != nullptr; node = node->Parent) line.push_back(node);
    if (line.size() < 2) return nullptr;
    std::sort(line.begin(), line.end(), [](Node* a, Node* b) { return a->ID > b->ID; });
    return line[1];
  }
  static Node* FirstFolderIn(Node* node) {
    if (node == nullptr || node->Kind != FolderKind) return nullptr;
    const auto found = std::find_if(node->Children.begin(), node->Children.end(),
                                    [](const auto& one) { return one->Kind == FolderKind; });
    return found == node->Children.end() ? nullptr : found->get();
  }
  void Forget(const Node& node) {
    Fragments.erase(node.ID);
    for (const auto& child : node.Children) Forget(*child);
  }
  static void Number(const Node& node, int& number, std::vector<test::TreeRow>& rows) {
    const std::size_t at = rows.size();
    rows.push_back({node.ID, ++number, 0, node.Kind, node.Name});
    for (const auto& child : node.Children) Number(*child, number, rows);
    rows[at].Rgt = ++number;
  }
  void List(const Node& node, int level, std::vector<TreeNode>& grid) const {
    if (node.ID != 1) {
      const auto fragment = Fragments.find(node.ID);
      const bool has = fragment != Fragments.end();
      grid.push_back({node.ID, node.Name, level, node.Kind, has ? fragment->second.NameObj : u"",
                      has ? fragment->second.ClassObj : u""});
    }
    for (const auto& child : node.Children) List(*child, level + 1, grid);
  }

  Node root_;
  int next_ = 71;
};

class RandomOperations : public testing::Test {
 protected:
  struct Database {
    std::shared_ptr<store::Connection> Connection;
    std::shared_ptr<CSQLTree> Tree;
    ModelTree Model;
  };

  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
  /// A node of the tree but for its top; at times one that is not there.
  int AnyNode(Database& one) {
    const auto ids = one.Model.Ids();
    if (ids.size() < 2 || Random(30) == 0) return 5000 + Random(9);
    return ids[1 + static_cast<std::size_t>(Random(static_cast<int>(ids.size()) - 1))];
  }
  String AnyText() {
    String text;
    for (int count = Random(6); count > 0; --count) {
      text += u"a'\"%_[;*\n\0\xD83D\xDE00\xDC00Ж"[static_cast<std::size_t>(Random(15))];
    }
    return text;
  }

  void Step(Database& one) {
    const int node = AnyNode(one);
    auto* const known = one.Model.Find(node);
    const int kind = known != nullptr ? known->Kind : Random(2);
    const String text = AnyText();
    switch (Random(12)) {
      case 0:
      case 1:
      case 2:
        return Add(one, text, Random(3) == 0 ? 1 : node, 0, 0);
      case 3:
        return Add(one, text, 0, Random(2) * node, Random(2) * node);
      case 4:
        if (Random(3) > 0) return;
        one.Tree->DeleteNode(node);
        return one.Model.Delete(node);
      case 5:
        EXPECT_TRUE(one.Tree->UpdateNodeName(node, text));
        return one.Model.Rename(node, text);
      case 6:
        return Write(one, node, kind, text);
      case 7:
        one.Tree->MoveDownNode(node, kind);
        return one.Model.MoveBeside(node, 1);
      case 8:
        one.Tree->MoveUpNode(node, kind);
        return one.Model.MoveBeside(node, -1);
      case 9:
        one.Tree->MoveLeftNode(node, kind);
        return one.Model.MoveLeft(node);
      default:
        one.Tree->MoveRightNode(node, kind);
        return one.Model.MoveRight(node);
    }
  }
  void Add(Database& one, const String& name, int parent, int before, int after) {
    const int kind = Random(2);
    ASSERT_EQ(one.Tree->AddNode(name, parent, before, after, kind),
              one.Model.Add(name, parent, before, after, kind));
  }
  void Write(Database& one, int node, int kind, const String& text) {
    if (kind != RecordKind || one.Model.Find(node) == nullptr) return;
    ListFragment& known = one.Model.Fragments[node];
    ListFragment given;
    for (String ListFragment::*column :
         {&ListFragment::Text, &ListFragment::NameObj, &ListFragment::CompObj}) {
      if (Random(2) == 0) continue;
      given.*column = text;
      if (!text.empty()) known.*column = text;
    }
    one.Tree->UpdateListFragment(node, given);
  }
  static void Compare(Database& one) {
    const auto rows = test::RowsOf(one.Connection);
    ASSERT_EQ(rows, one.Model.Rows());
    ASSERT_EQ(test::Unsound(rows), "");
    const auto grid = one.Tree->GetNodesAndList();
    ASSERT_EQ(grid.value_or(std::vector<TreeNode>{}), one.Model.Grid());
    std::vector<int> ids;
    for (const auto& [id, fragment] : one.Model.Fragments) {
      ids.push_back(id);
      ASSERT_EQ(one.Tree->GetRecordsetFromList(id), fragment);
    }
    ASSERT_EQ(test::ListIdsOf(one.Connection), ids);
  }

  std::mt19937 random_{8};
};

TEST_F(RandomOperations, LeaveTheTreesThatPlainListsLeave) {
  constexpr int Rounds = 8, Steps = 400;
  const test::TemporaryFolder folder;
  for (int round = 0; round < Rounds; ++round) {
    Database both[2];
    for (Database& one : both) {
      const auto file = folder.Path() / (std::to_string(round) + (&one == both ? "a" : "b"));
      test::WriteEmptyDatabase(file);
      one.Connection = test::OpenDatabase(file);
      // What is tested here survives without waiting for the disk.
      one.Connection->Execute(u"PRAGMA synchronous = 0");
      one.Tree = test::OpenTree(one.Connection);
    }
    for (int step = 0; step < Steps; ++step) {
      Database& one = both[Random(2)];
      Step(one);
      Compare(one);
      if (HasFatalFailure()) FAIL() << "round " << round << ", step " << step;
    }
  }
}

}  // namespace
}  // namespace tessel
