#include "snippets/TreeBatch.h"

#include <algorithm>
#include <set>

#include "snippets/ColumnSizes.h"
#include "snippets/TreeCheck.h"
#include "store/Command.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

[[noreturn]] void Fail(StringView why) {
  throw vb::Failure(vb::InvalidCall, String(why), u"Tessel");
}

}  // namespace

TreeBatch::TreeBatch(const std::shared_ptr<store::Connection>& connection)
    : connection_(connection) {
  Read();
  added_.Open(u"SELECT ID, Name, lft, rgt, Root FROM Tree WHERE ID = 0", connection_);
}

void TreeBatch::Read() {
  store::Recordset records;
  records.Open(u"SELECT ID, Name, lft, rgt, Root FROM Tree ORDER BY lft", connection_);
  std::vector<std::size_t> open;
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    const auto number = [&](std::size_t column) {
      return store::ToLong(records.Cell(row, column));
    };
    Node node{number(0), number(4), number(2), number(3)};
    while (!open.empty() && nodes_[open.back()].Rgt < node.Lft) open.pop_back();
    const bool isTop = row == 0 && node.ID == TopID;
    if ((open.empty() && !isTop) || (!open.empty() && node.Rgt > nodes_[open.back()].Rgt)) {
      Fail(DamagedTree);
    }
    const std::size_t at = nodes_.size();
    places_.emplace(node.ID, at);
    nodes_.push_back(std::move(node));
    if (!open.empty()) {
      Node& parent = nodes_[open.back()];
      parent.Children.push_back(at);
      String name = store::ToText(records.Cell(row, 1));
      parent.ByName[{vb::LCase(name), nodes_[at].Kind}].emplace(nodes_[at].ID, std::move(name));
    }
    open.push_back(at);
  }
  if (nodes_.empty()) Fail(u"The tree has no top");
}

std::int32_t TreeBatch::TakeChild(std::int32_t folder, StringView name, std::int32_t kind,
                                  bool exact) {
  const auto place = places_.find(folder);
  if (place == places_.end()) return 0;
  auto& names = nodes_[place->second].ByName;
  const auto alike = names.find({vb::LCase(name), kind});
  if (alike == names.end()) return 0;
  const auto found =
      std::find_if(alike->second.begin(), alike->second.end(),
                   [&](const auto& child) { return !exact || child.second == name; });
  if (found == alike->second.end()) return 0;
  const std::int32_t id = found->first;
  alike->second.erase(found);
  return id;
}

std::int32_t TreeBatch::Add(StringView name, std::int32_t folder, std::int32_t kind) {
  const auto place = places_.find(folder);
  if (place == places_.end() || nodes_[place->second].Kind != FolderKind) {
    Fail(u"\"" + String(name) + u"\" can't be added to the library");
  }
  CheckNodeName(name);
  added_.AddNew();
  added_.SetField(u"Name", String(name));
  // Numbers come with `WriteNumbers`.
  added_.SetField(u"lft", std::int64_t{0});
  added_.SetField(u"rgt", std::int64_t{0});
  added_.SetField(u"Root", std::int64_t{kind});
  added_.Update();
  const std::int32_t id = store::ToLong(added_.Field(u"ID"));
  const std::size_t at = nodes_.size();
  places_.emplace(id, at);
  nodes_.push_back({id, kind});
  Node& parent = nodes_[place->second];
  if (kind == FolderKind) {
    parent.Children.push_front(at);
  } else {
    parent.Children.push_back(at);
  }
  return id;
}

void TreeBatch::Arrange(std::int32_t folder, const std::vector<std::int32_t>& children) {
  auto& all = nodes_[places_.at(folder)].Children;
  for (const std::int32_t kind : {FolderKind, RecordKind}) {
    std::vector<std::size_t> wanted;
    for (const std::int32_t id : children) {
      const std::size_t at = places_.at(id);
      if (nodes_[at].Kind == kind) wanted.push_back(at);
    }
    const std::set<std::size_t> moved(wanted.begin(), wanted.end());
    auto next = wanted.begin();
    for (std::size_t& child : all) {
      if (moved.contains(child)) child = *next++;
    }
  }
}

void TreeBatch::WriteNumbers() {
  store::Command write(connection_, u"UPDATE Tree SET lft = @lft , rgt=@rgt WHERE id = @Id");
  const auto writeNode = [&](Node& node, std::int32_t left, std::int32_t right) {
    if (node.Lft == left && node.Rgt == right) return;
    write.Execute({std::int64_t{left}, std::int64_t{right}, std::int64_t{node.ID}});
    node.Lft = left;
    node.Rgt = right;
  };
  struct Open {
    std::size_t Node, Next;
    std::int32_t Left;
  };
  std::int32_t number = 0;
  std::vector<Open> open{{0, 0, ++number}};
  while (!open.empty()) {
    Open& last = open.back();
    Node& node = nodes_[last.Node];
    if (last.Next == node.Children.size()) {
      writeNode(node, last.Left, ++number);
      open.pop_back();
    } else {
      const std::size_t child = node.Children[last.Next++];
      open.push_back({child, 0, ++number});
    }
  }
}

}  // namespace tessel
