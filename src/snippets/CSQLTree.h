// The hierarchy of one snippet database: a nested set in the table Tree, and the table List.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "snippets/ListFragment.h"
#include "store/Recordset.h"

namespace tessel {

/// Kinds of nodes: a folder can have children, a record owns a row of List.
inline constexpr std::int32_t RecordKind = 0, FolderKind = 1;
/// The tree's top; it is a folder.
inline constexpr std::int32_t TopID = 1;

/// One node of a listing.
struct TreeNode {
  std::int32_t ID = 0;
  String Name;
  /// Depth; in a listing of children their parent has 1.
  std::int32_t lvl = 0;
  std::int32_t Root = 0;
  /// Of the object that a record stores; empty for a folder.
  String NameObj, ClassObj;
  bool operator==(const TreeNode&) const = default;
};
/// Nothing where there are no nodes to list.
using TreeNodes = std::optional<std::vector<TreeNode>>;

/// A neighbour of a node, 0 and 0 when there is none.
struct NodeLevel {
  std::int32_t ReturnID = 0, LevelOut = 0;
  bool operator==(const NodeLevel&) const = default;
};
/// The numbers of a node, 0 and 0 when it is missing.
struct NodeSpan {
  std::int32_t Lft = 0, Rgt = 0;
  bool operator==(const NodeSpan&) const = default;
};

/// Each operation that changes the tree is one immediate transaction: it waits for another process
/// to finish, and is undone as a whole when a statement of it fails. `AddNode`, `DeleteNode`,
/// `UpdateNodeName` and the moves pass such a failure over in silence. The routines for levels,
/// single nodes and List fail with 0x80040064 "CSQLTree component failure", the listings with what
/// the store says.
///
/// A move parks the nodes that it moves above 1,000,000, so the numbers of a tree stay below that;
/// in a larger tree moves do nothing.
class CSQLTree {
 public:
  CSQLTree();
  ~CSQLTree();
  CSQLTree(const CSQLTree&) = delete;
  CSQLTree& operator=(const CSQLTree&) = delete;

  /// Must be set ahead of the table's name.
  void SetConnection(const std::shared_ptr<store::Connection>& connection);
  [[nodiscard]] const std::shared_ptr<store::Connection>& Connection() const { return connection_; }
  /// Prepares recordset and commands.
  void SetTableName(StringView name);
  /// Prepares them once more, as reading the name always has.
  const String& TableName();

  /// Adds a node of kind `root` and answers its number, or 0 when it was added nowhere. Below
  /// `parentID` a folder comes first and a record last; else it stands ahead of `beforeID`, behind
  /// `afterID`, or last below the top. What it is placed by must be a folder.
  std::int32_t AddNode(StringView name, std::int32_t parentID, std::int32_t beforeID,
                       std::int32_t afterID, std::int32_t root);
  /// Deletes a node with all below it, and their rows of List.
  void DeleteNode(std::int32_t id);
  /// True whatever came of it.
  bool UpdateNodeName(std::int32_t id, StringView name);

  /// All nodes below the top, in the order of the tree.
  [[nodiscard]] TreeNodes GetNodes();
  /// The same with the objects that the records store.
  [[nodiscard]] TreeNodes GetNodesAndList();
  /// Direct children, in the order of their numbers.
  [[nodiscard]] TreeNodes GetNodesForParent(std::int32_t parentID);
  /// The node's name as the table has it; nothing for a missing node.
  [[nodiscard]] std::optional<String> NameOfNode(std::int32_t id);
  /// Caption of the top; "User Database" when it has none.
  [[nodiscard]] String GetNameRootTree();

  /// `root` is the kind of the node that moves. Down and up change places with a neighbour of the
  /// same kind, left goes to the grandparent, right into the first folder below the parent.
  void MoveDownNode(std::int32_t id, std::int32_t root);
  void MoveUpNode(std::int32_t id, std::int32_t root);
  void MoveLeftNode(std::int32_t id, std::int32_t root);
  void MoveRightNode(std::int32_t id, std::int32_t root);

  /// 0 for a missing node.
  [[nodiscard]] std::int32_t LevelNode(std::int32_t id);
  [[nodiscard]] NodeLevel LevelNodeDown(std::int32_t id, std::int32_t root);
  [[nodiscard]] NodeLevel LevelNodeUp(std::int32_t id, std::int32_t root);
  [[nodiscard]] NodeLevel LevelNodeUpRight(std::int32_t level, std::int32_t root);
  [[nodiscard]] NodeSpan GetNodeID(std::int32_t id);
  [[nodiscard]] std::int32_t GetParentIDRoot(std::int32_t id);
  /// The second of the node and its ancestors by falling number, which need not be the parent; 0
  /// for the top.
  [[nodiscard]] std::int32_t GetParentID(std::int32_t id);
  /// The first folder inside a folder, 0 when there is none.
  [[nodiscard]] std::int32_t GetChildrenID(std::int32_t id);

  /// The row of List; empty texts when there is none.
  [[nodiscard]] ListFragment GetRecordsetFromList(std::int32_t id);
  /// Writes the columns whose text isn't empty; the others keep theirs.
  void UpdateListFragment(std::int32_t id, const ListFragment& fragment);
  /// Adds the row of List when it is missing.
  void InsertIdTableList(std::int32_t id);
  [[nodiscard]] bool CheckIdTableList(std::int32_t id);

 private:
  struct Commands;

  void Prepare();
  void Refresh();
  [[nodiscard]] store::Recordset& Open(store::Recordset& records, StringView statement) const;
  [[nodiscard]] TreeNodes ListNodes(StringView statement);
  void AddObjects(std::vector<TreeNode>& nodes) const;
  [[nodiscard]] std::int32_t LeftOfNew(std::int32_t parentID, std::int32_t beforeID,
                                       std::int32_t afterID, std::int32_t root);
  [[nodiscard]] NodeLevel ReadNeighbour(StringView statement, StringView level, StringView id);
  [[nodiscard]] std::int32_t SecondRow(StringView statement);
  [[nodiscard]] std::int32_t TrueParentID(std::int32_t id);
  void MoveBeside(std::int32_t id, bool down, std::int32_t root);
  void MoveLeft(std::int32_t id, std::int32_t root);
  void MoveRight(std::int32_t id, std::int32_t root);
  /// Runs an operation as one transaction and passes over its failure; true when it was committed.
  template <class Body>
  bool Operate(Body&& body);
  template <class Body>
  void Move(Body&& body);

  std::shared_ptr<store::Connection> connection_;
  String tableName_;
  store::Recordset records_;
  std::unique_ptr<Commands> commands_;
};

}  // namespace tessel
