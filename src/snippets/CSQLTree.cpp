#include "snippets/CSQLTree.h"

#include <unordered_map>

#include "snippets/ColumnSizes.h"
#include "snippets/TreeCommands.h"

namespace tessel {
namespace {

constexpr StringView DefaultCaption = u"User Database";
/// With the top alone there is nothing to list.
constexpr std::size_t FewestListed = 2;

std::int32_t LongOf(const store::Recordset& records, StringView field) {
  return store::ToLong(records.Field(field));
}

}  // namespace

CSQLTree::Commands::Commands(const std::shared_ptr<store::Connection>& connection,
                             const String& table)
    : cmdSelectNode(connection,
                    u"SELECT ID, Name, lft, rgt, Root FROM " + table + u" WHERE ID = @ItemID"),
      cmdSelectFolder(connection, u"SELECT ID, Name, lft, rgt, Root FROM " + table +
                                      u" WHERE (ID = @ItemID And Root=1)"),
      cmdGapLeft(connection, u"UPDATE " + table + u" SET lft = lft + @Gap WHERE lft >= @NewLeft"),
      cmdGapRight(connection, u"UPDATE " + table + u" SET rgt = rgt + @Gap WHERE rgt >= @NewLeft"),
      cmdDeleteSpan(connection, u"DELETE FROM " + table + u" WHERE lft BETWEEN @Lft AND @Rgt"),
      cmdLevel(connection,
               u"SELECT Count(P2.ID) AS indentation, P1.ID AS tmpID FROM Tree AS P1, tree AS P2 "
               u"WHERE (((P1.lft) Between P2.lft And P2.rgt)) GROUP BY P1.ID Having (((P1.Id) = "
               u"@Id)) ORDER BY P1.ID"),
      cmdSetPosition(connection, u"UPDATE " + table + u" SET lft = @ift , rgt=@rgt WHERE id = @Id"),
      cmdShiftSpan(connection, u"UPDATE " + table +
                                   u" SET lft = lft + @Con , rgt= rgt + @Con WHERE ( lft Between "
                                   u"@Start And @End )"),
      cmdShiftLeft(connection, u"UPDATE " + table +
                                   u" SET lft = lft + @Con WHERE ( lft Between @Start And @End )"),
      cmdShiftRight(connection, u"UPDATE " + table +
                                    u" SET rgt= rgt + @Con WHERE ( rgt Between @Start And @End )") {
}

CSQLTree::CSQLTree() = default;
CSQLTree::~CSQLTree() = default;

void CSQLTree::SetConnection(const std::shared_ptr<store::Connection>& connection) {
  connection_ = connection;
}

void CSQLTree::SetTableName(StringView name) {
  tableName_ = name;
  Prepare();
}

const String& CSQLTree::TableName() {
  Prepare();
  return tableName_;
}

/// Failures are passed over, each with its own statement.
void CSQLTree::Prepare() {
  records_.Close();
  if (connection_ && !connection_->IsOpen()) ResumeNext([&] { connection_->Open(); });
  ResumeNext([&] { Refresh(); });
  commands_ = std::make_unique<Commands>(connection_, tableName_);
}

/// Shows the numbers as they are now, whoever changed them.
void CSQLTree::Refresh() {
  if (records_.IsOpen()) return records_.Requery();
  records_.Open(u"SELECT ID, Name, lft, rgt, Root FROM " + tableName_ + u" ORDER BY lft",
                connection_);
}

store::Recordset& CSQLTree::Open(store::Recordset& records, StringView statement) const {
  records.Open(statement, connection_);
  return records;
}

/// The left number of a new node; 0 where there is no place for it.
std::int32_t CSQLTree::LeftOfNew(std::int32_t parentID, std::int32_t beforeID, std::int32_t afterID,
                                 std::int32_t root) {
  store::Recordset folder;
  const auto look = [&](std::int32_t id) {
    folder.Open(commands_->cmdSelectFolder, {std::int64_t{id}});
    return !folder.Eof();
  };
  if (parentID > 0) {
    if (!look(parentID)) return 0;
    return root == FolderKind ? LongOf(folder, u"lft") + 1 : LongOf(folder, u"rgt");
  }
  if (beforeID > 0) return look(beforeID) ? LongOf(folder, u"lft") : 0;
  if (afterID < 1) return look(TopID) ? LongOf(folder, u"rgt") : 0;
  return look(afterID) ? LongOf(folder, u"rgt") + 1 : 0;
}

std::int32_t CSQLTree::AddNode(StringView name, std::int32_t parentID, std::int32_t beforeID,
                               std::int32_t afterID, std::int32_t root) {
  std::int32_t added = 0;
  const bool done = Operate([&] {
    CheckNodeName(name);
    const std::int32_t left = LeftOfNew(parentID, beforeID, afterID, root);
    if (left <= 0) return;
    Run(commands_->cmdGapLeft, {2, left});
    Run(commands_->cmdGapRight, {2, left});
    Refresh();
    records_.AddNew();
    records_.SetField(u"Name", String(name));
    records_.SetField(u"lft", std::int64_t{left});
    records_.SetField(u"rgt", std::int64_t{left} + 1);
    records_.SetField(u"Root", std::int64_t{root});
    records_.Update();
    added = LongOf(records_, u"ID");
  });
  // A number that was undone with its row is nobody's.
  return done ? added : 0;
}

void CSQLTree::DeleteNode(std::int32_t id) {
  Operate([&] {
    store::Recordset node;
    node.Open(commands_->cmdSelectNode, {std::int64_t{id}});
    // Another process may have taken it; then there is no gap to close.
    if (node.Eof()) return;
    const std::int32_t left = LongOf(node, u"lft"), right = LongOf(node, u"rgt");
    const std::int32_t gap = -(right - left + 1);
    Run(commands_->cmdDeleteSpan, {left, right});
    Run(commands_->cmdGapLeft, {gap, left});
    Run(commands_->cmdGapRight, {gap, left});
    Refresh();
  });
}

bool CSQLTree::UpdateNodeName(std::int32_t id, StringView name) {
  Operate([&] {
    CheckNodeName(name);
    Refresh();
    if (records_.RecordCount() == 0) return;
    records_.MoveFirst();
    records_.Find(u"ID = " + vb::Str(id), 0, true);
    if (records_.Eof()) return;
    records_.SetField(u"Name", String(name));
    records_.Update();
  });
  return true;
}

TreeNodes CSQLTree::ListNodes(StringView statement) {
  store::Recordset records;
  if (Open(records, statement).RecordCount() < FewestListed) return std::nullopt;
  std::vector<TreeNode> nodes;
  nodes.reserve(records.RecordCount());
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    const std::int32_t id = store::ToLong(records.Cell(row, 0));
    if (id <= TopID) continue;
    nodes.push_back({id,
                     store::ToText(records.Cell(row, 1)),
                     store::ToLong(records.Cell(row, 2)),
                     store::ToLong(records.Cell(row, 3)),
                     {},
                     {}});
  }
  return nodes;
}

