#include "snippets/TreeGraft.h"

#include <algorithm>
#include <map>

#include "snippets/CSQLTree.h"
#include "store/Command.h"

namespace tessel {
namespace {

/// A node of the source, with its numbers there.
struct Node {
  std::int64_t ID = 0, Lft = 0, Rgt = 0, Root = FolderKind;
  store::Value Name;
};

class Graft {
 public:
  Graft(const std::shared_ptr<store::Connection>& target, std::int32_t parent,
        const std::shared_ptr<store::Connection>& source)
      : target_(target), source_(source), parent_(parent) {}

  std::vector<String> Run() {
    store::Transaction transaction(*target_);
    ReadNodes();
    nextID_ = NextID();
    Enter(folders_, SpanOfParent().Lft + 1);
    Enter(records_, SpanOfParent().Rgt);
    CopyRows();
    transaction.Commit();
    return std::move(paths_);
  }

 private:
  /// Two blocks: what stands in a folder right below the top, and the records beside them.
  void ReadNodes() {
    store::Recordset rows;
    rows.Open(u"SELECT ID, Name, lft, rgt, Root FROM Tree WHERE ID > 1 ORDER BY lft", source_);
    std::int64_t end = 0;
    bool inFolder = false;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      const auto number = [&](std::size_t column) {
        return std::int64_t{store::ToLong(rows.Cell(row, column))};
      };
      const Node node{number(0), number(2), number(3), number(4), rows.Cell(row, 1)};
      if (node.Lft > end) {
        end = node.Rgt;
        inFolder = node.Root == FolderKind;
      }
      (inFolder ? folders_ : records_).push_back(node);
    }
  }

  [[nodiscard]] std::int64_t NextID() const {
    store::Recordset last;
    last.Open(u"SELECT seq FROM sqlite_sequence WHERE name = 'Tree'", target_);
    const std::int64_t counted = last.RecordCount() == 0 ? 0 : store::ToLong(last.Cell(0, 0));
    last.Open(u"SELECT Max(ID) FROM Tree", target_);
    return std::max<std::int64_t>(counted, store::ToLong(last.Cell(0, 0))) + 1;
  }

  [[nodiscard]] NodeSpan SpanOfParent() const {
    store::Recordset row;
    row.Open(u"SELECT lft, rgt FROM Tree WHERE Root = 1 AND ID = " + vb::Str(parent_), target_);
    if (row.RecordCount() == 0) {
      throw vb::Failure(vb::InvalidCall, u"there is no folder " + vb::Str(parent_), u"Tessel");
    }
    return {store::ToLong(row.Cell(0, 0)), store::ToLong(row.Cell(0, 1))};
  }

  /// Makes room at `left` and puts a block there, its numbers closed up.
  void Enter(const std::vector<Node>& block, std::int64_t left) {
    if (block.empty()) return;
    for (const StringView column : {u"lft", u"rgt"}) {
      const String name(column);
      target_->Execute(u"UPDATE Tree SET " + name + u" = " + name + u" + " +
                       vb::Str(2 * block.size()) + u" WHERE " + name + u" >= " + vb::Str(left));
    }
    store::Command insert(
        target_, u"INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES (@a, @b, @c, @d, @e)");
    std::vector<const Node*> open;
    std::vector<String> names;
    std::int64_t number = left;
    for (const Node& node : block) {
      while (!open.empty() && open.back()->Rgt < node.Lft) {
        ++number;
        open.pop_back();
        names.pop_back();
      }
      // What is inside a node lies between its numbers without gaps.
      const std::int64_t width = node.Rgt - node.Lft;
      ids_[node.ID] = nextID_;
      insert.Execute({nextID_++, node.Name, number, number + width, node.Root});
      ++number;
      open.push_back(&node);
      names.push_back(store::ToText(node.Name));
      if (node.Root != FolderKind) paths_.push_back(vb::Join(names, u"/"));
    }
  }

  void CopyRows() {
    store::Recordset rows;
    rows.Open(
        u"SELECT Id, Text, TitleObj, TextObj, CompObj, NameObj, ClassObj, TextUserNotes FROM List",
        source_);
    store::Command insert(target_,
                          u"INSERT INTO List (Id, Text, TitleObj, TextObj, CompObj, NameObj, "
                          u"ClassObj, TextUserNotes) VALUES (@a, @b, @c, @d, @e, @f, @g, @h)");
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      std::vector<store::Value> values;
      for (std::size_t column = 0; column < rows.FieldNames().size(); ++column) {
        values.push_back(rows.Cell(row, column));
      }
      values.front() = ids_.at(store::ToLong(values.front()));
      insert.Execute(values);
    }
  }

  std::shared_ptr<store::Connection> target_, source_;
  std::int32_t parent_;
  std::vector<Node> folders_, records_;
  std::int64_t nextID_ = 0;
  std::map<std::int64_t, std::int64_t> ids_;
  std::vector<String> paths_;
};

}  // namespace

std::vector<String> GraftTree(const std::shared_ptr<store::Connection>& target, std::int32_t parent,
                              const std::shared_ptr<store::Connection>& source) {
  return Graft(target, parent, source).Run();
}

}  // namespace tessel