TreeNodes CSQLTree::GetNodes() {
  return ListNodes(u"SELECT K2.ID, K2.Name, Count(*) AS lvl, K2.Root FROM " + tableName_ +
                   u" AS K1, " + tableName_ +
                   u" AS K2 WHERE K2.lft Between K1.lft And K1.rgt GROUP BY K2.ID, K2.Name, "
                   u"K2.Root, K2.lft ORDER BY K2.lft");
}

TreeNodes CSQLTree::GetNodesAndList() {
  TreeNodes nodes = ListNodes(
      u"SELECT K2.ID, K2.Name, COUNT(*) AS lvl, K2.Root  FROM " + tableName_ + u" as K1, " +
      tableName_ +
      u" as K2 WHERE K2.lft BETWEEN K1.lft AND K1.rgt GROUP BY K2.ID, K2.Name, K2.Root, K2.lft "
      u"ORDER BY K2.lft");
  if (!nodes) return nodes;
  std::unordered_map<std::int32_t, TreeNode*> places;
  for (TreeNode& node : *nodes) places.emplace(node.ID, &node);
  store::Recordset list;
  static_cast<void>(Open(list, u"SELECT Id, NameObj, ClassObj From List ORDER BY Id"));
  for (std::size_t row = 0; row < list.RecordCount(); ++row) {
    const auto place = places.find(store::ToLong(list.Cell(row, 0)));
    if (place == places.end()) continue;
    place->second->NameObj = store::ToText(list.Cell(row, 1));
    place->second->ClassObj = store::ToText(list.Cell(row, 2));
  }
  return nodes;
}

TreeNodes CSQLTree::GetNodesForParent(std::int32_t parentID) {
  store::Recordset records;
  static_cast<void>(Open(
      records, u"SELECT K2.ID, K2.Name, COUNT(*) AS lvl  FROM " + tableName_ + u" as K1, " +
                   tableName_ + u" as K2, " + tableName_ +
                   u" as K3 WHERE (K2.lft BETWEEN K1.lft AND K1.rgt) AND (K1.lft BETWEEN K3.lft "
                   u"AND K3.rgt) AND (K3.ID = " +
                   vb::Str(parentID) +
                   u") GROUP BY K2.lft, K2.ID, K2.Name  ORDER BY COUNT(*), K2.ID"));
  records.SetFilter(u"lvl = 2");
  if (records.RecordCount() == 0) return std::nullopt;
  std::vector<TreeNode> nodes;
  for (; !records.Eof(); records.MoveNext()) {
    nodes.push_back({LongOf(records, u"ID"),
                     store::ToText(records.Field(u"Name")),
                     LongOf(records, u"lvl"),
                     0,
                     {},
                     {}});
  }
  return nodes;
}

std::optional<String> CSQLTree::NameOfNode(std::int32_t id) {
  store::Recordset records;
  if (Open(records, u"SELECT Name FROM " + tableName_ + u" WHERE ID = " + vb::Str(id)).Eof()) {
    return std::nullopt;
  }
  return store::ToText(records.Field(u"Name"));
}

String CSQLTree::GetNameRootTree() {
  store::Recordset records;
  if (Open(records, u"SELECT Name FROM NameMDB").Eof()) return String(DefaultCaption);
  return store::ToText(records.Field(u"Name"));
}

}  // namespace tessel
